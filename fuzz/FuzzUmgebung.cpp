#include "FuzzUmgebung.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw::fuzz {

namespace {
class Stumm : public Oberflaeche {
public:
    int Meldung(const std::string&, const std::string&, MeldungsSymbol, MeldungsKnoepfe) override {
        return AntwortJa;
    }
    void DoEvents() override {}
    double Uhr() override { return 0; }
};
}  // namespace

const std::string& Umgebung() {
    static const std::string ordner = [] {
        std::string muster = (std::filesystem::temp_directory_path() / "sw-fuzz-XXXXXX").string();
        std::string o = std::string(::mkdtemp(muster.data())) + "/";
        static Stumm stumm;
        OberflaecheSetzen(&stumm);
        ProgrammPfad = o;
        RasterTabellenAufbauen();
        // The folder goes when the fuzzer ends, however many inputs it ran.
        static std::string aufraeumen = o;
        std::atexit([] {
            std::error_code ec;
            std::filesystem::remove_all(aufraeumen, ec);
        });
        return o;
    }();
    return ordner;
}

void DateiSchreiben(const std::string& name, const uint8_t* daten, size_t groesse) {
    std::string ziel = Umgebung() + name, neu = ziel + ".neu";
    {
        std::ofstream f(neu, std::ios::binary);
        f.write(reinterpret_cast<const char*>(daten), static_cast<std::streamsize>(groesse));
    }
    std::rename(neu.c_str(), ziel.c_str());
}

void Pruefen(bool bedingung, const char* was) {
    if (!bedingung) {
        std::fprintf(stderr, "property broken: %s\n", was);
        std::abort();
    }
}

}  // namespace sw::fuzz
