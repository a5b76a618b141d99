// Programm: the steps of SW's start and stop that are logic, not window. The cockpit runs
// ProgrammStarten before it prepares itself (texts, stored look, option controls), and
// BeendenErlaubt / ProgrammBeenden around saving its own look when it closes; sw-cli runs
// ProgrammStarten(false) alone. Nothing here touches a window.
#pragma once

#include <string>

namespace sw {

// The cockpit's section in SW.Ini and sw.TEX.
inline constexpr const char* StartSektion = "Start";

// In order: the working folder becomes ProgrammPfad, and with ordnerWechseln the current
// folder too (the desktop program: a relative name typed in a window lands there; sw-cli
// keeps the shell's folder, so relative paths on its command line mean what the user meant);
// RasterEcht; the raster tables; the four colours lblCol(0..3) of section "Start" (a missing
// key keeps the designed colour); AktivesFenster = "Cockpit"; the random raster settings;
// today as the stop watch's date. Throws Laufzeitfehler 53 naming the file when sw.TEX cannot be read, after
// every other step is done: without its texts the program can show nothing sensible.
void ProgrammStarten(bool ordnerWechseln = true);
// The cockpit's note line: text 583 followed by text 101.
std::string StartNotiz();

// The random raster settings of section "Start": RandomProzentFaktor (default 1.0),
// RandomFaktorBitKette (0), RandomInfoText ("(2,3,5)"), RandomPrimIntervall (at least 6).
void RandomEinstellungenLesen();
// Writes back RandomProzentFaktor, RandomFaktorBitKette and RandomInfoText. The interval is
// read but never written: the program always kept it that way, so a value set in SW.Ini by
// hand stays what it is.
void RandomEinstellungenSchreiben();

// The question before the end when chkEndeFrage is ticked ("SW-Stop?", text 491, Yes, No,
// Cancel): true only for Yes. Without the question the answer is true.
bool BeendenErlaubt(bool endeFrage);
// The stop steps after the cockpit saved its look: random raster settings written, the stop
// watch window closed.
void ProgrammBeenden();

}  // namespace sw
