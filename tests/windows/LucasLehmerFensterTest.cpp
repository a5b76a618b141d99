// The Lucas-Lehmer window: refusals of small and composite exponents, stepping from prime to
// prime, a run to its verdict and Res64, and a stop that hides every verdict and keeps a
// checkpoint from which the next start goes on.
#include <QAbstractSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <filesystem>

#include "GuiTestUmgebung.h"
#include "frame/basZentral.h"
#include "mersenne/LucasPruefpunkt.h"
#include "windows/frmLucasLehmer.h"

namespace sw::test {
namespace {

class LucasLehmerFenster : public GuiTest {};

TEST_F(LucasLehmerFenster, RefusesStepsTestsAndStops) {
    auto* f = new frmLucasLehmer();
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
    auto* potenz = Steuer<QLineEdit>(f, "txtPotenz");
    auto* go = Steuer<QPushButton>(f, "btnGO");
    ASSERT_TRUE(potenz && go);
    EXPECT_EQ(go->text(), "Start");

    potenz->setText("2");
    go->click();
    potenz->setText("4095");
    go->click();
    ASSERT_EQ(ui.meldungen.size(), 2u) << Meldungen();
    EXPECT_NE(ui.meldungen[0].text.find("mindestens 3"), std::string::npos);
    EXPECT_NE(ui.meldungen[1].text.find("Primzahl"), std::string::npos);
    EXPECT_EQ(go->text(), "START");

    potenz->setText("127");
    Steuer<QAbstractSpinBox>(f, "UpDown1")->stepUp();
    EXPECT_EQ(potenz->text(), "131");
    Steuer<QAbstractSpinBox>(f, "UpDown1")->stepDown();
    Steuer<QAbstractSpinBox>(f, "UpDown1")->stepDown();
    EXPECT_EQ(potenz->text(), "113");

    for (int methode = 0; methode < 4; ++methode) {
        potenz->setText("127");
        Steuer<QRadioButton>(f, "optMethode", methode)->setChecked(true);
        go->click();
        EXPECT_TRUE(Steuer<QGroupBox>(f, "fraPrim", 0)->isVisible()) << methode;
        EXPECT_FALSE(Steuer<QGroupBox>(f, "fraPrim", 1)->isVisible());
        EXPECT_FALSE(Steuer<QGroupBox>(f, "fraPrim", 2)->isVisible());
        EXPECT_EQ(Steuer<QLabel>(f, "lblRes64")->text(), "Res64: 0000000000000000");
    }
    potenz->setText("4421");
    go->click();
    EXPECT_TRUE(Steuer<QGroupBox>(f, "fraPrim", 1)->isVisible());
    EXPECT_EQ(Steuer<QLabel>(f, "lblRes64")->text(), "Res64: 436652647E1E860B");

    // Stop at the first yield: no verdict shows, the state is kept, and the next start goes on.
    ui.beiDoEvents = [] { Abbruch = true; };
    go->click();
    ui.beiDoEvents = nullptr;
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(Steuer<QGroupBox>(f, "fraPrim", i)->isVisible()) << i;
    EXPECT_TRUE(std::filesystem::exists(LucasPruefpunktDatei(4421)));
    EXPECT_EQ(go->text(), "START");
    go->click();
    EXPECT_TRUE(Steuer<QGroupBox>(f, "fraPrim", 1)->isVisible());
    EXPECT_EQ(Steuer<QLabel>(f, "lblRes64")->text(), "Res64: 436652647E1E860B");
    EXPECT_FALSE(std::filesystem::exists(LucasPruefpunktDatei(4421)));
    TexteUngekuerzt(f);
}

}  // namespace
}  // namespace sw::test
