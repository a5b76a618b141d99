// Block files: names, the search for a larger block and its cut, loads of files that do not
// fit, and the menu's load with the limit derived from the size.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "sieve/Blockdateien.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {
namespace {

class Blockdateien : public SwTest {
protected:
    // A finished raster of the limit, saved as name in the working folder.
    void BlockAnlegen(int64_t grenze, const std::string& name) {
        ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt));
        ASSERT_TRUE(RasterSpeichern(Ordner() + name, PrimaerRaster));
    }
    void DateiSchreiben(const std::string& name, const std::string& inhalt) {
        std::ofstream(Ordner() + name, std::ios::binary) << inhalt;
    }
    // The run of method 3 for a limit; true if its raster is the one of method 0.
    bool BeschaffenWieProdukt(int64_t grenze) {
        EXPECT_TRUE(PrimaerLauf(Decimal(grenze), MethodeBereichBeschaffen));
        const std::vector<uint32_t> beschafft = PrimaerRaster;
        EXPECT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt));
        return beschafft == PrimaerRaster;
    }
};

TEST_F(Blockdateien, Namen) {
    TextTabelle(BlockName, {{200000000, "P082.BLK"}, {5000000, "P065.BLK"}, {2000000000, "P092.BLK"},
                            {1000, "P031.BLK"}, {250000000, ""}, {1001, ""}});
    const auto naechster = [](const Decimal& grenze) {
        PrimaerGrenze = grenze;
        return NaechsterBlockName();
    };
    TextTabelle(naechster, {{250000000, "P083.BLK"}, {300000000, "P083.BLK"}, {950000, "P061.BLK"},
                            {9000001, "P071.BLK"}});
    // The ending in any case, but the first letter case sensitive.
    for (const char* name : {"P082.BLK", "/home/x/P082.blk", "C:\\SW\\P092.BLK"}) EXPECT_TRUE(BlockDateiGueltig(name)) << name;
    for (const char* name : {"p082.BLK", "P08A.BLK", "P0822.BLK", "P082.BLK/x", "S000.BLK"}) {
        EXPECT_FALSE(BlockDateiGueltig(name)) << name;
    }
}

// No block of the limit's own name: the first at or above the next name is loaded and cut,
// and the result is the raster of a run. 250,000 and 300,000 (next name P053.BLK) both take
// P054.BLK (400,000); the smaller P052.BLK, P000.BLK and lower-case names never serve.
TEST_F(Blockdateien, GroessererBlockWirdGeschnitten) {
    BlockAnlegen(200000, "P052.BLK");
    BlockAnlegen(400000, "P054.BLK");
    DateiSchreiben("P000.BLK", std::string(400000, '\0'));
    DateiSchreiben("p099.blk", std::string(400000, '\0'));
    ASSERT_TRUE(GrenzeSetzen(Decimal(250000)));
    ASSERT_TRUE(GroesserenBlockNutzen());
    EXPECT_EQ(PrimaerRaster.size(), 2084u);
    EXPECT_EQ(PrimaerRaster.back() & 0x00000FFFu, 0x00000FFFu);  // 250,007 and up struck
    EXPECT_TRUE(BeschaffenWieProdukt(250000));
    ASSERT_TRUE(GrenzeSetzen(Decimal(300000)));
    ASSERT_TRUE(GroesserenBlockNutzen());
    EXPECT_TRUE(BeschaffenWieProdukt(300000));
    ASSERT_TRUE(GrenzeSetzen(Decimal(500000)));
    EXPECT_FALSE(GroesserenBlockNutzen());  // nothing at or above P055.BLK
    EXPECT_TRUE(ui.meldungen.empty());
}

// The same at full size, with the names a user has: 250,000,000 takes P083.BLK, cut at word
// 2,083,333; 300,000,000 with only P084.BLK takes that one.
TEST_F(Blockdateien, GrosseBloeckeMitIhrenNamen) {
#if !defined(NDEBUG) || defined(__SANITIZE_ADDRESS__)
    // Sieving 4e8 takes minutes unoptimised under the sanitizers; the small-block test above
    // runs the same paths there.
    GTEST_SKIP() << "release build only";
#endif
    BlockAnlegen(200000000, "P082.BLK");
    BlockAnlegen(300000000, "P083.BLK");
    ASSERT_TRUE(GrenzeSetzen(Decimal(250000000)));
    ASSERT_TRUE(GroesserenBlockNutzen());
    EXPECT_EQ(PrimaerRaster.size(), 2083334u);
    EXPECT_EQ(PrimAnzahl(Decimal(2), Decimal(250000000)), Decimal(13679318));
    std::remove((Ordner() + "P083.BLK").c_str());
    BlockAnlegen(400000000, "P084.BLK");
    EXPECT_TRUE(BeschaffenWieProdukt(300000000));
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(16252325));
    EXPECT_TRUE(ui.meldungen.empty());
}

// A block too short for its limit, or not made of whole words, or whose word 0 is not that
// of a finished raster: a box that names the file, and the main sieve builds the raster.
TEST_F(Blockdateien, UnpassendeBloeckeWerdenNichtGenutzt) {
    BlockAnlegen(1000000, "P061.BLK");
    std::string inhalt;
    {
        std::ifstream ein(Ordner() + "P061.BLK", std::ios::binary);
        inhalt.assign(std::istreambuf_iterator<char>(ein), {});
    }
    const std::vector<std::string> kaputt = {inhalt.substr(0, inhalt.size() / 2), inhalt + "x",
                                             std::string(inhalt.size(), '\0'), ""};
    for (const std::string& k : kaputt) {
        DateiSchreiben("P061.BLK", k);
        ui.meldungen.clear();
        EXPECT_TRUE(BeschaffenWieProdukt(1000000));
        ASSERT_EQ(ui.meldungen.size(), 1u);
        EXPECT_EQ(ui.meldungen[0].titel, "SW - Fehler");
        EXPECT_NE(ui.meldungen[0].text.find("P061.BLK"), std::string::npos);
        EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(78498));
    }
}

// A block of the limit's own name serves method 3; the menu's load takes the limit from the
// length. Both keep one word more than the file, and only a block file's name makes the raster
// count as the true primes.
TEST_F(Blockdateien, EigenerBlockUndMenueLaden) {
    BlockAnlegen(2000000, "P062.BLK");
    const std::vector<uint32_t> gespeichert = PrimaerRaster;
    ASSERT_TRUE(RasterSpeichern(Ordner() + "meins.dat", PrimaerRaster));
    ASSERT_TRUE(PrimaerLauf(Decimal(2000000), MethodeBereichBeschaffen));
    ASSERT_EQ(PrimaerRaster.size(), gespeichert.size() + 1);
    EXPECT_TRUE(std::equal(gespeichert.begin(), gespeichert.end(), PrimaerRaster.begin()));
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(148933));

    ASSERT_TRUE(PrimaerLauf(Decimal(1000), MethodeProdukt));
    ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "P062.BLK"));
    EXPECT_EQ(PrimaerGrenze, Decimal(2000000));
    EXPECT_EQ(RasterLetzterIndex, int32_t(gespeichert.size()));
    EXPECT_EQ(PrimaerWurzel, 1414);
    EXPECT_EQ(PrimaerWurzelWort, 11);
    EXPECT_EQ(PrimaerQuadrat, Decimal(int64_t(4000000000000)));
    EXPECT_TRUE(RasterBereit);
    EXPECT_TRUE(RasterEcht);
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(148933));
    EXPECT_EQ(NaechstePrim(Decimal(1999993)), Decimal(0));

    ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "meins.dat"));
    EXPECT_FALSE(RasterEcht);
    EXPECT_EQ(PrimaerGrenze, Decimal(2000000));

    // Save and load again: the file grows by a word, the limit stays.
    ASSERT_TRUE(RasterSpeichern(Ordner() + "P062.BLK", PrimaerRaster));
    ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "P062.BLK"));
    EXPECT_EQ(PrimaerGrenze, Decimal(2000000));
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(148933));
    EXPECT_TRUE(ui.meldungen.empty());
}

TEST_F(Blockdateien, MenueLadenLehntAbUndBehaeltDasRaster) {
    ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    const std::vector<uint32_t> vorher = PrimaerRaster;
    DateiSchreiben("ungerade.BLK", std::string(4001, '\0'));
    DateiSchreiben("winzig.BLK", std::string(16, '\0'));
    for (const char* name : {"ungerade.BLK", "winzig.BLK", "fehlt.BLK", ""}) {
        ui.meldungen.clear();
        EXPECT_FALSE(PrimaerBlockLaden(Ordner() + name)) << name;
        EXPECT_EQ(ui.meldungen.size(), 1u) << name;
        EXPECT_TRUE(PrimaerRaster == vorher) << name;
        EXPECT_EQ(PrimaerGrenze, Decimal(1000000));
    }
}

TEST_F(Blockdateien, SpeichernUeberschreibtGanzUndMeldetFehler) {
    DateiSchreiben("P031.BLK", std::string(100000, 'x'));
    BlockAnlegen(1000, "P031.BLK");
    std::ifstream ein(Ordner() + "P031.BLK", std::ios::binary | std::ios::ate);
    EXPECT_EQ(int64_t(ein.tellg()), 36);
    EXPECT_FALSE(RasterSpeichern(Ordner() + "gibtsnicht/P031.BLK", PrimaerRaster));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("gibtsnicht"), std::string::npos);
}

}  // namespace
}  // namespace sw::test
