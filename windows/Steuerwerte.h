// Steuerwerte: what a window's text box keeps in SW.Ini, and what it gets back. Pure logic
// (no widgets), so the rules are tested on their own and shared by every window.
#pragma once

#include <optional>
#include <string>

namespace sw {

// Longer texts are shortened displays or pasted lists; a shortened one ("...") is never kept,
// since it would come back as a different number.
inline constexpr size_t TextfeldKurzeBreite = 40;
// SW.Ini keeps at most 255 characters; a longer value would come back cut.
inline constexpr size_t TextfeldHoechstLaenge = 255;

// The value a text box stores: a number without "_", "." and FormatZeichen, any other text as
// it stands; nothing for a text that must not be kept.
std::optional<std::string> TextfeldSpeicherwert(const std::string& text);
// The text a text box shows for a stored value: whole numbers through ZahlFormat, the rest as
// stored.
std::string TextfeldLadewert(const std::string& gespeichert);

// Colours are stored as the old platform's numbers: 0x00BBGGRR.
struct Farbe {
    int rot = 0, gruen = 0, blau = 0;
};
Farbe FarbeAusZahl(long long bgr);
long long FarbeZuZahl(const Farbe& f);

}  // namespace sw
