// The message family (titles, icons, buttons, texts) and the terminal face of sw-cli.
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>

#include "TestUmgebung.h"
#include "frame/Meldungen.h"
#include "frame/OberflaecheTerminal.h"
#include "frame/Pfade.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"

namespace sw {
namespace {

using MeldungenTest = test::SwTest;
using test::AufgezeichneteMeldung;

TEST_F(MeldungenTest, ErrorBoxesStillShowTheErrorWhenTheTextTableIsGone) {
    std::filesystem::create_directory(Ordner() + "sw.TEX");  // no readable table in its place
    ASSERT_EQ(TexDateiPfad(), Ordner() + "sw.TEX");
    EXPECT_THROW(MsgInfo(203), Laufzeitfehler) << "ordinary boxes report the missing file";
    EXPECT_NO_THROW(MsgFehler(203, Laufzeitfehler(FehlerUeberlauf)));
    EXPECT_NO_THROW(MsgSpeicher(Laufzeitfehler(FehlerKeinSpeicher)));
    EXPECT_NO_THROW(MsgLimit(Laufzeitfehler(FehlerUeberlauf)));
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_NE(ui.meldungen[0].text.find("sw.TEX"), std::string::npos) << ui.meldungen[0].text;
    EXPECT_NE(ui.meldungen[0].text.find("Nr.: 6 Überlauf"), std::string::npos);
    EXPECT_NE(ui.meldungen[1].text.find("Nr.: 7 Nicht genügend Speicher"), std::string::npos);
}

TEST(OberflaecheTerminalTest, AnswersFromTheFlagPrintsToStderrAndCtrlCStopsAtTheNextYield) {
    OberflaecheTerminal t;
    testing::internal::CaptureStderr();
    EXPECT_EQ(t.Meldung("SW - ???", "Weiter?#CR", MeldungsSymbol::Frage, MeldungsKnoepfe::JaNein), AntwortNein);
    t.JaSetzen(true);
    EXPECT_EQ(t.Meldung("SW-Stop?", "Ende?", MeldungsSymbol::Frage, MeldungsKnoepfe::JaNeinAbbrechen), AntwortJa);
    EXPECT_EQ(t.Meldung("SW - Info", "zwei\nZeilen", MeldungsSymbol::Information, MeldungsKnoepfe::OK), AntwortOK);
    t.LeiseSetzen(true);
    t.Meldung("SW - Info", "leise", MeldungsSymbol::Information, MeldungsKnoepfe::OK);
    t.Meldung("SW - Error", "laut", MeldungsSymbol::Stopp, MeldungsKnoepfe::OK);
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("SW - ???: Weiter?#CR [nein]\n"), std::string::npos) << err;
    EXPECT_NE(err.find("SW-Stop?: Ende? [ja]\n"), std::string::npos) << err;
    EXPECT_NE(err.find("SW - Info: zwei Zeilen\n"), std::string::npos) << err;
    EXPECT_EQ(err.find("leise"), std::string::npos) << "--quiet hides information";
    EXPECT_NE(err.find("laut"), std::string::npos) << "errors are always shown";

    Abbruch = false;
    struct sigaction vorher {};
    ::sigaction(SIGINT, nullptr, &vorher);
    OberflaecheTerminal::StrgCAbfangen();
    ::raise(SIGINT);
    EXPECT_FALSE(Abbruch) << "the flag changes only at a yield";
    t.DoEvents();
    EXPECT_TRUE(Abbruch);
    Abbruch = false;
    t.DoEvents();
    EXPECT_FALSE(Abbruch) << "one press stops one job once";
    ::sigaction(SIGINT, &vorher, nullptr);  // a second press would end the test program
    EXPECT_GT(t.Uhr(), 0);
}

}  // namespace
}  // namespace sw
