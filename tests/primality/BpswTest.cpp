// BPSW against GMP's own probable-prime test, and the pseudoprimes each half lets through.
#include <gtest/gtest.h>

#include <random>
#include <vector>

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
    // Every 2^e - 1 up to e = 1300 (the folding reduction of Mersenne numbers), composite
    // ones such as 2^11 - 1 = 2047, a strong pseudoprime to base 2, included.
    for (unsigned long e = 2; e <= 1300; ++e) {
        mpz_ui_pow_ui(n, 2, e);
        mpz_sub_ui(n, n, 1);
        ASSERT_EQ(BpswTest(n), mpz_probab_prime_p(n, 30) != 0) << "2^" << e << "-1";
    }
    // Mersenne primes and their neighbours through the Hyp bridge.
    for (unsigned long e : {61ul, 89ul, 107ul, 127ul, 521ul, 607ul, 1279ul}) {
        mpz_ui_pow_ui(n, 2, e);
        mpz_sub_ui(n, n, 1);
        EXPECT_TRUE(BpswTest(MpzZuHyp(n))) << e;
        mpz_add_ui(n, n, 2);
        EXPECT_EQ(BpswTest(MpzZuHyp(n)), mpz_probab_prime_p(n.get(), 30) != 0) << e;
    }
}

TEST(Bpsw, JedeZahlUnterZehnMillionenGegenDasSieb) {
#if !defined(NDEBUG) || defined(__SANITIZE_ADDRESS__)
    // The sanitizer run keeps the random comparison against GMP below; the full range is the
    // release build's, where it takes seconds.
    GTEST_SKIP() << "release build only: ten million tests take minutes under the sanitizers";
#endif
    constexpr unsigned long kBis = 10000000;
    std::vector<bool> prim(kBis, true);
    prim[0] = prim[1] = false;
    for (unsigned long p = 2; p * p < kBis; ++p) {
        if (prim[p]) {
            for (unsigned long v = p * p; v < kBis; v += p) prim[v] = false;
        }
    }
    Mpz z;
    for (unsigned long n = 0; n < kBis; ++n) {
        mpz_set_ui(z, n);
        ASSERT_EQ(BpswTest(z), bool(prim[n])) << n;
    }
}

TEST(Bpsw, ZehntausendZufallszahlenGegenGmp) {
#if defined(__SANITIZE_ADDRESS__)
    constexpr int kAnzahl = 1000;
#else
    constexpr int kAnzahl = 10000;
#endif
    gmp_randstate_t rs;
    gmp_randinit_default(rs);
    gmp_randseed_ui(rs, 4711);
    Mpz n, zehn(10), oben;
    int prim = 0;
    for (int i = 0; i < kAnzahl; ++i) {
        // Odd n with 20 to 400 digits, evenly over the digit counts.
        const unsigned long stellen = 20 + gmp_urandomm_ui(rs, 381);
        mpz_pow_ui(oben, zehn, stellen);
        mpz_urandomm(n, rs, oben);
        mpz_setbit(n, 0);
        const bool gmp = mpz_probab_prime_p(n, 50) != 0;
        prim += gmp;
        ASSERT_EQ(BpswTest(n), gmp) << "seed 4711 #" << i;
    }
    gmp_randclear(rs);
    EXPECT_GT(prim, kAnzahl / 200);  // the sample holds primes, not only composites
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
