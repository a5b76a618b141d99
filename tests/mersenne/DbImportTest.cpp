// The imports of divisor lists and the merge of two database folders: what lands in the rows,
// what a damaged line or file leaves behind, and the line parsers on their edge cases. Every
// divisor used here is checked by a plain square-and-multiply loop of the test's own.
#include <filesystem>
#include <fstream>

#include "DbTestBasis.h"
#include "frame/Texte.h"
#include "mersenne/DbAbgleich.h"
#include "mersenne/DbImport.h"
#include "sieve/RasterTabellen.h"

namespace sw::test {
namespace {

namespace fs = std::filesystem;

bool teilt(uint64_t q, uint32_t p) {
    unsigned __int128 r = 1, b = 2;
    for (uint32_t e = p; e > 0; e >>= 1) {
        if (e & 1) r = r * b % q;
        b = b * b % q;
    }
    return r == 1;
}

void schreibeDatei(const std::string& pfad, const std::string& inhalt) { std::ofstream(pfad, std::ios::binary) << inhalt; }

class DbImport_ : public DbTest {};
class DbImportSpeicher_ : public DbSpeicherTest {};
SW_AUF_BEIDEN_SPEICHERN(DbImportSpeicher_);

TEST_F(DbImport_, ZeilenLesen) {
    ASSERT_TRUE(teilt(23, 11) && teilt(89, 11) && teilt(2351, 47) && teilt(4513, 47) && teilt(193707721, 67));
    struct Fall {
        const char* zeile;
        ImportArt art;
        int32_t p;
        const char* q;
    };
    for (const Fall& f : std::initializer_list<Fall>{
             {"11,23", ImportArt::Gut, 11, "23"},  // as many digits as the exponent, still a divisor
             {"  67 ,  193707721 \r", ImportArt::Gut, 67, "193707721"},
             {"", ImportArt::Leer, 0, ""},
             {"Exponent Factor", ImportArt::Leer, 0, ""},
             {"11,25", ImportArt::Kaputt, 0, ""},     // no divisor
             {"11,2047", ImportArt::Kaputt, 0, ""},   // 2^11 - 1 itself
             {"11,-23", ImportArt::Kaputt, 0, ""},
             {"1x1,23", ImportArt::Kaputt, 0, ""},
             {"11,", ImportArt::Kaputt, 0, ""},
             {"4000000000,8000000001", ImportArt::Kaputt, 0, ""},
             {"99999999999999999999,3", ImportArt::Kaputt, 0, ""},
         }) {
        const ImportZeile z = ListenZeileLesen(f.zeile);
        EXPECT_EQ(z.art, f.art) << f.zeile;
        if (f.art == ImportArt::Gut) {
            EXPECT_EQ(z.exponent, f.p) << f.zeile;
            EXPECT_EQ(z.faktor, f.q) << f.zeile;
        }
        EXPECT_EQ(z.grund.empty(), f.art != ImportArt::Kaputt) << f.zeile;
    }
    EXPECT_EQ(WebZeileLesen("47 2351 2010-01-01").faktor, "2351");
    EXPECT_EQ(WebZeileLesen("47\t  4513").faktor, "4513");
    EXPECT_EQ(WebZeileLesen("47,4513").faktor, "4513");
    EXPECT_EQ(WebZeileLesen("4513").art, ImportArt::Leer);
    EXPECT_EQ(WebZeileLesen("<b>Exponent</b> x").art, ImportArt::Kaputt);
}

// A plain list: new exponents get status 2 and the full limit, a further divisor joins the
// list, known ones change nothing; a damaged line stops the
// import with its number, and what came before it stays.
TEST_F(DbImport_, ListeBisZurKaputtenZeile) {
    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(47, 0, "0", 5000);
    const std::string datei = Ordner() + "liste.txt";
    schreibeDatei(datei, "# Teiler\r\n11,23\r\n11, 89\r\n47,2351\r\n47,4513\r\n47,2351\r\n"
                         "200000039,400000079\r\n67,193707721x\r\n73,439\r\n");
    ASSERT_TRUE(teilt(400000079, 200000039));
    try {
        ListeImportieren(datei);
        ADD_FAILURE();
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Beschreibung(), TextP1P2(1510, "8", Text(1511) + ": \"67,193707721x\""));
    }
    const PrimZeile p11 = PrimZeileLesen(11);
    EXPECT_EQ(p11.teiler, "23x89");
    EXPECT_EQ(p11.teilerPot, GrenzeLong);
    EXPECT_EQ(p11.faktorS, "1");
    const PrimZeile p47 = PrimZeileLesen(47);
    EXPECT_EQ(p47.teiler, "2351x4513");
    EXPECT_EQ(p47.mersenne, 2);
    EXPECT_EQ(p47.teilerPot, GrenzeLong);  // the first divisor came with the import
    EXPECT_EQ(PrimZeileLesen(200000039).teiler, "400000079");
    EXPECT_FALSE(PrimZeileLesen(73).vorhanden);
    // Again, from the start: nothing is counted twice.
    schreibeDatei(datei, "11,23\n47,4513\n73,439\n");
    const ImportBericht b = DateiImportieren(datei);
    EXPECT_EQ(b.neu, 1);
    EXPECT_EQ(b.bekannt, 2);
    EXPECT_EQ(GeworfeneNummer([&] { ListeImportieren(Ordner() + "fehlt.txt"); }), FehlerDateiNichtGefunden);
}

TEST_F(DbImport_, GespeicherteSeite) {
    ASSERT_TRUE(DbOeffnen(0));
    PrimSchreiben(47, 0, "0", 7000);
    const std::string datei = Ordner() + "seite.html";
    schreibeDatei(datei, "<html><pre>\n11,89\nExponent,Factor\n47 2351 2003\n47 4513\n"
                         "<b>keine Zeile</b>\n59 179951\n59 12345\n</pre>\n67 193707721\n");
    EXPECT_TRUE(IstWebseite(datei));
    const ImportBericht b = DateiImportieren(datei);
    EXPECT_EQ(b.neu, 2);
    EXPECT_EQ(b.weitereTeiler, 1);
    EXPECT_EQ(b.uebersprungen, 2);
    const PrimZeile p47 = PrimZeileLesen(47);
    EXPECT_EQ(p47.teiler, "2351x4513");
    EXPECT_EQ(p47.teilerPot, 7000);  // the page says nothing about the search
    EXPECT_EQ(p47.zeitstempel.substr(0, 5), "2008-");
    EXPECT_EQ(PrimZeileLesen(59).teiler, "179951");
    EXPECT_FALSE(PrimZeileLesen(11).vorhanden);  // before the head
    EXPECT_FALSE(PrimZeileLesen(67).vorhanden);  // after the end
    schreibeDatei(datei, "<html>nichts</html>\n");
    EXPECT_EQ(GeworfeneNummer([&] { WebseiteImportieren(datei); }), DbFehlerNummer);
}

// Two researchers' folders: the union of divisors, the larger limit, status from the divisors;
// the other folder is read only, a false entry there is left out, a bad file stops the merge
// before anything is written.
TEST_P(DbImportSpeicher_, ZweiOrdnerZusammenfuehren) {
    const std::string fremd = Ordner() + "fremd/";
    fs::create_directories(fremd);
    DbOrdnerSetzen(fremd);
    PrimSchreiben(11, 2, "89", 100);
    PrimSchreiben(13, 0, "0", 9000);
    PrimSchreiben(17, 0, "0", 50);
    PrimSchreiben(47, 2, "2351x4513x999", 100);
    PrimSchreiben(200000039, 2, "400000079", 100);
    DbSchliessen();
    DbOrdnerSetzen(eigen);
    PrimSchreiben(11, 2, "23", 100);
    PrimSchreiben(13, 0, "0", 23);  // 300 in short form
    PrimSchreiben(17, 0, "0", 5000);
    PrimSchreiben(47, 0, "0", 100);
    DbSchliessen();
    const std::string fremdVorher = Fremdzugriff(fremd + "Prim.db").Wert("SELECT group_concat(Primzahl||Teiler||TeilerPot) FROM t_Prim");

    const AbgleichBericht b = DbZusammenfuehren(fremd);
    EXPECT_EQ(b.dateien, 2);
    EXPECT_EQ(b.zeilen, 5);
    EXPECT_EQ(b.neueZeilen, 1);
    EXPECT_EQ(b.neueTeiler, 4);  // 89, 2351, 4513, 400000079
    EXPECT_EQ(b.falscheTeiler, 1);
    EXPECT_EQ(b.hoehereGrenzen, 1);
    EXPECT_EQ(b.neuerStatus, 2);  // 47 and the new row
    EXPECT_EQ(b.aenderungen.size(), 4u);
    EXPECT_EQ(PrimZeileLesen(11).teiler, "23x89");
    EXPECT_EQ(PrimZeileLesen(13).teilerPot, 9000);
    EXPECT_EQ(PrimZeileLesen(17).teilerPot, 5000);
    EXPECT_EQ(PrimZeileLesen(47).teiler, "2351x4513");
    EXPECT_EQ(PrimZeileLesen(47).mersenne, 2);
    EXPECT_EQ(PrimZeileLesen(200000039).faktorS, "1");
    DbSchliessen();
    EXPECT_EQ(Fremdzugriff(fremd + "Prim.db").Wert("SELECT group_concat(Primzahl||Teiler||TeilerPot) FROM t_Prim"),
              fremdVorher);
    const AbgleichBericht zweimal = DbZusammenfuehren(fremd);  // nothing new the second time
    EXPECT_EQ(zweimal.neueTeiler + zweimal.neueZeilen + zweimal.hoehereGrenzen, 0);

    EXPECT_EQ(GeworfeneNummer([&] { DbZusammenfuehren(Ordner()); }), DbFehlerNummer);
    EXPECT_EQ(GeworfeneNummer([&] { DbZusammenfuehren(Ordner() + "leer/"); }), DbFehlerNummer);
    try {  // an empty field would name the working folder
        DbZusammenfuehren("");
        ADD_FAILURE() << "an empty folder was merged";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Beschreibung(), Text(1529));
    }
    DbSchliessen();
    Fremdzugriff(fremd + "Prim.db").Ausfuehren("UPDATE t_Prim SET TeilerPot = 99999 WHERE Primzahl = 17");
    schreibeDatei(fremd + "Prim3.db", "kein SQLite");
    EXPECT_EQ(GeworfeneNummer([&] { DbZusammenfuehren(fremd); }), DbFehlerNummer);
    EXPECT_EQ(PrimZeileLesen(17).teilerPot, 5000);
}

}  // namespace
}  // namespace sw::test
