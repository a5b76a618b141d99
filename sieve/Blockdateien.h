// Blockdateien: a finished raster on disk, so that a range that took minutes to sieve loads
// in a moment. Raw little-endian words, no header; the name alone says the limit:
// "P" + two-digit exponent + leading digit + ".BLK" for a limit d * 10^e.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

// "P082.BLK" for 200,000,000; "" for a limit that is not a digit followed by zeros.
std::string BlockName(const Decimal& grenze);
// The name of the first round limit at or above PrimaerGrenze.
std::string NaechsterBlockName();
// Loads the words 0..RasterLetzterIndex of a file into PrimaerRaster; RasterLetzterIndex
// stays. On failure shows "SW - Speicher" (or a clear message for an unreadable file) and gives
// false; the raster may then be gone (one word) or partly read, and must be built anew.
bool BlockLaden(const std::string& pfad);
// A larger block file of ProgrammPfad, loaded and cut down to PrimaerGrenze; false if none.
bool GroesserenBlockNutzen();
// True if the file part of the path is "P" + three digits + ".BLK" (ending in any case).
bool BlockDateiGueltig(const std::string& pfad);
// Writes all words of a raster to a file, which it replaces whole. False, after a clear
// message, if the file cannot be written.
bool RasterSpeichern(const std::string& pfad, const std::vector<uint32_t>& raster);
// The load of mnuLaden after the dialog and the preparation: the limit derived from the
// length (never above the one the file was saved at), the words up to it read,
// PrimaerWurzel(Wort) anew, LaufAbschliessen, RasterEcht = BlockDateiGueltig. False (after a
// message) on failure; the raster in memory stays unless the read itself failed.
bool PrimaerBlockLaden(const std::string& pfad);

}  // namespace sw
