// The Collatz kernels against the plain rule, one step at a time, for every start up to 10^6
// (10^5 under the sanitizers), and for starts that climb beyond 128 bits.
#include <gtest/gtest.h>

#include "ZkTestHilfen.h"

using namespace zktest;

namespace {

struct Folge {
    long schritte = 0, mult = 0;
};

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
    const DecimalSatz d27 = decAus(27);
    EXPECT_EQ(aUlamAnzi(&d27), 111);
    EXPECT_NE(aUlamTestMult(&d27, 41), 0);
}

TEST(Collatz, GrosseStartwerte) {
    // Random 96-bit starts: values climb past 2^128 for some, which the kernel walks in Hyp
    // arithmetic; the reference walks them in mpz.
    Mpz n;
    for (int i = 0; i < 300 / kFaktor; ++i) {
        const unsigned __int128 v = (static_cast<unsigned __int128>(zufallsWort()) << 64 |
                                     (uint64_t(zufallsWort()) << 32 | zufallsWort())) >>
                                    (zufallsWort() % 90);
        const uint32_t w[3] = {uint32_t(v), uint32_t(v >> 32), uint32_t(v >> 64)};
        mpz_import(n.z, 3, -1, 4, 0, 0, w);
        long schritte = 0, mult = 0;
        while (mpz_cmp_ui(n.z, 1) > 0) {
            if (mpz_odd_p(n.z)) {
                mpz_mul_ui(n.z, n.z, 3);
                mpz_add_ui(n.z, n.z, 1);
                ++mult;
            } else {
                mpz_fdiv_q_2exp(n.z, n.z, 1);
            }
            ++schritte;
        }
        const DecimalSatz d = decAus(v);
        ASSERT_EQ(aUlamAnzi(&d), schritte);
        ASSERT_EQ(aUlamTestMult(&d, int32_t(mult)), -1);
    }
    // 2^95: only halvings, 95 of them.
    const DecimalSatz p = decAus(static_cast<unsigned __int128>(1) << 95);
    EXPECT_EQ(aUlamAnzi(&p), 95);
    EXPECT_NE(aUlamTestMult(&p, 0), 0);
    // The all-ones 96-bit start climbs to about 2^150 (96 log2(3) bits): through the
    // 128-bit range into the Hyp walk and back.
    mpz_set_ui(n.z, 1);
    mpz_mul_2exp(n.z, n.z, 96);
    mpz_sub_ui(n.z, n.z, 1);
    long schritte = 0;
    size_t hoechsteBits = 0;
    while (mpz_cmp_ui(n.z, 1) > 0) {
        if (mpz_odd_p(n.z)) {
            mpz_mul_ui(n.z, n.z, 3);
            mpz_add_ui(n.z, n.z, 1);
        } else {
            mpz_fdiv_q_2exp(n.z, n.z, 1);
        }
        hoechsteBits = std::max(hoechsteBits, mpz_sizeinbase(n.z, 2));
        ++schritte;
    }
    EXPECT_GT(hoechsteBits, 128u);
    const DecimalSatz voll = decAus((static_cast<unsigned __int128>(1) << 96) - 1);
    EXPECT_EQ(aUlamAnzi(&voll), schritte);
}
