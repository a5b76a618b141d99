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

// Calls ausgabe(n) for every clear bit of raster[erstes .. ende) read as the number
// basis0 + 120 * word + residue, for von <= n <= bis in ascending order, until ausgabe returns
// false. Full words are skipped with one comparison, and the clear bits are found by counting
// leading zeros. Shared by the primary raster (64-bit numbers) and the secondary range
// (128-bit numbers).
template <typename Zahl, typename Ausgabe>
void FreieBitsDurchlaufen(const uint32_t* raster, uint64_t erstes, uint64_t ende, Zahl basis0, Zahl von, Zahl bis,
                          Ausgabe&& ausgabe) {
    for (uint64_t w = erstes; w < ende; ++w) {
        const uint32_t wort = raster[w];
        if (wort == 0xFFFFFFFFu) continue;
        const Zahl basis = basis0 + Zahl(w) * Zahl(RasterSpanne);
        if (basis > bis) return;
        for (uint32_t frei = ~wort; frei;) {
            const int i = __builtin_clz(frei);
            frei &= ~(0x80000000u >> i);
            const Zahl n = basis + Zahl(unsigned(RasterRest[i + 1]));
            if (n < von) continue;
            if (n > bis) return;
            if (!ausgabe(n)) return;
        }
    }
}

// Builds every table above, sets the scalar defaults of the central module and reads the
// exponents of the known Mersenne primes (text key 999) when sw.TEX can be read.
void RasterTabellenAufbauen();

}  // namespace sw
