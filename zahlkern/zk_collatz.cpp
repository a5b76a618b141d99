// The Collatz kernels: step counts of the sequence n -> n/2, n -> 3n+1 for a Decimal start.
//
// The walk goes through the map T(n) = n/2 (n even) or (3n+1)/2 (n odd), one T step being one
// step or two (a multiplication and its halving). Writing n = a 2^k + b, the first k T steps
// depend only on b: T^k(n) = a 3^c(b) + T^k(b), where c(b) counts the odd ones among them. One
// table lookup and one multiply thus replace k steps; below 2^k a second table holds the
// remaining count. n >= 2^k cannot reach 1 within k T steps, so no jump passes the end.
// Values grow beyond the start; the walk changes to 128-bit and then to Hyp arithmetic as
// they do, and back when they come down.
#include <vector>

#include "zahlkern/zk_hyp.h"
#include "zahlkern/zk_tuning.h"

using namespace zk;

namespace {

constexpr u32 kSpanne = u32(1) << kUlamBits;
constexpr u32 kMaske = kSpanne - 1;

struct UlamTabellen {
    std::vector<u32> sprung;  // c(b) << 27 | T^k(b)
    std::vector<u32> rest;    // for n < 2^k: steps << 12 | multiplications
    u64 pot3[kUlamBits + 1];
    UlamTabellen() : sprung(kSpanne), rest(kSpanne) {
        pot3[0] = 1;
        for (int i = 1; i <= kUlamBits; ++i) pot3[i] = pot3[i - 1] * 3;
        for (u32 b = 0; b < kSpanne; ++b) {
            u64 n = b;
            u32 c = 0;
            for (int i = 0; i < kUlamBits; ++i) {
                if (n & 1) {
                    n = (3 * n + 1) / 2;
                    ++c;
                } else {
                    n /= 2;
                }
            }
            sprung[b] = (c << 27) | u32(n);
        }
        rest[0] = rest[1] = 0;
        for (u32 s = 2; s < kSpanne; ++s) {
            u64 n = s;
            u32 schritte = 0, mult = 0;
            while (n >= s) {  // down to a smaller value, whose count is known
                if (n & 1) {
                    n = 3 * n + 1;
                    ++mult;
                } else {
                    n /= 2;
                }
                ++schritte;
            }
            rest[s] = ((schritte + (rest[n] >> 12)) << 12) | (mult + (rest[n] & 0xFFF));
        }
    }
};

const UlamTabellen& tabellen() {
    static const UlamTabellen t;
    return t;
}

struct Zaehlung {
    u64 schritte = 0;
    u64 mult = 0;
};

// The slow road for values of 2^117 and more: Hyp arithmetic until the value is below 2^96.
u128 gross_gehen(u128 start, Zaehlung& z) {
    thread_local std::vector<Long> h(16);
    hyp_setzen128(h.data(), start);
    while (h[0] > 3) {
        if (h[1] & 1) {
            if (h.size() < size_t(h[0]) + 3) h.resize(size_t(h[0]) * 2 + 3);
            aHypMul1FuenfPlus1(h.data());
            z.schritte += 2;
            z.mult += 1;
        } else {
            const Long nullen = aGetLowBitHyp(h.data());
            aShiftRightHyp(h.data(), nullen);
            z.schritte += u64(nullen);
        }
    }
    return hyp_lesen128(h.data());
}

// Counts the steps of n down to 1; stops early once a count passes its bound.
void zaehle(u128 n, Zaehlung& z, u64 grenzeSchritte, u64 grenzeMult) {
    if (n <= 1) return;
    const UlamTabellen& t = tabellen();
    const u32* sprung = t.sprung.data();
    for (;;) {
        if (n < (u128(1) << 52)) {
            // The hot loop: below 2^52 a jump fits 64 bits (a < 2^36, 3^16 < 2^26).
            u64 m = u64(n);
            while (m >= kSpanne) {
                const u32 e = sprung[m & kMaske];
                const u32 c = e >> 27;
                m = (m >> kUlamBits) * t.pot3[c] + (e & 0x07FFFFFFu);
                z.schritte += kUlamBits + c;
                z.mult += c;
                if (m >= (u64(1) << 52)) break;
            }
            if (m < kSpanne) {
                z.schritte += t.rest[m] >> 12;
                z.mult += t.rest[m] & 0xFFF;
                return;
            }
            n = m;
        } else if (n < (u128(1) << 117)) {
            const u32 e = sprung[u32(n) & kMaske];
            const u32 c = e >> 27;
            n = (n >> kUlamBits) * t.pot3[c] + (e & 0x07FFFFFFu);
            z.schritte += kUlamBits + c;
            z.mult += c;
        } else {
            n = gross_gehen(n, z);
        }
        if (z.schritte > grenzeSchritte || z.mult > grenzeMult) return;
    }
}

constexpr u64 kOhneGrenze = ~u64(0);

}  // namespace

extern "C" {

Long aUlamAnzi(const DecimalSatz* x) {
    Zaehlung z;
    zaehle(dec_betrag(x), z, kOhneGrenze, kOhneGrenze);
    return Long(u32(z.schritte));
}

Long aUlamTest(const DecimalSatz* x, Long steps) {
    if (steps < 0) return 0;
    Zaehlung z;
    zaehle(dec_betrag(x), z, u64(steps), kOhneGrenze);
    return z.schritte == u64(steps) ? -1 : 0;
}

Long aUlamTestMult(const DecimalSatz* x, Long mult) {
    if (mult < 0) return 0;
    Zaehlung z;
    zaehle(dec_betrag(x), z, kOhneGrenze, u64(mult));
    return z.mult == u64(mult) ? -1 : 0;
}

}  // extern "C"
