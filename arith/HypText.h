// HypText: Hyp numbers to decimal text and back, and the display form of a large number.
// Both directions are divide and conquer by the powers 10^(9*2^k) (in other bases by the
// powers of the largest power of the base that fits a word), so a number of a million
// digits converts in a few tenths of a second through the library's wide products and
// quotients; only pieces of a few dozen words go word by word.
#pragma once

#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

// Decimal digits without leading zeros; "0" for zero. An interruptible conversion yields
// through RechnenYield during a long text and ends with its Laufzeitfehler on a stop.
std::string Hyp2Text(const Hyp& h, bool unterbrechbar = false);
// The same text; the zero test goes through aCmpHyp32, as callers that build a Hyp by hand
// with a count of 0 expect.
std::string Hyp2TextNull(const Hyp& h);

// The text grouped by FormatZeichen every FormatAnzahl digits and, when it has more than
// MaxFormatStellen digits, shortened to its two ends around " ... "; with StellenZahlAnzeigen
// the digit count stands in front in parentheses.
std::string Hyp2Anzeige(const Hyp& h);
std::string Hyp2AnzeigeNull(const Hyp& h);
// The same for a digit text already at hand; digits of other bases are shortened, not grouped.
std::string ZiffernAnzeige(const std::string& ziffern, bool gruppieren = true);

// A decimal text to a Hyp. "#k", a reference into an evaluation's store, is refused here
// (Laufzeitfehler 9): outside an evaluation there is no store to read. Otherwise the
// text is trimmed, "." and FormatZeichen are dropped, and every other character is one digit,
// a non-digit counting as 0. The result's upper bound is its count.
Hyp Text2Hyp(const std::string& text);
// The same without the "#k" case.
Hyp Ziffern2Hyp(const std::string& text);

// h in any base from 2 on with the digit rules of ZahlInBasis: decimal digits up to base 10,
// letters from "A" in base 16, each digit as a decimal number and a blank in any other base
// (so base 1000 shows 1000^2 as "1 0 0 ").
// Powers of two read the bits directly; other bases split by powers of the base as decimal
// text does.
std::string HypInBasis(const Hyp& h, int32_t basis, bool unterbrechbar = false);

}  // namespace sw
