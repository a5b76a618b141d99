#include "mersenne/DwtTransform.h"

#include <cmath>
#include <mutex>
#include <new>

#include "frame/Laufzeitfehler.h"

namespace sw {

namespace {

// FFTW's planner keeps global state and must not run in two threads at once; executing a plan
// may. Planning measures: FFTW keeps what it learnt for the process, so a length costs that
// only the first time, and the faster plan pays back within the first few hundred iterations.
std::mutex planerSperre;

uint64_t Stelle(uint32_t p, size_t n, size_t j) { return (uint64_t(p) * j + n - 1) / n; }

}  // namespace

DwtTransform::DwtTransform(uint32_t p, size_t n)
    : p_(p), n_(n), bitsKlein_(p / uint32_t(n)), gross_(n), x_(n), gewicht_(n), entgewicht_(n) {
    for (size_t j = 0; j < n; ++j) {
        gross_[j] = uint8_t(Stelle(p, n, j + 1) - Stelle(p, n, j) - bitsKlein_);
        // a_j = 2^(ceil(p j / n) - p j / n); the exponent as an exact fraction of n.
        const uint64_t zaehler = Stelle(p, n, j) * n - uint64_t(p) * j;
        const long double a = exp2l(static_cast<long double>(zaehler) / static_cast<long double>(n));
        gewicht_[j] = static_cast<double>(a);
        entgewicht_[j] = static_cast<double>(1.0L / (a * static_cast<long double>(n)));
    }
    std::lock_guard<std::mutex> sperre(planerSperre);
    puffer_ = fftw_alloc_real(2 * (n / 2 + 1));
    if (!puffer_) throw Laufzeitfehler(FehlerKeinSpeicher);
    auto* spektrum = reinterpret_cast<fftw_complex*>(puffer_);
    vor_ = fftw_plan_dft_r2c_1d(int(n), puffer_, spektrum, FFTW_MEASURE);
    rueck_ = fftw_plan_dft_c2r_1d(int(n), spektrum, puffer_, FFTW_MEASURE);
    if (!vor_ || !rueck_) throw Laufzeitfehler(FehlerKeinSpeicher);
}

DwtTransform::~DwtTransform() {
    std::lock_guard<std::mutex> sperre(planerSperre);
    fftw_destroy_plan(vor_);
    fftw_destroy_plan(rueck_);
    fftw_free(puffer_);
}

// The hot loop of a Lucas-Lehmer run. Weighting, the pointwise square and the carry pass are
// single sweeps over contiguous arrays; the carry is one integer chain, since the rounded
// outputs stay below 2^62 and int64 shifts give the balanced digit without a division.
double DwtTransform::QuadrierenMinusZwei() {
    const size_t n = n_;
    double* const b = puffer_;
    for (size_t j = 0; j < n; ++j) b[j] = x_[j] * gewicht_[j];
    fftw_execute(vor_);
    for (size_t k = 0; k <= n / 2; ++k) {
        const double re = b[2 * k], im = b[2 * k + 1];
        b[2 * k] = (re - im) * (re + im);
        b[2 * k + 1] = 2.0 * re * im;
    }
    fftw_execute(rueck_);
    // Adding and taking away 1.5 2^52 rounds to the nearest integer in two additions, where
    // a call of nearbyint would cost more than the rest of the pass.
    constexpr double runden = 0x1.8p52;
    double fehler = 0.0;
    int64_t uebertrag = -2;  // the "- 2" of the step rides in as a carry into word 0
    for (size_t j = 0; j < n; ++j) {
        const double t = b[j] * entgewicht_[j];
        double r = (t + runden) - runden;
        const double abstand = std::fabs(t - r);
        fehler = abstand > fehler ? abstand : fehler;
        // Beyond 2^51 the rounding above fails and a double holds hardly a fraction, so the
        // distance says nothing: such outputs (or NaN) void the step, and the carry pass must
        // not convert them.
        if (!(std::fabs(t) < 0x1p51)) {
            fehler = 1.0;
            r = 0.0;
        }
        const uint32_t bits = bitsKlein_ + gross_[j];
        const int64_t v = int64_t(r) + uebertrag;
        const int64_t hoch = (v + (int64_t(1) << (bits - 1))) >> bits;
        x_[j] = double(v - hoch * (int64_t(1) << bits));
        uebertrag = hoch;
    }
    Uebertrag(uebertrag, 0);
    return fehler;
}

// Adds a carry at word ab and propagates it; past the top word it goes on at word 0, since
// 2^p = 1 modulo 2^p - 1. It stops as soon as a digit absorbs the carry, after a few words.
void DwtTransform::Uebertrag(int64_t uebertrag, size_t ab) {
    for (size_t j = ab; uebertrag != 0; j = (j + 1 == n_) ? 0 : j + 1) {
        const uint32_t bits = bitsKlein_ + gross_[j];
        const int64_t v = int64_t(x_[j]) + uebertrag;
        const int64_t hoch = (v + (int64_t(1) << (bits - 1))) >> bits;
        x_[j] = double(v - hoch * (int64_t(1) << bits));
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
        x_[j] = double(v - uebertrag * (int64_t(1) << bits));
    }
    Uebertrag(uebertrag, 0);
}

void DwtTransform::Lesen(mpz_ptr r) const {
    // The positive and the negative digits each fill disjoint bit fields of a p-bit number;
    // the residue is their difference, brought into 0 .. 2^p - 2.
    const size_t limbs = p_ / 64 + 2;
    std::vector<uint64_t> plus(limbs, 0), minus(limbs, 0);
    for (size_t j = 0; j < n_; ++j) {
        const int64_t d = int64_t(x_[j]);
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
