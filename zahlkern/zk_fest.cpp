// The fixed-width family: 32-bit word primitives and the Zahl64/Zahl128 records with their
// mixed forms against Long, Decimal and Hyp. Every member loads its operands into one 64- or
// 128-bit register value, does one native operation and stores it back: the callers sit in
// inner loops (text conversion, sieve positions) and a call costs a few instructions.
#include "zahlkern/zk_hyp.h"

using namespace zk;

namespace {

inline u32 w32(Long x) { return u32(x); }

inline u64 lade(const Zahl64* a) { return u64(a->w[0]) | (u64(a->w[1]) << 32); }
inline void speichere(Zahl64* a, u64 v) {
    a->w[0] = u32(v);
    a->w[1] = u32(v >> 32);
}
inline u128 lade(const Zahl128* a) {
    return u128(a->w[0]) | (u128(a->w[1]) << 32) | (u128(a->w[2]) << 64) | (u128(a->w[3]) << 96);
}
inline void speichere(Zahl128* a, u128 v) {
    for (int i = 0; i < 4; ++i) a->w[i] = u32(v >> (32 * i));
}

inline Long vergleich(u128 a, u128 b) { return a < b ? -1 : (a > b ? 1 : 0); }

// Quotient and remainder with the library's rule for a zero divisor: quotient 0, dividend kept.
template <typename T>
inline void teile(T a, T b, T& q, T& r) {
    if (b == 0) {
        q = 0;
        r = a;
    } else {
        q = a / b;
        r = a % b;
    }
}

// A Zahl64 or Zahl128 as a Hyp on the stack, so the Hyp forms can reuse the Hyp family.
struct KleinHyp {
    Long e[5];
    explicit KleinHyp(u128 v) { hyp_setzen128(e, v); }
};

}  // namespace

extern "C" {

// ---- 32-bit primitives ----------------------------------------------------------------------

Long aMOD2(Long x) { return Long(w32(x) & 1u); }
Long aMOD8(Long x) { return Long(w32(x) & 7u); }
Long aMOD256(Long x) { return Long(w32(x) & 255u); }
Long aMOD32(Long a, Long b) { return b == 0 ? 0 : Long(w32(a) % w32(b)); }
Long aDiv2(Long x) { return Long(w32(x) >> 1); }
Long aMul2Plus1(Long x) { return Long((w32(x) << 1) | 1u); }
Long aDiv2Plus1(Long x) { return Long((w32(x) >> 1) + 1u); }
Long aShiftLeft32(Long x, Long n) { return (n < 0 || n > 31) ? 0 : Long(w32(x) << n); }
Long aShiftRight32(Long x, Long n) { return (n < 0 || n > 31) ? 0 : Long(w32(x) >> n); }
Long aShiftRightAll32(Long x) { return x == 0 ? 0 : Long(w32(x) >> __builtin_ctz(w32(x))); }
Long aBitTest32(Long x, Long n) { return (n >= 0 && n < 32 && ((w32(x) >> n) & 1u)) ? -1 : 0; }
Long aSetBit32(Long x, Long n) { return (n < 0 || n > 31) ? x : Long(w32(x) | (1u << n)); }
Long aClearBit32(Long x, Long n) { return (n < 0 || n > 31) ? x : Long(w32(x) & ~(1u << n)); }
Long aNot32(Long x) { return ~x; }

Long aBitReverse32(Long x, Long n) {
    if (n <= 0) return 0;
    u32 v = w32(x);
    // Reverse all 32 bits by swapping halves, bytes, nibbles, pairs and bits, then move the
    // n reversed low bits down: five steps with no loop over the bits.
    v = (v >> 16) | (v << 16);
    v = ((v & 0xFF00FF00u) >> 8) | ((v & 0x00FF00FFu) << 8);
    v = ((v & 0xF0F0F0F0u) >> 4) | ((v & 0x0F0F0F0Fu) << 4);
    v = ((v & 0xCCCCCCCCu) >> 2) | ((v & 0x33333333u) << 2);
    v = ((v & 0xAAAAAAAAu) >> 1) | ((v & 0x55555555u) << 1);
    return n >= 32 ? Long(v) : Long(v >> (32 - n));
}

Long aBitLenght32(Long x) { return x == 0 ? 0 : 32 - __builtin_clz(w32(x)); }

Long aHighAndClear32(Long* x) {
    const u32 v = w32(*x);
    if (v == 0) return 0;
    const int oben = __builtin_clz(v);  // 0 for bit 31
    *x = Long(v & ~(0x80000000u >> oben));
    return oben + 1;
}

Long aADD32(Long a, Long b) { return Long(w32(a) + w32(b)); }
Long aSUB32(Long a, Long b) { return Long(w32(a) - w32(b)); }
Long aMUL32(Long a, Long b) { return Long(w32(a) * w32(b)); }
Long aDIV32(Long a, Long b) { return b == 0 ? 0 : Long(w32(a) / w32(b)); }
Long aCMP32(Long a, Long b) { return vergleich(w32(a), w32(b)); }
Long aMul2(Long x) { return Long(w32(x) << 1); }

Long aBitTestSet32(Long* x, Long n) {
    const Long alt = aBitTest32(*x, n);
    *x = aSetBit32(*x, n);
    return alt;
}

// ---- moves ------------------------------------------------------------------------------------

void aMov6464(Zahl64* a, const Zahl64* b) { *a = *b; }
void aMov128128(Zahl128* a, const Zahl128* b) { *a = *b; }
void aMov12864(Zahl128* a, const Zahl64* b) { speichere(a, lade(b)); }
void aMov12832(Zahl128* a, Long v) { speichere(a, u128(w32(v))); }
void aMov6432(Zahl64* a, Long v) { speichere(a, u64(w32(v))); }
void aMov3264(Long* a, const Zahl64* b) { *a = Long(b->w[0]); }
void aMov32128(Long* a, const Zahl128* b) { *a = Long(b->w[0]); }
void aMov64128(Zahl64* a, const Zahl128* b) { speichere(a, u64(lade(b))); }
void aMov128Dec(Zahl128* a, const DecimalSatz* d) { speichere(a, dec_betrag(d)); }
void aMov64Hyp(Zahl64* a, const Long* h) { speichere(a, u64(hyp_lesen128(h))); }
void aMov128Hyp(Zahl128* a, const Long* h) { speichere(a, hyp_lesen128(h)); }
void aMovDec64(DecimalSatz* d, const Zahl64* b) { dec_setzen(d, lade(b)); }
void aMovDec128(DecimalSatz* d, const Zahl128* b) { dec_setzen(d, lade(b)); }

void aMovHyp64(Long* h, const Zahl64* b) {
    ZK_RAUM(h, worte128(lade(b)));
    hyp_setzen128(h, lade(b));
}

void aMovHyp128(Long* h, const Zahl128* b) {
    ZK_RAUM(h, worte128(lade(b)));
    hyp_setzen128(h, lade(b));
}

Long aGet64(const Zahl64* a, Long i) { return (i >= 0 && i < 2) ? Long(a->w[i]) : 0; }
Long aGet128(const Zahl128* a, Long i) { return (i >= 0 && i < 4) ? Long(a->w[i]) : 0; }

void aGetWords64(Zahl64* a, Long w0, Long w1) {
    a->w[0] = w32(w0);
    a->w[1] = w32(w1);
}

void aGetWords128(Zahl128* a, Long w0, Long w1, Long w2, Long w3) {
    a->w[0] = w32(w0);
    a->w[1] = w32(w1);
    a->w[2] = w32(w2);
    a->w[3] = w32(w3);
}

// ---- steps ------------------------------------------------------------------------------------

void aInc64(Zahl64* a) { speichere(a, lade(a) + 1); }
void aInc128(Zahl128* a) { speichere(a, lade(a) + 1); }
void aDec64(Zahl64* a) { speichere(a, lade(a) - 1); }
void aDec128(Zahl128* a) { speichere(a, lade(a) - 1); }

// ---- addition ---------------------------------------------------------------------------------

void aAdd64(Zahl64* s, const Zahl64* a, const Zahl64* b) { speichere(s, lade(a) + lade(b)); }
void aAdd128(Zahl128* s, const Zahl128* a, const Zahl128* b) { speichere(s, lade(a) + lade(b)); }
void aAdd6464(Zahl64* a, const Zahl64* b) { speichere(a, lade(a) + lade(b)); }
void aAdd128128(Zahl128* a, const Zahl128* b) { speichere(a, lade(a) + lade(b)); }
void aAdd12864(Zahl128* a, const Zahl64* b) { speichere(a, lade(a) + lade(b)); }
void aAdd64128(Zahl64* a, const Zahl128* b) { speichere(a, lade(a) + u64(lade(b))); }
void aAdd6432(Zahl64* a, Long v) { speichere(a, lade(a) + w32(v)); }
void aAdd12832(Zahl128* a, Long v) { speichere(a, lade(a) + w32(v)); }
void aAdd3264(Long* a, const Zahl64* b) { *a = Long(w32(*a) + b->w[0]); }
void aAdd32128(Long* a, const Zahl128* b) { *a = Long(w32(*a) + b->w[0]); }
void aAdd64Dec(Zahl64* a, const DecimalSatz* d) { speichere(a, lade(a) + u64(dec_betrag(d))); }
void aAdd128Dec(Zahl128* a, const DecimalSatz* d) { speichere(a, lade(a) + dec_betrag(d)); }
void aAdd64Hyp(Zahl64* a, const Long* h) { speichere(a, lade(a) + u64(hyp_lesen128(h))); }
void aAdd128Hyp(Zahl128* a, const Long* h) { speichere(a, lade(a) + hyp_lesen128(h)); }
void aAddDec64(DecimalSatz* d, const Zahl64* b) { dec_setzen(d, dec_betrag(d) + lade(b)); }
void aAddDec128(DecimalSatz* d, const Zahl128* b) { dec_setzen(d, dec_betrag(d) + lade(b)); }
void aAddHyp64(Long* h, const Zahl64* b) { aAddHypHyp(h, KleinHyp(lade(b)).e); }
void aAddHyp128(Long* h, const Zahl128* b) { aAddHypHyp(h, KleinHyp(lade(b)).e); }

// ---- subtraction ------------------------------------------------------------------------------

void aSub6464(Zahl64* a, const Zahl64* b) { speichere(a, lade(a) - lade(b)); }
void aSub128128(Zahl128* a, const Zahl128* b) { speichere(a, lade(a) - lade(b)); }
void aSub6432(Zahl64* a, Long v) { speichere(a, lade(a) - w32(v)); }
void aSub12832(Zahl128* a, Long v) { speichere(a, lade(a) - w32(v)); }
void aSub3264(Long* a, const Zahl64* b) { *a = Long(w32(*a) - b->w[0]); }
void aSub32128(Long* a, const Zahl128* b) { *a = Long(w32(*a) - b->w[0]); }
void aSub64Dec(Zahl64* a, const DecimalSatz* d) { speichere(a, lade(a) - u64(dec_betrag(d))); }
void aSub128Dec(Zahl128* a, const DecimalSatz* d) { speichere(a, lade(a) - dec_betrag(d)); }
void aSub64Hyp(Zahl64* a, const Long* h) { speichere(a, lade(a) - u64(hyp_lesen128(h))); }
void aSub128Hyp(Zahl128* a, const Long* h) { speichere(a, lade(a) - hyp_lesen128(h)); }
void aSubDec64(DecimalSatz* d, const Zahl64* b) { dec_setzen(d, dec_betrag(d) - lade(b)); }
void aSubDec128(DecimalSatz* d, const Zahl128* b) { dec_setzen(d, dec_betrag(d) - lade(b)); }
Long aSubHyp64(Long* h, const Zahl64* b) { return aSubHypHyp(h, KleinHyp(lade(b)).e); }

// ---- comparison -------------------------------------------------------------------------------

Long aCMP6464(const Zahl64* a, const Zahl64* b) { return vergleich(lade(a), lade(b)); }
Long aCMP128128(const Zahl128* a, const Zahl128* b) { return vergleich(lade(a), lade(b)); }
Long aCMP6432(const Zahl64* a, Long v) { return vergleich(lade(a), w32(v)); }
Long aCMP12832(const Zahl128* a, Long v) { return vergleich(lade(a), w32(v)); }
Long aCMPDec64(const DecimalSatz* d, const Zahl64* b) { return vergleich(dec_betrag(d), lade(b)); }
Long aCMPDec128(const DecimalSatz* d, const Zahl128* b) { return vergleich(dec_betrag(d), lade(b)); }
Long aCMPHyp64(const Long* h, const Zahl64* b) { return aCmpHypHyp(h, KleinHyp(lade(b)).e); }

// ---- multiplication ---------------------------------------------------------------------------

void aMul6464(Zahl64* a, const Zahl64* b) { speichere(a, lade(a) * lade(b)); }
void aMul128128(Zahl128* a, const Zahl128* b) { speichere(a, lade(a) * lade(b)); }
void aMul6432(Zahl64* a, Long v) { speichere(a, lade(a) * w32(v)); }
void aMul12832(Zahl128* a, Long v) { speichere(a, lade(a) * w32(v)); }
void aMul3264(Long* a, const Zahl64* b) { *a = Long(w32(*a) * b->w[0]); }
void aMul32128(Long* a, const Zahl128* b) { *a = Long(w32(*a) * b->w[0]); }
void aMul64Dec(Zahl64* a, const DecimalSatz* d) { speichere(a, lade(a) * u64(dec_betrag(d))); }
void aMul64Hyp(Zahl64* a, const Long* h) { speichere(a, lade(a) * u64(hyp_lesen128(h))); }
void aMulDec64(DecimalSatz* d, const Zahl64* b) { dec_setzen(d, dec_betrag(d) * lade(b)); }
void aMulDec128(DecimalSatz* d, const Zahl128* b) { dec_setzen(d, dec_betrag(d) * lade(b)); }

void aMulHyp64(Long* h, const Zahl64* b) {
    const u64 m = lade(b);
    const int32_t n = anzahl(h);
    if (m == 0) {
        h[0] = 1;
        worte(h)[0] = 0;
        return;
    }
    ZK_RAUM(h, n + 2);
    // One pass with a 96-bit running carry: each word times the 64-bit factor plus carry.
    u32* w = worte(h);
    u128 carry = 0;
    for (int32_t i = 0; i < n; ++i) {
        carry += u128(w[i]) * m;
        w[i] = u32(carry);
        carry >>= 32;
    }
    w[n] = u32(carry);
    w[n + 1] = u32(carry >> 32);
    normalisieren(h, n + 2);
}

void aQuad64(Zahl64* a) { speichere(a, lade(a) * lade(a)); }
void aQuad128(Zahl128* a) { speichere(a, lade(a) * lade(a)); }
void aMul2_64(Zahl64* a) { speichere(a, lade(a) << 1); }
void aMul2_128(Zahl128* a) { speichere(a, lade(a) << 1); }

// ---- shifts -----------------------------------------------------------------------------------

void aShiftLeft64(Zahl64* a, Long n) {
    if (n > 0) speichere(a, n >= 64 ? 0 : lade(a) << n);
}
void aShiftLeft128(Zahl128* a, Long n) {
    if (n > 0) speichere(a, n >= 128 ? u128(0) : lade(a) << n);
}
void aShiftRight64(Zahl64* a, Long n) {
    if (n > 0) speichere(a, n >= 64 ? 0 : lade(a) >> n);
}
void aShiftRight128(Zahl128* a, Long n) {
    if (n > 0) speichere(a, n >= 128 ? u128(0) : lade(a) >> n);
}
void aDiv2_64(Zahl64* a) { speichere(a, lade(a) >> 1); }
void aDiv2_128(Zahl128* a) { speichere(a, lade(a) >> 1); }

// ---- division ---------------------------------------------------------------------------------

void aDiv6464(Zahl64* q, Zahl64* a, const Zahl64* b) {
    u64 qq, r;
    teile(lade(a), lade(b), qq, r);
    speichere(q, qq);
    speichere(a, r);
}

void aDiv128128(Zahl128* q, Zahl128* a, const Zahl128* b) {
    u128 qq, r;
    teile(lade(a), lade(b), qq, r);
    speichere(q, qq);
    speichere(a, r);
}

void aDiv6432(Zahl64* q, Zahl64* a, Long d) {
    u64 qq, r;
    teile(lade(a), u64(w32(d)), qq, r);
    speichere(q, qq);
    speichere(a, r);
}

void aDiv12832(Zahl128* q, Zahl128* a, Long d) {
    // Word by word from the top with 64-by-32 steps: the text conversion calls this once per
    // digit, and four native divisions beat the generic 128-bit division helper.
    const u32 m = w32(d);
    if (m == 0) {
        speichere(q, u128(0));
        return;
    }
    u64 rest = 0;
    Zahl128 qq;
    for (int i = 3; i >= 0; --i) {
        const u64 cur = (rest << 32) | a->w[i];
        qq.w[i] = u32(cur / m);
        rest = cur % m;
    }
    *q = qq;
    speichere(a, u128(rest));
}

void aDiv3264(Long* q, Long* a, const Zahl64* b) {
    u64 qq, r;
    teile(u64(w32(*a)), lade(b), qq, r);
    *q = Long(u32(qq));
    *a = Long(u32(r));
}

void aDiv64Dec(Zahl64* q, Zahl64* a, const DecimalSatz* d) {
    u128 qq, r;
    teile(u128(lade(a)), dec_betrag(d), qq, r);
    speichere(q, u64(qq));
    speichere(a, u64(r));
}

void aDiv64Hyp(Zahl64* q, Zahl64* a, const Long* h) {
    if (hyp_breiter_als(h, 64)) {  // a divisor above every Zahl64: quotient 0, remainder a
        speichere(q, 0);
        return;
    }
    u64 qq, r;
    teile(lade(a), u64(hyp_lesen128(h)), qq, r);
    speichere(q, qq);
    speichere(a, r);
}

void aDivDec64(DecimalSatz* q, DecimalSatz* a, const Zahl64* b) {
    u128 qq, r;
    teile(dec_betrag(a), u128(lade(b)), qq, r);
    dec_setzen(q, qq);
    dec_setzen(a, r);
}

void aDivHyp64(Long* q, Long* a, const Zahl64* b) { aDivHypHyp(q, a, KleinHyp(lade(b)).e); }

// ---- remainder --------------------------------------------------------------------------------

void aMod6464(Zahl64* a, const Zahl64* b) {
    if (lade(b) != 0) speichere(a, lade(a) % lade(b));
}
void aMod128128(Zahl128* a, const Zahl128* b) {
    if (lade(b) != 0) speichere(a, lade(a) % lade(b));
}
void aMod12864(Zahl128* a, const Zahl64* b) {
    if (lade(b) != 0) speichere(a, lade(a) % lade(b));
}
void aMod64128(Zahl64* a, const Zahl128* b) {
    if (lade(b) != 0) speichere(a, u64(lade(a) % lade(b)));
}
Long aMod6432(Zahl64* a, Long d) {
    if (d == 0) return 0;
    const u64 r = lade(a) % w32(d);
    speichere(a, r);
    return Long(r);
}
Long aMod12832(Zahl128* a, Long d) {
    if (d == 0) return 0;
    Zahl128 q;
    aDiv12832(&q, a, d);
    return Long(a->w[0]);
}
void aMod3264(Long* a, const Zahl64* b) {
    if (lade(b) != 0) *a = Long(u32(w32(*a) % lade(b)));
}
void aMod32128(Long* a, const Zahl128* b) {
    if (lade(b) != 0) *a = Long(u32(w32(*a) % lade(b)));
}
void aMod64Dec(Zahl64* a, const DecimalSatz* d) {
    if (dec_betrag(d) != 0) speichere(a, u64(lade(a) % dec_betrag(d)));
}
void aMod128Dec(Zahl128* a, const DecimalSatz* d) {
    if (dec_betrag(d) != 0) speichere(a, lade(a) % dec_betrag(d));
}
void aMod64Hyp(Zahl64* a, const Long* h) {
    if (hyp_breiter_als(h, 64)) return;
    const u64 m = u64(hyp_lesen128(h));
    if (m != 0) speichere(a, lade(a) % m);
}
void aMod128Hyp(Zahl128* a, const Long* h) {
    if (hyp_breiter_als(h, 128)) return;
    const u128 m = hyp_lesen128(h);
    if (m != 0) speichere(a, lade(a) % m);
}
void aModDec64(DecimalSatz* d, const Zahl64* b) {
    if (lade(b) != 0) dec_setzen(d, dec_betrag(d) % lade(b));
}
void aModHyp64(Long* h, const Zahl64* b) { aModHypHyp(h, KleinHyp(lade(b)).e); }

// ---- Decimal members without a caller ---------------------------------------------------------

void aMulDec2(DecimalSatz* d) { dec_setzen(d, dec_betrag(d) << 1); }
void aDivDec2(DecimalSatz* d) { dec_setzen(d, dec_betrag(d) >> 1); }
void aAndDec32(DecimalSatz* d, Long m) { dec_setzen(d, u128(d->Lo32 & w32(m))); }
void aGetWordsDec(DecimalSatz* d, Long lo, Long mid, Long hi) {
    d->Lo32 = w32(lo);
    d->Mid32 = w32(mid);
    d->Hi32 = w32(hi);
}

}  // extern "C"
