// sw-cli count FROM TO | primes FROM TO | next N | prev N | isprime N
// Each question builds (or loads) the raster it needs: by default the smallest one that
// answers it exactly; with --limit or --block the user's, and a question beyond that raster
// is refused rather than answered wrongly.
#include <cstdio>
#include <cstring>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSiebwerk.h"

namespace sw::cli {

namespace {

struct Frage {
    std::vector<std::string> zahlen;
    RasterWahl raster;
    bool json = false;
};

Decimal hoechstens(const Decimal& a, const Decimal& b) { return a < b ? b : a; }
const Decimal tausend = Decimal(1000);

// The limit of the default raster for a question about n answered by trial division up to
// its square root; refused when even that raster would be larger than any raster can be.
Decimal wurzelGrenze(const Decimal& n, const std::string& frage) {
    const Decimal w = GanzeWurzel(n) + Decimal(1);
    if (w > GroessteGrenze()) {
        throw CliFehler(frage + ": " + n.Text() + " is too large; its square root lies beyond the largest raster (" +
                        GroessteGrenze().Text() + ")");
    }
    return hoechstens(w, tausend);
}

Decimal bisGrenze(const Decimal& n, const std::string& frage) {
    if (n > GroessteGrenze()) {
        throw CliFehler(frage + ": " + n.Text() + " lies beyond the largest raster (" + GroessteGrenze().Text() + ")");
    }
    return hoechstens(n, tausend);
}

// Prime or not by the raster, or above the limit by trial division up to the square root.
bool primFrage(const Decimal& n) {
    if (n <= PrimaerGrenze) return IstPrim(n);
    if (n > PrimaerQuadrat) {
        throw CliFehler("isprime: " + n.Text() + " lies beyond the square of the raster's limit " +
                        PrimaerGrenze.Text());
    }
    return FaktorenText(n) == n.Text();
}

// The raster for a question about numbers up to n: the given one or one up to n.
void rasterBis(const Frage& f, const Decimal& n, const std::string& frage) {
    RasterBereitstellen(f.raster, bisGrenze(n, frage));
    ImRasterPruefen(n, frage);
}

void ausgeben(const Frage& f, JsonObjekt& j, const std::string& text) {
    Terminal().FortschrittBeenden();
    if (f.json) {
        j.Zahl("limit", PrimaerGrenze);
        std::printf("%s\n", j.Ende().c_str());
    } else {
        std::printf("%s\n", text.c_str());
    }
}

void zaehlen(const Frage& f) {
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "count");
    if (SekundaerWeg(bis, f.raster)) return SekundaerZaehlenAusgeben(von, bis, f.json);
    rasterBis(f, bis, "count");
    const Decimal anzahl = PrimAnzahl(von, bis);
    JsonObjekt j;
    j.Zahl("from", von).Zahl("to", bis).Zahl("count", anzahl);
    ausgeben(f, j, anzahl.Text());
}

void auflisten(const Frage& f) {
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "primes");
    if (SekundaerWeg(bis, f.raster)) return SekundaerAuflisten(von, bis, f.json);
    rasterBis(f, bis, "primes");
    AusgabePuffer aus;
    uint64_t anzahl = 0;
    if (f.json) {
        aus.text(("{\"from\":" + von.Text() + ",\"to\":" + bis.Text() + ",\"limit\":" + PrimaerGrenze.Text() +
                  ",\"primes\":[").c_str());
    }
    PrimzahlenDurchlaufen(uint64_t(von.AlsInt64()), uint64_t(bis.AlsInt64()), [&](uint64_t p) {
        if (f.json && anzahl) aus.text(",");
        aus.zahl(p);
        if (!f.json) aus.text("\n");
        // Ctrl-C is looked at now and then; what was listed stays listed.
        if ((++anzahl & 0xFFFF) == 0) {
            aus.leeren();
            DoEvents();
        }
        return true;
    });
    if (f.json) {
        aus.text("],\"count\":");
        aus.zahl(anzahl);
        aus.text("}\n");
    }
}

void naechste(const Frage& f) {
    const Decimal n = ZahlLesen(f.zahlen[0], "N");
    Decimal grenze = bisGrenze(n + tausend, "next");
    Decimal p;
    for (;;) {
        RasterBereitstellen(f.raster, grenze);
        p = NaechstePrim(n);
        if (!p.IstNull()) break;
        if (RasterGewaehlt(f.raster)) {
            throw CliFehler("next: there is no prime above " + n.Text() + " up to the raster's limit " +
                            PrimaerGrenze.Text());
        }
        // A gap longer than the first guess: the default raster grows until it holds one.
        grenze = bisGrenze(n + (grenze - n) * Decimal(2), "next");
    }
    JsonObjekt j;
    j.Zahl("n", n).Zahl("next", p);
    ausgeben(f, j, p.Text());
}

void vorherige(const Frage& f) {
    const Decimal n = ZahlLesen(f.zahlen[0], "N");
    rasterBis(f, n, "prev");
    const Decimal p = VorherigePrim(n);
    JsonObjekt j;
    j.Zahl("n", n);
    if (p.IstNull()) {
        j.Roh("prev", "null");
    } else {
        j.Zahl("prev", p);
    }
    ausgeben(f, j, p.IstNull() ? "none" : p.Text());
}

void primTest(const Frage& f) {
    const Decimal n = ZahlLesen(f.zahlen[0], "N");
    RasterBereitstellen(f.raster, wurzelGrenze(n, "isprime"));
    const bool prim = primFrage(n);
    JsonObjekt j;
    j.Zahl("n", n).Wahr("prime", prim);
    ausgeben(f, j, prim ? "prime" : "composite");
}

void anmelden(CLI::App& app, std::function<void()>& auftrag, const char* name, const char* hilfe, std::vector<const char*> zahlen,
              void (*ausfuehren)(const Frage&)) {
    auto f = std::make_shared<Frage>();
    f->zahlen.resize(zahlen.size());
    CLI::App* sub = app.add_subcommand(name, hilfe);
    for (size_t i = 0; i < zahlen.size(); ++i) sub->add_option(zahlen[i], f->zahlen[i], "a whole number")->required();
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, ausfuehren, &auftrag]() { auftrag = [f, ausfuehren]() { ausfuehren(*f); }; });
}

}  // namespace

void AbfrageBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    anmelden(app, auftrag, "count", "count the primes from FROM to TO", {"FROM", "TO"}, zaehlen);
    anmelden(app, auftrag, "primes", "list the primes from FROM to TO, one a line", {"FROM", "TO"}, auflisten);
    anmelden(app, auftrag, "next", "the smallest prime greater than N", {"N"}, naechste);
    anmelden(app, auftrag, "prev", "the greatest prime smaller than N", {"N"}, vorherige);
    anmelden(app, auftrag, "isprime", "whether N is prime", {"N"}, primTest);
}

}  // namespace sw::cli
