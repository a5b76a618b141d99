// StoppUhr: logs how long a named job took. The cockpit starts it with the caption of the
// method's button and stops it at the end of the run; a window shows it when the option
// StoppUhrAktiv is on.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace sw {

struct StoppUhrDaten {
    std::chrono::system_clock::time_point start{};
    std::chrono::system_clock::time_point ende{};
    bool laeuft = false;
    std::string name;
};

extern StoppUhrDaten StoppUhr;

// Keeps now and the name, sets the running flag, then shows and yields.
void StoppUhrStart(const std::string& name);
// Keeps the end and clears the flag, then shows and yields.
void StoppUhrStop();
// Hands the stop watch to whoever shows it (the desktop program sets this hook; without it
// nothing is shown). Called with StoppUhrAktiv, so the window can close itself when off.
extern std::function<void(bool aktiv)> StoppUhrZeigenHook;
void StoppUhrZeigen();
// "dd.mm.yyyy hh:mm:ss" of a time point, local time, as the stop watch shows it.
std::string DatumZeitText(std::chrono::system_clock::time_point t);

}  // namespace sw
