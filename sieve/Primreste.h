// Primreste: the residues of one large number modulo many small primes at once. The tertiary
// sieve needs the start of its window modulo every sieving prime, up to millions of them; one
// long division of a number of thousands of digits per prime would cost far more than all the
// striking. The residues are taken in batches instead, so that each pass over the digits of
// the number serves many primes.
#pragma once

#include <gmp.h>

#include <cstddef>
#include <cstdint>

namespace sw {

// reste[i] = n mod primzahlen[i] for i < anzahl; every prime odd and below 2^32.
void PrimzahlReste(mpz_srcptr n, const uint32_t* primzahlen, size_t anzahl, uint32_t* reste);

}  // namespace sw
