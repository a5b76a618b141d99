// The prime display's logic: the primes a user sees by paging through a whole range are
// exactly those of the range, in the primary raster and in a secondary window; paging stays
// inside the range; the searches find the first hit, also across the seam of two ranges.
#include <gtest/gtest.h>

#include <set>

#include "../sieve/SiebHilfen.h"
#include "Blaettern.h"
#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/Zufall.h"
#include "sieve/basSekundaer.h"
#include "views/Anzeige.h"
#include "views/RasterVorhanden.h"
#include "views/ZahlInfo.h"

namespace sw::test {
namespace {

class FensterAttrappe : public AnzeigeFenster {
public:
    void NavigationSchalten(bool an) override { navigation = an; }
    void AnzahlZeigen(const std::string& t) override { anzahl = t; }
    void FortschrittVerbergen() override {}
    SekundaerFortschrittZiel* Fortschritt() override { return nullptr; }
    void AnfangSchreiben(const std::string& t) override { anfang = t; }
    void Zeichnen() override { ++gezeichnet; }
    bool navigation = false;
    std::string anzahl, anfang;
    int gezeichnet = 0;
};

// The primes of [von, bis] by trial marking with the primes up to 10^6.
std::set<int64_t> Primzahlen(int64_t von, int64_t bis) {
    const std::vector<bool> frei = FreiVonFaktoren(uint64_t(von), uint64_t(bis - von + 1), 1000000);
    std::set<int64_t> s;
    for (int64_t n = von; n <= bis; ++n) {
        if (frei[size_t(n - von)]) s.insert(n);
    }
    return s;
}

class Anzeige : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }

    // Pages from the first to the last page and collects the primes shown in range.
    std::set<int64_t> AllesBlaettern() { return test::AllesBlaettern(logik); }

    FensterAttrappe fenster;
    AnzeigeLogik logik{fenster};
};

TEST_F(Anzeige, JederModusZeigtGenauDiePrimzahlen) {
    for (int32_t modus : {0, 1}) {
        logik.Modus = modus;
        logik.GeometrieSetzen(13, 7);
        ASSERT_TRUE(logik.BereichHolen("0", "5000"));
        EXPECT_EQ(logik.Anfang, Decimal(1));  // 0 is shown as from 1
        EXPECT_TRUE(logik.ImPrimaerbereich);
        EXPECT_EQ(logik.Anzahl, 669);
        EXPECT_EQ(AllesBlaettern(), Primzahlen(1, 5000)) << modus;

        const int64_t von = 1000000000000 - 7;
        ASSERT_TRUE(logik.BereichHolen("999999999993", "30000"));
        EXPECT_FALSE(logik.ImPrimaerbereich);
        const std::set<int64_t> soll = Primzahlen(von, von + 30000);
        EXPECT_EQ(logik.Anzahl, int64_t(soll.size()));
        EXPECT_EQ(AllesBlaettern(), soll) << modus;
    }
}

TEST_F(Anzeige, BlaetternBleibtImBereich) {
    logik.GeometrieSetzen(10, 5);  // 50 numbers a page
    ASSERT_TRUE(logik.BereichHolen("1000", "175"));
    EXPECT_TRUE(fenster.navigation);
    // Page up at the start stays; a row down and up; page down stays on numbers of the range
    // and beyond the end shows the last page, as does the key for the end.
    const struct { int taste; int64_t aktuell; } schritte[] = {
        {1, 1000}, {3, 1010}, {2, 1000}, {4, 1050}, {4, 1100}, {4, 1150}, {4, 1126}, {0, 1000}, {5, 1126}};
    for (const auto& s : schritte) {
        logik.Blaettern(s.taste);
        EXPECT_EQ(logik.Aktuell, Decimal(s.aktuell)) << s.taste << " to " << s.aktuell;
    }
    EXPECT_EQ(logik.ZelleZahl(0, 0), Decimal(1126));
    EXPECT_EQ(logik.ZelleZahl(4, 9), Decimal(1175));
    EXPECT_FALSE(logik.ZelleZahl(5, 0).has_value());
    EXPECT_EQ(logik.Seite().kopf, "Diese Seite startet mit: " + ZahlFormat(Decimal(1126)));
    // A range shorter than a page: the last page is the first.
    ASSERT_TRUE(logik.BereichHolen("1000", "20"));
    logik.Blaettern(5);
    EXPECT_EQ(logik.Aktuell, Decimal(1000));
    EXPECT_FALSE(logik.ZelleZahl(3, 0).has_value());

    // Mode 1 pages in whole lines of 30 numbers: the last page, by its key or by paging down,
    // still reaches the end of the range (1171 is its last prime).
    logik.Modus = 1;
    logik.GeometrieSetzen(8, 2);
    ASSERT_TRUE(logik.BereichHolen("1000", "175"));
    logik.Blaettern(5);
    EXPECT_EQ(logik.ZelleZahl(1, 0), Decimal(1171));
    EXPECT_EQ(AllesBlaettern(), Primzahlen(1000, 1175));
}

TEST_F(Anzeige, EingabenDieAbgewiesenWerden) {
    EXPECT_FALSE(logik.BereichHolen("1", "2000000"));
    EXPECT_EQ(ui.meldungen.back().text, Text(516));
    ASSERT_TRUE(logik.BereichHolen("1", "1000000"));
    EXPECT_EQ(logik.Ende, Decimal(1000000));
    EXPECT_FALSE(logik.BereichHolen("zwölf", "10"));
    EXPECT_FALSE(logik.BereichHolen("-5", "10"));
    logik.Modus = 5;
    EXPECT_FALSE(logik.BereichHolen("9999", "10"));
    EXPECT_EQ(ui.meldungen.back().text, Text(417));
    ASSERT_TRUE(logik.BereichHolen("123456789012", "5000"));
    EXPECT_EQ(size_t(logik.Anzahl), Primzahlen(123456789012, 123456794012).size());
}

TEST_F(Anzeige, MusterUndLuecken) {
    ASSERT_TRUE(logik.BereichHolen("1000", "100000"));
    EXPECT_TRUE(logik.Suchen(SucheZwillinge));
    EXPECT_EQ(logik.Aktuell, Decimal(1019));
    EXPECT_TRUE(logik.Suchen(SucheZwillinge));  // the next search goes on from the hit
    EXPECT_EQ(logik.Aktuell, Decimal(1031));
    logik.SuchMuster = 1;
    logik.SuchMusterText = "0, 2, 6, 8, 12";
    logik.SucheLuecke = 30;
    const struct { SuchArt art; int64_t erster; } faelle[] = {
        {SucheVierlinge, 1481},  // 1481, 1483, 1487, 1489
        {SucheDrillinge, 1087},  // 1087, 1091, 1093
        {SucheFrei, 1481},       // 1481 1483 1487 1489 1493
        {SucheLueckeArt, 1327},  // 1327 .. 1361, the first gap of 34
    };
    for (const auto& f : faelle) {
        logik.Blaettern(0);
        EXPECT_TRUE(logik.Suchen(f.art)) << f.art;
        EXPECT_EQ(logik.Aktuell, Decimal(f.erster)) << f.art;
    }
    for (const char* falsch : {"", "3 5", "2 2", "x"}) {
        logik.SuchMusterText = falsch;
        EXPECT_FALSE(logik.Suchen(SucheFrei)) << falsch;
    }
    // Nothing more up to the end, and no moving on: false, the page stays, and the user is told.
    const Decimal vorher = logik.Aktuell;
    logik.SucheLuecke = 200;
    ui.meldungen.clear();
    EXPECT_FALSE(logik.Suchen(SucheLueckeArt));
    EXPECT_EQ(logik.Aktuell, vorher);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1001));
}

// A twin pair lying across the end of the range is found by moving on into the next range,
// which overlaps by one word.
TEST_F(Anzeige, SucheUeberDieNaht) {
    const int64_t basis = 1000000000000;
    const std::set<int64_t> prim = Primzahlen(basis, basis + 20000);
    // A pair with no other pair in the 1000 numbers before it.
    int64_t zwilling = 0, vorigerZwilling = basis;
    for (int64_t p : prim) {
        if (!prim.count(p + 2)) continue;
        if (p - vorigerZwilling > 1000) {
            zwilling = p;
            break;
        }
        vorigerZwilling = p;
    }
    ASSERT_NE(zwilling, 0);
    // The range ends between the two primes of the pair.
    const int64_t anfang = zwilling - 999;
    ASSERT_TRUE(logik.BereichHolen(std::to_string(anfang), "1000"));
    EXPECT_FALSE(logik.Suchen(SucheZwillinge));
    logik.SekundaerDurchsuchen = true;
    EXPECT_TRUE(logik.Suchen(SucheZwillinge));
    EXPECT_EQ(logik.Aktuell, Decimal(zwilling));
    EXPECT_EQ(logik.Anfang, Decimal(anfang + 1000 - 120));
    EXPECT_FALSE(fenster.anfang.empty());
    EXPECT_EQ(AnzeigeStumm, 0);

    // Another window sieves in between: the page is this range's still.
    ASSERT_TRUE(SekundaerSieben(Decimal(int64_t(5000000000)), Decimal(1000)));
    bool gefunden = false;
    for (const AnzeigeZelle& z : logik.Seite().zellen) gefunden |= z.prim && z.zahl == Decimal(zwilling);
    EXPECT_TRUE(gefunden);
}

// A free pattern wider than a word whose first prime lies in the last numbers of a range:
// the next range overlaps by the pattern's width and finds it. 1,000,000,010,489 with +2 and
// +200 is the first such hit behind 1,000,000,009,589. A pattern as wide as the range is
// refused at once rather than searched for without end.
TEST_F(Anzeige, BreitesMusterUeberDieNaht) {
    const int64_t treffer = 1000000010489;
    const std::set<int64_t> prim = Primzahlen(treffer - 900, treffer + 200);
    for (auto p = prim.begin(); *p < treffer; ++p) ASSERT_FALSE(prim.count(*p + 2) && prim.count(*p + 200)) << *p;
    ASSERT_TRUE(prim.count(treffer) && prim.count(treffer + 2) && prim.count(treffer + 200));
    ASSERT_TRUE(logik.BereichHolen(std::to_string(treffer - 900), "1000"));
    logik.SekundaerDurchsuchen = true;
    logik.SuchMusterText = "2 200";
    EXPECT_TRUE(logik.Suchen(SucheFrei));
    EXPECT_EQ(logik.Aktuell, Decimal(treffer));

    ui.meldungen.clear();
    logik.SuchMusterText = "2 1000";
    EXPECT_FALSE(logik.Suchen(SucheFrei));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, TextP1P2(1000, "1.000", "1.000"));
}

// A gap longer than the overlap of two ranges: its first prime lies only in the first range,
// its last only in the next; the search still sees it.
TEST_F(Anzeige, LueckeUeberDieNaht) {
    const int64_t basis = 1000000000000;
    const std::set<int64_t> prim = Primzahlen(basis, basis + 3000000);
    int64_t q = 0, c = 0, vorige = 0;
    for (int64_t p : prim) {
        if (vorige && p - vorige >= 150 && vorige - basis > 2000) {
            q = vorige;
            c = p;
            break;
        }
        vorige = p;
    }
    ASSERT_NE(q, 0);
    const int64_t anfang = q + 130 - 1000;
    for (auto it = prim.lower_bound(anfang); *it < q; ++it) ASSERT_LT(*std::next(it) - *it, 150);
    ASSERT_TRUE(logik.BereichHolen(std::to_string(anfang), "1000"));
    logik.SucheLuecke = 150;
    logik.SekundaerDurchsuchen = true;
    EXPECT_TRUE(logik.Suchen(SucheLueckeArt));
    EXPECT_EQ(logik.Aktuell, Decimal(q));
    // Found from the next range, which then moved back to show the whole gap.
    EXPECT_EQ(logik.Anfang, Decimal(q));
    EXPECT_LE(Decimal(c), logik.Ende);
    bool beide = false;
    const AnzeigeSeite seite = logik.Seite();
    for (const AnzeigeZelle& z : seite.zellen) beide |= z.prim && z.zahl == Decimal(q);
    EXPECT_TRUE(beide);
}

// More than 2^31 primes in the range: the count is shown whole. A raster of zeros (every
// number coprime to 30 clear) stands in for a raster of a limit of some 10^10.
TEST_F(Anzeige, AnzahlUeberZweiHoch31) {
    const int64_t worte = (int64_t(1) << 26) + 1000;
    PrimaerRaster.assign(size_t(worte), 0);
    RasterAdresseAuffrischen();
    RasterLetzterIndex = int32_t(worte - 1);
    PrimaerGrenze = Decimal(worte * 120 - 1);
    ASSERT_TRUE(logik.BereichHolen("1", PrimaerGrenze.Text()));
    // All 32 bits of every word but that of 1, and 2, 3, 5 beside them.
    EXPECT_EQ(logik.Anzahl, 32 * worte + 2);
    EXPECT_EQ(fenster.anzahl, ZahlFormat(static_cast<long long>(32 * worte + 2)));
    std::vector<uint32_t>().swap(PrimaerRaster);
}

// Before the first run there is no raster to show: the display refuses (only the random
// raster needs none).
TEST_F(Anzeige, OhneRasterKeineAnzeige) {
    LaufVerworfen();
    for (int32_t modus : {0, 1, 5}) {
        logik.Modus = modus;
        ui.meldungen.clear();
        EXPECT_FALSE(logik.BereichHolen("20000", "1000")) << modus;
        ASSERT_EQ(ui.meldungen.size(), 1u) << modus;
        EXPECT_EQ(ui.meldungen[0].text, Text(1002));
        EXPECT_FALSE(logik.BereichBereit);
    }
    EXPECT_FALSE(PrimaerRasterVorhanden());
    ZufallModus = 1;
    logik.Modus = 0;
    EXPECT_TRUE(logik.BereichHolen("5000000000", "1000"));
    ZufallModus = 0;
}

TEST_F(Anzeige, ZufallsrasterStattPrimzahlen) {
    ZufallModus = 1;
    RandomFaktorBitKette = 0;
    ASSERT_TRUE(logik.BereichHolen("5000000000", "100000"));
    const AnzeigeSeite s = logik.Seite();
    EXPECT_NE(s.kopf.find("Zufallsraster"), std::string::npos);
    for (const AnzeigeZelle& z : s.zellen) {
        if (z.prim) {
            EXPECT_NE(RestMaske[(z.zahl % Decimal(120)).AlsLong()], 0u);
        }
    }
    // A repaint shows the same draw; a new page draws anew.
    const AnzeigeSeite wieder = logik.Seite();
    ASSERT_EQ(wieder.zellen.size(), s.zellen.size());
    for (size_t i = 0; i < s.zellen.size(); ++i) EXPECT_EQ(wieder.zellen[i].prim, s.zellen[i].prim);
    EXPECT_FALSE(logik.Suchen(SucheZwillinge));
    EXPECT_EQ(ui.meldungen.back().text, Text(418));
    ZufallModus = 0;
}

// The detail window: neighbours from the raster, above it from the secondary window.
TEST_F(Anzeige, ZahlDetails) {
    const ZahlInfo klein = ZahlInfoErmitteln(Decimal(1001));
    EXPECT_FALSE(klein.prim);
    EXPECT_EQ(klein.faktoren, "7x11x13");
    EXPECT_EQ(klein.vorherige, ZahlFormat(Decimal(997)));
    EXPECT_EQ(klein.naechste, ZahlFormat(Decimal(1009)));
    EXPECT_EQ(klein.abstandVor, "4");
    EXPECT_EQ(klein.abstandNach, "8");

    ASSERT_TRUE(SekundaerSieben(Decimal(int64_t(999999000)), Decimal(2000)));
    const ZahlInfo gross = ZahlInfoErmitteln(Decimal(int64_t(1000000007)));
    EXPECT_TRUE(gross.prim);
    EXPECT_EQ(gross.vorherige, ZahlFormat(Decimal(int64_t(999999937))));
    EXPECT_EQ(gross.naechste, ZahlFormat(Decimal(int64_t(1000000009))));
    EXPECT_EQ(gross.abstandVor, "70");
    EXPECT_EQ(gross.rest120, 47);
    // Beyond both ranges no neighbour is claimed.
    const ZahlInfo fern = ZahlInfoErmitteln(Decimal(int64_t(50000000000)));
    EXPECT_EQ(fern.vorherige, "");
    EXPECT_EQ(fern.naechste, "");
}

}  // namespace
}  // namespace sw::test
