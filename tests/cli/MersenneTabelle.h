// The Mersenne database as another program sees it, for the tests that kill sw-cli while it
// writes: a run stopped by a signal at a random moment, the rows of one file (after SQLite's
// integrity check) and a GMP check that a divisor divides.
#pragma once

#include <fcntl.h>
#include <gmp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace sw::test {

struct Zeile {
    int mersenne = -1;
    std::string teiler, faktorS;
    long long pot = -1;
    bool operator==(const Zeile&) const = default;
};
using Tabelle = std::map<long long, Zeile>;

// sw-cli with argumente, its output thrown away, sent signal after warten; the wait status.
inline int AbbrechenNach(const std::vector<std::string>& argumente, std::chrono::milliseconds warten,
                         int signal = SIGKILL) {
    std::vector<char*> argv{const_cast<char*>(SW_CLI_PFAD)};
    for (const std::string& a : argumente) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    const pid_t kind = fork();
    EXPECT_GE(kind, 0);
    if (kind == 0) {
        const int leer = open("/dev/null", O_WRONLY);
        dup2(leer, 1);
        dup2(leer, 2);
        execv(SW_CLI_PFAD, argv.data());
        _exit(127);
    }
    std::this_thread::sleep_for(warten);
    kill(kind, signal);
    int status = 0;
    waitpid(kind, &status, 0);
    return status;
}

// The table as another program sees it; a NULL reads as "<null>". A file a killed run had not
// yet made holds nothing. Fails the test when the file does not open or its integrity check
// does not say "ok".
inline Tabelle lesen(const std::string& datei) {
    Tabelle t;
    if (!std::filesystem::exists(datei)) return t;
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(datei.c_str(), &db), SQLITE_OK) << datei;
    auto text = [](sqlite3_stmt* s, int i) {
        const unsigned char* c = sqlite3_column_text(s, i);
        return c == nullptr ? std::string("<null>") : std::string(reinterpret_cast<const char*>(c));
    };
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &s, nullptr) == SQLITE_OK && sqlite3_step(s) == SQLITE_ROW) {
        EXPECT_EQ(text(s, 0), "ok");
    }
    sqlite3_finalize(s);
    // A file whose run was killed before it wrote the schema holds nothing yet.
    bool leer = false;
    if (sqlite3_prepare_v2(db, "SELECT count(*) FROM sqlite_master", -1, &s, nullptr) == SQLITE_OK &&
        sqlite3_step(s) == SQLITE_ROW) {
        leer = sqlite3_column_int(s, 0) == 0;
    }
    sqlite3_finalize(s);
    if (leer) {
        sqlite3_close(db);
        return t;
    }
    EXPECT_EQ(sqlite3_prepare_v2(db, "SELECT Primzahl, Mersenne, Teiler, TeilerPot, FaktorS FROM t_Prim", -1, &s,
                                 nullptr),
              SQLITE_OK);
    while (sqlite3_step(s) == SQLITE_ROW) {
        Zeile z{sqlite3_column_type(s, 1) == SQLITE_NULL ? -1 : sqlite3_column_int(s, 1), text(s, 2), text(s, 4),
                sqlite3_column_type(s, 3) == SQLITE_NULL ? -1 : sqlite3_column_int64(s, 3)};
        t[sqlite3_column_int64(s, 0)] = z;
    }
    sqlite3_finalize(s);
    sqlite3_close(db);
    return t;
}

// The divisors of a row's list "q1xq2x...", one by one.
inline std::vector<std::string> TeilerEinzeln(const std::string& liste) {
    std::vector<std::string> teiler;
    for (size_t anfang = 0, ende; anfang <= liste.size(); anfang = ende + 1) {
        ende = std::min(liste.find('x', anfang), liste.size());
        teiler.push_back(liste.substr(anfang, ende - anfang));
    }
    return teiler;
}

inline bool teilt(long long p, const std::string& q) {
    mpz_t m, r, zwei;
    mpz_inits(m, r, zwei, nullptr);
    const bool zahl = mpz_set_str(m, q.c_str(), 10) == 0 && mpz_cmp_ui(m, 1) > 0;
    mpz_set_ui(zwei, 2);
    if (zahl) mpz_powm_ui(r, zwei, static_cast<unsigned long>(p), m);
    const bool ja = zahl && mpz_cmp_ui(r, 1) == 0;
    mpz_clears(m, r, zwei, nullptr);
    return ja;
}

}  // namespace sw::test
