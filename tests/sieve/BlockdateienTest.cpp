// Block files: names, the search for a larger block and its cut, loads of files that do not
// fit, and the menu's load with the limit derived from the size.
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <new>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "sieve/Blockdateien.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basMaxPrimaer.h"
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

// A block too short for its limit, or not made of whole words, or whose words are not those
// of a finished raster: a box that names the file, and the main sieve builds the raster.
TEST_F(Blockdateien, UnpassendeBloeckeWerdenNichtGenutzt) {
    BlockAnlegen(1000000, "P061.BLK");
    std::string inhalt;
    {
        std::ifstream ein(Ordner() + "P061.BLK", std::ios::binary);
        inhalt.assign(std::istreambuf_iterator<char>(ein), {});
    }
    // Also a file whose word 0 is right but which is empty behind it, as a file that was only
    // made long enough.
    const std::vector<std::string> kaputt = {inhalt.substr(0, inhalt.size() / 2), inhalt + "x",
                                             std::string(inhalt.size(), '\0'),
                                             inhalt.substr(0, 4) + std::string(inhalt.size() - 4, '\0'), ""};
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
// length. Both hold exactly the words up to the limit, and only a block file's name makes the
// raster count as the true primes.
TEST_F(Blockdateien, EigenerBlockUndMenueLaden) {
    BlockAnlegen(2000000, "P062.BLK");
    const std::vector<uint32_t> gespeichert = PrimaerRaster;
    ASSERT_TRUE(RasterSpeichern(Ordner() + "meins.dat", PrimaerRaster));
    ASSERT_TRUE(PrimaerLauf(Decimal(2000000), MethodeBereichBeschaffen));
    EXPECT_TRUE(PrimaerRaster == gespeichert);

    ASSERT_TRUE(PrimaerLauf(Decimal(1000), MethodeProdukt));
    ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "P062.BLK"));
    EXPECT_EQ(PrimaerGrenze, Decimal(2000000));
    EXPECT_EQ(RasterLetzterIndex, int32_t(gespeichert.size()) - 1);
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

    // Save and load again: file and limit stay as they were.
    ASSERT_TRUE(RasterSpeichern(Ordner() + "P062.BLK", PrimaerRaster));
    ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "P062.BLK"));
    EXPECT_TRUE(PrimaerRaster == gespeichert);
    EXPECT_EQ(PrimaerGrenze, Decimal(2000000));
    EXPECT_TRUE(ui.meldungen.empty());
}

// A raster saved at a limit that is not a multiple of 1000 loads at a limit no higher than
// the saved one, and every query up to that limit is right. For 1,000,900 the derived limit
// lies words below the end of the file; for the other limits a multiple of 1000 lies in the
// last word above them, with a prime between (struck, as it was above the saved limit).
TEST_F(Blockdateien, MenueLadenBleibtUnterDerGespeichertenGrenze) {
    const std::vector<bool> prim = Eratosthenes(3100000);
    std::vector<int64_t> grenzen = {1000900};
    for (int64_t m = 2000000; grenzen.size() < 3; m += 1000) {
        // The last prime at or below m, when it shares the word of m: a limit just below it.
        int64_t p = m;
        while (!prim[size_t(p)]) --p;
        if (p / 120 == m / 120 && (p - 1) / 120 == m / 120) grenzen.push_back(p - 1);
    }
    for (int64_t gespeichert : grenzen) {
        BlockAnlegen(gespeichert, "P063.BLK");
        ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "P063.BLK")) << gespeichert;
        const int64_t geladen = PrimaerGrenze.AlsInt64();
        EXPECT_LE(geladen, gespeichert);
        EXPECT_EQ(geladen, gespeichert / 1000 * 1000) << gespeichert;
        EXPECT_EQ(RasterAbweichungen(PrimaerRaster, prim, uint64_t(geladen)), "") << gespeichert;
        int64_t soll = 0;
        for (int64_t n = geladen - 1000; n <= geladen; ++n) soll += prim[size_t(n)];
        EXPECT_EQ(PrimAnzahl(Decimal(geladen - 1000), PrimaerGrenze), Decimal(soll)) << gespeichert;
        EXPECT_EQ(NaechstePrim(PrimaerGrenze), Decimal(0)) << gespeichert;
    }
    // A round limit comes back whole.
    BlockAnlegen(3000000, "P063.BLK");
    ASSERT_TRUE(PrimaerBlockLaden(Ordner() + "P063.BLK"));
    EXPECT_EQ(PrimaerGrenze, Decimal(3000000));
    EXPECT_TRUE(ui.meldungen.empty());
}

// The peak of resident memory in kB since the last reset of it (0 if the system keeps none).
int64_t SpitzeKb() {
    std::ifstream status("/proc/self/status");
    for (std::string zeile; std::getline(status, zeile);) {
        if (zeile.rfind("VmHWM:", 0) == 0) return std::stoll(zeile.substr(6));
    }
    return 0;
}

// A small limit takes only the words it needs from a large block: the file here is the raster
// of 1,000,000 followed by the empty room of a block of 9,000,000,000 (300 MB).
TEST_F(Blockdateien, KleineGrenzeLiestNurDenAnfang) {
    BlockAnlegen(1000000, "P099.BLK");
    const std::vector<uint32_t> soll = PrimaerRaster;
    ASSERT_EQ(::truncate((Ordner() + "P099.BLK").c_str(), off_t(9000000000 / 120 + 1) * 4), 0);
    // Writing 5 there starts the peak anew.
    const bool spitzeNeu = bool(std::ofstream("/proc/self/clear_refs") << "5" << std::flush);
    const int64_t vorher = SpitzeKb();
    ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeBereichBeschaffen));
    EXPECT_TRUE(PrimaerRaster == soll);
    if (spitzeNeu && vorher > 0) {
        EXPECT_LT(SpitzeKb() - vorher, 64 * 1024);
    }
    EXPECT_TRUE(ui.meldungen.empty());
}

// A read that breaks off after the first piece has overwritten part of the pre-sieved raster:
// method 3 says so and sieves on a raster built anew.
namespace {
std::string kuerzen;
void beimLesenKuerzen() {
    if (kuerzen.empty()) return;
    EXPECT_EQ(::truncate(kuerzen.c_str(), 400000), 0);
    kuerzen.clear();
}
}  // namespace

TEST_F(Blockdateien, AbgebrochenesLesenSiebtNeu) {
    BlockAnlegen(40000000, "P074.BLK");
    const std::vector<uint32_t> soll = PrimaerRaster;
    ASSERT_TRUE(GrenzeSetzen(Decimal(40000000)));
    ASSERT_TRUE(RasterVorsieben());
    kuerzen = Ordner() + "P074.BLK";
    ui.beiDoEvents = beimLesenKuerzen;
    BereichBeschaffen();
    LaufAbschliessen();
    EXPECT_TRUE(kuerzen.empty());
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("endet zu früh"), std::string::npos);
    EXPECT_TRUE(PrimaerRaster == soll);
}

// When the memory for the block is not there, the limit asked for stays; method 3 then builds
// the raster anew, and if that fails too the run is void with "SW - Speicher" instead of a sieve
// on a raster of one word.
TEST_F(Blockdateien, FehlenderSpeicherBeimLaden) {
#if defined(__SANITIZE_ADDRESS__)
    // The test provokes the failed allocation by limiting the address space, which the
    // sanitizer's shadow memory already occupies; the release build runs it.
    GTEST_SKIP() << "the sanitizer's shadow memory needs the address space";
#endif
    BlockAnlegen(1000000, "P061.BLK");
    const std::vector<uint32_t> soll = PrimaerRaster;
    std::vector<uint32_t>().swap(PrimaerRaster);
    // Larger than what the allocator may keep in reserve from earlier tests.
    ASSERT_TRUE(RasterSpeichern(Ordner() + "P092.BLK", soll));
    ASSERT_EQ(::truncate((Ordner() + "P092.BLK").c_str(), off_t(2000000000 / 120 + 1) * 4), 0);
    ASSERT_TRUE(GrenzeSetzen(Decimal(2000000000)));
    const int32_t letzter = RasterLetzterIndex;
    {
        // The address space of the process ends a few megabytes above what it uses now.
        long seiten = 0;
        std::ifstream("/proc/self/statm") >> seiten;
        rlimit alt{};
        ASSERT_EQ(::getrlimit(RLIMIT_AS, &alt), 0);
        rlimit eng = alt;
        eng.rlim_cur = rlim_t(seiten) * rlim_t(::sysconf(_SC_PAGESIZE)) + (rlim_t(4) << 20);
        ASSERT_EQ(::setrlimit(RLIMIT_AS, &eng), 0);
        const bool geladen = BlockLaden(Ordner() + "P092.BLK");
        const int32_t danach = RasterLetzterIndex;
        bool ohneSpeicher = false;
        try {
            BereichBeschaffen();
        } catch (const std::bad_alloc&) {
            ohneSpeicher = true;
        }
        ::setrlimit(RLIMIT_AS, &alt);
        EXPECT_FALSE(geladen);
        EXPECT_EQ(danach, letzter);
        EXPECT_TRUE(ohneSpeicher);
    }
    ASSERT_FALSE(ui.meldungen.empty());
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Speicher");
    // With the memory back, the same run loads the block's words up to the limit.
    ui.meldungen.clear();
    ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeBereichBeschaffen));
    EXPECT_TRUE(PrimaerRaster == soll);
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
