// One Lucas-Lehmer iteration of the Karatsuba method (five levels over the library's word
// kernels, reduced by folding) against GMP's own square and fold on mpz, in the same run.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include "mersenne/MersenneSchritt.h"
#include "mersenne/basLucas.h"
#include "primality/HypMpz.h"

namespace {

void BM_LucasKaratsuba(benchmark::State& state) {
    const uint32_t p = uint32_t(state.range(0));
    sw::LucasVorbereiten(sw::LucasMethodeKaratsuba, p);
    for (auto _ : state) benchmark::DoNotOptimize(sw::LucasSchritt());
    sw::LucasFreigeben();
}

void BM_GmpQuadratUndFalten(benchmark::State& state) {
    const uint32_t p = uint32_t(state.range(0));
    sw::Mpz m, s(4), hoch;
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    for (auto _ : state) sw::MersenneSchritt(s, hoch, m, p);
}

}  // namespace

BENCHMARK(BM_LucasKaratsuba)->Arg(44497)->Arg(86243)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GmpQuadratUndFalten)->Arg(44497)->Arg(86243)->Unit(benchmark::kMicrosecond);
