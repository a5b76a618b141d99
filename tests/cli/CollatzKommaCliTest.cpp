// sw-cli collatz-frac and collatz-frac-tree from the outside: the walks of the multiplier
// figures, the tree of y = 3 against collatz-tree in the same run, the JSON forms, and
// refusals as one line.
#include <gtest/gtest.h>

#include <string>

#include "CliBasis.h"

namespace sw::test {
namespace {

using CollatzKommaCli = CliBasis;

TEST_F(CollatzKommaCli, Folgen) {
    EXPECT_EQ(Starten("collatz-frac 7 3").aus, "3,0000000000 7; 11; 17; 13; 5; 1\nelements: 6, end: one\n");
    EXPECT_EQ(Starten("collatz-frac 7 3,1").aus, "3,1000000000 7; 11; 9; 7...Schleife...\nelements: 4, end: loop\n");
    EXPECT_EQ(Starten("collatz-frac 5 2.45").aus, "2,4500000000 5; 7; 9; 3; 1\nelements: 5, end: one\n");
    EXPECT_EQ(Starten("collatz-frac 3 1").aus, "1,0000000000 3; 1\nelements: 2, end: one\n");
    // y = 3.33 from 7 reaches 1 as its 28th element.
    const Lauf l = Starten("collatz-frac 7 3.33 --json");
    EXPECT_NE(l.aus.find("\"elements\":28,\"end\":\"one\""), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(",19,1]}"), std::string::npos) << l.aus;
    // 5x grows without end: the limit stops it, and says so.
    EXPECT_EQ(Starten("collatz-frac 7 5 --max-elements 3").aus, "5,0000000000 7; 9; 23...Abbruch...\nelements: 3, end: limit\n");
    // y = 3 is 3n+1 on the odd values: 2^1000 - 1 takes 4317 of them (counted by PARI/GP).
    EXPECT_NE(Starten("collatz-frac 2^1000-1 3 --json").aus.find("\"elements\":4317,\"end\":\"one\""), std::string::npos);
}

TEST_F(CollatzKommaCli, BaumWieCollatzTree) {
    EXPECT_EQ(Starten("collatz-frac-tree 10 3").aus,
              "24 2 ...!.!....\n26 2 .!...!....\n160 1 .....!....\n168 1 ...!......\n170 1 .!........\n1024 0 ..........\n");
    for (int I : {7, 20}) {
        const std::string baum = Starten("collatz-tree " + std::to_string(I)).aus;
        std::string werte;
        const std::string komma = Starten("collatz-frac-tree " + std::to_string(I) + " 3,0000000000").aus;
        for (size_t a = 0; a < komma.size();) {
            const size_t e = komma.find('\n', a);
            werte += komma.substr(a, komma.find(' ', a) - a) + "\n";
            a = e + 1;
        }
        EXPECT_EQ(werte, baum) << I;
    }
    // In mode k 5 -> ceil(15.5) = 16, halved once with its multiplication: 8, 4, 2, 1.
    EXPECT_EQ(Starten("collatz-frac-tree 4 3.1 --mode k --json").aus,
              "{\"steps\":4,\"y\":\"3,1000000000\",\"mode\":\"k\",\"count\":2,\"complete\":true,\"stopped\":false,"
              "\"hits\":[{\"number\":5,\"mult\":1,\"marks\":\"!...\"},{\"number\":16,\"mult\":0,\"marks\":\"....\"}]}\n");
    // A bound below 2^I cuts the doubling path: the list says so on stderr.
    const Lauf l = Starten("collatz-frac-tree 10 3 --to 1000");
    EXPECT_EQ(l.code, 0);
    EXPECT_EQ(l.aus.find("1024"), std::string::npos);
    EXPECT_NE(l.fehler.find("cut off"), std::string::npos);
    EXPECT_EQ(Starten("collatz-frac-tree 12 3.1 --m L").aus.find('\n'), Starten("collatz-frac-tree 12 3.1 --m L").aus.size() - 1);
    EXPECT_EQ(Starten("collatz-frac-tree 5 3 --m 6").aus, "");
}

TEST_F(CollatzKommaCli, Ablehnungen) {
    Abgelehnt("collatz-frac 7 abc", "Y must be");
    Abgelehnt("collatz-frac 7 10", "Y must be");
    Abgelehnt("collatz-frac 0 3", "at least 1");
    Abgelehnt("collatz-frac 7 3 --max-elements 0", "--max-elements");
    Abgelehnt("collatz-frac-tree 0 3", "at least 1");
    Abgelehnt("collatz-frac-tree 30000 3", "at most");
    Abgelehnt("collatz-frac-tree 10 0,5", "at least 1");
    Abgelehnt("collatz-frac-tree 10 3 --mode x", "--mode");
    Abgelehnt("collatz-frac-tree 10 3 --from 5 --to 4", "FROM");
    Abgelehnt("collatz-frac-tree 10 3 --m x");
}

}  // namespace
}  // namespace sw::test
