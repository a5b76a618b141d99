// Decimal against an independent oracle: GMP integers, on random values of every size up
// to the 96-bit limit, with the limits themselves, signs and zero.
#include <gmp.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "TestUmgebung.h"
#include "frame/Decimal.h"

namespace sw {
namespace {

using Breit = Decimal::Breit;
using Betrag = Decimal::BetragTyp;

std::string alsText(Breit v) {
    if (v == 0) return "0";
    bool neg = v < 0;
    Betrag b = neg ? Betrag(-v) : Betrag(v);
    std::string s;
    while (b) { s.insert(0, 1, char('0' + int(b % 10))); b /= 10; }
    return neg ? "-" + s : s;
}

// GMP as the oracle: the exact result of an operation, or "overflow" beyond 2^96-1.
std::string orakel(Breit a, Breit b, char op) {
    mpz_t x, y, r, grenze;
    mpz_inits(x, y, r, grenze, nullptr);
    mpz_set_str(x, alsText(a).c_str(), 10);
    mpz_set_str(y, alsText(b).c_str(), 10);
    switch (op) {
        case '+': mpz_add(r, x, y); break;
        case '-': mpz_sub(r, x, y); break;
        case '*': mpz_mul(r, x, y); break;
        case '/': mpz_tdiv_q(r, x, y); break;
        case '%': mpz_tdiv_r(r, x, y); break;
    }
    mpz_ui_pow_ui(grenze, 2, 96);
    std::string ergebnis;
    if (mpz_cmpabs(r, grenze) >= 0) {
        ergebnis = "overflow";
    } else {
        char* s = mpz_get_str(nullptr, 10, r);
        ergebnis = s;
        free(s);
    }
    mpz_clears(x, y, r, grenze, nullptr);
    return ergebnis;
}

std::string rechnen(Breit a, Breit b, char op) {
    try {
        Decimal x = Decimal::ausBreit(a), y = Decimal::ausBreit(b);
        switch (op) {
            case '+': return (x + y).Text();
            case '-': return (x - y).Text();
            case '*': return (x * y).Text();
            case '/': return (x / y).Text();
            default: return (x % y).Text();
        }
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), FehlerUeberlauf);
        return "overflow";
    }
}

// Random magnitudes spread over all bit lengths, with runs of ones and zeros.
Breit zufall(std::mt19937_64& rng) {
    int bits = int(rng() % 97);
    Betrag b = (Betrag(rng()) << 64) | rng();
    switch (rng() % 4) {
        case 0: b = ~Betrag(0); break;                                 // all ones
        case 1: b = Betrag(1) << (bits == 0 ? 0 : bits - 1); break;    // single top bit
        default: break;
    }
    b = bits == 0 ? 0 : (b & ((Betrag(1) << bits) - 1));
    if (bits == 97) b = Decimal::Maximum;
    Breit v = Breit(b);
    return (rng() & 1) ? -v : v;
}

TEST(Decimal, ArithmetikGleichGmpAufZufallswerten) {
    uint64_t seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 rng(seed);
    const Breit max = Breit(Decimal::Maximum);
    const Breit grenzwerte[] = {0, 1, -1, 2, max, -max, max - 1, Breit(1) << 64, Breit(1) << 32};
    std::vector<Breit> werte(std::begin(grenzwerte), std::end(grenzwerte));
    for (int i = 0; i < 3000; ++i) werte.push_back(zufall(rng));
    for (size_t i = 0; i < werte.size(); ++i) {
        Breit a = werte[i], b = werte[(i * 7919 + 13) % werte.size()];
        for (char op : {'+', '-', '*', '/', '%'}) {
            if ((op == '/' || op == '%') && b == 0) continue;
            ASSERT_EQ(rechnen(a, b, op), orakel(a, b, op)) << alsText(a) << " " << op << " " << alsText(b);
        }
    }
}

TEST(Decimal, DivisionDurchNullUndUeberlaufSindLaufzeitfehler) {
    Decimal max = Decimal::ausBreit(Breit(Decimal::Maximum));
    EXPECT_EQ(max.Text(), "79228162514264337593543950335");
    EXPECT_EQ(test::GeworfeneNummer([] { (void)(Decimal(5) / Decimal(0)); }), 11);
    EXPECT_THROW((void)(Decimal(5) % Decimal(0)), Laufzeitfehler);
    EXPECT_THROW((void)(max + Decimal(1)), Laufzeitfehler);
    EXPECT_THROW((void)(-max - Decimal(1)), Laufzeitfehler);
    EXPECT_NO_THROW((void)(max - Decimal(1)));
}

TEST(Decimal, RecordLayoutIstDasDerBibliothek) {
    Decimal d = Decimal::ausBreit((Breit(0x11111111) << 64) | (Breit(0x22222222) << 32) | 0x33333333);
    const unsigned char* roh = reinterpret_cast<const unsigned char*>(&d);
    uint32_t hi, lo, mid;
    std::memcpy(&hi, roh + 4, 4);
    std::memcpy(&lo, roh + 8, 4);
    std::memcpy(&mid, roh + 12, 4);
    EXPECT_EQ(hi, 0x11111111u);
    EXPECT_EQ(lo, 0x33333333u);
    EXPECT_EQ(mid, 0x22222222u);
    EXPECT_EQ(roh[2], 0);  // scale
    EXPECT_EQ(Decimal(-5).sign, 128);
    EXPECT_EQ(Decimal(5).sign, 0);
}

TEST(Decimal, TextUmwandlungInBeideRichtungen) {
    // "1e-5000" is a tiny value, 0 and no overflow.
    const char* faelle[][2] = {{"2e9", "2000000000"}, {" -123 ", "-123"}, {"12,9", "12"}, {"1.5E3", "1500"},
                               {"007", "7"}, {"79228162514264337593543950335", "79228162514264337593543950335"},
                               {"1e-5000", "0"}, {"0e5000", "0"}};
    for (auto& f : faelle) EXPECT_EQ(Decimal::ausText(f[0]).Text(), f[1]) << f[0];
    for (const char* falsch : {"", " ", "abc", "12a", "1e", "--1", "1 2", ",", "e5"}) {
        EXPECT_EQ(test::GeworfeneNummer([&] { Decimal::ausText(falsch); }), FehlerTypenUnvertraeglich) << falsch;
    }
    for (const char* zuGross : {"79228162514264337593543950336", "1e40", "1e99999999999999999999"}) {
        EXPECT_THROW(Decimal::ausText(zuGross), Laufzeitfehler) << zuGross;
    }
}

TEST(Decimal, DoubleUmwandlungSchneidetAbUndPrueftDenBereich) {
    EXPECT_EQ(Decimal::ausDouble(44721.9).Text(), "44721");
    EXPECT_EQ(Decimal::ausDouble(-2.7).Text(), "-2");
    EXPECT_EQ(Decimal::ausDouble(1e20).Text(), "100000000000000000000");
    EXPECT_THROW(Decimal::ausDouble(1e29), Laufzeitfehler);
    EXPECT_THROW(Decimal::ausDouble(std::nan("")), Laufzeitfehler);
    EXPECT_DOUBLE_EQ(Decimal::ausText("-1000000000000").Double(), -1e12);
    EXPECT_EQ(Decimal(2000000000).AlsLong(), 2000000000);
    EXPECT_THROW(Decimal(int64_t(3000000000)).AlsLong(), Laufzeitfehler);
}

TEST(Decimal, GanzeWurzelIstExaktAnDenQuadratgrenzen) {
    for (Betrag r : {Betrag(1), Betrag(44721), Betrag(4294967295u), (Betrag(1) << 48) - 1}) {
        Decimal q = Decimal::ausBreit(Breit(r * r));
        EXPECT_EQ(GanzeWurzel(q).Betrag(), r);
        EXPECT_EQ(GanzeWurzel(q - Decimal(1)).Betrag(), r - 1);
        if (r * r + 2 * r <= Decimal::Maximum) {
            EXPECT_EQ(GanzeWurzel(q + Decimal::ausBreit(Breit(2 * r))).Betrag(), r);
        }
    }
    EXPECT_EQ(GanzeWurzel(Decimal(0)).Text(), "0");
}

}  // namespace
}  // namespace sw
