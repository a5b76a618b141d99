// The analysis windows and the table window on the desktop: the number mode lists the divisor
// functions of a number with a square in it, the series mode counts Euler's primes, and its list
// opened by the "Table" icon sorts its value column by value, not by text.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

#include "GuiTestUmgebung.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmAnalyseSW.h"
#include "windows/frmTabelle.h"

namespace sw::test {
namespace {

class AnalyseFensterTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
    void TabelleKlicken() {
        for (int i = 0;; ++i) {
            auto* knopf = Suche<QToolButton>("btnIcon", i);
            ASSERT_NE(knopf, nullptr);
            if (knopf->property("tag").toString() == "Table") {
                QTest::mouseClick(knopf, Qt::LeftButton);
                return;
            }
        }
    }
};

TEST_F(AnalyseFensterTest, ZahlReiheUndTabelle) {
    ASSERT_STREQ(UntersuchungVon(13).fenster, "frmAnalyseSW");
    ASSERT_TRUE(FensterOeffnen("frmAnalyseSW", UntersuchungVon(13).modus, nullptr));
    auto* zahl = Suche<QLineEdit>("txtZahl");
    ASSERT_NE(zahl, nullptr);
    zahl->setText("600851475143*71");
    QTest::mouseClick(Suche<QPushButton>("btnGo"), Qt::LeftButton);
    auto* liste = Offen<frmAnalyseSW>()->findChild<QListWidget*>("List1");
    QStringList zeilen;
    for (int i = 0; i < liste->count(); ++i) zeilen << liste->item(i)->text();
    EXPECT_TRUE(zeilen.contains("Möbius μ: 0")) << zeilen.join('\n').toStdString() << Meldungen();
    EXPECT_TRUE(zeilen.contains("Teileranzahl τ: 24")) << zeilen.join('\n').toStdString();
    Offen<frmAnalyseSW>()->close();
    Aufraeumen();

    ASSERT_TRUE(FensterOeffnen("frmAnalyseSW", UntersuchungVon(7).modus, nullptr));
    auto* reihe = Offen<frmAnalyseSW>();
    ASSERT_EQ(reihe->Modus(), 1);
    reihe->findChild<QLineEdit*>("txtFormel")->setText("n^2+n+41");
    reihe->findChild<QLineEdit*>("txtVon")->setText("0");
    reihe->findChild<QLineEdit*>("txtBis")->setText("40");
    QTest::mouseClick(reihe->findChild<QPushButton*>("btnGo"), Qt::LeftButton);
    EXPECT_TRUE(reihe->findChild<QLabel*>("lblStatus")->text().startsWith("Primzahlen: 40 von 41 Gliedern."))
        << reihe->findChild<QLabel*>("lblStatus")->text().toStdString() << Meldungen();

    TabelleKlicken();
    auto* tabelle = Offen<frmTabelle>();
    ASSERT_NE(tabelle, nullptr);
    auto* gitter = tabelle->findChild<QTableWidget*>("grdTabelle");
    // The CSV's head line names the columns and is no row: sorting leaves it on top.
    ASSERT_EQ(gitter->rowCount(), 41);
    EXPECT_EQ(gitter->horizontalHeaderItem(1)->text().toStdString(), "f(n)");
    tabelle->Sortieren(1);
    tabelle->Sortieren(1);  // descending: 1681 before 971, which text order would swap
    EXPECT_EQ(gitter->item(0, 1)->text().toStdString(), "1681");
    EXPECT_EQ(gitter->item(1, 1)->text().toStdString(), "1601");
    EXPECT_EQ(gitter->item(40, 1)->text().toStdString(), "41");
    EXPECT_EQ(gitter->horizontalHeaderItem(1)->text().toStdString(), "f(n)");
}

}  // namespace
}  // namespace sw::test
