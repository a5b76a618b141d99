// The arithmetic of the bar graphic and the wrap of the big lists: bars that fit, the scale
// that turns fractional only when the longest bar would not fit, values and navigation that
// stop at 0 and at the step, the marks of one bar, and rows cut at ";", at blanks and hard.
#include <gtest/gtest.h>

#include "TestUmgebung.h"
#include "collatz/CollatzBalken.h"
#include "collatz/CollatzUmbruch.h"
#include "frame/basZentral.h"

namespace sw::test {
namespace {

class CollatzBalken_ : public SwTest {};

std::string text(const Mpz& z) { return std::to_string(mpz_get_ui(z.get())); }

TEST_F(CollatzBalken_, AnzahlMassWerteUndNavigation) {
    EXPECT_EQ(BalkenAnzahl(505, 3), 99);  // (505 - 5) / 5 - 1
    EXPECT_EQ(BalkenAnzahl(8, 10), 0);    // too narrow: nothing, no error
    EXPECT_EQ(BalkenAnzahl(100, 0), 30);  // width 0 counts as 1
    EXPECT_EQ(BalkenIndex(5, 3), 0);
    EXPECT_EQ(BalkenIndex(14, 3), 1);
    EXPECT_DOUBLE_EQ(BalkenMass(400, 111), 3.0);
    EXPECT_DOUBLE_EQ(BalkenMass(100, 400), 0.25);

    const Mpz start(10);
    EXPECT_EQ(text(BalkenWert(start, 3, 4)), "22");
    EXPECT_EQ(text(BalkenWert(start, -3, 3)), "1");
    EXPECT_EQ(text(BalkenWert(start, -3, 4)), "0");  // past 0 the bars stay empty

    // A page of (105 - 5) * 2 / (3 + 2) = 40 starts.
    EXPECT_EQ(text(BalkenNavigation(0, Mpz(1000), 2, 105, 3)), "2");
    EXPECT_EQ(text(BalkenNavigation(1, Mpz(1000), 2, 105, 3)), "960");
    EXPECT_EQ(text(BalkenNavigation(1, Mpz(40), 2, 105, 3)), "2");
    EXPECT_EQ(text(BalkenNavigation(2, Mpz(1000), 2, 105, 3)), "998");
    EXPECT_EQ(text(BalkenNavigation(2, Mpz(2), 2, 105, 3)), "2");
    EXPECT_EQ(text(BalkenNavigation(3, Mpz(1000), -2, 105, 3)), "1002");
    EXPECT_EQ(text(BalkenNavigation(4, Mpz(1000), 2, 105, 3)), "1040");

    FormatZeichen = ".";  // a grouping dot in the value must not count as a mark
    EXPECT_EQ(BalkenMarken(Mpz(3), 0, 0), "!.!....");
    EXPECT_EQ(BalkenMarken(Mpz(1001), 2, 0).find('.'), std::string::npos);
    EXPECT_EQ(BalkenMarken(Mpz(7), 3, 0), "!!!");
    EXPECT_EQ(BalkenMarken(Mpz(1), 0, 0), "");
}

TEST_F(CollatzBalken_, UmbruchAnSemikolonBlankUndHart) {
    const auto eins = [](const char*, int32_t) { return 1; };
    using V = std::vector<std::string>;
    EXPECT_EQ(ZeilenUmbrechen("3; 10; 5; 16; 8; 4; 2; 1", 10, eins), (V{"3; 10; 5;", "16; 8; 4;", "2; 1"}));
    EXPECT_EQ(ZeilenUmbrechen("111 Elemente, darin enthalten", 16, eins), (V{"111 Elemente,", "darin enthalten"}));
    EXPECT_EQ(ZeilenUmbrechen("!.!....!.!", 4, eins), (V{"!.!.", "...!", ".!"}));
    EXPECT_EQ(ZeilenUmbrechen("ab cdefghijk", 5, eins), (V{"ab cd", "efghi", "jk"}));  // blank too early
    EXPECT_EQ(ZeilenUmbrechen("", 5, eins), V{});
    // Wider than the row: one character per row rather than none.
    EXPECT_EQ(ZeilenUmbrechen("ab", 0, eins), (V{"a", "b"}));
    // "ä" is one character of two bytes.
    EXPECT_EQ(ZeilenUmbrechen("äääää", 2, eins), (V{"ää", "ää", "ä"}));
}

}  // namespace
}  // namespace sw::test
