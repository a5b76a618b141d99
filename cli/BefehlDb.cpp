// sw-cli db import FILE | import --from URL|DIR | export --to URL|DIR | show P | stats LO HI |
//        merge DIR   [--db URL|DIR] [--json]
// (the analyses status, kclasses, gaps, bits, residues are in BefehlDbAnalyse.cpp)
// The Mersenne database from the terminal: import a divisor list or a saved factor page, show
// what is known about one exponent, count a range, merge another database folder into ours.
// export and import --from copy every row between the SQLite files and a PostgreSQL server.
// --db chooses the database folder (default: the working folder, where the block files lie)
// or, as a postgresql:// URL, the server.
#include <cstdio>
#include <filesystem>
#include <filesystem>
#include <memory>

#include "Argumente.h"
#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Pfade.h"
#include "mersenne/DbAbgleich.h"
#include "db/PgVerbindung.h"
#include "mersenne/DbImport.h"
#include "mersenne/MersenneSpeicher.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

struct DbFrage {
    std::string ordner;
    bool json = false;
    std::string datei, p, lo, hi;
    std::string von, nach;   // import --from, export --to
};

int32_t exponentLesen(const std::string& text, const std::string& was) {
    const Decimal p = ZahlLesen(text, was);
    if (p < Decimal(2) || p > Decimal(GrenzeLong)) throw CliFehler("db: " + was + " must lie in 2..2000000000");
    return p.AlsLong();
}

// Chooses the folder; the reading commands never create a file in it.
void ordnerWaehlen(const DbFrage& f) { DbOrtWaehlen(f.ordner, "db", false); }

// The other side of a copy: a server, or a folder (created for an export).
std::unique_ptr<MersenneSpeicher> andererSpeicher(const std::string& ort, bool anlegen) {
    if (!IstPgUrl(ort)) {
        std::error_code fehler;
        if (anlegen) std::filesystem::create_directories(ort, fehler);
        if (fehler || !std::filesystem::is_directory(ort)) throw CliFehler("db: no folder " + ort);
    }
    std::unique_ptr<MersenneSpeicher> s = SpeicherFuer(IstPgUrl(ort) ? ort : MitSchraegstrich(ort));
    std::error_code fehler;
    // Copying a store onto itself would rewrite every row while reading it.
    if (s->Ort() == DbOrdner() || (!IstPgUrl(ort) && !DbAufServer() && std::filesystem::equivalent(s->Ort(), DbOrdner(), fehler)))
        throw CliFehler("db: " + s->Ort() + " is the database itself");
    return s;
}

void kopieren(const DbFrage& f, MersenneSpeicher& von, MersenneSpeicher& nach) {
    DbSchliessen();
    const int64_t n = DbKopieren(von, nach);
    if (f.json) {
        JsonObjekt j;
        j.Zahl("rows", std::to_string(n)).Text("from", von.Ort()).Text("to", nach.Ort());
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%lld rows copied from %s to %s\n", (long long)n, von.Ort().c_str(), nach.Ort().c_str());
}

void ausfuehrenExport(const DbFrage& f) {
    ordnerWaehlen(f);
    const std::unique_ptr<MersenneSpeicher> ziel = andererSpeicher(f.nach, true);
    kopieren(f, DbSpeicher(), *ziel);
}

void importieren(const DbFrage& f) {
    ordnerWaehlen(f);
    if (!f.von.empty()) {
        if (!f.datei.empty()) throw CliFehler("db import: give either FILE or --from, not both");
        const std::unique_ptr<MersenneSpeicher> quelle = andererSpeicher(f.von, false);
        kopieren(f, *quelle, DbSpeicher());
        return;
    }
    if (f.datei.empty()) throw CliFehler("db import: give FILE or --from URL|DIR");
    const ImportBericht b = DateiImportieren(f.datei);
    DbSchliessen();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("new", std::to_string(b.neu)).Zahl("added", std::to_string(b.weitereTeiler));
        j.Zahl("known", std::to_string(b.bekannt)).Zahl("skipped", std::to_string(b.uebersprungen));
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%lld new, %lld added to known exponents, %lld known already, %lld lines skipped\n",
                (long long)b.neu, (long long)b.weitereTeiler, (long long)b.bekannt, (long long)b.uebersprungen);
}

void zeigen(const DbFrage& f) {
    ordnerWaehlen(f);
    const int32_t p = exponentLesen(f.p, "P");
    const std::string datei = DbDateiPfad(DbSegment(p));
    PrimZeile z;
    if (DbSegmentVorhanden(DbSegment(p))) {
        z = PrimZeileLesen(p);
        DbSchliessen();
    }
    const std::string grenze = std::to_string(TeilerPotWert(z.teilerPot));
    if (f.json) {
        JsonObjekt j;
        j.Zahl("exponent", std::to_string(p)).Wahr("entry", z.vorhanden).Zahl("status", std::to_string(z.mersenne));
        j.Text("divisors", z.teiler).Zahl("limit", grenze).Zahl("limit_stored", std::to_string(z.teilerPot));
        j.Text("k", z.faktorS).Text("timestamp", z.zeitstempel).Text("file", datei);
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    if (!z.vorhanden) {
        std::printf("%d: no entry in %s\n", p, datei.c_str());
        return;
    }
    static const char* const status[] = {"no divisor known", "Mersenne prime", "composite"};
    std::printf("%d: %s\n", p, z.mersenne >= 0 && z.mersenne <= 2 ? status[z.mersenne] : "unknown status");
    std::printf("divisors: %s\nlimit: k <= %s", z.teiler.c_str(), grenze.c_str());
    if (std::to_string(z.teilerPot) != grenze) std::printf(" (stored as %d)", z.teilerPot);
    std::printf("\nk of the first divisor: %s\ntime stamp: %s\n", z.faktorS.empty() ? "-" : z.faktorS.c_str(),
                z.zeitstempel.c_str());
}

void zaehlen(const DbFrage& f) {
    ordnerWaehlen(f);
    const int32_t lo = exponentLesen(f.lo, "LO"), hi = exponentLesen(f.hi, "HI");
    if (lo > hi) throw CliFehler("db: LO must not exceed HI");
    int64_t zeilen = 0, erledigt = 0, geteilt = 0;
    for (int32_t s = DbSegment(lo); s <= DbSegment(hi); ++s) {
        if (!DbSegmentVorhanden(s)) continue;
        DbOeffnenPflicht(s);
        ZaehleBereich(lo, hi);
        zeilen += DbAnzahlGesamt;
        erledigt += DbAnzahlMitStatus;
        geteilt += ZaehleWo({DbStatusWahl::Geteilt, int64_t(lo) - 1, int64_t(hi) + 1});
    }
    DbSchliessen();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", std::to_string(lo)).Zahl("to", std::to_string(hi)).Zahl("rows", std::to_string(zeilen));
        j.Zahl("settled", std::to_string(erledigt)).Zahl("with_divisor", std::to_string(geteilt));
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("%d..%d: %lld rows, %lld settled (%lld with a divisor, %lld Mersenne primes)\n", lo, hi,
                (long long)zeilen, (long long)erledigt, (long long)geteilt, (long long)(erledigt - geteilt));
}

void zusammenfuehren(const DbFrage& f) {
    ordnerWaehlen(f);
    const AbgleichBericht b = DbZusammenfuehren(f.datei);
    DbSchliessen();
    if (f.json) {
        JsonObjekt j;
        j.Zahl("files", std::to_string(b.dateien)).Zahl("rows", std::to_string(b.zeilen));
        j.Zahl("new_rows", std::to_string(b.neueZeilen)).Zahl("new_divisors", std::to_string(b.neueTeiler));
        j.Zahl("raised_limits", std::to_string(b.hoehereGrenzen)).Zahl("changed_status", std::to_string(b.neuerStatus));
        j.Zahl("false_divisors", std::to_string(b.falscheTeiler));
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    for (const std::string& zeile : AbgleichText(b)) std::printf("%s\n", zeile.c_str());
}

}  // namespace

void DbBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<DbFrage>();
    CLI::App* db = app.add_subcommand("db", "the Mersenne database: import, show, stats, merge, analyses");
    db->require_subcommand(1);
    db->fallthrough();
    db->add_option("--db", f->ordner, "the database folder (default: the working folder) or a postgresql:// URL");
    db->add_flag("--json", f->json, "print one JSON object");
    const auto befehl = [&auftrag, f](CLI::App* sub, void (*was)(const DbFrage&)) {
        sub->callback([f, &auftrag, was]() { auftrag = [f, was]() { was(*f); }; });
    };
    CLI::App* imp = db->add_subcommand(
        "import", "import a list of 'exponent,factor' lines or a saved factor page, or every row of another database");
    imp->add_option("FILE", f->datei, "the file");
    imp->add_option("--from", f->von, "copy every row of this database (postgresql:// URL or folder) into ours");
    befehl(imp, importieren);
    CLI::App* exp = db->add_subcommand("export", "copy every row of our database to another one");
    exp->add_option("--to", f->nach, "the other database (postgresql:// URL or folder)")->required();
    befehl(exp, ausfuehrenExport);
    CLI::App* show = db->add_subcommand("show", "what is known about 2^P-1");
    show->add_option("P", f->p, "the exponent")->required();
    befehl(show, zeigen);
    CLI::App* stats = db->add_subcommand("stats", "rows, settled exponents and divisors from LO to HI");
    stats->add_option("LO", f->lo, "first exponent")->required();
    stats->add_option("HI", f->hi, "last exponent")->required();
    befehl(stats, zaehlen);
    CLI::App* merge = db->add_subcommand("merge", "merge the database of folder DIR into ours");
    merge->add_option("DIR", f->datei, "the other database folder")->required();
    befehl(merge, zusammenfuehren);
    DbAnalyseAnmelden(db, auftrag, [f] {
        ordnerWaehlen(*f);
        return f->json;
    });
}

}  // namespace sw::cli
