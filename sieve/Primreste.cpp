#include "sieve/Primreste.h"

namespace sw {

void PrimzahlReste(mpz_srcptr n, const uint32_t* primzahlen, size_t anzahl, uint32_t* reste) {
    const mp_size_t limbs = mpz_size(n);
    const mp_limb_t* d = mpz_limbs_read(n);
    if (limbs == 0) {
        for (size_t i = 0; i < anzahl; ++i) reste[i] = 0;
        return;
    }
    // Two primes below 2^32 multiply to below 2^64: one pass over the limbs serves both, and
    // the two residues split off the one-limb remainder.
    size_t i = 0;
    for (; i + 1 < anzahl; i += 2) {
        const uint64_t p = primzahlen[i], q = primzahlen[i + 1];
        const uint64_t r = mpn_mod_1(d, limbs, p * q);
        reste[i] = uint32_t(r % p);
        reste[i + 1] = uint32_t(r % q);
    }
    if (i < anzahl) reste[i] = uint32_t(mpn_mod_1(d, limbs, primzahlen[i]));
}

}  // namespace sw
