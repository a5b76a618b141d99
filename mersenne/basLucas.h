// basLucas: the Lucas-Lehmer test of a Mersenne number 2^p - 1, S(1) = 4, S(i+1) = S(i)^2 - 2
// modulo 2^p - 1; 2^p - 1 is prime exactly when S(p-1) is 0. The squares are GMP's; the
// reduction needs no division, since 2^p = 1 modulo 2^p - 1: the bits above p are added onto
// the low p bits.
#pragma once

#include <cstdint>

namespace sw {

enum class LucasErgebnis { Prim, Zusammengesetzt, Abgebrochen };

// Decides 2^p - 1 for any p: p = 2 gives the prime 3, p below 2 and composite p give
// composite numbers (2^ab - 1 is divisible by 2^a - 1) without a single squaring. A prime p
// runs the p - 2 steps, yielding about every twentieth of a second; Abbruch stops it.
LucasErgebnis LucasLehmer(uint32_t p);

}  // namespace sw
