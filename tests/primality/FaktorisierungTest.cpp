// The factoriser against GMP: every factor multiplies back to N and is prime by GMP's test,
// proved factors are prime, the known splits of Fermat numbers come out proved, a product of
// two 25-digit primes is split, and a stopped job keeps what it found.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "frame/basZentral.h"
#include "primality/EcmSuche.h"
#include "primality/Faktorisierung.h"
#include "primality/HypMpz.h"
#include "primality/PollardRho.h"
#include "primality/PrimBeweis.h"

namespace sw::test {
namespace {

Hyp ausText(const std::string& ziffern) {
    Mpz z;
    mpz_set_str(z, ziffern.c_str(), 10);
    return MpzZuHyp(z);
}

// The product of the parts is n; primes are prime and composites composite by GMP's test.
void PasstZu(const Zerlegung& z, mpz_srcptr n) {
    Mpz produkt(1), p, potenz;
    for (const Primfaktor& f : z.faktoren) {
        HypZuMpz(p, f.wert);
        const bool prim = mpz_probab_prime_p(p, 30) != 0;
        EXPECT_EQ(prim, f.art != FaktorArt::Zusammengesetzt) << Hyp2Text(f.wert);
        mpz_pow_ui(potenz, p, static_cast<unsigned long>(f.exponent));
        mpz_mul(produkt, produkt, potenz);
    }
    EXPECT_EQ(mpz_cmp(produkt, n), 0) << ZerlegungText(z);
}

class Faktorisierung : public SwTest {};

TEST_F(Faktorisierung, FermatZahlenUndKleineFaelle) {
    const Zerlegung f7 = Zerlegen(ausText("340282366920938463463374607431768211457"));  // 2^128+1
    EXPECT_EQ(ZerlegungText(f7), "59649589127497217x5704689200685129054721");
    EXPECT_TRUE(f7.Bewiesen());

    const Zerlegung f8 = Zerlegen(ausText(
        "115792089237316195423570985008687907853269984665640564039457584007913129639937"));  // 2^256+1
    ASSERT_EQ(f8.faktoren.size(), 2u);
    EXPECT_EQ(Hyp2Text(f8.faktoren[0].wert), "1238926361552897");
    EXPECT_TRUE(f8.Vollstaendig());

    EXPECT_EQ(ZerlegungText(Zerlegen(ausText("1"))), "");
    EXPECT_EQ(ZerlegungText(Zerlegen(ausText("84"))), "2^2x3x7");
    EXPECT_EQ(ZerlegungText(Zerlegen(ausText("10000000000000000000000000000000000000000000"))), "2^43x5^43");
    // A square of a prime beyond 2^64: no curve splits it, the root does.
    EXPECT_EQ(ZerlegungText(Zerlegen(ausText("100000000000000000000000000000000000000218000000000000000000000000000000000000118810"))),
              "2x5x100000000000000000000000000000000000000109^2");
    EXPECT_THROW(Zerlegen(ausText("0")), Laufzeitfehler);
}

TEST_F(Faktorisierung, ZufallsZahlenMultiplizierenZurueck) {
    gmp_randstate_t zufall;
    gmp_randinit_default(zufall);
    gmp_randseed_ui(zufall, 4711);
    Mpz n;
    for (int i = 0; i < 40; ++i) {
        mpz_urandomb(n, zufall, 40 + 2 * i);  // 40 .. 118 bits
        mpz_add_ui(n, n, 2);
        const Zerlegung z = Zerlegen(MpzZuHyp(n));
        EXPECT_TRUE(z.Vollstaendig()) << ZerlegungText(z);
        PasstZu(z, n);
    }
    gmp_randclear(zufall);
}

TEST_F(Faktorisierung, ZweiPrimzahlenMitJe25Stellen) {
    Mpz p, q, n;
    mpz_set_str(p, "4942217576187801321088541", 10);
    mpz_set_str(q, "8796882113734473040321157", 10);
    mpz_mul(n, p, q);
    const Zerlegung z = Zerlegen(MpzZuHyp(n));
    EXPECT_EQ(ZerlegungText(z), "4942217576187801321088541x8796882113734473040321157");
    PasstZu(z, n);
}

// A stop in the middle keeps the small factors and reports the rest as one composite part.
TEST_F(Faktorisierung, AnhaltenBehaeltGefundenes) {
    struct StopptBeiEcm : FaktorBeobachter {
        bool ecmGesehen = false;
        void StandMelden(const FaktorStand& s) override {
            if (s.stufe == FaktorStufe::Ecm) {
                ecmGesehen = true;
                Abbruch = true;
            }
        }
    } beobachter;
    Mpz n;
    mpz_set_str(n, "43476105398150609739392869829498795526311472561937", 10);  // p25 * q25
    mpz_mul_ui(n, n, 8 * 101);
    const Zerlegung z = Zerlegen(MpzZuHyp(n), {}, &beobachter);
    Abbruch = false;
    EXPECT_TRUE(beobachter.ecmGesehen);
    EXPECT_TRUE(z.abgebrochen);
    EXPECT_EQ(ZerlegungText(z), "2^3x101x[43476105398150609739392869829498795526311472561937]");
    PasstZu(z, n);
}

TEST_F(Faktorisierung, RhoTeiltZahlenBis2hoch64) {
    const std::function<bool()> nie = [] { return false; };
    Mpz f, n;
    for (unsigned long p : {4294967291ul, 65521ul, 1000003ul}) {
        mpz_set_ui(n, p);
        mpz_mul_ui(n, n, 4294967279ul);
        ASSERT_TRUE(PollardRhoBrent(f, n, 1 << 24, nie)) << p;
        EXPECT_TRUE(mpz_divisible_p(n, f));
        EXPECT_GT(mpz_cmp_ui(f.get(), 1), 0);
        EXPECT_LT(mpz_cmp(f, n), 0);
    }
}

// Every level of the ladder runs real curves on numbers of every size: the library refuses a
// curve whose arithmetic does not fit its parameters (batch curves on large numbers) with a
// message and no factor, which would leave whole levels idle. A 12-digit factor of numbers of
// 40 to 400 digits falls to the first level.
TEST_F(Faktorisierung, EcmKurvenLaufenAufJederGroesse) {
    const std::function<bool()> nie = [] { return false; };
    Mpz p, n, f;
    mpz_set_ui(p, 100000000003ul);  // prime, 12 digits
    for (unsigned long stellen : {40ul, 120ul, 400ul}) {
        mpz_ui_pow_ui(n, 10, stellen - 12);
        mpz_nextprime(n, n);
        mpz_mul(n, n, p);
        const EcmErgebnis e = EcmKurvenParallel(f, n, EcmStufeNr(0).b1, 1, 4 * EcmStufeNr(0).kurven, nie);
        ASSERT_TRUE(e.gefunden) << stellen << " digits";
        EXPECT_TRUE(mpz_divisible_p(n, f));
        EXPECT_LT(mpz_cmp(f, n), 0);
    }
}

// The N-1 proof proves primes whose N-1 factors easily and never proves a composite, also
// those that fool weaker tests.
TEST_F(Faktorisierung, NMinusEinsBeweis) {
    for (const char* prim : {"5704689200685129054721", "170141183460469231731687303715884105727",
                             "93461639715357977769163558199606896584051237541638188580280321"}) {
        EXPECT_TRUE(NMinusEinsBeweis(ausText(prim))) << prim;
    }
    for (const char* zusammen : {"1", "0", "561", "3215031751", "18446744073709551617",
                                 "340282366920938463463374607431768211457",
                                 "318665857834031151167461"}) {  // a strong pseudoprime to bases up to 37
        EXPECT_FALSE(NMinusEinsBeweis(ausText(zusammen))) << zusammen;
    }
    // Random composites of 30 to 40 digits that are products of two primes 1 mod small F.
    std::mt19937_64 zufall(99);
    Mpz p, q, n;
    for (int i = 0; i < 10; ++i) {
        mpz_set_ui(p, zufall());
        mpz_mul_ui(p, p, zufall() | 1);
        mpz_nextprime(p, p);
        mpz_set_ui(q, zufall());
        mpz_nextprime(q, q);
        mpz_mul(n, p, q);
        EXPECT_FALSE(NMinusEinsBeweis(MpzZuHyp(n)));
    }
}

}  // namespace
}  // namespace sw::test
