// The step-count graphic on screen: it opens from the registry and draws at once, each column
// stands at the line of its step count, the hover names 27 and 871 with their percentages and
// leaves no marker behind, the arrow keys move it, a start beyond 2^59 or no number gets its
// box, and the picture and the columns go to PNG and CSV files.
#include <QCheckBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmCollatzGRF.h"

namespace sw::test {
namespace {

class CollatzGrafikFenster : public GuiTest {};

int iconIndex(QWidget* f, const char* tag) {
    for (int i = 0;; ++i) {
        auto* knopf = Steuer<QToolButton>(f, "btnIcon", i);
        if (!knopf) return -1;
        if (knopf->property("tag").toString() == tag) return i;
    }
}

TEST_F(CollatzGrafikFenster, SpaltenHoverUndDateien) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzGRF", -1, nullptr));
    auto* f = Offen<frmCollatzGRF>();
    ASSERT_NE(f, nullptr);
    f->resize(900, 600);
    QApplication::processEvents();  // the first activation draws
    EXPECT_TRUE(f->Grafik().Flag);
    auto* bild = Steuer<Bild>(f, "picAnzeige");
    auto* prozent = Steuer<QLabel>(f, "lblProzent");
    Steuer<QLineEdit>(f, "txtVon")->setText("1");
    Steuer<QLineEdit>(f, "txtZahlenBreite")->setText("2");
    Steuer<QLineEdit>(f, "txtLinienHöhe")->setText("2");
    Steuer<QLineEdit>(f, "txtLinienAbstand")->setText("1");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_TRUE(ui.meldungen.empty()) << Meldungen();

    const CollatzGrafik& g = f->Grafik();
    const QImage& img = bild->Abbild();
    const QColor saeule = FarbeQt(HintergrundFarbe(Steuer<QLabel>(f, "lblCol", 1)));
    const int h = img.height();
    // 27 (column 26) at the line of 111; the start 1 has 0 steps, below 5: never drawn.
    EXPECT_EQ(img.pixelColor(52, NormalZeile(g, 111, h)), saeule);
    EXPECT_EQ(img.pixelColor(53, NormalZeile(g, 111, h) + 1), saeule);
    for (int y = 0; y < h; ++y) ASSERT_NE(img.pixelColor(0, y), saeule) << y;

    f->Hover(53);
    EXPECT_EQ(prozent->text(), "83.41334 %");
    EXPECT_NE(bild->Abbild().pixelColor(53, h - 1), bild->Hintergrund()) << "the marker";
    // 871 from a start of 800 (column 71): the hover goes there and the old marker goes.
    Steuer<QLineEdit>(f, "txtVon")->setText("800");
    Steuer<QPushButton>(f, "btnGO")->click();
    f->Hover(53);
    f->Hover(71 * 2);
    EXPECT_EQ(prozent->text(), "86.39930 %");
    EXPECT_EQ(bild->Abbild().pixelColor(53, h - 1), bild->Hintergrund()) << "the old marker is gone";
    f->Hover(int(g.Werte.size()) * 2 + 5);
    EXPECT_EQ(prozent->text(), "86.39930 %") << "past the last column nothing changes";

    // The arrow keys move the hover by txtMouseDiff columns: from 871 to 881.
    Steuer<QLineEdit>(f, "txtMouseDiff")->setText("10");
    QTest::keyClick(f, Qt::Key_Right);
    const auto erwartet = GrafikHoverText(g, 81 * 2, false);
    ASSERT_TRUE(erwartet);
    EXPECT_EQ(erwartet->text.substr(0, 4), "881 ");
    EXPECT_EQ(prozent->text().toStdString(), erwartet->prozent);

    // The photo saves the drawing without the hover; the list goes out as CSV.
    const QString png = QString::fromStdString(Ordner()) + "schritte.png";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(png); };
    f->IconAktion(iconIndex(f, "Foto"));
    const QImage gespeichert(png);
    ASSERT_EQ(gespeichert.size(), img.size());
    EXPECT_EQ(gespeichert.pixelColor(81 * 2 + 1, h - 1), bild->Hintergrund());
    const GrafikLinien linien = NormalLinien(g, h, QFontMetrics(bild->font()).height() + 7);
    int gezeichnet = 0;
    for (size_t i = 0; i < g.Werte.size(); ++i) {
        const int32_t v = g.Werte[i];
        // The last index may lie just right of the picture (indices 0 to width div column).
        if (v < linien.erste || v > linien.letzte || int(i) * 2 >= gespeichert.width()) continue;
        ASSERT_EQ(gespeichert.pixelColor(int(i) * 2, NormalZeile(g, v, h)), saeule) << i;
        ++gezeichnet;
    }
    EXPECT_GT(gezeichnet, 100);
    const QString csv = QString::fromStdString(Ordner()) + "schritte.CSV";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(csv); };
    f->IconAktion(iconIndex(f, "Save"));
    QFile datei(csv);
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QStringList saetze = QString::fromUtf8(datei.readAll()).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(saetze.size(), int(g.Werte.size()) + 1);
    EXPECT_EQ(saetze[72], "871;178");
}

TEST_F(CollatzGrafikFenster, StartwerteAusserhalbMelden) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzGRF", -1, nullptr));
    auto* f = Offen<frmCollatzGRF>();
    ASSERT_NE(f, nullptr);
    QApplication::processEvents();
    auto* von = Steuer<QLineEdit>(f, "txtVon");
    const auto versuchen = [&](const char* text) {
        ui.meldungen.clear();
        von->setText(text);
        Steuer<QPushButton>(f, "btnGO")->click();
    };
    versuchen("576460752303423489");  // 2^59 + 1
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(453));
    versuchen("Formel: 2^59");
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
    EXPECT_EQ(f->Grafik().Werte.front(), 59);
    versuchen("zwölf");
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("keine Zahl"), std::string::npos) << Meldungen();
    EXPECT_EQ(f->Grafik().Werte.front(), 59) << "a refused start keeps the picture";

    // With the limit lifted the same start draws, and navigation never goes below 1.
    Steuer<QCheckBox>(f, "chkOhneGrenze")->setChecked(true);
    versuchen("576460752303423489");
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
    von->setText("3");
    Steuer<QLineEdit>(f, "txtNav")->setText("1000");
    Steuer<QPushButton>(f, "btnGO")->click();
    Steuer<QToolButton>(f, "imgNavi", 0)->customContextMenuRequested(QPoint());
    EXPECT_EQ(von->text(), "1");
    Steuer<QToolButton>(f, "imgNavi", 0)->click();
    EXPECT_EQ(von->text().toStdString(), ZiffernGruppieren("1001"));
}

}  // namespace
}  // namespace sw::test
