// Word-sized modular arithmetic for the kernels. The Mersenne divisor kernels spend their time
// in modular powers and in factoring q - 1, so both avoid hardware division: Barrett
// reduction in the powers, multiply-by-inverse divisibility tests for the small primes and
// Pollard's rho (with Brent's cycle finding) for the rare cofactor with two large factors.
#include "zahlkern/zk_modular.h"

#include <algorithm>
#include <array>

namespace zk {
namespace {

// Primes 3..1021 with their inverse modulo 2^32 and floor((2^32-1)/p): n is divisible by p
// exactly when n * inverse (mod 2^32) is at most that bound. Two multiplies, no division.
constexpr u32 kTrialGrenze = 1024;

struct Probe {
    u32 p, inv, grenze;
};

struct ProbeTabelle {
    std::array<Probe, 200> t{};
    int n = 0;
    ProbeTabelle() {
        for (u32 p = 3; p < kTrialGrenze; p += 2) {
            bool prim = true;
            for (u32 d = 3; d * d <= p; d += 2) prim = prim && (p % d != 0);
            if (!prim) continue;
            u32 inv = p;  // Newton: each step doubles the correct low bits (3 -> 6 -> ... -> 48)
            for (int i = 0; i < 4; ++i) inv *= 2 - p * inv;
            t[size_t(n++)] = Probe{p, inv, 0xFFFFFFFFu / p};
        }
    }
};
const ProbeTabelle& proben() {
    static const ProbeTabelle t;  // built on first use, whatever the order of static start-up
    return t;
}

u64 ggt64(u64 a, u64 b) {
    while (b != 0) {
        const u64 t = a % b;
        a = b;
        b = t;
    }
    return a;
}

// A non-trivial factor of the odd composite n (no prime factor below kTrialGrenze).
u32 rho_faktor(u32 n) {
    const Barrett br(n);
    for (u64 c = 1;; ++c) {
        u64 y = 2, x = 2, q = 1, g = 1, ys = 2;
        u64 r = 1;
        constexpr u64 kSchub = 64;  // gcds batched: one gcd per 64 steps
        do {
            x = y;
            for (u64 i = 0; i < r; ++i) y = br.ganz(y * y + c);
            u64 k = 0;
            do {
                ys = y;
                const u64 grenze = std::min(kSchub, r - k);
                for (u64 i = 0; i < grenze; ++i) {
                    y = br.ganz(y * y + c);
                    q = br.ganz(q * (x > y ? x - y : y - x));
                }
                g = ggt64(q, n);
                k += kSchub;
            } while (k < r && g == 1);
            r *= 2;
        } while (g == 1);
        if (g == n) {  // the batch overshot: step singly from its start
            do {
                ys = br.ganz(ys * ys + c);
                g = ggt64(x > ys ? x - ys : ys - x, n);
            } while (g == 1);
        }
        if (g != n) return u32(g);
    }
}

void zerlege_rest(u32 n, Faktor* aus, int& anz) {
    if (n == 1) return;
    if (u64(n) < u64(kTrialGrenze) * kTrialGrenze || ist_prim32(n)) {
        for (int i = 0; i < anz; ++i) {
            if (aus[i].p == n) {
                ++aus[i].k;
                return;
            }
        }
        aus[anz++] = Faktor{n, 1};
        return;
    }
    const u32 f = rho_faktor(n);
    zerlege_rest(f, aus, anz);
    zerlege_rest(n / f, aus, anz);
}

// b^e mod m for e >= 1 by right-to-left 2-bit buckets (Yao): the base-4 digit d of e at place i
// multiplies b^(4^i) into bucket d, and b^e = k1 k2^2 k3^3 = (k1 k3) (k2 k3)^2. The squares
// b^(2^i) form the one dependent chain (nothing computes them faster); beside it this spends
// one multiply per two exponent bits where a binary ladder spends two, and those few
// instructions let the processor start on the next call while this one's chain still runs.
// The bucket is picked by a load from a small array: a branch on random digits would be
// mispredicted most of the time. Lazy (m < 2^31): values stay in [0, 2m) between steps,
// since 4m^2 < 2^64, which keeps the final compare out of the chain.
template <bool kLazy>
u32 potenz_eimer(u64 basis, u64 e, const Barrett& br) {
    const auto rest = [&br](u64 x) { return kLazy ? br.halb(x) : br.ganz(x); };
    u64 eimer[4] = {1, 1, 1, 1};
    // One digit; false after the last. Two digits a round halve the loop's own branches,
    // measured 4-5 % faster.
    const auto ziffer = [&] {
        u64& k = eimer[e & 3];
        k = rest(k * basis);
        e >>= 2;
        if (e == 0) return false;
        basis = rest(basis * basis);
        basis = rest(basis * basis);
        return true;
    };
    while (ziffer() && ziffer()) {
    }
    const u64 k23 = rest(eimer[2] * eimer[3]);
    return u32(br.ganz(rest(eimer[1] * eimer[3]) * rest(k23 * k23)));
}

}  // namespace

u32 modpot32(u32 b, u64 e, u32 m) {
    if (m < 2) return 0;
    if (e == 0) return 1;
    const Barrett br(m);
    // Any b < 2^32 may enter the lazy chain unreduced: b^2 < 2^64.
    return m < 0x80000000u ? potenz_eimer<true>(b, e, br) : potenz_eimer<false>(br.ganz(b), e, br);
}

bool ist_prim32(u32 n) {
    if (n < 2) return false;
    for (u32 p : {2u, 3u, 5u, 7u, 11u, 13u}) {
        if (n % p == 0) return n == p;
    }
    if (n < 289) return true;  // 17^2
    // Miller-Rabin with the bases 2, 7, 61 decides every n below 4,759,123,141.
    u32 d = n - 1;
    const int s = __builtin_ctz(d);
    d >>= s;
    const Barrett br(n);
    for (u32 a : {2u, 7u, 61u}) {
        if (a % n == 0) continue;
        u64 x = modpot32(a, d, n);
        if (x == 1 || x == n - 1) continue;
        bool zeuge = true;
        for (int i = 1; i < s && zeuge; ++i) {
            x = br.ganz(x * x);
            if (x == n - 1) zeuge = false;
        }
        if (zeuge) return false;
    }
    return true;
}

int faktorisiere32(u32 n, Faktor* aus) {
    int anz = 0;
    if (n <= 1) return 0;
    const int zweier = __builtin_ctz(n);
    if (zweier != 0) {
        aus[anz++] = Faktor{2, zweier};
        n >>= zweier;
    }
    const ProbeTabelle& tabelle = proben();
    for (int i = 0; i < tabelle.n && n > 1; ++i) {
        const Probe& pr = tabelle.t[size_t(i)];
        if (u64(pr.p) * pr.p > n) break;
        if (n * pr.inv <= pr.grenze) {
            int k = 0;
            do {
                n *= pr.inv;  // exact division by multiplying with the inverse
                ++k;
            } while (n * pr.inv <= pr.grenze);
            aus[anz++] = Faktor{pr.p, k};
        }
    }
    if (n > 1) {
        const int vorher = anz;
        zerlege_rest(n, aus, anz);
        std::sort(aus + vorher, aus + anz, [](const Faktor& a, const Faktor& b) { return a.p < b.p; });
    }
    return anz;
}

u32 ordnung2_32(u32 q) {
    if (q < 3 || (q & 1) == 0) return 0;
    // The order divides q - 1 when q passes Fermat's test to base 2 (every prime does);
    // otherwise it divides Carmichael's lambda(q), formed from q's factorisation.
    u32 n = q - 1;
    if (modpot32(2, n, q) != 1) {
        Faktor fq[32];
        const int anz = faktorisiere32(q, fq);
        u64 lambda = 1;
        for (int i = 0; i < anz; ++i) {
            u64 t = fq[i].p - 1;
            for (int j = 1; j < fq[i].k; ++j) t *= fq[i].p;
            lambda = lambda / ggt64(lambda, t) * t;
        }
        n = u32(lambda);
    }
    Faktor f[32];
    const int anz = faktorisiere32(n, f);
    for (int i = 0; i < anz; ++i) {
        for (int j = 0; j < f[i].k; ++j) {
            if (modpot32(2, n / f[i].p, q) != 1) break;
            n /= f[i].p;
        }
    }
    return n;
}

const std::vector<u32>& kleine_primzahlen() {
    static const std::vector<u32> primzahlen = [] {
        std::vector<u32> v;
        std::vector<bool> gestrichen(65536, false);
        for (u32 i = 2; i < 65536; ++i) {
            if (gestrichen[i]) continue;
            v.push_back(i);
            for (u32 j = i * i; j < 65536; j += i) gestrichen[j] = true;
        }
        return v;
    }();
    return primzahlen;
}

}  // namespace zk

// ---- q below 64 bits ----------------------------------------------------------------------
//
// Montgomery arithmetic modulo an odd q < 2^64 and trial division of q - 1 by multiplying with
// 64-bit inverses: the divisor search of wide candidates calls these once per candidate, and
// they are some ten times faster than the same steps in GMP's general numbers.

namespace zk {
namespace {

struct Mont64 {
    u64 m, inv, eins, r2;
    explicit Mont64(u64 modul) : m(modul) {
        inv = m;  // Newton: 3 correct bits, doubled five times
        for (int i = 0; i < 5; ++i) inv *= 2 - m * inv;
        eins = (0 - m) % m;  // 2^64 mod m
        r2 = rest128(eins, 0, m);  // 2^128 mod m
    }
    // t / 2^64 mod m as hi(t) - hi(u m) with u = lo(t) / m mod 2^64: no 128-bit overflow.
    u64 redc(u128 t) const {
        const u64 u = u64(t) * inv;
        const u64 a = u64(t >> 64), b = u64((u128(u) * m) >> 64);
        return a >= b ? a - b : a - b + m;
    }
    u64 mul(u64 a, u64 b) const { return redc(u128(a) * b); }
    u64 rein(u64 a) const { return mul(a % m, r2); }
    u64 pot(u64 basis, u64 e) const {  // basis and result in Montgomery form
        u64 erg = eins;
        for (; e != 0; e >>= 1) {
            if (e & 1) erg = mul(erg, basis);
            basis = mul(basis, basis);
        }
        return erg;
    }
};

struct Probe64 {
    u32 p;
    u64 inv, grenze;
};

// The odd primes below 2^16 with their inverses modulo 2^64: x is divisible by p exactly when
// x * inverse (mod 2^64) is at most floor((2^64-1)/p).
const std::vector<Probe64>& proben64() {
    static const std::vector<Probe64> t = [] {
        std::vector<Probe64> v;
        for (u32 p : kleine_primzahlen()) {
            if (p == 2) continue;
            u64 inv = p;
            for (int i = 0; i < 5; ++i) inv *= 2 - u64(p) * inv;
            v.push_back(Probe64{p, inv, ~u64(0) / p});
        }
        return v;
    }();
    return t;
}

bool ist_prim64(u64 n) {
    if (n < 0x100000000ull) return ist_prim32(u32(n));
    if ((n & 1) == 0) return false;
    // Miller-Rabin with these seven bases decides every n below 2^64.
    const Mont64 mo(n);
    u64 d = n - 1;
    const int s = __builtin_ctzll(d);
    d >>= s;
    const u64 minus1 = mo.rein(n - 1);
    for (u64 a : {2ull, 325ull, 9375ull, 28178ull, 450775ull, 9780504ull, 1795265022ull}) {
        const u64 am = a % n;
        if (am == 0) continue;
        u64 x = mo.pot(mo.rein(am), d);
        if (x == mo.eins || x == minus1) continue;
        bool zeuge = true;
        for (int i = 1; i < s && zeuge; ++i) {
            x = mo.mul(x, x);
            if (x == minus1) zeuge = false;
        }
        if (zeuge) return false;
    }
    return true;
}

// A non-trivial factor of the odd composite n < 2^64 by Pollard's rho with Brent's cycle
// finding, in Montgomery form; the gcd is taken once per 128 steps.
u64 rho_faktor64(u64 n) {
    const Mont64 mo(n);
    for (u64 c = 1;; ++c) {
        const u64 cm = mo.rein(c);
        auto f = [&](u64 x) {
            const u64 s = mo.mul(x, x) + cm;
            return (s >= n || s < cm) ? s - n : s;
        };
        u64 y = mo.rein(2), x = y, ys = y, q = mo.eins, g = 1;
        for (u64 r = 1; g == 1; r *= 2) {
            x = y;
            for (u64 i = 0; i < r; ++i) y = f(y);
            for (u64 k = 0; k < r && g == 1; k += 128) {
                ys = y;
                const u64 grenze = std::min<u64>(128, r - k);
                for (u64 i = 0; i < grenze; ++i) {
                    y = f(y);
                    q = mo.mul(q, x > y ? x - y : y - x);
                }
                g = ggt64(q, n);
            }
        }
        if (g == n) {  // the batch overshot: step singly from its start
            do {
                ys = f(ys);
                g = ggt64(x > ys ? x - ys : ys - x, n);
            } while (g == 1);
        }
        if (g != n) return g;
    }
}

// The distinct prime factors of n (no factor below 2^16, n > 1) into aus; returns the count.
int zerlege64(u64 n, u64* aus, int anz) {
    if (n < (u64(1) << 32) || ist_prim64(n)) {
        for (int i = 0; i < anz; ++i) {
            if (aus[i] == n) return anz;
        }
        aus[anz++] = n;
        return anz;
    }
    const u64 d = rho_faktor64(n);
    anz = zerlege64(d, aus, anz);
    return zerlege64(n / d, aus, anz);
}

}  // namespace

u32 ordnung2_64(u64 q, u32 grenze) {
    if (grenze == 0 || q < 3 || (q & 1) == 0) return 0;
    if (q <= 0xFFFFFFFFull) {
        const u32 o = ordnung2_32(u32(q));
        return o <= grenze ? o : 0;
    }
    // q - 1 = S * C, S made of the primes up to B = min(grenze, 2^16), C of larger ones. A
    // prime above grenze cannot divide an order of at most grenze.
    Faktor faktoren[64];
    int anz = 0;
    u64 c = q - 1, s = 1;
    const int zweier = __builtin_ctzll(c);
    c >>= zweier;
    faktoren[anz++] = Faktor{2, zweier};
    for (int i = 0; i < zweier; ++i) s *= 2;
    const u32 B = std::min<u32>(grenze, 65535);
    bool c_prim = false;  // known to be 1 or a prime
    for (const Probe64& pr : proben64()) {
        if (pr.p > B) break;
        if (u64(pr.p) * pr.p > c) {
            c_prim = true;
            break;
        }
        if (c * pr.inv <= pr.grenze) {
            int k = 0;
            do {
                c *= pr.inv;
                s *= pr.p;
                ++k;
            } while (c * pr.inv <= pr.grenze);
            faktoren[anz++] = Faktor{pr.p, k};
        }
    }
    if (c_prim && c > 1 && c <= B) {  // the last small prime itself
        faktoren[anz++] = Faktor{u32(c), 1};
        s *= c;
        c = 1;
    }
    const Mont64 mo(q);
    const u64 zwei = mo.rein(2);
    const u64 y = mo.pot(zwei, s);
    u64 r = 1;
    if (y != mo.eins) {
        // y's order is the part of the order made of primes above B; as B^2 > grenze it is
        // one prime r dividing C.
        if (grenze <= B || c == 1) return 0;
        if (c <= grenze) {
            r = c;  // below 2^31, without factors below 2^16: prime
            if (mo.pot(y, r) != mo.eins) return 0;
        } else {
            // C above grenze: r is one of its prime factors, all above 2^16, so C has at
            // most four; rho finds them quickly, and each one up to grenze is tried.
            if (c_prim || c < (u64(1) << 32)) return 0;
            u64 primfaktoren[4];
            const int n = zerlege64(c, primfaktoren, 0);
            r = 0;
            for (int i = 0; i < n && r == 0; ++i) {
                if (primfaktoren[i] <= grenze && mo.pot(y, primfaktoren[i]) == mo.eins) r = primfaktoren[i];
            }
            if (r == 0) return 0;
        }
    }
    // The order is r * t with t | S: divide S's primes out while 2^(r t / p) stays 1.
    u64 o = s * r;
    for (int i = 0; i < anz; ++i) {
        for (int j = 0; j < faktoren[i].k; ++j) {
            if (mo.pot(zwei, o / faktoren[i].p) != mo.eins) break;
            o /= faktoren[i].p;
        }
    }
    return o <= grenze ? u32(o) : 0;
}

int probedivision128(u128& c, u32 bis, Faktor* aus, int anz) {
    if (c == 0) return anz;
    if (bis >= 2 && (c & 1) == 0) {
        const u64 tief = u64(c);
        const int k = tief != 0 ? __builtin_ctzll(tief) : 64 + __builtin_ctzll(u64(c >> 64));
        c >>= k;
        aus[anz++] = Faktor{2, k};
    }
    for (const Probe64& pr : proben64()) {
        if (pr.p > bis) break;
        if (u128(pr.p) * pr.p > c) {  // what is left is 1 or a prime
            if (c > 1 && c <= bis) {
                aus[anz++] = Faktor{u32(c), 1};
                c = 1;
            }
            break;
        }
        // p | c1 2^64 + c0: with q0 = c0 / p mod 2^64, q0 p = c0 + h 2^64, so p divides c
        // exactly when it divides c1 - h, and then c / p = q0 + (c1 - h) / p 2^64.
        int k = 0;
        for (;;) {
            const u64 c0 = u64(c), c1 = u64(c >> 64);
            const u64 q0 = c0 * pr.inv;
            const u64 h = u64((u128(q0) * pr.p) >> 64);
            if (c1 < h) break;
            const u64 rest = (c1 - h) * pr.inv;
            if (rest > pr.grenze) break;
            c = (u128(rest) << 64) | q0;
            ++k;
        }
        if (k != 0) aus[anz++] = Faktor{pr.p, k};
    }
    return anz;
}

u32 max_reduce64(u64 q, u32 grenze) {
    if (q < 3) return 0;
    u64 x = (q - 1) >> __builtin_ctzll(q - 1);
    u32 groesster = 1;
    for (const Probe64& pr : proben64()) {
        if (x == 1) break;
        if (u64(pr.p) * pr.p > x) {  // what is left is prime
            return x > grenze ? grenze : u32(std::max<u64>(x, groesster));
        }
        if (x * pr.inv <= pr.grenze) {
            do {
                x *= pr.inv;
            } while (x * pr.inv <= pr.grenze);
            groesster = pr.p;
        }
    }
    if (x == 1) return std::min(groesster, grenze);
    return x <= grenze ? u32(x) : grenze;  // no factor below 2^16: x < 2^32 is prime
}

}  // namespace zk
