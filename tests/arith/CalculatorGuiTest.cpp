// The calculator window offscreen: a formula typed and its result read, a function button, the
// memories and a refusal that leaves the window usable. The value's display form is tested on
// Hyp2Anzeige and through sw-cli eval, the calculator's stop on Rechner.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "GuiTestUmgebung.h"
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

}  // namespace
}  // namespace sw::test
