// PrimBeweis: the step that tries to turn a probable prime into a proven one, called once
// after a test has let a number pass. A proof from the factors of n - 1 (Pocklington,
// Brillhart-Lehmer-Selfridge) belongs here; until it stands, nothing is proven this way.
#pragma once

#include "zahlkern/Hyp.h"

namespace sw {

// True when n is proven prime from a factorisation of n - 1.
inline bool NMinusEinsBeweis(const Hyp& /*n*/) { return false; }

}  // namespace sw
