// Values of k settled per second by the divisor search at p near 10^8, against the plain loop
// beside it: every k, no sieve, one Montgomery 2^p mod q after the other. Sieved-out k count
// as settled, since the search has answered them. The counter "verhaeltnis" is the speed-up
// (target at least 10).
#include <benchmark/benchmark.h>

#include <chrono>

#include "mersenne/TeilerSuche.h"

namespace {

using Uhr = std::chrono::steady_clock;
constexpr uint32_t kP = 100000007;  // prime; 2^p - 1 has no factor with k up to 4 * 10^8 (sw-cli divisors)

double Sekunden(Uhr::time_point seit) { return std::chrono::duration<double>(Uhr::now() - seit).count(); }

// The reference: 2^p mod q by plain Montgomery squarings, for k = 1, 2, 3, ...
bool plainTeilt(uint32_t p, uint64_t q) {
    using U = unsigned __int128;
    uint64_t inv = q;
    for (int i = 0; i < 5; ++i) inv *= 2 - q * inv;
    auto redc = [&](U t) {
        const uint64_t m = uint64_t(t) * inv;
        const uint64_t h = uint64_t(t >> 64), mq = uint64_t((U(m) * q) >> 64);
        return h >= mq ? h - mq : h - mq + q;
    };
    uint64_t x = uint64_t((U(1) << 64) % q);  // 1 in Montgomery form
    for (int b = 31 - __builtin_clz(p); b >= 0; --b) {
        x = redc(U(x) * x);
        if ((p >> b) & 1) {
            x += x;
            if (x >= q) x -= q;
        }
    }
    return redc(x) == 1;
}

double plainProSekunde() {
    const uint64_t n = 2000000;
    uint64_t treffer = 0;
    const auto anfang = Uhr::now();
    for (uint64_t k = 1; k <= n; ++k) treffer += plainTeilt(kP, 1 + 2 * k * kP);
    benchmark::DoNotOptimize(treffer);
    return double(n) / Sekunden(anfang);
}

void TeilerSuchlauf(benchmark::State& state) {
    const double plain = plainProSekunde();
    const auto breite = uint64_t(state.range(0));
    sw::TeilerSuche s(kP);
    uint64_t k = 0;
    const auto anfang = Uhr::now();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s.TeilerSuchen(k, k + breite));
        k += breite;
    }
    const double suche = double(k) / Sekunden(anfang);
    state.SetItemsProcessed(int64_t(k));
    state.counters["k_pro_s_suche"] = suche;
    state.counters["k_pro_s_plain"] = plain;
    state.counters["verhaeltnis"] = suche / plain;
    state.counters["getestet_anteil"] = double(s.Getestet()) / double(k);
}
BENCHMARK(TeilerSuchlauf)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
