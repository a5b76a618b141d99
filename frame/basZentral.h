// basZentral: the public state of the program. Everything that more than one window needs
// lives here: the running job's flags, the display settings, the random raster settings and
// the variables of the primary and secondary range. One thread reads and writes them; the
// only concurrency is re-entry through DoEvents, so they are plain variables.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

// ---- running job -------------------------------------------------------------------------
extern bool Abbruch;               // the user asked the running job to stop
extern double StartZeit;           // Timer() when the running job began
extern std::string AktivesFenster; // caption of what opened the window being opened: its help key
extern std::string ProgrammPfad;   // folder of SW.Ini, block files and the database; ends in "/"

// ---- display settings (filled from the cockpit's option pages) ---------------------------
extern std::string FormatZeichen;  // grouping character, "" for none
extern int32_t FormatAnzahl;       // digits per group, 0 for none
extern int32_t MaxFormatStellen;   // digit count from which large numbers are shortened
extern int32_t NachKommaExtern;    // decimals shown
extern int32_t NachKommaIntern;    // decimals computed
extern bool StellenZahlAnzeigen;   // show the digit count of large numbers
extern int32_t ZahlenSystem;       // number base of ZahlInBasis
extern int32_t GrossZahlFarbe[4];  // lblCol(0..3): 1/0 back/fore of large numbers, 3/2 of texts
extern bool StoppUhrAktiv;
inline constexpr const char* DezimalTrenner = ",";

// ---- random raster -----------------------------------------------------------------------
extern double RandomProzentFaktor;
extern int32_t RandomFaktorBitKette;
extern std::string RandomInfoText;
extern int32_t RandomPrimIntervall;

// ---- primary and secondary range ---------------------------------------------------------
extern std::vector<uint32_t> PrimaerRaster;   // word k holds 120k .. 120k+119
extern uint32_t* PrimaerRasterAdresse;        // &PrimaerRaster[0], refreshed on every reallocation
extern std::vector<uint32_t> SekundaerRaster; // word w holds SekundaerStart + 120w ..
extern Decimal PrimaerGrenze;                 // upper limit of the primary range, >= 1000
extern Decimal PrimaerQuadrat;                // PrimaerGrenze squared, set at the end of a run
extern int32_t RasterLetzterIndex;            // PrimaerGrenze div 120
extern int32_t PrimaerWurzel;                 // integer square root of PrimaerGrenze
extern int32_t PrimaerWurzelWort;             // PrimaerWurzel div 120
extern Decimal SekundaerStart;
extern Decimal SekundaerEnde;
extern bool RasterBereit;                     // a run has finished; never cleared
extern bool RasterEcht;                       // the raster holds the true primes

// ---- set by RasterTabellenAufbauen for other parts ---------------------------------------
extern std::string SqlZaehlKopf;              // "SELECT Count(*) AS Anzahl FROM t_Prim "
extern int32_t DbSegmentMarke;                // 2323: no database segment is open
extern std::vector<int32_t> MersenneExponenten; // text key 999: exponents of known Mersenne primes

// A start button is also the stop button. Caption other than "Stop": it becomes "Stop",
// Abbruch is cleared and the result is false (the job may start). Caption "Stop": it becomes
// ruheText, Abbruch is set and the result is true (the running job will stop at its next
// test). The window passes its button's caption in and sets what comes back out.
bool StartStopUmschalten(std::string& caption, const std::string& ruheText);

// Puts every variable of this module back to its default (start-up and tests).
void ZentralZuruecksetzen();

// Keeps PrimaerRasterAdresse true after PrimaerRaster was reallocated.
inline void RasterAdresseAuffrischen() { PrimaerRasterAdresse = PrimaerRaster.data(); }

}  // namespace sw
