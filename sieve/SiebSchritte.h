// SiebSchritte: three of the cockpit's build methods that strike the multiples of each prime
// from its square on, each walking them in its own way. They exist beside SiebProdukt so
// that the stop watch can compare ways of walking the raster; all leave the same primes.
// Their values are integers up to GrenzeLong, so a larger limit is refused before the run.
#pragma once

namespace sw {

// Method 1: p from 13 by the wheel; p squared, the distance to the next odd square and 2p
// as quotient and remainder by 120 carried along without a multiplication.
void SiebQuadratSchritt();
// Method 2: for each prime of the sieving words, p^2, p^2 + 2p, ... up to PrimaerGrenze.
void SiebWortSchritt();
// Method 6: as method 2, but two chains of step 6p, the multiples coprime to 6.
void SiebSechserSchritt();

}  // namespace sw
