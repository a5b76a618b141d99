// The Collatz walks against plain loops in the same run (compare the items per second):
//   Schlicht64 / Bereich, Einzeln: steps and multiplications of every start 1..10^7, by the
//     obvious loop, by the range count (table jumps, stopping below the start), and by table
//     jumps alone;
//   GmpSchleife / Marken: the walk of 2^100000 - 1 (about 1.3 million steps) by a GMP loop
//     and as the mark string of the Collatz window;
//   Zeilen: the 500 lines of the bar graphic for 60-digit starts.
#include <gmp.h>
#include <benchmark/benchmark.h>

#include <string>

#include "arith/HypText.h"
#include "collatz/CollatzBereich.h"
#include "collatz/basCollatz.h"

namespace {

using namespace sw;

constexpr uint64_t kBis = 10000000;

void BM_Schlicht64(benchmark::State& st) {
    for (auto _ : st) {
        uint64_t summe = 0;
        for (uint64_t s = 1; s <= kBis; ++s) {
            uint64_t n = s, schritte = 0, mult = 0;
            while (n != 1) {
                if (n & 1) {
                    n = 3 * n + 1;
                    ++mult;
                } else {
                    n >>= 1;
                }
                ++schritte;
            }
            summe += schritte + mult;
        }
        benchmark::DoNotOptimize(summe);
    }
    st.SetItemsProcessed(int64_t(st.iterations() * kBis));
}
BENCHMARK(BM_Schlicht64)->Unit(benchmark::kMillisecond);

void BM_Bereich(benchmark::State& st) {
    for (auto _ : st) {
        uint64_t summe = 0;
        CollatzBereichZaehlen(1, kBis, CollatzRegel::DreiNPlusEins,
                              [&](uint64_t, const CollatzGang& g) { summe += uint64_t(g.tSchritte + 2 * g.ungerade); });
        benchmark::DoNotOptimize(summe);
    }
    st.SetItemsProcessed(int64_t(st.iterations() * kBis));
}
BENCHMARK(BM_Bereich)->Unit(benchmark::kMillisecond);

void BM_Einzeln(benchmark::State& st) {
    for (auto _ : st) {
        uint64_t summe = 0;
        for (uint64_t s = 1; s <= kBis; ++s) {
            const CollatzGang g = CollatzGang64(s, CollatzRegel::DreiNPlusEins);
            summe += uint64_t(g.tSchritte + 2 * g.ungerade);
        }
        benchmark::DoNotOptimize(summe);
    }
    st.SetItemsProcessed(int64_t(st.iterations() * kBis));
}
BENCHMARK(BM_Einzeln)->Unit(benchmark::kMillisecond);

constexpr unsigned long kExponent = 100000;

void BM_GmpSchleife(benchmark::State& st) {
    mpz_t n;
    mpz_init(n);
    for (auto _ : st) {
        mpz_set_ui(n, 0);
        mpz_setbit(n, kExponent);
        mpz_sub_ui(n, n, 1);
        std::string marken;
        while (mpz_cmp_ui(n, 1) != 0) {
            if (mpz_odd_p(n)) {
                mpz_mul_ui(n, n, 3);
                mpz_add_ui(n, n, 1);
                marken.push_back('!');
            }
            const mp_bitcnt_t z = mpz_scan1(n, 0);
            mpz_tdiv_q_2exp(n, n, z);
            marken.append(z, '.');
        }
        benchmark::DoNotOptimize(marken.data());
    }
    mpz_clear(n);
}
BENCHMARK(BM_GmpSchleife)->Unit(benchmark::kMillisecond);

void BM_Marken(benchmark::State& st) {
    for (auto _ : st) {
        st.PauseTiming();
        CollatzZahl = Hyp(int32_t(kExponent / 32 + 2));
        for (unsigned long i = 0; i < kExponent / 32; ++i) CollatzZahl[int32_t(i) + 1] = -1;
        CollatzZahl[0] = int32_t(kExponent / 32);
        st.ResumeTiming();
        const std::string marken = CollatzFolgeHyp(0, 0, 0);
        benchmark::DoNotOptimize(marken.data());
    }
}
BENCHMARK(BM_Marken)->Unit(benchmark::kMillisecond);

void BM_Zeilen(benchmark::State& st) {
    const std::string basis = "123456789012345678901234567890123456789012345678901234567";
    for (auto _ : st) {
        size_t laenge = 0;
        for (int i = 0; i < 500; ++i) {
            CollatzZahl = Ziffern2Hyp(basis + std::to_string(100 + i));
            laenge += CollatzZeile(int32_t(st.range(0)), 0).size();
        }
        benchmark::DoNotOptimize(laenge);
    }
    st.SetItemsProcessed(int64_t(st.iterations() * 500));
}
BENCHMARK(BM_Zeilen)->Arg(0)->Arg(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
