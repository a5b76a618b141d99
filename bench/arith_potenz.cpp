// The Fermat test's powers at a 10,000-digit odd modulus m: 2^(m-1) mod m by ZweiPotenzMod
// and 3^(m-1) mod m by HypPotenzMod, each against mpz_powm (target: within 1.5x).
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <random>
#include <string>

#include "arith/HypText.h"
#include "arith/basRechnen.h"
#include "zahlkern/zahlkern.h"

namespace {

std::string modulText(size_t ziffern) {
    std::mt19937_64 r(7);
    std::string t(ziffern, '0');
    for (char& c : t) c = char('0' + r() % 10);
    t[0] = '9';
    t.back() = '7';  // odd
    return t;
}

struct Fall {
    sw::Hyp m, e;
    mpz_t zm, ze;
    explicit Fall(size_t ziffern) {
        const std::string t = modulText(ziffern);
        m = sw::Text2Hyp(t);
        e = m;
        e.mindestens(e.anzahl() + 1);
        aDecHyp(e);
        mpz_init_set_str(zm, t.c_str(), 10);
        mpz_init(ze);
        mpz_sub_ui(ze, zm, 1);
    }
    ~Fall() {
        mpz_clear(zm);
        mpz_clear(ze);
    }
};

void ZweiPotenzMod_Fermat(benchmark::State& state) {
    Fall f(size_t(state.range(0)));
    for (auto _ : state) {
        sw::Hyp r = sw::ZweiPotenzMod(f.e, f.m);
        benchmark::DoNotOptimize(r.daten());
    }
}
BENCHMARK(ZweiPotenzMod_Fermat)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void HypPotenzMod_Fermat3(benchmark::State& state) {
    Fall f(size_t(state.range(0)));
    for (auto _ : state) {
        sw::Hyp r = sw::HypPotenzMod(3, f.e, f.m);
        benchmark::DoNotOptimize(r.daten());
    }
}
BENCHMARK(HypPotenzMod_Fermat3)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// range(1) is the base.
void Gmp_powm(benchmark::State& state) {
    Fall f(size_t(state.range(0)));
    mpz_t b, r;
    mpz_init_set_ui(b, uint32_t(state.range(1)));
    mpz_init(r);
    for (auto _ : state) {
        mpz_powm(r, b, f.ze, f.zm);
        benchmark::DoNotOptimize(r);
    }
    mpz_clear(b);
    mpz_clear(r);
}
BENCHMARK(Gmp_powm)->Args({1000, 2})->Args({1000, 3})->Args({10000, 2})->Args({10000, 3})->Unit(benchmark::kMillisecond);

}  // namespace
