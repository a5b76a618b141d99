// basMaxPrimaer: the raster's allocation and pre-sieve, the main sieve SiebProdukt with its
// square pass, and PrimModifikation, which strikes only the primes up to a bound.
#pragma once

#include <cstddef>
#include <cstdint>

namespace sw {

// Gives up the old raster, then allocates PrimaerRaster with worte zero words, on huge pages
// where the system has them. Throws std::bad_alloc (also for more than the machine's memory).
void RasterNeuAnlegen(size_t worte);
// After a failed allocation or load: a raster of one zero word, and an index that says so,
// so that no reader looks beyond it.
void RasterAufEinWort();
// Reallocates PrimaerRaster to 0..RasterLetzterIndex, zeroed; "SW - Speicher" and false on failure.
bool RasterAnlegen();
// RasterAnlegen, then the multiples of 7 and 11 and the bit of 1.
bool RasterVorsieben();
// The same for a step inside a run, whose caller reports the failure: throws std::bad_alloc,
// and the old raster is gone then.
void RasterNeuVorsieben();
// Method 0: strikes the products of unstruck numbers, then the square pass.
void SiebProdukt();
// Strikes n^2 for the odd n from 13 to PrimaerWurzel.
void QuadrateStreichen();
// Strikes every bit of the raster that stands for a number above PrimaerGrenze, so that
// the words beyond the limit read the same whichever method or file left them.
void UeberGrenzeStreichen();
// A raster struck only by the primes up to grenze (frmPrimModify).
void PrimModifikation(int32_t grenze);

}  // namespace sw
