// PrimaerLauf: one run of the primary range as logic, shared by the cockpit and sw-cli:
// the limit and its derived values, the refusal of methods that cannot take the limit, the
// pre-sieve, the method itself and the finishing steps. The cockpit wraps it with its
// controls (buttons, status line, stop watch); sw-cli with its output.
#pragma once

#include <cstdint>
#include <string>

#include "frame/Decimal.h"

namespace sw {

enum SiebMethode : int32_t {
    MethodeProdukt = 0,          // SiebProdukt
    MethodeQuadratSchritt = 1,   // SiebQuadratSchritt
    MethodeWortSchritt = 2,      // SiebWortSchritt
    MethodeBereichBeschaffen = 3,// BereichBeschaffen (block file, else SiebProdukt)
    MethodeQuadratDifferenz = 4, // SiebQuadratDifferenz
    MethodeRestklassen = 5,      // SiebRestklassen
    MethodeSechserSchritt = 6,   // SiebSechserSchritt
    MethodeSegmentiert = 7,      // SiebSegmentiert
};
inline constexpr int32_t MethodenAnzahl = 8;

// The function name of a method ("SiebProdukt", ...).
const char* MethodenName(int32_t methode);
// The largest limit a raster can have: word indices are signed 32-bit, with one to spare.
Decimal GroessteGrenze();
// Step 1 of a run: a limit below 1000 shows text 469, one above GroessteGrenze the box
// "SW - Grenze", and gives false; else sets
// PrimaerGrenze, RasterLetzterIndex, PrimaerWurzel, PrimaerWurzelWort.
bool GrenzeSetzen(const Decimal& grenze);
// Step 2: a limit above GrenzeLong with a method other than 0, 3 and 7 shows text 520; false.
bool MethodeZulaessig(int32_t methode);
// Runs the method on the pre-sieved raster (RasterVorsieben must have succeeded). Method 3
// throws std::bad_alloc when, after a failed load, the raster cannot be had anew; the run is
// then void and its caller shows "SW - Speicher".
void MethodeAusfuehren(int32_t methode);
// Step 6 and 7's logic: RasterEcht, PrimaerQuadrat, word 0 = 0x80040881, RasterBereit.
void LaufAbschliessen();
// After a run that could not finish: no raster, no limit, one word that no reader goes
// beyond, so that nothing reads a raster that is not there.
void LaufVerworfen();
// The whole road without a window: GrenzeSetzen, MethodeZulaessig, RasterVorsieben,
// MethodeAusfuehren, LaufAbschliessen. False (after its box) if any step refused.
bool PrimaerLauf(const Decimal& grenze, int32_t methode);

}  // namespace sw
