// The word-vector kernels of the Lucas-Lehmer squaring against GMP: the fold modulo 2^p - 1
// at exponents on and beside word boundaries with the values where folding wraps, and the
// add and subtract helpers with carries and borrows that run on past their n words.
#include <gtest/gtest.h>

#include "ZkTestHilfen.h"

namespace {

using namespace zktest;

std::vector<uint32_t> wortVon(const mpz_t z, size_t n) {
    std::vector<uint32_t> w(n, 0);
    mpz_export(w.data(), nullptr, -1, 4, 0, 0, z);
    return w;
}

TEST(Wortvektor, FoldAgreesWithGmp) {
    Mpz m, x, r;
    for (int32_t p : {3, 5, 31, 32, 33, 63, 64, 65, 89, 127, 521, 607, 1279, 4253}) {
        const size_t L = size_t(p + 31) / 32, P = size_t(2 * p + 31) / 32;
        mpz_set_ui(m.z, 0);
        mpz_setbit(m.z, p);
        mpz_sub_ui(m.z, m.z, 1);
        // 0, 1, 2, 3, M - 1, M, M + 1, M + 2, M^2, 2^2p - 1, then random values below 2^2p.
        for (int fall = 0; fall < 10 + 40 * kFaktor; ++fall) {
            if (fall < 4) {
                mpz_set_ui(x.z, fall);
            } else if (fall < 8) {
                mpz_add_ui(x.z, m.z, 0);
                mpz_add_ui(x.z, x.z, fall - 4);
                mpz_sub_ui(x.z, x.z, 1);
            } else if (fall == 8) {
                mpz_mul(x.z, m.z, m.z);
            } else if (fall == 9) {
                mpz_set_ui(x.z, 0);
                mpz_setbit(x.z, 2 * p);
                mpz_sub_ui(x.z, x.z, 1);
            } else {
                x.setze(muster(int(P), fall % kMusterArten));
                mpz_tdiv_r_2exp(x.z, x.z, 2 * p);
            }
            const std::vector<uint32_t> produkt = wortVon(x.z, P + 1);
            for (const bool abziehen : {false, true}) {
                mpz_mod(r.z, x.z, m.z);
                if (abziehen) {
                    mpz_sub_ui(r.z, r.z, 2);
                    mpz_mod(r.z, r.z, m.z);
                }
                std::vector<uint32_t> rest(L, 0xDEADBEEF);
                const auto* q = reinterpret_cast<const Long*>(produkt.data());
                auto* z = reinterpret_cast<Long*>(rest.data());
                const Long null = abziehen ? aFalt(p, q, z) : aFaltung(p, q, z);
                EXPECT_EQ(rest, wortVon(r.z, L)) << "p " << p << " case " << fall << " -2 " << abziehen;
                EXPECT_EQ(null, mpz_sgn(r.z) == 0 ? -1 : 0) << "p " << p << " case " << fall;
            }
        }
    }
}

// t - a - b and t + a over n words, carries running into the two guard words above; t is
// chosen as a + b + c so that the difference stays non-negative.
TEST(Wortvektor, AddAndSubtractRunOnAndAgreeWithGmp) {
    Mpz a, b, c, soll;
    for (int n = 1; n <= 13; ++n) {
        for (int fall = 0; fall < 30 * kFaktor; ++fall) {
            a.setze(muster(n, fall % kMusterArten));
            b.setze(muster(n, (fall / kMusterArten) % kMusterArten));
            c.setze(muster(n, (fall + 3) % kMusterArten));
            mpz_add(soll.z, a.z, b.z);
            mpz_add(soll.z, soll.z, c.z);
            std::vector<uint32_t> t = wortVon(soll.z, size_t(n) + 2);
            const std::vector<uint32_t> wa = wortVon(a.z, size_t(n)), wb = wortVon(b.z, size_t(n));
            auto* zt = reinterpret_cast<Long*>(t.data());
            const auto* za = reinterpret_cast<const Long*>(wa.data());
            const auto* zb = reinterpret_cast<const Long*>(wb.data());
            aSubSubFromErg(za, zb, n, zt);
            EXPECT_EQ(t, wortVon(c.z, size_t(n) + 2)) << n << " " << fall;
            aAddiere(za, n, zt);
            mpz_add(soll.z, c.z, a.z);
            EXPECT_EQ(t, wortVon(soll.z, size_t(n) + 2)) << n << " " << fall;
            std::vector<uint32_t> summe(size_t(n) + 1);
            aAddOp1PlusOp2(za, zb, n, reinterpret_cast<Long*>(summe.data()));
            mpz_add(soll.z, a.z, b.z);
            EXPECT_EQ(summe, wortVon(soll.z, size_t(n) + 1)) << n << " " << fall;
        }
    }
}

}  // namespace
