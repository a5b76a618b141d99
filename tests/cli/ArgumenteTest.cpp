// The number reader of sw-cli, called directly: what a shell user types gives the number
// meant, what the evaluator would silently read as another number is refused with a message
// that names the argument, and no text whatever crashes it or shows a box.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "Argumente.h"
#include "CliUmgebung.h"
#include "TestUmgebung.h"
#include "arith/basRechnen.h"

namespace sw::test {
namespace {

using cli::ArgumentLesen;
using cli::CliFehler;
using cli::ZahlText;

class Argumente : public SwTest {};

std::string wert(const std::string& text) { return ZahlText(ArgumentLesen(text, "N")); }

// The message of the refusal, "" if the text was read.
std::string fehler(const std::string& text, const std::string& was = "N") {
    try {
        ArgumentLesen(text, was);
    } catch (const CliFehler& e) {
        return e.what();
    }
    return "";
}

TEST_F(Argumente, GelesenWieGemeint) {
    const std::vector<std::pair<std::string, std::string>> faelle = {
        {"0", "0"},
        {"1000000", "1000000"},
        {"1.000.000", "1000000"},
        {"12.345", "12345"},
        {" 2.000.000.000 ", "2000000000"},
        {"2e9", "2000000000"},
        {"1.5e10", "15000000000"},
        {"3E+12", "3000000000000"},
        {"1.000e3", "1000"},
        {"0.5e1", "5"},
        {"1e40", "1" + std::string(40, '0')},
        {"2^61-1", "2305843009213693951"},
        {"10 ^ 12 + 10 ^ 6", "1000001000000"},
        {"2e3+1e3", "3000"},
        {"1e3 MOD 7", "6"},
        {"7 modulo 3", "1"},
        {"SQR(10^40)", "100000000000000000000"},
        {"sqrt(1e40)+39", "100000000000000000039"},
        {"SQRMOD(10)", "1"},
        {"2**3", "8"},
        {"8\\2", "4"},
        {"2\xC2\xB2+1", "5"},
        // The program's own precedence: + before -, % and / before *.
        {"10-2+3", "5"},
        {"7%3*2", "2"},
        {"(2+3)*4", "20"},
    };
    for (const auto& [text, erwartet] : faelle) {
        try {
            EXPECT_EQ(wert(text), erwartet) << text;
        } catch (const CliFehler& e) {
            ADD_FAILURE() << text << ": " << e.what();
        }
    }
    EXPECT_TRUE(ui.meldungen.empty());
}

// Each of these the evaluator would read as some number; an argument of a script must not.
TEST_F(Argumente, Abgelehnt) {
    const std::vector<std::pair<std::string, std::string>> faelle = {
        {"", "empty"},
        {"  ", "empty"},
        {"2.5", "threes"},
        {"1.0000", "threes"},
        {"1..000", "threes"},
        {".500", "threes"},
        {"1000.", "threes"},
        {"1.5e0", "fraction"},
        {"1.23e1", "fraction"},
        {"1.2.3e4", "decimal point"},
        {"-7", "negative"},
        {"2^(-1)", "negative"},
        {"2x3", "unknown word X"},
        {"1e", "unknown word E"},
        {"1e-5", "unknown word E"},
        {"abc", "unknown word ABC"},
        {"2+", "missing at the end"},
        {"*3", "missing before '*'"},
        {"2*/3", "missing before '/'"},
        {"(2", "')' is missing"},
        {"2)", "has no '('"},
        {"()", "missing before ')'"},
        {"2(3)", "missing before '('"},
        {"(2)3", "missing after ')'"},
        {"2SQR4", "missing before SQR"},
        {"MOD 3", "missing before MOD"},
        {"SQR", "missing at the end"},
        {"1e9999999999", "too large"},
        {"7/0", "'7/0': "},
        {"7 MOD 0", "'7 MOD 0': "},
        {"2$", "'2$': "},
    };
    for (const auto& [text, teil] : faelle) {
        const std::string m = fehler(text);
        EXPECT_EQ(m.rfind("N ", 0), 0u) << text << ": " << m;
        EXPECT_NE(m.find(teil), std::string::npos) << text << ": " << m;
    }
    EXPECT_EQ(fehler("2x", "--limit").rfind("--limit is not a whole non-negative number: '2x'", 0), 0u);
    EXPECT_TRUE(ui.meldungen.empty());
}

TEST_F(Argumente, DecimalBis2hoch96) {
    EXPECT_EQ(cli::ZahlLesen("2^96-1", "TO").Text(), "79228162514264337593543950335");
    try {
        cli::ZahlLesen("2^96", "TO");
        ADD_FAILURE() << "2^96 read as a Decimal";
    } catch (const CliFehler& e) {
        EXPECT_EQ(std::string(e.what()).rfind("TO is too large: '2^96'", 0), 0u) << e.what();
    }
}

// Random texts from the characters of formulas and numbers: each gives a value or a CliFehler
// that names the argument; nothing else escapes, and no box is shown. Grouped numbers with a
// random value read back as that value; the same text with one dot moved is refused.
TEST_F(Argumente, ZufallstexteGebenWertOderKlareMeldung) {
    const int64_t bitsVorher = HoechstBits;
    HoechstBits = 4096;  // keeps powers such as 99^99999 quick: refused, not computed
    std::mt19937_64 zufall(20240611);
    const std::string zeichen = "0123456789..^%/*+-()eE x#SQRTMOD\\";
    // Half the texts are character soup, half are built from the pieces of formulas, so that
    // most of those reach the evaluator.
    const std::vector<std::string> stuecke = {"7", "1.000", "2e3", "1.5e2", "0", "10", "^", "+", "-", "*", "/",
                                              " MOD ", "(", ")", "SQR(", "2^61", " "};
    int gelesen = 0;
    for (int lauf = 0; lauf < 4000; ++lauf) {
        std::string text;
        const size_t laenge = zufall() % 14;
        for (size_t i = 0; i < laenge; ++i) {
            text += lauf % 2 ? zeichen.substr(zufall() % zeichen.size(), 1) : stuecke[zufall() % stuecke.size()];
        }
        try {
            ArgumentLesen(text, "N");
            ++gelesen;
        } catch (const CliFehler& e) {
            EXPECT_EQ(std::string(e.what()).rfind("N ", 0), 0u) << text << ": " << e.what();
        } catch (...) {
            ADD_FAILURE() << "'" << text << "' threw something other than a CliFehler";
        }
    }
    EXPECT_GT(gelesen, 100);  // the test reaches the evaluator, not only the checks
    for (int lauf = 0; lauf < 2000; ++lauf) {
        const uint64_t zahl = zufall() >> (zufall() % 60);
        std::string ziffern = std::to_string(zahl), gruppiert;
        for (size_t i = 0; i < ziffern.size(); ++i) {
            if (i > 0 && (ziffern.size() - i) % 3 == 0) gruppiert += '.';
            gruppiert += ziffern[i];
        }
        EXPECT_EQ(wert(gruppiert), ziffern) << gruppiert;
        const size_t punkt = gruppiert.find('.');
        if (punkt != std::string::npos && punkt + 1 < gruppiert.size()) {
            std::string verschoben = gruppiert;
            std::swap(verschoben[punkt], verschoben[punkt + 1]);
            EXPECT_NE(fehler(verschoben).find("threes"), std::string::npos) << verschoben;
        }
    }
    HoechstBits = bitsVorher;
    EXPECT_TRUE(ui.meldungen.empty());
}

}  // namespace
}  // namespace sw::test
