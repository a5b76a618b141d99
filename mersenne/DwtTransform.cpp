#include "mersenne/DwtTransform.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "frame/Laufzeitfehler.h"

namespace sw {

namespace {

uint64_t Stelle(uint32_t p, size_t n, size_t j) { return (uint64_t(p) * j + n - 1) / n; }

// Sixteen chains fill the four lanes of four AVX2 registers; four keep the scalar pass in
// registers; lengths not divisible by four are short and take one chain.
size_t KettenFuer(size_t n) {
    if (n % 64 == 0 && n >= 1024) return 16;
    return n % 4 == 0 && n >= 64 ? 4 : 1;
}

bool MitAvx2() {
    static const bool ja = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return ja;
}

}  // namespace

DwtTransform::DwtTransform(uint32_t p, size_t n, bool vektor)
    : p_(p),
      n_(n),
      ketten_(KettenFuer(n)),
      laenge_(n / ketten_),
      vektor_(vektor && ketten_ == 16 && MitAvx2()),
      bitsKlein_(p / uint32_t(n)),
      gross_(n),
      gewicht_((n + 3) / 4) {
    for (size_t j = 0; j < n; ++j) {
        const size_t platz = Platz(j);
        gross_[platz] = uint8_t(Stelle(p, n, j + 1) - Stelle(p, n, j) - bitsKlein_);
        // a_j = 2^(ceil(p j / n) - p j / n); the exponent as an exact fraction of n.
        const uint64_t zaehler = Stelle(p, n, j) * n - uint64_t(p) * j;
        const long double a = exp2l(static_cast<long double>(zaehler) / static_cast<long double>(n));
        gewicht_[platz / 4].vor[platz % 4] = static_cast<double>(a);
        gewicht_[platz / 4].zurueck[platz % 4] = static_cast<double>(1.0L / (a * static_cast<long double>(n)));
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
    const Summen t = vektor_ ? TragenVektor() : Tragen();
    // The two sides differ by the rounding of the transform and of the sums, which grows with
    // n; measured, it stays below a ten-thousandth of this bound. A fault that changes one
    // output by its own size moves them apart by about 1/n of the total, far above it.
    const double soll = double(n) * summeEin * summeEin;
    const double toleranz = 8.0 * double(n) * 0x1p-53 * (t.betraege + soll) + double(n);
    return {t.fehler, std::fabs(t.summe - soll) <= toleranz};
}

int64_t DwtTransform::Ziffer(size_t j) const {
    // a_j x_j / a_j is x_j within a few ulps: |x_j| < 2^26, so rounding gives it back exactly.
    return int64_t(std::nearbyint(puffer_[j] / Vor(Platz(j))));
}

// Adds a carry at word ab and propagates it; past the top word it goes on at word 0, since
// 2^p = 1 modulo 2^p - 1. It stops as soon as a digit absorbs the carry, after a few words.
void DwtTransform::Uebertrag(int64_t uebertrag, size_t ab) {
    for (size_t j = ab; uebertrag != 0; j = (j + 1 == n_) ? 0 : j + 1) {
        const uint32_t bits = Bits(j);
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
        const uint32_t bits = Bits(j);
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
