#include "mersenne/basLucas.h"

#include <gmp.h>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "primality/Takt.h"

namespace sw {

namespace {

bool exponentPrim(uint32_t p) {
    if (p < 2) return false;
    for (uint32_t d = 2; uint64_t(d) * d <= p; ++d) {
        if (p % d == 0) return false;
    }
    return true;
}

// x := x mod 2^p - 1 for 0 <= x < 2^2p: x = h 2^p + l is h + l modulo 2^p - 1, and after one
// fold the sum is below 2^(p+1), so a second fold and one comparison finish it.
void Falten(mpz_ptr x, mpz_ptr hoch, mpz_srcptr m, uint32_t p) {
    for (int i = 0; i < 2; ++i) {
        mpz_tdiv_q_2exp(hoch, x, p);
        mpz_tdiv_r_2exp(x, x, p);
        mpz_add(x, x, hoch);
    }
    if (mpz_cmp(x, m) >= 0) mpz_sub(x, x, m);
}

}  // namespace

LucasErgebnis LucasLehmer(uint32_t p) {
    if (p == 2) return LucasErgebnis::Prim;
    if (!exponentPrim(p)) return LucasErgebnis::Zusammengesetzt;
    Mpz m, s(4), hoch;
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    mpz_realloc2(s, 2 * p + 64);
    mpz_realloc2(hoch, p + 64);
    Takt takt;
    for (uint32_t i = 2; i < p; ++i) {
        mpz_mul(s, s, s);
        Falten(s, hoch, m, p);
        // s^2 - 2 below 0 (s was 0 or 1) is taken modulo 2^p - 1 as well.
        if (mpz_cmp_ui(s.get(), 2) < 0) mpz_add(s, s, m);
        mpz_sub_ui(s, s, 2);
        if (takt.Faellig()) {
            DoEvents();
            if (Abbruch) return LucasErgebnis::Abgebrochen;
        }
    }
    return mpz_sgn(s.get()) == 0 ? LucasErgebnis::Prim : LucasErgebnis::Zusammengesetzt;
}

}  // namespace sw
