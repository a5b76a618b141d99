// Powers, gcd, inverses, roots and the word helpers against GMP and against plain loops.
#include <gtest/gtest.h>

#include <numeric>

#include "ArithHilfen.h"
#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

class RechnenTest : public SwTest {};

Hyp H(const char* dez) { return Text2Hyp(dez); }
std::string T(const Hyp& h) { return Hyp2Text(h); }

TEST_F(RechnenTest, ModularPowersAgreeWithMpzPowmOnBothSidesOfBarrett) {
    Mpz m, e, soll;
    for (int bits : {2, 33, 200, 255, 256, 257, 1000, 4000}) {
        for (int i = 0; i < 12 / kRunden + 1; ++i) {
            do ZufallsZahl(m.z, bits); while (mpz_cmp_ui(m.z, 0) == 0);
            ZufallsZahl(e.z, bits > 1000 ? 300 : bits);
            const Hyp hm = HypAus(m.z), he = HypAus(e.z);
            mpz_powm(soll.z, Mpz(HypZwei).z, e.z, m.z);
            if (mpz_cmp_ui(e.z, 0) == 0) mpz_set_ui(soll.z, 1);  // e = 0 gives 1 even mod 1
            EXPECT_EQ(mpz_cmp(Mpz(ZweiPotenzMod(he, hm)).z, soll.z), 0) << "2^" << e.Text() << " mod " << m.Text();
            const uint32_t b = uint32_t(Zufall()());
            Mpz basis;
            mpz_set_ui(basis.z, b);
            mpz_powm(soll.z, basis.z, e.z, m.z);
            if (mpz_cmp_ui(e.z, 0) == 0) mpz_set_ui(soll.z, 1);
            EXPECT_EQ(mpz_cmp(Mpz(HypPotenzMod(int32_t(b), he, hm)).z, soll.z), 0)
                << b << "^" << e.Text() << " mod " << m.Text();
        }
    }
}

TEST_F(RechnenTest, PowerEdgeCases) {
    // {exponent, modulus, 2^e mod m} and {base, exponent, power}: 0 and 1 stay 0 and 1 even
    // for an exponent whose power could never be formed.
    const char* zweiPotenzen[][3] = {{"1", "1000000007", "2"}, {"0", "7", "1"}, {"5", "1", "0"}};
    for (auto& f : zweiPotenzen) EXPECT_EQ(T(ZweiPotenzMod(H(f[0]), H(f[1]))), f[2]) << "2^" << f[0] << " mod " << f[1];
    const char* potenzen[][3] = {{"7", "0", "1"}, {"0", "0", "1"}, {"0", "99999999999999999999", "0"},
                                 {"1", "99999999999999999999", "1"}, {"2", "127", "170141183460469231731687303715884105728"}};
    for (auto& f : potenzen) EXPECT_EQ(T(HypPotenz(H(f[0]), H(f[1]))), f[2]) << f[0] << "^" << f[1];
    EXPECT_EQ(T(HypPotenzMod(64001, H("3"), H("999"))), "899");
    EXPECT_THROW(ZweiPotenzMod(H("3"), H("0")), Laufzeitfehler);
    EXPECT_THROW(HypPotenzMod(3, H("3"), H("0")), Laufzeitfehler);
    Mpz soll;
    mpz_ui_pow_ui(soll.z, 12345, 678);
    EXPECT_EQ(T(HypPotenz(H("12345"), H("678"))), soll.Text());
}

TEST_F(RechnenTest, PowersAboveTheLimitAreRefusedBeforeAnyWork) {
    HoechstBits = 1000;
    EXPECT_EQ(T(HypPotenz(H("2"), H("999"))).size(), 301u);
    EXPECT_THROW(HypPotenz(H("2"), H("1001")), Laufzeitfehler);
    EXPECT_THROW(HypPotenz(H("3"), H("99999999999999999999999")), Laufzeitfehler);
    HoechstBits = HoechstBitsStandard;
    try {
        HypPotenz(H("10"), H("1000000000000"));
        FAIL() << "a power of 3.3e12 bits must be refused";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), FehlerUeberlauf);
        EXPECT_NE(e.Beschreibung().find("100000000"), std::string::npos) << e.Beschreibung();
    }
}

TEST_F(RechnenTest, GcdAndInverseAgainstGmp) {
    Mpz a, m, g, inv;
    for (int i = 0; i < 60 / kRunden; ++i) {
        ZufallsZahl(a.z, 500);
        do ZufallsZahl(m.z, 400); while (mpz_cmp_ui(m.z, 1) <= 0);
        mpz_gcd(g.z, a.z, m.z);
        EXPECT_EQ(mpz_cmp(Mpz(HypGGT(HypAus(a.z), HypAus(m.z))).z, g.z), 0);
        const Hyp x = HypModInverse(HypAus(a.z), HypAus(m.z));
        if (mpz_invert(inv.z, a.z, m.z) == 0) mpz_set_ui(inv.z, 0);
        EXPECT_EQ(mpz_cmp(Mpz(x).z, inv.z), 0) << a.Text() << " mod " << m.Text();
    }
    EXPECT_EQ(T(HypGGT(H("0"), H("12"))), "12");
    EXPECT_EQ(T(HypGGT(H("12"), H("0"))), "12");
    EXPECT_EQ(T(HypModInverse(H("6"), H("9"))), "0");
    EXPECT_EQ(T(HypModInverse(H("5"), H("0"))), "0");
    EXPECT_EQ(ModInverseLong(3, 7), 5);
    EXPECT_EQ(ModInverseLong(6, 9), 0);
    EXPECT_EQ(ModInverseLong(2147483646, 2147483647), 2147483646);
    EXPECT_EQ(GGTLong(7, 0), 7);
    EXPECT_EQ(GGTLong(int32_t(0x80000000u), -1), -1);
}

TEST_F(RechnenTest, RootsAgainstMpzSqrtrem) {
    const char* faelle[][3] = {{"0", "0", "0"}, {"1", "1", "0"}, {"99", "9", "18"},
                               {"18446744073709551616", "4294967296", "0"}, {"2", "1", "1"}};
    for (auto& f : faelle) {
        EXPECT_EQ(T(HypWurzel(H(f[0]), true)), f[1]) << f[0];
        EXPECT_EQ(T(HypWurzel(H(f[0]), false)), f[2]) << f[0];
    }
    Mpz n, s, r;
    for (int bits : {10, 63, 64, 65, 128, 1000, 30000}) {
        for (int i = 0; i < 10 / kRunden + 1; ++i) {
            ZufallsZahl(n.z, bits);
            mpz_sqrtrem(s.z, r.z, n.z);
            EXPECT_EQ(mpz_cmp(Mpz(HypWurzel(HypAus(n.z), true)).z, s.z), 0) << n.Text();
            EXPECT_EQ(mpz_cmp(Mpz(HypWurzel(HypAus(n.z), false)).z, r.z), 0) << n.Text();
            // A perfect square and its neighbour below.
            mpz_mul(n.z, s.z, s.z);
            EXPECT_EQ(T(HypWurzel(HypAus(n.z), false)), "0");
            if (mpz_cmp_ui(n.z, 0) > 0) {
                mpz_sub_ui(n.z, n.z, 1);
                mpz_sqrt(r.z, n.z);
                EXPECT_EQ(mpz_cmp(Mpz(HypWurzel(HypAus(n.z), true)).z, r.z), 0);
            }
        }
    }
}

TEST_F(RechnenTest, JacobiAgainstGmp) {
    Mpz n, a;
    for (int i = 0; i < 400 / kRunden; ++i) {
        ZufallsZahl(n.z, i % 2 ? 32 : 200);
        const uint32_t aw = (i % 5 == 0) ? uint32_t(Zufall()() % 64) : uint32_t(Zufall()());
        mpz_set_ui(a.z, aw);
        const int soll = (mpz_odd_p(n.z) && mpz_cmp_ui(n.z, 1) > 0) ? mpz_jacobi(a.z, n.z) : 0;
        EXPECT_EQ(JacobiSymbol(int32_t(aw), HypAus(n.z)), soll) << aw << " / " << n.Text();
    }
    EXPECT_EQ(JacobiSymbol(3, H("10")), 0);
    EXPECT_EQ(JacobiSymbol(3, H("1")), 0);
}

TEST_F(RechnenTest, PerfectSquaresOfWords) {
    EXPECT_TRUE(IstQuadrat(2147395600));  // 46340^2
    EXPECT_FALSE(IstQuadrat(2147395599));
    for (int32_t x = 1; x < 20000; ++x) {
        const int32_t w = int32_t(std::sqrt(double(x)));
        ASSERT_EQ(IstQuadrat(x), w * w == x) << x;
    }
}

TEST_F(RechnenTest, WordHelpers) {
    EXPECT_EQ(TeilerK("2351", 47), "25");  // 2351 = 2*25*47 + 1
    for (int32_t c : {0, 1, 2}) {
        const auto s = TeilerSchritte(c);
        ASSERT_EQ(s.size(), 16u);
        // Class 0 walks all 16 candidates of one period, classes 1 and 2 half of them twice.
        EXPECT_EQ(std::accumulate(s.begin(), s.end(), 0), c == 0 ? 120 : 240) << "class " << c;
    }
    // The class-0 wheel walks 119, 121, 127, 137, ...: every number 1 or 7 mod 8 prime to 15.
    int32_t x = 119;
    for (int32_t schritt : TeilerSchritte(0)) {
        EXPECT_TRUE((x % 8 == 1 || x % 8 == 7) && x % 3 != 0 && x % 5 != 0) << x;
        x += schritt;
    }
    EXPECT_EQ(PrimfaktorenLong(360), (std::vector<int32_t>{0, 2, 3, 5}));
    EXPECT_EQ(PrimfaktorenLong(2147483647), (std::vector<int32_t>{0, 2147483647}));
    EXPECT_EQ(PrimfaktorenLong(1), (std::vector<int32_t>{0}));
}

TEST_F(RechnenTest, PrimitiveRootsAgainstTheOrder) {
    auto ordnung = [](uint64_t a, uint64_t p) {
        uint64_t x = a % p, k = 1;
        while (x != 1) {
            x = x * a % p;
            ++k;
        }
        return k;
    };
    for (int32_t p : {3, 5, 7, 11, 13, 23, 41, 191, 409, 7919}) {
        const int32_t g = Primitivwurzel(p);
        EXPECT_EQ(ordnung(uint64_t(g), uint64_t(p)), uint64_t(p - 1)) << p;
        for (int32_t a = 2; a < g; ++a) EXPECT_LT(ordnung(uint64_t(a), uint64_t(p)), uint64_t(p - 1)) << p;
    }
    EXPECT_EQ(Primitivwurzel(760321), 73);  // 760320 = 2^9 3^3 5 11
    EXPECT_EQ(ordnung(73, 760321), 760320u);
}

TEST_F(RechnenTest, FftArraysRoundTripAndHoldAConvolution) {
    Mpz a, b, soll;
    for (int i = 0; i < 10; ++i) {
        ZufallsZahl(a.z, 300);
        ZufallsZahl(b.z, 300);
        const auto fa = Int2FFTArr(HypAus(a.z));
        EXPECT_EQ(mpz_cmp(Mpz(FFTArr2Int(fa)).z, a.z), 0);
        // Schoolbook convolution of the byte arrays, carried by FFTArr2Int, is the product.
        auto fb = Int2FFTArr(HypAus(b.z));
        const size_t n = std::max(fa.size(), fb.size());
        std::vector<int32_t> c(2 * n, 0);
        for (size_t x = 0; x < fa.size(); ++x)
            for (size_t y = 0; y < fb.size(); ++y) c[x + y] += fa[x] * fb[y];
        mpz_mul(soll.z, a.z, b.z);
        EXPECT_EQ(mpz_cmp(Mpz(FFTArr2Int(c)).z, soll.z), 0);
    }
    std::vector<int32_t> v{0, 1, 2, 3, 4, 5, 6, 7};
    BrevOrder(v, 8);
    EXPECT_EQ(v, (std::vector<int32_t>{0, 4, 2, 6, 1, 5, 3, 7}));
}

}  // namespace
}  // namespace sw::test
