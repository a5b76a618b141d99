// The calculator's logic without widgets: memories in formulas, the function buttons, their
// refusals, the history, and the stop flag of a job around the calculator.
#include <gtest/gtest.h>

#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "arith/Rechner.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

class RechnerTest : public SwTest {
protected:
    Rechner r;
    std::string R(RechenFunktion f, const std::string& eingabe) { return Hyp2Text(r.Ausfuehren(f, eingabe)); }
    std::string Fehler(RechenFunktion f, const std::string& eingabe) {
        try {
            r.Ausfuehren(f, eingabe);
        } catch (const Laufzeitfehler& e) {
            return e.Beschreibung();
        }
        ADD_FAILURE() << "no refusal for " << eingabe;
        return "";
    }
};

TEST_F(RechnerTest, MemoriesAreNamedInFormulas) {
    r.Merken(1, Text2Hyp("6"));
    r.Merken(9, Text2Hyp("7"));
    EXPECT_EQ(R(RechenFunktion::Formel, "#1 * #9"), "42");
    EXPECT_TRUE(r.Belegt(1));
    EXPECT_FALSE(r.Belegt(2));
    EXPECT_NE(Fehler(RechenFunktion::Formel, "#2+1").find("#2"), std::string::npos);
    EXPECT_NE(Fehler(RechenFunktion::Formel, "#10").find("#10"), std::string::npos);
    r.Merken(0, Text2Hyp("1"));  // outside 1..9: ignored
    r.Merken(10, Text2Hyp("1"));
}

TEST_F(RechnerTest, FunctionButtonsAndTheirRefusals) {
    using F = RechenFunktion;
    struct Fall {
        F f;
        const char* eingabe;
        const char* soll;  // the result, or a part of the refusal's text
    };
    const Fall werte[] = {{F::Fakultaet, "10", "3628800"}, {F::Primorial2, "13", "30030"},
                          {F::Primorial3, "13", "15015"},  {F::Fibonacci, "100", "354224848179261915075"},
                          {F::Perrin, "10", "17"},         {F::GGT, "2^32+1 ; 641 * 3", "641"},
                          {F::ModInverse, "3;7", "5"},     {F::ModInverse, "5;1", "0"},
                          {F::Wurzel, "10^40+1", "100000000000000000000"}};
    for (const Fall& c : werte) EXPECT_EQ(R(c.f, c.eingabe), c.soll) << c.eingabe;
    const Fall refusals[] = {{F::ModInverse, "6;9", ""}, {F::ModInverse, "6;0", ""}, {F::GGT, "12", ""},
                             {F::Fakultaet, "2^31", "2.147.483.648"}, {F::Fibonacci, "2000000000", ""}};
    for (const Fall& c : refusals) {
        const std::string text = Fehler(c.f, c.eingabe);
        EXPECT_NE(text, "") << c.eingabe;
        EXPECT_NE(text.find(c.soll), std::string::npos) << c.eingabe << ": " << text;
    }
}

TEST_F(RechnerTest, PrimesComeFromTheRasterWhenItCoversTheNumber) {
    EXPECT_EQ(Fehler(RechenFunktion::NaechstePrim, "1000"), Text(497));
    PrimaerLauf(Decimal(10000), MethodeProdukt);
    EXPECT_EQ(R(RechenFunktion::NaechstePrim, "1000"), "1009");
    EXPECT_EQ(R(RechenFunktion::VorherigePrim, "1000"), "997");
    EXPECT_EQ(R(RechenFunktion::NaechstePrim, "1"), "2");
    EXPECT_NE(Fehler(RechenFunktion::VorherigePrim, "2"), "");
    EXPECT_EQ(Fehler(RechenFunktion::NaechstePrim, "10^30"), Text(497));
    EXPECT_EQ(Fehler(RechenFunktion::NaechstePrim, "20000"), Text(497));
}

TEST_F(RechnerTest, HistoryKeepsLinesAndFormulas) {
    R(RechenFunktion::Formel, " 2^10 ");
    R(RechenFunktion::Fakultaet, "10");
    Fehler(RechenFunktion::Formel, "1/0");
    ASSERT_EQ(r.Verlauf().size(), 2u) << "a refused line is not kept";
    EXPECT_EQ(r.Verlauf()[0], "2^10 = 1.024");
    EXPECT_EQ(r.Verlauf()[1], "n! (10) = 3.628.800");
    EXPECT_EQ(r.VerlaufFormeln()[1], "10");
}

void stopp() { Abbruch = true; }

TEST_F(RechnerTest, AStopEndsOnlyTheCalculatorsComputation) {
    Abbruch = true;  // a job around the calculator was asked to stop
    EXPECT_EQ(R(RechenFunktion::Formel, "2+2"), "4");
    EXPECT_TRUE(Abbruch);
    Abbruch = false;
    ui.beiDoEvents = stopp;
    EXPECT_NE(Fehler(RechenFunktion::Fakultaet, "1000000"), "");
    EXPECT_FALSE(Abbruch) << "the calculator's stop must not stop the job around it";
}

}  // namespace
}  // namespace sw::test
