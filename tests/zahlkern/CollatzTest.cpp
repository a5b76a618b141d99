// The Collatz kernels against the plain rule, one step at a time, for every start up to 10^6
// (10^5 under the sanitizers), and for starts that climb beyond 128 bits.
#include <gtest/gtest.h>

#include "ZkTestHilfen.h"

using namespace zktest;

namespace {

struct Folge {
    long schritte = 0, mult = 0;
    size_t hoechsteBits = 0;
};

// The plain rule, fast, for starts whose walk stays below 2^128.
Folge naiv(unsigned __int128 n) {
    Folge f;
    while (n > 1) {
        if (n & 1) {
            n = 3 * n + 1;
            ++f.mult;
        } else {
            n /= 2;
        }
        ++f.schritte;
    }
    return f;
}

// The plain rule in mpz, which no width limits; also the widest value on the way.
Folge naivGross(unsigned __int128 v) {
    Mpz n({uint32_t(v), uint32_t(v >> 32), uint32_t(v >> 64), uint32_t(v >> 96)});
    Folge f;
    while (mpz_cmp_ui(n.z, 1) > 0) {
        if (mpz_odd_p(n.z)) {
            mpz_mul_ui(n.z, n.z, 3);
            mpz_add_ui(n.z, n.z, 1);
            ++f.mult;
        } else {
            mpz_fdiv_q_2exp(n.z, n.z, 1);
        }
        f.hoechsteBits = std::max(f.hoechsteBits, mpz_sizeinbase(n.z, 2));
        ++f.schritte;
    }
    return f;
}

}  // namespace

TEST(Collatz, JederStartBisEineMillion) {
    const uint32_t bis = kFaktor == 1 ? 1000000 : 100000;
    for (uint32_t x = 0; x <= bis; ++x) {
        const DecimalSatz d = decAus(x);
        const Folge f = naiv(x);
        ASSERT_EQ(aUlamAnzi(&d), f.schritte) << x;
        if (x % 97 == 0) {
            ASSERT_EQ(aUlamTest(&d, int32_t(f.schritte)), -1) << x;
            ASSERT_EQ(aUlamTest(&d, int32_t(f.schritte) + 1), 0) << x;
            ASSERT_EQ(aUlamTestMult(&d, int32_t(f.mult)), -1) << x;
            ASSERT_EQ(aUlamTestMult(&d, int32_t(f.mult) - 1), 0) << x;
        }
    }
    const DecimalSatz d27 = decAus(27);  // 111 steps, 41 of them 3n+1
    EXPECT_NE(aUlamTestMult(&d27, 41), 0);
}

TEST(Collatz, GrosseStartwerte) {
    // Random 96-bit starts: values climb past 2^128 for some, which the kernel walks in Hyp
    // arithmetic; the reference walks them in mpz.
    for (int i = 0; i < 300 / kFaktor; ++i) {
        const unsigned __int128 v = (static_cast<unsigned __int128>(zufallsWort()) << 64 |
                                     (uint64_t(zufallsWort()) << 32 | zufallsWort())) >>
                                    (zufallsWort() % 90);
        const DecimalSatz d = decAus(v);
        const Folge f = naivGross(v);
        ASSERT_EQ(aUlamAnzi(&d), f.schritte);
        ASSERT_EQ(aUlamTestMult(&d, int32_t(f.mult)), -1);
    }
    // 2^95: only halvings, 95 of them.
    const DecimalSatz p = decAus(static_cast<unsigned __int128>(1) << 95);
    EXPECT_EQ(aUlamAnzi(&p), 95);
    EXPECT_NE(aUlamTestMult(&p, 0), 0);
    // The all-ones 96-bit start climbs to about 2^150 (96 log2(3) bits): through the
    // 128-bit range into the Hyp walk and back.
    const unsigned __int128 alleEins = (static_cast<unsigned __int128>(1) << 96) - 1;
    const Folge f = naivGross(alleEins);
    EXPECT_GT(f.hoechsteBits, 128u);
    const DecimalSatz voll = decAus(alleEins);
    EXPECT_EQ(aUlamAnzi(&voll), f.schritte);
}
