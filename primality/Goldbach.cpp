#include "primality/Goldbach.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

uint64_t grenze() { return uint64_t(PrimaerGrenze.AlsInt64()); }

// q prime by one bit of the raster; q at most the limit.
bool primImRaster(uint64_t q) {
    if (q < 7) return q == 2 || q == 3 || q == 5;
    const uint32_t maske = RestMaske[q % RasterSpanne];
    return maske != 0 && (PrimaerRaster[q / RasterSpanne] & maske) == 0;
}

std::string zeile(uint64_t p, uint64_t q) { return std::to_string(p) + " + " + std::to_string(q); }

// For p = 120 a + r and q = n - p, both prime to 30, q lies in word K - a or K - a - 1
// (K = n div 120) at a bit that depends only on r and n mod 120. The tables of one class of
// n mod 120 turn the two words of q into a mask over the bits of p, one byte at a time, so
// that one word of p is paired with all its partners by eight lookups.
struct PartnerTafel {
    uint32_t ohne = 0;                 // bits of p whose partner n - r is divisible by 3 or 5
    uint32_t bytes[2][4][256] = {};    // [0: word K - a, 1: word K - a - 1][byte][value]

    uint32_t maske(uint32_t oben, uint32_t unten) const {
        return ohne | bytes[0][0][oben & 255] | bytes[0][1][(oben >> 8) & 255] | bytes[0][2][(oben >> 16) & 255] |
               bytes[0][3][oben >> 24] | bytes[1][0][unten & 255] | bytes[1][1][(unten >> 8) & 255] |
               bytes[1][2][(unten >> 16) & 255] | bytes[1][3][unten >> 24];
    }
};

PartnerTafel tafelBauen(uint32_t m) {
    PartnerTafel t;
    uint32_t quelle[2][32] = {};  // [word][bit position of q] -> bit of p
    for (int i = 1; i <= 32; ++i) {
        const uint32_t r = uint32_t(RasterRest[i]);
        const uint32_t s = (m + RasterSpanne - r) % RasterSpanne;
        if (RestMaske[s] == 0) {
            t.ohne |= BitMaske[i];
            continue;
        }
        quelle[r + s == m ? 0 : 1][__builtin_ctz(RestMaske[s])] |= BitMaske[i];
    }
    for (int w = 0; w < 2; ++w)
        for (int k = 0; k < 4; ++k)
            for (uint32_t v = 1; v < 256; ++v)
                t.bytes[w][k][v] = t.bytes[w][k][v & (v - 1)] | quelle[w][8 * k + __builtin_ctz(v)];
    return t;
}

// One table per even class of n mod 120, built at first use (480 KB; one is read per n).
const PartnerTafel& tafel(uint64_t n) {
    static const std::vector<PartnerTafel> tafeln = [] {
        std::vector<PartnerTafel> t(RasterSpanne / 2);
        for (uint32_t m = 0; m < uint32_t(RasterSpanne); m += 2) t[m / 2] = tafelBauen(m);
        return t;
    }();
    return tafeln[(n % RasterSpanne) / 2];
}

}  // namespace

int64_t GoldbachZahl(const std::string& text) {
    const std::string z = ZahlBereinigt(text);
    if (z.empty() || z.size() > 18 || !std::all_of(z.begin(), z.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return -1;
    return std::stoll(z);
}

bool GoldbachPruefen(int64_t n) {
    if (n < 4 || uint64_t(n) > grenze() || n % 2 != 0) {
        MsgInfoP1(474, ZahlFormat(PrimaerGrenze));
        return false;
    }
    return true;
}

std::vector<std::string> GoldbachZerlegen(int64_t n) {
    const uint64_t z = uint64_t(n);
    std::vector<std::string> liste{Text(110)};
    // Both orders of a split stay: the list shows which exponents are summands, and 89 + 11 for
    // 100 says that as much as 11 + 89 would.
    for (int32_t p = 3; p != 0 && uint64_t(p) <= z; p = MersenneNaechsterExponent(p))
        if (primImRaster(z - uint64_t(p))) liste.push_back(zeile(uint64_t(p), z - uint64_t(p)));
    liste.insert(liste.end(), {"", "", Text(111)});
    if (z == 4) {
        liste.push_back("2 + 2");
        return liste;
    }
    int zeilen = 0;
    PrimzahlenDurchlaufen(3, z / 2, [&](uint64_t p) {
        if (!primImRaster(z - p)) return true;
        liste.push_back(zeile(p, z - p));
        if (++zeilen < GoldbachHoechstZeilen) return true;
        liste.push_back(Text(492));
        return false;
    });
    return liste;
}

int64_t GoldbachSchritt(int index, int64_t n) {
    // The prime steps ask with 0 for a number beyond the raster: their answer then is one the
    // check refuses.
    const int64_t x = uint64_t(n) < grenze() && n > 0 ? n : 0;
    auto naechstePrim = [](int64_t v) { return NaechstePrim(Decimal(v)).AlsInt64(); };
    auto naechsterExponent = [](int64_t v) {
        return v > std::numeric_limits<int32_t>::max() ? 0 : int64_t(MersenneNaechsterExponent(int32_t(v)));
    };
    switch (index) {
        case 0: return n + 2;
        case 1: return n - 2;
        case 2: return n + n;
        case 3: return n / 2;
        case 4: return naechstePrim(x) + 1;
        case 5: return naechstePrim(x == 0 ? 0 : x + 2) - 1;
        case 6: return naechsterExponent(x) + 1;
        case 7: return naechsterExponent(x == 0 ? 0 : x + 2) - 1;
        default: return -1;
    }
}

uint64_t GoldbachAnzahl(uint64_t n) {
    uint64_t anzahl = 0;
    // Splits with 2, 3 or 5, which have no bits: at most one each, p <= q.
    for (uint64_t p : {2, 3, 5})
        if (n >= 2 * p && primImRaster(n - p)) ++anzahl;
    if (n < 14) return anzahl;  // 7 + 7 is the first split of two numbers with bits

    const PartnerTafel& t = tafel(n);
    const uint32_t* w = PrimaerRaster.data();
    const int64_t K = int64_t(n / RasterSpanne);
    // Words a with 2a + 2 <= K: every p in them is smaller than every partner q, so each split
    // is met once. The hot loop: one word of p and its two partner words walking towards each
    // other, eight table lookups and a population count; no call, no branch on a number.
    const int64_t vorn = K >= 2 ? (K - 2) / 2 : -1;
    for (int64_t a = 0; a <= vorn; ++a)
        anzahl += uint64_t(__builtin_popcount(~(w[a] | t.maske(w[K - a], w[K - a - 1]))));
    // The few words in the middle: ordered pairs with both words behind the front (the others
    // were met there), in which p = q = n/2 stands once.
    auto wort = [&](int64_t b) { return b <= vorn ? ~0u : w[b]; };
    uint64_t geordnet = 0;
    for (int64_t a = vorn + 1; a <= K - vorn - 1; ++a)
        geordnet += uint64_t(__builtin_popcount(~(w[a] | t.maske(wort(K - a), wort(K - a - 1)))));
    const uint64_t mitte = n / 2 >= 7 && primImRaster(n / 2) ? 1 : 0;
    return anzahl + (geordnet + mitte) / 2;
}

double GoldbachSchaetzung(uint64_t n) {
    constexpr double C2 = 0.6601618158468695739;  // the twin prime constant
    double faktor = 2 * C2;
    uint64_t rest = n;
    while (rest % 2 == 0 && rest > 0) rest /= 2;
    for (uint64_t p = 3; p * p <= rest; p += 2) {
        if (rest % p) continue;
        faktor *= double(p - 1) / double(p - 2);
        while (rest % p == 0) rest /= p;
    }
    if (rest > 1) faktor *= double(rest - 1) / double(rest - 2);
    // Simpson over u = ln t: the integrand e^u / (u ln(n - e^u)) is smooth across the range.
    const double a = std::log(2.0), b = std::log(double(n) / 2);
    if (b <= a) return 0;
    constexpr int schritte = 4000;
    const double h = (b - a) / schritte;
    auto f = [&](double u) {
        const double t = std::exp(u);
        return t / (u * std::log(double(n) - t));
    };
    double summe = f(a) + f(b);
    for (int i = 1; i < schritte; ++i) summe += f(a + i * h) * (i % 2 ? 4 : 2);
    return faktor * summe * h / 3;
}

bool GoldbachKometPruefen(int64_t von, int64_t bis) {
    const int64_t erstes = std::max<int64_t>(von + (von & 1), 4);
    if (von < 0 || bis < erstes || uint64_t(bis) > grenze() || (bis - erstes) / 2 >= GoldbachKometHoechstens) {
        MsgInfoP1P2(2203, ZahlFormat(PrimaerGrenze), ZahlFormat(static_cast<long long>(GoldbachKometHoechstens)));
        return false;
    }
    return true;
}

GoldbachKomet GoldbachKometZaehlen(uint64_t von, uint64_t bis, const std::function<bool(double)>& weiter) {
    GoldbachKomet k;
    k.von = std::max<uint64_t>(von + (von % 2), 4);
    const uint64_t ende = bis - (bis % 2);
    if (ende < k.von) return k;
    k.anzahl.reserve((ende - k.von) / 2 + 1);
    // The work of one n grows with n: the share done is measured by the sum of the n.
    const double gesamt = double(ende - k.von + 2) * double(ende + k.von) / 4;
    double getan = 0;
    for (uint64_t n = k.von; n <= ende; n += 2) {
        k.anzahl.push_back(GoldbachAnzahl(n));
        getan += double(n) / 2;
        if (k.anzahl.size() % 64 == 0 && !weiter(getan / gesamt)) {
            k.vollstaendig = n == ende;
            break;
        }
    }
    return k;
}

std::string GoldbachKometCsv(const GoldbachKomet& k) {
    std::string text = "n;r(n)\n";
    for (size_t i = 0; i < k.anzahl.size(); ++i)
        text += std::to_string(k.von + 2 * i) + ";" + std::to_string(k.anzahl[i]) + "\n";
    return text;
}

}  // namespace sw
