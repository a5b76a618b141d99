// The number-theory kernels against plain reference loops: modular powers and orders of 2 by
// repeated multiplication, divisor tests by trial division, squares modulo q by GMP, the
// Lucas-Lehmer word-vector steps against known Mersenne primes.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <set>

#include "ZkTestHilfen.h"

using namespace zktest;

namespace {

uint32_t modpotNaiv(uint64_t b, uint64_t e, uint64_t m) {
    uint64_t r = 1 % m;
    b %= m;
    while (e != 0) {
        if (e & 1) r = r * b % m;
        b = b * b % m;
        e >>= 1;
    }
    return uint32_t(r);
}

// The order of 2 modulo odd q by stepping through the powers; 0 if above the limit.
uint32_t ordnungNaiv(uint32_t q, uint32_t grenze) {
    uint64_t x = 2 % q;
    for (uint32_t e = 1; e <= grenze; ++e) {
        if (x == 1) return e;
        x = x * 2 % q;
    }
    return 0;
}

bool istPrimNaiv(uint32_t n) {
    if (n < 2) return false;
    for (uint32_t d = 2; uint64_t(d) * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return true;
}

// The largest odd prime factor of x > 0 (1 for a power of 2), by trial division.
uint64_t groessterUngeraderFaktor(uint64_t x) {
    x >>= __builtin_ctzll(x);
    uint64_t groesster = 1;
    for (uint64_t p = 3; p * p <= x; p += 2) {
        while (x % p == 0) {
            x /= p;
            groesster = p;
        }
    }
    return std::max(groesster, x);
}

}  // namespace

TEST(KernModular, PotenzGgtInverse) {
    EXPECT_EQ(aModPot32(5, 0, 7), 1);
    EXPECT_EQ(aModPot32(5, 3, 1), 0);
    for (int i = 0; i < 20000 / kFaktor; ++i) {
        const uint32_t b = zufallsWort(), e = zufallsWort(), m = zufallsWort() >> (zufallsWort() % 31);
        if (m == 0) continue;
        ASSERT_EQ(uint32_t(aModPot32(int32_t(b), int32_t(e), int32_t(m))), modpotNaiv(b, e, m))
            << b << "^" << e << " mod " << m;
    }
    EXPECT_EQ(aGGT(0, 7), 7);
    EXPECT_EQ(aGGT(7, 0), 7);
    for (int i = 0; i < 5000; ++i) {
        const uint32_t a = zufallsWort() >> (zufallsWort() % 32), b = zufallsWort() >> (zufallsWort() % 32);
        ASSERT_EQ(uint32_t(aGGT(int32_t(a), int32_t(b))), std::gcd(a, b)) << a << " " << b;
        const uint32_t m = (b >> 1) | 2;
        const uint32_t inv = uint32_t(aModInverse(int32_t(a >> 1), int32_t(m)));
        if (std::gcd(a >> 1, m) == 1) {
            ASSERT_EQ(uint64_t(a >> 1) % m * inv % m, 1u % m) << a << " " << m;
        } else {
            ASSERT_EQ(inv, 0u);
        }
    }
    int32_t rest = 9;
    EXPECT_EQ(aDivMod2(-1, &rest), 0x7FFFFFFF);
    EXPECT_EQ(rest, 1);
    EXPECT_EQ(aMod2P(-5, 2147483647), int32_t(uint32_t(-5) & 0x7FFFFFFFu));
}

TEST(KernModular, QuadratUndProbedivision) {
    for (uint32_t x = 0; x < 200000 / uint32_t(kFaktor); ++x) {
        const uint32_t w = uint32_t(std::sqrt(double(x)));
        if (w * w == x) {
            ASSERT_NE(aMayBeQuadrat32(int32_t(x)), 0) << x;  // a no must be right
        }
    }
    for (int i = 0; i < 20000; ++i) {
        const uint32_t w = zufallsWort() >> 16;
        ASSERT_NE(aMayBeQuadrat32(int32_t(w * w)), 0) << w;
    }
    int nein = 0;
    for (uint32_t x = 1000000; x < 1010000; ++x) nein += aMayBeQuadrat32(int32_t(x)) == 0;
    EXPECT_GT(nein, 9000);  // the filter rejects most non-squares
    for (uint32_t n = 0; n < 20000 / uint32_t(kFaktor); ++n) {
        const uint32_t r = uint32_t(std::sqrt(double(n)));
        ASSERT_EQ(aPrimMod(int32_t(n), int32_t(r)) == 0, n < 4 ? r < 2 || n < 2 : istPrimNaiv(n)) << n;
    }
    EXPECT_EQ(aPrimMod(2147483647, 46340), 0);  // 2^31 - 1 is prime
    EXPECT_EQ(aPrimMod(int32_t(4294967291u), 65535), 0);
    EXPECT_EQ(aPrimMod(int32_t(4294049777u), 65535), 65521);  // 65521 * 65537
}

TEST(KernModular, ModHypSpecial) {
    Mpz b;
    for (int i = 0; i < 3000 / kFaktor; ++i) {
        std::vector<uint32_t> w = muster(1 + int(zufallsWort() % 5), int(zufallsWort() % kMusterArten));
        b.setze(w);
        mpz_mul_ui(b.z, b.z, 120);
        const sw::Hyp B = hypAus(b.z, int32_t(w.size()) + 2);
        uint32_t p = (zufallsWort() >> (zufallsWort() % 31)) | 1;
        if (p < 3) p = 7;
        const uint32_t r = uint32_t(aModHypSpecial(B, int32_t(p)));
        // The smallest odd r with p | B + r, by the definition.
        const uint32_t rest = mpz_fdiv_ui(b.z, p);
        uint64_t soll = rest == 0 ? 0 : p - rest;
        if (soll % 2 == 0) soll += p;
        ASSERT_EQ(uint64_t(r), soll > 0xFFFFFFFEull ? 0xFFFFFFFFull : soll) << p;
    }
    sw::Hyp B(3);
    B[1] = 120 * 7 * 11;
    EXPECT_EQ(aModHypSpecial(B, 7), 7);  // a multiple of p: p, not 0 and not 2p
    EXPECT_EQ(aModHypSpecial(B, 11), 11);
    EXPECT_EQ(aModHypSpecial(B, 4), -1);
}

TEST(KernMersenne, OrdnungGegenSchrittweiseRechnung) {
    // Every odd q below a bound, prime or not, against stepping through the powers of 2.
    const uint32_t bis = 30000 / uint32_t(kFaktor);
    for (uint32_t q = 3; q < bis; q += 2) {
        const uint32_t grenze = q % 3 == 0 ? q / 3 : q;
        ASSERT_EQ(uint32_t(aMersenneTeiler32(int32_t(q), int32_t(grenze))), ordnungNaiv(q, grenze)) << q;
    }
    EXPECT_EQ(aMersenneTeiler32(2147483647, 2147483646), 31);
    // Large primes: the order is a divisor of q - 1 that makes 2^order = 1 and none smaller.
    for (int i = 0; i < 300; ++i) {
        uint32_t q = (zufallsWort() % 2000000000u) | 1;
        while (!istPrimNaiv(q)) q += 2;
        const uint32_t o = uint32_t(aMersenneTeiler32(int32_t(q), int32_t(q - 1)));
        ASSERT_NE(o, 0u) << q;
        ASSERT_EQ((q - 1) % o, 0u) << q;
        ASSERT_EQ(modpotNaiv(2, o, q), 1u) << q;
        for (uint32_t p = 2; p <= 50000 && p <= o; ++p) {
            if (o % p == 0 && istPrimNaiv(p)) {
                ASSERT_NE(modpotNaiv(2, o / p, q), 1u) << q << " " << p;
            }
        }
        ASSERT_EQ(uint32_t(aMersenneTeiler32(int32_t(q), int32_t(o - 1))), 0u);
        // The Decimal and Hyp forms agree with the word form.
        DecimalSatz d = decAus(q);
        ASSERT_EQ(uint32_t(aMersenneTeilerDec(&d, int32_t(q - 1))), o) << q;
    }
}

TEST(KernMersenne, BreiteTeilerUndSchranke) {
    // Known prime divisors of Mersenne numbers beyond 32 bits, up to 84 bits.
    struct Fall {
        const char* q;
        uint32_t p;
    };
    const Fall faelle[] = {{"3203431780337", 59},          {"761838257287", 67},
                           {"9361973132609", 73},          {"1113491139767", 79},
                           {"57912614113275649087721", 83}, {"7432339208719", 101},
                           {"2550183799", 103},            {"1066818132868207", 113}};
    Mpz m, qz;
    for (const Fall& f : faelle) {
        mpz_set_str(qz.z, f.q, 10);
        mpz_set_ui(m.z, 1);
        mpz_mul_2exp(m.z, m.z, f.p);
        mpz_sub_ui(m.z, m.z, 1);
        ASSERT_NE(mpz_divisible_p(m.z, qz.z), 0) << "test data " << f.q;
        DecimalSatz d = decAusMpz(qz.z);
        EXPECT_EQ(uint32_t(aMersenneTeilerDec(&d, 2000000000)), f.p) << f.q;
        EXPECT_EQ(uint32_t(aMersenneTeilerDec(&d, int32_t(f.p - 1))), 0u) << f.q;
        sw::Hyp h = hypAus(qz.z, 4), h2 = hypAus(qz.z, 4);
        EXPECT_EQ(uint32_t(aMersenneTeilerHyp(h, h2, 2000000000)), f.p) << f.q;
        EXPECT_TRUE(hypGleich(h, qz.z));  // left unchanged
    }
    // The Hyp form with q of several words.
    mpz_set_ui(m.z, 1);
    mpz_mul_2exp(m.z, m.z, 127);
    mpz_sub_ui(m.z, m.z, 1);  // M_127 is prime: the order of 2 modulo it is 127
    sw::Hyp h = hypAus(m.z, 5), h2 = hypAus(m.z, 5);
    EXPECT_EQ(aMersenneTeilerHyp(h, h2, 1000), 127);
    EXPECT_EQ(aMersenneTeilerHyp(h, h2, 126), 0);
    // The bound of the word form: the largest prime factor.
    for (int i = 0; i < 2000 / kFaktor; ++i) {
        const uint32_t x = (zufallsWort() >> 1) | 1;
        ASSERT_EQ(uint32_t(aMersTeilerMaxReduce32(int32_t(x))), groessterUngeraderFaktor(x)) << x;
    }
}

TEST(KernMersenne, KleineOrdnungenUeber32Bit) {
    // Primes q = k n + 1 above 2^32 with 2^n = 1 mod q, so that the order of 2 divides n and
    // lies within the 31-bit limits of the kernels. The reference divides n's primes out.
    Mpz q, r, zwei, e;
    mpz_set_ui(zwei.z, 2);
    int faelle = 0;
    for (int runde = 0; runde < 40 && faelle < 25 / kFaktor + 3; ++runde) {
        const uint64_t n = (uint64_t(zufallsWort()) % (1u << 26)) + (1u << 24);
        for (uint64_t k = ((1ull << 32) / n + 2) & ~1ull; k < (1ull << 32) / n + 3000; k += 2) {
            mpz_set_ui(q.z, (unsigned long)(k * n + 1));
            mpz_set_ui(e.z, (unsigned long)n);
            mpz_powm(r.z, zwei.z, e.z, q.z);
            if (mpz_cmp_ui(r.z, 1) != 0 || mpz_probab_prime_p(q.z, 30) == 0) continue;
            uint64_t ordnung = n, rest = n;
            for (uint64_t p = 2; p * p <= rest || rest > 1; ++p) {
                if (p * p > rest) p = rest;
                if (rest % p != 0) continue;
                while (rest % p == 0) rest /= p;
                while (ordnung % p == 0) {
                    mpz_set_ui(e.z, (unsigned long)(ordnung / p));
                    mpz_powm(r.z, zwei.z, e.z, q.z);
                    if (mpz_cmp_ui(r.z, 1) != 0) break;
                    ordnung /= p;
                }
            }
            const uint64_t qq = k * n + 1;
            DecimalSatz d = decAus(qq);
            ASSERT_EQ(uint64_t(uint32_t(aMersenneTeilerDec(&d, 2147483647))), ordnung) << qq;
            ASSERT_EQ(uint64_t(uint32_t(aMersenneTeilerDec(&d, int32_t(ordnung)))), ordnung) << qq;
            ASSERT_EQ(aMersenneTeilerDec(&d, int32_t(ordnung - 1)), 0) << qq;
            // The same q as a Hyp with an extra zero word goes through GMP's numbers.
            sw::Hyp h(3);
            h[0] = 3;
            h[1] = int32_t(uint32_t(qq));
            h[2] = int32_t(uint32_t(qq >> 32));
            h[3] = 0;
            ASSERT_EQ(uint64_t(uint32_t(aMersenneTeilerHyp(h, h, 2147483647))), ordnung) << qq;
            // The bound keeps every prime that divides the order (a prime exponent's candidate).
            EXPECT_GE(uint64_t(uint32_t(aMersTeilerMaxReduceDec(&d, 2147483647))), groessterUngeraderFaktor(ordnung))
                << qq;
            ++faelle;
            break;
        }
    }
    EXPECT_GT(faelle, 2);
}

TEST(KernMersenne, SchrankeBreiterKandidaten) {
    // The bound from q of 33 to 160 bits against trial division in GMP: the largest prime
    // factor of the odd part of q - 1 when the primes below 2^16 settle it, else that part
    // with them divided out, cut to the limit.
    Mpz q, c;
    for (int i = 0; i < 400 / kFaktor; ++i) {
        const int bits = 33 + int(zufallsWort() % 128);
        const std::vector<uint32_t> w = muster((bits + 31) / 32, int(zufallsWort() % kMusterArten));
        q.setze(w);
        mpz_fdiv_r_2exp(q.z, q.z, mp_bitcnt_t(bits));
        mpz_setbit(q.z, 32);
        mpz_setbit(q.z, 0);
        if (i % 3 == 0) {  // a smooth q - 1 now and then: 2^a 3^b 5^c ... + 1
            mpz_set_ui(q.z, 1);
            for (int j = 0; j < 12; ++j) mpz_mul_ui(q.z, q.z, 3 + 2 * (zufallsWort() % 40));
            mpz_mul_2exp(q.z, q.z, 1 + zufallsWort() % 8);
            mpz_add_ui(q.z, q.z, 1);
        }
        const uint32_t grenze = i % 2 ? 2147483647u : (zufallsWort() >> 1) + 1;
        mpz_sub_ui(c.z, q.z, 1);
        mpz_fdiv_q_2exp(c.z, c.z, mpz_scan1(c.z, 0));
        uint32_t groesster = 1;
        for (uint32_t p = 3; p < 65536; p += 2) {
            if (mpz_divisible_ui_p(c.z, p)) {
                groesster = p;
                while (mpz_divisible_ui_p(c.z, p)) mpz_divexact_ui(c.z, c.z, p);
            }
        }
        uint32_t soll;
        if (mpz_cmp_ui(c.z, 1) == 0) soll = std::min(groesster, grenze);
        else if (mpz_cmp_ui(c.z, grenze) <= 0) soll = uint32_t(mpz_get_ui(c.z));
        else soll = grenze;
        sw::Hyp h = hypAus(q.z, int32_t(mpz_sizeinbase(q.z, 2) / 32 + 2));
        ASSERT_EQ(uint32_t(aMersTeilerMaxReduceHyp(h, int32_t(grenze))), soll) << q.text() << " " << grenze;
        if (mpz_sizeinbase(q.z, 2) <= 96) {
            DecimalSatz dq = decAusMpz(q.z);
            ASSERT_EQ(uint32_t(aMersTeilerMaxReduceDec(&dq, int32_t(grenze))), soll) << q.text() << " " << grenze;
        }
    }
}

TEST(KernMersenne, StartOffsetTabelle) {
    // Rows: prime, residue, step, long step. The third row wraps to 0; the rows behind it
    // must still move.
    int32_t tabelle[4][4] = {{5, 1, 2, 3}, {7, 3, 1, 6}, {11, 10, 1, 4}, {13, 0, 5, 12}};
    auto reste = [&] { return std::vector<int32_t>{tabelle[0][1], tabelle[1][1], tabelle[2][1], tabelle[3][1]}; };
    EXPECT_NE(aTeilerStartOffset(4, &tabelle[0][0]), 0);
    EXPECT_EQ(reste(), (std::vector<int32_t>{3, 4, 0, 5}));
    EXPECT_EQ(aTeilerStartOffset2(4, &tabelle[0][0]), 0);
    EXPECT_EQ(reste(), (std::vector<int32_t>{1, 3, 4, 4}));
}

TEST(KernMersenne, QuadratModulo64) {
    Mpz x, q, r, ist;
    for (int i = 0; i < 20000 / kFaktor; ++i) {
        const uint64_t qq = ((uint64_t(zufallsWort()) << 32 | zufallsWort()) >> (zufallsWort() % 60)) | 1;
        const unsigned __int128 xv = (static_cast<unsigned __int128>(zufallsWort()) << 64 |
                                      (uint64_t(zufallsWort()) << 32 | zufallsWort())) >>
                                     (zufallsWort() % 96);
        DecimalSatz dx = decAus(xv), dq = decAus(qq);
        dx.reserved = 0x4242;
        const int b = i % 3 == 0 ? 1 : 0;
        if (b) aQuadSpecialDecMod64x(&dx, &dq, 1); else aQuadSpecialDecMod64(&dx, &dq);
        const uint32_t w[3] = {uint32_t(xv), uint32_t(xv >> 32), uint32_t(xv >> 64)};
        mpz_import(x.z, 3, -1, 4, 0, 0, w);
        mpz_import(q.z, 1, -1, 8, 0, 0, &qq);
        mpz_mul(r.z, x.z, x.z);
        mpz_mul_2exp(r.z, r.z, mp_bitcnt_t(b));
        mpz_mod(r.z, r.z, q.z);
        const unsigned __int128 erg = decWert(dx);
        ASSERT_EQ(uint64_t(erg >> 64), 0u);
        ASSERT_EQ(uint64_t(erg), mpz_get_ui(r.z)) << x.text() << " mod " << q.text();
        ASSERT_EQ(dx.reserved, 0x4242);
    }
}

TEST(KernMersenne, BekannteMersenneExponenten) {
    const uint32_t bekannt[] = {2,       3,       5,       7,        13,       17,       19,       31,
                                61,      89,      107,     127,      521,      607,      1279,     2203,
                                2281,    3217,    4253,    4423,     9689,     9941,     11213,    19937,
                                21701,   23209,   44497,   86243,    110503,   132049,   216091,   756839,
                                859433,  1257787, 1398269, 2976221,  3021377,  6972593,  13466917, 20996011,
                                24036583, 25964951, 30402457, 32582657, 37156667, 42643801, 43112609, 57885161,
                                74207281, 77232917};
    const std::set<uint32_t> menge(std::begin(bekannt), std::end(bekannt));
    for (uint32_t p = 0; p <= 250000; ++p) {
        ASSERT_EQ(aIsInMers(int32_t(p)), menge.count(p) ? -1 : 0) << p;
    }
    for (uint32_t p : bekannt) EXPECT_EQ(aIsInMers(int32_t(p)), -1) << p;  // also those above the loop
    EXPECT_EQ(aIsInMers(-1), 0);
}

TEST(KernWortvektor, KaratsubaSchritteUndLucasLehmer) {
    // One Karatsuba level built from the primitives must square like aQuadriere.
    for (int m : {1, 2, 3, 8, 33, 200}) {
        for (int art = 0; art < kMusterArten; ++art) {
            std::vector<uint32_t> a = muster(2 * m, art);
            std::vector<int32_t> wert(a.begin(), a.end()), quadrat(4 * size_t(m) + 2, 0);
            std::vector<int32_t> t1(size_t(m) + 1), t2(2 * size_t(m) + 2), soll(4 * size_t(m));
            aQuadriere(wert.data(), m, quadrat.data());                  // low half squared
            aQuadriere(wert.data() + m, m, quadrat.data() + 2 * m);      // high half squared
            aAddOp1PlusOp2(wert.data() + m, wert.data(), m, t1.data());  // a0 + a1
            aQuadriere(t1.data(), m + 1, t2.data());
            // The fused recombination works on a copy of the halves' squares; the two-pass one below
            // must give the same.
            std::vector<int32_t> einPass(quadrat);
            aKaratsubaMitte(t2.data(), m, einPass.data());
            aSubSubFromErg(quadrat.data(), quadrat.data() + 2 * m, 2 * m, t2.data());
            aAddiere(t2.data(), 2 * m + 1, quadrat.data() + m);
            aQuadriere(wert.data(), 2 * m, soll.data());
            for (int i = 0; i < 4 * m; ++i) {
                ASSERT_EQ(quadrat[size_t(i)], soll[size_t(i)]) << m << " word " << i;
                ASSERT_EQ(einPass[size_t(i)], soll[size_t(i)]) << m << " word " << i << " (one pass)";
            }
        }
    }
    // aAddiere carries on past its n words; aSubtrahiere borrows on.
    std::vector<int32_t> ziel{-1, -1, -1, 0};
    const int32_t eins[1] = {1};
    aAddiere(eins, 1, ziel.data());
    EXPECT_EQ(ziel, (std::vector<int32_t>{0, 0, 0, 1}));
    aSubtrahiere(eins, 1, ziel.data());
    EXPECT_EQ(ziel, (std::vector<int32_t>{-1, -1, -1, 0}));
    int32_t erg[6] = {5, 0, 0, 1, 0, 0}, ziel2[6] = {0, 0, 0, 0, 0, 0};
    const int32_t s1[2] = {2, 0}, s2[2] = {2, 0};
    aSubSubFromErgAndAddTo(s1, s2, 2, erg, ziel2);
    EXPECT_EQ(erg[0], 1);
    EXPECT_EQ(ziel2[0], 1);
    EXPECT_EQ(ziel2[3], 1);
    // Overlapping moves, down and up.
    std::vector<int32_t> quelle{1, 2, 3, 4, 5};
    aMovForward(quelle.data() + 1, 4, quelle.data());
    EXPECT_EQ(quelle, (std::vector<int32_t>{2, 3, 4, 5, 5}));
    aMove(quelle.data(), 3, quelle.data() + 1);
    EXPECT_EQ(quelle, (std::vector<int32_t>{2, 2, 3, 4, 5}));

    // The Lucas-Lehmer iteration with aQuadriere and aFalt: prime exactly for the Mersenne
    // prime exponents.
    for (int p : {3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 61, 89, 107, 127, 521, 607}) {
        const int worte = (p + 31) / 32;
        std::vector<int32_t> s(size_t(worte), 0), q(2 * size_t(worte), 0);
        s[0] = 4;
        int32_t null = 0;
        for (int i = 2; i < p && null == 0; ++i) {
            aQuadriere(s.data(), worte, q.data());
            null = aFalt(p, q.data(), s.data());
        }
        EXPECT_EQ(null != 0, aIsInMers(p) != 0) << p;
    }
    // aFaltung folds without the subtraction; 0 and 1 minus 2 wrap to the top.
    std::vector<int32_t> prod(2, 0), rest(1);
    prod[0] = 1;
    EXPECT_EQ(aFalt(7, prod.data(), rest.data()), 0);
    EXPECT_EQ(rest[0], 126);  // 1 - 2 = 126 mod 127
    prod[0] = 127 * 3;
    EXPECT_EQ(aFaltung(7, prod.data(), rest.data()), -1);
}

TEST(KernSonst, HashesUndBytes) {
    for (int i = 0; i < 5000; ++i) {
        const uint32_t x = zufallsWort();
        const int k = 1 + int(zufallsWort() % 32);
        uint32_t summe = 0, oder = 0;
        for (int b = 0; b < 32; b += k) {
            const uint32_t teil = uint32_t((uint64_t(x) >> b) & ((uint64_t(1) << k) - 1));
            summe += teil;
            oder ^= teil;
        }
        const uint32_t maske = uint32_t((uint64_t(1) << k) - 1);
        ASSERT_EQ(uint32_t(aHASH32(int32_t(x), k)), summe & maske);
        ASSERT_EQ(uint32_t(aHASH32XOR(int32_t(x), k)), oder & maske);
    }
    EXPECT_EQ(aHASH32(12345, 0), 0);
    Mpz a;
    for (int n : {1, 2, 5, 33}) {
        const std::vector<uint32_t> w = muster(n, int(zufallsWort() % kMusterArten));
        a.setze(w);
        const sw::Hyp h = hypAus(w, n);
        std::vector<uint8_t> bytes(4 * size_t(n));
        const int32_t laenge = aByteString(bytes.data(), h);
        EXPECT_EQ(size_t(laenge), (mpz_sizeinbase(a.z, 2) + 7) / 8);
        sw::Hyp zurueck(laenge / 4 + 1);
        aCardinal(zurueck, bytes.data(), laenge);
        EXPECT_TRUE(hypGleich(zurueck, a.z)) << n;
    }
    sw::Hyp null(1);
    uint8_t b[4];
    EXPECT_EQ(aByteString(b, null), 1);
}
