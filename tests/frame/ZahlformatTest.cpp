// Number texts: every number a user sees and every number a user types passes here, under
// whatever grouping and base the options say.
#include <gtest/gtest.h>

#include <clocale>

#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"

namespace sw {
namespace {

class ZahlformatTest : public test::SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        FormatZeichen = ".";
        FormatAnzahl = 3;
    }
};

TEST_F(ZahlformatTest, GroupsDigitsAndCutsLeadingZerosAndFractions) {
    EXPECT_EQ(ZahlFormat("000"), "0");
    EXPECT_EQ(ZahlFormat("1234567"), "1.234.567");
    EXPECT_EQ(ZahlFormat("123"), "123");
    EXPECT_EQ(ZahlFormat("1234"), "1.234");
    EXPECT_EQ(ZahlFormat("  1.234.567  "), "1.234.567") << "grouped input is regrouped";
    EXPECT_EQ(ZahlFormat("0001234"), "1.234");
    EXPECT_EQ(ZahlFormat("1234567,89"), "1.234.567") << "the fraction always vanishes";
    EXPECT_EQ(ZahlFormat("-1234567"), "-1.234.567");
    EXPECT_EQ(ZahlFormat(""), "");
    EXPECT_EQ(ZahlFormatRoh("0001234"), "0.001.234");
    EXPECT_EQ(ZahlFormatLong(-2147483647 - 1), "-2.147.483.648");
    EXPECT_EQ(ZahlFormat(Decimal::ausText("79228162514264337593543950335")),
              "79.228.162.514.264.337.593.543.950.335");
    EXPECT_EQ(ZahlFormat(1234567LL), "1.234.567");
    EXPECT_EQ(ZahlFormat(1234.9), "1.234");
    EXPECT_EQ(ZahlFormat(-0.5), "0");
    EXPECT_EQ(ZahlFormat(1e20), "100.000.000.000.000.000.000");

    FormatZeichen = "'";
    FormatAnzahl = 4;
    EXPECT_EQ(ZahlFormat("123456789"), "1'2345'6789");
    EXPECT_EQ(ZahlFormat("1'2345'6789"), "1'2345'6789");
    FormatZeichen = "";
    FormatAnzahl = 0;
    EXPECT_EQ(ZahlFormat("1.234.567"), "1234567");
}

TEST_F(ZahlformatTest, TypedNumbersBecomeLongsWithTheTwoBillionRule) {
    EXPECT_EQ(TextZuLong("1.000"), 1000);
    EXPECT_EQ(TextZuLong(" 42 "), 42);
    EXPECT_EQ(TextZuLong("2,5"), 2) << "half rounds to even";
    EXPECT_EQ(TextZuLong("3,5"), 4);
    EXPECT_EQ(TextZuLong("-7"), -7);
    EXPECT_EQ(TextZuLong("2.000.000.000"), 2000000000);
    EXPECT_TRUE(ui.meldungen.empty());
    EXPECT_EQ(TextZuLong("2.000.000.001"), 2000000000);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Info");
    EXPECT_EQ(ui.meldungen[0].text, Text(200));
    EXPECT_EQ(TextZuLong("1e30"), 2000000000);

    for (const char* falsch : {"", "abc", "12a", "1,2,3", "--1", "e5", "0x10"}) {
        try {
            TextZuLong(falsch);
            ADD_FAILURE() << "\"" << falsch << "\" is no number";
        } catch (const Laufzeitfehler& e) {
            EXPECT_EQ(e.Nummer(), 13) << falsch;
        }
    }
    try {
        TextZuLong("-3000000000");
        ADD_FAILURE() << "below the Long range";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), 6);
    }
}

TEST_F(ZahlformatTest, TypedNumbersBecomeDecimals) {
    EXPECT_EQ(TextZuDecimal(""), Decimal(0));
    EXPECT_EQ(TextZuDecimal("   "), Decimal(0));
    EXPECT_EQ(TextZuDecimal("1.000.000.000.000"), Decimal(1000000000000LL));
    EXPECT_EQ(TextZuDecimal("-5"), Decimal(-5));
    EXPECT_EQ(TextZuDecimal("79.228.162.514.264.337.593.543.950.335").Text(), "79228162514264337593543950335");
    EXPECT_EQ(TextZuDecimal("12,9"), Decimal(12)) << "the integer part of a fraction";
    try {
        TextZuDecimal("zwölf");
        ADD_FAILURE();
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), 13);
    }
    try {
        TextZuDecimal("79228162514264337593543950336");
        ADD_FAILURE();
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), 6);
    }
}

TEST_F(ZahlformatTest, NumericTestFollowsThePlatformAndIgnoresTheLocale) {
    double v = 0;
    EXPECT_TRUE(IstNumerisch(" 1,5 ", &v));
    EXPECT_DOUBLE_EQ(v, 1.5);
    EXPECT_TRUE(IstNumerisch("-.5e2", &v));
    EXPECT_DOUBLE_EQ(v, -50);
    EXPECT_TRUE(IstNumerisch("+7", &v));
    EXPECT_DOUBLE_EQ(v, 7);
    EXPECT_FALSE(IstNumerisch("."));
    EXPECT_FALSE(IstNumerisch("1e"));
    EXPECT_FALSE(IstNumerisch("1 2"));
    EXPECT_FALSE(IstNumerisch(std::string("1\0", 2)));
    // The desktop program runs in the user's locale; a German one must not change reading.
    if (std::setlocale(LC_ALL, "de_DE.UTF-8")) {
        EXPECT_TRUE(IstNumerisch("1.5", &v));
        EXPECT_DOUBLE_EQ(v, 1.5);
        std::setlocale(LC_ALL, "C");
    }
}

TEST_F(ZahlformatTest, NumbersInOtherBasesAndTheirNames) {
    ZahlenSystem = 2;
    EXPECT_EQ(ZahlInBasis(Decimal(10)), "1010");
    EXPECT_EQ(BasisBeschriftung(), Text(175));
    ZahlenSystem = 8;
    EXPECT_EQ(ZahlInBasis(Decimal(64)), "100");
    EXPECT_EQ(BasisBeschriftung(), Text(176));
    ZahlenSystem = 10;
    EXPECT_EQ(ZahlInBasis(Decimal(0)), "0");
    EXPECT_EQ(ZahlInBasis(Decimal::ausText("79228162514264337593543950335")), "79228162514264337593543950335");
    EXPECT_EQ(BasisBeschriftung(), Text(174));
    ZahlenSystem = 16;
    EXPECT_EQ(ZahlInBasis(Decimal::ausText("79228162514264337593543950335")), "FFFFFFFFFFFFFFFFFFFFFFFF");
    EXPECT_EQ(ZahlInBasis(Decimal(-255)), "-FF");
    EXPECT_EQ(BasisBeschriftung(), Text(177));
    ZahlenSystem = 36;
    EXPECT_EQ(ZahlInBasis(Decimal(36 * 36 + 35)), "1 0 35 ");
    EXPECT_EQ(BasisBeschriftung(), TextP1(178, 36LL));
    EXPECT_NE(BasisBeschriftung().find("36"), std::string::npos);
    ZahlenSystem = 3;
    EXPECT_EQ(ZahlInBasis(Decimal(5)), "12");
    for (int k : {174, 175, 176, 177, 178}) EXPECT_FALSE(Text(k).empty()) << k;
}

TEST_F(ZahlformatTest, DigitsOfPowersOfTwo) {
    EXPECT_EQ(Stellen2hoch(0), "1");
    EXPECT_EQ(Stellen2hoch(10), "4");    // 1024
    EXPECT_EQ(Stellen2hoch(127), "39");  // 2^127 has 39 digits
    EXPECT_EQ(Stellen2hoch(136279841), "41.024.320");
}

TEST_F(ZahlformatTest, CleaningTakesOutGroupingOnly) {
    EXPECT_EQ(ZahlBereinigt(" 1.234.567 "), "1234567");
    FormatZeichen = " ";
    EXPECT_EQ(ZahlBereinigt("1 234 567"), "1234567");
}

}  // namespace
}  // namespace sw
