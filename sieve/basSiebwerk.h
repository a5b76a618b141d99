// basSiebwerk: the questions the rest of the program puts to the primary raster, and the
// seventh build method. All read PrimaerRaster only and treat 2, 3 and 5 by hand, since
// they have no bits. A result of 0 means there is no such prime in the range.
#pragma once

#include <cstdint>
#include <string>

#include "frame/Decimal.h"

namespace sw {

bool IstPrim(const Decimal& n);
Decimal NaechstePrim(const Decimal& n);      // smallest prime > n, 0 beyond the limit
int32_t NaechstePrimLong(int32_t n);
Decimal VorherigePrim(const Decimal& n);     // greatest prime < n, 0 if none
Decimal PrimAnzahl(const Decimal& von, const Decimal& bis);  // whole words by popcount
std::string FaktorenText(const Decimal& n);  // "2x2x3x7"; "?" behind an unproved last factor
int32_t MersenneNaechsterExponent(int32_t n);
// Method 3: the block file of the limit, else a larger one cut down, else SiebProdukt.
void BereichBeschaffen();

}  // namespace sw
