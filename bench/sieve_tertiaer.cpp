// The preparation of the tertiary sieve at 10,000 digits: the residues of the start modulo
// every prime 7 .. 10^8 (5,761,452 primes), by PrimzahlReste (two primes per pass over the
// digits) against one GMP remainder per prime, the road it replaces. And a whole tertiary
// window of a million numbers at 10^100 sieved by the primes up to 10^7.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <vector>

#include "BenchRaster.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/Primreste.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basExtrem.h"
#include "sieve/basSiebwerk.h"

namespace {

const std::vector<uint32_t>& Primzahlen() {
    static const std::vector<uint32_t> p = [] {
        sw::bench::RasterBauen(100000000);
        std::vector<uint32_t> v;
        sw::PrimzahlenDurchlaufen(7, 100000000, [&](uint64_t q) { return v.push_back(uint32_t(q)), true; });
        return v;
    }();
    return p;
}

// A fixed odd number of 10,000 digits.
sw::Mpz Zahl10000() {
    sw::Mpz n;
    gmp_randstate_t zufall;
    gmp_randinit_default(zufall);
    mpz_urandomb(n, zufall, 33220);
    mpz_setbit(n, 33219);
    gmp_randclear(zufall);
    return n;
}

void PrimzahlReste10000Stellen(benchmark::State& state) {
    const std::vector<uint32_t>& p = Primzahlen();
    const sw::Mpz n = Zahl10000();
    std::vector<uint32_t> reste(p.size());
    for (auto _ : state) {
        sw::PrimzahlReste(n, p.data(), p.size(), reste.data());
        benchmark::DoNotOptimize(reste.data());
    }
    if (reste.back() != mpz_fdiv_ui(n, p.back())) state.SkipWithError("wrong residue");
    state.counters["primes"] = double(p.size());
}
BENCHMARK(PrimzahlReste10000Stellen)->Unit(benchmark::kMillisecond)->UseRealTime();

void GmpJePrimzahl10000Stellen(benchmark::State& state) {
    const std::vector<uint32_t>& p = Primzahlen();
    const sw::Mpz n = Zahl10000();
    std::vector<uint32_t> reste(p.size());
    for (auto _ : state) {
        for (size_t i = 0; i < p.size(); ++i) reste[i] = uint32_t(mpz_fdiv_ui(n, p[i]));
        benchmark::DoNotOptimize(reste.data());
    }
}
BENCHMARK(GmpJePrimzahl10000Stellen)->Unit(benchmark::kMillisecond)->UseRealTime();

void TertiaerSieben10hoch100(benchmark::State& state) {
    sw::bench::RasterBauen(10000000);
    sw::Mpz start;
    mpz_ui_pow_ui(start, 10, 100);
    sw::TertiaerStart = sw::MpzZuHyp(start);
    sw::TertiaerLaenge = 1000000;
    for (auto _ : state) {
        if (!sw::TertiaerSieben()) state.SkipWithError("sieve refused");
    }
    if (sw::TertiaerZaehlen() != 34727) state.SkipWithError("wrong candidate count");
}
BENCHMARK(TertiaerSieben10hoch100)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
