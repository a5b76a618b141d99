// The Decimal family against plain 128-bit arithmetic: every member over a list of edge values
// (word borders, 2^95, 2^96-1, values with only Mid32 or Hi32 set) and divisors (0, 1, 120,
// the largest words), with a tag in the holder's bytes that no member other than aMoveDec may
// touch. A zero divisor must follow the library's rule instead of trapping.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "ZkTestHilfen.h"

using namespace zktest;

namespace {

using U128 = unsigned __int128;

constexpr uint16_t kMarke = 0xBEEF;

// The edge values, then a few random ones of each width.
std::vector<U128> werte() {
    const U128 eins = 1;
    std::vector<U128> w{0,
                        1,
                        2,
                        7,
                        119,
                        120,
                        121,
                        0x7FFFFFFF,
                        0xFFFFFFFF,
                        eins << 32,
                        (eins << 32) + 119,
                        (eins << 64) - 1,
                        eins << 64,
                        eins << 95,
                        (eins << 96) - 1,
                        U128(0x12345678) << 32,  // Mid32 only
                        U128(0x9ABCDEF0) << 64,  // Hi32 only
                        (U128(3) << 64) | 5};
    for (int i = 0; i < 20; ++i) {
        const U128 z = (U128(zufallsWort()) << 64) | (U128(zufallsWort()) << 32) | zufallsWort();
        w.push_back(z >> (i % 3 * 32));
    }
    return w;
}

const uint32_t kTeiler[] = {0, 1, 2, 3, 5, 8, 120, 641, 0x7FFFFFFF, 0x80000000u, 0xFFFFFFFBu, 0xFFFFFFFFu};

DecimalSatz markiert(U128 v, bool negativ = false) {
    DecimalSatz d = decAus(v);
    d.reserved = kMarke;
    d.sign = negativ ? 128 : 0;
    return d;
}

// The bytes that belong to the holder (tag, scale, sign) are those of the original.
bool kopfHeil(const DecimalSatz& d, bool negativ = false) {
    return d.reserved == kMarke && d.scale == 0 && d.sign == (negativ ? 128 : 0);
}

TEST(DecimalFamilie, RemaindersAndQuotientsByAWordAgreeWith128BitArithmetic) {
    for (const U128 v : werte()) {
        for (const uint32_t m : kTeiler) {
            const Long ml = Long(m);
            const U128 rest = m == 0 ? 0 : v % m;
            const U128 quot = m == 0 ? v : v / m;  // a zero divisor leaves the number as it is
            SCOPED_TRACE(::testing::Message() << "value " << uint64_t(v >> 64) << ":" << uint64_t(v) << " by " << m);

            const DecimalSatz d = markiert(v);
            EXPECT_EQ(uint32_t(aModDec32(&d, ml)), uint32_t(rest));
            EXPECT_EQ(decWert(d), v);

            DecimalSatz q = markiert(v);
            EXPECT_EQ(uint32_t(aDivDec32(&q, ml)), uint32_t(rest));
            EXPECT_EQ(decWert(q), quot);
            EXPECT_TRUE(kopfHeil(q));

            DecimalSatz l = markiert(v);
            EXPECT_EQ(uint32_t(aLowModDec32(&l, ml)), uint32_t(rest));
            EXPECT_EQ(decWert(l), v - rest);
            EXPECT_TRUE(kopfHeil(l));

            // The quotient as a Long is asked only where it fits; 0 for a zero divisor.
            if (m == 0 || quot <= 0xFFFFFFFFu) {
                EXPECT_EQ(uint32_t(aDivDec2Long(&d, ml)), m == 0 ? 0u : uint32_t(quot));
            }
        }
        const DecimalSatz d = markiert(v);
        EXPECT_EQ(aMODDec120(&d), Long(v % 120));
        EXPECT_EQ(aMODDec8(&d), Long(v % 8));
        EXPECT_EQ(aMODDec2(&d), Long(v % 2));
        DecimalSatz k = markiert(v);
        aDecAuf120Kappen(&k);
        EXPECT_EQ(decWert(k), v - v % 120);
        EXPECT_TRUE(kopfHeil(k));
    }
}

TEST(DecimalFamilie, ShiftsCutAt96BitsAndKeepTheHoldersBytes) {
    const U128 maske = (U128(1) << 96) - 1;
    for (const U128 v : werte()) {
        for (const Long n : {-1, 0, 1, 31, 32, 33, 64, 95, 96, 200}) {
            DecimalSatz l = markiert(v, true), r = markiert(v, true);
            aShiftLeftDec(&l, n);
            aShiftRightDec(&r, n);
            const U128 linksSoll = n <= 0 ? v : (n >= 96 ? 0 : (v << n) & maske);
            const U128 rechtsSoll = n <= 0 ? v : (n >= 96 ? 0 : v >> n);
            EXPECT_EQ(decWert(l), linksSoll) << n;
            EXPECT_EQ(decWert(r), rechtsSoll) << n;
            EXPECT_TRUE(kopfHeil(l, true) && kopfHeil(r, true)) << n;
        }
    }
}

TEST(DecimalFamilie, SignedRemainderOfTwoDecimals) {
    struct Fall {
        long long a, b, soll;
    };
    // Truncating division: the remainder keeps a's sign; a zero remainder is +0.
    const Fall faelle[] = {{-7, 5, -2}, {7, 5, 2}, {7, -5, 2}, {-7, -5, -2}, {-10, 5, 0}, {3, 7, 3}, {0, 9, 0}};
    for (const Fall& f : faelle) {
        DecimalSatz a = markiert(U128(f.a < 0 ? -f.a : f.a), f.a < 0);
        const DecimalSatz b = markiert(U128(f.b < 0 ? -f.b : f.b), f.b < 0);
        aModDecDirekt(&a, &b);
        const long long ist = (a.sign ? -1 : 1) * (long long)decWert(a);
        EXPECT_EQ(ist, f.soll) << f.a << " mod " << f.b;
        EXPECT_EQ(a.sign, f.soll < 0 ? 128 : 0) << f.a << " mod " << f.b;
        EXPECT_EQ(a.reserved, kMarke);
    }
    for (const U128 v : werte()) {
        for (const U128 m : werte()) {
            DecimalSatz a = markiert(v, true);
            const DecimalSatz b = markiert(m);
            aModDecDirekt(&a, &b);
            EXPECT_EQ(decWert(a), m == 0 ? v : v % m) << "a zero modulus leaves a";
        }
    }
}

TEST(DecimalFamilie, MoveCopiesAllSixteenBytes) {
    DecimalSatz quelle = markiert((U128(0x11111111) << 64) | 0x2222222233333333ull, true);
    quelle.scale = 7;
    DecimalSatz ziel = markiert(0);
    ziel.reserved = 0;
    aMoveDec(&quelle, &ziel);
    EXPECT_EQ(std::memcmp(&quelle, &ziel, sizeof quelle), 0);
}

}  // namespace
