// The word wrap of the lists of big sequences.
#include "collatz/CollatzUmbruch.h"

namespace sw {

namespace {

int32_t zeichenLaenge(unsigned char c) {
    if (c < 0x80) return 1;
    if ((c & 0xE0) == 0xC0) return 2;
    if ((c & 0xF0) == 0xE0) return 3;
    if ((c & 0xF8) == 0xF0) return 4;
    return 1;
}

// Blanks off both ends of text[a, e).
void trimmen(const std::string& text, size_t& a, size_t& e) {
    while (a < e && text[a] == ' ') ++a;
    while (e > a && text[e - 1] == ' ') --e;
}

}  // namespace

std::vector<std::string> ZeilenUmbrechen(const std::string& text, int32_t breite,
                                         const std::function<int32_t(const char*, int32_t)>& zeichenBreite) {
    std::vector<std::string> zeilen;
    size_t rest = 0;
    // A blank this close to the start of a row would leave a stub: cut hard instead.
    constexpr size_t kKleinsteZeile = 6;
    while (rest < text.size()) {
        int64_t summe = 0;
        size_t i = rest;
        while (i < text.size()) {
            const int32_t n = zeichenLaenge(static_cast<unsigned char>(text[i]));
            summe += zeichenBreite(text.data() + i, n);
            if (summe > breite && i > rest) break;
            i += size_t(n);
        }
        if (i >= text.size()) {
            zeilen.push_back(text.substr(rest));
            break;
        }
        // Only the row itself is searched: a search back into the text before it would make
        // the wrap of a mark string quadratic.
        size_t schnitt = std::string::npos, blank = std::string::npos;
        for (size_t j = i; j-- > rest;) {
            if (text[j] == ';') {
                schnitt = j + 1;
                break;
            }
            if (text[j] == ' ' && blank == std::string::npos) blank = j;
        }
        if (schnitt == std::string::npos && blank != std::string::npos && blank >= rest + kKleinsteZeile) schnitt = blank;
        if (schnitt == std::string::npos) {
            zeilen.push_back(text.substr(rest, i - rest));
            rest = i;
            continue;
        }
        size_t weiter = schnitt;
        size_t a = rest, e = schnitt;
        trimmen(text, a, e);
        zeilen.push_back(text.substr(a, e - a));
        while (weiter < text.size() && text[weiter] == ' ') ++weiter;
        rest = weiter;
    }
    return zeilen;
}

}  // namespace sw
