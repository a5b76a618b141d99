// Paging the prime display forward through a secondary range: the page model of frmAnzeige
// (cells, primes, gaps, head line) for a large page of 12 columns by 60 rows, in a window at
// 10^18 that has to be re-sieved whenever the shared secondary raster was replaced. The
// painter itself only draws the cells it is given. Target: well under 50 ms a page.
// The large range (mode 6) pages at a start of 1,000 digits, sieved once: the page's head adds
// its distance to the start's digits, the cells read the display's own raster. Target: well
// under 100 ms a page.
#include <benchmark/benchmark.h>

#include <string>

#include "BenchRaster.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "views/Anzeige.h"

namespace {

class StillesFenster : public sw::AnzeigeFenster {
public:
    void NavigationSchalten(bool) override {}
    void AnzahlZeigen(const std::string&) override {}
    void FortschrittVerbergen() override {}
    sw::SekundaerFortschrittZiel* Fortschritt() override { return nullptr; }
    void AnfangSchreiben(const std::string&) override {}
    void Zeichnen() override {}
};

// Pages forward through the range [von, von + breite] (back to its start at its end) in a
// window of `spalten` columns by 60 rows, over a primary raster to `raster`.
void Blaettern(benchmark::State& state, int64_t raster, int32_t modus, int32_t spalten, const char* von,
               const char* breite) {
    sw::bench::RasterBauen(raster);
    StillesFenster fenster;
    sw::AnzeigeLogik logik(fenster);
    logik.Modus = modus;
    logik.GeometrieSetzen(spalten, 60);
    if (!logik.BereichHolen(von, breite)) {
        state.SkipWithError("range refused");
        return;
    }
    int32_t primzahlen = 0;
    for (auto _ : state) {
        const sw::Decimal vorher = logik.Aktuell;
        logik.Blaettern(4);
        if (logik.Aktuell == vorher) logik.Blaettern(0);
        const sw::AnzeigeSeite seite = logik.Seite();
        primzahlen += seite.primzahlen;
        benchmark::DoNotOptimize(seite.zellen.data());
        benchmark::DoNotOptimize(seite.kopf.data());
    }
    benchmark::DoNotOptimize(primzahlen);
}

void BlaetternSekundaer(benchmark::State& state) {
    // A raster to 10^9 decides up to 10^18.
    Blaettern(state, 1000000000, int32_t(state.range(0)), 12, "999999999000000000", "10000000");
}
BENCHMARK(BlaetternSekundaer)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BlaetternGross(benchmark::State& state) {
    Blaettern(state, 10000000, 6, 12 * 8, "10^999+7", "1000000");
}
BENCHMARK(BlaetternGross)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
