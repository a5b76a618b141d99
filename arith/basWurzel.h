// basWurzel: integer square roots of Hyp numbers and the perfect-square test on words.
#pragma once

#include <cstdint>

#include "zahlkern/Hyp.h"

namespace sw {

// The integer root of n (wurzel = true) or the rest n - root^2 (false); a rest of 0 means n is
// a perfect square. Newton's method from above on the library's quotients, each level started
// from the root of the number's upper half, so a root of a million digits takes well under a
// second.
Hyp HypWurzel(const Hyp& n, bool wurzel);

// True if x (> 0) is a perfect square: the residues mod 24 after taking out the factors 4 and
// 9 filter, the root decides.
bool IstQuadrat(int32_t x);

}  // namespace sw
