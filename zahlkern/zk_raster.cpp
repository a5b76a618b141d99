// zahlkern, raster kernels: the pre-sieve by 7 and 11, bit counts, the raster lookups and a
// primality test of Decimals that needs no raster.
#include <cstring>

#include "zahlkern/zk_intern.h"

namespace {

using zk::u128;
using zk::u32;
using zk::u64;

// The 32 residues modulo 120 coprime to 30, in bit order (bit 1 = residue 1 = the top bit).
constexpr int kReste[32] = {1,  7,  11, 13, 17, 19, 23, 29, 31, 37,  41,  43,  47,  49,  53,  59,
                            61, 67, 71, 73, 77, 79, 83, 89, 91, 97, 101, 103, 107, 109, 113, 119};

// Mask of residue r (0..119), 0 for a residue without a bit.
u32 restMaske(u32 r) {
    for (int i = 0; i < 32; ++i) {
        if (u32(kReste[i]) == r) return 0x80000000u >> i;
    }
    return 0;
}

// The bit of x in the raster; 2, 3 and 5 are prime without one, every other number without a
// bit is composite, as are 0 and 1.
Long primNachBit(u128 x, const uint32_t* raster) {
    if (x < 7) return (x == 2 || x == 3 || x == 5) ? -1 : 0;
    u32 maske = restMaske(u32(x % 120));
    if (maske == 0) return 0;
    return (raster[size_t(x / 120)] & maske) ? 0 : -1;
}

u64 mulMod64(u64 a, u64 b, u64 m) { return u64(u128(a) * b % m); }

// a*b mod m for m < 2^96: the product can reach 192 bits, so it is built by doubling; every
// intermediate value stays below 2^97 and fits the 128-bit type.
u128 mulMod96(u128 a, u128 b, u128 m) {
    u128 r = 0;
    a %= m;
    while (b) {
        if (b & 1) {
            r += a;
            if (r >= m) r -= m;
        }
        a <<= 1;
        if (a >= m) a -= m;
        b >>= 1;
    }
    return r;
}

// One Miller-Rabin round; true if base a proves n composite. n odd, n > a.
template <typename T, typename Mul>
bool zeugeZusammengesetzt(T n, T a, Mul mul) {
    T d = n - 1;
    int s = 0;
    while ((d & 1) == 0) {
        d >>= 1;
        ++s;
    }
    T x = 1, b = a % n;
    for (T e = d; e; e >>= 1) {
        if (e & 1) x = mul(x, b, n);
        b = mul(b, b, n);
    }
    if (x == 1 || x == n - 1) return false;
    for (int r = 1; r < s; ++r) {
        x = mul(x, x, n);
        if (x == n - 1) return false;
    }
    return true;
}

}  // namespace

extern "C" {

// Multiples of 7 and of 11 repeat every 7 * 11 = 77 words (7 * 11 * 120 integers), so one
// pattern of 77 words is built and laid over the raster: a few thousand operations to build,
// then a stream of OR operations at memory speed.
void aSeave7_11(uint32_t* raster, Long letzterIndex) {
    if (letzterIndex < 0) return;
    constexpr int kPeriode = 77;
    u32 muster[kPeriode];
    for (int w = 0; w < kPeriode; ++w) {
        u32 m = 0;
        for (int i = 0; i < 32; ++i) {
            u32 n = u32(w) * 120 + u32(kReste[i]);
            if (n % 7 == 0 || n % 11 == 0) m |= 0x80000000u >> i;
        }
        muster[w] = m;
    }
    const size_t anzahl = size_t(u32(letzterIndex)) + 1;
    size_t k = 0;
    while (k + kPeriode <= anzahl) {
        for (int w = 0; w < kPeriode; ++w) raster[k + w] |= muster[w];
        k += kPeriode;
    }
    for (int w = 0; k < anzahl; ++k, ++w) raster[k] |= muster[w];
}

Long aCountNullBits(Long x) { return 32 - __builtin_popcount(u32(x)); }

Long aIsPrimPrimaer32(Long x, const uint32_t* raster) {
    if (x < 0) return 0;
    return primNachBit(u128(x), raster);
}

Long aIsPrimPrimaerDec(const DecimalSatz* dec, const uint32_t* raster) {
    if (dec->sign && zk::dec_betrag(dec) != 0) return 0;
    return primNachBit(zk::dec_betrag(dec), raster);
}

// Trial division by the small primes settles most numbers at once; what survives is tested by
// Miller-Rabin. Below 2^64 the first twelve prime bases are a proof; above it the 24 bases never
// call a prime composite, which is all the callers need (they ask up to about 2^48).
Long aIsNotPrimDEC(const DecimalSatz* dec) {
    u128 n = zk::dec_betrag(dec);
    if (n < 2) return -1;
    constexpr u32 kKlein[24] = {2,  3,  5,  7,  11, 13, 17, 19, 23, 29, 31, 37,
                                41, 43, 47, 53, 59, 61, 67, 71, 73, 79, 83, 89};
    for (u32 p : kKlein) {
        if (n == p) return 0;
        if (zk::dec_rest32(dec, p) == 0) return -1;
    }
    if (n < 97 * 97) return 0;
    if (n >> 64 == 0) {
        const u64 m = u64(n);
        for (int i = 0; i < 12; ++i) {
            if (zeugeZusammengesetzt<u64>(m, kKlein[i], mulMod64)) return -1;
        }
        return 0;
    }
    for (u32 a : kKlein) {
        if (zeugeZusammengesetzt<u128>(n, a, mulMod96)) return -1;
    }
    return 0;
}

Long aDivMod120(Long x, Long* rest) {
    u32 u = u32(x);
    *rest = Long(u % 120);
    return Long(u / 120);
}

}  // extern "C"
