#include "primality/PrimTests.h"

#include <random>

#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "primality/Takt.h"
#include "zahlkern/zahlkern.h"

namespace sw {

int32_t MillerRabinBasis = -2;

namespace {

bool istNull(const Hyp& h) { return h.anzahl() <= 1 && h[1] == 0; }

// A random base 2 .. 64001 for an odd n >= 5, kept below n - 1 so that a small n never meets
// a base that is a multiple of it (which would call a prime composite) or is -1 mod n (which
// witnesses nothing).
unsigned long zufallsBasis(mpz_srcptr n) {
    static std::mt19937 zufall{std::random_device{}()};
    unsigned long spanne = 64000;
    if (mpz_cmp_ui(n, spanne + 3) < 0) spanne = mpz_get_ui(n) - 3;
    return 2 + zufall() % spanne;
}

// The base of the chosen MillerRabinBasis for an odd n >= 5. A fixed base is taken mod n;
// where it vanishes or is +-1 there it can witness nothing, and base 2 stands in.
unsigned long millerRabinBasis(mpz_srcptr n) {
    if (MillerRabinBasis == -2) return zufallsBasis(n);
    const unsigned long b = uint32_t(MillerRabinBasis) + 2ul;
    if (mpz_cmp_ui(n, b) > 0) return mpz_cmp_ui(n, b + 1) == 0 ? 2 : b;
    const unsigned long m = mpz_get_ui(n);  // n is not above b here, so one word
    const unsigned long a = b % m;
    return a <= 1 || a == m - 1 ? 2 : a;
}

}  // namespace

bool MillerRabin(const Hyp& n) {
    if (aIsEvenHyp(n)) return false;
    const Mpz z(n);
    if (mpz_cmp_ui(z.get(), 5) < 0) return mpz_cmp_ui(z.get(), 3) == 0;
    return StarkerPseudoprimTest(z, millerRabinBasis(z));
}

bool StrassenTest(const Hyp& n) {
    if (aIsEvenHyp(n)) return false;
    const Mpz z(n);
    if (mpz_cmp_ui(z.get(), 5) < 0) return mpz_cmp_ui(z.get(), 3) == 0;
    const unsigned long a = zufallsBasis(z);
    const int32_t j = JacobiSymbol(int32_t(a), n);
    if (j == 0) return false;  // a shares a factor with n
    Mpz e, y, basis(a);
    mpz_sub_ui(e, z, 1);
    mpz_tdiv_q_2exp(e, e, 1);
    mpz_powm(y, basis, e, z);
    if (j == 1) return mpz_cmp_ui(y.get(), 1) == 0;
    mpz_add_ui(y, y, 1);
    return mpz_cmp(y, z) == 0;
}

bool FermatTest(const Hyp& n) {
    const Mpz z(n);
    if (mpz_cmp_ui(z.get(), 2) < 0) return false;
    Mpz e, y, zwei(2);
    mpz_sub_ui(e, z, 1);
    mpz_powm(y, zwei, e, z);
    return mpz_cmp_ui(y.get(), 1) == 0 || mpz_cmp_ui(z.get(), 2) == 0;
}

bool PerrinTest(const Hyp& n) {
    const Mpz z(n);
    const unsigned long r = mpz_fdiv_ui(z, 3);
    if (r == 0) return false;
    // x^n = x^r (x^3)^e with e = n div 3: squaring a + bx + cx^2 and multiplying by x^3 = 1 + x
    // walks the bits of e, a third fewer than those of n.
    Mpz e, a(1), b(0), c(0), aa, bb, cc, ab, ac, bc;
    mpz_tdiv_q_ui(e, z, 3);
    for (mp_bitcnt_t i = mpz_sizeinbase(e, 2); i-- > 0;) {
        mpz_mul(aa, a, a);
        mpz_mul(bb, b, b);
        mpz_mul(cc, c, c);
        mpz_mul(ab, a, b);
        mpz_mul(ac, a, c);
        mpz_mul(bc, b, c);
        // The square modulo x^3 = x + 1 (x^4 = x + x^2).
        mpz_addmul_ui(aa, bc, 2);  // a' = aa + 2bc
        mpz_mul_2exp(ab, ab, 1);
        mpz_addmul_ui(ab, bc, 2);
        mpz_add(ab, ab, cc);  // b' = 2ab + 2bc + cc
        mpz_mul_2exp(ac, ac, 1);
        mpz_add(ac, ac, bb);
        mpz_add(ac, ac, cc);  // c' = 2ac + bb + cc
        if (mpz_tstbit(e, i)) {  // times 1 + x: (a + c, a + b + c, b + c)
            mpz_add(a, aa, ac);
            mpz_add(b, aa, ab);
            mpz_add(b, b, ac);
            mpz_add(c, ab, ac);
        } else {
            mpz_swap(a, aa);
            mpz_swap(b, ab);
            mpz_swap(c, ac);
        }
        mpz_mod(a, a, z);
        mpz_mod(b, b, z);
        mpz_mod(c, c, z);
    }
    // The traces of 1, x, x^2 are 3, 0, 2: tr(x y) = 2b + 3c, tr(x^2 y) = 3b + 2a + 2c.
    Mpz spur;
    if (r == 1) {
        mpz_mul_ui(spur, b, 2);
        mpz_addmul_ui(spur, c, 3);
    } else {
        mpz_mul_ui(spur, b, 3);
        mpz_addmul_ui(spur, a, 2);
        mpz_addmul_ui(spur, c, 2);
    }
    return mpz_divisible_p(spur, z) != 0;
}

bool FermatSuche(const Hyp& n) {
    const int32_t platz = n.anzahl() + 2;
    const Hyp wurzel = HypWurzel(n, true);
    Hyp r = HypWurzel(n, false);
    if (istNull(r)) return false;  // a square
    r.mindestens(platz);
    // r = x'^2 - y'^2 - n with x = 2x' + 1 and y = 2y' + 1 the steps to the next squares: a
    // rest of 0 is a split of n into (x' - y')(x' + y').
    Hyp x(wurzel);
    x.mindestens(platz);
    aMulHyp2(x);
    aIncHyp(x);
    Hyp y(platz);
    y[1] = 1;
    Hyp grenze(n);
    aSubHyp2(grenze);
    Takt takt;
    while (aCmpHypHyp(y, grenze) < 0) {
        aAddHypHyp(r, y);
        int32_t stand;
        while ((stand = aSubHypHyp(r, x)) == 1) aAddHyp2(x);
        if (stand == 0) return false;  // a factorisation
        aAddHyp2(y);
        if (takt.Faellig()) {
            DoEvents();
            if (Abbruch) return false;
        }
    }
    return true;  // the walk reached 1 * n
}

}  // namespace sw
