// Bereichsgang: a range of any height walked as the windows of the distribution need it. The
// part up to the primary raster's limit is read from the raster; the rest is sieved window by
// window as the secondary range, by the primes up to the root of each window's end, as far
// as the raster reaches.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "frame/Decimal.h"

namespace sw {

using Zahl128 = unsigned __int128;

// Whether [von, bis] can be walked exactly with the raster as it stands (bis up to
// SekundaerExaktBis).
bool BereichExakt(const Decimal& bis);

// primaer(a, b) once for [von, bis] ∩ the raster, then fenster(a, b) for each window's part
// above it, ascending; each returns false to stop. False if stopped or when a window finds no
// memory ("SW - Speicher" shown).
bool BereichGehen(Zahl128 von, Zahl128 bis, const std::function<bool(Zahl128, Zahl128)>& primaer,
                  const std::function<bool(Zahl128, Zahl128)>& fenster);

// The words of a raster that hold [von, bis]: words erstes .. letztes - 1 of woerter, word w
// holding basis + 120w ..; bis cut to what the raster holds.
struct RasterStrecke {
    const uint32_t* woerter;
    uint64_t erstes, letztes;
    Zahl128 basis, bis;
};
// Of the primary raster (its last word may hold bits above the limit that were never sieved,
// so bis is cut at the limit) and of the secondary window; nothing if none of [von, bis] is in it.
std::optional<RasterStrecke> PrimaerStrecke(Zahl128 von, Zahl128 bis);
std::optional<RasterStrecke> SekundaerStrecke(Zahl128 von, Zahl128 bis);

}  // namespace sw
