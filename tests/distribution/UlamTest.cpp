// The Ulam spiral against independent facts: the places of the odd squares on the diagonal,
// the primes of a plain sieve and of GMP, the published counts of the 201 x 201 pictures, Euler's
// polynomial n^2 + n + 41 as one diagonal, and the refusals of input that would leave the raster.
#include <gtest/gtest.h>
#include <gmp.h>

#include <cmath>
#include <algorithm>
#include <map>
#include <numeric>
#include <set>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "distribution/Ulam.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

class Ulam : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(grenze_), MethodeProdukt));
    }
    static UlamModell Spirale(int64_t innen, int32_t w, int32_t h, int64_t schritt = 1, int64_t zuwachs = 0,
                              bool rad = false) {
        UlamEingabe e;
        e.innenZahl = innen;
        e.schritt = schritt;
        e.zuwachs = zuwachs;
        e.rad = rad;
        e.breite = w;
        e.hoehe = h;
        return UlamZeichnen(e);
    }
    // Where each number stands (the first cell of it).
    static std::map<uint64_t, std::pair<int, int>> Orte(const UlamModell& m) {
        std::map<uint64_t, std::pair<int, int>> orte;
        for (int y = 0; y < m.hoehe; ++y)
            for (int x = 0; x < m.breite; ++x)
                if (m.besucht[m.index(x, y)]) orte.emplace(m.zahl[m.index(x, y)], std::pair{x, y});
        return orte;
    }
    static bool Prim(UlamFarbe f) { return f == UlamFarbe::Blau || f == UlamFarbe::Schwarz; }
    int64_t grenze_ = 1000000;
};

TEST_F(Ulam, ClassicSpiralMatchesPlainSieveAndSquaresLieOnTheDiagonal) {
    const UlamModell m = Spirale(1, 201, 201);
    EXPECT_EQ(m.UlamZellen, 40401);
    EXPECT_EQ(m.letzteZahl, 40401u);
    EXPECT_EQ(m.UlamPrimzellen, 4236);
    EXPECT_EQ(UlamAnteilText(m), "10.5 %");

    const std::vector<bool> prim = Eratosthenes(50000);
    const auto orte = Orte(m);
    ASSERT_EQ(orte.size(), 40401u);
    for (const auto& [n, ort] : orte) {
        const UlamFarbe f = m.farbe[m.index(ort.first, ort.second)];
        const uint64_t r = uint64_t(std::llround(std::sqrt(double(n))));
        SCOPED_TRACE(n);
        EXPECT_EQ(Prim(f), bool(prim[n]));
        EXPECT_EQ(f == UlamFarbe::Gelb, r * r == n);
        EXPECT_EQ(f == UlamFarbe::Schwarz, n == 2 || n == 3 || n == 5 || n == 7 || n == 13 || n == 17 ||
                                               n == 19 || n == 31 || n == 61 || n == 89 || n == 107 ||
                                               n == 127 || n == 521 || n == 607 || n == 1279 || n == 2203 ||
                                               n == 2281 || n == 3217 || n == 4253 || n == 4423 || n == 9689 ||
                                               n == 9941 || n == 11213 || n == 19937 || n == 21701 || n == 23209);
    }
    // The first turns, and every odd square (2k+1)^2 k cells right of and below the centre.
    EXPECT_EQ(orte.at(2), std::pair(101, 100));
    EXPECT_EQ(orte.at(3), std::pair(101, 99));
    EXPECT_EQ(orte.at(5), std::pair(99, 99));
    EXPECT_EQ(orte.at(7), std::pair(99, 101));
    for (int k = 0; k <= 100; ++k) EXPECT_EQ(orte.at(uint64_t(2 * k + 1) * (2 * k + 1)), std::pair(100 + k, 100 + k));
}

TEST_F(Ulam, WheelWalksOnlyNumbersPrimeTo30) {
    const UlamModell m = Spirale(1, 201, 201, 1, 0, true);
    EXPECT_EQ(m.letzteZahl, 151501u);
    EXPECT_EQ(m.UlamPrimzellen, 13973);
    const std::vector<bool> prim = Eratosthenes(151501);
    int64_t primzahlen = 0;
    for (size_t i = 0; i < m.zahl.size(); ++i) {
        ASSERT_EQ(std::gcd(m.zahl[i], uint64_t(30)), 1u) << m.zahl[i];
        primzahlen += prim[m.zahl[i]];
    }
    EXPECT_EQ(primzahlen, 13973);
}

TEST_F(Ulam, EulerPolynomialIsOneDiagonalAndSurvivesSmoothing) {
    UlamModell m = Spirale(41, 201, 201);
    const auto orte = Orte(m);
    std::vector<std::pair<int, int>> lauf;
    for (int n = 0; n < 40; ++n) lauf.push_back(orte.at(uint64_t(n * n + n + 41)));
    std::sort(lauf.begin(), lauf.end());
    const int dy = lauf[1].second - lauf[0].second;
    ASSERT_EQ(std::abs(dy), 1);
    for (size_t i = 1; i < lauf.size(); ++i) {
        EXPECT_EQ(lauf[i].first, lauf[i - 1].first + 1);
        EXPECT_EQ(lauf[i].second, lauf[i - 1].second + dy);
    }
    const std::set<uint64_t> enden{m.zahl[m.index(lauf.front().first, lauf.front().second)],
                                   m.zahl[m.index(lauf.back().first, lauf.back().second)]};
    EXPECT_EQ(enden, (std::set<uint64_t>{1523, 1601}));
    // One cell beyond each end: 41^2 (a square) and 41 * 43 (nothing).
    std::map<uint64_t, UlamFarbe> jenseits;
    for (const auto& [x, y] : {std::pair{lauf.front().first - 1, lauf.front().second - dy},
                               std::pair{lauf.back().first + 1, lauf.back().second + dy}})
        jenseits[m.zahl[m.index(x, y)]] = m.farbe[m.index(x, y)];
    EXPECT_EQ(jenseits, (std::map<uint64_t, UlamFarbe>{{1681, UlamFarbe::Gelb}, {1763, UlamFarbe::Leer}}));

    const UlamModell vorher = m;
    UlamGlaetten(m, 1);
    EXPECT_EQ(m.farbe, vorher.farbe);
    // A prime without a painted diagonal neighbour goes at length 2; the polynomial stays at 40.
    UlamGlaetten(m, 2);
    for (int y = 1; y + 1 < m.hoehe; ++y) {
        for (int x = 1; x + 1 < m.breite; ++x) {
            const auto bemalt = [&](int a, int b) {
                const UlamFarbe f = vorher.farbe[vorher.index(a, b)];
                return f != UlamFarbe::Leer && f != UlamFarbe::Weiss;
            };
            if (vorher.farbe[m.index(x, y)] == UlamFarbe::Blau && !bemalt(x - 1, y - 1) && !bemalt(x + 1, y + 1) &&
                !bemalt(x - 1, y + 1) && !bemalt(x + 1, y - 1)) {
                EXPECT_EQ(m.farbe[m.index(x, y)], UlamFarbe::Weiss) << m.zahl[m.index(x, y)];
            }
        }
    }
    m = vorher;
    UlamGlaetten(m, 40);
    for (const auto& [x, y] : lauf) EXPECT_TRUE(Prim(m.farbe[m.index(x, y)])) << m.zahl[m.index(x, y)];
    EXPECT_LT(std::count(m.farbe.begin(), m.farbe.end(), UlamFarbe::Blau), 60);
}

TEST_F(Ulam, NumbersAboveTheRasterAgreeWithSieveAndGmp) {
    // Close together: one secondary window, checked against the plain sieve.
    const UlamModell dicht = Spirale(2 * grenze_, 301, 301);
    const std::vector<bool> prim = Eratosthenes(uint64_t(2 * grenze_ + 301 * 301));
    for (size_t i = 0; i < dicht.zahl.size(); ++i) ASSERT_EQ(Prim(dicht.farbe[i]), bool(prim[dicht.zahl[i]])) << dicht.zahl[i];
    // Spread thinly (a quadratic sequence near 10^15): each number on its own, against GMP.
    const UlamModell duenn = Spirale(1000000000000000, 101, 101, 1, 99991);
    mpz_t z;
    mpz_init(z);
    int64_t primzahlen = 0;
    for (size_t i = 0; i < duenn.zahl.size(); ++i) {
        mpz_set_ui(z, duenn.zahl[i]);
        const bool gmp = mpz_probab_prime_p(z, 40) != 0;
        primzahlen += gmp;
        ASSERT_EQ(Prim(duenn.farbe[i]), gmp) << duenn.zahl[i];
    }
    mpz_clear(z);
    EXPECT_EQ(duenn.UlamPrimzellen, primzahlen);
    EXPECT_GT(primzahlen, 0);
}

TEST_F(Ulam, EdgesAndRefusals) {
    // A zero step paints one number everywhere; 0 and 6 stay empty, 1 and 4 yellow.
    const UlamModell eins = Spirale(9, 3, 3, 0);
    EXPECT_EQ(eins.zahl, std::vector<uint64_t>(9, 9));
    EXPECT_EQ(eins.farbe, std::vector<UlamFarbe>(9, UlamFarbe::Gelb));
    EXPECT_EQ(UlamZelleSetzen(0, false), UlamFarbe::Leer);
    EXPECT_EQ(UlamZelleSetzen(4, false), UlamFarbe::Gelb);
    EXPECT_EQ(UlamZelleSetzen(6, false), UlamFarbe::Leer);

    for (uint64_t n = 0; n < 2000000; ++n) {
        const uint64_t r = uint64_t(std::sqrt(double(n)));
        ASSERT_EQ(IstQuadrat(n), r * r == n) << n;
    }
    const uint64_t gross = 4294967295u;
    EXPECT_TRUE(IstQuadrat(gross * gross));
    EXPECT_FALSE(IstQuadrat(gross * gross - 1));
    EXPECT_FALSE(IstQuadrat(gross * gross + 1));
    EXPECT_TRUE(IstQuadrat(uint64_t(3037000493) * 3037000493));

    const auto meldung = [](const UlamEingabe& e) {
        try {
            UlamZeichnen(e);
        } catch (const Laufzeitfehler& f) {
            return f.Beschreibung();
        }
        return std::string();
    };
    UlamEingabe e;
    e.innenZahl = -1;
    EXPECT_EQ(meldung(e), Text(420));
    e.innenZahl = 1;
    e.schritt = -2;
    EXPECT_EQ(meldung(e), Text(2140));
    e.schritt = 1;
    e.zuwachs = -1;
    EXPECT_EQ(meldung(e), Text(2140));
    e.zuwachs = 0;
    e.seiteX = 0;
    EXPECT_EQ(meldung(e), Text(2141));
    e.seiteX = 1;
    e.innenZahl = INT64_MAX;
    e.schritt = INT64_MAX / 2;
    EXPECT_EQ(meldung(e), Text(2143));
}

}  // namespace
}  // namespace sw::test
