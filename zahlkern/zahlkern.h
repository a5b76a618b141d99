/* zahlkern: the arithmetic library of SW.
 *
 * Calling rule, for every function below:
 *  1. Every argument is one 32-bit word: a Long by value, any other number by address.
 *  2. The result, where there is one, is one Long.
 *  3. A function writes its result through its FIRST argument (exceptions: aMoveDec and the
 *     word-vector primitives write through their LAST argument). Nothing else is touched.
 *  4. Comparisons return exactly -1, 0 or 1 (first <, =, > second).
 *  5. Truth values are -1 for true and 0 for false.
 *  6. The library reports nothing: no status, no exception, no capacity check in release
 *     builds. Callers size their records and test their divisors. Nothing is allocated,
 *     kept or freed that the caller hands in.
 *
 * Number shapes:
 *  Long     signed 32-bit; word operations read the same bits as unsigned.
 *  Zahl64   two 32-bit words, lowest first.        Zahl128  four 32-bit words, lowest first.
 *  Decimal  the 16-byte record below; an integer of 96 bits with sign and scale.
 *  Hyp      int32_t array: element 0 the count of words in use (>= 1), then the words,
 *           lowest first; zero is count 1, word 0. The caller owns and sizes it.
 */
#ifndef ZAHLKERN_H
#define ZAHLKERN_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef int32_t Long;

typedef struct Zahl64 { uint32_t w[2]; } Zahl64;
typedef struct Zahl128 { uint32_t w[4]; } Zahl128;

/* The Decimal record, in this memory order: reserved (the holder's tag, never touched),
 * scale (always 0 here), sign (0 positive, 128 negative), then the three words of the
 * 96-bit magnitude in the order high, low, middle. */
typedef struct DecimalSatz {
    uint16_t reserved;
    uint8_t scale;
    uint8_t sign;
    uint32_t Hi32;  /* bits 95..64 */
    uint32_t Lo32;  /* bits 31..0  */
    uint32_t Mid32; /* bits 63..32 */
} DecimalSatz;

/* ===== Decimal family ======================================================================
 * Every member sees the magnitude only and leaves reserved, scale and sign alone, except
 * aMoveDec (copies all 16 bytes) and aModDecDirekt (the remainder takes the sign of a). */

/* target := all 16 bytes of source (the one member writing through its second argument). */
void aMoveDec(const DecimalSatz* source, DecimalSatz* target);
/* dec mod m (m read as unsigned); dec unchanged. m = 0 gives 0. */
Long aModDec32(const DecimalSatz* dec, Long m);
/* dec := dec div d (d unsigned); returns the old value's remainder. d = 0 leaves dec, gives 0. */
Long aDivDec32(DecimalSatz* dec, Long d);
/* dec := dec - (dec mod m): the largest multiple of m not above it. Returns that remainder.
 * m = 0 leaves dec and gives 0. */
Long aLowModDec32(DecimalSatz* dec, Long m);
/* dec := dec rounded down to a multiple of 120. */
void aDecAuf120Kappen(DecimalSatz* dec);
/* dec div d as a Long (the caller guarantees it fits); dec unchanged. d = 0 gives 0. */
Long aDivDec2Long(const DecimalSatz* dec, Long d);
/* dec mod 120, dec mod 8, dec mod 2 of the full 96-bit magnitude; dec unchanged. */
Long aMODDec120(const DecimalSatz* dec);
Long aMODDec8(const DecimalSatz* dec);
Long aMODDec2(const DecimalSatz* dec);
/* a := a mod b on the signed values (truncating division): the remainder has the sign of a.
 * b = 0 leaves a as it was. */
void aModDecDirekt(DecimalSatz* a, const DecimalSatz* b);
/* dec := dec shifted left / right by n bits; bits beyond 96 are cut. */
void aShiftLeftDec(DecimalSatz* dec, Long n);
void aShiftRightDec(DecimalSatz* dec, Long n);
/* z := the low 64 bits of the Decimal's magnitude. */
void aMov64Dec(Zahl64* z, const DecimalSatz* dec);

/* ===== Raster kernels ======================================================================
 * The raster: 32-bit words, 120 integers a word, bit i (1..32, bit 1 the most significant)
 * for the i-th residue coprime to 30; a set bit means struck out. */

/* Strikes every multiple of 7 and of 11 that has a bit, in words 0..letzterIndex. */
void aSeave7_11(uint32_t* raster, Long letzterIndex);
/* The number of zero bits in x. */
Long aCountNullBits(Long x);
/* Not 0 if x (inside the primary range) is prime by its bit in the raster. */
Long aIsPrimPrimaer32(Long x, const uint32_t* raster);
/* The same for a Decimal inside the primary range. */
Long aIsPrimPrimaerDec(const DecimalSatz* dec, const uint32_t* raster);
/* Not 0 if the Decimal is composite, 0 if it is prime (0 and 1 count as composite). */
Long aIsNotPrimDEC(const DecimalSatz* dec);
/* Returns x div 120 and stores x mod 120 at *rest (x read as unsigned). */
Long aDivMod120(Long x, Long* rest);

/* ===== Conventions of the families below =================================================
 * A Long in second place is read as an unsigned word unless its line says otherwise.
 * Fixed widths wrap: a result beyond the width is cut to it (Decimal targets to 96 bits).
 * Zero divisors never trap: a division by 0 leaves the dividend as it was and a separate
 * quotient 0 (an in-place quotient such as aDivHyp32 leaves the number alone), and a word
 * result of such a division is 0. Callers still test their divisors.
 * A Hyp is passed as the address of its element 0 (Long*). A Hyp target must have the room
 * its line names (upper bound = highest usable index); debug builds abort with the
 * function's name when a Hyp made by sw::Hyp (zahlkern/Hyp.h) would be overrun. */

/* ===== 32-bit primitives ================================================================ */

Long aMOD2(Long x);                   /* x mod 2 of the unsigned word */
Long aMOD8(Long x);                   /* x mod 8 */
Long aMOD256(Long x);                 /* x mod 256 */
Long aMOD32(Long a, Long b);          /* a mod b, both unsigned */
Long aDiv2(Long x);                   /* x >> 1, zero coming in */
Long aMul2Plus1(Long x);              /* 2x + 1, cut to 32 bits */
Long aDiv2Plus1(Long x);              /* (unsigned x) div 2, plus 1 */
Long aShiftLeft32(Long x, Long n);    /* x << n; n outside 0..31 gives 0 */
Long aShiftRight32(Long x, Long n);   /* x >> n with zeros coming in; n outside 0..31 gives 0 */
Long aShiftRightAll32(Long x);        /* the odd part of x (trailing zeros shifted out); 0 stays 0 */
Long aBitTest32(Long x, Long n);      /* -1 if bit n (0 = lowest) is set, else 0 */
Long aSetBit32(Long x, Long n);       /* x with bit n set */
Long aClearBit32(Long x, Long n);     /* x with bit n cleared */
Long aNot32(Long x);                  /* bitwise complement */
Long aBitReverse32(Long x, Long n);   /* the n low bits of x in reversed order (FFT order) */
Long aBitLenght32(Long x);            /* significant bits of the unsigned word: 16 gives 5, 0 gives 0 */
/* Clears the highest set bit of *x and returns its place from the top (bit 31 gives 1, bit 0
 * gives 32): the 1-based index into the raster's residue table. 0 for a word that is 0. */
Long aHighAndClear32(Long* x);
Long aADD32(Long a, Long b);          /* a + b, wrapping */
Long aSUB32(Long a, Long b);          /* a - b, wrapping */
Long aMUL32(Long a, Long b);          /* low word of a * b */
Long aDIV32(Long a, Long b);          /* a div b, both unsigned */
Long aCMP32(Long a, Long b);          /* unsigned comparison: -1, 0, 1 */
Long aMul2(Long x);                   /* 2x, wrapping */
Long aBitTestSet32(Long* x, Long n);  /* sets bit n of *x; returns its old state, -1 or 0 */

/* ===== Zahl64 and Zahl128 ================================================================
 * Two- and four-word unsigned numbers. Three-argument division: quotient into the first,
 * the remainder left in the second (the dividend), divisor unchanged. The aMod forms reduce
 * the first operand in place. A 32-bit first operand (Long*) is written back, cut to 32 bits. */

/* Moves: first := second (widened with zeros or cut to the first's width). */
void aMov6464(Zahl64* a, const Zahl64* b);
void aMov128128(Zahl128* a, const Zahl128* b);
void aMov12864(Zahl128* a, const Zahl64* b);
void aMov12832(Zahl128* a, Long v);
void aMov6432(Zahl64* a, Long v);
void aMov3264(Long* a, const Zahl64* b);        /* low word */
void aMov32128(Long* a, const Zahl128* b);      /* low word */
void aMov64128(Zahl64* a, const Zahl128* b);    /* low 64 bits */
void aMov128Dec(Zahl128* a, const DecimalSatz* d); /* the 96-bit magnitude */
void aMov64Hyp(Zahl64* a, const Long* h);       /* low 64 bits of the Hyp */
void aMov128Hyp(Zahl128* a, const Long* h);     /* low 128 bits of the Hyp */
void aMovDec64(DecimalSatz* d, const Zahl64* b);  /* magnitude := b; sign, scale, tag kept */
void aMovDec128(DecimalSatz* d, const Zahl128* b);/* magnitude := b cut to 96 bits */
void aMovHyp64(Long* h, const Zahl64* b);       /* Hyp := b, count set; room 2 */
void aMovHyp128(Long* h, const Zahl128* b);     /* Hyp := b, count set; room 4 */
Long aGet64(const Zahl64* a, Long i);           /* word i (0..1) of a; 0 outside */
Long aGet128(const Zahl128* a, Long i);         /* word i (0..3) of a; 0 outside */
void aGetWords64(Zahl64* a, Long w0, Long w1);  /* a := the number with these words, lowest first */
void aGetWords128(Zahl128* a, Long w0, Long w1, Long w2, Long w3);

/* Steps: plus or minus 1 in place, wrapping. */
void aInc64(Zahl64* a);
void aInc128(Zahl128* a);
void aDec64(Zahl64* a);
void aDec128(Zahl128* a);

/* Addition: first += second. aAdd64 and aAdd128 are the three-address forms s := a + b. */
void aAdd64(Zahl64* s, const Zahl64* a, const Zahl64* b);
void aAdd128(Zahl128* s, const Zahl128* a, const Zahl128* b);
void aAdd6464(Zahl64* a, const Zahl64* b);
void aAdd128128(Zahl128* a, const Zahl128* b);
void aAdd12864(Zahl128* a, const Zahl64* b);
void aAdd64128(Zahl64* a, const Zahl128* b);
void aAdd6432(Zahl64* a, Long v);
void aAdd12832(Zahl128* a, Long v);
void aAdd3264(Long* a, const Zahl64* b);
void aAdd32128(Long* a, const Zahl128* b);
void aAdd64Dec(Zahl64* a, const DecimalSatz* d);
void aAdd128Dec(Zahl128* a, const DecimalSatz* d);
void aAdd64Hyp(Zahl64* a, const Long* h);
void aAdd128Hyp(Zahl128* a, const Long* h);
void aAddDec64(DecimalSatz* d, const Zahl64* b);
void aAddDec128(DecimalSatz* d, const Zahl128* b);
void aAddHyp64(Long* h, const Zahl64* b);       /* room: max(count, 2) + 1 */
void aAddHyp128(Long* h, const Zahl128* b);     /* room: max(count, 4) + 1 */

/* Subtraction: first -= second, wrapping (Decimal magnitudes modulo 2^96). */
void aSub6464(Zahl64* a, const Zahl64* b);
void aSub128128(Zahl128* a, const Zahl128* b);
void aSub6432(Zahl64* a, Long v);
void aSub12832(Zahl128* a, Long v);
void aSub3264(Long* a, const Zahl64* b);
void aSub32128(Long* a, const Zahl128* b);
void aSub64Dec(Zahl64* a, const DecimalSatz* d);
void aSub128Dec(Zahl128* a, const DecimalSatz* d);
void aSub64Hyp(Zahl64* a, const Long* h);
void aSub128Hyp(Zahl128* a, const Long* h);
void aSubDec64(DecimalSatz* d, const Zahl64* b);
void aSubDec128(DecimalSatz* d, const Zahl128* b);
/* Hyp -= b if b is not greater (then 1 for a positive, 0 for a zero difference); if b is
 * greater the Hyp stays as it was and the result is -1, as aSubHypHyp. */
Long aSubHyp64(Long* h, const Zahl64* b);

/* Comparison: -1, 0, 1 (Decimal by magnitude). */
Long aCMP6464(const Zahl64* a, const Zahl64* b);
Long aCMP128128(const Zahl128* a, const Zahl128* b);
Long aCMP6432(const Zahl64* a, Long v);
Long aCMP12832(const Zahl128* a, Long v);
Long aCMPDec64(const DecimalSatz* d, const Zahl64* b);
Long aCMPDec128(const DecimalSatz* d, const Zahl128* b);
Long aCMPHyp64(const Long* h, const Zahl64* b);

/* Multiplication: first *= second, cut to the first's width. */
void aMul6464(Zahl64* a, const Zahl64* b);
void aMul128128(Zahl128* a, const Zahl128* b);
void aMul6432(Zahl64* a, Long v);
void aMul12832(Zahl128* a, Long v);
void aMul3264(Long* a, const Zahl64* b);
void aMul32128(Long* a, const Zahl128* b);
void aMul64Dec(Zahl64* a, const DecimalSatz* d);
void aMul64Hyp(Zahl64* a, const Long* h);
void aMulDec64(DecimalSatz* d, const Zahl64* b);
void aMulDec128(DecimalSatz* d, const Zahl128* b);
void aMulHyp64(Long* h, const Zahl64* b);       /* room: count + 2 */
void aQuad64(Zahl64* a);                        /* a := a^2, cut */
void aQuad128(Zahl128* a);
void aMul2_64(Zahl64* a);                       /* doubling, cut */
void aMul2_128(Zahl128* a);

/* Shifts by n bits (n <= 0 leaves the value, n >= width gives 0) and halving. */
void aShiftLeft64(Zahl64* a, Long n);
void aShiftLeft128(Zahl128* a, Long n);
void aShiftRight64(Zahl64* a, Long n);
void aShiftRight128(Zahl128* a, Long n);
void aDiv2_64(Zahl64* a);
void aDiv2_128(Zahl128* a);

/* Division: q := a div b, a := a mod b, b unchanged. */
void aDiv6464(Zahl64* q, Zahl64* a, const Zahl64* b);
void aDiv128128(Zahl128* q, Zahl128* a, const Zahl128* b);
void aDiv6432(Zahl64* q, Zahl64* a, Long d);
void aDiv12832(Zahl128* q, Zahl128* a, Long d);
void aDiv3264(Long* q, Long* a, const Zahl64* b);
void aDiv64Dec(Zahl64* q, Zahl64* a, const DecimalSatz* d);
void aDiv64Hyp(Zahl64* q, Zahl64* a, const Long* h);
void aDivDec64(DecimalSatz* q, DecimalSatz* a, const Zahl64* b); /* magnitudes */
void aDivHyp64(Long* q, Long* a, const Zahl64* b); /* q: room count of a */

/* Remainder: first := first mod second. The 32-bit divisor forms also return the remainder. */
void aMod6464(Zahl64* a, const Zahl64* b);
void aMod128128(Zahl128* a, const Zahl128* b);
void aMod12864(Zahl128* a, const Zahl64* b);
void aMod64128(Zahl64* a, const Zahl128* b);
Long aMod6432(Zahl64* a, Long d);
Long aMod12832(Zahl128* a, Long d);
void aMod3264(Long* a, const Zahl64* b);
void aMod32128(Long* a, const Zahl128* b);
void aMod64Dec(Zahl64* a, const DecimalSatz* d);
void aMod128Dec(Zahl128* a, const DecimalSatz* d);
void aMod64Hyp(Zahl64* a, const Long* h);
void aMod128Hyp(Zahl128* a, const Long* h);
void aModDec64(DecimalSatz* d, const Zahl64* b);
void aModHyp64(Long* h, const Zahl64* b);

/* ===== Decimal members without a caller =================================================
 * Magnitude only, like the rest of the Decimal family. */

void aMulDec2(DecimalSatz* d);                  /* doubling, cut to 96 bits */
void aDivDec2(DecimalSatz* d);                  /* halving, the low bit lost */
void aAndDec32(DecimalSatz* d, Long m);         /* d := d AND m (so the upper words become 0) */
void aGetWordsDec(DecimalSatz* d, Long lo, Long mid, Long hi); /* magnitude from three words */

/* ===== Hyp family =======================================================================
 * In place with a word (v, d, m read as unsigned). Room is counted in words beyond
 * element 0. */

void aAddHyp32(Long* h, Long v);        /* h += v; room count + 1 */
void aSubHyp32(Long* h, Long v);        /* h -= v; a v above the value leaves h as it was */
void aMulHyp32(Long* h, Long v);        /* h *= v; room count + 1 */
Long aDivHyp32(Long* h, Long d);        /* h := h div d; returns the old h mod d */
Long aModHyp32(const Long* h, Long m);  /* h mod m */
Long aCmpHyp32(const Long* h, Long v);  /* -1, 0, 1 */
Long aMODHyp120(const Long* h);         /* h mod 120 */
void aIncHyp(Long* h);                  /* h + 1; room count + 1 */
void aDecHyp(Long* h);                  /* h - 1; 0 stays 0 */
void aAddHyp2(Long* h);                 /* h + 2; room count + 1 */
void aSubHyp2(Long* h);                 /* h - 2; a value below 2 stays */
void aAddHyp8(Long* h);                 /* h + 8; room count + 1 */
void aMulHyp2(Long* h);                 /* 2h; room count + 1 */
void aDivHyp2(Long* h);                 /* h div 2 */
void aHypMul1FuenfPlus1(Long* h);       /* h := (3h + 1) / 2 for odd h (Collatz double step); room count + 1 */
void aNullHyp(Long* h, Long n);         /* h := 0 and words 1..n cleared; room n */
/* q := a div d (room: count of a), a := a mod d (count 1); returns the remainder too. */
Long aDivModHyp32(Long* q, Long* a, Long d);

/* Two Hyps. Product and quotient targets never overlap an operand; the library writes every
 * word of the result and sets the count, so a target need not be cleared first. */
void aAddHypHyp(Long* a, const Long* b);   /* a += b; room max(count a, count b) + 1 */
Long aSubHypHyp(Long* a, const Long* b);   /* a -= b unless b > a: 1 positive, 0 zero, -1 b greater (a kept) */
Long aCmpHypHyp(const Long* a, const Long* b);   /* -1, 0, 1 */
Long aEqualHypHyp(const Long* a, const Long* b); /* -1 if equal, else 0 */
Long aBereichHypHyp(const Long* x, const Long* lo, const Long* hi); /* -1 if lo <= x <= hi, else 0 */
void aMulHypHyp(Long* t, const Long* a, const Long* b); /* t := a b; room count a + count b */
void aQuadHyp(Long* t, const Long* a);                  /* t := a^2; room 2 count a */
/* t := a^2 as aQuadHyp; work (room count a + 1) is the caller's scratch, not needed here. */
void aQuadHypSpezial(Long* t, const Long* a, Long* work);
/* q := a div b (room count a - count b + 1), a := a mod b; b unchanged and not 0. */
void aDivHypHyp(Long* q, Long* a, const Long* b);
void aModHypHyp(Long* a, const Long* b);       /* a := a mod b */
void aModMersenneHyp(Long* h, Long p);         /* h := h mod (2^p - 1), by folding; p >= 1 */
/* a := (a - b) mod m for a, b below m (m added when b is greater); m not 0. Room count m + 1. */
void aSubModHypHyp1(Long* a, const Long* b, const Long* m);

/* Bits; bit 0 is the lowest bit of word 1. */
Long aBitTestHyp(const Long* h, Long i);   /* -1 if bit i is set, else 0 */
/* Sets bit i, raising the count (and clearing the words it passes) as needed; a fresh zeroed
 * array (count 0) is taken as 0. Room i / 32 + 1. */
void aSetBitHyp(Long* h, Long i);
Long aGetLowBitHyp(const Long* h);         /* number of the lowest set bit; -1 for 0 */
Long aGetHighBitHyp(const Long* h);        /* number of the highest set bit; -1 for 0 */
void aShiftLeftHyp(Long* h, Long n);       /* h := h * 2^n; room count + n / 32 + 1 */
void aShiftRightHyp(Long* h, Long n);      /* h := h div 2^n */
Long aIsEvenHyp(const Long* h);            /* -1 if even, else 0 */
Long aIsOddHyp(const Long* h);             /* -1 if odd, else 0 */

/* The an forms: three-address forms that leave their operands alone. The target comes
 * first, need not be cleared, must not overlap an operand, and needs the room of the
 * matching a form. Operands may be unnormalised (leading zero words, or a count of 0 for
 * zero); results are always normalised. */
void anAddHypHyp(Long* t, const Long* a, const Long* b);  /* t := a + b */
Long anSubHypHyp(Long* t, const Long* a, const Long* b);  /* t := a - b with aSubHypHyp's result; b > a leaves t 0 */
void anMulHypHyp(Long* t, const Long* a, const Long* b);  /* t := a b */
void anDivHypHyp(Long* q, Long* r, const Long* a, const Long* b); /* q := a div b, r := a mod b (room count a) */
void anModHypHyp(Long* r, const Long* a, const Long* b);  /* r := a mod b (room count b) */
Long anCmpHypHyp(const Long* a, const Long* b);           /* -1, 0, 1 */

/* ===== Hyp and Decimal ================================================================== */

Long aCmpHypDec(const Long* h, const DecimalSatz* d);  /* h against the magnitude: -1, 0, 1 */
void aAddHypDec(Long* h, const DecimalSatz* d);        /* h += magnitude; room max(count, 3) + 1 */
void aHyp2Dec(DecimalSatz* d, const Long* h);          /* magnitude := low 96 bits of h */
void aDec2Hyp(Long* h, const DecimalSatz* d);          /* h := magnitude, count set; room 3 */

/* ===== Number-theory kernels ============================================================ */

/* b^e mod m, all three unsigned; m up to 2^32 - 1 (m = 0 gives 0). */
Long aModPot32(Long b, Long e, Long m);
Long aGGT(Long a, Long b);                /* gcd of the unsigned words; gcd(a, 0) = a */
Long aModInverse(Long a, Long m);         /* x in 0..m-1 with a x = 1 mod m; 0 if none */
Long aMod2P(Long x, Long mask);           /* x AND mask */
Long aDivMod2(Long x, Long* rest);        /* returns x div 2 (unsigned), stores x mod 2 */
Long aMayBeQuadrat32(Long x);             /* 0 only if x is surely no square; -1 = maybe */
/* 0 if n has no divisor from 2 to r, else the smallest such divisor (n, r unsigned). */
Long aPrimMod(Long n, Long r);
/* B a Hyp (a multiple of 120), p an odd prime: the smallest odd r with p | B + r (p when
 * p | B); 4294967295 (-1), "nothing to strike", when p is below 3 or even or r needs more
 * than a word. */
Long aModHypSpecial(const Long* B, Long p);

/* Divisors of Mersenne numbers: the order of 2 modulo q, if it is at most limit, else 0
 * (also for an even q or q below 3). For a prime order p this is the one exponent with
 * q | 2^p - 1. The word form finds every order; the Dec and Hyp forms, for q above 32 bits,
 * the orders that divide q - 1, which are all orders of a prime q. */
Long aMersenneTeiler32(Long q, Long limit);
Long aMersenneTeilerDec(const DecimalSatz* q, Long limit);
Long aMersenneTeilerHyp(Long* q, Long* qKopie, Long limit); /* both hold q; left unchanged */
/* The greatest exponent still in question: the largest prime factor of x, so no prime
 * order above it can divide x (x itself for 0 and 1). The Dec and Hyp forms work from q:
 * the largest prime factor of the odd part of q - 1 where trial division below 2^16 settles
 * it, else that part with those factors divided out; cut to limit. q is left unchanged. */
Long aMersTeilerMaxReduce32(Long x);
Long aMersTeilerMaxReduceDec(DecimalSatz* q, Long limit);
Long aMersTeilerMaxReduceHyp(Long* q, Long limit);
/* table: n rows of four Longs (prime r, residue, step, long step). Adds column 3 (aTeiler-
 * StartOffset) or 4 (...2) to column 2 modulo column 1 in every row; -1 if some residue
 * became 0, else 0. */
Long aTeilerStartOffset(Long n, Long* table);
Long aTeilerStartOffset2(Long n, Long* table);
void aQuadSpecialDecMod64(DecimalSatz* x, const DecimalSatz* q);          /* x := x^2 mod q, q < 2^64 */
void aQuadSpecialDecMod64x(DecimalSatz* x, const DecimalSatz* q, Long b); /* x := x^2 2^b mod q, b 0 or 1 */
Long aIsInMers(Long p);                   /* -1 if 2^p - 1 is a known Mersenne prime, else 0 */

/* Word vectors (no count element; n words each, lowest first). The target is LAST. */
void aAddOp1PlusOp2(const Long* op1, const Long* op2, Long n, Long* target); /* target (n+1 words) := op1 + op2 */
void aQuadriere(const Long* source, Long n, Long* target);   /* target (2n words) := source^2 */
/* target -= sub1 + sub2 (n words each), the borrow running on through the target's words. */
void aSubSubFromErg(const Long* sub1, const Long* sub2, Long n, Long* target);
void aAddiere(const Long* source, Long n, Long* target);     /* target += source, carry running on */
void aSubtrahiere(const Long* source, Long n, Long* target); /* target -= source, borrow running on */
/* One Karatsuba recombination in a single pass: quadrat holds a0^2 (words 0 .. 2m-1) and a1^2
 * (2m .. 4m-1); quadrat += (summenQuadrat - a0^2 - a1^2) * 2^(32m), where summenQuadrat =
 * (a0 + a1)^2 has 2m + 1 words. The carry runs on through quadrat. */
void aKaratsubaMitte(const Long* summenQuadrat, Long m, Long* quadrat);
/* The Karatsuba middle term: erg -= sub1 + sub2 as aSubSubFromErg, then target += erg over
 * n + 2 words, the carry running on. */
void aSubSubFromErgAndAddTo(const Long* sub1, const Long* sub2, Long n, Long* erg, Long* target);
/* The Lucas-Lehmer step: residue (p/32 rounded up words) := (product mod 2^p - 1) - 2, taken
 * mod 2^p - 1; product holds a square of 2 (p/32 rounded up) words. -1 if the residue is 0. */
Long aFalt(Long p, const Long* product, Long* residue);
/* The same fold without the subtraction of 2. */
Long aFaltung(Long p, const Long* product, Long* residue);
void aMove(const Long* source, Long n, Long* target);        /* copies n words, overlap allowed */
void aMovForward(const Long* source, Long n, Long* target);  /* copies word by word from the lowest up */

/* Collatz (3n+1) sequences of the Decimal's magnitude; 3n+1 and each halving are one step
 * each. 0 and 1 have 0 steps. */
Long aUlamTest(const DecimalSatz* x, Long steps);  /* -1 if x reaches 1 in exactly that many steps */
Long aUlamTestMult(const DecimalSatz* x, Long mult); /* -1 if it does with exactly that many 3n+1 */
Long aUlamAnzi(const DecimalSatz* x);              /* the number of steps */

/* Hashes of a word into k bits (1..32): the k-bit pieces of x added / combined by xor. */
Long aHASH32(Long x, Long k);
Long aHASH32XOR(Long x, Long k);

/* Bytes of a Hyp, lowest first, into bytes (room 4 count); returns the count without
 * leading zero bytes (1 for the value 0). */
Long aByteString(uint8_t* bytes, const Long* h);
/* h := the number of the n bytes, lowest first, count set; room n / 4 + 1. */
void aCardinal(Long* h, const uint8_t* bytes, Long n);

#ifdef __cplusplus
}
#endif

#endif /* ZAHLKERN_H */
