// DbAnweisung: one prepared SQLite statement with bound values, and the translation of an
// engine error into the German message of a Laufzeitfehler that names the file. Used by basDB
// and by the merge of two database folders; nothing else talks to the engine.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace sw {

// Throws the Laufzeitfehler of an engine result: locked, read-only, not a database or damaged,
// disk full, cannot open, or the engine's own words for anything else.
[[noreturn]] void DbFehlerWerfen(int rc, sqlite3* db, const std::string& pfad);

// Refuses (Laufzeitfehler, text 1502) a database whose tables are not t_Prim with its columns,
// Primzahl as the key, and t_LastFaktor. Reads only.
void DbSchemaPruefen(sqlite3* db, const std::string& pfad);

// A connection of its own that can only read: the merge and the analysis windows look at files
// that a running search may be writing, and must neither create, convert nor lock them for
// writing. Refuses a file of a foreign schema like DbSchemaPruefen.
using DbLeseVerbindung = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;
DbLeseVerbindung DbLesendOeffnen(const std::string& pfad);

class DbAnweisung {
public:
    DbAnweisung() = default;
    DbAnweisung(sqlite3* db, const std::string& pfad, const char* sql);
    ~DbAnweisung() { Freigeben(); }
    DbAnweisung(DbAnweisung&& o) noexcept { *this = std::move(o); }
    DbAnweisung& operator=(DbAnweisung&& o) noexcept;
    DbAnweisung(const DbAnweisung&) = delete;
    DbAnweisung& operator=(const DbAnweisung&) = delete;

    void Binden(int index, int64_t wert);
    void Binden(int index, const std::string& wert);
    void BindenOderNull(int index, const std::string& wert);  // "" binds NULL
    // The next row: true when there is one, false when done; an engine error throws.
    bool Schritt();
    void Zuruecksetzen();
    int64_t Zahl(int spalte) const;        // NULL reads 0
    std::string Textwert(int spalte) const;  // NULL reads ""
    bool IstNull(int spalte) const;
    void Freigeben();

private:
    sqlite3* db_ = nullptr;
    sqlite3_stmt* s_ = nullptr;
    std::string pfad_;
};

}  // namespace sw
