// basQuadrato: sieving by differences of squares. Every odd composite coprime to 30 is
// x^2 - y^2 = a(a + 2y) with a = x - y >= 3, so walking the pairs (a, y) strikes them all
// without ever looking at a prime. Here the primary range; the secondary window of the prime
// display comes with that display.
#pragma once

namespace sw {

// Method 4.
void SiebQuadratDifferenz();

}  // namespace sw
