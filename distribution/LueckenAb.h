// LueckenAb: the gaps between consecutive primes from a start of any size. The primes come
// from windows sieved by the primary raster's primes (up to 2^127; a survivor is prime when
// the raster reaches its square root, else BPSW decides, which proves it below 2^64), and
// beyond that from a walk of probable primes. Lists the next N gaps with their merit g / ln p,
// or only the gaps of at least (or exactly) a given size, and marks the record gaps: those
// larger than every gap before them in the walk.
#pragma once

#include <cstdint>
#include <functional>

#include "primality/HypMpz.h"

namespace sw {

struct LueckenZeile {
    Mpz p;                  // the prime before the gap
    uint64_t luecke = 0;    // to the next prime
    double merit = 0;       // luecke / ln p
    bool rekord = false;    // larger than every gap of the walk before it
    bool bewiesen = true;   // both primes proven, not only probable
    uint64_t nummer = 0;    // the gap's place in the walk, 1 the first
};

struct LueckenFrage {
    uint64_t anzahl = 10;     // lines to give
    uint64_t mindestens = 0;  // only gaps of at least this size (0: every gap)
    uint64_t genau = 0;       // only gaps of exactly this size (0: no such condition)
};

// zeile gets each listed gap and returns false to stop; melden(p) is called now and then with
// the prime reached (progress, yield) and returns false to stop. The walk starts at the first
// prime >= start and ends after frage.anzahl lines. False if stopped.
bool LueckenAb(const Mpz& start, const LueckenFrage& frage, const std::function<bool(const LueckenZeile&)>& zeile,
               const std::function<bool(const Mpz&)>& melden);

// The largest gap that can be asked for: far beyond every gap known below 2^64, and a search
// for it still ends in a time worth waiting for.
inline constexpr uint64_t LueckeMax = 1000000;

}  // namespace sw
