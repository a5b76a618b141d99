#include "arith/basWurzel.h"

#include <cmath>

#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

bool istNull(const Hyp& h) { return h[0] <= 1 && h[1] == 0; }

// floor(sqrt(v)) of a 64-bit value, corrected after the double estimate.
uint64_t wurzel64(uint64_t v) {
    uint64_t s = uint64_t(std::sqrt(double(v)));
    while (s > 0 && (s > 0xFFFFFFFFull || s * s > v)) --s;
    while (s + 1 <= 0xFFFFFFFFull && (s + 1) * (s + 1) <= v) ++s;
    return s;
}

// floor(sqrt(n)). Below 64 bits directly; above, the root s of n div 4^k (k about a quarter
// of the bits) gives (s + 1) 2^k, which is not below the root of n and off by a relative
// 2^-(bits/4); Newton from above then lands after one or two quotients.
Hyp wurzel(const Hyp& n) {
    const int32_t bits = aGetHighBitHyp(n) + 1;
    if (bits <= 64) {
        const uint64_t v = n.anzahl() >= 2 ? (uint64_t(uint32_t(n[2])) << 32) | uint32_t(n[1]) : uint32_t(n[1]);
        Hyp r(2);
        const uint64_t s = wurzel64(v);
        r[1] = int32_t(uint32_t(s));
        r[0] = 1;
        return r;
    }
    const int32_t k = bits / 4;
    Hyp oben(n);
    aShiftRightHyp(oben, 2 * k);
    Hyp x = wurzel(oben);
    const int32_t platz = n.anzahl() + 4;
    x.mindestens(platz);
    aIncHyp(x);
    aShiftLeftHyp(x, k);
    // y = (x + n div x) / 2 while it still decreases.
    for (;;) {
        Hyp q(platz), rest(n);
        rest.mindestens(platz);
        aDivHypHyp(q, rest, x);
        q.mindestens(platz);
        aAddHypHyp(q, x);
        aDivHyp2(q);
        if (aCmpHypHyp(q, x) >= 0) break;
        x = std::move(q);
    }
    return x;
}

}  // namespace

Hyp HypWurzel(const Hyp& n, bool wurzelGefragt) {
    if (istNull(n)) return Hyp(1);
    Hyp w = wurzel(n);
    if (wurzelGefragt) {
        w.setzeObergrenze(w.anzahl());
        return w;
    }
    Hyp quadrat(2 * w.anzahl() + 1);
    aQuadHyp(quadrat, w);
    Hyp rest(n);
    rest.mindestens(n.anzahl() + 1);
    aSubHypHyp(rest, quadrat);
    rest.setzeObergrenze(rest.anzahl());
    return rest;
}

bool IstQuadrat(int32_t xWert) {
    uint32_t x = uint32_t(xWert);
    if (x == 0) return true;
    while (x % 4 == 0) x /= 4;
    while (x % 9 == 0) x /= 9;
    // Every square prime to 6 is 1 mod 24. With the 4s and 9s out, a square is prime to 6;
    // a leftover 2 or 3 (an odd power) already fails the filter.
    if (x % 24 != 1) return false;
    if (x == 1) return true;
    const uint64_t s = wurzel64(uint32_t(xWert));
    return s * s == uint64_t(uint32_t(xWert));
}

}  // namespace sw
