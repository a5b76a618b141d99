// CollatzBalken: the arithmetic of the bar graphic, apart from its drawing. Which start value a
// bar shows, how many bars fit, how many pixels one mark takes, where the navigation leads, and
// the marks of one bar. Start values are numbers of any size; the step is a signed word.
#pragma once

#include <cstdint>
#include <string>

#include "primality/HypMpz.h"

namespace sw {

// Bars across an extent of quer pixels, each balken wide with 2 pixels between: never below 0.
int32_t BalkenAnzahl(int32_t quer, int32_t balken);
// The bar under a position across (the left edge of the first bar is 5).
int32_t BalkenIndex(int32_t position, int32_t balken);
// Pixels per mark along an extent of laengs pixels for skalaMax marks: whole pixels while the
// longest bar fits, a fraction of a pixel when it would not.
double BalkenMass(int32_t laengs, int32_t skalaMax);

// The start value of bar index: start + index * schritt; a bar below 0 shows 0 (an empty bar).
Mpz BalkenWert(const Mpz& start, int64_t schritt, int64_t index);
// The marks of the bar of wert: its line of the method (CollatzZeile) behind the first "=".
std::string BalkenMarken(const Mpz& wert, int32_t verfahren, int32_t k);

// Navigation codes: 0 to the first start (the step), 1 one page back, 2 one step back, 3 one
// step forward, anything else one page forward; a page is as many steps as bars fit in quer.
// Going back never goes below the step.
Mpz BalkenNavigation(int32_t code, const Mpz& von, int64_t schritt, int32_t quer, int32_t balken);

}  // namespace sw
