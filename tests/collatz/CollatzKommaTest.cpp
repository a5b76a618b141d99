// The fractional multiplier: its predecessor against a brute-force search over all odd
// candidates, the tree of y = 3 against the tree of 3n+1, and the tree of other y against a
// plain forward walk of every number up to 2^i (complete, and each hit with its own steps and
// multiplications). Then the multiplier text and its clamped steps.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "collatz/CollatzKomma.h"
#include "frame/Laufzeitfehler.h"
#include "zahlkern/zahlkern.h"

namespace sw::test {
namespace {

using u128 = unsigned __int128;

// The forward step on odd x by plain 128-bit arithmetic: ceil(x Y / 10^10), made even.
uint64_t schritt(uint64_t x, uint64_t y10) {
    const u128 z = u128(x) * y10;
    uint64_t c = uint64_t((z + 9999999999u) / 10000000000u);
    return c + (c & 1);
}

// Steps and multiplications of n down to 1; {-1, -1} when it takes more than grenze steps.
// In mode k a multiplication and the halving after it are one step.
std::pair<int, int> vorwaerts(uint64_t n, uint64_t y10, bool modusK, int grenze) {
    int s = 0, m = 0;
    while (n != 1) {
        if (++s > grenze) return {-1, -1};
        if (n & 1) {
            n = schritt(n, y10);
            ++m;
            if (modusK) n /= 2;
        } else {
            n /= 2;
        }
    }
    return {s, m};
}

Hyp hyp(uint64_t v) { return Ziffern2Hyp(std::to_string(v)); }

struct Sammler : ExtremZiel {
    std::map<uint64_t, int32_t> treffer;  // value -> m
    void Treffer(const Hyp& w, int32_t m, const std::string&) override { treffer[std::stoull(Hyp2Text(w))] = m; }
    bool Gestoppt() override { return false; }
};

ExtremAuftrag auftrag(int32_t i, bool k, ExtremArt art = ExtremArt::Voll) {
    ExtremAuftrag a;
    a.tiefe = i;
    a.modusK = k;
    a.art = art;
    a.von = hyp(1);
    a.bis = hyp(uint64_t(1) << i);
    return a;
}

using CollatzKomma_ = SwTest;

TEST_F(CollatzKomma_, VorgaengerWieBruteForce) {
    for (const char* y : {"3,0000000000", "3,1000000000", "2,4500000000", "3,3300000000", "1,0000000000",
                          "2,7182818284", "3,0000000001", "9,9999999999"}) {
        const RegelKomma regel(y);
        const uint64_t y10 = std::stoull(Hyp2Text(Ziffern2Hyp(std::string(y).erase(1, 1))));
        std::map<uint64_t, uint64_t> wahr;  // value -> its odd predecessor above 1
        for (uint64_t p = 3; p < 40000; p += 2) {
            const uint64_t v = schritt(p, y10);
            ASSERT_FALSE(wahr.count(v)) << y << ": two predecessors of " << v;
            wahr[v] = p;
        }
        for (uint64_t v = 1; v < 40000; ++v) {
            Hyp h = hyp(v);
            const bool da = regel.Vorgaenger(h) && aCmpHyp32(h, 1) > 0;  // the walk drops 1 itself
            ASSERT_EQ(da, wahr.count(v) > 0) << y << " v " << v;
            if (da) {
                EXPECT_EQ(Hyp2Text(h), std::to_string(wahr[v])) << y << " v " << v;
            }
        }
    }
    // p Y = (v - 2) 10^10 + 1 exactly: the predecessor a quotient of (v - 1) 10^10 - 9999999999
    // plus one would step over.
    const RegelKomma knapp("3,0000000001");
    Hyp v = Ziffern2Hyp("30000000006");
    ASSERT_TRUE(knapp.Vorgaenger(v));
    EXPECT_EQ(Hyp2Text(v), "10000000001");
    // Far beyond 64 bits: p = 2^200 + 1 with y = 3.1 comes back from its forward step.
    const RegelKomma gross("3,1000000000");
    Hyp p = Ziffern2Hyp("1606938044258990275541962092341162602522202993782792835301377");
    Hyp w = gross.Schritt(p);
    ASSERT_TRUE(gross.Vorgaenger(w));
    EXPECT_EQ(aCmpHypHyp(w, p), 0);

    EXPECT_THROW(RegelKomma("0,9999999999"), Laufzeitfehler);
    EXPECT_THROW(RegelKomma("3,1"), Laufzeitfehler);
    // Without a multiplication step there is no predecessor at all, whatever y is.
    Hyp zehn = hyp(10);
    EXPECT_FALSE(RegelKomma("0,5000000000", false).Vorgaenger(zehn));
}

TEST_F(CollatzKomma_, DreiGleichDreiNPlusEins) {
    const RegelKomma komma("3,0000000000");
    const Regel3nPlus1 plus;
    for (bool k : {false, true}) {
        for (int32_t i = 1; i <= 20; ++i) {
            for (ExtremArt art : {ExtremArt::Voll, ExtremArt::Pfad}) {
                Sammler a, b;
                ExtremWalk(auftrag(i, k, art), komma, a);
                ExtremWalk(auftrag(i, k, art), plus, b);
                ASSERT_EQ(a.treffer, b.treffer) << "k " << k << " i " << i;
            }
        }
    }
    Sammler zehn, zwanzig;
    ExtremWalk(auftrag(10, false), komma, zehn);
    std::set<uint64_t> werte;
    for (const auto& [n, m] : zehn.treffer) werte.insert(n);
    EXPECT_EQ(werte, (std::set<uint64_t>{24, 26, 160, 168, 170, 1024}));
    ExtremWalk(auftrag(20, false), komma, zwanzig);
    EXPECT_EQ(zwanzig.treffer.size(), 72u);
}

TEST_F(CollatzKomma_, BaumGleichVorwaertsWalk) {
    // Every value of depth i is at most 2^i, so the forward walk over 1..2^i finds all of them.
    for (const char* y : {"3,1000000000", "2,4500000000", "3,3300000000", "2,7182818284"}) {
        const RegelKomma regel(y);
        const uint64_t y10 = std::stoull(std::string(y).erase(1, 1));
        for (bool k : {false, true}) {
            for (int32_t i : {1, 2, 7, 12, 18}) {
                Sammler s;
                const ExtremErgebnis e = ExtremWalk(auftrag(i, k), regel, s);
                EXPECT_TRUE(e.vollstaendig);
                std::map<uint64_t, int32_t> erwartet;
                for (uint64_t n = 2; n <= (uint64_t(1) << i); ++n) {
                    const auto [schritte, mult] = vorwaerts(n, y10, k, i);
                    if (schritte == i) erwartet[n] = mult;
                }
                ASSERT_EQ(s.treffer, erwartet) << y << " k " << k << " i " << i;
            }
        }
        // The single path ends on one true value of that depth.
        for (bool k : {false, true}) {
            Sammler s;
            ExtremAuftrag a = auftrag(40, k, ExtremArt::Pfad);
            ExtremWalk(a, regel, s);
            ASSERT_EQ(s.treffer.size(), 1u) << y;
            const auto& [n, m] = *s.treffer.begin();
            EXPECT_EQ(vorwaerts(n, y10, k, 40), std::make_pair(40, int(m))) << y << " " << n;
        }
    }
}

TEST_F(CollatzKomma_, MultiplikatorUndSchritt) {
    EXPECT_EQ(KommaMultiplikator("3,1"), "3,1000000000");
    EXPECT_EQ(KommaMultiplikator(" 3.1 "), "3,1000000000");
    EXPECT_EQ(KommaMultiplikator("3"), "3,0000000000");
    EXPECT_EQ(KommaMultiplikator("2,718281828459"), "2,7182818285");
    EXPECT_EQ(KommaMultiplikator("0,5"), "0,5000000000");
    for (const char* falsch : {"", "abc", "3,1,2", "10", "9,99999999999", "-3", "1e1", "3,1x"})
        EXPECT_EQ(KommaMultiplikator(falsch), std::nullopt) << falsch;
    // The band holds: a step past an end lands on it, and a further step stays there.
    EXPECT_EQ(KommaSchritt("3,3200000000", "0,05", true), "3,3300000000");
    EXPECT_EQ(KommaSchritt("3,3300000000", "0,05", true), "3,3300000000");
    EXPECT_EQ(KommaSchritt("2,4600000000", "0.05", false), "2,4500000000");
    EXPECT_EQ(KommaSchritt("2,4500000000", "0,05", false), "2,4500000000");
    EXPECT_EQ(KommaSchritt("3,0000000000", "0,0000000001", true), "3,0000000001");
    EXPECT_EQ(KommaSchritt("3,0000000000", "x", true), std::nullopt);
}

}  // namespace
}  // namespace sw::test
