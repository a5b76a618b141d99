// The 32-bit primitives and the Zahl64 / Zahl128 family with its mixed forms, each width pair
// against GMP: every value is reduced to the width of the operand that receives the result.
#include <gtest/gtest.h>

#include <cstring>

#include "ZkTestHilfen.h"

using namespace zktest;

// ---- 32-bit primitives ----------------------------------------------------------------------

// The edges where a signed reading would go wrong: unsigned remainder, division, comparison
// and bit length of a word above 2^31, and the wrap of sum, difference and product.
TEST(Fest32, PrimitivenAnKantenwerten) {
    EXPECT_EQ(aMOD32(int32_t(0xFFFFFFF0u), 7), int32_t(0xFFFFFFF0u % 7u));
    EXPECT_EQ(aBitTest32(int32_t(0x80000000u), 31), -1);  // negative as a Long
    EXPECT_EQ(aBitTest32(1, 1), 0);
    EXPECT_EQ(aShiftRightAll32(37), 37);  // odd: unchanged
    EXPECT_EQ(aShiftRightAll32(int32_t(0x80000000u)), 1);
    EXPECT_EQ(aBitLenght32(0), 0);
    EXPECT_EQ(aBitLenght32(-1), 32);
    EXPECT_EQ(aDiv2(-2), 0x7FFFFFFF);  // zeros come in
    EXPECT_EQ(aShiftRight32(-1, 28), 15);
    EXPECT_EQ(aShiftLeft32(3, 31), int32_t(0x80000000u));
    EXPECT_EQ(aMul2Plus1(5), 11);
    EXPECT_EQ(aDiv2Plus1(9), 5);
    EXPECT_EQ(aMOD256(-1), 255);
    EXPECT_EQ(aADD32(int32_t(0xFFFFFFFFu), 2), 1);
    EXPECT_EQ(aSUB32(0, 1), -1);
    EXPECT_EQ(aMUL32(0x10000, 0x10000), 0);
    EXPECT_EQ(aDIV32(-1, 2), 0x7FFFFFFF);
    EXPECT_EQ(aCMP32(-1, 1), 1);  // unsigned comparison
    EXPECT_EQ(aMul2(int32_t(0x80000001u)), 2);
    int32_t x = 4;
    EXPECT_EQ(aBitTestSet32(&x, 2), -1);
    EXPECT_EQ(aBitTestSet32(&x, 0), 0);
    EXPECT_EQ(x, 5);
}

TEST(Fest32, BitReverseUndHighAndClear) {
    for (int i = 0; i < 2000 / kFaktor; ++i) {
        const uint32_t v = zufallsWort();
        const int n = int(zufallsWort() % 33);
        uint32_t erwartet = 0;
        for (int b = 0; b < n; ++b) erwartet |= ((v >> b) & 1u) << (n - 1 - b);
        ASSERT_EQ(uint32_t(aBitReverse32(int32_t(v), n)), erwartet) << v << " " << n;
    }
    // The caller's loop: places from the top, 1-based, until the word is 0.
    int32_t w = int32_t(0x80000001u);
    EXPECT_EQ(aHighAndClear32(&w), 1);
    EXPECT_EQ(aHighAndClear32(&w), 32);
    EXPECT_EQ(w, 0);
    int32_t eins = 1 << 20;
    EXPECT_EQ(aHighAndClear32(&eins), 12);
    EXPECT_EQ(eins, 0);  // a word with one bit ends the loop
}

// ---- the width pairs against GMP ------------------------------------------------------------

namespace {

// How a kind of operand is made, read and reduced: width 0 means unlimited (Hyp).
template <class T>
struct Art;

template <>
struct Art<int32_t> {
    static constexpr int breite = 32;
    static void lesen(mpz_t z, const int32_t& x) { mpz_set_ui(z, uint32_t(x)); }
    static int32_t aus(const mpz_t z) { return int32_t(uint32_t(mpz_get_ui(z))); }
};
// Zahl64 and Zahl128: the words in w, lowest first.
template <class Z>
struct ArtWorte {
    static constexpr int breite = int(sizeof(Z::w) * 8);
    static void lesen(mpz_t z, const Z& x) { mpz_import(z, sizeof(x.w) / 4, -1, 4, 0, 0, x.w); }
    static Z aus(const mpz_t z) {
        Z x{};
        mpz_export(x.w, nullptr, -1, 4, 0, 0, z);
        return x;
    }
};
template <>
struct Art<Zahl64> : ArtWorte<Zahl64> {};
template <>
struct Art<Zahl128> : ArtWorte<Zahl128> {};
template <>
struct Art<DecimalSatz> {
    static constexpr int breite = 96;
    static void lesen(mpz_t z, const DecimalSatz& d) {
        const uint32_t w[3] = {d.Lo32, d.Mid32, d.Hi32};
        mpz_import(z, 3, -1, 4, 0, 0, w);
    }
    static DecimalSatz aus(const mpz_t z) {
        uint32_t w[3] = {0, 0, 0};
        mpz_export(w, nullptr, -1, 4, 0, 0, z);
        DecimalSatz d{};
        d.reserved = 0xA55A;  // the holder's tag and the sign must survive every call
        d.sign = 128;
        d.Lo32 = w[0];
        d.Mid32 = w[1];
        d.Hi32 = w[2];
        return d;
    }
};
template <>
struct Art<sw::Hyp> {
    static constexpr int breite = 0;
    static void lesen(mpz_t z, const sw::Hyp& h) { hypNachMpz(z, h.daten()); }
    static sw::Hyp aus(const mpz_t z) { return hypAus(z, int32_t(mpz_sizeinbase(z, 2) / 32) + 6); }
};

// A random value of up to `bits` bits (0: up to 200) in one of the edge patterns, or 0 or 1.
void zufallsWert(mpz_t z, int bits) {
    if (bits == 0) bits = 200;
    const int wahl = int(zufallsWort() % 10);
    if (wahl == 0) {
        mpz_set_ui(z, 0);
        return;
    }
    if (wahl == 1) {
        mpz_set_ui(z, 1);
        return;
    }
    const int n = 1 + int(zufallsWort() % uint32_t((bits + 31) / 32));
    Mpz m(muster(n, int(zufallsWort() % kMusterArten)));
    mpz_fdiv_r_2exp(z, m.z, mp_bitcnt_t(bits));
    if (zufallsWort() % 3 == 0) mpz_fdiv_q_2exp(z, z, zufallsWort() % mp_bitcnt_t(bits));
}

void schneiden(mpz_t z, int breite) {
    if (breite != 0) mpz_fdiv_r_2exp(z, z, mp_bitcnt_t(breite));
}

enum class Op { Mov, Add, Sub, Mul, Mod, Cmp };

void referenz(mpz_t r, const mpz_t a, const mpz_t b, Op op, int breite) {
    switch (op) {
        case Op::Mov: mpz_set(r, b); break;
        case Op::Add: mpz_add(r, a, b); break;
        case Op::Sub:
            mpz_sub(r, a, b);
            if (breite == 0 && mpz_sgn(r) < 0) mpz_set(r, a);  // the Hyp keeps its value
            break;
        case Op::Mul: mpz_mul(r, a, b); break;
        case Op::Mod:
            if (mpz_sgn(b) == 0) mpz_set(r, a); else mpz_mod(r, a, b);
            break;
        case Op::Cmp: mpz_set(r, a); break;
    }
    if (breite != 0) {
        if (mpz_sgn(r) < 0) mpz_fdiv_r_2exp(r, r, mp_bitcnt_t(breite));
        schneiden(r, breite);
    }
}

// first op= second for a pair of kinds, many random operands; `fn` returns the Long result.
template <class A, class B, class F>
void paar(const char* name, Op op, F fn) {
    Mpz a, b, r, ist, b2;
    for (int i = 0; i < 3000 / kFaktor; ++i) {
        zufallsWert(a.z, Art<A>::breite);
        zufallsWert(b.z, Art<B>::breite);
        A x = Art<A>::aus(a.z);
        const B y = Art<B>::aus(b.z);
        const int32_t erg = fn(x, y);
        referenz(r.z, a.z, b.z, op, Art<A>::breite);
        Art<A>::lesen(ist.z, x);
        Art<B>::lesen(b2.z, y);
        ASSERT_EQ(mpz_cmp(ist.z, r.z), 0) << name << " a=" << a.text() << " b=" << b.text()
                                          << " soll " << r.text() << " ist " << ist.text();
        ASSERT_EQ(mpz_cmp(b2.z, b.z), 0) << name << ": second operand changed";
        if (op == Op::Cmp) {
            const int soll = mpz_cmp(a.z, b.z);
            ASSERT_EQ(erg, soll < 0 ? -1 : (soll > 0 ? 1 : 0)) << name << " " << a.text() << " " << b.text();
        }
        if constexpr (std::is_same_v<A, DecimalSatz>) {
            ASSERT_EQ(x.reserved, 0xA55A) << name;
            ASSERT_EQ(x.sign, 128) << name;
        }
        if constexpr (std::is_same_v<A, sw::Hyp>) {
            ASSERT_TRUE(waechterHeil(x, x.obergrenze() - kWaechter)) << name;
            if (op == Op::Sub) {
                const int c = mpz_cmp(a.z, b.z);
                ASSERT_EQ(erg, c < 0 ? -1 : (c == 0 ? 0 : 1)) << name;
            }
        }
    }
}

// How the members take their operands: the receiving one by pointer (a Hyp as its words), the
// second by pointer as well, except a Long, which comes by value.
template <class T>
auto ziel(T& x) {
    if constexpr (std::is_same_v<T, sw::Hyp>) return x.daten(); else return &x;
}
template <class T>
auto quelle(const T& y) {
    if constexpr (std::is_same_v<T, sw::Hyp>) return y.daten();
    else if constexpr (std::is_same_v<T, int32_t>) return y;
    else return &y;
}

#define PAAR(fn, A, B, op) \
    paar<A, B>(#fn, Op::op, [](A& x, const B& y) -> int32_t { fn(ziel(x), quelle(y)); return 0; })
#define MIT_WERT(fn, A, B, op) \
    paar<A, B>(#fn, Op::op, [](A& x, const B& y) -> int32_t { return fn(ziel(x), quelle(y)); })
// The listed members a<op><s> of one kind pair, each against GMP.
#define OPS_1(s, A, B, o) PAAR(a##o##s, A, B, o);
#define OPS_2(s, A, B, o, ...) OPS_1(s, A, B, o) OPS_1(s, A, B, __VA_ARGS__)
#define OPS_3(s, A, B, o, ...) OPS_1(s, A, B, o) OPS_2(s, A, B, __VA_ARGS__)
#define OPS_4(s, A, B, o, ...) OPS_1(s, A, B, o) OPS_3(s, A, B, __VA_ARGS__)
#define OPS_5(s, A, B, o, ...) OPS_1(s, A, B, o) OPS_4(s, A, B, __VA_ARGS__)
#define OPS_N(_1, _2, _3, _4, _5, N, ...) N
#define PAARE(s, A, B, ...) OPS_N(__VA_ARGS__, OPS_5, OPS_4, OPS_3, OPS_2, OPS_1)(s, A, B, __VA_ARGS__)

// q := a div b, a := a mod b for a kind pair; quotient 0 and a kept for b = 0.
template <class Q, class B, class F>
void division(const char* name, F fn) {
    Mpz a, b, q, r, istQ, istR;
    for (int i = 0; i < 3000 / kFaktor; ++i) {
        zufallsWert(a.z, Art<Q>::breite);
        zufallsWert(b.z, Art<B>::breite);
        if (i % 7 == 0) mpz_set_ui(b.z, 0);
        Q x = Art<Q>::aus(a.z);
        const B y = Art<B>::aus(b.z);
        Q quot = Art<Q>::aus(b.z);  // garbage in the quotient: it must be overwritten
        if constexpr (std::is_same_v<Q, sw::Hyp>) quot.mindestens(x.anzahl() + 1);
        fn(quot, x, y);
        if (mpz_sgn(b.z) == 0) {
            mpz_set_ui(q.z, 0);
            mpz_set(r.z, a.z);
        } else {
            mpz_fdiv_qr(q.z, r.z, a.z, b.z);
        }
        Art<Q>::lesen(istQ.z, quot);
        Art<Q>::lesen(istR.z, x);
        ASSERT_EQ(mpz_cmp(istQ.z, q.z), 0) << name << " " << a.text() << " / " << b.text();
        ASSERT_EQ(mpz_cmp(istR.z, r.z), 0) << name << " " << a.text() << " % " << b.text();
    }
}

#define DIV(s, Q, B) \
    division<Q, B>("aDiv" #s, [](Q& q, Q& a, const B& b) { aDiv##s(ziel(q), ziel(a), quelle(b)); })

}  // namespace

TEST(Fest64128, JedeBreiteGegenGmp) {
    //    pair    receiver     second       members
    PAARE(6464, Zahl64, Zahl64, Mov, Add, Sub, Mul, Mod);
    PAARE(128128, Zahl128, Zahl128, Mov, Add, Sub, Mul, Mod);
    PAARE(12864, Zahl128, Zahl64, Mov, Add, Mod);
    PAARE(64128, Zahl64, Zahl128, Mov, Add, Mod);
    PAARE(6432, Zahl64, int32_t, Mov, Add, Sub, Mul, Mod);
    PAARE(12832, Zahl128, int32_t, Mov, Add, Sub, Mul, Mod);
    PAARE(3264, int32_t, Zahl64, Mov, Add, Sub, Mul, Mod);
    PAARE(32128, int32_t, Zahl128, Mov, Add, Sub, Mul, Mod);
    PAARE(64Dec, Zahl64, DecimalSatz, Mov, Add, Sub, Mul, Mod);
    PAARE(128Dec, Zahl128, DecimalSatz, Mov, Add, Sub, Mod);
    PAARE(64Hyp, Zahl64, sw::Hyp, Mov, Add, Sub, Mul, Mod);
    PAARE(128Hyp, Zahl128, sw::Hyp, Mov, Add, Sub, Mod);
    PAARE(Dec64, DecimalSatz, Zahl64, Mov, Add, Sub, Mul, Mod);
    PAARE(Dec128, DecimalSatz, Zahl128, Mov, Add, Sub, Mul);
    PAARE(Hyp64, sw::Hyp, Zahl64, Mov, Add, Mul, Mod);
    PAARE(Hyp128, sw::Hyp, Zahl128, Mov, Add);
    // The members that return the comparison (and the Hyp subtraction its sign).
    MIT_WERT(aSubHyp64, sw::Hyp, Zahl64, Sub);
    MIT_WERT(aCMP6464, Zahl64, Zahl64, Cmp);
    MIT_WERT(aCMP128128, Zahl128, Zahl128, Cmp);
    MIT_WERT(aCMP6432, Zahl64, int32_t, Cmp);
    MIT_WERT(aCMP12832, Zahl128, int32_t, Cmp);
    MIT_WERT(aCMPDec64, DecimalSatz, Zahl64, Cmp);
    MIT_WERT(aCMPDec128, DecimalSatz, Zahl128, Cmp);
    MIT_WERT(aCMPHyp64, sw::Hyp, Zahl64, Cmp);
    // The three-operand sums.
    paar<Zahl64, Zahl64>("aAdd64", Op::Add, [](Zahl64& x, const Zahl64& y) {
        Zahl64 s;
        aAdd64(&s, &x, &y);
        x = s;
        return 0;
    });
    paar<Zahl128, Zahl128>("aAdd128", Op::Add, [](Zahl128& x, const Zahl128& y) {
        Zahl128 s;
        aAdd128(&s, &x, &y);
        x = s;
        return 0;
    });
}

TEST(Fest64128, DivisionMitRestImDividenden) {
    DIV(6464, Zahl64, Zahl64);
    DIV(128128, Zahl128, Zahl128);
    DIV(6432, Zahl64, int32_t);
    DIV(12832, Zahl128, int32_t);
    DIV(3264, int32_t, Zahl64);
    DIV(64Dec, Zahl64, DecimalSatz);
    DIV(64Hyp, Zahl64, sw::Hyp);
    DIV(Dec64, DecimalSatz, Zahl64);
    DIV(Hyp64, sw::Hyp, Zahl64);
}
TEST(Fest64128, EinstelligeFormen) {
    Mpz a, a64, r, ist;
    for (int i = 0; i < 3000 / kFaktor; ++i) {
        zufallsWert(a.z, 128);
        const int n = int(zufallsWort() % 140);
        const Zahl128 x = Art<Zahl128>::aus(a.z);
        const Zahl64 y = Art<Zahl64>::aus(a.z);
        Art<Zahl64>::lesen(a64.z, y);
        // f on a copy of v against ref on its value, cut to the width (below 0 wraps).
        auto pruefe = [&](const char* name, auto v, const mpz_t wert, auto f, auto ref) {
            f(&v);
            ref(r.z, wert);
            schneiden(r.z, Art<decltype(v)>::breite);
            Art<decltype(v)>::lesen(ist.z, v);
            ASSERT_EQ(mpz_cmp(ist.z, r.z), 0) << name << " n=" << n << " " << a.text();
        };
        // Each member in both widths.
#define BEIDE(name, ref)                                \
    pruefe("a" #name "128", x, a.z, a##name##128, ref); \
    pruefe("a" #name "64", y, a64.z, a##name##64, ref)
        BEIDE(Inc, [](mpz_t r, const mpz_t a) { mpz_add_ui(r, a, 1); });
        BEIDE(Dec, [](mpz_t r, const mpz_t a) { mpz_sub_ui(r, a, 1); });
        BEIDE(Quad, [](mpz_t r, const mpz_t a) { mpz_mul(r, a, a); });
        BEIDE(Mul2_, [](mpz_t r, const mpz_t a) { mpz_mul_2exp(r, a, 1); });
        BEIDE(Div2_, [](mpz_t r, const mpz_t a) { mpz_fdiv_q_2exp(r, a, 1); });
        auto links = [n](mpz_t r, const mpz_t a) { mpz_mul_2exp(r, a, mp_bitcnt_t(n)); };
        auto rechts = [n](mpz_t r, const mpz_t a) { mpz_fdiv_q_2exp(r, a, mp_bitcnt_t(n)); };
        pruefe("aShiftLeft128", x, a.z, [n](Zahl128* z) { aShiftLeft128(z, n); }, links);
        pruefe("aShiftRight128", x, a.z, [n](Zahl128* z) { aShiftRight128(z, n); }, rechts);
        pruefe("aShiftLeft64", y, a64.z, [n](Zahl64* z) { aShiftLeft64(z, n); }, links);
        pruefe("aShiftRight64", y, a64.z, [n](Zahl64* z) { aShiftRight64(z, n); }, rechts);
    }
}

TEST(Fest64128, WortIndexHinterDerBreiteLiestNull) {
    Zahl64 q;
    aGetWords64(&q, 7, 8);
    EXPECT_EQ(aGet64(&q, 1), 8);
    EXPECT_EQ(aGet64(&q, 2), 0);  // not the memory behind
    Zahl128 v;
    aGetWords128(&v, 1, 2, 3, -1);
    EXPECT_EQ(aGet128(&v, 3), -1);
    EXPECT_EQ(aGet128(&v, 4), 0);
}
TEST(FestDec, MitgliederOhneAufrufer) {
    DecimalSatz d = decAus((static_cast<unsigned __int128>(1) << 95) | 3);
    d.reserved = 0x1234;
    aMulDec2(&d);
    EXPECT_EQ(decWert(d), 6u);  // the top bit is cut at 96
    EXPECT_EQ(d.reserved, 0x1234);
    aDivDec2(&d);
    EXPECT_EQ(decWert(d), 3u);
    aGetWordsDec(&d, 1, 2, 3);
    EXPECT_EQ(decWert(d), (static_cast<unsigned __int128>(3) << 64) | (static_cast<unsigned __int128>(2) << 32) | 1);
    aAndDec32(&d, 0xFF);
    EXPECT_EQ(decWert(d), 1u);
}
