// Test support shared by every test program: a recording Oberflaeche that keeps each box
// and answers from a queue, and a fresh working folder per test (SW_HOME), so that tests
// never touch a user's files and never depend on each other.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"

namespace sw::test {

struct AufgezeichneteMeldung {
    std::string titel;
    std::string text;
    MeldungsSymbol symbol;
    MeldungsKnoepfe knoepfe;
};

class OberflaecheAufzeichnung : public Oberflaeche {
public:
    int Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                MeldungsKnoepfe knoepfe) override;
    void DoEvents() override { ++doEvents; if (beiDoEvents) beiDoEvents(); }
    double Uhr() override { return uhr; }

    std::vector<AufgezeichneteMeldung> meldungen;
    std::deque<int> antworten;   // answers for the next questions; empty: the first button
    int doEvents = 0;
    double uhr = 0;
    void (*beiDoEvents)() = nullptr;
};

// The number of the run-time error that f() throws; 0 if it returns normally.
template <class F>
int GeworfeneNummer(F&& f) {
    try {
        f();
    } catch (const Laufzeitfehler& e) {
        return e.Nummer();
    }
    return 0;
}

// Base fixture: installs the recording Oberflaeche, resets the central state, builds the
// tables and points ProgrammPfad at a fresh temporary folder that is removed afterwards.
class SwTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
    std::string Ordner() const { return ordner_; }

    OberflaecheAufzeichnung ui;

private:
    std::string ordner_;
};

}  // namespace sw::test
