#include "arith/ByteZahl.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

std::vector<uint8_t> bytesVon(const Hyp& h) {
    std::vector<uint8_t> b(size_t(4 * std::max(h.anzahl(), 1)));
    b.resize(size_t(aByteString(b.data(), h)));
    return b;
}

Hyp zahlVon(const std::vector<uint8_t>& b) {
    if (b.empty()) return Hyp();
    Hyp h(int32_t(b.size() / 4 + 1));
    aCardinal(h, b.data(), int32_t(b.size()));
    return h;
}

int hexWert(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool trenner(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == ',' || c == ':'; }

[[noreturn]] void hexFehler(const std::string& text, size_t stelle) {
    throw Laufzeitfehler(FehlerTypenUnvertraeglich, TextP1P2(2245, std::to_string(stelle + 1), text.substr(stelle, 1)));
}

}  // namespace

std::string BytesHex(const Hyp& h) {
    static const char ziffern[] = "0123456789ABCDEF";
    std::string s;
    for (uint8_t b : bytesVon(h)) {
        if (!s.empty()) s += ' ';
        s += ziffern[b >> 4];
        s += ziffern[b & 15];
    }
    return s;
}

Hyp HexBytesZahl(const std::string& text) {
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i < text.size();) {
        if (trenner(text[i])) {
            ++i;
            continue;
        }
        size_t ende = i;
        while (ende < text.size() && !trenner(text[ende])) {
            if (hexWert(text[ende]) < 0) hexFehler(text, ende);
            ++ende;
        }
        const size_t laenge = ende - i;
        if (laenge == 1) {
            bytes.push_back(uint8_t(hexWert(text[i])));
        } else if (laenge % 2 != 0) {
            throw Laufzeitfehler(FehlerTypenUnvertraeglich, TextP1(2246, std::to_string(i + 1)));
        } else {
            for (size_t k = i; k < ende; k += 2) bytes.push_back(uint8_t(hexWert(text[k]) * 16 + hexWert(text[k + 1])));
        }
        i = ende;
    }
    if (bytes.empty()) throw Laufzeitfehler(FehlerTypenUnvertraeglich, Text(2247));
    return zahlVon(bytes);
}

Hyp TextZahl(const std::string& text) { return zahlVon(std::vector<uint8_t>(text.begin(), text.end())); }

BytesAlsText ZahlText(const Hyp& h) {
    const std::vector<uint8_t> b = bytesVon(h);
    BytesAlsText t;
    t.text.assign(b.begin(), b.end());
    t.lesbar = IstUtf8(t.text) && std::none_of(t.text.begin(), t.text.end(), [](char c) {
        const auto u = uint8_t(c);
        return (u < 0x20 && c != '\t' && c != '\n' && c != '\r') || u == 0x7F;
    });
    return t;
}

bool IstUtf8(const std::string& s) {
    for (size_t i = 0; i < s.size();) {
        const auto c = uint8_t(s[i]);
        size_t folge;
        uint32_t wert;
        if (c < 0x80) {
            ++i;
            continue;
        } else if ((c & 0xE0) == 0xC0) {
            folge = 1, wert = c & 0x1F;
        } else if ((c & 0xF0) == 0xE0) {
            folge = 2, wert = c & 0x0F;
        } else if ((c & 0xF8) == 0xF0) {
            folge = 3, wert = c & 0x07;
        } else {
            return false;
        }
        if (i + folge >= s.size()) return false;  // the sequence runs past the end
        for (size_t k = 1; k <= folge; ++k) {
            const auto f = uint8_t(s[i + k]);
            if ((f & 0xC0) != 0x80) return false;
            wert = (wert << 6) | (f & 0x3F);
        }
        static const uint32_t kleinster[4] = {0, 0x80, 0x800, 0x10000};
        if (wert < kleinster[folge] || wert > 0x10FFFF || (wert >= 0xD800 && wert <= 0xDFFF)) return false;
        i += folge + 1;
    }
    return true;
}

}  // namespace sw
