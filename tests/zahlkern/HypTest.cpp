// The Hyp family against GMP: every member over sizes from 1 to 10,000 words in the carry and
// borrow patterns, with guard words behind each target's room; the edge cases callers rely on;
// the debug room check; the sw::Hyp holder.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "ZkTestHilfen.h"

using namespace zktest;

namespace {

sw::Hyp wert(uint64_t v, int32_t raum = 4) {
    std::vector<uint32_t> w{uint32_t(v)};
    if (v >> 32) w.push_back(uint32_t(v >> 32));
    return hypAus(w, raum);
}

// The sizes of the differential runs: all small ones, the limb and threshold edges, and a
// few long ones up to 10,000 words.
std::vector<int> groessen() {
    std::vector<int> g{1, 2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 257};
    if (kFaktor == 1) g.insert(g.end(), {1000, 3001, 10000});
    else g.push_back(1500);
    return g;
}

}  // namespace

TEST(HypKanten, WieDieAufruferSieBrauchen) {
    sw::Hyp a = wert(4294967296ull);
    aDecHyp(a);  // the borrow shrinks the count
    EXPECT_EQ(hypWorte(a), Worte({4294967295u}));
    sw::Hyp b = wert(17);
    EXPECT_EQ(aDivHyp32(b, 100), 17);  // below the divisor: quotient 0, remainder the number
    EXPECT_EQ(hypWorte(b), Worte({0}));
    sw::Hyp d = wert(123456789012ull);
    EXPECT_EQ(aSubHypHyp(d, wert(123456789012ull)), 0);
    EXPECT_EQ(hypWorte(d), Worte({0}));
    sw::Hyp q(8), h = wert(5);
    q[1] = 77;  // a stale word where the quotient goes
    aDivHypHyp(q, h, wert(1ull << 40));
    EXPECT_EQ(hypWorte(q), Worte({0}));
    EXPECT_EQ(hypWorte(h), Worte({5}));

    EXPECT_EQ(aGetHighBitHyp(wert(0)), -1);
    sw::Hyp n(5);
    n[0] = 0;  // a fresh array
    aSetBitHyp(n, 70);
    EXPECT_EQ(hypWorte(n), Worte({0, 0, 64}));
    EXPECT_EQ(aBitTestHyp(n, 70), -1);
    aNullHyp(n, 5);
    EXPECT_EQ(n[0], 1);
    for (int k = 1; k <= 5; ++k) EXPECT_EQ(n[k], 0);
    EXPECT_EQ(aIsOddHyp(wert(3)), -1);
}

TEST(HypKanten, DezimalBruecken) {
    DecimalSatz d = decAus((static_cast<unsigned __int128>(0x89ABCDEFu) << 64) | 0x0123456776543210ull);
    d.reserved = 0x7777;
    sw::Hyp h(3);
    aDec2Hyp(h, &d);
    EXPECT_EQ(hypWorte(h), Worte({0x76543210u, 0x01234567u, 0x89ABCDEFu}));
    EXPECT_EQ(aCmpHypDec(h, &d), 0);
    DecimalSatz zurueck = decAus(0);
    zurueck.reserved = 0x5555;
    aHyp2Dec(&zurueck, h);
    EXPECT_EQ(decWert(zurueck), decWert(d));
    EXPECT_EQ(zurueck.reserved, 0x5555);
    aIncHyp(h);
    EXPECT_EQ(aCmpHypDec(h, &d), 1);
    sw::Hyp gross = hypAus(muster(4, 0), 4);
    EXPECT_EQ(aCmpHypDec(gross, &d), 1);  // more than three words beats every Decimal
    sw::Hyp klein = wert(5, 5);
    aAddHypDec(klein, &d);
    Mpz soll({d.Lo32, d.Mid32, d.Hi32});
    mpz_add_ui(soll.z, soll.z, 5);
    EXPECT_TRUE(hypGleich(klein, soll.z));
    const DecimalSatz null = decAus(0);
    sw::Hyp n(3);
    n[0] = 0;
    aDec2Hyp(n, &null);
    EXPECT_EQ(hypWorte(n), Worte({0}));
}

TEST(HypDifferenz, MitEinemWort) {
    Mpz a, r, tmp;
    for (int groesse : groessen()) {
        for (int art = 0; art < kMusterArten; ++art) {
            const std::vector<uint32_t> w = muster(groesse, art);
            a.setze(w);
            const uint32_t v = art == 1 ? 0xFFFFFFFFu : (zufallsWort() >> (zufallsWort() % 32));
            const uint32_t d = v == 0 ? 1 : v;
            const int32_t raum = groesse + 2;
            auto pruefe = [&](const char* name, const sw::Hyp& h) {
                ASSERT_TRUE(hypGleich(h, r.z)) << name << " size " << groesse << " art " << art << " v " << v;
                ASSERT_TRUE(waechterHeil(h, raum)) << name;
            };
            // The members that change the Hyp in place, each with its reference on a into r.
            struct Schritt {
                const char* name;
                std::function<void(int32_t*)> f;
                std::function<void()> ref;
            };
            auto plus = [&](unsigned long k) { return [&, k] { mpz_add_ui(r.z, a.z, k); }; };
            auto minus = [&](unsigned long k) {  // below 0 the Hyp keeps its value
                return [&, k] { mpz_cmp_ui(a.z, k) >= 0 ? mpz_sub_ui(r.z, a.z, k) : mpz_set(r.z, a.z); };
            };
            const Schritt schritte[] = {
                {"aAddHyp32", [&](int32_t* x) { aAddHyp32(x, int32_t(v)); }, plus(v)},
                {"aSubHyp32", [&](int32_t* x) { aSubHyp32(x, int32_t(v)); }, minus(v)},
                {"aMulHyp32", [&](int32_t* x) { aMulHyp32(x, int32_t(v)); }, [&] { mpz_mul_ui(r.z, a.z, v); }},
                {"aIncHyp", aIncHyp, plus(1)},
                {"aDecHyp", aDecHyp, minus(1)},
                {"aAddHyp2", aAddHyp2, plus(2)},
                {"aSubHyp2", aSubHyp2, minus(2)},
                {"aAddHyp8", aAddHyp8, plus(8)},
                {"aMulHyp2", aMulHyp2, [&] { mpz_mul_2exp(r.z, a.z, 1); }},
                {"aDivHyp2", aDivHyp2, [&] { mpz_fdiv_q_2exp(r.z, a.z, 1); }},
            };
            for (const Schritt& s : schritte) {
                sw::Hyp h = hypAus(w, raum);
                s.f(h);
                s.ref();
                pruefe(s.name, h);
            }
            sw::Hyp h = hypAus(w, raum);
            const uint32_t rest = uint32_t(aDivHyp32(h, int32_t(d)));
            ASSERT_EQ(rest, mpz_fdiv_q_ui(r.z, a.z, d)) << "aDivHyp32";
            pruefe("aDivHyp32", h);
            ASSERT_EQ(uint32_t(aModHyp32(hypAus(w, raum), int32_t(d))), mpz_fdiv_ui(a.z, d));
            ASSERT_EQ(aMODHyp120(hypAus(w, raum)), int32_t(mpz_fdiv_ui(a.z, 120)));
            sw::Hyp q(raum), dividend = hypAus(w, raum);
            const uint32_t rest2 = uint32_t(aDivModHyp32(q, dividend, int32_t(d)));
            ASSERT_EQ(rest2, mpz_fdiv_q_ui(r.z, a.z, d));
            ASSERT_TRUE(hypGleich(q, r.z)) << "aDivModHyp32";
            ASSERT_EQ(uint32_t(dividend[1]), rest2);
            const int c = mpz_cmp_ui(a.z, v);
            ASSERT_EQ(aCmpHyp32(hypAus(w, raum), int32_t(v)), c < 0 ? -1 : (c > 0 ? 1 : 0));
            // The Collatz double step, on an odd value.
            std::vector<uint32_t> ungerade = w;
            ungerade[0] |= 1;
            tmp.setze(ungerade);
            h = hypAus(ungerade, raum);
            aHypMul1FuenfPlus1(h);
            mpz_mul_ui(r.z, tmp.z, 3);
            mpz_add_ui(r.z, r.z, 1);
            mpz_fdiv_q_2exp(r.z, r.z, 1);
            pruefe("aHypMul1FuenfPlus1", h);
        }
    }
}

TEST(HypDifferenz, BitsUndSchiebungen) {
    Mpz a, r;
    for (int groesse : groessen()) {
        for (int art = 0; art < kMusterArten; ++art) {
            const std::vector<uint32_t> w = muster(groesse, art);
            a.setze(w);
            const int n = int(zufallsWort() % 200);
            const int32_t raum = groesse + n / 32 + 1;
            sw::Hyp h = hypAus(w, raum);
            aShiftLeftHyp(h, n);
            mpz_mul_2exp(r.z, a.z, mp_bitcnt_t(n));
            ASSERT_TRUE(hypGleich(h, r.z)) << "aShiftLeftHyp " << groesse << " " << n;
            ASSERT_TRUE(waechterHeil(h, raum));
            h = hypAus(w, raum);
            aShiftRightHyp(h, n);
            mpz_fdiv_q_2exp(r.z, a.z, mp_bitcnt_t(n));
            ASSERT_TRUE(hypGleich(h, r.z)) << "aShiftRightHyp " << groesse << " " << n;
            const sw::Hyp fest = hypAus(w, raum);
            ASSERT_EQ(aGetLowBitHyp(fest), long(mpz_scan1(a.z, 0)));
            ASSERT_EQ(aGetHighBitHyp(fest), long(mpz_sizeinbase(a.z, 2)) - 1);
            const int bit = int(zufallsWort() % uint32_t(32 * groesse + 40));
            ASSERT_EQ(aBitTestHyp(fest, bit), mpz_tstbit(a.z, mp_bitcnt_t(bit)) ? -1 : 0);
            ASSERT_EQ(aIsEvenHyp(fest), mpz_even_p(a.z) ? -1 : 0);
            h = hypAus(w, 32 * groesse + 41);
            aSetBitHyp(h, bit);
            mpz_setbit(a.z, mp_bitcnt_t(bit));
            ASSERT_TRUE(hypGleich(h, a.z)) << "aSetBitHyp " << bit;
        }
    }
}

TEST(HypDifferenz, ZweiHypsBisZehntausendWorte) {
    Mpz a, b, r, q;
    for (int ga : groessen()) {
        for (int gb : {1, 2, 3, 5, ga / 2 + 1, ga, ga + 3}) {
            const int art = int(zufallsWort() % kMusterArten), artB = int(zufallsWort() % kMusterArten);
            const std::vector<uint32_t> wa = muster(ga, art), wb = muster(gb, artB);
            a.setze(wa);
            b.setze(wb);
            const std::string fall = std::to_string(ga) + "x" + std::to_string(gb) + " art " +
                                     std::to_string(art) + "/" + std::to_string(artB);
            const int32_t raumSumme = std::max(ga, gb) + 1;
            sw::Hyp h = hypAus(wa, raumSumme);
            aAddHypHyp(h, hypAus(wb, gb));
            mpz_add(r.z, a.z, b.z);
            ASSERT_TRUE(hypGleich(h, r.z)) << "aAddHypHyp " << fall;
            ASSERT_TRUE(waechterHeil(h, raumSumme));

            h = hypAus(wa, raumSumme);
            const int c = mpz_cmp(a.z, b.z);
            ASSERT_EQ(aSubHypHyp(h, hypAus(wb, gb)), c < 0 ? -1 : (c == 0 ? 0 : 1)) << fall;
            c >= 0 ? mpz_sub(r.z, a.z, b.z) : mpz_set(r.z, a.z);
            ASSERT_TRUE(hypGleich(h, r.z)) << "aSubHypHyp " << fall;
            ASSERT_EQ(aCmpHypHyp(hypAus(wa, ga), hypAus(wb, gb)), c < 0 ? -1 : (c > 0 ? 1 : 0));
            ASSERT_EQ(aEqualHypHyp(hypAus(wa, ga), hypAus(wa, ga)), -1);
            ASSERT_EQ(aEqualHypHyp(hypAus(wa, ga), hypAus(wb, gb)), c == 0 ? -1 : 0);

            sw::Hyp t = zielMitWaechtern(ga + gb);
            aMulHypHyp(t, hypAus(wa, ga), hypAus(wb, gb));
            mpz_mul(r.z, a.z, b.z);
            ASSERT_TRUE(hypGleich(t, r.z)) << "aMulHypHyp " << fall;
            ASSERT_TRUE(waechterHeil(t, ga + gb));

            sw::Hyp s = zielMitWaechtern(2 * ga);
            aQuadHyp(s, hypAus(wa, ga));
            mpz_mul(r.z, a.z, a.z);
            ASSERT_TRUE(hypGleich(s, r.z)) << "aQuadHyp " << fall;
            ASSERT_TRUE(waechterHeil(s, 2 * ga));
            sw::Hyp s2(2 * ga), arbeit(ga + 1);
            aQuadHypSpezial(s2, hypAus(wa, ga), arbeit);
            ASSERT_TRUE(hypGleich(s2, r.z)) << "aQuadHypSpezial " << fall;

            // Division with the room rule of the callers: a + b + 1 for all three.
            const int32_t raumDiv = ga + gb + 1;
            sw::Hyp quot(raumDiv), dividend = hypAus(wa, raumDiv);
            aDivHypHyp(quot, dividend, hypAus(wb, raumDiv));
            mpz_fdiv_qr(q.z, r.z, a.z, b.z);
            ASSERT_TRUE(hypGleich(quot, q.z)) << "aDivHypHyp quotient " << fall;
            ASSERT_TRUE(hypGleich(dividend, r.z)) << "aDivHypHyp remainder " << fall;
            ASSERT_TRUE(waechterHeil(dividend, raumDiv));
            dividend = hypAus(wa, ga);
            aModHypHyp(dividend, hypAus(wb, gb));
            ASSERT_TRUE(hypGleich(dividend, r.z)) << "aModHypHyp " << fall;

            // The an forms leave their operands alone, take stale targets and unnormalised input.
            std::vector<uint32_t> mitNullen = wb;
            mitNullen.push_back(0);
            mitNullen.push_back(0);
            const sw::Hyp ungenormt = hypAus(mitNullen, gb + 2);
            sw::Hyp ziel = hypAus(muster(ga + gb + 2, 1), ga + gb + 2);
            anMulHypHyp(ziel, hypAus(wa, ga), ungenormt);
            mpz_mul(r.z, a.z, b.z);
            ASSERT_TRUE(hypGleich(ziel, r.z)) << "anMulHypHyp " << fall;
            anAddHypHyp(ziel, hypAus(wa, ga), ungenormt);
            mpz_add(r.z, a.z, b.z);
            ASSERT_TRUE(hypGleich(ziel, r.z)) << "anAddHypHyp " << fall;
            ASSERT_EQ(anSubHypHyp(ziel, hypAus(wa, ga), ungenormt), c < 0 ? -1 : (c == 0 ? 0 : 1));
            c >= 0 ? mpz_sub(r.z, a.z, b.z) : mpz_set_ui(r.z, 0);
            ASSERT_TRUE(hypGleich(ziel, r.z)) << "anSubHypHyp " << fall;
            ASSERT_EQ(anCmpHypHyp(hypAus(wa, ga), ungenormt), c < 0 ? -1 : (c > 0 ? 1 : 0));
            sw::Hyp rest = hypAus(muster(ga + 1, 1), ga + 1);
            const sw::Hyp aFest = hypAus(wa, ga);
            anDivHypHyp(ziel, rest, aFest, ungenormt);
            ASSERT_TRUE(hypGleich(ziel, q.z)) << "anDivHypHyp " << fall;
            mpz_fdiv_r(r.z, a.z, b.z);
            ASSERT_TRUE(hypGleich(rest, r.z)) << "anDivHypHyp remainder " << fall;
            ASSERT_TRUE(hypGleich(aFest, a.z)) << "anDivHypHyp changed its operand";
            anModHypHyp(rest, aFest, ungenormt);
            ASSERT_TRUE(hypGleich(rest, r.z)) << "anModHypHyp " << fall;
        }
    }
}

// Short products run in one kernel per pair of limb counts, each with its own column sums and
// odd-word top limb: every pair of lengths up to and past the last kernel, with every carry
// pattern, and nothing written past the product.
TEST(HypDifferenz, KurzeProdukteJederLaenge) {
    Mpz a, b, r;
    for (int ga = 1; ga <= 18; ++ga) {
        for (int art = 0; art < kMusterArten; ++art) {
            const std::vector<uint32_t> wa = muster(ga, art);
            a.setze(wa);
            for (int gb = 1; gb <= 18; ++gb) {
                const std::vector<uint32_t> wb = muster(gb, (art + gb) % kMusterArten);
                b.setze(wb);
                sw::Hyp t = zielMitWaechtern(ga + gb);
                aMulHypHyp(t, hypAus(wa, ga), hypAus(wb, gb));
                mpz_mul(r.z, a.z, b.z);
                ASSERT_TRUE(hypGleich(t, r.z)) << ga << "x" << gb << " art " << art;
                ASSERT_TRUE(waechterHeil(t, ga + gb)) << ga << "x" << gb;
            }
            sw::Hyp s = zielMitWaechtern(2 * ga);
            aQuadHyp(s, hypAus(wa, ga));
            mpz_mul(r.z, a.z, a.z);
            ASSERT_TRUE(hypGleich(s, r.z)) << ga << "^2 art " << art;
            ASSERT_TRUE(waechterHeil(s, 2 * ga)) << ga << "^2";
        }
    }
}

TEST(HypDifferenz, MersenneRestUndModulareSubtraktion) {
    Mpz a, m, r, b;
    for (int p : {2, 3, 5, 31, 32, 33, 61, 64, 89, 127, 521, 4423}) {
        mpz_set_ui(m.z, 1);
        mpz_mul_2exp(m.z, m.z, mp_bitcnt_t(p));
        mpz_sub_ui(m.z, m.z, 1);
        const int worte = (2 * p + 31) / 32;
        for (int art = 0; art < kMusterArten; ++art) {
            const std::vector<uint32_t> w = muster(worte, art);
            a.setze(w);
            sw::Hyp h = hypAus(w, worte + 1);
            aModMersenneHyp(h, p);
            mpz_mod(r.z, a.z, m.z);
            ASSERT_TRUE(hypGleich(h, r.z)) << "aModMersenneHyp p=" << p << " art " << art;
        }
        // 2^p - 1 itself and its multiples are the residue 0.
        sw::Hyp mm = hypAus(m.z, 2 * p / 32 + 3);
        aModMersenneHyp(mm, p);
        EXPECT_EQ(hypWorte(mm), Worte({0}));
        // (a - b) mod m with b above a adds the modulus.
        mpz_fdiv_q_ui(a.z, m.z, 3);
        mpz_fdiv_q_ui(b.z, m.z, 2);
        sw::Hyp x = hypAus(a.z, p / 32 + 3);
        aSubModHypHyp1(x, hypAus(b.z, p / 32 + 2), hypAus(m.z, p / 32 + 2));
        mpz_sub(r.z, a.z, b.z);
        mpz_mod(r.z, r.z, m.z);
        ASSERT_TRUE(hypGleich(x, r.z)) << "aSubModHypHyp1 p=" << p;
    }
}

TEST(HypHalter, WaechstMitInhalt) {
    sw::Hyp h(2);
    EXPECT_EQ(hypWorte(h), Worte({0}));  // a fresh holder is a valid 0
    h[0] = 2;
    h[1] = 11;
    h[2] = 22;
    h.mindestens(10);  // growing keeps the words and zeroes the new room
    EXPECT_EQ(h.obergrenze(), 10);
    EXPECT_EQ(hypWorte(h), Worte({11, 22}));
    EXPECT_EQ(h[10], 0);
    sw::Hyp kopie = h;  // a deep copy of the whole room
    kopie[1] = 5;
    EXPECT_EQ(h[1], 11);
    EXPECT_EQ(kopie.obergrenze(), 10);
    h.setzeObergrenze(2);  // cut to the count
    EXPECT_EQ(h.obergrenze(), 2);
    EXPECT_EQ(hypWorte(h), Worte({11, 22}));
}

#ifndef NDEBUG
namespace {

void ueberlaufAdd() {
    sw::Hyp h(1);
    h[1] = -1;
    aAddHyp32(h, 1);
}

void ueberlaufMul() {
    sw::Hyp t(3);
    const sw::Hyp a = wert(0xFFFFFFFFFFull);
    aMulHypHyp(t, a, a);
}

void ueberlaufShift() {
    sw::Hyp h(1);
    h[1] = 3;
    aShiftLeftHyp(h, 40);
}

}  // namespace

TEST(HypRaumDeathTest, UeberlaufNenntDieFunktion) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(ueberlaufAdd(), "aAddHyp32");
    EXPECT_DEATH(ueberlaufMul(), "aMulHypHyp");
    EXPECT_DEATH(ueberlaufShift(), "aShiftLeftHyp");
    // Within the room nothing stops.
    sw::Hyp ok(2);
    ok[1] = -1;
    aAddHyp32(ok, 1);
    EXPECT_EQ(hypWorte(ok), Worte({0, 1}));
}
#endif
