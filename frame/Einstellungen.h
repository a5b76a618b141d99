// Einstellungen: the settings file SW.Ini in the working folder. Sections in brackets and
// key=value lines, read and written with the semantics the program always had: a missing
// file, section or key reads as "", values are at most 255 characters, a stored Double's
// decimal comma reads as a point, and a file that cannot be read or written fails silently
// (reads as empty, a write is dropped) - never an exception.
#pragma once

#include <string>

namespace sw {

// The value of key in section, "" if absent (sections and keys compare ignoring case).
std::string IniLesen(const std::string& sektion, const std::string& key);
// Writes key=value into section, creating the file, section or key as needed; other lines
// of the file keep their order and content.
void IniSchreiben(const std::string& sektion, const std::string& key, const std::string& wert);
void IniSchreiben(const std::string& sektion, const std::string& key, long long wert);
// A Double as the platform stored it: format "0.00" (two decimals), decimal comma.
void IniSchreibenDouble(const std::string& sektion, const std::string& key, double wert);
// A stored Double: "," read as "."; "" or not a number gives the default.
double IniLesenDouble(const std::string& sektion, const std::string& key, double vorgabe);

}  // namespace sw
