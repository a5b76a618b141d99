// sw-cli work add divisors FROM TO --kziel K [--unit N] --db URL
// sw-cli work add lucas P... --db URL | work add collatz FROM TO [--unit N] --db URL
// sw-cli work status --db URL [--json]
// sw-cli worker --db URL [--kind divisors|lucas|collatz] [--max-hours H] [--name NAME] [--lease S]
// The shared work queue on a PostgreSQL server: `work add` cuts a job into units, any number
// of `worker` processes on any number of machines claim and compute them until none is left,
// `work status` shows how far the queue has come. Addresses are only ever shown without
// their password.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "db/PgVerbindung.h"
#include "mersenne/ArbeitWorker.h"
#include "mersenne/LucasLauf.h"
#include "mersenne/TeilerLauf.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

struct ArbeitFrage {
    std::string url, art, kZiel, breite, name;
    std::vector<std::string> werte;
    bool json = false;
    double stunden = 0, lease = 60;
};

std::unique_ptr<PgVerbindung> verbinden(const std::string& befehl, const std::string& url) {
    if (!IstPgUrl(url)) throw CliFehler(befehl + ": --db must be a postgresql:// address, not " + UrlOhnePasswort(url));
    return std::make_unique<PgVerbindung>(url);
}

uint64_t zahl64(const std::string& befehl, const std::string& text, const char* was) {
    const Mpz z = ArgumentLesen(text, was);
    if (mpz_sizeinbase(z.get(), 2) > 64) throw CliFehler(befehl + ": " + was + " must be below 2^64");
    uint64_t v = 0;
    mpz_export(&v, nullptr, -1, sizeof v, 0, 0, z.get());
    return v;
}

uint64_t imBereich(const std::string& befehl, const std::string& text, const char* was, uint64_t lo, uint64_t hi) {
    const uint64_t v = zahl64(befehl, text, was);
    if (v < lo || v > hi)
        throw CliFehler(befehl + ": " + was + " must lie between " + std::to_string(lo) + " and " + std::to_string(hi));
    return v;
}

void hinzufuegen(const ArbeitFrage& f) {
    const std::string befehl = "work add";
    const std::optional<ArbeitArt> art = ArbeitArtLesen(f.art);
    if (!art) throw CliFehler(befehl + ": the kind must be divisors, lucas or collatz, not " + f.art);
    const auto paar = [&](const char* was) {
        if (f.werte.size() != 2) throw CliFehler(befehl + " " + f.art + ": give FROM and TO (" + was + ")");
    };
    auto v = verbinden(befehl, f.url);
    ArbeitSchemaAnlegen(*v);
    int64_t einheiten = 0;
    std::string beschreibung;
    switch (*art) {
    case ArbeitArt::Teiler: {
        paar("exponents");
        const uint64_t von = imBereich(befehl, f.werte[0], "FROM", 2, uint64_t(GrenzeLong));
        const uint64_t bis = imBereich(befehl, f.werte[1], "TO", 2, uint64_t(GrenzeLong));
        if (von > bis) throw CliFehler(befehl + ": FROM must not exceed TO");
        if (f.kZiel.empty()) throw CliFehler(befehl + " divisors: --kziel is required");
        const uint64_t k = imBereich(befehl, f.kZiel, "--kziel", 1, TeilerKZielMax);
        const uint64_t breite = f.breite.empty() ? 10000 : imBereich(befehl, f.breite, "--unit", 1, uint64_t(GrenzeLong));
        einheiten = ArbeitHinzufuegen(*v, *art, von, bis, breite, k);
        beschreibung = "divisors of 2^p-1 for p in " + std::to_string(von) + ".." + std::to_string(bis) +
                       ", k up to " + std::to_string(k);
        break;
    }
    case ArbeitArt::Lucas: {
        if (f.werte.empty()) throw CliFehler(befehl + " lucas: give one or more exponents P");
        std::vector<uint32_t> p;
        for (const std::string& w : f.werte) {
            const uint64_t e = imBereich(befehl, w, "P", 3, 0xFFFFFFFFu);
            if (!LucasExponentPrim(uint32_t(e))) throw CliFehler(befehl + " lucas: P = " + w + " is not prime");
            p.push_back(uint32_t(e));
        }
        for (uint32_t e : p) einheiten += ArbeitHinzufuegen(*v, *art, e, e, 1, 0);
        beschreibung = "Lucas-Lehmer tests";
        break;
    }
    case ArbeitArt::Collatz: {
        paar("starts");
        const uint64_t von = imBereich(befehl, f.werte[0], "FROM", 1, ~uint64_t(0));
        const uint64_t bis = imBereich(befehl, f.werte[1], "TO", 1, ~uint64_t(0));
        if (von > bis) throw CliFehler(befehl + ": FROM must not exceed TO");
        const uint64_t breite = f.breite.empty() ? 10000000 : imBereich(befehl, f.breite, "--unit", 1, ~uint64_t(0));
        einheiten = ArbeitHinzufuegen(*v, *art, von, bis, breite, 0);
        beschreibung = "Collatz counts of the starts " + std::to_string(von) + ".." + std::to_string(bis);
        break;
    }
    }
    std::printf("%lld units added (%s) to %s\n", static_cast<long long>(einheiten), beschreibung.c_str(),
                v->Adresse().c_str());
}

std::string dauerText(double s) {
    if (s < 0) return "unknown (no unit done in the last hour)";
    char b[64];
    if (s < 120) {
        std::snprintf(b, sizeof b, "%.0f s", s);
    } else if (s < 7200) {
        std::snprintf(b, sizeof b, "%.0f min", s / 60);
    } else {
        std::snprintf(b, sizeof b, "%.1f h", s / 3600);
    }
    return b;
}

void stand(const ArbeitFrage& f) {
    auto v = verbinden("work status", f.url);
    ArbeitSchemaAnlegen(*v);
    const ArbeitStand s = ArbeitStandLesen(*v);
    if (f.json) {
        std::string arten, worker, ansprueche;
        for (const auto& a : s.arten) {
            JsonObjekt j;
            j.Text("kind", a.name).Zahl("open", std::to_string(a.offen)).Zahl("claimed", std::to_string(a.beansprucht));
            j.Zahl("done", std::to_string(a.fertig));
            arten += (arten.empty() ? "" : ",") + j.Ende();
        }
        for (const auto& w : s.worker) {
            JsonObjekt j;
            j.Text("name", w.name).Zahl("units", std::to_string(w.einheiten)).Zahl("found", std::to_string(w.treffer));
            j.Zahl("claimed", std::to_string(w.beansprucht)).Kommazahl("seconds", w.sekunden);
            j.Kommazahl("units_per_hour", w.einheitenJeStunde).Text("last_done", w.zuletzt);
            worker += (worker.empty() ? "" : ",") + j.Ende();
        }
        for (const auto& a : s.ansprueche) {
            JsonObjekt j;
            j.Zahl("id", std::to_string(a.id)).Text("kind", a.art).Text("range", a.bereich).Text("worker", a.worker);
            j.Kommazahl("lease_left", a.leaseRest);
            ansprueche += (ansprueche.empty() ? "" : ",") + j.Ende();
        }
        JsonObjekt j;
        j.Text("database", v->Adresse()).Zahl("open", std::to_string(s.offen));
        j.Zahl("claimed", std::to_string(s.beansprucht)).Zahl("done", std::to_string(s.fertig));
        j.Zahl("found", std::to_string(s.treffer)).Kommazahl("units_per_hour", s.einheitenJeStunde);
        j.Kommazahl("seconds_left", s.restSekunden);
        j.Roh("kinds", "[" + arten + "]").Roh("workers", "[" + worker + "]").Roh("claims", "[" + ansprueche + "]");
        std::printf("%s\n", j.Ende().c_str());
        return;
    }
    std::printf("database: %s\n", v->Adresse().c_str());
    std::printf("units: %lld open, %lld claimed, %lld done; %lld found\n", static_cast<long long>(s.offen),
                static_cast<long long>(s.beansprucht), static_cast<long long>(s.fertig),
                static_cast<long long>(s.treffer));
    for (const auto& a : s.arten)
        std::printf("  %-9s %lld open, %lld claimed, %lld done\n", a.name.c_str(), static_cast<long long>(a.offen),
                    static_cast<long long>(a.beansprucht), static_cast<long long>(a.fertig));
    if (!s.worker.empty()) std::printf("workers:\n");
    for (const auto& w : s.worker)
        std::printf("  %-24s %lld units, %lld found, %.1f s computing, %.1f units/h, holds %lld, last done %s\n",
                    w.name.c_str(), static_cast<long long>(w.einheiten), static_cast<long long>(w.treffer),
                    w.sekunden, w.einheitenJeStunde, static_cast<long long>(w.beansprucht),
                    w.zuletzt.empty() ? "-" : w.zuletzt.c_str());
    for (const auto& a : s.ansprueche)
        std::printf("  claim: unit %lld %s %s by %s, %s\n", static_cast<long long>(a.id), a.art.c_str(),
                    a.bereich.c_str(), a.worker.c_str(),
                    a.leaseRest >= 0 ? ("lease " + dauerText(a.leaseRest) + " left").c_str()
                                     : "lease ran out (the unit will be claimed again)");
    std::printf("throughput: %.1f units/h; expected end in %s\n", s.einheitenJeStunde, dauerText(s.restSekunden).c_str());
}

// Each unit as one line on stdout, connection trouble on stderr.
class WorkerAusgabe : public ArbeitWorkerAnzeige {
public:
    explicit WorkerAusgabe(std::string name) : name_(std::move(name)) {}
    void Meldung(const std::string& text) override {
        std::printf("%s: %s\n", name_.c_str(), text.c_str());
        std::fflush(stdout);
    }
    void Stoerung(const std::string& text) override {
        std::fprintf(stderr, "sw-cli: worker %s: %s\n", name_.c_str(), text.c_str());
        std::fflush(stderr);
    }

private:
    std::string name_;
};

void worker(const ArbeitFrage& f) {
    ArbeitWorkerAuftrag a;
    if (!IstPgUrl(f.url)) throw CliFehler("worker: --db must be a postgresql:// address, not " + UrlOhnePasswort(f.url));
    a.url = f.url;
    a.name = f.name.empty() ? ArbeitWorkerName() : f.name;
    if (!f.art.empty()) {
        a.art = ArbeitArtLesen(f.art);
        if (!a.art) throw CliFehler("worker: --kind must be divisors, lucas or collatz, not " + f.art);
    }
    if (!(f.lease >= 0.1)) throw CliFehler("worker: --lease must be at least 0.1 seconds");
    if (f.stunden < 0) throw CliFehler("worker: --max-hours must not be negative");
    a.leaseSekunden = f.lease;
    a.hoechstensSekunden = f.stunden * 3600;
    WorkerAusgabe ausgabe(a.name);
    const ArbeitWorkerBefund b = ArbeitWorkerLauf(a, &ausgabe);
    std::printf("%s: finished: %lld units done, %lld lost, %lld found, %.2f s\n", a.name.c_str(),
                static_cast<long long>(b.einheiten), static_cast<long long>(b.verloren),
                static_cast<long long>(b.treffer), b.sekunden);
}

}  // namespace

void ArbeitBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    CLI::App* work = app.add_subcommand("work", "the shared work queue on a PostgreSQL server");
    work->require_subcommand(1);
    auto h = std::make_shared<ArbeitFrage>();
    CLI::App* add = work->add_subcommand("add", "cut a job into units: divisors FROM TO --kziel K, lucas P..., collatz FROM TO");
    add->add_option("KIND", h->art, "divisors, lucas or collatz")->required();
    add->add_option("VALUES", h->werte, "FROM TO (divisors, collatz) or the exponents (lucas)");
    add->add_option("--kziel", h->kZiel, "divisors: try every k up to this (q = 2kp+1)");
    add->add_option("--unit", h->breite, "numbers per unit (default 10000 exponents, 10000000 starts)");
    add->add_option("--db", h->url, "the server, postgresql://user@host/database")->required();
    add->callback([h, &auftrag]() { auftrag = [h]() { hinzufuegen(*h); }; });

    auto s = std::make_shared<ArbeitFrage>();
    CLI::App* status = work->add_subcommand("status", "units open, claimed and done, the workers, the expected end");
    status->add_option("--db", s->url, "the server, postgresql://user@host/database")->required();
    status->add_flag("--json", s->json, "print one JSON object");
    status->callback([s, &auftrag]() { auftrag = [s]() { stand(*s); }; });

    auto w = std::make_shared<ArbeitFrage>();
    CLI::App* wk = app.add_subcommand("worker", "claim and compute units of the shared queue until none is left");
    wk->add_option("--db", w->url, "the server, postgresql://user@host/database")->required();
    wk->add_option("--kind", w->art, "only units of this kind: divisors, lucas or collatz");
    wk->add_option("--max-hours", w->stunden, "claim no new unit after this many hours");
    wk->add_option("--name", w->name, "the worker's name in the queue (default host:pid)");
    wk->add_option("--lease", w->lease, "seconds a claim holds without renewal (default 60)");
    wk->callback([w, &auftrag]() { auftrag = [w]() { worker(*w); }; });
}

}  // namespace sw::cli
