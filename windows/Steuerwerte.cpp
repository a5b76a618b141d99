#include "windows/Steuerwerte.h"

#include <algorithm>

#include "frame/Zahlformat.h"
#include "frame/basZentral.h"

namespace sw {

namespace {
std::string ohne(std::string text, const std::string& teil) {
    if (teil.empty()) return text;
    for (size_t p; (p = text.find(teil)) != std::string::npos;) text.erase(p, teil.size());
    return text;
}
}  // namespace

std::optional<std::string> TextfeldSpeicherwert(const std::string& text) {
    if (text.size() > TextfeldHoechstLaenge) return std::nullopt;
    if (text.size() > TextfeldKurzeBreite && text.find("...") != std::string::npos) return std::nullopt;
    std::string zahl = ohne(ohne(ohne(text, "_"), "."), FormatZeichen);
    if (!zahl.empty() && IstNumerisch(zahl)) return zahl;
    return text;
}

std::string TextfeldLadewert(const std::string& gespeichert) {
    // Only whole numbers are grouped: ZahlFormat cuts a fraction, and a stored "1,5" must come
    // back as 1,5, not as 1.
    size_t start = !gespeichert.empty() && gespeichert[0] == '-' ? 1 : 0;
    bool ganz = gespeichert.size() > start &&
                std::all_of(gespeichert.begin() + start, gespeichert.end(), [](char c) { return c >= '0' && c <= '9'; });
    return ganz ? ZahlFormat(gespeichert) : gespeichert;
}

Farbe FarbeAusZahl(long long bgr) {
    return {int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF)};
}

long long FarbeZuZahl(const Farbe& f) {
    auto k = [](int v) { return static_cast<long long>(std::clamp(v, 0, 255)); };
    return k(f.rot) | (k(f.gruen) << 8) | (k(f.blau) << 16);
}

}  // namespace sw
