// sw-cli goldbach N [--count] [--limit L | --block FILE] [--json]
// sw-cli goldbach --comet FROM TO --csv FILE [--limit L | --block FILE] [--json]
// The splits of an even N into two primes as the Goldbach window lists them; with --count the
// number r(N) of all splits p <= q and its Hardy-Littlewood estimate; with --comet r(n) for
// every even n of a range, as a CSV file. Without --limit/--block the raster reaches N (TO).
#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/DateiErsetzen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/Goldbach.h"

namespace sw::cli {

namespace {

struct GoldbachFrage {
    std::string n;
    std::vector<std::string> komet;
    std::string csv;
    RasterWahl raster;
    bool anzahl = false, json = false;
};

// The raster a number needs: its own limit unless the user chose one (at least 1000, the
// smallest a run takes). A number that is refused gets the smallest, and then its message.
void rasterFuer(const RasterWahl& wahl, int64_t bis) {
    RasterBereitstellen(wahl, Decimal(std::max<int64_t>(bis, 1000)));
}

// N as every number argument (a formula, 10^9, 2e9); what is no whole number, or lies beyond
// 2^63, is -1, so that it meets the same refusal as an odd or too large N.
int64_t zahlLesen(const std::string& text) {
    try {
        const Decimal n = ZahlLesen(text, "N");
        return n > Decimal(std::numeric_limits<int64_t>::max()) ? -1 : n.AlsInt64();
    } catch (const CliFehler&) {
        return -1;
    }
}

int64_t zahlPruefen(int64_t n) {
    if (!GoldbachPruefen(n)) throw CliFehler(Terminal().LetzteMeldung());
    return n;
}

std::string jsonListe(std::vector<std::string>::const_iterator von, std::vector<std::string>::const_iterator bis) {
    std::string s = "[";
    for (auto i = von; i != bis; ++i) s += (i == von ? "" : ",") + JsonObjekt::Zeichenkette(*i);
    return s + "]";
}

void zerlegen(const GoldbachFrage& f) {
    const int64_t gelesen = zahlLesen(f.n);
    // Without --limit the raster grows to N, so the window's message with its raster limit
    // would name a bound that does not hold here.
    if ((gelesen < 4 || gelesen % 2 != 0) && !RasterGewaehlt(f.raster))
        throw CliFehler("goldbach: N must be an even whole number of at least 4, not " + f.n);
    rasterFuer(f.raster, gelesen >= 4 && gelesen % 2 == 0 ? gelesen : 0);
    const int64_t n = zahlPruefen(gelesen);
    AusgabePuffer aus;
    if (f.anzahl) {
        const std::clock_t start = std::clock();
        const uint64_t r = GoldbachAnzahl(uint64_t(n));
        const double sekunden = double(std::clock() - start) / CLOCKS_PER_SEC;
        const double schaetzung = GoldbachSchaetzung(uint64_t(n));
        if (f.json) {
            JsonObjekt j;
            j.Zahl("n", std::to_string(n)).Zahl("count", std::to_string(r)).Kommazahl("estimate", schaetzung);
            aus.text(j.Kommazahl("cpu_seconds", sekunden).Ende() + "\n");
            return;
        }
        char zeile[160];
        std::snprintf(zeile, sizeof zeile, "r(%lld) = %llu, Hardy-Littlewood %.1f (%+.3f %%)\n", (long long)n,
                      (unsigned long long)r, schaetzung, r ? 100 * (schaetzung / double(r) - 1) : 0.0);
        aus.text(zeile);
        return;
    }
    const std::vector<std::string> l = GoldbachZerlegen(n);
    if (f.json) {
        // The window's list without its head lines: the splits of the exponents, then all.
        const auto leer = std::find(l.begin(), l.end(), "");
        const bool gekappt = l.back() == Text(492);
        JsonObjekt j;
        j.Zahl("n", std::to_string(n)).Roh("mersenne", jsonListe(l.begin() + 1, leer));
        j.Roh("splits", jsonListe(leer + 3, gekappt ? l.end() - 1 : l.end())).Wahr("cut", gekappt);
        aus.text(j.Ende() + "\n");
        return;
    }
    for (const std::string& z : l) aus.text(z + "\n");
}

void komet(const GoldbachFrage& f) {
    const Bereich b = BereichLesen(f.komet[0], f.komet[1], "goldbach --comet");
    rasterFuer(f.raster, b.bis.AlsInt64());
    if (!GoldbachKometPruefen(b.von.AlsInt64(), b.bis.AlsInt64())) throw CliFehler(Terminal().LetzteMeldung());
    const GoldbachKomet k = GoldbachKometZaehlen(uint64_t(b.von.AlsInt64()), uint64_t(b.bis.AlsInt64()), [](double) {
        DoEvents();
        return !Abbruch;
    });
    if (!DateiErsetzen(f.csv, GoldbachKometCsv(k))) throw CliFehler("goldbach: cannot write " + f.csv);
    Terminal().FortschrittBeenden();
    uint64_t hoechstes = 0;
    for (uint64_t r : k.anzahl) hoechstes = std::max(hoechstes, r);
    AusgabePuffer aus;
    if (f.json) {
        JsonObjekt j;
        j.Zahl("from", std::to_string(k.von)).Zahl("numbers", std::to_string(k.anzahl.size()));
        j.Zahl("max", std::to_string(hoechstes)).Wahr("complete", k.vollstaendig);
        aus.text(j.Ende() + "\n");
        return;
    }
    aus.text("r(n) of " + std::to_string(k.anzahl.size()) + " even n from " + std::to_string(k.von) + ", largest " +
             std::to_string(hoechstes) + (k.vollstaendig ? "" : " (stopped)") + ", written to " + f.csv + "\n");
}

}  // namespace

void GoldbachBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<GoldbachFrage>();
    CLI::App* sub = app.add_subcommand("goldbach", "the splits of an even number into two primes, and their count");
    sub->add_option("N", f->n, "the even number");
    sub->add_flag("--count", f->anzahl, "r(N), the number of splits p <= q, and its Hardy-Littlewood estimate");
    sub->add_option("--comet", f->komet, "r(n) for every even n from FROM to TO")->expected(2);
    sub->add_option("--csv", f->csv, "the file of --comet (n;r(n))");
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit (default N or TO)");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() {
        auftrag = [f]() {
            if (f->komet.empty() == f->n.empty()) throw CliFehler("goldbach: give N or --comet FROM TO");
            if (!f->komet.empty() && f->csv.empty()) throw CliFehler("goldbach: --comet needs --csv FILE");
            f->komet.empty() ? zerlegen(*f) : komet(*f);
        };
    });
}

}  // namespace sw::cli
