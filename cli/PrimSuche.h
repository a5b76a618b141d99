// PrimSuche: is N prime, the next prime above N and the previous one below, for N of any size,
// without a raster up to N. Inside the primary raster the raster answers. Up to 2^96 a short
// window of the secondary sieve next to N is sieved by the raster's primes; a survivor is
// prime when the raster reaches its square root, else BPSW decides. Beyond 2^96 the numbers
// prime to 30 are walked, each through a small-prime filter and BPSW.
//
// A verdict is proven when the raster reached the square root, when BPSW passed below 2^64
// (no composite there passes), and always for "composite"; otherwise it is "probable prime".
// The primary raster must be in place (PrimaerGrenze at least 1000).
#pragma once

#include "primality/HypMpz.h"

namespace sw::cli {

struct Urteil {
    bool prim = false;
    bool bewiesen = true;
};

struct Fund {
    bool gefunden = false;  // false: no prime below N (N <= 2)
    Mpz zahl;
    bool bewiesen = true;
};

Urteil PrimUrteil(const Mpz& n);
// The smallest prime greater than n.
Fund NaechstePrimzahl(const Mpz& n);
// The greatest prime smaller than n, if there is one.
Fund VorherigePrimzahl(const Mpz& n);

}  // namespace sw::cli
