#include "mersenne/LucasPruefpunkt.h"

#include <cstring>
#include <fstream>
#include <iterator>

#include "frame/DateiErsetzen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"

namespace sw {

namespace {

// "SWLL", version 1, then p, method, iteration, word count, the words, and FNV-1a 64 of all
// before it; little-endian words as the machine keeps them.
constexpr char kKennung[4] = {'S', 'W', 'L', 'L'};
constexpr uint32_t kVersion = 1;
constexpr size_t kKopf = 4 + 5 * 4;
constexpr int kDateiFehler = 75;

uint64_t pruefsumme(const char* d, size_t n) {
    uint64_t h = 1469598103934665603ull;
    for (size_t i = 0; i < n; ++i) {
        h ^= uint8_t(d[i]);
        h *= 1099511628211ull;
    }
    return h;
}

void wort(std::string& s, uint32_t w) { s.append(reinterpret_cast<const char*>(&w), 4); }

uint32_t wortLesen(const std::string& s, size_t pos) {
    uint32_t w;
    std::memcpy(&w, s.data() + pos, 4);
    return w;
}

[[noreturn]] void beschaedigt(const std::string& datei) {
    throw Laufzeitfehler(kDateiFehler, TextP1(1401, datei));
}

}  // namespace

std::string LucasPruefpunktDatei(uint32_t p) { return ProgrammPfad + "Lucas_" + std::to_string(p) + ".chk"; }

void PruefpunktSchreiben(const std::string& datei, const LucasPruefpunkt& punkt) {
    std::string s(kKennung, 4);
    wort(s, kVersion);
    wort(s, punkt.p);
    wort(s, uint32_t(punkt.methode));
    wort(s, punkt.iteration);
    wort(s, uint32_t(punkt.rest.size()));
    s.append(reinterpret_cast<const char*>(punkt.rest.data()), punkt.rest.size() * 4);
    const uint64_t summe = pruefsumme(s.data(), s.size());
    s.append(reinterpret_cast<const char*>(&summe), 8);
    if (!DateiErsetzen(datei, s)) throw Laufzeitfehler(kDateiFehler, TextP1(1400, datei));
}

std::optional<LucasPruefpunkt> PruefpunktLesen(const std::string& datei, uint32_t p) {
    std::ifstream f(datei, std::ios::binary);
    if (!f) return std::nullopt;
    const std::string s((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    if (s.size() < kKopf + 8 || std::memcmp(s.data(), kKennung, 4) != 0 || wortLesen(s, 4) != kVersion) {
        beschaedigt(datei);
    }
    LucasPruefpunkt punkt;
    punkt.p = wortLesen(s, 8);
    punkt.methode = int32_t(wortLesen(s, 12));
    punkt.iteration = wortLesen(s, 16);
    const size_t worte = wortLesen(s, 20);
    if (s.size() != kKopf + 4 * worte + 8) beschaedigt(datei);
    uint64_t summe;
    std::memcpy(&summe, s.data() + s.size() - 8, 8);
    if (summe != pruefsumme(s.data(), s.size() - 8)) beschaedigt(datei);
    if (punkt.p != p) throw Laufzeitfehler(kDateiFehler, TextP1P2(1402, datei, std::to_string(punkt.p)));
    // A sound checksum over impossible values is still no state to go on from.
    const size_t L = (size_t(p) + 31) / 32;
    if (worte != L || punkt.iteration < 1 || punkt.iteration >= p || punkt.methode < 0 || punkt.methode > 3) {
        beschaedigt(datei);
    }
    punkt.rest.resize(worte);
    std::memcpy(punkt.rest.data(), s.data() + kKopf, worte * 4);
    if (p % 32 != 0 && (punkt.rest.back() >> (p % 32)) != 0) beschaedigt(datei);
    return punkt;
}

}  // namespace sw
