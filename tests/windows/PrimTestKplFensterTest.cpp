// The complete test window: every field refuses what it cannot take with a box that says why
// (and no run starts), a short run fills the list which the icon row saves as .TXT, the sieve
// check lists 341, btnGO stops a run, and closing the window during a run stops it cleanly.
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/PrimTestKpl.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmPrimTestKpl.h"

namespace sw::test {
namespace {

QPointer<frmPrimTestKpl> laufendes;

class PrimTestKplFenster : public GuiTest {
protected:
    frmPrimTestKpl* Oeffnen() {
        EXPECT_TRUE(FensterOeffnen("frmPrimTestKpl", -1, nullptr));
        return Offen<frmPrimTestKpl>();
    }
    static QLineEdit* Feld(QWidget* f, const char* name) { return Steuer<QLineEdit>(f, name); }
    static void Los(QWidget* f) { QTest::mouseClick(Steuer<QPushButton>(f, "btnGO"), Qt::LeftButton); }
    static QStringList Zeilen(QWidget* f) {
        QStringList z;
        auto* l = Steuer<QListWidget>(f, "List1");
        for (int i = 0; i < l->count(); ++i) z << l->item(i)->text();
        return z;
    }
};

TEST_F(PrimTestKplFenster, BadInputIsRefusedWithAMessage) {
    auto* f = Oeffnen();
    ASSERT_NE(f, nullptr);
    Steuer<QCheckBox>(f, "chkFilter")->setChecked(true);
    struct Fall {
        const char* feld;
        const char* text;
        const char* erwartet;  // a part of the box's text
    };
    const Fall faelle[] = {
        {"txtIntervall", "abc", "Intervall"},    {"txtIntervall", "-5", "Intervall"},
        {"txtIntervall", "1e30", "Intervall"},   {"txtMultiTest", "x", "Runden"},
        {"txtMultiTest", "0", "Runden"},         {"txtPerrinPlus", "-1", "Plus-Grenze"},
        {"txtPerrinPlus", "10^9", "Plus-Grenze"}, {"txtVorFilter", "abc", "Vorfilter"},
        {"txtVorFilter", "99999999999", "Vorfilter"}, {"txtVon", "abc", "ABC"},
        {"txtVon", "2^200000000", ""},              {"txtVon", "2/0", ""},
    };
    for (const Fall& fall : faelle) {
        auto* feld = Feld(f, fall.feld);
        const QString alt = feld->text();
        feld->setText(fall.text);
        ui.meldungen.clear();
        Los(f);
        ASSERT_EQ(ui.meldungen.size(), 1u) << fall.feld << " " << fall.text << Meldungen();
        EXPECT_NE(ui.meldungen[0].text.find(fall.erwartet), std::string::npos) << ui.meldungen[0].text;
        EXPECT_EQ(Steuer<QPushButton>(f, "btnGO")->text(), "OK");
        EXPECT_FALSE(f->Laeuft());
        EXPECT_TRUE(Zeilen(f).isEmpty()) << fall.feld;
        feld->setText(alt);
    }
    // An exponent is a plain number; Lucas-Lehmer wants the Mersenne mode.
    Steuer<QCheckBox>(f, "chk2er")->setChecked(true);
    Feld(f, "txtVon")->setText("2^7");
    ui.meldungen.clear();
    Los(f);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, TextP1(1320, "2.000.000.000"));
    Steuer<QCheckBox>(f, "chk2er")->setChecked(false);
    Steuer<QRadioButton>(f, "optTest", KplLucasLehmer)->setChecked(true);
    ui.meldungen.clear();
    Los(f);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(496));
}

TEST_F(PrimTestKplFenster, ARunFillsTheListAndTheIconRowSavesIt) {
    ASSERT_TRUE(PrimaerLauf(Decimal(10000), MethodeProdukt));
    auto* f = Oeffnen();
    ASSERT_NE(f, nullptr);
    Feld(f, "txtVon")->setText("");
    Feld(f, "txtIntervall")->setText("30");
    Steuer<QRadioButton>(f, "optTest", KplBpsw)->setChecked(true);
    Steuer<QRadioButton>(f, "optStep", 0)->setChecked(true);
    Los(f);
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
    EXPECT_EQ(Feld(f, "txtVon")->text(), "2");  // the empty start became 2 and is back after the run
    const QStringList zeilen = Zeilen(f);
    ASSERT_EQ(zeilen.size(), 12);  // 2 .. 31: eleven primes and the closing line
    EXPECT_EQ(zeilen[0].toStdString(), TextP1P2(130, "2", "BPSW-Test"));
    EXPECT_EQ(zeilen[10].toStdString(), TextP1P2(130, "31", "BPSW-Test"));

    const QString ziel = QString::fromStdString(Ordner()) + "kpl";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(ziel); };
    f->IconAktion(1);
    QFile datei(ziel + ".TXT");
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(datei.readAll()), zeilen.join("\n") + "\n");

    // The sieve check of base-2 Fermat over 300 .. 400.
    Feld(f, "txtVon")->setText("300");
    Feld(f, "txtIntervall")->setText("100");
    Steuer<QRadioButton>(f, "optTest", KplFermat)->setChecked(true);
    Steuer<QCheckBox>(f, "chkCheck")->setChecked(true);
    Los(f);
    EXPECT_EQ(Zeilen(f), (QStringList{QString::fromStdString(TextP1(129, "341")),
                                      QString::fromStdString(TextP1P2(131, "1", "1"))}));
    EXPECT_FALSE(Steuer<QWidget>(f, "fraWait")->isVisible());
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(PrimTestKplFenster, StopAndCloseDuringARun) {
    auto* f = Oeffnen();
    ASSERT_NE(f, nullptr);
    laufendes = f;
    Feld(f, "txtVon")->setText("10^30");
    Feld(f, "txtIntervall")->setText("1.000.000");
    ui.beiDoEvents = [] {
        if (auto* go = laufendes ? Steuer<QPushButton>(laufendes, "btnGO") : nullptr; go && go->text() == "Stop") go->click();
    };
    Los(f);
    EXPECT_EQ(Zeilen(f).last().toStdString(), Text(132));
    EXPECT_EQ(Steuer<QPushButton>(f, "btnGO")->text(), "OK");
    EXPECT_EQ(Feld(f, "txtVon")->text(), "10^30");
    EXPECT_TRUE(Steuer<QRadioButton>(f, "optTest", 0)->isEnabled());

    ui.beiDoEvents = [] {
        if (laufendes) laufendes->close();
    };
    Los(f);
    ui.beiDoEvents = nullptr;
    QCoreApplication::processEvents();  // the close waits for the end of the run
    Aufraeumen();
    EXPECT_TRUE(laufendes.isNull());
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

}  // namespace
}  // namespace sw::test
