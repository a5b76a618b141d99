// DbAnweisung: prepared statements and engine errors as messages (see DbAnweisung.h).
#include "mersenne/DbAnweisung.h"

#include <sqlite3.h>

#include <set>
#include <utility>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "mersenne/basDB.h"

namespace sw {

DbLeseVerbindung DbLesendOeffnen(const std::string& pfad) {
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(pfad.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    DbLeseVerbindung v(db, &sqlite3_close_v2);
    if (rc != SQLITE_OK) DbFehlerWerfen(rc, db, pfad);
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, 3000);
    DbSchemaPruefen(db, pfad);
    return v;
}

void DbFehlerWerfen(int rc, sqlite3* db, const std::string& pfad) {
    const std::string engine = db != nullptr ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    int key;
    switch (rc & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: key = 1500; break;
        case SQLITE_READONLY: key = 1501; break;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT: key = 1503; break;
        case SQLITE_FULL: key = 1504; break;
        case SQLITE_CANTOPEN: key = 1507; break;
        default: key = 1505; break;
    }
    throw Laufzeitfehler(DbFehlerNummer, TextP1P2(key, pfad, engine));
}

void DbSchemaPruefen(sqlite3* db, const std::string& pfad) {
    const auto fremd = [&](const std::string& grund) {
        throw Laufzeitfehler(DbFehlerNummer, TextP1P2(1502, pfad, grund));
    };
    DbAnweisung tabellen(db, pfad, "SELECT name FROM sqlite_master WHERE type = 'table'");
    std::set<std::string> namen;
    while (tabellen.Schritt()) namen.insert(tabellen.Textwert(0));
    if (!namen.count("t_Prim")) fremd("t_Prim fehlt");
    if (!namen.count("t_LastFaktor")) fremd("t_LastFaktor fehlt");
    DbAnweisung spalten(db, pfad, "SELECT name, pk FROM pragma_table_info('t_Prim')");
    std::set<std::string> gefunden;
    bool schluessel = false;
    while (spalten.Schritt()) {
        gefunden.insert(spalten.Textwert(0));
        if (spalten.Textwert(0) == "Primzahl" && spalten.Zahl(1) == 1) schluessel = true;
    }
    for (const char* s : {"Primzahl", "Mersenne", "Teiler", "TeilerPot", "FaktorS", "TimeStamp"}) {
        if (!gefunden.count(s)) fremd(std::string("Spalte ") + s + " fehlt");
    }
    if (!schluessel) fremd("Primzahl ist nicht der Schlüssel");
}

DbAnweisung::DbAnweisung(sqlite3* db, const std::string& pfad, const char* sql) : db_(db), pfad_(pfad) {
    const int rc = sqlite3_prepare_v2(db, sql, -1, &s_, nullptr);
    if (rc != SQLITE_OK) DbFehlerWerfen(rc, db, pfad);
}

DbAnweisung& DbAnweisung::operator=(DbAnweisung&& o) noexcept {
    if (this != &o) {
        Freigeben();
        db_ = std::exchange(o.db_, nullptr);
        s_ = std::exchange(o.s_, nullptr);
        pfad_ = std::move(o.pfad_);
    }
    return *this;
}

void DbAnweisung::Binden(int index, int64_t wert) { sqlite3_bind_int64(s_, index, wert); }

void DbAnweisung::Binden(int index, const std::string& wert) {
    sqlite3_bind_text(s_, index, wert.data(), int(wert.size()), SQLITE_TRANSIENT);
}

void DbAnweisung::BindenOderNull(int index, const std::string& wert) {
    if (wert.empty()) {
        sqlite3_bind_null(s_, index);
    } else {
        Binden(index, wert);
    }
}

bool DbAnweisung::Schritt() {
    const int rc = sqlite3_step(s_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    sqlite3_reset(s_);
    DbFehlerWerfen(rc, db_, pfad_);
}

void DbAnweisung::Zuruecksetzen() {
    sqlite3_reset(s_);
    sqlite3_clear_bindings(s_);
}

int64_t DbAnweisung::Zahl(int spalte) const { return sqlite3_column_int64(s_, spalte); }

std::string DbAnweisung::Textwert(int spalte) const {
    const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s_, spalte));
    return t != nullptr ? std::string(t, size_t(sqlite3_column_bytes(s_, spalte))) : std::string();
}

bool DbAnweisung::IstNull(int spalte) const { return sqlite3_column_type(s_, spalte) == SQLITE_NULL; }

void DbAnweisung::Freigeben() {
    if (s_ != nullptr) sqlite3_finalize(s_);
    s_ = nullptr;
}

}  // namespace sw
