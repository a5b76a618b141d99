// sw-cli gaps-from START [--count N] [--min G] [--exact G]: the gaps between consecutive primes
// from START on (START a formula of any size), each with its merit g / ln p, record gaps
// marked; with --min or --exact only the gaps of that size, the first N of them.
#include <cmath>
#include <cstdio>
#include <memory>

#include "Argumente.h"
#include "Befehle.h"
#include "CliUmgebung.h"
#include "distribution/LueckenAb.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"

namespace sw::cli {

namespace {

struct Lueckenfrage {
    std::string start;
    LueckenFrage frage;
    RasterWahl raster;
    bool json = false;
};

// The raster whose primes sieve the windows: up to the root of the place where the walk
// starts (a little above it), but not beyond 10^8; above that BPSW decides the survivors.
Decimal rasterFuer(const Mpz& start) {
    Mpz w;
    mpz_add_ui(w, start, uint64_t(1) << 32);
    mpz_sqrt(w, w);
    if (mpz_cmp_ui(w.get(), 100000000) > 0) return Decimal(100000000);
    return Decimal(int64_t(std::max<uint64_t>(mpz_get_ui(w.get()), 1000)));
}

void lueckenAb(const Lueckenfrage& f) {
    const Mpz start = ArgumentLesen(f.start, "START");
    if (f.frage.anzahl < 1) throw CliFehler("gaps-from: " + Text(2263));
    for (uint64_t g : {f.frage.mindestens, f.frage.genau}) {
        if (g > LueckeMax) throw CliFehler("gaps-from: " + TextP1(2262, (long long)LueckeMax));
    }
    RasterBereitstellen(f.raster, rasterFuer(start));
    AusgabePuffer aus;
    if (f.json) aus.text("{\"start\":" + ZahlText(start) + ",\"gaps\":[");
    bool erste = true;
    char zeile[120];
    LueckenAb(
        start, f.frage,
        [&](const LueckenZeile& z) {
            Terminal().FortschrittBeenden();
            if (f.json) {
                std::snprintf(zeile, sizeof zeile, ",\"gap\":%llu,\"merit\":%.6f,\"record\":%s,\"proven\":%s,\"number\":%llu}",
                              (unsigned long long)z.luecke, z.merit, z.rekord ? "true" : "false",
                              z.bewiesen ? "true" : "false", (unsigned long long)z.nummer);
                aus.text(std::string(erste ? "" : ",") + "{\"p\":" + ZahlText(z.p) + zeile);
            } else {
                std::snprintf(zeile, sizeof zeile, " %llu %.4f%s%s\n", (unsigned long long)z.luecke, z.merit,
                              z.rekord ? " record" : "", z.bewiesen ? "" : " (probable)");
                aus.text(ZahlText(z.p) + zeile);
            }
            erste = false;
            return true;
        },
        [](const Mpz&) {
            DoEvents();  // Ctrl-C ends the job here
            return true;
        });
    if (f.json) aus.text("]}\n");
}

}  // namespace

void LueckenAbBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<Lueckenfrage>();
    CLI::App* sub = app.add_subcommand("gaps-from", "the gaps between consecutive primes from START on");
    sub->add_option("START", f->start, "a whole number or formula of any size")->required();
    CLI::Option* anzahl = sub->add_option("--count", f->frage.anzahl, "gaps to list (default 10)");
    sub->add_option("--min", f->frage.mindestens, "only gaps of at least G");
    sub->add_option("--exact", f->frage.genau, "only gaps of exactly G");
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, anzahl, &auftrag]() {
        // A search for a gap size gives its first hit unless --count asks for more.
        if ((f->frage.mindestens || f->frage.genau) && anzahl->count() == 0) f->frage.anzahl = 1;
        auftrag = [f]() { lueckenAb(*f); };
    });
}

}  // namespace sw::cli
