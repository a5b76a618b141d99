// Modular arithmetic on words for the number-theory kernels: Barrett reduction with a
// precomputed reciprocal, modular powers, a deterministic prime test and the factorisation of
// 32-bit numbers, the small-prime table. Internal to zahlkern.
#pragma once

#include <cstdint>
#include <vector>

#include "zahlkern/zk_intern.h"

namespace zk {

// (hi 2^64 + lo) mod d for hi < d, by the processor's 128-by-64 division where there is one
// (the compiler's generic 128-bit remainder is a library call several times as long).
inline u64 rest128(u64 hi, u64 lo, u64 d) {
#if defined(__x86_64__)
    u64 q, r;
    __asm__("divq %4" : "=a"(q), "=d"(r) : "a"(lo), "d"(hi), "rm"(d) : "cc");
    (void)q;
    return r;
#else
    return u64(((u128(hi) << 64) | lo) % d);
#endif
}

// (hi 2^64 + lo) div d for hi < d, the remainder into rest.
inline u64 teile128(u64 hi, u64 lo, u64 d, u64& rest) {
#if defined(__x86_64__)
    u64 q;
    __asm__("divq %4" : "=a"(q), "=d"(rest) : "a"(lo), "d"(hi), "rm"(d) : "cc");
    return q;
#else
    const u128 n = (u128(hi) << 64) | lo;
    rest = u64(n % d);
    return u64(n / d);
#endif
}

// Reduction modulo m (2 <= m < 2^32) by one high multiply with floor((2^64-1)/m) instead of
// a division: x - floor(x*v/2^64)*m is below 2m for every x < 2^64.
struct Barrett {
    u64 m;
    u64 v;
    // One 64-bit division per modulus. Measured on the build machine (aModPot32, where it
    // starts the chain of squares): 87 ns a call against 94 ns with the reciprocal pieced
    // together from two 32-bit divisions.
    explicit Barrett(u32 modul) : m(modul), v(~u64(0) / modul) {}
    u64 halb(u64 x) const { return x - u64((u128(x) * v) >> 64) * m; }  // below 2m
    u64 ganz(u64 x) const {
        const u64 r = halb(x);
        return r >= m ? r - m : r;
    }
};

// b^e mod m for 2 <= m < 2^32.
u32 modpot32(u32 b, u64 e, u32 m);

// Deterministic for every 32-bit n.
bool ist_prim32(u32 n);

// The prime factors of n (n >= 1) with their exponents, smallest first.
struct Faktor {
    u32 p;
    int k;
};
int faktorisiere32(u32 n, Faktor* aus);  // aus has room for 32 entries; returns the count

// The multiplicative order of 2 modulo odd q >= 3 (0 for other q).
u32 ordnung2_32(u32 q);

// The primes below 2^16, built once.
const std::vector<u32>& kleine_primzahlen();

}  // namespace zk

namespace zk {

// The order of 2 modulo odd q < 2^64 if it is at most grenze (< 2^31), else 0: the word
// path of aMersenneTeilerDec/Hyp for q below 64 bits.
u32 ordnung2_64(u64 q, u32 grenze);

// The bound of aMersTeilerMaxReduceDec/Hyp for q below 64 bits.
u32 max_reduce64(u64 q, u32 grenze);

// Divides every prime up to bis (below 2^16) out of c, appending (p, k) to aus, and returns
// the new count; fewer than 32 distinct primes fit in 128 bits. Afterwards c has no prime
// factor up to bis.
int probedivision128(u128& c, u32 bis, Faktor* aus, int anz);

}  // namespace zk
