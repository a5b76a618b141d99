// SqliteSpeicher: the segment files (see SqliteSpeicher.h).
#include "mersenne/SqliteSpeicher.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"

namespace sw {

namespace {

// The schema a new file gets; Primzahl is the row id, so a seek is one B-tree descent.
const char* const kSchema =
    "CREATE TABLE t_Prim (Primzahl INTEGER PRIMARY KEY, Mersenne INTEGER NOT NULL DEFAULT 0, "
    "Teiler TEXT, TeilerPot INTEGER, FaktorS TEXT, TimeStamp TEXT);"
    "CREATE TABLE t_LastFaktor (LastFaktor INTEGER);";

}  // namespace

const char* DbStatusBedingung(DbStatusWahl status) {
    static const char* const bedingung[] = {"", " AND Mersenne > 0", " AND Mersenne <> 0", " AND Mersenne = 2"};
    return bedingung[int(status)];
}

SqliteSpeicher::SqliteSpeicher(std::string ordner) : ordner_(std::move(ordner)) {}

SqliteSpeicher::~SqliteSpeicher() { Schliessen(); }

std::string SqliteSpeicher::Ort() const { return ordner_.empty() ? ProgrammPfad : ordner_; }

std::string SqliteSpeicher::SegmentOrt(int32_t segment) const { return Ort() + DbDateiName(segment); }

bool SqliteSpeicher::SegmentVorhanden(int32_t segment) const { return std::filesystem::exists(SegmentOrt(segment)); }

void SqliteSpeicher::ausfuehren(const char* sql) {
    char* meldung = nullptr;
    const int rc = sqlite3_exec(db_, sql, nullptr, nullptr, &meldung);
    sqlite3_free(meldung);
    if (rc != SQLITE_OK) DbFehlerWerfen(rc, db_, pfad_);
}

// A file without any table is new and gets the schema; any other must be ours (DbSchemaPruefen).
void SqliteSpeicher::schemaPruefen() {
    DbAnweisung tabellen(db_, pfad_, "SELECT Count(*) FROM sqlite_master");
    if (tabellen.Schritt() && tabellen.Zahl(0) > 0) {
        DbSchemaPruefen(db_, pfad_);
        return;
    }
    ausfuehren("BEGIN IMMEDIATE");
    try {
        ausfuehren(kSchema);
        ausfuehren("COMMIT");
    } catch (...) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

void SqliteSpeicher::Oeffnen(int32_t segment) {
    Schliessen();
    const std::string pfad = SegmentOrt(segment);
    pfad_ = pfad;
    try {
        const bool vorhanden = std::filesystem::exists(pfad);
        // A write-protected file would open read-only and fail only at the first write, after a
        // job had begun; it is refused here instead.
        if (vorhanden && access(pfad.c_str(), W_OK) != 0) throw Laufzeitfehler(DbFehlerNummer, TextP1(1501, pfad));
        int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
        if (!vorhanden) flags |= SQLITE_OPEN_CREATE;
        const int rc = sqlite3_open_v2(pfad.c_str(), &db_, flags, nullptr);
        if (rc != SQLITE_OK) DbFehlerWerfen(rc, db_, pfad);
        sqlite3_extended_result_codes(db_, 1);
        sqlite3_busy_timeout(db_, wartezeit_);
        schemaPruefen();
        // WAL: readers never block the search, and a commit is one append; synchronous FULL makes
        // every commit survive a power failure too, at one sync a second.
        DbAnweisung modus(db_, pfad_, "PRAGMA journal_mode = WAL");
        if (modus.Schritt() && modus.Textwert(0) != "wal") {
            throw Laufzeitfehler(DbFehlerNummer, TextP1P2(1505, pfad_, "WAL: " + modus.Textwert(0)));
        }
        ausfuehren("PRAGMA synchronous = FULL");
        lesen_ = DbAnweisung(db_, pfad_,
                             "SELECT Mersenne, Teiler, TeilerPot, FaktorS, TimeStamp FROM t_Prim WHERE Primzahl = ?1");
        schreiben_ = DbAnweisung(db_, pfad_,
                                 "INSERT INTO t_Prim (Primzahl, Mersenne, Teiler, TeilerPot, FaktorS, TimeStamp) "
                                 "VALUES (?1, ?2, ?3, ?4, ?5, ?6) ON CONFLICT(Primzahl) DO UPDATE SET "
                                 "Mersenne = excluded.Mersenne, Teiler = excluded.Teiler, TeilerPot = excluded.TeilerPot, "
                                 "FaktorS = excluded.FaktorS, TimeStamp = excluded.TimeStamp");
    } catch (...) {
        Schliessen();
        throw;
    }
}

void SqliteSpeicher::Schliessen() {
    lesen_.Freigeben();
    schreiben_.Freigeben();
    if (db_ != nullptr) sqlite3_close_v2(db_);
    db_ = nullptr;
}

PrimZeile SqliteSpeicher::Lesen(int32_t p) {
    PrimZeile z;
    lesen_.Zuruecksetzen();
    lesen_.Binden(1, p);
    if (!lesen_.Schritt()) return z;
    z.vorhanden = true;
    z.mersenne = int32_t(lesen_.Zahl(0));
    z.teiler = lesen_.IstNull(1) ? "0" : lesen_.Textwert(1);
    z.teilerPot = int32_t(lesen_.Zahl(2));
    z.faktorS = lesen_.Textwert(3);
    z.zeitstempel = lesen_.Textwert(4);
    lesen_.Zuruecksetzen();
    return z;
}

void SqliteSpeicher::Ablegen(int32_t p, const PrimZeile& z) {
    schreiben_.Zuruecksetzen();
    schreiben_.Binden(1, p);
    schreiben_.Binden(2, z.mersenne);
    schreiben_.Binden(3, z.teiler);
    schreiben_.Binden(4, z.teilerPot);
    schreiben_.BindenOderNull(5, z.faktorS);
    schreiben_.BindenOderNull(6, z.zeitstempel);
    schreiben_.Schritt();
    schreiben_.Zuruecksetzen();
}

void SqliteSpeicher::Beginnen() { ausfuehren("BEGIN IMMEDIATE"); }

void SqliteSpeicher::Festschreiben() {
    const int rc = sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) {
        // A failed COMMIT leaves SQLite's transaction open; it must not swallow later writes.
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        DbFehlerWerfen(rc, db_, pfad_);
    }
}

void SqliteSpeicher::Verwerfen() noexcept {
    if (db_ != nullptr) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
}

int64_t SqliteSpeicher::Anzahl(int64_t ab, int64_t bis, DbStatusWahl status) {
    const std::string sql =
        std::string("SELECT Count(*) FROM t_Prim WHERE Primzahl >= ?1 AND Primzahl <= ?2") + DbStatusBedingung(status);
    DbAnweisung a(db_, pfad_, sql.c_str());
    a.Binden(1, ab);
    a.Binden(2, bis);
    return a.Schritt() ? a.Zahl(0) : 0;
}

// Each file through a read-only connection of its own: the walk neither creates, converts nor
// locks a file that a running search may be writing, and leaves the open one alone.
bool SqliteSpeicher::Durchlaufen(int64_t von, int64_t bis, DbStatusWahl status, bool mitTexten, const ZeilenAufruf& f) {
    bool gefunden = false;
    von = std::max<int64_t>(von, 0);
    bis = std::min<int64_t>(bis, GrenzeLong);
    const std::string sql = std::string("SELECT Primzahl, Mersenne, TeilerPot") +
                            (mitTexten ? ", Teiler, FaktorS, TimeStamp" : "") +
                            " FROM t_Prim WHERE Primzahl >= ?1 AND Primzahl <= ?2" + DbStatusBedingung(status) +
                            " ORDER BY Primzahl";
    for (int32_t s = DbSegment(von); von <= bis && s <= DbSegment(bis); ++s) {
        const std::string pfad = SegmentOrt(s);
        if (!std::filesystem::exists(pfad)) continue;
        gefunden = true;
        const DbLeseVerbindung db = DbLesendOeffnen(pfad);
        DbAnweisung a(db.get(), pfad, sql.c_str());
        a.Binden(1, von);
        a.Binden(2, bis);
        PrimZeile z;
        z.vorhanden = true;
        while (a.Schritt()) {
            z.mersenne = int32_t(a.Zahl(1));
            z.teilerPot = int32_t(a.Zahl(2));
            if (mitTexten) {
                z.teiler = a.IstNull(3) ? "0" : a.Textwert(3);
                z.faktorS = a.Textwert(4);
                z.zeitstempel = a.Textwert(5);
            }
            f(int32_t(a.Zahl(0)), z);
        }
    }
    return gefunden;
}

void SqliteSpeicher::WartezeitSetzen(int32_t millisekunden) {
    wartezeit_ = millisekunden;
    if (db_ != nullptr) sqlite3_busy_timeout(db_, wartezeit_);
}

}  // namespace sw
