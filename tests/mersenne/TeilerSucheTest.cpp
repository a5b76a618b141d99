// The divisor search against known factors and against a plain search by GMP's mpz_powm over
// every k, which shares nothing with the sieve or the Montgomery test.
#include <gmp.h>
#include <gtest/gtest.h>

#include <vector>

#include "mersenne/TeilerSuche.h"
#include "mersenne/ZweierPotenz.h"

namespace sw {
namespace {

bool primzahl(uint32_t n) {
    if (n < 2) return false;
    for (uint32_t d = 2; uint64_t(d) * d <= n; ++d)
        if (n % d == 0) return false;
    return true;
}

// The smallest k <= kZiel with 2kp+1 | 2^p-1, or 0; every k, no sieve.
uint64_t kleinsterK(uint32_t p, uint64_t kZiel) {
    for (uint64_t k = 1; k <= kZiel; ++k)
        if (TeiltMersenne(p, 1 + Zahl128(2) * k * p)) return k;
    return 0;
}

std::vector<uint64_t> alleK(uint32_t p, uint64_t kVon, uint64_t kZiel) {
    std::vector<uint64_t> ks;
    TeilerSuche s(p);
    uint64_t von = kVon;
    for (;;) {
        const TeilerFund f = s.TeilerSuchen(von, kZiel);
        if (f.ergebnis != TeilerErgebnis::Gefunden) return ks;
        EXPECT_EQ(f.q, 1 + Zahl128(2) * f.k * p);
        EXPECT_TRUE(TeiltMersenne(p, f.q)) << p << " k=" << f.k;
        ks.push_back(f.k);
        von = f.k;
    }
}

TEST(TeilerSuche, KnownFactorsIncludingSievingPrimesAndTheLimits) {
    // 7 = M3 (six classes of k there), 23 | M11 (k = 1, q itself a sieving prime), 47 | M23,
    // 233, 1103, 2089 | M29.
    EXPECT_EQ(alleK(3, 0, 1000), std::vector<uint64_t>{1});
    EXPECT_EQ(alleK(11, 0, 1), std::vector<uint64_t>{1});
    EXPECT_EQ(alleK(23, 0, 100), std::vector<uint64_t>{1});
    EXPECT_EQ(alleK(29, 0, 100), (std::vector<uint64_t>{4, 19, 36}));
    // M11 = 23 * 89: both are sieving primes of a wide search, neither may be struck.
    EXPECT_EQ(alleK(11, 0, 100000), (std::vector<uint64_t>{1, 4}));
    // The limits are exact on both sides: k = 19 lies outside (19, 35] and inside (18, 19].
    EXPECT_EQ(alleK(29, 19, 35), std::vector<uint64_t>{});
    EXPECT_EQ(alleK(29, 18, 19), std::vector<uint64_t>{19});
    EXPECT_EQ(alleK(29, 4, 4), std::vector<uint64_t>{});
    // p = 100,000,123: 2,400,002,953 at k = 12, also when the search starts just below it.
    EXPECT_EQ(alleK(100000123, 0, 12), std::vector<uint64_t>{12});
    EXPECT_EQ(alleK(100000123, 11, 200), std::vector<uint64_t>{12});
    EXPECT_EQ(TeilerSuche(100000123).TeilerSuchen(0, 1000).q, Zahl128(2400002953u));
}

TEST(TeilerSuche, SmallestFactorsAgreeWithAPlainSearchNearOneMillion) {
    // One search turned from exponent to exponent, with p = 3 (six classes instead of four)
    // and p = 11 (a divisor that is a sieving prime) in between: nothing of one may stay.
    int gefunden = 0;
    TeilerSuche s(3);
    for (uint32_t p = 1000000; p <= 1000600; ++p) {
        if (!primzahl(p)) continue;
        s.Exponent(3);
        EXPECT_EQ(s.TeilerSuchen(0, 1000).k, 1u);
        s.Exponent(11);
        EXPECT_EQ(s.TeilerSuchen(0, 100000).q, Zahl128(23));
        s.Exponent(p);
        const TeilerFund f = s.TeilerSuchen(0, 100000);
        const uint64_t erwartet = kleinsterK(p, 100000);
        EXPECT_EQ(f.ergebnis == TeilerErgebnis::Gefunden ? f.k : 0, erwartet) << "p = " << p;
        gefunden += erwartet != 0;
    }
    EXPECT_GT(gefunden, 10);
}

TEST(TeilerSuche, LargeCandidatesBeyondTheMontgomeryRangeAndAStop) {
    // 2^p mod q for q on both sides of 2^63, batch against one by one.
    const uint32_t p = 1000003;
    std::vector<Zahl128> q;
    for (uint64_t k = (uint64_t(1) << 62) / p - 40; q.size() < 80; ++k) q.push_back(1 + Zahl128(2) * k * p);
    std::vector<uint8_t> teilt(q.size());
    ZweierPotenzModQ(p, q.data(), teilt.data(), q.size());
    for (size_t i = 0; i < q.size(); ++i) EXPECT_EQ(teilt[i] != 0, TeiltMersenne(p, q[i])) << i;

    // A stop between segments reports itself and finds nothing.
    TeilerSuche s(1000003);
    int fragen = 0;
    const TeilerFund f = s.TeilerSuchen(100000000, 200000000, [&](uint64_t) { return ++fragen < 2; });
    EXPECT_EQ(f.ergebnis, TeilerErgebnis::Abgebrochen);
    EXPECT_EQ(fragen, 2);
    // The limit reached is what a stored limit may say: every k up to it was tried.
    ASSERT_GT(f.k, 100000000u);
    EXPECT_EQ(s.TeilerSuchen(100000000, f.k).ergebnis, TeilerErgebnis::Keiner);
}

}  // namespace
}  // namespace sw
