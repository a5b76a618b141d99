// Short products by columns ("Comba"): column k of the product sums every a[i] * b[k-i] into a
// three-limb accumulator and emits its low limb. With the limb counts fixed at compile time
// each kernel is one straight run of multiply, add, add-with-carry, add-with-carry per limb
// product: no loop counters, no stores of partial rows, operands held in registers. A square
// multiplies each cross product once and doubles the sum, which saves nearly half the
// multiplies.
//
// Words are read as 64-bit limbs straight from the caller's arrays (two words are one limb on
// a little-endian machine); an odd count makes the top limb a single zero-extended word.
#include "zahlkern/zk_klein.h"

#include <array>
#include <cstring>
#include <utility>

#include "zahlkern/zk_intern.h"

namespace zk {
namespace {

constexpr int kLimbs = kKleinWorte / 2;

inline u64 limb_lesen(const u32* w) {
    u64 x;
    std::memcpy(&x, w, 8);
    return x;
}

inline void limb_schreiben(u32* w, u64 x) { std::memcpy(w, &x, 8); }

// The L limbs of an n-word number, 2L-1 <= n <= 2L.
template <int L>
inline void limbs_lesen(u64 (&l)[L], const u32* w, int32_t n) {
    for (int i = 0; i < L - 1; ++i) l[i] = limb_lesen(w + 2 * i);
    l[L - 1] = (n & 1) != 0 ? u64(w[n - 1]) : limb_lesen(w + 2 * (L - 1));
}

// The running column sum c2:c1:c0.
struct Spalte {
    u64 c0 = 0, c1 = 0, c2 = 0;

    // += x * y
    inline void plus_produkt(u64 x, u64 y) {
#if defined(__x86_64__)
        u64 hoch;
        __asm__("mulq %[y]\n\t"
                "addq %%rax, %[c0]\n\t"
                "adcq %%rdx, %[c1]\n\t"
                "adcq $0, %[c2]"
                : [c0] "+&r"(c0), [c1] "+&r"(c1), [c2] "+&r"(c2), "+a"(x), "=&d"(hoch)
                : [y] "rm"(y)
                : "cc");
#else
        const unsigned __int128 p = (unsigned __int128)x * y;
        const unsigned __int128 s = (((unsigned __int128)c1 << 64) | c0) + p;
        c2 += s < p;
        c0 = u64(s);
        c1 = u64(s >> 64);
#endif
    }

    // += v
    inline void plus(u64 v) {
#if defined(__x86_64__)
        __asm__("addq %[v], %[c0]\n\t"
                "adcq $0, %[c1]\n\t"
                "adcq $0, %[c2]"
                : [c0] "+&r"(c0), [c1] "+&r"(c1), [c2] "+&r"(c2)
                : [v] "rm"(v)
                : "cc");
#else
        c0 += v;
        const u64 c = c0 < v;
        c1 += c;
        c2 += c1 < c;
#endif
    }

    // The finished low limb; the sum moves down one limb for the next column.
    inline u64 weiter() {
        const u64 fertig = c0;
        c0 = c1;
        c1 = c2;
        c2 = 0;
        return fertig;
    }
};

// The top limb of an n-word result whose lower limbs are all written: both, one or none of its
// words exist, as n is 2L, 2L-1 or 2L-2 for L limbs.
inline void oberes_limb(u32* t, int32_t platz, int32_t n, u64 x) {
    if (n - platz == 2) {
        limb_schreiben(t + platz, x);
    } else if (n - platz == 1) {
        t[platz] = u32(x);
    }
}

template <int LA, int LB>
void mul_kern(u32* t, const u32* a, int32_t na, const u32* b, int32_t nb) {
    u64 x[LA], y[LB];
    limbs_lesen(x, a, na);
    limbs_lesen(y, b, nb);
    Spalte s;
#pragma GCC unroll 16
    for (int k = 0; k < LA + LB - 1; ++k) {
#pragma GCC unroll 8
        for (int i = k < LB ? 0 : k - LB + 1; i <= (k < LA ? k : LA - 1); ++i) s.plus_produkt(x[i], y[k - i]);
        limb_schreiben(t + 2 * k, s.weiter());
    }
    oberes_limb(t, 2 * (LA + LB - 1), na + nb, s.c0);
}

// The square as twice the triangle of cross products plus the diagonal squares. One running
// sum collects the triangle column by column; its limbs, shifted left by one bit across limb
// borders, go into the running sum of the result together with the diagonal square.
template <int L>
void quad_kern(u32* t, const u32* a, int32_t n) {
    u64 x[L];
    limbs_lesen(x, a, n);
    Spalte dreieck, s;
    u64 vorig = 0;  // the triangle's previous limb, whose top bit moves up
#pragma GCC unroll 16
    for (int k = 0; k < 2 * L - 1; ++k) {
#pragma GCC unroll 8
        for (int i = k < L ? 0 : k - L + 1; 2 * i < k; ++i) dreieck.plus_produkt(x[i], x[k - i]);
        const u64 z = dreieck.weiter();
        s.plus((z << 1) | (vorig >> 63));
        vorig = z;
        if (k % 2 == 0) s.plus_produkt(x[k / 2], x[k / 2]);
        limb_schreiben(t + 2 * k, s.weiter());
    }
    s.plus(vorig >> 63);  // the triangle ends below limb 2L-1
    oberes_limb(t, 2 * (2 * L - 1), 2 * n, s.c0);
}

using MulKern = void (*)(u32*, const u32*, int32_t, const u32*, int32_t);
using QuadKern = void (*)(u32*, const u32*, int32_t);

// One kernel per pair of limb counts, indexed by (LA-1) * kLimbs + (LB-1).
template <int... I>
constexpr std::array<MulKern, sizeof...(I)> mul_tabelle(std::integer_sequence<int, I...>) {
    return {{&mul_kern<I / kLimbs + 1, I % kLimbs + 1>...}};
}
template <int... I>
constexpr std::array<QuadKern, sizeof...(I)> quad_tabelle(std::integer_sequence<int, I...>) {
    return {{&quad_kern<I + 1>...}};
}
constexpr auto kMulKerne = mul_tabelle(std::make_integer_sequence<int, kLimbs * kLimbs>{});
constexpr auto kQuadKerne = quad_tabelle(std::make_integer_sequence<int, kLimbs>{});

}  // namespace

void mul_klein(u32* t, const u32* a, int32_t na, const u32* b, int32_t nb) {
    kMulKerne[size_t((limbs_fuer(na) - 1) * kLimbs + limbs_fuer(nb) - 1)](t, a, na, b, nb);
}

void quad_klein(u32* t, const u32* a, int32_t n) { kQuadKerne[size_t(limbs_fuer(n) - 1)](t, a, n); }

}  // namespace zk
