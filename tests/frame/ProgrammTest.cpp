// Start and stop of the program as far as they are logic: the working folder, the settings
// that come back from SW.Ini and go back to it, and the start button that is a stop button.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "TestUmgebung.h"
#include "frame/Einstellungen.h"
#include "frame/Pfade.h"
#include "frame/Programm.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {
namespace {

class ProgrammTest : public test::SwTest {
protected:
    void ini(const std::string& inhalt) { std::ofstream(Ordner() + "SW.Ini") << inhalt; }
    std::string ini() const {
        std::ifstream f(Ordner() + "SW.Ini");
        std::stringstream ss;
        ss << f.rdbuf();
        return ss.str();
    }
};

TEST_F(ProgrammTest, StartTakesTheWorkingFolderTablesAndRandomSettings) {
    ini("[Start]\n"
        "RandomProzentFaktor=1,05\n"
        "RandomFaktorBitKette=12\n"
        "RandomInfoText=(2,3,5,7)\n"
        "RandomPrimIntervall=4\n");
    ProgrammPfad.clear();
    RasterEcht = false;
    AktivesFenster = "frmX";

    ProgrammStarten();

    EXPECT_EQ(ProgrammPfad, Ordner()) << "SW_HOME names the working folder";
    EXPECT_EQ(MitSchraegstrich(std::filesystem::current_path().string()), Ordner());
    EXPECT_TRUE(RasterEcht);
    EXPECT_EQ(RasterRest[32], 119) << "the tables are built";
    EXPECT_FALSE(MersenneExponenten.empty());
    EXPECT_EQ(AktivesFenster, "Cockpit");
    EXPECT_DOUBLE_EQ(RandomProzentFaktor, 1.05);
    EXPECT_EQ(RandomFaktorBitKette, 12);
    EXPECT_EQ(RandomInfoText, "(2,3,5,7)");
    EXPECT_EQ(RandomPrimIntervall, 6) << "an exponent below 6 reads as 6";
}

TEST_F(ProgrammTest, StopWritesThreeRandomKeysAndLeavesTheIntervalAsItWas) {
    ini("[Start]\nRandomPrimIntervall=4\nHeight=7000\n");
    ProgrammStarten();
    RandomProzentFaktor = 0.5;
    RandomFaktorBitKette = 3;
    RandomInfoText = "(2,3,5,7,11) - 50,00%";
    RandomPrimIntervall = 8;
    static bool geschlossen;
    geschlossen = false;
    StoppUhrZeigenHook = [](bool aktiv) { geschlossen = !aktiv; };

    ProgrammBeenden();
    StoppUhrZeigenHook = nullptr;

    EXPECT_TRUE(geschlossen) << "the stop watch window is closed";
    EXPECT_EQ(IniLesen("Start", "RandomProzentFaktor"), "0,50");
    EXPECT_EQ(IniLesen("Start", "RandomFaktorBitKette"), "3");
    EXPECT_EQ(IniLesen("Start", "RandomInfoText"), "(2,3,5,7,11) - 50,00%");
    EXPECT_EQ(IniLesen("Start", "RandomPrimIntervall"), "4");
    EXPECT_EQ(IniLesen("Start", "Height"), "7000");
    RandomEinstellungenLesen();
    EXPECT_DOUBLE_EQ(RandomProzentFaktor, 0.5) << "what is written reads back";
}

TEST_F(ProgrammTest, TheEndQuestionLetsOnlyYesThrough) {
    EXPECT_TRUE(BeendenErlaubt(false));
    EXPECT_TRUE(ui.meldungen.empty()) << "no question without chkEndeFrage";
    ui.antworten = {AntwortJa, AntwortNein, AntwortAbbrechen};
    EXPECT_TRUE(BeendenErlaubt(true));
    EXPECT_FALSE(BeendenErlaubt(true));
    EXPECT_FALSE(BeendenErlaubt(true));
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_EQ(ui.meldungen[0].symbol, MeldungsSymbol::Frage);
    EXPECT_EQ(ui.meldungen[0].knoepfe, MeldungsKnoepfe::JaNeinAbbrechen);
}

TEST_F(ProgrammTest, StartButtonIsTheStopButton) {
    std::string caption = "Start";
    Abbruch = true;
    EXPECT_FALSE(StartStopUmschalten(caption, "Start")) << "the job may start";
    EXPECT_EQ(caption, "Stop");
    EXPECT_FALSE(Abbruch);
    EXPECT_TRUE(StartStopUmschalten(caption, "OK")) << "a running job is asked to stop";
    EXPECT_EQ(caption, "OK");
    EXPECT_TRUE(Abbruch);
    caption = "STOP";
    EXPECT_FALSE(StartStopUmschalten(caption, "Start")) << "only the exact caption means running";
}

}  // namespace
}  // namespace sw
