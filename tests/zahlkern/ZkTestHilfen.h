// Shared helpers of the zahlkern tests: a seeded random source whose seed is printed (and can
// be replayed with ZK_SEED=...), operands with carry and borrow patterns, conversions between
// Hyp, Decimal and mpz, and Hyps with guard words behind their room.
#pragma once

#include <gmp.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "zahlkern/Hyp.h"
#include "zahlkern/zahlkern.h"

namespace zktest {

// Loop counts shrink under the address sanitizer, which makes every access several times dearer.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kFaktor = 8;
#else
constexpr int kFaktor = 1;
#endif

std::mt19937_64& zufall();   // seeded once per program; the seed is printed
uint32_t zufallsWort();

// n words of one of the patterns: random, all ones, single top bit, sparse bits, long runs.
std::vector<uint32_t> muster(int n, int art);
constexpr int kMusterArten = 6;

// An mpz with the value of the words.
struct Mpz {
    mpz_t z;
    Mpz() { mpz_init(z); }
    explicit Mpz(const std::vector<uint32_t>& w) : Mpz() { setze(w); }
    ~Mpz() { mpz_clear(z); }
    Mpz(const Mpz&) = delete;
    Mpz& operator=(const Mpz&) = delete;
    void setze(const std::vector<uint32_t>& w);
    std::string text() const;
};

// A Hyp holding the words, with room up to `raum` (at least the count) and kWaechter guard
// words behind the room that a correct call never touches.
constexpr int kWaechter = 3;
constexpr int32_t kWaechterWert = int32_t(0xDEADBEEF);
sw::Hyp hypAus(const std::vector<uint32_t>& w, int32_t raum);
sw::Hyp hypAus(const mpz_t z, int32_t raum);
bool waechterHeil(const sw::Hyp& h, int32_t raum);
// An empty target (count 1, value 0) of room `raum` with the guard words behind it.
sw::Hyp zielMitWaechtern(int32_t raum);

// The Hyp's value as an mpz; checks the count rule (count >= 1, top word not 0 unless zero).
void hypNachMpz(mpz_t z, const int32_t* h);
bool hypNormal(const int32_t* h);
bool hypGleich(const int32_t* h, const mpz_t z);
// The words 1..count of a Hyp, to compare a whole result in one check.
using Worte = std::vector<uint32_t>;
Worte hypWorte(const int32_t* h);

DecimalSatz decAus(unsigned __int128 v);
DecimalSatz decAusMpz(const mpz_t z);  // z below 2^96
unsigned __int128 decWert(const DecimalSatz& d);

}  // namespace zktest
