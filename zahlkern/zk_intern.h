// Internal helpers of zahlkern, shared by its source files; not part of the public header.
#pragma once

#include <cstdint>

#include "zahlkern/zahlkern.h"

namespace zk {

using u32 = uint32_t;
using u64 = uint64_t;
using u128 = unsigned __int128;

// 64-bit limbs for a count of 32-bit words (two words a limb on a little-endian machine).
inline int32_t limbs_fuer(int32_t worte) { return (worte + 1) / 2; }

constexpr u128 kDecMax = (u128(1) << 96) - 1;

// The 96-bit magnitude of a Decimal record as one wide integer (the record keeps its words
// in the order high, low, middle).
inline u128 dec_betrag(const DecimalSatz* d) {
    return (u128(d->Hi32) << 64) | (u128(d->Mid32) << 32) | u128(d->Lo32);
}

// Writes a magnitude back, cut to 96 bits; reserved, scale and sign stay as they are.
inline void dec_setzen(DecimalSatz* d, u128 v) {
    d->Lo32 = u32(v);
    d->Mid32 = u32(v >> 32);
    d->Hi32 = u32(v >> 64);
}

// Remainder of the 96-bit magnitude by a 32-bit divisor in three 64-by-32 steps, which is
// several times cheaper than a 128-bit division through the compiler's runtime helper.
inline u32 dec_rest32(const DecimalSatz* d, u32 m) {
    u64 r = d->Hi32 % m;
    r = ((r << 32) | d->Mid32) % m;
    r = ((r << 32) | d->Lo32) % m;
    return u32(r);
}

// Quotient and remainder of the magnitude by a 32-bit divisor, the same schoolbook way.
inline u32 dec_teilen32(DecimalSatz* d, u32 m) {
    u64 cur = d->Hi32;
    d->Hi32 = u32(cur / m);
    cur = ((cur % m) << 32) | d->Mid32;
    d->Mid32 = u32(cur / m);
    cur = ((cur % m) << 32) | d->Lo32;
    d->Lo32 = u32(cur / m);
    return u32(cur % m);
}

}  // namespace zk
