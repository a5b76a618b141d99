// sw-cli gaps FROM TO [--gaps D1 D2] [--kind neighbours|sequence|density|pairs] [--random]
// The counts of the gap graphic without its window: how often each difference between
// neighbouring primes (or between any two primes) occurs in [FROM, TO], the gaps in order, or
// the primes per part of the range. Up to the primary raster the raster is walked; beyond it,
// without a raster the user chose, the range is sieved window by window as a secondary range.
// With --random the same count runs over the random raster instead.
#include <chrono>
#include <cstdio>
#include <memory>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "distribution/basAbstand.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Zufall.h"

namespace sw::cli {

namespace {

struct Lueckenauftrag {
    std::vector<std::string> zahlen{2};
    std::vector<int64_t> abstaende{2, 100};
    std::string art = "neighbours";
    RasterWahl raster;
    bool zufall = false;
    bool json = false;
};

int32_t artLesen(const std::string& text) {
    const char* namen[] = {"neighbours", "sequence", "density", "pairs"};
    for (int32_t i = 0; i < 4; ++i) {
        if (text == namen[i]) return i;
    }
    throw CliFehler("gaps: --kind must be neighbours, sequence, density or pairs, not " + text);
}

bool melden(double) {
    DoEvents();  // Ctrl-C ends the job here
    return true;
}

// What a bar is labelled by: a difference, a gap number, or the first number of a part.
int64_t BalkenMarke(int32_t art, int64_t von, const Decimal& start, uint64_t teil, int32_t i) {
    if (art == ArtFolge) return von + i + 1;
    if (art == ArtDichte) return int64_t((start + Decimal(teil * uint64_t(i))).AlsInt64());
    return von + 2 * int64_t(i);
}

void luecken(const Lueckenauftrag& f) {
    const int32_t art = artLesen(f.art);
    const auto [von, bis] = BereichLesen(f.zahlen[0], f.zahlen[1], "gaps");
    const int64_t d1 = f.abstaende[0], d2 = f.abstaende[1];
    if (d1 < 0 || d2 < d1 || d2 - d1 > 20000000) {
        throw CliFehler("gaps: --gaps needs 0 <= D1 <= D2 and at most 20,000,000 between them");
    }
    // The estimate needs a place and a length; a range of one number has none.
    const auto schaetzung = Zwillingsschaetzung(0, von.Double(), (bis - von).Double());
    if (!schaetzung) throw CliFehler("gaps: " + Text(424));

    // Bars: differences D1..D2 in steps of 2, gap numbers D1..D2 (1 the first), or (D2-D1)/2+1 parts.
    const int64_t erste = art == ArtFolge ? std::max<int64_t>(d1, 1) - 1 : d1;
    const int32_t n = art == ArtFolge ? int32_t(d2 - erste - 1) : int32_t((d2 - d1) / 2);
    const Zahl128 a = von.Betrag(), b = bis.Betrag();
    AbstandZaehlung z(art, a, b, erste, n);

    double sekunden = 0;
    std::string quelle;
    if (f.zufall) {
        ZufallSaat(uint64_t(std::chrono::steady_clock::now().time_since_epoch().count()));
        const auto beginn = std::chrono::steady_clock::now();
        AbstandZufallZaehlen(z, a, b, melden);
        sekunden = std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
        quelle = "random";
    } else if (SekundaerWeg(bis, f.raster)) {
        // Sieve included: the range above the raster is the job itself.
        const auto beginn = std::chrono::steady_clock::now();
        WurzelRasterFuer(von, bis, "gaps");
        const Zahl128 g = PrimaerGrenze.Betrag();
        if (a <= g) AbstandPrimaerZaehlen(z, a, std::min(b, g), melden);
        if (b > g) {
            FensterweiseSieben(std::max(a, g + 1), b, [&](Zahl128 x, Zahl128 y) {
                if (!z.Fertig()) AbstandSekundaerZaehlen(z, x, y, melden);
            });
        }
        sekunden = std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
        quelle = "secondary";
    } else {
        RasterBereitstellen(f.raster, bis < Decimal(1000) ? Decimal(1000) : bis);
        ImRasterPruefen(bis, "gaps");
        const auto beginn = std::chrono::steady_clock::now();
        AbstandPrimaerZaehlen(z, a, b, melden);
        sekunden = std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
        quelle = "primary";
    }

    const uint64_t teil = art == ArtDichte ? uint64_t((b - a) / Zahl128(n + 1)) + 1 : 0;
    AusgabePuffer aus;
    char zeile[160];
    if (f.json) {
        JsonObjekt kopf;
        kopf.Zahl("from", von).Zahl("to", bis).Text("kind", f.art).Text("source", quelle);
        kopf.Zahl("primes", std::to_string(z.Primzahlen())).Kommazahl("estimate", *schaetzung);
        kopf.Kommazahl("seconds", sekunden);
        const std::string k = kopf.Ende();
        aus.text(k.substr(0, k.size() - 1) + ",\"bars\":[");
    }
    for (int32_t i = 0; i <= n; ++i) {
        const int64_t marke = BalkenMarke(art, erste, von, teil, i);
        const int64_t anzahl = z.Anzahl()[size_t(i)];
        // Pairs of a difference d are expected as often as twins times the singular series of d.
        const double erwartet = art == ArtPaare ? *schaetzung * SingulaereReihe(marke) : 0;
        if (f.json) {
            std::snprintf(zeile, sizeof zeile, "%s{\"at\":%lld,\"count\":%lld", i ? "," : "", (long long)marke,
                          (long long)anzahl);
            aus.text(zeile);
            if (art == ArtPaare) {
                std::snprintf(zeile, sizeof zeile, ",\"expected\":%.2f", erwartet);
                aus.text(zeile);
            }
            aus.text("}");
        } else if (art == ArtPaare) {
            std::snprintf(zeile, sizeof zeile, "%lld %lld %.2f\n", (long long)marke, (long long)anzahl, erwartet);
            aus.text(zeile);
        } else {
            std::snprintf(zeile, sizeof zeile, "%lld %lld\n", (long long)marke, (long long)anzahl);
            aus.text(zeile);
        }
    }
    if (f.json) {
        aus.text("]}\n");
    } else {
        std::snprintf(zeile, sizeof zeile, "%llu primes, %.2f twins expected, %.3f s\n",
                      (unsigned long long)z.Primzahlen(), *schaetzung, sekunden);
        aus.text(zeile);
    }
}

}  // namespace

void AbstandBefehlAnmelden(CLI::App& app, std::function<void()>& auftrag) {
    auto f = std::make_shared<Lueckenauftrag>();
    CLI::App* sub = app.add_subcommand("gaps", "count the differences between primes in FROM..TO");
    sub->add_option("FROM", f->zahlen[0], "a whole number")->required();
    sub->add_option("TO", f->zahlen[1], "a whole number")->required();
    sub->add_option("--gaps", f->abstaende,
                    "D1 D2: the differences shown (default 2 100); for sequence the gap numbers, "
                    "for density (D2-D1)/2+1 parts")
        ->expected(2);
    sub->add_option("--kind", f->art, "neighbours (default), sequence, density or pairs");
    sub->add_flag("--random", f->zufall, "count over the random raster instead of the primes");
    sub->add_option("--limit", f->raster.limit, "sieve the raster up to this limit");
    sub->add_option("--block", f->raster.block, "load the raster from this block file");
    sub->add_flag("--json", f->json, "print one JSON object");
    sub->callback([f, &auftrag]() { auftrag = [f]() { luecken(*f); }; });
}

}  // namespace sw::cli
