// The Collatz table and the extreme search as a user drives them: the tree of a depth and the
// walk in mode k list the true values, a row click takes a value with its I and M, bad input
// and a depth beyond the bounds get a message, and the lists save as a table file.
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "GuiTestUmgebung.h"
#include "collatz/basCollatz.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmCollatzTab.h"
#include "windows/frmExtremSuche.h"

namespace sw::test {
namespace {

class CollatzTabellenFenster : public GuiTest {
  protected:
    QStringList Zeilen(QListWidget* l) {
        QStringList z;
        for (int i = 0; i < l->count(); ++i) z << l->item(i)->text();
        return z;
    }
    QString CsvSpeichern(Fenster& f) {
        const QString ziel = QString::fromStdString(Ordner()) + "liste.CSV";
        DateiDialogHook = [&](const DateiAnfrage& a) {
            EXPECT_TRUE(a.filter.contains("CSV"));
            return std::optional<QString>(ziel);
        };
        for (int i = 0; auto* knopf = Steuer<QToolButton>(&f, "btnIcon", i); ++i) {
            if (knopf->property("tag").toString() == "Save") {
                f.IconAktion(i);
                break;
            }
        }
        DateiDialogHook = nullptr;
        QFile datei(ziel);
        EXPECT_TRUE(datei.open(QIODevice::ReadOnly));
        return QString::fromUtf8(datei.readAll());
    }
};

TEST_F(CollatzTabellenFenster, BaumZeileUndTabelle) {
    CollatzVerfahren = 0;
    ASSERT_TRUE(FensterOeffnen("frmCollatzTab", -1, nullptr));
    auto* f = Offen<frmCollatzTab>();
    ASSERT_NE(f, nullptr);
    auto* liste = Steuer<QListWidget>(f, "List1");
    Steuer<QLineEdit>(f, "txtII")->setText("10");
    Steuer<QPushButton>(f, "btnTest")->click();
    // Depth 10 holds 24, 26, 160, 168, 170 and 1024, whatever the order of the branches.
    QStringList zahlen;
    for (const QString& z : Zeilen(liste)) zahlen << z.section(' ', 1, -1, QString::SectionSkipEmpty).section(' ', 0, 0);
    zahlen.sort();
    EXPECT_EQ(zahlen, (QStringList{"1.024", "160", "168", "170", "24", "26"})) << Zeilen(liste).join("|").toStdString();
    EXPECT_EQ(CsvSpeichern(*f).count('\n'), 7);

    // A row click takes the value with the step and multiplication counts of its sequence.
    QListWidgetItem* zeile = liste->findItems("1.024", Qt::MatchContains).value(0);
    ASSERT_NE(zeile, nullptr);
    emit liste->itemClicked(zeile);
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtVon")->text(), "1.024");
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtII")->text(), "10");
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtMM")->text(), "0");
    // I not above M: no search.
    Steuer<QLineEdit>(f, "txtMM")->setText("10");
    EXPECT_FALSE(Steuer<QPushButton>(f, "btnSuchen")->isEnabled());

    // Beyond the Decimal range the tree refuses with a message instead of overflowing.
    Steuer<QLineEdit>(f, "txtII")->setText("96");
    ui.meldungen.clear();
    Steuer<QPushButton>(f, "btnTest")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("95"), std::string::npos) << Meldungen();
    // Quick search only downward.
    Steuer<QLineEdit>(f, "txtII")->setText("40");
    Steuer<QLineEdit>(f, "txtMM")->setText("8");
    Steuer<QCheckBox>(f, "chkQuickSearch")->setChecked(true);
    ui.meldungen.clear();
    Steuer<QPushButton>(f, "btnSuchen")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(431));
    f->close();
}

TEST_F(CollatzTabellenFenster, ExtremsucheImModusK) {
    CollatzVerfahren = 0;
    ASSERT_TRUE(FensterOeffnen("frmExtremSuche", -1, nullptr));
    auto* f = Offen<frmExtremSuche>();
    ASSERT_NE(f, nullptr);
    Steuer<QCheckBox>(f, "chkSortiert")->setChecked(false);
    Steuer<QLineEdit>(f, "txtI")->setText("4");
    Steuer<QLineEdit>(f, "txtM")->setText("");
    Steuer<QLineEdit>(f, "txtVon")->setText("1");
    Steuer<QLineEdit>(f, "txtBis")->setText("1000");
    f->ModusUmschalten();
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtIK")->text(), "k =");
    EXPECT_TRUE(Steuer<QLabel>(f, "lblReihenFolge")->text().contains("k.m"));
    Steuer<QPushButton>(f, "btnGO")->click();
    const QStringList z = Zeilen(Steuer<QListWidget>(f, "List2"));
    ASSERT_EQ(z.size(), 2) << z.join("|").toStdString();
    EXPECT_TRUE(z.contains("16 .... 4.0      1 ") || z.contains("16 .... 4.0      2 ")) << z.join("|").toStdString();
    EXPECT_TRUE(z.filter(" 5 !... 4.1").size() == 1) << z.join("|").toStdString();
    const QString csv = CsvSpeichern(*f);
    EXPECT_TRUE(csv.startsWith("Nummer;k;m;Zahl;Marks;Dual\n")) << csv.toStdString();
    EXPECT_TRUE(csv.contains(";4;1;5;!...;\n")) << csv.toStdString();

    // A bound below 2^i cuts the doubling path: the end says the list is not complete.
    f->ModusUmschalten();
    Steuer<QLineEdit>(f, "txtI")->setText("10");
    Steuer<QLineEdit>(f, "txtBis")->setText("1000");
    ui.meldungen.clear();
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(441));
    f->close();
}

// Bad text in any field of the two windows, with the button that reads it: a result or a
// German box, the buttons back at rest, and no run left behind. A search that would never end
// (I = 2^31 - 1 from 27) is stopped as the user would, by the flag its yields look at.
TEST_F(CollatzTabellenFenster, FalscheEingabenMeldenOderRechnen) {
    struct Fall {
        const char* fenster;
        const char* feld;
        const char* knopf;
    };
    const Fall faelle[] = {
        {"frmCollatzTab", "txtVon", "btnGO"},          {"frmCollatzTab", "txtStep", "btnGO"},
        {"frmCollatzTab", "txtII", "btnSuchen"},       {"frmCollatzTab", "txtMM", "btnSuchen"},
        {"frmCollatzTab", "txtAnzahl", "btnSuchen"},   {"frmCollatzTab", "txtBlockAnzahl", "btnSuchen"},
        {"frmCollatzTab", "txtII", "btnTest"},         {"frmCollatzTab", "txtAnzahl", "btnTest"},
        {"frmCollatzTab", "txtPot2", "btnShowErgebnis"}, {"frmCollatzTab", "txtPot6", "btnShowErgebnis"},
        {"frmExtremSuche", "txtI", "btnGO"},           {"frmExtremSuche", "txtM", "btnGO"},
        {"frmExtremSuche", "txtVon", "btnGO"},         {"frmExtremSuche", "txtBis", "btnGO"},
        {"frmExtremSuche", "txtPause", "btnGO"},
    };
    const char* const texte[] = {"abc", "-7", "", "10^(10^10)", "2147483647", "99999999999999999999"};
    ASSERT_TRUE(FensterOeffnen("frmCollatzTab", -1, nullptr));
    ASSERT_TRUE(FensterOeffnen("frmExtremSuche", -1, nullptr));
    ui.beiDoEvents = [] {
        static int runde = 0;
        if (++runde % 200 == 0) Abbruch = true;
    };
    for (const Fall& fall : faelle) {
        Fenster* f = fall.fenster[3] == 'C' ? static_cast<Fenster*>(Offen<frmCollatzTab>()) : Offen<frmExtremSuche>();
        ASSERT_NE(f, nullptr);
        auto* feld = Steuer<QLineEdit>(f, fall.feld);
        auto* knopf = Steuer<QPushButton>(f, fall.knopf);
        ASSERT_TRUE(feld && knopf) << fall.feld << " " << fall.knopf;
        const QString vorher = feld->text(), ruhe = knopf->text();
        for (const char* text : texte) {
            ui.meldungen.clear();
            feld->setText(text);
            if (knopf->isEnabled()) knopf->click();
            const std::string wo = std::string(fall.fenster) + " " + fall.feld + " \"" + text + "\" ";
            for (const auto& m : ui.meldungen) {
                EXPECT_EQ(m.titel.rfind("SW - ", 0), 0u) << wo << Meldungen();
                // A bare run-time error does not tell the user which field is wrong.
                EXPECT_EQ(m.text.find("Typen unverträglich"), std::string::npos) << wo << Meldungen();
            }
            EXPECT_EQ(knopf->text(), ruhe) << wo;
            EXPECT_FALSE(f->Laeuft()) << wo;
        }
        feld->setText(vorher);
    }
    ui.beiDoEvents = nullptr;
}

}  // namespace
}  // namespace sw::test
