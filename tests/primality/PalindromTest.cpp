// The palindrome game without its window: the growth trees against published figures and
// against a plain sieve that checks every shortening of every number, the enabled digits at
// the game's edges, the raster against BPSW where both can answer, long numbers against GMP,
// taking digits back, the stop, and the refusal of a broken state.
#include <gtest/gtest.h>

#include <gmp.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "TestUmgebung.h"
#include "frame/basZentral.h"
#include "primality/Palindrom.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

class Palindrom_ : public SwTest {
  protected:
    void Raster(int64_t grenze) { ASSERT_TRUE(PrimaerLauf(Decimal(grenze), MethodeProdukt)); }
};

std::string Frei(const ZiffernUrteil& u) {
    std::string s;
    for (int d = 1; d <= 9; ++d)
        if (u.frei[size_t(d)]) s += char('0' + d);
    return s;
}

PalindromBaum Baum(Anordnung a, int32_t grenze = 0) {
    return PalindromBaumWachsen(a, grenze, [](int32_t, uint64_t) { return true; });
}

// Per length, the numbers below 10^7 without a zero digit that stay prime however far they
// are shortened at the end (or both ends, which must then carry the same digit) the
// arrangement grows at: a sieve and the digits, nothing of the trees' way of growing.
std::vector<uint64_t> PerSiebGezaehlt(Anordnung a) {
    constexpr uint32_t n = 10'000'000;
    std::vector<bool> prim(n, true);
    prim[0] = prim[1] = false;
    for (uint32_t p = 2; p * p < n; ++p)
        if (prim[p])
            for (uint32_t v = p * p; v < n; v += p) prim[v] = false;
    std::vector<uint64_t> jeLaenge(8, 0);
    for (uint32_t v = 2; v < n; ++v) {
        if (!prim[v]) continue;
        int ziffern[8], k = 0;  // lowest first
        for (uint32_t r = v; r > 0; r /= 10) ziffern[k++] = int(r % 10);
        bool ok = a != Anordnung::Beide || k % 2 == 1;  // both ends grow from one digit
        for (int i = 0; i < k; ++i) ok = ok && ziffern[i] != 0;
        int unten = 0, oben = k - 1;  // the digits still standing
        while (ok && unten <= oben) {
            uint32_t wert = 0;
            for (int i = oben; i >= unten; --i) wert = 10 * wert + uint32_t(ziffern[i]);
            ok = prim[wert];
            if (a == Anordnung::Rechts) ++unten;
            else if (a == Anordnung::Links) --oben;
            else {
                ok = ok && ziffern[unten] == ziffern[oben];
                ++unten, --oben;
            }
        }
        if (ok) ++jeLaenge[size_t(k)];
    }
    return jeLaenge;
}

TEST_F(Palindrom_, BaeumeGanz) {
    PalindromBaum b = Baum(Anordnung::Rechts);
    EXPECT_EQ(b.anzahl, 83u);
    EXPECT_EQ(b.groesstes, "73939133");
    EXPECT_TRUE(b.vollstaendig);
    b = Baum(Anordnung::Beide);
    EXPECT_EQ(b.anzahl, 27u);
    EXPECT_EQ(b.groesstes, "733929337");
    // Only odd lengths occur when both ends grow.
    for (size_t k = 2; k < b.jeLaenge.size(); k += 2) EXPECT_EQ(b.jeLaenge[k], 0u) << k;
    b = Baum(Anordnung::Links);
    EXPECT_EQ(b.anzahl, 4260u);
    EXPECT_EQ(b.groesstes, "357686312646216567629137");
    EXPECT_EQ(b.jeLaenge.size(), 25u);
}

TEST_F(Palindrom_, BaeumeBisSiebenStellenWieDasSieb) {
    for (Anordnung a : {Anordnung::Rechts, Anordnung::Links, Anordnung::Beide}) {
        const PalindromBaum b = Baum(a, 7);
        std::vector<uint64_t> erwartet = PerSiebGezaehlt(a);
        std::vector<uint64_t> ist = b.jeLaenge;
        ist.resize(erwartet.size(), 0);
        EXPECT_EQ(ist, erwartet) << int(a);
        EXPECT_LE(b.groesstes.size(), 7u);
    }
}

TEST_F(Palindrom_, AbbruchUndUngueltigeGrenze) {
    int aufrufe = 0;
    const PalindromBaum b = PalindromBaumWachsen(Anordnung::Links, 0, [&](int32_t, uint64_t) { return ++aufrufe < 2; });
    EXPECT_FALSE(b.vollstaendig);
    EXPECT_EQ(aufrufe, 2);
    EXPECT_LT(b.anzahl, 4260u);
    EXPECT_EQ(GeworfeneNummer([] { Baum(Anordnung::Rechts, -1); }), 5);
}

// The enabled digits at the start and in the cases a player meets first, answered by the
// raster and, without one, by BPSW: both must give the same.
TEST_F(Palindrom_, ZiffernAnDenRaendern) {
    for (bool mitRaster : {false, true}) {
        if (mitRaster) Raster(1'000'000);
        const PalindromPruefArt art = mitRaster ? PalindromPruefArt::Primaer : PalindromPruefArt::Bpsw;
        for (Anordnung a : {Anordnung::Rechts, Anordnung::Links, Anordnung::Beide}) {
            const ZiffernUrteil u = ZiffernPruefen("", a, false);
            EXPECT_EQ(Frei(u), "2357") << int(a);
            EXPECT_EQ(u.art, art);
        }
        EXPECT_EQ(Frei(ZiffernPruefen("3", Anordnung::Links, false)), "124578");
        EXPECT_EQ(Frei(ZiffernPruefen("3", Anordnung::Rechts, false)), "17");  // 31, 37
        // Both ends: an even digit or 5 ends the number in 2 or 5.
        for (const char* z : {"2", "3", "5", "7", "929", "39293"}) {
            const std::string frei = Frei(ZiffernPruefen(z, Anordnung::Beide, false));
            EXPECT_EQ(frei.find_first_of("24568"), std::string::npos) << z << ": " << frei;
        }
        EXPECT_EQ(Frei(ZiffernPruefen("2", Anordnung::Beide, false)), "79");  // 727, 929; 121 and 323 are not
    }
}

// Candidates with as many digits as the limit lie beyond the raster's reach when both ends
// grow: they must go to the probable-prime test, not be refused.
TEST_F(Palindrom_, BeideEndenUeberDemRaster) {
    Raster(1'000'000);
    ZiffernUrteil u = ZiffernPruefen("23333", Anordnung::Beide, false);
    EXPECT_EQ(Frei(u), "37");  // 3233333 and 7233337
    EXPECT_EQ(u.art, PalindromPruefArt::Bpsw);
    u = ZiffernPruefen("23333", Anordnung::Beide, true);
    EXPECT_EQ(u.art, PalindromPruefArt::MillerRabin);
    // One round at a random base may let a composite through, never a prime fail.
    EXPECT_NE(Frei(u).find("3"), std::string::npos);
    EXPECT_NE(Frei(u).find("7"), std::string::npos);
    // One digit shorter the raster still answers.
    u = ZiffernPruefen("2333", Anordnung::Rechts, false);
    EXPECT_EQ(u.art, PalindromPruefArt::Primaer);
    EXPECT_EQ(Frei(u), "39");  // 23333, 23339
}

// Where the raster answers, every number of the right and left trees up to four digits gets the
// digits BPSW gives it.
TEST_F(Palindrom_, RasterWieBpsw) {
    std::vector<std::pair<std::string, Anordnung>> zahlen;
    for (Anordnung a : {Anordnung::Rechts, Anordnung::Links, Anordnung::Beide}) {
        std::vector<std::string> ebene{""};
        while (!ebene.empty() && ebene.front().size() < 5) {
            std::vector<std::string> naechste;
            for (const std::string& z : ebene) {
                zahlen.emplace_back(z, a);
                const std::string frei = Frei(ZiffernPruefen(z, a, false));
                for (char d : frei) naechste.push_back(PalindromKandidat(z, d - '0', a));
            }
            ebene = naechste;
        }
    }
    ASSERT_GT(zahlen.size(), 100u);
    std::vector<std::string> ohne;
    for (const auto& [z, a] : zahlen) ohne.push_back(Frei(ZiffernPruefen(z, a, false)));
    Raster(1'000'000);
    for (size_t i = 0; i < zahlen.size(); ++i) {
        const ZiffernUrteil u = ZiffernPruefen(zahlen[i].first, zahlen[i].second, false);
        ASSERT_EQ(u.art, PalindromPruefArt::Primaer) << zahlen[i].first;
        EXPECT_EQ(Frei(u), ohne[i]) << zahlen[i].first << " " << int(zahlen[i].second);
    }
}

// Long numbers against GMP's own test, candidate by candidate.
TEST_F(Palindrom_, DreihundertStellenWieGmp) {
    mpz_t z, c, zehn;
    mpz_inits(z, c, zehn, nullptr);
    mpz_ui_pow_ui(z, 10, 299);
    mpz_nextprime(z, z);
    char* text = mpz_get_str(nullptr, 10, z);
    const std::string zahl = text;
    free(text);
    for (Anordnung a : {Anordnung::Rechts, Anordnung::Links, Anordnung::Beide}) {
        const ZiffernUrteil u = ZiffernPruefen(zahl, a, false);
        for (int d = 1; d <= 9; ++d) {
            mpz_set_str(c, PalindromKandidat(zahl, d, a).c_str(), 10);
            EXPECT_EQ(u.frei[size_t(d)], mpz_probab_prime_p(c, 30) != 0) << int(a) << " " << d;
        }
    }
    mpz_clears(z, c, zehn, nullptr);
}

TEST_F(Palindrom_, ZurueckNachDerJetzigenAnordnung) {
    std::string z;
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Rechts), "");
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Beide), "");
    EXPECT_EQ(z, "");
    z = "73939133";  // grown to the right, taken back from the left
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Links), "7");
    EXPECT_EQ(z, "3939133");
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Rechts), "3");
    EXPECT_EQ(z, "393913");
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Beide), "3");
    EXPECT_EQ(z, "9391");
    z = "7";
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Beide), "7");
    EXPECT_EQ(z, "");
    z = "37";  // two digits both go
    EXPECT_EQ(PalindromZurueck(z, Anordnung::Beide), "3");
    EXPECT_EQ(z, "");
}

TEST_F(Palindrom_, UngueltigerZustand) {
    EXPECT_EQ(PalindromKandidat("", 7, Anordnung::Beide), "7");
    EXPECT_EQ(PalindromKandidat("929", 3, Anordnung::Beide), "39293");
    EXPECT_EQ(GeworfeneNummer([] { PalindromKandidat("3", 0, Anordnung::Rechts); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { PalindromKandidat("3", 10, Anordnung::Links); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { PalindromKandidat("3a", 1, Anordnung::Rechts); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { ZiffernPruefen("-7", Anordnung::Rechts, false); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { ZiffernPruefen("1 3", Anordnung::Links, true); }), 5);
}

}  // namespace
}  // namespace sw::test
