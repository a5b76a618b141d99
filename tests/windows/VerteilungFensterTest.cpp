// The windows of the constellation count, the residue classes and the gaps from a start: opened
// from their cockpit places, they show what the counters give (primes and twins up to 10^6,
// above the raster too; the race mod 4 and its first lead change; the maximal gap after
// 31397), and refuse what they cannot answer with a box instead of a wrong count.
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmCount.h"
#include "windows/frmModuloBetrachtung.h"
#include "windows/frmPrimAbstandAb.h"

namespace sw::test {
namespace {

class VerteilungFenster : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
    template <typename T>
    T* Oeffnen(int index) {
        EXPECT_TRUE(FensterOeffnen(UntersuchungVon(index).fenster, -1, nullptr));
        return Offen<T>();
    }
};

TEST_F(VerteilungFenster, TupelZaehlen) {
    auto* f = Oeffnen<frmCount>(30);
    ASSERT_NE(f, nullptr);
    Steuer<QLineEdit>(f, "txtVon")->setText("1");
    Steuer<QLineEdit>(f, "txtBis")->setText("1.000.000");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_TRUE(f->Ergebnis().has_value()) << Meldungen();
    EXPECT_EQ(f->Ergebnis()->Gesamt()[TupelPrimzahlen], 78498u);
    EXPECT_EQ(f->Ergebnis()->Gesamt()[TupelZwillinge], 8169u);
    EXPECT_EQ(f->Ergebnis()->Dekaden().size(), 7u);
    EXPECT_GT(Steuer<QListWidget>(f, "List1")->count(), 15);

    // Above the raster: windows of the secondary sieve (primesieve: 36,249 primes, 1,746 twins).
    Steuer<QLineEdit>(f, "txtVon")->setText("1.000.000.000.000");
    Steuer<QLineEdit>(f, "txtBis")->setText("1.000.001.000.000");
    Steuer<QPushButton>(f, "btnGO")->click();
    EXPECT_EQ(f->Ergebnis()->Gesamt()[TupelPrimzahlen], 36249u);
    EXPECT_EQ(f->Ergebnis()->Gesamt()[TupelZwillinge], 1746u);

    // Beyond what the raster sieves exactly: a box, the last count left standing.
    Steuer<QLineEdit>(f, "txtBis")->setText("100.000.000.000.000.000.000");
    Steuer<QPushButton>(f, "btnGO")->click();
    EXPECT_NE(Meldungen().find(Text(2264).substr(0, 20)), std::string::npos) << Meldungen();
    EXPECT_EQ(f->Ergebnis()->Gesamt()[TupelPrimzahlen], 36249u);
}

TEST_F(VerteilungFenster, RestklassenRennen) {
    auto* f = Oeffnen<frmModuloBetrachtung>(10);
    ASSERT_NE(f, nullptr);
    Steuer<QLineEdit>(f, "txtVon")->setText("1");
    Steuer<QLineEdit>(f, "txtBis")->setText("1.000.000");
    Steuer<QLineEdit>(f, "txtModul")->setText("4");
    Steuer<QLineEdit>(f, "txtKlasseA")->setText("1");
    Steuer<QLineEdit>(f, "txtKlasseB")->setText("2");
    Steuer<QPushButton>(f, "btnGO")->click();
    EXPECT_EQ(f->Ergebnis(), nullptr);
    EXPECT_NE(Meldungen().find(Text(2261)), std::string::npos) << Meldungen();

    Steuer<QLineEdit>(f, "txtKlasseB")->setText("3");
    Steuer<QPushButton>(f, "btnGO")->click();
    ASSERT_NE(f->Ergebnis(), nullptr) << Meldungen();
    EXPECT_EQ(f->Ergebnis()->Anzahl(1), 39175u);
    EXPECT_EQ(f->Ergebnis()->Anzahl(3), 39322u);
    auto* wechsel = Steuer<QListWidget>(f, "lstWechsel");
    ASSERT_GT(wechsel->count(), 0);
    EXPECT_TRUE(wechsel->item(0)->text().startsWith("26.861")) << wechsel->item(0)->text().toStdString();
}

TEST_F(VerteilungFenster, LueckenAbStart) {
    auto* f = Oeffnen<frmPrimAbstandAb>(11);
    ASSERT_NE(f, nullptr);
    Steuer<QLineEdit>(f, "txtStart")->setText("31397");
    Steuer<QLineEdit>(f, "txtAnzahl")->setText("2");
    Steuer<QLineEdit>(f, "txtMin")->setText("0");
    Steuer<QPushButton>(f, "btnGO")->click();
    auto* liste = Steuer<QListWidget>(f, "List1");
    ASSERT_EQ(liste->count(), 2) << Meldungen();
    EXPECT_TRUE(liste->item(0)->text().startsWith("31.397")) << liste->item(0)->text().toStdString();
    EXPECT_TRUE(liste->item(0)->text().contains(" 72 ")) << liste->item(0)->text().toStdString();
    EXPECT_TRUE(liste->item(0)->font().bold());  // the first gap of a walk is its record so far
    EXPECT_FALSE(liste->item(1)->font().bold());
}

}  // namespace
}  // namespace sw::test
