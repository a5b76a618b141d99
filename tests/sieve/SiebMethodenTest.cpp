// The eight build methods against a plain sieve of Eratosthenes and against each other, and
// the steps of a run that every method shares.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basMaxPrimaer.h"
#include "sieve/basSiebwerk.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__)
constexpr bool kReleaseBuild = true;
#else
constexpr bool kReleaseBuild = false;
#endif

class SiebMethoden : public SwTest {};

// Every method against the oracle and against method 0, word for word (the finishing steps
// strike the numbers above the limit, so the rasters are the same to the last word).
void MethodenVergleichen(const std::vector<int64_t>& grenzen) {
    for (int64_t grenze : grenzen) {
        const std::vector<bool> prim = Eratosthenes(uint64_t(grenze));
        std::vector<uint32_t> erstes;
        for (int32_t m = 0; m < MethodenAnzahl; ++m) {
            SCOPED_TRACE("limit " + std::to_string(grenze) + " method " + MethodenName(m));
            ASSERT_TRUE(PrimaerLauf(Decimal(grenze), m));
            EXPECT_EQ(RasterAbweichungen(PrimaerRaster, prim, uint64_t(grenze)), "");
            if (m == 0) {
                erstes = PrimaerRaster;
            } else {
                EXPECT_TRUE(PrimaerRaster == erstes);
            }
        }
    }
}

// Limits at the edges of words, of squares of primes (169 = 13^2, 28561 = 169^2, 57121 =
// 239^2 with 239 the last residue of a word) and of the sieving words.
TEST_F(SiebMethoden, AlleMethodenGleichUndRichtig) {
    MethodenVergleichen({1000, 1001, 1019, 1200, 14399, 14400, 14401, 28561, 57121, 100000, 123457,
                         1000000, 1234567, 9999991, 10000000});
}

// Large enough that primes p with p^2 beyond the sieving words strike through cofactors p^2.
TEST_F(SiebMethoden, HundertMillionen) {
    // Seven sieves to 1e8 take minutes unoptimised under the sanitizers; the limits above run there.
    if (!kReleaseBuild) GTEST_SKIP() << "release build only";
    MethodenVergleichen({100000000});
}

TEST_F(SiebMethoden, PrimzahlAnzahlenGrosserGrenzen) {
    // Rasters of 1e9 and 2e9 are too slow unoptimised under the sanitizers.
    if (!kReleaseBuild) GTEST_SKIP() << "release build only";
    ASSERT_TRUE(PrimaerLauf(Decimal(1000000000), MethodeProdukt));
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(50847534));
    ASSERT_TRUE(PrimaerLauf(Decimal(2000000000), MethodeProdukt));
    EXPECT_EQ(PrimAnzahl(Decimal(2), PrimaerGrenze), Decimal(98222287));
    EXPECT_EQ(VorherigePrim(PrimaerGrenze), Decimal(1999999973));
}

TEST_F(SiebMethoden, AbgelehnteGrenzenUndMethoden) {
    EXPECT_FALSE(PrimaerLauf(Decimal(999), MethodeProdukt));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Info");
    EXPECT_NE(ui.meldungen[0].text.find("1.000"), std::string::npos);  // text 469
    EXPECT_FALSE(RasterBereit);

    // Above GrenzeLong only methods 0, 3 and 7; the others are refused before anything is
    // allocated, with text 520.
    ui.meldungen.clear();
    ASSERT_TRUE(GrenzeSetzen(Decimal(2000001000)));
    EXPECT_EQ(RasterLetzterIndex, 16666675);
    for (int32_t m = 0; m < MethodenAnzahl; ++m) {
        EXPECT_EQ(MethodeZulaessig(m),
                  m == MethodeProdukt || m == MethodeBereichBeschaffen || m == MethodeSegmentiert)
            << m;
    }
    EXPECT_EQ(ui.meldungen.size(), 5u);
    EXPECT_NE(ui.meldungen[0].text.find("2.000.000.000"), std::string::npos);  // text 520
    ASSERT_TRUE(GrenzeSetzen(Decimal(GrenzeLong)));
    EXPECT_TRUE(MethodeZulaessig(MethodeQuadratSchritt));

    // A limit whose word index no longer fits 32 bits.
    ui.meldungen.clear();
    EXPECT_FALSE(GrenzeSetzen(Decimal(int64_t(300000000000))));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Grenze");
}

// With the address space capped, the raster cannot be had: the memory box, false, and a
// raster of one word that nobody reads beyond.
TEST_F(SiebMethoden, ZuWenigSpeicher) {
    // The sanitizers reserve address space of their own, so the cap would hit them first.
    if (!kReleaseBuild) GTEST_SKIP() << "release build only";
    rlimit alt{};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &alt), 0);
    rlimit eng = alt;
    eng.rlim_cur = rlim_t(1) << 30;
    ASSERT_EQ(setrlimit(RLIMIT_AS, &eng), 0);
    const bool gelungen = PrimaerLauf(Decimal(int64_t(100000000000)), MethodeProdukt);
    setrlimit(RLIMIT_AS, &alt);
    EXPECT_FALSE(gelungen);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Speicher");
    EXPECT_EQ(RasterLetzterIndex, 0);
    EXPECT_EQ(PrimaerRaster.size(), 1u);
    EXPECT_FALSE(RasterBereit);
    EXPECT_FALSE(IstPrim(Decimal(1000003)));
}

// The raster of frmPrimModify: struck only by the primes up to the bound.
TEST_F(SiebMethoden, PrimModifikation) {
    ASSERT_TRUE(GrenzeSetzen(Decimal(100000)));
    PrimModifikation(13);
    EXPECT_EQ(PrimaerRaster[0], 0x80040881u);
    auto frei = [](int64_t n) { return (PrimaerRaster[size_t(n / 120)] & RestMaske[n % 120]) == 0; };
    for (int64_t n = 7; n <= 100000; ++n) {
        if (RestMaske[n % 120] == 0 || n < 120) continue;
        const bool kleinerTeiler = n % 7 == 0 || n % 11 == 0 || n % 13 == 0;
        ASSERT_EQ(frei(n), !kleinerTeiler) << n;
    }
    PrimModifikation(5);
    EXPECT_EQ(PrimaerRaster[0], 0x80000000u);
    EXPECT_TRUE(frei(49));
}

}  // namespace
}  // namespace sw::test
