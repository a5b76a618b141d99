#include "frame/Speicher.h"

#include <sys/resource.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "frame/Zahlformat.h"

namespace sw {

namespace {

// The fields of /proc/meminfo that the memory window needs, in bytes (the file gives kB).
struct MemInfo {
    uint64_t gesamt = 0, frei = 0, verfuegbar = 0, puffer = 0, cache = 0;
    uint64_t swapGesamt = 0, swapFrei = 0;
    bool verfuegbarDa = false;
};

MemInfo memInfoLesen(const std::string& pfad) {
    MemInfo m;
    std::ifstream f(pfad);
    std::string zeile;
    while (std::getline(f, zeile)) {
        std::istringstream z(zeile);
        std::string name;
        unsigned long long kb = 0;
        if (!(z >> name >> kb)) continue;
        uint64_t bytes = static_cast<uint64_t>(kb) * 1024;
        if (name == "MemTotal:") m.gesamt = bytes;
        else if (name == "MemFree:") m.frei = bytes;
        else if (name == "MemAvailable:") { m.verfuegbar = bytes; m.verfuegbarDa = true; }
        else if (name == "Buffers:") m.puffer = bytes;
        else if (name == "Cached:") m.cache = bytes;
        else if (name == "SwapTotal:") m.swapGesamt = bytes;
        else if (name == "SwapFree:") m.swapFrei = bytes;
    }
    return m;
}

// The address space this process has taken so far (VmSize of /proc/self/status).
uint64_t belegterAdressraum() {
    std::ifstream f("/proc/self/status");
    std::string zeile;
    while (std::getline(f, zeile)) {
        if (zeile.rfind("VmSize:", 0) == 0) {
            std::istringstream z(zeile.substr(7));
            unsigned long long kb = 0;
            z >> kb;
            return static_cast<uint64_t>(kb) * 1024;
        }
    }
    return 0;
}

}  // namespace

SpeicherStand SpeicherLesen() {
    SpeicherStand s;
    MemInfo m = memInfoLesen("/proc/meminfo");
    // Kernels before 3.14 have no MemAvailable; free plus caches is what they would give back.
    uint64_t frei = m.verfuegbarDa ? m.verfuegbar : m.frei + m.puffer + m.cache;
    if (frei > m.gesamt) frei = m.gesamt;
    s.physischGesamt = m.gesamt;
    s.physischFrei = frei;
    s.auslagerungGesamt = m.swapGesamt;
    s.auslagerungFrei = m.swapFrei;
    if (m.gesamt > 0) {
        s.auslastung = static_cast<int32_t>(std::lround(100.0 * static_cast<double>(m.gesamt - frei) /
                                                         static_cast<double>(m.gesamt)));
    }
    // Virtual memory is what this process may still take: up to its address-space limit when
    // one is set, else as much as the machine can back with memory and swap.
    struct rlimit grenze {};
    if (::getrlimit(RLIMIT_AS, &grenze) == 0 && grenze.rlim_cur != RLIM_INFINITY) {
        uint64_t belegt = belegterAdressraum();
        s.virtuellGesamt = grenze.rlim_cur;
        s.virtuellFrei = belegt < s.virtuellGesamt ? s.virtuellGesamt - belegt : 0;
    } else {
        s.virtuellGesamt = m.gesamt + m.swapGesamt;
        s.virtuellFrei = frei + m.swapFrei;
    }
    return s;
}

std::string GroesseText(uint64_t bytes) {
    constexpr uint64_t MB = 1024ull * 1024, GB = 1024 * MB;
    std::string text;
    if (bytes >= GB) text = ZahlFormat(static_cast<long long>(bytes / GB)) + " GB ";
    return text + ZahlFormat(static_cast<long long>((bytes % GB) / MB)) + " MB";
}

}  // namespace sw
