// PgVerbindung: one connection to a PostgreSQL server through libpq, for the data that several
// machines share (the Mersenne table, the work queue). Statements run with text parameters
// (never spliced into the SQL), results are read by row and column, PgTransaktion rolls back
// whatever it did not commit. Every failure is a Laufzeitfehler that carries the server's
// message and the address without its password: connection strings never reach a message or
// a log line with a password in them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct pg_conn;
struct pg_result;

namespace sw {

// The run-time error number of a failing PostgreSQL connection or statement.
inline constexpr int PgFehlerNummer = 3052;

// True for a database address that names a PostgreSQL server (postgresql://, postgres://)
// rather than a folder of SQLite files.
bool IstPgUrl(const std::string& adresse);

// The address with any password removed: the user:password part of a URL, a password=
// query parameter and a password= key of a "host=... dbname=..." connection string.
std::string UrlOhnePasswort(const std::string& adresse);

// One statement parameter in text form; nullopt is SQL NULL.
class PgParameter {
public:
    PgParameter(std::nullopt_t) {}
    PgParameter(const char* s) : wert_(std::string(s)) {}
    PgParameter(std::string s) : wert_(std::move(s)) {}
    PgParameter(int v) : wert_(std::to_string(v)) {}
    PgParameter(long v) : wert_(std::to_string(v)) {}
    PgParameter(long long v) : wert_(std::to_string(v)) {}
    PgParameter(double v);
    PgParameter(bool v) : wert_(v ? "t" : "f") {}

    const std::optional<std::string>& Wert() const { return wert_; }

private:
    std::optional<std::string> wert_;
};

using PgParameterListe = std::vector<PgParameter>;

// The rows of one statement; owns the libpq result.
class PgErgebnis {
public:
    int Zeilen() const;
    int Spalten() const;
    bool IstNull(int zeile, int spalte) const;
    std::string Text(int zeile, int spalte) const;          // "" for NULL
    int64_t Zahl(int zeile, int spalte) const;               // 0 for NULL
    double Kommazahl(int zeile, int spalte) const;           // 0 for NULL
    int64_t Betroffen() const;                               // rows an INSERT/UPDATE/DELETE touched
    int SpaltenNummer(const std::string& name) const;        // -1 if there is none

private:
    friend class PgVerbindung;
    explicit PgErgebnis(pg_result* r);
    struct Freigabe { void operator()(pg_result* r) const; };
    std::unique_ptr<pg_result, Freigabe> r_;
};

class PgVerbindung {
public:
    // Connects; a server that cannot be reached or refuses the login throws Laufzeitfehler.
    explicit PgVerbindung(const std::string& url);
    ~PgVerbindung();
    PgVerbindung(const PgVerbindung&) = delete;
    PgVerbindung& operator=(const PgVerbindung&) = delete;

    PgErgebnis Ausfuehren(const std::string& sql, const PgParameterListe& parameter = {});
    // Several statements without parameters in one round trip (schema scripts).
    void Skript(const std::string& sql);
    // COPY ... FROM STDIN with `daten` in COPY's text format (PgCopyFeld): many rows in one
    // stream, several times faster than the same rows as statement parameters.
    void Kopieren(const std::string& copySql, const std::string& daten);

    // False once the server has gone away; Wiederverbinden() tries to connect again.
    bool Verbunden() const;
    void Wiederverbinden();

    const std::string& Adresse() const { return adresse_; }   // without password
    pg_conn* Roh() const { return c_; }

private:
    [[noreturn]] void Fehler(const std::string& was) const;
    pg_conn* c_ = nullptr;
    bool verloren_ = false;   // a statement failed because the server could not be reached
    std::string url_;
    std::string adresse_;
};

// Appends one field in COPY's text format (backslash, tab and line breaks escaped, nullopt as
// \N), followed by a tab, or by the line's end after its last field.
void PgCopyFeld(std::string& zeile, const std::optional<std::string>& wert, bool letztes = false);

// BEGIN on construction; Festschreiben() commits; leaving the scope without it rolls back.
class PgTransaktion {
public:
    explicit PgTransaktion(PgVerbindung& v);
    ~PgTransaktion();
    PgTransaktion(const PgTransaktion&) = delete;
    PgTransaktion& operator=(const PgTransaktion&) = delete;
    void Festschreiben();

private:
    PgVerbindung& v_;
    bool offen_ = true;
};

}  // namespace sw
