// The text table: lookup by number, the window sections, placeholders, and the files that
// come from elsewhere (CRLF, Windows-1252, keys out of order, no file at all).
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "TestUmgebung.h"
#include "frame/Pfade.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"

namespace sw {
namespace {

class TexteTest : public test::SwTest {
protected:
    // Writes sw.TEX into the working folder, where the lookup takes it first.
    void tex(const std::string& inhalt) {
        std::ofstream(Ordner() + "sw.TEX", std::ios::binary) << inhalt;
    }
};

TEST_F(TexteTest, LookupStopsAtTheFirstGreaterNumberAndSkipsComments) {
    tex("; Kommentar 5=nein\n"
        "\n"
        "   5 = fünf  |Tipp\n"
        "7=sieben\n"
        "6=unerreichbar\n"
        "9=neun   \n"
        "[Start]\n"
        "8=in einem Abschnitt\n");
    EXPECT_EQ(Text(5), " fünf");  // text up to "|", trailing blanks cut, leading kept
    EXPECT_EQ(Text(7), "sieben");
    EXPECT_EQ(Text(6), "") << "6 stands behind 7: the search has ended before it";
    EXPECT_EQ(Text(9), "neun");
    EXPECT_EQ(Text(8), "") << "9 is greater, so the numbered line in the section is never reached";
    EXPECT_EQ(Text(4), "");
    EXPECT_EQ(Text(1000), "");
}

TEST_F(TexteTest, PlaceholdersIgnoreCaseAndOnlyTheirOwnFunctionReplacesThem) {
    tex("1=Version #v, neu#cRZeile\n"
        "2=#P1 teilt #p2, #P1 bleibt\n"
        "3=keine Parameter: #P1\n");
    EXPECT_EQ(Text(1), "Version " + VersionText() + ", neu\nZeile");
    EXPECT_EQ(Text(3), "keine Parameter: #P1");
    EXPECT_EQ(TextP1(3, "x"), "keine Parameter: x");
    EXPECT_EQ(TextP1(3, 42LL), "keine Parameter: 42");
    EXPECT_EQ(TextP1P2(2, "q", "e"), "q teilt e, q bleibt");
    // What the user typed is not searched again for marks.
    EXPECT_EQ(TextP1P2(2, "#P2", "#P1"), "#P2 teilt #P1, #P2 bleibt");
    FormatZeichen = ".";
    FormatAnzahl = 3;
    EXPECT_EQ(TextP1Zahl(3, Decimal::ausText("1234567")), "keine Parameter: 1.234.567");
}

TEST_F(TexteTest, ListOfNumbersSkipsEmptyEntriesAndRejectsText) {
    tex("1=2; 3;5;;7 ;\n2=3;x;5\n3=\n");
    EXPECT_EQ(TextListe(1), (std::vector<int32_t>{2, 3, 5, 7}));
    EXPECT_TRUE(TextListe(3).empty());
    EXPECT_EQ(test::GeworfeneNummer([] { TextListe(2); }), 13) << "a word in a number list must be reported";
}

TEST_F(TexteTest, WindowsFilesWithCrlfAndCodePage1252ReadLikeUtf8) {
    tex("1=Gr\xF6\xDF\x65 \x80 \x93Zitat\x94\r\n"
        "2=zwei|Tipp\r\n"
        "[Start]\r\n"
        "Caption=SW #V|x\r\n"
        "lblA=\xC4rger\r\n");
    EXPECT_EQ(Text(1), "Größe € “Zitat”");
    EXPECT_EQ(Text(2), "zwei");
    auto paare = SektionLesen("start");
    ASSERT_EQ(paare.size(), 2u);
    EXPECT_EQ(paare[1].wert, "Ärger") << "no CR may stick to a value";
    EXPECT_EQ(SektionTitel(paare), "SW " + VersionText());
}

TEST_F(TexteTest, SectionsPairsCaptionAndControls) {
    tex("1=eins\n"
        "[Anzeige]\n"
        "x=falsch\n"
        "[Start]\n"
        "Fenster=SW #V - Cockpit|Tipp\n"
        "; Kommentar\n"
        "ohne Gleichheitszeichen\n"
        "btnStart(3) = Produkte|Siebt mit Produkten\n"
        "cmbListe=a|b|c\n"
        "[Ende]\n"
        "y=z\n");
    auto paare = SektionLesen("START");
    ASSERT_EQ(paare.size(), 4u);
    EXPECT_EQ(paare[1].name, "");
    EXPECT_EQ(paare[1].wert, "") << "a line without = is an empty pair";
    EXPECT_EQ(SektionTitel(paare), "SW " + VersionText() + " - Cockpit");

    std::string wert;
    ASSERT_TRUE(SektionWert(paare, "BTNSTART(3)", wert));
    EXPECT_EQ(wert, " Produkte|Siebt mit Produkten");
    SteuerText st = WertZerlegen(wert);
    EXPECT_EQ(st.tooltip, "Siebt mit Produkten");
    EXPECT_TRUE(st.hatTooltip);

    ASSERT_TRUE(SektionWert(paare, "cmbListe", wert));
    EXPECT_EQ(ListenEintraege(WertZerlegen(wert).text), (std::vector<std::string>{"a", "b"}));
    EXPECT_FALSE(SektionWert(paare, "x", wert)) << "sections do not share keys";

    EXPECT_TRUE(SektionLesen("Fehlt").empty());
}

TEST_F(TexteTest, PresetNumbersAboveTwoBillionStayInTheirTextBox) {
    FormatZeichen = ".";
    EXPECT_TRUE(TextFeldUebernimmt("1000"));
    EXPECT_TRUE(TextFeldUebernimmt("2.000.000.000"));
    EXPECT_FALSE(TextFeldUebernimmt("2.000.000.001"));
    EXPECT_FALSE(TextFeldUebernimmt(""));
    EXPECT_TRUE(TextFeldUebernimmt("Text"));
}

TEST_F(TexteTest, MissingOrUnreadableFileIsARunTimeErrorThatNamesIt) {
    // A folder in the place of sw.TEX: found first, and no file to read.
    std::filesystem::create_directory(Ordner() + "sw.TEX");
    ASSERT_EQ(TexDateiPfad(), Ordner() + "sw.TEX");
    try {
        Text(1);
        FAIL() << "expected run-time error 53";
    } catch (const Laufzeitfehler& e) {
        EXPECT_EQ(e.Nummer(), 53);
        EXPECT_NE(e.Beschreibung().find(Ordner() + "sw.TEX"), std::string::npos) << e.Beschreibung();
    }
}

}  // namespace
}  // namespace sw
