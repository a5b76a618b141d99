#include "primality/PrimBeweis.h"

#include <vector>

#include "primality/Bpsw.h"
#include "primality/Faktorisierung.h"
#include "primality/HypMpz.h"

namespace sw {

namespace {

// Chains deeper than this cost more than they win: each level factors a number of nearly the
// same size again.
constexpr int32_t kGroessteTiefe = 4;
// Above this size the curves cost more than the proof is worth: a level of ECM on a number of
// thousands of digits takes minutes, and a factor of 20 digits rarely lifts F past the cube
// root of so large an N. Nor does a chain help there: the cofactor left in N-1 is nearly as
// large as N. Trial division and rho still run, for the N-1 that is smooth.
constexpr size_t kEcmBisBits = 1000;
// Bases tried per prime of F before the proof gives up (a prime N has plenty of witnesses).
constexpr unsigned long kBasen = 200;

// Pocklington's condition for the prime q of F: some a with a^(N-1) = 1 and
// gcd(a^((N-1)/q) - 1, N) = 1. False when no such a turned up (or N showed itself composite).
bool pocklington(mpz_srcptr n, mpz_srcptr nMinus1, mpz_srcptr q) {
    Mpz e, basis, y, g;
    mpz_divexact(e, nMinus1, q);
    for (unsigned long a = 2; a < kBasen; ++a) {
        mpz_set_ui(basis, a);
        mpz_powm(y, basis, e, n);
        Mpz voll;
        mpz_powm(voll, y, q, n);
        if (mpz_cmp_ui(voll.get(), 1) != 0) return false;  // Fermat fails: composite
        mpz_sub_ui(y, y, 1);
        mpz_gcd(g, y, n);
        if (mpz_cmp_ui(g.get(), 1) == 0) return true;
        if (mpz_cmp(g, n) != 0) return false;  // a proper factor: composite
    }
    return false;
}

}  // namespace

bool NMinusEinsBeweis(mpz_srcptr n, int32_t tiefe) {
    if (mpz_cmp_ui(n, 2) < 0 || !BpswTest(n)) return false;
    if (BpswBeweist(n)) return true;
    if (tiefe >= kGroessteTiefe) return false;

    Mpz nMinus1;
    mpz_sub_ui(nMinus1, n, 1);
    // The effort is bounded: two ECM levels (factors to about 20 digits) near the top of the
    // chain, one below, none for very large N.
    const bool gross = mpz_sizeinbase(n, 2) > kEcmBisBits;
    FaktorOptionen opt;
    opt.ecmStufen = gross ? 0 : tiefe < 2 ? 2 : 1;
    opt.beweisen = !gross;
    opt.beweisTiefe = tiefe + 1;
    const Zerlegung z = Zerlegen(MpzZuHyp(nMinus1), opt);
    if (z.abgebrochen) return false;

    // F: the proved prime powers of N-1, each with its full exponent. Its size decides whether
    // a proof can come at all, before a single power modulo N is spent on it.
    Mpz f(1), q, potenz;
    std::vector<Mpz> primzahlen;
    for (const Primfaktor& p : z.faktoren) {
        if (p.art != FaktorArt::Bewiesen) continue;
        HypZuMpz(q, p.wert);
        primzahlen.push_back(q);
        mpz_pow_ui(potenz, q, static_cast<unsigned long>(p.exponent));
        mpz_mul(f, f, potenz);
    }
    Mpz f2, f3;
    mpz_mul(f2, f, f);
    mpz_mul(f3, f2, f);
    if (mpz_cmp(f3, n) < 0) return false;
    for (const Mpz& p : primzahlen) {
        if (!pocklington(n, nMinus1, p)) return false;
    }

    // Every prime factor of N is 1 mod F. Beyond the square root of N that leaves N alone.
    if (mpz_cmp(f2, n) > 0) return true;
    // Between the cube and the square root: N = c2 F^2 + c1 F + 1 is prime exactly when
    // c1^2 - 4 c2 is no square (a product of two factors 1 mod F would make it one).
    Mpz c1, c2, d;
    mpz_tdiv_q(c2, nMinus1, f);
    mpz_tdiv_qr(c2, c1, c2, f);
    mpz_mul(d, c1, c1);
    mpz_submul_ui(d, c2, 4);
    return !mpz_perfect_square_p(d);
}

bool NMinusEinsBeweis(const Hyp& n) { return NMinusEinsBeweis(Mpz(n), 0); }

}  // namespace sw
