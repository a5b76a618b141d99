// The window of 2^p - 1: the arrows step over prime exponents and compute at once, the value
// and the line about p follow, and a bad or too large exponent is refused naming the field.
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "windows/Fensterregister.h"
#include "windows/frm2P_1.h"

namespace sw::test {
namespace {

class MersenneWertFenster : public GuiTest {};

TEST_F(MersenneWertFenster, PfeileRechnenUndFalscheEingabenWerdenBenannt) {
    ASSERT_TRUE(FensterOeffnen("frm2P_1", -1, nullptr));
    auto* f = Offen<frm2P_1>();
    ASSERT_NE(f, nullptr);
    auto* potenz = Steuer<QLineEdit>(f, "txtPotenz");
    auto* wert = Steuer<QPlainTextEdit>(f, "txtLong");
    auto* ergebnis = Steuer<QLabel>(f, "lblErgebnis");
    ASSERT_TRUE(potenz && wert && ergebnis);

    potenz->setText("11");
    Steuer<QPushButton>(f, "btnUp")->click();
    EXPECT_EQ(potenz->text(), "13");
    EXPECT_EQ(wert->toPlainText(), "8191");
    EXPECT_TRUE(ergebnis->text().startsWith(QString::fromStdString(TextP1(1440, "13"))));
    Steuer<QPushButton>(f, "btnDown")->click();
    EXPECT_EQ(wert->toPlainText(), "2047");
    EXPECT_TRUE(ergebnis->text().startsWith(QString::fromStdString(TextP1(1441, "11"))));

    for (const char* falsch : {"abc", "-3", "100.000.001"}) {
        ui.meldungen.clear();
        potenz->setText(falsch);
        Steuer<QPushButton>(f, "btnGO")->click();
        ASSERT_EQ(ui.meldungen.size(), 1u) << falsch;
        EXPECT_NE(ui.meldungen[0].text.find("Exponent p"), std::string::npos) << ui.meldungen[0].text;
        EXPECT_EQ(wert->toPlainText(), "2047");  // the value before stays
    }
}

}  // namespace
}  // namespace sw::test
