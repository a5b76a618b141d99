#include "frame/OberflaecheTerminal.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <iostream>

#include "frame/basZentral.h"

namespace sw {

namespace {
// Ctrl-C presses so far, and how many of them DoEvents has passed on to Abbruch. The count
// is never reset: a job that yields but does not test Abbruch (the primary sieves) must not
// swallow the second press, which ends the program whatever runs.
volatile std::sig_atomic_t strgCGedrueckt = 0;
std::sig_atomic_t strgCWeitergegeben = 0;

extern "C" void beiStrgC(int) {
    if (strgCGedrueckt > 0) {
        std::signal(SIGINT, SIG_DFL);
        std::raise(SIGINT);
        return;
    }
    strgCGedrueckt = strgCGedrueckt + 1;
}

// Message texts may carry line breaks; on a terminal they read best as one line each.
std::string einzeilig(const std::string& text) {
    std::string s;
    for (char c : text) {
        if (c == '\r') continue;
        s += (c == '\n') ? ' ' : c;
    }
    return s;
}
}  // namespace

int OberflaecheTerminal::Meldung(const std::string& titel, const std::string& text,
                                 MeldungsSymbol symbol, MeldungsKnoepfe knoepfe) {
    int antwort = AntwortOK;
    switch (knoepfe) {
        case MeldungsKnoepfe::OK: antwort = AntwortOK; break;
        case MeldungsKnoepfe::OKAbbrechen: antwort = ja_ ? AntwortOK : AntwortAbbrechen; break;
        case MeldungsKnoepfe::JaNein:
        case MeldungsKnoepfe::JaNeinAbbrechen: antwort = ja_ ? AntwortJa : AntwortNein; break;
    }
    bool frage = knoepfe != MeldungsKnoepfe::OK;
    if (!(leise_ && !frage && symbol == MeldungsSymbol::Information)) {
        std::cerr << titel << ": " << einzeilig(text);
        if (frage) std::cerr << (antwort == AntwortJa || antwort == AntwortOK ? " [ja]" : " [nein]");
        std::cerr << std::endl;
    }
    return antwort;
}

void OberflaecheTerminal::DoEvents() {
    if (strgCGedrueckt != strgCWeitergegeben) {
        strgCWeitergegeben = strgCGedrueckt;
        Abbruch = true;
    }
}

double OberflaecheTerminal::Uhr() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void OberflaecheTerminal::StrgCAbfangen() { std::signal(SIGINT, beiStrgC); }

}  // namespace sw
