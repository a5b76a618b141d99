// sw-cli count FROM TO | primes FROM TO | next N | prev N | isprime N
// Each question builds (or loads) the raster it needs: by default the smallest one that
// answers it exactly; with --limit or --block the user's, and a count or list beyond that
// raster is refused rather than answered wrongly. next, prev and isprime answer beyond any
// raster through the secondary sieve and BPSW, and say when a verdict is only probable.
#include <cstdio>
#include <cstring>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "MpiVerteilung.h"
#include "primality/PrimSuche.h"
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
    bool tupel = false;  // count --tuples
};

Decimal hoechstens(const Decimal& a, const Decimal& b) { return a < b ? b : a; }
const Decimal tausend = Decimal(1000);

Decimal bisGrenze(const Decimal& n, const std::string& frage) {
    if (n > GroessteGrenze()) {
        throw CliFehler(frage + ": " + n.Text() + " lies beyond the largest raster (" + GroessteGrenze().Text() + ")");
    }
    return hoechstens(n, tausend);
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
    if (f.tupel) return TupelZaehlenAusgeben(f.zahlen[0], f.zahlen[1], f.raster, f.json);
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "count");
    if (SekundaerWeg(bis, f.raster)) return SekundaerZaehlenAusgeben(von, bis, f.json);
    // A range within the raster is answered by process 0 alone: every process would have to
    // sieve the whole raster first.
    if (NebenRang()) return;
    rasterBis(f, bis, "count");
    const Decimal anzahl = PrimAnzahl(von, bis);
    JsonObjekt j;
    j.Zahl("from", von).Zahl("to", bis).Zahl("count", anzahl);
    ausgeben(f, j, anzahl.Text());
}

void auflisten(const Frage& f) {
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "primes");
    if (SekundaerWeg(bis, f.raster)) return SekundaerAuflisten(von, bis, f.json);
    if (NebenRang()) return;
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

// Without a raster of the user's, next, prev and isprime sieve one that holds N (and a gap
// behind it) while that is instant; above, one of AbfrageRaster whose primes sieve the windows
// next to N. A larger one would prove nothing more: below 2^64 BPSW proves, and above it no
// raster that can be built in a second reaches the square root.
const Decimal AbfrageRaster = Decimal(10000000);

Decimal abfrageGrenze(const Mpz& n, unsigned long zugabe) {
    Mpz g;
    mpz_add_ui(g, n, zugabe);
    if (mpz_cmp_ui(g.get(), 10000000) >= 0) return AbfrageRaster;
    return hoechstens(Decimal(int64_t(mpz_get_ui(g))), tausend);
}

// next and prev: the prime on one side of N (next needs the raster a little beyond N).
void nachbarAusgeben(const Frage& f, const char* name, unsigned long zugabe, PrimFund (*suchen)(const Mpz&)) {
    const Mpz n = ArgumentLesen(f.zahlen[0], "N");
    RasterBereitstellen(f.raster, abfrageGrenze(n, zugabe));
    const PrimFund p = suchen(n);
    JsonObjekt j;
    j.Zahl("n", ZahlText(n));
    if (p.gefunden) {
        j.Zahl(name, ZahlText(p.zahl));
    } else {
        j.Roh(name, "null");
    }
    j.Wahr("proven", p.bewiesen);
    ausgeben(f, j, !p.gefunden ? "none" : ZahlText(p.zahl) + (p.bewiesen ? "" : " (probable prime)"));
}

void naechste(const Frage& f) { nachbarAusgeben(f, "next", 1000, NaechstePrimzahl); }
void vorherige(const Frage& f) { nachbarAusgeben(f, "prev", 0, VorherigePrimzahl); }

void primTest(const Frage& f) {
    const Mpz n = ArgumentLesen(f.zahlen[0], "N");
    RasterBereitstellen(f.raster, abfrageGrenze(n, 0));
    JsonObjekt j;
    j.Zahl("n", ZahlText(n));
    // 0 and 1 are units or zero: no prime, and no product of primes either.
    if (mpz_cmp_ui(n.get(), 1) <= 0) {
        j.Wahr("prime", false).Wahr("proven", true);
        return ausgeben(f, j, "neither prime nor composite");
    }
    const PrimBefund u = PrimBefundVon(n);
    j.Wahr("prime", u.prim).Wahr("proven", u.bewiesen);
    ausgeben(f, j, !u.prim ? "composite" : u.bewiesen ? "prime" : "probable prime");
}

std::shared_ptr<Frage> anmelden(CLI::App& app, std::function<void()>& auftrag, const char* name, const char* hilfe, std::vector<const char*> zahlen,
              void (*ausfuehren)(const Frage&)) {
    auto f = std::make_shared<Frage>();
    f->zahlen.resize(zahlen.size());
    CLI::App* sub = app.add_subcommand(name, hilfe);
    for (size_t i = 0; i < zahlen.size(); ++i) sub->add_option(zahlen[i], f->zahlen[i], "a whole number")->required();
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, ausfuehren, &auftrag]() { auftrag = [f, ausfuehren]() { ausfuehren(*f); }; });
    return f;
}

}  // namespace

void AbfrageBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    const auto zaehlFrage = anmelden(app, auftrag, "count", "count the primes from FROM to TO", {"FROM", "TO"}, zaehlen);
    app.get_subcommand("count")->add_flag("--tuples", zaehlFrage->tupel,
                                          "also twins, cousins, sexy pairs, triplets and quadruplets, per decade, "
                                          "against li(x), R(x) and the Hardy-Littlewood estimates");
    anmelden(app, auftrag, "primes", "list the primes from FROM to TO, one a line", {"FROM", "TO"}, auflisten);
    anmelden(app, auftrag, "next", "the smallest prime greater than N", {"N"}, naechste);
    anmelden(app, auftrag, "prev", "the greatest prime smaller than N", {"N"}, vorherige);
    anmelden(app, auftrag, "isprime", "whether N is prime", {"N"}, primTest);
}

}  // namespace sw::cli
