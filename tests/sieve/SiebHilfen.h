// Helpers of the sieve tests: independent oracles (a plain sieve of Eratosthenes on bytes, and
// plain trial marking of a window in 128-bit arithmetic) and the comparison of a raster with
// them, bit by bit up to the limit.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "frame/Decimal.h"

namespace sw::test {

// prim[n] for 0 <= n <= grenze.
std::vector<bool> Eratosthenes(uint64_t grenze);

// frei[i] says whether von + i (> 1) has no prime factor up to grenze other than itself; with
// grenze^2 beyond the window these are exactly its primes.
std::vector<bool> FreiVonFaktoren(unsigned __int128 von, uint64_t anzahl, uint64_t grenze);

// The numbers n <= grenze whose bit in the raster disagrees with the oracle (at most a few),
// as text; "" if the raster is right. Word 0 is taken as a finished raster has it.
std::string RasterAbweichungen(const std::vector<uint32_t>& raster, const std::vector<bool>& prim, uint64_t grenze);

// Each number of the table through f against the text expected for it; a miss names the number.
void TextTabelle(const std::function<std::string(const Decimal&)>& f,
                 const std::vector<std::pair<Decimal, std::string>>& faelle);

}  // namespace sw::test
