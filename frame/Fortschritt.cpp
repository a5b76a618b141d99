#include "frame/Fortschritt.h"

#include <cmath>
#include <string>

#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

// A percentage as the platform made a Long of it: rounded half to even, a value that does
// not fit is an overflow.
int32_t alsProzent(double p) {
    if (p > 100) return 100;
    double r = std::nearbyint(p);
    if (!(r >= -2147483648.0)) throw Laufzeitfehler(FehlerUeberlauf);
    return static_cast<int32_t>(r);
}

}  // namespace

int32_t Prozent(double aktuell, double von, double bis) {
    if (bis == von) throw Laufzeitfehler(FehlerDivisionDurchNull);
    return alsProzent(100.0 / (bis - von) * (aktuell - von));
}

// The old program divided all three values by 10 until they fitted 32 bits and then took the
// 32-bit path. With 128-bit integers at hand the differences are exact, so two values that
// differ only in their low digits no longer collapse into one (a division by zero there).
int32_t ProzentGross(const Decimal& aktuell, const Decimal& von, const Decimal& bis) {
    if (bis == von) throw Laufzeitfehler(FehlerDivisionDurchNull);
    double spanne = static_cast<double>(bis.Wert() - von.Wert());
    double weg = static_cast<double>(aktuell.Wert() - von.Wert());
    return alsProzent(100.0 / spanne * weg);
}

std::string ZeitText(double start, double aktuell, double von, double bis) {
    if (aktuell > bis || aktuell <= von) return "";
    double vergangen = Timer() - start;
    double rest = (bis - aktuell) * vergangen / (aktuell - von);
    std::string text = "Zeit: " + ZeitFormat(vergangen);
    if (rest > 0) text += " Restzeit: " + ZeitFormat(rest);
    return text;
}

std::string ZeitTextGross(double start, const Decimal& aktuell, const Decimal& von, const Decimal& bis) {
    // The tests on the exact values; the times themselves need no more than a double's digits.
    if (aktuell > bis || aktuell <= von) return "";
    double spanne = static_cast<double>(bis.Wert() - von.Wert());
    double weg = static_cast<double>(aktuell.Wert() - von.Wert());
    return ZeitText(start, weg, 0.0, spanne);
}

std::string ZeitFormat(double sekunden) {
    if (sekunden > GrenzeLong) return Text(179);
    if (!(sekunden >= 0)) return "";  // a negative or undefined time has no parts to show
    long long s = std::llround(sekunden);
    std::string text;
    if (long long sek = s % 60; sek > 0) text = (sek < 10 ? "0" : "") + std::to_string(sek) + " Sek ";
    if (long long min = (s / 60) % 60; min > 0) text = std::to_string(min) + " Min " + text;
    if (long long stunden = (s / 3600) % 24; stunden > 0) text = std::to_string(stunden) + " Std " + text;
    if (long long tage = s / 86400; tage > 0) text = std::to_string(tage) + " Tage " + text;
    return text;
}

std::pair<std::string, std::string> ZeitTextTeilen(const std::string& text) {
    size_t rest = text.find("Rest");
    if (rest == std::string::npos) return {};
    return {Trimmen(text.substr(0, rest)), Trimmen(text.substr(rest))};
}

}  // namespace sw
