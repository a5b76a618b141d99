// MersenneWert: the Mersenne number 2^p - 1 written out, and the walk from prime exponent to
// prime exponent, for the windows that show or test 2^p - 1. A number of millions of digits
// is never converted whole for a display that shows 4,010 characters at most: the first
// digits come from one division by a power of ten, the last from a power modulo 10^2000.
#pragma once

#include <cstdint>
#include <string>

namespace sw {

// The largest exponent whose value is written out (2^p - 1 then has 30,102,999 digits).
inline constexpr uint32_t MersenneWertHoechstExponent = 100000000;
// Digits shown at each end of a value too long to show whole.
inline constexpr size_t MersenneWertRand = 2000;
inline constexpr size_t MersenneWertGanzBis = 4010;

// 2^p - 1 in decimal digits: whole up to 4,010 digits, else the first and the last 2,000
// joined by " ... ". p above MersenneWertHoechstExponent is a Laufzeitfehler.
std::string MersenneWertText(uint32_t p);
// The number of decimal digits of 2^p - 1 (1 for p = 0 and 1).
uint64_t MersenneStellen(uint32_t p);

// What the divisor database knows of 2^p - 1, as one line: nothing yet (an exponent without a
// row or a limit), its first known divisor, or else whether it is a known Mersenne prime or has
// no divisor up to the stored limit. Without a database file for p's segment nothing is created
// and the line says that no database is open. A damaged file is a Laufzeitfehler.
std::string MersenneWissen(uint32_t p);

// The next (richtung 1) or previous (-1) prime exponent from p, within 3 .. 2^32 - 1; 0 when
// there is none that way.
uint32_t PrimExponentSchritt(int64_t p, int richtung);

}  // namespace sw
