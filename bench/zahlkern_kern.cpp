// Call rates of the word-sized kernels on random inputs, in calls (or numbers) per second.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "zahlkern/zahlkern.h"

namespace {

constexpr int kMenge = 4096;  // inputs cycled through, prepared before timing

void BM_aModPot32(benchmark::State& st) {
    std::mt19937 g(11);
    std::vector<int32_t> b(kMenge), e(kMenge), m(kMenge);
    for (int i = 0; i < kMenge; ++i) {
        b[size_t(i)] = int32_t(g() >> 1);
        e[size_t(i)] = int32_t(g() >> 1);
        m[size_t(i)] = int32_t(g() >> 1) | 2;
    }
    size_t i = 0;
    for (auto _ : st) {
        benchmark::DoNotOptimize(aModPot32(b[i], e[i], m[i]));
        i = (i + 1) & (kMenge - 1);
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(BM_aModPot32);

void BM_aQuadSpecialDecMod64(benchmark::State& st) {
    std::mt19937_64 g(12);
    std::vector<DecimalSatz> x(kMenge), q(kMenge);
    for (int i = 0; i < kMenge; ++i) {
        const uint64_t mq = (g() >> 1) | (uint64_t(1) << 62) | 1;
        const uint64_t mx = g() % mq;
        q[size_t(i)] = DecimalSatz{0, 0, 0, 0, uint32_t(mq), uint32_t(mq >> 32)};
        x[size_t(i)] = DecimalSatz{0, 0, 0, 0, uint32_t(mx), uint32_t(mx >> 32)};
    }
    size_t i = 0;
    for (auto _ : st) {
        aQuadSpecialDecMod64(&x[i], &q[i]);  // the square stays below q: it feeds the next round
        i = (i + 1) & (kMenge - 1);
    }
    benchmark::DoNotOptimize(x[0].Lo32);
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(BM_aQuadSpecialDecMod64);

bool prim(uint32_t n) {
    if (n < 2) return false;
    for (uint32_t d = 2; uint64_t(d) * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return true;
}

void BM_aMersenneTeiler32(benchmark::State& st) {
    std::mt19937 g(13);
    std::vector<int32_t> q(1024);
    for (auto& x : q) {
        uint32_t v = (g() % 2000000000u) | 1;
        while (!prim(v)) v += 2;
        x = int32_t(v);
    }
    size_t i = 0;
    for (auto _ : st) {
        benchmark::DoNotOptimize(aMersenneTeiler32(q[i], q[i] - 1));
        i = (i + 1) & 1023;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(BM_aMersenneTeiler32);

// The wide divisor search: candidates q = 2kp + 1 below 2^63 with the bound of its caller.
void BM_aMersenneTeilerDec(benchmark::State& st) {
    std::mt19937_64 g(14);
    std::vector<DecimalSatz> q(1024);
    for (auto& d : q) {
        const uint64_t p = (g() % 1000000000u) | 1, k = g() % 2000000000u + 1;
        const uint64_t v = 2 * k * p + 1;
        d = DecimalSatz{0, 0, 0, 0, uint32_t(v), uint32_t(v >> 32)};
    }
    size_t i = 0;
    for (auto _ : st) {
        const int32_t m = aMersTeilerMaxReduceDec(&q[i], 2000000000);
        benchmark::DoNotOptimize(aMersenneTeilerDec(&q[i], m));
        i = (i + 1) & 1023;
    }
    st.SetItemsProcessed(st.iterations());
}
BENCHMARK(BM_aMersenneTeilerDec);

void BM_aUlamAnzi_1_bis_10hoch7(benchmark::State& st) {
    constexpr uint32_t kBis = 10000000;
    for (auto _ : st) {
        uint64_t summe = 0;
        for (uint32_t x = 1; x <= kBis; ++x) {
            const DecimalSatz d{0, 0, 0, 0, x, 0};
            summe += uint64_t(aUlamAnzi(&d));
        }
        benchmark::DoNotOptimize(summe);
    }
    st.SetItemsProcessed(st.iterations() * kBis);
}
BENCHMARK(BM_aUlamAnzi_1_bis_10hoch7)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
