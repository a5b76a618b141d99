// The Collatz table's logic against a plain forward count: the reverse tree of each depth,
// the forward search with its blocks and limits, the search by M alone, the quick search's
// bands, the estimate against GMP, and the difference of two listed numbers.
#include <gtest/gtest.h>
#include <gmp.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "collatz/CollatzBaum.h"
#include "collatz/CollatzSuche.h"
#include "frame/Laufzeitfehler.h"
#include "frame/basZentral.h"

namespace sw::test {
namespace {

// Forward marks of n: "!" for 3n+1, "." for a halving.
std::string marks(uint64_t n) {
    std::string s;
    while (n > 1) {
        s += n % 2 ? '!' : '.';
        n = n % 2 ? 3 * n + 1 : n / 2;
    }
    return s;
}
int32_t mult(const std::string& s) { return int32_t(std::count(s.begin(), s.end(), '!')); }

class CollatzSuche_ : public SwTest {
  protected:
    void SetUp() override {
        SwTest::SetUp();
        FormatZeichen = "";
        Abbruch = false;
    }
};

struct Ziel : CollatzSuchZiel {
    std::vector<uint64_t> treffer;
    std::vector<std::string> zeilen;
    std::string Marks(const Decimal& x) override { return marks(uint64_t(x.AlsInt64())); }
    void Zeile(const std::string& text, const Decimal* wert) override {
        zeilen.push_back(text);
        if (wert) treffer.push_back(uint64_t(wert->AlsInt64()));
    }
};

TEST_F(CollatzSuche_, BaumGleichVorwaertsZaehlung) {
    for (int32_t n = 1; n <= 18; ++n) {
        std::set<std::pair<uint64_t, int32_t>> erwartet;
        for (uint64_t x = 2; x <= (uint64_t(1) << n); ++x) {
            const std::string m = marks(x);
            if (m.size() == size_t(n)) erwartet.insert({x, mult(m)});
        }
        for (bool ungeradeZuerst : {true, false}) {
            std::set<std::pair<uint64_t, int32_t>> baum;
            for (const CollatzBaumEintrag& e : CollatzBaum(n, ungeradeZuerst, 32000))
                baum.insert({uint64_t(e.wert.AlsInt64()), e.mult});
            EXPECT_EQ(baum, erwartet) << n;
        }
    }
    // The order of the branches is the order of the rows.
    auto werte = [](int32_t n, bool u) {
        std::vector<int64_t> v;
        for (const CollatzBaumEintrag& e : CollatzBaum(n, u, 32000)) v.push_back(e.wert.AlsInt64());
        return v;
    };
    EXPECT_EQ(werte(1, true), std::vector<int64_t>{2});
    EXPECT_EQ(werte(3, true), std::vector<int64_t>{8});
    EXPECT_EQ(werte(5, true), (std::vector<int64_t>{5, 32}));
    EXPECT_EQ(werte(5, false), (std::vector<int64_t>{32, 5}));
    // One value beyond the limit tells that the list is cut; deeper trees are refused.
    EXPECT_EQ(CollatzBaum(40, true, 10).size(), 11u);
    EXPECT_EQ(CollatzBaum(95, false, 0).front().wert, Decimal::ausText("39614081257132168796771975168"));
    EXPECT_THROW(CollatzBaum(96, true, 10), Laufzeitfehler);
    EXPECT_TRUE(CollatzBaum(0, true, 10).empty());
}

TEST_F(CollatzSuche_, SucheNachIUndM) {
    CollatzSuchAuftrag a;
    a.start = Decimal(2);
    a.I = 30;
    // The scan ends at the limit of hits.
    std::vector<uint64_t> erwartet;
    for (uint64_t x = 2; erwartet.size() < 40; ++x)
        if (marks(x).size() == 30) erwartet.push_back(x);
    a.maxTreffer = 40;
    Ziel z;
    CollatzSuchErgebnis e = CollatzSuchen(a, z);
    EXPECT_EQ(z.treffer, erwartet);
    EXPECT_FALSE(e.vollstaendig);  // the limit of hits cut it short
    ASSERT_FALSE(z.zeilen.empty());
    EXPECT_EQ(z.zeilen.front().rfind("30." + std::to_string(mult(marks(erwartet[0]))) + " ", 0), 0u);
    // Blocks of equal m are closed by a count and a rule; a block limit drops the rest of a block.
    size_t regeln = size_t(std::count(z.zeilen.begin(), z.zeilen.end(), "----------"));
    EXPECT_GT(regeln, 0u);
    a.maxBlock = 1;
    a.maxTreffer = 8;
    Ziel b;
    e = CollatzSuchen(a, b);
    EXPECT_FALSE(e.vollstaendig);
    for (size_t i = 1; i < b.treffer.size(); ++i) EXPECT_NE(mult(marks(b.treffer[i])), mult(marks(b.treffer[i - 1])));

    // Search by M alone, downward: the values with exactly 3 multiplications, and nothing
    // below 2.
    CollatzSuchAuftrag m;
    m.start = Decimal(600);
    m.schritt = Decimal(-1);
    m.nurM = true;
    m.M = 3;
    Ziel zm;
    e = CollatzSuchen(m, zm);
    std::vector<uint64_t> mitDrei;
    for (uint64_t x = 600; x >= 2; --x)
        if (mult(marks(x)) == 3) mitDrei.push_back(x);
    EXPECT_EQ(zm.treffer, mitDrei);
    EXPECT_TRUE(e.vollstaendig);
    // A step other than 1 leaves values out.
    m.schritt = Decimal(-2);
    Ziel zs;
    EXPECT_FALSE(CollatzSuchen(m, zs).vollstaendig);
    m.start = Decimal(1);
    m.schritt = Decimal(1);
    Ziel leer;
    CollatzSuchen(m, leer);
    EXPECT_TRUE(leer.zeilen.empty());
}

TEST_F(CollatzSuche_, SchnellsucheInBaendern) {
    CollatzSuchAuftrag a;
    a.I = 40;
    a.M = 8;
    a.schnell = true;
    a.maxBlock = 3;
    a.start = CollatzBandMitte(40, 8);
    a.schritt = Decimal(1);
    Ziel auf;
    CollatzSuchen(a, auf);
    EXPECT_TRUE(auf.zeilen.empty());  // upward is refused
    a.schritt = Decimal(-1);
    Ziel z;
    CollatzSuchen(a, z);
    // Each hit has I steps and lies in a band [4/5 Q, Q] of some M at or above the first.
    ASSERT_FALSE(z.treffer.empty());
    for (uint64_t x : z.treffer) {
        EXPECT_EQ(marks(x).size(), 40u) << x;
        bool imBand = false;
        for (int32_t M = 8; M <= 40 && !imBand; ++M) {
            const uint64_t q = uint64_t(CollatzBandMitte(40, M).AlsInt64());
            imBand = x <= q && x >= q / 5 * 4;
        }
        EXPECT_TRUE(imBand) << x;
    }
    EXPECT_EQ(CollatzBandMitte(10, 10), Decimal(0));
    EXPECT_EQ(CollatzBandMitte(12, 2), Decimal(113));  // 2^10 / 9
    EXPECT_THROW(CollatzBandMitte(200, 1), Laufzeitfehler);
}

TEST_F(CollatzSuche_, SchaetzungZeileUndDifferenz) {
    for (auto [a, b] : {std::pair{10, 2}, {200, 50}, {1000, 300}, {64, 0}, {5, 5}, {3, 7}}) {
        mpz_t z, d;
        mpz_init(z);
        mpz_init(d);
        if (a > b) {
            mpz_ui_pow_ui(d, 3, unsigned(b));
            mpz_set_ui(z, 1);
            mpz_mul_2exp(z, z, unsigned(a - b));
            mpz_fdiv_q(z, z, d);
        }
        char* text = mpz_get_str(nullptr, 10, z);
        EXPECT_EQ(Hyp2Text(CollatzSchaetzung(a, b)), text) << a << " " << b;
        free(text);
        mpz_clear(z);
        mpz_clear(d);
    }
    EXPECT_EQ(CollatzTabZeile(Decimal(3), "!.!....", 3, false), "    3 !.!....  7.2");
    EXPECT_EQ(CollatzTabZeile(Decimal(5), "!....", 1, true), "5 !....  5.1\t" + std::string(29, '.') + "!.!");
    EXPECT_EQ(CollatzDual96(Decimal::ausText("4294967296")), "." + std::string(30, '.') + "!" + std::string(32, '.'));
    EXPECT_EQ(BildeDifferenz(Decimal(40), {"  32 ..... 5.0"}), "");
    EXPECT_EQ(BildeDifferenz(Decimal(40), {"  32 ..... 5.0", "x"}), "8");
    EXPECT_EQ(BildeDifferenz(Decimal(40), {"  30 ..... 5.0", "x"}), "-");
    EXPECT_EQ(BildeDifferenz(Decimal(40), {"----------", "x"}), "-");
}

}  // namespace
}  // namespace sw::test
