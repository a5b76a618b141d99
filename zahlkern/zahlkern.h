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
/* dec mod m (m read as unsigned, not 0); dec unchanged. */
Long aModDec32(const DecimalSatz* dec, Long m);
/* dec := dec div d (d unsigned, not 0); returns the old value's remainder. */
Long aDivDec32(DecimalSatz* dec, Long d);
/* dec := dec - (dec mod m): the largest multiple of m not above it. Returns that remainder. */
Long aLowModDec32(DecimalSatz* dec, Long m);
/* dec := dec rounded down to a multiple of 120. */
void aDecAuf120Kappen(DecimalSatz* dec);
/* dec div d as a Long (the caller guarantees it fits); dec unchanged. */
Long aDivDec2Long(const DecimalSatz* dec, Long d);
/* dec mod 120, dec mod 8, dec mod 2 of the full 96-bit magnitude; dec unchanged. */
Long aMODDec120(const DecimalSatz* dec);
Long aMODDec8(const DecimalSatz* dec);
Long aMODDec2(const DecimalSatz* dec);
/* a := a mod b on the signed values (truncating division): the remainder has the sign of a. */
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

#ifdef __cplusplus
}
#endif

#endif /* ZAHLKERN_H */
