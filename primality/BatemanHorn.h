// BatemanHorn: how many primes a polynomial should take over a range if its values behaved
// like random numbers with the local restrictions they really have. The conjecture of Bateman
// and Horn gives C * sum 1/ln f(n), with C the product over the primes p of
// (1 - w(p)/p) / (1 - 1/p), w(p) the number of roots of f mod p. The product is taken up to a
// cut; it converges slowly, so the third digit of C is already uncertain at 10^5.
//
// The formula is not known as a polynomial: it is recognised from its values (finite
// differences of consecutive values vanish beyond its degree) and kept in Newton form,
// f(a + j) = sum_k d_k binom(j, k), which also covers polynomials with fractional coefficients
// such as n(n+1)/2.
#pragma once

#include <cstdint>
#include <vector>

#include "primality/HypMpz.h"

namespace sw {

struct NewtonPolynom {
    int64_t ursprung = 0;         // a
    std::vector<Mpz> differenzen; // d_0 .. d_grad; empty when the values are no polynomial
    int32_t Grad() const { return int32_t(differenzen.size()) - 1; }
};

// Highest degree recognised; werte needs BH_Stuetzstellen values f(a), f(a+1), ...
constexpr int32_t kHoechsterGrad = 10;
constexpr int32_t kStuetzstellen = kHoechsterGrad + 3;  // two vanishing differences confirm the degree

// The polynomial through the values at a, a+1, ...; empty differences when the values show no
// degree up to kHoechsterGrad.
NewtonPolynom PolynomErkennen(int64_t a, const std::vector<Mpz>& werte);

// Walks a polynomial forward one step at a time, in additions only: after Weiter() Wert() is
// f(a + j + 1). Used to check that every value of a range lies on the recognised polynomial.
class PolynomSchritt {
  public:
    explicit PolynomSchritt(const NewtonPolynom& f);
    const Mpz& Wert() const { return d_.front(); }
    void Weiter();

  private:
    std::vector<Mpz> d_;
};

// w(p) by evaluating f at every residue (p steps of the difference walk mod p).
uint32_t WurzelnDurchProbieren(const NewtonPolynom& f, uint32_t p);
// w(p) as the degree of gcd(f, x^p - x) over F_p (for p above the degree; far fewer steps
// than p for large p). Gives the same count as the walk.
uint32_t WurzelnDurchGgt(const NewtonPolynom& f, uint32_t p);

// C over the primes up to grenze (0 when some p divides every value).
double BatemanHornKonstante(const NewtonPolynom& f, uint32_t grenze);

}  // namespace sw
