// sw-cli teileranalyse: its answers, its refusals, and a walk into the database killed without
// warning over and over. After every kill the file must open and hold only whole rows whose
// every divisor divides (GMP); no divisor once written may go missing, and the run that
// finally completes must leave exactly the table of a run that was never interrupted.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "CliBasis.h"
#include "MersenneTabelle.h"

namespace sw::test {
namespace {

class TeilerAnalyseCli : public CliBasis {};

TEST_F(TeilerAnalyseCli, AnswersAndRefusals) {
    Lauf l = Starten("teileranalyse 1 300");
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus.substr(0, l.aus.rfind("next")),
              "23 divides 2^11-1 k = 1\n47 divides 2^23-1 k = 1\n89 divides 2^11-1 k = 4\n167 divides 2^83-1 k = 1\n"
              "223 divides 2^37-1 k = 3\n233 divides 2^29-1 k = 4\n263 divides 2^131-1 k = 1\n7 hits (0 composite), ");
    // The divisors of 2^29 - 1 above a raster of 10^6 in the wide widths: 1103 2089 is no prime.
    l = Starten("teileranalyse 2300000 2310000 --exponent 29 --width dec --limit 10^6 --json");
    EXPECT_NE(l.aus.find("\"hits\":1,\"composite\":1"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("{\"q\":2304167,\"p\":29,\"k\":39727,\"prime\":false}"), std::string::npos) << l.aus;
    l = Starten("teileranalyse 616318000 616320000 --exponent 37 --width hyp --limit 10^6");
    EXPECT_EQ(l.aus.substr(0, l.aus.find('\n')), "616318177 divides 2^37-1 k = 8328624");

    Abgelehnt("teileranalyse 300 1", "FROM");
    Abgelehnt("teileranalyse 1 3000000000", "--width");
    Abgelehnt("teileranalyse 1 2^100 --width dec", "hyp");
    Abgelehnt("teileranalyse 1 100 --width wide", "--width");
    Abgelehnt("teileranalyse 1 100 --kfilter 3", "--kfilter");
    Abgelehnt("teileranalyse 1 100 --kfilter 2^30", "--kfilter");
    Abgelehnt("teileranalyse 1 100 --class 3", "--class");
    Abgelehnt("teileranalyse 1 100 --exponent 29 --max-exp 40", "--exponent");
    Abgelehnt("teileranalyse 1 100 --max-exp 0", "--max-exp");
    Abgelehnt("teileranalyse 1 1000 --exponent 31", "Mersenne-Primzahl");
    Abgelehnt("teileranalyse 1 1000 --exponent 33", "keine Primzahl");
}

TEST_F(TeilerAnalyseCli, KilledAtRandomTheWalkLeavesWholeRowsAndEndsAsAnUninterruptedRun) {
    const std::string ref = Ordner() + "/ref";
    ASSERT_EQ(Starten("teileranalyse 1 4000000 --db " + ref).code, 0);
    const Tabelle erwartet = lesen(ref + "/Prim.db");
    ASSERT_GT(erwartet.size(), 5000u);

    // A walk that outruns its kill has written the whole table; the next round then starts
    // over in an empty folder, so that a fast machine still sees twenty walks cut short.
    const std::string ordner = Ordner() + "/kill";
    std::mt19937 zufall(20261124);
    std::uniform_int_distribution<int> warten(20, 400);
    Tabelle vorher;
    int mittendrin = 0;
    for (int runde = 0; runde < 80 && mittendrin < 20; ++runde) {
        const int status =
            AbbrechenNach({"teileranalyse", "1", "4000000", "--db", ordner}, std::chrono::milliseconds(warten(zufall)));
        const Tabelle jetzt = lesen(ordner + "/Prim.db");
        if (!WIFSIGNALED(status)) {
            ASSERT_EQ(jetzt, erwartet) << "round " << runde;
            std::filesystem::remove_all(ordner);
            vorher.clear();
            continue;
        }
        ++mittendrin;
        for (const auto& [p, z] : jetzt) {
            ASSERT_EQ(z.mersenne, 2) << p;
            for (const std::string& q : TeilerEinzeln(z.teiler)) ASSERT_TRUE(teilt(p, q)) << z.teiler << " of " << p;
        }
        for (const auto& [p, z] : vorher) {
            ASSERT_TRUE(jetzt.count(p)) << "the row of " << p << " went missing";
            ASSERT_EQ(jetzt.at(p).teiler.rfind(z.teiler, 0), 0u) << "a divisor of " << p << " went missing";
        }
        vorher = jetzt;
    }
    EXPECT_GE(mittendrin, 20);
    const Lauf l = Starten("teileranalyse 1 4000000 --db " + ordner);
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(lesen(ordner + "/Prim.db"), erwartet);
}

}  // namespace
}  // namespace sw::test
