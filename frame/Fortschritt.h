// Fortschritt: how long jobs show progress: a percentage, a text of elapsed and remaining
// time, and the two-label bar. Times are seconds of the monotonic clock (Timer()).
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "frame/Decimal.h"

namespace sw {

// 100 / (bis - von) * (aktuell - von), rounded, at most 100. bis == von: Laufzeitfehler 11.
int32_t Prozent(double aktuell, double von, double bis);
// The same for Decimals, computed on the exact differences (bounds that differ only in their
// low digits still give a percentage); bis == von: Laufzeitfehler 11.
int32_t ProzentGross(const Decimal& aktuell, const Decimal& von, const Decimal& bis);
// "Zeit: <elapsed> Restzeit: <remaining>", only the elapsed part when nothing remains, ""
// when aktuell > bis or aktuell <= von.
std::string ZeitText(double start, double aktuell, double von, double bis);
// The same for Decimals; the tests on the exact values.
std::string ZeitTextGross(double start, const Decimal& aktuell, const Decimal& von, const Decimal& bis);
// "1 Tage 1 Std 1 Min 01 Sek " style: units of value 0 left out; text 179 beyond GrenzeLong.
std::string ZeitFormat(double sekunden);
// A time text split at "Rest": (before, trimmed; from "Rest" on, trimmed). Without "Rest"
// both are empty and the caller shows the whole text in its single label.
std::pair<std::string, std::string> ZeitTextTeilen(const std::string& text);

}  // namespace sw
