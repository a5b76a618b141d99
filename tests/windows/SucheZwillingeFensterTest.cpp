// The twin window: each method lists the pairs of a short run and ends with the count, the
// test options follow the method, bad input in either field is refused with a message naming
// it, btnErwartung fills in a length, and the toolbar's list is the window's list.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "GuiTestUmgebung.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmSucheZwillinge.h"

namespace sw::test {
namespace {

// Every case runs over a primary raster to 100,000 in a freshly opened window.
class SucheZwillingeFenster : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(100000), MethodeProdukt));
        ASSERT_TRUE(FensterOeffnen("frmSucheZwillinge", -1, nullptr));
        f = Offen<frmSucheZwillinge>();
        ASSERT_NE(f, nullptr);
        start = Steuer<QLineEdit>(f, "txtStart");
        intervall = Steuer<QLineEdit>(f, "txtIntervall");
        go = Steuer<QPushButton>(f, "btnGO");
        liste = Steuer<QListWidget>(f, "List1");
        ASSERT_TRUE(start && intervall && go && liste);
    }
    void Klick(QWidget* w) { QTest::mouseClick(w, Qt::LeftButton); }
    QStringList Zeilen(QListWidget* l) {
        QStringList z;
        for (int i = 0; i < l->count(); ++i) z << l->item(i)->text();
        return z;
    }
    frmSucheZwillinge* f = nullptr;
    QLineEdit* start = nullptr;
    QLineEdit* intervall = nullptr;
    QPushButton* go = nullptr;
    QListWidget* liste = nullptr;
};

TEST_F(SucheZwillingeFenster, JedesVerfahrenListetPaare) {
    EXPECT_EQ(go->text(), "Start");

    const QString ende = QString::fromStdString(TextP1(1343, "4"));
    struct Fall {
        int verfahren;
        const char* start;
        QStringList soll;
    };
    const Fall faelle[] = {
        {0, "1", {"3  ---  5", "5  ---  7", "11  ---  13", "17  ---  19", ende}},
        {1, "1", {"3  ---  5", "5  ---  7", "11  ---  13", "17  ---  19", ende}},
        {2, "10^6", {"1.000.037  ---  1.000.039", "1.000.211  ---  1.000.213", "1.000.289  ---  1.000.291",
                     "1.000.427  ---  1.000.429", ende}},
        {3, "10^6", {"...37  ---  ...39", "...211  ---  ...213", "...289  ---  ...291", "...427  ---  ...429", ende}},
    };
    for (const Fall& fall : faelle) {
        Steuer<QRadioButton>(f, "optVerfahren", fall.verfahren)->click();
        for (int a = 0; a < ZwillingeArtenAnzahl; ++a) {
            EXPECT_EQ(Steuer<QRadioButton>(f, "optArt", a)->isEnabled(), fall.verfahren == 3);
        }
        start->setText(fall.start);
        intervall->setText(fall.verfahren >= 2 ? "430" : "19");
        Klick(go);
        EXPECT_EQ(Zeilen(liste), fall.soll) << "method " << fall.verfahren << Meldungen();
        EXPECT_EQ(go->text(), "Start");
    }
    // The count labels belong to method 3 and show its candidates.
    EXPECT_FALSE(Steuer<QLabel>(f, "lblCount")->text().isEmpty());
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(SucheZwillingeFenster, FalscheEingabenWerdenBenannt) {

    Steuer<QRadioButton>(f, "optVerfahren", 1)->click();
    EXPECT_TRUE(Steuer<QRadioButton>(f, "optVerfahren", 1)->isChecked());
    start->setText("1000");
    intervall->setText("zehn");
    Klick(go);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("Intervall"), std::string::npos) << Meldungen();
    intervall->setText("3.000.000.000");
    Klick(go);
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_NE(ui.meldungen[1].text.find("Intervall"), std::string::npos) << Meldungen();
    intervall->setText("100");
    start->setText("Formel: 10^(");
    Klick(go);
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_EQ(ui.meldungen[2].titel, "SW - Fehler") << Meldungen();
    // The raster's end: method 1 refuses, method 0 warns and runs.
    start->setText("99.990");
    Klick(go);
    ASSERT_EQ(ui.meldungen.size(), 4u) << Meldungen();
    EXPECT_EQ(ui.meldungen[3].text.rfind("Primärbereich zu niedrig...", 0), 0u);
    EXPECT_EQ(liste->count(), 0);
    Steuer<QRadioButton>(f, "optVerfahren", 0)->click();
    start->setText("10^10");
    Klick(go);
    ASSERT_EQ(ui.meldungen.size(), 5u);
    EXPECT_EQ(ui.meldungen[4].text.rfind("Es werden nicht alle Teiler gebildet!", 0), 0u);
    EXPECT_GE(liste->count(), 1);
    EXPECT_EQ(go->text(), "Start");

    // About 25 twins from a 50-digit start: some 251,000 numbers.
    start->setText("Formel: 10^50");
    Klick(Steuer<QPushButton>(f, "btnErwartung"));
    const int laenge = intervall->text().remove('.').toInt();
    EXPECT_NEAR(laenge, 250972, 300) << intervall->text().toStdString();
}

}  // namespace
}  // namespace sw::test
