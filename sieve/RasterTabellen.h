// RasterTabellen: the layout of the raster and the read-only tables every sieve and query
// works from. One 32-bit word covers 120 integers; only the 32 residues coprime to 30 have a
// bit, bit 1 (residue 1) being the most significant. A set bit means struck out.
// The tables are built once by RasterTabellenAufbauen at start-up and never change.
#pragma once

#include <cstdint>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

inline constexpr int32_t RasterSpanne = 120;          // integers per raster word
inline constexpr int32_t GrenzeLong = 2000000000;     // largest value on the 32-bit paths
inline constexpr int32_t MersenneDbSegment = 200000000;
inline constexpr uint32_t RasterWort0 = 0x80040881u;  // word 0 of a finished primary raster

extern uint32_t BitMaske[33];       // [1..32]: mask of bit i, 0x80000000 >> (i-1)
extern uint32_t BitMaske0[32];      // [0..31]: BitMaske[i+1], for loops counting from 0
extern int32_t RasterRest[33];      // [1..32]: residue of bit i (1, 7, 11, ..., 119)
extern uint32_t RestMaske[121];     // [0..120]: residue to mask, 0 if not coprime to 30 (and 120)
extern int32_t ProduktWort[32 * 32];   // [a*32+b]: (RasterRest[a+1]*RasterRest[b+1]) div 120
extern uint32_t ProduktMaske[32 * 32]; // [a*32+b]: RestMaske[(RasterRest[a+1]*RasterRest[b+1]) mod 120]
extern int32_t RadSchritt[8];       // 6,4,2,4,2,4,6,2: steps of the wheel of 30 from 1
extern Decimal Dec0, Dec1, Dec2, Dec3;
extern Decimal Zweierpotenz[96];    // 2^0 .. 2^95
extern std::vector<int32_t> Hyp0, Hyp1, Hyp2;  // 0, 1 and 2 as Hyp numbers

// Builds every table above, sets the scalar defaults of the central module and reads the
// exponents of the known Mersenne primes (text key 999) when sw.TEX can be read.
void RasterTabellenAufbauen();

}  // namespace sw
