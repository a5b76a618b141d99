// The calculator window offscreen: a formula typed and its result read, a function button, the
// memories and their return after reopening, refusals that leave the window usable and no old
// value behind, and the stop button during a long computation. The value's display form is
// tested on Hyp2Anzeige and through sw-cli eval.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "GuiTestUmgebung.h"
#include "arith/basRechnen.h"
#include "frame/basZentral.h"
#include "windows/Fensterregister.h"

namespace sw::test {
namespace {

class CalculatorTest : public GuiTest {
protected:
    QWidget* Oeffnen() {
        EXPECT_TRUE(FensterOeffnen("frmCalculator", -1, nullptr)) << Meldungen();
        return Suche<QWidget>("frmCalculator");
    }
    void Tippen(const QString& formel) {
        auto* zeile = Suche<QLineEdit>("txtFormel");
        zeile->clear();
        QTest::keyClicks(zeile, formel);
        QTest::keyClick(zeile, Qt::Key_Return);
    }
    QString Ergebnis() { return Suche<QLabel>("lblErgebnis")->text(); }
};

TEST_F(CalculatorTest, TypesAFormulaAndReadsTheResult) {
    QWidget* fenster = Oeffnen();
    ASSERT_TRUE(fenster);
    EXPECT_EQ(fenster->windowModality(), Qt::ApplicationModal);
    Tippen("2^127-1");
    EXPECT_EQ(Ergebnis(), "170.141.183.460.469.231.731.687.303.715.884.105.727");
    EXPECT_EQ(Suche<QLabel>("lblStellen")->text(), "39 Stellen");
    auto* verlauf = Suche<QListWidget>("List1");
    ASSERT_EQ(verlauf->count(), 1);
    EXPECT_TRUE(verlauf->item(0)->text().startsWith("2^127-1 = "));
    TexteUngekuerzt(fenster);
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(CalculatorTest, ButtonsMemoriesAndRefusals) {
    Oeffnen();
    Suche<QLineEdit>("txtFormel")->setText("10");
    Suche<QPushButton>("btnFunktion", 1)->click();
    EXPECT_EQ(Ergebnis(), "3.628.800");
    // Into memory #3, then used in a formula.
    Suche<QComboBox>("cmbSpeicher")->setCurrentIndex(2);
    Suche<QPushButton>("btnMerken")->click();
    EXPECT_EQ(Suche<QListWidget>("lstSpeicher")->item(2)->text(), "#3 = 3.628.800");
    Tippen("#3 / 10");
    EXPECT_EQ(Ergebnis(), "362.880");
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
    // A refusal shows its message and leaves the window usable.
    Tippen("7/0");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("7/0"), std::string::npos);
    EXPECT_TRUE(Suche<QPushButton>("btnRechnen")->isEnabled());
    Tippen("7 MOD 3");
    EXPECT_EQ(Ergebnis(), "1");
}

TEST_F(CalculatorTest, ARefusalClearsTheResultAndTheMemoryButtonStoresNothing) {
    Oeffnen();
    for (const char* falsch : {"abc", "2+*3", "(2+3", "7/0"}) {
        Tippen("6*7");
        ASSERT_EQ(Ergebnis(), "42");
        ui.meldungen.clear();
        Tippen(falsch);
        EXPECT_EQ(ui.meldungen.size(), 1u) << falsch;
        EXPECT_EQ(Ergebnis(), "") << falsch;
        EXPECT_EQ(Suche<QLabel>("lblStellen")->text(), "") << falsch;
    }
    Suche<QPushButton>("btnMerken")->click();
    EXPECT_EQ(Suche<QListWidget>("lstSpeicher")->item(0)->text(), "#1 = -");
}

TEST_F(CalculatorTest, MemoriesAreThereAgainAfterReopening) {
    QWidget* fenster = Oeffnen();
    Tippen("2^127-1");
    Suche<QComboBox>("cmbSpeicher")->setCurrentIndex(4);
    Suche<QPushButton>("btnMerken")->click();
    fenster->close();
    Aufraeumen();
    ASSERT_EQ(FensterAnzahl("frmCalculator"), 0);
    Oeffnen();
    EXPECT_EQ(Suche<QListWidget>("lstSpeicher")->item(4)->text(),
              "#5 = 170.141.183.460.469.231.731.687.303.715.884.105.727");
    Tippen("#5 + 1");
    EXPECT_EQ(Ergebnis(), "170.141.183.460.469.231.731.687.303.715.884.105.728");
}

QPushButton* stoppKnopf = nullptr;
void stoppKlicken() {
    if (stoppKnopf) stoppKnopf->click();
}

TEST_F(CalculatorTest, TheStopButtonEndsPowersFactorialsAndTheTextOfHugeResults) {
    Oeffnen();
    // A memory of two million digits: "#1" costs nothing but its text.
    Tippen("3^4000000");
    Suche<QPushButton>("btnMerken")->click();
    stoppKnopf = Suche<QPushButton>("btnStop");
    ui.beiDoEvents = stoppKlicken;
    const QString abgebrochen = QString::fromStdString(RechenText("msgAbbruch"));
    for (const char* lang : {"#1", "3^20000000"}) {
        ui.meldungen.clear();
        Tippen(lang);
        ASSERT_EQ(ui.meldungen.size(), 1u) << lang;
        EXPECT_EQ(QString::fromStdString(ui.meldungen[0].text), abgebrochen) << lang;
        EXPECT_EQ(Ergebnis(), "") << lang;
    }
    for (int knopf : {1, 2}) {  // n! and the primorial of the formula's value
        ui.meldungen.clear();
        Suche<QLineEdit>("txtFormel")->setText("3000000");
        Suche<QPushButton>("btnFunktion", knopf)->click();
        ASSERT_EQ(ui.meldungen.size(), 1u) << knopf;
        EXPECT_EQ(QString::fromStdString(ui.meldungen[0].text), abgebrochen) << knopf;
    }
    ui.beiDoEvents = nullptr;
    stoppKnopf = nullptr;
    EXPECT_FALSE(Suche<QPushButton>("btnStop")->isEnabled());
    EXPECT_FALSE(Abbruch);
    Tippen("2+2");
    EXPECT_EQ(Ergebnis(), "4");
}

}  // namespace
}  // namespace sw::test
