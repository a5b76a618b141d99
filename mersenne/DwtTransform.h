// DwtTransform: one FFT length of the Lucas-Lehmer engine. It holds the residue modulo 2^p - 1
// as n balanced digits (word j has floor or ceil of p/n bits and stands at bit ceil(p j / n)),
// the weights that turn the cyclic convolution into the product modulo 2^p - 1, and FFTW's
// plans; it squares, subtracts 2 and carries in place, and converts to and from GMP integers.
#pragma once

#include <fftw3.h>
#include <gmp.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sw {

class DwtTransform {
public:
    // n even, 2 <= n <= p.
    DwtTransform(uint32_t p, size_t n);
    ~DwtTransform();
    DwtTransform(const DwtTransform&) = delete;
    DwtTransform& operator=(const DwtTransform&) = delete;

    // S := S^2 - 2 modulo 2^p - 1; gives the largest distance of a convolution output from its
    // nearest integer. Above about 0.4 the rounding may have gone wrong and the residue is void.
    double QuadrierenMinusZwei();

    // r with 0 <= r < 2^p - 1 in and out.
    void Setzen(mpz_srcptr r);
    void Lesen(mpz_ptr r) const;

    size_t Laenge() const { return n_; }
    // Adds 1 to one digit: a fault the round-off check cannot see, for the tests of the checks.
    void Stoeren(size_t j) { x_[j] += 1.0; }

private:
    void Uebertrag(int64_t uebertrag, size_t ab);

    uint32_t p_;
    size_t n_;
    uint32_t bitsKlein_;         // floor(p/n); the big words have one bit more
    std::vector<uint8_t> gross_;  // 1 where word j has bitsKlein_ + 1 bits
    std::vector<double> x_;       // the balanced digits, |x_j| <= 2^(bits_j - 1)
    std::vector<double> gewicht_, entgewicht_;  // a_j and 1 / (n a_j)
    double* puffer_;  // in-place real-to-complex transform, 2 (n/2 + 1) doubles
    fftw_plan vor_, rueck_;
};

}  // namespace sw
