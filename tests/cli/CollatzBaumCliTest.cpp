// sw-cli collatz-tree from the outside: the values of I steps in ascending order, checked
// against a forward count, the filter by M, the JSON form, and refusals as one line.
#include <gtest/gtest.h>

#include <string>

#include "CliBasis.h"

namespace sw::test {
namespace {

using CollatzBaumCli = CliBasis;

int schritte(uint64_t n) {
    int s = 0;
    for (; n != 1; ++s) n = n % 2 ? 3 * n + 1 : n / 2;
    return s;
}

TEST_F(CollatzBaumCli, WerteWieVorwaertsGezaehlt) {
    // Every value of I steps is at most 2^I, so the forward count over 1..2^I is complete.
    for (int I : {1, 3, 5, 10, 17}) {
        std::string erwartet;
        for (uint64_t n = 1; n <= (uint64_t(1) << I); ++n)
            if (schritte(n) == I) erwartet += std::to_string(n) + "\n";
        const Lauf l = Starten("collatz-tree " + std::to_string(I));
        EXPECT_EQ(l.code, 0) << l.fehler;
        EXPECT_EQ(l.aus, erwartet) << I;
    }
    EXPECT_EQ(Starten("collatz-tree 10 --m 1").aus, "160\n168\n170\n");
    EXPECT_EQ(Starten("collatz-tree 10 --m 2 --json").aus,
              "{\"steps\":10,\"mult\":2,\"count\":2,\"numbers\":[24,26],\"stopped\":false}\n");
    // Far beyond 2^96: the values are made, not searched.
    EXPECT_EQ(Starten("collatz-tree 130 --m 0").aus, "1361129467683753853853498429727072845824\n");
    EXPECT_EQ(Starten("collatz-tree 10 --m 11").aus, "");
}

TEST_F(CollatzBaumCli, Ablehnungen) {
    Abgelehnt("collatz-tree 0", "at least 1");
    Abgelehnt("collatz-tree 30000", "at most");
    Abgelehnt("collatz-tree 5 --m -2", "negative");
    Abgelehnt("collatz-tree x");
}

}  // namespace
}  // namespace sw::test
