// The Hyp family: unsigned numbers of any length in a caller-owned Long array, element 0 the
// count of words. Everything works in place on the caller's words; products and quotients of
// two long numbers go through zk_breit (column kernels, GMP's mpn layer), everything with a
// word operand is one pass over the words with the carry in a 64-bit register.
#include <algorithm>
#include <cstring>
#include <vector>

#include "zahlkern/zk_breit.h"
#include "zahlkern/zk_hyp.h"
#include "zahlkern/zk_modular.h"

using namespace zk;

namespace {

inline bool ist_null(const Long* h) { return anzahl(h) == 1 && worte(h)[0] == 0; }

inline void null_setzen(Long* h) {
    h[0] = 1;
    worte(h)[0] = 0;
}

// The count without leading zero words; tolerates unnormalised operands.
inline int32_t echte_anzahl(const Long* h) {
    int32_t n = anzahl(h);
    const u32* w = worte(h);
    while (n > 1 && w[n - 1] == 0) --n;
    return n;
}

int vergleiche(const u32* a, int32_t na, const u32* b, int32_t nb) {
    if (na != nb) return na < nb ? -1 : 1;
    for (int32_t i = na - 1; i >= 0; --i) {
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return 0;
}

// Adds a word at position 0 and lets the carry run; the only case that grows is a carry out
// of the top word.
void addiere_wort(Long* h, u32 v, const char* funktion) {
    const int32_t n = anzahl(h);
    u32* w = worte(h);
    u64 s = u64(w[0]) + v;
    w[0] = u32(s);
    int32_t i = 1;
    while ((s >> 32) != 0 && i < n) {
        s = u64(w[i]) + 1;
        w[i] = u32(s);
        ++i;
    }
    if ((s >> 32) != 0) {
#ifndef NDEBUG
        raum_pruefen(h, n + 1, funktion);
#else
        (void)funktion;
#endif
        w[n] = 1;
        h[0] = n + 1;
    } else {
        h[0] = n;
    }
}

// Subtracts a word; a word above the value leaves the value as it was.
void subtrahiere_wort(Long* h, u32 v) {
    const int32_t n = anzahl(h);
    u32* w = worte(h);
    if (n == 1 && w[0] < v) return;
    u32 alt = w[0];
    w[0] = alt - v;
    int32_t i = 1;
    while (alt < v && i < n) {  // borrow
        alt = w[i];
        w[i] = alt - 1;
        v = 1;
        ++i;
    }
    normalisieren(h, n);
}

// Quotient by a word in place from the top; returns the remainder. Two words go through one
// 128-by-64 division: the remainder so far is below d, so the quotient fits 64 bits, and the
// number of divisions, which set the pace, is halved.
u32 teile_wort(u32* w, int32_t n, u32 d) {
    u64 rest = 0;
    int32_t i = n;
    if (i & 1) {  // an odd top word alone
        --i;
        rest = w[i] % d;
        w[i] = w[i] / d;
    }
    while (i > 0) {
        i -= 2;
        const u64 paar = (u64(w[i + 1]) << 32) | w[i];
        const u64 q = teile128(rest, paar, d, rest);
        w[i] = u32(q);
        w[i + 1] = u32(q >> 32);
    }
    return u32(rest);
}

u32 rest_wort(const u32* w, int32_t n, u32 d) {
    u64 rest = 0;
    int32_t i = n;
    if (i & 1) {
        --i;
        rest = w[i] % d;
    }
    while (i > 0) {
        i -= 2;
        rest = rest128(rest, (u64(w[i + 1]) << 32) | w[i], d);
    }
    return u32(rest);
}

// Scratch Hyps of the calling thread for the forms that must leave their operands alone.
thread_local std::vector<Long> kopie_puffer[3];

Long* normale_kopie(int i, const Long* h, int32_t extra = 0) {
    const int32_t n = echte_anzahl(h);
    std::vector<Long>& v = kopie_puffer[i];
    if (v.size() < size_t(n + extra + 2)) v.resize(size_t(n + extra + 2) * 2);
    v[0] = n;
    std::memcpy(v.data() + 1, h + 1, size_t(n) * 4);
    return v.data();
}

void kopiere_normal(Long* t, const Long* h, const char* funktion) {
    const int32_t n = echte_anzahl(h);
#ifndef NDEBUG
    raum_pruefen(t, n, funktion);
#else
    (void)funktion;
#endif
    std::memmove(t + 1, h + 1, size_t(n) * 4);
    t[0] = n;
}

}  // namespace

extern "C" {

// ---- in place with a word ---------------------------------------------------------------------

void aAddHyp32(Long* h, Long v) { addiere_wort(h, u32(v), __func__); }
void aSubHyp32(Long* h, Long v) { subtrahiere_wort(h, u32(v)); }
void aIncHyp(Long* h) { addiere_wort(h, 1, __func__); }
void aDecHyp(Long* h) { subtrahiere_wort(h, 1); }
void aAddHyp2(Long* h) { addiere_wort(h, 2, __func__); }
void aSubHyp2(Long* h) { subtrahiere_wort(h, 2); }
void aAddHyp8(Long* h) { addiere_wort(h, 8, __func__); }

void aMulHyp32(Long* h, Long v) {
    const u64 m = u32(v);
    if (m == 0) {
        null_setzen(h);
        return;
    }
    const int32_t n = anzahl(h);
    u32* w = worte(h);
    u64 carry = 0;
    for (int32_t i = 0; i < n; ++i) {
        carry += w[i] * m;
        w[i] = u32(carry);
        carry >>= 32;
    }
    if (carry != 0) {
        ZK_RAUM(h, n + 1);
        w[n] = u32(carry);
        h[0] = n + 1;
    } else {
        h[0] = n;
    }
}

Long aDivHyp32(Long* h, Long d) {
    if (d == 0) return 0;
    const int32_t n = anzahl(h);
    const u32 r = teile_wort(worte(h), n, u32(d));
    normalisieren(h, n);
    return Long(r);
}

Long aModHyp32(const Long* h, Long m) {
    if (m == 0) return 0;
    return Long(rest_wort(worte(h), anzahl(h), u32(m)));
}

Long aCmpHyp32(const Long* h, Long v) {
    if (anzahl(h) > 1) return 1;
    const u32 a = worte(h)[0], b = u32(v);
    return a < b ? -1 : (a > b ? 1 : 0);
}

Long aMODHyp120(const Long* h) { return Long(rest_wort(worte(h), anzahl(h), 120)); }

void aMulHyp2(Long* h) { aShiftLeftHyp(h, 1); }
void aDivHyp2(Long* h) { aShiftRightHyp(h, 1); }

void aHypMul1FuenfPlus1(Long* h) {
    // (3h + 1) / 2 in one pass: the word i of 3h+1 is formed with its carry, and its low bit
    // goes into the top of the word below, which is written one step late.
    const int32_t n = anzahl(h);
    u32* w = worte(h);
    u64 carry = 1;
    u32 unten = 0;  // the word of 3h+1 not yet written
    for (int32_t i = 0; i < n; ++i) {
        carry += u64(w[i]) * 3;
        const u32 neu = u32(carry);
        carry >>= 32;
        if (i > 0) w[i - 1] = (unten >> 1) | (neu << 31);
        unten = neu;
    }
    const u32 oben = u32(carry);  // at most 2
    w[n - 1] = (unten >> 1) | (oben << 31);
    if ((oben >> 1) != 0) {
        ZK_RAUM(h, n + 1);
        w[n] = oben >> 1;
        h[0] = n + 1;
    } else {
        normalisieren(h, n);
    }
}

void aNullHyp(Long* h, Long n) {
    const int32_t bis = n < 1 ? 1 : n;
    ZK_RAUM(h, bis);
    std::memset(h + 1, 0, size_t(bis) * 4);
    h[0] = 1;
}

Long aDivModHyp32(Long* q, Long* a, Long d) {
    if (d == 0) {
        null_setzen(q);
        return 0;
    }
    const int32_t n = anzahl(a);
    ZK_RAUM(q, n);
    std::memcpy(q + 1, a + 1, size_t(n) * 4);
    const u32 r = teile_wort(worte(q), n, u32(d));
    normalisieren(q, n);
    a[0] = 1;
    worte(a)[0] = r;
    return Long(r);
}

// ---- two Hyps ---------------------------------------------------------------------------------

void aAddHypHyp(Long* a, const Long* b) {
    const int32_t na = anzahl(a), nb = anzahl(b);
    const int32_t n = std::max(na, nb);
    ZK_RAUM(a, n);
    u32* wa = worte(a);
    const u32* wb = worte(b);
    u64 s = 0;
    int32_t i = 0;
    const int32_t gemeinsam = std::min(na, nb);
    for (; i < gemeinsam; ++i) {
        s += u64(wa[i]) + wb[i];
        wa[i] = u32(s);
        s >>= 32;
    }
    for (; i < nb; ++i) {  // b longer: a's free words above its count mean nothing
        s += wb[i];
        wa[i] = u32(s);
        s >>= 32;
    }
    for (; s != 0 && i < na; ++i) {
        s += wa[i];
        wa[i] = u32(s);
        s >>= 32;
    }
    if (s != 0) {
        ZK_RAUM(a, n + 1);
        wa[n] = 1;
        a[0] = n + 1;
    } else {
        a[0] = n;
    }
}

Long aSubHypHyp(Long* a, const Long* b) {
    const int32_t na = anzahl(a), nb = anzahl(b);
    u32* wa = worte(a);
    const u32* wb = worte(b);
    const int c = vergleiche(wa, na, wb, nb);
    if (c < 0) return -1;
    if (c == 0) {
        null_setzen(a);
        return 0;
    }
    u64 borrow = 0;
    int32_t i = 0;
    for (; i < nb; ++i) {
        const u64 d = u64(wa[i]) - wb[i] - borrow;
        wa[i] = u32(d);
        borrow = (d >> 63);
    }
    for (; borrow != 0 && i < na; ++i) {
        borrow = wa[i] == 0;
        wa[i] -= 1;
    }
    normalisieren(a, na);
    return 1;
}

Long aCmpHypHyp(const Long* a, const Long* b) {
    return vergleiche(worte(a), anzahl(a), worte(b), anzahl(b));
}

Long aEqualHypHyp(const Long* a, const Long* b) { return aCmpHypHyp(a, b) == 0 ? -1 : 0; }

Long aBereichHypHyp(const Long* x, const Long* lo, const Long* hi) {
    return (aCmpHypHyp(x, lo) >= 0 && aCmpHypHyp(x, hi) <= 0) ? -1 : 0;
}

void aMulHypHyp(Long* t, const Long* a, const Long* b) {
    const int32_t na = anzahl(a), nb = anzahl(b);
    if (ist_null(a) || ist_null(b)) {
        null_setzen(t);
        return;
    }
    ZK_RAUM(t, na + nb);
    mul_worte(worte(t), worte(a), na, worte(b), nb);
    normalisieren(t, na + nb);
}

void aQuadHyp(Long* t, const Long* a) {
    const int32_t n = anzahl(a);
    ZK_RAUM(t, 2 * n);
    quad_worte(worte(t), worte(a), n);
    normalisieren(t, 2 * n);
}

void aQuadHypSpezial(Long* t, const Long* a, Long* /*work*/) {
    // The library's square needs no scratch of the caller: the work array is accepted for
    // the callers' sake and left alone.
    aQuadHyp(t, a);
}

void aDivHypHyp(Long* q, Long* a, const Long* b) {
    const int32_t na = anzahl(a), nb = anzahl(b);
    const u32* wb = worte(b);
    if ((nb == 1 && wb[0] == 0) || vergleiche(worte(a), na, wb, nb) < 0) {
        null_setzen(q);  // zero divisor or a < b: quotient 0, dividend kept
        return;
    }
    ZK_RAUM(q, na - nb + 1);
    if (nb == 1) {
        std::memcpy(q + 1, a + 1, size_t(na) * 4);
        worte(a)[0] = teile_wort(worte(q), na, wb[0]);
        a[0] = 1;
        normalisieren(q, na);
        return;
    }
    divmod_worte(worte(q), worte(a), worte(a), na, wb, nb);
    normalisieren(q, na - nb + 1);
    normalisieren(a, nb);
}

void aModHypHyp(Long* a, const Long* b) {
    const int32_t na = anzahl(a), nb = anzahl(b);
    const u32* wb = worte(b);
    if ((nb == 1 && wb[0] == 0) || vergleiche(worte(a), na, wb, nb) < 0) return;
    if (nb == 1) {
        worte(a)[0] = rest_wort(worte(a), na, wb[0]);
        a[0] = 1;
        return;
    }
    divmod_worte(nullptr, worte(a), worte(a), na, wb, nb);
    normalisieren(a, nb);
}

void aModMersenneHyp(Long* h, Long p) {
    if (p <= 0) return;
    // h = hi * 2^p + lo = hi + lo (mod 2^p - 1): fold the bits above p onto the low p bits
    // until nothing is left above; each fold at least halves the length, and a value of
    // 2^p - 1 itself is the residue 0.
    const int32_t pw = p / 32, pb = p % 32;
    const int32_t L = pw + (pb != 0 ? 1 : 0);  // words of a p-bit number
    u32* w = worte(h);
    thread_local std::vector<u32> hoch;
    while (aGetHighBitHyp(h) >= p) {
        const int32_t n = anzahl(h);
        // hi := h >> p
        const int32_t nh = n - pw;
        if (hoch.size() < size_t(nh) + 1) hoch.resize(size_t(nh) * 2 + 2);
        for (int32_t i = 0; i < nh; ++i) {
            const u32 lo = w[pw + i];
            const u32 hi = (pw + i + 1 < n) ? w[pw + i + 1] : 0;
            hoch[i] = pb == 0 ? lo : ((lo >> pb) | (hi << (32 - pb)));
        }
        // lo := h mod 2^p, then lo += hi
        if (pb != 0) w[L - 1] &= (1u << pb) - 1;
        int32_t m = std::max(L, nh);
        for (int32_t i = L; i < m; ++i) w[i] = 0;
        u64 s = 0;
        for (int32_t i = 0; i < m; ++i) {
            s += u64(w[i]) + (i < nh ? hoch[i] : 0);
            w[i] = u32(s);
            s >>= 32;
        }
        if (s != 0) {
            ZK_RAUM(h, m + 1);
            w[m++] = u32(s);
        }
        normalisieren(h, m);
    }
    // The one value with p bits that is 0 modulo 2^p - 1 is 2^p - 1 itself.
    if (anzahl(h) == L && aGetLowBitHyp(h) == 0) {
        bool alle = true;
        for (int32_t i = 0; i < pw && alle; ++i) alle = w[i] == 0xFFFFFFFFu;
        if (alle && pb != 0) alle = w[pw] == (1u << pb) - 1;
        if (alle) null_setzen(h);
    }
}

void aSubModHypHyp1(Long* a, const Long* b, const Long* m) {
    if (aSubHypHyp(a, b) < 0) {
        aAddHypHyp(a, m);
        aSubHypHyp(a, b);
    }
}

// ---- bits -------------------------------------------------------------------------------------

Long aBitTestHyp(const Long* h, Long i) {
    if (i < 0 || (i >> 5) >= anzahl(h)) return 0;
    return ((worte(h)[i >> 5] >> (i & 31)) & 1u) ? -1 : 0;
}

void aSetBitHyp(Long* h, Long i) {
    if (i < 0) return;
    u32* w = worte(h);
    int32_t n = h[0];
    if (n <= 0) {  // a fresh zeroed array
        w[0] = 0;
        n = 1;
    }
    const int32_t k = i >> 5;
    if (k >= n) {
        ZK_RAUM(h, k + 1);
        std::memset(w + n, 0, size_t(k + 1 - n) * 4);
        n = k + 1;
    }
    w[k] |= 1u << (i & 31);
    h[0] = n;
}

Long aGetLowBitHyp(const Long* h) {
    const int32_t n = anzahl(h);
    const u32* w = worte(h);
    for (int32_t i = 0; i < n; ++i) {
        if (w[i] != 0) return 32 * i + __builtin_ctz(w[i]);
    }
    return -1;
}

Long aGetHighBitHyp(const Long* h) {
    const u32* w = worte(h);
    for (int32_t i = anzahl(h) - 1; i >= 0; --i) {
        if (w[i] != 0) return 32 * i + 31 - __builtin_clz(w[i]);
    }
    return -1;
}

void aShiftLeftHyp(Long* h, Long s) {
    if (s <= 0 || ist_null(h)) return;
    const int32_t n = anzahl(h), ws = s >> 5, bs = s & 31;
    u32* w = worte(h);
    const bool ueber = bs != 0 && (w[n - 1] >> (32 - bs)) != 0;
    const int32_t neu = n + ws + (ueber ? 1 : 0);
    ZK_RAUM(h, neu);
    if (bs == 0) {
        std::memmove(w + ws, w, size_t(n) * 4);
    } else {
        if (ueber) w[n + ws] = w[n - 1] >> (32 - bs);
        for (int32_t i = n - 1; i > 0; --i) w[i + ws] = (w[i] << bs) | (w[i - 1] >> (32 - bs));
        w[ws] = w[0] << bs;
    }
    std::memset(w, 0, size_t(ws) * 4);
    h[0] = neu;
}

void aShiftRightHyp(Long* h, Long s) {
    if (s <= 0) return;
    const int32_t n = anzahl(h), ws = s >> 5, bs = s & 31;
    u32* w = worte(h);
    if (ws >= n) {
        null_setzen(h);
        return;
    }
    const int32_t rest = n - ws;
    if (bs == 0) {
        std::memmove(w, w + ws, size_t(rest) * 4);
    } else {
        for (int32_t i = 0; i < rest - 1; ++i) w[i] = (w[i + ws] >> bs) | (w[i + ws + 1] << (32 - bs));
        w[rest - 1] = w[n - 1] >> bs;
    }
    normalisieren(h, rest);
}

Long aIsEvenHyp(const Long* h) { return (worte(h)[0] & 1u) ? 0 : -1; }
Long aIsOddHyp(const Long* h) { return (worte(h)[0] & 1u) ? -1 : 0; }

// ---- the an forms -----------------------------------------------------------------------------

void anAddHypHyp(Long* t, const Long* a, const Long* b) {
    const Long* bn = normale_kopie(0, b);
    kopiere_normal(t, a, __func__);
    aAddHypHyp(t, bn);
}

Long anSubHypHyp(Long* t, const Long* a, const Long* b) {
    const Long* bn = normale_kopie(0, b);
    kopiere_normal(t, a, __func__);
    const Long r = aSubHypHyp(t, bn);
    if (r < 0) null_setzen(t);
    return r;
}

void anMulHypHyp(Long* t, const Long* a, const Long* b) {
    aMulHypHyp(t, normale_kopie(0, a), normale_kopie(1, b));
}

void anDivHypHyp(Long* q, Long* r, const Long* a, const Long* b) {
    const Long* bn = normale_kopie(0, b);
    kopiere_normal(r, a, __func__);
    aDivHypHyp(q, r, bn);
}

void anModHypHyp(Long* r, const Long* a, const Long* b) {
    Long* an = normale_kopie(1, a);
    aModHypHyp(an, normale_kopie(0, b));
    kopiere_normal(r, an, __func__);
}

Long anCmpHypHyp(const Long* a, const Long* b) {
    return vergleiche(worte(a), echte_anzahl(a), worte(b), echte_anzahl(b));
}

// ---- Hyp and Decimal --------------------------------------------------------------------------

Long aCmpHypDec(const Long* h, const DecimalSatz* d) {
    if (hyp_breiter_als(h, 96)) return 1;
    const u128 a = hyp_lesen128(h), b = dec_betrag(d);
    return a < b ? -1 : (a > b ? 1 : 0);
}

void aAddHypDec(Long* h, const DecimalSatz* d) {
    Long klein[5];
    hyp_setzen128(klein, dec_betrag(d));
    aAddHypHyp(h, klein);
}

void aHyp2Dec(DecimalSatz* d, const Long* h) { dec_setzen(d, hyp_lesen128(h)); }

void aDec2Hyp(Long* h, const DecimalSatz* d) {
    const u128 v = dec_betrag(d);
    ZK_RAUM(h, worte128(v));
    hyp_setzen128(h, v);
}

}  // extern "C"
