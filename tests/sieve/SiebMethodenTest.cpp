// The seven build methods against a plain sieve of Eratosthenes and against each other, and
// the steps of a run that every method shares.
#include <gtest/gtest.h>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basMaxPrimaer.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {
namespace {

class SiebMethoden : public SwTest {};

// Every method, for limits at the edges of words, of square roots and of the sieving words:
// the raster must agree with the oracle bit for bit up to the limit, and all methods must
// leave the same words (the finishing steps strike the numbers above the limit).
TEST_F(SiebMethoden, AlleMethodenGleichUndRichtig) {
    const std::vector<int64_t> grenzen = {1000, 1001, 1019, 1200, 14399, 14400, 14401, 28561,
                                          57121, 100000, 123457, 1000000, 1234567, 10000000};
    for (int64_t grenze : grenzen) {
        const std::vector<bool> prim = Eratosthenes(uint64_t(grenze));
        std::vector<uint32_t> erstes;
        for (int32_t m = 0; m < MethodenAnzahl; ++m) {
            SCOPED_TRACE("limit " + std::to_string(grenze) + " method " + MethodenName(m));
            ASSERT_TRUE(PrimaerLauf(Decimal(grenze), m));
            EXPECT_EQ(RasterAbweichungen(PrimaerRaster, prim, uint64_t(grenze)), "");
            if (m == 0) {
                erstes = PrimaerRaster;
            } else {
                EXPECT_TRUE(PrimaerRaster == erstes);
            }
        }
    }
}

}  // namespace
}  // namespace sw::test
