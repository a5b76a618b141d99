// MersenneSchritt: one exact Lucas-Lehmer step S := S^2 - 2 modulo 2^p - 1 with GMP. The
// reduction needs no division: 2^p = 1 modulo 2^p - 1, so the bits above p are added onto the
// low p bits. The transform engine falls back on it, and the benchmark measures against it.
#pragma once

#include <gmp.h>

#include <cstdint>

namespace sw {

// s in 0 .. m - 1 with m = 2^p - 1; hoch is scratch space.
void MersenneSchritt(mpz_ptr s, mpz_ptr hoch, mpz_srcptr m, uint32_t p);

}  // namespace sw
