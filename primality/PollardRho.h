// PollardRho: Pollard's rho method in Brent's variant, the quick road to the factors of a few
// up to a dozen digits that trial division left. The products of |x - y| are gathered for a
// batch of steps before one gcd is taken, since a gcd costs as much as dozens of steps.
#pragma once

#include <gmp.h>

#include <cstdint>
#include <functional>

namespace sw {

// Looks for a proper factor of the odd composite n (no prime power) in at most `schritte`
// steps of x -> x^2 + c, starting again with the next c when a cycle closes on n itself.
// stopp is asked now and then; true ends the search. True with 1 < faktor < n when found.
bool PollardRhoBrent(mpz_ptr faktor, mpz_srcptr n, uint64_t schritte, const std::function<bool()>& stopp);

}  // namespace sw
