// The run of one button without the window: which line ends it, whether the verdict is
// proven, the pre-test deciding before any method, the limit written back, and the stop.
#include <gtest/gtest.h>

#include "TestUmgebung.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/PrimzahlTest.h"

namespace sw::test {
namespace {

struct Aufzeichnung : PrimTestAnzeige {
    void Hinweis(const std::string& text) override { zeilen.push_back(text); }
    void GrenzeZeigen(const std::string& text) override { grenze = text; }
    void StoppZeigen(bool sichtbar) override { stopp.push_back(sichtbar); }
    std::vector<std::string> zeilen;
    std::string grenze;
    std::vector<bool> stopp;
};

class PrimzahlTestLauf_ : public SwTest {
protected:
    PrimTestErgebnis Lauf(const std::string& zahl, const std::string& grenze, int32_t methode) {
        a = Aufzeichnung{};
        return PrimzahlTestLauf(PrimTestEingabe(zahl), grenze, methode, PrimTestName(methode), a);
    }
    Aufzeichnung a;
};

TEST_F(PrimzahlTestLauf_, VorpruefungEntscheidetFuerJedeMethode) {
    struct Fall {
        const char* zahl;
        const char* grenze;
        PrimUrteil urteil;
        std::string text;
    };
    const Fall faelle[] = {
        {"2", "0", PrimUrteil::Prim, Text(140)},
        {"3", "0", PrimUrteil::Prim, Text(140)},
        {"5", "1000", PrimUrteil::Prim, Text(140)},
        {"1", "1000", PrimUrteil::Keines, Text(1202)},
        {"0", "1000", PrimUrteil::Zusammengesetzt, Text(141)},
        {"2^64", "0", PrimUrteil::Zusammengesetzt, Text(141)},
        {"3*10^50+3", "0", PrimUrteil::Zusammengesetzt, Text(141)},
        {"91", "100", PrimUrteil::Zusammengesetzt, TextP1(142, "7")},
        {"97", "100", PrimUrteil::Prim, Text(140)},          // the limit passes the root
        {"1000003*1000033", "2.000.000", PrimUrteil::Zusammengesetzt, TextP1(142, "1.000.003")},
    };
    for (int32_t m = 0; m < PrimTestMethodenAnzahl; ++m) {
        for (const Fall& f : faelle) {
            const PrimTestErgebnis e = Lauf(f.zahl, f.grenze, m);
            EXPECT_EQ(e.urteil, f.urteil) << f.zahl << " method " << m;
            EXPECT_EQ(e.text, f.text) << f.zahl << " method " << m;
            EXPECT_EQ(e.bewiesen, f.urteil != PrimUrteil::Keines) << f.zahl;
            EXPECT_EQ(a.zeilen.front(), Text(135));
            EXPECT_EQ(a.stopp, (std::vector<bool>{true, false}));
        }
    }
}

TEST_F(PrimzahlTestLauf_, BewiesenOderWahrscheinlich) {
    struct Fall {
        const char* zahl;
        const char* grenze;
        int32_t methode;
        PrimUrteil urteil;
        bool bewiesen;
    };
    const Fall faelle[] = {
        // Below 2^64 a passed test is made certain by BPSW.
        {"2^61-1", "1000", MethodeMillerRabin, PrimUrteil::Prim, true},
        {"2^61-1", "1000", MethodeStrassen, PrimUrteil::Prim, true},
        {"2^61-1", "1000", MethodePerrin, PrimUrteil::Prim, true},
        {"2^61-1", "1000", MethodeFermat, PrimUrteil::Prim, true},
        {"2^61-1", "1000", MethodeBpsw, PrimUrteil::Prim, true},
        // 341 passes Fermat to base 2 with a limit below its factor 11, and BPSW refuses it.
        {"341", "10", MethodeFermat, PrimUrteil::WahrscheinlichPrim, false},
        {"341", "10", MethodeBpsw, PrimUrteil::Zusammengesetzt, true},
        // Above 2^64 a pass is proven when N-1 factors far enough (2^89-2 does), else it stays
        // probable; a failure is certain.
        {"2^89-1", "1000", MethodeBpsw, PrimUrteil::Prim, true},
        {"2^89-1", "1000", MethodeMillerRabin, PrimUrteil::Prim, true},
        {"2^9941-1", "1000", MethodeBpsw, PrimUrteil::WahrscheinlichPrim, false},
        {"2^67-1", "1000", MethodePerrin, PrimUrteil::Zusammengesetzt, true},
        {"2^67-1", "1000", MethodeFermat, PrimUrteil::WahrscheinlichPrim, false},  // a pseudoprime: no proof
        {"2^67-1", "1000", MethodeBpsw, PrimUrteil::Zusammengesetzt, true},
        // The two exact methods.
        {"1000003", "0", MethodeFermatSuche, PrimUrteil::Prim, true},
        {"1000003*1000033", "0", MethodeFermatSuche, PrimUrteil::Zusammengesetzt, true},
        {"1000003*1000033", "0", MethodeWurzelProbedivision, PrimUrteil::Zusammengesetzt, true},
        {"1000000007", "0", MethodeWurzelProbedivision, PrimUrteil::Prim, true},
    };
    for (const Fall& f : faelle) {
        const PrimTestErgebnis e = Lauf(f.zahl, f.grenze, f.methode);
        EXPECT_EQ(e.urteil, f.urteil) << f.zahl << " method " << f.methode << ": " << e.text;
        EXPECT_EQ(e.bewiesen, f.bewiesen) << f.zahl << " method " << f.methode;
    }
    EXPECT_EQ(Lauf("2^61-1", "1000", MethodeBpsw).text, TextP1(1200, "BPSW"));
    EXPECT_EQ(Lauf("2^89-1", "0", MethodeFermat).text, TextP1(1201, "Fermat"));
    EXPECT_EQ(Lauf("2^9941-1", "0", MethodeFermat).text, TextP1(137, "Fermat"));
    EXPECT_EQ(Lauf("1000003", "0", MethodeFermatSuche).text, Text(136));
}

TEST_F(PrimzahlTestLauf_, GrenzeGruppiertUndFehler) {
    Lauf("127", "100000", MethodeFermat);
    EXPECT_EQ(a.grenze, "100.000");
    // A formula that cannot be evaluated is the caller's error box; the stop button goes.
    EXPECT_EQ(GeworfeneNummer([&] { Lauf("2^(", "0", MethodeFermat); }) != 0 || !ui.meldungen.empty(), true);
    EXPECT_FALSE(a.stopp.back());
    EXPECT_NE(GeworfeneNummer([&] { Lauf("127", "zehn", MethodeFermat); }), 0);
    EXPECT_FALSE(a.stopp.back());
}

TEST_F(PrimzahlTestLauf_, StoppInDenAnhaltbarenMethoden) {
    ui.beiDoEvents = [] { Abbruch = true; };
    struct Fall {
        const char* zahl;
        const char* grenze;
        int32_t methode;
    };
    // The walk up from 7 in the pre-test, the walk down from the root, Fermat's search.
    const Fall faelle[] = {{"10^200+357", "2.000.000.000", MethodeBpsw},
                           {"2^89-1", "100", MethodeWurzelProbedivision},
                           {"2^89-1", "100", MethodeFermatSuche}};
    for (const Fall& f : faelle) {
        const PrimTestErgebnis e = Lauf(f.zahl, f.grenze, f.methode);
        EXPECT_EQ(e.urteil, PrimUrteil::Abgebrochen) << f.zahl << " " << f.methode;
        EXPECT_EQ(e.text, Text(139));
        EXPECT_FALSE(a.stopp.back());
    }
}

}  // namespace
}  // namespace sw::test
