// Time per Lucas-Lehmer iteration: the transform engine against GMP (mpz_mul and the fold) in
// the same run. The counters give the FFT length, the largest round-off, the ratio to GMP, the
// time of the construction (FFTW measuring its plans, or taking them from the stored search:
// gespeichert = 1; `sw-cli lucas P --plan-fft` stores them) and the projected full test. Both
// sides are timed on the thread's CPU clock, as the machine may be shared.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <time.h>

#include "frame/Pfade.h"
#include "frame/basZentral.h"
#include "mersenne/LucasDwt.h"
#include "mersenne/MersenneSchritt.h"
#include "primality/HypMpz.h"

namespace {

double Jetzt() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + 1e-9 * double(t.tv_nsec);
}

double Sekunden(double seit) { return Jetzt() - seit; }

// Seconds per exact step, over enough steps for a steady figure.
double GmpProIteration(uint32_t p) {
    sw::Mpz m, s(4), hoch;
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    const uint32_t k = p < 200000 ? 2000 : 40;
    const auto anfang = Jetzt();
    for (uint32_t i = 0; i < k; ++i) sw::MersenneSchritt(s, hoch, m, p);
    return Sekunden(anfang) / k;
}

void LucasIteration(benchmark::State& state) {
    const auto p = uint32_t(state.range(0));
    // The plans stored by `sw-cli lucas P --plan-fft` lie in the working folder sw-cli uses.
    if (sw::ProgrammPfad.empty()) sw::ProgrammPfad = sw::ArbeitsOrdnerBestimmen();
    const double gmp = GmpProIteration(p);
    const auto bau = Jetzt();
    sw::LucasDwt d(p);
    const double planen = Sekunden(bau);
    d.Laufen(10);
    const uint32_t k = p < 200000 ? 100 : 10;
    const auto anfang = Jetzt();
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
    state.counters["gespeichert"] = d.GespeichertePlaene() ? 1 : 0;
    state.counters["volltest_h"] = dwt * (p - 2) / 3600.0;
}
BENCHMARK(LucasIteration)->Arg(86243)->Arg(1257787)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
