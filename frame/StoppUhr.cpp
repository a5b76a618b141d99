#include "frame/StoppUhr.h"

#include <ctime>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"

namespace sw {

StoppUhrDaten StoppUhr;
std::function<void(bool aktiv)> StoppUhrZeigenHook;

void StoppUhrStart(const std::string& name) {
    StoppUhr.start = std::chrono::system_clock::now();
    StoppUhr.name = name;
    StoppUhr.laeuft = true;
    StoppUhrZeigen();
    DoEvents();
}

void StoppUhrStop() {
    StoppUhr.ende = std::chrono::system_clock::now();
    StoppUhr.laeuft = false;
    StoppUhrZeigen();
    DoEvents();
}

void StoppUhrZeigen() {
    if (StoppUhrZeigenHook) StoppUhrZeigenHook(StoppUhrAktiv);
}

std::string DatumZeitText(std::chrono::system_clock::time_point t) {
    std::time_t sekunden = std::chrono::system_clock::to_time_t(t);
    std::tm tm{};
    localtime_r(&sekunden, &tm);
    char puffer[32];
    std::strftime(puffer, sizeof puffer, "%d.%m.%Y %H:%M:%S", &tm);
    return puffer;
}

}  // namespace sw
