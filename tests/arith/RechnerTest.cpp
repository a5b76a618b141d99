// The calculator's logic without widgets: memories in formulas, the function buttons, their
// refusals, the history, and the stop flag of a job around the calculator.
#include <gtest/gtest.h>

#include "ArithHilfen.h"
#include "TestUmgebung.h"
#include "arith/HypText.h"
#include "arith/Rechner.h"
#include "arith/basHyper.h"
#include "frame/Einstellungen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"

namespace sw::test {
namespace {

class RechnerTest : public SwTest {
protected:
    Rechner r;
    std::string R(RechenFunktion f, const std::string& eingabe) { return r.Ausfuehren(f, eingabe).ziffern; }
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

TEST_F(RechnerTest, NextAndPreviousPrimeUpToTheSquareOfTheLimit) {
    EXPECT_EQ(Fehler(RechenFunktion::NaechstePrim, "1000"), Text(497));
    PrimaerLauf(Decimal(10000), MethodeProdukt);  // decidable up to 10^8
    using F = RechenFunktion;
    const char* faelle[][3] = {
        {"1", "2", ""},             {"1000", "1009", "997"},        {"3", "5", "2"},
        {"9999", "10007", "9973"},  // across the raster's limit, both ways
        {"10007", "10009", "9973"}, {"10008", "10009", "10007"},   {"123456789/2", "61728413", "61728391"},
        {"10^8", "", "99999989"},   {"99999989", "", "99999971"},  // the next one lies beyond 10^8
    };
    for (auto& f : faelle) {
        const std::string nach = *f[1] ? R(F::NaechstePrim, f[0]) : Fehler(F::NaechstePrim, f[0]);
        EXPECT_EQ(nach, *f[1] ? std::string(f[1]) : Text(497)) << f[0];
        if (*f[2]) {
            EXPECT_EQ(R(F::VorherigePrim, f[0]), f[2]) << f[0];
        }
    }
    EXPECT_NE(Fehler(F::VorherigePrim, "2"), "");
    EXPECT_EQ(Fehler(F::NaechstePrim, "10^8+1"), Text(497));
    EXPECT_EQ(Fehler(F::VorherigePrim, "10^30"), Text(497));
    // Random points against GMP's primes.
    Mpz n, p;
    for (int i = 0; i < 40; ++i) {
        const unsigned long x = 10000 + Zufall()() % 99000000;
        mpz_set_ui(n.z, x);
        mpz_nextprime(p.z, n.z);
        EXPECT_EQ(R(F::NaechstePrim, std::to_string(x)), p.Text()) << x;
        unsigned long v = x - 1;
        while (!mpz_probab_prime_p((mpz_set_ui(p.z, v), p.z), 30)) --v;
        EXPECT_EQ(R(F::VorherigePrim, std::to_string(x)), std::to_string(v)) << x;
    }
    EXPECT_TRUE(ui.meldungen.empty());
}

TEST_F(RechnerTest, MemoriesAreKeptForTheNextSession) {
    r.Merken(2, Auswerten("2^127-1"));
    r.Merken(3, Auswerten("10^600"));  // three parts in the settings file
    r.Merken(3, Auswerten("7"));       // and back to one
    r.Merken(4, Auswerten("10^1200"));
    EXPECT_FALSE(r.Merken(5, Auswerten("10^20000"))) << "too long for the settings file";
    EXPECT_TRUE(r.Belegt(5)) << "but kept for this session";
    IniSchreiben("Rechner", "Speicher(6)", "2");
    IniSchreiben("Rechner", "Speicher(6).1", "12");
    IniSchreiben("Rechner", "Speicher(6).2", "3x");  // damaged by hand
    Rechner neu;
    neu.SpeicherLaden();
    EXPECT_EQ(Hyp2Text(neu.Speicher(2)), "170141183460469231731687303715884105727");
    EXPECT_EQ(Hyp2Text(neu.Speicher(3)), "7");
    EXPECT_EQ(Hyp2Text(neu.Speicher(4)), "1" + std::string(1200, '0'));
    EXPECT_FALSE(neu.Belegt(1));
    EXPECT_FALSE(neu.Belegt(5));
    EXPECT_FALSE(neu.Belegt(6));
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

TEST_F(RechnerTest, AStopEndsTheTextOfAHugeResultToo) {
    // A memory is read without any computation: only its millions of digits take time.
    r.Merken(1, Auswerten("3^4000000"));
    ui.beiDoEvents = stopp;
    EXPECT_EQ(GeworfeneNummer([&] { r.Ausfuehren(RechenFunktion::Formel, "#1"); }), 18);
    EXPECT_TRUE(r.Verlauf().empty());
    ui.beiDoEvents = nullptr;
    ZahlenSystem = 7;
    const RechenErgebnis e = r.Ausfuehren(RechenFunktion::Formel, "#1 / 3^3999998");
    EXPECT_EQ(e.ziffern, "9");
    EXPECT_EQ(e.basisZiffern, "12");
}

}  // namespace
}  // namespace sw::test
