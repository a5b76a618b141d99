// sw-cli mersenne-system: the walk from 1 as PARI/GP's orders give it, the refusals, and a run
// that enters its divisors killed without warning over and over: the database must stay whole,
// every divisor in it must divide (checked by GMP), and the run that finally completes must
// leave exactly the table of a run that was never interrupted.
#include <gmp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>
#include <thread>

#include "CliBasis.h"

namespace sw::test {
namespace {

class MersSystemCli : public CliBasis {};

// Exponent -> "status|divisors|limit" of every row, as another program reads the file; fails
// the test when the file is damaged.
std::map<long long, std::string> zeilen(const std::string& datei) {
    std::map<long long, std::string> t;
    if (!std::filesystem::exists(datei)) return t;
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(datei.c_str(), &db), SQLITE_OK);
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &s, nullptr) == SQLITE_OK && sqlite3_step(s) == SQLITE_ROW) {
        EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(s, 0)), "ok");
    }
    sqlite3_finalize(s);
    if (sqlite3_prepare_v2(db, "SELECT Primzahl, Mersenne, Teiler, TeilerPot FROM t_Prim", -1, &s, nullptr) == SQLITE_OK) {
        while (sqlite3_step(s) == SQLITE_ROW) {
            t[sqlite3_column_int64(s, 0)] = std::to_string(sqlite3_column_int(s, 1)) + "|" +
                                            reinterpret_cast<const char*>(sqlite3_column_text(s, 2)) + "|" +
                                            std::to_string(sqlite3_column_int64(s, 3));
        }
    }
    sqlite3_finalize(s);
    sqlite3_close(db);
    return t;
}

bool teilt(long long p, const std::string& q) {
    mpz_t m, r, zwei;
    mpz_inits(m, r, zwei, nullptr);
    const bool zahl = mpz_set_str(m, q.c_str(), 10) == 0 && mpz_cmp_ui(m, 1) > 0;
    mpz_set_ui(zwei, 2);
    if (zahl) mpz_powm_ui(r, zwei, static_cast<unsigned long>(p), m);
    const bool ja = zahl && mpz_cmp_ui(r, 1) == 0;
    mpz_clears(m, r, zwei, nullptr);
    return ja;
}

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
    const auto erwartet = zeilen(ref + "/Prim.db");
    ASSERT_GT(erwartet.size(), 1000u);
    // Known divisors are not entered twice.
    EXPECT_NE(Starten(bereich + ref + " --json").aus.find("\"new\":0,\"entered\":0"), std::string::npos);

    const std::string ordner = Ordner() + "/kill";
    std::mt19937 zufall(1840);
    std::uniform_int_distribution<int> warten(20, 250);
    int mittendrin = 0;
    for (int runde = 0; runde < 15; ++runde) {
        const pid_t kind = fork();
        ASSERT_GE(kind, 0);
        if (kind == 0) {
            const int leer = open("/dev/null", O_WRONLY);
            dup2(leer, 1);
            dup2(leer, 2);
            execl(SW_CLI_PFAD, SW_CLI_PFAD, "mersenne-system", "1", "3000000", "--yes", "--db", ordner.c_str(), nullptr);
            _exit(127);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(warten(zufall)));
        kill(kind, SIGKILL);
        int status = 0;
        waitpid(kind, &status, 0);
        mittendrin += WIFSIGNALED(status);
        for (const auto& [p, z] : zeilen(ordner + "/Prim.db")) {
            ASSERT_EQ(z.substr(0, 2), "2|") << p;
            ASSERT_EQ(z.substr(z.rfind('|')), "|2000000000") << p;
            std::stringstream liste(z.substr(2, z.rfind('|') - 2));
            for (std::string q; std::getline(liste, q, 'x');) ASSERT_TRUE(teilt(p, q)) << q << " | 2^" << p << "-1";
        }
    }
    EXPECT_GE(mittendrin, 10);
    const Lauf l = Starten(bereich + ordner);
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(zeilen(ordner + "/Prim.db"), erwartet);
}

}  // namespace
}  // namespace sw::test
