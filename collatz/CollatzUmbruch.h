// CollatzUmbruch: the word wrap of the lists of big sequences. A text of a million marks or
// values becomes rows no wider than the list: cut after the last ";" of a row (a list of
// values), else at its last blank (a summary), else hard where it got too wide (a mark
// string has neither). Widths are summed character by character, so the wrap stays linear.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace sw {

// zeichenBreite gets one UTF-8 character (its first byte and byte count) and gives its width.
std::vector<std::string> ZeilenUmbrechen(const std::string& text, int32_t breite,
                                         const std::function<int32_t(const char*, int32_t)>& zeichenBreite);

}  // namespace sw
