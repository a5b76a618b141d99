// The written-out value of 2^p - 1 against GMP's whole decimal text: whole up to 4,010 digits,
// else exactly its first and last 2,000 digits; the digit count at the powers of two whose
// digit count changes; and the steps from prime exponent to prime exponent at both ends.
#include <gmp.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "mersenne/MersenneWert.h"
#include "mersenne/basDB.h"

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

// The result line reads the database without creating one; a known divisor wins over a missing
// limit, a searched exponent names its limit, and a Mersenne prime stays one.
TEST_F(MersenneWert_, WissenAusDerDatenbank) {
    EXPECT_EQ(MersenneWissen(13), TextP1(1440, "13"));
    EXPECT_EQ(MersenneWissen(11), TextP1(1441, "11"));
    EXPECT_FALSE(std::filesystem::exists(DbDateiPfad(0)));

    PrimSchreiben(11, 2, "23", 0);
    PrimSchreiben(29, 2, "233x1103x2089", 3);
    PrimSchreiben(37, 0, "0", 1000);
    PrimSchreiben(127, 1, "0", 1000);
    EXPECT_EQ(MersenneWissen(11), TextP1(487, "23"));
    EXPECT_EQ(MersenneWissen(29), TextP1(487, "233"));
    EXPECT_EQ(MersenneWissen(37), TextP1P2(1443, "37", "1.000"));
    EXPECT_EQ(MersenneWissen(127), TextP1(1440, "127"));
    EXPECT_EQ(MersenneWissen(41), Text(484));
    DbSchliessen();
}

}  // namespace
}  // namespace sw::test
