#include "frame/Zeichenketten.h"

namespace sw {

namespace {
constexpr const char* Leer = " \t\r\n";
}

std::string Trimmen(const std::string& s) {
    size_t a = s.find_first_not_of(Leer);
    if (a == std::string::npos) return "";
    size_t b = s.find_last_not_of(Leer);
    return s.substr(a, b - a + 1);
}

std::string RechtsTrimmen(const std::string& s) {
    size_t b = s.find_last_not_of(Leer);
    return b == std::string::npos ? "" : s.substr(0, b + 1);
}

std::string Klein(std::string s) {
    for (size_t i = 0; i < s.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        if (c >= 'A' && c <= 'Z') {
            s[i] = static_cast<char>(c + 32);
        } else if (c == 0xC3 && i + 1 < s.size() && (static_cast<unsigned char>(s[i + 1]) & 0xC0) == 0x80) {
            // U+00C0..U+00DE (without the multiplication sign U+00D7) are the capitals of
            // U+00E0..U+00FE; in UTF-8 they differ only in the second byte.
            unsigned char d = static_cast<unsigned char>(s[i + 1]);
            if (d <= 0x9E && d != 0x97) s[i + 1] = static_cast<char>(d + 0x20);
            ++i;
        }
    }
    return s;
}

bool GleichOhneGross(const std::string& a, const std::string& b) {
    return a.size() == b.size() && Klein(a) == Klein(b);
}

std::string ZeichenKappen(const std::string& s, size_t n) {
    size_t zeichen = 0;
    for (size_t i = 0; i < s.size(); ++i) {
        // Continuation bytes (10xxxxxx) belong to the character before them.
        if ((static_cast<unsigned char>(s[i]) & 0xC0) != 0x80) {
            if (zeichen == n) return s.substr(0, i);
            ++zeichen;
        }
    }
    return s;
}

std::string Entfernen(const std::string& s, const std::string& was) {
    if (was.empty() || s.find(was) == std::string::npos) return s;
    std::string aus;
    aus.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        if (s.compare(i, was.size(), was) == 0) {
            i += was.size();
        } else {
            aus += s[i++];
        }
    }
    return aus;
}

}  // namespace sw
