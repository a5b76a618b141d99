// Hash: how evenly the primes spread over the buckets of a bit-folding hash. Every prime of the
// primary raster up to a bound is hashed to b bits and its bucket counted; a chi-square
// against the uniform spread says whether the differences are more than chance.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace sw {

inline constexpr uint64_t HashHoechstGrenze = 2000000000;

struct HashErgebnis {
    std::vector<int32_t> HashTabelle;  // 2^b + 1 cells: the last one no fold reaches
    int32_t HashBits = 0;
    int32_t HashMethode = 0;
    int32_t HashMaximum = 0;
    uint64_t anzahl = 0;     // primes counted
    uint64_t bis = 0;        // the bound of the walk
    uint64_t erreicht = 0;   // how far it came (bis unless stopped)
    bool vollstaendig = false;
};

// b from 1 to 26 (from 3 for method 1, whose fold takes b - 3 bits), methods 0..2; else a
// Laufzeitfehler with the message.
void HashPruefen(int32_t bits, int32_t methode);
// The walk's bound: the smaller of PrimaerGrenze and 2,000,000,000.
uint64_t HashGrenze();

// The bucket of a prime c by method: 0 aHASH32(c, b); 1 aHASH32(c, b - 3) * 8 + the class of
// c mod 30 (1, 7, 11, 13, 17, 19, 23, 29 give 0..7; 2, 3 and 5 go to bucket 0); 2 aHASH32XOR(c, b).
// Counts 2, 3, 5 and then every prime of the raster up to bis (at most HashGrenze()). weiter(share)
// is asked between pieces of the walk; false stops it with the counts so far.
HashErgebnis HashVerteilung(int32_t bits, int32_t methode, uint64_t bis,
                            const std::function<bool(double)>& weiter = {});

struct ChiQuadrat {
    double wert = 0;            // sum over the 2^b buckets of (count - mean)^2 / mean
    int64_t freiheitsgrade = 0; // 2^b - 1
    double p = 1;               // chance of a value at least this large under a uniform spread
};
ChiQuadrat HashChiQuadrat(const HashErgebnis& e);

// The regularised upper incomplete gamma function Q(a, x), the tail of the chi-square law.
double GammaQ(double a, double x);

// "Bucket;Anzahl" per bucket 0..2^b.
std::string HashCsv(const HashErgebnis& e);

}  // namespace sw
