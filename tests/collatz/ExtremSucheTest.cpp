// The backward walks against a plain forward count: for every depth up to 16 the full walk
// lists exactly the values of 1..2^i with that many steps (3n+1 and 3n-1, modes i and k), each
// with the mark string of its own forward sequence; the target walk is the subset of one m;
// the path walk ends on one true value. Then the range cut, the depth bound and the row.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "collatz/ExtremSuche.h"
#include "frame/Laufzeitfehler.h"

namespace sw::test {
namespace {

// The forward marks of n down to 1 ("" when n never gets there): in mode i "!" is 3n+-1 and
// "." a halving; in mode k "!" is the multiplication with the halving after it.
std::string vorwaerts(uint64_t n, bool minus, bool modusK) {
    std::string s;
    while (n != 1) {
        if (minus && (n == 5 || n == 17)) return "";   // the two other cycles of 3n-1
        if (n % 2) {
            n = minus ? 3 * n - 1 : 3 * n + 1;
            s += '!';
            if (modusK) n /= 2;
        } else {
            n /= 2;
            s += '.';
        }
    }
    return s;
}

Hyp hyp(uint64_t v) { return Ziffern2Hyp(std::to_string(v)); }

struct Sammler : ExtremZiel {
    std::map<uint64_t, std::pair<int32_t, std::string>> treffer;
    int stoppNach = -1;
    void Treffer(const Hyp& w, int32_t m, const std::string& muster) override {
        treffer[std::stoull(Hyp2Text(w))] = {m, muster};
    }
    bool Gestoppt() override { return stoppNach >= 0 && int(treffer.size()) >= stoppNach; }
};

ExtremAuftrag auftrag(int32_t i, bool k, ExtremArt art, int32_t m = -1) {
    ExtremAuftrag a;
    a.tiefe = i;
    a.modusK = k;
    a.art = art;
    a.zielM = m;
    a.von = hyp(1);
    a.bis = hyp(i < 64 ? uint64_t(1) << i : ~uint64_t(0));
    return a;
}

using ExtremSuche_ = SwTest;

TEST_F(ExtremSuche_, VollerWegGleichVorwaertsZaehlung) {
    const Regel3nPlus1 plus;
    const Regel3nMinus1 minus;
    for (bool istMinus : {false, true}) {
        for (bool k : {false, true}) {
            for (int32_t i = 1; i <= 16; ++i) {
                Sammler s;
                const ExtremErgebnis e = ExtremWalk(auftrag(i, k, ExtremArt::Voll), istMinus ? static_cast<const VorgaengerRegel&>(minus) : plus, s);
                std::map<uint64_t, std::string> erwartet;
                for (uint64_t n = 1; n <= (uint64_t(1) << i); ++n) {
                    const std::string v = vorwaerts(n, istMinus, k);
                    if (n > 1 && v.size() == size_t(i)) erwartet[n] = v;
                }
                ASSERT_EQ(s.treffer.size(), erwartet.size()) << "minus " << istMinus << " k " << k << " i " << i;
                EXPECT_EQ(e.anzahl, int32_t(erwartet.size()));
                EXPECT_TRUE(e.vollstaendig);
                for (const auto& [n, muster] : erwartet) {
                    ASSERT_TRUE(s.treffer.count(n)) << n;
                    EXPECT_EQ(s.treffer[n].second, muster) << n;
                    EXPECT_EQ(s.treffer[n].first, int32_t(std::count(muster.begin(), muster.end(), '!'))) << n;
                }
            }
        }
    }
}

TEST_F(ExtremSuche_, ZielUndPfad) {
    const Regel3nPlus1 plus;
    // The target walk gives the values of one m, and nothing for an m above i.
    std::map<int32_t, size_t> jeM;
    for (uint64_t n = 2; n <= (uint64_t(1) << 20); ++n) {
        int32_t schritte = 0, m = 0;
        for (uint64_t x = n; x != 1 && schritte <= 20; ++schritte) {
            m += int32_t(x % 2);
            x = x % 2 ? 3 * x + 1 : x / 2;
        }
        if (schritte == 20) ++jeM[m];
    }
    for (int32_t m = 0; m <= 6; ++m) {
        Sammler s;
        ExtremWalk(auftrag(20, false, ExtremArt::ZielM, m), plus, s);
        EXPECT_EQ(s.treffer.size(), jeM[m]) << m;
        for (const auto& [n, t] : s.treffer) EXPECT_EQ(t.first, m);
    }
    Sammler leer;
    EXPECT_EQ(ExtremWalk(auftrag(5, false, ExtremArt::ZielM, 6), plus, leer).anzahl, 0);

    // One path in each mode: one hit whose forward marks are the walk's, odd branches first.
    for (bool k : {false, true}) {
        for (int32_t i : {5, 12, 30}) {
            Sammler s;
            ExtremAuftrag a = auftrag(i, k, ExtremArt::Pfad);
            a.bis = hyp(uint64_t(1) << 40);
            ExtremWalk(a, plus, s);
            ASSERT_EQ(s.treffer.size(), 1u) << i;
            const auto& [n, t] = *s.treffer.begin();
            EXPECT_EQ(vorwaerts(n, false, k), t.second) << n;
        }
    }
    Sammler k4;
    ExtremWalk(auftrag(4, true, ExtremArt::Voll), plus, k4);
    EXPECT_EQ(k4.treffer[16].second, "....");
    EXPECT_EQ(k4.treffer[5].second, "!...");
}

TEST_F(ExtremSuche_, BereichTiefeUndStopp) {
    const Regel3nPlus1 plus;
    // An upper bound below 2^i cuts the doubling path: the list is not complete.
    Sammler s;
    ExtremAuftrag a = auftrag(10, false, ExtremArt::Voll);
    a.bis = hyp(1000);
    const ExtremErgebnis e = ExtremWalk(a, plus, s);
    EXPECT_FALSE(e.vollstaendig);
    EXPECT_FALSE(s.treffer.count(1024));
    EXPECT_TRUE(s.treffer.count(170));
    // A lower bound above 1 lets no walk begin.
    a = auftrag(10, false, ExtremArt::Voll);
    a.von = hyp(2);
    EXPECT_FALSE(ExtremWalk(a, plus, s).vollstaendig);
    // A stop ends the walk at once.
    Sammler halt;
    halt.stoppNach = 3;
    EXPECT_EQ(ExtremWalk(auftrag(30, false, ExtremArt::Voll), plus, halt).anzahl, 3);
    // Too deep for the stack: a clear refusal instead of a crash.
    Sammler tief;
    EXPECT_THROW(ExtremWalk(auftrag(ExtremMaxTiefe + 1, false, ExtremArt::ZielM, 0), plus, tief), Laufzeitfehler);
    EXPECT_EQ(ExtremWalk(auftrag(0, false, ExtremArt::Voll), plus, tief).anzahl, 0);
}

TEST_F(ExtremSuche_, Zeile) {
    ExtremZeilenFelder f{5, 1, "5", "!....", "", false};
    ExtremBreiten b;
    // The row number is six wide: five blanks before the first 1.
    EXPECT_EQ(ExtremZeile(f, 0, b), "5 !.... 5.1      1 ");
    f.zahl = "32";
    f.m = 0;
    f.marks = ".....";
    EXPECT_EQ(ExtremZeile(f, 6, b), "     2 5.0 ..... 32 ");
    f.dualAn = true;
    f.dual = DualMarks(hyp(32));
    EXPECT_EQ(f.dual, "!.....");
    EXPECT_EQ(ExtremZeile(f, 2, b), ".....! " "   " "..... " "32 " "5.0 " "     3 ");
    ExtremZeilenFelder g{12, 3, "7", "!.", "!!!", true};
    ExtremBreiten b2;
    EXPECT_EQ(ExtremZeile(g, 4, b2), ".!    !!! 7 12.03      1 ");
    EXPECT_EQ(ExtremMarks("!.!....", 1), "!!...");
    EXPECT_EQ(ExtremMarks("!.!....", 2), "!!");
    EXPECT_EQ(DualMarks(hyp(0)), ".");
    EXPECT_EQ(DualMarks(Ziffern2Hyp("4294967296")), "!" + std::string(32, '.'));
}

}  // namespace
}  // namespace sw::test
