// The cut of range jobs into pieces; see BereichStuecke.h.
#include "BereichStuecke.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "CliUmgebung.h"
#include "MpiVerteilung.h"
#include "sieve/RasterTabellen.h"

namespace sw::cli {

namespace {

// The shortest piece worth sieving on its own: about a 32 KB segment's worth of raster words.
constexpr uint64_t KleinstesStueck = uint64_t(RasterSpanne) * 32768;
// A piece is at least this many times as long as there are sieving primes: finding a prime's
// first multiple costs a division or two, sieving a number a fraction of a nanosecond.
constexpr double ZahlenJePrimzahl = 64;

uint64_t gewuenscht() {
    const char* text = std::getenv("SW_MPI_PIECES");
    if (!text || !*text) return 0;
    char* ende = nullptr;
    const unsigned long long n = std::strtoull(text, &ende, 10);
    if (*ende || n == 0 || n > (uint64_t(1) << 24)) {
        throw CliFehler(std::string("SW_MPI_PIECES must be a whole number from 1 to 16777216, not ") + text);
    }
    return n;
}

uint64_t stuecke(Zahl128 laenge, double kleinstes) {
    if (MpiAnzahl() == 1) return 1;
    if (const uint64_t n = gewuenscht()) return uint64_t(std::min<Zahl128>(n, laenge));
    const uint64_t hoechstens = StueckeJeProzess * uint64_t(MpiAnzahl());
    return uint64_t(std::clamp<Zahl128>(laenge / Zahl128(kleinstes), 1, hoechstens));
}

}  // namespace

uint64_t PrimStuecke(const Decimal& von, const Decimal& bis) {
    const double wurzel = std::max(1000.0, double(GanzeWurzel(bis).Betrag()));
    const double siebPrimzahlen = wurzel / std::log(wurzel);
    const Zahl128 laenge = bis.Betrag() - von.Betrag() + 1;
    return stuecke(laenge / RasterSpanne, std::max(double(KleinstesStueck), ZahlenJePrimzahl * siebPrimzahlen) / RasterSpanne);
}

uint64_t StartStuecke(uint64_t anzahl) {
    // A start costs about as much as a sieved word; the pieces stay short of a second's work.
    return stuecke(anzahl, 65536);
}

std::pair<Zahl128, Zahl128> Stueck(Zahl128 von, Zahl128 bis, uint64_t n, uint64_t i) {
    const Zahl128 laenge = bis - von + 1;
    const auto grenze = [&](uint64_t k) -> Zahl128 {
        if (k == 0) return von;
        if (k == n) return bis + 1;
        const Zahl128 g = von + laenge / n * k + laenge % n * k / n;
        return std::max(von + 1, g / RasterSpanne * RasterSpanne);
    };
    return {grenze(i), grenze(i + 1) - 1};
}

uint64_t ListeVerteilen(AusgabePuffer& aus, uint64_t n, bool json,
                        const std::function<uint64_t(AusgabePuffer&, uint64_t)>& schreiben) {
    // One piece is printed as it is found, not gathered first.
    if (n == 1) return schreiben(aus, 0);
    uint64_t gesamt = 0;
    StueckeVerteilen(
        n,
        [&](uint64_t i) {
            // The entry count goes in front of the piece's text.
            std::string text;
            uint64_t anzahl = 0;
            {
                AusgabePuffer stueck(&text);
                anzahl = schreiben(stueck, i);
            }
            std::string daten;
            WortAnhaengen(daten, anzahl);
            return daten + text;
        },
        [&](uint64_t, const std::string& daten) {
            size_t pos = 0;
            const uint64_t anzahl = WortLesen(daten, pos);
            if (json && gesamt && anzahl) aus.text(",");
            aus.text(daten.substr(pos));
            aus.leeren();
            gesamt += anzahl;
        });
    return gesamt;
}

}  // namespace sw::cli
