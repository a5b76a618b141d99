// The status and analysis windows of the Mersenne database on the database of every exponent
// to 100,000 searched to k = 1000: what each shows, the bar that follows a find of the running
// search, the chart saved as CSV and PNG, a folder without a database; and that none of them
// changes a byte of the database file.
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QToolButton>

#include <filesystem>
#include <fstream>

#include "GuiTestUmgebung.h"
#include "MersenneBestand.h"
#include "PgServer.h"
#include "mersenne/ArbeitSchlange.h"
#include "mersenne/basDB.h"
#include "frame/Texte.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmAnalyseMersenne.h"
#include "windows/frmAnalysePrimMersenne.h"
#include "windows/frmMersenneAnalyse.h"
#include "windows/frmMersenneStatus.h"
#include "windows/frmStatistikMersenne.h"

namespace sw::test {
namespace {

std::string Inhalt(const std::string& pfad) {
    std::ifstream f(pfad, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

int iconIndex(QWidget* f, const char* tag) {
    for (int i = 0;; ++i) {
        auto* knopf = Steuer<QToolButton>(f, "btnIcon", i);
        if (!knopf) return -1;
        if (knopf->property("tag").toString() == tag) return i;
    }
}

// Pixels of the bar colour: a chart that drew its bars has many.
int Balkenpunkte(const QImage& bild) {
    int n = 0;
    for (int y = 0; y < bild.height(); ++y) {
        for (int x = 0; x < bild.width(); ++x) n += bild.pixelColor(x, y) == QColor(40, 90, 200);
    }
    return n;
}

class MersenneStatusFenster : public GuiTest {
protected:
    void TearDown() override {
        DbSchliessen();
        GuiTest::TearDown();
    }
};

TEST_F(MersenneStatusFenster, ZeigenFolgenSpeichernUndLesenNur) {
    BestandAnlegen();
    const std::string pfad = DbDateiPfad(0);
    const std::string vorher = Inhalt(pfad);

    ASSERT_TRUE(FensterOeffnen("frmMersenneStatus", -1, nullptr));
    auto* status = Offen<frmMersenneStatus>();
    status->resize(900, 500);
    QApplication::processEvents();  // the first drawing, with the stored scale
    Suche<QLineEdit>("txtSkala")->setText("10.000");
    Suche<QPushButton>("btnGO")->click();
    ASSERT_TRUE(ui.meldungen.empty()) << Meldungen();
    EXPECT_EQ(Suche<QLabel>("lblGesamt")->text(), "3.730 / 9.592   38.8866 %");
    EXPECT_GT(Balkenpunkte(Steuer<Bild>(status, "picAnzeige")->Abbild()), 1000);
    // A find of the search raises its stretch without a new count; one outside the segment
    // drawn is no concern of the window.
    frmMersenneStatus::TeilerGefunden(101);
    frmMersenneStatus::TeilerGefunden(300000001);
    EXPECT_EQ(Suche<QLabel>("lblGesamt")->text(), "3.731 / 9.592   38.8970 %");

    const QString csv = QString::fromStdString(Ordner()) + "status.CSV";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(csv); };
    status->IconAktion(iconIndex(status, "Save"));
    QFile datei(csv);
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QStringList zeilen = QString::fromUtf8(datei.readAll()).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(zeilen.size(), 12);  // the head and [0, 100,001) in stretches of 10,000
    EXPECT_EQ(zeilen[0], "Von;Bis;Primzahlen;Erledigt;Anteil");
    EXPECT_EQ(zeilen[1], "0;9999;1229;565;45.9723 %");
    const QString png = QString::fromStdString(Ordner()) + "status.png";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(png); };
    status->IconAktion(iconIndex(status, "Foto"));
    EXPECT_EQ(QImage(png).size(), Steuer<Bild>(status, "picAnzeige")->Abbild().size());

    Suche<QPushButton>("btnKlassen")->click();
    QApplication::processEvents();
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
    EXPECT_EQ(FensterAnzahl("frmStatusAnalyseMersenne"), 1);

    ASSERT_TRUE(FensterOeffnen("frmStatistikMersenne", -1, nullptr));
    auto* statistik = Offen<frmStatistikMersenne>();
    Steuer<QLineEdit>(statistik, "txtBis")->setText("100.000");
    Steuer<QLineEdit>(statistik, "txtStep")->setText("100.000");
    Steuer<QLineEdit>(statistik, "txtMinFaktor")->setText("100");
    Steuer<QRadioButton>(statistik, "optFaktoren", 2)->setChecked(true);  // k = 1 mod 4
    Steuer<QPushButton>(statistik, "btnGo")->click();
    const QString csv2 = QString::fromStdString(Ordner()) + "statistik.CSV";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(csv2); };
    statistik->IconAktion(iconIndex(statistik, "Save"));
    QFile datei2(csv2);
    ASSERT_TRUE(datei2.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(datei2.readAll()), "Von;Bis;Primzahlen;Zeilen;Anteil\n3;100000;9591;1083;11.2918 %\n");

    ASSERT_TRUE(FensterOeffnen("frmAnalyseMersenne", -1, nullptr));
    auto* abstaende = Offen<frmAnalyseMersenne>();
    Steuer<QLineEdit>(abstaende, "txtIntervall")->setText("99.997");
    Steuer<QLineEdit>(abstaende, "txtAbstandBis")->setText("6");
    Steuer<QPushButton>(abstaende, "btnGO")->click();
    auto* liste = Steuer<QListWidget>(abstaende, "List1");
    ASSERT_EQ(liste->count(), 3);
    EXPECT_EQ(liste->item(2)->text(), "Lücke 6: 355 >>> 49,650");

    ASSERT_TRUE(FensterOeffnen("frmMersenneAnalyse", -1, nullptr));
    auto* analyse = Offen<frmMersenneAnalyse>();
    analyse->resize(900, 460);
    Steuer<QLineEdit>(analyse, "txtEnde")->setText("100.000");
    Steuer<QPushButton>(analyse, "btnGO")->click();
    EXPECT_GT(Balkenpunkte(Steuer<Bild>(analyse, "picAnzeige")->Abbild()), 100);
    ASSERT_TRUE(FensterOeffnen("frmAnalysePrimMersenne", -1, nullptr));
    auto* klassen = Offen<frmAnalysePrimMersenne>();
    Steuer<QPushButton>(klassen, "btnGO")->click();
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
    auto* klassenListe = Steuer<QListWidget>(klassen, "List1");
    ASSERT_EQ(klassenListe->count(), 16);  // the range, then 4 + 3 + 8 classes
    EXPECT_EQ(klassenListe->item(2)->text().toStdString(),
              "p = 1 mod 4:  4.783 Primzahlen, 1.727 mit Teiler (36.1070 %), 16 Mersenne-Primzahlen");
    QApplication::processEvents();
    EXPECT_EQ(Inhalt(pfad), vorher);
}

TEST_F(MersenneStatusFenster, OhneDatenbankEineMeldung) {
    PrimaerLauf(Decimal(100000), MethodeProdukt);
    ASSERT_TRUE(FensterOeffnen("frmAnalyseMersenne", -1, nullptr));
    Suche<QPushButton>("btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find(TextP1(1870, DbDateiPfad(0))), std::string::npos) << Meldungen();
    EXPECT_FALSE(std::filesystem::exists(DbDateiPfad(0)));
    ASSERT_TRUE(FensterOeffnen("frmMersenneAnalyse", -1, nullptr));
    auto* analyse = Offen<frmMersenneAnalyse>();
    Steuer<QLineEdit>(analyse, "txtStart")->setText("1.000");
    Steuer<QLineEdit>(analyse, "txtEnde")->setText("1.000");
    Steuer<QPushButton>(analyse, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[1].text, Text(1872));
}

// With the work shared through a server, the window shows its queue as the server holds it:
// units open, held and done, and each worker; the address never with its password.
TEST_F(MersenneStatusFenster, ArbeitsschlangeDesServers) {
    PgServer* server = PgServer::Gemeinsam();
    if (server == nullptr) GTEST_SKIP() << PgServer::FehltGrund();
    const std::string url = server->NeueDatenbank();
    {
        PgVerbindung v(url);
        ArbeitSchemaAnlegen(v);
        ASSERT_EQ(ArbeitHinzufuegen(v, ArbeitArt::Teiler, 1000, 3999, 1000, 500), 3);
        const auto fertig = ArbeitBeanspruchen(v, "w0", 60, std::nullopt);
        ArbeitErgebnis e;
        e.treffer = 2;
        ASSERT_TRUE(ArbeitAbschliessen(v, *fertig, "w0", e));
        ASSERT_TRUE(ArbeitBeanspruchen(v, "w1", 60, std::nullopt));
    }
    const std::string ort = DbOrtEingabe();
    DbOrdnerSetzen(url);
    const bool offen = FensterOeffnen("frmMersenneStatus", -1, nullptr);
    DbOrdnerSetzen(ort);
    ASSERT_TRUE(offen);
    QApplication::processEvents();
    auto* kasten = Suche<QGroupBox>("grpSchlange");
    EXPECT_TRUE(kasten->isVisibleTo(kasten->window()));
    EXPECT_EQ(kasten->title().toStdString().find(PgServer::Passwort()), std::string::npos);
    const std::string text = Suche<QLabel>("lblSchlange")->text().toStdString();
    EXPECT_NE(text.find(TextP1P2(2341, "1", "1") + ", " + TextP1P2(2342, "1", "2")), std::string::npos) << text;
    EXPECT_NE(text.find(TextP1P2(2355, "2 divisors 2000..2999", "w1")), std::string::npos) << text;
    auto* tabelle = Suche<QTableWidget>("tblWorker");
    ASSERT_EQ(tabelle->rowCount(), 2);
    EXPECT_EQ(tabelle->item(0, 0)->text(), "w0");
    EXPECT_EQ(tabelle->item(0, 2)->text(), "2");
    EXPECT_EQ(tabelle->item(1, 4)->text(), "1");
}

}  // namespace
}  // namespace sw::test
