// The texts of the walks: the four methods and outputs on small starts written out by hand,
// the 3n - 1 cycles, the block walk against the true sequence, the bar line forms and the
// multiplier walk with its loop, its cut multiplier and the question that ends it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "collatz/basCollatz.h"
#include "frame/basZentral.h"

namespace sw::test {
namespace {

class CollatzFolge_ : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        FormatZeichen = "";  // plain numbers in the lists
    }
    static std::string folge(uint64_t start, int v, int a, int k = 0) {
        return CollatzFolge(Decimal(start), v, a, k);
    }
    static std::string minus(uint64_t start, int v, int a) {
        CollatzZahl = Ziffern2Hyp(std::to_string(start));
        return CollatzFolge3nMinus1(v, a);
    }
};

size_t anzahl(const std::string& s, char c) { return size_t(std::count(s.begin(), s.end(), c)); }

TEST_F(CollatzFolge_, MethodenUndAusgabenKleinerStarts) {
    EXPECT_EQ(folge(3, 0, 0), "!.!....");
    EXPECT_EQ(folge(3, 1, 0), "!!...");
    EXPECT_EQ(folge(3, 2, 0), "!!");
    EXPECT_EQ(folge(3, 0, 1), "3; 10; 5; 16; 8; 4; 2; 1");
    EXPECT_EQ(folge(3, 1, 1), "3; 5; 8; 4; 2; 1");
    EXPECT_EQ(folge(3, 2, 2), "3; 5; 1");
    EXPECT_EQ(folge(3, 3, 2), "3(2); 1");
    EXPECT_EQ(folge(3, 3, 1), "3; 1");
    EXPECT_EQ(folge(2, 0, 0), ".");
    EXPECT_EQ(folge(2, 0, 1), "2; 1");
    for (int v = 0; v <= 3; ++v) {
        EXPECT_EQ(folge(0, v, 0), "");
        EXPECT_EQ(folge(1, v, 9), "");
    }
    const std::string m27 = folge(27, 0, 0);
    EXPECT_EQ(m27.size(), 111u);
    EXPECT_EQ(anzahl(m27, '!'), 41u);
    EXPECT_EQ(folge(27, 0, 9), "111 Elemente, darin enthalten 41 Mult3+1 und 70 Div2");
    EXPECT_EQ(folge(27, 1, 9), "70 Elemente, darin enthalten 41 Mult3+1 mit Halbierung und 29 einzelne Div2");
    EXPECT_EQ(folge(27, 2, 9), "41 Elemente, nur ungerade Werte gezählt");
    // Method 1 lists every value but the one right after a multiplication.
    EXPECT_EQ(anzahl(folge(27, 1, 1), ';'), 70u);
}

TEST_F(CollatzFolge_, DreiNMinusEinsEndetInSeinenDreiZyklen) {
    EXPECT_EQ(minus(7, 0, 1), "7; 20; 10; 5...(Schleife)...");
    EXPECT_EQ(minus(5, 0, 1), "5...(Schleife)...");
    EXPECT_EQ(minus(3, 0, 1), "3; 8; 4; 2; 1");
    EXPECT_EQ(minus(1, 0, 1), "");
    // 17 is the smallest member of the long cycle: 37 -> 110 -> 55 -> ... -> 17.
    EXPECT_EQ(minus(37, 2, 1).substr(minus(37, 2, 1).size() - 18), "17...(Schleife)...");
    EXPECT_EQ(minus(7, 0, 9), "3 Elemente, darin enthalten 1 Mult3-1 und 2 Div2");
    EXPECT_EQ(minus(7, 3, 9), "1 Elemente, längster Block 0");
    // The fast marks and the step-by-step list walk must end on the same value.
    for (uint64_t n = 2; n < 3000; ++n) {
        const std::string liste = minus(n, 2, 1);
        const std::string marken = minus(n, 2, 0);
        EXPECT_EQ(anzahl(liste, ';'), marken.size()) << n;
    }
}

TEST_F(CollatzFolge_, BlockWegZaehltWieDieWahreFolge) {
    // With no reduction the block walk is the true sequence from odd value to odd value: its
    // multiplications and halvings are the true ones, a block is a run of "!" in the marks of
    // method 1 and the longest block the longest such run; an even start takes one more round.
    for (uint64_t n = 2; n < 8000; ++n) {
        const std::string marken = folge(n, 1, 0);
        const int32_t mult = Mult, div = Div;
        int32_t bloecke = n % 2 == 0, laengster = 0, lauf = 0;
        for (char c : marken) {
            lauf = c == '!' ? lauf + 1 : 0;
            if (lauf == 1) ++bloecke;
            laengster = std::max(laengster, lauf);
        }
        folge(n, 3, 9, 0);
        ASSERT_EQ(Mult, mult) << n;
        ASSERT_EQ(Div, div) << n;
        ASSERT_EQ(Elemente, bloecke) << n;
        ASSERT_EQ(MaxLauf, laengster) << n;
    }
    EXPECT_EQ(folge(27, 3, 9, 0), "17 Elemente, längster Block 6");
    // Reduction 2: 28 = 4 * 7 allows one pair, 42 -> 21 -> 20 -> 5; 6 allows one, 9 -> 8 -> 1.
    EXPECT_EQ(folge(27, 3, 2, 2), "27(1); 5(1); 1");
    EXPECT_EQ(folge(27, 3, 9, 2), "2 Elemente, Reduktion 2, längster Block 1");
    // An even start takes a round without a pair: 6 -> 7 -> 6 -> 3, then 3 -> 4 -> 9 -> 8 -> 1.
    EXPECT_EQ(folge(6, 3, 2, 0), "6(0); 3(2); 1");
}

TEST_F(CollatzFolge_, ZeilenDerBalkengrafik) {
    CollatzZahl = Ziffern2Hyp("3");
    EXPECT_EQ(CollatzMuster(), "3 ---> 7.2 = !!...");
    CollatzZahl = Ziffern2Hyp("3");
    EXPECT_EQ(CollatzZeile(0, 0), "3 ---> 7.2 = !.!....");
    CollatzZahl = Ziffern2Hyp("3");
    EXPECT_EQ(CollatzZeile(2, 0), "3 ---> 7.2 = !!");
    CollatzZahl = Ziffern2Hyp("1");
    EXPECT_EQ(CollatzMuster(), "1 ---> 0.0 =");
    CollatzZahl = Ziffern2Hyp("0");
    EXPECT_EQ(CollatzZeile(0, 0), "0 ---> 0.0 =");
    // Block line: 7 -> 8 -> 27 -> 26 -> 13, 13 -> 14 -> 21 -> 20 -> 5, 5 -> 6 -> 9 -> 8 -> 1.
    CollatzZahl = Ziffern2Hyp("7");
    EXPECT_EQ(CollatzZeile(3, 0), "7 ---> 11.5 = !!!");
    // The pseudo reduction does one pair per block: 7 -> 8 -> 12 -> 3 -> 2 -> 1.
    CollatzZahl = Ziffern2Hyp("7");
    EXPECT_EQ(CollatzZeile(3, CollatzEinPaar), "7 ---> 4.1 = !");
    EXPECT_EQ(MaxLauf, 1);
}

TEST_F(CollatzFolge_, MultiplikatorFolge) {
    EXPECT_EQ(CollatzKommaFolge("3", "3"), "3 3; 5; 1");
    EXPECT_EQ(CollatzKommaFolge("3", "1"), "1 3; 1");
    EXPECT_EQ(CollatzKommaFolge("0", "3"), "");
    // Only the integer digit and ten decimals count: the rest is cut, not rounded.
    EXPECT_EQ(CollatzKommaFolge("3", "1,50000000009"), "1,50000000009 3; 3...Schleife...");
    ASSERT_EQ(FolgenListe.size(), 2u);  // the repeated value stands twice
    // An even start is halved to odd in place before it is listed.
    EXPECT_EQ(CollatzKommaFolge("12", "3"), "3 3; 5; 1");
    // 5x + 1 grows: the question at 1000 values ends it.
    int fragen = 0;
    const std::string t = CollatzKommaFolge("7", "5", [&](int32_t n) {
        ++fragen;
        EXPECT_EQ(n, 1000);
        return false;
    });
    EXPECT_EQ(fragen, 1);
    EXPECT_EQ(FolgenListe.size(), 1000u);
    EXPECT_EQ(t.substr(t.size() - 13), "...Abbruch...");
    // The default question is a box; "no" ends the walk.
    ui.antworten.push_back(AntwortNein);
    CollatzKommaFolge("7", "5");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, "Die Folge hat schon 1000 Elemente. Weiter machen?");
}

}  // namespace
}  // namespace sw::test
