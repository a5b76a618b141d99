// Time per Lucas-Lehmer iteration: the transform engine against GMP (mpz_mul and the fold) in
// the same run. The counters give the FFT length, the largest round-off, the ratio to GMP, the
// time of the first construction (FFTW measuring its plans) and the projected full test.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <chrono>

#include "mersenne/LucasDwt.h"
#include "mersenne/MersenneSchritt.h"
#include "primality/HypMpz.h"

namespace {

using Uhr = std::chrono::steady_clock;

double Sekunden(Uhr::time_point seit) { return std::chrono::duration<double>(Uhr::now() - seit).count(); }

// Seconds per exact step, over enough steps for a steady figure.
double GmpProIteration(uint32_t p) {
    sw::Mpz m, s(4), hoch;
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    const uint32_t k = p < 200000 ? 2000 : 40;
    const auto anfang = Uhr::now();
    for (uint32_t i = 0; i < k; ++i) sw::MersenneSchritt(s, hoch, m, p);
    return Sekunden(anfang) / k;
}

void LucasIteration(benchmark::State& state) {
    const auto p = uint32_t(state.range(0));
    const double gmp = GmpProIteration(p);
    const auto bau = Uhr::now();
    sw::LucasDwt d(p);
    const double planen = Sekunden(bau);
    d.Laufen(10);
    const uint32_t k = p < 200000 ? 100 : 10;
    const auto anfang = Uhr::now();
    uint64_t schritte = 0;
    for (auto _ : state) {
        d.Laufen(k);
        schritte += k;
    }
    const double dwt = Sekunden(anfang) / double(schritte);
    state.SetItemsProcessed(int64_t(schritte));
    state.counters["fft_laenge"] = double(d.FftLaenge());
    state.counters["fehler"] = d.GroessterFehler();
    state.counters["gmp_us"] = gmp * 1e6;
    state.counters["dwt_us"] = dwt * 1e6;
    state.counters["verhaeltnis"] = dwt / gmp;
    state.counters["planen_s"] = planen;
    state.counters["volltest_h"] = dwt * (p - 2) / 3600.0;
}
BENCHMARK(LucasIteration)->Arg(86243)->Arg(1257787)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
