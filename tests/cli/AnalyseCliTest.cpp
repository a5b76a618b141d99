// sw-cli analyse and series from the outside: the figures of a known number, a series count
// checked by PARI beforehand, JSON a script can read, and refusals as one line.
#include <gtest/gtest.h>

#include "CliBasis.h"

namespace sw::test {
namespace {

using AnalyseCli = CliBasis;

TEST_F(AnalyseCli, ZahlUndReihe) {
    const Lauf a = Starten("analyse 600851475143");
    EXPECT_EQ(a.code, 0) << a.fehler;
    EXPECT_EQ(a.aus,
              "n 600851475143\nverdict composite\ndigits 12\nbits 40\nfactors 71x839x1471x6857\ntau 16\n"
              "sigma 610544148480\nphi 591194251200\nmu 1\nperfect power no\nprevious prime 600851475067\n"
              "next prime 600851475149\ncollatz steps 210\n");
    const Lauf j = Starten("analyse '2^61-1' --json");
    EXPECT_EQ(j.code, 0) << j.fehler;
    EXPECT_NE(j.aus.find("\"verdict\":\"prime\""), std::string::npos) << j.aus;
    EXPECT_NE(j.aus.find("\"tau\":2,\"sigma\":2305843009213693952,\"phi\":2305843009213693950,\"mu\":-1"),
              std::string::npos)
        << j.aus;
    EXPECT_NE(j.aus.find("\"next_prime\":2305843009213693967"), std::string::npos) << j.aus;

    const Lauf r = Starten("series 'n^2+n+41' 0 40");
    EXPECT_EQ(r.code, 0) << r.fehler;
    EXPECT_EQ(r.aus.rfind("0 41 prime 41\n", 0), 0u) << r.aus;
    EXPECT_NE(r.aus.find("\n40 1681 composite 41\nprimes 40 of 41, expected "), std::string::npos) << r.aus;
    const Lauf e = Starten("series '2^n+1' 0 16 --json");
    EXPECT_EQ(e.code, 0) << e.fehler;
    EXPECT_EQ(e.aus.rfind("{\"formula\":\"2^n+1\",\"from\":0,\"to\":16,\"members\":17,\"primes\":6,\"polynomial\":false,", 0), 0u)
        << e.aus;
}

TEST_F(AnalyseCli, Ablehnungen) {
    for (const char* argumente : {"analyse 0", "analyse -- -7", "analyse '5-5'", "analyse x", "series n 5 4",
                                  "series n 0 10000000", "series '' 0 3", "series n 0"})
        Abgelehnt(argumente);
}

}  // namespace
}  // namespace sw::test
