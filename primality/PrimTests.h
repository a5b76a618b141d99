// PrimTests: the tests of one number of any size that the prime test window, the complete
// test, the tertiary sieve and the palindromes share. Each takes a Hyp and answers with a
// truth value; none shows anything. The modular powers run on GMP's mpz_powm: at thousands of
// digits its windowed Montgomery powers are what the field measures against, and one road
// for every caller keeps the verdicts identical.
#pragma once

#include <cstdint>

#include "zahlkern/Hyp.h"

namespace sw {

// The base of MillerRabin: -2 draws one at random from 2 .. 64001 for each round; any other
// value b means the base b + 2 (so 0 is base 2).
extern int32_t MillerRabinBasis;

// True if the Perrin number P(n) is 0 mod n, computed as the trace of x^n in the ring
// modulo x^3 = x + 1 (never the sequence itself). Multiples of 3, and so 3 itself, give false.
bool PerrinTest(const Hyp& n);
// One strong round to the base of MillerRabinBasis. Even n give false.
bool MillerRabin(const Hyp& n);
// One Solovay-Strassen round to a random base: Euler's criterion against the Jacobi symbol.
bool StrassenTest(const Hyp& n);
// True if 2^(n-1) = 1 mod n.
bool FermatTest(const Hyp& n);
// Fermat's method by sums, walking from the root up to the trivial split 1 * n: true if no
// factor was found, false for a factor, a square or a stop by the user. Exact, and slow for
// primes (about n / 2 rounds); it yields and honours Abbruch.
bool FermatSuche(const Hyp& n);

}  // namespace sw
