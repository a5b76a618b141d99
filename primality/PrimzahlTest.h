// PrimzahlTest: the run of one method button of the prime test window, without the window.
// It reads the number (a plain number or a formula) and the trial limit, pre-tests by trial
// division, runs the chosen method and reports each line through PrimTestAnzeige; the
// desktop window, sw-cli and the tests all go through it.
#pragma once

#include <cstdint>
#include <string>

#include "primality/PrimTestBericht.h"
#include "zahlkern/Hyp.h"

namespace sw {

// The methods by the index of their button.
enum PrimTestMethode : int32_t {
    MethodeWurzelProbedivision = 0,
    MethodeMillerRabin = 1,
    MethodeStrassen = 2,
    MethodePerrin = 3,
    MethodeFermat = 4,
    MethodeFermatSuche = 5,
    MethodeBpsw = 6,
};
inline constexpr int32_t PrimTestMethodenAnzahl = 7;

// The caption of a method's button, from the window's section of sw.TEX.
std::string PrimTestName(int32_t methode);

// A field's text as the run reads it: a plain or grouped number, or the formula word and a
// formula, stay as they are; anything else is a formula typed without the word, and gets it.
std::string PrimTestEingabe(const std::string& feld);

// One run: the lines 135 to 142 (and the proofs' lines) in lblHinweis's order, the limit
// written back grouped, the stop watch under the caption. Errors of the number's formula or
// of the limit's text are Laufzeitfehler, after the stop button is hidden again.
PrimTestErgebnis PrimzahlTestLauf(const std::string& zahlText, const std::string& grenzeText, int32_t methode,
                                  const std::string& caption, PrimTestAnzeige& anzeige);

}  // namespace sw
