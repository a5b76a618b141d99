// basDB: the connection, the rows and the counts of the Mersenne database (see basDB.h).
#include "mersenne/basDB.h"

#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <exception>
#include <filesystem>
#include <random>

#include "arith/HypText.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/DbAnweisung.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"

namespace sw {

int32_t DbSegmentAktuell = DbKeinSegment;
bool DbOffen = false;
int32_t DbAnzahlGesamt = 0;
int32_t DbAnzahlMitStatus = 0;

namespace {

std::string ordner_;                // "" = ProgrammPfad
sqlite3* db_ = nullptr;
std::string pfad_;                  // file of db_
std::string fehlerText_;
int32_t wartezeit_ = 3000;          // a GUI may wait a few seconds for a writer, not longer
DbAnweisung lesen_, schreiben_;

int sammelTiefe_ = 0;               // active DbTransaktion objects
bool transaktionOffen_ = false;     // BEGIN issued on db_
auto letzterCommit_ = std::chrono::steady_clock::now();

// The schema a new file gets; Primzahl is the row id, so a seek is one B-tree descent.
const char* const kSchema =
    "CREATE TABLE t_Prim (Primzahl INTEGER PRIMARY KEY, Mersenne INTEGER NOT NULL DEFAULT 0, "
    "Teiler TEXT, TeilerPot INTEGER, FaktorS TEXT, TimeStamp TEXT);"
    "CREATE TABLE t_LastFaktor (LastFaktor INTEGER);";

void ausfuehren(const char* sql) {
    char* meldung = nullptr;
    const int rc = sqlite3_exec(db_, sql, nullptr, nullptr, &meldung);
    sqlite3_free(meldung);
    if (rc != SQLITE_OK) DbFehlerWerfen(rc, db_, pfad_);
}

void verbindungSchliessen() {
    lesen_.Freigeben();
    schreiben_.Freigeben();
    if (db_ != nullptr) sqlite3_close_v2(db_);
    db_ = nullptr;
    transaktionOffen_ = false;
}

// A file without any table is new and gets the schema; any other must be ours (DbSchemaPruefen).
void schemaPruefen() {
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

void verbinden(const std::string& pfad) {
    pfad_ = pfad;
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
}

void festschreibenOffen() {
    if (!transaktionOffen_) return;
    transaktionOffen_ = false;  // a failed COMMIT leaves SQLite's transaction to ROLLBACK
    const int rc = sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        DbFehlerWerfen(rc, db_, pfad_);
    }
    letzterCommit_ = std::chrono::steady_clock::now();
}

void segmentSicherstellen(int32_t p, bool& gewechselt) {
    const int32_t s = DbSegment(p);
    gewechselt = false;
    if (s != DbSegmentAktuell || db_ == nullptr) {
        DbOeffnenPflicht(s);
        gewechselt = true;
    }
}

PrimZeile zeileHolen(int32_t p) {
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

std::string jetzt() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char puffer[24];
    std::strftime(puffer, sizeof puffer, "%Y-%m-%d %H:%M:%S", &tm);
    return puffer;
}

// Runs one write: inside the collecting transaction when there is one, else as a transaction
// of its own, so that the read and the write of a row are never torn apart.
template <class F>
void schreibRahmen(F&& f) {
    if (sammelTiefe_ > 0) {
        if (!transaktionOffen_) {
            ausfuehren("BEGIN IMMEDIATE");
            transaktionOffen_ = true;
        }
        f();
        return;
    }
    ausfuehren("BEGIN IMMEDIATE");
    transaktionOffen_ = true;
    try {
        f();
    } catch (...) {
        transaktionOffen_ = false;
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    festschreibenOffen();
}

// Stores z as p's row; the caller runs it inside schreibRahmen.
void zeileAblegen(int32_t p, const PrimZeile& z, bool neu) {
    schreiben_.Zuruecksetzen();
    schreiben_.Binden(1, p);
    schreiben_.Binden(2, z.mersenne);
    schreiben_.Binden(3, z.teiler);
    schreiben_.Binden(4, z.teilerPot);
    schreiben_.BindenOderNull(5, z.faktorS);
    schreiben_.BindenOderNull(6, z.zeitstempel);
    schreiben_.Schritt();
    schreiben_.Zuruecksetzen();
    if (neu) ++DbAnzahlGesamt;
}

bool schreiben(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot, bool import) {
    bool gewechselt;
    segmentSicherstellen(p, gewechselt);
    schreibRahmen([&] {
        const PrimZeile alt = zeileHolen(p);
        PrimZeile z = alt;
        z.mersenne = mersenne;
        z.teiler = teiler;
        z.teilerPot = teilerPot;
        if (teiler != "0" && teiler.find('x') == std::string::npos) z.faktorS = FaktorK(teiler, p);
        if (import) {
            z.zeitstempel = ZufallsZeitstempel(2008);
        } else if (!alt.vorhanden || TeilerPotWert(alt.teilerPot) != teilerPot) {
            z.zeitstempel = jetzt();
        }
        zeileAblegen(p, z, !alt.vorhanden);
    });
    return gewechselt;
}

void offenPruefen() {
    if (db_ == nullptr) throw Laufzeitfehler(DbFehlerNummer, TextP1(1508, DbDateiPfad(0)));
}

int64_t zaehlen(const std::string& sql, std::initializer_list<int64_t> werte) {
    offenPruefen();
    DbAnweisung a(db_, pfad_, sql.c_str());
    int i = 1;
    for (int64_t w : werte) a.Binden(i++, w);
    return a.Schritt() ? a.Zahl(0) : 0;
}

const std::string kZaehl = "SELECT Count(*) AS Anzahl FROM t_Prim ";

}  // namespace

// ---- folder and connection ----------------------------------------------------------------

void DbOrdnerSetzen(const std::string& ordner) {
    DbSchliessen();
    ordner_ = ordner.empty() || ordner.back() == '/' ? ordner : ordner + "/";
}

std::string DbOrdner() { return ordner_.empty() ? ProgrammPfad : ordner_; }

std::string DbDateiName(int32_t segment) {
    return segment == 0 ? "Prim.db" : "Prim" + std::to_string(segment) + ".db";
}

std::string DbDateiPfad(int32_t segment) { return DbOrdner() + DbDateiName(segment); }

bool DbOeffnen(int32_t segment) {
    try {
        DbOeffnenPflicht(segment);
        return true;
    } catch (const Laufzeitfehler& e) {
        fehlerText_ = e.Beschreibung();
        return false;
    }
}

void DbOeffnenPflicht(int32_t segment) {
    if (db_ != nullptr) {
        festschreibenOffen();
        verbindungSchliessen();
    }
    DbOffen = false;
    DbSegmentAktuell = DbKeinSegment;
    fehlerText_.clear();
    try {
        verbinden(DbDateiPfad(segment));
    } catch (...) {
        verbindungSchliessen();
        throw;
    }
    DbSegmentAktuell = segment;
    DbOffen = true;
}

const std::string& DbFehlerText() { return fehlerText_; }

void DbSchliessen() {
    if (db_ != nullptr) {
        try {
            festschreibenOffen();
        } catch (...) {
            verbindungSchliessen();
            DbOffen = false;
            DbSegmentAktuell = DbKeinSegment;
            throw;
        }
    }
    verbindungSchliessen();
    DbOffen = false;
    DbSegmentAktuell = DbKeinSegment;
}

sqlite3* DbVerbindung() { return db_; }

void DbWartezeitSetzen(int32_t millisekunden) {
    wartezeit_ = millisekunden;
    if (db_ != nullptr) sqlite3_busy_timeout(db_, wartezeit_);
}

// ---- transactions ---------------------------------------------------------------------------

DbTransaktion::DbTransaktion() : aeussere_(sammelTiefe_ == 0), ausnahmen_(std::uncaught_exceptions()) {
    ++sammelTiefe_;
    if (aeussere_) letzterCommit_ = std::chrono::steady_clock::now();
}

DbTransaktion::~DbTransaktion() {
    --sammelTiefe_;
    if (!aeussere_ || !transaktionOffen_ || db_ == nullptr) return;
    if (std::uncaught_exceptions() > ausnahmen_) {
        transaktionOffen_ = false;
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        return;
    }
    try {
        festschreibenOffen();
    } catch (const Laufzeitfehler&) {
        // A destructor cannot report; callers that must know call Festschreiben() first.
    }
}

void DbTransaktion::Festschreiben() { festschreibenOffen(); }

void DbTransaktion::FestschreibenNach(double sekunden) {
    const std::chrono::duration<double> vergangen = std::chrono::steady_clock::now() - letzterCommit_;
    if (vergangen.count() >= sekunden) festschreibenOffen();
}

// ---- rows -----------------------------------------------------------------------------------

PrimZeile PrimZeileLesen(int32_t p, bool* gewechselt) {
    bool g;
    segmentSicherstellen(p, g);
    if (gewechselt != nullptr) *gewechselt = g;
    return zeileHolen(p);
}

bool PrimLesen(int32_t p, int32_t& mersenne, std::string& teiler, int32_t& teilerPot) {
    bool gewechselt;
    const PrimZeile z = PrimZeileLesen(p, &gewechselt);
    mersenne = z.mersenne;
    teiler = z.teiler;
    teilerPot = z.teilerPot;
    return gewechselt;
}

bool PrimSchreiben(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot) {
    return schreiben(p, mersenne, teiler, teilerPot, false);
}

bool PrimSchreibenImport(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot) {
    return schreiben(p, mersenne, teiler, teilerPot, true);
}

bool PrimZeileSchreiben(int32_t p, const PrimZeile& z) {
    bool gewechselt;
    segmentSicherstellen(p, gewechselt);
    schreibRahmen([&] { zeileAblegen(p, z, !zeileHolen(p).vorhanden); });
    return gewechselt;
}

// ---- values ---------------------------------------------------------------------------------

int64_t TeilerPotWert(int32_t v) {
    if (v < 10 || v > 99) return v;
    int64_t grenze = v % 10;
    for (int e = v / 10; e > 0; --e) grenze *= 10;
    return grenze;
}

int32_t TeilerPotDekodieren(int32_t v) {
    const int64_t grenze = TeilerPotWert(v);
    if (grenze > INT32_MAX) throw Laufzeitfehler(FehlerUeberlauf, TextP1P2(1506, std::to_string(v), std::to_string(grenze)));
    return int32_t(grenze);
}

int32_t TeilerPotKodieren(const std::string& grenze) {
    if (grenze.empty() || grenze.find_first_not_of("0123456789") != std::string::npos || grenze.size() > 100) {
        throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    }
    return int32_t(10 * (grenze.size() - 1) + (grenze[0] - '0'));
}

std::string FaktorK(const std::string& q, int32_t p) {
    if (p <= 0) throw Laufzeitfehler(FehlerDivisionDurchNull);
    if (q.size() < 28) return ((Decimal::ausText(q) - Decimal(1)) / Decimal(2) / Decimal(p)).Text();
    Hyp h = Ziffern2Hyp(q);
    aDecHyp(h);
    aDivHyp2(h);
    aDivHyp32(h, p);
    return Hyp2Text(h);
}

std::string ZufallsZeitstempel(int32_t jahr) {
    static std::mt19937_64 zufall{std::random_device{}()};
    std::uniform_real_distribution<double> r(0.0, 1.0);
    const int monat = int(r(zufall) * 12) + 1;
    const int tag = int(r(zufall) * 28) + 1;
    const int stunde = int(r(zufall) * 24);
    const int minute = int(r(zufall) * 60);
    const int sekunde = int(r(zufall) * 60);
    char puffer[40];
    std::snprintf(puffer, sizeof puffer, "%04d-%02d-%02d %02d:%02d:%02d", jahr, monat, tag, stunde, minute, sekunde);
    return puffer;
}

// ---- counts ---------------------------------------------------------------------------------

void ZaehleAlle() {
    DbAnzahlGesamt = 1;
    DbAnzahlGesamt = int32_t(zaehlen(kZaehl, {}));
    DbAnzahlMitStatus = int32_t(zaehlen(kZaehl + "WHERE Mersenne > 0", {}));
}

void ZaehleBereich(int64_t lo, int64_t hi) {
    DbAnzahlGesamt = 1;
    DbAnzahlGesamt = int32_t(zaehlen(kZaehl + "WHERE Primzahl >= ?1 AND Primzahl <= ?2", {lo, hi}));
    DbAnzahlMitStatus = int32_t(zaehlen(kZaehl + "WHERE Primzahl >= ?1 AND Primzahl <= ?2 AND Mersenne > 0", {lo, hi}));
}

int32_t ZaehleIntervall(int32_t p, int32_t intervall) {
    if (intervall <= 0) throw Laufzeitfehler(FehlerDivisionDurchNull);
    bool gewechselt;
    segmentSicherstellen(p, gewechselt);
    const int64_t lo = int64_t(p / intervall) * intervall;
    return int32_t(zaehlen(kZaehl + "WHERE Primzahl >= ?1 AND Primzahl <= ?2 AND Mersenne > 0", {lo, p}));
}

int64_t ZaehleWo(const DbBedingung& b) {
    static const char* const status[] = {"", " AND Mersenne > 0", " AND Mersenne <> 0", " AND Mersenne = 2"};
    return zaehlen(kZaehl + "WHERE Primzahl > ?1 AND Primzahl < ?2" + status[int(b.status)], {b.ueber, b.unter});
}

void ZaehleFaktorklasse(int32_t von, int32_t bis, const std::string& auswahl, int64_t& anzahlPrim, int64_t& treffer) {
    if (auswahl.empty() || auswahl[0] < '0' || auswahl[0] > '9') throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    const int modus = auswahl[0] - '0';
    const std::string rest = auswahl.substr(1);
    const int64_t l = rest.empty() ? 0 : Decimal::ausText(rest).Wert();
    anzahlPrim = PrimAnzahl(Decimal(von), Decimal(bis)).Wert();
    treffer = 0;
    for (int64_t s = von / MersenneDbSegment; s * MersenneDbSegment < bis; ++s) {
        if (s != DbSegmentAktuell || db_ == nullptr) DbOeffnenPflicht(int32_t(s));
        const std::string bereich = "WHERE Primzahl >= ?1 AND Primzahl <= ?2 AND Mersenne = 2";
        if (modus == 2 && l == 0) {
            treffer += zaehlen(kZaehl + bereich, {von, bis});
            continue;
        }
        std::string sql = "SELECT FaktorS FROM t_Prim " + bereich;
        if (l != 0) sql += " AND CAST(FaktorS AS REAL) <= ?3";
        DbAnweisung a(db_, pfad_, sql.c_str());
        a.Binden(1, von);
        a.Binden(2, bis);
        if (l != 0) a.Binden(3, l);
        while (a.Schritt()) {
            if (modus == 2) {
                ++treffer;
                continue;
            }
            // k mod 4 is decided by its last two digits, as 100 is a multiple of 4.
            const std::string k = a.Textwert(0);
            int letzte = 0;
            for (size_t i = k.size() >= 2 ? k.size() - 2 : 0; i < k.size(); ++i) {
                if (k[i] < '0' || k[i] > '9') break;
                letzte = letzte * 10 + (k[i] - '0');
            }
            if (letzte % 4 == modus) ++treffer;
        }
    }
}

// ---- found divisors -------------------------------------------------------------------------

bool TeilerInListe(const std::string& liste, const std::string& q) {
    size_t anfang = 0;
    while (anfang <= liste.size()) {
        const size_t ende = std::min(liste.find('x', anfang), liste.size());
        if (liste.compare(anfang, ende - anfang, q) == 0) return true;
        anfang = ende + 1;
    }
    return false;
}

bool TeilerEintragen(TeilerFenster& fenster, const std::string& q, int32_t e) {
    int32_t mersenne, pot;
    std::string teiler;
    PrimLesen(e, mersenne, teiler, pot);
    if (TeilerInListe(teiler, q)) return false;
    // The whole list is kept: a divisor cut off at some length would be counted but lost.
    if (mersenne != 0 && teiler != "0") {
        ++fenster.NewFaktor;
        teiler += "x" + q;
    } else {
        ++fenster.NewCount;
        teiler = q;
    }
    PrimSchreiben(e, 2, teiler, pot);
    fenster.ListeHinzufuegen(TextP1P2(165, q, std::to_string(e)));
    fenster.StatusSetzen(TextP1P2(166, std::to_string(fenster.NewCount), std::to_string(fenster.NewFaktor)));
    return true;
}

void TeilerMelden(TeilerFenster& fenster, const std::string& q, int32_t e) {
    const std::string k = FaktorK(q, e);
    ++fenster.Faktor;
    fenster.FortschrittSetzen(std::to_string(fenster.Faktor));
    if (fenster.ListeAnzahl() > TeilerListeHoechstens) fenster.ListeLeeren();
    fenster.ListeHinzufuegen(q + TextP1(167, e) + " \tk = " + k);
    if (fenster.DbEintragen() && aIsInMers(e) == 0) TeilerEintragen(fenster, q, e);
}

}  // namespace sw
