#include "distribution/PngBild.h"

#include <algorithm>
#include <array>

namespace sw {

namespace {

const std::array<uint32_t, 256>& crcTabelle() {
    static const std::array<uint32_t, 256> t = [] {
        std::array<uint32_t, 256> a{};
        for (uint32_t n = 0; n < 256; ++n) {
            uint32_t c = n;
            for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            a[n] = c;
        }
        return a;
    }();
    return t;
}

uint32_t crc32(const std::string& daten, size_t von) {
    uint32_t c = 0xFFFFFFFFu;
    for (size_t i = von; i < daten.size(); ++i) c = crcTabelle()[(c ^ uint8_t(daten[i])) & 0xFF] ^ (c >> 8);
    return c ^ 0xFFFFFFFFu;
}

void wort(std::string& s, uint32_t v) {
    for (int k = 3; k >= 0; --k) s += char((v >> (8 * k)) & 0xFF);
}

void abschnitt(std::string& png, const char* typ, const std::string& inhalt) {
    wort(png, uint32_t(inhalt.size()));
    const size_t start = png.size();
    png += typ;
    png += inhalt;
    wort(png, crc32(png, start));
}

}  // namespace

std::string PngKodieren(int32_t breite, int32_t hoehe, const std::vector<uint32_t>& pixel) {
    std::string roh;  // each row: filter byte 0, then R, G, B per pixel
    roh.reserve(size_t(hoehe) * (size_t(breite) * 3 + 1));
    for (int32_t y = 0; y < hoehe; ++y) {
        roh += '\0';
        for (int32_t x = 0; x < breite; ++x) {
            const uint32_t p = pixel[size_t(y) * size_t(breite) + size_t(x)];
            roh += char((p >> 16) & 0xFF);
            roh += char((p >> 8) & 0xFF);
            roh += char(p & 0xFF);
        }
    }
    // zlib stream: header, stored blocks of at most 65535 bytes, Adler-32 of the raw data.
    std::string z = "\x78\x01";
    for (size_t pos = 0; pos < roh.size() || pos == 0; pos += 65535) {
        const size_t n = std::min<size_t>(65535, roh.size() - pos);
        const bool letzter = pos + n >= roh.size();
        z += char(letzter ? 1 : 0);
        z += char(n & 0xFF);
        z += char(n >> 8);
        z += char(~n & 0xFF);
        z += char((~n >> 8) & 0xFF);
        z.append(roh, pos, n);
        if (letzter) break;
    }
    uint32_t a = 1, b = 0;
    for (const char c : roh) {
        a = (a + uint8_t(c)) % 65521;
        b = (b + a) % 65521;
    }
    wort(z, (b << 16) | a);

    std::string png = "\x89PNG\r\n\x1a\n";
    std::string kopf;
    wort(kopf, uint32_t(breite));
    wort(kopf, uint32_t(hoehe));
    kopf += std::string("\x08\x02\x00\x00\x00", 5);  // 8 bits, RGB, deflate, no filter choice, no interlace
    abschnitt(png, "IHDR", kopf);
    abschnitt(png, "IDAT", z);
    abschnitt(png, "IEND", "");
    return png;
}

}  // namespace sw
