// Ranges beyond the primary raster: count and primes above GrenzeLong (without a raster the
// user chose) walk the range window by window through the secondary sieve, sieved by the
// primes up to the square root of the end. A range of one window takes them from a segmented
// pass over the numbers up to that root, on a primary raster only up to its own root; a longer
// one builds the primary raster up to the root once (a block file of that size in the working
// folder is loaded instead of sieved), since each window would repeat the pass.
// twins lists the prime pairs of any range the same way. In an MPI job the three spread the
// range over the processes piece by piece; process 0 prints what one process would print.
#include <cstdio>
#include <cstring>
#include <memory>

#include "Befehle.h"
#include "BereichStuecke.h"
#include "CliUmgebung.h"
#include "MpiVerteilung.h"
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

// The primary raster the range [von, bis] needs, and siebgrenze. Cut into pieces, the range
// takes the raster up to the root, since every piece would repeat the pass beyond it.
void WurzelRasterBereitstellen(const Decimal& von, const Decimal& bis, const std::string& frage, bool stueckweise = false) {
    const Decimal wurzel = GanzeWurzel(bis);
    if (wurzel > GroessteGrenze()) {
        throw CliFehler(frage + ": " + bis.Text() + " lies beyond the square of the largest raster (" +
                        GroessteGrenze().Text() + ")");
    }
    const Decimal grenze = wurzel < Decimal(1000) ? Decimal(1000) : wurzel;
    siebgrenze = uint64_t(grenze.AlsInt64());
    const bool einFenster = !stueckweise && bis - von < Decimal(int64_t(FensterWoerter * RasterSpanne));
    const Decimal wurzelDerWurzel = GanzeWurzel(grenze) + Decimal(1);
    const Decimal raster = !einFenster ? grenze : wurzelDerWurzel < Decimal(1000) ? Decimal(1000) : wurzelDerWurzel;
    if (!PrimaerLauf(raster, einFenster ? MethodeProdukt : MethodeBereichBeschaffen)) {
        const std::string m = Terminal().LetzteMeldung();
        throw CliFehler(m.empty() ? "the raster cannot be built" : m);
    }
}

void segmentGemeldet(void*, uint64_t, uint64_t) {
    DoEvents();
    MpiNebenbei();
}

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

// The primes of [von, bis] from the raster and the windows.
uint64_t anzahlVonBis(Zahl128 von, Zahl128 bis) {
    const Zahl128 g = PrimaerGrenze.Betrag();
    uint64_t anzahl = 0;
    if (von > bis) return 0;
    if (von <= g) anzahl = uint64_t(PrimAnzahl(Decimal(von), Decimal(std::min(bis, g))).AlsInt64());
    if (bis > g) {
        FensterDurchlaufen(std::max(von, g + 1), bis, [&](Zahl128 x, Zahl128 y) {
            anzahl += SekundaerAnzahl(Decimal(x), Decimal(y));
        });
    }
    return anzahl;
}

// A list over [von, bis] in n pieces (one process: n = 1) whose entries schreiben(aus, x, y)
// writes for the piece x..y and counts; process 0 prints them in order.
template <typename Schreiben>
uint64_t listeAusgeben(AusgabePuffer& aus, const Decimal& von, const Decimal& bis, uint64_t n, bool json,
                       Schreiben&& schreiben) {
    return ListeVerteilen(aus, n, json, [&](AusgabePuffer& a, uint64_t i) {
        const auto [x, y] = Stueck(von.Betrag(), bis.Betrag(), n, i);
        return schreiben(a, x, y);
    });
}

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
        if (NebenRang()) return;
        ZwillingeMitVerfahren(f.zahlen[0], f.zahlen[1], f.methode.empty() ? "3" : f.methode, f.test, f.raster, f.json);
        return;
    }
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "twins");
    const uint64_t n = SekundaerWeg(bis, f.raster) ? PrimStuecke(von, bis) : 1;
    if (n == 1 && NebenRang()) return;
    if (SekundaerWeg(bis, f.raster)) {
        WurzelRasterBereitstellen(von, bis, "twins", n > 1);
    } else {
        RasterBereitstellen(f.raster, bis < Decimal(1000) ? Decimal(1000) : bis);
        siebgrenze = uint64_t(PrimaerGrenze.AlsInt64());
        ImRasterPruefen(bis, "twins");
    }
    AusgabePuffer aus;
    if (f.json && !NebenRang()) aus.text(kopf(von, bis) + ",\"twins\":[");
    // A piece x..y holds the pairs whose smaller member lies in it, so a pair across a border
    // is found once, by the piece of its smaller member, which looks 2 beyond its end.
    const Zahl128 ende = bis.Betrag();
    const uint64_t anzahl = listeAusgeben(aus, von, bis, n, f.json, [&](AusgabePuffer& a, Zahl128 x, Zahl128 y) {
        uint64_t paare = 0;
        Zahl128 vorige = 0;
        if (x > y) return paare;
        PrimzahlenBereich(Decimal(x), Decimal(std::min(y + 2, ende)), [&](Zahl128 p) {
            if (vorige && p - vorige == 2 && vorige <= y) {
                if (f.json) a.text(paare ? ",[" : "[");
                a.zahl(vorige);
                a.text(f.json ? "," : " ");
                a.zahl(p);
                a.text(f.json ? "]" : "\n");
                if ((++paare & 0xFFFF) == 0) a.leeren();
            }
            vorige = p;
            return true;
        });
        return paare;
    });
    if (NebenRang()) return;
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
    const uint64_t n = PrimStuecke(von, bis);
    if (n == 1 && NebenRang()) return;
    WurzelRasterBereitstellen(von, bis, "count", n > 1);
    Decimal anzahl;
    if (n == 1) {
        anzahl = Decimal(anzahlVonBis(von.Betrag(), bis.Betrag()));
    } else {
        uint64_t summe = 0;
        StueckeVerteilen(
            n,
            [&](uint64_t i) {
                const auto [x, y] = Stueck(von.Betrag(), bis.Betrag(), n, i);
                std::string daten;
                WortAnhaengen(daten, anzahlVonBis(x, y));
                return daten;
            },
            [&](uint64_t, const std::string& daten) {
                size_t pos = 0;
                summe += WortLesen(daten, pos);
            });
        if (NebenRang()) return;
        anzahl = Decimal(summe);
    }
    if (json) {
        std::printf("{\"from\":%s,\"to\":%s,\"count\":%s,\"limit\":%s}\n", von.Text().c_str(), bis.Text().c_str(),
                    anzahl.Text().c_str(), std::to_string(siebgrenze).c_str());
    } else {
        std::printf("%s\n", anzahl.Text().c_str());
    }
}

void SekundaerAuflisten(const Decimal& von, const Decimal& bis, bool json) {
    const uint64_t n = PrimStuecke(von, bis);
    if (n == 1 && NebenRang()) return;
    WurzelRasterBereitstellen(von, bis, "primes", n > 1);
    AusgabePuffer aus;
    if (json && !NebenRang()) aus.text(kopf(von, bis) + ",\"primes\":[");
    const uint64_t anzahl = listeAusgeben(aus, von, bis, n, json, [&](AusgabePuffer& a, Zahl128 x, Zahl128 y) {
        uint64_t zahlen = 0;
        if (x > y) return zahlen;
        PrimzahlenBereich(Decimal(x), Decimal(y), [&](Zahl128 p) {
            if (json && zahlen) a.text(",");
            a.zahl(p);
            if (!json) a.text("\n");
            if ((++zahlen & 0xFFFF) == 0) {
                a.leeren();
                DoEvents();
            }
            return true;
        });
        return zahlen;
    });
    if (NebenRang()) return;
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
