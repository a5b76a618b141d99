// The squares window, opened from its cockpit place: each page reads formulas, shows the answer
// in its result box, names the gcd where an inverse is missing, fills the other byte fields,
// and turns refused input into an info box with the tool's message.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include "GuiTestUmgebung.h"
#include "windows/Fensterregister.h"
#include "windows/frmQuadrat.h"

namespace sw::test {
namespace {

class QuadratFenster : public GuiTest {};

TEST_F(QuadratFenster, PagesAnswerAndRefuse) {
    ASSERT_STREQ(UntersuchungVon(36).fenster, "frmQuadrat");
    ASSERT_TRUE(FensterOeffnen(UntersuchungVon(36).fenster, -1, nullptr));
    auto* f = Offen<frmQuadrat>();
    ASSERT_NE(f, nullptr);
    f->show();
    TexteUngekuerzt(f);
    auto feld = [&](const char* name, const QString& text) { Steuer<QLineEdit>(f, name)->setText(text); };
    auto klick = [&](const char* name) { Steuer<QPushButton>(f, name)->click(); };

    feld("txtZahl", "46340^2");
    feld("txtK", "2");
    klick("btnWurzel");
    EXPECT_EQ(f->Ergebnis(frmQuadrat::SeiteQuadrat),
              "Wurzel (k = 2): 46340\nRest: 0\nDie Wurzel ist exakt (Rest 0).\nIstQuadrat: ja")
        << Meldungen();
    feld("txtZahl", "Formel: 3");
    feld("txtModul", "2^127-1");
    klick("btnJacobi");
    EXPECT_TRUE(f->Ergebnis(frmQuadrat::SeiteQuadrat).endsWith(": -1")) << f->Ergebnis(0).toStdString();

    feld("txtInvA", "12");
    feld("txtInvM", "18");
    klick("btnInverse");
    EXPECT_EQ(f->Ergebnis(frmQuadrat::SeiteInverse), "Nicht invertierbar: ggT(12, Modul) = 6, nicht 1.");
    feld("txtInvA", "10^30+57");
    feld("txtInvM", "2^127-1");
    klick("btnInverse");
    EXPECT_EQ(f->Ergebnis(frmQuadrat::SeiteInverse),
              "Inverse: 7668730993594610578260002946019408669\nBerechnet mit HypModInverse");

    feld("txtBytesText", "AB");
    klick("btnTextNachZahl");
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtBytesHex")->text(), "41 42");
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtBytesZahl")->text(), "16961");

    ASSERT_TRUE(ui.meldungen.empty()) << Meldungen();
    feld("txtWortA", "5");
    feld("txtWortB", "0");
    Steuer<QRadioButton>(f, "optBreite", 1)->setChecked(true);
    f->findChild<QComboBox*>("cmbOp")->setCurrentText("/");
    klick("btnWortRechnen");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, "Division durch 0 nicht möglich!");
    EXPECT_EQ(f->Ergebnis(frmQuadrat::SeiteWort), "");  // nothing stale stays behind a refusal

    feld("txtPrim", "");
    klick("btnPrimwurzel");
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_NE(ui.meldungen[1].text.find("ist leer"), std::string::npos);
}

}  // namespace
}  // namespace sw::test
