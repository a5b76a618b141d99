// One transform length on its own: the digits go in and come out unchanged at every chain
// layout (one, four and sixteen chains), and the AVX2 carry pass gives the same bits as the
// plain one, step after step, both equal to a GMP loop.
#include <gmp.h>
#include <gtest/gtest.h>

#include "mersenne/DwtTransform.h"
#include "primality/HypMpz.h"

namespace sw::test {
namespace {

Mpz Mersenne(uint32_t p) {
    Mpz m;
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    return m;
}

Mpz Zufall(gmp_randstate_t zustand, uint32_t p) {
    Mpz r;
    mpz_urandomb(r, zustand, p);
    mpz_mod(r, r, Mersenne(p).get());
    return r;
}

TEST(DwtTransform, ResiduesComeBackUnchangedAtEveryChainLayout) {
    gmp_randstate_t zustand;
    gmp_randinit_default(zustand);
    // 6 words: one chain; 64: four; 1024 and 4096: sixteen (the vector pass where there is one).
    for (const auto& [p, n] :
         {std::pair<uint32_t, size_t>{89, 6}, {1279, 64}, {19937, 1024}, {86243, 4096}}) {
        DwtTransform t(p, n);
        Mpz groesster = Mersenne(p);
        mpz_sub_ui(groesster, groesster, 1);
        for (const Mpz& r : {Mpz(0), Mpz(1), groesster, Zufall(zustand, p), Zufall(zustand, p)}) {
            t.Setzen(r);
            Mpz zurueck;
            t.Lesen(zurueck);
            EXPECT_EQ(mpz_cmp(zurueck, r), 0) << "p=" << p << " n=" << n;
        }
    }
    gmp_randclear(zustand);
}

TEST(DwtTransform, VectorAndPlainCarryPassesAgreeBitForBitAndWithGmp) {
    gmp_randstate_t zustand;
    gmp_randinit_default(zustand);
    for (const auto& [p, n] : {std::pair<uint32_t, size_t>{19937, 1024}, {86243, 4096}}) {
        DwtTransform vektor(p, n), schlicht(p, n, false);
        const Mpz m = Mersenne(p);
        Mpz s = Zufall(zustand, p);
        vektor.Setzen(s);
        schlicht.Setzen(s);
        for (int schritt = 0; schritt < 40; ++schritt) {
            const DwtTransform::Befund a = vektor.QuadrierenMinusZwei();
            const DwtTransform::Befund b = schlicht.QuadrierenMinusZwei();
            EXPECT_EQ(a.rundung, b.rundung);
            EXPECT_TRUE(a.summeStimmt);
            EXPECT_TRUE(b.summeStimmt);
            EXPECT_LT(a.rundung, 0.4);
        }
        for (int i = 0; i < 40; ++i) {
            mpz_mul(s, s, s);
            mpz_sub_ui(s, s, 2);
            mpz_mod(s, s, m.get());
        }
        Mpz x, y;
        vektor.Lesen(x);
        schlicht.Lesen(y);
        EXPECT_EQ(mpz_cmp(x, s), 0) << "p=" << p;
        EXPECT_EQ(mpz_cmp(y, s), 0) << "p=" << p;
    }
    gmp_randclear(zustand);
}

}  // namespace
}  // namespace sw::test
