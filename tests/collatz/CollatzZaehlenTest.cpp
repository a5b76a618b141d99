// The counts of the fast walk against independent plain loops: every start up to 10^6 in
// 64 bits, the 3n - 1 rule, the known delay records, a power of two beyond one word, and
// 2^100000 - 1 walked by GMP step by step; and the stop inside one large number.
#include <gmp.h>
#include <gtest/gtest.h>

#include <string>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "collatz/CollatzBereich.h"
#include "collatz/basCollatz.h"
#include "frame/basZentral.h"

namespace sw::test {
namespace {

class CollatzZaehlen_ : public SwTest {};

struct Schlicht {
    uint64_t schritte = 0, mult = 0;
};

// The obvious loop: one step per multiplication or halving, until an end value.
Schlicht schlicht(unsigned __int128 n, int s) {
    Schlicht z;
    while (n > 1 && !(s < 0 && (n == 5 || n == 17))) {
        if (n & 1) {
            n = 3 * n + s;
            ++z.mult;
        } else {
            n >>= 1;
        }
        ++z.schritte;
    }
    return z;
}

TEST_F(CollatzZaehlen_, JederStartBisEineMillionWieDieSchlichteSchleife) {
    for (uint64_t n = 1; n <= 1000000; ++n) {
        const Schlicht z = schlicht(n, 1);
        const CollatzGang g = CollatzGang64(n, CollatzRegel::DreiNPlusEins);
        ASSERT_EQ(uint64_t(g.tSchritte + g.ungerade), z.schritte) << n;
        ASSERT_EQ(uint64_t(g.ungerade), z.mult) << n;
    }
    for (uint64_t n = 1; n <= 200000; ++n) {
        const Schlicht z = schlicht(n, -1);
        const CollatzGang g = CollatzGang64(n, CollatzRegel::DreiNMinusEins);
        ASSERT_EQ(uint64_t(g.tSchritte + g.ungerade), z.schritte) << n;
    }
    // Starts whose walks climb beyond 2^64 go through the wide walk and back.
    for (uint64_t n : {uint64_t(1) << 62 | 27, ~uint64_t(0), ~uint64_t(0) - 2}) {
        const Schlicht z = schlicht(n, 1);
        const CollatzGang g = CollatzGang64(n, CollatzRegel::DreiNPlusEins);
        EXPECT_EQ(uint64_t(g.tSchritte + g.ungerade), z.schritte) << n;
    }
}

TEST_F(CollatzZaehlen_, BereichNutztKleinereStarts) {
    // The range count reuses the counts of the smaller starts; each must still be its own.
    uint64_t erwartet = 900000;
    ASSERT_TRUE(CollatzBereichZaehlen(900000, 1000000, CollatzRegel::DreiNPlusEins, [&](uint64_t n, const CollatzGang& g) {
        ASSERT_EQ(n, erwartet++);
        const Schlicht z = schlicht(n, 1);
        ASSERT_EQ(uint64_t(g.tSchritte + g.ungerade), z.schritte) << n;
        ASSERT_EQ(uint64_t(g.ungerade), z.mult) << n;
    }));
    EXPECT_EQ(erwartet, 1000001u);
}

TEST_F(CollatzZaehlen_, RekordeUndZweierpotenzen) {
    int32_t schritte = -1, mult = -1;
    for (const auto& [start, erwartet] : {std::pair{"63728127", 949}, std::pair{"670617279", 986}}) {
        CollatzZahl = Ziffern2Hyp(start);
        ASSERT_TRUE(CollatzZaehlen(schritte, mult));
        EXPECT_EQ(schritte, erwartet) << start;
    }
    CollatzZahl = Ziffern2Hyp("1267650600228229401496703205376");  // 2^100
    ASSERT_TRUE(CollatzZaehlen(schritte, mult));
    EXPECT_EQ(schritte, 100);
    EXPECT_EQ(mult, 0);
    CollatzZahl = Ziffern2Hyp("1");
    ASSERT_TRUE(CollatzZaehlen(schritte, mult));
    EXPECT_EQ(schritte, 0);
    EXPECT_EQ(mult, 0);
}

// 2^e - 1 as a Hyp.
Hyp mersenne(uint32_t e) {
    Hyp h(int32_t(e / 32 + 2));
    for (uint32_t i = 0; i < e / 32; ++i) h[int32_t(i) + 1] = -1;
    if (e % 32) h[int32_t(e / 32) + 1] = int32_t((uint32_t(1) << (e % 32)) - 1);
    h[0] = int32_t((e + 31) / 32);
    return h;
}

TEST_F(CollatzZaehlen_, GrosserStartWieGmp) {
    constexpr uint32_t e = 100000;
    mpz_t n;
    mpz_init(n);
    mpz_setbit(n, e);
    mpz_sub_ui(n, n, 1);
    uint64_t schritte = 0, mult = 0;
    while (mpz_cmp_ui(n, 1) != 0) {
        if (mpz_odd_p(n)) {
            mpz_mul_ui(n, n, 3);
            mpz_add_ui(n, n, 1);
            ++mult;
            ++schritte;
        }
        const mp_bitcnt_t z = mpz_scan1(n, 0);
        mpz_tdiv_q_2exp(n, n, z);
        schritte += z;
    }
    mpz_clear(n);

    CollatzZahl = mersenne(e);
    int32_t s = 0, m = 0;
    ASSERT_TRUE(CollatzZaehlen(s, m));
    EXPECT_EQ(uint64_t(s), schritte);
    EXPECT_EQ(uint64_t(m), mult);
    // The mark string has one character per T step: a "!" per multiplication and its halving.
    CollatzZahl = mersenne(e);
    const std::string muster = CollatzMuster();
    const std::string marken = muster.substr(muster.find(" = ") + 3);
    EXPECT_EQ(uint64_t(marken.size()), schritte - mult);
    EXPECT_EQ(uint64_t(std::count(marken.begin(), marken.end(), '!')), mult);
}

TEST_F(CollatzZaehlen_, StoppImGrossenWert) {
    ui.beiDoEvents = [] { Abbruch = true; };
    CollatzZahl = mersenne(200000);
    int32_t s = 0, m = 0;
    EXPECT_FALSE(CollatzZaehlen(s, m));
    EXPECT_GT(ui.doEvents, 0);
    EXPECT_GT(s, 0);
    EXPECT_GT(CollatzZahl[0], 1);  // stopped inside the number, not at its end
}

}  // namespace
}  // namespace sw::test
