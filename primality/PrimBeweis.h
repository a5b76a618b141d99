// PrimBeweis: proofs that a probable prime is prime. The N-1 proof (Pocklington, with the
// refinement of Brillhart, Lehmer and Selfridge) needs the proved prime factors of N-1 up to
// a part F beyond the cube root of N: then every prime factor of N is 1 mod F, and one square
// test decides. N-1 is factored with a bounded effort, so the proof either comes quickly or
// not at all; false means "not proved", never "composite".
#pragma once

#include <gmp.h>

#include <cstdint>

#include "zahlkern/Hyp.h"

namespace sw {

bool NMinusEinsBeweis(const Hyp& n);
// The same on an mpz. tiefe counts the proofs above this one in a chain (a factor of N-1 may
// need a proof of its own); beyond a few levels the proof gives up.
bool NMinusEinsBeweis(mpz_srcptr n, int32_t tiefe);

}  // namespace sw
