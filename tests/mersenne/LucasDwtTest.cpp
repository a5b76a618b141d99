// The transform engine against an independent GMP loop (mpz_mul and mpz_mod): the Mersenne
// primes, the residues of composite 2^p - 1, the word-size boundaries, and the error handling
// (a length far too short, a falsified digit, no larger length left).
#include <gtest/gtest.h>

#include <gmp.h>

#include <vector>

#include "frame/Laufzeitfehler.h"
#include "mersenne/LucasDwt.h"
#include "primality/HypMpz.h"

namespace sw::test {
namespace {

// S(1 + k) modulo 2^p - 1, step by step with mpz_mod.
class GmpFolge {
public:
    explicit GmpFolge(uint32_t p) : s_(4) {
        mpz_setbit(m_, p);
        mpz_sub_ui(m_, m_, 1);
    }
    void Laufen(uint64_t k) {
        for (uint64_t i = 0; i < k; ++i) {
            mpz_mul(s_, s_, s_);
            mpz_sub_ui(s_, s_, 2);
            mpz_mod(s_, s_, m_);
        }
    }
    uint64_t Res64() const {
        Mpz niedrig;
        mpz_tdiv_r_2exp(niedrig, s_, 64);
        uint64_t r = 0;
        mpz_export(&r, nullptr, -1, sizeof r, 0, 0, niedrig.get());
        return r;
    }
    std::vector<uint32_t> Wert() const {
        std::vector<uint32_t> w(mpz_size(s_.get()) * 2 + 1, 0);
        size_t n = 0;
        mpz_export(w.data(), &n, -1, sizeof(uint32_t), 0, 0, s_.get());
        w.resize(std::max<size_t>(n, 1));
        return w;
    }

private:
    Mpz m_, s_;
};

bool IstPrim(uint32_t p) {
    if (p < 2) return false;
    for (uint32_t d = 2; d * d <= p; ++d) {
        if (p % d == 0) return false;
    }
    return true;
}

TEST(LucasDwt, EveryMersennePrimeExponentUpTo4423EndsInZero) {
    for (uint32_t p : {3u, 5u, 7u, 13u, 17u, 19u, 31u, 61u, 89u, 107u, 127u, 521u, 607u, 1279u, 2203u, 2281u,
                       3217u, 4253u, 4423u}) {
        LucasDwt d(p);
        ASSERT_EQ(d.Laufen(p - 2), p - 2) << p;
        EXPECT_TRUE(d.IstNull()) << p;
        EXPECT_EQ(d.Res64(), 0u) << p;
        EXPECT_EQ(d.Wert(), std::vector<uint32_t>{0}) << p;
    }
}

// p = 11 is the smallest composite case; 0x6C8 = 1736 is S(10) modulo 2047.
TEST(LucasDwt, CompositeResiduesAgreeWithGmp) {
    LucasDwt elf(11);
    elf.Laufen(9);
    EXPECT_EQ(elf.Res64(), 0x6C8u);
    EXPECT_FALSE(elf.IstNull());
    for (uint32_t p = 3; p < 700; ++p) {
        if (!IstPrim(p)) continue;
        LucasDwt d(p);
        GmpFolge g(p);
        ASSERT_EQ(d.Laufen(p - 2), p - 2);
        g.Laufen(p - 2);
        EXPECT_EQ(d.Res64(), g.Res64()) << p;
        EXPECT_EQ(d.Wert(), g.Wert()) << p;
    }
}

// Every length from the smallest up, at exponents just below and above the word sizes 32 and
// 64, so that words of one and two sizes, words of a single bit and words of 30 bits all occur.
TEST(LucasDwt, WordSizeBoundariesAtEveryLength) {
    for (uint32_t p : {31u, 61u, 67u, 89u, 127u, 131u}) {
        GmpFolge g(p);
        g.Laufen(50);
        for (size_t n : {2u, 4u, 6u, 8u, 10u, 12u, 14u, 16u, 20u, 24u, 28u, 32u}) {
            if (n > p) continue;
            LucasDwt d(p, n);
            ASSERT_EQ(d.Laufen(50), 50u);
            EXPECT_EQ(d.Wert(), g.Wert()) << p << " " << n;
        }
    }
}

TEST(LucasDwt, TinyExponentsUseTheSmallestLength) {
    LucasDwt drei(3);
    EXPECT_EQ(drei.FftLaenge(), 2u);
    EXPECT_EQ(drei.Laufen(1), 1u);
    EXPECT_TRUE(drei.IstNull());
    EXPECT_THROW(LucasDwt(2), Laufzeitfehler);
}

// A run cut into calls of any size, and a run that starts from a residue set in the middle,
// give what one run from S(1) gives; the Jacobi checks fall across the calls.
TEST(LucasDwt, PiecesAndSetResiduesContinueTheSameSequence) {
    const uint32_t p = 3217;
    GmpFolge g(p);
    g.Laufen(5000);
    LucasDwt stuecke(p);
    uint32_t summe = 0;
    for (uint32_t k : {1u, 999u, 1500u, 7u, 2493u}) summe += stuecke.Laufen(k);
    EXPECT_EQ(summe, 5000u);
    EXPECT_EQ(stuecke.Wert(), g.Wert());

    GmpFolge mitte(p);
    mitte.Laufen(3000);
    LucasDwt weiter(p);
    weiter.Setzen(mitte.Wert());
    weiter.Laufen(2000);
    EXPECT_EQ(weiter.Wert(), g.Wert());
    EXPECT_EQ(weiter.Wiederholungen(), 0u);
}

// A length far too short for p: the round-off check sees it in the first iteration, and the
// engine climbs the lengths until the outputs are safe again.
TEST(LucasDwt, TooShortALengthIsLeftForALargerOne) {
    const uint32_t p = 2281;
    LucasDwt d(p, 64);
    ASSERT_EQ(d.Laufen(p - 2), p - 2);
    EXPECT_TRUE(d.IstNull());
    EXPECT_GT(d.FftLaenge(), 64u);
    EXPECT_GE(d.Wiederholungen(), 1u);
    EXPECT_GT(d.GroessterFehler(), 0.4);
}

// A falsified digit keeps the round-off small; the Jacobi check finds it at the next check,
// and the stretch since the last verified residue is run again.
TEST(LucasDwt, AFalsifiedDigitIsFoundByTheJacobiCheck) {
    const uint32_t p = 4423;
    LucasDwt d(p);
    const size_t laenge = d.FftLaenge();
    d.StoerenNach(2500);
    ASSERT_EQ(d.Laufen(p - 2), p - 2);
    EXPECT_TRUE(d.IstNull());
    EXPECT_GE(d.Wiederholungen(), 1u);
    EXPECT_GT(d.FftLaenge(), laenge);
}

// A doubled convolution output is still an integer, so the round-off check passes it; the sum
// check sees it in the same iteration, long before the next Jacobi check at 2,000, and the
// stretch is run again at the next length with the right residue in the end.
TEST(LucasDwt, AFaultInsideTheTransformIsFoundByTheSumCheck) {
    for (const uint32_t p : {9941u, 86243u}) {
        GmpFolge g(p);
        g.Laufen(1000);
        LucasDwt d(p);
        const size_t laenge = d.FftLaenge();
        d.FaltungStoerenNach(700);
        ASSERT_EQ(d.Laufen(1000), 1000u);
        EXPECT_EQ(d.Wiederholungen(), 1u) << p;
        EXPECT_GT(d.FftLaenge(), laenge) << p;
        EXPECT_EQ(d.Wert(), g.Wert()) << p;
    }
}

// p = 11 has no length above 10: a detected error leaves the last verified residue, and when
// that lies before the call, the engine brings it up to where the call began.
TEST(LucasDwt, WithoutALargerLengthTheRunStopsAtTheVerifiedResidue) {
    const uint32_t p = 11;
    GmpFolge g(p);
    g.Laufen(1500);
    LucasDwt d(p, 10);
    ASSERT_EQ(d.Laufen(1500), 1500u);
    d.StoerenNach(1);  // a fault that this Jacobi check sees (not every one does)
    EXPECT_EQ(d.Laufen(3000), 0u);
    EXPECT_EQ(d.Wert(), g.Wert());
    EXPECT_EQ(d.FftLaenge(), 10u);
}

}  // namespace
}  // namespace sw::test
