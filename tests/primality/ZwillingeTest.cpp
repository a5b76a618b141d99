// The twin search without the window: the four methods against a plain sieve and against each
// other, the pairs below 11, the edges of the interval, the input check, the stop, method 3
// high above every raster against GMP, the square kept by additions, and the expected interval.
#include <gtest/gtest.h>

#include <gmp.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "primality/Zwillinge.h"
#include "sieve/PrimaerLauf.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

Hyp H(const std::string& formel) { return Formel2Hyp(FormelWort() + " " + formel); }

struct Liste : ZwillingeAnzeige {
    void Zwilling(const Hyp& p, const std::string& zeile) override {
        paare.push_back(Hyp2Text(p));
        zeilen.push_back(zeile);
    }
    void Zeile(const std::string& text) override { zeilen.push_back(text); }
    void WartenZeigen(bool sichtbar) override { warten.push_back(sichtbar); }
    std::vector<std::string> paare;  // the smaller members
    std::vector<std::string> zeilen;
    std::vector<bool> warten;
};

class Zwillinge_ : public SwTest {
protected:
    void Raster(int64_t grenze) { ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt)); }
    Liste Suchen(const std::string& start, int32_t intervall, int32_t verfahren, int32_t art = 4) {
        Liste l;
        ZwillingeAuftrag a{H(start), intervall, verfahren, art};
        ZwillingeSuchen(a, l);
        return l;
    }
};

// The smaller members p of the twins with von <= p and p + 2 <= von + laenge, by a plain sieve.
std::vector<std::string> Referenz(uint64_t von, uint64_t laenge) {
    const uint64_t bis = von + laenge;
    std::vector<bool> prim(bis + 1, true);
    prim[0] = prim[1] = false;
    for (uint64_t i = 2; i * i <= bis; ++i)
        if (prim[i])
            for (uint64_t j = i * i; j <= bis; j += i) prim[j] = false;
    std::vector<std::string> r;
    for (uint64_t p = von; p + 2 <= bis; ++p)
        if (prim[p] && prim[p + 2]) r.push_back(std::to_string(p));
    return r;
}

TEST_F(Zwillinge_, AlleVerfahrenFindenDieselbenZwillinge) {
    const std::vector<std::string> soll = Referenz(1000000, 100000);
    ASSERT_GT(soll.size(), 500u);
    // Methods 0 and 1 read a raster that holds the interval; methods 2 and 3 need one below it.
    Raster(2000000);
    for (int32_t v : {VerfahrenQuadrat, VerfahrenPrimaer}) {
        const Liste l = Suchen("10^6", 100000, v);
        EXPECT_EQ(l.paare, soll) << "method " << v;
        EXPECT_EQ(l.zeilen.back(), TextP1(1343, std::to_string(soll.size())));
    }
    Raster(100000);
    for (int32_t v : {VerfahrenSekundaer, VerfahrenProbabilistisch}) {
        EXPECT_EQ(Suchen("10^6", 100000, v).paare, soll) << "method " << v;
    }
    // Every prime passes each test, so each lists at least the true twins; below 2^64 BPSW
    // lists exactly them, and the pseudoprimes of the others are rare enough here to be none.
    for (int32_t art = 0; art < ZwillingeArtenAnzahl; ++art) {
        EXPECT_EQ(Suchen("10^6", 100000, VerfahrenProbabilistisch, art).paare, soll) << "test " << art;
    }
    // The lines: method 0 plain digits, methods 1 and 2 grouped, method 3 distances.
    Raster(2000000);
    EXPECT_EQ(Suchen("10^6", 100000, VerfahrenQuadrat).zeilen.front(), "1000037  ---  1000039");
    EXPECT_EQ(Suchen("10^6", 100000, VerfahrenPrimaer).zeilen.front(), "1.000.037  ---  1.000.039");
    Raster(100000);
    EXPECT_EQ(Suchen("10^6", 100000, VerfahrenProbabilistisch).zeilen.front(), "...37  ---  ...39");
}

TEST_F(Zwillinge_, PaareUnterElfUndRaender) {
    Raster(100000);
    const std::vector<std::string> anfang{"3", "5", "11", "17", "29", "41"};
    for (int32_t v : {VerfahrenQuadrat, VerfahrenPrimaer}) {
        const Liste eins = Suchen("1", 42, v);
        EXPECT_EQ(eins.paare, anfang) << "method " << v;
        EXPECT_EQ(eins.zeilen[0], "3  ---  5");
        EXPECT_EQ(eins.zeilen[1], "5  ---  7");
        // Start 0 lists the same: 3, 5 lie in the interval as well.
        EXPECT_EQ(Suchen("0", 43, v).paare, anfang) << "method " << v;
        EXPECT_EQ(Suchen("4", 20, v).paare, (std::vector<std::string>{"5", "11", "17"})) << "method " << v;
        EXPECT_EQ(Suchen("1", 5, v).paare, (std::vector<std::string>{"3"})) << "method " << v;
        // A pair reaching past the end is not listed, one ending on it is.
        EXPECT_TRUE(Suchen("11", 1, v).paare.empty());
        EXPECT_EQ(Suchen("11", 2, v).paare, (std::vector<std::string>{"11"}));
        EXPECT_EQ(Suchen("12", 100, v).paare.front(), "17");
        // 47 and 49 = 7^2 are no twin, though 48 is a multiple of 6 and 7 exceeds the root of 48.
        EXPECT_EQ(Suchen("40", 22, v).paare, (std::vector<std::string>{"41", "59"})) << "method " << v;
    }
    // Interval 0: one round, nothing found, the end line.
    const Liste leer = Suchen("1000", 0, VerfahrenQuadrat);
    EXPECT_TRUE(leer.paare.empty());
    EXPECT_EQ(leer.zeilen, (std::vector<std::string>{TextP1(1343, "0")}));
    // A start of more than one word: nothing from the click, the pairs are the method's.
    const Liste hoch = Suchen("10^12", 2000, VerfahrenQuadrat);
    ASSERT_FALSE(hoch.paare.empty());
    EXPECT_EQ(hoch.paare.front(), "1000000000061");
    // The secondary window takes its sieving primes up to the root from the segmented pass, so
    // it lists exactly the true twins (primesieve -p2), where the trial walk of a raster of 1000
    // also keeps pairs with larger factors.
    const std::vector<std::string> echt = {"1000000000061", "1000000000331", "1000000000787",
                                           "1000000000931", "1000000001261", "1000000001771"};
    EXPECT_EQ(Suchen("10^12", 2000, VerfahrenSekundaer).paare, echt);
}

TEST_F(Zwillinge_, EingabePruefenNachVerfahren) {
    EXPECT_FALSE(EingabePruefen(H("100"), 10, VerfahrenQuadrat));  // no raster yet
    EXPECT_EQ(ui.meldungen.back().text, Text(1002));
    Raster(10000);
    ui.meldungen.clear();
    EXPECT_TRUE(EingabePruefen(H("9990"), 10, VerfahrenPrimaer));
    EXPECT_FALSE(EingabePruefen(H("9990"), 11, VerfahrenPrimaer));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text.rfind("Primärbereich zu niedrig...", 0), 0u);
    EXPECT_TRUE(EingabePruefen(H("10^8-10"), 10, VerfahrenSekundaer));
    EXPECT_FALSE(EingabePruefen(H("10^8-10"), 11, VerfahrenSekundaer));
    EXPECT_EQ(ui.meldungen.back().text.rfind("Sekundärbereich zu niedrig...", 0), 0u);
    // Method 0 only warns; method 3 goes anywhere.
    ui.meldungen.clear();
    EXPECT_TRUE(EingabePruefen(H("10^8"), 10, VerfahrenQuadrat));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text.rfind("Es werden nicht alle Teiler gebildet!", 0), 0u);
    EXPECT_TRUE(EingabePruefen(H("10^1000"), 1000000, VerfahrenProbabilistisch));
    EXPECT_EQ(ui.meldungen.size(), 1u);
}

TEST_F(Zwillinge_, AbbruchBehaeltGefundenes) {
    Raster(100000);
    ui.beiDoEvents = [] { Abbruch = true; };
    // Method 0 yields after each twin: the first one stays, then the end line.
    const Liste q = Suchen("10^6", 100000, VerfahrenQuadrat);
    EXPECT_EQ(q.paare, (std::vector<std::string>{"1000037"}));
    EXPECT_EQ(q.zeilen.back(), TextP1(1343, "1"));
    // Method 3 says that it was stopped, next to the end line.
    const Liste p = Suchen("10^30", 2000000, VerfahrenProbabilistisch);
    ASSERT_GE(p.zeilen.size(), 2u);
    EXPECT_NE(std::find(p.zeilen.end() - 2, p.zeilen.end(), Text(1344)), p.zeilen.end());
    EXPECT_NE(std::find(p.zeilen.end() - 2, p.zeilen.end(), TextP1(1343, "0")), p.zeilen.end());
    EXPECT_EQ(p.warten.back(), false);
}

// Method 3 far above the raster: the twins of [10^30, 10^30 + 30000] by every test against
// GMP's test of both members.
TEST_F(Zwillinge_, ProbabilistischGegenGmp) {
    Raster(100000);
    const int32_t laenge = 30000;
    std::vector<std::string> soll;
    mpz_t basis, n;
    mpz_init(n);
    mpz_init_set_str(basis, "1000000000000000000000000000000", 10);
    for (int32_t d = 0; d + 2 <= laenge; ++d) {
        mpz_add_ui(n, basis, uint32_t(d));
        if (mpz_probab_prime_p(n, 25) == 0) continue;
        mpz_add_ui(n, n, 2);
        if (mpz_probab_prime_p(n, 25) != 0) soll.push_back(std::to_string(d));
    }
    mpz_clears(basis, n, nullptr);
    ASSERT_GT(soll.size(), 3u);
    for (int32_t art = 0; art < ZwillingeArtenAnzahl; ++art) {
        const Liste l = Suchen("10^30", laenge, VerfahrenProbabilistisch, art);
        std::vector<std::string> ist;
        for (const std::string& p : l.paare) ist.push_back(std::to_string(std::stoll(p.substr(p.size() - 6))));
        EXPECT_EQ(ist, soll) << "test " << art;
        const long long erster = std::stoll(soll.front());
        EXPECT_EQ(l.zeilen.front(), "..." + ZahlFormat(erster) + "  ---  ..." + ZahlFormat(erster + 2));
        EXPECT_EQ(l.warten, (std::vector<bool>{true, false}));
    }
}

// q = n^2 - 1 follows n by additions alone, also where n and q grow by a word.
TEST_F(Zwillinge_, QuadratFolgeWieDirektesQuadrat) {
    for (const char* start : {"12", "2^32-36", "2^64-60", "2^96-24", "6*(2^200+2^31)"}) {
        QuadratFolge f(H(start));
        for (int i = 0; i < 25; ++i) {
            Hyp q(2 * f.n().anzahl() + 2);
            aQuadHyp(q, f.n());
            aDecHyp(q);
            ASSERT_EQ(Hyp2Text(f.q()), Hyp2Text(q)) << start << " step " << i;
            f.Weiter();
        }
    }
}

// Hardy-Littlewood, integrated here by the plain midpoint rule.
double Mittelpunkt(double a, double laenge) {
    const double unten = std::max(a, 2.0), oben = a + laenge;
    const int schritte = 200000;
    const double h = (oben - unten) / schritte;
    double s = 0;
    for (int i = 0; i < schritte; ++i) {
        const double l = std::log(unten + (i + 0.5) * h);
        s += h / (l * l);
    }
    return 2 * 0.6601618158468696 * s;
}

TEST_F(Zwillinge_, ErwartungGibtFuenfundzwanzig) {
    for (const char* start : {"0", "1", "7", "1000", "10^9", "10^15"}) {
        const Hyp s = H(start);
        const int32_t l = ErwartungsIntervall(s);
        EXPECT_GT(l, 100) << start;
        EXPECT_NEAR(ErwarteteZwillinge(s, l), 25, 0.05) << start;
        EXPECT_NEAR(Mittelpunkt(std::stod(Hyp2Text(s)), l), 25, 0.1) << start;
    }
    // A small start: the interval holds about 25 true twins (there are 25 up to 523).
    Raster(10000);
    const size_t echt = Referenz(1, uint64_t(ErwartungsIntervall(H("1")))).size();
    EXPECT_GE(echt, 20u);
    EXPECT_LE(echt, 35u);
    // High starts: ln t is all but constant, so L = 25 ln^2(a) / (2 C2); no double of a.
    for (int stellen : {50, 1000, 4000}) {
        const double ln = stellen * std::log(10.0);
        const double soll = 25 * ln * ln / (2 * 0.6601618158468696);
        EXPECT_NEAR(ErwartungsIntervall(H("10^" + std::to_string(stellen))), soll, soll * 1e-3)
            << stellen;
    }
    EXPECT_EQ(ErwartungsIntervall(H("10^6000")), 2000000000);
}

}  // namespace
}  // namespace sw::test
