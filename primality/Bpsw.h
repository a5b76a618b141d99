// Bpsw: the Baillie-PSW probable-prime test, the test the field trusts for numbers of any
// size: a strong test to base 2, then a strong Lucas test with Selfridge's parameters
// (the first D of 5, -7, 9, -11, ... with Jacobi (D/n) = -1, P = 1, Q = (1 - D)/4).
// No composite passing both is known, and below 2^64 none exists (every base-2 strong
// pseudoprime up to there has been listed and fails the Lucas part), so for n < 2^64 a pass
// is a proof.
#pragma once

#include <gmp.h>

#include "zahlkern/Hyp.h"

namespace sw {

// One strong (Miller-Rabin) round to base a for odd n > 2 (a in 2 .. n-2).
bool StarkerPseudoprimTest(mpz_srcptr n, unsigned long a);
// The strong Lucas test with Selfridge's parameters for odd n > 2 that is no square.
bool StarkerLucasTest(mpz_srcptr n);

// The division by the primes below 100 that opens the whole test: 1 for a prime (one of them,
// or a number below 97^2 without such a factor), 0 for 0, 1 and every multiple, -1 when only
// the rounds can tell. Callers with a test of their own put it first, as BpswTest does.
int KleinePrimzahlenEntscheiden(mpz_srcptr n);

// The whole test: small primes by division, then both rounds. 0 and 1 are not prime.
bool BpswTest(mpz_srcptr n);
bool BpswTest(const Hyp& n);

// True when a BPSW pass proves n prime (n below 2^64).
bool BpswBeweist(mpz_srcptr n);

}  // namespace sw
