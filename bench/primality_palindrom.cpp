// The palindrome game's click at 300 digits (target: under 50 ms for the nine candidates):
// ZiffernPruefen on a 300-digit prime in each arrangement, and the worst case behind it, nine
// BPSW passes of 301-digit primes that no small divisor settles. And the left growth tree,
// the largest (4,260 members up to 24 digits).
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <string>
#include <vector>

#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "primality/Palindrom.h"

namespace {

std::string text(mpz_srcptr z) {
    std::string s(mpz_sizeinbase(z, 10) + 1, '\0');
    mpz_get_str(s.data(), 10, z);
    s.resize(s.find('\0'));
    return s;
}

// The first prime above 10^(stellen-1) + versatz, the same in every run.
sw::Mpz primzahl(unsigned long stellen, unsigned long versatz) {
    sw::Mpz p;
    mpz_ui_pow_ui(p, 10, stellen - 1);
    mpz_add_ui(p, p, versatz);
    mpz_nextprime(p, p);
    return p;
}

void Klick300(benchmark::State& state) {
    const std::string zahl = text(primzahl(300, 0));
    const auto a = sw::Anordnung(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(sw::ZiffernPruefen(zahl, a, false));
}
BENCHMARK(Klick300)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void NeunBpsw301(benchmark::State& state) {
    std::vector<sw::Mpz> primzahlen;
    for (unsigned long i = 0; i < 9; ++i) primzahlen.push_back(primzahl(301, 1'000'000 * i));
    for (auto _ : state)
        for (const sw::Mpz& p : primzahlen) benchmark::DoNotOptimize(sw::BpswTest(p));
}
BENCHMARK(NeunBpsw301)->Unit(benchmark::kMillisecond);

void BaumLinks(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(sw::PalindromBaumWachsen(sw::Anordnung::Links, 0, [](int32_t, uint64_t) { return true; }));
}
BENCHMARK(BaumLinks)->Unit(benchmark::kMillisecond);

}  // namespace
