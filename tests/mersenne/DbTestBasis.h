// Shared by the database tests: a fixture that leaves no open file behind, one that runs a test
// on both stores (the SQLite files and a PostgreSQL server), and a second, independent
// connection that looks at a file the way another process would.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "PgServer.h"
#include "TestUmgebung.h"
#include "db/PgVerbindung.h"
#include "mersenne/basDB.h"

namespace sw::test {

class DbTest : public SwTest {
protected:
    void TearDown() override {
        DbSchliessen();
        DbOrdnerSetzen("");
        DbWartezeitSetzen(3000);
        SwTest::TearDown();
    }
};

// A connection of its own to one file; Wert() gives the first column of the first row as text
// ("" for none or NULL).
class Fremdzugriff {
public:
    explicit Fremdzugriff(const std::string& pfad) { sqlite3_open(pfad.c_str(), &db_); }
    ~Fremdzugriff() { sqlite3_close_v2(db_); }
    int Ausfuehren(const std::string& sql) { return sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr); }
    std::string Wert(const std::string& sql) {
        sqlite3_stmt* s = nullptr;
        std::string w;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &s, nullptr) == SQLITE_OK && sqlite3_step(s) == SQLITE_ROW &&
            sqlite3_column_text(s, 0) != nullptr) {
            w = reinterpret_cast<const char*>(sqlite3_column_text(s, 0));
        }
        sqlite3_finalize(s);
        return w;
    }

private:
    sqlite3* db_ = nullptr;
};

// A test on each store: "SQLite" (the files in the test's folder) and "PostgreSQL" (a fresh
// database on the private server, skipped with the reason when there is no server).
class DbSpeicherTest : public DbTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        DbTest::SetUp();
        if (!Server()) return;
        PgServer* server = PgServer::Gemeinsam();
        if (server == nullptr) GTEST_SKIP() << PgServer::FehltGrund();
        eigen = server->NeueDatenbank();
        DbOrdnerSetzen(eigen);
    }
    bool Server() const { return std::string(GetParam()) == "PostgreSQL"; }
    // The first value of `sql` as another process sees it: committed rows only.
    std::string Aussen(const std::string& sql) {
        if (!Server()) return Fremdzugriff(DbDateiPfad(0)).Wert(sql);
        PgVerbindung v(eigen);
        PgErgebnis e = v.Ausfuehren(sql);
        return e.Zeilen() > 0 ? e.Text(0, 0) : "";
    }
    std::string eigen;   // what DbOrdnerSetzen takes for this store: "" or the URL
};
#define SW_AUF_BEIDEN_SPEICHERN(suite)                                                      \
    INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values("SQLite", "PostgreSQL"),            \
                             [](const ::testing::TestParamInfo<const char*>& i) { return std::string(i.param); })

}  // namespace sw::test
