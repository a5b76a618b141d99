// The squares tools against independent figures and against GMP: roots, Jacobi symbols, square
// roots modulo primes, inverses, primitive roots and orders, the byte strings, the two word
// widths with their refusals, and the FFT product.
#include <random>
#include <string>

#include "TestUmgebung.h"
#include "arith/ByteZahl.h"
#include "arith/FftProdukt.h"
#include "arith/HypText.h"
#include "arith/WortRechner.h"
#include "arith/basWurzel.h"
#include "primality/HypMpz.h"
#include "primality/QuadratWerkzeug.h"

namespace sw::test {
namespace {

class Quadrat : public SwTest {};

Hyp Z(const std::string& formel) { return QuadratEingabe(formel, "x"); }
std::string T(const Hyp& h) { return Hyp2Text(h); }

// The message of the Laufzeitfehler that f throws ("" if none).
template <class F>
std::string Meldung(F&& f) {
    try {
        f();
    } catch (const Laufzeitfehler& e) {
        return e.Beschreibung();
    }
    return "";
}

TEST_F(Quadrat, RootsAndSquares) {
    EXPECT_TRUE(IstQuadrat(2147395600));
    const KWurzel w = KteWurzel(Z("99"), 2);
    EXPECT_EQ(T(w.wurzel), "9");
    EXPECT_EQ(T(w.rest), "18");
    const KWurzel gross = KteWurzel(Z("(10^40+7)^2"), 2);
    EXPECT_EQ(T(gross.wurzel), "10000000000000000000000000000000000000007");
    EXPECT_EQ(T(gross.rest), "0");
    const KWurzel dritte = KteWurzel(Z("3^300+1"), 3);  // one more than a cube
    EXPECT_EQ(T(dritte.wurzel), T(Z("3^100")));
    EXPECT_EQ(T(dritte.rest), "1");
    EXPECT_EQ(T(KteWurzel(Z("0"), 5).wurzel), "0");
    EXPECT_NE(Meldung([] { KteWurzel(Z("8"), 1); }).find("zwischen 2"), std::string::npos);
    EXPECT_NE(Meldung([] { Z("  "); }).find("„x“ ist leer"), std::string::npos);
    EXPECT_NE(Meldung([] { Z("12a"); }), "");
}

TEST_F(Quadrat, JacobiAndSquareRootsModPrime) {
    EXPECT_EQ(Jacobi(Z("3"), Z("2^127-1")), -1);
    EXPECT_EQ(Jacobi(Z("2^127"), Z("2^127-1")), 1);  // a beyond a word takes GMP's road: 2^127 = 1
    EXPECT_NE(Meldung([] { Jacobi(Z("3"), Z("10")); }).find("ungeraden"), std::string::npos);
    EXPECT_NE(Meldung([] { Jacobi(Z("3"), Z("1")); }).find("ungeraden"), std::string::npos);

    EXPECT_EQ(T(*WurzelModP(Z("2"), Z("10^9+7"))), "59713600");
    EXPECT_FALSE(WurzelModP(Z("5"), Z("10^9+7")).has_value());  // (5 | p) = (p | 5) = (2 | 5) = -1
    EXPECT_EQ(T(*WurzelModP(Z("0"), Z("13"))), "0");
    EXPECT_EQ(T(*WurzelModP(Z("1"), Z("2"))), "1");
    EXPECT_NE(Meldung([] { WurzelModP(Z("2"), Z("91")); }).find("keine Primzahl"), std::string::npos);
}

// Random residues modulo random primes up to 300 bits, with p = 1 mod 2^k for deep
// Tonelli-Shanks loops: the root squares back, a non-residue has Legendre symbol -1; and the
// inverse agrees with mpz_invert, or names the gcd.
TEST_F(Quadrat, SquareRootsAndInversesAgainstGmp) {
    gmp_randstate_t zufall;
    gmp_randinit_mt(zufall);
    gmp_randseed_ui(zufall, 20261124);
    Mpz p, a, r, g, inv;
    for (int runde = 0; runde < 300; ++runde) {
        mpz_urandomb(p, zufall, 8 + runde % 290);
        if (runde % 3 == 0) {  // many twos in p - 1
            mpz_mul_2exp(p, p, 20);
            mpz_add_ui(p, p, 1);
            while (mpz_probab_prime_p(p, 30) == 0) mpz_add_ui(p, p, 1u << 20);
        } else {
            mpz_nextprime(p, p);
        }
        mpz_urandomm(a, zufall, p);
        const std::optional<Hyp> w = WurzelModP(MpzZuHyp(a), MpzZuHyp(p));
        if (w) {
            HypZuMpz(r, *w);
            mpz_mul(r, r, r);
            mpz_sub(r, r, a);
            ASSERT_TRUE(mpz_divisible_p(r, p)) << runde;
        } else {
            ASSERT_EQ(mpz_legendre(a, p), -1) << runde;
        }

        mpz_urandomb(a, zufall, 1 + runde % 200);
        mpz_urandomb(g, zufall, 2 + runde % 170);
        mpz_add_ui(g, g, 2);  // any modulus from 2 up, even and composite ones too
        const ModInverseErgebnis e = ModInverse(MpzZuHyp(a), MpzZuHyp(g));
        if (mpz_invert(inv, a, g) != 0) {
            ASSERT_EQ(T(e.inverse), T(MpzZuHyp(inv))) << runde;
        } else {
            mpz_gcd(inv, a, g);
            ASSERT_EQ(T(e.ggt), T(MpzZuHyp(inv))) << runde;
            ASSERT_EQ(T(e.inverse), "0") << runde;
        }
    }
    gmp_randclear(zufall);
}

TEST_F(Quadrat, InversesOfBothWidths) {
    const ModInverseErgebnis gross = ModInverse(Z("10^30+57"), Z("2^127-1"));
    EXPECT_FALSE(gross.wort);
    EXPECT_EQ(T(gross.inverse), "7668730993594610578260002946019408669");
    const ModInverseErgebnis wort = ModInverse(Z("3"), Z("7"));
    EXPECT_TRUE(wort.wort);
    EXPECT_EQ(T(wort.inverse), "5");
    const ModInverseErgebnis teiler = ModInverse(Z("12"), Z("18"));
    EXPECT_EQ(T(teiler.ggt), "6");
    EXPECT_EQ(T(teiler.inverse), "0");
    EXPECT_NE(Meldung([] { ModInverse(Z("3"), Z("1")); }).find("mindestens 2"), std::string::npos);
}

TEST_F(Quadrat, PrimitiveRootsAndOrders) {
    EXPECT_EQ(T(KleinstePrimitivwurzel(Z("760321")).wurzel), "73");
    EXPECT_EQ(T(KleinstePrimitivwurzel(Z("2^31-1")).wurzel), "7");
    const Primwurzel m = KleinstePrimitivwurzel(Z("10^9+7"));
    EXPECT_EQ(T(m.wurzel), "5");
    ASSERT_EQ(m.faktoren.size(), 2u);  // 10^9 + 6 = 2 x 500000003
    EXPECT_EQ(T(m.faktoren[1]), "500000003");

    // Beyond a word the factors come from the factoriser; the answers from PARI/GP.
    const Primwurzel g = KleinstePrimitivwurzel(Z("2^61-1"));
    EXPECT_FALSE(g.wort);
    EXPECT_EQ(T(g.wurzel), "37");
    EXPECT_EQ(T(KleinstePrimitivwurzel(Z("2^127-1")).wurzel), "43");
    EXPECT_EQ(T(Ordnung(Z("2"), Z("2^61-1"), g.faktoren)), "61");
    EXPECT_EQ(T(Ordnung(Z("37"), Z("2^61-1"), g.faktoren)), T(Z("2^61-2")));
    EXPECT_EQ(T(Ordnung(Z("10^9+6"), Z("10^9+7"), m.faktoren)), "2");
    EXPECT_EQ(T(Ordnung(Z("1"), Z("10^9+7"), m.faktoren)), "1");
    EXPECT_EQ(T(KleinstePrimitivwurzel(Z("2")).wurzel), "1");
    EXPECT_NE(Meldung([] { KleinstePrimitivwurzel(Z("2^61+1")); }).find("keine Primzahl"), std::string::npos);
    EXPECT_NE(Meldung([&] { Ordnung(Z("2*(10^9+7)"), Z("10^9+7"), m.faktoren); }).find("durch p teilbar"),
              std::string::npos);
}

TEST_F(Quadrat, ByteStringsBothWays) {
    EXPECT_EQ(BytesHex(Z("2^64+1")), "01 00 00 00 00 00 00 00 01");
    EXPECT_EQ(BytesHex(Z("0")), "00");
    EXPECT_EQ(T(HexBytesZahl("01 00 00 00 00 00 00 00 01")), T(Z("2^64+1")));
    EXPECT_EQ(T(HexBytesZahl("0100,ff:A")), T(Z("1+255*65536+10*2^24")));
    EXPECT_EQ(T(TextZahl("AB")), std::to_string(0x41 + 0x42 * 256));
    EXPECT_EQ(T(TextZahl("")), "0");
    const BytesAlsText t = ZahlText(TextZahl("Primzahl ✓ ü"));
    EXPECT_TRUE(t.lesbar);
    EXPECT_EQ(t.text, "Primzahl ✓ ü");
    EXPECT_FALSE(ZahlText(HexBytesZahl("C3 28")).lesbar);   // a lead byte without its follower
    EXPECT_FALSE(ZahlText(Z("2^64+1")).lesbar);            // UTF-8, but control characters
    EXPECT_FALSE(IstUtf8("\xC0\xAF"));                       // overlong "/"
    EXPECT_FALSE(IstUtf8("\xED\xA0\x80"));                   // a surrogate
    EXPECT_FALSE(IstUtf8("\xE2\x9C"));                       // cut short
    EXPECT_NE(Meldung([] { HexBytesZahl("01 0G"); }).find("Stelle 5: „G“"), std::string::npos);
    EXPECT_NE(Meldung([] { HexBytesZahl("010"); }).find("paarweise"), std::string::npos);
    EXPECT_NE(Meldung([] { HexBytesZahl(" , "); }).find("Keine Bytes"), std::string::npos);
}

TEST_F(Quadrat, WordWidthsNameOverflowAndDivisionByZero) {
    for (int32_t breite : {64, 128}) {
        EXPECT_EQ(Meldung([&] { WortRechnen(Z("5"), Z("0"), WortOp::Div, breite); }), "Division durch 0 nicht möglich!");
        EXPECT_EQ(Meldung([&] { WortRechnen(Z("5"), Z("0"), WortOp::Mod, breite); }), "Division durch 0 nicht möglich!");
        const std::string grenze = "2^" + std::to_string(breite) + "-1";
        EXPECT_EQ(T(WortRechnen(Z(grenze + "-1"), Z("1"), WortOp::Plus, breite)), T(Z(grenze)));
        EXPECT_NE(Meldung([&] { WortRechnen(Z(grenze), Z("1"), WortOp::Plus, breite); }).find("Überlauf"), std::string::npos);
        EXPECT_NE(Meldung([&] { WortRechnen(Z("3"), Z("4"), WortOp::Minus, breite); }).find("negativ"), std::string::npos);
        const std::string halb = "2^" + std::to_string(breite / 2);
        EXPECT_EQ(T(WortRechnen(Z(halb + "-1"), Z(halb + "+1"), WortOp::Mal, breite)), T(Z(grenze)));
        EXPECT_NE(Meldung([&] { WortRechnen(Z(halb), Z(halb), WortOp::Mal, breite); }).find("Überlauf"), std::string::npos);
        EXPECT_NE(Meldung([&] { WortRechnen(Z("2^" + std::to_string(breite)), Z("1"), WortOp::Plus, breite); }).find("passt nicht"),
                  std::string::npos);
        EXPECT_EQ(T(WortRechnen(Z(grenze), Z("10^9+7"), WortOp::Div, breite)), T(Z("(" + grenze + ")/(10^9+7)")));
        EXPECT_EQ(T(WortRechnen(Z(grenze), Z("10^9+7"), WortOp::Mod, breite)), T(Z("(" + grenze + ")%(10^9+7)")));
    }
    // A product whose cut part is a multiple of b but whose quotient is not a: still overflow.
    EXPECT_NE(Meldung([] { WortRechnen(Z("2^32"), Z("2^32"), WortOp::Mal, 64); }).find("Überlauf"), std::string::npos);
}

// The FFT product equals GMP's for random sizes from one byte up to about 40,000 digits, and
// its round-off stays far below 1/2, which is what makes the rounding exact.
TEST_F(Quadrat, FftProductAgainstGmp) {
    std::mt19937 zufall(4711);
    gmp_randstate_t gz;
    gmp_randinit_mt(gz);
    gmp_randseed_ui(gz, 4711);
    Mpz a, b;
    for (int runde = 0; runde < 40; ++runde) {
        mpz_urandomb(a, gz, 1 + zufall() % (runde < 30 ? 2000 : 130000));
        mpz_urandomb(b, gz, 1 + zufall() % 130000);
        if (runde == 0) mpz_set_ui(a, 0);
        const FftVergleich v = FftGegenGmp(MpzZuHyp(a), MpzZuHyp(b));
        ASSERT_TRUE(v.gleich) << runde;
        EXPECT_LT(v.rundungsfehler, 0.05) << runde;
    }
    mpz_set_ui(a, 0);
    mpz_setbit(a, 8 * (FftHoechstPunkte / 2 + 1));  // one byte more than the largest transform takes
    EXPECT_NE(Meldung([&] { FftProdukt(MpzZuHyp(a), MpzZuHyp(a)); }).find("Punkte"), std::string::npos);
    gmp_randclear(gz);
}

}  // namespace
}  // namespace sw::test
