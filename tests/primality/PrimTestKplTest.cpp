// The complete test without its window: the lists of whole runs against plain oracles (a sieve
// and 2^(n-1) mod n in 64 bits), the sieve check finding the pseudoprimes of a method below and
// above the primary raster, the checks before a run, the step modes, the Mersenne run and the stop.
#include <gtest/gtest.h>

#include <gmp.h>

#include <set>

#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "primality/PrimTestKpl.h"
#include "primality/PrimTests.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

Hyp H(unsigned long n) { return MpzZuHyp(Mpz(n)); }

bool IstPrimOrakel(uint64_t n) {
    if (n < 2) return false;
    for (uint64_t d = 2; d * d <= n; ++d) {
        if (n % d == 0) return false;
    }
    return true;
}

bool FermatOrakel(uint64_t n) {
    unsigned __int128 r = 1, b = 2 % n;
    for (uint64_t e = n - 1; e; e >>= 1, b = b * b % n) {
        if (e & 1) r = r * b % n;
    }
    return r == 1;
}

struct Liste : KplAnzeige {
    void Zeile(const std::string& text) override { zeilen.push_back(text); }
    void SiebWarten(bool s) override { warten.push_back(s); }
    std::vector<std::string> zeilen;
    std::vector<bool> warten;
};

class PrimTestKpl_ : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(10000), MethodeProdukt));
    }
    // A run from the fields as typed; nothing when the checks refused it.
    std::optional<KplErgebnis> Lauf(KplEingabe e) {
        a = Liste{};
        if (e.testName.empty()) e.testName = "X-Test";
        auto d = EingabePruefen(e);
        if (!d) return std::nullopt;
        return PrimTestKplLauf(std::move(*d), a);
    }
    static KplEingabe Felder(const std::string& von, int64_t intervall, int32_t test, int32_t step, bool check) {
        KplEingabe e;
        e.von = von;
        e.intervall = intervall;
        e.test = test;
        e.step = step;
        e.check = check;
        return e;
    }
    static std::string Z(uint64_t n) { return ZahlFormat((long long)n); }
    Liste a;
};

// Base-2 Fermat with the check lists its pseudoprimes and nothing else: 341 among the primary
// raster's numbers, and those of a window above the raster, which the tertiary sieve decides.
TEST_F(PrimTestKpl_, FermatWithTheCheckListsExactlyItsPseudoprimes) {
    for (const auto& [von, laenge] : {std::pair<uint64_t, int64_t>{300, 100}, {20000, 10000}}) {
        const auto e = Lauf(Felder(Z(von), laenge, KplFermat, 1, true));
        ASSERT_TRUE(e);
        std::vector<std::string> erwartet;
        for (uint64_t n = von | 1; n <= von + uint64_t(laenge); n += 2) {
            if (FermatOrakel(n) && !IstPrimOrakel(n)) erwartet.push_back(TextP1(129, Z(n)));
        }
        ASSERT_FALSE(erwartet.empty());
        erwartet.push_back(TextP1P2(131, Z(erwartet.size()), Z(erwartet.size())));
        EXPECT_EQ(a.zeilen, erwartet) << von;
        EXPECT_EQ(a.warten, (std::vector<bool>{true, false}));
        EXPECT_FALSE(e->abgebrochen);
    }
    EXPECT_TRUE(ui.meldungen.empty());
}

// Without the check every number that passes is listed; exact methods list the primes, the
// probable ones the primes and their pseudoprimes; with the check the exact ones list nothing.
TEST_F(PrimTestKpl_, VerdictsOfEachMethodAgainstTheOracle) {
    const uint64_t von = 9900, laenge = 300;
    for (int32_t m : {KplProbedivision, KplPerrin, KplMillerRabin, KplStrassen, KplFermatSuche, KplFermat, KplBpsw}) {
        KplEingabe f = Felder(Z(von), laenge, m, 0, false);
        f.runden = 30;  // the bases are random: a composite passes 30 rounds with a chance below 2^-30
        ASSERT_TRUE(Lauf(f));
        std::vector<std::string> erwartet;
        for (uint64_t n = von; n <= von + laenge; ++n) {
            if (IstPrimOrakel(n) || (m == KplFermat && FermatOrakel(n))) erwartet.push_back(TextP1P2(130, Z(n), "X-Test"));
        }
        erwartet.push_back(TextP1P2(131, Z(erwartet.size()), "0"));
        EXPECT_EQ(a.zeilen, erwartet) << "method " << m;
        f.check = true;
        ASSERT_TRUE(Lauf(f));
        EXPECT_EQ(a.zeilen, (std::vector<std::string>{TextP1P2(131, "0", "0")})) << "method " << m;
    }
}

// 271441 = 521^2 is the smallest Perrin pseudoprime; it lies above the primary raster. Perrin
// plus marks it with the k of its form, or says that no k up to the limit gives one.
TEST_F(PrimTestKpl_, PerrinPseudoprimeAboveTheRaster) {
    ASSERT_TRUE(Lauf(Felder("271.000", 1000, KplPerrin, 1, true)));
    EXPECT_EQ(a.zeilen, (std::vector<std::string>{TextP1(129, "271.441"), TextP1P2(131, "1", "1")}));
    const int32_t k = QuadratSuche(H(271441), 1000);
    KplEingabe f = Felder("271.000", 1000, KplPerrinPlus, 1, true);
    f.perrinPlus = 1000;
    ASSERT_TRUE(Lauf(f));
    EXPECT_EQ(a.zeilen.front(), k <= 1000 ? TextP1P2(127, "271.441", TextP1(1324, k)) : TextP1P2(128, "271.441", "1.000"));
    f.perrinPlus = 0;
    ASSERT_TRUE(Lauf(f));
    EXPECT_EQ(a.zeilen.front(), TextP1P2(128, "271.441", "0"));
}

TEST_F(PrimTestKpl_, QuadratSucheFindsTheFormOfN) {
    // n = x (kx + k - 1): the k found is at most the k of the construction, and 4nk + (k-1)^2
    // is a square for it.
    for (unsigned long x = 2; x <= 30; ++x) {
        for (unsigned long k = 1; k <= 20; ++k) {
            const unsigned long n = x * (k * x + k - 1);
            const int32_t g = QuadratSuche(H(n), 40);
            ASSERT_LE(g, int32_t(k)) << n;
            Mpz c(4 * n * g + (g - 1) * (g - 1));
            EXPECT_TRUE(mpz_perfect_square_p(c.get())) << n;
        }
    }
    EXPECT_EQ(QuadratSuche(H(85), 10), 3);    // 5 (3*5 + 2)
    // A prime has only x = 1, k = (n + 1) / 2.
    EXPECT_EQ(QuadratSuche(H(101), 50), 51);
    EXPECT_EQ(QuadratSuche(H(101), 51), 51);
}

TEST_F(PrimTestKpl_, ChecksBeforeTheRun) {
    for (const char* von : {"", "0", "1", " 1 "}) {
        KplEingabe e = Felder(von, 10, KplFermat, 0, false);
        const auto d = EingabePruefen(e);
        ASSERT_TRUE(d);
        EXPECT_EQ(e.von, "2");
        EXPECT_EQ(aCmpHyp32(d->Start, 2), 0);
    }
    KplEingabe e = Felder("100", 10, KplLucasLehmer, 0, false);
    EXPECT_FALSE(EingabePruefen(e));
    e = Felder("100", 0, KplFermat, 0, true);
    EXPECT_FALSE(EingabePruefen(e));
    e = Felder("20.000", 10, KplFermat, 4, false);  // above the raster's largest prime
    EXPECT_FALSE(EingabePruefen(e));
    e = Felder("100", KplSiebHoechstLaenge + 1, KplFermat, 0, true);
    EXPECT_FALSE(EingabePruefen(e));
    e = Felder("2^61", 10, KplLucasLehmer, 0, false);
    e.zweier = true;  // an exponent is a plain number
    EXPECT_FALSE(EingabePruefen(e));
    ASSERT_EQ(ui.meldungen.size(), 5u);
    EXPECT_EQ(ui.meldungen[0].text, Text(496));
    EXPECT_EQ(ui.meldungen[1].text, Text(498));
    EXPECT_EQ(ui.meldungen[2].text, Text(495));
    EXPECT_EQ(ui.meldungen[3].text, TextP1(1321, Z(KplSiebHoechstLaenge)));
    EXPECT_EQ(ui.meldungen[4].text, TextP1(1320, Z(KplHoechstExponent)));
    // With the Mersenne mode the check is off: no sieve, and an interval of 0 is fine.
    e = Felder("7", 0, KplLucasLehmer, 0, true);
    e.zweier = true;
    const auto d = EingabePruefen(e);
    ASSERT_TRUE(d);
    EXPECT_FALSE(d->Pruefen);
    EXPECT_TRUE(d->Mersenne);
    // The pre-filter counts from 7 on, and only when it is ticked.
    e = Felder("100", 10, KplFermat, 0, false);
    e.vorFilter = 6;
    e.filter = true;
    EXPECT_EQ(EingabePruefen(e)->VorFilter, 0);
    e.vorFilter = 7;
    EXPECT_EQ(EingabePruefen(e)->VorFilter, 7);
    e.filter = false;
    EXPECT_EQ(EingabePruefen(e)->VorFilter, 0);
}

TEST_F(PrimTestKpl_, StepModesStartAtTheirFirstCandidate) {
    int32_t index = -1;
    Hyp s = H(12);
    ASSERT_TRUE(StartAusrichten(s, 3, index));
    EXPECT_EQ(aCmpHyp32(s, 13), 0);
    EXPECT_EQ(TabellenSchritt(3, index), 4);
    s = H(30);  // 0 mod 30 goes on to 31, and then 6 to 37
    ASSERT_TRUE(StartAusrichten(s, 3, index));
    EXPECT_EQ(aCmpHyp32(s, 31), 0);
    EXPECT_EQ(TabellenSchritt(3, index), 6);
    s = H(24);  // beyond 23 the next candidate is 29, then 31
    ASSERT_TRUE(StartAusrichten(s, 3, index));
    EXPECT_EQ(aCmpHyp32(s, 29), 0);
    EXPECT_EQ(TabellenSchritt(3, index), 2);
    s = H(6);
    ASSERT_TRUE(StartAusrichten(s, 2, index));
    EXPECT_EQ(aCmpHyp32(s, 7), 0);
    EXPECT_EQ(TabellenSchritt(2, index), 4);
    s = H(8);
    ASSERT_TRUE(StartAusrichten(s, 1, index));
    EXPECT_EQ(aCmpHyp32(s, 9), 0);
    s = H(8000);  // mode 4: the first prime at or above
    ASSERT_TRUE(StartAusrichten(s, 4, index));
    EXPECT_EQ(aCmpHyp32(s, 8009), 0);

    // Each mode over a whole run, with the trial division, lists the primes among its candidates.
    for (int32_t modus = 0; modus < KplSchrittModi; ++modus) {
        ASSERT_TRUE(Lauf(Felder("12", 100, KplProbedivision, modus, false)));
        std::vector<std::string> erwartet;
        // Mode 0 starts at 12, the others at their first candidate 13.
        for (uint64_t n = 12; n <= (modus == 0 ? 112u : 113u); ++n) {
            const bool kandidat = modus == 0 || (modus == 1 && n % 2) || (modus == 2 && (n % 6 == 1 || n % 6 == 5)) ||
                                  (modus >= 3 && n % 2 && n % 3 && n % 5);
            if (kandidat && IstPrimOrakel(n)) erwartet.push_back(TextP1P2(130, Z(n), "X-Test"));
        }
        erwartet.push_back(TextP1P2(131, Z(erwartet.size()), "0"));
        EXPECT_EQ(a.zeilen, erwartet) << "mode " << modus;
    }
}

// The pre-filter takes numbers with a small factor out before the test: 341 = 11 * 31.
TEST_F(PrimTestKpl_, PreFilterSparesTheTest) {
    KplEingabe f = Felder("300", 100, KplFermat, 1, true);
    f.filter = true;
    f.vorFilter = 11;
    ASSERT_TRUE(Lauf(f));
    EXPECT_EQ(a.zeilen, (std::vector<std::string>{TextP1P2(131, "0", "0")}));
    f.vorFilter = 7;
    ASSERT_TRUE(Lauf(f));
    EXPECT_EQ(a.zeilen.front(), TextP1(129, "341"));
}

TEST_F(PrimTestKpl_, RoundsStopAtTheFirstFailure) {
    MillerRabinBasis = 0;  // base 2 elsewhere
    // Random bases: 2047 and 1373653 are strong pseudoprimes to base 2 (and 3), 20 random
    // rounds do not let any composite of a window through.
    for (const char* von : {"2.000", "1.373.600"}) {
        KplEingabe f = Felder(von, 100, KplMillerRabin, 1, true);
        f.runden = 20;
        ASSERT_TRUE(Lauf(f));
        EXPECT_EQ(a.zeilen, (std::vector<std::string>{TextP1P2(131, "0", "0")})) << von;
    }
    EXPECT_EQ(MillerRabinBasis, 0);  // the random base of the run is not left behind
    MillerRabinBasis = -2;
    int aufrufe = 0;
    EXPECT_FALSE(RundenTesten(10, [&] { return ++aufrufe < 3; }));
    EXPECT_EQ(aufrufe, 3);
    aufrufe = 0;
    EXPECT_TRUE(RundenTesten(10, [&] { return ++aufrufe > 0; }));
    EXPECT_EQ(aufrufe, 10);
}

TEST_F(PrimTestKpl_, MersenneRunListsEveryExponent) {
    const std::set<int> prim{2, 3, 5, 7, 13, 17, 19, 31, 61, 89, 107, 127};
    for (int32_t m : {KplLucasLehmer, KplBpsw, KplFermat, KplPerrin}) {
        KplEingabe f = Felder("2", 126, m, 4, false);
        f.zweier = true;
        ASSERT_TRUE(Lauf(f));
        std::vector<std::string> erwartet;
        for (int p = 2; p <= 128; ++p) {
            if (!IstPrimOrakel(p)) continue;
            // 2^p - 1 of a prime p is a base-2 Fermat pseudoprime whenever it is composite.
            const bool ja = prim.count(p) || m == KplFermat;
            erwartet.push_back(TextP1P2(133, "2^" + std::to_string(p) + "-1", Text(ja ? 1322 : 1323)));
        }
        erwartet.push_back(TextP1P2(131, Z(erwartet.size()), "0"));
        EXPECT_EQ(a.zeilen, erwartet) << "method " << m;
    }
    // Trial division cannot reach the root of 2^127 - 1: one message, and the run ends.
    KplEingabe f = Felder("127", 10, KplProbedivision, 0, false);
    f.zweier = true;
    ASSERT_TRUE(Lauf(f));
    EXPECT_EQ(a.zeilen, (std::vector<std::string>{TextP1P2(131, "0", "0")}));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1203));
}

TEST_F(PrimTestKpl_, AStopKeepsTheListAndSaysSo) {
    static int runden;
    runden = 0;
    ui.beiDoEvents = [] {
        if (++runden == 200) Abbruch = true;
    };
    const auto e = Lauf(Felder("2", 100000, KplFermat, 0, false));
    ASSERT_TRUE(e);
    EXPECT_TRUE(e->abgebrochen);
    ASSERT_GE(a.zeilen.size(), 3u);
    EXPECT_EQ(a.zeilen.front(), TextP1P2(130, "2", "X-Test"));
    EXPECT_EQ(a.zeilen.back(), Text(132));
    EXPECT_EQ(a.zeilen[a.zeilen.size() - 2], TextP1P2(131, Z(a.zeilen.size() - 2), "0"));
}

}  // namespace
}  // namespace sw::test
