#include "mersenne/DwtTransform.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "frame/Laufzeitfehler.h"

namespace sw {

namespace {

uint64_t Stelle(uint32_t p, size_t n, size_t j) { return (uint64_t(p) * j + n - 1) / n; }

}  // namespace

DwtTransform::DwtTransform(uint32_t p, size_t n) : p_(p), n_(n), bitsKlein_(p / uint32_t(n)), gross_(n), gewicht_(n) {
    for (size_t j = 0; j < n; ++j) {
        gross_[j] = uint8_t(Stelle(p, n, j + 1) - Stelle(p, n, j) - bitsKlein_);
        // a_j = 2^(ceil(p j / n) - p j / n); the exponent as an exact fraction of n.
        const uint64_t zaehler = Stelle(p, n, j) * n - uint64_t(p) * j;
        const long double a = exp2l(static_cast<long double>(zaehler) / static_cast<long double>(n));
        gewicht_[j].vor = static_cast<double>(a);
        gewicht_[j].zurueck = static_cast<double>(1.0L / (a * static_cast<long double>(n)));
    }
    puffer_ = fftw_alloc_real(n);
    spektrum_ = fftw_alloc_complex(n / 2 + 1);
    try {
        if (!puffer_ || !spektrum_) throw Laufzeitfehler(FehlerKeinSpeicher);
        plaene_ = FftwPlanen(n, puffer_, spektrum_);
    } catch (...) {
        fftw_free(puffer_);
        fftw_free(spektrum_);
        throw;
    }
    // Planning by measurement overwrites the arrays.
    std::fill(puffer_, puffer_ + n, 0.0);
}

DwtTransform::~DwtTransform() {
    FftwFreigeben(plaene_);
    fftw_free(puffer_);
    fftw_free(spektrum_);
}

// The hot loop of a Lucas-Lehmer run: between the transforms, the pointwise square, and one
// pass that un-weights, rounds, measures the round-off, carries and weights again for the next
// forward transform.
DwtTransform::Befund DwtTransform::QuadrierenMinusZwei() {
    const size_t n = n_;
    double* const s = spektrum_[0];
    fftw_execute(plaene_.vor);
    // The spectrum's first value is the sum of the inputs; the convolution's outputs must add
    // up to its square (times n, FFTW leaves the transforms unscaled).
    const double summeEin = s[0];
    for (size_t k = 0; k <= n / 2; ++k) {
        const double re = s[2 * k], im = s[2 * k + 1];
        s[2 * k] = (re - im) * (re + im);
        s[2 * k + 1] = 2.0 * re * im;
    }
    fftw_execute(plaene_.rueck);
    if (faltungStoeren_) {
        faltungStoeren_ = false;
        puffer_[n / 3] *= 2.0;
    }
    double fehler = 0.0, summe = 0.0, betraege = 0.0;
    if (n % 4 == 0 && n >= 64) {
        Tragen<4>(fehler, summe, betraege);
    } else {
        Tragen<1>(fehler, summe, betraege);
    }
    // The two sides differ by the rounding of the transform and of the sums, which grows with
    // n; measured, it stays below a ten-thousandth of this bound. A fault that changes one
    // output by its own size moves them apart by about 1/n of the total, far above it.
    const double soll = double(n) * summeEin * summeEin;
    const double toleranz = 8.0 * double(n) * 0x1p-53 * (betraege + soll) + double(n);
    return {fehler, std::fabs(summe - soll) <= toleranz};
}

// The carry pass over Ketten stretches of the digits at once. Within a stretch the carry is a
// serial chain of four floating-point operations per word; running several independent chains
// side by side lets the processor overlap them, and each stretch's last carry then goes into
// the next stretch's first words, where it settles after a word or two. Everything stays in
// doubles, which hold these integers exactly (below 2^51): adding and taking away 1.5 2^52
// rounds to the nearest integer in two additions, where nearbyint or a conversion to integers
// and shifts by a variable count would cost more, and scaling by 2^-bits is exact. With four
// chains the pass runs at the speed of memory: packing the chains into vector registers
// measured no faster. The state of the chains must stay in registers: kept in arrays the
// compiler could not unroll, each carry went through memory and the pass took 10 % longer.
template <size_t Ketten>
void DwtTransform::Tragen(double& fehler, double& summe, double& betraege) {
    constexpr double runden = 0x1.8p52;
    double* const b = puffer_;
    const Gewicht* const g = gewicht_.data();
    const uint8_t* const gross = gross_.data();
    const double basis[2] = {std::ldexp(1.0, int(bitsKlein_)), std::ldexp(1.0, int(bitsKlein_) + 1)};
    const double kehrwert[2] = {1.0 / basis[0], 1.0 / basis[1]};
    const size_t laenge = n_ / Ketten;
    double uebertrag[Ketten], f[Ketten], s[Ketten], a[Ketten];
    for (size_t k = 0; k < Ketten; ++k) uebertrag[k] = f[k] = s[k] = a[k] = 0.0;
    uebertrag[0] = -2.0;  // the "- 2" of the step rides in as a carry into word 0
    for (size_t i = 0; i < laenge; ++i) {
#pragma GCC unroll 4
        for (size_t k = 0; k < Ketten; ++k) {
            const size_t j = k * laenge + i;
            const double roh = b[j];
            s[k] += roh;
            a[k] += std::fabs(roh);
            const double t = roh * g[j].zurueck;
            const double gerundet = (t + runden) - runden;
            // Beyond 2^51 the rounding above fails and a double holds hardly a fraction, so
            // the distance says nothing: such outputs (or NaN) void the step, and must not
            // enter the carry. Selected, not branched, so that the chains stay in registers.
            const bool gueltig = std::fabs(t) < 0x1p51;
            const double abstand = gueltig ? std::fabs(t - gerundet) : 1.0;
            f[k] = abstand > f[k] ? abstand : f[k];
            const double v = (gueltig ? gerundet : 0.0) + uebertrag[k];
            const double hoch = (v * kehrwert[gross[j]] + runden) - runden;
            b[j] = (v - hoch * basis[gross[j]]) * g[j].vor;
            uebertrag[k] = hoch;
        }
    }
    for (size_t k = 0; k < Ketten; ++k) {
        Uebertrag(int64_t(uebertrag[k]), k + 1 == Ketten ? 0 : (k + 1) * laenge);
        fehler = std::max(fehler, f[k]);
        summe += s[k];
        betraege += a[k];
    }
}

int64_t DwtTransform::Ziffer(size_t j) const {
    // a_j x_j / a_j is x_j within a few ulps: |x_j| < 2^26, so rounding gives it back exactly.
    return int64_t(std::nearbyint(puffer_[j] / gewicht_[j].vor));
}

// Adds a carry at word ab and propagates it; past the top word it goes on at word 0, since
// 2^p = 1 modulo 2^p - 1. It stops as soon as a digit absorbs the carry, after a few words.
void DwtTransform::Uebertrag(int64_t uebertrag, size_t ab) {
    for (size_t j = ab; uebertrag != 0; j = (j + 1 == n_) ? 0 : j + 1) {
        const uint32_t bits = bitsKlein_ + gross_[j];
        const int64_t v = Ziffer(j) + uebertrag;
        const int64_t hoch = (v + (int64_t(1) << (bits - 1))) >> bits;
        ZifferSetzen(j, v - hoch * (int64_t(1) << bits));
        uebertrag = hoch;
    }
}

void DwtTransform::Setzen(mpz_srcptr r) {
    // Unsigned digits straight from the bits, then balanced from the bottom up: a digit of
    // half its base or more becomes negative and lends 1 to the next word.
    int64_t uebertrag = 0;
    for (size_t j = 0; j < n_; ++j) {
        const uint32_t bits = bitsKlein_ + gross_[j];
        const uint64_t stelle = Stelle(p_, n_, j);
        int64_t v = uebertrag;
        for (uint32_t i = 0; i < bits; ++i) v += int64_t(mpz_tstbit(r, stelle + i)) << i;
        uebertrag = v >= (int64_t(1) << (bits - 1)) ? 1 : 0;
        ZifferSetzen(j, v - uebertrag * (int64_t(1) << bits));
    }
    Uebertrag(uebertrag, 0);
}

void DwtTransform::Lesen(mpz_ptr r) const {
    // The positive and the negative digits each fill disjoint bit fields of a p-bit number;
    // the residue is their difference, brought into 0 .. 2^p - 2.
    const size_t limbs = p_ / 64 + 2;
    std::vector<uint64_t> plus(limbs, 0), minus(limbs, 0);
    for (size_t j = 0; j < n_; ++j) {
        const int64_t d = Ziffer(j);
        if (d == 0) continue;
        std::vector<uint64_t>& ziel = d > 0 ? plus : minus;
        const uint64_t betrag = uint64_t(d > 0 ? d : -d);
        const uint64_t stelle = Stelle(p_, n_, j);
        const unsigned versatz = unsigned(stelle % 64);
        ziel[stelle / 64] |= betrag << versatz;
        if (versatz) ziel[stelle / 64 + 1] |= betrag >> (64 - versatz);
    }
    mpz_t m, negativ;
    mpz_inits(m, negativ, nullptr);
    mpz_import(r, limbs, -1, sizeof(uint64_t), 0, 0, plus.data());
    mpz_import(negativ, limbs, -1, sizeof(uint64_t), 0, 0, minus.data());
    mpz_sub(r, r, negativ);
    mpz_setbit(m, p_);
    mpz_sub_ui(m, m, 1);
    // Both parts lie in 0 .. 2^p: one correction each way is enough, and 2^p - 1 itself, the
    // second form of 0, becomes 0.
    if (mpz_sgn(r) < 0) mpz_add(r, r, m);
    while (mpz_cmp(r, m) >= 0) mpz_sub(r, r, m);
    mpz_clears(m, negativ, nullptr);
}

}  // namespace sw
