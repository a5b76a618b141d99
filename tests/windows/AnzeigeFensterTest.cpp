// The prime display on the desktop: opened from the cockpit's table, a range fetched by
// btnGO, the count shown, paging by the toolbar, the detail of a clicked number, and the
// random raster's window writing its settings.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "GuiTestUmgebung.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmAnzeige.h"
#include "windows/frmSuchen.h"
#include "windows/frmZahl.h"

namespace sw::test {
namespace {

class AnzeigeFensterTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
};

TEST_F(AnzeigeFensterTest, BereichHolenBlaetternUndZahl) {
    ASSERT_TRUE(FensterOeffnen("frmAnzeige", UntersuchungVon(22).modus, nullptr));
    auto* anfang = Suche<QLineEdit>("txtEingabe", 0);
    auto* laenge = Suche<QLineEdit>("txtEingabe", 1);
    ASSERT_TRUE(anfang && laenge);
    anfang->setText("1.000.000.000");
    laenge->setText("10.000");
    QTest::mouseClick(Suche<QPushButton>("btnGO"), Qt::LeftButton);
    auto* count = Suche<QLabel>("lblCount");
    ASSERT_TRUE(count);
    EXPECT_FALSE(count->text().isEmpty()) << Meldungen();
    frmAnzeige* fenster = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* a = dynamic_cast<frmAnzeige*>(w)) fenster = a;
    }
    ASSERT_NE(fenster, nullptr);
    AnzeigeLogik& logik = fenster->Logik();
    EXPECT_EQ(count->text().toStdString(), ZahlFormatLong(logik.Anzahl));
    EXPECT_TRUE(Suche<QToolButton>("btnIcon", 4)->isEnabled());
    QTest::mouseClick(Suche<QToolButton>("btnIcon", 4), Qt::LeftButton);
    EXPECT_EQ(logik.Aktuell, Decimal(int64_t(1000000000)) + logik.SeitenZahlen());
    fenster->ZahlZeigen(Decimal(int64_t(1000000007)));
    bool gefunden = false;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* z = dynamic_cast<frmZahl*>(w)) gefunden = z->Inhalt().contains("ja");
    }
    EXPECT_TRUE(gefunden);
    fenster->close();
    Aufraeumen();
}

TEST_F(AnzeigeFensterTest, SuchenFindetZwillinge) {
    ASSERT_TRUE(FensterOeffnen("frmAnzeige", UntersuchungVon(23).modus, nullptr));
    Suche<QLineEdit>("txtEingabe", 0)->setText("1.000");
    Suche<QLineEdit>("txtEingabe", 1)->setText("100.000");
    QTest::mouseClick(Suche<QPushButton>("btnGO"), Qt::LeftButton);
    QTest::mouseClick(Suche<QPushButton>("btnSuchen"), Qt::LeftButton);
    QPushButton* suchenGo = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (dynamic_cast<frmSuchen*>(w)) suchenGo = Steuer<QPushButton>(w, "btnGO");
    }
    ASSERT_NE(suchenGo, nullptr);
    QTest::mouseClick(suchenGo, Qt::LeftButton);
    frmAnzeige* fenster = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* a = dynamic_cast<frmAnzeige*>(w)) fenster = a;
    }
    ASSERT_NE(fenster, nullptr);
    EXPECT_EQ(fenster->Logik().Aktuell, Decimal(1019)) << Meldungen();
    for (QWidget* w : QApplication::topLevelWidgets()) w->close();
    Aufraeumen();
}

}  // namespace
}  // namespace sw::test
