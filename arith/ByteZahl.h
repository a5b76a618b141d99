// ByteZahl: a number as its bytes, lowest first, and back: the hex bytes a user reads or types,
// and a text whose UTF-8 bytes are the number's bytes (the way messages become numbers in the
// textbook ciphers). Built on the kernel's aByteString and aCardinal.
#pragma once

#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

// "01 00 00 00 00 00 00 00 01" for 2^64 + 1: two hex digits a byte, lowest byte first, no
// leading zero bytes (0 is "00").
std::string BytesHex(const Hyp& h);

// The number of hex bytes, lowest first. Bytes stand apart (blanks, commas, colons) with one or
// two digits each, or run together in pairs ("0100" is 01 00). Anything else, an odd run or
// no byte at all is a Laufzeitfehler 13 naming the place.
Hyp HexBytesZahl(const std::string& text);

// The number whose bytes, lowest first, are the UTF-8 bytes of text ("" is 0).
Hyp TextZahl(const std::string& text);

struct BytesAlsText {
    std::string text;     // the number's bytes as they are
    bool lesbar = false;  // valid UTF-8 without control characters (but tab and line breaks):
                          // only then is it shown as text, so 2^64 + 1 is not shown as noise
};
BytesAlsText ZahlText(const Hyp& h);

// True when s is well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IstUtf8(const std::string& s);

}  // namespace sw
