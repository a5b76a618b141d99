// Zeichenketten: the few text helpers that the text table, the settings file and the number
// formats share: trimming the way the old platform's Trim did (blanks, tabs and line ends) and
// comparing names without regard to case, as section and key lookups always have.
#pragma once

#include <string>

namespace sw {

// Blanks, tabs, CR and LF cut at both ends / at the right end.
std::string Trimmen(const std::string& s);
std::string RechtsTrimmen(const std::string& s);
// Lower case for comparisons: ASCII and the Latin-1 letters of UTF-8 (so "LückenGrafik" and
// "LÜCKENGRAFIK" name the same section).
std::string Klein(std::string s);
bool GleichOhneGross(const std::string& a, const std::string& b);
// s without any occurrence of was, in one linear pass ("" removes nothing).
std::string Entfernen(const std::string& s, const std::string& was);
// At most n characters (UTF-8 code points), never cutting a character in two.
std::string ZeichenKappen(const std::string& s, size_t n);

}  // namespace sw
