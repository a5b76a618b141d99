#include "mersenne/MersenneSchritt.h"

namespace sw {

void MersenneSchritt(mpz_ptr s, mpz_ptr hoch, mpz_srcptr m, uint32_t p) {
    mpz_mul(s, s, s);
    // s < 2^2p: after one fold the sum is below 2^(p+1), after the second one comparison is left.
    for (int i = 0; i < 2; ++i) {
        mpz_tdiv_q_2exp(hoch, s, p);
        mpz_tdiv_r_2exp(s, s, p);
        mpz_add(s, s, hoch);
    }
    if (mpz_cmp(s, m) >= 0) mpz_sub(s, s, m);
    // s^2 - 2 below 0 (s was 0 or 1) is taken modulo 2^p - 1 as well.
    if (mpz_cmp_ui(s, 2) < 0) mpz_add(s, s, m);
    mpz_sub_ui(s, s, 2);
}

}  // namespace sw
