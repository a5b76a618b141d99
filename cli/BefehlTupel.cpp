// sw-cli count FROM TO --tuples: the primes of the range and its constellations (twins,
// cousins, sexy pairs, both triplets, quadruplets), in total and per power of ten, against
// li(x), R(x) and the Hardy-Littlewood estimates. Up to the primary raster the raster is
// read; beyond it, without a raster the user chose, the range is sieved window by window.
#include <chrono>
#include <cmath>
#include <cstdio>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "distribution/Schaetzung.h"
#include "distribution/Tupel.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"

namespace sw::cli {

void BereichSieben(const Decimal& von, const Decimal& bis, const RasterWahl& raster, const std::string& frage,
                   const std::function<void(unsigned __int128, unsigned __int128)>& primaer,
                   const std::function<void(unsigned __int128, unsigned __int128)>& fenster) {
    const Zahl128 a = von.Betrag(), b = bis.Betrag();
    if (SekundaerWeg(bis, raster)) {
        WurzelRasterFuer(von, bis, frage);
    } else {
        RasterBereitstellen(raster, bis < Decimal(1000) ? Decimal(1000) : bis);
        ImRasterPruefen(bis, frage);
    }
    const Zahl128 g = PrimaerGrenze.Betrag();
    if (a <= g) primaer(a, std::min(b, g));
    if (b > g) FensterweiseSieben(std::max(a, g + 1), b, fenster);
}

namespace {

bool melden(void*, double) {
    DoEvents();  // Ctrl-C ends the job here
    return true;
}

std::string zahl(Zahl128 v) { return Decimal(v).Text(); }

}  // namespace

void TupelZaehlenAusgeben(const std::string& vonText, const std::string& bisText, const RasterWahl& raster, bool json) {
    const auto [von, bis] = BereichLesen(vonText, bisText, "count");
    const auto beginn = std::chrono::steady_clock::now();
    TupelZaehlung z(von.Betrag(), bis.Betrag());
    BereichSieben(
        von, bis, raster, "count", [&](Zahl128 x, Zahl128 y) { TupelPrimaerZaehlen(z, x, y, melden, nullptr); },
        [&](Zahl128 x, Zahl128 y) { TupelSekundaerZaehlen(z, x, y, melden, nullptr); });
    z.Abschliessen();
    const double sekunden = std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
    Terminal().FortschrittBeenden();

    const TupelAnzahl n = z.Gesamt();
    const double a = von.Double(), b = bis.Double();
    const double r = b < 2 ? 0 : RiemannR(b) - (a <= 2 ? 0 : RiemannR(a - 1));
    AusgabePuffer aus;
    char zeile[200];
    if (json) {
        JsonObjekt j;
        j.Zahl("from", von).Zahl("to", bis).Zahl("limit", PrimaerGrenze);
        for (int32_t k = 0; k < TupelArten; ++k) j.Zahl(TupelName(k), std::to_string(n[k]));
        j.Zahl("triplets", std::to_string(n[TupelDrillingA] + n[TupelDrillingB]));
        JsonObjekt s;
        for (int32_t k = 0; k < TupelArten; ++k) s.Kommazahl(TupelName(k), TupelSchaetzung(k, a, b));
        j.Roh("estimates", s.Ende()).Kommazahl("riemann_r", r).Kommazahl("seconds", sekunden);
        std::string dekaden = "[";
        for (size_t i = 0; i < z.Dekaden().size(); ++i) {
            JsonObjekt d;
            d.Zahl("from", zahl(z.DekadenAnfang(i)));
            d.Zahl("to", zahl(i + 1 < z.Dekaden().size() ? z.DekadenAnfang(i + 1) - 1 : z.Bis()));
            for (int32_t k = 0; k < TupelArten; ++k) d.Zahl(TupelName(k), std::to_string(z.Dekaden()[i][k]));
            dekaden += (i ? "," : "") + d.Ende();
        }
        j.Roh("decades", dekaden + "]");
        aus.text(j.Ende() + "\n");
        return;
    }
    aus.text("kind             count        estimate   ratio\n");
    for (int32_t k = 0; k < TupelArten; ++k) {
        const double e = TupelSchaetzung(k, a, b);
        std::snprintf(zeile, sizeof zeile, "%-12s %12llu %15.1f %7.4f\n", TupelName(k), (unsigned long long)n[k], e,
                      e > 0 ? double(n[k]) / e : 0.0);
        aus.text(zeile);
    }
    std::snprintf(zeile, sizeof zeile, "%-12s %12llu\nR(x)         %12.1f\n", "triplets",
                  (unsigned long long)(n[TupelDrillingA] + n[TupelDrillingB]), r);
    aus.text(zeile);
    if (z.Dekaden().size() > 1) {
        aus.text("\nfrom to");
        for (int32_t k = 0; k < TupelArten; ++k) aus.text(std::string(" ") + TupelName(k));
        aus.text("\n");
        for (size_t i = 0; i < z.Dekaden().size(); ++i) {
            aus.text(zahl(z.DekadenAnfang(i)) + " " +
                     zahl(i + 1 < z.Dekaden().size() ? z.DekadenAnfang(i + 1) - 1 : z.Bis()));
            for (int32_t k = 0; k < TupelArten; ++k) aus.text(" " + std::to_string(z.Dekaden()[i][k]));
            aus.text("\n");
        }
    }
    std::snprintf(zeile, sizeof zeile, "%.3f s\n", sekunden);
    aus.text(zeile);
}

}  // namespace sw::cli
