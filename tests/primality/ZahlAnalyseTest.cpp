// The number analysis and the series analysis: divisor functions against plain divisor loops,
// the figures of well-known numbers and series, the root counts mod p of both ways against
// each other, and the refusals of input the analysis cannot take.
#include <gtest/gtest.h>

#include <cmath>

#include "TestUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "primality/BatemanHorn.h"
#include "primality/ReihenAnalyse.h"
#include "primality/ZahlAnalyse.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

Mpz zahl(const char* ziffern) {
    Mpz z;
    mpz_set_str(z, ziffern, 10);
    return z;
}

std::string text(const Mpz& z) {
    char* s = mpz_get_str(nullptr, 10, z.get());
    std::string t(s);
    void (*frei)(void*, size_t);
    mp_get_memory_functions(nullptr, nullptr, &frei);
    frei(s, t.size() + 1);
    return t;
}

class ZahlAnalyse : public SwTest {
  protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
};

TEST_F(ZahlAnalyse, TeilerFunktionenWieDieTeilerSchleife) {
    for (unsigned long n = 1; n <= 3000; ++n) {
        const ZahlBefund b = ZahlAnalysieren(Mpz(n), false);
        unsigned long tau = 0, sigma = 0, phi = 0;
        for (unsigned long d = 1; d <= n; ++d) {
            if (n % d == 0) ++tau, sigma += d;
            unsigned long a = n, c = d;
            while (c) a %= c, std::swap(a, c);
            if (a == 1) ++phi;
        }
        // mu by the square-free test on the smallest factors.
        int mu = 1;
        unsigned long rest = n;
        for (unsigned long p = 2; p <= rest; ++p) {
            if (rest % p) continue;
            rest /= p;
            mu = rest % p == 0 ? 0 : -mu;
            while (rest % p == 0) rest /= p;
        }
        ASSERT_TRUE(b.teilerBekannt) << n;
        EXPECT_EQ(mpz_get_ui(b.tau.get()), tau) << n;
        EXPECT_EQ(mpz_get_ui(b.sigma.get()), sigma) << n;
        EXPECT_EQ(mpz_get_ui(b.phi.get()), phi) << n;
        EXPECT_EQ(b.mu, mu) << n;
        EXPECT_EQ(b.urteil == ZahlUrteil::PrimBewiesen, tau == 2) << n;
    }
}

TEST_F(ZahlAnalyse, BekannteZahlen) {
    const ZahlBefund b = ZahlAnalysieren(zahl("600851475143"), true);
    EXPECT_EQ(ZerlegungText(b.zerlegung), "71x839x1471x6857");
    EXPECT_EQ(b.urteil, ZahlUrteil::Zusammengesetzt);
    EXPECT_EQ(text(b.tau), "16");
    EXPECT_EQ(text(b.sigma), "610544148480");
    EXPECT_EQ(text(b.phi), "591194251200");
    EXPECT_EQ(b.mu, 1);
    EXPECT_EQ(b.stellen, 12);
    EXPECT_EQ(b.bits, 40);
    EXPECT_EQ(b.exponent, 1u);
    EXPECT_EQ(text(b.vorher.zahl), "600851475067");  // PARI: precprime, nextprime
    EXPECT_EQ(text(b.nachher.zahl), "600851475149");

    // A square in it makes mu 0; the square of the whole a perfect power.
    const ZahlBefund q = ZahlAnalysieren(zahl("361022495181519146870449"), false);  // 600851475143^2
    EXPECT_EQ(q.mu, 0);
    EXPECT_EQ(q.exponent, 2u);
    EXPECT_EQ(text(q.basis), "600851475143");
    EXPECT_EQ(ZahlAnalysieren(zahl("42660454735153"), false).mu, 0);  // 71^2 x 839 x 1471 x 6857

    // A prime beyond 2^64: its entries and its neighbours.
    const ZahlBefund p = ZahlAnalysieren(zahl("170141183460469231731687303715884105727"), true);  // 2^127-1
    EXPECT_TRUE(p.urteil == ZahlUrteil::PrimBewiesen || p.urteil == ZahlUrteil::PrimWahrscheinlich);
    EXPECT_EQ(text(p.tau), "2");
    EXPECT_EQ(text(p.sigma), "170141183460469231731687303715884105728");
    EXPECT_EQ(text(p.phi), "170141183460469231731687303715884105726");
    EXPECT_EQ(p.mu, -1);
    EXPECT_EQ(p.bits, 127);
    EXPECT_EQ(p.stellen, 39);
    Mpz n;
    mpz_nextprime(n.get(), p.n.get());
    EXPECT_EQ(mpz_cmp(n.get(), p.nachher.zahl.get()), 0);

    // 2^64 and 3^40: the greatest exponent; 27: 111 steps of 3n+1.
    Mpz basis;
    EXPECT_EQ(PotenzExponent(zahl("18446744073709551616"), basis), 64u);
    EXPECT_EQ(text(basis), "2");
    EXPECT_EQ(PotenzExponent(zahl("12157665459056928801"), basis), 40u);
    EXPECT_EQ(PotenzExponent(zahl("18446744073709551617"), basis), 1u);
    EXPECT_EQ(ZahlAnalysieren(Mpz(27), false).collatzSchritte, 111);
}

TEST_F(ZahlAnalyse, EinsNullUndNegativ) {
    const ZahlBefund eins = ZahlAnalysieren(Mpz(1), true);
    EXPECT_EQ(eins.urteil, ZahlUrteil::Eins);
    EXPECT_EQ(text(eins.tau), "1");
    EXPECT_EQ(eins.mu, 1);
    EXPECT_FALSE(eins.vorher.gefunden);
    EXPECT_EQ(text(eins.nachher.zahl), "2");

    const auto meldung = [](const std::string& eingabe) {
        try {
            AnalyseZahlLesen(eingabe);
        } catch (const Laufzeitfehler& e) {
            return e.Beschreibung();
        }
        return std::string("angenommen");
    };
    EXPECT_EQ(meldung("-7"), Text(2290));
    EXPECT_EQ(meldung(" -2^61"), Text(2290));
    EXPECT_EQ(meldung("0"), Text(2291));
    EXPECT_EQ(meldung("5-5"), Text(2291));
    EXPECT_EQ(text(AnalyseZahlLesen("2^10+1")), "1025");
}

NewtonPolynom polynom(const std::string& formel, int64_t a) {
    std::vector<Mpz> werte;
    for (int64_t n = a; n < a + kStuetzstellen; ++n) werte.push_back(FormelWert(formel, n));
    return PolynomErkennen(a, werte);
}

TEST_F(ZahlAnalyse, WurzelnModPBeideWegeGleich) {
    // Fractional coefficients ((n(n+1))/2: the evaluator divides before it multiplies), a cubic with three roots mod many p, a shifted origin.
    for (const auto& [formel, a] : std::vector<std::pair<std::string, int64_t>>{
             {"n^2+1", 0}, {"n^2+n+41", 5}, {"(n*(n+1))/2", 0}, {"n^3+n^2+5*n+1", 17}, {"6*n^4+n+3", 2}}) {
        const NewtonPolynom f = polynom(formel, a);
        ASSERT_GE(f.Grad(), 2) << formel;
        for (uint32_t p : {11u, 13u, 101u, 997u, 1009u, 2011u, 4099u}) {
            EXPECT_EQ(WurzelnDurchGgt(f, p), WurzelnDurchProbieren(f, p)) << formel << " mod " << p;
        }
    }
    EXPECT_TRUE(polynom("2^n+1", 1).differenzen.empty());
    // n^2+1 has roots mod p exactly for p = 2 and p = 1 mod 4; the constant is Landau's 1.3728...
    EXPECT_NEAR(BatemanHornKonstante(polynom("n^2+1", 0), kBatemanHornGrenze), 1.3728, 0.005);
    // n^2+n is always even: no prime beyond finitely many, C = 0.
    EXPECT_EQ(BatemanHornKonstante(polynom("n^2+n", 0), 1000), 0.0);
}

TEST_F(ZahlAnalyse, ReihenZaehlenWieBekannt) {
    const ReihenErgebnis euler = ReiheAnalysieren("n^2+n+41", 0, 39, false);
    EXPECT_EQ(euler.primzahlen, 40);
    EXPECT_EQ(euler.grad, 2);
    const ReihenErgebnis weiter = ReiheAnalysieren("N ^ 2 + N + 41", 40, 40, false);
    EXPECT_EQ(weiter.glieder[0].art, GliedArt::Zusammengesetzt);  // 41^2
    EXPECT_EQ(weiter.glieder[0].kleinsterTeiler, 41u);

    const ReihenErgebnis r = ReiheAnalysieren("n^2+1", 1, 10000, false);
    EXPECT_EQ(r.primzahlen, 841);
    ASSERT_TRUE(r.polynom);
    EXPECT_NEAR(r.erwartung, 841, 841 * 0.05);
    EXPECT_EQ(r.glieder[1].kleinsterTeiler, 5u);   // 5, a prime, is its own least factor
    EXPECT_EQ(r.glieder[1].art, GliedArt::Prim);
    EXPECT_EQ(r.glieder[11].kleinsterTeiler, 5u);  // 145

    const ReihenErgebnis exp = ReiheAnalysieren("2^n+1", 0, 20, false);
    EXPECT_FALSE(exp.polynom);
    EXPECT_EQ(exp.primzahlen, 6);  // 2, 3, 5, 17, 257, 65537
}

TEST_F(ZahlAnalyse, ReihenAblehnungen) {
    EXPECT_THROW(ReiheAnalysieren("n", 5, 4, false), Laufzeitfehler);
    EXPECT_THROW(ReiheAnalysieren("n", -1, 4, false), Laufzeitfehler);
    EXPECT_THROW(ReiheAnalysieren(" ", 0, 4, false), Laufzeitfehler);
    EXPECT_THROW(ReiheAnalysieren("n", 0, kReihenHoechstLaenge, false), Laufzeitfehler);
    // A stop keeps the members so far.
    int fragen = 0;
    const ReihenErgebnis e = ReiheAnalysieren("n^2+1", 0, 5000, false, [&](double) { return ++fragen < 3; });
    EXPECT_TRUE(e.abgebrochen);
    EXPECT_EQ(e.glieder.size(), 512u);
}

}  // namespace
}  // namespace sw::test
