// sw-cli collatz-family from the outside: the rows of the known figures, stepping with the
// operator, the CSV and JSON forms, the end of a family after its last n, and the refusals.
#include <gtest/gtest.h>

#include <string>

#include "CliBasis.h"

namespace sw::test {
namespace {

using CollatzFamilieCli = CliBasis;

TEST_F(CollatzFamilieCli, ZeilenCsvUndJson) {
    Lauf l = Starten("collatz-family 0 9 --count 2");
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus, "9! ; 86.26\n10! ; 66.17\n");
    EXPECT_EQ(Starten("collatz-family 6 96 --count 1").aus, "97# ; 545.164\n");
    EXPECT_EQ(Starten("collatz-family 8 100 --count 1").aus, "F(100) ; 477.158\n");
    EXPECT_EQ(Starten("collatz-family 4 99 --step 1 --count 2 --op + --offset 1").aus,
              "2^99+1 ; 898.309\n2^100+1 ; 643.210\n");
    EXPECT_EQ(Starten("collatz-family 0 10 --count 1 --csv").aus,
              "Formel;Stellen;Bits;Schritte;Mult;Schritte je Bit\n10!;7;22;66;17;3.0000\n");
    EXPECT_EQ(Starten("collatz-family 1 3 --count 2 --step 0 --op sub --offset 4 --json").aus,
              "{\"family\":1,\"formula\":\"n-4\",\"rows\":[{\"n\":3,\"formula\":\"3-4\",\"state\":\"below zero\"},"
              "{\"n\":3,\"formula\":\"3-4\",\"state\":\"below zero\"}],\"stopped\":false}\n");
    EXPECT_EQ(Starten("collatz-family 9 2 --formula n^2+1 --count 1 --json").aus,
              "{\"family\":9,\"formula\":\"n^2+1\",\"rows\":[{\"n\":2,\"formula\":\"2^2+1\",\"state\":\"counted\","
              "\"steps\":5,\"mults\":1,\"bits\":3,\"digits\":1}],\"stopped\":false}\n");
}

TEST_F(CollatzFamilieCli, EndeDerFamilieUndAblehnungen) {
    // The last prime below 2^31 is counted; the family then ends with a message, not with 0s.
    const Lauf l = Starten("collatz-family 5 2147483640 --count 3");
    EXPECT_EQ(l.code, 0);
    EXPECT_EQ(l.aus, "Prim 2147483647 ; 450.162\n");
    EXPECT_NE(l.fehler.find("2.147.483.647"), std::string::npos) << l.fehler;
    Abgelehnt("collatz-family 10 1", "0..9");
    Abgelehnt("collatz-family 0 1 --count 0", "at least 1");
    Abgelehnt("collatz-family 0 1 --formula n", "family 9");
    Abgelehnt("collatz-family 0 1 --op x", "--op");
    Abgelehnt("collatz-family 0 1 --op '*' --offset -2", "Operanden ab 0");
    Abgelehnt("collatz-family 0 -1", "Start-n");
    Abgelehnt("collatz-family 9 1", "Formel");
    Abgelehnt("collatz-family 4 1000000 --op ^ --offset 200");
}

}  // namespace
}  // namespace sw::test
