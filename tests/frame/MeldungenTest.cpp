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

TEST_F(MeldungenTest, EachBoxHasItsTitleIconButtonsAndText) {
    Laufzeitfehler fehler(FehlerKeinSpeicher);
    MsgInfo(203);
    MsgInfoText("frei");
    MsgInfoP1(474, "1.000");
    MsgInfoP1P2(118, "7", "3");
    MsgSpeicher(fehler);
    MsgLimit(Laufzeitfehler(FehlerUeberlauf));
    MsgNichtImplementiert();
    MsgLaufwerk();
    MsgBereich();
    MsgLimit512();
    MsgFehler(203, Laufzeitfehler(FehlerDivisionDurchNull));

    struct Erwartet {
        const char* titel;
        std::string text;
        MeldungsSymbol symbol;
    };
    const std::vector<Erwartet> erwartet = {
        {"SW - Info", Text(203), MeldungsSymbol::Information},
        {"SW - Info", "frei", MeldungsSymbol::Information},
        {"SW - Info", TextP1(474, "1.000"), MeldungsSymbol::Information},
        {"SW - Info", "7 teilt 2^3-1", MeldungsSymbol::Information},
        {"SW - Memory", TextP1P2(204, "7", "Nicht genügend Speicher"), MeldungsSymbol::Information},
        {"SW - Limit", TextP1P2(205, "6", "Überlauf"), MeldungsSymbol::Information},
        {"SW - Not implemented", Text(203), MeldungsSymbol::Information},
        {"SW - Drive", Text(206), MeldungsSymbol::Information},
        {"SW - Info", Text(207), MeldungsSymbol::Information},
        {"SW - Info", Text(512), MeldungsSymbol::Information},
        {"SW - Error", Text(203) + "\nNr.: 11 Division durch Null", MeldungsSymbol::Stopp},
    };
    ASSERT_EQ(ui.meldungen.size(), erwartet.size());
    for (size_t i = 0; i < erwartet.size(); ++i) {
        const AufgezeichneteMeldung& m = ui.meldungen[i];
        EXPECT_EQ(m.titel, erwartet[i].titel) << i;
        EXPECT_EQ(m.text, erwartet[i].text) << i;
        EXPECT_FALSE(m.text.empty()) << i;
        EXPECT_EQ(m.symbol, erwartet[i].symbol) << i;
        EXPECT_EQ(m.knoepfe, MeldungsKnoepfe::OK) << i;
    }
    EXPECT_NE(ui.meldungen[4].text.find("Nicht genügend Speicher"), std::string::npos);
}

TEST_F(MeldungenTest, QuestionsReturnTheButtonChosen) {
    ui.antworten = {AntwortJa, AntwortNein, AntwortAbbrechen};
    EXPECT_EQ(MsgFrage(400), AntwortJa);
    EXPECT_EQ(MsgFrage(404), AntwortNein);
    EXPECT_EQ(MsgEndeFrage(), AntwortAbbrechen);
    ASSERT_EQ(ui.meldungen.size(), 3u);
    EXPECT_EQ(ui.meldungen[0].titel, "SW - ???");
    EXPECT_EQ(ui.meldungen[0].symbol, MeldungsSymbol::Frage);
    EXPECT_EQ(ui.meldungen[0].knoepfe, MeldungsKnoepfe::JaNein);
    EXPECT_EQ(ui.meldungen[2].titel, "SW-Stop?");
    EXPECT_EQ(ui.meldungen[2].text, Text(491));
    EXPECT_EQ(ui.meldungen[2].knoepfe, MeldungsKnoepfe::JaNeinAbbrechen);
}

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

TEST_F(MeldungenTest, RunTimeErrorsCarryThePlatformsNumbersAndDescriptions) {
    EXPECT_EQ(Laufzeitfehler(6).Beschreibung(), "Überlauf");
    EXPECT_EQ(Laufzeitfehler(7).Beschreibung(), "Nicht genügend Speicher");
    EXPECT_EQ(Laufzeitfehler(11).Beschreibung(), "Division durch Null");
    EXPECT_EQ(Laufzeitfehler(13).Beschreibung(), "Typen unverträglich");
    EXPECT_EQ(Laufzeitfehler(53).Beschreibung(), "Datei nicht gefunden");
    EXPECT_EQ(Laufzeitfehler(70).Beschreibung(), "Zugriff verweigert");
    EXPECT_STREQ(Laufzeitfehler(53, "Datei nicht gefunden: x").what(), "Datei nicht gefunden: x");
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
