// basRechnen: number theory on Hyp numbers and words that the program writes itself on top of
// zahlkern: powers (plain and modular), gcd and inverse, the Jacobi symbol, and the helpers
// on words of the divisor searches, the primitive-root tools and the byte arrays of the FFT.
// Every function works on its own copies; its arguments stay as they were.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"
#include "zahlkern/Hyp.h"

namespace sw {

// The constants 0, 1 and 2 (count 1); functions that answer 0 or 1 return copies of them.
extern const Hyp HypNull;
extern const Hyp HypEins;
extern const Hyp HypZwei;

// The largest result in bits that a power, product or sequence function may build; above it
// the call is refused with Laufzeitfehler 6 before any memory is taken. A setting.
extern int64_t HoechstBits;
inline constexpr int64_t HoechstBitsStandard = 100000000;

// A text of section [Calculator] of sw.TEX (the key itself if it is missing), "#P1" and "#P2"
// replaced: the messages of the evaluator and the calculator.
std::string RechenText(const std::string& key, const std::string& p1 = "", const std::string& p2 = "");
// Refuses a result of more than HoechstBits bits (Laufzeitfehler 6 naming the size).
void GroessePruefen(double bits);
// Gives the event loop a turn; a stop of the user ends the computation with Laufzeitfehler 18.
void RechnenYield();

// b^e; e = 0 gives 1 (also for b = 0). Yields at every squaring from a few thousand words on.
Hyp HypPotenz(const Hyp& b, const Hyp& e);
// b^e mod m for a word base b; e = 0 gives 1. m must not be 0 (Laufzeitfehler 11).
Hyp HypPotenzMod(int32_t b, const Hyp& e, const Hyp& m);
// 2^e mod m, the Fermat test's power; e = 0 gives 1. m must not be 0 (Laufzeitfehler 11).
Hyp ZweiPotenzMod(const Hyp& e, const Hyp& m);

Hyp HypGGT(const Hyp& a, const Hyp& b);
// The inverse of a modulo m in 0..m-1, or 0 when gcd(a, m) is not 1.
Hyp HypModInverse(const Hyp& a, const Hyp& m);

// (a / n) for a word a (unsigned) and a Hyp n; 0 unless n is odd and above 1.
int32_t JacobiSymbol(int32_t a, const Hyp& n);

// The 96 bits of the magnitude as "!" (set) and "." (clear), from the highest word in use.
std::string DecBitBild(const Decimal& d);
// k of a Mersenne divisor q = 2kp + 1, from the text of q.
std::string TeilerK(const std::string& q, int32_t p);
// The 16 steps of the period-120 wheel through the candidates 1 or 7 mod 8 prime to 15,
// by class: c <= 0 all of them, c = 1 and c > 1 the two halves of the Mersenne divisor search.
std::vector<int32_t> TeilerSchritte(int32_t c);
// The distinct prime factors of x (x >= 1), in an array from index 1 (element 0 unused).
std::vector<int32_t> PrimfaktorenLong(int32_t x);
// True if a is a primitive root of the prime p, given the distinct factors of p - 1 (from 1).
bool IstPrimitivwurzel(int32_t a, int32_t p, const std::vector<int32_t>& faktoren);
// The smallest primitive root of the prime p (p >= 3; 1 for p = 2).
int32_t Primitivwurzel(int32_t p);
// Bit-reversal permutation of a[0 .. n-1], n a power of two.
void BrevOrder(std::vector<int32_t>& a, int32_t n);
// The L bytes of h one to an element, lowest first, in an array of upper bound
// 2^(bits of L-1) + 1 (the rest 0): room for the convolution of two such numbers.
std::vector<int32_t> Int2FFTArr(const Hyp& h);
// Carries the elements of a convolution into bytes and makes the Hyp of them.
Hyp FFTArr2Int(std::vector<int32_t> a);
// The inverse of a modulo m in 0..m-1, or 0 when gcd(a, m) is not 1.
int32_t ModInverseLong(int32_t a, int32_t m);
int32_t GGTLong(int32_t a, int32_t b);

}  // namespace sw
