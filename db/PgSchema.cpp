#include "db/PgSchema.h"

#include <algorithm>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"

namespace sw {

namespace {
// Any fixed number: the lock only has to be the same for every program of SW.
constexpr const char* kSchemaSperre = "SELECT pg_advisory_xact_lock(230523)";
}  // namespace

int PgSchemaSicherstellen(PgVerbindung& v, const std::string& teil, const std::vector<PgSchemaSchritt>& schritte) {
    PgTransaktion t(v);
    v.Ausfuehren(kSchemaSperre);
    v.Skript("CREATE TABLE IF NOT EXISTS t_Version (Teil TEXT PRIMARY KEY, Version INTEGER NOT NULL)");
    PgErgebnis e = v.Ausfuehren("SELECT Version FROM t_Version WHERE Teil = $1", {teil});
    const int stand = e.Zeilen() > 0 ? int(e.Zahl(0, 0)) : 0;
    int bekannt = 0;
    for (const PgSchemaSchritt& s : schritte) bekannt = std::max(bekannt, s.version);
    if (stand > bekannt) {
        throw Laufzeitfehler(PgFehlerNummer, TextP1P2(2321, v.Adresse(),
                                                      teil + ": " + std::to_string(stand) + " > " + std::to_string(bekannt)));
    }
    for (const PgSchemaSchritt& s : schritte)
        if (s.version > stand) v.Skript(s.sql);
    if (bekannt > stand) {
        v.Ausfuehren("INSERT INTO t_Version (Teil, Version) VALUES ($1, $2) "
                     "ON CONFLICT (Teil) DO UPDATE SET Version = excluded.Version",
                     {teil, bekannt});
    }
    t.Festschreiben();
    return bekannt;
}

}  // namespace sw
