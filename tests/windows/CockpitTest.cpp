// The cockpit driven by its control names: runs with every method, the limit field and the
// refusals, the research buttons, block files through the menu, options and settings across a
// restart.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <functional>

#include "GuiTestUmgebung.h"
#include "frame/Einstellungen.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/basSiebwerk.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/Hilfe.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/frmAnzeige.h"
#include "windows/frmStart.h"

namespace sw::test {
namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

class CockpitTest : public GuiTest {
protected:
    frmStart& Cockpit() {
        if (!cockpit_) {
            cockpit_ = new frmStart();
            cockpit_->show();
        }
        return *cockpit_;
    }
    // Types a limit as a person does and leaves the field with Return.
    void GrenzeTippen(const QString& text) {
        auto* feld = Suche<QLineEdit>("txtGrenze");
        feld->clear();
        QTest::keyClicks(feld, text);
        QTest::keyClick(feld, Qt::Key_Return);
    }
    void Starten(int methode) { Suche<QPushButton>("btnStart", methode)->click(); }
    bool AlleKnoepfeFrei() {
        for (int i = 0; i < 7; ++i) {
            if (!Suche<QPushButton>("btnStart", i)->isEnabled()) return false;
        }
        for (int i = 0; i < UntersuchungAnzahl; ++i) {
            if (!Suche<QPushButton>("btnUntersuchung", i)->isEnabled()) return false;
        }
        return true;
    }
    // A restart: the cockpit closes (saving), the public state goes back to its defaults;
    // dazwischen runs while the program is down (a person editing SW.Ini).
    void Neustart(const std::function<void()>& dazwischen = {}) {
        cockpit_->close();
        delete cockpit_;
        cockpit_ = nullptr;
        ZentralZuruecksetzen();
        if (dazwischen) dazwischen();
        Cockpit();
    }

    frmStart* cockpit_ = nullptr;
};

// Seen by the yield of a running sieve: the state of the cockpit in the middle of the run.
struct WaehrendDesLaufs {
    static inline frmStart* cockpit = nullptr;
    static inline bool gesehen = false, gesperrt = true;
    static inline QString text;
    static void pruefen() {
        if (!cockpit || gesehen) return;
        gesehen = true;
        gesperrt = !Steuer<QPushButton>(cockpit, "btnStart", 0)->isEnabled() &&
                   !Steuer<QPushButton>(cockpit, "btnUntersuchung", 22)->isEnabled() &&
                   !Steuer<QAction>(cockpit, "mnuLaden")->isEnabled() &&
                   !Steuer<QAction>(cockpit, "mnuPrimModify")->isEnabled();
        text = Steuer<QLabel>(cockpit, "lblAnzeige")->text();
    }
};

TEST_F(CockpitTest, EveryMethodBuildsTheRangeAndFinishesTheDisplay) {
    Cockpit();
    ui.beiDoEvents = &WaehrendDesLaufs::pruefen;
    for (int methode = 0; methode < 7; ++methode) {
        SCOPED_TRACE(methode);
        WaehrendDesLaufs::cockpit = cockpit_;
        WaehrendDesLaufs::gesehen = false;
        RasterBereit = false;
        GrenzeTippen(methode % 2 ? "100.000" : "100000");
        Starten(methode);
        EXPECT_TRUE(WaehrendDesLaufs::gesehen);
        EXPECT_TRUE(WaehrendDesLaufs::gesperrt);
        EXPECT_EQ(WaehrendDesLaufs::text, q(Text(143)));

        EXPECT_TRUE(RasterBereit);
        EXPECT_TRUE(RasterEcht);
        EXPECT_EQ(PrimaerGrenze, Decimal(100000));
        auto* anzeige = Suche<QLabel>("lblAnzeige");
        // Text 144 with the seconds in the format 0,00.
        QString erwartet = q(Text(144));
        QString muster = QRegularExpression::escape(erwartet).replace("\\#P1", "\\d+,\\d\\d");
        EXPECT_TRUE(QRegularExpression("^" + muster + "$").match(anzeige->text()).hasMatch())
            << anzeige->text().toStdString();
        EXPECT_TRUE(AlleKnoepfeFrei());
    }
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(CockpitTest, LimitFieldAndRefusedLimitsKeepTheRangeAndGiveTheButtonsBack) {
    Cockpit();
    GrenzeTippen("999");
    EXPECT_EQ(Suche<QLineEdit>("txtGrenze")->text(), "1.000");
    Starten(0);
    EXPECT_EQ(PrimaerGrenze, Decimal(1000));
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();

    // A value set without leaving the field reaches the click as it stands: text 469.
    Suche<QLineEdit>("txtGrenze")->setText("999");
    Starten(0);
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(469));
    EXPECT_EQ(PrimaerGrenze, Decimal(1000));

    // A refused run leaves the range of the last run standing, in agreement with its raster,
    // and gives every button back.
    GrenzeTippen("100000");
    Starten(0);
    for (int methode : {1, 2, 4, 5, 6}) {  // above two billion only methods 0 and 3 run
        ui.meldungen.clear();
        GrenzeTippen("3.000.000.000");
        Starten(methode);
        ASSERT_EQ(ui.meldungen.size(), 1u) << methode;
        EXPECT_EQ(ui.meldungen[0].text, Text(520));
        EXPECT_EQ(PrimaerGrenze, Decimal(100000));
        EXPECT_EQ(RasterLetzterIndex, 100000 / 120);
        EXPECT_TRUE(AlleKnoepfeFrei());
    }
    // Limits beyond any raster, within the number range and beyond it: the box names the
    // largest limit and the memory, leaving the field did not fail, the range stands.
    for (const QString& zuGross : {QString("300.000.000.000"), QString(40, '9')}) {
        ui.meldungen.clear();
        GrenzeTippen(zuGross);
        Starten(0);
        ASSERT_EQ(ui.meldungen.size(), 1u) << Meldungen();
        const std::string& text = ui.meldungen[0].text;
        EXPECT_EQ(ui.meldungen[0].titel, "SW - Info");
        EXPECT_NE(text.find(ZahlFormat(GroessteGrenze())), std::string::npos) << text;
        EXPECT_NE(text.find("GB"), std::string::npos) << text;
        EXPECT_EQ(text.find("Nr."), std::string::npos) << text;
        EXPECT_TRUE(AlleKnoepfeFrei());
        EXPECT_EQ(PrimaerGrenze, Decimal(100000));
    }
}

// A stand-in for a research window that does not exist yet.
class Attrappe : public Fenster {
public:
    Attrappe() : Fenster("frmFaktor") {}
};

TEST_F(CockpitTest, ResearchButtonsOpenANewWindowPerClick) {
    Cockpit();
    FensterAnmelden("frmFaktor", [](int, QWidget*) {
        auto* w = new Attrappe();
        w->setAttribute(Qt::WA_DeleteOnClose);
        w->FensterLaden(q(AktivesFenster));
        w->show();
    });
    auto* faktor = Suche<QPushButton>("btnUntersuchung", 5);
    faktor->click();
    faktor->click();
    EXPECT_EQ(FensterAnzahl("frmFaktor"), 2);
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();

    // A window the program does not know says so instead of doing nothing.
    EXPECT_FALSE(FensterOeffnen("frmGibtEsNicht", -1, nullptr));
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Nicht verfügbar");

    // Index 25 counts the primes of the range in the status line.
    GrenzeTippen("100000");
    Starten(3);
    Suche<QPushButton>("btnUntersuchung", 25)->click();
    EXPECT_EQ(Suche<QLabel>("lblAnzeige")->text(), q(TextP1Zahl(145, Decimal(9592))));

    // A handler that fails shows the error box and leaves the cockpit usable.
    ui.meldungen.clear();
    FensterAnmelden("frmFaktor", [](int, QWidget*) { throw Laufzeitfehler(FehlerDivisionDurchNull); });
    faktor->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - Fehler");
    EXPECT_NE(ui.meldungen[0].text.find("Nr.: 11"), std::string::npos);
    EXPECT_TRUE(AlleKnoepfeFrei());
}

TEST_F(CockpitTest, BlockFilesAreSavedAndLoadedThroughTheMenu) {
    Cockpit();
    GrenzeTippen("1.000.000");
    Starten(0);
    const std::vector<uint32_t> gesiebt = PrimaerRaster;

    std::vector<DateiAnfrage> anfragen;
    std::optional<QString> antwort = q(Ordner() + "P061.BLK");
    DateiDialogHook = [&](const DateiAnfrage& a) {
        anfragen.push_back(a);
        return antwort;
    };
    Suche<QAction>("mnuSpeichern")->trigger();
    ASSERT_EQ(anfragen.size(), 1u);
    EXPECT_EQ(anfragen[0].vorschlag, "P061.BLK");
    EXPECT_EQ(std::filesystem::file_size(Ordner() + "P061.BLK"), 4 * gesiebt.size());

    // Another run, then the block back: the limit comes from the file's length.
    GrenzeTippen("5000");
    Starten(0);
    Suche<QAction>("mnuLaden")->trigger();
    ASSERT_EQ(anfragen.size(), 2u);
    EXPECT_EQ(PrimaerGrenze, Decimal(1000000));
    EXPECT_TRUE(std::equal(gesiebt.begin(), gesiebt.end(), PrimaerRaster.begin()));  // nothing lost on the way
    EXPECT_TRUE(RasterEcht);
    EXPECT_TRUE(AlleKnoepfeFrei());

    // A cancelled dialog changes nothing.
    antwort.reset();
    GrenzeTippen("5000");
    Starten(0);
    Suche<QAction>("mnuLaden")->trigger();
    EXPECT_EQ(PrimaerGrenze, Decimal(5000));

    // A file that cannot be a raster is refused with a message, and the range stays usable.
    std::ofstream(Ordner() + "kaputt.BLK") << "abcdefg";
    antwort = q(Ordner() + "kaputt.BLK");
    Suche<QAction>("mnuLaden")->trigger();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    ui.meldungen.clear();
    EXPECT_TRUE(RasterBereit);
    EXPECT_EQ(PrimaerGrenze, Decimal(5000));
    EXPECT_TRUE(AlleKnoepfeFrei());

    // The secondary range is offered as S000.BLK.
    antwort = q(Ordner() + "S000.BLK");
    Suche<QAction>("mnuSekSpeichern")->trigger();
    EXPECT_TRUE(std::filesystem::exists(Ordner() + "S000.BLK"));
    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}

TEST_F(CockpitTest, SettingsSurviveARestartAndTheEndQuestionCanKeepTheProgram) {
    Cockpit();
    Suche<QCheckBox>("chkEndeFrage")->setChecked(true);
    GrenzeTippen("300.000");
    // The end question: No and Cancel keep the program running and save nothing.
    for (int antwort : {AntwortNein, AntwortAbbrechen}) {
        ui.antworten = {antwort};
        EXPECT_FALSE(cockpit_->close());
        EXPECT_TRUE(cockpit_->isVisible());
    }
    EXPECT_EQ(IniLesen("Start", "chkEndeFrage"), "");
    Neustart();  // Yes, the recording boxes' answer when none is queued
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_EQ(ui.meldungen[2].knoepfe, MeldungsKnoepfe::JaNeinAbbrechen);
    EXPECT_TRUE(Suche<QCheckBox>("chkEndeFrage")->isChecked());
    EXPECT_EQ(Suche<QLineEdit>("txtGrenze")->text(), "300.000");
}

// The block folder and the number format: refused values keep the page open, applied ones
// survive a restart.
TEST_F(CockpitTest, OptionPagesApplyRefuseAndRestore) {
    Cockpit();
    auto* rahmen = Suche<QGroupBox>("fraOptionen");
    const std::string bloecke = Ordner() + "bloecke";
    Suche<QAction>("mnuSystemEinstellungen")->trigger();
    Suche<QLineEdit>("txtPath")->setText(q(bloecke));
    Suche<QPushButton>("btnGO")->click();  // not there yet: refused, the page stays open
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(206));
    EXPECT_TRUE(rahmen->isVisible());
    EXPECT_EQ(ProgrammPfad, Ordner());
    std::filesystem::create_directory(bloecke);
    Suche<QPushButton>("btnGO")->click();
    EXPECT_EQ(ProgrammPfad, bloecke + "/");

    Suche<QAction>("mnuZahlenDarstellung")->trigger();
    Suche<QLineEdit>("txtMaxFormatStellen")->setText("9");
    Suche<QPushButton>("btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 2u);
    EXPECT_EQ(ui.meldungen[1].text, Text(470));
    EXPECT_TRUE(rahmen->isVisible());
    EXPECT_EQ(MaxFormatStellen, 60);

    Suche<QLineEdit>("txtMaxFormatStellen")->setText("12");
    Suche<QRadioButton>("optFormat", 2)->setChecked(true);
    Suche<QLineEdit>("txtZeichen")->setText("'");
    Suche<QLineEdit>("txtFormatAnzahl")->setText("4");
    Suche<QPushButton>("btnGO")->click();
    EXPECT_EQ(MaxFormatStellen, 12);
    EXPECT_EQ(FormatZeichen, "'");
    EXPECT_EQ(FormatAnzahl, 4);
    EXPECT_EQ(Suche<QLineEdit>("txtGrenze")->text(), "2'0000'0000");

    Neustart();
    EXPECT_EQ(ProgrammPfad, bloecke + "/");
    EXPECT_EQ(FormatZeichen, "'");
    EXPECT_EQ(FormatAnzahl, 4);
    EXPECT_EQ(MaxFormatStellen, 12);
    EXPECT_EQ(ui.meldungen.size(), 2u) << Meldungen();
}

TEST_F(CockpitTest, PrimModifyStrikesOnlyUpToItsBound) {
    Cockpit();
    // Before any run there is no range to modify.
    Suche<QAction>("mnuPrimModify")->trigger();
    auto* fenster = Suche<QWidget>("frmPrimModify");
    ASSERT_TRUE(fenster);
    Steuer<QPushButton>(fenster, "btnGO")->click();
    ASSERT_EQ(ui.meldungen.size(), 1u);
    EXPECT_EQ(ui.meldungen[0].text, Text(207));
    fenster->close();
    Aufraeumen();

    GrenzeTippen("100000");
    Starten(0);
    Suche<QAction>("mnuPrimModify")->trigger();
    fenster = Suche<QWidget>("frmPrimModify");
    Steuer<QLineEdit>(fenster, "txtGrenze")->setText("100");
    Steuer<QPushButton>(fenster, "btnGO")->click();
    EXPECT_FALSE(RasterEcht);
    EXPECT_TRUE(IstPrim(Decimal(101 * 103)));  // no factor up to 100
    EXPECT_FALSE(IstPrim(Decimal(97 * 101)));
    EXPECT_TRUE(IstPrim(Decimal(97)));
}


// The desktop's yield with the boxes of the test: the close of the cockpit must come through a
// real event loop, as it does when a person clicks during a run.
struct DesktopMitAufzeichnung : OberflaecheDesktop {
    explicit DesktopMitAufzeichnung(OberflaecheAufzeichnung& a) : aufzeichnung(a) {}
    int Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                MeldungsKnoepfe knoepfe) override {
        return aufzeichnung.Meldung(titel, text, symbol, knoepfe);
    }
    OberflaecheAufzeichnung& aufzeichnung;
};

// Closing the cockpit while the raster is being built ends the program right behind the close
// handler, not when the run has finished; the settings are written before.
TEST_F(CockpitTest, ClosingTheCockpitDuringARunEndsTheProgramAtOnce) {
    Cockpit();
    GrenzeTippen("2.000.000");
    bool beendet = false, imLauf = false;
    SofortEndeHook = [&] {
        if (beendet) return;
        beendet = true;
        imLauf = !Steuer<QPushButton>(cockpit_, "btnStart", 0)->isEnabled();
    };
    DesktopMitAufzeichnung desktop(ui);
    OberflaecheSetzen(&desktop);
    QTimer::singleShot(0, cockpit_, [this] { cockpit_->close(); });
    Starten(0);
    OberflaecheSetzen(&ui);
    EXPECT_TRUE(beendet);
    EXPECT_TRUE(imLauf);
    EXPECT_EQ(IniLesen("Start", "txtGrenze"), "2000000");
}

// The stop watch opens with the first job, never empty at start, and never stays "running"
// after the job.
TEST_F(CockpitTest, TheStopWatchShowsJobsOnly) {
    IniSchreiben("Start", "chkStoppUhr", "1");
    Cockpit();
    ASSERT_TRUE(StoppUhrAktiv);
    EXPECT_EQ(FensterAnzahl("frmStoppUhr"), 0);
    GrenzeTippen("100.000");
    Starten(0);
    EXPECT_EQ(FensterAnzahl("frmStoppUhr"), 1);
    EXPECT_EQ(Suche<QLabel>("lblAufgabe")->text(), Suche<QPushButton>("btnStart", 0)->text().remove('&'));
    EXPECT_FALSE(StoppUhr.laeuft);
}

// Every window that can be opened now has a help page under its key, F1 finds it, and the two
// Collatz graphics carry their own captions.
TEST_F(CockpitTest, EveryWindowHasItsHelpPage) {
    Cockpit();
    EXPECT_EQ(Suche<QPushButton>("btnUntersuchung", 20)->text(), "Balkengrafik");
    EXPECT_EQ(Suche<QPushButton>("btnUntersuchung", 21)->text(), "Schrittgrafik");
    GrenzeTippen("100.000");
    Starten(0);
    Suche<QPushButton>("btnUntersuchung", 22)->click();
    auto* erste = Offen<frmAnzeige>();
    QApplication::setActiveWindow(erste);
    QTest::keyClick(erste, Qt::Key_F1);
    EXPECT_TRUE(Suche<QTextBrowser>("txtSeite")->source().toLocalFile().endsWith("anzeige.html"));
    for (int i = 0; i < UntersuchungAnzahl; ++i) {
        const sw::Untersuchung& u = UntersuchungVon(i);
        if (u.fenster && FensterVorhanden(u.fenster) && u.modus != 6) Suche<QPushButton>("btnUntersuchung", i)->click();
    }
    for (const char* menue : {"mnuPrimModify", "mnuSpeicherAuslastung"}) Suche<QAction>(menue)->trigger();
    auto* anzeige = erste;  // mode 0: with several displays open, the first found may be mode 5
    ASSERT_NE(anzeige, nullptr);
    Steuer<QLineEdit>(anzeige, "txtEingabe", 0)->setText("1.000");
    Steuer<QLineEdit>(anzeige, "txtEingabe", 1)->setText("1.000");
    QTest::mouseClick(Steuer<QPushButton>(anzeige, "btnGO"), Qt::LeftButton);
    QTest::mouseClick(Steuer<QPushButton>(anzeige, "btnSuchen"), Qt::LeftButton);
    anzeige->ZahlZeigen(Decimal(1009));
    HilfeInhalt();
    int fenster = 0;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* f = qobject_cast<Fenster*>(w);
        if (!f || !f->isVisible()) continue;
        ++fenster;
        EXPECT_NE(HilfeSeiteZu(f->HilfeKey()), nullptr) << f->objectName().toStdString() << ": "
                                                        << f->HilfeKey().toStdString();
    }
    EXPECT_GE(fenster, 9);

    EXPECT_TRUE(ui.meldungen.empty()) << Meldungen();
}


// Words in the number fields of the option pages and of the raster modification are refused
// with the field's name, never with a bare run-time error; the page stays open.
TEST_F(CockpitTest, RefusedNumbersNameTheirField) {
    Cockpit();
    GrenzeTippen("100.000");
    Starten(0);
    const struct {
        const char *menue, *feld, *name;
    } faelle[] = {
        {"mnuZahlenDarstellung", "txtNachKommaExtern", "Angezeigte Nachkommastellen"},
        {"mnuZahlenDarstellung", "txtMaxFormatStellen", "Kürzen ab Stellen"},
        {"mnuZahlensystem", "txtZahlenSystem", "Basis"},
        {"mnuPrimModify", "txtGrenze", "Primzahlen bis"},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.feld);
        ui.meldungen.clear();
        Suche<QAction>(f.menue)->trigger();
        QWidget* fenster = QString(f.menue) == "mnuPrimModify" ? Suche<QWidget>("frmPrimModify") : cockpit_;
        Steuer<QLineEdit>(fenster, f.feld)->setText("zwölf");
        Steuer<QPushButton>(fenster, "btnGO")->click();
        ASSERT_EQ(ui.meldungen.size(), 1u);
        EXPECT_NE(ui.meldungen[0].text.find(std::string("\"") + f.name + "\""), std::string::npos) << ui.meldungen[0].text;
        EXPECT_EQ(ui.meldungen[0].text.find("Nr."), std::string::npos) << ui.meldungen[0].text;
        EXPECT_TRUE(fenster->isVisible());
        EXPECT_TRUE(RasterEcht);
    }
    EXPECT_EQ(ZahlenSystem, 10);
}

}  // namespace
}  // namespace sw::test
