// The raster kernels of the arithmetic library, against direct computation.
#include <gtest/gtest.h>

#include <vector>

#include "SiebHilfen.h"
#include "frame/Decimal.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

constexpr int kReste[32] = {1,  7,  11, 13, 17, 19, 23, 29, 31, 37,  41,  43,  47,  49,  53,  59,
                            61, 67, 71, 73, 77, 79, 83, 89, 91, 97, 101, 103, 107, 109, 113, 119};

TEST(RasterKern, Seave7_11StreichtGenauDieVielfachen) {
    for (Long letzter : {0, 1, 76, 77, 78, 1000}) {
        std::vector<uint32_t> raster(size_t(letzter) + 2, 0);
        aSeave7_11(raster.data(), letzter);
        EXPECT_EQ(raster.back(), 0u) << "beyond the last word";
        for (Long k = 0; k <= letzter; ++k) {
            for (int i = 0; i < 32; ++i) {
                const int64_t n = int64_t(k) * 120 + kReste[i];
                const bool gestrichen = raster[size_t(k)] & (0x80000000u >> i);
                ASSERT_EQ(gestrichen, n % 7 == 0 || n % 11 == 0) << n;
            }
        }
    }
}

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
