// The transform engine at full size: every prime p between 86,000 and 87,000 runs its whole
// test (only M86243 is prime). Minutes of CPU, so it runs only with SW_LANGE_TESTS=1 in the
// environment (SW_LANGE_TESTS=1 ctest -R LucasDwtLang); the everyday run skips it.
#include <gtest/gtest.h>

#include <cstdlib>

#include "mersenne/LucasDwt.h"

namespace sw::test {
namespace {

TEST(LucasDwtLang, EveryExponentFrom86000To87000) {
    // Minutes of CPU: kept out of the everyday run (and CI), run on request before a release.
    if (!std::getenv("SW_LANGE_TESTS")) GTEST_SKIP() << "nur mit SW_LANGE_TESTS=1";
    for (uint32_t p = 86001; p < 87000; p += 2) {
        bool prim = true;
        for (uint32_t d = 3; d * d <= p; d += 2) prim = prim && p % d != 0;
        if (!prim) continue;
        LucasDwt d(p);
        ASSERT_EQ(d.Laufen(p - 2), p - 2) << p;
        EXPECT_EQ(d.IstNull(), p == 86243) << p;
        EXPECT_LT(d.GroessterFehler(), 0.4) << p;
    }
}

}  // namespace
}  // namespace sw::test
