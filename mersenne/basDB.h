// basDB: what is known about the divisors of the Mersenne numbers 2^p - 1 for prime exponents
// p up to GrenzeLong. One row per exponent (table t_Prim) holds its status, its divisors and
// how far the search for one has gone. The rows live in a store (MersenneSpeicher.h): by default
// SQLite files, one per segment of MersenneDbSegment exponents (Prim.db, Prim1.db, ... in the
// database folder; a missing file is created with the schema, a file of any other schema is
// refused and never altered), or one table on a PostgreSQL server that several machines share.
//
// The module holds one open file at a time and moves between files by itself when an exponent
// lies elsewhere. All writes of one job can be grouped into one transaction (DbTransaktion):
// a search commits about once a second, so that a killed process loses at most that second
// and never leaves a half-written row. Every statement is prepared with bound values.
//
// Errors: DbOeffnen reports a file it cannot use by false and leaves the reason in
// DbFehlerText(); every other operation throws Laufzeitfehler (number DbFehlerNummer) with a
// German message naming the file, and leaves the last committed state as it was.
#pragma once

#include <cstdint>
#include <string>

#include "sieve/RasterTabellen.h"

struct sqlite3;

namespace sw {

inline constexpr int32_t DbKeinSegment = 2323;  // DbSegmentAktuell while no file is open
inline constexpr int DbFehlerNummer = 3051;     // the run-time error of a database that fails

extern int32_t DbSegmentAktuell;   // segment of the open file, DbKeinSegment when none
extern bool DbOffen;               // set by a successful DbOeffnen, cleared by DbSchliessen
extern int32_t DbAnzahlGesamt;     // rows of the last count; raised by one with each new row
extern int32_t DbAnzahlMitStatus;  // rows with Mersenne > 0 in the last count

// The folder of the database files, ending in "/". Empty (the default) means ProgrammPfad,
// the folder of the block files; a postgresql:// or postgres:// URL chooses that server
// instead. Setting it closes an open file.
void DbOrdnerSetzen(const std::string& ordner);
// The folder, or the server's address without its password (for display).
std::string DbOrdner();
// What DbOrdnerSetzen was given, password included: for the settings that must keep it.
const std::string& DbOrtEingabe();
bool DbAufServer();
// The file of segment s in the folder: Prim.db for 0, Prim<s>.db above.
std::string DbDateiName(int32_t segment);
// Where segment s is kept, for messages: its file, or the server address.
std::string DbDateiPfad(int32_t segment);
// Whether segment s can be read without creating anything (its file exists; always on a server).
bool DbSegmentVorhanden(int32_t segment);
inline int32_t DbSegment(int64_t p) { return int32_t(p / MersenneDbSegment); }

// Opens the file of segment s (creating it with the schema when missing). False, with the
// reason in DbFehlerText(), when it is locked, read-only, not a database or of a foreign
// schema; nothing is written then. Reopens when s is the open segment.
bool DbOeffnen(int32_t segment);
// DbOeffnen that throws its reason instead of returning false.
void DbOeffnenPflicht(int32_t segment);
const std::string& DbFehlerText();
// Commits an open transaction, closes the file; DbSegmentAktuell = DbKeinSegment.
void DbSchliessen();
// The open connection (nullptr when none), for tests that need to reach the engine itself.
sqlite3* DbVerbindung();
// How long a statement waits for a file that another process holds locked (milliseconds).
void DbWartezeitSetzen(int32_t millisekunden);

// Groups writes: while one is active, every write goes into one transaction that is committed
// at Festschreiben, at a change of segment (and begun again on the new file), at DbSchliessen
// and when the object ends normally. When it ends by an exception, what was not committed is
// rolled back. Nested objects join the outermost one.
class DbTransaktion {
public:
    DbTransaktion();
    ~DbTransaktion();
    DbTransaktion(const DbTransaktion&) = delete;
    DbTransaktion& operator=(const DbTransaktion&) = delete;
    // Commits what was written so far and goes on in a new transaction.
    void Festschreiben();
    // Festschreiben when at least `sekunden` passed since the last commit (a running search
    // calls this at every exponent).
    void FestschreibenNach(double sekunden = 1.0);

private:
    bool aeussere_;
    int ausnahmen_;
};

// One row as it is stored. vorhanden is false for an exponent without a row; then the values
// are those of an untouched exponent (0, "0", 0).
struct PrimZeile {
    bool vorhanden = false;
    int32_t mersenne = 0;
    std::string teiler = "0";
    int32_t teilerPot = 0;    // undecoded
    std::string faktorS;      // "" when null
    std::string zeitstempel;  // "YYYY-MM-DD hh:mm:ss", "" when null
};
// Reads p's row, switching segments; writes nothing. `gewechselt` tells whether it switched.
PrimZeile PrimZeileLesen(int32_t p, bool* gewechselt = nullptr);

// Reads p's status, divisor text ("0" when none) and undecoded TeilerPot; a missing row reads
// as 0, "0", 0. True when the call had to change the segment.
bool PrimLesen(int32_t p, int32_t& mersenne, std::string& teiler, int32_t& teilerPot);
// Writes p's row (creating it, DbAnzahlGesamt + 1). A single divisor also writes its k
// (q = 2kp + 1) to FaktorS; "0" and lists with "x" leave FaktorS alone. TimeStamp: a new row
// and a changed limit take the present moment, an unchanged limit keeps the old stamp.
// True when the call had to change the segment.
bool PrimSchreiben(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot);
// The same for imported rows: TimeStamp is always ZufallsZeitstempel(2008).
bool PrimSchreibenImport(int32_t p, int32_t mersenne, const std::string& teiler, int32_t teilerPot);

// Stores the row exactly as given (FaktorS and time stamp included), creating it when missing
// (DbAnzahlGesamt + 1): the write of a merge, which decides every field itself.
bool PrimZeileSchreiben(int32_t p, const PrimZeile& z);

// The plain limit of a stored TeilerPot: 10..99 is the short form (last digit) * 10^(first
// digit), every other value stands for itself. A code beyond the 32-bit range (93..99) is an
// overflow (6) with a message, never a wrapped value.
int32_t TeilerPotDekodieren(int32_t gespeichert);
// The same without the overflow: the value as a 64-bit number.
int64_t TeilerPotWert(int32_t gespeichert);
// The short form of a limit given as decimal digits: 10 * (digits - 1) + first digit.
int32_t TeilerPotKodieren(const std::string& grenze);
// k of the divisor q of 2^p - 1 (q = 2kp + 1) as decimal digits: Decimal below 28 digits,
// Hyp arithmetic from there on.
std::string FaktorK(const std::string& q, int32_t p);

// A made-up moment in the given year: month, day (1..28), hour, minute and second drawn in
// this order; "YYYY-MM-DD hh:mm:ss".
std::string ZufallsZeitstempel(int32_t jahr);

// Counts over the open file (DbAnzahlGesamt and DbAnzahlMitStatus: rows, rows with
// Mersenne > 0). DbAnzahlGesamt is 1 while the query runs, so a failing one leaves no 0 to
// divide by.
void ZaehleAlle();
void ZaehleBereich(int64_t lo, int64_t hi);
// Rows with Mersenne > 0 from (p div intervall) * intervall to p, in p's segment.
int32_t ZaehleIntervall(int32_t p, int32_t intervall);

// The conditions ZaehleWo can count by; they are always built from numbers.
enum class DbStatusWahl { Alle, MitStatus /* > 0 */, NichtNull /* <> 0 */, Geteilt /* = 2 */ };
struct DbBedingung {
    DbStatusWahl status = DbStatusWahl::Alle;
    int64_t ueber = INT64_MIN;  // Primzahl > ueber
    int64_t unter = INT64_MAX;  // Primzahl < unter
};
// Rows of the open file that meet the condition.
int64_t ZaehleWo(const DbBedingung& bedingung);

// The statistics of a factor class from von to bis over all segments: anzahlPrim = primes in
// the range (prime count of the primary raster), treffer = rows with a divisor whose k is at
// most L (every k when L = 0) and, unless the mode is 2, k mod 4 = mode. Auswahl is the mode
// digit followed by L.
void ZaehleFaktorklasse(int32_t von, int32_t bis, const std::string& auswahl, int64_t& anzahlPrim,
                        int64_t& treffer);

// Whether q is one of the divisors of an "x" list (a whole element, not a part of one).
bool TeilerInListe(const std::string& liste, const std::string& q);

// The window side of a found divisor: its list, its two counters and its status line.
class TeilerFenster {
public:
    virtual ~TeilerFenster() = default;
    int32_t NewCount = 0;   // exponents that got their first divisor
    int32_t NewFaktor = 0;  // further divisors of exponents that had one
    int32_t Faktor = 0;     // divisors reported
    virtual int32_t ListeAnzahl() const = 0;
    virtual void ListeLeeren() = 0;
    virtual void ListeHinzufuegen(const std::string& eintrag) = 0;  // and make it current
    virtual void StatusSetzen(const std::string&) {}         // lblStatus
    virtual void FortschrittSetzen(const std::string&) {}     // lblFortschritt
    virtual bool DbEintragen() const { return false; }               // chkDB
};

// Enters the divisor q (decimal digits) of 2^e - 1: nothing when it stands there already,
// else it joins the list of divisors (kept whole, however long) with status 2 and the limit
// as read. Lists the entry and shows the counters. True when something was written.
bool TeilerEintragen(TeilerFenster& fenster, const std::string& q, int32_t e);
// Reports a found divisor: counts it, lists "q teilt 2^e-1 \tk = k" (the list cleared beyond
// 30,000 entries) and, with the window's DbEintragen and e no known Mersenne prime exponent,
// enters it.
void TeilerMelden(TeilerFenster& fenster, const std::string& q, int32_t e);
inline constexpr int32_t TeilerListeHoechstens = 30000;

}  // namespace sw
