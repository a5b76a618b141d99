// The database windows as a user drives them: the list import of the systematic search, the
// page import of "Teiler speziell" and the merge of another folder opened from it; each is
// judged by the rows it leaves and the box it shows, and a damaged list by its message.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <filesystem>
#include <fstream>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmMersSystem.h"
#include "windows/frmMersTeilerSpez.h"
#include "windows/frmSync.h"

namespace sw::test {
namespace {

class MersenneDbFenster : public GuiTest {
protected:
    void TearDown() override {
        DbSchliessen();
        GuiTest::TearDown();
    }
};

TEST_F(MersenneDbFenster, ListeSeiteUndAbgleich) {
    const std::string liste = Ordner() + "liste.txt";
    std::ofstream(liste) << "11,23\n47,2351\n";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(QString::fromStdString(liste)); };
    ASSERT_TRUE(FensterOeffnen("frmMersSystem", -1, nullptr));
    Suche<QPushButton>("btnMersenne")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u) << Meldungen();
    EXPECT_EQ(ui.meldungen[0].titel, Text(1516));
    EXPECT_EQ(ui.meldungen[0].text, TextP1(1515, 2));
    EXPECT_EQ(PrimZeileLesen(47).teiler, "2351");

    std::ofstream(liste) << "73,439\n73,4390\n";
    Suche<QPushButton>("btnMersenne")->click();
    ASSERT_EQ(ui.meldungen.size(), 2u) << Meldungen();
    EXPECT_NE(ui.meldungen[1].text.find(TextP1P2(1510, "2", Text(1514) + ": \"73,4390\"")), std::string::npos)
        << Meldungen();
    EXPECT_EQ(PrimZeileLesen(73).teiler, "439");

    std::ofstream(Ordner() + "seite.html") << "<pre>\nExponent,Factor\n47 4513\n59 179951\n</pre>\n";
    ASSERT_TRUE(FensterOeffnen("frmMersTeilerSpez", -1, nullptr));
    Suche<QLineEdit>("txtPath")->setText(QString::fromStdString(Ordner()).chopped(1));
    Suche<QLineEdit>("txtFile")->setText("seite.html");
    // (the systematic search, open as well, has a btnGO of its own)
    Steuer<QPushButton>(Offen<frmMersTeilerSpez>(), "btnGO")->click();
    EXPECT_EQ(Suche<QLineEdit>("txtPath")->text().toStdString(), Ordner());
    EXPECT_EQ(ui.meldungen.back().text, TextP1(1517, 2));
    EXPECT_EQ(Suche<QLabel>("lblFertig", 1)->text(), "2");
    EXPECT_EQ(PrimZeileLesen(47).teiler, "2351x4513");

    // A second folder knows one more divisor and a higher limit.
    const std::string fremd = Ordner() + "fremd/";
    std::filesystem::create_directories(fremd);
    DbOrdnerSetzen(fremd);
    PrimSchreiben(11, 2, "89", 100);
    PrimSchreiben(13, 0, "0", 5000);
    DbOrdnerSetzen("");
    Offen<frmMersTeilerSpez>()->findChild<QPushButton*>("btnSync")->click();
    auto* sync = Offen<frmSync>();
    ASSERT_NE(sync, nullptr);
    Steuer<QLineEdit>(sync, "txtOrdner")->setText(QString::fromStdString(fremd));
    Steuer<QPushButton>(sync, "btnGO")->click();
    auto* liste1 = Steuer<QListWidget>(sync, "List1");
    ASSERT_EQ(liste1->count(), 2) << Meldungen();
    EXPECT_EQ(liste1->item(0)->text().toStdString(), "11: " + TextP1(1521, "89"));
    EXPECT_EQ(PrimZeileLesen(11).teiler, "23x89");
    EXPECT_EQ(PrimZeileLesen(13).teilerPot, 5000);
}

void stoppen() { Abbruch = true; }

// The systematic search: a parameter outside 1..50 and a database that does not open are told
// and start nothing; a run entered without asking stops at Stop with its lists, its rows and
// its start value for the next run.
TEST_F(MersenneDbFenster, SystematischeSuche) {
    ASSERT_TRUE(FensterOeffnen("frmMersSystem", -1, nullptr));
    auto* go = Suche<QPushButton>("btnGO");
    auto* liste1 = Suche<QListWidget>("List1");
    auto* liste2 = Suche<QListWidget>("List2");
    Suche<QLineEdit>("txtZahl")->setText("1");
    Suche<QLineEdit>("txtParm")->setText("51");
    go->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1840));
    EXPECT_EQ(liste1->count(), 0);

    Suche<QLineEdit>("txtParm")->setText("1");
    std::filesystem::create_directories(Ordner() + "Prim.db");
    go->click();
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[1].text.rfind(TextP1(1844, ""), 0), 0u) << ui.meldungen[1].text;
    EXPECT_EQ(liste1->count(), 0);
    EXPECT_EQ(go->text(), "OK");
    std::filesystem::remove(Ordner() + "Prim.db");

    Suche<QCheckBox>("chkOhneFrage")->setChecked(true);
    ui.beiDoEvents = stoppen;
    go->click();
    ui.beiDoEvents = nullptr;
    EXPECT_EQ(ui.meldungen.size(), 2u) << Meldungen();
    ASSERT_GT(liste1->count(), 100);
    EXPECT_EQ(liste1->item(0)->text().toStdString(), "23" + TextP1(167, 11) + " \tk = 1");
    EXPECT_EQ(liste1->item(2)->text().toStdString(), "41 ---");
    ASSERT_GT(liste2->count(), 10);
    EXPECT_EQ(liste2->item(0)->text().toStdString(), TextP1P2(165, "23", "11"));
    EXPECT_EQ(PrimZeileLesen(11).teiler.rfind("23x89", 0), 0u);
    EXPECT_EQ(PrimZeileLesen(23).teiler, "47");
    // The start value stands where the run stopped: the last q listed.
    const std::string letzte = liste1->item(liste1->count() - 1)->text().toStdString();
    EXPECT_EQ(TextZuLong(Suche<QLineEdit>("txtZahl")->text().toStdString()),
              TextZuLong(letzte.substr(0, letzte.find_first_of(" "))));
    EXPECT_EQ(go->text(), "OK");
}

}  // namespace
}  // namespace sw::test
