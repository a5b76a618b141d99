#include "mersenne/ArbeitSchlange.h"

#include <algorithm>

#include "frame/Laufzeitfehler.h"
#include "db/PgSchema.h"
#include "mersenne/PgSpeicher.h"

namespace sw {

namespace {

// The queue's tables, step 1 of the part "arbeit" (see PgSchema): a server may meet a worker
// before any other program of SW, in either order.
constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS t_Arbeit (id bigserial PRIMARY KEY, "
    "kind text NOT NULL CHECK (kind IN ('divisors', 'lucas', 'collatz')), "
    "lo numeric(20) NOT NULL, hi numeric(20) NOT NULL, kziel bigint NOT NULL DEFAULT 0, "
    "state text NOT NULL DEFAULT 'open' CHECK (state IN ('open', 'claimed', 'done')), "
    "worker text, lease_until timestamptz, claimed_at timestamptz, done_at timestamptz, "
    "attempts integer NOT NULL DEFAULT 0, seconds double precision, found bigint, result text);"
    "CREATE INDEX IF NOT EXISTS t_Arbeit_offen ON t_Arbeit (id) WHERE state <> 'done';"
    "CREATE TABLE IF NOT EXISTS t_CollatzZahl (unit bigint PRIMARY KEY REFERENCES t_Arbeit (id), "
    "lo numeric(20) NOT NULL, hi numeric(20) NOT NULL, starts bigint NOT NULL, steps numeric(30) NOT NULL, "
    "mult numeric(30) NOT NULL, longest bigint NOT NULL, longest_start numeric(20) NOT NULL);";

std::string zahl(uint64_t n) { return std::to_string(n); }

uint64_t zahlLesen(const std::string& text) { return text.empty() ? 0 : std::stoull(text); }

std::string artBedingung(std::optional<ArbeitArt> art) { return art ? ArbeitArtName(*art) : ""; }

// A PostgreSQL array literal of numbers or digit strings; nullopt elements are NULL.
std::string feld(const std::vector<std::optional<std::string>>& werte) {
    std::string s = "{";
    for (size_t i = 0; i < werte.size(); ++i) {
        if (i > 0) s += ',';
        s += werte[i] ? "\"" + *werte[i] + "\"" : "NULL";
    }
    return s + "}";
}

void primZeilenSchreiben(PgVerbindung& v, const std::vector<std::pair<uint32_t, PrimZeile>>& zeilen) {
    if (zeilen.empty()) return;
    std::vector<std::optional<std::string>> p, m, t, k, f;
    for (const auto& [e, z] : zeilen) {
        p.push_back(std::to_string(e));
        m.push_back(std::to_string(z.mersenne));
        t.push_back(z.teiler);
        k.push_back(std::to_string(z.teilerPot));
        f.push_back(z.faktorS.empty() ? std::nullopt : std::optional<std::string>(z.faktorS));
    }
    v.Ausfuehren(
        "INSERT INTO t_Prim (Primzahl, Mersenne, Teiler, TeilerPot, FaktorS, TimeStamp) "
        "SELECT u.p, u.m, u.t, u.k, u.f, to_char(now(), 'YYYY-MM-DD HH24:MI:SS') "
        "FROM unnest($1::bigint[], $2::integer[], $3::text[], $4::integer[], $5::text[]) AS u (p, m, t, k, f) "
        "ON CONFLICT (Primzahl) DO UPDATE SET Mersenne = EXCLUDED.Mersenne, Teiler = EXCLUDED.Teiler, "
        "TeilerPot = EXCLUDED.TeilerPot, FaktorS = EXCLUDED.FaktorS, TimeStamp = EXCLUDED.TimeStamp",
        {feld(p), feld(m), feld(t), feld(k), feld(f)});
}

std::map<uint32_t, PrimZeile> primLesen(PgVerbindung& v, uint64_t von, uint64_t bis, bool sperren) {
    const PgErgebnis r = v.Ausfuehren(
        std::string("SELECT Primzahl, Mersenne, Teiler, TeilerPot, FaktorS FROM t_Prim WHERE Primzahl BETWEEN $1 "
                    "AND $2") +
            (sperren ? " ORDER BY Primzahl FOR UPDATE" : ""),
        {zahl(von), zahl(bis)});
    std::map<uint32_t, PrimZeile> zeilen;
    for (int i = 0; i < r.Zeilen(); ++i) {
        PrimZeile& z = zeilen[uint32_t(r.Zahl(i, 0))];
        z.vorhanden = true;
        z.mersenne = int32_t(r.Zahl(i, 1));
        z.teiler = r.IstNull(i, 2) ? "0" : r.Text(i, 2);
        z.teilerPot = int32_t(r.Zahl(i, 3));
        z.faktorS = r.Text(i, 4);
    }
    return zeilen;
}

void teilerZusammenfuehren(PgVerbindung& v, const ArbeitEinheit& e, const ArbeitErgebnis& ergebnis) {
    // The rows as they stand now, locked, so that a concurrent writer cannot slip in between
    // the merge and its write.
    const std::map<uint32_t, PrimZeile> jetzt = primLesen(v, e.von, e.bis, true);
    static const PrimZeile leer;
    std::vector<std::pair<uint32_t, PrimZeile>> neu;
    for (const TeilerErgebnisZeile& z : ergebnis.teiler) {
        const auto g = jetzt.find(z.p);
        if (auto zeile = TeilerZeileZusammenfuehren(g == jetzt.end() ? leer : g->second, z, e.KZiel))
            neu.emplace_back(z.p, std::move(*zeile));
    }
    primZeilenSchreiben(v, neu);
}

void lucasZusammenfuehren(PgVerbindung& v, const ArbeitEinheit& e, const ArbeitErgebnis& ergebnis) {
    if (ergebnis.treffer == 0) return;
    // A Mersenne prime that the table does not know yet gets status 1; a row with a status
    // keeps it (a divisor would contradict the test and is left for a person to look at).
    std::map<uint32_t, PrimZeile> jetzt = primLesen(v, e.von, e.von, true);
    PrimZeile z = jetzt[uint32_t(e.von)];
    if (z.mersenne != 0) return;
    z.mersenne = 1;
    z.teiler = "0";
    primZeilenSchreiben(v, {{uint32_t(e.von), z}});
}

}  // namespace

const char* ArbeitArtName(ArbeitArt art) {
    switch (art) {
    case ArbeitArt::Teiler: return "divisors";
    case ArbeitArt::Lucas: return "lucas";
    case ArbeitArt::Collatz: return "collatz";
    }
    return "";
}

std::optional<ArbeitArt> ArbeitArtLesen(const std::string& name) {
    for (ArbeitArt a : {ArbeitArt::Teiler, ArbeitArt::Lucas, ArbeitArt::Collatz})
        if (name == ArbeitArtName(a)) return a;
    return std::nullopt;
}

void ArbeitSchemaAnlegen(PgVerbindung& v) {
    // The results of divisor and Lucas units go into the Mersenne table: it must exist first.
    PgMersenneSchemaSicherstellen(v);
    static const std::vector<PgSchemaSchritt> schritte = {{1, kSchema}};
    PgSchemaSicherstellen(v, "arbeit", schritte);
}

int64_t ArbeitHinzufuegen(PgVerbindung& v, ArbeitArt art, uint64_t von, uint64_t bis, uint64_t breite,
                          uint64_t KZiel) {
    if (von > bis || breite < 1) throw Laufzeitfehler(5);
    std::vector<std::optional<std::string>> lo, hi;
    for (uint64_t a = von;; a += breite) {
        const uint64_t b = bis - a < breite ? bis : a + breite - 1;
        lo.push_back(zahl(a));
        hi.push_back(zahl(b));
        if (b == bis) break;
    }
    PgTransaktion t(v);
    v.Ausfuehren(
        "INSERT INTO t_Arbeit (kind, lo, hi, kziel) SELECT $1, u.lo, u.hi, $4 "
        "FROM unnest($2::numeric[], $3::numeric[]) AS u (lo, hi)",
        {ArbeitArtName(art), feld(lo), feld(hi), zahl(KZiel)});
    t.Festschreiben();
    return int64_t(lo.size());
}

std::optional<ArbeitEinheit> ArbeitBeanspruchen(PgVerbindung& v, const std::string& worker, double leaseSekunden,
                                                std::optional<ArbeitArt> art) {
    // One statement, so the claim needs no transaction of its own; SKIP LOCKED lets many
    // workers claim at once without queueing behind each other's row locks.
    const PgErgebnis r = v.Ausfuehren(
        "UPDATE t_Arbeit SET state = 'claimed', worker = $1, lease_until = now() + make_interval(secs => $2), "
        "claimed_at = now(), attempts = attempts + 1 WHERE id = (SELECT id FROM t_Arbeit WHERE "
        "(state = 'open' OR (state = 'claimed' AND lease_until < now())) AND ($3 = '' OR kind = $3) "
        "ORDER BY id LIMIT 1 FOR UPDATE SKIP LOCKED) RETURNING id, kind, lo::text, hi::text, kziel",
        {worker, leaseSekunden, artBedingung(art)});
    // One row at most: the unit claimed.
    for (int i = 0; i < r.Zeilen(); ++i) {
        ArbeitEinheit e;
        e.id = r.Zahl(i, 0);
        e.art = *ArbeitArtLesen(r.Text(i, 1));
        e.von = zahlLesen(r.Text(i, 2));
        e.bis = zahlLesen(r.Text(i, 3));
        e.KZiel = uint64_t(r.Zahl(i, 4));
        return e;
    }
    return std::nullopt;
}

bool ArbeitUebrig(PgVerbindung& v, std::optional<ArbeitArt> art) {
    return v.Ausfuehren(
                "SELECT (EXISTS (SELECT 1 FROM t_Arbeit WHERE state <> 'done' AND ($1 = '' OR kind = $1)))::int",
                {artBedingung(art)})
               .Zahl(0, 0) == 1;
}

bool ArbeitVerlaengern(PgVerbindung& v, int64_t id, const std::string& worker, double leaseSekunden) {
    return v.Ausfuehren(
                "UPDATE t_Arbeit SET lease_until = now() + make_interval(secs => $3) WHERE id = $1 AND worker = $2 "
                "AND state = 'claimed' AND lease_until > now()",
                {static_cast<long long>(id), worker, leaseSekunden})
               .Betroffen() == 1;
}

void ArbeitFreigeben(PgVerbindung& v, int64_t id, const std::string& worker) {
    v.Ausfuehren(
        "UPDATE t_Arbeit SET state = 'open', worker = NULL, lease_until = NULL WHERE id = $1 AND worker = $2 "
        "AND state = 'claimed'",
        {static_cast<long long>(id), worker});
}

std::map<uint32_t, PrimZeile> ArbeitPrimLesen(PgVerbindung& v, uint64_t von, uint64_t bis) {
    return primLesen(v, von, bis, false);
}

bool ArbeitAbschliessen(PgVerbindung& v, const ArbeitEinheit& e, const std::string& worker,
                        const ArbeitErgebnis& ergebnis) {
    PgTransaktion t(v);
    // The row lock keeps the lease from running out into another worker's claim while this
    // transaction writes: a claim skips locked rows.
    const PgErgebnis eigen = v.Ausfuehren(
        "SELECT (state = 'claimed' AND lease_until > now())::int, (state = 'done')::int FROM t_Arbeit WHERE "
        "id = $1 AND worker = $2 FOR UPDATE",
        {static_cast<long long>(e.id), worker});
    if (eigen.Zeilen() == 0) return false;
    // Done by this worker already: the commit went through, only its answer was lost with
    // the connection.
    if (eigen.Zahl(0, 1) == 1) return true;
    if (eigen.Zahl(0, 0) != 1) return false;
    switch (e.art) {
    case ArbeitArt::Teiler: teilerZusammenfuehren(v, e, ergebnis); break;
    case ArbeitArt::Lucas: lucasZusammenfuehren(v, e, ergebnis); break;
    case ArbeitArt::Collatz: {
        const CollatzSumme& s = *ergebnis.collatz;
        v.Ausfuehren(
            "INSERT INTO t_CollatzZahl (unit, lo, hi, starts, steps, mult, longest, longest_start) "
            "VALUES ($1, $2, $3, $4, $5, $6, $7, $8)",
            {static_cast<long long>(e.id), zahl(e.von), zahl(e.bis), zahl(s.starts), zahl(s.schritte), zahl(s.mult),
             zahl(s.laengste), zahl(s.laengsteStart)});
        break;
    }
    }
    v.Ausfuehren(
        "UPDATE t_Arbeit SET state = 'done', done_at = now(), lease_until = NULL, seconds = $2, found = $3, "
        "result = $4 WHERE id = $1",
        {static_cast<long long>(e.id), ergebnis.sekunden, static_cast<long long>(ergebnis.treffer), ergebnis.text});
    t.Festschreiben();
    return true;
}

ArbeitStand ArbeitStandLesen(PgVerbindung& v) {
    ArbeitStand s;
    const PgErgebnis arten = v.Ausfuehren(
        "SELECT kind, count(*) FILTER (WHERE state = 'open' OR (state = 'claimed' AND lease_until < now())), "
        "count(*) FILTER (WHERE state = 'claimed' AND lease_until >= now()), count(*) FILTER (WHERE state = 'done'), "
        "coalesce(sum(found), 0) FROM t_Arbeit GROUP BY kind ORDER BY kind");
    for (int i = 0; i < arten.Zeilen(); ++i) {
        s.arten.push_back({arten.Text(i, 0), arten.Zahl(i, 1), arten.Zahl(i, 2), arten.Zahl(i, 3)});
        s.offen += arten.Zahl(i, 1);
        s.beansprucht += arten.Zahl(i, 2);
        s.fertig += arten.Zahl(i, 3);
        s.treffer += arten.Zahl(i, 4);
    }
    // The rate over the last hour, or over the time since the first of those units was
    // claimed when the queue is younger than that (but at least a minute, so that the first
    // quick unit does not promise thousands an hour).
    const PgErgebnis worker = v.Ausfuehren(
        "SELECT worker, count(*) FILTER (WHERE state = 'done'), coalesce(sum(found), 0), "
        "count(*) FILTER (WHERE state = 'claimed' AND lease_until >= now()), coalesce(sum(seconds), 0), "
        "count(*) FILTER (WHERE done_at > now() - interval '1 hour'), "
        "extract(epoch FROM now() - least(greatest(min(claimed_at) FILTER (WHERE done_at > now() - interval "
        "'1 hour'), now() - interval '1 hour'), now() - interval '1 minute')), "
        "coalesce(to_char(max(done_at), 'YYYY-MM-DD HH24:MI:SS'), '') "
        "FROM t_Arbeit WHERE worker IS NOT NULL GROUP BY worker ORDER BY worker");
    for (int i = 0; i < worker.Zeilen(); ++i) {
        ArbeitStand::Worker w;
        w.name = worker.Text(i, 0);
        w.einheiten = worker.Zahl(i, 1);
        w.treffer = worker.Zahl(i, 2);
        w.beansprucht = worker.Zahl(i, 3);
        w.sekunden = worker.Kommazahl(i, 4);
        const double zeit = worker.Kommazahl(i, 6);
        w.einheitenJeStunde = zeit > 0 ? double(worker.Zahl(i, 5)) * 3600 / zeit : 0;
        w.zuletzt = worker.Text(i, 7);
        s.einheitenJeStunde += w.einheitenJeStunde;
        s.worker.push_back(std::move(w));
    }
    const PgErgebnis ansprueche = v.Ausfuehren(
        "SELECT id, kind, lo::text || '..' || hi::text, worker, extract(epoch FROM lease_until - now()) "
        "FROM t_Arbeit WHERE state = 'claimed' ORDER BY id");
    for (int i = 0; i < ansprueche.Zeilen(); ++i) {
        s.ansprueche.push_back({ansprueche.Zahl(i, 0), ansprueche.Text(i, 1), ansprueche.Text(i, 2),
                                ansprueche.Text(i, 3), ansprueche.Kommazahl(i, 4)});
    }
    if (s.offen + s.beansprucht == 0) {
        s.restSekunden = 0;
    } else if (s.einheitenJeStunde > 0) {
        s.restSekunden = double(s.offen + s.beansprucht) * 3600 / s.einheitenJeStunde;
    }
    return s;
}

}  // namespace sw
