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

void BlaetternSekundaer(benchmark::State& state) {
    sw::bench::RasterBauen(1000000000);  // decides up to 10^18
    StillesFenster fenster;
    sw::AnzeigeLogik logik(fenster);
    logik.Modus = int32_t(state.range(0));
    logik.GeometrieSetzen(12, 60);
    if (!logik.BereichHolen("999999999000000000", "10000000")) {
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
    }
    benchmark::DoNotOptimize(primzahlen);
}
BENCHMARK(BlaetternSekundaer)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BlaetternGross(benchmark::State& state) {
    sw::bench::RasterBauen(10000000);
    StillesFenster fenster;
    sw::AnzeigeLogik logik(fenster);
    logik.Modus = 6;
    logik.GeometrieSetzen(12 * 8, 60);
    if (!logik.BereichHolen("10^999+7", "1000000")) {
        state.SkipWithError("range refused");
        return;
    }
    int32_t kandidaten = 0;
    for (auto _ : state) {
        const sw::Decimal vorher = logik.Aktuell;
        logik.Blaettern(4);
        if (logik.Aktuell == vorher) logik.Blaettern(0);
        const sw::AnzeigeSeite seite = logik.Seite();
        kandidaten += seite.primzahlen;
        benchmark::DoNotOptimize(seite.kopf.data());
    }
    benchmark::DoNotOptimize(kandidaten);
}
BENCHMARK(BlaetternGross)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
