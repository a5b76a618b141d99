// sw-cli gaps: the bars of the neighbours and of all pairs as the independent counts give
// them, a secondary range against primesieve's twins at 10^12, and the refusals as one line.
#include <gtest/gtest.h>

#include "CliBasis.h"

namespace sw::test {
namespace {

using AbstandCli = CliBasis;

TEST_F(AbstandCli, BalkenWieGezaehlt) {
    Lauf l = Starten("gaps 2 1000000 --gaps 2 8");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus.substr(0, l.aus.find("78498 primes")), "2 8169\n4 8143\n6 13549\n8 5569\n");

    l = Starten("gaps 2 1000000 --gaps 4 6 --kind pairs --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find(R"("bars":[{"at":4,"count":8144,)"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(R"({"at":6,"count":16386,)"), std::string::npos) << l.aus;

    l = Starten("gaps 2 100 --kind sequence --gaps 1 5");
    EXPECT_EQ(l.aus.substr(0, l.aus.find("6 primes")), "1 1\n2 2\n3 2\n4 4\n5 2\n");

    // Above 2e9 without a raster of the user's: a secondary range (1,746 twins, 1,729.36 expected).
    l = Starten("gaps 10^12 10^12+10^6 --gaps 2 2 --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find(R"("source":"secondary")"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(R"("estimate":1729.36)"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(R"("bars":[{"at":2,"count":1746}])"), std::string::npos) << l.aus;
}

TEST_F(AbstandCli, Ablehnungen) {
    Abgelehnt("gaps 0 1000", "außerhalb");
    Abgelehnt("gaps 1000 1000", "außerhalb");
    Abgelehnt("gaps 2 1000 --kind lonely", "--kind");
    Abgelehnt("gaps 2 1000 --gaps 10 4", "--gaps");
    Abgelehnt("gaps 1000 2", "greater");
}

}  // namespace
}  // namespace sw::test
