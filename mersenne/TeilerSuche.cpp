#include "mersenne/TeilerSuche.h"

#include <algorithm>
#include <cstring>

namespace sw {

namespace {

constexpr uint32_t kSiebGrenzeMax = 1u << 17;  // sieving primes up to here
constexpr uint64_t kSegment = 1u << 16;        // positions j per class and segment: stays in L2

// The sieving primes from 5 on, with 12^-1 mod r, which turns a residue of k into one of j.
struct SiebPrim {
    uint32_t r;
    uint32_t inv12;
};

uint32_t inverse(uint32_t a, uint32_t r) {
    int64_t t = 0, neu = 1, rest = r, neuRest = a;
    while (neuRest != 0) {
        const int64_t f = rest / neuRest;
        t -= f * neu;
        std::swap(t, neu);
        rest -= f * neuRest;
        std::swap(rest, neuRest);
    }
    return uint32_t(t < 0 ? t + r : t);
}

const std::vector<SiebPrim>& siebPrimzahlen() {
    static const std::vector<SiebPrim> liste = [] {
        std::vector<uint8_t> zusammengesetzt(kSiebGrenzeMax + 1, 0);
        std::vector<SiebPrim> l;
        for (uint32_t i = 2; i <= kSiebGrenzeMax; ++i) {
            if (zusammengesetzt[i]) continue;
            for (uint64_t j = uint64_t(i) * i; j <= kSiebGrenzeMax; j += i) zusammengesetzt[j] = 1;
            if (i >= 5) l.push_back({i, inverse(12 % i, i)});
        }
        return l;
    }();
    return liste;
}

}  // namespace

TeilerSuche::TeilerSuche(uint32_t p) { Exponent(p); }

void TeilerSuche::Exponent(uint32_t p) {
    p_ = p;
    Schritt2P = Zahl128(2) * p;
    // q = 2kp + 1 must be 1 or 7 mod 8 (2 is a square mod q) and must not be divisible by 3.
    klassen_ = 0;
    for (uint32_t c = 0; c < 12; ++c) {
        const uint64_t q = 2ull * c * p + 1;
        const uint64_t acht = q % 8;
        if ((acht == 1 || acht == 7) && q % 3 != 0) KRest[klassen_++] = c;
    }
}

// The sieve grows with the width of the k range: a prime r saves about width / 12r tests, and
// costs one inversion per exponent plus a division per class and segment. Beyond a few
// thousand positions per class the large primes no longer pay.
void TeilerSuche::KleinPrimTabelle(uint64_t breite) {
    const uint64_t grenze = std::clamp<uint64_t>(breite / 8, 64, kSiebGrenzeMax);
    tabelle_.clear();
    ausnahmen_.clear();
    for (const SiebPrim& s : siebPrimzahlen()) {
        if (s.r > grenze) break;
        if (s.r == p_) continue;  // q = 1 mod p, never a multiple of p
        const uint32_t zweiP = uint32_t((2ull * p_) % s.r);
        const uint32_t kr = s.r - inverse(zweiP, s.r);  // q = 0 mod r  <=>  k = kr mod r
        KleinPrim z{s.r, {}};
        for (int i = 0; i < klassen_; ++i)
            z.start[i] = uint32_t((uint64_t(kr + s.r - KRest[i] % s.r) % s.r) * s.inv12 % s.r);
        tabelle_.push_back(z);
        // A q that is this prime itself is a divisor the sieve must let through.
        if ((s.r - 1) % (2ull * p_) == 0) ausnahmen_.push_back((s.r - 1) / (2ull * p_));
    }
    KleinPrimAnzahl = tabelle_.size();
}

// The sieve over one class: byte per position, every r-th struck from the row's start. Bytes
// rather than bits, because striking is the work and a byte store needs no read.
void TeilerSuche::KlasseWeiter(int klasse, uint64_t jVon, uint64_t jBis) {
    const size_t n = size_t(jBis - jVon);
    uint8_t* sieb = sieb_.data();
    std::memset(sieb, 0, n);
    for (size_t z = 0; z < KleinPrimAnzahl; ++z) {
        const uint32_t r = tabelle_[z].r;
        const uint32_t verschoben = uint32_t(jVon % r);
        size_t j = tabelle_[z].start[klasse] >= verschoben ? tabelle_[z].start[klasse] - verschoben
                                                           : tabelle_[z].start[klasse] + r - verschoben;
        for (; j < n; j += r) sieb[j] = 1;
    }
    const uint64_t c = KRest[klasse];
    for (uint64_t k : ausnahmen_)
        if (k % 12 == c && k / 12 >= jVon && k / 12 < jBis) sieb[k / 12 - jVon] = 0;
    for (size_t j = 0; j < n; ++j)
        if (!sieb[j]) ueberlebende_.push_back(c + 12 * (jVon + j));
}

TeilerFund TeilerSuche::TeilerSuchen(uint64_t KGeprueft, uint64_t KZiel, const TeilerWeiter& weiter) {
    TeilerFund fund;
    if (KZiel <= KGeprueft) return fund;
    KleinPrimTabelle(KZiel - KGeprueft);
    sieb_.resize(kSegment);
    const uint64_t kVon = KGeprueft + 1;
    for (uint64_t j = kVon / 12; j <= KZiel / 12; j += kSegment) {
        ueberlebende_.clear();
        for (int i = 0; i < klassen_; ++i) {
            const uint64_t c = KRest[i];
            // Only k in [kVon, KZiel]: the first and last position of a class may lie outside.
            const uint64_t jVon = std::max(j, c >= kVon ? 0 : (kVon - c + 11) / 12);
            if (KZiel < c) continue;
            const uint64_t jBis = std::min(j + kSegment, (KZiel - c) / 12 + 1);
            if (jVon < jBis) KlasseWeiter(i, jVon, jBis);
        }
        kandidaten_.resize(ueberlebende_.size());
        teilt_.resize(ueberlebende_.size());
        for (size_t i = 0; i < ueberlebende_.size(); ++i) kandidaten_[i] = 1 + ueberlebende_[i] * Schritt2P;
        ZweierPotenzModQ(p_, kandidaten_.data(), teilt_.data(), kandidaten_.size());
        getestet_ += kandidaten_.size();
        for (size_t i = 0; i < ueberlebende_.size(); ++i) {
            if (teilt_[i] && (fund.ergebnis != TeilerErgebnis::Gefunden || ueberlebende_[i] < fund.k)) {
                fund.ergebnis = TeilerErgebnis::Gefunden;
                fund.k = ueberlebende_[i];
                fund.q = kandidaten_[i];
            }
        }
        if (fund.ergebnis == TeilerErgebnis::Gefunden) return fund;
        // Every class has passed all k below 12 (j + kSegment): that much is settled.
        const uint64_t erreicht = 12 * (j + kSegment) - 1;
        if (erreicht < KZiel && weiter && !weiter(erreicht)) {
            fund.ergebnis = TeilerErgebnis::Abgebrochen;
            fund.k = erreicht;
            return fund;
        }
    }
    return fund;
}

}  // namespace sw
