// The analyses of the Mersenne database on a database of every exponent to 100,000 searched to
// k = 1000: the figures computed beforehand with PARI/GP and primesieve, the differences
// against a plain loop over the same rows, and the refusals. Nothing of it may change a file.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "DbTestBasis.h"
#include "MersenneBestand.h"
#include "frame/Texte.h"
#include "mersenne/MersenneStatistik.h"

namespace sw::test {
namespace {

namespace fs = std::filesystem;

std::string Dateiinhalt(const std::string& pfad) {
    std::ifstream f(pfad, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

class MersenneStatistik_ : public DbTest {
protected:
    void SetUp() override {
        DbTest::SetUp();
        BestandAnlegen();
    }
};

TEST_F(MersenneStatistik_, KlassenUndAnteileDesBestands) {
    // One step over the whole range, and every k; then only k <= 100.
    const std::vector<KSchritt> alle = KStatistik(3, kBestandGrenze, kBestandGrenze, 0);
    ASSERT_EQ(alle.size(), 1u);
    EXPECT_EQ(alle[0].klasse[0], 1376);
    EXPECT_EQ(alle[0].klasse[1], 1315);
    EXPECT_EQ(alle[0].klasse[2], 0);  // q = 1 or 7 mod 8 never allows k = 2 mod 4
    EXPECT_EQ(alle[0].klasse[3], 1012);
    EXPECT_EQ(alle[0].alle, 3703);
    EXPECT_EQ(alle[0].primzahlen, 9591);
    const std::vector<KSchritt> klein = KStatistik(3, kBestandGrenze, kBestandGrenze, 100);
    EXPECT_EQ(klein[0].klasse[0], 951);
    EXPECT_EQ(klein[0].klasse[1], 1083);
    EXPECT_EQ(klein[0].klasse[3], 777);
    // Steps that do not divide the range: the last one is short, nothing is lost or counted twice.
    const std::vector<KSchritt> schritte = KStatistik(3, kBestandGrenze, 7000, 0);
    ASSERT_EQ(schritte.size(), 15u);
    EXPECT_EQ(schritte.back().bis, kBestandGrenze);
    int64_t summe = 0, primzahlen = 0;
    for (const KSchritt& s : schritte) {
        summe += s.alle;
        primzahlen += s.primzahlen;
    }
    EXPECT_EQ(summe, 3703);
    EXPECT_EQ(primzahlen, 9591);

    const std::vector<StatusStrecke> status = StatusStrecken(0, kBestandGrenze, 10000);
    ASSERT_EQ(status.size(), 10u);
    EXPECT_EQ(status[0].primzahlen, 1229);
    EXPECT_EQ(status[0].erledigt, 564);
    EXPECT_EQ(AnteilText(status[0].erledigt, status[0].primzahlen), "45.8910 %");
    EXPECT_EQ(AnteilText(1, 20), "05.0000 %");
    EXPECT_EQ(AnteilText(3, 3), "100.0000 %");
    EXPECT_EQ(AnteilText(1, 0), "");

    const KlassenUebersicht u = StatusKlassen(3, kBestandGrenze);
    EXPECT_EQ(u.q1, 1376);
    EXPECT_EQ(u.q7, 2327);
    EXPECT_EQ(u.p3Eins + u.p3Zwei, 3703);
    EXPECT_EQ(u.plus + u.minus, 3703);
    EXPECT_EQ(u.qu[0][0] + u.qu[0][1], u.q1);
    EXPECT_EQ(u.qu[0][0] + u.qu[1][0], u.p3Eins);

    // p = 1 mod 4 has only k = 0, 3 mod 4, p = 3 only k = 0, 1.
    const RestTabelle k4 = RestAnalyse(3, kBestandGrenze, AnalyseWert::K, 4, 4);
    EXPECT_EQ(k4.zeilen, 3703);
    EXPECT_GT(k4.at(1, 0), 0);
    EXPECT_EQ(k4.at(1, 1), 0);
    EXPECT_EQ(k4.at(1, 2), 0);
    EXPECT_GT(k4.at(1, 3), 0);
    EXPECT_GT(k4.at(3, 0), 0);
    EXPECT_GT(k4.at(3, 1), 0);
    EXPECT_EQ(k4.at(3, 2), 0);
    EXPECT_EQ(k4.at(3, 3), 0);
    // The low three bits of the divisor are its class mod 8.
    const RestTabelle bits = RestAnalyse(3, kBestandGrenze, AnalyseWert::Teiler, 8, 1);
    EXPECT_EQ(bits.at(0, 1), 1376);
    EXPECT_EQ(bits.at(0, 7), 2327);

    const std::vector<PrimKlasse> klassen = PrimKlassen(3, kBestandGrenze, {4, 3});
    ASSERT_EQ(klassen.size(), 7u);
    int64_t prim4 = 0, geteilt4 = 0, mersenne4 = 0;
    for (size_t i = 0; i < 4; ++i) {
        prim4 += klassen[i].primzahlen;
        geteilt4 += klassen[i].geteilt;
        mersenne4 += klassen[i].mersennePrim;
    }
    EXPECT_EQ(prim4, 9591);
    EXPECT_EQ(geteilt4, 3703);
    EXPECT_EQ(mersenne4, 27);
    EXPECT_EQ(klassen[1].geteilt, k4.at(1, 0) + k4.at(1, 3));
    EXPECT_EQ(klassen[4].primzahlen, 1);  // 3 is the only prime = 0 mod 3
}

TEST_F(MersenneStatistik_, LueckenUndAbstaendeWieDieSchleife) {
    // 2^p - 1 itself is the "divisor" of the small Mersenne primes (7 = 2 * 1 * 3 + 1); those
    // rows are stored as primes.
    std::vector<int32_t> geteilt;
    for (const BestandZeile& b : BestandZeilen()) {
        if (b.k != 0 && std::find(std::begin(kMersennePrimExponenten), std::end(kMersennePrimExponenten), b.p) ==
                            std::end(kMersennePrimExponenten)) {
            geteilt.push_back(b.p);
        }
    }
    const auto nachDifferenz = [](const std::vector<AbstandZeile>& z) {
        std::map<int64_t, int64_t> m;
        for (const AbstandZeile& a : z) m[a.differenz] = a.anzahl;
        return m;
    };
    const std::map<int64_t, int64_t> luecken = nachDifferenz(Abstaende(3, kBestandGrenze, 100000, true, false));
    EXPECT_EQ(luecken.at(2), 181);
    EXPECT_EQ(luecken.at(4), 179);
    EXPECT_EQ(luecken.at(6), 355);
    // Every difference of two exponents up to 60, against all pairs.
    std::map<int64_t, int64_t> paare;
    for (size_t i = 0; i < geteilt.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (geteilt[i] - geteilt[j] <= 60) ++paare[geteilt[i] - geteilt[j]];
        }
    }
    const std::vector<AbstandZeile> abstaende = Abstaende(3, kBestandGrenze, 60, false, true);
    EXPECT_EQ(nachDifferenz(abstaende), paare);
    for (size_t i = 1; i < abstaende.size(); ++i) EXPECT_GE(abstaende[i - 1].anzahl, abstaende[i].anzahl);
    EXPECT_EQ(AbstandText({6, 355, 9.5872}, true), "Lücke 6: 355 >>> 09,587");
    EXPECT_EQ(AbstandText({12, 1234, 10.0}, false), "Abstand 12: 1.234 >>> 10,000");
}

// Lists of several divisors are left out of the residue analysis and counted as skipped; a
// divisor of 30 digits has its residue from all its digits.
TEST_F(MersenneStatistik_, ListenUndLangeTeiler) {
    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(100003, 2, "200007x1400043", 1000);
    PrimSchreiben(100019, 2, "123456789012345678901234567891", 1000);
    DbSchliessen();
    const RestTabelle t = RestAnalyse(100000, 100100, AnalyseWert::Teiler, 1000, 1);
    EXPECT_EQ(t.uebersprungen, 1);
    EXPECT_EQ(t.zeilen, 1);
    EXPECT_EQ(t.at(0, 891), 1);
    EXPECT_EQ(ZiffernRest("123456789012345678901234567891", 97), 53u);  // by Python's big integers
}

TEST_F(MersenneStatistik_, LiestNurUndWeistBereicheZurueck) {
    const std::string pfad = DbDateiPfad(0);
    const std::string vorher = Dateiinhalt(pfad);
    const auto vorherZeit = fs::last_write_time(pfad);
    StatusStrecken(0, kBestandGrenze, 1000);
    KStatistik(3, kBestandGrenze, 1000, 50);
    Abstaende(3, kBestandGrenze, 100, false, false);
    RestAnalyse(3, kBestandGrenze, AnalyseWert::K, 12, 4);
    PrimKlassen(3, kBestandGrenze, {5, 7, 8});
    EXPECT_EQ(Dateiinhalt(pfad), vorher);
    EXPECT_EQ(fs::last_write_time(pfad), vorherZeit);
    EXPECT_FALSE(fs::exists(DbDateiPfad(1)));

    EXPECT_EQ(GeworfeneNummer([] { StatusStrecken(1000, 1000, 10); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { KStatistik(3, 1000, 0, 0); }), 5);
    EXPECT_EQ(GeworfeneNummer([] { RestAnalyse(3, 1000, AnalyseWert::K, 0, 1); }), 5);
    // Beyond the raster the prime counts would read 0: refused with the raster's end.
    try {
        StatusStrecken(0, 200001, 1000);
        ADD_FAILURE() << "no refusal";
    } catch (const Laufzeitfehler& e) {
        EXPECT_NE(e.Beschreibung().find("100.000"), std::string::npos) << e.Beschreibung();
    }
    // A range in a segment without a file: a message, and no file is made.
    EXPECT_EQ(GeworfeneNummer([] { Abstaende(200000000, 200001000, 10, true, false); }), DbFehlerNummer);
    EXPECT_FALSE(fs::exists(DbDateiPfad(1)));
}

}  // namespace
}  // namespace sw::test
