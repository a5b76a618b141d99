// The raster kernels of the arithmetic library, against direct computation. The striking
// kernel is left to the full comparison of every method's raster with the oracle.
#include <gtest/gtest.h>

#include <vector>

#include "SiebHilfen.h"
#include "frame/Decimal.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

TEST(RasterKern, ZaehlenUndTeilen) {
    EXPECT_EQ(aCountNullBits(0), 32);
    EXPECT_EQ(aCountNullBits(-1), 0);
    EXPECT_EQ(aCountNullBits(int32_t(0x80040881u)), 27);
    Long rest = -1;
    EXPECT_EQ(aDivMod120(14161, &rest), 118);
    EXPECT_EQ(rest, 1);
    EXPECT_EQ(aDivMod120(-1, &rest), 35791394);  // read as unsigned: 4294967295
    EXPECT_EQ(rest, 15);
}

TEST(RasterKern, NachschlagenImRaster) {
    std::vector<uint32_t> raster(9, 0);
    raster[0] = 0x80040881u;
    raster[1] = 0x00000000u;
    raster[1] |= 0x80000000u >> 13;  // 120 + 49 = 169 struck
    for (const auto& [n, prim] : {std::pair{7, true}, {2, true}, {5, true}, {1, false}, {0, false}, {49, false},
                                  {169, false}, {9, false}, {-7, false}}) {
        EXPECT_EQ(aIsPrimPrimaer32(n, raster.data()) != 0, prim) << n;
    }
    Decimal d = 167;
    EXPECT_NE(aIsPrimPrimaerDec(&d, raster.data()), 0);
    d = 169;
    EXPECT_EQ(aIsPrimPrimaerDec(&d, raster.data()), 0);
}

// Never a prime taken for composite, and the composites below the oracle's limit all found;
// above 2^64 the wide path, with Mersenne numbers of known character.
TEST(RasterKern, IsNotPrimDec) {
    const std::vector<bool> prim = Eratosthenes(200000);
    for (int64_t n = 0; n <= 200000; ++n) {
        Decimal d = n;
        ASSERT_EQ(aIsNotPrimDEC(&d) == 0, bool(prim[size_t(n)])) << n;
    }
    auto zusammengesetzt = [](const Decimal& d) { return aIsNotPrimDEC(&d) != 0; };
    EXPECT_FALSE(zusammengesetzt(Decimal((int64_t(1) << 61) - 1)));
    EXPECT_TRUE(zusammengesetzt(Decimal(int64_t(3215031751))));  // strong pseudoprime to 2, 3, 5, 7
    EXPECT_TRUE(zusammengesetzt(Decimal(int64_t(1000000007)) * Decimal(int64_t(1000000009))));
    const Decimal m89 = Decimal::ausText("618970019642690137449562111");   // 2^89 - 1
    const Decimal m67 = Decimal::ausText("147573952589676412927");         // 2^67 - 1
    EXPECT_FALSE(zusammengesetzt(m89));
    EXPECT_TRUE(zusammengesetzt(m67));
    Decimal negativ = m89;
    negativ.sign = 128;
    EXPECT_EQ(aIsPrimPrimaerDec(&negativ, nullptr), 0);
}

}  // namespace
}  // namespace sw::test
