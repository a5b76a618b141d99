// Hyp2Text and Text2Hyp of a 1,000,000-digit number against mpz_get_str and mpz_set_str
// (target: within 3x), and sw-cli's case, 2^2976221-1 evaluated, shown and counted.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <random>
#include <string>
#include <vector>

#include "arith/HypText.h"
#include "arith/basHyper.h"

namespace {

constexpr size_t kZiffern = 1000000;

const std::string& ziffern() {
    static const std::string text = [] {
        std::mt19937_64 r(42);
        std::string t(kZiffern, '0');
        for (char& c : t) c = char('0' + r() % 10);
        t[0] = '7';
        return t;
    }();
    return text;
}

void Hyp2Text_1e6(benchmark::State& state) {
    const sw::Hyp h = sw::Text2Hyp(ziffern());
    for (auto _ : state) {
        std::string t = sw::Hyp2Text(h);
        benchmark::DoNotOptimize(t.data());
        if (t.size() != kZiffern) state.SkipWithError("wrong length");
    }
}
BENCHMARK(Hyp2Text_1e6)->Unit(benchmark::kMillisecond);

void Gmp_get_str_1e6(benchmark::State& state) {
    mpz_t z;
    mpz_init_set_str(z, ziffern().c_str(), 10);
    std::vector<char> puffer(kZiffern + 2);
    for (auto _ : state) {
        mpz_get_str(puffer.data(), 10, z);
        benchmark::DoNotOptimize(puffer.data());
    }
    mpz_clear(z);
}
BENCHMARK(Gmp_get_str_1e6)->Unit(benchmark::kMillisecond);

void Text2Hyp_1e6(benchmark::State& state) {
    for (auto _ : state) {
        sw::Hyp h = sw::Text2Hyp(ziffern());
        benchmark::DoNotOptimize(h.daten());
    }
}
BENCHMARK(Text2Hyp_1e6)->Unit(benchmark::kMillisecond);

void Gmp_set_str_1e6(benchmark::State& state) {
    mpz_t z;
    mpz_init(z);
    for (auto _ : state) {
        mpz_set_str(z, ziffern().c_str(), 10);
        benchmark::DoNotOptimize(z);
    }
    mpz_clear(z);
}
BENCHMARK(Gmp_set_str_1e6)->Unit(benchmark::kMillisecond);

// The whole of `sw-cli eval "2^2976221-1"` except the printing: evaluation, display form and
// digit count (target: under 5 s).
void Auswerten_M2976221(benchmark::State& state) {
    for (auto _ : state) {
        const sw::Hyp h = sw::Auswerten("2^2976221-1");
        const std::string text = sw::Hyp2Text(h);
        const std::string anzeige = sw::ZiffernAnzeige(text);
        benchmark::DoNotOptimize(anzeige.data());
        if (text.size() != 895932) state.SkipWithError("wrong digit count");
    }
}
BENCHMARK(Auswerten_M2976221)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace

BENCHMARK_MAIN();
