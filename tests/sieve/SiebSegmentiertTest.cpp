// The segmented build against SiebProdukt, word for word over the whole raster, at limits on and
// beside the edges of its words, L1 segments and blocks, for every thread count from 1 to 8; its
// stop; and the secondary windows whose sieving primes come from the segmented pass against
// the same windows sieved from a primary raster up to their root.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/SiebSegmentiert.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {
namespace {

#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__)
constexpr bool kReleaseBuild = true;
#else
constexpr bool kReleaseBuild = false;
#endif

constexpr int64_t Segment = 120 * 8192;      // numbers of one L1 segment of the engine
constexpr int64_t Block = 120 * 262144;      // numbers of one block, the least part of a thread
constexpr int64_t SegmentWorte = 8192, StueckWorte = 16384;  // words of a segment, of a piece

// The fewest words w of a raster whose first teil words let their last cycles reach past them:
// teil words plus the longest cycle, that of the largest sieving prime (at most the root of
// the limit 120 w - 1), or kappe words where the segment's primes stop.
int64_t WorteMitUeberhang(int64_t teil, int64_t kappe) {
    const std::vector<bool> prim = Eratosthenes(uint64_t(std::sqrt(120.0 * double(teil + kappe))) + 1);
    const auto groesstePrimzahlBis = [&](int64_t n) {
        while (!prim[size_t(n)]) --n;
        return n;
    };
    int64_t w = teil;
    while (teil + std::min(groesstePrimzahlBis(int64_t(std::sqrt(double(120 * w - 1)))), kappe) > w) ++w;
    return w;
}

class SiebSegmentiertTest : public SwTest {
protected:
    void TearDown() override {
        SiebFaeden = 0;
        Abbruch = false;
        SwTest::TearDown();
    }

    // Method 7 with 1..bisFaeden threads gives SiebProdukt's raster, every word of it.
    void WieProdukt(int64_t grenze, int32_t bisFaeden) {
        SCOPED_TRACE("limit " + std::to_string(grenze));
        ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt));
        const std::vector<uint32_t> erwartet = PrimaerRaster;
        for (int32_t faeden = 1; faeden <= bisFaeden; ++faeden) {
            SiebFaeden = faeden;
            ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeSegmentiert)) << faeden << " threads";
            ASSERT_EQ(PrimaerRaster.size(), erwartet.size());
            EXPECT_TRUE(PrimaerRaster == erwartet) << faeden << " threads";
        }
    }
};

// Small limits against the oracle too (word 0, the last word, the roots' edges); the pattern of
// 7..17 and the first sieving primes lie in the first segment.
TEST_F(SiebSegmentiertTest, KleineGrenzenWieDasOrakel) {
    for (int64_t grenze : {1000, 1019, 1199, 1200, 1201, 28561, 57121, 123457}) {
        ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeSegmentiert));
        EXPECT_EQ(RasterAbweichungen(PrimaerRaster, Eratosthenes(uint64_t(grenze)), uint64_t(grenze)), "") << grenze;
        EXPECT_EQ(PrimaerRaster[0], RasterWort0);
    }
}

// The edges of the engine's pieces: one L1 segment and one block, each 120k - 1, 120k, 120k + 1
// around the edge and one word more or less.
TEST_F(SiebSegmentiertTest, GrenzenAnSegmentUndBlockkanten) {
    for (int64_t kante : {Segment, Segment + 120, Segment - 120, Block, Block + 120, Block - 120}) {
        for (int64_t d : {-1, 0, 1}) WieProdukt(kante + d, 2);
    }
}

// The small primes of a segment and the medium ones of a piece strike their last cycles whole,
// past its end, where the raster reaches that far; the limits where it just does and just
// does not, for the first segment and the first piece, and random limits, at which each part
// of two or three threads ends its last segment and piece somewhere else.
TEST_F(SiebSegmentiertTest, ZyklenUeberDasEndeHinaus) {
    for (int64_t worte : {WorteMitUeberhang(SegmentWorte, 4095), WorteMitUeberhang(StueckWorte, 262143)}) {
        for (int64_t d : {-120, -1, 0, 1}) WieProdukt(120 * worte - 1 + d, 1);
    }
    uint64_t x = 0x9E3779B97F4A7C15u;
    for (int i = 0; i < 4; ++i) {
        x = x * 6364136223846793005u + 1442695040888963407u;
        WieProdukt(int64_t(1000000 + (x >> 33) % 90000000), 3);
    }
}

// Parts of uneven length for each thread count: nine blocks and a bit, so that 1..8 threads
// each cut the raster differently and the last part is short.
TEST_F(SiebSegmentiertTest, JedeFadenzahlGibtDasselbeRaster) {
    if (!kReleaseBuild) GTEST_SKIP() << "release build only: eight rasters of 3e8";
    WieProdukt(9 * Block + 120 * 5 + 1, 8);
}

// A stop ends every worker after its block, and the run with text 1700 and no raster.
TEST_F(SiebSegmentiertTest, AbbruchVerwirftDasRaster) {
    ASSERT_TRUE(PrimaerLauf(Decimal(1000), MethodeProdukt));
    SiebFaeden = 2;
    ui.beiDoEvents = [] { Abbruch = true; };
    try {
        PrimaerLauf(Decimal(int64_t(4) * Block), MethodeSegmentiert);
        ADD_FAILURE() << "no stop";
    } catch (const Laufzeitfehler& f) {
        EXPECT_EQ(f.Nummer(), 1700);
    }
    EXPECT_FALSE(RasterBereit);
}

// Windows whose root lies beyond a raster of 1000: the segmented pass supplies the sieving
// primes. Counts and bits agree with the same window sieved from a raster up to the root.
TEST_F(SiebSegmentiertTest, SekundaerfensterAusDemDurchgang) {
    struct Fenster {
        int64_t von, laenge;
    };
    const Fenster fenster[] = {{1000000000000LL, 100000}, {999999000000LL - 7, 1234567}, {4000000000000LL, 50000}};
    for (const Fenster& f : fenster) {
        SCOPED_TRACE(f.von);
        const Decimal von(f.von), laenge(f.laenge);
        const Decimal bis = von + laenge;
        ASSERT_TRUE(PrimaerLauf(GanzeWurzel(bis) + Decimal(120), MethodeProdukt));
        ASSERT_TRUE(SekundaerPruefen(von, laenge));
        const std::vector<uint32_t> erwartet = SekundaerRaster;
        const uint64_t anzahl = SekundaerAnzahl(von, bis);

        ASSERT_TRUE(PrimaerLauf(Decimal(1000), MethodeProdukt));
        ui.meldungen.clear();
        ASSERT_TRUE(SekundaerPruefen(von, laenge));
        EXPECT_TRUE(ui.meldungen.empty());  // no question, no "not all struck"
        EXPECT_TRUE(SekundaerRaster == erwartet);
        EXPECT_EQ(SekundaerAnzahl(von, bis), anzahl);
    }
}

// Minutes of CPU and a gigabyte: only with SW_LANGE_TESTS=1. The limits of the benchmarks
// against SiebProdukt, and a window just below 2^64 from the pass against one from a raster
// up to 2^32.
TEST_F(SiebSegmentiertTest, LangGrosseGrenzen) {
    if (!std::getenv("SW_LANGE_TESTS")) GTEST_SKIP() << "nur mit SW_LANGE_TESTS=1";
    WieProdukt(2000000000, 2);
    WieProdukt(10000000000LL, 2);
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(455052511));

    const Decimal von = Decimal::ausText("18446744073709451615"), laenge(100000);
    ASSERT_TRUE(PrimaerLauf(Decimal(int64_t(1) << 32), MethodeSegmentiert));
    ASSERT_TRUE(SekundaerSieben(von, laenge));
    const std::vector<uint32_t> erwartet = SekundaerRaster;
    ASSERT_TRUE(PrimaerLauf(Decimal(1000), MethodeProdukt));
    ASSERT_TRUE(SekundaerSieben(von, laenge));
    EXPECT_TRUE(SekundaerRaster == erwartet);
}

}  // namespace
}  // namespace sw::test
