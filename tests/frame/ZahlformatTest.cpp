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
    // Grouped input is regrouped; the fraction always vanishes.
    const char* faelle[][2] = {{"000", "0"},         {"1234567", "1.234.567"},    {"123", "123"},
                               {"1234", "1.234"},    {"  1.234.567  ", "1.234.567"}, {"0001234", "1.234"},
                               {"1234567,89", "1.234.567"}, {"-1234567", "-1.234.567"}, {"", ""}};
    for (auto& f : faelle) EXPECT_EQ(ZahlFormat(f[0]), f[1]) << "'" << f[0] << "'";
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
    EXPECT_EQ(ui.meldungen.size(), 1u) << "above the rule the user is told";
    EXPECT_EQ(TextZuLong("1e30"), 2000000000);
    for (const char* falsch : {"", "abc", "12a", "1,2,3", "--1", "e5", "0x10"}) {
        EXPECT_EQ(test::GeworfeneNummer([&] { TextZuLong(falsch); }), 13) << "'" << falsch << "' is no number";
    }
    EXPECT_EQ(test::GeworfeneNummer([] { TextZuLong("-3000000000"); }), 6) << "below the Long range";
}

TEST_F(ZahlformatTest, TypedNumbersBecomeDecimals) {
    EXPECT_EQ(TextZuDecimal(""), Decimal(0));
    EXPECT_EQ(TextZuDecimal("   "), Decimal(0));
    EXPECT_EQ(TextZuDecimal("1.000.000.000.000"), Decimal(1000000000000LL));
    EXPECT_EQ(TextZuDecimal("-5"), Decimal(-5));
    EXPECT_EQ(TextZuDecimal("79.228.162.514.264.337.593.543.950.335").Text(), "79228162514264337593543950335");
    EXPECT_EQ(TextZuDecimal("12,9"), Decimal(12)) << "the integer part of a fraction";
    EXPECT_EQ(test::GeworfeneNummer([] { TextZuDecimal("zwölf"); }), 13);
    EXPECT_EQ(test::GeworfeneNummer([] { TextZuDecimal("79228162514264337593543950336"); }), 6);
}

TEST_F(ZahlformatTest, NumericTestFollowsThePlatformAndIgnoresTheLocale) {
    double v = 0;
    EXPECT_TRUE(IstNumerisch(" 1,5 ", &v));
    EXPECT_DOUBLE_EQ(v, 1.5);
    EXPECT_TRUE(IstNumerisch("-.5e2", &v));
    EXPECT_DOUBLE_EQ(v, -50);
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
    const Decimal max = Decimal::ausText("79228162514264337593543950335");
    struct Fall {
        int basis;
        Decimal wert;
        const char* ziffern;
    };
    for (const Fall& f : {Fall{2, Decimal(10), "1010"}, Fall{8, Decimal(64), "100"}, Fall{10, Decimal(0), "0"},
                          Fall{10, max, "79228162514264337593543950335"}, Fall{16, max, "FFFFFFFFFFFFFFFFFFFFFFFF"},
                          Fall{16, Decimal(-255), "-FF"}, Fall{36, Decimal(36 * 36 + 35), "1 0 35 "},
                          Fall{3, Decimal(5), "12"}}) {
        ZahlenSystem = f.basis;
        EXPECT_EQ(ZahlInBasis(f.wert), f.ziffern) << "base " << f.basis;
    }
    ZahlenSystem = 36;  // a base without a name of its own is named by its number
    EXPECT_NE(BasisBeschriftung().find("36"), std::string::npos);
}

TEST_F(ZahlformatTest, DigitsOfPowersOfTwo) {
    EXPECT_EQ(Stellen2hoch(0), "1");
    EXPECT_EQ(Stellen2hoch(10), "4");    // 1024
    EXPECT_EQ(Stellen2hoch(127), "39");  // 2^127 has 39 digits
    EXPECT_EQ(Stellen2hoch(136279841), "41.024.320");
}

}  // namespace
}  // namespace sw
