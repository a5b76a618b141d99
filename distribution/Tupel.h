// Tupel: the primes of a range and its prime constellations - twins (p, p+2), cousins (p, p+4),
// sexy pairs (p, p+6), both kinds of triplets (p, p+2, p+6 and p, p+4, p+6) and quadruplets
// (p, p+2, p+6, p+8) - counted straight on the words of a sieved raster, from the primary raster
// or from windows of the secondary sieve at any height. A constellation counts when all its
// members lie in the range; it is booked to the power of ten its first member lies in, so that
// the rows of the decade table add up to the whole.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace sw {

using Zahl128 = unsigned __int128;

enum TupelArt : int32_t {
    TupelPrimzahlen = 0,
    TupelZwillinge,
    TupelCousins,
    TupelSexy,
    TupelDrillingA,  // p, p+2, p+6
    TupelDrillingB,  // p, p+4, p+6
    TupelVierlinge,
    TupelArten
};

// The offsets of each constellation from its first member (primes: {0}).
const std::vector<int32_t>& TupelMuster(int32_t art);
// English key of a kind for sw-cli and CSV ("primes", "twins", ...).
const char* TupelName(int32_t art);

using TupelAnzahl = std::array<uint64_t, TupelArten>;

// One count over [von, bis]. Raster words are fed in ascending order (gaps between them are
// allowed, the word at a seam of two rasters may come twice: its halves are joined); each
// word is looked at once together with its successor, so that constellations across a word
// border count too.
class TupelZaehlung {
public:
    TupelZaehlung(Zahl128 von, Zahl128 bis);

    // Words raster[0 .. anzahl) of a raster in which word w covers basis + 120w .. + 119 (a
    // set bit struck out), valid only for numbers of [teilVon, teilBis]: the rest of the
    // words is ignored (a raster's last word is only sieved up to its limit).
    void Woerter(const uint32_t* raster, uint64_t anzahl, Zahl128 basis, Zahl128 teilVon, Zahl128 teilBis);
    // Counts the last word and adds the constellations with 2, 3 or 5, which have no bit.
    // Once called, the counts are final.
    void Abschliessen();

    TupelAnzahl Gesamt() const;
    // One row per power of ten the range touches: [Anfang(i), Anfang(i+1) - 1], the last up to bis.
    const std::vector<TupelAnzahl>& Dekaden() const { return dekaden_; }
    Zahl128 DekadenAnfang(size_t i) const { return i == 0 ? von_ : grenzen_[i - 1]; }
    Zahl128 Von() const { return von_; }
    Zahl128 Bis() const { return bis_; }

private:
    void wort(uint32_t frei, Zahl128 basis);
    void verarbeiten(uint32_t frei, uint32_t folge, Zahl128 basis);
    void zaehlen(uint64_t p, uint64_t start, size_t fach);

    Zahl128 von_, bis_;
    std::vector<Zahl128> grenzen_;      // the powers of ten in (von, bis]
    std::vector<TupelAnzahl> dekaden_;
    size_t fach_ = 0;                   // the row the next word counts into
    bool hat_ = false;                  // a word waits for its successor
    uint32_t frei_ = 0;                 // its primes (clear bits inverted)
    Zahl128 basis_ = 0;
    bool fertig_ = false;
};

// What the window and sw-cli call between blocks of words with the share done (0..1); false
// stops the count, which keeps what it has.
using TupelMelder = bool (*)(void* kontext, double anteil);

// [von, bis] ∩ the primary raster into z (bis is cut at the raster's limit). False if stopped.
bool TupelPrimaerZaehlen(TupelZaehlung& z, Zahl128 von, Zahl128 bis, TupelMelder melden, void* kontext);
// [von, bis] ∩ the secondary range as it stands. False if stopped.
bool TupelSekundaerZaehlen(TupelZaehlung& z, Zahl128 von, Zahl128 bis, TupelMelder melden, void* kontext);

}  // namespace sw
