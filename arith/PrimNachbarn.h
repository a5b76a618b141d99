// PrimNachbarn: the next and the previous prime of the calculator for every number the sieve
// can decide, up to the square of the primary limit. Inside the primary raster they are read
// from it; beyond it small windows are sieved by the secondary sieve's engine into a raster
// of their own, so that the range the display shows stays as it is.
#pragma once

#include "frame/Decimal.h"

namespace sw {

// The smallest prime above n; 0 when it would lie beyond the square of the limit or no raster
// has been built. Yields between windows (a stop is Laufzeitfehler 18).
Decimal PrimNach(const Decimal& n);
// The greatest prime below n; 0 when there is none, when a number between it and n lies
// beyond the square of the limit, or when no raster has been built.
Decimal PrimVor(const Decimal& n);

}  // namespace sw
