#include "primality/Bpsw.h"

#include "primality/HypMpz.h"

namespace sw {

namespace {

// Primes below 100: a division by each settles most composites before any power is taken.
constexpr unsigned kKleinePrimzahlen[] = {2,  3,  5,  7,  11, 13, 17, 19, 23, 29, 31, 37, 41,
                                          43, 47, 53, 59, 61, 67, 71, 73, 79, 83, 89, 97};

// Reduction modulo n. For n = 2^p - 1 (the numbers this program tests most) by folding:
// t = (t >> p) + (t mod 2^p) mod n, linear in the length instead of a division.
class Reduktion {
  public:
    explicit Reduktion(mpz_srcptr n)
        : n_(n), p_(mpz_sizeinbase(n, 2)), mersenne_(mpz_popcount(n) == p_ && p_ > 2) {}
    bool Mersenne() const { return mersenne_; }
    mp_bitcnt_t P() const { return p_; }
    void operator()(mpz_ptr t) {
        if (!mersenne_) {
            mpz_mod(t, t, n_);
            return;
        }
        const int vorzeichen = mpz_sgn(t);
        mpz_abs(t, t);
        while (mpz_sizeinbase(t, 2) > p_) {
            mpz_tdiv_q_2exp(hoch_, t, p_);
            mpz_tdiv_r_2exp(t, t, p_);
            mpz_add(t, t, hoch_);
        }
        if (mpz_cmp(t, n_) >= 0) mpz_sub(t, t, n_);
        if (vorzeichen < 0 && mpz_sgn(t) != 0) mpz_sub(t, n_, t);
    }

  private:
    mpz_srcptr n_;
    mp_bitcnt_t p_;
    bool mersenne_;
    Mpz hoch_;
};

}  // namespace

bool StarkerPseudoprimTest(mpz_srcptr n, unsigned long a) {
    Mpz nMinus1, d, y;
    mpz_sub_ui(nMinus1, n, 1);
    const mp_bitcnt_t s = mpz_scan1(nMinus1, 0);
    mpz_tdiv_q_2exp(d, nMinus1, s);

    Reduktion mod(n);
    if (a == 2 && mod.Mersenne()) {
        mpz_setbit(y, mpz_fdiv_ui(d, mod.P()));  // 2^p = 1 mod 2^p - 1
    } else {
        Mpz basis(a);
        mpz_powm(y, basis, d, n);
    }
    if (mpz_cmp_ui(y.get(), 1) == 0 || mpz_cmp(y, nMinus1) == 0) return true;
    for (mp_bitcnt_t r = 1; r < s; ++r) {
        mpz_mul(y, y, y);
        mod(y);
        if (mpz_cmp(y, nMinus1) == 0) return true;
        if (mpz_cmp_ui(y.get(), 1) == 0) return false;  // a nontrivial root of 1: composite
    }
    return false;
}

bool StarkerLucasTest(mpz_srcptr n) {
    // Selfridge's D: 5, -7, 9, -11, ...; a square n has no D with (D/n) = -1, so look for a
    // square once the first few D have failed rather than walk forever.
    long D = 5;
    for (int versuch = 0;; ++versuch) {
        Mpz dz;
        mpz_set_si(dz, D);
        const int j = mpz_jacobi(dz, n);
        if (j == -1) break;
        if (j == 0 && mpz_cmpabs_ui(n, static_cast<unsigned long>(D < 0 ? -D : D)) != 0) return false;
        if (versuch == 8 && mpz_perfect_square_p(n)) return false;
        D = D > 0 ? -(D + 2) : -D + 2;
    }
    const long Q = (1 - D) / 4;  // P = 1

    // n + 1 = d 2^s with d odd.
    Mpz d, qk, qk1, v, w, t;
    Reduktion mod(n);
    mpz_add_ui(d, n, 1);
    const mp_bitcnt_t s = mpz_scan1(d, 0);
    mpz_tdiv_q_2exp(d, d, s);

    // Ladder over the bits of d on (V_k, V_k+1, Q^k): per bit one product, one square and one
    // product of powers of Q (Q itself is a small word, its products cost a linear pass).
    // U_d comes free at the end through D U_d = 2 V_d+1 - P V_d, with D invertible mod n.
    mpz_set_ui(v, 2);   // V_0
    mpz_set_ui(w, 1);   // V_1 = P
    mpz_set_ui(qk, 1);  // Q^0
    for (mp_bitcnt_t i = mpz_sizeinbase(d, 2); i-- > 0;) {
        mpz_mul(t, v, w);  // V_2k+1 = V_k V_k+1 - P Q^k, needed for either bit
        mpz_sub(t, t, qk);
        if (mpz_tstbit(d, i)) {  // k -> 2k+1
            mpz_mul_si(qk1, qk, Q);  // Q^k+1
            mod(qk1);
            mpz_mul(w, w, w);  // V_2k+2 = V_k+1^2 - 2 Q^k+1
            mpz_submul_ui(w, qk1, 2);
            mod(w);
            mpz_swap(v, t);
            mod(v);
            mpz_mul(qk, qk, qk1);  // Q^2k+1
        } else {  // k -> 2k
            mpz_mul(v, v, v);  // V_2k = V_k^2 - 2 Q^k
            mpz_submul_ui(v, qk, 2);
            mod(v);
            mpz_swap(w, t);
            mod(w);
            mpz_mul(qk, qk, qk);  // Q^2k
        }
        mod(qk);
    }

    // U_d = 0 mod n exactly when 2 V_d+1 = V_d mod n (P = 1).
    mpz_mul_2exp(t, w, 1);
    mpz_sub(t, t, v);
    if (mpz_divisible_p(t, n)) return true;
    // Or V_d 2^r = 0 for some r < s.
    for (mp_bitcnt_t r = 0; r < s; ++r) {
        if (mpz_sgn(v.get()) == 0) return true;
        if (r + 1 == s) break;
        mpz_mul(v, v, v);  // V_2k = V_k^2 - 2 Q^k
        mpz_submul_ui(v, qk, 2);
        mod(v);
        mpz_mul(qk, qk, qk);
        mod(qk);
    }
    return false;
}

int KleinePrimzahlenEntscheiden(mpz_srcptr n) {
    if (mpz_cmp_ui(n, 2) < 0) return 0;
    for (unsigned p : kKleinePrimzahlen) {
        if (mpz_cmp_ui(n, p) == 0) return 1;
        if (mpz_divisible_ui_p(n, p)) return 0;
    }
    return mpz_cmp_ui(n, 97 * 97) < 0 ? 1 : -1;  // below 97^2: no factor up to its root
}

bool BpswTest(mpz_srcptr n) {
    const int klein = KleinePrimzahlenEntscheiden(n);
    if (klein >= 0) return klein == 1;
    return StarkerPseudoprimTest(n, 2) && StarkerLucasTest(n);
}

bool BpswTest(const Hyp& n) { return BpswTest(Mpz(n)); }

bool BpswBeweist(mpz_srcptr n) { return mpz_sizeinbase(n, 2) <= 64; }

}  // namespace sw
