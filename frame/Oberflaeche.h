// Oberflaeche: the one road from logic to the person in front of the program. Message boxes,
// the yield to the event loop and the clock go through it, so that every job runs the same
// under the desktop program (message boxes, processEvents), sw-cli (stderr, answers from
// flags, Ctrl-C) and the tests (a recording fake).
#pragma once

#include <string>

namespace sw {

enum class MeldungsSymbol { Information, Frage, Stopp, Ausruf };
enum class MeldungsKnoepfe { OK, JaNein, JaNeinAbbrechen, OKAbbrechen };

// Answers carry the old platform's button numbers: callers compare against 6 for Yes.
enum Antwort : int { AntwortOK = 1, AntwortAbbrechen = 2, AntwortJa = 6, AntwortNein = 7 };

class Oberflaeche {
public:
    virtual ~Oberflaeche() = default;
    // Shows a modal box and returns the button chosen.
    virtual int Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                        MeldungsKnoepfe knoepfe) = 0;
    // Gives the event loop a turn; long jobs call it at their stated cadence.
    virtual void DoEvents() = 0;
    // Seconds on a monotonic clock; job times are differences of two readings.
    virtual double Uhr() = 0;
};

// The implementation in force. Until one is set, a terminal implementation answers.
Oberflaeche& UI();
// Installs an implementation (not owned; it must outlive its use). nullptr restores the default.
void OberflaecheSetzen(Oberflaeche* ui);

// The yield of every job. It counts how deeply yields nest, so that code run by the event loop
// can tell whether it interrupts a job (see SekundaerSperre).
void DoEvents();
// 0 outside any yield, 1 inside the turn a job gave the event loop, 2 inside a yield of a job
// started during that turn, ...
int EreignisTiefe();
inline double Timer() { return UI().Uhr(); }

}  // namespace sw
