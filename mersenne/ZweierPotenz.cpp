#include "mersenne/ZweierPotenz.h"

#include <gmp.h>

namespace sw {

namespace {

constexpr size_t kSpuren = 4;  // candidates side by side: enough to cover the latency of a product chain

// q^-1 mod 2^64 by Newton's iteration; q is its own inverse to 3 bits, each step doubles them.
inline uint64_t inverse64(uint64_t q) {
    uint64_t x = q;
    for (int i = 0; i < 5; ++i) x *= 2 - q * x;
    return x;
}

// t * 2^-64 mod q for t < q * 2^64. The low words of t and m*q cancel by the choice of m, so
// only the high words are subtracted.
inline uint64_t redc(Zahl128 t, uint64_t q, uint64_t qinv) {
    const uint64_t m = uint64_t(t) * qinv;
    const uint64_t hoch = uint64_t(t >> 64);
    const uint64_t mq = uint64_t((Zahl128(m) * q) >> 64);
    return hoch >= mq ? hoch - mq : hoch - mq + q;
}

inline int bitLaenge(uint32_t p) { return 32 - __builtin_clz(p); }

// L candidates below 2^63, left to right over the bits of p. The top six bits give the start
// 2^t directly (one 128-bit division per candidate for its Montgomery form), the rest are
// squarings with a doubling where the bit is set. Doubling needs no product: x + x - q.
template <size_t L>
void montgomery(uint32_t p, const uint64_t* q, bool* teilt) {
    const int laenge = bitLaenge(p);
    const int schieben = laenge > 6 ? laenge - 6 : 0;
    const uint32_t t = p >> schieben;
    uint64_t x[L], qi[L];
    for (size_t i = 0; i < L; ++i) {
        qi[i] = inverse64(q[i]);
        x[i] = uint64_t((Zahl128(1) << (64 + t)) % q[i]);
    }
    for (int b = schieben - 1; b >= 0; --b) {
        const bool doppeln = (p >> b) & 1;
        for (size_t i = 0; i < L; ++i) {
            x[i] = redc(Zahl128(x[i]) * x[i], q[i], qi[i]);
            if (doppeln) {
                x[i] += x[i];
                if (x[i] >= q[i]) x[i] -= q[i];
            }
        }
    }
    for (size_t i = 0; i < L; ++i) teilt[i] = redc(x[i], q[i], qi[i]) == 1;
}

void mpzAus(mpz_t z, Zahl128 v) {
    mpz_set_ui(z, static_cast<unsigned long>(v >> 64));
    mpz_mul_2exp(z, z, 64);
    mpz_add_ui(z, z, static_cast<unsigned long>(uint64_t(v)));
}

}  // namespace

bool TeiltMersenne(uint32_t p, Zahl128 q) {
    if (q < 3) return false;
    mpz_t m, r, zwei;
    mpz_inits(m, r, zwei, nullptr);
    mpzAus(m, q);
    mpz_set_ui(zwei, 2);
    mpz_powm_ui(r, zwei, p, m);
    const bool eins = mpz_cmp_ui(r, 1) == 0;
    mpz_clears(m, r, zwei, nullptr);
    return eins;
}

void ZweierPotenzModQ(uint32_t p, const Zahl128* q, uint8_t* teilt, size_t anzahl) {
    uint64_t schub[kSpuren];
    size_t platz[kSpuren];
    size_t n = 0;
    bool ergebnis[kSpuren];
    auto leeren = [&](bool voll) {
        if (voll) {
            montgomery<kSpuren>(p, schub, ergebnis);
        } else {
            for (size_t i = 0; i < n; ++i) montgomery<1>(p, schub + i, ergebnis + i);
        }
        for (size_t i = 0; i < n; ++i) teilt[platz[i]] = ergebnis[i];
        n = 0;
    };
    for (size_t i = 0; i < anzahl; ++i) {
        if (q[i] >= ZweierPotenzMontgomeryGrenze) {
            teilt[i] = TeiltMersenne(p, q[i]);
            continue;
        }
        schub[n] = uint64_t(q[i]);
        platz[n++] = i;
        if (n == kSpuren) leeren(true);
    }
    if (n > 0) leeren(false);
}

}  // namespace sw
