// The table window's reading of a list: numbers of any length sort by value (sign, grouping,
// decimal part), text after the numbers, empty cells last; cells split at ";" and tabs; CSV
// quotes what would break a field.
#include <gtest/gtest.h>

#include <gmp.h>

#include <random>

#include "frame/TabellenText.h"

namespace sw::test {
namespace {

std::vector<std::string> spalte(const std::vector<TabellenZeile>& t, size_t i) {
    std::vector<std::string> s;
    for (const TabellenZeile& z : t) s.push_back(i < z.size() ? z[i] : "");
    return s;
}

TEST(TabellenText, ZahlenJederLaengeVorText) {
    std::vector<TabellenZeile> t;
    for (const char* c : {"Primzahl", "123456789012345678901234567890", "-98765432109876543210987", "",
                          "99999999999999999999999", "1.000.000", "-2", "3,5", "3.25", "0", "-0,0", "+7", "abc",
                          "-1.000", "12 345"}) {
        t.push_back({c});
    }
    TabelleSortieren(t, 0, false);
    EXPECT_EQ(spalte(t, 0), (std::vector<std::string>{"-98765432109876543210987", "-1.000", "-2", "0", "-0,0", "3.25",
                                                       "3,5", "+7", "12 345", "1.000.000", "99999999999999999999999",
                                                       "123456789012345678901234567890", "Primzahl", "abc", ""}));
    TabelleSortieren(t, 0, true);
    EXPECT_EQ(spalte(t, 0), (std::vector<std::string>{"123456789012345678901234567890", "99999999999999999999999",
                                                       "1.000.000", "12 345", "+7", "3,5", "3.25", "0", "-0,0", "-2",
                                                       "-1.000", "-98765432109876543210987", "abc", "Primzahl", ""}));
}

TEST(TabellenText, GrosseZahlenWieGmp) {
    // Random signed numbers of up to 60 digits against GMP's order.
    std::mt19937_64 zufall(17);
    std::vector<std::string> zahlen;
    for (int i = 0; i < 300; ++i) {
        std::string z = zufall() % 2 ? "-" : "";
        const int stellen = 1 + int(zufall() % 60);
        for (int k = 0; k < stellen; ++k) z += char('0' + zufall() % 10);
        zahlen.push_back(z);
    }
    mpz_t a, b;
    mpz_inits(a, b, nullptr);
    for (size_t i = 0; i + 1 < zahlen.size(); ++i) {
        mpz_set_str(a, zahlen[i].c_str(), 10);
        mpz_set_str(b, zahlen[i + 1].c_str(), 10);
        const int erwartet = mpz_cmp(a, b);
        EXPECT_EQ(ZellenVergleich(zahlen[i], zahlen[i + 1]), erwartet < 0 ? -1 : erwartet > 0 ? 1 : 0)
            << zahlen[i] << " " << zahlen[i + 1];
    }
    mpz_clears(a, b, nullptr);
}

TEST(TabellenText, ZerlegenUndCsv) {
    const std::vector<TabellenZeile> t = TabelleZerlegen({"71; 1 ;Bewiesen", "", "839\t2\tWahr;scheinlich", "  "});
    ASSERT_EQ(t.size(), 2u);
    EXPECT_EQ(t[0], (TabellenZeile{"71", "1", "Bewiesen"}));
    EXPECT_EQ(t[1], (TabellenZeile{"839", "2", "Wahr", "scheinlich"}));
    // Rows without the column sort as empty: last.
    std::vector<TabellenZeile> s{{"a"}, {"b", "2"}, {"c", "1"}};
    TabelleSortieren(s, 1, false);
    EXPECT_EQ(spalte(s, 0), (std::vector<std::string>{"c", "b", "a"}));
    EXPECT_EQ(TabelleCsv({{"1", "a;b", "sagt \"ja\""}, {"2"}}), "1;\"a;b\";\"sagt \"\"ja\"\"\"\n2\n");
}

}  // namespace
}  // namespace sw::test
