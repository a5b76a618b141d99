// sw-cli goldbach as a user runs it: the two lists of the window, r(N) with its estimate, the
// comet's file, and the one-line refusal of every number that cannot be split.
#include <fstream>
#include <sstream>

#include "CliBasis.h"

namespace sw::test {
namespace {

class GoldbachCli : public CliBasis {};

TEST_F(GoldbachCli, ListenUndAnzahl) {
    Lauf l = Starten("goldbach 100");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find(":\n3 + 97\n17 + 83\n89 + 11\n\n\n"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(":\n3 + 97\n11 + 89\n17 + 83\n29 + 71\n41 + 59\n47 + 53\n"), std::string::npos) << l.aus;

    l = Starten("goldbach 1000000 --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("\"mersenne\":[\"17 + 999983\",\"4253 + 995747\",\"756839 + 243161\"]"), std::string::npos);
    EXPECT_NE(l.aus.find("\"80387 + 919613\"],\"cut\":true}"), std::string::npos);

    l = Starten("goldbach 1.000.000 --count --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("{\"n\":1000000,\"count\":5402,\"estimate\":5"), std::string::npos) << l.aus;
    l = Starten("goldbach 4 --count");
    EXPECT_EQ(l.aus.rfind("r(4) = 1,", 0), 0u) << l.aus;
}

TEST_F(GoldbachCli, KometUndAblehnungen) {
    const std::string datei = Ordner() + "komet.csv";
    const Lauf l = Starten("goldbach --comet 3 1001 --csv '" + datei + "' --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("\"from\":4,\"numbers\":499,"), std::string::npos) << l.aus;
    std::ifstream f(datei);
    std::ostringstream inhalt;
    inhalt << f.rdbuf();
    EXPECT_EQ(inhalt.str().substr(0, 15), "n;r(n)\n4;1\n6;1\n");
    EXPECT_NE(inhalt.str().find("\n1000;28\n"), std::string::npos);

    // Without --limit the raster follows N, so only an odd or small N is refused, and no bound
    // is named; with a limit the window's message names it.
    for (const char* n : {"7", "2", "abc", "2.5"})
        Abgelehnt(std::string("goldbach ") + n, "N must be an even whole number of at least 4");
    Abgelehnt("goldbach 1000002 --limit 1e6", "zwischen 4 und 1.000.000");
    Abgelehnt("goldbach --comet 10 20", "--csv");
}

}  // namespace
}  // namespace sw::test
