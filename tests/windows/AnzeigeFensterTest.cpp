// The prime display on the desktop: opened from the cockpit's table, a range fetched by
// btnGO, the count shown, paging by the toolbar, the detail of a clicked number, and the
// random raster's window writing its settings.
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
    frmAnzeige* fenster = Offen<frmAnzeige>();
    ASSERT_NE(fenster, nullptr);
    AnzeigeLogik& logik = fenster->Logik();
    EXPECT_EQ(Suche<QLabel>("lblCount")->text().toStdString(), ZahlFormatLong(logik.Anzahl)) << Meldungen();
    EXPECT_GT(logik.Anzahl, 0);
    QTest::mouseClick(Suche<QToolButton>("btnIcon", 4), Qt::LeftButton);
    EXPECT_EQ(logik.Aktuell, Decimal(int64_t(1000000000)) + logik.SeitenZahlen());
    fenster->ZahlZeigen(Decimal(int64_t(1000000007)));
    auto* zahl = Offen<frmZahl>();
    ASSERT_NE(zahl, nullptr);
    EXPECT_TRUE(zahl->Inhalt().contains("ja"));
}

TEST_F(AnzeigeFensterTest, SuchenFindetZwillinge) {
    ASSERT_TRUE(FensterOeffnen("frmAnzeige", UntersuchungVon(23).modus, nullptr));
    Suche<QLineEdit>("txtEingabe", 0)->setText("1.000");
    Suche<QLineEdit>("txtEingabe", 1)->setText("100.000");
    QTest::mouseClick(Suche<QPushButton>("btnGO"), Qt::LeftButton);
    QTest::mouseClick(Suche<QPushButton>("btnSuchen"), Qt::LeftButton);
    auto* suchen = Offen<frmSuchen>();
    ASSERT_NE(suchen, nullptr);
    QTest::mouseClick(Steuer<QPushButton>(suchen, "btnGO"), Qt::LeftButton);
    auto* fenster = Offen<frmAnzeige>();
    ASSERT_NE(fenster, nullptr);
    EXPECT_EQ(fenster->Logik().Aktuell, Decimal(1019)) << Meldungen();
}

}  // namespace
}  // namespace sw::test
