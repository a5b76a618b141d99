// sw-cli collatz and collatz-count: a formula start far beyond 64 bits, the delay records of
// 1..1000 as published (OEIS A006877), the JSON forms and the refusals.
#include <gtest/gtest.h>

#include "CliBasis.h"

namespace sw::test {
namespace {

class CollatzCli : public CliBasis {};

TEST_F(CollatzCli, FolgeZaehlungUndRekorde) {
    Lauf l = Starten("collatz 27 --ausgabe 9");
    EXPECT_EQ(l.code, 0);
    EXPECT_EQ(l.aus, "111 Elemente, darin enthalten 41 Mult3+1 und 70 Div2\n");
    l = Starten("collatz 2^200 --verfahren 2 --json");
    EXPECT_EQ(l.code, 0);
    EXPECT_NE(l.aus.find("\"elements\":0,\"mult\":0,\"div\":200"), std::string::npos) << l.aus;
    l = Starten("collatz 7 --rule 3n-1 --ausgabe 1");
    EXPECT_EQ(l.aus, "7; 20; 10; 5...(Schleife)...\nelements: 3, mult: 1, div: 2\n");

    l = Starten("collatz-count 1 1000 --summary --json");
    EXPECT_EQ(l.code, 0);
    EXPECT_NE(l.aus.find("\"records\":[[1,0],[2,1],[3,7],[6,8],[7,16],[9,19],[18,20],[25,23],[27,111],[54,112],"
                         "[73,115],[97,118],[129,121],[171,124],[231,127],[313,130],[327,143],[649,144],[703,170],"
                         "[871,178]]"),
              std::string::npos)
        << l.aus;
    l = Starten("collatz-count 18446744073709551614 18446744073709551615");
    EXPECT_EQ(l.code, 0);
    EXPECT_EQ(std::count(l.aus.begin(), l.aus.end(), '\n'), 2) << l.aus;

    // Every third start, as the graphic's columns with txtPlus 3: the last start is the last
    // one not beyond TO, also at the top of the word.
    l = Starten("collatz-count 27 40 --step 3");
    EXPECT_EQ(l.aus, "27 111 41\n30 18 5\n33 26 8\n36 21 6\n39 34 11\n");
    l = Starten("collatz-count 1 10000 --step 7 --summary --json");
    EXPECT_NE(l.aus.find("\"starts\":1429"), std::string::npos) << l.aus;
    l = Starten("collatz-count 18446744073709551610 18446744073709551615 --step 4");
    EXPECT_EQ(std::count(l.aus.begin(), l.aus.end(), '\n'), 2) << l.aus;
    Abgelehnt("collatz-count 1 10 --step 0", "--step");
    Abgelehnt("collatz 27 --rule 5n+1", "--rule");
    Abgelehnt("collatz 27 --verfahren 4", "--verfahren");
    Abgelehnt("collatz 27 --ausgabe 3", "--ausgabe");
    Abgelehnt("collatz-count 10 9", "FROM");
    Abgelehnt("collatz-count 1 2^64", "2^64");
}

}  // namespace
}  // namespace sw::test
