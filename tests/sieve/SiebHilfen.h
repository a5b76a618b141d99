// Helpers of the sieve tests: an independent oracle (a plain sieve of Eratosthenes on bytes)
// and the comparison of a raster with it, bit by bit up to the limit.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sw::test {

// prim[n] for 0 <= n <= grenze.
std::vector<bool> Eratosthenes(uint64_t grenze);

// The numbers n <= grenze whose bit in the raster disagrees with the oracle (at most a few),
// as text; "" if the raster is right. Word 0 is taken as a finished raster has it.
std::string RasterAbweichungen(const std::vector<uint32_t>& raster, const std::vector<bool>& prim, uint64_t grenze);

}  // namespace sw::test
