// CollatzBereich: the counts of every start of a range of 64-bit starts, for sw-cli's
// collatz-count and the benchmarks. Each walk stops once it falls below its start onto a
// start already counted, so most of a range costs a few table jumps per start.
#pragma once

#include <cstdint>
#include <functional>

#include "collatz/CollatzSprung.h"

namespace sw {

// Calls jeStart(n, gang) for n = von..bis in order. Yields every 65536 starts and returns
// false when Abbruch stopped it.
bool CollatzBereichZaehlen(uint64_t von, uint64_t bis, CollatzRegel regel,
                           const std::function<void(uint64_t, const CollatzGang&)>& jeStart);

}  // namespace sw
