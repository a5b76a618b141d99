// The count of the primes of a 2e9 raster by population counts, as GB/s of raster read
// (target: memory speed, at least 5 GB/s), and SiebProdukt at 2e8 for a quick look at the
// main sieve. The raster is built once, outside the timed loop.
#include <benchmark/benchmark.h>

#include "frame/Oberflaeche.h"
#include "BenchRaster.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"

namespace {

void PrimAnzahl2e9(benchmark::State& state) {
    sw::bench::RasterBauen(2000000000);
    sw::Decimal anzahl;
    for (auto _ : state) {
        anzahl = sw::PrimAnzahl(sw::Decimal(2), sw::PrimaerGrenze);
        benchmark::DoNotOptimize(anzahl);
    }
    if (anzahl != sw::Decimal(98222287)) state.SkipWithError("wrong count");
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(sw::PrimaerRaster.size() * sizeof(uint32_t)));
}
BENCHMARK(PrimAnzahl2e9)->Unit(benchmark::kMillisecond);

void SiebProdukt2e8(benchmark::State& state) {
    for (auto _ : state) {
        sw::PrimaerLauf(sw::Decimal(200000000), sw::MethodeProdukt);
        benchmark::DoNotOptimize(sw::PrimaerRaster.data());
    }
}
BENCHMARK(SiebProdukt2e8)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
