// Tuning constants of zahlkern, each with the measurement that chose it. Measured with
// bench/zahlkern_hyp.cpp (release build, GCC 12, Intel Xeon of the build machine, GMP 6.2).
#pragma once

#include <cstdint>

#include "zahlkern/zk_klein.h"

namespace zk {

// Products whose longer operand has at most this many words run in the column kernels of
// zk_klein; longer ones are copied into limb buffers for mpn_mul. aMulHypHyp, n x n words,
// ns per call (median of 3; mpn_mul alone on the same numbers for scale):
//   n                 2     5     8    10    12    14    16
//   column kernel   7.3  11.2  15.0  19.3  33.1  38.0  52.9
//   copies + mpn                          33.7  41.3  48.7
//   mpn_mul alone   5.4   9.6  12.1  21.0  24.8  32.7  41.4
constexpr int32_t kMulKleinBis = 14;

// Squares up to this many words run in the column kernels, longer ones through mpn_sqr.
// aQuadHyp, n words, ns per call:
//   n                 2     5     8    10    12    14    16
//   column kernel   5.7   9.5  12.6  15.5  21.5  27.5  32.4
//   copies + mpn                          26.0  29.9  40.2
//   mpn_sqr alone   6.3   7.3   8.9  12.6  17.1  22.9  29.8
constexpr int32_t kQuadKleinBis = 16;

static_assert(kMulKleinBis >= 1 && kMulKleinBis <= kKleinWorte);
static_assert(kQuadKleinBis >= 1 && kQuadKleinBis <= kKleinWorte);

}  // namespace zk

namespace zk {

// The Collatz kernels jump kUlamBits halving-or-(3n+1)/2 steps at once through a table of
// 2^kUlamBits entries (and count values below 2^kUlamBits by a second table).
// Measured over the start values 1..10^7 (aUlamAnzi), numbers per second:
//   k = 12: 35.8M, k = 14: 43.7M, k = 16: 53.6M (tables of 2^k entries, 4 bytes each, twice).
constexpr int kUlamBits = 16;
static_assert(kUlamBits >= 8 && kUlamBits <= 16, "T^k(b) must fit 27 bits of the packed table");

}  // namespace zk
