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
#include <QMouseEvent>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "GuiTestUmgebung.h"
#include "arith/basHyper.h"
#include "collatz/basCollatz.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/ListenMenue.h"
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

// Whatever is typed into the bar graphic's fields draws or gets a German box, never a crash
// or a bar arithmetic that overflows; the big start window likewise.
TEST_F(CollatzFenster, FalscheEingabenZeichnenOderMelden) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzGrafExtrem", -1, nullptr));
    auto* f = Offen<frmCollatzGrafExtrem>();
    ASSERT_NE(f, nullptr);
    f->resize(800, 600);
    const char* const felder[] = {"txtVon", "txtPlus", "txtBalkenBreite", "txtSkala", "txtSkalaMax", "txtReduktion"};
    const char* const texte[] = {"abc", "-7", "", "Formel: 10^10^10", "Formel: 10^(10^10)", "2147483647", "99999999999999999999", "5,-3,x"};
    for (const char* feld : felder) {
        auto* t = Steuer<QLineEdit>(f, feld);
        ASSERT_NE(t, nullptr) << feld;
        const QString vorher = t->text();
        for (const char* text : texte) {
            ui.meldungen.clear();
            t->setText(text);
            Steuer<QPushButton>(f, "btnGO")->click();
            for (const auto& m : ui.meldungen) EXPECT_EQ(m.titel.rfind("SW - ", 0), 0u) << feld << " " << text << Meldungen();
            // Only the formula beyond all memory may refuse: everything else draws.
            if (std::string(text) != "Formel: 10^(10^10)" || std::string(feld) != "txtVon") {
                EXPECT_TRUE(ui.meldungen.empty()) << feld << " " << text << Meldungen();
            } else {
                EXPECT_EQ(ui.meldungen.size(), 1u);
            }
            EXPECT_EQ(Steuer<QPushButton>(f, "btnGO")->text(), "Zeichnen");
        }
        t->setText(vorher);
    }

    ASSERT_TRUE(FensterOeffnen("frmCollatzBig", -1, nullptr));
    auto* big = Offen<frmCollatzBig>();
    ASSERT_NE(big, nullptr);
    for (const char* feld : {"txtPrim", "txtReduktion"}) {
        for (const char* text : texte) {
            ui.meldungen.clear();
            Steuer<QLineEdit>(big, feld)->setText(text);
            Steuer<QPushButton>(big, "btnGO")->click();
            for (const auto& m : ui.meldungen) EXPECT_EQ(m.titel.rfind("SW - ", 0), 0u) << feld << " " << text << Meldungen();
            EXPECT_GT(Steuer<QListWidget>(big, "List1")->count() + int(ui.meldungen.size()), 0) << feld << " " << text;
        }
        Steuer<QLineEdit>(big, feld)->setText("27");
    }
}

QPushButton* stopKnopf = nullptr;

// A colour label opens the colour dialog and the picture takes the new colour; a drawing of
// starts with thousands of digits stops at the click on btnGO (caption "Stop" meanwhile) and
// leaves the bars it did not reach empty.
TEST_F(CollatzFenster, FarbwahlUndStopp) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzGrafExtrem", -1, nullptr));
    auto* f = Offen<frmCollatzGrafExtrem>();
    ASSERT_NE(f, nullptr);
    f->resize(800, 600);
    auto* bild = Steuer<Bild>(f, "picAnzeige");
    auto* hinten = Steuer<QLabel>(f, "lblCol", 0);
    FarbDialogHook = [](const QColor&) { return std::optional<QColor>(QColor(10, 200, 30)); };
    QMouseEvent klick(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(hinten, &klick);
    FarbDialogHook = nullptr;
    EXPECT_EQ(FarbeQt(HintergrundFarbe(hinten)), QColor(10, 200, 30));
    const QImage& img = bild->Abbild();
    EXPECT_EQ(img.pixelColor(img.width() - 2, 1), QColor(10, 200, 30));

    Steuer<QLineEdit>(f, "txtVon")->setText("Formel: 7^5000");
    Steuer<QLineEdit>(f, "txtBalkenBreite")->setText("1");
    auto* go = Steuer<QPushButton>(f, "btnGO");
    stopKnopf = go;
    // The click comes at a later turn, when the first bars are walked.
    ui.beiDoEvents = [] {
        static int runde = 0;
        EXPECT_EQ(stopKnopf->text(), "Stop");
        if (++runde == 20) stopKnopf->click();
    };
    go->click();
    ui.beiDoEvents = nullptr;
    EXPECT_GT(ui.doEvents, 0);
    EXPECT_EQ(go->text(), "Zeichnen");
    EXPECT_FALSE(f->Laeuft());
    // The first bar was walked at least in part; the last one stayed background.
    const QImage& nachher = bild->Abbild();
    const QColor grund = FarbeQt(HintergrundFarbe(hinten));
    EXPECT_NE(nachher.pixelColor(5, nachher.height() - 3), grund);
    EXPECT_EQ(nachher.pixelColor(nachher.width() - 20, nachher.height() - 3), grund);
}

// A list of 32,500 rows or more refuses its context menu with a message that says why and
// how to get the rows out instead.
TEST_F(CollatzFenster, LangeListeOhneKontextmenue) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzBig", -1, nullptr));
    auto* liste = Steuer<QListWidget>(Offen<frmCollatzBig>(), "List1");
    ASSERT_NE(liste, nullptr);
    QStringList zeilen;
    for (int i = liste->count(); i < kAnzeigeGrenze; ++i) zeilen << QString::number(i);
    liste->addItems(zeilen);
    ui.meldungen.clear();
    EXPECT_FALSE(ListenMenueZeigen(liste, QPoint(1, 1)));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("Anzeigevolumen zu groß"), std::string::npos);
    EXPECT_NE(ui.meldungen[0].text.find("32500"), std::string::npos);
}

}  // namespace
}  // namespace sw::test
