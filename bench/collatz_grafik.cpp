// The step-count graphic: filling and drawing 2,000 columns of starts just below 2^59 (the
// target is under 0.2 s per picture), against a plain 128-bit loop over the same starts in
// the same run. Part of sw_bench_collatz when the window library is built.
#include <benchmark/benchmark.h>

#include <QImage>

#include <string>

#include "collatz/CollatzGrafik.h"
#include "windows/frmCollatzGRF.h"

namespace {

using namespace sw;

constexpr int kSpalten = 2000;
constexpr uint64_t kErster = (uint64_t(1) << 59) - kSpalten;

void BM_GrafikSchlicht(benchmark::State& st) {
    for (auto _ : st) {
        int64_t summe = 0;
        for (uint64_t s = kErster; s < kErster + kSpalten; ++s) {
            unsigned __int128 n = s;
            while (n > 1) {
                n = (n & 1) ? 3 * n + 1 : n >> 1;
                ++summe;
            }
        }
        benchmark::DoNotOptimize(summe);
    }
}
BENCHMARK(BM_GrafikSchlicht)->Unit(benchmark::kMillisecond);

// Arg 0 the normal mode, 1 the maximal mode; a picture of 2,000 x 800 pixels.
void BM_GrafikFuellenZeichnen(benchmark::State& st) {
    CollatzGrafik g;
    g.Maximal = st.range(0) == 1;
    GrafikLesen(g, std::to_string(kErster), "1", "1", "3", "1", "0");
    QImage bild(kSpalten, 800, QImage::Format_RGB32);
    for (auto _ : st) {
        GrafikFuellen(g, kSpalten - 1);
        bild.fill(Qt::white);
        GrafikSpaltenMalen(bild, g, 20, true, Qt::blue, Qt::lightGray);
        benchmark::DoNotOptimize(bild.constBits());
    }
}
BENCHMARK(BM_GrafikFuellenZeichnen)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
