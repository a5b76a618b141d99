// The window toolkit: what text boxes keep, texts from sw.TEX applied to controls, stored
// values and geometry, the icon row and its actions, the picture surface, the bar, help and
// the guard of the event handlers.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

#include <fstream>
#include <new>

#include "GuiTestUmgebung.h"
#include "frame/Einstellungen.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fenster.h"
#include "windows/Hilfe.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerwerte.h"

namespace sw::test {
namespace {

TEST(Steuerwerte, TextBoxesKeepNumbersWithoutGroupingAndNeverAShortenedText) {
    ZentralZuruecksetzen();
    EXPECT_EQ(TextfeldSpeicherwert("1.234.567"), "1234567");
    EXPECT_EQ(TextfeldSpeicherwert("12_345"), "12345");
    EXPECT_EQ(TextfeldSpeicherwert("2^61-1"), "2^61-1");
    EXPECT_EQ(TextfeldSpeicherwert("/home/forscher/blöcke"), "/home/forscher/blöcke");
    EXPECT_EQ(TextfeldSpeicherwert(""), "");
    EXPECT_EQ(TextfeldSpeicherwert(std::string(50, '1') + "..." + std::string(50, '2')), std::nullopt);
    EXPECT_EQ(TextfeldSpeicherwert(std::string(300, '7')), std::nullopt);
    FormatZeichen = "'";
    EXPECT_EQ(TextfeldSpeicherwert("1'234'567"), "1234567");

    FormatZeichen = ".";
    EXPECT_EQ(TextfeldLadewert("1234567"), "1.234.567");
    EXPECT_EQ(TextfeldLadewert("-1234"), "-1.234");
    EXPECT_EQ(TextfeldLadewert("1,5"), "1,5");  // a fraction comes back whole
    EXPECT_EQ(TextfeldLadewert("abc"), "abc");

    for (long long bgr : {0x000000LL, 0x0000FFLL, 0x803000LL, 0xFFFFFFLL}) {
        EXPECT_EQ(FarbeZuZahl(FarbeAusZahl(bgr)), bgr);
    }
    EXPECT_EQ(FarbeAusZahl(0x0000FF).rot, 255);  // the stored order is blue, green, red
}

// A window with one control of each kind.
class frmProbe : public Fenster {
public:
    frmProbe() : Fenster("frmProbe") {
        auto* mitte = new QWidget(this);
        auto* lay = new QVBoxLayout(mitte);
        lay->addWidget(Benannt(new QLineEdit("7", mitte), "txtGross"));
        lay->addWidget(Benannt(new QLineEdit(mitte), "txtKlein"));
        lay->addWidget(Benannt(new QListWidget(mitte), "lstEintraege"));
        lay->addWidget(Benannt(new QComboBox(mitte), "cmbArt"));
        lay->addWidget(Benannt(new QLabel("vorher", mitte), "lblText"));
        lay->addWidget(Benannt(new QPushButton(mitte), "btnKnopf", 2));
        lay->addWidget(Benannt(new QCheckBox(mitte), "chkA"));
        for (int i = 0; i < 3; ++i) lay->addWidget(Benannt(new QRadioButton(mitte), "optB", i));
        lay->addWidget(Benannt(new QLabel(mitte), "lblCol", 0));
        lay->addWidget(Benannt(new QLabel("+", mitte), "lblPlusMinus"));
        lay->addWidget(Benannt(new QListWidget(mitte), "List1"));
        lay->addWidget(Benannt(new Bild(mitte), "picAnzeige"));
        menuBar()->addAction(Benannt(new QAction(this), "mnuPunkt"));
        setCentralWidget(mitte);
    }
    QStringList tags;

protected:
    void IconFensterAktion(const QString& tag) override { tags << tag; }
};

class WerkzeugTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        // A text table of the test's own, found first in the working folder.
        std::ifstream echt(TexDateiPfadEcht());
        std::string inhalt((std::istreambuf_iterator<char>(echt)), std::istreambuf_iterator<char>());
        std::ofstream(Ordner() + "sw.TEX") << inhalt << "\n[Probe]\n"
                                           << "Titel=Probe #V|kein Tipp\n"
                                           << "txtGross=3.000.000.000\n"
                                           << "txtKlein=42|Ein Tipp\n"
                                           << "lstEintraege=a|b|c|\n"
                                           << "cmbArt=x|y|Tipp der Auswahl\n"
                                           << "lblText=Hallo|\n"
                                           << "btnKnopf(2)=Drück mich|Knopftipp\n"
                                           << "mnuPunkt=&Punkt\n";
    }
    static std::string TexDateiPfadEcht() { return std::string(SW_DATA_DIR) + "/sw.TEX"; }
};

TEST_F(WerkzeugTest, TextsFromTheSectionReachEveryKindOfControl) {
    frmProbe f;
    f.FensterLaden("Probe");
    EXPECT_EQ(f.windowTitle().toStdString(), "Probe " + VersionText());
    EXPECT_EQ(Steuer<QLineEdit>(&f, "txtGross")->text(), "7");  // a preset above 2,000,000,000 stays
    EXPECT_EQ(Steuer<QLineEdit>(&f, "txtKlein")->text(), "42");
    EXPECT_EQ(Steuer<QLineEdit>(&f, "txtKlein")->toolTip(), "Ein Tipp");
    auto* liste = Steuer<QListWidget>(&f, "lstEintraege");
    ASSERT_EQ(liste->count(), 3);
    EXPECT_EQ(liste->item(2)->text(), "c");
    EXPECT_EQ(liste->currentRow(), 0);
    auto* art = Steuer<QComboBox>(&f, "cmbArt");
    ASSERT_EQ(art->count(), 2);
    EXPECT_EQ(art->toolTip(), "Tipp der Auswahl");
    EXPECT_EQ(Steuer<QLabel>(&f, "lblText")->text(), "Hallo");
    EXPECT_EQ(Steuer<QLabel>(&f, "lblText")->toolTip(), "");
    EXPECT_EQ(Steuer<QPushButton>(&f, "BTNKNOPF", 2)->text(), "Drück mich");  // names ignore case
    EXPECT_EQ(Steuer<QPushButton>(&f, "btnKnopf", 2)->toolTip(), "Knopftipp");
    EXPECT_EQ(Steuer<QAction>(&f, "mnuPunkt")->text(), "&Punkt");
}

TEST_F(WerkzeugTest, ControlValuesAndPlaceSurviveClosingAndOpening) {
    {
        frmProbe f;
        f.FensterLaden("Probe");
        Steuer<QLineEdit>(&f, "txtKlein")->setText("1.234.567");
        Steuer<QCheckBox>(&f, "chkA")->setChecked(true);
        Steuer<QRadioButton>(&f, "optB", 2)->setChecked(true);
        HintergrundFarbeSetzen(Steuer<QLabel>(&f, "lblCol", 0), 0x123456);
        Steuer<QLabel>(&f, "lblPlusMinus")->setText("-");
        f.move(40, 30);
        f.resize(500, 620);
        f.show();
        f.close();
    }
    EXPECT_EQ(IniLesen("Probe", "txtKlein"), "1234567");
    EXPECT_EQ(IniLesen("Probe", "chkA"), "1");
    EXPECT_EQ(IniLesen("Probe", "optB"), "2");
    EXPECT_EQ(IniLesen("Probe", "optB(2)"), "");
    EXPECT_EQ(IniLesen("Probe", "lblCol(0)"), std::to_string(0x123456));
    EXPECT_EQ(IniLesen("Probe", "WindowState"), "0");
    EXPECT_EQ(IniLesen("Probe", "Width"), "500");
    EXPECT_EQ(IniLesen("Probe", "Height"), "620");

    frmProbe g;
    g.FensterLaden("Probe");
    EXPECT_EQ(Steuer<QLineEdit>(&g, "txtKlein")->text(), "1.234.567");
    EXPECT_TRUE(Steuer<QCheckBox>(&g, "chkA")->isChecked());
    EXPECT_TRUE(Steuer<QRadioButton>(&g, "optB", 2)->isChecked());
    EXPECT_EQ(HintergrundFarbe(Steuer<QLabel>(&g, "lblCol", 0)), 0x123456);
    EXPECT_EQ(Steuer<QLabel>(&g, "lblPlusMinus")->text(), "-");
    EXPECT_EQ(g.size(), QSize(500, 620));
    EXPECT_EQ(g.pos(), QPoint(40, 30));

    // Minimised saves nothing; maximised only its state.
    IniSchreiben("Probe", "Width", "123");
    g.setWindowState(Qt::WindowMinimized);
    g.FensterSpeichern();
    EXPECT_EQ(IniLesen("Probe", "Width"), "123");
    g.setWindowState(Qt::WindowMaximized);
    Steuer<QCheckBox>(&g, "chkA")->setChecked(false);
    g.FensterSpeichern();
    EXPECT_EQ(IniLesen("Probe", "WindowState"), "2");
    EXPECT_EQ(IniLesen("Probe", "Width"), "123");
    EXPECT_EQ(IniLesen("Probe", "chkA"), "0");
    frmProbe h;
    h.FensterLaden("Probe");
    EXPECT_TRUE(h.windowState() & Qt::WindowMaximized);
}

TEST_F(WerkzeugTest, TheIconRowFollowsItsLettersAndActs) {
    auto tagsVon = [](Fenster& f) {
        QStringList tags;
        for (int i = 0; auto* b = Steuer<QToolButton>(&f, "btnIcon", i); ++i) tags << b->property("tag").toString();
        return tags;
    };
    frmProbe schlicht;
    schlicht.IconsAufbauen("");
    EXPECT_EQ(tagsVon(schlicht), QStringList({"Print", "Save", "Foto", "Calc", "Exit"}));

    auto* f = new frmProbe();
    f->FensterLaden("Probe", "NTFIS");
    EXPECT_EQ(tagsVon(*f), QStringList({"Nav0", "Nav1", "Nav2", "Nav3", "Nav4", "Nav5", "Table", "Font", "Print",
                                        "Open", "Save", "Save", "Foto", "Calc", "Exit"}));

    // Navigation, table, font and open go to the window.
    for (int i : {0, 5, 6, 7, 9}) f->IconAktion(i);
    EXPECT_EQ(f->tags, QStringList({"Nav0", "Nav5", "Table", "Font", "Open"}));

    // Save writes the list; a name without a dot gets ".TXT".
    auto* liste = Steuer<QListWidget>(f, "List1");
    liste->addItems({"2", "3", "5"});
    QString ziel = QString::fromStdString(Ordner()) + "liste";
    DateiDialogHook = [&](const DateiAnfrage& a) {
        EXPECT_TRUE(a.speichern);
        return std::optional<QString>(ziel);
    };
    f->IconAktion(10);
    QFile datei(ziel + ".TXT");
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    EXPECT_EQ(datei.readAll(), "2\n3\n5\n");
    ziel = QString::fromStdString(Ordner()) + "liste.dat";
    f->IconAktion(11);
    EXPECT_TRUE(QFile::exists(ziel));

    // Foto saves the picture as a bitmap.
    Steuer<Bild>(f, "picAnzeige")->resize(50, 40);
    ziel = QString::fromStdString(Ordner()) + "bild";
    f->IconAktion(12);
    EXPECT_EQ(QImage(ziel + ".bmp").size(), QSize(50, 40));

    // Print: a cancelled print dialog prints nothing and says nothing; a confirmed one prints
    // the picture (here into a PDF file).
    DruckDialogHook = [](QPrinter&) { return false; };
    f->IconAktion(8);
    const QString pdf = QString::fromStdString(Ordner()) + "druck.pdf";
    DruckDialogHook = [&](QPrinter& drucker) {
        drucker.setOutputFormat(QPrinter::PdfFormat);
        drucker.setOutputFileName(pdf);
        return true;
    };
    f->IconAktion(8);
    QFile gedruckt(pdf);
    ASSERT_TRUE(gedruckt.open(QIODevice::ReadOnly));
    EXPECT_EQ(gedruckt.read(5), "%PDF-");
    // Calc opens the calculator; Exit closes.
    f->IconAktion(13);
    EXPECT_EQ(FensterAnzahl("frmCalculator"), 1);
    EXPECT_TRUE(ui.meldungen.empty());
    f->show();
    f->IconAktion(14);
    EXPECT_FALSE(f->isVisible());
    delete f;
}

TEST_F(WerkzeugTest, ThePictureKeepsItsDrawingAndSavesBmpAndPng) {
    Bild bild;
    bild.resize(40, 30);
    bild.Leeren();
    bild.Linie(0, 0, 39, 0, Qt::red);
    bild.Rechteck(10, 10, 19, 19, Qt::blue, true);
    bild.Punkt(39, 29, Qt::green);
    bild.Punkt(400, 400, Qt::green);  // outside: ignored
    bild.resize(60, 50);              // growing keeps what was drawn
    for (const char* endung : {".bmp", ".png"}) {
        QString pfad = QString::fromStdString(Ordner()) + "p" + endung;
        ASSERT_TRUE(bild.Speichern(pfad));
        QImage b(pfad);
        ASSERT_EQ(b.size(), QSize(60, 50)) << endung;
        EXPECT_EQ(b.pixelColor(5, 0), QColor(Qt::red));
        EXPECT_EQ(b.pixelColor(15, 15), QColor(Qt::blue));
        EXPECT_EQ(b.pixelColor(39, 29), QColor(Qt::green));
        EXPECT_EQ(b.pixelColor(55, 45), QColor(Qt::white));
    }
    QFile bmp(QString::fromStdString(Ordner()) + "p.bmp");
    ASSERT_TRUE(bmp.open(QIODevice::ReadOnly));
    EXPECT_EQ(bmp.read(2), "BM");
}

TEST_F(WerkzeugTest, HelpAnswersEveryKeyOfTheseWindowsAndSaysWhenItCannot) {
    HilfeZeigen("");
    HilfeZeigen("Quadratur des Kreises");
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[0].text, "No Help!");
    EXPECT_EQ(ui.meldungen[1].text, "Zum Suchbegriff Quadratur des Kreises steht (noch) keine Hilfe zur Verfügung.");

    // The keys: the cockpit's own, its help button's, and the captions that open windows.
    const std::vector<TextPaar> start = SektionLesen("Start");
    QStringList keys{"Cockpit", "Informationen", "StoppUhr", "Hilfe"};
    for (const char* steuer : {"btnAuslastung", "mnuSpeicherAuslastung", "mnuPrimModify", "mnuLaden",
                               "mnuSpeichern", "mnuSekSpeichern", "mnuSystemEinstellungen", "mnuZahlenDarstellung",
                               "mnuFarbEinstellung", "mnuZahlensystem"}) {
        std::string wert;
        ASSERT_TRUE(SektionWert(start, steuer, wert)) << steuer;
        keys << QString::fromStdString(WertZerlegen(wert).text);
    }
    for (const QString& key : keys) EXPECT_TRUE(HilfeSeiteZu(key)) << key.toStdString();

    HilfeZeigen("&Cockpit");
    auto* seite = Suche<QTextBrowser>("txtSeite");
    EXPECT_TRUE(seite->source().toLocalFile().endsWith("cockpit.html"));
    EXPECT_TRUE(seite->toPlainText().contains("Primärbereich"));

    HilfeSuchen();
    Suche<QLineEdit>("txtSuchen")->setText("P092.BLK");
    QTest::keyClick(Suche<QLineEdit>("txtSuchen"), Qt::Key_Return);
    auto* treffer = Suche<QListWidget>("lstSuchen");
    ASSERT_EQ(treffer->count(), 1);
    EXPECT_EQ(treffer->item(0)->text(), "Blockdateien");
    HilfeIndex();
    EXPECT_GE(Suche<QListWidget>("lstIndex")->count(), keys.size());
    EXPECT_EQ(ui.meldungen.size(), 2u);
}

TEST_F(WerkzeugTest, F1OpensThePageOfTheWindowsKey) {
    frmProbe f;
    f.FensterLaden("Speicher");
    f.show();
    QApplication::setActiveWindow(&f);
    QTest::keyClick(&f, Qt::Key_F1);
    auto* seite = Suche<QTextBrowser>("txtSeite");
    ASSERT_TRUE(seite);
    EXPECT_TRUE(seite->source().toLocalFile().endsWith("speicher.html"));
}

TEST_F(WerkzeugTest, TheHandlerGuardShowsErrorsAndLetsNothingEscape) {
    EXPECT_TRUE(Behandeln([] {}));
    EXPECT_FALSE(Behandeln([] { throw Laufzeitfehler(FehlerUeberlauf); }));
    EXPECT_FALSE(Behandeln([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(Behandeln([] { throw std::runtime_error("kaputt"); }));
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Error");
    EXPECT_EQ(ui.meldungen[0].text, Text(FehlerTextKey) + "\nNr.: 6 " + FehlerBeschreibung(6));
    EXPECT_EQ(ui.meldungen[1].titel, "SW - Memory");
    EXPECT_NE(ui.meldungen[2].text.find("kaputt"), std::string::npos);
}

}  // namespace
}  // namespace sw::test
