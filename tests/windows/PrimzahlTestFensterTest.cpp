// The prime test window: opened from the cockpit's menu, a formula tested by a button with
// the verdict and its proof in lblHinweis, the limit written back grouped, and the stop
// button ending Fermat's search of a large prime, after which the window is at rest again.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/PrimzahlTest.h"
#include "windows/Fensterregister.h"
#include "windows/frmPrimzahlTest.h"
#include "windows/frmStart.h"

namespace sw::test {
namespace {

QPointer<QPushButton> stoppKnopf;

class PrimzahlTestFenster : public GuiTest {};

TEST_F(PrimzahlTestFenster, FormelTestenUndBeweisen) {
    auto* cockpit = new frmStart();
    cockpit->show();
    Suche<QAction>("mnuPrimzahlTest")->trigger();
    auto* fenster = Offen<frmPrimzahlTest>();
    ASSERT_NE(fenster, nullptr);
    auto* prim = Steuer<QLineEdit>(fenster, "txtPrim");
    auto* grenze = Steuer<QLineEdit>(fenster, "txtGrenze");
    auto* hinweis = Steuer<QLabel>(fenster, "lblHinweis");
    ASSERT_TRUE(prim && grenze && hinweis);
    EXPECT_EQ(prim->text(), "127");
    EXPECT_FALSE(Steuer<QPushButton>(fenster, "btnGO")->isVisibleTo(fenster));

    prim->setText("2^61-1");
    grenze->setText("100000");
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnTest", MethodeMillerRabin), Qt::LeftButton);
    EXPECT_EQ(hinweis->text().toStdString(), TextP1(1200, "Miller-Rabin")) << Meldungen();
    EXPECT_EQ(grenze->text(), "100.000");
    // Above 2^64 a pass is proven through N-1 where that factors (2^89-2 does), else it is
    // only probable; a limit past the root proves by division.
    prim->setText("2^89-1");
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnTest", MethodeBpsw), Qt::LeftButton);
    EXPECT_EQ(hinweis->text().toStdString(), TextP1(1201, "BPSW"));
    prim->setText("2^9941-1");
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnTest", MethodeBpsw), Qt::LeftButton);
    EXPECT_EQ(hinweis->text().toStdString(), TextP1(137, "BPSW"));
    prim->setText("1000003");
    grenze->setText("2.000");
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnTest", MethodeFermat), Qt::LeftButton);
    EXPECT_EQ(hinweis->text().toStdString(), Text(140));
    prim->setText("3*7*11");
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnTest", MethodePerrin), Qt::LeftButton);
    EXPECT_EQ(hinweis->text().toStdString(), Text(141));
}

TEST_F(PrimzahlTestFenster, StoppBeendetFermatSuche) {
    ASSERT_TRUE(FensterOeffnen("frmPrimzahlTest", -1, nullptr));
    auto* fenster = Offen<frmPrimzahlTest>();
    ASSERT_NE(fenster, nullptr);
    Steuer<QLineEdit>(fenster, "txtPrim")->setText("2^89-1");
    Steuer<QLineEdit>(fenster, "txtGrenze")->setText("100");
    stoppKnopf = Steuer<QPushButton>(fenster, "btnGO");
    // The first turn of the event loop with the stop button showing clicks it, as a user
    // would while the search runs.
    ui.beiDoEvents = [] {
        if (stoppKnopf && stoppKnopf->isVisibleTo(stoppKnopf->window())) stoppKnopf->click();
    };
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnTest", MethodeFermatSuche), Qt::LeftButton);
    ui.beiDoEvents = nullptr;
    EXPECT_EQ(Steuer<QLabel>(fenster, "lblHinweis")->text().toStdString(), Text(139));
    EXPECT_FALSE(stoppKnopf->isVisibleTo(fenster));
    EXPECT_TRUE(Steuer<QPushButton>(fenster, "btnTest", MethodeFermatSuche)->isEnabled());
}

}  // namespace
}  // namespace sw::test
