// The divisor search window: a run from p = 2 lists exactly the new divisors, settles the
// Mersenne prime exponents, stops at Stop with its rows written, and a second run over the
// same exponents searches nothing again but lists the known divisors when asked to.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "GuiTestUmgebung.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "windows/frmMersenneTeiler.h"

namespace sw::test {
namespace {

class MersenneTeilerFenster : public GuiTest {};

QLineEdit* potenz = nullptr;
// Stop once the run has passed p = 200 (the fake clock stands still, so the run yields by
// count, at the same exponents in every run).
void stoppAb200() {
    if (TextZuLong(potenz->text().toStdString()) >= 200) Abbruch = true;
}

TEST_F(MersenneTeilerFenster, ListsNewDivisorsStopsAndSearchesNothingTwice) {
    auto* f = new frmMersenneTeiler();
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
    potenz = Steuer<QLineEdit>(f, "txtPotenz");
    auto* go = Steuer<QPushButton>(f, "btnGO");
    auto* liste = Steuer<QListWidget>(f, "List1");
    ASSERT_TRUE(potenz && go && liste);
    potenz->setText("2");
    Steuer<QLineEdit>(f, "txtK")->setText("1000");
    Steuer<QLineEdit>(f, "txtIntervall")->setText("100");
    ui.beiDoEvents = stoppAb200;
    go->click();
    ASSERT_GT(liste->count(), 12);
    const std::string breit(20, ' ');
    EXPECT_EQ(liste->item(0)->text().toStdString(), breit + "23 teilt 2^11-1");
    EXPECT_EQ(liste->item(2)->text().toStdString(), breit.substr(1) + "233 teilt 2^29-1");
    EXPECT_EQ(liste->item(4)->text().toStdString(), breit.substr(0, 16) + "13.367 teilt 2^41-1");
    EXPECT_EQ(Steuer<QLabel>(f, "lblNeuStatus")->text().toStdString(), std::to_string(liste->count()));
    EXPECT_NE(Steuer<QLabel>(f, "lblAnzahl")->text().indexOf(" >>> "), -1);
    EXPECT_EQ(go->text(), "OK");
    EXPECT_FALSE(Steuer<QGroupBox>(f, "fraPrim")->isVisible());
    const int erste = liste->count();
    const PrimZeile m31 = PrimZeileLesen(31), m59 = PrimZeileLesen(59);
    DbSchliessen();
    EXPECT_EQ(m31.mersenne, 1);
    EXPECT_EQ(m59.mersenne, 0);
    EXPECT_EQ(m59.teilerPot, 1000);

    potenz->setText("2");
    Steuer<QCheckBox>(f, "chkGefunden")->setChecked(true);
    go->click();
    ui.beiDoEvents = nullptr;
    EXPECT_EQ(liste->count(), erste);
    EXPECT_EQ(liste->item(0)->text().toStdString(), breit + "23 teilt 2^11-1");
    EXPECT_EQ(Steuer<QLabel>(f, "lblNeuStatus")->text(), "0");
    EXPECT_TRUE(ui.meldungen.empty());
    TexteUngekuerzt(f);
}

}  // namespace
}  // namespace sw::test
