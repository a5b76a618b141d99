// The factor windows on the desktop: frmFaktor from the cockpit's table builds its list around
// the start value, steps by its buttons and refuses what the raster cannot answer (x div 0
// included) with a message; frmFaktorAnzeige factors a formula completely and marks what is
// proved; the list window hands its selected number over.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmFaktor.h"
#include "windows/frmFaktorAnzeige.h"

namespace sw::test {
namespace {

class FaktorFensterTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
    void Klick(const QString& name, int index = -1) {
        QPushButton* b = Suche<QPushButton>(name, index);
        ASSERT_NE(b, nullptr);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    bool Gemeldet(const std::string& teil) const {
        for (const auto& m : ui.meldungen) {
            if (m.text.find(teil) != std::string::npos) return true;
        }
        return false;
    }
};

TEST_F(FaktorFensterTest, ListeSchritteUndAblehnungen) {
    ASSERT_STREQ(UntersuchungVon(5).fenster, "frmFaktor");
    ASSERT_TRUE(FensterOeffnen("frmFaktor", UntersuchungVon(5).modus, nullptr));
    auto* start = Suche<QLineEdit>("txtStart");
    auto* liste = Suche<QListWidget>("List1");
    ASSERT_TRUE(start && liste);
    start->setText("84");
    Suche<QLineEdit>("txtStep")->setText("1");
    Suche<QLineEdit>("txtPlusMinus")->setText("2");
    Klick("btnGo");
    ASSERT_EQ(liste->count(), 5) << Meldungen();
    EXPECT_EQ(liste->currentItem()->text().toStdString(), "84 >>> 2x2x3x7");
    EXPECT_EQ(liste->item(1)->text().toStdString(), "83 >>> Primzahl");

    Suche<QLineEdit>("txtDiff", 0)->setText("16");
    Klick("btnNext", 0);
    EXPECT_EQ(start->text().toStdString(), "100");
    EXPECT_EQ(liste->currentItem()->text().toStdString(), "100 >>> 2x2x5x5");

    // x div 0: a message, the window stays as it was.
    Suche<QLineEdit>("txtDiff", 3)->setText("0");
    Klick("btnNext", 3);
    EXPECT_TRUE(Gemeldet(Text(1252))) << Meldungen();
    EXPECT_EQ(start->text().toStdString(), "100");

    // Beyond the raster: key 475 with the limit.
    start->setText("2.000.000");
    Klick("btnGo");
    EXPECT_TRUE(Gemeldet(TextP1(475, "1.000.000"))) << Meldungen();

    // The selected number goes to the complete factorisation.
    start->setText("999.999");
    Klick("btnGo");
    Klick("btnZerlegen");
    QApplication::processEvents();
    auto* anzeige = Offen<frmFaktorAnzeige>();
    ASSERT_NE(anzeige, nullptr);
    EXPECT_FALSE(anzeige->Laeuft());
    EXPECT_EQ(Steuer<QListWidget>(anzeige, "List1")->count(), 6) << Meldungen();  // the number and 3^3 7 11 13 37
}

TEST_F(FaktorFensterTest, AnzeigeZerlegtEineFormel) {
    ASSERT_TRUE(FensterOeffnen("frmFaktorAnzeige", -1, nullptr));
    Suche<QLineEdit>("txtZahl")->setText("2^64+1");
    Klick("btnGo");
    auto* liste = Suche<QListWidget>("List1");
    ASSERT_EQ(liste->count(), 3) << Meldungen();
    EXPECT_TRUE(liste->item(1)->text().startsWith("274.177")) << liste->item(1)->text().toStdString();
    EXPECT_TRUE(liste->item(2)->text().contains("bewiesen"));
    EXPECT_TRUE(Suche<QLabel>("lblStatus")->text().contains("bewiesen"));
    EXPECT_EQ(Suche<QPushButton>("btnGo")->text(), "Zerlegen");

    // A formula that cannot be evaluated: its message, no list, the button at rest.
    Suche<QLineEdit>("txtZahl")->setText("1/0");
    Klick("btnGo");
    EXPECT_FALSE(ui.meldungen.empty());
    EXPECT_EQ(Suche<QPushButton>("btnGo")->text(), "Zerlegen");
}

// The start button stops a running job at its next yield; what was found stays, the rest is
// listed as composite.
TEST_F(FaktorFensterTest, StoppBehaeltGefundenes) {
    ASSERT_TRUE(FensterOeffnen("frmFaktorAnzeige", -1, nullptr));
    static frmFaktorAnzeige* fenster;
    fenster = Offen<frmFaktorAnzeige>();
    ASSERT_NE(fenster, nullptr);
    Suche<QLineEdit>("txtZahl")->setText("1000003*(2^64+1)");
    ui.beiDoEvents = [] {
        if (fenster->Laeuft()) fenster->StartStop();  // the click that arrives through the yield
    };
    Klick("btnGo");
    ui.beiDoEvents = nullptr;
    auto* liste = Suche<QListWidget>("List1");
    EXPECT_FALSE(fenster->Laeuft());
    ASSERT_GE(liste->count(), 2) << Meldungen();
    EXPECT_TRUE(liste->item(liste->count() - 1)->text().contains("zusammengesetzt"));
    EXPECT_TRUE(Suche<QLabel>("lblStatus")->text().startsWith("Angehalten"));
}

}  // namespace
}  // namespace sw::test
