// The Goldbach window from the cockpit's table: the two lists of a number, the steps that write
// the new number back, the box for a number it cannot split (the list stays), r(n) in its
// label, and the comet whose counts the table icon switches to as a picture.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmGoldbachStd.h"

namespace sw::test {
namespace {

class GoldbachFensterTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
    void Klick(const QString& name, int index = -1) {
        QPushButton* b = Suche<QPushButton>(name, index);
        ASSERT_NE(b, nullptr);
        QTest::mouseClick(b, Qt::LeftButton);
    }
};

TEST_F(GoldbachFensterTest, ListenSchritteUndKomet) {
    ASSERT_STREQ(UntersuchungVon(1).fenster, "frmGoldbachStd");
    ASSERT_TRUE(FensterOeffnen("frmGoldbachStd", UntersuchungVon(1).modus, nullptr));
    auto* start = Suche<QLineEdit>("txtStart");
    auto* liste = Suche<QListWidget>("List1");
    ASSERT_TRUE(start && liste);
    start->setText("100");
    Klick("btnGO");
    ASSERT_EQ(liste->count(), 13) << Meldungen();
    EXPECT_EQ(liste->item(3)->text().toStdString(), "89 + 11");
    EXPECT_EQ(liste->item(12)->text().toStdString(), "47 + 53");
    EXPECT_TRUE(Suche<QPushButton>("btnNext", 0)->isEnabled());

    Klick("btnNext", 5);  // the next prime above 102 is 103
    EXPECT_EQ(start->text().toStdString(), "102");
    Klick("btnNext", 3);  // 51 is odd: the box, and the number and list stay
    EXPECT_EQ(start->text().toStdString(), "102");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("1.000.000"), std::string::npos);
    EXPECT_EQ(liste->item(liste->count() - 1)->text().toStdString(), "43 + 59");

    start->setText("1000");
    Klick("btnAnzahl");
    EXPECT_EQ(Suche<QLabel>("lblAnzahl")->text().toStdString().rfind(TextP1P2(2200, "1.000", "28"), 0), 0u);

    Suche<QLineEdit>("txtVon")->setText("4");
    Suche<QLineEdit>("txtBis")->setText("1000");
    Klick("btnKomet");
    auto* fenster = qobject_cast<frmGoldbachStd*>(start->window());
    ASSERT_TRUE(fenster && fenster->KometErgebnis());
    EXPECT_EQ(fenster->KometErgebnis()->anzahl.back(), 28u);
    auto* ansicht = qobject_cast<QStackedWidget*>(liste->parentWidget());
    ASSERT_NE(ansicht, nullptr);
    EXPECT_NE(ansicht->currentWidget(), liste);
    fenster->IconAktion(0);  // the table icon comes first: back to the list
    EXPECT_EQ(ansicht->currentWidget(), liste);
}

}  // namespace
}  // namespace sw::test
