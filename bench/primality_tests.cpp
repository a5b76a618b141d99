// Miller-Rabin and Fermat on a random 10,000-digit number against mpz_powm of the same
// exponent (target: within 1.2x), and BPSW on 2^9689 - 1 and a random 5,000-digit number.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "primality/PrimTests.h"

namespace {

// A random odd number of that many digits, the same in every run.
sw::Mpz zufallsZahl(unsigned long stellen) {
    gmp_randstate_t rs;
    gmp_randinit_default(rs);
    gmp_randseed_ui(rs, stellen);
    sw::Mpz n, zehn(10), oben;
    mpz_pow_ui(oben, zehn, stellen - 1);
    mpz_urandomm(n, rs, oben);
    mpz_add(n, n, oben);
    mpz_setbit(n, 0);
    gmp_randclear(rs);
    return n;
}

void MillerRabin_10000(benchmark::State& state) {
    const sw::Hyp n = sw::MpzZuHyp(zufallsZahl(10000));
    sw::MillerRabinBasis = 0;  // base 2, as the reference
    for (auto _ : state) benchmark::DoNotOptimize(sw::MillerRabin(n));
    sw::MillerRabinBasis = -2;
}
BENCHMARK(MillerRabin_10000)->Unit(benchmark::kMillisecond);

void FermatTest_10000(benchmark::State& state) {
    const sw::Hyp n = sw::MpzZuHyp(zufallsZahl(10000));
    for (auto _ : state) benchmark::DoNotOptimize(sw::FermatTest(n));
}
BENCHMARK(FermatTest_10000)->Unit(benchmark::kMillisecond);

// The reference: 2^(n-1) mod n by GMP alone.
void Gmp_powm_10000(benchmark::State& state) {
    const sw::Mpz n = zufallsZahl(10000);
    sw::Mpz e, r, zwei(2);
    mpz_sub_ui(e, n, 1);
    for (auto _ : state) {
        mpz_powm(r, zwei, e, n);
        benchmark::DoNotOptimize(r.get());
    }
}
BENCHMARK(Gmp_powm_10000)->Unit(benchmark::kMillisecond);

void Bpsw_M9689(benchmark::State& state) {
    sw::Mpz n;
    mpz_ui_pow_ui(n, 2, 9689);
    mpz_sub_ui(n, n, 1);
    const sw::Hyp h = sw::MpzZuHyp(n);
    for (auto _ : state) benchmark::DoNotOptimize(sw::BpswTest(h));
}
BENCHMARK(Bpsw_M9689)->Unit(benchmark::kMillisecond);

// A random odd 5,000-digit number free of factors below 50: composite all but surely, and
// decided by the strong test to base 2, as bpsw_vs_pari.sh draws it too.
void Bpsw_5000(benchmark::State& state) {
    sw::Mpz n = zufallsZahl(5000);
    while (mpz_gcd_ui(nullptr, n, 307444891294245705ul) != 1) mpz_add_ui(n, n, 2);  // 3 * 5 * ... * 47
    const sw::Hyp h = sw::MpzZuHyp(n);
    for (auto _ : state) benchmark::DoNotOptimize(sw::BpswTest(h));
}
BENCHMARK(Bpsw_5000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
