// The Collatz windows: the bar graphic draws the marks of each start in its colours, its
// tooltip names the bar under the mouse, navigation moves the start, "-" below 0 leaves empty
// bars, the table opens through the registry with the settings handed over, and the big start
// window shows both walks wrapped, 3n - 1 ending in its cycle.
#include <QCheckBox>
#include <QToolButton>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "GuiTestUmgebung.h"
#include "arith/basHyper.h"
#include "collatz/basCollatz.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmCollatzBig.h"
#include "windows/frmCollatzGrafExtrem.h"

namespace sw::test {
namespace {

class CollatzFenster : public GuiTest {};

int iconIndex(QWidget* f, const char* tag) {
    for (int i = 0;; ++i) {
        auto* knopf = Steuer<QToolButton>(f, "btnIcon", i);
        if (!knopf) return -1;
        if (knopf->property("tag").toString() == tag) return i;
    }
}

TEST_F(CollatzFenster, BalkenTooltipNavigationUndTabelle) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzGrafExtrem", -1, nullptr));
    auto* f = Offen<frmCollatzGrafExtrem>();
    ASSERT_NE(f, nullptr);
    f->resize(800, 600);
    auto* von = Steuer<QLineEdit>(f, "txtVon");
    auto* bild = Steuer<Bild>(f, "picAnzeige");
    ASSERT_TRUE(von && bild);
    von->setText("27");
    Steuer<QLineEdit>(f, "txtBalkenBreite")->setText("3");
    Steuer<QLineEdit>(f, "txtSkala")->setText("");
    Steuer<QPushButton>(f, "btnGO")->click();

    // 27 has the longest bar of 27..: its 111 marks fill the height, the first a "!" at the foot.
    const QImage& img = bild->Abbild();
    const QColor bang = FarbeQt(HintergrundFarbe(Steuer<QLabel>(f, "lblCol", 1)));
    const QColor punkt = FarbeQt(HintergrundFarbe(Steuer<QLabel>(f, "lblCol", 2)));
    const int fuss = img.height() - 3;
    EXPECT_EQ(img.pixelColor(6, fuss), bang);
    int farbig = 0;
    for (int y = 0; y < img.height(); ++y) farbig += img.pixelColor(6, y) == bang || img.pixelColor(6, y) == punkt;
    const int mass = (img.height() - 2) / 111;
    EXPECT_EQ(farbig, 111 * mass);
    // 28 = 4 * 7: two halvings first, so its bar starts with "." cells.
    EXPECT_EQ(img.pixelColor(11, fuss), punkt);

    EXPECT_EQ(f->BalkenText(6).substr(0, 16), "27 ---> 111.41 =");
    EXPECT_EQ(f->BalkenText(11).substr(0, 8), "28 ---> ");
    EXPECT_EQ(f->BalkenText(2), "");

    f->Navigieren(3);
    EXPECT_EQ(von->text(), "28");
    f->Navigieren(0);
    EXPECT_EQ(von->text(), "1");

    // Downwards from 2: the bars of 1 and 0 and below are empty, without an error.
    von->setText("2");
    Steuer<QPushButton>(f, "lblPlusMinus")->click();
    Steuer<QPushButton>(f, "btnGO")->click();
    EXPECT_TRUE(ui.meldungen.empty());
    EXPECT_EQ(bild->Abbild().pixelColor(11, fuss), bild->Hintergrund());

    // The toolbar's photo saves the bars as PNG.
    const QString bildDatei = QString::fromStdString(Ordner()) + "balken.png";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(bildDatei); };
    f->IconAktion(iconIndex(f, "Foto"));
    EXPECT_EQ(QImage(bildDatei).size(), bild->Abbild().size());

    // The table gets the settings of this window through the shared state.
    bool geoeffnet = false;
    FensterAnmelden("frmCollatzTab", [&](int, QWidget*) { geoeffnet = true; });
    von->setText(QString::fromStdString(FormelWort() + " 10^20"));
    Steuer<QRadioButton>(f, "optCollatz", 3)->setChecked(true);
    Steuer<QLineEdit>(f, "txtReduktion")->setText("2");
    Steuer<QPushButton>(f, "btnTabelle")->click();
    EXPECT_TRUE(geoeffnet);
    EXPECT_EQ(CollatzVon.Text(), "100000000000000000000");
    EXPECT_EQ(CollatzBis.Text(), "100000000000000001000");
    EXPECT_EQ(CollatzSchritt, -1);
    EXPECT_EQ(CollatzVerfahren, 3);
    EXPECT_EQ(CollatzReduktion, 2);
}

TEST_F(CollatzFenster, GrosseStartwerteBeideSeiten) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzGrafExtrem", -1, nullptr));
    auto* g = Offen<frmCollatzGrafExtrem>();
    Steuer<QLineEdit>(g, "txtVon")->setText("7");
    Steuer<QPushButton>(g, "btnCollatzBig")->click();
    auto* f = Offen<frmCollatzBig>();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(Steuer<QLineEdit>(f, "txtPrim")->text(), "7");
    EXPECT_TRUE(CollatzBigStart.empty());

    auto* links = Steuer<QListWidget>(f, "List1");
    auto* rechts = Steuer<QListWidget>(f, "List4");
    Steuer<QCheckBox>(f, "chk3n_1")->setChecked(true);
    EXPECT_EQ(Steuer<QLabel>(f, "Label1")->text(), "Alternativ 3n - 1");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_GE(links->count(), 4);
    EXPECT_EQ(links->item(0)->text().left(11), "16 Elemente");
    EXPECT_TRUE(rechts->item(rechts->count() - 1)->text().endsWith("5...(Schleife)..."));

    // A start of 29 digits: every row fits the list, rows of values end at ";".
    Steuer<QLineEdit>(f, "txtPrim")->setText(QString::fromStdString(FormelWort() + " 3^60"));
    Steuer<QCheckBox>(f, "chk3n_1")->setChecked(false);
    Steuer<QPushButton>(f, "btnGO")->click();
    const QFontMetrics fm(links->font());
    int werteZeilen = 0;
    for (int i = 0; i < links->count(); ++i) {
        const QString z = links->item(i)->text();
        EXPECT_LE(fm.horizontalAdvance(z), links->viewport()->width()) << i;
        werteZeilen += z.endsWith(';');
    }
    EXPECT_GT(werteZeilen, 10);

    // The toolbar saves both lists; as CSV each row is one quoted record.
    const QString ziel = QString::fromStdString(Ordner()) + "folge.CSV";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(ziel); };
    f->IconAktion(iconIndex(f, "Save"));
    QFile datei(ziel);
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QStringList saetze = QString::fromUtf8(datei.readAll()).split('\n', Qt::SkipEmptyParts);
    EXPECT_EQ(saetze.size(), links->count() + 1 + rechts->count());
    EXPECT_EQ(saetze[0], "\"" + links->item(0)->text() + "\"");
    EXPECT_EQ(Steuer<QLabel>(f, "Label1")->text(), "Blöcke");
}

}  // namespace
}  // namespace sw::test
