// sw-cli analyse N [--json]: one number of any size at a glance: verdict, factors, tau, sigma,
// phi, mu, digits, bits, perfect power, the neighbouring primes and the Collatz steps.
// sw-cli series FORMULA FROM TO [--random] [--seed S] [--json]: a formula in n for n = FROM..TO,
// each member's verdict and least factor, the prime count against the Bateman-Horn expectation
// and, with --random, against the random raster.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/ReihenAnalyse.h"
#include "primality/ZahlAnalyse.h"
#include "sieve/Zufall.h"

namespace sw::cli {

namespace {

struct AnalyseFrage {
    std::string zahl;
    RasterWahl raster;
    bool json = false;
};

struct ReihenFrage {
    std::string formel, von, bis;
    bool zufall = false;
    uint64_t saat = 1;
    bool json = false;
};

const char* urteilText(ZahlUrteil u) {
    switch (u) {
        case ZahlUrteil::Eins: return "one";
        case ZahlUrteil::PrimBewiesen: return "prime";
        case ZahlUrteil::PrimWahrscheinlich: return "probable prime";
        case ZahlUrteil::Zusammengesetzt: return "composite";
        case ZahlUrteil::Offen: break;
    }
    return "unknown";
}

const char* gliedText(GliedArt a) {
    switch (a) {
        case GliedArt::Prim: return "prime";
        case GliedArt::PrimWahrscheinlich: return "probable prime";
        case GliedArt::Zusammengesetzt: return "composite";
        case GliedArt::KeinePrimzahl: break;
    }
    return "neither";
}

void analysieren(const AnalyseFrage& f) {
    const Mpz n = ArgumentLesen(f.zahl, "N");
    if (mpz_sgn(n.get()) == 0) throw CliFehler("analyse: 0 has no prime factorisation; N must be 1 or more");
    // The neighbours beyond the raster are found by sieving windows with its primes.
    RasterBereitstellen(f.raster, Decimal(1000000));
    const ZahlBefund b = ZahlAnalysieren(n, true);
    Terminal().FortschrittBeenden();
    const std::string vorher = b.vorher.gefunden ? ZahlText(b.vorher.zahl.get()) : "";
    const std::string nachher = ZahlText(b.nachher.zahl.get());
    if (f.json) {
        JsonObjekt j;
        j.Zahl("n", ZahlText(n.get())).Text("verdict", urteilText(b.urteil));
        j.Zahl("digits", std::to_string(b.stellen)).Zahl("bits", std::to_string(b.bits));
        j.Roh("factors", JsonFaktoren(b.zerlegung)).Wahr("complete", b.teilerBekannt);
        if (b.teilerBekannt) {
            j.Zahl("tau", ZahlText(b.tau.get())).Zahl("sigma", ZahlText(b.sigma.get()));
            j.Zahl("phi", ZahlText(b.phi.get())).Zahl("mu", std::to_string(b.mu));
        }
        j.Zahl("power_base", ZahlText(b.basis.get())).Zahl("power_exponent", std::to_string(b.exponent));
        if (b.vorher.gefunden) j.Zahl("previous_prime", vorher);
        j.Zahl("next_prime", nachher).Wahr("neighbours_proven", b.vorher.bewiesen && b.nachher.bewiesen);
        if (b.collatzFertig) j.Zahl("collatz_steps", std::to_string(b.collatzSchritte));
        std::printf("%s\n", j.Ende().c_str());
        std::fflush(stdout);
        return;
    }
    const std::string zerlegung = ZerlegungText(b.zerlegung);
    std::printf("n %s\nverdict %s\ndigits %lld\nbits %lld\nfactors %s\n", ZahlText(n.get()).c_str(),
                urteilText(b.urteil), (long long)b.stellen, (long long)b.bits, zerlegung.empty() ? "1" : zerlegung.c_str());
    if (b.teilerBekannt) {
        std::printf("tau %s\nsigma %s\nphi %s\nmu %d\n", ZahlText(b.tau.get()).c_str(), ZahlText(b.sigma.get()).c_str(),
                    ZahlText(b.phi.get()).c_str(), b.mu);
    }
    if (b.exponent > 1) {
        std::printf("perfect power %s^%u\n", ZahlText(b.basis.get()).c_str(), b.exponent);
    } else {
        std::printf("perfect power no\n");
    }
    std::printf("previous prime %s\nnext prime %s\n", b.vorher.gefunden ? vorher.c_str() : "none", nachher.c_str());
    if (b.collatzFertig) std::printf("collatz steps %d\n", b.collatzSchritte);
    std::fflush(stdout);
}

int64_t bereichsGrenze(const std::string& text, const std::string& was) {
    const Mpz z = ArgumentLesen(text, was);
    if (!mpz_fits_slong_p(z.get())) throw CliFehler("series: " + was + " is too large: '" + text + "'");
    return mpz_get_si(z.get());
}

void reihe(const ReihenFrage& f) {
    const int64_t von = bereichsGrenze(f.von, "FROM"), bis = bereichsGrenze(f.bis, "TO");
    if (bis < von) throw CliFehler("series: FROM lies above TO");
    if (f.zufall) ZufallSaat(f.saat);
    const ReihenErgebnis e = ReiheAnalysieren(f.formel, von, bis, f.zufall, [](double) {
        DoEvents();
        return !Abbruch;
    });
    Terminal().FortschrittBeenden();
    AusgabePuffer aus;
    JsonObjekt kopf;
    kopf.Text("formula", f.formel).Zahl("from", std::to_string(von)).Zahl("to", std::to_string(bis));
    kopf.Zahl("members", std::to_string(e.glieder.size())).Zahl("primes", std::to_string(e.primzahlen));
    kopf.Wahr("polynomial", e.polynom);
    if (e.polynom) kopf.Zahl("degree", std::to_string(e.grad)).Kommazahl("constant", e.konstante).Kommazahl("expected", e.erwartung);
    if (e.mitZufall) kopf.Zahl("random", std::to_string(e.zufallsTreffer));
    kopf.Wahr("stopped", e.abgebrochen);
    if (f.json) {
        std::string liste;
        for (const ReihenGlied& g : e.glieder) {
            JsonObjekt j;
            j.Zahl("n", std::to_string(g.n)).Zahl("value", ZahlText(g.wert.get())).Text("verdict", gliedText(g.art));
            if (g.kleinsterTeiler) j.Zahl("least_factor", std::to_string(g.kleinsterTeiler));
            liste += (liste.empty() ? "" : ",") + j.Ende();
        }
        kopf.Roh("list", "[" + liste + "]");
        aus.text(kopf.Ende() + "\n");
    } else {
        for (const ReihenGlied& g : e.glieder) {
            aus.text(std::to_string(g.n) + " " + ZahlText(g.wert.get()) + " " + gliedText(g.art) + " " +
                     (g.kleinsterTeiler ? std::to_string(g.kleinsterTeiler) : "-") + "\n");
        }
        char zeile[256];
        std::snprintf(zeile, sizeof zeile, "primes %lld of %zu", (long long)e.primzahlen, e.glieder.size());
        aus.text(zeile);
        if (e.polynom) {
            std::snprintf(zeile, sizeof zeile, ", expected %.1f (Bateman-Horn, degree %d, C %.6f)", e.erwartung, e.grad,
                          e.konstante);
            aus.text(zeile);
        } else {
            aus.text(", no expectation (the formula is no polynomial in n)");
        }
        if (e.mitZufall) aus.text(", random raster " + std::to_string(e.zufallsTreffer));
        aus.text("\n");
    }
    aus.leeren();
    if (e.abgebrochen) throw Abgebrochen{};
}

}  // namespace

void AnalyseBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto a = std::make_shared<AnalyseFrage>();
    CLI::App* sub = app.add_subcommand("analyse", "one number at a glance: verdict, factors, tau, sigma, phi, mu, neighbours");
    sub->add_option("N", a->zahl, "a number or a formula such as 2^64+1")->required();
    sub->add_option("--limit", a->raster.limit, "sieve the raster up to this limit (default 10^6)");
    sub->add_option("--block", a->raster.block, "load the raster from this block file");
    sub->add_flag("--json", a->json, "print one JSON object");
    sub->callback([a, &auftrag]() { auftrag = [a]() { analysieren(*a); }; });

    auto r = std::make_shared<ReihenFrage>();
    CLI::App* reihen = app.add_subcommand("series", "a formula in n over n = FROM..TO: verdicts, least factors, Bateman-Horn");
    reihen->add_option("FORMULA", r->formel, "a formula in n, such as n^2+1")->required();
    reihen->add_option("FROM", r->von, "the first n (0 or more)")->required();
    reihen->add_option("TO", r->bis, "the last n")->required();
    reihen->add_flag("--random", r->zufall, "count the members the random raster would take");
    reihen->add_option("--seed", r->saat, "seed of the random raster (default 1)");
    reihen->add_flag("--json", r->json, "print one JSON object with the list");
    reihen->callback([r, &auftrag]() { auftrag = [r]() { reihe(*r); }; });
}

}  // namespace sw::cli
