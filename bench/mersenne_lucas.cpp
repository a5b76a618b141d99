// Time per Lucas-Lehmer iteration: the transform engine against GMP (mpz_mul and the fold) in
// the same run. The counters give the FFT length, the largest round-off, the ratio to GMP, the
// time of the construction (FFTW measuring its plans, or taking them from the stored search:
// gespeichert = 1; `sw-cli lucas P --plan-fft` stores them) and the projected full test. Both
// sides are timed on the thread's CPU clock, as the machine may be shared, and by turns: each
// benchmark iteration runs a batch of GMP steps and a batch of transform steps, and each side
// keeps its best batch, so that a slow minute of a shared host slows both or neither.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <time.h>

#include <algorithm>

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

// The exact step of the reference loop.
class GmpFolge {
public:
    explicit GmpFolge(uint32_t p) : p_(p), s_(4) {
        mpz_setbit(m_, p);
        mpz_sub_ui(m_, m_, 1);
    }
    void Laufen(uint32_t k) {
        for (uint32_t i = 0; i < k; ++i) sw::MersenneSchritt(s_, hoch_, m_, p_);
    }

private:
    uint32_t p_;
    sw::Mpz m_, s_, hoch_;
};

// Seconds per step of the best of the batches so far.
template <typename Folge>
void Stapel(Folge& f, uint32_t k, double& bester) {
    const auto anfang = Jetzt();
    f.Laufen(k);
    bester = std::min(bester, Sekunden(anfang) / k);
}

void LucasIteration(benchmark::State& state) {
    const auto p = uint32_t(state.range(0));
    // The plans stored by `sw-cli lucas P --plan-fft` lie in the working folder sw-cli uses.
    if (sw::ProgrammPfad.empty()) sw::ProgrammPfad = sw::ArbeitsOrdnerBestimmen();
    GmpFolge g(p);
    const auto bau = Jetzt();
    sw::LucasDwt d(p);
    const double planen = Sekunden(bau);
    // From 4 the residue doubles its length each step: after 40 steps both sides work on
    // full-size numbers.
    g.Laufen(40);
    d.Laufen(40);
    // Batches of some tens of milliseconds on each side.
    const uint32_t kGmp = p < 200000 ? 200 : 10, kDwt = p < 200000 ? 1000 : 40;
    double gmp = 1e9, dwt = 1e9;
    for (auto _ : state) {
        Stapel(g, kGmp, gmp);
        Stapel(d, kDwt, dwt);
    }
    state.counters["fft_laenge"] = double(d.FftLaenge());
    state.counters["fehler"] = d.GroessterFehler();
    state.counters["gmp_us"] = gmp * 1e6;
    state.counters["dwt_us"] = dwt * 1e6;
    state.counters["verhaeltnis"] = dwt / gmp;
    state.counters["planen_s"] = planen;
    state.counters["gespeichert"] = d.GespeichertePlaene() ? 1 : 0;
    state.counters["volltest_h"] = dwt * (p - 2) / 3600.0;
}
BENCHMARK(LucasIteration)->Arg(86243)->Arg(1257787)->Unit(benchmark::kMillisecond)->Iterations(25);

}  // namespace

BENCHMARK_MAIN();
