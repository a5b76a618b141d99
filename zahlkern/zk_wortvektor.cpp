// The word-vector primitives of the Lucas-Lehmer squaring: plain word arrays without a count,
// the target last. The Karatsuba levels of the caller add, square and subtract halves of one
// big array in place, so borrows and carries run on through the target until they settle.
#include <cstring>
#include <vector>

#include "zahlkern/zk_breit.h"
#include "zahlkern/zk_hyp.h"

using namespace zk;

namespace {

inline const u32* uw(const Long* p) { return reinterpret_cast<const u32*>(p); }
inline u32* uw(Long* p) { return reinterpret_cast<u32*>(p); }

// The loops below step two words at a time as one 64-bit limb (little-endian: word pairs are
// limbs), which halves the carry chain against 32-bit steps; the arrays have no alignment to
// rely on, so the limbs are moved by memcpy, which compiles to plain loads and stores.
inline u64 limb(const u32* w) {
    u64 x;
    std::memcpy(&x, w, 8);
    return x;
}
inline void limbSetzen(u32* w, u64 x) { std::memcpy(w, &x, 8); }

// t -= s1 + s2 over n words in one pass (s2 may be null), then the borrow runs on; the caller
// guarantees the result is not negative, so it stops. The borrow of a step is 0, 1 or 2: a
// signed 128-bit difference holds it without a second pass.
void subtrahiere2(const u32* s1, const u32* s2, Long n, u32* t) {
    __int128 c = 0;
    Long i = 0;
    for (; i + 2 <= n; i += 2) {
        c += __int128(limb(t + i)) - limb(s1 + i) - (s2 ? limb(s2 + i) : 0);
        limbSetzen(t + i, u64(c));
        c >>= 64;
    }
    for (; i < n; ++i) {
        c += __int128(t[i]) - s1[i] - (s2 ? s2[i] : 0);
        t[i] = u32(c);
        c >>= 32;
    }
    for (; c != 0; ++i) {
        c += t[i];
        t[i] = u32(c);
        c >>= 32;
    }
}

void addiere(const u32* s, Long n, u32* t) {
    u128 c = 0;
    Long i = 0;
    for (; i + 2 <= n; i += 2) {
        c += u128(limb(t + i)) + limb(s + i);
        limbSetzen(t + i, u64(c));
        c >>= 64;
    }
    for (; i < n; ++i) {
        c += u128(t[i]) + s[i];
        t[i] = u32(c);
        c >>= 32;
    }
    for (; c != 0; ++i) {
        c += t[i];
        t[i] = u32(c);
        c >>= 32;
    }
}

// The recombination of one Karatsuba level in one pass: q holds L = a0^2 in words [0, 2m) and
// H = a1^2 in [2m, 4m); q += (s - L - H) * 2^(32m) with s = (a0 + a1)^2 (2m + 1 words). Word
// m + i receives L1[i] + s[i] - L0[i] - H0[i], word 2m + i receives H0[i] + s[m + i] - L1[i] -
// H1[i]; both positions are read in the same step before either is written, so the two
// carry chains run side by side through the overlapping halves. This reads every word once,
// where a subtraction into s followed by an addition into q reads s twice and L, H once more.
void mitte(const u32* s, Long m, u32* q) {
    u32 *l1 = q + m, *h0 = q + 2 * m;
    const u32 *l0 = q, *h1 = q + 3 * m;
    __int128 c1 = 0, c2 = 0;
    Long i = 0;
    for (; i + 2 <= m; i += 2) {
        const u64 a = limb(l1 + i), b = limb(h0 + i);
        c1 += __int128(a) + limb(s + i) - limb(l0 + i) - b;
        c2 += __int128(b) + limb(s + m + i) - a - limb(h1 + i);
        limbSetzen(l1 + i, u64(c1));
        limbSetzen(h0 + i, u64(c2));
        c1 >>= 64;
        c2 >>= 64;
    }
    for (; i < m; ++i) {
        const u32 a = l1[i], b = h0[i];
        c1 += __int128(a) + s[i] - l0[i] - b;
        c2 += __int128(b) + s[m + i] - a - h1[i];
        l1[i] = u32(c1);
        h0[i] = u32(c2);
        c1 >>= 32;
        c2 >>= 32;
    }
    // The first chain's carry belongs at word 2m; where it outlives the second region it joins
    // the second chain at 3m, together with the top word of s. The signed carry then runs on
    // until it settles, which it does because the whole square is not negative.
    for (Long j = 0; c1 != 0 && j < m; ++j) {
        c1 += h0[j];
        h0[j] = u32(c1);
        c1 >>= 32;
    }
    c2 += c1 + s[2 * m];
    for (u32* t = q + 3 * m; c2 != 0; ++t) {
        c2 += *t;
        *t = u32(c2);
        c2 >>= 32;
    }
}

// residue := product mod 2^p - 1, minus 2 when abziehen; -1 when the residue is 0. Since
// 2^p = 1 modulo 2^p - 1, the bits from p on fold onto the bits below: one pass adds the high
// part, read across word boundaries, to the low one, and what runs over bit p is folded once
// more. This runs on the words as they lie, without copies, as it follows every squaring.
Long falte(Long p, const Long* product, Long* residue, bool abziehen) {
    if (p <= 0) return 0;
    const u32* q = uw(product);
    u32* r = uw(residue);
    const int32_t L = (p + 31) / 32;      // words of a residue
    const int32_t P = (2 * p + 31) / 32;  // words of its square
    const int32_t w = p / 32, s = p % 32;
    const u32 oben = s ? (1u << s) - 1 : ~0u;  // the bits of a residue's top word
    u64 c = 0;
    for (int32_t i = 0; i < L; ++i) {
        const int32_t k = w + i;
        const u64 paar = (k < P ? u64(q[k]) : 0) | (k + 1 < P ? u64(q[k + 1]) << 32 : 0);
        const u32 unten = i + 1 < L ? q[i] : q[i] & oben;
        c += u64(unten) + u32(paar >> s);
        r[i] = u32(c);
        c >>= 32;
    }
    // Both parts are below 2^p, so at most one bit (2^p, i.e. 1) and the top word's excess run
    // over; folding them in once more can run over only to exactly 2^p again.
    u64 ueber = s ? (u64(r[L - 1]) >> s) | (c << (32 - s)) : c;
    r[L - 1] &= oben;
    while (ueber != 0) {
        for (int32_t i = 0; ueber != 0 && i < L; ++i) {
            ueber += r[i];
            r[i] = u32(ueber);
            ueber >>= 32;
        }
        // With s > 0 the top word has room above bit p, so no carry leaves it.
        if (s) {
            ueber += r[L - 1] >> s;
            r[L - 1] &= oben;
        }
    }
    // 2^p - 1 itself, all ones, is the second form of 0.
    bool alleEins = r[L - 1] == oben;
    for (int32_t i = 0; alleEins && i + 1 < L; ++i) alleEins = r[i] == ~0u;
    if (alleEins) std::memset(r, 0, size_t(L) * 4);
    if (abziehen) {
        bool klein = r[0] < 2;
        for (int32_t i = 1; klein && i < L; ++i) klein = r[i] == 0;
        if (!klein) {
            u32 borgen = 2;
            for (int32_t i = 0; borgen != 0; ++i) {
                const u32 alt = r[i];
                r[i] = alt - borgen;
                borgen = alt < borgen ? 1 : 0;
            }
        } else {
            // 0 or 1 minus 2 is 2^p - 3 or 2^p - 2 modulo 2^p - 1.
            const u32 unten = r[0];
            for (int32_t i = 0; i < L; ++i) r[i] = ~0u;
            r[L - 1] = oben;
            r[0] = r[0] - 2 + unten;
        }
    }
    for (int32_t i = 0; i < L; ++i) {
        if (r[i] != 0) return 0;
    }
    return -1;
}

}  // namespace

extern "C" {

void aAddOp1PlusOp2(const Long* op1, const Long* op2, Long n, Long* target) {
    u128 c = 0;
    const u32 *a = uw(op1), *b = uw(op2);
    u32* t = uw(target);
    Long i = 0;
    for (; i + 2 <= n; i += 2) {
        c += u128(limb(a + i)) + limb(b + i);
        limbSetzen(t + i, u64(c));
        c >>= 64;
    }
    for (; i < n; ++i) {
        c += u128(a[i]) + b[i];
        t[i] = u32(c);
        c >>= 32;
    }
    t[n] = u32(c);
}

void aQuadriere(const Long* source, Long n, Long* target) {
    if (n <= 0) return;
    quad_worte(uw(target), uw(source), n);
}

void aSubSubFromErg(const Long* sub1, const Long* sub2, Long n, Long* target) {
    subtrahiere2(uw(sub1), uw(sub2), n, uw(target));
}

void aKaratsubaMitte(const Long* summenQuadrat, Long m, Long* quadrat) { mitte(uw(summenQuadrat), m, uw(quadrat)); }

void aAddiere(const Long* source, Long n, Long* target) { addiere(uw(source), n, uw(target)); }

void aSubtrahiere(const Long* source, Long n, Long* target) { subtrahiere2(uw(source), nullptr, n, uw(target)); }

void aSubSubFromErgAndAddTo(const Long* sub1, const Long* sub2, Long n, Long* erg, Long* target) {
    aSubSubFromErg(sub1, sub2, n, erg);
    addiere(uw(erg), n + 2, uw(target));
}

Long aFalt(Long p, const Long* product, Long* residue) { return falte(p, product, residue, true); }

Long aFaltung(Long p, const Long* product, Long* residue) { return falte(p, product, residue, false); }

void aMove(const Long* source, Long n, Long* target) {
    if (n > 0) std::memmove(target, source, size_t(n) * 4);
}

void aMovForward(const Long* source, Long n, Long* target) {
    for (Long i = 0; i < n; ++i) target[i] = source[i];
}

}  // extern "C"
