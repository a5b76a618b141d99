// The wide Hyp operations against the matching mpn call on the same operands: the Hyp side
// pays for its copies into limb buffers, which is the point of the comparison.
// Sizes are 32-bit words (10 ... 100,000); GMP gets the same numbers as 64-bit limbs.
#include <benchmark/benchmark.h>
#include <gmp.h>

#include <cstring>
#include <random>
#include <vector>

#include "zahlkern/Hyp.h"
#include "zahlkern/zahlkern.h"

namespace {

std::vector<uint32_t> zufall(int n, uint64_t seed) {
    std::mt19937_64 g(seed);
    std::vector<uint32_t> w(static_cast<size_t>(n));
    for (auto& x : w) x = uint32_t(g());
    w.back() |= 0x80000000u;
    return w;
}

sw::Hyp hyp(const std::vector<uint32_t>& w, int32_t raum) {
    sw::Hyp h(raum);
    h[0] = int32_t(w.size());
    std::memcpy(h.daten() + 1, w.data(), w.size() * 4);
    return h;
}

std::vector<mp_limb_t> limbs(const std::vector<uint32_t>& w) {
    std::vector<mp_limb_t> l((w.size() + 1) / 2, 0);
    std::memcpy(l.data(), w.data(), w.size() * 4);
    return l;
}

void groessen(benchmark::internal::Benchmark* b) {
    for (int n : {10, 100, 1000, 10000, 100000}) b->Arg(n);
}

// The short sizes around the column-kernel thresholds of zahlkern/zk_tuning.h.
void kurz(benchmark::internal::Benchmark* b) {
    for (int n : {2, 3, 4, 5, 6, 8, 12, 14, 16, 18, 20, 24}) b->Arg(n);
}

void BM_aMulHypHyp(benchmark::State& st) {
    const int n = int(st.range(0));
    const sw::Hyp a = hyp(zufall(n, 1), n), b = hyp(zufall(n, 2), n);
    sw::Hyp t(2 * n);
    for (auto _ : st) {
        aMulHypHyp(t, a, b);
        benchmark::DoNotOptimize(t[1]);
    }
}
BENCHMARK(BM_aMulHypHyp)->Apply(kurz)->Apply(groessen);

void BM_mpn_mul(benchmark::State& st) {
    const int n = int(st.range(0));
    const auto a = limbs(zufall(n, 1)), b = limbs(zufall(n, 2));
    std::vector<mp_limb_t> t(a.size() + b.size());
    for (auto _ : st) {
        mpn_mul(t.data(), a.data(), mp_size_t(a.size()), b.data(), mp_size_t(b.size()));
        benchmark::DoNotOptimize(t[0]);
    }
}
BENCHMARK(BM_mpn_mul)->Apply(kurz)->Apply(groessen);

void BM_aQuadHyp(benchmark::State& st) {
    const int n = int(st.range(0));
    const sw::Hyp a = hyp(zufall(n, 3), n);
    sw::Hyp t(2 * n);
    for (auto _ : st) {
        aQuadHyp(t, a);
        benchmark::DoNotOptimize(t[1]);
    }
}
BENCHMARK(BM_aQuadHyp)->Apply(kurz)->Apply(groessen);

void BM_mpn_sqr(benchmark::State& st) {
    const int n = int(st.range(0));
    const auto a = limbs(zufall(n, 3));
    std::vector<mp_limb_t> t(2 * a.size());
    for (auto _ : st) {
        mpn_sqr(t.data(), a.data(), mp_size_t(a.size()));
        benchmark::DoNotOptimize(t[0]);
    }
}
BENCHMARK(BM_mpn_sqr)->Apply(kurz)->Apply(groessen);

// Division of a 2n-word number by an n-word one. The dividend becomes the remainder, so
// both sides restore it from a copy in every round (the same memcpy on both sides).
void BM_aDivHypHyp(benchmark::State& st) {
    const int n = int(st.range(0));
    const sw::Hyp a = hyp(zufall(2 * n, 4), 3 * n + 1), b = hyp(zufall(n, 5), 3 * n + 1);
    sw::Hyp arbeit(3 * n + 1), q(3 * n + 1);
    for (auto _ : st) {
        std::memcpy(arbeit.daten(), a.daten(), size_t(2 * n + 1) * 4);
        aDivHypHyp(q, arbeit, b);
        benchmark::DoNotOptimize(q[1]);
    }
}
BENCHMARK(BM_aDivHypHyp)->Apply(groessen);

void BM_aModHypHyp(benchmark::State& st) {
    const int n = int(st.range(0));
    const sw::Hyp a = hyp(zufall(2 * n, 4), 3 * n + 1), b = hyp(zufall(n, 5), 3 * n + 1);
    sw::Hyp arbeit(3 * n + 1);
    for (auto _ : st) {
        std::memcpy(arbeit.daten(), a.daten(), size_t(2 * n + 1) * 4);
        aModHypHyp(arbeit, b);
        benchmark::DoNotOptimize(arbeit[1]);
    }
}
BENCHMARK(BM_aModHypHyp)->Apply(groessen);

void BM_mpn_tdiv_qr(benchmark::State& st) {
    const int n = int(st.range(0));
    const auto a = limbs(zufall(2 * n, 4)), b = limbs(zufall(n, 5));
    std::vector<mp_limb_t> arbeit(a.size()), q(a.size()), r(b.size());
    for (auto _ : st) {
        std::memcpy(arbeit.data(), a.data(), a.size() * 8);
        mpn_tdiv_qr(q.data(), r.data(), 0, arbeit.data(), mp_size_t(a.size()), b.data(), mp_size_t(b.size()));
        benchmark::DoNotOptimize(q[0]);
    }
}
BENCHMARK(BM_mpn_tdiv_qr)->Apply(groessen);

}  // namespace
