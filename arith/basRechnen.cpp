#include "arith/basRechnen.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "arith/HypText.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

Hyp wort(uint32_t v) {
    Hyp h(1);
    h[1] = int32_t(v);
    return h;
}

bool istNull(const Hyp& h) { return h[0] <= 1 && h[1] == 0; }

// log2 of h from its top two words: the size of a result is judged before it is built.
double Log2Hyp(const Hyp& h) {
    const int32_t n = h.anzahl();
    double v = uint32_t(h[n]);
    if (n >= 2) v += uint32_t(h[n - 1]) / 4294967296.0;
    return v == 0 ? 0 : std::log2(v) + 32.0 * (n - 1);
}

// h := its words from index ab on (h div 2^(32 ab)), into a fresh array of spare room.
Hyp worteAb(const Hyp& h, int32_t ab, int32_t extra) {
    const int32_t n = h.anzahl() - ab;
    if (n <= 0) return Hyp(1 + extra);
    Hyp r(n + extra);
    std::memcpy(r.daten() + 1, h.daten() + 1 + ab, size_t(n) * 4);
    r[0] = n;
    return r;
}

// h := h mod 2^(32 n), the count lowered past leading zero words.
void kuerzen(Hyp& h, int32_t n) {
    int32_t c = h.anzahl() < n ? h.anzahl() : n;
    while (c > 1 && h[c] == 0) --c;
    h[0] = c;
}

// Reduction modulo a fixed m of n words of a value below m^2. From a few words on by
// Barrett's method: mu = floor(2^(64 n) / m) once, then per reduction two products (the high
// half of q1 mu, the low half of q3 m) and at most two subtractions, which together cost less
// than one wide quotient; below that the library's quotient is cheaper than the setup.
class Reduzierer {
public:
    explicit Reduzierer(const Hyp& m) : m_(m), n_(m.anzahl()), barrett_(n_ >= kBarrettAb) {
        if (!barrett_) return;
        Hyp z(2 * n_ + 2);
        aSetBitHyp(z, 64 * n_);
        mu_ = Hyp(n_ + 3);
        Hyp mKopie(m_);
        mKopie.mindestens(2 * n_ + 2);
        aDivHypHyp(mu_, z, mKopie);
    }

    // x < m^2 becomes x mod m; x has room for 2n + 2 words.
    void reduzieren(Hyp& x) const {
        if (!barrett_) {
            aModHypHyp(x, m_);
            return;
        }
        if (x.anzahl() < n_ || aCmpHypHyp(x, m_) < 0) return;
        const Hyp q1 = worteAb(x, n_ - 1, 2);
        Hyp q2(q1.anzahl() + mu_.anzahl() + 1);
        aMulHypHyp(q2, q1, mu_);
        const Hyp q3 = worteAb(q2, n_ + 1, 2);
        Hyp r2(q3.anzahl() + n_ + 1);
        aMulHypHyp(r2, q3, m_);
        kuerzen(r2, n_ + 1);
        kuerzen(x, n_ + 1);
        if (aCmpHypHyp(x, r2) < 0) aSetBitHyp(x, 32 * (n_ + 1));
        aSubHypHyp(x, r2);
        while (aSubHypHyp(x, m_) > 0) {
        }
    }

    int32_t worte() const { return n_; }

private:
    // Measured with bench/arith_potenz.cpp: Barrett wins from about 8 words of modulus.
    static constexpr int32_t kBarrettAb = 8;
    Hyp m_;
    int32_t n_;
    bool barrett_;
    Hyp mu_;
};

void modulPruefen(const Hyp& m) {
    if (istNull(m)) throw Laufzeitfehler(FehlerDivisionDurchNull, RechenText("msgModulNull"));
}

}  // namespace

const Hyp HypNull = wort(0);
const Hyp HypEins = wort(1);
const Hyp HypZwei = wort(2);
int64_t HoechstBits = HoechstBitsStandard;

std::string RechenText(const std::string& key, const std::string& p1, const std::string& p2) {
    std::string wert;
    if (!SektionWert(SektionLesen("Calculator"), key, wert)) wert = key + " #P1 #P2";
    wert = ErsetzenOhneGross(wert, "#P1", p1);
    return ErsetzenOhneGross(wert, "#P2", p2);
}

void GroessePruefen(double bits) {
    if (bits > double(HoechstBits)) {
        char zahl[32];
        std::snprintf(zahl, sizeof zahl, bits < 1e15 ? "%.0f" : "%.3g", std::ceil(bits));
        throw Laufzeitfehler(FehlerUeberlauf, RechenText("msgZuGross", zahl, std::to_string(HoechstBits)));
    }
}

void RechnenYield() {
    DoEvents();
    if (Abbruch) throw Laufzeitfehler(18, RechenText("msgAbbruch"));
}

Hyp HypPotenz(const Hyp& b, const Hyp& e) {
    if (istNull(e)) return HypEins;
    if (istNull(b) || aCmpHyp32(b, 1) == 0) return b;
    // The size is known before the first product: b^e has floor(e log2(b)) + 1 bits, so 2^k
    // counts k + 1. e is read as a double directly (exact to 2^53), not through its logarithm,
    // so that a power of two lands exactly on the limit.
    double eWert = 0;
    for (int32_t i = e.anzahl(); i >= 1; --i) eWert = eWert * 4294967296.0 + double(uint32_t(e[i]));
    GroessePruefen(Log2Hyp(e) >= 64 ? 1e30 : std::floor(eWert * Log2Hyp(b)) + 1);
    Hyp r(b);
    for (int32_t i = aGetHighBitHyp(e) - 1; i >= 0; --i) {
        Hyp q(2 * r.anzahl());
        aQuadHyp(q, r);
        if (aBitTestHyp(e, i)) {
            r = Hyp(q.anzahl() + b.anzahl());
            aMulHypHyp(r, q, b);
        } else {
            r = std::move(q);
        }
        if (r.anzahl() > 4096) RechnenYield();
    }
    return r;
}

namespace {

// b^e mod m for a word base, left to right over the bits of e: a square and a reduction per
// bit, and for a set bit the step mal(r), which multiplies the residue by b and reduces it.
template <typename Mal>
Hyp potenzMod(uint32_t b, const Hyp& e, const Hyp& m, Mal mal) {
    if (istNull(e)) return HypEins;
    modulPruefen(m);
    const Reduzierer red(m);
    const int32_t n = m.anzahl();
    Hyp r(2 * n + 2);
    r[1] = int32_t(b);
    aModHypHyp(r, m);
    for (int32_t i = aGetHighBitHyp(e) - 1; i >= 0; --i) {
        Hyp q(2 * n + 2);
        aQuadHyp(q, r);
        red.reduzieren(q);
        r = std::move(q);
        if (aBitTestHyp(e, i)) mal(r);
    }
    r.setzeObergrenze(r.anzahl());
    return r;
}

}  // namespace

Hyp HypPotenzMod(int32_t b, const Hyp& e, const Hyp& m) {
    // The base is one word, so a multiplying step is a word product and one short quotient:
    // a window over the exponent would save nothing but those cheap steps.
    return potenzMod(uint32_t(b), e, m, [&](Hyp& r) {
        aMulHyp32(r, b);
        aModHypHyp(r, m);
    });
}

Hyp ZweiPotenzMod(const Hyp& e, const Hyp& m) {
    return potenzMod(2, e, m, [&](Hyp& r) {
        // Doubling a residue stays below 2m: one conditional subtraction replaces the
        // quotient (aSubHypHyp leaves r alone when m is greater).
        aMulHyp2(r);
        aSubHypHyp(r, m);
    });
}

Hyp HypGGT(const Hyp& a, const Hyp& b) {
    const int32_t platz = a.anzahl() + b.anzahl() + 2;
    Hyp x(a), y(b);
    x.mindestens(platz);
    y.mindestens(platz);
    while (!istNull(y)) {
        aModHypHyp(x, y);
        std::swap(x, y);
    }
    return x;
}

Hyp HypModInverse(const Hyp& a, const Hyp& m) {
    if (istNull(m) || aCmpHyp32(HypGGT(a, m), 1) != 0) return HypNull;
    if (aCmpHyp32(m, 1) == 0) return HypNull;
    const int32_t platz = 2 * (a.anzahl() + m.anzahl()) + 4;
    // Extended Euclid on (m, a): the cofactors of a are unsigned with a sign flag beside them.
    Hyp r0(m), r1(a);
    r0.mindestens(platz);
    r1.mindestens(platz);
    aModHypHyp(r1, m);
    Hyp t0(platz), t1(platz);
    t1[1] = 1;
    bool neg0 = false, neg1 = false;
    while (!istNull(r1)) {
        Hyp q(platz);
        Hyp rest(r0);
        aDivHypHyp(q, rest, r1);
        // t2 = t0 - q t1, with signs.
        Hyp p(q.anzahl() + t1.anzahl() + 2);
        aMulHypHyp(p, q, t1);
        const bool negP = neg1;
        Hyp t2(t0);
        t2.mindestens(platz);
        bool neg2;
        if (neg0 != negP) {
            aAddHypHyp(t2, p);  // t0 - (-|p|) or -|t0| - |p|: magnitudes add
            neg2 = neg0;
        } else if (aCmpHypHyp(t2, p) >= 0) {
            aSubHypHyp(t2, p);
            neg2 = neg0;
        } else {
            Hyp d(p);
            d.mindestens(platz);
            aSubHypHyp(d, t2);
            t2 = std::move(d);
            neg2 = !neg0;
        }
        if (istNull(t2)) neg2 = false;
        r0 = std::move(r1);
        r1 = std::move(rest);
        r1.mindestens(platz);
        t0 = std::move(t1);
        neg0 = neg1;
        t1 = std::move(t2);
        neg1 = neg2;
    }
    // r0 is 1 and t0 the cofactor of a; a negative one becomes m minus it.
    Hyp x(t0);
    x.mindestens(platz);
    aModHypHyp(x, m);
    if (neg0 && !istNull(x)) {
        Hyp y(m);
        y.mindestens(platz);
        aSubHypHyp(y, x);
        x = std::move(y);
    }
    x.setzeObergrenze(x.anzahl());
    return x;
}

int32_t JacobiSymbol(int32_t aWort, const Hyp& n) {
    if (n[1] % 2 == 0 || (n.anzahl() == 1 && uint32_t(n[1]) == 1)) return 0;
    uint32_t a = uint32_t(aWort);
    if (n.anzahl() == 1) a %= uint32_t(n[1]);
    if (a == 0) return 0;
    int32_t t = 1;
    const uint32_t n8 = uint32_t(n[1]) % 8;
    while (a % 2 == 0) {
        a /= 2;
        if (n8 == 3 || n8 == 5) t = -t;
    }
    if (a == 1) return t;
    if (uint32_t(n[1]) % 4 == 3 && a % 4 == 3) t = -t;
    uint32_t b = uint32_t(aModHyp32(n, int32_t(a)));
    // From here on both are words: (b / a) with a the modulus.
    while (b != 0) {
        while (b % 2 == 0) {
            b /= 2;
            if (a % 8 == 3 || a % 8 == 5) t = -t;
        }
        if (b == 1) return t;
        if (a % 4 == 3 && b % 4 == 3) t = -t;
        const uint32_t r = a % b;
        a = b;
        b = r;
    }
    return 0;
}

std::string DecBitBild(const Decimal& d) {
    const DecimalSatz& s = d;
    std::string text;
    auto bits = [&](uint32_t w) {
        for (int i = 31; i >= 0; --i) text += aBitTest32(int32_t(w), i) ? '!' : '.';
    };
    if (s.Hi32 != 0) bits(s.Hi32);
    if (s.Hi32 != 0 || s.Mid32 != 0) bits(s.Mid32);
    bits(s.Lo32);
    return text;
}

std::string TeilerK(const std::string& q, int32_t p) {
    Hyp h = Text2Hyp(q);
    aDecHyp(h);
    aDivHyp2(h);
    if (p != 0) aDivHyp32(h, p);
    return Hyp2Text(h);
}

std::vector<int32_t> TeilerSchritte(int32_t c) {
    if (c <= 0) return {2, 6, 10, 6, 8, 10, 6, 2, 22, 2, 6, 10, 8, 6, 10, 6};
    if (c == 1) return {8, 16, 24, 8, 24, 16, 8, 16, 8, 16, 24, 8, 24, 16, 8, 16};
    return {8, 16, 8, 16, 24, 8, 24, 16, 8, 16, 8, 16, 24, 8, 24, 16};
}

std::vector<int32_t> PrimfaktorenLong(int32_t x) {
    std::vector<int32_t> f(1, 0);
    uint32_t rest = uint32_t(x);
    for (uint32_t d = 2; rest > 1 && uint64_t(d) * d <= rest; d += (d == 2 ? 1 : 2)) {
        if (rest % d == 0) {
            f.push_back(int32_t(d));
            while (rest % d == 0) rest /= d;
        }
    }
    if (rest > 1) f.push_back(int32_t(rest));
    return f;
}

bool IstPrimitivwurzel(int32_t a, int32_t p, const std::vector<int32_t>& faktoren) {
    for (size_t i = 1; i < faktoren.size(); ++i) {
        if (aModPot32(a, (p - 1) / faktoren[i], p) == 1) return false;
    }
    return true;
}

int32_t Primitivwurzel(int32_t p) {
    if (p <= 2) return 1;
    const std::vector<int32_t> f = PrimfaktorenLong(p - 1);
    int32_t a = 2;
    while (a < p && !IstPrimitivwurzel(a, p, f)) {
        ++a;
        const int32_t w = int32_t(std::sqrt(double(a)));
        if (w * w == a) ++a;  // a square is never a primitive root
    }
    return a;
}

void BrevOrder(std::vector<int32_t>& a, int32_t n) {
    const int32_t b = aBitLenght32(n) - 1;
    for (int32_t i = 0; i < n; ++i) {
        const int32_t j = aBitReverse32(i, b);
        if (i < j) std::swap(a[size_t(i)], a[size_t(j)]);
    }
}

std::vector<int32_t> Int2FFTArr(const Hyp& h) {
    std::vector<uint8_t> bytes(size_t(4 * h.anzahl()));
    const int32_t L = aByteString(bytes.data(), h);
    const int32_t n = int32_t(1) << (aBitLenght32(L - 1) + 1);
    std::vector<int32_t> a(size_t(n) + 1, 0);
    for (int32_t i = 0; i < L; ++i) a[size_t(i)] = bytes[size_t(i)];
    return a;
}

Hyp FFTArr2Int(std::vector<int32_t> a) {
    for (size_t i = 0; i + 1 < a.size(); ++i) {
        a[i + 1] += aShiftRight32(a[i], 8);
        a[i] &= 0xFF;
    }
    std::vector<uint8_t> bytes(a.size());
    for (size_t i = 0; i < a.size(); ++i) bytes[i] = uint8_t(a[i]);
    const int32_t n = int32_t(bytes.size());
    Hyp h(n / 4 + 1);
    aCardinal(h, bytes.data(), n);
    return h;
}

int32_t ModInverseLong(int32_t a, int32_t m) {
    if (m <= 0) return 0;
    const int32_t rest = a % m;  // the inverse of a negative a is that of its residue
    return aModInverse(rest < 0 ? rest + m : rest, m);
}

int32_t GGTLong(int32_t aWort, int32_t bWort) {
    int64_t a = aWort, b = bWort;  // wide, so that -2^31 % -1 cannot trap
    while (b != 0) {
        const int64_t r = a % b;
        a = b;
        b = r;
    }
    return int32_t(a);
}

}  // namespace sw
