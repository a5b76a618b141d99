// sw-cli hash --bits B --method 0|1|2 [--limit N | --block FILE] [--csv FILE] [--json]
// Every prime up to the smaller of the raster's limit (default 2,000,000,000) and 2*10^9 hashed
// to B bits by a bit fold (0 add, 1 add with the class mod 30, 2 xor): the count of each bucket,
// the fullest, and a chi-square against the uniform spread with its p-value.
#include <ctime>
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "distribution/Hash.h"
#include "frame/DateiErsetzen.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"

namespace sw::cli {

namespace {

struct HashFrage {
    int32_t bits = 16, methode = 0;
    std::string csv;
    RasterWahl raster;
    bool json = false;
};

void hash(const HashFrage& f) {
    HashPruefen(f.bits, f.methode);  // before a raster is sieved for a table that cannot be made
    RasterBereitstellen(f.raster, Decimal(int64_t(HashHoechstGrenze)));
    // CPU seconds of the walk alone: the machine may be shared, and the sieve before it is not
    // what the figure is about.
    const std::clock_t start = std::clock();
    const HashErgebnis e = HashVerteilung(f.bits, f.methode, HashHoechstGrenze, [](double) {
        DoEvents();
        return true;
    });
    const double sekunden = double(std::clock() - start) / CLOCKS_PER_SEC;
    const ChiQuadrat chi = HashChiQuadrat(e);
    if (!f.csv.empty() && !DateiErsetzen(f.csv, HashCsv(e))) throw CliFehler("hash: cannot write " + f.csv);
    Terminal().FortschrittBeenden();
    size_t voll = 0;
    while (e.HashTabelle[voll] != e.HashMaximum) ++voll;
    AusgabePuffer aus;
    if (f.json) {
        JsonObjekt j;
        j.Zahl("bits", std::to_string(f.bits)).Zahl("method", std::to_string(f.methode));
        j.Zahl("to", std::to_string(e.bis)).Zahl("primes", std::to_string(e.anzahl));
        j.Zahl("max", std::to_string(e.HashMaximum)).Zahl("fullest", std::to_string(voll));
        char p[32];
        std::snprintf(p, sizeof p, "%.6g", chi.p);  // small p-values need their exponent
        j.Kommazahl("chi2", chi.wert).Zahl("dof", std::to_string(chi.freiheitsgrade)).Zahl("p", p);
        j.Kommazahl("cpu_seconds", sekunden);
        std::string eimer = "[";
        for (size_t i = 0; i < e.HashTabelle.size(); ++i) eimer += (i ? "," : "") + std::to_string(e.HashTabelle[i]);
        j.Roh("buckets", eimer + "]");
        aus.text(j.Ende() + "\n");
        return;
    }
    char zeile[200];
    std::snprintf(zeile, sizeof zeile, "primes to %llu: %llu in %zu buckets, fullest %zu (%d), chi2 %.3f (%lld dof), p %.6g\n",
                  (unsigned long long)e.bis, (unsigned long long)e.anzahl, e.HashTabelle.size() - 1, voll, e.HashMaximum,
                  chi.wert, (long long)chi.freiheitsgrade, chi.p);
    aus.text(zeile);
    for (size_t i = 0; i < e.HashTabelle.size(); ++i) {
        aus.zahl(i);
        aus.text(" ");
        aus.zahl(uint64_t(e.HashTabelle[i]));
        aus.text("\n");
    }
}

}  // namespace

void HashBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<HashFrage>();
    CLI::App* sub = app.add_subcommand("hash", "the primes spread over the buckets of a bit-folding hash");
    sub->add_option("--bits", f->bits, "bits of the hash, 1..26 (3..26 for method 1)")->required();
    sub->add_option("--method", f->methode, "0 add fold, 1 add fold with mod 30, 2 xor fold")->required();
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit (default 2e9)");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_option("--csv", f->csv, "write bucket;count to this file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() { auftrag = [f]() { hash(*f); }; });
}

}  // namespace sw::cli
