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
    // Rounded to whole seconds; nothing for 0 and below; beyond 2e9 seconds a text instead.
    const std::pair<double, std::string> faelle[] = {
        {59, "59 Sek "}, {60, "1 Min "}, {3600, "1 Std "}, {90061, "1 Tage 1 Std 1 Min 01 Sek "},
        {5, "05 Sek "},  {86400 + 5, "1 Tage 05 Sek "}, {0, ""}, {0.4, ""}, {59.6, "1 Min "}, {-5, ""},
        {2000000000.0, "23148 Tage 3 Std 33 Min 20 Sek "}, {2000000001.0, Text(179)}};
    for (const auto& [sekunden, text] : faelle) EXPECT_EQ(ZeitFormat(sekunden), text) << sekunden;
}

TEST_F(FortschrittTest, PercentIsRoundedCappedAndRefusesAnEmptySpan) {
    EXPECT_EQ(Prozent(50, 0, 200), 25);
    EXPECT_EQ(Prozent(1, 0, 8), 12) << "12.5 rounds to even";
    EXPECT_EQ(Prozent(3, 0, 8), 38) << "37.5 rounds to even";
    EXPECT_EQ(Prozent(300, 0, 200), 100);
    EXPECT_EQ(Prozent(0, 100, 200), -100);
    EXPECT_EQ(Prozent(150, 100, 200), 50);
    EXPECT_EQ(test::GeworfeneNummer([] { Prozent(5, 7, 7); }), 11) << "an empty span divides by zero";
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

    Decimal von = Decimal::ausText("1000000000000000000000");
    EXPECT_EQ(ZeitTextGross(100, von + Decimal(25), von, von + Decimal(100)), "Zeit: 10 Sek  Restzeit: 30 Sek ");
    EXPECT_EQ(ZeitTextGross(100, von, von, von + Decimal(100)), "");
}

}  // namespace
}  // namespace sw
