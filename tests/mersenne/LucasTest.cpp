// The Lucas-Lehmer test against the list of the Mersenne primes below 2^3000 - 1, and against
// GMP's own verdict on the composites between them.
#include <gtest/gtest.h>

#include <gmp.h>

#include <set>

#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "mersenne/basLucas.h"
#include "primality/HypMpz.h"

namespace sw::test {
namespace {

class Lucas : public SwTest {};

TEST_F(Lucas, FindsExactlyTheMersennePrimesBelow3000) {
    const std::set<uint32_t> bekannt{2, 3, 5, 7, 13, 17, 19, 31, 61, 89, 107, 127, 521, 607, 1279, 2203, 2281};
    for (uint32_t p = 0; p < 3000; ++p) {
        const LucasErgebnis e = LucasLehmer(p);
        EXPECT_EQ(e, bekannt.count(p) ? LucasErgebnis::Prim : LucasErgebnis::Zusammengesetzt) << p;
    }
}

// Small exponents, where 2^p - 1 is checked by GMP independently of the recursion: prime
// exponents with composite Mersenne numbers (11, 23, 29, ...) are where a wrong reduction shows.
TEST_F(Lucas, AgreesWithAnIndependentTestForSmallExponents) {
    for (uint32_t p = 0; p <= 200; ++p) {
        Mpz m;
        mpz_setbit(m, p);
        mpz_sub_ui(m, m, 1);
        const bool prim = mpz_probab_prime_p(m, 30) > 0;
        EXPECT_EQ(LucasLehmer(p) == LucasErgebnis::Prim, prim) << p;
    }
}

TEST_F(Lucas, AStopEndsTheRunWithoutAVerdict) {
    ui.beiDoEvents = [] { Abbruch = true; };
    ui.uhr = 0;
    EXPECT_EQ(LucasLehmer(44497), LucasErgebnis::Abgebrochen);
    EXPECT_GE(ui.doEvents, 1);
}

}  // namespace
}  // namespace sw::test
