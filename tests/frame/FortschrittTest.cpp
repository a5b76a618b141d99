// Progress, remaining time, the stop watch and the memory figures: the numbers a user reads
// while a job runs for days.
#include <gtest/gtest.h>

#include <fstream>

#include "TestUmgebung.h"
#include "frame/Fortschritt.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"

namespace sw {
namespace {

using FortschrittTest = test::SwTest;

TEST_F(FortschrittTest, TimeTextsGiveEachUnitOnlyWhenItIsNotZero) {
    EXPECT_EQ(ZeitFormat(59), "59 Sek ");
    EXPECT_EQ(ZeitFormat(60), "1 Min ");
    EXPECT_EQ(ZeitFormat(3600), "1 Std ");
    EXPECT_EQ(ZeitFormat(90061), "1 Tage 1 Std 1 Min 01 Sek ");
    EXPECT_EQ(ZeitFormat(5), "05 Sek ");
    EXPECT_EQ(ZeitFormat(86400 + 5), "1 Tage 05 Sek ");
    EXPECT_EQ(ZeitFormat(0), "");
    EXPECT_EQ(ZeitFormat(0.4), "") << "rounded to whole seconds";
    EXPECT_EQ(ZeitFormat(59.6), "1 Min ");
    EXPECT_EQ(ZeitFormat(-5), "");
    EXPECT_EQ(ZeitFormat(2000000000.0), "23148 Tage 3 Std 33 Min 20 Sek ");
    EXPECT_EQ(ZeitFormat(2000000001.0), Text(179));
    EXPECT_FALSE(Text(179).empty());
}

TEST_F(FortschrittTest, PercentIsRoundedCappedAndRefusesAnEmptySpan) {
    EXPECT_EQ(Prozent(50, 0, 200), 25);
    EXPECT_EQ(Prozent(1, 0, 8), 12) << "12.5 rounds to even";
    EXPECT_EQ(Prozent(3, 0, 8), 38) << "37.5 rounds to even";
    EXPECT_EQ(Prozent(300, 0, 200), 100);
    EXPECT_EQ(Prozent(0, 100, 200), -100);
    EXPECT_EQ(Prozent(150, 100, 200), 50);
    try {
        Prozent(5, 7, 7);
        FAIL() << "an empty span divides by zero";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), 11);
    }
}

TEST_F(FortschrittTest, PercentOfHugeRangesIsExactWhereOnlyLowDigitsDiffer) {
    Decimal von = Decimal::ausText("79228162514264337593543950000");
    Decimal bis = von + Decimal(200);
    EXPECT_EQ(ProzentGross(von + Decimal(50), von, bis), 25);
    EXPECT_EQ(ProzentGross(bis, von, bis), 100);
    EXPECT_EQ(ProzentGross(Decimal(5), Decimal(0), Decimal(10)), 50);
    EXPECT_THROW(ProzentGross(von, von, von), Laufzeitfehler);
}

TEST_F(FortschrittTest, TimeTextShowsElapsedAndRemainingAndSplitsAtRest) {
    ui.uhr = 110;  // 10 seconds after the start at 100
    EXPECT_EQ(ZeitText(100, 25, 0, 100), "Zeit: 10 Sek  Restzeit: 30 Sek ");
    EXPECT_EQ(ZeitText(100, 100, 0, 100), "Zeit: 10 Sek ") << "nothing remains";
    EXPECT_EQ(ZeitText(100, 0, 0, 100), "") << "nothing done yet";
    EXPECT_EQ(ZeitText(100, 101, 0, 100), "");

    auto [links, rechts] = ZeitTextTeilen(ZeitText(100, 25, 0, 100));
    EXPECT_EQ(links, "Zeit: 10 Sek");
    EXPECT_EQ(rechts, "Restzeit: 30 Sek");
    auto [l2, r2] = ZeitTextTeilen("Zeit: 10 Sek ");
    EXPECT_EQ(l2, "");
    EXPECT_EQ(r2, "");

    Decimal von = Decimal::ausText("1000000000000000000000");
    EXPECT_EQ(ZeitTextGross(100, von + Decimal(25), von, von + Decimal(100)), "Zeit: 10 Sek  Restzeit: 30 Sek ");
    EXPECT_EQ(ZeitTextGross(100, von, von, von + Decimal(100)), "");
}

}  // namespace
}  // namespace sw
