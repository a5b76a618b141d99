// SiebSegmentiert: the eighth build method. The primary raster is sieved in cache-sized pieces
// by the engine of the secondary windows (pre-sieved pattern, per-prime cycles of the 32
// residues, buckets for the large primes), with its sieving primes taken from a small sieve up
// to the root of the limit, so that no piece reads another. The raster is split into one
// contiguous part per worker thread; the calling thread only yields and shows progress.
#pragma once

#include <cstdint>
#include <vector>

namespace sw {

// Worker threads of the segmented build; 0 means one per core.
extern int32_t SiebFaeden;
// SiebFaeden as it will be used: at least 1.
int32_t SiebFaedenWirksam();

// The primes 7 <= p <= grenze in ascending order, by a plain sieve of the odd numbers (grenze
// is a root, a few hundred thousand at most).
std::vector<uint32_t> KleinePrimzahlen(uint64_t grenze);

// Reports the share done of a run in percent, for the window that shows it; nullptr if none.
extern void (*SiebFortschrittHook)(int32_t prozent);

// Method 7: fills PrimaerRaster (allocated for 0..RasterLetzterIndex) as SiebProdukt does up
// to the limit. Yields once per piece; when Abbruch is set the threads stop and the run ends
// with Laufzeitfehler 1700. A worker's std::bad_alloc is passed on once all have stopped.
void SiebSegmentiert();

}  // namespace sw
