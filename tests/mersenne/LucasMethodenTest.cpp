// The three exact methods and the transform of the Lucas-Lehmer engine against the list of
// Mersenne primes and against an independent GMP loop: verdicts, Res64 values, the Karatsuba
// levels against GMP's square, and the remaining-time line.
#include <gtest/gtest.h>

#include <gmp.h>

#include <cstring>
#include <random>
#include <set>

#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "mersenne/LucasLauf.h"
#include "primality/HypMpz.h"

namespace sw::test {
namespace {

class LucasMethoden : public SwTest {};

LucasBefund laufen(uint32_t p, int32_t methode) {
    LucasAuftrag a;
    a.p = p;
    a.methode = methode;
    a.pruefpunkte = false;
    return LucasLauf(a, nullptr);
}

// S(p-1) by plain mpz arithmetic, its low 64 bits.
uint64_t res64Gmp(uint32_t p) {
    Mpz m, s(4);
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    for (uint32_t i = 2; i < p; ++i) {
        mpz_mul(s, s, s);
        mpz_sub_ui(s, s, 2);
        mpz_mod(s, s, m);
    }
    return mpz_getlimbn(s, 0);
}

const std::set<uint32_t> kMersenne{3, 5, 7, 13, 17, 19, 31, 61, 89, 107, 127, 521, 607, 1279, 2203, 2281, 3217, 4253, 4423};

TEST_F(LucasMethoden, EveryExactMethodFindsTheMersennePrimes) {
    // All prime exponents up to 700 (word boundaries 31, 61, 63/64/65, 127 among them), then
    // the larger Mersenne exponents up to 4423 with a composite prime exponent next to each.
    std::vector<uint32_t> exponenten;
    for (uint32_t p = 3; p <= 700; ++p)
        if (LucasExponentPrim(p)) exponenten.push_back(p);
    for (uint32_t p : {1277u, 1279u, 2203u, 2207u, 2281u, 3217u, 3221u, 4253u, 4259u, 4423u, 4441u})
        exponenten.push_back(p);
    for (int32_t methode : {LucasMethodeBinomisch, LucasMethodeAddSpezial, LucasMethodeKaratsuba}) {
        for (uint32_t p : exponenten) {
            const LucasBefund b = laufen(p, methode);
            const bool prim = kMersenne.count(p) > 0;
            EXPECT_EQ(b.ergebnis, prim ? LucasErgebnis::Prim : LucasErgebnis::Zusammengesetzt) << methode << " " << p;
            EXPECT_EQ(b.iteration, p - 1) << methode << " " << p;
            if (prim) {
                EXPECT_EQ(b.res64, 0u);
            }
        }
    }
}

TEST_F(LucasMethoden, Res64AgreesAcrossMethodsAndWithGmp) {
    EXPECT_EQ(Res64Text(res64Gmp(11)), "00000000000006C8");
    for (uint32_t p : {11u, 23u, 29u, 37u, 41u, 43u, 47u, 53u, 59u, 67u, 71u, 97u, 101u, 131u, 1061u, 2083u, 4421u}) {
        const uint64_t soll = res64Gmp(p);
        for (int32_t methode = 0; methode < LucasMethodenAnzahl; ++methode) {
            const LucasBefund b = laufen(p, methode);
            EXPECT_EQ(Res64Text(b.res64), Res64Text(soll)) << "p " << p << " method " << methode;
            EXPECT_EQ(b.ergebnis, LucasErgebnis::Zusammengesetzt);
        }
    }
    const LucasBefund t = laufen(4423, LucasMethodeDwt);
    EXPECT_EQ(t.ergebnis, LucasErgebnis::Prim);
}

TEST_F(LucasMethoden, SmallAndWrongExponents) {
    EXPECT_EQ(LucasLehmer(2), LucasErgebnis::Prim);
    for (int32_t methode = 0; methode < LucasMethodenAnzahl; ++methode) {
        const LucasBefund b = laufen(3, methode);
        EXPECT_EQ(b.ergebnis, LucasErgebnis::Prim) << methode;
        EXPECT_EQ(b.iteration, 2u);
    }
    for (uint32_t p : {0u, 1u, 2u}) {
        try {
            laufen(p, LucasMethodeKaratsuba);
            ADD_FAILURE() << p;
        } catch (const Laufzeitfehler& e) {
            EXPECT_NE(e.Beschreibung().find("mindestens 3"), std::string::npos);
        }
    }
    try {
        laufen(4095, LucasMethodeKaratsuba);
        ADD_FAILURE();
    } catch (const Laufzeitfehler& e) {
        EXPECT_NE(e.Beschreibung().find("Primzahl"), std::string::npos);
    }
}

// The five levels against GMP's square, with N + 1 = 32 (stops at level 4 on halves of two
// words) and 64 (reaches level 5): random words, and all bits set for the longest carries.
TEST_F(LucasMethoden, KaratsubaLevelsSquareLikeGmp) {
    std::mt19937 zufall(7);
    for (uint32_t p : {1021u, 2039u}) {
        LucasVorbereiten(LucasMethodeKaratsuba, p);
        const size_t n = LucasWert.size();
        EXPECT_EQ(n, p < 1024 ? 32u : 64u);
        for (int runde = 0; runde < 3; ++runde) {
            for (size_t k = 0; k < n; ++k) LucasWert[k] = runde == 0 ? -1 : Long(zufall());
            std::vector<mp_limb_t> a(n / 2), q(n);
            std::memcpy(a.data(), LucasWert.data(), n * 4);
            mpn_sqr(q.data(), a.data(), mp_size_t(n / 2));
            KaratsubaQuadrat();
            EXPECT_EQ(std::memcmp(q.data(), LucasQuadrat.data(), 2 * n * 4), 0) << p << " " << runde;
        }
        LucasFreigeben();
    }
}

TEST_F(LucasMethoden, RemainingTimeKeepsItsOddRounding) {
    LucasZeitStart = 0;
    LucasZeitEnde = 1.5;
    EXPECT_EQ(RestDauerText(44496, 44497), "Noch 0 Jahre, 0 Monate, 1 Tag, 12 Stunden, 0 Minuten");
    LucasZeitEnde = 364.6;
    EXPECT_EQ(RestDauerText(44496, 44497), "Noch 1 Jahr, 0 Monate, -1 Tage, 14 Stunden, 24 Minuten");
    LucasZeitEnde = 0.5;  // 2 iterations left: one day
    EXPECT_EQ(RestDauerText(44495, 44497), "Noch 0 Jahre, 0 Monate, 1 Tag, 0 Stunden, 0 Minuten");
}

}  // namespace
}  // namespace sw::test
