// sw-cli tertiary: the numbers it prints, number for number against GMP's next-prime walk and,
// where gp is installed, PARI's ispseudoprime; the sieve alone, the count, the JSON object,
// and the refusals of bad tests, lengths and cuts.
#include <gmp.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "CliBasis.h"
#include "primality/HypMpz.h"

namespace sw::test {
namespace {

using CliTertiaer = CliBasis;

std::vector<std::string> Zeilen(const std::string& text) {
    std::vector<std::string> z;
    std::istringstream ein(text);
    for (std::string zeile; std::getline(ein, zeile);) z.push_back(zeile);
    return z;
}

// The primes of [start, start + laenge), start given as decimal digits.
std::vector<std::string> GmpPrimzahlen(const std::string& start, unsigned long laenge) {
    std::vector<std::string> z;
    Mpz p, ende;
    mpz_set_str(p, start.c_str(), 10);
    mpz_add_ui(ende, p, laenge);
    if (mpz_sgn(p.get()) > 0) mpz_sub_ui(p, p, 1);
    for (;;) {
        mpz_nextprime(p, p);
        if (mpz_cmp(p, ende) >= 0) return z;
        char* s = mpz_get_str(nullptr, 10, p);
        z.emplace_back(s);
        free(s);
    }
}

std::string Dezimal(const char* formel) {
    Mpz z;
    if (std::string(formel) == "10^30") mpz_ui_pow_ui(z, 10, 30);
    if (std::string(formel) == "10^100") mpz_ui_pow_ui(z, 10, 100);
    if (std::string(formel) == "2^521-1-10^5") {
        mpz_ui_pow_ui(z, 2, 521);
        mpz_sub_ui(z, z, 100001);
    }
    char* s = mpz_get_str(nullptr, 10, z);
    std::string t(s);
    free(s);
    return t;
}

TEST_F(CliTertiaer, WahrscheinlichePrimzahlenWieGmp) {
    for (const char* start : {"10^30", "10^100", "2^521-1-10^5"}) {
        const Lauf l = Starten(std::string("tertiary ") + start + " 3000 --test bpsw");
        ASSERT_EQ(l.code, 0) << start << ": " << l.fehler;
        const std::vector<std::string> erwartet = GmpPrimzahlen(Dezimal(start), 3000);
        EXPECT_EQ(Zeilen(l.aus), erwartet) << start;
        EXPECT_NE(l.fehler.find(std::to_string(erwartet.size()) + " probable primes of "), std::string::npos) << l.fehler;
    }
}

TEST_F(CliTertiaer, SiebAllein) {
    // Below the square of the cut the sieve alone gives the primes, 2, 3 and 5 among them.
    const Lauf unten = Starten("tertiary 0 100");
    ASSERT_EQ(unten.code, 0) << unten.fehler;
    EXPECT_EQ(Zeilen(unten.aus), GmpPrimzahlen("0", 100));
    // Far above, the candidates hold every prime and more.
    const Lauf oben = Starten("tertiary 10^30 3000 --cut 1000");
    ASSERT_EQ(oben.code, 0) << oben.fehler;
    const std::vector<std::string> kandidaten = Zeilen(oben.aus), prim = GmpPrimzahlen(Dezimal("10^30"), 3000);
    EXPECT_GT(kandidaten.size(), prim.size());
    for (const std::string& p : prim) EXPECT_NE(oben.aus.find(p + "\n"), std::string::npos) << p;
    const Lauf anzahl = Starten("tertiary 10^30 3000 --cut 1000 --count");
    EXPECT_EQ(anzahl.aus, std::to_string(kandidaten.size()) + "\n");
}

TEST_F(CliTertiaer, Json) {
    const Lauf l = Starten("tertiary 10^12 100 --test bpsw --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus.rfind(R"({"start":1000000000000,"length":100,"cut":1000001,"test":"bpsw","candidates":)", 0), 0u)
        << l.aus;
    EXPECT_NE(l.aus.find(R"("count":4,)"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(R"("numbers":[1000000000039,1000000000061,1000000000063,1000000000091]})"),
              std::string::npos)
        << l.aus;
    const Lauf nur = Starten("tertiary 10^12 100 --test bpsw --json --count");
    EXPECT_EQ(nur.aus.find("numbers"), std::string::npos) << nur.aus;
}

// Above 100 million the question of the cut: a script's No keeps the cut it gave, --yes stops
// at 100 million.
TEST_F(CliTertiaer, FrageDesSchnitts) {
    const Lauf nein = Starten("tertiary 10^50 1000 --cut 110000000 --json --count");
    EXPECT_NE(nein.aus.find(R"("cut":110000000,)"), std::string::npos) << nein.aus;
    EXPECT_NE(nein.fehler.find("100 Mio"), std::string::npos) << nein.fehler;
    const Lauf ja = Starten("--yes tertiary 10^50 1000 --cut 110000000 --json --count");
    EXPECT_NE(ja.aus.find(R"("cut":100000000,)"), std::string::npos) << ja.aus;
}

TEST_F(CliTertiaer, Abgelehnt) {
    for (const char* argumente : {"tertiary 10^30 100 --test lucas", "tertiary 10^30 3e9", "tertiary 10^30 100 --cut 5e9",
                                  "tertiary '10^(' 100", "tertiary 10^30"})
        Abgelehnt(argumente);
}

// PARI/GP as a second, independent judge where it is installed.
TEST_F(CliTertiaer, WieParisIspseudoprime) {
    // PARI/GP is a measuring stick, not a build dependency: setup.sh installs it for CI, and a
    // machine without it still runs the GMP comparison above.
    if (std::system("command -v gp >/dev/null 2>&1") != 0) GTEST_SKIP() << "gp (Debian pari-gp) is not installed";
    const std::string skript = Ordner() + "/fenster.gp";
    std::FILE* datei = std::fopen(skript.c_str(), "w");
    ASSERT_NE(datei, nullptr);
    std::fputs("forstep(n = 10^100, 10^100 + 2999, 1, if(ispseudoprime(n), print(n)))\n", datei);
    std::fclose(datei);
    const Lauf gp = ProgrammStarten("gp", Ordner(), "-q -f " + skript + " </dev/null");
    ASSERT_EQ(gp.code, 0) << gp.fehler;
    const Lauf l = Starten("tertiary 10^100 3000 --test bpsw");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_FALSE(gp.aus.empty());
    EXPECT_EQ(l.aus, gp.aus);
}

}  // namespace
}  // namespace sw::test
