// SiebMuster: the smallest primes of a window are copied, not struck. The multiples of a prime
// p repeat every p raster words (120p numbers), so the strikes of a group of primes repeat
// with the product of the group; a table of one period holds them, and a segment takes them
// with a few or-ed streams at the speed of the first-level cache. In a sieve to 1e10 the
// primes from 19 to 167 made about two fifths of the strikes; as patterns they take about
// 5 % of its time.
#pragma once

#include <cstdint>

namespace sw {

// The largest prime in the patterns: klein primes of a window begin above it.
inline constexpr uint32_t MusterGroesstePrimzahl = 167;
// The largest prime of the first pattern (7, 11, 13, 17), used alone where a window's sieving
// primes stop below MusterGroesstePrimzahl.
inline constexpr uint32_t MusterErsteGroesste = 17;

// The pattern position of a window: the word of its start modulo each period.
struct MusterStand {
    uint32_t pos[16];
};
MusterStand MusterStandVon(unsigned __int128 startWort);

// Writes the strikes of the primes 7 to 17 (alle = false) or 7 to 167 (alle = true) into
// ziel[0 .. anzahl) for the words stand + versatz on; anzahl at most MusterLaengeHoechstens.
inline constexpr uint64_t MusterLaengeHoechstens = uint64_t(1) << 13;
void MusterSchreiben(uint32_t* ziel, uint64_t anzahl, const MusterStand& stand, uint64_t versatz, bool alle);

}  // namespace sw
