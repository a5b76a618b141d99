// The written-out value of 2^p - 1 against GMP's whole decimal text: whole up to 4,010 digits,
// else exactly its first and last 2,000 digits; the digit count at the powers of two whose
// digit count changes; and the steps from prime exponent to prime exponent at both ends.
#include <gmp.h>
#include <gtest/gtest.h>

#include <string>

#include "TestUmgebung.h"
#include "mersenne/MersenneWert.h"

namespace sw::test {
namespace {

std::string GanzerWert(uint32_t p) {
    mpz_t m;
    mpz_init(m);
    mpz_setbit(m, p);
    mpz_sub_ui(m, m, 1);
    char* text = mpz_get_str(nullptr, 10, m);
    std::string s(text);
    void (*freigeben)(void*, size_t);
    mp_get_memory_functions(nullptr, nullptr, &freigeben);
    freigeben(text, s.size() + 1);
    mpz_clear(m);
    return s;
}

class MersenneWert_ : public SwTest {};

TEST_F(MersenneWert_, KurzGanzLangAnDenEnden) {
    EXPECT_EQ(MersenneWertText(0), "0");
    EXPECT_EQ(MersenneWertText(1), "1");
    EXPECT_EQ(MersenneWertText(13), "8191");
    for (uint32_t p : {127u, 13318u, 13319u, 13320u, 13321u, 20000u, 44497u}) {
        const std::string ganz = GanzerWert(p);
        EXPECT_EQ(MersenneStellen(p), ganz.size()) << p;
        if (ganz.size() <= MersenneWertGanzBis) {
            EXPECT_EQ(MersenneWertText(p), ganz) << p;
        } else {
            EXPECT_EQ(MersenneWertText(p), ganz.substr(0, 2000) + " ... " + ganz.substr(ganz.size() - 2000)) << p;
        }
    }
    EXPECT_THROW(MersenneWertText(MersenneWertHoechstExponent + 1), Laufzeitfehler);
}

// Where p log10 2 passes an integer the digit count grows by one: the estimate by a double
// must not be off by one there.
TEST_F(MersenneWert_, StellenAnJedemUebergang) {
    for (uint32_t p = 0; p < 3000; ++p) ASSERT_EQ(MersenneStellen(p), GanzerWert(p).size()) << p;
}

TEST_F(MersenneWert_, SchritteUeberPrimzahlen) {
    EXPECT_EQ(PrimExponentSchritt(11, 1), 13u);
    EXPECT_EQ(PrimExponentSchritt(13, -1), 11u);
    EXPECT_EQ(PrimExponentSchritt(0, 1), 3u);
    EXPECT_EQ(PrimExponentSchritt(3, -1), 0u);
    EXPECT_EQ(PrimExponentSchritt(4294967295LL, -1), 4294967291u);
    EXPECT_EQ(PrimExponentSchritt(4294967291LL, 1), 0u);
}

}  // namespace
}  // namespace sw::test
