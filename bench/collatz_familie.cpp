// The factorial family against a GMP loop in the same run: the steps and multiplications of
// n! for n = 1..2000, each factorial made from the last by one product.
//   GmpSchleife: mpz_mul_ui for the next factorial, then the walk of a copy by trailing zeros
//     (mpz_scan1 and one shift) and 3n + 1;
//   Familie0: CollatzFamilie, as the family window and sw-cli run it (the row's digits and
//     bits included). Its counter Verhaeltnis is its time over the GMP loop's, both timed here.
#include <gmp.h>
#include <benchmark/benchmark.h>

#include <chrono>

#include "collatz/CollatzFamilie.h"

namespace {

using namespace sw;

constexpr int kBis = 2000;

uint64_t gmpSchleife() {
    mpz_t f, n;
    mpz_init_set_ui(f, 1);
    mpz_init(n);
    uint64_t summe = 0;
    for (unsigned long k = 1; k <= kBis; ++k) {
        mpz_mul_ui(f, f, k);
        mpz_set(n, f);
        while (mpz_cmp_ui(n, 1) > 0) {
            const mp_bitcnt_t z = mpz_scan1(n, 0);
            if (z > 0) {
                mpz_tdiv_q_2exp(n, n, z);
                summe += z;
            } else {
                mpz_mul_ui(n, n, 3);
                mpz_add_ui(n, n, 1);
                summe += 2;  // the multiplication counts as a step and as a multiplication
            }
        }
    }
    mpz_clears(f, n, nullptr);
    return summe;
}

uint64_t familie0() {
    FamilienAuftrag a;
    a.start = 1;
    CollatzFamilie f(a);
    uint64_t summe = 0;
    for (int k = 1; k <= kBis; ++k) {
        if (k > 1) f.Weiter();
        const FamilienZeile z = f.Zaehlen();
        summe += uint64_t(z.schritte + z.mult);
    }
    return summe;
}

template <typename F>
double sekunden(F f) {
    const auto t0 = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(f());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

void BM_GmpSchleife(benchmark::State& st) {
    for (auto _ : st) benchmark::DoNotOptimize(gmpSchleife());
}
BENCHMARK(BM_GmpSchleife)->Unit(benchmark::kMillisecond);

void BM_Familie0(benchmark::State& st) {
    if (familie0() != gmpSchleife()) st.SkipWithError("the family's counts differ from the GMP loop");
    for (auto _ : st) benchmark::DoNotOptimize(familie0());
    st.counters["Verhaeltnis"] = sekunden(familie0) / sekunden(gmpSchleife);
}
BENCHMARK(BM_Familie0)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
