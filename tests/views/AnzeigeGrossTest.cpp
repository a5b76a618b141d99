// The prime display's large range (mode 6): the candidates a user pages through are exactly
// the numbers of the window without a prime factor up to the cut, and after the test exactly
// GMP's probable primes, at 10^30, at a thousand digits and at a perfect square; paging keeps
// to the distances 0..width; a stop keeps the range before; the search stays in the window;
// the export holds the full numbers.
#include <gmp.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "Blaettern.h"
#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basExtrem.h"
#include "views/Anzeige.h"

namespace sw::test {
namespace {

constexpr uint32_t Schnitt = 1000000;  // the primary limit, and so the cut of the sieve

class Attrappe : public AnzeigeFenster, public TertiaerFenster {
public:
    void NavigationSchalten(bool an) override { navigation = an; }
    void AnzahlZeigen(const std::string& t) override { anzahl = t; }
    void FortschrittVerbergen() override {}
    SekundaerFortschrittZiel* Fortschritt() override { return nullptr; }
    void AnfangSchreiben(const std::string&) override {}
    void Zeichnen() override {}
    TertiaerFenster* TertiaerZiel() override { return this; }
    void TertiaerLaeuft(bool l, const std::string&) override { laeuft = l; }
    void SiebFortschritt(int32_t) override { Abbruch = Abbruch || stoppen; }
    void TestFortschritt(int32_t) override { Abbruch = Abbruch || stoppen; }
    bool navigation = false, laeuft = false, stoppen = false;
    std::string anzahl;
};

// The window start .. start + breite checked by GMP: the distances without a prime factor up
// to the cut, and those that are probable primes.
struct Orakel {
    std::set<int64_t> kandidaten, prim;
    std::string ziffern(int64_t d) const {
        mpz_t n;
        mpz_init_set_str(n, start.c_str(), 10);
        mpz_add_ui(n, n, uint64_t(d));
        char* s = mpz_get_str(nullptr, 10, n);
        std::string text(s);
        free(s);
        mpz_clear(n);
        return text;
    }
    std::string start;
};

Orakel Pruefen(const std::string& startZiffern, int64_t breite) {
    Orakel o;
    o.start = startZiffern;
    mpz_t start, n;
    mpz_init_set_str(start, startZiffern.c_str(), 10);
    mpz_init(n);
    std::vector<bool> gestrichen(size_t(breite + 1), false);
    std::vector<bool> zusammengesetzt(Schnitt + 1, false);
    for (uint32_t p = 2; p <= Schnitt; ++p) {
        if (zusammengesetzt[p]) continue;
        for (uint64_t k = uint64_t(p) * p; k <= Schnitt; k += p) zusammengesetzt[k] = true;
        // The first distance d with start + d divisible by p.
        const uint64_t r = mpz_fdiv_ui(start, p);
        for (uint64_t d = r == 0 ? 0 : p - r; d <= uint64_t(breite); d += p) gestrichen[d] = true;
    }
    for (int64_t d = 0; d <= breite; ++d) {
        if (gestrichen[size_t(d)]) continue;
        o.kandidaten.insert(d);
        mpz_add_ui(n, start, uint64_t(d));
        if (mpz_probab_prime_p(n, 15) > 0) o.prim.insert(d);
    }
    mpz_clear(n);
    mpz_clear(start);
    return o;
}

class AnzeigeGross : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(int64_t(Schnitt)), MethodeProdukt));
        logik.Modus = 6;
        logik.GeometrieSetzen(16, 6);  // two groups of 8 cells, 60 numbers a line
    }
    // Every page from the first to the last: the marked distances, each page's cells checked
    // against the residues of their numbers.
    std::set<int64_t> AllesBlaettern() { return test::AllesBlaettern(logik); }
    Attrappe fenster;
    AnzeigeLogik logik{fenster};
};

TEST_F(AnzeigeGross, KandidatenUndTestStimmenMitGmp) {
    const struct {
        const char* formel;
        int32_t breite;
    } faelle[] = {
        {"10^30", 2000},            // a width that is no multiple of 120
        {"10^999+12345", 3001},     // a thousand digits
        {"(10^20+39)^2", 700},      // a perfect square whose root is a prime above the cut
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.formel);
        ASSERT_TRUE(logik.BereichHolen(f.formel, std::to_string(f.breite))) << (ui.meldungen.empty() ? "" : ui.meldungen.back().text);
        EXPECT_EQ(logik.Anfang, Decimal(0));
        EXPECT_EQ(logik.Ende, Decimal(f.breite));
        const Orakel o = Pruefen(logik.Tertiaer().StartZiffern(), f.breite);
        EXPECT_EQ(logik.Tertiaer().StartZiffern(), Hyp2Text(Auswerten(f.formel)));
        EXPECT_EQ(AllesBlaettern(), o.kandidaten);
        EXPECT_EQ(logik.Anzahl, int64_t(o.kandidaten.size()));
        EXPECT_EQ(fenster.anzahl, TextP1(1363, ZahlFormat(static_cast<long long>(o.kandidaten.size()))));
        EXPECT_TRUE(logik.Seite().kandidaten);

        ASSERT_TRUE(logik.Testen());
        EXPECT_EQ(AllesBlaettern(), o.prim);
        EXPECT_EQ(logik.Anzahl, int64_t(o.prim.size()));
        EXPECT_FALSE(logik.Seite().kandidaten);
        // With every candidate chosen, those the test struck are shown as such.
        logik.AuswahlSetzen(0);
        logik.Blaettern(0);
        int32_t verworfen = 0;
        for (const AnzeigeZelle& z : logik.Seite().zellen) {
            verworfen += z.verworfen;
            if (z.verworfen) {
                EXPECT_TRUE(o.kandidaten.count(z.zahl.AlsInt64()) && !o.prim.count(z.zahl.AlsInt64()));
            }
        }
        EXPECT_GT(verworfen, 0);
    }
    // The square itself has no factor up to the cut: a candidate that only the test strikes.
    EXPECT_TRUE(logik.Tertiaer().Kandidat(0));
    EXPECT_FALSE(logik.Tertiaer().Prim(0));
}

// Paging counts in distances: up at the first page stays, down beyond the end shows the last
// page, whose cells reach the width; a width of 1 is one page.
TEST_F(AnzeigeGross, BlaetternZwischenNullUndBreite) {
    ASSERT_TRUE(logik.BereichHolen("10^30", "1000"));
    const Decimal seite = logik.SeitenZahlen();
    EXPECT_EQ(seite, Decimal(360));
    logik.Blaettern(1);
    EXPECT_EQ(logik.Aktuell, Decimal(0));
    logik.Blaettern(3);
    EXPECT_EQ(logik.Aktuell, Decimal(60));
    logik.Blaettern(2);
    EXPECT_EQ(logik.Aktuell, Decimal(0));
    for (int i = 0; i < 5; ++i) logik.Blaettern(4);
    const Decimal letzte = logik.Aktuell;
    logik.Blaettern(0);
    logik.Blaettern(5);
    EXPECT_EQ(logik.Aktuell, letzte);
    EXPECT_LE(letzte + seite - Decimal(60), Decimal(1000));
    // The last page holds the width; the cells lie on numbers coprime to 30.
    bool ende = false;
    const AnzeigeSeite s = logik.Seite();
    const int32_t rest = int32_t(logik.Tertiaer().Rest30());
    for (const AnzeigeZelle& z : s.zellen) {
        ende |= z.zahl >= Decimal(1000 - 29) && z.imBereich;
        const int64_t r = (rest + z.zahl.AlsInt64()) % 30;
        EXPECT_TRUE(r == 1 || r == 7 || r == 11 || r == 13 || r == 17 || r == 19 || r == 23 || r == 29) << r;
    }
    EXPECT_TRUE(ende);
    EXPECT_FALSE(logik.ZelleZahl(int32_t(logik.Zeilen()) - 1, 15).has_value());

    // Width 1 at a prime: one page, two numbers.
    ASSERT_TRUE(logik.BereichHolen("10^30+57", "1"));
    for (int taste : {4, 5, 3, 1}) {
        logik.Blaettern(taste);
        EXPECT_EQ(logik.Aktuell, Decimal(0));
    }
    ASSERT_TRUE(logik.Testen());
    EXPECT_EQ(AllesBlaettern(), Pruefen(logik.Tertiaer().StartZiffern(), 1).prim);
}

TEST_F(AnzeigeGross, EingabenDieAbgewiesenWerden) {
    const struct {
        const char *start, *breite;
        int schluessel;
    } faelle[] = {
        {"", "100", 1360},         {"   ", "100", 1360},      {"abc", "100", 1361}, {"10^", "100", 1361},
        {"10^30", "0", 1362},      {"10^30", "-5", 1362},     {"10^30", "x", 1362}, {"10^30", "", 1362},
        {"10^30", "1000000001", 1362},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(std::string(f.start) + " / " + f.breite);
        ui.meldungen.clear();
        EXPECT_FALSE(logik.BereichHolen(f.start, f.breite));
        ASSERT_EQ(ui.meldungen.size(), 1u);
        const std::string soll = Text(f.schluessel);
        EXPECT_EQ(ui.meldungen[0].text.substr(0, 20), soll.substr(0, 20));
        EXPECT_FALSE(logik.BereichBereit);
    }
    // Grouped digits are read as a number.
    ASSERT_TRUE(logik.BereichHolen("1.000.000.000.000.000.000.000.000.000", "10"));
    EXPECT_EQ(logik.Tertiaer().StartZiffern(), "1" + std::string(27, '0'));
}

// A stop during the sieve or the test keeps the range before, with its paging and its state.
TEST_F(AnzeigeGross, AbbruchLaesstDenBereichStehen) {
    ASSERT_TRUE(logik.BereichHolen("10^40", "5000"));
    logik.Blaettern(4);
    const Decimal aktuell = logik.Aktuell;
    const int64_t anzahl = logik.Anzahl;
    fenster.stoppen = true;
    EXPECT_FALSE(logik.BereichHolen("10^50", "5000"));
    EXPECT_FALSE(fenster.laeuft);
    EXPECT_TRUE(logik.BereichBereit);
    EXPECT_EQ(logik.Aktuell, aktuell);
    EXPECT_EQ(logik.Anzahl, anzahl);
    EXPECT_EQ(logik.Tertiaer().StartZiffern(), "1" + std::string(40, '0'));
    EXPECT_FALSE(logik.Testen());
    EXPECT_TRUE(logik.Seite().kandidaten);
    EXPECT_EQ(logik.Anzahl, anzahl);
    fenster.stoppen = false;

    // Another sieve in between: the test runs on this range all the same.
    Abbruch = false;
    TertiaerStart = Auswerten("10^60");
    TertiaerLaenge = 100;
    ASSERT_TRUE(TertiaerSieben());
    ASSERT_TRUE(logik.Testen());
    EXPECT_EQ(AllesBlaettern(), Pruefen(logik.Tertiaer().StartZiffern(), 5000).prim);
}

// The search stays in the window and counts from its start; nothing more to the end is said,
// and the range never moves on.
TEST_F(AnzeigeGross, SucheImFenster) {
    ASSERT_TRUE(logik.BereichHolen("10^25", "20000"));
    ASSERT_TRUE(logik.Testen());
    const Orakel o = Pruefen(logik.Tertiaer().StartZiffern(), 20000);
    std::vector<int64_t> zwillinge;
    for (int64_t d : o.prim) {
        if (o.prim.count(d + 2)) zwillinge.push_back(d);
    }
    logik.SekundaerDurchsuchen = true;
    for (int64_t d : zwillinge) {
        if (d == 0) continue;
        EXPECT_TRUE(logik.Suchen(SucheZwillinge));
        EXPECT_EQ(logik.Aktuell, Decimal(d));
    }
    ui.meldungen.clear();
    EXPECT_FALSE(logik.Suchen(SucheZwillinge));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1001));
    EXPECT_EQ(logik.Anfang, Decimal(0));
    EXPECT_EQ(logik.Tertiaer().StartZiffern(), "1" + std::string(25, '0'));
}

TEST_F(AnzeigeGross, ExportHaeltDieGanzenZahlen) {
    ASSERT_TRUE(logik.BereichHolen("10^200+1", "3000"));
    const Orakel o = Pruefen(logik.Tertiaer().StartZiffern(), 3000);
    const auto lesen = [](const std::string& pfad) {
        std::vector<std::string> zeilen;
        std::ifstream ein(pfad);
        for (std::string z; std::getline(ein, z);) zeilen.push_back(z);
        return zeilen;
    };
    const auto erwartet = [&](const std::set<int64_t>& menge, int kopf) {
        std::vector<std::string> z{TextP1P2(kopf, o.start, "3.000")};
        for (int64_t d : menge) z.push_back(o.ziffern(d));
        return z;
    };
    const std::string pfad = Ordner() + "gross.TXT";
    ASSERT_TRUE(logik.Exportieren(pfad));
    EXPECT_EQ(lesen(pfad), erwartet(o.kandidaten, 1366));
    // Once tested: the probable primes when chosen, every candidate otherwise.
    ASSERT_TRUE(logik.Testen());
    logik.AuswahlSetzen(1);
    ASSERT_TRUE(logik.Exportieren(pfad));
    EXPECT_EQ(lesen(pfad), erwartet(o.prim, 1367));
    logik.AuswahlSetzen(0);
    ASSERT_TRUE(logik.Exportieren(pfad));
    EXPECT_EQ(lesen(pfad), erwartet(o.kandidaten, 1366));

    ui.meldungen.clear();
    EXPECT_FALSE(logik.Exportieren(Ordner() + "fehlt/gross.TXT"));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, TextP1(1368, Ordner() + "fehlt/gross.TXT"));
}

// Digits plus a distance, with carries through the whole number.
TEST(ZiffernPlusTest, TraegtUeberAlleStellen) {
    EXPECT_EQ(ZiffernPlus("0", 0), "0");
    EXPECT_EQ(ZiffernPlus("0", 123), "123");
    EXPECT_EQ(ZiffernPlus("999", 1), "1000");
    EXPECT_EQ(ZiffernPlus("9999999999999999999999", 12345), "10000000000000000012344");
    EXPECT_EQ(ZiffernPlus("5", 99999999999ull), "100000000004");
}

}  // namespace
}  // namespace sw::test
