// Probedivision: trial division of numbers of any size. The pre-test of every prime test run
// (2, 3, 5, then the small primes up to the limit, proving the number prime when the limit
// passes its root), the walk down from the root without a division per step, and the two
// questions the complete test asks: a small factor up to a bound, and a full trial division.
#pragma once

#include <cstdint>
#include <functional>

#include "primality/PrimTestBericht.h"
#include "zahlkern/Hyp.h"

namespace sw {

// The first divisor of n among 7 .. bis (primes from the raster when it holds the true
// primes that far, else the numbers prime to 30); 0 if there is none. Every 4096 divisors
// runde(d) is asked whether to go on; -1 when it said no.
int64_t KleinsterTeilerAb7(const Hyp& n, int64_t bis, const std::function<bool(int64_t d)>& runde);

// The pre-test of a run: decides 2, 3 and 5, numbers with a factor 2, 3 or 5, and any number
// with a prime factor up to grenze; a grenze above 6 that passes the root is lowered to it and
// settles the question. True when the method proper still has to run; false when a verdict
// was reported, or the user stopped (Abbruch, with no verdict).
bool Vorpruefung(const Hyp& zahl, int32_t& grenze, PrimTestBericht& bericht);

// Trial division from the root of zahl down to the limit, by the numbers prime to 30, with no
// division in the step: with zahl = q d + r, stepping to d - k gives zahl = q (d - k) + (r + kq),
// and the excess of the rest over d - k is taken out by subtraction. Reports 142 with the
// divisor (false) or 140 when the walk passed grenze (true; it proves, since the pre-test has
// divided up to grenze). A stop gives false with no verdict. zahl must be free of 2, 3, 5.
bool WurzelProbedivision(const Hyp& zahl, int32_t grenze, PrimTestBericht& bericht);

// True if n has a factor 2, 3 or 5, or a prime factor from 7 up to limit and its root.
bool HatKleinenTeiler(const Hyp& n, int32_t limit);
// True if n is prime by trial division up to its root. A root beyond the 32-bit divisors
// cannot be walked: the user is told so (text 1203) and the answer is false.
bool ProbedivisionHyp(const Hyp& n);
// Trial division of a word without any raster: for exponents and the few numbers where a
// raster is not at hand (n below 2^40 or so, a million divisions at most).
bool ProbedivisionPrim(uint64_t n);

}  // namespace sw
