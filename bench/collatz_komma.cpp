// The walk of the fractional multiplier window against a GMP loop in the same run: the odd
// values of 2^1000 - 1 under y = 3 (4,317 of them), each step ceil(x y) made even by
// x Y + (10^10 - 1) div 10^10 as the window computes it, then halved to odd.
//   GmpKomma: the GMP loop with each value as decimal text;
//   KommaFolge: CollatzKommaFolge (display text of every value, the loop check) and the rows
//     of a list 120 characters wide, all that the window computes before it adds the rows.
#include <gmp.h>
#include <benchmark/benchmark.h>

#include <string>

#include "arith/HypText.h"
#include "collatz/CollatzUmbruch.h"
#include "collatz/basCollatz.h"

namespace {

using namespace sw;

void BM_GmpKomma(benchmark::State& st) {
    mpz_t x, y, a, b;
    mpz_inits(x, y, a, b, nullptr);
    mpz_set_str(y, "30000000000", 10);
    mpz_set_str(a, "9999999999", 10);
    mpz_set_str(b, "10000000000", 10);
    size_t elemente = 0;
    for (auto _ : st) {
        mpz_set_ui(x, 0);
        mpz_setbit(x, 1000);
        mpz_sub_ui(x, x, 1);
        std::string text = "3,0000000000 ";
        elemente = 0;
        for (;;) {
            mpz_tdiv_q_2exp(x, x, mpz_scan1(x, 0));
            char* z = mpz_get_str(nullptr, 10, x);
            text += z;
            free(z);
            ++elemente;
            if (mpz_cmp_ui(x, 1) == 0) break;
            text += "; ";
            mpz_mul(x, x, y);
            mpz_add(x, x, a);
            mpz_tdiv_q(x, x, b);
            if (mpz_odd_p(x)) mpz_add_ui(x, x, 1);
        }
        benchmark::DoNotOptimize(text.data());
    }
    mpz_clears(x, y, a, b, nullptr);
    st.counters["elements"] = double(elemente);
}
BENCHMARK(BM_GmpKomma)->Unit(benchmark::kMillisecond);

void BM_KommaFolge(benchmark::State& st) {
    // 2^1000 - 1: 31 full words and the 8 bits of the top one.
    Hyp start(33);
    for (int32_t i = 1; i <= 31; ++i) start[i] = -1;
    start[32] = 255;
    start[0] = 32;
    const std::string ziffern = Hyp2Text(start);
    size_t zeichen = 0, zeilen = 0;
    for (auto _ : st) {
        const std::string text = CollatzKommaFolge(ziffern, "3,0000000000", [](int32_t) { return true; });
        const auto zeilenListe = ZeilenUmbrechen(text, 120, [](const char*, int32_t) { return int32_t(1); });
        zeichen = text.size();
        zeilen = zeilenListe.size();
        benchmark::DoNotOptimize(zeilenListe.data());
    }
    st.counters["elements"] = double(FolgenListe.size());
    st.counters["chars"] = double(zeichen);
    st.counters["rows"] = double(zeilen);
}
BENCHMARK(BM_KommaFolge)->Unit(benchmark::kMillisecond);

}  // namespace
