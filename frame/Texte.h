// Texte: the text table sw.TEX. Code names a display text by its number, the text key; a
// window takes its control texts from the section named after it. The file is read through a
// cache that is renewed whenever the file's size or time changes, so editing sw.TEX while the
// program runs takes effect at the next lookup, as it always did.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

// "Beta major.minor.revision", the text that replaces "#V".
std::string VersionText();

// The numbered entry's text up to its first "|", with "#V" and "#CR" replaced; "" if the key
// does not exist (the search stops at the first greater number). A missing sw.TEX throws
// Laufzeitfehler 53 naming the file, one that cannot be read Laufzeitfehler 70.
std::string Text(int key);
// The same with "#P1" (and "#P2") replaced by the parameters; case is ignored.
std::string TextP1(int key, const std::string& p1);
std::string TextP1(int key, long long p1);
std::string TextP1Zahl(int key, const Decimal& zahl);  // p1 through ZahlFormat
std::string TextP1P2(int key, const std::string& p1, const std::string& p2);
// A list of Longs from an entry of numbers separated by ";", each through TextZuLong.
std::vector<int32_t> TextListe(int key);

// One line of a window's section: the control's key ("btnStart(3)") and its raw value.
struct TextPaar {
    std::string name;
    std::string wert;
};
// The pairs of section [sektion] (heading found ignoring case), in file order; empty if the
// section is missing. Lines without "=" give an empty pair, as they always did.
std::vector<TextPaar> SektionLesen(const std::string& sektion);
// The window caption from the pairs: value of the first pair, "#V" replaced, cut at "|".
std::string SektionTitel(const std::vector<TextPaar>& paare);
// The value of the pair whose name equals key ignoring case; false if there is none.
bool SektionWert(const std::vector<TextPaar>& paare, const std::string& key, std::string& wert);

// How a control takes a value: the text behind the last "|" is the tool tip (when the value
// has a "|"), the rest the text. A list control's rest is its entries separated by "|".
struct SteuerText {
    std::string text;
    std::string tooltip;
    bool hatTooltip = false;
};
SteuerText WertZerlegen(const std::string& wert);
std::vector<std::string> ListenEintraege(const std::string& wert);
// A text box keeps its designed text when the value is empty or a number above 2,000,000,000.
bool TextFeldUebernimmt(const std::string& text);

// Replaces every occurrence of mark in text by ersatz, ignoring case (ASCII).
std::string ErsetzenOhneGross(std::string text, const std::string& mark, const std::string& ersatz);

}  // namespace sw
