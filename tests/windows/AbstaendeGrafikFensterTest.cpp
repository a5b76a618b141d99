// The gap graphic: the window's entries lead to the counts of the plain sieve, the values are
// read against the estimate, paging moves by a page of bars, the lists go to a CSV file and come
// back, and broken files, settings and entries are refused with a message.
#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "GuiTestUmgebung.h"
#include "frame/Einstellungen.h"
#include "frame/Texte.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Fensterregister.h"
#include "windows/frmAbstaendeGrafik.h"

namespace sw::test {
namespace {

class AbstaendeGrafikFenster : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(2000000), MethodeProdukt));
    }
    frmAbstaendeGrafik* Oeffnen(int modus) {
        EXPECT_TRUE(FensterOeffnen("frmAbstaendeGrafik", modus, nullptr));
        auto* f = Offen<frmAbstaendeGrafik>();
        if (f) f->resize(1150, 720);
        return f;
    }
    static void Eingeben(frmAbstaendeGrafik* f, const char* x, const char* w) {
        emit Steuer<QGroupBox>(f, "fraModus", 0)->clicked(true);
        Steuer<QLineEdit>(f, "txtSchranke", 0)->setText(x);
        Steuer<QLineEdit>(f, "txtIntervall", 0)->setText(w);
    }
};

TEST_F(AbstaendeGrafikFenster, ZaehltBlaettertUndSpeichert) {
    auto* f = Oeffnen(1);
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(Steuer<QCheckBox>(f, "chkAbWeichungVonPi2")->isChecked());
    Steuer<QCheckBox>(f, "chkAbWeichungVonPi2")->setChecked(false);
    Eingeben(f, "2", "999998");
    f->GrafikGo();
    ASSERT_GT(f->BalkenAnzahl.size(), 57u);
    EXPECT_EQ(f->BalkenAnzahl[0], 8169);
    EXPECT_EQ(f->BalkenAnzahl[2], 13549);
    EXPECT_EQ(f->BalkenAnzahl[56], 1);
    EXPECT_NEAR(f->BalkenWert[0] * f->Zwillingsschaetzung, 8169, 1e-6);
    EXPECT_TRUE(f->CursorText(1).startsWith("2: 8169"));

    // A page on starts at the first difference behind the last bar.
    const size_t n = f->BalkenAnzahl.size();
    f->Blaettern(1);
    EXPECT_EQ(f->AbstandVon, int32_t(2 * (n + 1)));
    EXPECT_EQ(f->BalkenAnzahl.size(), n);
    f->Blaettern(0);
    EXPECT_EQ(f->AbstandVon, 2);

    const QString pfad = QString::fromStdString(Ordner()) + "/luecken.CSV";
    ASSERT_TRUE(f->CsvSchreiben(pfad));
    QFile datei(pfad);
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QStringList listen = QString::fromUtf8(datei.readAll()).split("\n\n");
    ASSERT_EQ(listen.size(), 3);
    EXPECT_TRUE(listen[0].startsWith("2;4;6;"));
    EXPECT_TRUE(listen[1].startsWith("8169;8143;13549;"));
    datei.close();

    const std::vector<int64_t> gezaehlt = f->BalkenAnzahl;
    f->BalkenAnzahl.assign(3, 0);
    ASSERT_TRUE(f->CsvLaden(pfad));
    EXPECT_EQ(f->BalkenAnzahl, gezaehlt);

    ASSERT_TRUE(datei.open(QIODevice::WriteOnly | QIODevice::Truncate));
    datei.write("2;4\n\n1;2\n");
    datei.close();
    EXPECT_FALSE(f->CsvLaden(pfad));
    EXPECT_EQ(f->BalkenAnzahl, gezaehlt);  // a broken file leaves the bars
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("statt drei Listen"), std::string::npos);
}

TEST_F(AbstaendeGrafikFenster, FalscheEingabenUndEinstellungen) {
    IniSchreiben("LückenGrafik", "EingabeModus", "7");
    auto* f = Oeffnen(0);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->EingabeModus, 0);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("EingabeModus=7"), std::string::npos);
    for (auto [x, w] : {std::pair{"0", "1000"}, {"1000", "0"}, {"1000", "-5"}, {"zwei", "1000"}}) {
        ui.meldungen.clear();
        Eingeben(f, x, w);
        f->GrafikGo();
        ASSERT_EQ(ui.meldungen.size(), 1u) << x << " " << w;
        EXPECT_EQ(ui.meldungen[0].text, Text(424));
    }
    // Past the raster the neighbours refuse and name the kind that counts there.
    ui.meldungen.clear();
    Eingeben(f, "1900000", "200000");
    f->GrafikGo();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("Sekundärbereich"), std::string::npos);
}

}  // namespace
}  // namespace sw::test
