// Ranges beyond the primary raster: count and primes above GrenzeLong (without a raster the
// user chose) walk the range window by window through the secondary sieve, sieved by the
// primes up to the square root of the end. A range of one window takes them from a segmented
// pass over the numbers up to that root, on a primary raster only up to its own root; a longer
// one builds the primary raster up to the root once (a block file of that size in the working
// folder is loaded instead of sieved), since each window would repeat the pass.
// twins lists the prime pairs of any range the same way.
#include <cstdio>
#include <cstring>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"

namespace sw::cli {

namespace {

// 2^23 words (1,006,632,960 numbers, 32 MB) per window: large enough that the start offsets
// of the sieving primes are paid rarely, small enough for any machine.
constexpr uint64_t FensterWoerter = uint64_t(1) << 23;

// The greatest sieving prime of the windows: the root of the end of the range.
uint64_t siebgrenze = 0;

// The primary raster the range [von, bis] needs, and siebgrenze.
void WurzelRasterBereitstellen(const Decimal& von, const Decimal& bis, const std::string& frage) {
    const Decimal wurzel = GanzeWurzel(bis);
    if (wurzel > GroessteGrenze()) {
        throw CliFehler(frage + ": " + bis.Text() + " lies beyond the square of the largest raster (" +
                        GroessteGrenze().Text() + ")");
    }
    const Decimal grenze = wurzel < Decimal(1000) ? Decimal(1000) : wurzel;
    siebgrenze = uint64_t(grenze.AlsInt64());
    const bool einFenster = bis - von < Decimal(int64_t(FensterWoerter * RasterSpanne));
    const Decimal wurzelDerWurzel = GanzeWurzel(grenze) + Decimal(1);
    const Decimal raster = !einFenster ? grenze : wurzelDerWurzel < Decimal(1000) ? Decimal(1000) : wurzelDerWurzel;
    if (!PrimaerLauf(raster, einFenster ? MethodeProdukt : MethodeBereichBeschaffen)) {
        const std::string m = Terminal().LetzteMeldung();
        throw CliFehler(m.empty() ? "the raster cannot be built" : m);
    }
}

void segmentGemeldet(void*, uint64_t, uint64_t) { DoEvents(); }

// Sieves [a, bis] (a above the primary raster) window by window; fenster(von, bis) is called
// with the part of each window that belongs to the range, in ascending order.
template <typename Fenster>
void FensterDurchlaufen(Zahl128 a, Zahl128 bis, Fenster&& fenster) {
    const uint64_t grenze = siebgrenze;
    while (a <= bis) {
        const Zahl128 basis = a / RasterSpanne * RasterSpanne;
        const uint64_t woerter = uint64_t(std::min<Zahl128>(FensterWoerter, (bis - basis) / RasterSpanne + 1));
        if (!SekundaerFensterSetzen(basis, woerter, grenze, segmentGemeldet)) throw CliFehler("not enough memory");
        const Zahl128 ende = basis + Zahl128(woerter) * RasterSpanne - 1;
        fenster(a, std::min(ende, bis));
        a = ende + 1;
    }
}

// Every prime of [von, bis] in ascending order, from the primary raster and then the windows.
template <typename Ausgabe>
void PrimzahlenBereich(const Decimal& von, const Decimal& bis, Ausgabe&& ausgabe) {
    const Zahl128 a = von.Betrag(), b = bis.Betrag();
    const Zahl128 g = PrimaerGrenze.Betrag();
    bool weiter = true;
    if (a <= g) {
        PrimzahlenDurchlaufen(uint64_t(a), uint64_t(std::min(b, g)), [&](uint64_t p) {
            return weiter = ausgabe(Zahl128(p));
        });
    }
    if (!weiter || b <= g) return;
    FensterDurchlaufen(std::max(a, g + 1), b, [&](Zahl128 x, Zahl128 y) {
        if (weiter) SekundaerDurchlaufen(x, y, [&](Zahl128 p) { return weiter = ausgabe(p); });
    });
}

}  // namespace

void WurzelRasterFuer(const Decimal& von, const Decimal& bis, const std::string& frage) {
    WurzelRasterBereitstellen(von, bis, frage);
}

void FensterweiseSieben(unsigned __int128 a, unsigned __int128 bis,
                        const std::function<void(unsigned __int128, unsigned __int128)>& fenster) {
    FensterDurchlaufen(a, bis, fenster);
}

namespace {

std::string kopf(const Decimal& von, const Decimal& bis) {
    return "{\"from\":" + von.Text() + ",\"to\":" + bis.Text() + ",\"limit\":" + std::to_string(siebgrenze);
}

struct Paare {
    std::vector<std::string> zahlen{2};
    RasterWahl raster;
    bool json = false;
    std::string methode, test;  // --method, --test: the twin window's search instead of the walk
};

void zwillinge(const Paare& f) {
    if (!f.methode.empty() || !f.test.empty()) {
        ZwillingeMitVerfahren(f.zahlen[0], f.zahlen[1], f.methode.empty() ? "3" : f.methode, f.test, f.raster, f.json);
        return;
    }
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "twins");
    if (SekundaerWeg(bis, f.raster)) {
        WurzelRasterBereitstellen(von, bis, "twins");
    } else {
        RasterBereitstellen(f.raster, bis < Decimal(1000) ? Decimal(1000) : bis);
        siebgrenze = uint64_t(PrimaerGrenze.AlsInt64());
        ImRasterPruefen(bis, "twins");
    }
    AusgabePuffer aus;
    if (f.json) aus.text(kopf(von, bis) + ",\"twins\":[");
    uint64_t anzahl = 0;
    Zahl128 vorige = 0;
    PrimzahlenBereich(von, bis, [&](Zahl128 p) {
        if (vorige && p - vorige == 2) {
            if (f.json) aus.text(anzahl ? ",[" : "[");
            aus.zahl(vorige);
            aus.text(f.json ? "," : " ");
            aus.zahl(p);
            aus.text(f.json ? "]" : "\n");
            if ((++anzahl & 0xFFFF) == 0) aus.leeren();
        }
        vorige = p;
        return true;
    });
    if (f.json) {
        aus.text("],\"count\":");
        aus.zahl(anzahl);
        aus.text("}\n");
    }
}

}  // namespace

bool SekundaerWeg(const Decimal& bis, const RasterWahl& wahl) {
    // A raster the user chose answers what it holds and refuses the rest, as it always did.
    return !RasterGewaehlt(wahl) && bis > Decimal(GrenzeLong);
}

void SekundaerZaehlenAusgeben(const Decimal& von, const Decimal& bis, bool json) {
    WurzelRasterBereitstellen(von, bis, "count");
    Decimal anzahl;
    if (von <= PrimaerGrenze) anzahl = PrimAnzahl(von, bis < PrimaerGrenze ? bis : PrimaerGrenze);
    if (bis > PrimaerGrenze) {
        uint64_t fenster = 0;
        FensterDurchlaufen(std::max(von.Betrag(), PrimaerGrenze.Betrag() + 1), bis.Betrag(), [&](Zahl128 x, Zahl128 y) {
            fenster += SekundaerAnzahl(Decimal(x), Decimal(y));
        });
        anzahl += Decimal(fenster);
    }
    if (json) {
        std::printf("{\"from\":%s,\"to\":%s,\"count\":%s,\"limit\":%s}\n", von.Text().c_str(), bis.Text().c_str(),
                    anzahl.Text().c_str(), std::to_string(siebgrenze).c_str());
    } else {
        std::printf("%s\n", anzahl.Text().c_str());
    }
}

void SekundaerAuflisten(const Decimal& von, const Decimal& bis, bool json) {
    WurzelRasterBereitstellen(von, bis, "primes");
    AusgabePuffer aus;
    if (json) aus.text(kopf(von, bis) + ",\"primes\":[");
    uint64_t anzahl = 0;
    PrimzahlenBereich(von, bis, [&](Zahl128 p) {
        if (json && anzahl) aus.text(",");
        aus.zahl(p);
        if (!json) aus.text("\n");
        if ((++anzahl & 0xFFFF) == 0) {
            aus.leeren();
            DoEvents();
        }
        return true;
    });
    if (json) {
        aus.text("],\"count\":");
        aus.zahl(anzahl);
        aus.text("}\n");
    }
}

void SekundaerBefehleAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<Paare>();
    CLI::App* sub = app.add_subcommand("twins", "list the prime pairs p, p+2 with FROM <= p and p+2 <= TO");
    sub->add_option("FROM", f->zahlen[0], "a whole number")->required();
    sub->add_option("TO", f->zahlen[1], "a whole number")->required();
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_option("--method", f->methode,
                    "search as the twin window does: 0 trial division of (6m)^2-1, 1 the primary raster, "
                    "2 a secondary range, 3 sieve and probable-prime test (any height; TO - FROM at most 2e9)");
    sub->add_option("--test", f->test,
                    "the test of --method 3 (given alone, it means --method 3): perrin, rabin, strassen, "
                    "fermat or bpsw (default)");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() { auftrag = [f]() { zwillinge(*f); }; });
}

}  // namespace sw::cli
