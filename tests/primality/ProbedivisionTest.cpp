// Trial division: the walk down from the root against brute force in both of its phases and
// at a hundred digits, the small-factor question and the full division with and without the
// raster.
#include <gtest/gtest.h>

#include <random>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "primality/HypMpz.h"
#include "primality/Probedivision.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

Hyp H(unsigned long n) { return MpzZuHyp(Mpz(n)); }

struct Aufzeichnung : PrimTestAnzeige {
    void Hinweis(const std::string& text) override { zeilen.push_back(text); }
    std::vector<std::string> zeilen;
};

// The first divisor of the walk: the greatest d prime to 30 from the root down to the limit.
unsigned long ErwarteterTeiler(unsigned long n, unsigned long untere) {
    unsigned long d = 1;
    while ((d + 1) * (d + 1) <= n) ++d;
    for (; d >= untere && d >= 7; --d) {
        if (d % 2 && d % 3 && d % 5 && n % d == 0) return d;
    }
    return 0;
}

class Probedivision : public SwTest {};

TEST_F(Probedivision, WurzelWegGegenBruteForce) {
    std::mt19937_64 zufall(5);
    // Random n up to 10^9 and limits: near the root the quotient rises by a few per step,
    // far below it by hundreds (the estimated steps); both must land on the same divisor.
    for (int i = 0; i < 400; ++i) {
        unsigned long n = 1000 + zufall() % 1000000000;
        while (n % 2 == 0 || n % 3 == 0 || n % 5 == 0) ++n;
        const int32_t grenze = int32_t(100 + zufall() % 3000);
        const unsigned long untere = std::max(grenze / 30 * 30 + 1, 7);
        Aufzeichnung a;
        PrimTestBericht b(a);
        const bool prim = WurzelProbedivision(H(n), grenze, b);
        const unsigned long d = ErwarteterTeiler(n, untere);
        ASSERT_EQ(prim, d == 0) << n << " " << grenze;
        ASSERT_EQ(b.Ergebnis().text, d ? TextP1(142, ZahlFormat(static_cast<long long>(d))) : Text(140)) << n;
        ASSERT_TRUE(b.Ergebnis().bewiesen);
    }
}

TEST_F(Probedivision, WurzelWegFindetKleinenFaktorUndHundertStellen) {
    gmp_randstate_t rs;
    gmp_randinit_default(rs);
    gmp_randseed_ui(rs, 17);
    Mpz p, q, n;
    for (int i = 0; i < 8; ++i) {
        // p < 10^6 and q above it by a factor up to 300: the walk runs from the root down to p,
        // far into the phase of estimated steps.
        mpz_set_ui(p, 1000 + gmp_urandomm_ui(rs, 999000));
        mpz_nextprime(p, p);
        mpz_mul_ui(q, p, 1 + gmp_urandomm_ui(rs, 300));
        mpz_nextprime(q, q);
        mpz_mul(n, p, q);
        Aufzeichnung a;
        PrimTestBericht b(a);
        EXPECT_FALSE(WurzelProbedivision(MpzZuHyp(n), 100, b));
        EXPECT_EQ(b.Ergebnis().text, TextP1(142, ZahlFormat(static_cast<long long>(mpz_get_ui(p)))));
    }
    // A quotient that rises by more than a word per step: quotient and rest are formed anew.
    mpz_set_ui(p, 1009);
    mpz_set_ui(q, 100000000000ul);
    mpz_nextprime(q, q);
    mpz_mul(n, p, q);
    Aufzeichnung a;
    PrimTestBericht b(a);
    EXPECT_FALSE(WurzelProbedivision(MpzZuHyp(n), 100, b));
    EXPECT_EQ(b.Ergebnis().text, TextP1(142, "1.009"));
    // Two primes of up to 50 digits close together: 100-digit products, found near the root.
    for (unsigned long bits : {64ul, 100ul, 166ul}) {
        mpz_urandomb(p, rs, bits);
        mpz_nextprime(p, p);
        mpz_add_ui(q, p, gmp_urandomm_ui(rs, 20000));
        mpz_nextprime(q, q);
        mpz_mul(n, p, q);
        Aufzeichnung c;
        PrimTestBericht e(c);
        EXPECT_FALSE(WurzelProbedivision(MpzZuHyp(n), 100, e)) << bits;
        EXPECT_EQ(e.Ergebnis().text, TextP1(142, Hyp2Anzeige(MpzZuHyp(p)))) << bits;
    }
    gmp_randclear(rs);
}

TEST_F(Probedivision, KleineTeilerUndVolleDivision) {
    struct Fall {
        unsigned long n;
        int32_t limit;
        bool klein;
        bool prim;
    };
    const Fall faelle[] = {
        {2, 100, true, true},        {49, 100, true, false},          {7, 100, false, true},
        {1000003, 100, false, true}, {1009ul * 1000003ul, 1009, true, false},
        {1009ul * 1000003ul, 1008, false, false}, {4294967291ul * 3ul, 10, true, false},
        {1, 100, false, false},
    };
    for (bool raster : {false, true}) {
        if (raster) {
            ASSERT_TRUE(PrimaerLauf(Decimal(2000000), MethodeProdukt));
        }
        for (const Fall& f : faelle) {
            EXPECT_EQ(HatKleinenTeiler(H(f.n), f.limit), f.klein) << f.n << " " << raster;
            EXPECT_EQ(ProbedivisionHyp(H(f.n)), f.prim) << f.n << " " << raster;
        }
    }
    // A root beyond the 32-bit divisors cannot be walked: said so, and no verdict of prime.
    Mpz m;
    mpz_ui_pow_ui(m, 2, 89);
    mpz_sub_ui(m, m, 1);
    EXPECT_FALSE(ProbedivisionHyp(MpzZuHyp(m)));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1203));
}

}  // namespace
}  // namespace sw::test
