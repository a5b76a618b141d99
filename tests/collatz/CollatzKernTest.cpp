// The library kernels the Collatz windows lean on, each against an independent reference:
// aUlamAnzi, aUlamTest and aUlamTestMult against the plain loop over starts of up to 96 bits
// (one step too few or too many must answer "no"), aHypMul1FuenfPlus1 against GMP's
// (3n + 1) / 2 for odd values from one word to hundreds.
#include <gmp.h>
#include <gtest/gtest.h>

#include <random>

#include "TestUmgebung.h"
#include "frame/Decimal.h"
#include "primality/HypMpz.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

class CollatzKern : public SwTest {};

TEST_F(CollatzKern, UlamZaehlerWieDieSchlichteSchleife) {
    std::mt19937_64 zufall(16);
    for (int i = 0; i < 3000; ++i) {
        // Small starts, then random ones up to 96 bits, where the walk climbs past 2^117.
        unsigned __int128 n = i < 1000 ? unsigned(i + 1) : (unsigned __int128)(zufall() >> (i % 40)) << (i % 33) | zufall();
        n &= ((unsigned __int128)1 << 96) - 1;
        if (n == 0) n = 1;
        unsigned __int128 m = n;
        long schritte = 0, mult = 0;
        while (m > 1) {
            if (m & 1) {
                m = 3 * m + 1;
                ++mult;
            } else {
                m >>= 1;
            }
            ++schritte;
        }
        const Decimal d = Decimal::ausBreit(Decimal::Breit(n));
        ASSERT_EQ(aUlamAnzi(&d), schritte) << i;
        EXPECT_EQ(aUlamTest(&d, Long(schritte)), -1) << i;
        EXPECT_EQ(aUlamTest(&d, Long(schritte + 1)), 0) << i;
        if (schritte > 0) {
            EXPECT_EQ(aUlamTest(&d, Long(schritte - 1)), 0) << i;
        }
        EXPECT_EQ(aUlamTestMult(&d, Long(mult)), -1) << i;
        EXPECT_EQ(aUlamTestMult(&d, Long(mult + 1)), 0) << i;
        if (mult > 0) {
            EXPECT_EQ(aUlamTestMult(&d, Long(mult - 1)), 0) << i;
        }
    }
}

TEST_F(CollatzKern, DreiNPlusEinsHalbeWieGmp) {
    gmp_randstate_t rs;
    gmp_randinit_default(rs);
    gmp_randseed_ui(rs, 16);
    Mpz n, erwartet;
    for (unsigned bits : {1u, 31u, 32u, 33u, 63u, 64u, 65u, 95u, 96u, 1000u, 20000u}) {
        for (int i = 0; i < 20; ++i) {
            // Random odd values, and 2^bits - 1, whose carry runs through every word.
            if (i == 0) {
                mpz_set_ui(n.get(), 0);
                mpz_setbit(n.get(), bits);
                mpz_sub_ui(n.get(), n.get(), 1);
            } else {
                mpz_urandomb(n.get(), rs, bits);
                mpz_setbit(n.get(), 0);
            }
            mpz_mul_ui(erwartet.get(), n.get(), 3);
            mpz_add_ui(erwartet.get(), erwartet.get(), 1);
            mpz_tdiv_q_2exp(erwartet.get(), erwartet.get(), 1);
            Hyp h = MpzZuHyp(n.get());
            h.mindestens(h.anzahl() + 1);
            aHypMul1FuenfPlus1(h);
            EXPECT_EQ(mpz_cmp(Mpz(h).get(), erwartet.get()), 0) << bits << " " << i;
        }
    }
    gmp_randclear(rs);
}

}  // namespace
}  // namespace sw::test
