// The carry pass of the Lucas-Lehmer transform: between the inverse and the next forward
// transform it un-weights each convolution output, rounds it, measures the round-off, carries
// into the next word and weights the digit again.
//
// Within a stretch of words the carry is a serial chain of four floating-point operations per
// word; running several independent chains side by side lets the processor overlap them, and
// each chain's last carry then goes into the next chain's first words, where it settles after
// a word or two. Everything stays in doubles, which hold these integers exactly (below 2^51):
// adding and taking away 1.5 2^52 rounds to the nearest integer in two additions, where
// nearbyint or a conversion to integers and shifts by a variable count would cost more, and
// scaling by 2^-bits is exact. Both passes below do the same operations in the same order and
// give the same bits.
#include <immintrin.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "mersenne/DwtTransform.h"

namespace sw {

namespace {

constexpr double kRunden = 0x1.8p52;

}  // namespace

DwtTransform::Summen DwtTransform::Tragen() {
    switch (ketten_) {
        case 16:
            return TragenSkalar<16>();
        case 4:
            return TragenSkalar<4>();
        default:
            return TragenSkalar<1>();
    }
}

// The state of the chains must stay in registers: kept in arrays the compiler could not
// unroll, each carry went through memory and the pass took 10 % longer.
template <size_t Ketten>
DwtTransform::Summen DwtTransform::TragenSkalar() {
    double* const b = puffer_;
    const uint8_t* const gross = gross_.data();
    const double basis[2] = {std::ldexp(1.0, int(bitsKlein_)),
                             std::ldexp(1.0, int(bitsKlein_) + 1)};
    const double kehrwert[2] = {1.0 / basis[0], 1.0 / basis[1]};
    const size_t laenge = laenge_;
    double uebertrag[Ketten], f[Ketten], s[Ketten], a[Ketten];
    for (size_t k = 0; k < Ketten; ++k) uebertrag[k] = f[k] = s[k] = a[k] = 0.0;
    uebertrag[0] = -2.0;  // the "- 2" of the step rides in as a carry into word 0
    for (size_t i = 0; i < laenge; ++i) {
#pragma GCC unroll 16
        for (size_t k = 0; k < Ketten; ++k) {
            const size_t j = k * laenge + i;
            const size_t platz = i * Ketten + k;
            const Gewichte& g = gewicht_[platz / 4];
            const double roh = b[j];
            s[k] += roh;
            a[k] += std::fabs(roh);
            const double t = roh * g.zurueck[platz % 4];
            const double gerundet = (t + kRunden) - kRunden;
            // Beyond 2^51 the rounding above fails and a double holds hardly a fraction, so
            // the distance says nothing: such outputs (or NaN) void the step, and must not
            // enter the carry. Selected, not branched, so that the chains stay in registers.
            const bool gueltig = std::fabs(t) < 0x1p51;
            const double abstand = gueltig ? std::fabs(t - gerundet) : 1.0;
            f[k] = abstand > f[k] ? abstand : f[k];
            const double v = (gueltig ? gerundet : 0.0) + uebertrag[k];
            const double hoch = (v * kehrwert[gross[platz]] + kRunden) - kRunden;
            b[j] = (v - hoch * basis[gross[platz]]) * g.vor[platz % 4];
            uebertrag[k] = hoch;
        }
    }
    return KettenSchliessen(uebertrag, f, s, a);
}

DwtTransform::Summen DwtTransform::KettenSchliessen(const double* uebertrag, const double* fehler,
                                                    const double* summe, const double* betraege) {
    Summen summen;
    for (size_t k = 0; k < ketten_; ++k) {
        Uebertrag(int64_t(uebertrag[k]), k + 1 == ketten_ ? 0 : (k + 1) * laenge_);
        summen.fehler = std::max(summen.fehler, fehler[k]);
        summen.summe += summe[k];
        summen.betraege += betraege[k];
    }
    return summen;
}

namespace {

// Swaps rows and columns of four rows of four doubles: row k (four words of chain k) becomes
// column k (one word of each of the four chains), and back.
__attribute__((target("avx2"))) inline void Drehen(__m256d& r0, __m256d& r1, __m256d& r2,
                                                   __m256d& r3) {
    const __m256d t0 = _mm256_unpacklo_pd(r0, r1), t1 = _mm256_unpackhi_pd(r0, r1);
    const __m256d t2 = _mm256_unpacklo_pd(r2, r3), t3 = _mm256_unpackhi_pd(r2, r3);
    r0 = _mm256_permute2f128_pd(t0, t2, 0x20);
    r1 = _mm256_permute2f128_pd(t1, t3, 0x20);
    r2 = _mm256_permute2f128_pd(t0, t2, 0x31);
    r3 = _mm256_permute2f128_pd(t1, t3, 0x31);
}

}  // namespace

// Sixteen chains as four registers of four lanes. The chains' words lie n/16 apart, so each
// register's four words come from four rows of the buffer, turned into columns in registers;
// the weights and word sizes are stored in that order already. Four independent registers hide
// the latency of the carry chain, so the pass is bound by memory, not by the chain: it reads
// and writes the buffer once and reads the weights once.
__attribute__((target("avx2,fma"))) DwtTransform::Summen DwtTransform::TragenVektor() {
    constexpr size_t Saetze = 4;
    double* const b = puffer_;
    const uint8_t* const gross = gross_.data();
    const Gewichte* const g = gewicht_.data();
    const size_t laenge = laenge_;
    const __m256d runden = _mm256_set1_pd(kRunden), grenze = _mm256_set1_pd(0x1p51),
                  eins = _mm256_set1_pd(1.0);
    const __m256d betrag = _mm256_castsi256_pd(_mm256_set1_epi64x(0x7fffffffffffffff));
    const __m256d basisKlein = _mm256_set1_pd(std::ldexp(1.0, int(bitsKlein_)));
    const __m256d basisGross = _mm256_set1_pd(std::ldexp(1.0, int(bitsKlein_) + 1));
    const __m256d kehrKlein = _mm256_set1_pd(std::ldexp(1.0, -int(bitsKlein_)));
    const __m256d kehrGross = _mm256_set1_pd(std::ldexp(1.0, -int(bitsKlein_) - 1));
    __m256d uebertrag[Saetze], f[Saetze], s[Saetze], a[Saetze];
    for (size_t k = 0; k < Saetze; ++k) {
        uebertrag[k] = f[k] = s[k] = a[k] = _mm256_setzero_pd();
    }
    uebertrag[0] = _mm256_set_pd(0.0, 0.0, 0.0, -2.0);  // chain 0 is lane 0 of register 0
    for (size_t i = 0; i < laenge; i += 4) {
#pragma GCC unroll 4
        for (size_t satz = 0; satz < Saetze; ++satz) {
            double* const zeile = b + 4 * satz * laenge + i;
            __m256d w[4] = {_mm256_loadu_pd(zeile), _mm256_loadu_pd(zeile + laenge),
                            _mm256_loadu_pd(zeile + 2 * laenge),
                            _mm256_loadu_pd(zeile + 3 * laenge)};
            Drehen(w[0], w[1], w[2], w[3]);
#pragma GCC unroll 4
            for (size_t schritt = 0; schritt < 4; ++schritt) {
                const size_t platz = (i + schritt) * 16 + 4 * satz;
                const __m256d roh = w[schritt];
                s[satz] = _mm256_add_pd(s[satz], roh);
                a[satz] = _mm256_add_pd(a[satz], _mm256_and_pd(roh, betrag));
                const __m256d t = _mm256_mul_pd(roh, _mm256_load_pd(g[platz / 4].zurueck));
                const __m256d gerundet = _mm256_sub_pd(_mm256_add_pd(t, runden), runden);
                const __m256d gueltig = _mm256_cmp_pd(_mm256_and_pd(t, betrag), grenze, _CMP_LT_OQ);
                const __m256d abstand = _mm256_and_pd(_mm256_sub_pd(t, gerundet), betrag);
                f[satz] = _mm256_max_pd(f[satz], _mm256_blendv_pd(eins, abstand, gueltig));
                const __m256d v = _mm256_add_pd(_mm256_and_pd(gerundet, gueltig), uebertrag[satz]);
                // The four word sizes as bytes 0 or 1, moved to the sign bit that selects.
                int32_t bytes;
                std::memcpy(&bytes, gross + platz, sizeof bytes);
                const __m256d gr = _mm256_castsi256_pd(
                    _mm256_slli_epi64(_mm256_cvtepu8_epi64(_mm_cvtsi32_si128(bytes)), 63));
                // v 2^-bits and hoch 2^bits are exact, so the fused forms round as the plain.
                const __m256d hoch = _mm256_sub_pd(
                    _mm256_fmadd_pd(v, _mm256_blendv_pd(kehrKlein, kehrGross, gr), runden), runden);
                const __m256d rest =
                    _mm256_fnmadd_pd(hoch, _mm256_blendv_pd(basisKlein, basisGross, gr), v);
                w[schritt] = _mm256_mul_pd(rest, _mm256_load_pd(g[platz / 4].vor));
                uebertrag[satz] = hoch;
            }
            Drehen(w[0], w[1], w[2], w[3]);
            _mm256_storeu_pd(zeile, w[0]);
            _mm256_storeu_pd(zeile + laenge, w[1]);
            _mm256_storeu_pd(zeile + 2 * laenge, w[2]);
            _mm256_storeu_pd(zeile + 3 * laenge, w[3]);
        }
    }
    // Lane k of register satz is chain 4 satz + k.
    alignas(32) double u[16], fs[16], ss[16], as[16];
    for (size_t satz = 0; satz < Saetze; ++satz) {
        _mm256_store_pd(u + 4 * satz, uebertrag[satz]);
        _mm256_store_pd(fs + 4 * satz, f[satz]);
        _mm256_store_pd(ss + 4 * satz, s[satz]);
        _mm256_store_pd(as + 4 * satz, a[satz]);
    }
    return KettenSchliessen(u, fs, ss, as);
}

}  // namespace sw
