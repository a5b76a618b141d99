// The step-count graphic's arithmetic against a plain loop written here: the columns of small
// ranges, of a range just below 2^59 and beyond it, the minimum and maximum of both modes, the
// hover text and its percentage against long double, where the lines lie, the navigation
// that never goes below 1, and the refusal of starts outside 1..2^59.
#include <gtest/gtest.h>
#include <gmp.h>

#include <algorithm>
#include <cmath>

#include "TestUmgebung.h"
#include "collatz/CollatzGrafik.h"
#include "frame/Laufzeitfehler.h"

namespace sw::test {
namespace {

class CollatzGrafik_ : public SwTest {};

// Steps and multiplications of n down to 1, one step at a time (128 bits: the walks of starts
// below 2^60 climb beyond 2^64).
std::pair<int, int> schlicht(unsigned __int128 n) {
    int schritte = 0, mult = 0;
    while (n > 1) {
        if (n & 1) {
            n = 3 * n + 1;
            ++mult;
        } else {
            n >>= 1;
        }
        ++schritte;
    }
    return {schritte, mult};
}

int schlichtGmp(const Mpz& start) {
    Mpz n(start);
    int schritte = 0;
    while (mpz_cmp_ui(n.get(), 1) > 0) {
        if (mpz_odd_p(n.get())) {
            mpz_mul_ui(n.get(), n.get(), 3);
            mpz_add_ui(n.get(), n.get(), 1);
        } else {
            mpz_fdiv_q_2exp(n.get(), n.get(), 1);
        }
        ++schritte;
    }
    return schritte;
}

CollatzGrafik gelesen(const std::string& von, const std::string& plus = "1", const std::string& breite = "1") {
    CollatzGrafik g;
    EXPECT_TRUE(GrafikLesen(g, von, plus, breite, "3", "1", "0")) << von;
    return g;
}

uint64_t u64(const Mpz& z) { return mpz_get_ui(z.get()); }

TEST_F(CollatzGrafik_, SpaltenGegenSchlichteSchleife) {
    CollatzGrafik g = gelesen("1");
    ASSERT_TRUE(GrafikFuellen(g, 9));  // indices 0..9
    EXPECT_EQ(g.Werte, (std::vector<int32_t>{0, 1, 7, 2, 5, 8, 16, 3, 19, 6}));
    EXPECT_EQ(g.MinWert, 5);  // 0 lies below 5
    EXPECT_EQ(g.MaxWert, 19);

    // The maximum of 1..1000 and of 1..10^4, and every column against the loop.
    for (const auto& [bis, bei, laenge] : {std::tuple{1000, 871, 178}, std::tuple{10000, 6171, 261}}) {
        CollatzGrafik h = gelesen("1");
        ASSERT_TRUE(GrafikFuellen(h, bis - 1));
        ASSERT_EQ(h.Werte.size(), size_t(bis));
        for (int n = 1; n <= bis; ++n) ASSERT_EQ(h.Werte[size_t(n - 1)], schlicht(n).first) << n;
        EXPECT_EQ(h.MaxWert, laenge);
        EXPECT_EQ(std::max_element(h.Werte.begin(), h.Werte.end()) - h.Werte.begin() + 1, bei);
    }

    // 2,000 columns of step 3 just below 2^59, the last one on 2^59 itself; and beyond the
    // limit, once it is lifted, counted on the Hyp.
    const uint64_t grenze = uint64_t(1) << 59;
    CollatzGrafik n = gelesen(std::to_string(grenze - 3 * 1999), "3");
    ASSERT_TRUE(GrafikFuellen(n, 1999));
    EXPECT_EQ(n.Werte.back(), 59);
    for (size_t i = 0; i < n.Werte.size(); ++i) ASSERT_EQ(n.Werte[i], schlicht(u64(GrafikWert(n, int64_t(i)))).first) << i;

    CollatzGrafik gross;
    gross.OhneGrenze = true;
    ASSERT_TRUE(GrafikLesen(gross, "Formel: 2^100+1", "7", "4", "3", "1", "0"));
    ASSERT_TRUE(GrafikFuellen(gross, 40));  // 40 div 4: indices 0..10
    ASSERT_EQ(gross.Werte.size(), 11u);
    for (size_t i = 0; i < gross.Werte.size(); ++i) ASSERT_EQ(gross.Werte[i], schlichtGmp(GrafikWert(gross, int64_t(i)))) << i;

    // A picture narrower than a column still has the column 0.
    CollatzGrafik schmal = gelesen("27", "1", "50");
    ASSERT_TRUE(GrafikFuellen(schmal, 30));
    EXPECT_EQ(schmal.Werte, std::vector<int32_t>{111});
}

TEST_F(CollatzGrafik_, MinimumUndMaximumBeiderArten) {
    // 27..36: 111 first, then shorter walks. The normal mode takes the smallest value, the
    // maximal mode only looks at records, so its minimum is the 111 of the first column.
    CollatzGrafik normal = gelesen("27"), maximal = gelesen("27");
    maximal.Maximal = true;
    ASSERT_TRUE(GrafikFuellen(normal, 9));
    ASSERT_TRUE(GrafikFuellen(maximal, 9));
    EXPECT_EQ(normal.MinWert, *std::min_element(normal.Werte.begin(), normal.Werte.end()));
    EXPECT_EQ(normal.MaxWert, 111);
    EXPECT_EQ(maximal.MinWert, 111);
    EXPECT_EQ(maximal.MaxWert, 111);

    // The largest value is kept from the earlier drawing; txtFixMin replaces the minimum.
    ASSERT_TRUE(GrafikLesen(normal, "1", "1", "1", "3", "1", "12"));
    ASSERT_TRUE(GrafikFuellen(normal, 9));
    EXPECT_EQ(normal.MaxWert, 111);
    EXPECT_EQ(normal.MinWert, 12);
}

TEST_F(CollatzGrafik_, EingabenUndIhreGrenzen) {
    CollatzGrafik g;
    EXPECT_TRUE(GrafikLesen(g, "576460752303423488", "0", "0", "-3", "0", "x"));  // 2^59 itself
    EXPECT_EQ(u64(g.Von), uint64_t(1) << 59);
    EXPECT_EQ(g.Schritt, 1);
    EXPECT_EQ(g.ZahlenBreite, 1);
    EXPECT_EQ(g.LinienHoehe, 0);
    EXPECT_EQ(g.LinienAbstand, 1);
    EXPECT_EQ(g.FixMin, 0);
    for (const char* falsch : {"576460752303423489", "0", "-5", "Formel: 2^59+1"}) {
        CollatzGrafik h;
        EXPECT_FALSE(GrafikLesen(h, falsch, "1", "1", "1", "1", "0")) << falsch;
        EXPECT_EQ(u64(h.Von), 1u) << "a refused start leaves the graphic as it was";
    }
    g.OhneGrenze = true;
    EXPECT_TRUE(GrafikLesen(g, "576460752303423489", "1", "1", "1", "1", "0"));
    EXPECT_FALSE(GrafikLesen(g, "0", "1", "1", "1", "1", "0"));
    for (const char* keineZahl : {"zwölf", "12x", ""}) {
        try {
            GrafikLesen(g, keineZahl, "1", "1", "1", "1", "0");
            ADD_FAILURE() << keineZahl;
        } catch (const Laufzeitfehler& f) {
            EXPECT_EQ(f.Nummer(), 13);
            EXPECT_NE(f.Beschreibung().find("keine Zahl"), std::string::npos) << f.Beschreibung();
        }
    }
}

TEST_F(CollatzGrafik_, HoverTextUndProzent) {
    CollatzGrafik g = gelesen("1", "1", "2");
    ASSERT_TRUE(GrafikFuellen(g, 2000));  // indices 0..1000: starts 1..1001
    auto h = GrafikHoverText(g, 53, false);  // 53 div 2 = 26: the start 27
    ASSERT_TRUE(h);
    EXPECT_EQ(h->text.substr(0, 14), "27 i.m=111.41 ");
    EXPECT_EQ(h->text.size(), 14u + 111u);
    EXPECT_EQ(h->prozent, "83.41334 %");
    // The percentage against long double: 100 * 27 / (2^111 / 6^41).
    const long double q = std::ldexp(1.0L, 111) / std::pow(6.0L, 41);
    EXPECT_NEAR(std::stod(h->prozent), double(100 * 27 / q), 1e-5);

    const std::string voll = h->text.substr(14);
    h = GrafikHoverText(g, 870 * 2 + 1, false);
    ASSERT_TRUE(h);
    EXPECT_EQ(h->text.substr(0, 15), "871 i.m=178.65 ");
    EXPECT_EQ(h->prozent, "86.39930 %");

    // The short form: every "!." becomes "!", so "!" back to "!." gives the full marks.
    h = GrafikHoverText(g, 53, true);
    ASSERT_TRUE(h);
    const std::string kurz = h->text.substr(14);
    EXPECT_EQ(kurz.substr(0, 3), "(k)");
    std::string zurueck;
    for (char c : kurz.substr(3)) zurueck += c == '!' ? "!." : std::string(1, c);
    EXPECT_EQ(zurueck, voll);

    // The start 1: no marks, q = 1. Past the last column nothing.
    h = GrafikHoverText(g, 0, false);
    ASSERT_TRUE(h);
    EXPECT_EQ(h->text, "1 i.m=0.0 ");
    EXPECT_EQ(h->prozent, "100.00000 %");
    EXPECT_FALSE(GrafikHoverText(g, 2002, false));
    EXPECT_FALSE(GrafikHoverText(g, -1, false));

}

TEST_F(CollatzGrafik_, LinienBeiderArten) {
    CollatzGrafik g = gelesen("1");
    ASSERT_TRUE(GrafikFuellen(g, 9999));
    const int hoehe = 300, kopf = 20;
    // Normal mode: neighbouring lines one line plus one gap apart, the lowest on the foot, the
    // highest below the head room, and no room for one more.
    const GrafikLinien l = NormalLinien(g, hoehe, kopf);
    EXPECT_EQ(l.erste, 5);
    EXPECT_LT(l.letzte, g.MaxWert);  // 257 lines do not fit 300 pixels
    EXPECT_EQ(NormalZeile(g, l.erste, hoehe), hoehe - g.LinienHoehe);
    for (int32_t v = l.erste; v < l.letzte; ++v) EXPECT_EQ(NormalZeile(g, v, hoehe) - NormalZeile(g, v + 1, hoehe), 4);
    EXPECT_GE(NormalZeile(g, l.letzte, hoehe), kopf);
    EXPECT_LT(NormalZeile(g, l.letzte + 1, hoehe), kopf);
    // Scrolled up by 10 lines the lowest line shows 15.
    g.Verschiebung = 10;
    EXPECT_EQ(NormalLinien(g, hoehe, kopf).erste, 15);
    // A picture lower than one line holds none.
    const GrafikLinien keine = NormalLinien(g, 10, 20);
    EXPECT_LT(keine.letzte, keine.erste);

    // Maximal mode: MinWert at the foot, MaxWert below five percent head room, and the scale
    // names the values back.
    g.Maximal = true;
    g.Verschiebung = 0;
    EXPECT_EQ(MaximalZeile(g, g.MinWert, hoehe), hoehe);
    const int oben = MaximalZeile(g, g.MaxWert, hoehe);
    EXPECT_GE(oben, int(hoehe * 0.05) - 1);
    EXPECT_LE(oben, int(hoehe * 0.05) + 3);
    for (int32_t v : {g.MinWert, 100, 200, g.MaxWert})
        EXPECT_NEAR(MaximalSkalenWert(g, hoehe - MaximalZeile(g, v, hoehe), hoehe), v, 1) << v;
}

TEST_F(CollatzGrafik_, NavigationNieUnterEins) {
    CollatzGrafik g = gelesen("500", "2");
    ASSERT_TRUE(GrafikFuellen(g, 99));  // 100 columns of step 2: a screen is 200 numbers
    EXPECT_EQ(u64(g.Spanne), 200u);
    EXPECT_EQ(u64(GrafikNavigation(g, 4, "", 10)), 700u);
    EXPECT_EQ(u64(GrafikNavigation(g, 1, "", 10)), 300u);
    EXPECT_EQ(u64(GrafikNavigation(g, 5, "10;20;1000", 10)), 1500u);
    EXPECT_EQ(u64(GrafikNavigation(g, 0, "10;20;1000", 10)), 1u);
    EXPECT_EQ(u64(GrafikNavigation(g, 5, "10 20", 10)), 700u);  // no third distance: a screen
    EXPECT_EQ(u64(GrafikDistanz(g, "0;5", 0)), 200u) << "a distance of 0 is a screen";

    // The lines scroll by half a picture and never below the lowest.
    EXPECT_EQ(u64(GrafikNavigation(g, 2, "", 10)), 500u);
    EXPECT_EQ(g.Verschiebung, 5);
    GrafikNavigation(g, 3, "", 30);
    EXPECT_EQ(g.Verschiebung, 0);

    // The CSV: a head line and one row per column.
    const std::string csv = GrafikCsv(g);
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 101);
    const std::string kopf = "Zahl;Schritte\n500;" + std::to_string(schlicht(500).first) + "\n502;";
    EXPECT_EQ(csv.substr(0, kopf.size()), kopf);
}

}  // namespace
}  // namespace sw::test
