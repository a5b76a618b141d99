// Internal helpers of the Hyp and fixed-width families: word access, normalising, the
// debug room check and the conversions to and from wide integers. Not part of the API.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "zahlkern/zk_intern.h"

namespace zk {

// Words of a Hyp as unsigned words; element 0 is the count. int32_t and uint32_t may alias.
inline u32* worte(Long* h) { return reinterpret_cast<u32*>(h + 1); }
inline const u32* worte(const Long* h) { return reinterpret_cast<const u32*>(h + 1); }

// The count of words in use. A fresh array (count 0) reads as zero with one word.
inline int32_t anzahl(const Long* h) { return h[0] > 0 ? h[0] : 1; }

// Lowers the count until the top word is not zero (or one word is left).
inline void normalisieren(Long* h, int32_t n) {
    const u32* w = worte(h);
    while (n > 1 && w[n - 1] == 0) --n;
    h[0] = n;
}

// The low 128 bits of a Hyp.
inline u128 hyp_lesen128(const Long* h) {
    const int32_t n = anzahl(h);
    const u32* w = worte(h);
    u128 v = 0;
    for (int32_t i = (n < 4 ? n : 4) - 1; i >= 0; --i) v = (v << 32) | w[i];
    return v;
}

// True when the Hyp needs more than `bits` bits.
inline bool hyp_breiter_als(const Long* h, int bits) {
    const int32_t n = anzahl(h);
    const u32* w = worte(h);
    const int ganze = bits / 32;
    for (int32_t i = n - 1; i >= ganze; --i) {
        if (i > ganze ? w[i] != 0 : (w[i] >> (bits % 32)) != 0) return true;
    }
    return false;
}

// The debug room check: a Hyp made by sw::Hyp carries its upper bound in two hidden words in
// front of element 0 (see zahlkern/Hyp.h). Release builds compile it away.
#ifndef NDEBUG
void raum_pruefen(const Long* h, int64_t hoechsterIndex, const char* funktion);
#define ZK_RAUM(h, idx) ::zk::raum_pruefen((h), (idx), __func__)
#else
#define ZK_RAUM(h, idx) ((void)0)
#endif

// The number of words a value below 2^128 needs (at least 1).
inline int32_t worte128(u128 v) {
    int32_t n = 1;
    while (n < 4 && (v >> (32 * n)) != 0) ++n;
    return n;
}

// Writes a value below 2^128 into a Hyp and sets its count (room: worte128(v)).
inline void hyp_setzen128(Long* h, u128 v) {
    u32* w = worte(h);
    const int32_t n = worte128(v);
    for (int32_t i = 0; i < n; ++i) w[i] = u32(v >> (32 * i));
    h[0] = n;
}

}  // namespace zk
