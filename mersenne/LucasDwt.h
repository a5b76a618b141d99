// LucasDwt: the Lucas-Lehmer iteration S := S^2 - 2 modulo 2^p - 1 by an irrational-base
// discrete weighted transform: the residue is spread over n floating-point words of about p/n
// bits each (balanced digits), weighted so that the cyclic convolution of a length-n FFT is
// the product modulo 2^p - 1 itself, and the carries are propagated in one pass after the
// inverse transform. This is how the fastest Mersenne testers square: O(n log n) per
// iteration instead of the exact methods' O(n^1.58) and more.
//
// Floating point is exact only while the round-off stays small. The engine measures the
// largest distance of an output from its nearest integer in every iteration; above 0.4 it goes
// back to the last verified state and runs that stretch again at the next larger FFT length. A
// Jacobi-symbol check of the residue every few thousand iterations catches errors that the
// round-off check cannot see (a flipped bit in memory), and in every iteration the sum of the
// convolution's outputs is compared with the square of the sum of its inputs, which catches a
// fault inside the transform at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace sw {

// The FFT length a run of p starts with.
size_t LucasDwtLaenge(uint32_t p);

class LucasDwt {
public:
    // For a prime p >= 3; the FFT length comes from the table of safe bits per word.
    explicit LucasDwt(uint32_t p);
    // Starts at the given length instead of the table's (it still moves up on errors): for the
    // tests of the error handling and for measurements. Lengths the engine does not use are
    // rounded up to the next one it does.
    LucasDwt(uint32_t p, size_t fftLaenge);
    ~LucasDwt();
    LucasDwt(const LucasDwt&) = delete;
    LucasDwt& operator=(const LucasDwt&) = delete;

    // The residue as 32-bit words, lowest first, below 2^p - 1 (S(1) = {4}). It must be a
    // member S(i), i >= 1, of the Lucas-Lehmer sequence: the Jacobi check relies on that.
    void Setzen(const std::vector<uint32_t>& s);
    std::vector<uint32_t> Wert() const;

    // Runs up to anzahl iterations and gives how many were done. Fewer than asked only when
    // the round-off could not be kept in bounds even at the largest length: the residue is
    // then the last verified one, and the caller goes on with exact arithmetic.
    uint32_t Laufen(uint32_t anzahl);

    bool IstNull() const;
    uint64_t Res64() const;  // the low 64 bits of the residue
    size_t FftLaenge() const;
    bool GespeichertePlaene() const;  // FFTW's plans of this length came from the stored search
    double GroessterFehler() const;  // the largest round-off seen so far
    uint32_t Wiederholungen() const;  // how often a stretch was run again after an error

    // For the tests of the checks: after the given number of iterations from now, one digit
    // is falsified once, a fault that only the Jacobi check can see.
    void StoerenNach(uint32_t iterationen);
    // In the given iteration from now, one output of the convolution is doubled once: it
    // stays an integer, so only the sum check sees it.
    void FaltungStoerenNach(uint32_t iterationen);

private:
    struct Zustand;
    std::unique_ptr<Zustand> z_;
};

}  // namespace sw
