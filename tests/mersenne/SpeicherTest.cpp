// The two stores side by side: a folder copied to the server and from there into a second
// folder holds exactly the same rows (across segments, blocks and odd fields), a second copy
// replaces rows instead of adding them, and a server table of a newer program is refused.
#include <filesystem>
#include <tuple>
#include <vector>

#include "DbTestBasis.h"
#include "mersenne/MersenneSpeicher.h"
#include "mersenne/PgSpeicher.h"

namespace sw::test {
namespace {

using ZeilenBild = std::vector<std::tuple<int32_t, int32_t, std::string, int32_t, std::string, std::string>>;

ZeilenBild Bild(MersenneSpeicher& s) {
    ZeilenBild bild;
    s.Durchlaufen(0, GrenzeLong, DbStatusWahl::Alle, true, [&](int32_t p, const PrimZeile& z) {
        bild.emplace_back(p, z.mersenne, z.teiler, z.teilerPot, z.faktorS, z.zeitstempel);
    });
    return bild;
}

class Speicher_ : public DbTest {
protected:
    void SetUp() override {
        DbTest::SetUp();
        server = PgServer::Gemeinsam();
        if (server == nullptr) GTEST_SKIP() << PgServer::FehltGrund();
    }
    PgServer* server = nullptr;
};

TEST_F(Speicher_, OrdnerServerOrdnerGleich) {
    const std::string a = Ordner() + "a/", b = Ordner() + "b/";
    std::filesystem::create_directories(a);
    std::filesystem::create_directories(b);
    DbOrdnerSetzen(a);
    {
        // Many copy blocks, in three segments, with every kind of field.
        DbTransaktion t;
        for (int32_t p = 3; p < 2 * 2500; p += 2) {
            const int32_t m = p % 7 == 0 ? 2 : p % 11 == 0 ? 1 : 0;
            PrimSchreiben(p, m, m == 2 ? std::to_string(2 * int64_t(p) + 1) : "0", p % 5 == 0 ? 23 : p);
        }
        PrimSchreiben(200000033, 2, "400000067x12345678901234567890123456789012345678901234567890", 62);
        PrimSchreibenImport(1999999973, 2, "3999999947", 92);
        PrimSchreiben(2000000000, 0, "0", 7);
        t.Festschreiben();
    }
    DbSchliessen();
    Fremdzugriff(a + "Prim.db").Ausfuehren("INSERT INTO t_Prim (Primzahl, Mersenne, Teiler) VALUES (1, 0, 'it''s')");
    const std::unique_ptr<MersenneSpeicher> ordnerA = SpeicherFuer(a), ordnerB = SpeicherFuer(b);
    const std::unique_ptr<MersenneSpeicher> pg = SpeicherFuer(server->NeueDatenbank());
    const ZeilenBild vorher = Bild(*ordnerA);
    ASSERT_EQ(vorher.size(), 2503u);

    EXPECT_EQ(DbKopieren(*ordnerA, *pg, 1000), int64_t(vorher.size()));
    EXPECT_EQ(Bild(*pg), vorher);
    EXPECT_EQ(DbKopieren(*pg, *ordnerB, 1000), int64_t(vorher.size()));
    EXPECT_EQ(Bild(*ordnerB), vorher);
    EXPECT_EQ(Bild(*ordnerA), vorher);   // the source is only read
    EXPECT_TRUE(std::filesystem::exists(b + "Prim10.db"));
    // A second copy over the first replaces each row and adds none.
    EXPECT_EQ(DbKopieren(*ordnerA, *pg, 1000), int64_t(vorher.size()));
    EXPECT_EQ(Bild(*pg), vorher);
}

TEST_F(Speicher_, NeueresSchemaBleibtUnberuehrt) {
    const std::string url = server->NeueDatenbank();
    {
        PgVerbindung v(url);
        EXPECT_EQ(PgMersenneSchemaSicherstellen(v), 1);
        EXPECT_EQ(PgMersenneSchemaSicherstellen(v), 1);   // a second program finds it ready
        v.Ausfuehren("UPDATE t_Version SET Version = 7 WHERE Teil = 'mersenne'");
    }
    DbOrdnerSetzen(url);
    EXPECT_FALSE(DbOeffnen(0));
    EXPECT_NE(DbFehlerText().find("mersenne: 7 > 1"), std::string::npos) << DbFehlerText();
    EXPECT_EQ(DbFehlerText().find(PgServer::Passwort()), std::string::npos) << DbFehlerText();
    EXPECT_EQ(GeworfeneNummer([] { PrimSchreiben(11, 2, "23", 100); }), PgFehlerNummer);
    EXPECT_EQ(PgVerbindung(url).Ausfuehren("SELECT Count(*) FROM t_Prim").Zahl(0, 0), 0);
}

}  // namespace
}  // namespace sw::test
