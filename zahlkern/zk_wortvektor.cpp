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

// Subtracts n words, then lets the borrow run on; the caller guarantees the result is not
// negative, so it stops.
void subtrahiere(const u32* s, Long n, u32* t) {
    u64 borrow = 0;
    Long i = 0;
    for (; i < n; ++i) {
        const u64 d = u64(t[i]) - s[i] - borrow;
        t[i] = u32(d);
        borrow = d >> 63;
    }
    for (; borrow != 0; ++i) {
        borrow = t[i] == 0;
        t[i] -= 1;
    }
}

void addiere(const u32* s, Long n, u32* t) {
    u64 carry = 0;
    Long i = 0;
    for (; i < n; ++i) {
        carry += u64(t[i]) + s[i];
        t[i] = u32(carry);
        carry >>= 32;
    }
    for (; carry != 0; ++i) {
        carry += t[i];
        t[i] = u32(carry);
        carry >>= 32;
    }
}

// residue := product mod 2^p - 1, minus 2 when abziehen; -1 when the residue is 0.
Long falte(Long p, const Long* product, Long* residue, bool abziehen) {
    if (p <= 0) return 0;
    const int32_t L = (p + 31) / 32;          // words of a residue
    const int32_t P = (2 * p + 31) / 32;      // words of its square
    thread_local std::vector<Long> h;
    if (h.size() < size_t(P) + 2) h.resize(size_t(P) * 2 + 2);
    h[0] = P;
    std::memcpy(h.data() + 1, product, size_t(P) * 4);
    normalisieren(h.data(), P);
    aModMersenneHyp(h.data(), p);
    if (abziehen) {
        if (aCmpHyp32(h.data(), 2) >= 0) {
            aSubHyp32(h.data(), 2);
        } else {
            // 0 or 1 minus 2 is 2^p - 3 or 2^p - 2 modulo 2^p - 1.
            const Long unten = h[1];
            h[0] = L;
            for (int32_t i = 1; i <= L; ++i) h[size_t(i)] = -1;
            if (p % 32 != 0) h[size_t(L)] = Long((1u << (p % 32)) - 1);
            h[1] = Long(u32(h[1]) - 2 + u32(unten));
        }
    }
    const int32_t n = h[0];
    std::memcpy(residue, h.data() + 1, size_t(n) * 4);
    if (n < L) std::memset(residue + n, 0, size_t(L - n) * 4);
    return (n == 1 && h[1] == 0) ? -1 : 0;
}

}  // namespace

extern "C" {

void aAddOp1PlusOp2(const Long* op1, const Long* op2, Long n, Long* target) {
    u64 carry = 0;
    const u32 *a = uw(op1), *b = uw(op2);
    u32* t = uw(target);
    for (Long i = 0; i < n; ++i) {
        carry += u64(a[i]) + b[i];
        t[i] = u32(carry);
        carry >>= 32;
    }
    t[n] = u32(carry);
}

void aQuadriere(const Long* source, Long n, Long* target) {
    if (n <= 0) return;
    quad_worte(uw(target), uw(source), n);
}

void aSubSubFromErg(const Long* sub1, const Long* sub2, Long n, Long* target) {
    subtrahiere(uw(sub1), n, uw(target));
    subtrahiere(uw(sub2), n, uw(target));
}

void aAddiere(const Long* source, Long n, Long* target) { addiere(uw(source), n, uw(target)); }

void aSubtrahiere(const Long* source, Long n, Long* target) { subtrahiere(uw(source), n, uw(target)); }

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
