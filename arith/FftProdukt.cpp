#include "arith/FftProdukt.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"

namespace sw {

namespace {

using Komplex = std::complex<double>;

// Iterative radix-2 transform on data already in bit-reversed order. The roots come from a
// table computed directly by sin/cos rather than by repeated multiplication, which keeps the
// error of the roots at one rounding and so the round-off of the product small.
void transformieren(std::vector<Komplex>& x, const std::vector<Komplex>& wurzeln, bool rueck) {
    const size_t n = x.size();
    for (size_t laenge = 2; laenge <= n; laenge <<= 1) {
        const size_t halb = laenge / 2, schritt = n / laenge;
        for (size_t s = 0; s < n; s += laenge) {
            for (size_t k = 0; k < halb; ++k) {
                const Komplex w = rueck ? std::conj(wurzeln[k * schritt]) : wurzeln[k * schritt];
                const Komplex u = x[s + k], v = x[s + k + halb] * w;
                x[s + k] = u + v;
                x[s + k + halb] = u - v;
            }
        }
    }
}

// The bytes of an Int2FFTArr array into n complex points in bit-reversed order.
std::vector<Komplex> punkte(const std::vector<int32_t>& bytes, const std::vector<int32_t>& umordnung) {
    std::vector<Komplex> x(umordnung.size());
    for (size_t i = 0; i < x.size(); ++i) {
        const auto j = size_t(umordnung[i]);
        x[i] = j < bytes.size() ? double(bytes[j]) : 0.0;
    }
    return x;
}

}  // namespace

FftErgebnis FftProdukt(const Hyp& a, const Hyp& b) {
    const std::vector<int32_t> fa = Int2FFTArr(a), fb = Int2FFTArr(b);
    // Each array has one element beyond its power of two; the larger power holds the product.
    const size_t n = std::max(fa.size(), fb.size()) - 1;
    if (n > size_t(FftHoechstPunkte)) throw Laufzeitfehler(FehlerUeberlauf, TextP1(2248, std::to_string(n)));

    std::vector<int32_t> umordnung(n);
    for (size_t i = 0; i < n; ++i) umordnung[i] = int32_t(i);
    BrevOrder(umordnung, int32_t(n));
    std::vector<Komplex> wurzeln(n / 2);
    for (size_t k = 0; k < wurzeln.size(); ++k) wurzeln[k] = std::polar(1.0, -2 * std::numbers::pi * double(k) / double(n));

    std::vector<Komplex> x = punkte(fa, umordnung), y = punkte(fb, umordnung);
    transformieren(x, wurzeln, false);
    transformieren(y, wurzeln, false);
    std::vector<Komplex> z(n);
    for (size_t i = 0; i < n; ++i) z[umordnung[i]] = x[i] * y[i];  // back into bit-reversed order
    transformieren(z, wurzeln, true);

    FftErgebnis e;
    e.laenge = int32_t(n);
    // Each value rounds to its integer; the carries are taken here in 64 bits, since a value of
    // a long convolution can pass 2^31, so that FFTArr2Int meets bytes only.
    std::vector<int32_t> ergebnis(n + 1, 0);
    int64_t uebertrag = 0;
    for (size_t i = 0; i < n; ++i) {
        const double wert = z[i].real() / double(n);
        const double gerundet = std::nearbyint(wert);
        e.rundungsfehler = std::max(e.rundungsfehler, std::abs(wert - gerundet));
        uebertrag += int64_t(gerundet);
        ergebnis[i] = int32_t(uebertrag & 0xFF);
        uebertrag >>= 8;
    }
    ergebnis[n] = int32_t(uebertrag);
    e.produkt = FFTArr2Int(std::move(ergebnis));
    return e;
}

}  // namespace sw
