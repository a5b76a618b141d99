#include "frame/Pfade.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "frame/basZentral.h"

namespace fs = std::filesystem;

namespace sw {

std::string MitSchraegstrich(std::string ordner) {
    if (!ordner.empty() && ordner.back() != '/') ordner += '/';
    return ordner;
}

std::string ProgrammOrdner() {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec) return MitSchraegstrich(fs::current_path(ec).string());
    return MitSchraegstrich(exe.parent_path().string());
}

std::string ArbeitsOrdnerBestimmen() {
    std::error_code ec;
    if (const char* home = std::getenv("SW_HOME"); home && *home) {
        fs::create_directories(home, ec);
        return MitSchraegstrich(home);
    }
    std::string neben = ProgrammOrdner();
    if (fs::exists(neben + "sw.TEX", ec) && ::access(neben.c_str(), W_OK) == 0) return neben;
    std::string basis;
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg) {
        basis = xdg;
    } else if (const char* h = std::getenv("HOME"); h && *h) {
        basis = std::string(h) + "/.local/share";
    } else {
        basis = "/tmp";
    }
    std::string ordner = MitSchraegstrich(basis) + "sw";
    fs::create_directories(ordner, ec);
    return MitSchraegstrich(ordner);
}

std::string TexDateiPfad() {
    std::error_code ec;
    if (!ProgrammPfad.empty() && fs::exists(ProgrammPfad + "sw.TEX", ec)) return ProgrammPfad + "sw.TEX";
    std::string neben = ProgrammOrdner() + "sw.TEX";
    if (fs::exists(neben, ec)) return neben;
#ifdef SW_DATA_DIR
    return std::string(SW_DATA_DIR) + "/sw.TEX";
#else
    return neben;
#endif
}

namespace {
std::string iniOrdner;
}  // namespace

void IniOrdnerSetzen(const std::string& ordner) { iniOrdner = MitSchraegstrich(ordner); }

std::string IniDateiPfad() { return (iniOrdner.empty() ? ProgrammPfad : iniOrdner) + "SW.Ini"; }

}  // namespace sw
