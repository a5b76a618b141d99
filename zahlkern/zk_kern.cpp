// The number-theory kernels: word-sized modular arithmetic, divisor tests for Mersenne
// numbers, the residue table of the divisor search, squares modulo a 64-bit q, the known
// Mersenne exponents, hashes and byte strings. They run once per candidate in searches over
// millions of candidates, so none of them allocates in its word-sized form.
#include <gmp.h>

#include <algorithm>
#include <cstring>

#include "zahlkern/zk_hyp.h"
#include "zahlkern/zk_modular.h"

using namespace zk;

namespace {

inline u32 w32(Long x) { return u32(x); }

// ---- the order of 2 modulo a q of any size, through GMP ----------------------------------------

// Scratch numbers of the calling thread, initialised once and grown by GMP as needed.
struct GrossRechner {
    mpz_t q, s, c, y, t, g, v, zwei;
    GrossRechner() {
        mpz_inits(q, s, c, y, t, g, v, nullptr);
        mpz_init_set_ui(zwei, 2);
    }
    ~GrossRechner() { mpz_clears(q, s, c, y, t, g, v, zwei, nullptr); }
};
thread_local GrossRechner gr;

// The prime factors below 2^16 of gr.c, divided out: 128-bit numbers by multiplying with
// inverses (zk_modular), longer ones through GMP. Grow-only, as a long q - 1 can have
// thousands of them.
thread_local std::vector<Faktor> faktoren;

void probedivision(u32 bis) {
    faktoren.clear();
    if (mpz_sizeinbase(gr.c, 2) <= 128) {
        u64 w[2] = {0, 0};
        mpz_export(w, nullptr, -1, 8, 0, 0, gr.c);
        u128 c = (u128(w[1]) << 64) | w[0];
        Faktor f[32];
        const int anz = probedivision128(c, bis, f, 0);
        faktoren.assign(f, f + anz);
        w[0] = u64(c);
        w[1] = u64(c >> 64);
        mpz_import(gr.c, 2, -1, 8, 0, 0, w);
        return;
    }
    for (u32 p : kleine_primzahlen()) {
        if (p > bis) break;
        if (!mpz_divisible_ui_p(gr.c, p)) continue;
        int k = 0;
        do {
            mpz_divexact_ui(gr.c, gr.c, p);
            ++k;
        } while (mpz_divisible_ui_p(gr.c, p));
        faktoren.push_back(Faktor{p, k});
    }
}

// Open-addressed table for the baby steps: key = low limb of y^j, value j.
struct BabyTabelle {
    std::vector<u64> schluessel;
    std::vector<u32> wert;  // j + 1; 0 marks a free slot
    size_t maske = 0;
    void vorbereiten(size_t n) {
        size_t groesse = 16;
        while (groesse < 2 * n) groesse *= 2;
        if (schluessel.size() < groesse) {
            schluessel.resize(groesse);
            wert.resize(groesse);
        }
        std::fill(wert.begin(), wert.begin() + long(groesse), 0u);
        maske = groesse - 1;
    }
    size_t platz(u64 k) const { return size_t((k * 0x9E3779B97F4A7C15ull) >> 20) & maske; }
    void rein(u64 k, u32 j) {
        size_t i = platz(k);
        while (wert[i] != 0) i = (i + 1) & maske;
        schluessel[i] = k;
        wert[i] = j + 1;
    }
};
thread_local BabyTabelle baby;

inline u64 tief(const mpz_t x) { return mpz_size(x) == 0 ? 0 : mpz_getlimbn(x, 0); }

// The smallest e in 1..grenze with y^e = 1 mod q, by baby steps and giant steps; 0 if none.
u32 kleinste_ordnung(const mpz_t y, const mpz_t q, u32 grenze) {
    u32 m = 1;
    while (u64(m) * m < grenze) ++m;
    baby.vorbereiten(m);
    mpz_set_ui(gr.t, 1);
    for (u32 j = 0; j < m; ++j) {
        if (j > 0 && mpz_cmp_ui(gr.t, 1) == 0) return j;
        baby.rein(tief(gr.t), j);
        mpz_mul(gr.t, gr.t, y);
        mpz_mod(gr.t, gr.t, q);
    }
    mpz_set(gr.g, gr.t);  // y^m
    mpz_set(gr.t, gr.g);
    for (u64 i = 1; (i - 1) * m < grenze; ++i) {
        const u64 k = tief(gr.t);
        for (size_t s = baby.platz(k); baby.wert[s] != 0; s = (s + 1) & baby.maske) {
            if (baby.schluessel[s] != k) continue;
            const u64 e = i * m - (baby.wert[s] - 1);
            if (e == 0 || e > grenze) continue;
            mpz_powm_ui(gr.v, y, e, q);  // the low limbs may agree by chance
            if (mpz_cmp_ui(gr.v, 1) == 0) return u32(e);
        }
        mpz_mul(gr.t, gr.t, gr.g);
        mpz_mod(gr.t, gr.t, q);
    }
    return 0;
}

// 2^e == 1 (mod q)?
bool zwei_hoch_ist_eins(const mpz_t e) {
    mpz_powm(gr.v, gr.zwei, e, gr.q);
    return mpz_cmp_ui(gr.v, 1) == 0;
}

// The order of 2 modulo gr.q if it is at most grenze, else 0. Orders that do not divide q - 1
// (possible only for a composite q) are not seen.
u32 ordnung2_gross(u32 grenze) {
    if (grenze == 0 || mpz_cmp_ui(gr.q, 3) < 0 || mpz_even_p(gr.q)) return 0;
    if (mpz_fits_ulong_p(gr.q) && mpz_get_ui(gr.q) <= 0xFFFFFFFFul) {
        const u32 o = ordnung2_32(u32(mpz_get_ui(gr.q)));
        return o <= grenze ? o : 0;
    }
    // q - 1 = S * C with S made of the primes up to B = min(grenze, 2^16) and C of larger
    // ones. A prime above grenze cannot divide an order of at most grenze.
    mpz_sub_ui(gr.c, gr.q, 1);
    const u32 B = std::min<u32>(grenze, 65536);
    probedivision(B);
    mpz_set_ui(gr.s, 1);
    for (const Faktor& f : faktoren) {
        for (int j = 0; j < f.k; ++j) mpz_mul_ui(gr.s, gr.s, f.p);
    }
    // y = 2^S: if it is 1 the order divides S; else y's order is the part of the order made of
    // primes above B, and as B^2 > grenze that part is one prime r dividing C.
    mpz_powm(gr.y, gr.zwei, gr.s, gr.q);
    u32 r = 1;
    if (mpz_cmp_ui(gr.y, 1) != 0) {
        if (grenze <= B) return 0;
        if (mpz_cmp_ui(gr.c, grenze) <= 0) {
            r = u32(mpz_get_ui(gr.c));  // C < 2^32 has no factor below 2^16: C is prime
            mpz_powm_ui(gr.t, gr.y, r, gr.q);
            if (mpz_cmp_ui(gr.t, 1) != 0) return 0;
        } else {
            // C above grenze: only a proper factor of C can be r. A prime C has none.
            if (mpz_sizeinbase(gr.c, 2) <= 32 || mpz_probab_prime_p(gr.c, 30) != 0) return 0;
            r = kleinste_ordnung(gr.y, gr.q, grenze);
            if (r == 0) return 0;
        }
    }
    // The order is r * t with t | S: divide S's primes out while 2^(r t / p) stays 1.
    mpz_mul_ui(gr.s, gr.s, r);
    for (const Faktor& f : faktoren) {
        for (int j = 0; j < f.k; ++j) {
            mpz_divexact_ui(gr.t, gr.s, f.p);
            if (!zwei_hoch_ist_eins(gr.t)) break;
            mpz_set(gr.s, gr.t);
        }
    }
    return mpz_cmp_ui(gr.s, grenze) <= 0 ? u32(mpz_get_ui(gr.s)) : 0;
}

// The largest prime factor of the odd part of gr.q - 1 where the primes below 2^16 settle it,
// else that odd part with them divided out; cut to grenze.
u32 max_reduce_gross(u32 grenze) {
    if (mpz_cmp_ui(gr.q, 3) < 0) return 0;
    mpz_sub_ui(gr.c, gr.q, 1);
    mpz_tdiv_q_2exp(gr.c, gr.c, mpz_scan1(gr.c, 0));
    probedivision(65535);
    const u32 groesster = faktoren.empty() ? 1 : faktoren.back().p;
    if (mpz_cmp_ui(gr.c, 1) == 0) return std::min(groesster, grenze);
    if (mpz_cmp_ui(gr.c, grenze) <= 0) return u32(mpz_get_ui(gr.c));
    return grenze;
}

void hyp_nach_mpz(mpz_t z, const Long* h) {
    mpz_import(z, size_t(anzahl(h)), -1, sizeof(u32), 0, 0, h + 1);
}

void dec_nach_mpz(mpz_t z, const DecimalSatz* d) {
    const u32 w[3] = {d->Lo32, d->Mid32, d->Hi32};
    mpz_import(z, 3, -1, sizeof(u32), 0, 0, w);
}

// The Mersenne prime exponents known today (all 52), the basis of aIsInMers.
constexpr u32 kMersenneExponenten[] = {
    2,        3,        5,        7,        13,       17,       19,       31,       61,
    89,       107,      127,      521,      607,      1279,     2203,     2281,     3217,
    4253,     4423,     9689,     9941,     11213,    19937,    21701,    23209,    44497,
    86243,    110503,   132049,   216091,   756839,   859433,   1257787,  1398269,  2976221,
    3021377,  6972593,  13466917, 20996011, 24036583, 25964951, 30402457, 32582657, 37156667,
    42643801, 43112609, 57885161, 74207281, 77232917, 82589933, 136279841};

// Squares modulo 120 and smaller moduli as bit sets: a number that is no square residue
// modulo 64, 63, 65 or 11 is no square.
bool quadratrest(u32 x, u32 m) {
    for (u32 i = 0; i < m; ++i) {
        if ((i * i) % m == x) return true;
    }
    return false;
}

struct QuadratMasken {
    u64 m64 = 0, m63 = 0, m65a = 0, m65b = 0, m11 = 0;
    QuadratMasken() {
        for (u32 i = 0; i < 64; ++i) {
            if (quadratrest(i, 64)) m64 |= u64(1) << i;
            if (i < 63 && quadratrest(i, 63)) m63 |= u64(1) << i;
            if (quadratrest(i, 65)) m65a |= u64(1) << i;
            if (i < 11 && quadratrest(i, 11)) m11 |= u64(1) << i;
        }
        if (quadratrest(64, 65)) m65b = 1;
    }
};
const QuadratMasken& quadrat_masken() {
    static const QuadratMasken m;
    return m;
}

u32 falte_hash(u32 x, Long k, bool mit_xor) {
    if (k <= 0) return 0;
    if (k >= 32) return x;
    const u32 maske = (1u << k) - 1;
    u32 h = 0;
    for (u32 v = x; v != 0; v >>= k) h = mit_xor ? (h ^ (v & maske)) : (h + (v & maske));
    return h & maske;
}

Long teiler_offset(Long n, Long* tabelle, int spalte) {
    // Every row is advanced, also after the first zero: the table is the state of the walk.
    Long treffer = 0;
    for (Long i = 0; i < n; ++i) {
        Long* zeile = tabelle + 4 * i;
        u32 r = u32(zeile[1]) + u32(zeile[spalte]);
        if (r >= u32(zeile[0])) r -= u32(zeile[0]);
        zeile[1] = Long(r);
        if (r == 0) treffer = -1;
    }
    return treffer;
}

void quad_dec_mod64(DecimalSatz* x, const DecimalSatz* q, bool verdoppeln) {
    const u64 m = u64(dec_betrag(q));
    if (m == 0) return;
    const u128 v = dec_betrag(x);
    // Bring x below q first (x may be a plain power of two above q), then one 128-by-64
    // division of the square: the high half is below q, so the quotient fits the instruction.
    const u64 hi = u64(v >> 64), lo = u64(v);
    const u64 r = rest128(hi % m, lo, m);
    const u128 qu = u128(r) * r;
    u64 s = rest128(u64(qu >> 64), u64(qu), m);
    if (verdoppeln) {
        const u64 d = s + s;
        s = (d < s || d >= m) ? d - m : d;
    }
    dec_setzen(x, s);
}

}  // namespace

extern "C" {

Long aModPot32(Long b, Long e, Long m) { return Long(modpot32(w32(b), w32(e), w32(m))); }

Long aGGT(Long a, Long b) {
    u32 x = w32(a), y = w32(b);
    if (x == 0) return Long(y);
    if (y == 0) return Long(x);
    // Binary gcd: shifts and subtractions instead of divisions.
    const int gemeinsam = __builtin_ctz(x | y);
    x >>= __builtin_ctz(x);
    do {
        y >>= __builtin_ctz(y);
        if (x > y) std::swap(x, y);
        y -= x;
    } while (y != 0);
    return Long(x << gemeinsam);
}

Long aModInverse(Long a, Long m) {
    const u32 mm = w32(m);
    if (mm < 2) return 0;
    int64_t r0 = mm, r1 = w32(a) % mm, t0 = 0, t1 = 1;
    while (r1 != 0) {
        const int64_t q = r0 / r1;
        const int64_t r2 = r0 - q * r1, t2 = t0 - q * t1;
        r0 = r1;
        r1 = r2;
        t0 = t1;
        t1 = t2;
    }
    if (r0 != 1) return 0;
    return Long(u32(t0 < 0 ? t0 + mm : t0));
}

Long aMod2P(Long x, Long mask) { return x & mask; }

Long aDivMod2(Long x, Long* rest) {
    *rest = Long(w32(x) & 1u);
    return Long(w32(x) >> 1);
}

Long aMayBeQuadrat32(Long x) {
    const u32 v = w32(x);
    const QuadratMasken& q = quadrat_masken();
    if (((q.m64 >> (v & 63)) & 1) == 0) return 0;
    if (((q.m63 >> (v % 63)) & 1) == 0) return 0;
    const u32 r65 = v % 65;
    if (r65 < 64 ? ((q.m65a >> r65) & 1) == 0 : q.m65b == 0) return 0;
    if (((q.m11 >> (v % 11)) & 1) == 0) return 0;
    return -1;
}

Long aPrimMod(Long n, Long r) {
    const u32 z = w32(n), grenze = w32(r);
    if (grenze < 2 || z == 1) return 0;
    if (z == 0) return 2;
    if ((z & 1) == 0) return 2;
    if (grenze >= 3 && z % 3 == 0) return 3;
    // Trial division by 6k - 1 and 6k + 1 up to the root; beyond it only z itself divides z.
    for (u64 d = 5; d <= grenze && d * d <= z; d += 6) {
        if (z % d == 0) return Long(u32(d));
        if (d + 2 <= grenze && z % (d + 2) == 0) return Long(u32(d + 2));
    }
    if (z <= grenze && z > 3) return Long(z);
    return 0;
}

Long aModHypSpecial(const Long* B, Long p) {
    const u32 pp = w32(p);
    if (pp < 3 || (pp & 1) == 0) return -1;
    const u32 rest = u32(aModHyp32(B, p));
    u64 r = rest == 0 ? 0 : pp - rest;  // B + r is the first multiple of p at or above B
    if ((r & 1) == 0) r += pp;          // B is even: an even distance gives an even multiple
    return r > 0xFFFFFFFEull ? -1 : Long(u32(r));
}

Long aMersenneTeiler32(Long q, Long limit) {
    if (limit <= 0) return 0;
    const u32 o = ordnung2_32(w32(q));
    return (o != 0 && o <= u32(limit)) ? Long(o) : 0;
}

Long aMersenneTeilerDec(const DecimalSatz* q, Long limit) {
    if (limit <= 0) return 0;
    if (q->Hi32 == 0) return Long(ordnung2_64(u64(dec_betrag(q)), u32(limit)));
    dec_nach_mpz(gr.q, q);
    return Long(ordnung2_gross(u32(limit)));
}

Long aMersenneTeilerHyp(Long* q, Long* /*qKopie*/, Long limit) {
    if (limit <= 0) return 0;
    if (anzahl(q) <= 2) return Long(ordnung2_64(u64(hyp_lesen128(q)), u32(limit)));
    hyp_nach_mpz(gr.q, q);
    return Long(ordnung2_gross(u32(limit)));
}

Long aMersTeilerMaxReduce32(Long x) {
    const u32 v = w32(x);
    if (v < 2) return x;
    Faktor f[32];
    const int anz = faktorisiere32(v, f);
    return Long(f[anz - 1].p);
}

Long aMersTeilerMaxReduceDec(DecimalSatz* q, Long limit) {
    if (limit <= 0) return 0;
    if (q->Hi32 == 0) return Long(max_reduce64(u64(dec_betrag(q)), u32(limit)));
    dec_nach_mpz(gr.q, q);
    return Long(max_reduce_gross(u32(limit)));
}

Long aMersTeilerMaxReduceHyp(Long* q, Long limit) {
    if (limit <= 0) return 0;
    if (anzahl(q) <= 2) return Long(max_reduce64(u64(hyp_lesen128(q)), u32(limit)));
    hyp_nach_mpz(gr.q, q);
    return Long(max_reduce_gross(u32(limit)));
}

Long aTeilerStartOffset(Long n, Long* table) { return teiler_offset(n, table, 2); }
Long aTeilerStartOffset2(Long n, Long* table) { return teiler_offset(n, table, 3); }

void aQuadSpecialDecMod64(DecimalSatz* x, const DecimalSatz* q) { quad_dec_mod64(x, q, false); }
void aQuadSpecialDecMod64x(DecimalSatz* x, const DecimalSatz* q, Long b) {
    quad_dec_mod64(x, q, b != 0);
}

Long aIsInMers(Long p) {
    return std::binary_search(std::begin(kMersenneExponenten), std::end(kMersenneExponenten), w32(p))
               ? -1
               : 0;
}

Long aHASH32(Long x, Long k) { return Long(falte_hash(w32(x), k, false)); }
Long aHASH32XOR(Long x, Long k) { return Long(falte_hash(w32(x), k, true)); }

Long aByteString(uint8_t* bytes, const Long* h) {
    const int32_t n = anzahl(h);
    std::memcpy(bytes, h + 1, size_t(n) * 4);  // little-endian words are their bytes, lowest first
    Long laenge = 4 * n;
    while (laenge > 1 && bytes[laenge - 1] == 0) --laenge;
    return laenge;
}

void aCardinal(Long* h, const uint8_t* bytes, Long n) {
    if (n <= 0) {
        h[0] = 1;
        h[1] = 0;
        return;
    }
    const int32_t w = (n + 3) / 4;
    ZK_RAUM(h, w);
    h[w] = 0;  // the top word may be partly filled
    std::memcpy(h + 1, bytes, size_t(n));
    normalisieren(h, w);
}

}  // extern "C"
