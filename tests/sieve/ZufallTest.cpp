// The random raster: its density, the excluded primes, and the settings frmZufall writes.
#include <gtest/gtest.h>

#include <cmath>

#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Zufall.h"

namespace sw::test {
namespace {

using Zufall = SwTest;

TEST_F(Zufall, AbstandOhneZusatzprimzahlen) {
    RandomFaktorBitKette = 0;
    RandomProzentFaktor = 1.0;
    const Decimal ende = Decimal(int64_t(1000000000000));
    ZufallSeiteEinrichten(ende, Decimal(1000000));
    EXPECT_TRUE(ZufallFaktoren.empty());
    EXPECT_NEAR(ZufallAbstand, 2.0 * 8.0 / 30.0 * std::log(1e12), 1e-9);
    EXPECT_EQ(ZufallMittlererAbstand(Decimal(1), Decimal(10)), 0.0);
    EXPECT_EQ(ZufallMittlererAbstand(Decimal(0), Decimal(10)), 0.0);
}

TEST_F(Zufall, GewaehltePrimzahlenSchliessenAus) {
    RandomFaktorBitKette = int32_t(BitMaske[2] | BitMaske[8]);  // 7 and 29
    EXPECT_NEAR(ZufallFaktorAufbauen(), 8.0 / 30 * 6.0 / 7 * 28.0 / 29, 1e-12);
    ASSERT_EQ(ZufallFaktoren, (std::vector<int32_t>{7, 29}));
    ZufallSeiteEinrichten(Decimal(int64_t(1) << 40), Decimal(1000));
    for (int64_t k = 1; k < 2000; ++k) {
        EXPECT_FALSE(ZufallIstPrim(Decimal(7 * ((int64_t(1) << 37) + 11 * k))));
        EXPECT_FALSE(ZufallIstPrim(Decimal(int64_t(29) * (int64_t(1) << 33) + 29 * k)));
    }
}

// Each candidate is taken with a probability of about 2/A: the density of the true primes
// among the numbers free of the excluded factors.
TEST_F(Zufall, DichteFolgtDemAbstand) {
    RandomFaktorBitKette = 0;
    ZufallSaat(12345);
    for (double a : {3.0, 20.0, 57.5}) {
        ZufallAbstand = a;
        const int versuche = 200000;
        int treffer = 0;
        for (int i = 0; i < versuche; ++i) treffer += ZufallIstPrim(Decimal(int64_t(1000000007)));
        EXPECT_NEAR(double(treffer) / versuche, 2.0 / a, 4 * std::sqrt(2.0 / a / versuche)) << a;
    }
}

TEST_F(Zufall, FensterEinstellungen) {
    EXPECT_EQ(ZufallInfoText(0, 0, true), "(2,3,5)");
    EXPECT_EQ(ZufallInfoText(int32_t(BitMaske[2] | BitMaske[4]), 12.5, false), "(2,3,5,7,13)-12.50%");
    EXPECT_EQ(ZufallInfoText(0, 99, true), "(2,3,5)Fehler");

    double p = 0;
    EXPECT_TRUE(ZufallProzentLesen("98,99", p));
    EXPECT_DOUBLE_EQ(p, 98.99);
    EXPECT_FALSE(ZufallProzentLesen("zehn", p));
    EXPECT_FALSE(ZufallProzentLesen("-3", p));

    EXPECT_FALSE(ZufallUebernehmen(1, 99, true, 0, 8));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(406));
    EXPECT_EQ(ZufallModus, 0);

    ASSERT_TRUE(ZufallUebernehmen(1, 98.99, true, int32_t(BitMaske[3]), 4));
    EXPECT_DOUBLE_EQ(RandomProzentFaktor, 1.9899);
    EXPECT_EQ(RandomPrimIntervall, 6);
    EXPECT_EQ(RandomInfoText, "(2,3,5,11)+98.99%");
}

}  // namespace
}  // namespace sw::test
