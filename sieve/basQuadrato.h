// basQuadrato: sieving by differences of squares. Every odd composite coprime to 30 is
// x^2 - y^2 = a(a + 2y) with a = x - y >= 3, so walking the pairs (a, y) strikes them all
// without ever looking at a prime. Here the primary range; the secondary window of the prime
// display comes with that display.
#pragma once

#include <cstdint>

#include "frame/Decimal.h"

namespace sw {

// Method 4.
void SiebQuadratDifferenz();

// The window of the prime display's mode 5, from start to the number ende (not a length):
// SekundaerStart = start rounded down to a multiple of 120, words up to ende div 120. Every
// composite a(a + 2y) of the window, a its smallest prime factor, is struck, with the progress
// on ziel (may be null). The sieving primes beyond the primary raster are sieved on the way,
// up to the largest limit a raster could have (beyond, text 514 and a window that may hold
// composites). Out of memory: "SW - Speicher" and false.
class SekundaerFortschrittZiel;
bool SekundaerQuadrato(const Decimal& start, const Decimal& ende, SekundaerFortschrittZiel* ziel);
// The primes n of that window with von <= n <= bis.
int64_t SekundaerQuadratoZaehlen(const Decimal& von, const Decimal& bis);

}  // namespace sw
