// The exponent of the systematic search for random prime q above GrenzeLong, against the walk
// down through every prime from GrenzeLong. Seconds of sieving, so it runs only with
// SW_LANGE_TESTS=1 in the environment.
#include <gmp.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "SystemReferenz.h"
#include "TestUmgebung.h"
#include "mersenne/SystemLauf.h"
#include "primality/HypMpz.h"
#include "sieve/RasterTabellen.h"

namespace sw::test {
namespace {

class SystemLaufLang : public SwTest {};

TEST_F(SystemLaufLang, ExponentGleichWalkVonGrenzeLong) {
    // About 43 s of CPU for the reference walk: kept out of the everyday run (and CI), run on
    // request before a release; the exponents below 2e9 are checked in SystemLaufTest.
    if (!std::getenv("SW_LANGE_TESTS")) GTEST_SKIP() << "nur mit SW_LANGE_TESTS=1";
    std::mt19937_64 zufall(1840);
    std::vector<Mpz> zahlen(6);
    std::vector<mpz_srcptr> qs;
    for (size_t i = 0; i < zahlen.size(); ++i) {
        // From just above GrenzeLong to 2^62, spread over the sizes.
        const uint64_t z = uint64_t(GrenzeLong) + (zufall() >> (2 + 8 * i));
        mpz_set_ui(zahlen[i], z);
        mpz_nextprime(zahlen[i], zahlen[i]);
        qs.push_back(zahlen[i]);
    }
    for (int32_t parameter : {1, 7}) {
        const std::vector<int64_t> walk = ExponentWalk(qs, parameter, GrenzeLong);
        for (size_t i = 0; i < qs.size(); ++i) {
            const int32_t p = ExponentSuchen(qs[i], parameter);
            EXPECT_EQ(p, walk[i]) << mpz_get_ui(qs[i]) << " " << parameter;
            if (mpz_sizeinbase(qs[i], 2) < 63) {
                EXPECT_EQ(OrdnungBerechnen(qs[i], p), OrdnungVerdoppeln(mpz_get_ui(qs[i]), p)) << mpz_get_ui(qs[i]);
            }
        }
    }
}

}  // namespace
}  // namespace sw::test
