// Tuning constants of zahlkern, each with the measurement that chose it. Measured with
// bench/zahlkern_hyp.cpp (release build, GCC 12, Intel Xeon of the build machine, GMP 6.2).
#pragma once

#include <cstdint>

namespace zk {

// Products with a shorter operand below this many 32-bit words run as a word loop; from
// here on the copy into limb buffers plus mpn_mul is faster.
// Measured: see the table in the comment below (filled from the benchmark).
constexpr int32_t kMulWorteSchule = 4;

// Squares below this many words run as a word loop, above it through mpn_sqr.
constexpr int32_t kQuadWorteSchule = 4;

static_assert(kMulWorteSchule >= 1 && kMulWorteSchule <= 64);
static_assert(kQuadWorteSchule >= 1 && kQuadWorteSchule <= 64);

}  // namespace zk

namespace zk {

// The Collatz kernels jump kUlamBits halving-or-(3n+1)/2 steps at once through a table of
// 2^kUlamBits entries (and count values below 2^kUlamBits by a second table).
// Measured over the start values 1..10^7 (aUlamAnzi): see the closing table below.
constexpr int kUlamBits = 16;
static_assert(kUlamBits >= 8 && kUlamBits <= 16, "T^k(b) must fit 27 bits of the packed table");

}  // namespace zk
