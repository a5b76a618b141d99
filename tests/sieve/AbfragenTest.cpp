// The questions put to the raster, against the oracle and at the edges a user meets.
#include <gtest/gtest.h>

#include <random>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {
namespace {

class Abfragen : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(kGrenze), MethodeProdukt));
    }
    static constexpr int64_t kGrenze = 1000000;
};

TEST_F(Abfragen, IstPrimAnDenRaendern) {
    const std::vector<bool> prim = Eratosthenes(kGrenze);
    for (int64_t n = 0; n <= kGrenze; ++n) ASSERT_EQ(IstPrim(Decimal(n)), bool(prim[size_t(n)])) << n;
    EXPECT_FALSE(IstPrim(Decimal(-7)));
    // Beyond the raster's last word there is no bit: false.
    EXPECT_FALSE(IstPrim(Decimal(int64_t(1000000007))));
    EXPECT_FALSE(IstPrim(Decimal(int64_t(1) << 62) * Decimal(1000)));
    // The numbers above the limit in the last word are struck, not left to chance.
    EXPECT_FALSE(IstPrim(Decimal(1000003)));
}

// Walking up and down the whole raster meets every prime in order and nothing else; then the
// starts that are not primes, and the ends of the raster.
TEST_F(Abfragen, NaechsteUndVorherige) {
    const std::vector<bool> prim = Eratosthenes(kGrenze);
    std::vector<int64_t> alle;
    for (int64_t n = 0; n <= kGrenze; ++n) {
        if (prim[size_t(n)]) alle.push_back(n);
    }
    Decimal p = 0;
    for (int64_t q : alle) ASSERT_EQ(p = NaechstePrim(p), Decimal(q));
    EXPECT_EQ(NaechstePrim(p), Decimal(0));  // nothing after the last prime below the limit
    p = Decimal(kGrenze);
    for (auto q = alle.rbegin(); q != alle.rend(); ++q) ASSERT_EQ(p = VorherigePrim(p), Decimal(*q));
    EXPECT_EQ(VorherigePrim(p), Decimal(0));

    EXPECT_EQ(NaechstePrim(Decimal(-5)), Decimal(2));
    EXPECT_EQ(NaechstePrim(Decimal(int64_t(1) << 40)), Decimal(0));
    EXPECT_EQ(NaechstePrimLong(999979), 999983);
    EXPECT_EQ(NaechstePrimLong(999983), 0);
    EXPECT_EQ(VorherigePrim(Decimal(kGrenze + 1)), Decimal(0));  // beyond the limit
}

// Counts against the oracle: every range up to 250 (inside word 0, across the first word
// boundaries, starting below 7) and many random ones, short and long.
TEST_F(Abfragen, PrimAnzahlWieDasOrakel) {
    const std::vector<bool> prim = Eratosthenes(kGrenze);
    std::vector<int64_t> summe(kGrenze + 2, 0);
    for (int64_t n = 0; n <= kGrenze; ++n) summe[size_t(n + 1)] = summe[size_t(n)] + (prim[size_t(n)] ? 1 : 0);
    auto erwartet = [&](int64_t von, int64_t bis) { return summe[size_t(bis + 1)] - summe[size_t(von)]; };

    for (int64_t a = 0; a <= 250; ++a) {
        for (int64_t b = a; b <= 250; ++b) ASSERT_EQ(PrimAnzahl(Decimal(a), Decimal(b)), Decimal(erwartet(a, b))) << a << ".." << b;
    }
    EXPECT_EQ(PrimAnzahl(Decimal(10), Decimal(2)), Decimal(0));
    EXPECT_EQ(PrimAnzahl(Decimal(2), Decimal(kGrenze)), Decimal(78498));
    EXPECT_EQ(PrimAnzahl(Decimal(2), Decimal(kGrenze + 1)), Decimal(0));  // beyond the raster

    std::mt19937_64 zufall(7);
    for (int i = 0; i < 3000; ++i) {
        int64_t a = int64_t(zufall() % (kGrenze + 1)), b = int64_t(zufall() % (kGrenze + 1));
        if (i % 3 == 0) b = std::min<int64_t>(kGrenze, a + int64_t(zufall() % 300));
        if (a > b) std::swap(a, b);
        ASSERT_EQ(PrimAnzahl(Decimal(a), Decimal(b)), Decimal(erwartet(a, b))) << a << ".." << b;
    }
}

TEST_F(Abfragen, PrimAnzahlZweihundertMillionen) {
    ASSERT_TRUE(PrimaerLauf(Decimal(200000000), MethodeProdukt));
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(11078937));
    EXPECT_EQ(NullBitsZaehlen(PrimaerRaster.data(), 0), 0u);
}

TEST_F(Abfragen, DurchlaufenListetDenBereich) {
    std::vector<uint64_t> liste;
    PrimzahlenDurchlaufen(0, 30, [&](uint64_t p) {
        liste.push_back(p);
        return true;
    });
    EXPECT_EQ(liste, (std::vector<uint64_t>{2, 3, 5, 7, 11, 13, 17, 19, 23, 29}));
    liste.clear();
    PrimzahlenDurchlaufen(999900, 2000000, [&](uint64_t p) {
        liste.push_back(p);
        return liste.size() < 100;
    });
    EXPECT_EQ(liste.back(), 999983u);  // nothing beyond the limit, though bis lies above it
}

// Factorisations multiply back to n and consist of primes, below and above the limit.
TEST_F(Abfragen, FaktorenText) {
    // Beyond the square of the limit the last factor is not proved: a "?" says so.
    const Decimal gross = Decimal(int64_t(1000000007)) * Decimal(int64_t(1000000009));
    TextTabelle(FaktorenText, {{1, ""}, {2, "2"}, {84, "2x2x3x7"}, {121, "11x11"}, {999983, "999983"},
                               {int64_t(999983) * 999979, "999979x999983"}, {int64_t(1000000007), "1000000007"},
                               {gross, "1000000016000000063?"}, {gross * Decimal(6), "2x3x1000000016000000063?"}});
    EXPECT_THROW(FaktorenText(Decimal(0)), Laufzeitfehler);
    EXPECT_THROW(FaktorenText(Decimal(-12)), Laufzeitfehler);

    std::mt19937_64 zufall(11);
    for (int i = 0; i < 200; ++i) {
        const Decimal n = Decimal(int64_t(zufall() % 1000000000000ull) + 1);
        const std::string text = FaktorenText(n);
        Decimal produkt = 1;
        for (size_t a = 0; a < text.size();) {
            size_t b = text.find('x', a);
            if (b == std::string::npos) b = text.size();
            const Decimal f = Decimal::ausText(text.substr(a, b - a));
            EXPECT_TRUE(f <= Decimal(kGrenze) ? IstPrim(f) : FaktorenText(f) == f.Text()) << text;
            produkt *= f;
            a = b + 1;
        }
        ASSERT_EQ(produkt, n) << text;
    }
}

TEST_F(Abfragen, MersenneNaechsterExponent) {
    EXPECT_EQ(MersenneNaechsterExponent(0), 2);
    EXPECT_EQ(MersenneNaechsterExponent(7), 13);
    EXPECT_EQ(MersenneNaechsterExponent(756839), 859433);
    EXPECT_EQ(MersenneNaechsterExponent(859433), 0);  // 1257787 lies beyond the limit
    ASSERT_TRUE(PrimaerLauf(Decimal(200000000), MethodeProdukt));
    EXPECT_EQ(MersenneNaechsterExponent(136279841), 0);  // the end of the list
}

}  // namespace
}  // namespace sw::test
