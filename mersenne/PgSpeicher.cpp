// PgSpeicher: the Mersenne table on a PostgreSQL server (see PgSpeicher.h).
#include "mersenne/PgSpeicher.h"

#include <algorithm>

#include "db/PgSchema.h"
#include "frame/basZentral.h"
#include "mersenne/SqliteSpeicher.h"

namespace sw {

namespace {

const char* const kSpalten = "Primzahl, Mersenne, Teiler, TeilerPot, FaktorS, TimeStamp";
const char* const kUeberschreiben =
    " ON CONFLICT (Primzahl) DO UPDATE SET Mersenne = excluded.Mersenne, Teiler = excluded.Teiler, "
    "TeilerPot = excluded.TeilerPot, FaktorS = excluded.FaktorS, TimeStamp = excluded.TimeStamp";

// Rows per page of a walk: bounded memory however large the range.
constexpr int kSeite = 50000;

PgParameter oderNull(const std::string& s) { return s.empty() ? PgParameter(std::nullopt) : PgParameter(s); }

void zeileParameter(int32_t p, const PrimZeile& z, PgParameterListe& liste) {
    liste.emplace_back(p);
    liste.emplace_back(z.mersenne);
    liste.emplace_back(z.teiler);
    liste.emplace_back(z.teilerPot);
    liste.push_back(oderNull(z.faktorS));
    liste.push_back(oderNull(z.zeitstempel));
}

}  // namespace

int PgMersenneSchemaSicherstellen(PgVerbindung& v) {
    static const std::vector<PgSchemaSchritt> schritte = {
        {1,
         "CREATE TABLE t_Prim (Primzahl INTEGER PRIMARY KEY, Mersenne INTEGER NOT NULL DEFAULT 0, "
         "Teiler TEXT, TeilerPot INTEGER, FaktorS TEXT, TimeStamp TEXT)"},
    };
    return PgSchemaSicherstellen(v, "mersenne", schritte);
}

PgSpeicher::PgSpeicher(std::string url) : url_(std::move(url)) {}

PgSpeicher::~PgSpeicher() = default;

std::string PgSpeicher::Ort() const { return UrlOhnePasswort(url_); }

PgVerbindung& PgSpeicher::Verbindung() {
    // A connection the server dropped (restart, network) is made anew; a job that was
    // writing in it has lost its open transaction and learns so from the statement that failed.
    if (v_ != nullptr && !v_->Verbunden()) v_.reset();
    if (v_ == nullptr) {
        auto v = std::make_unique<PgVerbindung>(url_);
        PgMersenneSchemaSicherstellen(*v);
        v_ = std::move(v);
    }
    return *v_;
}

void PgSpeicher::Oeffnen(int32_t segment) {
    // A connection kept from the last job may have died with a server restart since; a job
    // starts on a live one rather than failing at its first row.
    if (v_ != nullptr) {
        try {
            v_->Ausfuehren("SELECT 1");
        } catch (const Laufzeitfehler&) {
            v_.reset();
        }
    }
    Verbindung();
    segment_ = segment;
    offen_ = true;
}

// The connection stays: a job that crosses segments, or counts them one by one, would
// otherwise log in again for each of them.
void PgSpeicher::Schliessen() {
    offen_ = false;
    segment_ = DbKeinSegment;
}

PrimZeile PgSpeicher::Lesen(int32_t p) {
    PgErgebnis e = Verbindung().Ausfuehren(
        "SELECT Mersenne, Teiler, TeilerPot, FaktorS, TimeStamp FROM t_Prim WHERE Primzahl = $1", {p});
    PrimZeile z;
    if (e.Zeilen() == 0) return z;
    z.vorhanden = true;
    const int zeile = 0;  // the primary key allows one
    z.mersenne = int32_t(e.Zahl(zeile, 0));
    z.teiler = e.IstNull(zeile, 1) ? "0" : e.Text(zeile, 1);
    z.teilerPot = int32_t(e.Zahl(zeile, 2));
    z.faktorS = e.Text(zeile, 3);
    z.zeitstempel = e.Text(zeile, 4);
    return z;
}

void PgSpeicher::Ablegen(int32_t p, const PrimZeile& z) {
    PgParameterListe werte;
    zeileParameter(p, z, werte);
    Verbindung().Ausfuehren(std::string("INSERT INTO t_Prim (") + kSpalten + ") VALUES ($1, $2, $3, $4, $5, $6)" +
                                kUeberschreiben,
                            werte);
}

// COPY into a temporary table, then one upsert from it: COPY streams the rows without a
// parameter per field, and the upsert keeps "a copy replaces rows of the same exponent".
void PgSpeicher::AblegenBlock(const ZeilenBlock& zeilen) {
    PgVerbindung& v = Verbindung();
    v.Skript("CREATE TEMP TABLE IF NOT EXISTS t_Prim_Block (LIKE t_Prim); TRUNCATE t_Prim_Block");
    std::string daten;
    daten.reserve(zeilen.size() * 48);
    for (const auto& [p, z] : zeilen) {
        PgCopyFeld(daten, std::to_string(p));
        PgCopyFeld(daten, std::to_string(z.mersenne));
        PgCopyFeld(daten, z.teiler);
        PgCopyFeld(daten, std::to_string(z.teilerPot));
        PgCopyFeld(daten, z.faktorS.empty() ? std::nullopt : std::optional<std::string>(z.faktorS));
        PgCopyFeld(daten, z.zeitstempel.empty() ? std::nullopt : std::optional<std::string>(z.zeitstempel), true);
    }
    v.Kopieren(std::string("COPY t_Prim_Block (") + kSpalten + ") FROM STDIN", daten);
    v.Skript(std::string("INSERT INTO t_Prim (") + kSpalten + ") SELECT " + kSpalten + " FROM t_Prim_Block" +
             kUeberschreiben);
}

void PgSpeicher::Beginnen() { Verbindung().Ausfuehren("BEGIN"); }

void PgSpeicher::Festschreiben() { Verbindung().Ausfuehren("COMMIT"); }

void PgSpeicher::Verwerfen() noexcept {
    try {
        if (v_ != nullptr && v_->Verbunden()) v_->Ausfuehren("ROLLBACK");
    } catch (const Laufzeitfehler&) {
        // Nothing to undo on a connection that broke: the server dropped the transaction.
    }
}

int64_t PgSpeicher::Anzahl(int64_t ab, int64_t bis, DbStatusWahl status) {
    const int64_t anfang = int64_t(segment_) * MersenneDbSegment;
    ab = std::max(ab, anfang);
    bis = std::min(bis, anfang + MersenneDbSegment - 1);
    const std::string sql =
        std::string("SELECT Count(*) FROM t_Prim WHERE Primzahl >= $1 AND Primzahl <= $2") + DbStatusBedingung(status);
    return Verbindung().Ausfuehren(sql, {static_cast<long long>(ab), static_cast<long long>(bis)}).Zahl(0, 0);
}

bool PgSpeicher::Durchlaufen(int64_t von, int64_t bis, DbStatusWahl status, bool mitTexten, const ZeilenAufruf& f) {
    const std::string sql = std::string("SELECT Primzahl, Mersenne, TeilerPot") +
                            (mitTexten ? ", Teiler, FaktorS, TimeStamp" : "") +
                            " FROM t_Prim WHERE Primzahl >= $1 AND Primzahl <= $2" + DbStatusBedingung(status) +
                            " ORDER BY Primzahl LIMIT " + std::to_string(kSeite);
    von = std::max<int64_t>(von, 0);
    bis = std::min<int64_t>(bis, GrenzeLong);
    PrimZeile z;
    z.vorhanden = true;
    while (von <= bis) {
        PgErgebnis e = Verbindung().Ausfuehren(sql, {static_cast<long long>(von), static_cast<long long>(bis)});
        for (int i = 0; i < e.Zeilen(); ++i) {
            z.mersenne = int32_t(e.Zahl(i, 1));
            z.teilerPot = int32_t(e.Zahl(i, 2));
            if (mitTexten) {
                z.teiler = e.IstNull(i, 3) ? "0" : e.Text(i, 3);
                z.faktorS = e.Text(i, 4);
                z.zeitstempel = e.Text(i, 5);
            }
            f(int32_t(e.Zahl(i, 0)), z);
        }
        if (e.Zeilen() < kSeite) break;
        von = e.Zahl(e.Zeilen() - 1, 0) + 1;
    }
    return true;
}

}  // namespace sw
