// basSiebwerk: the questions the rest of the program puts to the primary raster, and the
// seventh build method. All read PrimaerRaster only and treat 2, 3 and 5 by hand, since
// they have no bits. A result of 0 means there is no such prime in the range.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "frame/Decimal.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

bool IstPrim(const Decimal& n);
Decimal NaechstePrim(const Decimal& n);      // smallest prime > n, 0 beyond the limit
int32_t NaechstePrimLong(int32_t n);
Decimal VorherigePrim(const Decimal& n);     // greatest prime < n, 0 if none
Decimal PrimAnzahl(const Decimal& von, const Decimal& bis);  // whole words by popcount
// The prime factors as text, "2x2x3x7": 2, 3 and 5 by hand, then trial division by the
// raster; a "?" at the end marks a last factor the raster could not prove prime (it lies
// beyond the square of the limit). 1 gives "". 0 and negative numbers are Laufzeitfehler 5.
std::string FaktorenText(const Decimal& n);
// The factorisation window asks the same question under this name; one logic answers both.
inline std::string FaktorText(const Decimal& n) { return FaktorenText(n); }
// The two trial walks behind it, for a rest free of 2, 3 and 5 that is not 1: below the limit
// and not prime (FaktorPrimaer), or at or above the limit (FaktorSekundaer). Each appends "x"
// and every factor to text, the last rest included, and leaves rest at 1.
void FaktorPrimaer(Decimal& rest, std::string& text);
void FaktorSekundaer(Decimal& rest, std::string& text);
int32_t MersenneNaechsterExponent(int32_t n);
// Method 3: the block file of the limit, else a larger one cut down, else SiebProdukt on a
// raster pre-sieved anew. Throws std::bad_alloc when that raster cannot be had.
void BereichBeschaffen();

// The number of zero bits in a run of raster words, at the speed of memory.
uint64_t NullBitsZaehlen(const uint32_t* worte, size_t anzahl);

// The enumerating loop of every caller that lists primes: calls ausgabe(p) for each prime
// von <= p <= bis in ascending order, 2, 3, 5 first, until ausgabe returns false.
// Numbers beyond the raster's last word are never looked at; the caller keeps bis at or below
// PrimaerGrenze, since the last word may hold clear bits above it.
template <typename Ausgabe>
void PrimzahlenDurchlaufen(uint64_t von, uint64_t bis, Ausgabe&& ausgabe) {
    for (uint64_t klein : {2, 3, 5}) {
        if (klein >= von && klein <= bis && !ausgabe(klein)) return;
    }
    if (von < 7) von = 7;
    const uint64_t rasterEnde = uint64_t(RasterLetzterIndex) * RasterSpanne + RasterSpanne - 1;
    if (bis > rasterEnde) bis = rasterEnde;
    if (von > bis) return;
    FreieBitsDurchlaufen(PrimaerRaster.data(), von / RasterSpanne, bis / RasterSpanne + 1, uint64_t(0), von, bis,
                         ausgabe);
}

}  // namespace sw
