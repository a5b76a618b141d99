// The gap counts against a plain sieve of bytes: neighbours, all pairs, the run of the gaps and
// the density over the primary raster, neighbours over a secondary range against GMP, and the
// Hardy-Littlewood estimate in its three entry modes.
#include <gtest/gtest.h>
#include <gmp.h>

#include <cmath>
#include <map>

#include "TestUmgebung.h"
#include "distribution/basAbstand.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSekundaer.h"

namespace sw::test {
namespace {

constexpr int64_t kGrenze = 2000000;

// The primes up to grenze by the plain sieve of Eratosthenes, independent of the raster.
std::vector<int64_t> PrimzahlenBis(int64_t grenze) {
    std::vector<char> zusammengesetzt(size_t(grenze) + 1, 0);
    std::vector<int64_t> p;
    for (int64_t i = 2; i <= grenze; ++i) {
        if (zusammengesetzt[size_t(i)]) continue;
        p.push_back(i);
        for (int64_t j = i * i; j <= grenze; j += i) zusammengesetzt[size_t(j)] = 1;
    }
    return p;
}

class Abstand : public SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(kGrenze), MethodeProdukt));
    }
    static std::vector<int64_t> Zaehlen(int32_t art, int64_t start, int64_t ende, int64_t von, int32_t n) {
        AbstandZaehlung z(art, Zahl128(start), Zahl128(ende), von, n);
        EXPECT_TRUE(AbstandPrimaerZaehlen(z, Zahl128(start), Zahl128(ende), nullptr));
        return z.Anzahl();
    }
    const std::vector<int64_t> prim_ = PrimzahlenBis(kGrenze);
};

// Every bar of every stretch agrees with the neighbours of the plain sieve; the hand-added
// pairs 3,5 and 5,7 count only when the stretch begins low enough.
TEST_F(Abstand, NachbarnWieEinfachesSieb) {
    const auto a = Zaehlen(ArtNachbarn, 2, 1000000, 2, 60);
    EXPECT_EQ(a[0], 8169);
    EXPECT_EQ(a[1], 8143);
    EXPECT_EQ(a[2], 13549);
    EXPECT_EQ(a[3], 5569);
    EXPECT_EQ(a[14], 1914);
    EXPECT_EQ(a[35], 13);
    EXPECT_EQ(a[56], 1);  // 492113 -> 492227

    for (auto [start, ende] : {std::pair<int64_t, int64_t>{2, 1000000}, {4, 1000}, {6, 1000}, {7, 1000},
                               {123457, 1999993}, {999983, 999983}, {1000000, 2000000}}) {
        std::map<int64_t, int64_t> erwartet;
        int64_t vorige = 0, anzahl = 0;
        for (int64_t p : prim_) {
            if (p < start || p > ende) continue;
            if (vorige) ++erwartet[p - vorige];
            vorige = p;
            ++anzahl;
        }
        // The bars start at 4: gaps of 2 are counted as primes but fall in no bar.
        AbstandZaehlung z(ArtNachbarn, Zahl128(start), Zahl128(ende), 4, 40);
        AbstandPrimaerZaehlen(z, Zahl128(start), Zahl128(ende), nullptr);
        EXPECT_EQ(z.Primzahlen(), uint64_t(anzahl)) << start;
        for (int i = 0; i <= 40; ++i) EXPECT_EQ(z.Anzahl()[size_t(i)], erwartet[4 + 2 * i]) << start << " d=" << 4 + 2 * i;
    }
    EXPECT_EQ(Zaehlen(ArtNachbarn, 4, 100, 2, 3)[0], 7);  // 5,7 but not 3,5
    EXPECT_EQ(Zaehlen(ArtNachbarn, 2, 11, 2, 3), (std::vector<int64_t>{2, 1, 0, 0}));  // 7,11 the first 4
    EXPECT_TRUE(Zaehlen(ArtNachbarn, 2, 100, 2, BalkenZahl(3, 3)).empty());  // narrower than a bar
}

// All pairs: the running sums of the plain sieve, and PaarAbstaende on the same numbers.
TEST_F(Abstand, AllePaareWieEinfacheSchleife) {
    const int32_t n = 100;  // differences 2 .. 202
    std::vector<int64_t> erwartet(size_t(n) + 1, 0);
    for (size_t i = 0; i < prim_.size() && prim_[i] <= 1000000; ++i) {
        for (size_t j = i + 1; j < prim_.size() && prim_[j] <= 1000000 && prim_[j] - prim_[i] <= 202; ++j) {
            const int64_t d = prim_[j] - prim_[i];
            if (d % 2 == 0) ++erwartet[size_t(d / 2 - 1)];
        }
    }
    const auto d = Zaehlen(ArtPaare, 2, 1000000, 2, n);
    EXPECT_EQ(d, erwartet);
    EXPECT_EQ(d[1], 8144);
    EXPECT_EQ(d[2], 16386);
    EXPECT_EQ(d[14], 21990);

    const auto paare = PaarAbstaende(1, 1000000, 2 * (n + 2), true);
    ASSERT_EQ(paare.size(), size_t(n + 2));
    EXPECT_EQ(paare[2], 8144);
    EXPECT_EQ(std::vector<int64_t>(paare.begin() + 1, paare.end()), erwartet);

    EXPECT_TRUE(PaarAbstaende(1, 1000000, 40, false).empty());
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("Paarabstände"), std::string::npos);
}

// The run of the gaps from the first one on, paging by von, and the parts of the density.
TEST_F(Abstand, FolgeUndDichte) {
    EXPECT_EQ(Zaehlen(ArtFolge, 2, 1000, 0, 8), (std::vector<int64_t>{1, 2, 2, 4, 2, 4, 2, 4, 6}));
    EXPECT_EQ(Zaehlen(ArtFolge, 2, 1000, 3, 2), (std::vector<int64_t>{4, 2, 4}));
    AbstandZaehlung z(ArtFolge, 2, 1000000, 0, 9);
    EXPECT_TRUE(AbstandPrimaerZaehlen(z, 2, 1000000, nullptr));
    EXPECT_TRUE(z.Fertig());
    EXPECT_LT(z.Primzahlen(), 20u);  // the walk ends once the bars are full

    const auto c = Zaehlen(ArtDichte, 1000, 1999999, 0, 9);
    for (int i = 0; i < 10; ++i) {
        const int64_t a = 1000 + 199900 * i, b = a + 199899;
        int64_t anzahl = 0;
        for (int64_t p : prim_) anzahl += p >= a && p <= b;
        EXPECT_EQ(c[size_t(i)], anzahl) << i;
    }
}

// A secondary range at 10^12 against GMP's next prime; the random raster draws about as many
// numbers as there are primes.
TEST_F(Abstand, SekundaerUndZufall) {
    const int64_t start = 1000000000000, laenge = 300000;
    ASSERT_TRUE(SekundaerSieben(Decimal(start), Decimal(laenge)));
    std::map<int64_t, int64_t> erwartet;
    mpz_t p;
    mpz_init_set_si(p, start - 1);
    int64_t vorige = 0;
    for (;;) {
        mpz_nextprime(p, p);
        const int64_t q = mpz_get_si(p);
        if (q > start + laenge) break;
        if (vorige) ++erwartet[q - vorige];
        vorige = q;
    }
    mpz_clear(p);
    AbstandZaehlung z(ArtSekundaer, Zahl128(start), Zahl128(start + laenge), 2, 100);
    EXPECT_TRUE(AbstandSekundaerZaehlen(z, Zahl128(start), Zahl128(start + laenge), nullptr));
    for (int i = 0; i <= 100; ++i) EXPECT_EQ(z.Anzahl()[size_t(i)], erwartet[2 + 2 * i]) << 2 + 2 * i;

    AbstandZaehlung zufall(ArtNachbarn, 1000000, 2000000, 2, 50);
    AbstandZufallZaehlen(zufall, 1000000, 2000000, nullptr);
    EXPECT_NEAR(double(zufall.Primzahlen()), 1e6 / std::log(2e6), 0.03 * 1e6 / std::log(2e6));
}

// A stop between blocks keeps what was counted; the rest stays uncounted.
TEST_F(Abstand, StoppBehaeltBalken) {
    AbstandZaehlung z(ArtNachbarn, 2, 1999999, 2, 10);
    int meldungen = 0;
    EXPECT_FALSE(AbstandPrimaerZaehlen(z, 2, 1999999, [&](double anteil) {
        EXPECT_GT(anteil, 0.0);
        return ++meldungen < 2;
    }));
    EXPECT_GT(z.Anzahl()[0], 0);
    EXPECT_LT(z.Primzahlen(), uint64_t(prim_.size()));
}

TEST(Schaetzung, DreiModiEinWert) {
    for (auto [modus, x, w] : {std::tuple{0, 1e9, 1e6}, {1, 9.0, 1e6}, {2, 9.0, 6.0}}) {
        const auto s = Zwillingsschaetzung(modus, x, w);
        ASSERT_TRUE(s) << modus;
        EXPECT_NEAR(*s, 3074.43, 0.005) << modus;
    }
    EXPECT_NEAR(*Zwillingsschaetzung(2, 12, 6), 1729.36, 0.005);
    EXPECT_DOUBLE_EQ(*Zwillingsschaetzung(0, 3, 100), *Zwillingsschaetzung(0, 10, 100));
    for (int modus = 0; modus < 3; ++modus) {
        EXPECT_FALSE(Zwillingsschaetzung(modus, 0, 5)) << modus;
        EXPECT_FALSE(Zwillingsschaetzung(modus, 9, 0)) << modus;
        EXPECT_FALSE(Zwillingsschaetzung(modus, 9, -1)) << modus;
    }
    EXPECT_FALSE(Zwillingsschaetzung(2, 1, 400));  // 10^400 is no double

    EXPECT_DOUBLE_EQ(SingulaereReihe(2), 1);
    EXPECT_DOUBLE_EQ(SingulaereReihe(6), 2);
    EXPECT_DOUBLE_EQ(SingulaereReihe(30), 8.0 / 3);
    EXPECT_DOUBLE_EQ(SingulaereReihe(2 * 49), 6.0 / 5);
    EXPECT_EQ(SingulaereReihe(7), 0);
}

TEST(Zahlnamen, Reihe) {
    EXPECT_EQ(ZahlName(1e6), "1 Million");
    EXPECT_EQ(ZahlName(3e9), "3 Milliarden");
    EXPECT_EQ(ZahlName(1e12), "1 Billion");
    EXPECT_EQ(ZahlName(2.5e21), "2,5 Trilliarden");
    EXPECT_EQ(ZahlName(4e60), "4 Dezillionen");
    EXPECT_EQ(ZahlName(1e66), "1 x 10^66");
    EXPECT_EQ(LabelZahl(3.2e13), "3.20 E+13");
    EXPECT_EQ(AbweichungText(-0.0123), "-0.0123000");
}

}  // namespace
}  // namespace sw::test
