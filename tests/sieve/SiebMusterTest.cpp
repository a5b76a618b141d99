// The patterns of the smallest primes against striking their odd multiples one by one, at
// window starts on both sides of 2^64, at offsets that make every period wrap inside a
// segment, and at stretches shorter than a segment.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "TestUmgebung.h"
#include "sieve/RasterTabellen.h"
#include "sieve/SiebMuster.h"

namespace sw::test {
namespace {

using U128 = unsigned __int128;

// The words from startWort + versatz on with every odd multiple of a prime from 7 to bis
// struck (the prime itself too: a window puts the sieving primes back afterwards).
std::vector<uint32_t> direkt(U128 startWort, uint64_t versatz, uint64_t anzahl, uint32_t bis) {
    std::vector<uint32_t> w(anzahl, 0);
    const U128 basis = (startWort + versatz) * RasterSpanne;
    for (uint32_t p = 7; p <= bis; p += 2) {
        bool prim = true;
        for (uint32_t t = 3; t * t <= p; t += 2) prim = prim && p % t != 0;
        if (!prim) continue;
        // The first odd multiple of p at or after basis.
        uint64_t n = uint64_t((p - basis % p) % p);
        if (uint64_t((basis + n) / p % 2) == 0) n += p;
        for (; n < anzahl * RasterSpanne; n += 2 * uint64_t(p)) {
            w[n / RasterSpanne] |= RestMaske[(basis + n) % RasterSpanne];
        }
    }
    return w;
}

class SiebMusterTest : public SwTest {};

TEST_F(SiebMusterTest, PatternsEqualTheStrikesOfTheirPrimes) {
    std::mt19937_64 zufall(20261124);
    std::vector<U128> starts = {0, 1, 17016, (U128(1) << 64) / RasterSpanne, U128(1) << 100};
    for (int i = 0; i < 4; ++i) starts.push_back((U128(zufall()) << 40) ^ zufall());
    for (const U128 start : starts) {
        const MusterStand stand = MusterStandVon(start);
        for (const uint64_t versatz : {uint64_t(0), uint64_t(2020), uint64_t(27220), uint64_t(1) << 33}) {
            for (const uint64_t anzahl : {MusterLaengeHoechstens, uint64_t(1), uint64_t(4099)}) {
                SCOPED_TRACE("start word " + std::to_string(uint64_t(start)) + ", offset " + std::to_string(versatz) +
                             ", " + std::to_string(anzahl) + " words");
                std::vector<uint32_t> w(anzahl, 0xDEADBEEF);
                MusterSchreiben(w.data(), anzahl, stand, versatz, false);
                EXPECT_EQ(w, direkt(start, versatz, anzahl, MusterErsteGroesste));
                MusterSchreiben(w.data(), anzahl, stand, versatz, true);
                EXPECT_EQ(w, direkt(start, versatz, anzahl, MusterGroesstePrimzahl));
            }
        }
    }
}

}  // namespace
}  // namespace sw::test
