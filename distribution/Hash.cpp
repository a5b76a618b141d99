#include "distribution/Hash.h"

#include <algorithm>
#include <cmath>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/basSiebwerk.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// The fold of aHASH32 / aHASH32XOR written out here, so that the walk over a hundred million
// primes inlines it instead of calling into the library per prime; a test holds the two equal.
template <bool mitXor>
inline uint32_t falten(uint32_t x, int32_t k) {
    if (k <= 0) return 0;
    const uint32_t maske = (1u << k) - 1;
    uint32_t h = 0;
    for (uint32_t v = x; v != 0; v >>= k) h = mitXor ? (h ^ (v & maske)) : (h + (v & maske));
    return h & maske;
}

// Class of a residue mod 30 among the eight coprime ones; 0 for the others (2, 3, 5).
constexpr int8_t kKlasse[30] = {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 2, 0, 3, 0,
                                0, 0, 4, 0, 5, 0, 0, 0, 6, 0, 0, 0, 0, 0, 7};

template <int methode>
inline uint32_t wert(uint32_t c, int32_t bits) {
    if constexpr (methode == 0) return falten<false>(c, bits);
    if constexpr (methode == 2) return falten<true>(c, bits);
    const uint32_t r = c % 30;
    if (r != 1 && kKlasse[r] == 0) return 0;
    return falten<false>(c, bits - 3) * 8 + uint32_t(kKlasse[r]);
}

// The walk over raster words w in [vonWort, bisWort), numbers up to bis. Within a word the
// numbers are basis + r with r < 120: as long as the lowest k-bit piece of basis takes r
// without a carry, only that piece changes, so the fold of basis + r follows from the fold of
// basis, taken once per word; the rare carry takes the whole fold. The clear bits are taken
// lowest first (a count only needs each once): clearing the lowest set bit is one cycle, where
// clearing the highest would wait for the count of leading zeros, so a prime costs little more
// than its table increment.
template <int methode>
uint64_t zaehlenWorte(int32_t* tabelle, int32_t bits, uint64_t vonWort, uint64_t bisWort, uint64_t bis) {
    constexpr bool mitXor = methode == 2;
    const int32_t k = methode == 1 ? bits - 3 : bits;
    const uint32_t maske = k > 0 ? (1u << k) - 1 : 0;
    // By trailing zero count t: bit 32 - t, its residue and that residue's class mod 30.
    uint32_t rest[32];
    uint32_t klasse[32];
    for (int t = 0; t < 32; ++t) {
        rest[t] = uint32_t(RasterRest[32 - t]);
        klasse[t] = uint32_t(kKlasse[rest[t] % 30]);
    }
    const uint32_t* raster = PrimaerRaster.data();
    uint64_t anzahl = 0;
    for (uint64_t w = vonWort; w < bisWort; ++w) {
        uint32_t frei = ~raster[w];
        if (frei == 0) continue;
        const uint32_t basis = uint32_t(w * RasterSpanne);
        if (uint64_t(basis) + RasterSpanne - 1 > bis) {  // the last word: only numbers up to bis
            for (int t = 0; t < 32; ++t)
                if (uint64_t(basis) + rest[t] > bis) frei &= ~(1u << t);
            if (frei == 0) continue;
        }
        const uint32_t tief = basis & maske;
        const uint32_t fb = falten<mitXor>(basis, k);
        anzahl += uint64_t(__builtin_popcount(frei));
        do {
            const int t = __builtin_ctz(frei);
            frei &= frei - 1;
            const uint32_t r = rest[t];
            uint32_t h;
            if (tief + r <= maske) {
                h = mitXor ? (fb ^ tief ^ (tief + r)) : ((fb + r) & maske);
            } else {
                h = falten<mitXor>(basis + r, k);
            }
            if constexpr (methode == 1) h = h * 8 + klasse[t];
            ++tabelle[h];
        } while (frei);
    }
    return anzahl;
}

// Pieces of the walk between two questions to the caller: about 60 million numbers each, a
// few hundredths of a second.
constexpr uint64_t kStueckWorte = uint64_t(1) << 19;

template <int methode>
void zaehlen(HashErgebnis& e, const std::function<bool(double)>& weiter) {
    int32_t* tabelle = e.HashTabelle.data();
    uint64_t anzahl = 0;
    // 2, 3, 5 and the first word (where 1 has a bit) through the common enumeration.
    PrimzahlenDurchlaufen(0, std::min<uint64_t>(e.bis, RasterSpanne - 1), [&](uint64_t p) {
        ++tabelle[wert<methode>(uint32_t(p), e.HashBits)];
        ++anzahl;
        return true;
    });
    const uint64_t letztesWort = e.bis / RasterSpanne;
    e.erreicht = std::min<uint64_t>(e.bis, RasterSpanne - 1);
    for (uint64_t von = 1; von <= letztesWort; von += kStueckWorte) {
        const uint64_t bis = std::min(letztesWort + 1, von + kStueckWorte);
        anzahl += zaehlenWorte<methode>(tabelle, e.HashBits, von, bis, e.bis);
        e.erreicht = std::min(e.bis, bis * RasterSpanne - 1);
        if (bis <= letztesWort && weiter && !weiter(double(e.erreicht) / double(e.bis))) break;
    }
    e.anzahl = anzahl;
    e.vollstaendig = e.erreicht == e.bis;
}

}  // namespace

void HashPruefen(int32_t bits, int32_t methode) {
    if (methode < 0 || methode > 2) throw Laufzeitfehler(5, Text(2150));
    const int32_t unten = methode == 1 ? 3 : 1;
    if (bits < unten || bits > 26) throw Laufzeitfehler(5, TextP1(2151, unten));
}

uint64_t HashGrenze() {
    return std::min<uint64_t>(uint64_t(PrimaerGrenze.Betrag()), HashHoechstGrenze);
}

HashErgebnis HashVerteilung(int32_t bits, int32_t methode, uint64_t bis, const std::function<bool(double)>& weiter) {
    HashPruefen(bits, methode);
    HashErgebnis e;
    e.HashBits = bits;
    e.HashMethode = methode;
    e.HashTabelle.assign((size_t(1) << bits) + 1, 0);
    e.bis = std::min(bis, HashGrenze());
    switch (methode) {
        case 0: zaehlen<0>(e, weiter); break;
        case 1: zaehlen<1>(e, weiter); break;
        default: zaehlen<2>(e, weiter); break;
    }
    e.HashMaximum = *std::max_element(e.HashTabelle.begin(), e.HashTabelle.end());
    return e;
}

double GammaQ(double a, double x) {
    if (x <= 0) return 1;
    const double vorfaktor = std::exp(-x + a * std::log(x) - std::lgamma(a));
    if (x < a + 1) {
        // Series of the lower function P: converges fast below its turning point.
        double summe = 1 / a, glied = summe, n = a;
        for (int i = 0; i < 10000000; ++i) {
            n += 1;
            glied *= x / n;
            summe += glied;
            if (std::fabs(glied) < std::fabs(summe) * 1e-16) break;
        }
        return std::max(0.0, 1 - summe * vorfaktor);
    }
    // Continued fraction of Q (modified Lentz) above it.
    constexpr double winzig = 1e-300;
    double b = x + 1 - a, c = 1 / winzig, d = 1 / b, h = d;
    for (int i = 1; i < 10000000; ++i) {
        const double an = -i * (i - a);
        b += 2;
        d = an * d + b;
        if (std::fabs(d) < winzig) d = winzig;
        c = b + an / c;
        if (std::fabs(c) < winzig) c = winzig;
        d = 1 / d;
        const double faktor = d * c;
        h *= faktor;
        if (std::fabs(faktor - 1) < 1e-16) break;
    }
    return vorfaktor * h;
}

ChiQuadrat HashChiQuadrat(const HashErgebnis& e) {
    ChiQuadrat c;
    const size_t eimer = size_t(1) << e.HashBits;
    c.freiheitsgrade = int64_t(eimer) - 1;
    if (e.anzahl == 0 || c.freiheitsgrade == 0) return c;
    const double mittel = double(e.anzahl) / double(eimer);
    for (size_t i = 0; i < eimer; ++i) {
        const double d = double(e.HashTabelle[i]) - mittel;
        c.wert += d * d / mittel;
    }
    c.p = GammaQ(double(c.freiheitsgrade) / 2, c.wert / 2);
    return c;
}

std::string HashCsv(const HashErgebnis& e) {
    std::string text = "Bucket;Anzahl\n";
    for (size_t i = 0; i < e.HashTabelle.size(); ++i)
        text += std::to_string(i) + ";" + std::to_string(e.HashTabelle[i]) + "\n";
    return text;
}

}  // namespace sw
