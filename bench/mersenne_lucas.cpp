// One Lucas-Lehmer iteration of the Karatsuba method (five levels over the library's word
// kernels, reduced by folding) against GMP's own square and fold on mpz, in the same run.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include "mersenne/basLucas.h"

namespace {

void BM_LucasKaratsuba(benchmark::State& state) {
    const uint32_t p = uint32_t(state.range(0));
    sw::LucasVorbereiten(sw::LucasMethodeKaratsuba, p);
    for (auto _ : state) benchmark::DoNotOptimize(sw::LucasSchritt());
    sw::LucasFreigeben();
}

void BM_GmpQuadratUndFalten(benchmark::State& state) {
    const uint32_t p = uint32_t(state.range(0));
    mpz_t s, m, hoch;
    mpz_inits(s, m, hoch, nullptr);
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    mpz_set_ui(s, 4);
    for (auto _ : state) {
        mpz_mul(s, s, s);
        for (int i = 0; i < 2; ++i) {
            mpz_tdiv_q_2exp(hoch, s, p);
            mpz_tdiv_r_2exp(s, s, p);
            mpz_add(s, s, hoch);
        }
        if (mpz_cmp(s, m) >= 0) mpz_sub(s, s, m);
        mpz_sub_ui(s, s, 2);
    }
    mpz_clears(s, m, hoch, nullptr);
}

}  // namespace

BENCHMARK(BM_LucasKaratsuba)->Arg(44497)->Arg(86243)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GmpQuadratUndFalten)->Arg(44497)->Arg(86243)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
