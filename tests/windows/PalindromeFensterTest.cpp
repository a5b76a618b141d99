// The palindrome window opened from its cockpit place: the digits it offers follow the number
// and the arrangement, the list says how each step was judged, taking back follows the
// arrangement set now, and the digits come back once a growth tree has run.
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>

#include "GuiTestUmgebung.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmPalindrome.h"

namespace sw::test {
namespace {

class PalindromeFenster : public GuiTest {};

QString frei(frmPalindrome* f) {
    QString s;
    for (int d = 1; d <= 9; ++d)
        if (Steuer<QPushButton>(f, "btnZahl", d)->isEnabled()) s += QString::number(d);
    return s;
}

TEST_F(PalindromeFenster, SpielUndBaum) {
    ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    ASSERT_STREQ(UntersuchungVon(33).fenster, "frmPalindrome");
    ASSERT_TRUE(FensterOeffnen(UntersuchungVon(33).fenster, -1, nullptr));
    auto* f = Offen<frmPalindrome>();
    ASSERT_NE(f, nullptr);
    f->show();
    TexteUngekuerzt(f);
    auto* liste = Steuer<QListWidget>(f, "List1");
    EXPECT_EQ(frei(f), "2357");

    Steuer<QRadioButton>(f, "optAnordnung", 1)->click();
    Steuer<QPushButton>(f, "btnZahl", 3)->click();
    EXPECT_EQ(frei(f), "124578");
    Steuer<QPushButton>(f, "btnZahl", 7)->click();
    EXPECT_EQ(f->Zahl(), "73");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(1)->text(), "73 Primär");

    // Taken back at the right end, though it came in at the left.
    Steuer<QRadioButton>(f, "optAnordnung", 0)->click();
    Steuer<QPushButton>(f, "btnWeg")->click();
    EXPECT_EQ(f->Zahl(), "7");
    EXPECT_EQ(Steuer<QLabel>(f, "lblEntfernt")->text(), "3");
    EXPECT_EQ(liste->count(), 1);
    Steuer<QPushButton>(f, "btnClear")->click();
    Steuer<QPushButton>(f, "btnWeg")->click();  // nothing to take
    EXPECT_EQ(f->Zahl(), "");
    EXPECT_EQ(liste->count(), 0);

    // Both ends, over the raster's reach: judged by BPSW, or one round when chosen.
    Steuer<QRadioButton>(f, "optAnordnung", 2)->click();
    for (int d : {2, 9, 3, 3}) Steuer<QPushButton>(f, "btnZahl", d)->click();
    EXPECT_EQ(f->Zahl(), "3392933");
    EXPECT_TRUE(liste->item(3)->text().endsWith(" BPSW")) << liste->item(3)->text().toStdString();
    EXPECT_TRUE(liste->item(1)->text().endsWith(" Primär"));
    EXPECT_EQ(frei(f), "7");  // 733929337, the largest of the tree
    Steuer<QCheckBox>(f, "chkMillerRabin")->click();
    EXPECT_EQ(f->PruefArt(), " Miller Rabin");

    Steuer<QPushButton>(f, "btnBaum")->click();
    auto* baum = Steuer<QListWidget>(f, "lstBaum");
    ASSERT_GT(baum->count(), 2);
    QString summe = baum->item(baum->count() - 1)->text();
    summe.remove(QRegularExpression("[^0-9]"));  // whatever the grouping
    EXPECT_EQ(summe, "27733929337");
    EXPECT_EQ(frei(f), "7");
}

}  // namespace
}  // namespace sw::test
