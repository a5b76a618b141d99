// Modular arithmetic on words for the number-theory kernels: Barrett reduction with a
// precomputed reciprocal, modular powers, a deterministic prime test and the factorisation of
// 32-bit numbers, the small-prime table. Internal to zahlkern.
#pragma once

#include <cstdint>
#include <vector>

#include "zahlkern/zk_intern.h"

namespace zk {

// Reduction modulo m (2 <= m < 2^32) by one high multiply with floor((2^64-1)/m) instead of
// a division: x - floor(x*v/2^64)*m is below 2m for every x < 2^64.
struct Barrett {
    u64 m;
    u64 v;
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
