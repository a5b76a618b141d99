// The prime display on the desktop: opened from the cockpit's table, a range fetched by
// btnGO, the count shown, paging by the toolbar, the detail of a clicked number, the toolbar's
// save, picture, print and font, refused input, and what each mode keeps.
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QPrinter>
#include <QToolButton>

#include <cmath>

#include "GuiTestUmgebung.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/frmAnzeige.h"
#include "windows/frmSuchen.h"
#include "windows/frmZahl.h"

namespace sw::test {
namespace {

class AnzeigeFensterTest : public GuiTest {
protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_TRUE(PrimaerLauf(Decimal(1000000), MethodeProdukt));
    }
    // Closes any display, opens the one of a cockpit index and fetches a range; the window.
    frmAnzeige* Oeffnen(int index, const QString& anfang = QString(), const QString& laenge = QString()) {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (qobject_cast<Fenster*>(w) && w->isVisible()) w->close();
        }
        Aufraeumen();
        EXPECT_TRUE(FensterOeffnen("frmAnzeige", UntersuchungVon(index).modus, nullptr));
        frmAnzeige* fenster = Offen<frmAnzeige>();
        if (fenster && !anfang.isEmpty()) {
            Steuer<QLineEdit>(fenster, "txtEingabe", 0)->setText(anfang);
            Steuer<QLineEdit>(fenster, "txtEingabe", 1)->setText(laenge);
            QTest::mouseClick(Steuer<QPushButton>(fenster, "btnGO"), Qt::LeftButton);
        }
        return fenster;
    }
    // The toolbar icon of a tag ("Save", "Nav4", ...).
    static QToolButton* Icon(QWidget* fenster, const QString& tag) {
        for (int i = 0;; ++i) {
            auto* knopf = Steuer<QToolButton>(fenster, "btnIcon", i);
            if (!knopf) break;
            if (knopf->property("tag").toString() == tag) return knopf;
        }
        ADD_FAILURE() << "no icon " << tag.toStdString();
        return nullptr;
    }
    static bool prim(int64_t n) {
        if (n < 2) return false;
        for (int64_t t = 2; t * t <= n; ++t) {
            if (n % t == 0) return false;
        }
        return true;
    }
    static QStringList zeilen(const QString& pfad) {
        QFile f(pfad);
        if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
        return QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
    }
};

TEST_F(AnzeigeFensterTest, BereichHolenBlaetternUndZahl) {
    ASSERT_TRUE(FensterOeffnen("frmAnzeige", UntersuchungVon(22).modus, nullptr));
    auto* anfang = Suche<QLineEdit>("txtEingabe", 0);
    auto* laenge = Suche<QLineEdit>("txtEingabe", 1);
    ASSERT_TRUE(anfang && laenge);
    anfang->setText("1.000.000.000");
    laenge->setText("10.000");
    QTest::mouseClick(Suche<QPushButton>("btnGO"), Qt::LeftButton);
    frmAnzeige* fenster = Offen<frmAnzeige>();
    ASSERT_NE(fenster, nullptr);
    AnzeigeLogik& logik = fenster->Logik();
    EXPECT_EQ(Suche<QLabel>("lblCount")->text().toStdString(), ZahlFormat(static_cast<long long>(logik.Anzahl))) << Meldungen();
    EXPECT_GT(logik.Anzahl, 0);
    QTest::mouseClick(Suche<QToolButton>("btnIcon", 4), Qt::LeftButton);
    EXPECT_EQ(logik.Aktuell, Decimal(int64_t(1000000000)) + logik.SeitenZahlen());
    fenster->ZahlZeigen(Decimal(int64_t(1000000007)));
    auto* zahl = Offen<frmZahl>();
    ASSERT_NE(zahl, nullptr);
    EXPECT_TRUE(zahl->Inhalt().contains("ja"));
}

TEST_F(AnzeigeFensterTest, SuchenFindetZwillinge) {
    ASSERT_TRUE(FensterOeffnen("frmAnzeige", UntersuchungVon(23).modus, nullptr));
    Suche<QLineEdit>("txtEingabe", 0)->setText("1.000");
    Suche<QLineEdit>("txtEingabe", 1)->setText("100.000");
    QTest::mouseClick(Suche<QPushButton>("btnGO"), Qt::LeftButton);
    QTest::mouseClick(Suche<QPushButton>("btnSuchen"), Qt::LeftButton);
    auto* suchen = Offen<frmSuchen>();
    ASSERT_NE(suchen, nullptr);
    QTest::mouseClick(Steuer<QPushButton>(suchen, "btnGO"), Qt::LeftButton);
    auto* fenster = Offen<frmAnzeige>();
    ASSERT_NE(fenster, nullptr);
    EXPECT_EQ(fenster->Logik().Aktuell, Decimal(1019)) << Meldungen();
}


// Save writes every prime of the range (not only the page), Foto the page as BMP or PNG, Print
// the page; before a range stands they say there is nothing yet. "A" shows the font choice.
TEST_F(AnzeigeFensterTest, ToolbarSavesPrimesPictureAndPrintsThePage) {
    frmAnzeige* fenster = Oeffnen(22);
    ASSERT_NE(fenster, nullptr);
    int dialoge = 0;
    QString ziel;
    DateiDialogHook = [&](const DateiAnfrage&) {
        ++dialoge;
        return std::optional<QString>(ziel);
    };
    Icon(fenster, "Save")->click();
    Icon(fenster, "Foto")->click();
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[0].text, Text(1104));
    EXPECT_EQ(ui.meldungen[1].text, Text(1105));
    EXPECT_EQ(dialoge, 0);
    ui.meldungen.clear();

    // Mode 0 from 1.000, and mode 1 from 0, where 2, 3 and 5 have no cell of their own.
    const struct {
        int index;
        const char *anfang, *laenge;
        int64_t von, bis;
    } faelle[] = {{22, "1.000", "5.000", 1000, 6000}, {23, "0", "100", 1, 100}};
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.index);
        fenster = Oeffnen(f.index, f.anfang, f.laenge);
        const Decimal gezeigt = fenster->Logik().Aktuell;
        ziel = QString::fromStdString(Ordner()) + "primzahlen" + QString::number(f.index);
        Icon(fenster, "Save")->click();
        QStringList erwartet;
        for (int64_t n = f.von; n <= f.bis; ++n) {
            if (prim(n)) erwartet << QString::number(n);
        }
        EXPECT_EQ(zeilen(ziel + ".TXT"), erwartet);
        EXPECT_EQ(fenster->Logik().Aktuell, gezeigt);
    }

    for (const QString& name : {QString("seite.png"), QString("seite")}) {
        ziel = QString::fromStdString(Ordner()) + name;
        Icon(fenster, "Foto")->click();
        QImage bild(name.contains('.') ? ziel : ziel + ".bmp");
        EXPECT_EQ(bild.size(), Steuer<QWidget>(fenster, "picAnzeige")->size()) << name.toStdString();
    }

    const QString pdf = QString::fromStdString(Ordner()) + "seite.pdf";
    DruckDialogHook = [&](QPrinter& drucker) {
        drucker.setOutputFormat(QPrinter::PdfFormat);
        drucker.setOutputFileName(pdf);
        return true;
    };
    Icon(fenster, "Print")->click();
    EXPECT_GT(QFile(pdf).size(), 0);
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();

    auto* schrift = Steuer<QComboBox>(fenster, "cmbFont");
    ASSERT_NE(schrift, nullptr);
    EXPECT_FALSE(schrift->isVisible());
    Icon(fenster, "Font")->click();
    EXPECT_TRUE(schrift->isVisible());
    Icon(fenster, "Font")->click();
    EXPECT_FALSE(schrift->isVisible());
}

// A refused input names its field and what the field takes, never a bare run-time error; the
// range before it, its paging and the stop watch stay usable.
TEST_F(AnzeigeFensterTest, RefusedInputNamesTheFieldAndKeepsTheRange) {
    frmAnzeige* fenster = Oeffnen(22, "1.000", "5.000");
    ASSERT_NE(fenster, nullptr);
    const struct {
        const char *anfang, *laenge, *feld;
    } faelle[] = {
        {"abc", "5.000", "Anfang"}, {"-5", "5.000", "Anfang"},        {"1,5", "5.000", "Anfang"},
        {"", "5.000", "Anfang"},    {"1.000", "0", "Länge"},          {"1.000", "zehn", "Länge"},
        {"9999999999999999999999999999999999999", "1", "Anfang"},
        {"79.228.162.514.264.337.593.543.950.000", "1.000", "Länge"},  // the end would overflow
        {"1", "5.000.000", nullptr},                                  // refused by the range rules
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(std::string(f.anfang) + " / " + f.laenge);
        ui.meldungen.clear();
        Steuer<QLineEdit>(fenster, "txtEingabe", 0)->setText(QString::fromUtf8(f.anfang));
        Steuer<QLineEdit>(fenster, "txtEingabe", 1)->setText(QString::fromUtf8(f.laenge));
        QTest::mouseClick(Steuer<QPushButton>(fenster, "btnGO"), Qt::LeftButton);
        ASSERT_EQ(ui.meldungen.size(), 1u) << Meldungen();
        const std::string& text = ui.meldungen[0].text;
        if (f.feld) {
            EXPECT_NE(text.find(std::string("\"") + f.feld + "\""), std::string::npos) << text;
        }
        for (const char* kryptisch : {"Typen", "Überlauf", "Nr."}) EXPECT_EQ(text.find(kryptisch), std::string::npos) << text;
        EXPECT_TRUE(Icon(fenster, "Nav4")->isEnabled());
        EXPECT_FALSE(StoppUhr.laeuft);
        EXPECT_EQ(fenster->Logik().Anfang, Decimal(1000));
    }
    Icon(fenster, "Nav4")->click();
    EXPECT_EQ(fenster->Logik().Aktuell, Decimal(1000) + fenster->Logik().SeitenZahlen());
}

// Before any run the raster knows no primes: the display says so instead of calling every
// number coprime to 30 prime. The search says that a range must stand first.
TEST_F(AnzeigeFensterTest, WithoutARangeTheWindowsSaySo) {
    frmAnzeige* fenster = Oeffnen(23);
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnSuchen"), Qt::LeftButton);
    QTest::mouseClick(Steuer<QPushButton>(Offen<frmSuchen>(), "btnGO"), Qt::LeftButton);
    RasterBereit = false;
    Steuer<QLineEdit>(fenster, "txtEingabe", 0)->setText("1.000");
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnGO"), Qt::LeftButton);
    ASSERT_EQ(ui.meldungen.size(), 2u) << Meldungen();
    EXPECT_EQ(ui.meldungen[0].text, Text(1113));
    EXPECT_EQ(ui.meldungen[1].text, Text(1002));
    EXPECT_FALSE(fenster->Logik().BereichBereit);
}

// Each mode keeps its own fields; the window comes back at its stored size; the numbers are
// shown in the chosen base, as the title says.
TEST_F(AnzeigeFensterTest, ModesKeepTheirFieldsAndTheWindowItsSizeAndBase) {
    frmAnzeige* fenster = Oeffnen(22, "123.456", "7.890");
    fenster->resize(640, 480);
    fenster = Oeffnen(23);
    EXPECT_EQ(Steuer<QLineEdit>(fenster, "txtEingabe", 0)->text(), "1.000.000.000.000");
    fenster = Oeffnen(22);
    EXPECT_EQ(Steuer<QLineEdit>(fenster, "txtEingabe", 0)->text(), "123.456");
    EXPECT_EQ(Steuer<QLineEdit>(fenster, "txtEingabe", 1)->text(), "7.890");
    EXPECT_EQ(fenster->size(), QSize(640, 480));

    ZahlenSystem = 16;
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnGO"), Qt::LeftButton);
    EXPECT_TRUE(fenster->windowTitle().endsWith(QString::fromStdString(Text(177))));
    EXPECT_EQ(frmAnzeige::ZahlText(Decimal(255)), "FF");
    ZahlenSystem = 10;
    EXPECT_EQ(frmAnzeige::ZahlText(Decimal(123456)), "123.456");
}

// Mode 6 from the cockpit's table: bad starts and widths get clear messages and leave the
// window usable; a small window is sieved, paged, tested, its cell clicked and exported.
TEST_F(AnzeigeFensterTest, LargeRangeSievesPagesTestsAndExports) {
    int index = -1;
    for (int i = 0; i < UntersuchungAnzahl; ++i) {
        const Untersuchung& u = UntersuchungVon(i);
        if (u.fenster && QString(u.fenster) == "frmAnzeige" && u.modus == 6) index = i;
    }
    ASSERT_GE(index, 0);
    frmAnzeige* fenster = Oeffnen(index);
    ASSERT_NE(fenster, nullptr);
    auto* zahl = Steuer<QLineEdit>(fenster, "txtZahl");
    auto* breite = Steuer<QLineEdit>(fenster, "txtIntervall");
    ASSERT_TRUE(zahl && breite);
    EXPECT_TRUE(zahl->isVisible());
    EXPECT_FALSE(Steuer<QLineEdit>(fenster, "txtEingabe", 0)->isVisible());
    auto* go = Steuer<QPushButton>(fenster, "btnGO");
    const struct {
        const char *start, *breite, *erwartet;
    } faelle[] = {
        {"abc", "1.000", "Startwert"}, {"", "1.000", "Startwert"}, {"10^30", "", "Breite"},
        {"10^30", "-5", "Breite"},     {"10^30", "0", "Breite"},   {"10^30", "zehn", "Breite"},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(std::string(f.start) + " / " + f.breite);
        ui.meldungen.clear();
        zahl->setText(f.start);
        breite->setText(f.breite);
        QTest::mouseClick(go, Qt::LeftButton);
        ASSERT_EQ(ui.meldungen.size(), 1u) << Meldungen();
        EXPECT_NE(ui.meldungen[0].text.find(f.erwartet), std::string::npos) << ui.meldungen[0].text;
        EXPECT_FALSE(fenster->Logik().BereichBereit);
        EXPECT_FALSE(StoppUhr.laeuft);
    }
    ui.meldungen.clear();
    zahl->setText("10^30");
    breite->setText("3.000");
    QTest::mouseClick(go, Qt::LeftButton);
    AnzeigeLogik& logik = fenster->Logik();
    ASSERT_TRUE(logik.BereichBereit) << Meldungen();
    EXPECT_EQ(Steuer<QLabel>(fenster, "lblCountText")->text().toStdString(), Text(511));
    EXPECT_EQ(Steuer<QLabel>(fenster, "lblCount")->text().toStdString(),
              TextP1(1363, ZahlFormat(static_cast<long long>(logik.Anzahl))));
    EXPECT_FALSE(Steuer<QWidget>(fenster, "fraTertiaerLauf")->isVisible());
    auto* test = Steuer<QPushButton>(fenster, "btnZusatz");
    ASSERT_TRUE(test && test->isVisible());
    EXPECT_FALSE(Steuer<QWidget>(fenster, "optAuswahl", 1)->isEnabled());
    Icon(fenster, "Nav4")->click();
    EXPECT_EQ(logik.Aktuell, logik.SeitenZahlen());
    Icon(fenster, "Nav5")->click();
    EXPECT_LE(logik.Aktuell, Decimal(3000));
    Icon(fenster, "Nav0")->click();
    EXPECT_EQ(logik.Aktuell, Decimal(0));

    QTest::mouseClick(test, Qt::LeftButton);
    EXPECT_EQ(Steuer<QLabel>(fenster, "lblCount")->text().toStdString(),
              TextP1(1364, ZahlFormat(static_cast<long long>(logik.Anzahl))));
    EXPECT_TRUE(Steuer<QWidget>(fenster, "optAuswahl", 1)->isEnabled());
    EXPECT_EQ(logik.Auswahl, 1);

    // A click on a number of 31 digits: named in a box and copied whole.
    ui.meldungen.clear();
    fenster->ZahlZeigen(Decimal(7));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find(Text(1376)), std::string::npos) << ui.meldungen[0].text;
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "1" + std::string(26, '0') + "0007");

    QString ziel = QString::fromStdString(Ordner()) + "intervall";
    DateiDialogHook = [&](const DateiAnfrage&) { return std::optional<QString>(ziel); };
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnExport"), Qt::LeftButton);
    const QStringList liste = zeilen(ziel + ".TXT");
    ASSERT_EQ(liste.size(), logik.Anzahl + 1);
    EXPECT_EQ(liste[0].toStdString(), TextP1P2(1367, "1" + std::string(30, '0'), "3.000"));
    for (int i = 1; i < liste.size(); ++i) {
        EXPECT_TRUE(liste[i].size() == 31 && liste[i].startsWith("1" + QString(26, '0'))) << liste[i].toStdString();
    }
    // A folder that does not exist: a clear message, nothing lost.
    ziel = QString::fromStdString(Ordner()) + "fehlt/intervall";
    ui.meldungen.clear();
    QTest::mouseClick(Steuer<QPushButton>(fenster, "btnExport"), Qt::LeftButton);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_NE(ui.meldungen[0].text.find("fehlt/intervall.TXT"), std::string::npos);
    EXPECT_TRUE(logik.BereichBereit);
}

}  // namespace
}  // namespace sw::test
