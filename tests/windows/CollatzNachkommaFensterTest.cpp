// The two windows of the fractional multiplier as a user drives them: the walk and its rows
// no wider than the list, the clamped arrows, the list cleared at its limit with a note, bad
// text in y; the search with y = 3 lists what the extreme search lists for 3n+1, and a y that
// is no multiplier is replaced with a message instead of a silently other tree.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "GuiTestUmgebung.h"
#include "collatz/basCollatz.h"
#include "frame/Texte.h"
#include "windows/Fensterregister.h"
#include "windows/frmCollatzNachkomma.h"
#include "windows/frmCollatzNachkommaSuche.h"
#include "windows/frmExtremSuche.h"

namespace sw::test {
namespace {

using CollatzNachkommaFenster = GuiTest;

QStringList zeilen(QListWidget* l) {
    QStringList z;
    for (int i = 0; i < l->count(); ++i) z << l->item(i)->text();
    return z;
}

TEST_F(CollatzNachkommaFenster, FolgePfeileUndListe) {
    ASSERT_TRUE(FensterOeffnen("frmCollatzNachkomma", -1, nullptr));
    auto* f = Offen<frmCollatzNachkomma>();
    ASSERT_NE(f, nullptr);
    auto* start = Steuer<QLineEdit>(f, "txtStart");
    auto* y = Steuer<QLineEdit>(f, "txtY");
    auto* diff = Steuer<QLineEdit>(f, "txtYDiff");
    auto* liste = Steuer<QListWidget>(f, "List1");
    start->setText("7");
    y->setText("3");
    Steuer<QPushButton>(f, "btnGO")->click();
    EXPECT_EQ(zeilen(liste).join(" "), "3,0000000000 7; 11; 17; 13; 5; 1");
    // The arrows: y to the end of the band and no further, each time with a new walk.
    y->setText("3,32");
    diff->setText("0.05");
    f->YSchritt(1);
    EXPECT_EQ(y->text(), "3,3300000000");
    f->YSchritt(1);
    EXPECT_EQ(y->text(), "3,3300000000");
    EXPECT_TRUE(zeilen(liste).last().endsWith("; 19; 1")) << zeilen(liste).join("|").toStdString();
    start->setText("1");
    f->StartSchritt(-1);
    EXPECT_EQ(start->text(), "1");
    f->StartSchritt(1);
    EXPECT_EQ(start->text(), "3");

    // A walk of 4317 large values: asked four times whether to go on, every row within the
    // width of the list unless a single value is wider, nothing lost between the rows.
    liste->clear();
    for (int i = 0; i < 4; ++i) ui.antworten.push_back(AntwortJa);
    start->setText("2^1000-1");
    y->setText("3");
    Steuer<QPushButton>(f, "btnGO")->click();
    EXPECT_EQ(FolgenListe.size(), 4317u);
    const QFontMetrics fm(liste->font());
    const int breite = liste->viewport()->width() / std::max(1, fm.horizontalAdvance(QChar('5')));
    QString alles;
    for (const QString& z : zeilen(liste)) {
        EXPECT_TRUE(z.size() <= breite || !z.contains(';') || z.count(';') == 1) << z.size() << " " << breite;
        alles += (alles.isEmpty() ? "" : " ") + z;
    }
    EXPECT_EQ(alles.count(';'), 4316);
    EXPECT_TRUE(alles.endsWith("; 2; 1") || alles.endsWith("; 1")) << alles.right(40).toStdString();

    // The list is emptied before a walk once it has 20,001 rows, and says why.
    liste->clear();
    for (int i = 0; i < 20001; ++i) liste->addItem("x");
    start->setText("7");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(0)->text().toStdString(), Text(2035));

    // Text that is no multiplier or no step: a message, and y is the standard again.
    ui.meldungen.clear();
    y->setText("3x");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(y->text(), "3,0000000000");
    diff->setText("viel");
    ui.meldungen.clear();
    f->YSchritt(-1);
    ASSERT_EQ(ui.meldungen.size(), 1u) << Meldungen();
    EXPECT_NE(ui.meldungen[0].text.find("viel"), std::string::npos);
    ui.meldungen.clear();
    start->setText("0");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    f->close();
}

TEST_F(CollatzNachkommaFenster, SucheGleichExtremsuche) {
    CollatzVerfahren = 0;
    ASSERT_TRUE(FensterOeffnen("frmExtremSuche", -1, nullptr));
    ASSERT_TRUE(FensterOeffnen("frmCollatzNachkommaSuche", -1, nullptr));
    auto* extrem = Offen<frmExtremSuche>();
    auto* komma = Offen<frmCollatzNachkommaSuche>();
    ASSERT_TRUE(extrem && komma);
    QStringList listen[2];
    int i = 0;
    for (Fenster* f : {static_cast<Fenster*>(extrem), static_cast<Fenster*>(komma)}) {
        Steuer<QLineEdit>(f, "txtI")->setText("10");
        Steuer<QLineEdit>(f, "txtM")->setText("");
        Steuer<QLineEdit>(f, "txtVon")->setText("1");
        Steuer<QLineEdit>(f, "txtBis")->setText("100000");
        Steuer<QPushButton>(f, "btnGO")->click();
        listen[i++] = zeilen(Steuer<QListWidget>(f, Steuer<QListWidget>(f, "List1")->isVisible() ? "List1" : "List2"));
    }
    listen[0].sort();
    listen[1].sort();
    EXPECT_EQ(listen[0].size(), 6);
    EXPECT_EQ(listen[0], listen[1]);

    // y of two integer digits is no multiplier of this rule: replaced, with a message.
    auto* y = Steuer<QLineEdit>(komma, "txtY");
    y->setText("12");
    ui.meldungen.clear();
    Steuer<QPushButton>(komma, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, TextP1(2032, "12"));
    EXPECT_EQ(y->text(), "3,0000000000");
    // Below 1 the tree has no single odd branch: refused, the button at rest.
    y->setText("0,5");
    ui.meldungen.clear();
    Steuer<QPushButton>(komma, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("kleiner als 1"), std::string::npos) << Meldungen();
    EXPECT_FALSE(komma->Laeuft());
    EXPECT_EQ(Steuer<QPushButton>(komma, "btnGO")->text().toStdString(), Text(570));
}

}  // namespace
}  // namespace sw::test
