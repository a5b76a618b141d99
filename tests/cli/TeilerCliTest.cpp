// sw-cli divisors: the refusals, and a search killed without warning over and over. After
// every kill the database must open, hold only whole rows whose divisors divide (checked by
// GMP) and whose limits never went back; the run that finally completes must leave exactly
// the table of a run that was never interrupted.
#include <gtest/gtest.h>

#include <random>

#include "CliBasis.h"
#include "MersenneTabelle.h"

namespace sw::test {
namespace {

class TeilerCli : public CliBasis {};

TEST_F(TeilerCli, FindsTheSmallestFactorsAndRefusesBadRanges) {
    Lauf l = Starten("divisors --from 2 --to 100 --k 1000");
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus.substr(0, l.aus.find("97-1")),
              "23 divides 2^11-1\n47 divides 2^23-1\n233 divides 2^29-1\n223 divides 2^37-1\n13367 divides 2^41-1\n"
              "431 divides 2^43-1\n2351 divides 2^47-1\n6361 divides 2^53-1\n439 divides 2^73-1\n"
              "2687 divides 2^79-1\n167 divides 2^83-1\n11447 divides 2^");
    // Mersenne prime exponents are settled without a search; a second run has nothing to do.
    const Tabelle t = lesen(Ordner() + "/Prim.db");
    EXPECT_EQ(t.at(31), (Zeile{1, "0", "<null>", 1000}));
    EXPECT_EQ(t.at(29), (Zeile{2, "233", "4", 1000}));
    EXPECT_EQ(t.at(59), (Zeile{0, "0", "<null>", 1000}));
    l = Starten("divisors --from 2 --to 100 --k 1000 --json");
    EXPECT_NE(l.aus.find("\"exponents\":25,\"searched\":0,\"found\":0"), std::string::npos) << l.aus;
    // A search further up finds the divisor the first one could not reach.
    l = Starten("divisors --from 59 --to 59 --k 2000");
    EXPECT_EQ(l.aus.substr(0, l.aus.find('\n')), "179951 divides 2^59-1");

    l = Starten("divisors --from 100000123 --to 100000123 --k 12 --db " + Ordner() + "/neu");
    EXPECT_EQ(l.aus.substr(0, l.aus.find('\n')), "2400002953 divides 2^100000123-1");

    Abgelehnt("divisors --from 100 --to 10 --k 5", "--from");
    Abgelehnt("divisors --from 3 --to 3000000000 --k 5", "--to");
    Abgelehnt("divisors --from 3 --to 10 --k 0", "--k");
    Abgelehnt("divisors --from 3 --to 10 --k 3000000000", "--k");
    Abgelehnt("divisors --from 3 --to 10", "--k");
}

TEST_F(TeilerCli, KilledAtRandomTheSearchLosesNothingAndEndsAsAnUninterruptedRun) {
    const std::string bereich = "divisors --from 1000000 --to 1060000 --k 40000";
    const std::string ref = Ordner() + "/ref";
    ASSERT_EQ(Starten(bereich + " --db " + ref).code, 0);
    const Tabelle erwartet = lesen(ref + "/Prim.db");
    ASSERT_GT(erwartet.size(), 2000u);

    const std::string ordner = Ordner() + "/kill";
    std::mt19937 zufall(20261123);
    std::uniform_int_distribution<int> warten(15, 120);
    Tabelle vorher;
    int mittendrin = 0;
    for (int runde = 0; runde < 60; ++runde) {
        // Every fifth stop is a Ctrl-C, which must end the run cleanly (130) or find it done.
        const bool strgC = runde % 5 == 4;
        const int status = AbbrechenNach({"divisors", "--from", "1000000", "--to", "1060000", "--k", "40000", "--db", ordner},
                                         std::chrono::milliseconds(warten(zufall)), strgC ? SIGINT : SIGKILL);
        if (strgC && WIFEXITED(status)) {  // (a signal before the handler stands simply kills)
            EXPECT_TRUE(WEXITSTATUS(status) == 130 || WEXITSTATUS(status) == 0) << WEXITSTATUS(status);
        }
        mittendrin += WIFSIGNALED(status) || (WIFEXITED(status) && WEXITSTATUS(status) == 130);

        // A run killed before it made its folder (a slow start, as under the sanitizers) has
        // written nothing.
        const Tabelle jetzt = lesen(ordner + "/Prim.db");
        for (const auto& [p, z] : jetzt) {
            ASSERT_TRUE(z.mersenne == 0 || z.mersenne == 2) << p;
            ASSERT_GT(z.pot, 0) << p;
            ASSERT_LE(z.pot, 40000) << p;
            if (z.mersenne == 0) {
                ASSERT_EQ(z.teiler, "0") << p;
            }
            const auto alt = vorher.find(p);
            if (alt != vorher.end()) {
                ASSERT_GE(z.pot, alt->second.pot) << "the limit of " << p << " went back";
                if (alt->second.mersenne == 2) {
                    ASSERT_EQ(z, alt->second) << p;
                }
            }
            if (z.mersenne == 2 && (alt == vorher.end() || alt->second.mersenne != 2)) {
                ASSERT_TRUE(teilt(p, z.teiler)) << z.teiler << " does not divide 2^" << p << "-1";
                ASSERT_EQ(z.teiler, std::to_string(2 * std::stoll(z.faktorS) * p + 1)) << p;
            }
        }
        vorher = jetzt;
    }
    EXPECT_GE(mittendrin, 50);
    const Lauf l = Starten(bereich + " --db " + ordner);
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(lesen(ordner + "/Prim.db"), erwartet);
}

}  // namespace
}  // namespace sw::test
