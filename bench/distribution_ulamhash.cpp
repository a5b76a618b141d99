// An Ulam picture of 1000 x 1000 cells (the classic spiral, and a quadratic one that leaves
// the raster), its smoothing, and the hash of all primes to 2e9 over a built raster.
#include <benchmark/benchmark.h>

#include "BenchRaster.h"
#include "distribution/Hash.h"
#include "distribution/Ulam.h"

namespace {

sw::UlamEingabe Bild(int64_t zuwachs) {
    sw::UlamEingabe e;
    e.breite = e.hoehe = 1000;
    e.zuwachs = zuwachs;
    return e;
}

void BM_UlamMillionZellen(benchmark::State& s) {
    sw::bench::RasterBauen(2000000000);
    for (auto _ : s) benchmark::DoNotOptimize(sw::UlamZeichnen(Bild(s.range(0))).UlamPrimzellen);
}
BENCHMARK(BM_UlamMillionZellen)->Arg(0)->Arg(2)->Unit(benchmark::kMillisecond);

void BM_UlamGlaetten(benchmark::State& s) {
    sw::bench::RasterBauen(2000000000);
    const sw::UlamModell m = sw::UlamZeichnen(Bild(0));
    for (auto _ : s) {
        sw::UlamModell kopie = m;
        sw::UlamGlaetten(kopie, int32_t(s.range(0)));
        benchmark::DoNotOptimize(kopie.farbe.data());
    }
}
BENCHMARK(BM_UlamGlaetten)->Arg(5)->Arg(40)->Unit(benchmark::kMillisecond);

void BM_Hash2e9(benchmark::State& s) {
    sw::bench::RasterBauen(2000000000);
    for (auto _ : s) benchmark::DoNotOptimize(sw::HashVerteilung(16, int32_t(s.range(0)), 2000000000).anzahl);
}
BENCHMARK(BM_Hash2e9)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
BENCHMARK_MAIN();
