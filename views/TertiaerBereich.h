// TertiaerBereich: the large range of the prime display, a window of numbers above a start of
// any size. It runs the tertiary sieve and the BPSW test over it and keeps its own copies of
// the raster: the shared raster belongs to whichever window sieved last, and the display must
// go on paging, searching and exporting its own range however often other windows sieve.
// Positions are distances d from the start, 0 .. Breite() inclusive.
//
// The start is turned into decimal digits once; every number shown or exported is that text
// plus a small distance, added digit by digit from the right, so paging never converts the
// start again however long it is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sieve/RasterTabellen.h"
#include "zahlkern/Hyp.h"

namespace sw {

class TertiaerFenster;

// The widest window the display sieves: its raster and the two copies stay below 100 MB.
inline constexpr int32_t TertiaerBreiteMax = 1000000000;

// A start typed as a number ("1.000.000") or a formula ("10^999+7", also behind the formula
// word). Empty text or a formula that fails shows a box and gives false.
bool TertiaerStartLesen(const std::string& text, Hyp& start);

// Decimal digits plus d, without leading zeros.
std::string ZiffernPlus(const std::string& ziffern, uint64_t d);

class TertiaerBereich {
public:
    // Sieves start .. start + breite. On a stop (Abbruch) or a failed allocation the range
    // before stays as it was, and the result is false.
    bool Sieben(const Hyp& start, int32_t breite, TertiaerFenster* ziel);
    // Tests every candidate by BPSW; the survivors are the probable primes. A stop leaves the
    // range untested (the candidates stand) and gives false.
    bool Testen(TertiaerFenster* ziel);

    bool Bereit() const { return !gesiebt_.empty(); }
    bool Getestet() const { return !getestet_.empty(); }
    int32_t Breite() const { return breite_; }
    const std::string& StartZiffern() const { return startZiffern_; }
    // The start modulo 30: the cells of a line follow the residues of the numbers.
    int32_t Rest30() const { return versatz_ % 30; }

    // A survivor of the sieve; after the test also a probable prime (Prim).
    bool Kandidat(int64_t d) const { return frei(gesiebt_, d); }
    bool Prim(int64_t d) const { return frei(Getestet() ? getestet_ : gesiebt_, d); }
    // 2, 3 and 5 where they lie in the window (they have no place in the raster).
    std::vector<int32_t> Klein() const;
    // The marked numbers: the probable primes after the test (nurPrim), else the candidates.
    int64_t Anzahl(bool nurPrim) const;
    // start + d as decimal digits.
    std::string Ziffern(int64_t d) const { return ZiffernPlus(startZiffern_, uint64_t(d)); }

    // Calls f(d) for the marked distances from von to bis ascending, until f returns false.
    template <typename F>
    void Durchlaufen(int64_t von, int64_t bis, bool nurPrim, F&& f) const {
        const std::vector<uint32_t>& raster = nurPrim && Getestet() ? getestet_ : gesiebt_;
        if (bis > breite_) bis = breite_;
        if (raster.empty() || von > bis) return;
        const int64_t erstes = von < 0 ? 0 : (von + versatz_) / RasterSpanne;
        FreieBitsDurchlaufen(raster.data(), uint64_t(erstes), raster.size(), int64_t(-versatz_), von, bis, f);
    }

private:
    bool frei(const std::vector<uint32_t>& raster, int64_t d) const {
        if (d < 0 || d > breite_ || raster.empty()) return false;
        const int64_t pos = d + versatz_;
        const uint32_t maske = RestMaske[pos % RasterSpanne];
        return maske != 0 && (raster[size_t(pos / RasterSpanne)] & maske) == 0;
    }
    // Whether the shared raster still is this range's, as the sieve left it.
    bool steht() const;

    Hyp start_;
    std::string startZiffern_;
    int32_t breite_ = 0;
    int32_t versatz_ = 0;              // start mod 120
    std::vector<uint32_t> gesiebt_;    // the raster after the sieve
    std::vector<uint32_t> getestet_;   // after the test; empty while untested
};

}  // namespace sw
