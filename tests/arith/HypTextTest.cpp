// Hyp to text and back against GMP, across the sizes where the conversion changes method
// (word by word, then divide and conquer by 10^(9*2^k)), and the display form.
#include <gtest/gtest.h>

#include "ArithHilfen.h"
#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

class HypTextTest : public SwTest {};

TEST_F(HypTextTest, RoundTripAgainstGmpAcrossTheMethodBoundaries) {
    Mpz z;
    for (int bits : {1, 31, 32, 33, 64, 96, 640, 1280, 1300, 5000, 40000, 200000}) {
        const int runden = bits > 10000 ? 2 : 30 / kRunden + 1;
        for (int i = 0; i < runden; ++i) {
            ZufallsZahl(z.z, bits);
            const std::string soll = z.Text();
            const Hyp h = HypAus(z.z);
            ASSERT_EQ(Hyp2Text(h), soll) << "bits " << bits;
            ASSERT_EQ(Hyp2TextNull(h), soll);
            const Hyp zurueck = Text2Hyp(soll);
            ASSERT_EQ(zurueck.obergrenze(), zurueck.anzahl()) << "the upper bound is cut to the count";
            ASSERT_EQ(mpz_cmp(Mpz(zurueck).z, z.z), 0) << soll.substr(0, 50) << " (" << soll.size() << " digits)";
        }
    }
}

TEST_F(HypTextTest, PowersOfTenAndTheirNeighboursKeepTheirInnerZeros) {
    // 10^k splits exactly at a power of the table: every lower piece is all zeros and must be
    // written with its full width; 10^k - 1 is all nines.
    Mpz z;
    for (int k : {0, 1, 8, 9, 10, 17, 18, 19, 359, 360, 361, 575, 576, 577, 2304, 4608, 9000}) {
        mpz_ui_pow_ui(z.z, 10, unsigned(k));
        for (int d : {-1, 0, 1}) {
            Mpz w;
            if (d < 0) mpz_sub_ui(w.z, z.z, 1);
            else mpz_add_ui(w.z, z.z, unsigned(d));
            const std::string soll = w.Text();
            EXPECT_EQ(Hyp2Text(HypAus(w.z)), soll) << "10^" << k << (d < 0 ? "-1" : d ? "+1" : "");
            EXPECT_EQ(mpz_cmp(Mpz(Text2Hyp(soll)).z, w.z), 0) << "10^" << k;
        }
    }
}

TEST_F(HypTextTest, ZeroAndTheFreshArray) {
    EXPECT_EQ(Hyp2Text(Hyp(5)), "0");
    Hyp frisch(3);
    frisch[0] = 0;  // a freshly dimensioned array reads as 0
    EXPECT_EQ(Hyp2Text(frisch), "0");
    EXPECT_EQ(Hyp2TextNull(frisch), "0");
    const Hyp null = Text2Hyp("");
    EXPECT_EQ(null.anzahl(), 1);
    EXPECT_EQ(null[1], 0);
    EXPECT_EQ(Hyp2Text(Text2Hyp("0000")), "0");
}

TEST_F(HypTextTest, TextIsReadAsTheUserTypedIt) {
    FormatZeichen = "'";
    EXPECT_EQ(Hyp2Text(Text2Hyp("  1'234'567  ")), "1234567");
    EXPECT_EQ(Hyp2Text(Text2Hyp("1.234.567")), "1234567");
    // A character that is not a digit counts as the digit 0.
    EXPECT_EQ(Hyp2Text(Text2Hyp("12a3")), "1203");
}

TEST_F(HypTextTest, StoreReferencesOutsideAnEvaluationAreRefused) {
    for (const char* t : {"#0", " #1", "#x", "#"}) EXPECT_EQ(GeworfeneNummer([&] { Text2Hyp(t); }), 9) << t;
}

TEST_F(HypTextTest, DisplayGroupsShortensAndCounts) {
    FormatZeichen = ".";
    FormatAnzahl = 3;
    MaxFormatStellen = 10;
    StellenZahlAnzeigen = true;
    // Exactly D digits are shown whole.
    EXPECT_EQ(Hyp2Anzeige(Text2Hyp("1234567890")), "1.234.567.890");
    // One more: D/2 - 1 characters of the grouped text at each end, the length in front.
    EXPECT_EQ(Hyp2Anzeige(Text2Hyp("12345678901")), "(11)12.3 ... .901");
    EXPECT_EQ(Hyp2AnzeigeNull(Text2Hyp("12345678901")), "(11)12.3 ... .901");
    StellenZahlAnzeigen = false;
    EXPECT_EQ(Hyp2Anzeige(Text2Hyp("12345678901")), "12.3 ... .901");
    FormatAnzahl = 0;
    EXPECT_EQ(Hyp2Anzeige(Text2Hyp("12345678")), "12345678");
}

TEST_F(HypTextTest, OtherBasesFollowTheDigitRules) {
    const Hyp h = Text2Hyp("255");
    EXPECT_EQ(HypInBasis(h, 2), "11111111");
    EXPECT_EQ(HypInBasis(h, 16), "FF");
    EXPECT_EQ(HypInBasis(h, 20), "12 15 ");
    EXPECT_EQ(HypInBasis(Hyp(1), 7), "0");
    Mpz z;
    for (int b : {2, 3, 7, 8, 16}) {
        ZufallsZahl(z.z, b == 3 || b == 7 ? 20000 : 700);
        std::vector<char> p(mpz_sizeinbase(z.z, b) + 2);
        mpz_get_str(p.data(), b, z.z);
        std::string soll = p.data();
        if (b == 16) {
            for (char& c : soll) c = char(std::toupper(c));
        }
        EXPECT_EQ(HypInBasis(HypAus(z.z), b), soll) << "base " << b;
    }
    // Above 36 every digit is a number, whatever its size: the digit values by GMP's division.
    for (const int32_t b : {37, 40, 100, 256, 1000, 4096, 65537, 1 << 20, 2147483647}) {
        ZufallsZahl(z.z, 6000);
        std::string soll;
        Mpz rest;
        mpz_set(rest.z, z.z);
        do {
            soll.insert(0, std::to_string(mpz_tdiv_q_ui(rest.z, rest.z, unsigned(b))) + " ");
        } while (mpz_sgn(rest.z) != 0);
        EXPECT_EQ(HypInBasis(HypAus(z.z), b), soll) << "base " << b;
    }
    EXPECT_EQ(HypInBasis(Text2Hyp("255"), 40), "6 15 ");
    EXPECT_EQ(HypInBasis(Text2Hyp("1000000"), 1000), "1 0 0 ");
}

}  // namespace
}  // namespace sw::test
