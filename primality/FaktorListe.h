// FaktorListe: the logic of the factor list window. A run of numbers around a start value,
// each with its prime factors from the raster, and the eight steps that move the start value
// (by a difference, by a factor, to the prime next to the last value). All within the primary
// range: a number beyond it has no answer from the raster.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

struct FaktorZeilen {
    std::vector<std::string> zeilen;  // "84 >>> 2x2x3x7", "97 >>> Primzahl"
    int32_t auswahl = -1;             // the line of the start value, -1 if it has none
};

// The most lines one list shows; the list is built without a yield.
inline constexpr int64_t FaktorListeHoechstens = 100001;

// True when the typed start value may be used: at most 10 digits without grouping and a
// value from 2 up to the raster's limit.
bool FaktorStartGueltig(const std::string& text);

// The list for start, step and count either side. Numbers below 2 or beyond the limit are left
// out. A step below 1 or more than FaktorListeHoechstens lines are Laufzeitfehler 5 with a
// message that names the field.
FaktorZeilen FaktorListeBauen(const Decimal& start, const Decimal& schritt, const Decimal& plusMinus);

// The new start value of step index (0..7) from the start value x, the difference a and the
// last value stepped to (letzter, updated). nullopt when the value would leave 2 .. limit, or a
// prime next to the last value does not exist in the raster; letzter is then 1.
// Division by a = 0 is Laufzeitfehler 11.
std::optional<Decimal> FaktorSchritt(int index, const Decimal& x, const Decimal& a, Decimal& letzter);

}  // namespace sw
