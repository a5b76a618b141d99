// Shared by the database tests: a fixture that leaves no open file behind, and a second,
// independent connection that looks at a file the way another process would.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "TestUmgebung.h"
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

}  // namespace sw::test
