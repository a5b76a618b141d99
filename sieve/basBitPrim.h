// basBitPrim: the primary sieve turned inside out. For each prime it strikes one residue
// class modulo 120p after the other: a fixed mask, written every p words. Its tables are its
// own and built anew for each run, so that the method stands apart from the shared ones.
#pragma once

namespace sw {

// Method 5.
void SiebRestklassen();

}  // namespace sw
