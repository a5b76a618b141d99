// Einstellungen: the settings file SW.Ini in the working folder. Sections in brackets and
// key=value lines, read and written with the semantics the program always had: a missing
// file, section or key reads as "", values are at most 255 characters, a stored Double's
// decimal comma reads as a point, and a file that cannot be read or written fails silently
// (reads as empty, a write is dropped) - never an exception.
// A write replaces the file in one step (temporary file, then rename), so a crash or a full
// disk in the middle of it leaves the old SW.Ini whole, never half of a new one.
#pragma once

#include <cstdint>
#include <string>

namespace sw {

// The longest value a read returns: the platform read into a buffer of this many characters.
inline constexpr size_t IniWertLaenge = 255;

// The value of key in section, "" if absent (sections and keys compare ignoring case).
std::string IniLesen(const std::string& sektion, const std::string& key);
// Writes key=value into section, creating the file, section or key as needed; other lines
// of the file keep their order and content. Line breaks in a value become blanks.
void IniSchreiben(const std::string& sektion, const std::string& key, const std::string& wert);
void IniSchreiben(const std::string& sektion, const std::string& key, long long wert);
// A Double as the platform stored it: format "0.00" (two decimals), decimal comma.
void IniSchreibenDouble(const std::string& sektion, const std::string& key, double wert);
// A stored Double: "," read as "."; "" or not a number gives the default.
double IniLesenDouble(const std::string& sektion, const std::string& key, double vorgabe);
// A stored Long, rounded; "", not a number or outside the Long range gives the default.
int32_t IniLesenLong(const std::string& sektion, const std::string& key, int32_t vorgabe);

// Groups many writes (a window's closing stores every control) into one rewrite of the file:
// while an object of this class lives, writes change a copy in memory that reads also see,
// and the file is replaced once when the outermost object ends.
class IniSammelSchreiben {
public:
    IniSammelSchreiben();
    ~IniSammelSchreiben();
    IniSammelSchreiben(const IniSammelSchreiben&) = delete;
    IniSammelSchreiben& operator=(const IniSammelSchreiben&) = delete;
};

}  // namespace sw
