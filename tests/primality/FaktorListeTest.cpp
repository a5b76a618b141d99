// The factor list window's logic on a raster up to 10^6: the lines and the selected line, the
// numbers beyond the range left out, the eight steps and their refusals, and the text of the
// raster's factorisation at its edges.
#include <gtest/gtest.h>

#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "primality/FaktorListe.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {
namespace {

class FaktorListe : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
};

TEST_F(FaktorListe, FaktorTextAnDenRaendern) {
    EXPECT_EQ(FaktorText(1), "");
    EXPECT_EQ(FaktorText(84), "2x2x3x7");
    EXPECT_EQ(FaktorText(7), "7");
    EXPECT_EQ(FaktorText(999983), "999983");
    EXPECT_EQ(FaktorText(Decimal(int64_t(999983) * 999983)), "999983x999983");
    // Beyond the square of the limit the last factor stays unproved.
    EXPECT_EQ(FaktorText(Decimal(int64_t(1000003) * 1000033) * Decimal(7)), "7x1000036000099?");
}

TEST_F(FaktorListe, ZeilenUndAuswahl) {
    FaktorZeilen l = FaktorListeBauen(84, 1, 2);
    ASSERT_EQ(l.zeilen.size(), 5u);
    EXPECT_EQ(l.zeilen[0], "82 >>> 2x41");
    EXPECT_EQ(l.zeilen[1], "83 >>> Primzahl");
    EXPECT_EQ(l.zeilen[2], "84 >>> 2x2x3x7");
    EXPECT_EQ(l.auswahl, 2);

    // Below 2 and beyond the limit nothing is listed; the selection follows its line.
    l = FaktorListeBauen(3, 2, 3);
    ASSERT_EQ(l.zeilen.size(), 4u);
    EXPECT_EQ(l.zeilen[0], "3 >>> Primzahl");
    EXPECT_EQ(l.auswahl, 0);
    EXPECT_EQ(FaktorListeBauen(1000000, 10, 2).zeilen.size(), 3u);

    EXPECT_EQ(GeworfeneNummer([] { FaktorListeBauen(84, 0, 2); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { FaktorListeBauen(84, 1, 1000000); }), 5);
}

TEST_F(FaktorListe, SchritteUndGrenzen) {
    Decimal l = 100;
    EXPECT_EQ(*FaktorSchritt(0, 100, 5, l), Decimal(105));
    EXPECT_EQ(l, Decimal(105));
    EXPECT_EQ(*FaktorSchritt(1, 100, 5, l), Decimal(95));
    EXPECT_EQ(*FaktorSchritt(2, 100, 5, l), Decimal(500));
    EXPECT_EQ(*FaktorSchritt(3, 100, 7, l), Decimal(14));
    EXPECT_EQ(GeworfeneNummer([&] { FaktorSchritt(3, 100, 0, l); }), 11);

    // The prime steps walk on from prime to prime.
    l = 100;
    EXPECT_EQ(*FaktorSchritt(4, 100, 0, l), Decimal(101));
    EXPECT_EQ(*FaktorSchritt(4, 100, 2, l), Decimal(105));
    EXPECT_EQ(l, Decimal(103));
    EXPECT_EQ(*FaktorSchritt(7, 100, 1, l), Decimal(100));
    EXPECT_EQ(l, Decimal(101));

    // Leaving 2 .. limit is refused and the last value starts again at 1.
    EXPECT_FALSE(FaktorSchritt(1, 5, 4, l));
    EXPECT_EQ(l, Decimal(1));
    EXPECT_FALSE(FaktorSchritt(2, 500000, 3, l));
    l = 999983;
    EXPECT_FALSE(FaktorSchritt(4, 1, 0, l));

    EXPECT_TRUE(FaktorStartGueltig("1.000.000"));
    EXPECT_FALSE(FaktorStartGueltig("1.000.001"));
    EXPECT_FALSE(FaktorStartGueltig("1"));
    EXPECT_FALSE(FaktorStartGueltig("12345678901"));
    EXPECT_FALSE(FaktorStartGueltig("12a"));
}

}  // namespace
}  // namespace sw::test
