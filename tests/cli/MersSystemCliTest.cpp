// sw-cli mersenne-system: the walk from 1 as PARI/GP's orders give it, the refusals, and a run
// that enters its divisors killed without warning over and over: the database must stay whole,
// every divisor in it must divide (checked by GMP), and the run that finally completes must
// leave exactly the table of a run that was never interrupted.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "CliBasis.h"
#include "MersenneTabelle.h"

namespace sw::test {
namespace {

class MersSystemCli : public CliBasis {};

TEST_F(MersSystemCli, WalksFromOneAndRefusesBadInput) {
    Lauf l = Starten("mersenne-system 1 130");
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus.substr(0, l.aus.find(" entered")),
              "23 divides 2^11-1 k=1\nnew: 23 divides 2^11-1\n31 divides 2^5-1 k=3\n41 ---\n"
              "47 divides 2^23-1 k=1\nnew: 47 divides 2^23-1\n71 ---\n73 ---\n79 ---\n"
              "89 divides 2^11-1 k=4\nnew: 89 divides 2^11-1\n97 ---\n103 ---\n113 ---\n127 divides 2^7-1 k=9\n"
              "12 primes q, 5 with a prime order, 7 ---, 3 new, 0");
    l = Starten("mersenne-system 1 100000 --json");
    EXPECT_NE(l.aus.find("\"primes\":4781,\"prime_order\":584,\"no_prime_order\":4197"), std::string::npos) << l.aus;

    Abgelehnt("mersenne-system 130 1", "TO 1");
    Abgelehnt("mersenne-system 130 130", "smaller");
    Abgelehnt("mersenne-system 1 100 --param 51", "--param");
    Abgelehnt("mersenne-system 1 100 --param 0", "--param");
    Abgelehnt("mersenne-system 24 30", "no prime q");
    Abgelehnt("mersenne-system 1 100 --yes", "--db");
    Abgelehnt("mersenne-system x 100");
    std::filesystem::create_directories(Ordner() + "/kaputt/Prim.db");
    Abgelehnt("mersenne-system 1 100 --db " + Ordner() + "/kaputt", "Prim.db");
}

TEST_F(MersSystemCli, KilledWhileEnteringItKeepsWholeRowsAndEndsAsAnUninterruptedRun) {
    const std::string bereich = "mersenne-system 1 3000000 --yes --db ";
    const std::string ref = Ordner() + "/ref";
    const Lauf r = Starten(bereich + ref);
    ASSERT_EQ(r.code, 0) << r.fehler;
    const Tabelle erwartet = lesen(ref + "/Prim.db");
    ASSERT_GT(erwartet.size(), 1000u);
    // Known divisors are not entered twice.
    EXPECT_NE(Starten(bereich + ref + " --json").aus.find("\"new\":0,\"entered\":0"), std::string::npos);

    const std::string ordner = Ordner() + "/kill";
    std::mt19937 zufall(1840);
    std::uniform_int_distribution<int> warten(20, 250);
    int mittendrin = 0;
    for (int runde = 0; runde < 15; ++runde) {
        const int status = AbbrechenNach({"mersenne-system", "1", "3000000", "--yes", "--db", ordner},
                                         std::chrono::milliseconds(warten(zufall)));
        mittendrin += WIFSIGNALED(status);
        for (const auto& [p, z] : lesen(ordner + "/Prim.db")) {
            ASSERT_EQ(z.mersenne, 2) << p;
            ASSERT_EQ(z.pot, 2000000000) << p;
            for (const std::string& q : TeilerEinzeln(z.teiler)) ASSERT_TRUE(teilt(p, q)) << q << " | 2^" << p << "-1";
        }
    }
    EXPECT_GE(mittendrin, 10);
    const Lauf l = Starten(bereich + ordner);
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(lesen(ordner + "/Prim.db"), erwartet);
}

}  // namespace
}  // namespace sw::test
