// A Mersenne database as a divisor search to k = 1000 leaves it for the exponents up to
// 100,000: every prime p from 3 gets a row, with its smallest divisor q = 2kp + 1 (k <= 1000)
// or without one, and the Mersenne prime exponents as such. The divisors come from a plain
// loop of its own (2^p mod q by 128-bit products), not from the program's search. Shared by
// the analysis tests and the read-only test of the windows.
#pragma once

#include <cstdint>
#include <vector>

#include "frame/Decimal.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {

struct BestandZeile {
    int32_t p;
    int64_t k;  // 0: none up to 1000
};

inline constexpr int32_t kBestandGrenze = 100000;
inline constexpr int64_t kBestandK = 1000;
inline const int32_t kMersennePrimExponenten[] = {3,    5,    7,     13,    17,    19,    31,    61,   89,
                                                  107,  127,  521,   607,   1279,  2203,  2281,  3217, 4253,
                                                  4423, 9689, 9941,  11213, 19937, 21701, 23209, 44497, 86243};

inline uint64_t ZweiHochModulo(uint64_t e, uint64_t m) {
    unsigned __int128 r = 1, b = 2 % m;
    for (; e != 0; e >>= 1) {
        if (e & 1) r = r * b % m;
        b = b * b % m;
    }
    return uint64_t(r);
}

// The rows, computed once per test program.
inline const std::vector<BestandZeile>& BestandZeilen() {
    static const std::vector<BestandZeile> zeilen = [] {
        std::vector<bool> zusammengesetzt(kBestandGrenze + 1);
        std::vector<BestandZeile> z;
        for (int32_t p = 2; p <= kBestandGrenze; ++p) {
            if (zusammengesetzt[size_t(p)]) continue;
            for (int64_t m = int64_t(p) * p; m <= kBestandGrenze; m += p) zusammengesetzt[size_t(m)] = true;
            if (p == 2) continue;
            BestandZeile b{p, 0};
            for (int64_t k = 1; k <= kBestandK && b.k == 0; ++k) {
                const uint64_t q = uint64_t(2 * k * p + 1);
                if (ZweiHochModulo(uint64_t(p), q) == 1) b.k = k;
            }
            z.push_back(b);
        }
        return z;
    }();
    return zeilen;
}

// Sieves to 100,000 and writes the rows into the database folder that is set.
inline void BestandAnlegen() {
    PrimaerLauf(Decimal(kBestandGrenze), MethodeProdukt);
    std::vector<bool> mersenne(kBestandGrenze + 1);
    for (int32_t p : kMersennePrimExponenten) mersenne[size_t(p)] = true;
    {
    DbTransaktion t;
    for (const BestandZeile& b : BestandZeilen()) {
        if (mersenne[size_t(b.p)]) {
            PrimSchreiben(b.p, 1, "0", int32_t(kBestandK));
        } else {
            PrimSchreiben(b.p, b.k != 0 ? 2 : 0, b.k != 0 ? std::to_string(2 * b.k * b.p + 1) : "0",
                          int32_t(kBestandK));
        }
    }
    }
    DbSchliessen();
}

}  // namespace sw::test
