// The hash buckets against a plain loop over the primes of a byte sieve that calls the
// library's folds itself, the published counts of the primes to 10^6, the chi-square tail
// against PARI/GP, and the refusals of bit counts that no fold can take.
#include <gtest/gtest.h>

#include <numeric>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "distribution/Hash.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

class Hash : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
};

// The table of the plain loop: every prime to bis through the library's fold.
std::vector<int32_t> Schlicht(const std::vector<bool>& prim, uint64_t bis, int32_t b, int32_t methode) {
    static const int klasse[30] = {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 2, 0, 3, 0, 0, 0, 4, 0, 5, 0, 0, 0, 6, 0, 0, 0, 0, 0, 7};
    std::vector<int32_t> t((size_t(1) << b) + 1, 0);
    for (uint64_t n = 2; n <= bis; ++n) {
        if (!prim[n]) continue;
        const Long c = Long(n);
        int32_t h = methode == 0 ? aHASH32(c, b) : methode == 2 ? aHASH32XOR(c, b) : 0;
        if (methode == 1 && n > 5) h = aHASH32(c, b - 3) * 8 + klasse[n % 30];
        ++t[size_t(h)];
    }
    return t;
}

TEST_F(Hash, BucketsOfThePrimesTo10e6) {
    const std::vector<bool> prim = Eratosthenes(1000000);
    for (int32_t methode : {0, 1, 2}) {
        for (int32_t b : {3, 6, 16, 26}) {
            SCOPED_TRACE(std::to_string(methode) + "/" + std::to_string(b));
            const HashErgebnis e = HashVerteilung(b, methode, 1000000);
            EXPECT_EQ(e.anzahl, 78498u);
            EXPECT_TRUE(e.vollstaendig);
            ASSERT_EQ(e.HashTabelle, Schlicht(prim, 1000000, b, methode));
            EXPECT_EQ(e.HashTabelle.back(), 0);
        }
    }
    // Method 1 with 6 bits: the sums of the eight classes, 2, 3 and 5 in the first.
    const HashErgebnis klassen = HashVerteilung(6, 1, 1000000);
    std::vector<int64_t> summe(8, 0);
    for (size_t i = 0; i < 64; ++i) summe[i % 8] += klassen.HashTabelle[i];
    EXPECT_EQ(summe, (std::vector<int64_t>{9810, 9812, 9810, 9824, 9809, 9788, 9840, 9805}));
    // Method 2 with 4 bits: bucket 7 is the fullest; the seventeenth cell stays empty.
    const HashErgebnis xorTabelle = HashVerteilung(4, 2, 1000000);
    EXPECT_EQ(xorTabelle.HashMaximum, 5685);
    EXPECT_EQ(xorTabelle.HashTabelle[7], 5685);
    EXPECT_EQ(xorTabelle.HashTabelle[16], 0);
    // A bound below the limit counts only up to it.
    EXPECT_EQ(HashVerteilung(8, 0, 1000).anzahl, 168u);
}

TEST_F(Hash, ChiSquareTailAgreesWithPari) {
    // PARI/GP: incgam(a, x) / gamma(a).
    EXPECT_NEAR(GammaQ(0.5, 0.3), 0.438578026080999855, 1e-12);
    EXPECT_NEAR(GammaQ(3.5, 5), 0.188573467513450070, 1e-12);
    EXPECT_NEAR(GammaQ(50, 30), 0.999481108537451966, 1e-12);
    EXPECT_NEAR(GammaQ(524288, 524288 + 900), 0.106987190651113156, 1e-9);

    // A uniform table has chi-square 0 and p = 1; the method-2 table of 4 bits is far from it.
    HashErgebnis gleich;
    gleich.HashBits = 3;
    gleich.HashTabelle = {5, 5, 5, 5, 5, 5, 5, 5, 0};
    gleich.anzahl = 40;
    const ChiQuadrat c0 = HashChiQuadrat(gleich);
    EXPECT_EQ(c0.freiheitsgrade, 7);
    EXPECT_DOUBLE_EQ(c0.wert, 0);
    EXPECT_DOUBLE_EQ(c0.p, 1);
    const ChiQuadrat c = HashChiQuadrat(HashVerteilung(4, 2, 1000000));
    EXPECT_EQ(c.freiheitsgrade, 15);
    EXPECT_GT(c.wert, 800);
    EXPECT_LT(c.p, 1e-100);
}

TEST_F(Hash, RefusesBitCountsNoFoldTakes) {
    const auto meldung = [](int32_t b, int32_t m) {
        try {
            HashPruefen(b, m);
        } catch (const Laufzeitfehler& f) {
            return f.Beschreibung();
        }
        return std::string();
    };
    EXPECT_EQ(meldung(0, 0), TextP1(2151, 1));
    EXPECT_EQ(meldung(27, 2), TextP1(2151, 1));
    EXPECT_EQ(meldung(2, 1), TextP1(2151, 3));
    EXPECT_EQ(meldung(3, 1), "");
    EXPECT_EQ(meldung(1, 0), "");
    EXPECT_EQ(meldung(26, 2), "");
    EXPECT_EQ(meldung(8, 3), Text(2150));
}

}  // namespace
}  // namespace sw::test
