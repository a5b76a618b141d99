// sw-cli residues FROM TO --mod M [--race A,B]: the primes of a range per residue class modulo
// M, their shares against 1/phi(M) and the chi-square statistic; with --race the lead of class
// A over class B at the end and every change of the leader.
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "distribution/Restklassen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"

namespace sw::cli {

namespace {

struct Restauftrag {
    std::vector<std::string> zahlen{2};
    uint64_t modul = 0;
    std::vector<uint64_t> rennen;
    RasterWahl raster;
    bool json = false;
};

bool melden(void*, double) {
    DoEvents();  // Ctrl-C ends the job here
    return true;
}

std::string zahl(Zahl128 v) { return Decimal(v).Text(); }

void restklassen(const Restauftrag& f) {
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "residues");
    if (!f.rennen.empty() && f.rennen.size() != 2) throw CliFehler("residues: --race takes two classes A,B");
    std::unique_ptr<RestklassenZaehlung> z;
    try {
        z = std::make_unique<RestklassenZaehlung>(f.modul, von.Betrag(), bis.Betrag(), f.rennen.empty() ? 0 : f.rennen[0],
                                                  f.rennen.empty() ? 0 : f.rennen[1], 1);
    } catch (const Laufzeitfehler& e) {
        throw CliFehler("residues: " + e.Beschreibung());
    }
    BereichSieben(
        von, bis, f.raster, "residues", [&](Zahl128 x, Zahl128 y) { RestklassenPrimaer(*z, x, y, melden, nullptr); },
        [&](Zahl128 x, Zahl128 y) { RestklassenSekundaer(*z, x, y, melden, nullptr); });
    Terminal().FortschrittBeenden();

    const double gesamt = double(z->ImGanzen());
    const double anteil = 1.0 / double(z->Klassen().size());
    AusgabePuffer aus;
    char zeile[200];
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", von).Zahl("to", bis).Zahl("mod", std::to_string(f.modul));
        j.Zahl("primes", std::to_string(z->ImGanzen())).Zahl("outside", std::to_string(z->Ausserhalb()));
        std::string klassen = "[";
        for (uint64_t r : z->Klassen()) {
            JsonObjekt k;
            k.Zahl("class", std::to_string(r)).Zahl("count", std::to_string(z->Anzahl(r)));
            k.Kommazahl("share", gesamt > 0 ? double(z->Anzahl(r)) / gesamt : 0);
            klassen += (klassen.size() > 1 ? "," : "") + k.Ende();
        }
        j.Roh("classes", klassen + "]").Kommazahl("expected_share", anteil).Kommazahl("chi_square", z->ChiQuadrat());
        j.Zahl("degrees_of_freedom", std::to_string(z->Klassen().size() - 1));
        if (!f.rennen.empty()) {
            std::string wechsel = "[";
            for (const Fuehrungswechsel& w : z->Wechsel()) {
                wechsel += (wechsel.size() > 1 ? ",{\"at\":" : "{\"at\":") + zahl(w.p) + ",\"leader\":" +
                           std::to_string(w.fuehrung > 0 ? f.rennen[0] : f.rennen[1]) + "}";
            }
            JsonObjekt r;
            r.Zahl("a", std::to_string(f.rennen[0])).Zahl("b", std::to_string(f.rennen[1]));
            r.Zahl("lead", std::to_string(z->Fuehrung())).Roh("lead_changes", wechsel + "]");
            j.Roh("race", r.Ende());
        }
        aus.text(j.Ende() + "\n");
        return;
    }
    std::snprintf(zeile, sizeof zeile, "class count share (expected %.6f)\n", anteil);
    aus.text(zeile);
    for (uint64_t r : z->Klassen()) {
        std::snprintf(zeile, sizeof zeile, "%llu %llu %.6f\n", (unsigned long long)r, (unsigned long long)z->Anzahl(r),
                      gesamt > 0 ? double(z->Anzahl(r)) / gesamt : 0);
        aus.text(zeile);
    }
    std::snprintf(zeile, sizeof zeile, "%llu primes in the classes, %llu outside; chi-square %.4f, %zu degrees of freedom\n",
                  (unsigned long long)z->ImGanzen(), (unsigned long long)z->Ausserhalb(), z->ChiQuadrat(),
                  z->Klassen().size() - 1);
    aus.text(zeile);
    if (f.rennen.empty()) return;
    std::snprintf(zeile, sizeof zeile, "race %llu - %llu: lead %lld at the end, %zu lead changes\n",
                  (unsigned long long)f.rennen[0], (unsigned long long)f.rennen[1], (long long)z->Fuehrung(),
                  z->Wechsel().size());
    aus.text(zeile);
    for (const Fuehrungswechsel& w : z->Wechsel()) {
        aus.text(zahl(w.p) + " " + std::to_string(w.fuehrung > 0 ? f.rennen[0] : f.rennen[1]) + "\n");
    }
}

}  // namespace

void RestklassenBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<Restauftrag>();
    CLI::App* sub = app.add_subcommand("residues", "count the primes of FROM..TO per residue class modulo M");
    sub->add_option("FROM", f->zahlen[0], "a whole number")->required();
    sub->add_option("TO", f->zahlen[1], "a whole number")->required();
    sub->add_option("--mod", f->modul, "the modulus M (2 to 1,000,000)")->required();
    sub->add_option("--race", f->rennen, "A,B: the race of class A against class B, with its lead changes")
        ->delimiter(',');
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() { auftrag = [f]() { restklassen(*f); }; });
}

}  // namespace sw::cli
