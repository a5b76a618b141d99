// Zahlformat: the number texts of SW. Every number a person sees goes through ZahlFormat,
// grouped by the display settings (FormatZeichen every FormatAnzahl digits); every number a
// person types goes through ZahlBereinigt and TextZuLong / TextZuDecimal.
#pragma once

#include <cstdint>
#include <string>

#include "frame/Decimal.h"

namespace sw {

// The main formatter: dots and grouping characters out, trimmed, a fraction behind ","
// cut away, leading zeros cut (at least one digit stays), then grouped. A minus sign stays in
// front of the groups.
std::string ZahlFormat(const std::string& v);
std::string ZahlFormat(const Decimal& v);
std::string ZahlFormat(long long v);
std::string ZahlFormat(double v);
// A measured value for the display: stellen places behind a decimal comma, ungrouped.
std::string KommaZahl(double v, int stellen);
// A plain digit text grouped from the right by FormatZeichen every FormatAnzahl digits;
// linear in the length, so that a million digits group in a millisecond.
std::string ZiffernGruppieren(const std::string& ziffern);
// As ZahlFormat, but leading zeros are kept.
std::string ZahlFormatRoh(const std::string& v);
// A Long, grouped.
std::string ZahlFormatLong(int32_t n);
// True if the text is a number in the platform's sense: blanks, a sign, digits with an
// optional fraction behind "," or ".", an optional exponent. Its value goes to *wert.
bool IstNumerisch(const std::string& text, double* wert = nullptr);
// "." and FormatZeichen taken out, trimmed.
std::string ZahlBereinigt(const std::string& text);
// A typed number as Long: a value from GrenzeLong + 1 up shows text 200 and gives GrenzeLong.
// Not a number: Laufzeitfehler 13; below the Long range: Laufzeitfehler 6.
int32_t TextZuLong(const std::string& text);
// A typed number as Decimal: empty or blank gives 0; not a number: Laufzeitfehler 13.
Decimal TextZuDecimal(const std::string& text);
// v in the base ZahlenSystem: digits 0-9, in base 16 letters from "A", in any other base
// above 10 each digit as a decimal number followed by a blank.
std::string ZahlInBasis(const Decimal& v);
// The name of the base ZahlenSystem: keys 175 (2), 176 (8), 174 (10), 177 (16), else 178.
std::string BasisBeschriftung();
// The number of decimal digits of 2^n, as int(n * log10(2)) + 1, formatted.
std::string Stellen2hoch(int32_t n);

}  // namespace sw
