// The secondary range against an independent slow sieve: plain trial marking by the primes up
// to a bound in 128-bit arithmetic on a byte per number, in windows below and above 2^64, and
// the boxes a user meets when asking for a range.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basQuadrato.h"
#include "sieve/basSekundaer.h"

namespace sw::test {
namespace {

using U128 = unsigned __int128;

std::string Text128(U128 n) {
    std::string s;
    do {
        s.insert(s.begin(), char('0' + int(n % 10)));
        n /= 10;
    } while (n);
    return s;
}

Decimal Dec128(U128 n) { return Decimal::ausText(Text128(n)); }

class Sekundaer : public SwTest {
protected:
    void Primaer(int64_t grenze) { ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt)); }

    // Every number of the window that has a bit agrees with the slow sieve; count and
    // SekundaerIstPrim agree with it over [von, von + laenge].
    void Vergleichen(U128 von, uint64_t laenge, uint64_t grenze) {
        const U128 basis = SekundaerStart.Betrag();
        const uint64_t spanne = SekundaerRaster.size() * 120;
        const std::vector<bool> frei = FreiVonFaktoren(basis, spanne, grenze);
        uint64_t abweichungen = 0, erwartet = 0;
        for (uint64_t i = 0; i < spanne; ++i) {
            const uint32_t maske = RestMaske[i % 120];
            if (maske == 0) continue;
            const bool klar = (SekundaerRaster[i / 120] & maske) == 0;
            if (klar != frei[i] && ++abweichungen < 5) {
                ADD_FAILURE() << Text128(basis + i) << (klar ? " left clear" : " struck");
            }
            const U128 n = basis + i;
            if (frei[i] && n >= von && n <= von + laenge) ++erwartet;
        }
        for (U128 n : {U128(2), U128(3), U128(5)}) {
            if (n >= von && n <= von + laenge) ++erwartet;
        }
        ASSERT_EQ(abweichungen, 0u);
        EXPECT_EQ(SekundaerAnzahl(Dec128(von), Dec128(von + laenge)), erwartet);
    }
};

TEST_F(Sekundaer, FensterUmDieMilliardeRundetAufWorte) {
    Primaer(1000000);
    ASSERT_TRUE(SekundaerPruefen(Decimal(int64_t(1000000007)), Decimal(1000)));
    EXPECT_EQ(SekundaerStart, Decimal(int64_t(999999960)));
    EXPECT_EQ(SekundaerEnde, Decimal(int64_t(1000001040)));
    EXPECT_TRUE(ui.meldungen.empty());
    Vergleichen(1000000007, 1000, 1000000);
    // The query agrees with the window inside it, and outside says no.
    EXPECT_TRUE(SekundaerIstPrim(Decimal(int64_t(1000000007))));
    EXPECT_FALSE(SekundaerIstPrim(Decimal(int64_t(1000000011))));
    EXPECT_FALSE(SekundaerIstPrim(Decimal(int64_t(999999959))));
    EXPECT_FALSE(SekundaerIstPrim(Decimal(int64_t(5000000000))));
}

// Windows crossing several segments, reaching up to the square of the limit, so that the
// small, medium (beyond 2^15) and large (beyond one segment of numbers) primes all strike.
TEST_F(Sekundaer, ZufaelligeFensterBisZumQuadrat) {
    Primaer(12000000);
    std::mt19937_64 zufall(7);
    const U128 quadrat = U128(12000000) * 12000000;
    const struct { U128 von; uint64_t laenge; } faelle[] = {
        {3465, 5000},                          // just above the root of the limit
        {U128(1) << 32, 120 * 70000 + 17},     // past one segment
        {quadrat - 9000000, 8999999},          // up to the square itself
        {U128(7) * 11 * 13 * 17 * 19 * 23 * 120 * 1000, 40000},  // on multiples of small p
    };
    for (const auto& f : faelle) {
        ASSERT_TRUE(SekundaerSieben(Dec128(f.von), Decimal(f.laenge)));
        Vergleichen(f.von, f.laenge, 12000000);
    }
    for (int i = 0; i < 4; ++i) {
        const U128 von = 3465 + zufall() % uint64_t(quadrat - 3000000);
        const uint64_t laenge = zufall() % 300000;
        ASSERT_TRUE(SekundaerSieben(Dec128(von), Decimal(laenge)));
        Vergleichen(von, laenge, 12000000);
    }
    EXPECT_TRUE(ui.meldungen.empty());
}

// Well above 2^64 neither the primary raster nor the segmented pass reach the root: the window
// is free of the factors up to the limit (information 514), and exactly that is compared, up
// to the top of the Decimal.
TEST_F(Sekundaer, UeberZweiHoch64NurBisZurGrenze) {
    Primaer(9000000);
    for (U128 von : {(U128(1) << 66) - 4000, U128(100000000000ull) * 1000000000ull, (U128(1) << 96) - 200000}) {
        ui.meldungen.clear();
        ASSERT_TRUE(SekundaerSieben(Dec128(von), Decimal(150000)));
        ASSERT_EQ(ui.meldungen.size(), 1u);
        EXPECT_EQ(ui.meldungen[0].text, Text(514));
        Vergleichen(von, 150000, 9000000);
    }
}

// Sieving primes beyond one block of numbers (2^18 words) go through the buckets.
TEST_F(Sekundaer, GrosseSiebprimzahlenUeberEimer) {
    Primaer(40000000);
    const U128 quadrat = U128(40000000) * 40000000;
    for (U128 von : {quadrat - 300000, U128(1) << 70}) {
        ASSERT_TRUE(SekundaerSieben(Dec128(von), Decimal(250000)));
        Vergleichen(von, 250000, 40000000);
    }
}

// A window reaching down to the sieving primes keeps them, and strikes 1; a limit under 120
// (only the primes of word 0 sieve) gives the true primes up to its square.
TEST_F(Sekundaer, FensterAmAnfangDerZahlen) {
    Primaer(1000);
    ASSERT_TRUE(SekundaerPruefen(Decimal(40), Decimal(900)));
    EXPECT_EQ(SekundaerStart, Decimal(0));
    const std::vector<bool> prim = Eratosthenes(SekundaerRaster.size() * 120 - 1);
    EXPECT_EQ(RasterAbweichungen(SekundaerRaster, prim, 900), "");
    int32_t erwartet = 0;
    for (int n = 40; n <= 940; ++n) erwartet += prim[size_t(n)];
    EXPECT_EQ(SekundaerZaehlen(Decimal(40), Decimal(940)), erwartet);

    ASSERT_TRUE(SekundaerPruefen(Decimal(100), Decimal(5000)));
    Vergleichen(100, 5000, 1000);
}

TEST_F(Sekundaer, UeberschneidungUndQuadratFragen) {
    Primaer(1000000);
    ASSERT_TRUE(SekundaerSieben(Decimal(5000000), Decimal(1000)));
    const std::vector<uint32_t> vorher = SekundaerRaster;

    EXPECT_FALSE(SekundaerSieben(Decimal(5000000), Decimal(-10)));
    ui.meldungen.clear();
    EXPECT_FALSE(SekundaerPruefen(Decimal(999), Decimal(100000)));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("überschneiden"), std::string::npos);
    EXPECT_EQ(SekundaerStart, Decimal(5000000 / 120 * 120));

    // Beyond what the raster and the segmented pass can sieve (2^64): No leaves everything as
    // it was.
    const U128 oben = (U128(1) << 64) + 1000003000000ull;
    ui.meldungen.clear();
    ui.antworten = {AntwortNein};
    EXPECT_FALSE(SekundaerPruefen(Dec128(oben), Decimal(10000)));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(404));
    EXPECT_EQ(SekundaerRaster, vorher);
    // Yes sieves as far as the raster goes, and says so.
    ui.meldungen.clear();
    ui.antworten = {AntwortJa};
    EXPECT_TRUE(SekundaerPruefen(Dec128(oben), Decimal(10000)));
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[1].text, Text(514));
    Vergleichen(oben, 10000, 1000000);
}

TEST_F(Sekundaer, ZaehlenAusserhalbUndAnDenGrenzen) {
    Primaer(1000000);
    ASSERT_TRUE(SekundaerSieben(Decimal(int64_t(1000000000)), Decimal(10000)));
    EXPECT_EQ(SekundaerZaehlen(Decimal(int64_t(999999000)), Decimal(int64_t(1000000100))), 0);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(207));
    // The bounds themselves are inside: von = SekundaerStart and bis = SekundaerEnde count.
    EXPECT_EQ(uint64_t(SekundaerZaehlen(SekundaerStart, SekundaerEnde)), SekundaerAnzahl(SekundaerStart, SekundaerEnde));
    EXPECT_EQ(ui.meldungen.size(), 1u);
    // More than 2^31 primes: a window of zeros stands in for one of some 5 * 10^10 numbers.
    const int64_t worte = (int64_t(1) << 26) + 1000;
    SekundaerRaster.assign(size_t(worte), 0);
    SekundaerStart = Decimal(int64_t(1000000000000));
    SekundaerEnde = SekundaerStart + Decimal((worte - 1) * 120);
    EXPECT_EQ(SekundaerZaehlen(SekundaerStart, SekundaerEnde), 32 * (worte - 1));
    std::vector<uint32_t>().swap(SekundaerRaster);
}

// The window of mode 5 takes an end, not a length, and has its own base. Beyond the square of
// the primary limit it still holds the true primes: the sieving primes the raster lacks are
// sieved on the way (above 10^12 for a limit of 1000 those need a level of their own).
TEST_F(Sekundaer, QuadratoFensterBisZumEnde) {
    Primaer(1000);
    ASSERT_TRUE(SekundaerQuadrato(Decimal(10000000), Decimal(10010000), nullptr));
    Vergleichen(10000000, 10000, 3200);
    EXPECT_EQ(SekundaerQuadratoZaehlen(Decimal(10000000), Decimal(10010000)), 614);
    ASSERT_TRUE(SekundaerQuadrato(Decimal(int64_t(10000000000000)), Decimal(int64_t(10000000100000)), nullptr));
    Vergleichen(10000000000000, 100000, 3200000);
    EXPECT_TRUE(ui.meldungen.empty());

    Primaer(1000000);
    ASSERT_TRUE(SekundaerQuadrato(Decimal(int64_t(123456789012)), Decimal(int64_t(123457789012)), nullptr));
    EXPECT_EQ(SekundaerStart, Decimal(int64_t(123456789000)));
    EXPECT_EQ(SekundaerRaster.size(), size_t(1000012 / 120 + 1));
    Vergleichen(123456789012, 1000000, 1000000);
    EXPECT_EQ(uint64_t(SekundaerQuadratoZaehlen(Decimal(int64_t(123456789012)), Decimal(int64_t(123457789012)))),
              SekundaerAnzahl(Decimal(int64_t(123456789012)), Decimal(int64_t(123457789012))));
}

}  // namespace
}  // namespace sw::test
