// sw-cli sieve LIMIT [--method 0..7] [--threads N] [--save FILE] [--json]
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/Blockdateien.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/SiebSegmentiert.h"
#include "sieve/basSiebwerk.h"

namespace sw::cli {

namespace {

struct SiebOptionen {
    std::string limit;
    int methode = MethodeProdukt;
    std::string speichern;
    int faeden = 0;
    bool json = false;
};

void sieben(const SiebOptionen& o) {
    const Decimal grenze = ZahlLesen(o.limit, "LIMIT");
    SiebFaeden = o.faeden;
    const double start = Timer();
    if (!PrimaerLauf(grenze, o.methode)) {
        const std::string m = Terminal().LetzteMeldung();
        throw CliFehler(m.empty() ? "the raster cannot be built" : m);
    }
    const double gesiebt = Timer();
    const Decimal anzahl = PrimAnzahl(Decimal(2), PrimaerGrenze);
    const double gezaehlt = Timer();
    if (!o.speichern.empty() && !RasterSpeichern(o.speichern, PrimaerRaster)) {
        throw CliFehler(Terminal().LetzteMeldung());
    }
    Terminal().FortschrittBeenden();
    if (o.json) {
        JsonObjekt j;
        j.Zahl("limit", PrimaerGrenze)
            .Zahl("primes", anzahl)
            .Zahl("square", PrimaerQuadrat)
            .Zahl("method", std::to_string(o.methode))
            .Text("method_name", MethodenName(o.methode))
            .Kommazahl("seconds", gesiebt - start)
            .Kommazahl("count_seconds", gezaehlt - gesiebt);
        if (!o.speichern.empty()) j.Text("saved", o.speichern);
        std::printf("%s\n", j.Ende().c_str());
    } else {
        std::printf("limit:   %s\n", PrimaerGrenze.Text().c_str());
        std::printf("primes:  %s\n", anzahl.Text().c_str());
        std::printf("square:  %s\n", PrimaerQuadrat.Text().c_str());
        std::printf("method:  %d %s\n", o.methode, MethodenName(o.methode));
        std::printf("seconds: %.3f (count %.3f)\n", gesiebt - start, gezaehlt - gesiebt);
        if (!o.speichern.empty()) std::printf("saved:   %s\n", o.speichern.c_str());
    }
}

}  // namespace

void SiebBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto o = std::make_shared<SiebOptionen>();
    CLI::App* sub = app.add_subcommand("sieve", "build the primary raster up to LIMIT and count its primes");
    sub->add_option("LIMIT", o->limit, "upper limit, e.g. 2e9, 2000000000 or 2.000.000.000")->required();
    sub->add_option("--method,-m", o->methode,
                    "0 SiebProdukt, 1 SiebQuadratSchritt, 2 SiebWortSchritt, 3 BereichBeschaffen, "
                    "4 SiebQuadratDifferenz, 5 SiebRestklassen, 6 SiebSechserSchritt, 7 SiebSegmentiert")
        ->check(CLI::Range(0, MethodenAnzahl - 1));
    sub->add_option("--threads,-t", o->faeden, "worker threads of method 7 (default: one per core)")
        ->check(CLI::Range(1, 256));
    sub->add_option("--save", o->speichern, "write the raster as a block file");
    sub->add_flag("--json", o->json, "print one JSON object");
    sub->callback([o, &auftrag]() { auftrag = [o]() { sieben(*o); }; });
}

}  // namespace sw::cli
