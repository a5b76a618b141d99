// The family window: rows as the counts of the members, the end of a family and the full list
// each with a box while the rows stay, and a double click that shows the member's digits and
// mark string in frmCollatzAnzeige.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "windows/Fensterregister.h"
#include "windows/frmCollatzAnzeige.h"
#include "windows/frmCollatzFolgen.h"

namespace sw::test {
namespace {

class CollatzFolgenFenster : public GuiTest {};

int yields = 0;
// Stops the run after a few members (two yields per member).
void nachZehnYieldsStoppen() {
    if (++yields >= 10) Abbruch = true;
}

frmCollatzFolgen* oeffnen(int familie, const QString& start, const QString& schritt = "1") {
    EXPECT_TRUE(FensterOeffnen("frmCollatzFolgen", -1, nullptr));
    frmCollatzFolgen* f = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* t = dynamic_cast<frmCollatzFolgen*>(w)) f = t;
    Steuer<QRadioButton>(f, "optOperation", familie)->click();
    Steuer<QLineEdit>(f, "txtStart")->setText(start);
    Steuer<QLineEdit>(f, "txtStep")->setText(schritt);
    return f;
}

TEST_F(CollatzFolgenFenster, ZeilenUndDasGliedImGanzen) {
    frmCollatzFolgen* f = oeffnen(0, "10");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtFormel")->text(), "n!");
    yields = 0;
    ui.beiDoEvents = nachZehnYieldsStoppen;
    Steuer<QPushButton>(f, "btnGO")->click();
    ui.beiDoEvents = nullptr;
    auto* liste = Steuer<QListWidget>(f, "List1");
    ASSERT_GE(liste->count(), 4) << Meldungen();
    EXPECT_EQ(liste->item(0)->text().toStdString(), Text(561));
    EXPECT_EQ(liste->item(1)->text(), "10! ; 66.17");
    EXPECT_EQ(liste->item(2)->text(), "11! ; 147.47");
    EXPECT_EQ(Steuer<QPushButton>(f, "btnGO")->text(), "Start");

    f->ZeileZeigen(liste->item(1));
    auto* a = Offen<frmCollatzAnzeige>();
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->GanzerText().section('\n', 0, 0), "10! = 3628800");
    EXPECT_TRUE(a->GanzerText().section('\n', 1).startsWith("10! = 3.628.800 ---> 66.17 = ")) << a->GanzerText().toStdString();
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(CollatzFolgenFenster, EndeDerFamilieUndVolleListeMitMeldung) {
    // The last prime below 2^31 gets its row, then the family ends with a box.
    frmCollatzFolgen* f = oeffnen(5, "2147483640");
    Steuer<QPushButton>(f, "btnGO")->click();
    auto* liste = Steuer<QListWidget>(f, "List1");
    ASSERT_EQ(liste->count(), 2) << Meldungen();
    EXPECT_EQ(liste->item(1)->text(), "Prim 2147483647 ; 450.162");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("2.147.483.647"), std::string::npos) << Meldungen();
    EXPECT_EQ(Steuer<QPushButton>(f, "btnGO")->text(), "Start");

    // Step 0 repeats one row until the list is full, and a box says so.
    ui.meldungen.clear();
    f = oeffnen(1, "27", "0");
    Steuer<QComboBox>(f, "cmbOperator")->setCurrentIndex(1);
    Steuer<QLineEdit>(f, "txtOffset")->setText("30");
    Steuer<QPushButton>(f, "btnGO")->click();
    liste = Steuer<QListWidget>(f, "List1");
    EXPECT_EQ(liste->count(), FamilienZeilenGrenze);
    EXPECT_EQ(liste->item(FamilienZeilenGrenze - 1)->text().toStdString(), "27-30 ; " + Text(2080));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, TextP1(2086, "27"));
}

}  // namespace
}  // namespace sw::test
