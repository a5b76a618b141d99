// The single-number tests against independent oracles: a sieve, the Perrin sequence itself,
// plain 64-bit powers, and the known pseudoprimes each test lets through.
#include <gtest/gtest.h>

#include <vector>

#include "TestUmgebung.h"
#include "arith/basHyper.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "primality/PrimTests.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

Hyp H(unsigned long n) { return MpzZuHyp(Mpz(n)); }

std::vector<bool> Sieb(size_t bis) {
    std::vector<bool> prim(bis + 1, true);
    prim[0] = prim[1] = false;
    for (size_t p = 2; p * p <= bis; ++p) {
        if (prim[p]) {
            for (size_t v = p * p; v <= bis; v += p) prim[v] = false;
        }
    }
    return prim;
}

uint64_t PotenzMod(uint64_t b, uint64_t e, uint64_t m) {
    unsigned __int128 r = 1, x = b % m;
    for (; e; e >>= 1, x = x * x % m) {
        if (e & 1) r = r * x % m;
    }
    return uint64_t(r);
}

class PrimTests : public SwTest {
protected:
    void TearDown() override {
        MillerRabinBasis = -2;
        SwTest::TearDown();
    }
};

TEST_F(PrimTests, PseudoprimzahlenJederMethode) {
    const std::vector<bool> prim = Sieb(100000);
    // Base 2: the strong pseudoprimes are exactly these below 10^5; the Fermat ones follow
    // from the plain power.
    const std::vector<unsigned long> stark2 = {2047,  3277,  4033,  4681,  8321,  15841, 29341, 42799,
                                               49141, 52633, 65281, 74665, 80581, 85489, 88357, 90751};
    MillerRabinBasis = 0;
    for (unsigned long n = 5; n < 100000; n += 2) {
        const bool pseudo = std::find(stark2.begin(), stark2.end(), n) != stark2.end();
        ASSERT_EQ(MillerRabin(H(n)), prim[n] || pseudo) << n;
        ASSERT_EQ(FermatTest(H(n)), PotenzMod(2, n - 1, n) == 1) << n;
    }
    // 341 passes Fermat to base 2, but most random Miller-Rabin bases expose it.
    MillerRabinBasis = -2;
    int bestanden = 0;
    for (int i = 0; i < 200; ++i) bestanden += MillerRabin(H(341));
    EXPECT_LT(bestanden, 50);
    EXPECT_TRUE(FermatTest(H(341)));
    // Carmichael numbers pass Fermat to every base prime to them.
    for (unsigned long n : {561ul, 41041ul}) EXPECT_TRUE(FermatTest(H(n))) << n;
    // Every prime passes every random round; an odd composite fails one of 40 Solovay-Strassen
    // rounds (each lets it through with chance at most 1/2).
    for (unsigned long n = 5; n < 20000; n += 2) {
        bool alle = true;
        for (int i = 0; i < 40 && alle; ++i) alle = StrassenTest(H(n));
        ASSERT_EQ(alle, bool(prim[n])) << n;
        if (prim[n]) {
            ASSERT_TRUE(MillerRabin(H(n))) << n;
        }
    }
    // Fixed bases that are a multiple of the number or -1 mod it never call a prime composite.
    for (int32_t basis : {5, 11, 29, 64000}) {
        MillerRabinBasis = basis;
        for (unsigned long p : {7ul, 13ul, 31ul, 64007ul, 64013ul}) EXPECT_TRUE(MillerRabin(H(p))) << basis << " " << p;
    }
}

TEST_F(PrimTests, PerrinGegenDieFolge) {
    // P(n) mod n from the sequence itself, for every n up to 3000.
    for (int32_t n = 2; n <= 3000; ++n) {
        const Hyp p = PerrinHyp(n);
        const bool null = aModHyp32(p, n) == 0;
        ASSERT_EQ(PerrinTest(H(uint32_t(n))), null && n % 3 != 0) << n;
    }
    // The two composites below 10^6 that pass, and the primes around them.
    const std::vector<bool> prim = Sieb(1000000);
    for (unsigned long n : {271441ul, 904631ul}) {
        EXPECT_FALSE(prim[n]);
        EXPECT_TRUE(PerrinTest(H(n))) << n;
    }
    for (unsigned long n = 900001; n < 910000; n += 2) {
        if (n != 904631) {
            ASSERT_EQ(PerrinTest(H(n)), bool(prim[n])) << n;
        }
    }
    EXPECT_TRUE(PerrinTest(MpzZuHyp(Mpz((1ul << 61) - 1))));
}

TEST_F(PrimTests, GrosseZahlenMethodenEinsBisVier) {
    // 2^61 - 1 and 2^127 - 1 pass all four; 2^67 - 1 = 193707721 * 761838257287 fails all but
    // Fermat's: 2^67 = 1 mod n, and 67 divides n - 1, so every Mersenne number passes base 2.
    Mpz z;
    for (unsigned long e : {61ul, 127ul, 67ul}) {
        mpz_ui_pow_ui(z, 2, e);
        mpz_sub_ui(z, z, 1);
        const Hyp n = MpzZuHyp(z);
        const bool prim = e != 67;
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(MillerRabin(n), prim) << e;
            EXPECT_EQ(StrassenTest(n), prim) << e;
        }
        EXPECT_EQ(PerrinTest(n), prim) << e;
        EXPECT_TRUE(FermatTest(n)) << e;
    }
}

TEST_F(PrimTests, FermatSucheExakt) {
    EXPECT_FALSE(FermatSuche(H(9)));  // a square, at step 1
    const std::vector<bool> prim = Sieb(5000);
    for (unsigned long n = 7; n < 5000; n += 2) ASSERT_EQ(FermatSuche(H(n)), bool(prim[n])) << n;
    // A split far from the root is found too.
    EXPECT_FALSE(FermatSuche(H(7ul * 1000003ul)));
    // The stop ends the walk with false.
    ui.beiDoEvents = [] { Abbruch = true; };
    EXPECT_FALSE(FermatSuche(H(1000003ul)));
    EXPECT_GT(ui.doEvents, 0);
}

}  // namespace
}  // namespace sw::test
