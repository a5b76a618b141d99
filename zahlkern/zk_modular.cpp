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
const ProbeTabelle kProben;

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

}  // namespace

u32 modpot32(u32 b, u64 e, u32 m) {
    if (m < 2) return 0;
    const Barrett br(m);
    // Right to left: the squares form the one dependent chain, the multiplications into the
    // result overlap with it. Below 2^31 the values may stay in [0, 2m) between steps
    // (4m^2 < 2^64), which saves the compare in the chain.
    u64 basis = br.ganz(b), erg = 1;
    if (m < 0x80000000u) {
        while (e != 0) {
            if (e & 1) erg = br.halb(erg * basis);
            e >>= 1;
            if (e != 0) basis = br.halb(basis * basis);
        }
    } else {
        while (e != 0) {
            if (e & 1) erg = br.ganz(erg * basis);
            e >>= 1;
            if (e != 0) basis = br.ganz(basis * basis);
        }
    }
    return u32(br.ganz(erg));
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
    for (int i = 0; i < kProben.n && n > 1; ++i) {
        const Probe& pr = kProben.t[size_t(i)];
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
