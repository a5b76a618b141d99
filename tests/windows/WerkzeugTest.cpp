// The window toolkit: what text boxes keep, stored values across closing and opening, the
// icon row's save, help opening the right page, and the guard of the event handlers.
#include <QAbstractButton>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <fstream>
#include <new>

#include "GuiTestUmgebung.h"
#include "frame/Einstellungen.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "windows/Dialoge.h"
#include "windows/Fenster.h"
#include "windows/Hilfe.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerwerte.h"

namespace sw::test {
namespace {

// A grouped number is stored bare and shown grouped again; a shortened display text is never
// stored, or the next start would read a different number.
TEST(Steuerwerte, TextBoxesKeepNumbersWithoutGroupingAndNeverAShortenedText) {
    ZentralZuruecksetzen();
    const std::pair<std::string, std::optional<std::string>> speichern[] = {
        {"1.234.567", "1234567"}, {"12_345", "12345"}, {"2^61-1", "2^61-1"}, {"", ""},
        {std::string(50, '1') + "..." + std::string(50, '2'), std::nullopt}, {std::string(300, '7'), std::nullopt}};
    for (const auto& [text, wert] : speichern) EXPECT_EQ(TextfeldSpeicherwert(text), wert) << text;
    FormatZeichen = "'";
    EXPECT_EQ(TextfeldSpeicherwert("1'234'567"), "1234567");

    FormatZeichen = ".";
    const std::pair<std::string, std::string> laden[] = {
        {"1234567", "1.234.567"}, {"-1234", "-1.234"}, {"1,5", "1,5"}, {"abc", "abc"}};
    for (const auto& [wert, text] : laden) EXPECT_EQ(TextfeldLadewert(wert), text) << wert;
    for (long long bgr : {0x000000LL, 0x0000FFLL, 0x803000LL, 0xFFFFFFLL}) {
        EXPECT_EQ(FarbeZuZahl(FarbeAusZahl(bgr)), bgr);
    }
}

// A window with the controls whose values are stored.
class frmProbe : public Fenster {
public:
    frmProbe() : Fenster("frmProbe") {
        auto* mitte = new QWidget(this);
        auto* lay = new QVBoxLayout(mitte);
        lay->addWidget(Benannt(new QLineEdit(mitte), "txtKlein"));
        lay->addWidget(Benannt(new QCheckBox(mitte), "chkA"));
        for (int i = 0; i < 3; ++i) lay->addWidget(Benannt(new QRadioButton(mitte), "optB", i));
        lay->addWidget(Benannt(new QLabel(mitte), "lblCol", 0));
        lay->addWidget(Benannt(new QListWidget(mitte), "List1"));
        setCentralWidget(mitte);
    }
};

class WerkzeugTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        // A text table of the test's own, found first in the working folder.
        std::ifstream echt(std::string(SW_DATA_DIR) + "/sw.TEX");
        std::string inhalt((std::istreambuf_iterator<char>(echt)), std::istreambuf_iterator<char>());
        std::ofstream(Ordner() + "sw.TEX") << inhalt << "\n[Probe]\nTitel=Probe\n";
    }
};

TEST_F(WerkzeugTest, ControlValuesSurviveClosingAndOpening) {
    {
        frmProbe f;
        f.FensterLaden("Probe");
        Steuer<QLineEdit>(&f, "txtKlein")->setText("1.234.567");
        Steuer<QCheckBox>(&f, "chkA")->setChecked(true);
        Steuer<QRadioButton>(&f, "optB", 2)->setChecked(true);
        HintergrundFarbeSetzen(Steuer<QLabel>(&f, "lblCol", 0), 0x123456);
        f.show();
        f.close();
    }
    EXPECT_EQ(IniLesen("Probe", "txtKlein"), "1234567");
    frmProbe g;
    g.FensterLaden("Probe");
    EXPECT_EQ(Steuer<QLineEdit>(&g, "txtKlein")->text(), "1.234.567");
    EXPECT_TRUE(Steuer<QCheckBox>(&g, "chkA")->isChecked());
    EXPECT_TRUE(Steuer<QRadioButton>(&g, "optB", 2)->isChecked());
    EXPECT_EQ(HintergrundFarbe(Steuer<QLabel>(&g, "lblCol", 0)), 0x123456);
}

// Save writes the list as it stands; a name without a dot gets ".TXT".
TEST_F(WerkzeugTest, TheIconRowSavesTheList) {
    frmProbe f;
    f.FensterLaden("Probe", "S");
    Steuer<QListWidget>(&f, "List1")->addItems({"2", "3", "5"});
    const QString ziel = QString::fromStdString(Ordner()) + "liste";
    DateiDialogHook = [&](const DateiAnfrage& a) {
        EXPECT_TRUE(a.speichern);
        return std::optional<QString>(ziel);
    };
    f.IconAktion(1);
    QFile datei(ziel + ".TXT");
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    EXPECT_EQ(datei.readAll(), "2\n3\n5\n");
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(WerkzeugTest, HelpOpensThePageOfTheKeyOrSaysItCannot) {
    HilfeZeigen("Quadratur des Kreises");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, "Zum Suchbegriff Quadratur des Kreises steht (noch) keine Hilfe zur Verfügung.");

    HilfeZeigen("&Cockpit");
    auto* seite = Suche<QTextBrowser>("txtSeite");
    ASSERT_TRUE(seite);
    EXPECT_TRUE(seite->source().toLocalFile().endsWith("cockpit.html"));

    // F1 in a window opens the page of the window's key.
    frmProbe f;
    f.FensterLaden("Speicher");
    f.show();
    QApplication::setActiveWindow(&f);
    QTest::keyClick(&f, Qt::Key_F1);
    EXPECT_TRUE(seite->source().toLocalFile().endsWith("speicher.html"));
}

TEST_F(WerkzeugTest, TheHandlerGuardShowsErrorsAndLetsNothingEscape) {
    EXPECT_TRUE(Behandeln([] {}));
    EXPECT_FALSE(Behandeln([] { throw Laufzeitfehler(FehlerUeberlauf); }));
    EXPECT_FALSE(Behandeln([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(Behandeln([] { throw std::runtime_error("kaputt"); }));
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Fehler");
    EXPECT_EQ(ui.meldungen[0].text, Text(FehlerTextKey) + "\nNr.: 6 " + FehlerBeschreibung(6));
    EXPECT_EQ(ui.meldungen[1].titel, "SW - Speicher");
    EXPECT_NE(ui.meldungen[2].text.find("kaputt"), std::string::npos);
}


// Boxes and the toolkit's own dialogs speak German: the buttons of a question, and those of the
// file dialog the icons and menus open.
TEST_F(WerkzeugTest, DialogsSpeakGerman) {
    OberflaecheDesktop desktop;
    QStringList knoepfe;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        QAbstractButton* nein = nullptr;
        for (QAbstractButton* b : box->buttons()) {
            knoepfe << b->text().remove('&');
            if (box->buttonRole(b) == QMessageBox::NoRole) nein = b;
        }
        if (nein) {
            nein->click();
        } else {
            box->reject();
        }
    });
    EXPECT_EQ(desktop.Meldung("SW-Stop?", "?", MeldungsSymbol::Frage, MeldungsKnoepfe::JaNeinAbbrechen), AntwortNein);
    knoepfe.sort();
    EXPECT_EQ(knoepfe, QStringList({"Abbrechen", "Ja", "Nein"}));

    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList texte;
    for (auto* leiste : dialog.findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* b : leiste->buttons()) texte << b->text().remove('&');
    }
    EXPECT_TRUE(texte.contains("Abbrechen")) << texte.join(", ").toStdString();
    EXPECT_TRUE(texte.contains("Speichern")) << texte.join(", ").toStdString();
}

}  // namespace
}  // namespace sw::test
