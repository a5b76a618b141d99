// PrimSuche: is N prime, the next prime above N and the previous one below, for N of any size,
// without a raster up to N. Inside the primary raster the raster answers. Up to 2^96 a short
// window of the secondary sieve next to N is sieved by the raster's primes; a survivor is
// prime when the raster reaches its square root, else BPSW decides. Beyond 2^96 the numbers
// prime to 30 are walked, each through a small-prime filter and BPSW.
//
// A verdict is proven when the raster reached the square root, when BPSW passed below 2^64
// (no composite there passes), and always for "composite"; otherwise it is "probable prime".
// The primary raster must be in place (PrimaerGrenze at least 1000).
//
// The calculator asks only what the sieve decides (PrimNach, PrimVor): primes up to the square
// of the primary limit.
#pragma once

#include "frame/Decimal.h"
#include "primality/HypMpz.h"

namespace sw {

struct PrimBefund {
    bool prim = false;
    bool bewiesen = true;
};

struct PrimFund {
    bool gefunden = false;  // false: no prime below N (N <= 2)
    Mpz zahl;
    bool bewiesen = true;
};

PrimBefund PrimBefundVon(const Mpz& n);
// The smallest prime greater than n.
PrimFund NaechstePrimzahl(const Mpz& n);
// The greatest prime smaller than n, if there is one.
PrimFund VorherigePrimzahl(const Mpz& n);

// The smallest prime above n; 0 when it would lie beyond the square of the limit or no raster
// has been built.
Decimal PrimNach(const Decimal& n);
// The greatest prime below n; 0 when there is none, when n - 1 lies beyond the square of the
// limit, or when no raster has been built.
Decimal PrimVor(const Decimal& n);

}  // namespace sw
