// The tertiary range against independent oracles: GMP's own primality test and next-prime walk
// at heights far beyond any raster, plain trial marking of windows below 2^64, the primary
// raster at the bottom of the numbers; and the edges of a window (start 0, lengths 0 and 1, a
// square start, a start among the sieving primes), the question before a deep cut, the stop.
#include <gmp.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "SiebHilfen.h"
#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/Primreste.h"
#include "sieve/basExtrem.h"
#include "sieve/basSiebwerk.h"

namespace sw::test {
namespace {

using U128 = unsigned __int128;

Hyp HypAus(const std::string& dezimal) {
    Mpz z;
    mpz_set_str(z, dezimal.c_str(), 10);
    return MpzZuHyp(z);
}

Hyp HypAus(U128 n) {
    Mpz z;
    mpz_import(z, 2, -1, sizeof(uint64_t), 0, 0, &n);
    return MpzZuHyp(z);
}

// The distances d < laenge of the primes in [start, start + laenge), by GMP's next-prime walk.
std::vector<int64_t> OraklPrimzahlen(const Hyp& start, int64_t laenge) {
    std::vector<int64_t> d;
    const Mpz s(start);
    Mpz p, ende;
    mpz_add_ui(ende, s, uint64_t(laenge));
    mpz_sub_ui(p, s, 1);
    if (mpz_sgn(p.get()) < 0) mpz_set_ui(p, 0);
    for (;;) {
        mpz_nextprime(p, p);
        if (mpz_cmp(p, ende) >= 0) return d;
        Mpz abstand;
        mpz_sub(abstand, p, s);
        d.push_back(int64_t(mpz_get_ui(abstand.get())));
    }
}

std::vector<int64_t> FreieAbstaende(int64_t laenge) {
    std::vector<int64_t> d;
    for (int64_t i = 0; i < laenge; ++i) {
        if (TertiaerIstFreiAb(i)) d.push_back(i);
    }
    return d;
}

struct Zaehler : TertiaerFenster {
    int sieb = 0, test = 0, streich = 0;
    int32_t letzteProzent = -1;
    void SiebFortschritt(int32_t p) override { ++sieb, letzteProzent = p; }
    void TestFortschritt(int32_t) override { ++test; }
    void StreichungenZeigen(int64_t) override { ++streich; }
};

class Tertiaer : public SwTest {
protected:
    void Primaer(int64_t grenze) { ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt)); }

    bool Sieben(const Hyp& start, int32_t laenge, TertiaerFenster* f = nullptr) {
        TertiaerStart = start;
        TertiaerLaenge = laenge;
        return TertiaerSieben(f);
    }

    // Sieve, then test by BPSW: what stands is exactly the primes of the oracle, and no
    // prime was struck by the sieve before.
    void GegenOrakel(const Hyp& start, int32_t laenge) {
        ASSERT_TRUE(Sieben(start, laenge));
        const std::vector<int64_t> prim = OraklPrimzahlen(start, laenge);
        for (int64_t d : prim) ASSERT_TRUE(TertiaerIstFreiAb(d)) << "prime struck by the sieve at distance " << d;
        const int64_t kandidaten = TertiaerZaehlen();
        const int64_t gestrichen = TertiaerTesten(TertiaerBpsw);
        EXPECT_EQ(TertiaerZaehlen(), int64_t(prim.size()));
        EXPECT_EQ(kandidaten - gestrichen, int64_t(prim.size()));
        EXPECT_EQ(FreieAbstaende(laenge), prim);
    }
};

TEST_F(Tertiaer, HoheFensterStimmenMitGmpUeberein) {
    Primaer(1000000);
    GegenOrakel(HypAus("1000000000000000000000000000000"), 3000);
    GegenOrakel(HypAus("1" + std::string(100, '0')), 3000);
    Mpz m;
    mpz_ui_pow_ui(m, 2, 521);
    mpz_sub_ui(m, m, 1);
    mpz_sub_ui(m, m, 100000);
    GegenOrakel(MpzZuHyp(m), 3000);
    // A window holding the Mersenne prime itself at its top.
    mpz_add_ui(m, m, 100000 - 2000);
    GegenOrakel(MpzZuHyp(m), 2001);
    EXPECT_TRUE(TertiaerIstFreiAb(2000));
    EXPECT_TRUE(ui.meldungen.empty());
}

TEST_F(Tertiaer, BatchResteStimmenMitEinzelnenDivisionen) {
    Primaer(100000);
    std::vector<uint32_t> p;
    PrimzahlenDurchlaufen(7, 100000, [&](uint64_t q) { return p.push_back(uint32_t(q)), true; });
    p.push_back(4294967291u);  // the largest prime below 2^32
    p.push_back(4294967279u);
    std::mt19937_64 zufall(3);
    for (int bits : {1, 63, 64, 65, 640, 20000}) {
        Mpz n;
        mpz_set_ui(n, 1);
        mpz_mul_2exp(n, n, bits - 1);
        mpz_add_ui(n, n, zufall());
        std::vector<uint32_t> reste(p.size());
        PrimzahlReste(n, p.data(), p.size(), reste.data());
        for (size_t i = 0; i < p.size(); ++i) ASSERT_EQ(reste[i], mpz_fdiv_ui(n, p[i])) << bits << " bits, p " << p[i];
    }
}

// Windows below 2^64 against plain trial marking with the same cut: every number with a bit
// is clear exactly when it has no prime factor up to the cut other than itself.
TEST_F(Tertiaer, ZufaelligeFensterGegenProbedivision) {
    Primaer(200000);
    std::mt19937_64 zufall(11);
    for (int runde = 0; runde < 40; ++runde) {
        const int stellen = int(zufall() % 19) + 1;
        U128 start = zufall() % 10;
        for (int i = 1; i < stellen; ++i) start = start * 10 + zufall() % 10;
        const int32_t laenge = int32_t(zufall() % 5000);
        ASSERT_TRUE(Sieben(HypAus(start), laenge));
        const U128 oben = start + uint64_t(std::max(laenge, 1)) - 1;
        uint64_t schnitt = 200000;
        while (U128(schnitt - 1) * (schnitt - 1) >= oben && schnitt > 1) --schnitt;  // rounded-up root
        const std::vector<bool> frei = FreiVonFaktoren(start, uint64_t(laenge), schnitt);
        int64_t anzahl = 0;
        for (int64_t d = 0; d < laenge; ++d) {
            const U128 n = start + uint64_t(d);
            const bool mitBit = RestMaske[uint32_t(n % 120)] != 0;
            const bool klein = n == 2 || n == 3 || n == 5;
            const bool erwartet = (mitBit || klein) && frei[size_t(d)];
            ASSERT_EQ(TertiaerIstFreiAb(d), erwartet) << "start " << uint64_t(start) << " + " << d;
            anzahl += erwartet;
        }
        EXPECT_EQ(TertiaerZaehlen(), anzahl);
    }
}

// At the bottom the window is a piece of the primary raster: the same primes, the sieving
// primes themselves included, and 2, 3, 5 counted by hand.
TEST_F(Tertiaer, UntenZaehltEsWieDasPrimaereRaster) {
    Primaer(1000000);
    for (int64_t laenge : {0, 1, 2, 3, 4, 5, 6, 7, 8, 119, 120, 121, 1000, 12345, 1000000}) {
        ASSERT_TRUE(Sieben(HypAus(U128(0)), int32_t(laenge)));
        const Decimal erwartet = laenge > 0 ? PrimAnzahl(Dec0, Decimal(laenge - 1)) : Dec0;
        EXPECT_EQ(Decimal(TertiaerZaehlen()), erwartet) << "length " << laenge;
    }
    EXPECT_FALSE(TertiaerIstFreiAb(1));  // 1 struck
    EXPECT_TRUE(TertiaerIstFreiAb(2));
    EXPECT_TRUE(TertiaerIstFreiAb(7));
    EXPECT_TRUE(TertiaerIstFreiAb(997));  // a sieving prime inside the window stays
    for (int64_t start : {7, 113, 127, 997, 65521, 100003}) {
        ASSERT_TRUE(Sieben(HypAus(U128(start)), 5000));
        EXPECT_EQ(Decimal(TertiaerZaehlen()), PrimAnzahl(Decimal(start), Decimal(start + 4999))) << start;
        EXPECT_TRUE(TertiaerIstFreiAb(0)) << start << " is a prime and its own first multiple";
    }
}

TEST_F(Tertiaer, RaenderDesFensters) {
    Primaer(1000000);
    const Hyp hoch = HypAus("1" + std::string(40, '0'));
    // Length 0: nothing in the window, and a question for its start is outside.
    ASSERT_TRUE(Sieben(hoch, 0));
    EXPECT_EQ(TertiaerZaehlen(), 0);
    EXPECT_EQ(TertiaerTesten(TertiaerBpsw), 0);
    EXPECT_FALSE(TertiaerIstFrei(hoch));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(497));
    // Length 1 on a prime (10^40 + 129 is one of the smallest after 10^40) and beside it.
    Mpz p(hoch);
    mpz_nextprime(p, p);
    const Hyp prim = MpzZuHyp(p);
    ASSERT_TRUE(Sieben(prim, 1));
    EXPECT_EQ(TertiaerZaehlen(), 1);
    EXPECT_EQ(TertiaerTesten(TertiaerBpsw), 0);
    EXPECT_TRUE(TertiaerIstFrei(prim));
    mpz_add_ui(p, p, 1);
    EXPECT_FALSE(TertiaerIstFrei(MpzZuHyp(p)));  // just past the end
    EXPECT_EQ(ui.meldungen.size(), 2u);
    // A square start: of a sieving prime it is struck; of a prime beyond the cut only the test
    // finds it, since the window lies far above the square of the primary limit.
    const U128 q = 999983;
    ASSERT_TRUE(Sieben(HypAus(q * q), 240));
    EXPECT_FALSE(TertiaerIstFreiAb(0));
    Mpz r;
    mpz_set_str(r, "100000000000000000039", 10);  // a prime of 21 digits
    mpz_mul(r, r, r);
    ASSERT_TRUE(Sieben(MpzZuHyp(r), 300));
    EXPECT_TRUE(TertiaerIstFreiAb(0));
    TertiaerTesten(TertiaerBpsw);
    EXPECT_FALSE(TertiaerIstFreiAb(0));
    EXPECT_EQ(FreieAbstaende(300), OraklPrimzahlen(MpzZuHyp(r), 300));
}

TEST_F(Tertiaer, AlleTestsFindenDieselbenPrimzahlen) {
    Primaer(100000);
    const Hyp start = HypAus("123456789012345678901234567890");
    const std::vector<int64_t> prim = OraklPrimzahlen(start, 1500);
    for (int32_t test : {TertiaerPerrin, TertiaerRabinZufall, TertiaerStrassen, TertiaerFermat, TertiaerRabinBasis,
                         TertiaerBpsw}) {
        ASSERT_TRUE(Sieben(start, 1500));
        TertiaerTesten(test);
        EXPECT_EQ(FreieAbstaende(1500), prim) << "test " << test;
    }
    EXPECT_THROW(TertiaerTesten(9), Laufzeitfehler);
}

// Twins: a failed lower member takes its partner out of the test, so fewer numbers are struck,
// but no member of a true pair ever is.
TEST_F(Tertiaer, ZwillingeBleibenStehen) {
    Primaer(100000);
    const Hyp start = HypAus("1000000000000000000000000");
    const int32_t laenge = 30000;
    const std::vector<int64_t> prim = OraklPrimzahlen(start, laenge);
    ASSERT_TRUE(Sieben(start, laenge));
    const int64_t alle = TertiaerZaehlen();
    const int64_t gestrichen = TertiaerZwillingeTesten(TertiaerBpsw);
    EXPECT_EQ(TertiaerZaehlen(), alle - gestrichen);
    int zwillinge = 0;
    for (size_t i = 1; i < prim.size(); ++i) {
        if (prim[i] - prim[i - 1] != 2) continue;
        ++zwillinge;
        EXPECT_TRUE(TertiaerIstFreiAb(prim[i - 1]) && TertiaerIstFreiAb(prim[i])) << prim[i - 1];
    }
    EXPECT_GT(zwillinge, 0);
    // Every prime stands, and what else stands is a partner left untested.
    ASSERT_TRUE(Sieben(start, laenge));
    const int64_t voll = TertiaerTesten(TertiaerBpsw);
    EXPECT_LT(gestrichen, voll);
    EXPECT_EQ(TertiaerZaehlen(), int64_t(prim.size()));
}

TEST_F(Tertiaer, FortschrittUndAbbruch) {
    Primaer(1000000);
    Zaehler z;
    const Hyp start = HypAus("1" + std::string(60, '0'));
    ASSERT_TRUE(Sieben(start, 20000, &z));
    EXPECT_GE(z.sieb, 2);
    EXPECT_EQ(z.letzteProzent, 100);
    EXPECT_EQ(TertiaerWorte, 1000000 / 120);
    TertiaerTesten(TertiaerBpsw, &z);
    EXPECT_GE(z.test, 5);  // every 32 of the 167 words, and 100 at the end
    EXPECT_GE(z.streich, 20);
    // A stop during the sieve: false, and Abbruch stays for the caller to see.
    ui.beiDoEvents = [] { Abbruch = true; };
    EXPECT_FALSE(Sieben(start, 20000, &z));
    EXPECT_TRUE(Abbruch);
    Abbruch = false;
    ui.beiDoEvents = nullptr;
}

// Above 100 million the user chooses the cut: Yes stops there, No keeps the limit, Cancel
// ends the sieve.
TEST_F(Tertiaer, FrageVorTiefemSchnitt) {
    Primaer(100000200);
    const Hyp start = HypAus("1" + std::string(50, '0'));
    ui.antworten = {AntwortAbbrechen, AntwortJa, AntwortNein};
    EXPECT_FALSE(Sieben(start, 1000));
    EXPECT_TRUE(Abbruch);
    Abbruch = false;
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1300));
    EXPECT_EQ(ui.meldungen[0].knoepfe, MeldungsKnoepfe::JaNeinAbbrechen);
    ASSERT_TRUE(Sieben(start, 1000));
    EXPECT_EQ(TertiaerWorte, 100000000 / 120);
    ASSERT_TRUE(Sieben(start, 1000));
    EXPECT_EQ(TertiaerWorte, 100000200 / 120);
    // Below the root of the window no question is asked.
    ASSERT_TRUE(Sieben(HypAus(U128(1) << 50), 1000));
    EXPECT_EQ(ui.meldungen.size(), 3u);
}

}  // namespace
}  // namespace sw::test
