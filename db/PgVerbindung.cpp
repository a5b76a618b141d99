#include "db/PgVerbindung.h"

#include <libpq-fe.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"

namespace sw {

namespace {

bool BeginntMit(const std::string& s, const char* anfang) { return s.rfind(anfang, 0) == 0; }

// Removes "password=..." from a '&'-separated query ("a=1&password=x&b=2" -> "a=1&b=2").
std::string AbfrageOhnePasswort(const std::string& abfrage) {
    std::string ergebnis;
    size_t pos = 0;
    while (pos <= abfrage.size()) {
        size_t ende = abfrage.find('&', pos);
        if (ende == std::string::npos) ende = abfrage.size();
        std::string teil = abfrage.substr(pos, ende - pos);
        if (!BeginntMit(teil, "password=") && !teil.empty()) ergebnis += (ergebnis.empty() ? "" : "&") + teil;
        pos = ende + 1;
    }
    return ergebnis;
}

// "key=value key='quoted value'": drops the password key, keeps the rest as written.
std::string ConninfoOhnePasswort(const std::string& s) {
    std::string ergebnis;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && s[i] == ' ') ++i;
        size_t anfang = i;
        while (i < s.size() && s[i] != '=' && s[i] != ' ') ++i;
        std::string schluessel = s.substr(anfang, i - anfang);
        while (i < s.size() && s[i] == ' ') ++i;
        if (i < s.size() && s[i] == '=') {
            ++i;
            while (i < s.size() && s[i] == ' ') ++i;
            if (i < s.size() && s[i] == '\'') {
                for (++i; i < s.size() && s[i] != '\''; ++i)
                    if (s[i] == '\\') ++i;
                ++i;
            } else {
                while (i < s.size() && s[i] != ' ') ++i;
            }
        }
        if (schluessel != "password" && i > anfang) {
            if (!ergebnis.empty()) ergebnis += ' ';
            ergebnis += s.substr(anfang, i - anfang);
        }
    }
    return ergebnis;
}

// The password a URL or connection string carries ("" if none), to blank it out of the
// server's messages as well: libpq does not echo it today, but nothing promises that.
std::string PasswortAus(const std::string& url) {
    PQconninfoOption* optionen = PQconninfoParse(url.c_str(), nullptr);
    std::string passwort;
    if (optionen == nullptr) return passwort;
    for (PQconninfoOption* o = optionen; o->keyword != nullptr; ++o)
        if (std::string(o->keyword) == "password" && o->val != nullptr) passwort = o->val;
    PQconninfoFree(optionen);
    return passwort;
}

std::string OhneZeilenende(std::string s) {
    while (!s.empty() && (s.back() == '\n' || s.back() == ' ')) s.pop_back();
    return s;
}

}  // namespace

bool IstPgUrl(const std::string& adresse) {
    return BeginntMit(adresse, "postgresql://") || BeginntMit(adresse, "postgres://");
}

std::string UrlOhnePasswort(const std::string& adresse) {
    if (!IstPgUrl(adresse)) return ConninfoOhnePasswort(adresse);
    size_t schema = adresse.find("://") + 3;
    size_t frage = adresse.find('?', schema);
    std::string vorn = adresse.substr(0, frage);
    // The user part ends at the last '@' before the query: an unescaped '@' in a password
    // must not leave its tail behind.
    size_t at = vorn.rfind('@');
    if (at != std::string::npos && at >= schema) {
        size_t doppelpunkt = vorn.find(':', schema);
        if (doppelpunkt != std::string::npos && doppelpunkt < at) vorn.erase(doppelpunkt, at - doppelpunkt);
    }
    if (frage == std::string::npos) return vorn;
    std::string abfrage = AbfrageOhnePasswort(adresse.substr(frage + 1));
    return abfrage.empty() ? vorn : vorn + "?" + abfrage;
}

PgParameter::PgParameter(double v) {
    char puffer[32];
    auto [ende, ec] = std::to_chars(puffer, puffer + sizeof puffer, v);
    wert_ = std::string(puffer, ende);
}

void PgErgebnis::Freigabe::operator()(pg_result* r) const { PQclear(r); }

PgErgebnis::PgErgebnis(pg_result* r) : r_(r) {}

int PgErgebnis::Zeilen() const { return PQntuples(r_.get()); }
int PgErgebnis::Spalten() const { return PQnfields(r_.get()); }
bool PgErgebnis::IstNull(int zeile, int spalte) const { return PQgetisnull(r_.get(), zeile, spalte) != 0; }

std::string PgErgebnis::Text(int zeile, int spalte) const {
    return std::string(PQgetvalue(r_.get(), zeile, spalte), PQgetlength(r_.get(), zeile, spalte));
}

int64_t PgErgebnis::Zahl(int zeile, int spalte) const {
    const char* s = PQgetvalue(r_.get(), zeile, spalte);
    int64_t v = 0;
    std::from_chars(s, s + PQgetlength(r_.get(), zeile, spalte), v);
    return v;
}

double PgErgebnis::Kommazahl(int zeile, int spalte) const {
    return IstNull(zeile, spalte) ? 0.0 : std::strtod(PQgetvalue(r_.get(), zeile, spalte), nullptr);
}

int64_t PgErgebnis::Betroffen() const {
    const char* s = PQcmdTuples(r_.get());
    return s[0] == 0 ? 0 : std::strtoll(s, nullptr, 10);
}

int PgErgebnis::SpaltenNummer(const std::string& name) const { return PQfnumber(r_.get(), name.c_str()); }

PgVerbindung::PgVerbindung(const std::string& url) : url_(url), adresse_(UrlOhnePasswort(url)) {
    c_ = PQconnectdb(url.c_str());
    if (c_ == nullptr) throw Laufzeitfehler(FehlerKeinSpeicher);
    if (PQstatus(c_) != CONNECTION_OK) {
        std::string meldung = OhneZeilenende(PQerrorMessage(c_));
        PQfinish(c_);
        c_ = nullptr;
        std::string passwort = PasswortAus(url_);
        if (!passwort.empty())
            for (size_t p; (p = meldung.find(passwort)) != std::string::npos;) meldung.replace(p, passwort.size(), "***");
        throw Laufzeitfehler(PgFehlerNummer, TextP1P2(2320, adresse_, meldung));
    }
    // Notices (e.g. "table already exists, skipping") are expected, not worth a line on stderr.
    PQsetNoticeProcessor(c_, [](void*, const char*) {}, nullptr);
}

PgVerbindung::~PgVerbindung() {
    if (c_ != nullptr) PQfinish(c_);
}

void PgVerbindung::Fehler(const std::string& was) const {
    std::string passwort = PasswortAus(url_);
    std::string meldung = OhneZeilenende(was);
    if (!passwort.empty())
        for (size_t p; (p = meldung.find(passwort)) != std::string::npos;) meldung.replace(p, passwort.size(), "***");
    throw Laufzeitfehler(PgFehlerNummer, TextP1P2(1505, adresse_, meldung));
}

PgErgebnis PgVerbindung::Ausfuehren(const std::string& sql, const PgParameterListe& parameter) {
    std::vector<const char*> werte;
    werte.reserve(parameter.size());
    for (const PgParameter& p : parameter) werte.push_back(p.Wert() ? p.Wert()->c_str() : nullptr);
    PgErgebnis e(PQexecParams(c_, sql.c_str(), static_cast<int>(werte.size()), nullptr, werte.data(), nullptr,
                              nullptr, 0));
    ExecStatusType status = PQresultStatus(e.r_.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
        // No SQLSTATE means libpq itself gave up (the socket closed); class 08 and 57P are
        // the server's connection failures and shutdowns. libpq keeps reporting the
        // connection as fine in some of these cases, so remember it here.
        const char* zustand = PQresultErrorField(e.r_.get(), PG_DIAG_SQLSTATE);
        std::string z = zustand != nullptr ? zustand : "";
        if (z.empty() || BeginntMit(z, "08") || BeginntMit(z, "57P")) verloren_ = true;
        const char* text = PQresultErrorMessage(e.r_.get());
        Fehler(text != nullptr && text[0] != 0 ? text : PQerrorMessage(c_));
    }
    return e;
}

void PgVerbindung::Skript(const std::string& sql) {
    PgErgebnis e(PQexec(c_, sql.c_str()));
    ExecStatusType status = PQresultStatus(e.r_.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) Fehler(PQerrorMessage(c_));
}

void PgVerbindung::Kopieren(const std::string& copySql, const std::string& daten) {
    PGresult* r = PQexec(c_, copySql.c_str());
    const bool bereit = PQresultStatus(r) == PGRES_COPY_IN;
    PQclear(r);
    if (!bereit) Fehler(PQerrorMessage(c_));
    if (PQputCopyData(c_, daten.data(), int(daten.size())) != 1 || PQputCopyEnd(c_, nullptr) != 1) Fehler(PQerrorMessage(c_));
    std::string fehler;
    while ((r = PQgetResult(c_)) != nullptr) {
        if (PQresultStatus(r) != PGRES_COMMAND_OK && fehler.empty()) fehler = PQresultErrorMessage(r);
        PQclear(r);
    }
    if (!fehler.empty()) Fehler(fehler);
}

void PgCopyFeld(std::string& zeile, const std::optional<std::string>& wert, bool letztes) {
    if (!wert) zeile += "\\N";
    if (wert)
    for (char c : *wert) {
        switch (c) {
            case '\\': zeile += "\\\\"; break;
            case '\t': zeile += "\\t"; break;
            case '\n': zeile += "\\n"; break;
            case '\r': zeile += "\\r"; break;
            default: zeile += c;
        }
    }
    zeile += letztes ? '\n' : '\t';
}

bool PgVerbindung::Verbunden() const { return !verloren_ && PQstatus(c_) == CONNECTION_OK; }

void PgVerbindung::Wiederverbinden() {
    PQreset(c_);
    verloren_ = PQstatus(c_) != CONNECTION_OK;
    if (PQstatus(c_) != CONNECTION_OK) Fehler(PQerrorMessage(c_));
}

PgTransaktion::PgTransaktion(PgVerbindung& v) : v_(v) { v_.Ausfuehren("BEGIN"); }

PgTransaktion::~PgTransaktion() {
    if (!offen_) return;
    // A rollback on a dead connection has nothing left to undo: the server drops the
    // transaction with the connection. No throwing from a destructor.
    PQclear(PQexec(v_.Roh(), "ROLLBACK"));
}

void PgTransaktion::Festschreiben() {
    offen_ = false;
    v_.Ausfuehren("COMMIT");
}

}  // namespace sw
