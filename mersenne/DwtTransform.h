// DwtTransform: one FFT length of the Lucas-Lehmer engine. It holds the residue modulo 2^p - 1
// as n balanced digits (word j has floor or ceil of p/n bits and stands at bit ceil(p j / n)),
// kept already multiplied by the weights that turn the cyclic convolution into the product
// modulo 2^p - 1, so that they are the forward transform's input as they stand. It squares,
// subtracts 2 and carries in place, and converts to and from GMP integers.
#pragma once

#include <gmp.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "mersenne/FftwPlaene.h"

namespace sw {

class DwtTransform {
public:
    // n even, 2 <= n <= p. vektor: the carry pass may use AVX2 where the processor has it;
    // both passes give the same bits, the tests compare them.
    DwtTransform(uint32_t p, size_t n, bool vektor = true);
    // The same, and whether FFTW's plans came from the stored search.
    bool GespeichertePlaene() const { return plaene_.gespeichert; }
    ~DwtTransform();
    DwtTransform(const DwtTransform&) = delete;
    DwtTransform& operator=(const DwtTransform&) = delete;

    struct Befund {
        // The largest distance of a convolution output from its nearest integer. Above about
        // 0.4 the rounding may have gone wrong and the residue is void.
        double rundung;
        // Whether the outputs add up to the square of the inputs' sum, as a cyclic convolution
        // must: a fault inside the transform (memory, a bad core) that the rounding hides.
        bool summeStimmt;
    };
    // S := S^2 - 2 modulo 2^p - 1.
    Befund QuadrierenMinusZwei();

    // r with 0 <= r < 2^p - 1 in and out.
    void Setzen(mpz_srcptr r);
    void Lesen(mpz_ptr r) const;

    size_t Laenge() const { return n_; }
    // Adds 1 to one digit: a fault the round-off check cannot see, for the tests of the checks.
    void Stoeren(size_t j) { ZifferSetzen(j, Ziffer(j) + 1); }
    // Doubles one output of the next convolution, as a flipped exponent bit would: the outputs
    // stay integers, so only the sum check sees it.
    void FaltungStoeren() { faltungStoeren_ = true; }

private:
    struct Summen {
        double fehler = 0.0, summe = 0.0, betraege = 0.0;
    };
    // The carry pass, in mersenne/DwtTragen.cpp: plain, and in AVX2 registers.
    Summen Tragen();
    template <size_t Ketten>
    Summen TragenSkalar();
    Summen TragenVektor();
    // Each chain's last carry into the next chain's first word, and the chains' figures joined.
    Summen KettenSchliessen(const double* uebertrag, const double* fehler, const double* summe,
                            const double* betraege);
    void Uebertrag(int64_t uebertrag, size_t ab);
    int64_t Ziffer(size_t j) const;
    void ZifferSetzen(size_t j, int64_t d) { puffer_[j] = double(d) * Vor(Platz(j)); }

    // The carry pass runs ketten_ chains side by side, chain c over the words c L .. c L + L - 1
    // (L = n / ketten_). The tables below are kept in the order the pass reads them: word j
    // at place (j mod L) ketten_ + j / L, so that the chains' entries for one step lie together.
    size_t Platz(size_t j) const { return (j % laenge_) * ketten_ + j / laenge_; }
    double Vor(size_t platz) const { return gewicht_[platz / 4].vor[platz % 4]; }
    uint32_t Bits(size_t j) const { return bitsKlein_ + gross_[Platz(j)]; }

    uint32_t p_;
    size_t n_;
    size_t ketten_;
    size_t laenge_;
    bool vektor_;
    uint32_t bitsKlein_;          // floor(p/n); the big words have one bit more
    std::vector<uint8_t> gross_;  // by place: 1 where the word has bitsKlein_ + 1 bits
    // 1 / (n a_j) and a_j of four places in one cache line: the carry pass needs both for the
    // same word, and one stream through memory is cheaper than two.
    struct alignas(64) Gewichte {
        double zurueck[4], vor[4];
    };
    std::vector<Gewichte> gewicht_;
    // The weighted digits a_j x_j with |x_j| <= 2^(bits_j - 1), and their spectrum. Transforms
    // between two arrays: FFTW's in-place real transforms copy through buffers and took half
    // as long again.
    double* puffer_;
    fftw_complex* spektrum_;
    FftwPlaene plaene_;
    bool faltungStoeren_ = false;
};

}  // namespace sw
