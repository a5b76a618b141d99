// sw-cli count --tuples, residues and gaps-from: the figures of primesieve, of the prime race
// mod 4 and of the maximal gaps, in the raster and in windows beyond it; refusals as one line.
#include <gtest/gtest.h>

#include "CliBasis.h"

namespace sw::test {
namespace {

using VerteilungCli = CliBasis;

void Enthaelt(const Lauf& l, const std::string& teil) {
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find(teil), std::string::npos) << teil << " in " << l.aus;
}

TEST_F(VerteilungCli, TupelWiePrimesieve) {
    Lauf l = Starten("count 1 10^7 --tuples --json");
    for (const char* t : {R"("primes":664579,)", R"("twins":58980,)", R"("triplets":17220,)", R"("quadruplets":899,)"}) {
        Enthaelt(l, t);
    }
    // Beyond 2e9 the windows of the secondary sieve.
    l = Starten("count 10^12 10^12+10^6 --tuples --json");
    for (const char* t : {R"("primes":36249,)", R"("twins":1746,)", R"("triplets":270,)", R"("quadruplets":10,)"}) {
        Enthaelt(l, t);
    }
    // Without --tuples count answers as before.
    l = Starten("count 1 10^7");
    EXPECT_EQ(l.aus, "664579\n");
}

TEST_F(VerteilungCli, RestklassenUndRennen) {
    Lauf l = Starten("residues 1 10^6 --mod 4 --race 1,3 --json");
    Enthaelt(l, R"({"class":1,"count":39175,)");
    Enthaelt(l, R"({"class":3,"count":39322,)");
    Enthaelt(l, R"("lead_changes":[{"at":26861,"leader":1},)");
    Abgelehnt("residues 1 100 --mod 1", "Modul");
    Abgelehnt("residues 1 100 --mod 4 --race 1,2", "teilerfremd");
    Abgelehnt("residues 1 100 --mod 4 --race 1", "two classes");
}

TEST_F(VerteilungCli, LueckenAb) {
    Lauf l = Starten("gaps-from 2 --min 100");
    EXPECT_EQ(l.aus, "370261 112 8.7350 record\n") << l.fehler;
    l = Starten("gaps-from 1 --exact 100 --json");
    Enthaelt(l, R"({"start":1,"gaps":[{"p":396733,"gap":100,)");
    l = Starten("gaps-from 492110 --count 2");
    EXPECT_EQ(l.aus, "492113 114 8.6980 record\n492227 24 1.8311\n") << l.fehler;
    Abgelehnt("gaps-from 1 --count 0", "mindestens 1");
    Abgelehnt("gaps-from 1 --min 2000000", "zwischen 1 und");
    Abgelehnt("gaps-from x", "START");
}

}  // namespace
}  // namespace sw::test
