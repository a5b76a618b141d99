// BPSW against GMP's own probable-prime test, and the pseudoprimes each half lets through.
#include <gtest/gtest.h>

#include <random>

#include "primality/Bpsw.h"
#include "primality/HypMpz.h"

namespace sw {
namespace {

bool Bpsw(unsigned long n) { return BpswTest(Mpz(n)); }

TEST(Bpsw, AgreesWithGmpBelowTwoHundredThousand) {
    for (unsigned long n = 0; n < 200000; ++n) {
        Mpz z(n);
        ASSERT_EQ(BpswTest(z), mpz_probab_prime_p(z, 30) != 0) << n;
    }
}

TEST(Bpsw, EachHalfHasPseudoprimesTheOtherCatches) {
    // Strong pseudoprimes to base 2: pass the first half, fail the whole.
    for (unsigned long n : {2047ul, 3277ul, 4033ul, 4681ul, 8321ul, 3215031751ul}) {
        EXPECT_TRUE(StarkerPseudoprimTest(Mpz(n), 2)) << n;
        EXPECT_FALSE(Bpsw(n)) << n;
    }
    // Strong Lucas pseudoprimes (Selfridge): pass the second half, fail the whole.
    for (unsigned long n : {5459ul, 5777ul, 10877ul, 16109ul, 18971ul}) {
        EXPECT_TRUE(StarkerLucasTest(Mpz(n))) << n;
        EXPECT_FALSE(Bpsw(n)) << n;
    }
    // Squares have no Selfridge D; the search must end, with composite.
    EXPECT_FALSE(StarkerLucasTest(Mpz(1009ul * 1009ul)));
    EXPECT_FALSE(Bpsw(1000003ul * 1000003ul));
}

TEST(Bpsw, LargeNumbersAgainstGmp) {
    std::mt19937_64 zufall(20261123);
    gmp_randstate_t gmpZufall;
    gmp_randinit_default(gmpZufall);
    gmp_randseed_ui(gmpZufall, zufall());
    Mpz n, p, q;
    for (int i = 0; i < 300; ++i) {
        const unsigned long bits = 64 + zufall() % 1200;
        mpz_urandomb(n, gmpZufall, bits);
        mpz_setbit(n, 0);
        ASSERT_EQ(BpswTest(n), mpz_probab_prime_p(n, 30) != 0) << "bits " << bits << " seed 20261123 #" << i;
        // Products of two primes of similar size: composite, never passed.
        mpz_urandomb(p, gmpZufall, bits / 2);
        mpz_nextprime(p, p);
        mpz_nextprime(q, p);
        mpz_mul(n, p, q);
        ASSERT_FALSE(BpswTest(n));
        ASSERT_TRUE(BpswTest(q));
    }
    gmp_randclear(gmpZufall);
    // Mersenne primes and their neighbours through the Hyp bridge.
    for (unsigned long e : {61ul, 89ul, 107ul, 127ul, 521ul, 607ul, 1279ul}) {
        mpz_ui_pow_ui(n, 2, e);
        mpz_sub_ui(n, n, 1);
        EXPECT_TRUE(BpswTest(MpzZuHyp(n))) << e;
        mpz_add_ui(n, n, 2);
        EXPECT_EQ(BpswTest(MpzZuHyp(n)), mpz_probab_prime_p(n.get(), 30) != 0) << e;
    }
}

TEST(HypMpz, RoundTripKeepsEveryWord) {
    Mpz z, zurueck;
    mpz_set_ui(z, 0);
    EXPECT_EQ(MpzZuHyp(z).anzahl(), 1);
    mpz_ui_pow_ui(z, 2, 1000);
    mpz_sub_ui(z, z, 1);
    const Hyp h = MpzZuHyp(z);
    EXPECT_EQ(h.anzahl(), 32);
    HypZuMpz(zurueck, h);
    EXPECT_EQ(mpz_cmp(z, zurueck), 0);
}

}  // namespace
}  // namespace sw
