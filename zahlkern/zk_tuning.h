// Tuning constants of zahlkern, each with the measurement that chose it. Measured with
// bench/zahlkern_hyp.cpp (release build, GCC 12, Intel Xeon of the build machine, GMP 6.2).
#pragma once

#include <cstdint>

namespace zk {

// Products whose shorter operand has fewer words than this run as a word loop; from here on
// the copy into limb buffers plus mpn_mul is faster. aMulHypHyp, n x n words, ns per call
// (median of 3):
//   n             2     3     4     5     6     8
//   word loop   8.0  11.2  16.2  22.0  30.5  49.6
//   via mpn    15.0  17.1  18.9  20.7  21.5  22.8
constexpr int32_t kMulWorteSchule = 5;

// Squares below this many words run as a word loop, from here on through mpn_sqr.
// aQuadHyp, n words, ns per call:
//   n             2     3     4     5     6     8
//   word loop   6.7  10.5  15.4  23.7  29.8  48.8
//   via mpn    14.4  15.5  16.7  19.3  19.5  20.5
constexpr int32_t kQuadWorteSchule = 5;

static_assert(kMulWorteSchule >= 1 && kMulWorteSchule <= 64);
static_assert(kQuadWorteSchule >= 1 && kQuadWorteSchule <= 64);

}  // namespace zk

namespace zk {

// The Collatz kernels jump kUlamBits halving-or-(3n+1)/2 steps at once through a table of
// 2^kUlamBits entries (and count values below 2^kUlamBits by a second table).
// Measured over the start values 1..10^7 (aUlamAnzi), numbers per second:
//   k = 12: 35.8M, k = 14: 43.7M, k = 16: 53.6M (tables of 2^k entries, 4 bytes each, twice).
constexpr int kUlamBits = 16;
static_assert(kUlamBits >= 8 && kUlamBits <= 16, "T^k(b) must fit 27 bits of the packed table");

}  // namespace zk
