#include "TestUmgebung.h"

#include <cstdlib>
#include <filesystem>

#include "frame/Pfade.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw::test {

int OberflaecheAufzeichnung::Meldung(const std::string& titel, const std::string& text,
                                     MeldungsSymbol symbol, MeldungsKnoepfe knoepfe) {
    meldungen.push_back({titel, text, symbol, knoepfe});
    if (!antworten.empty()) {
        int a = antworten.front();
        antworten.pop_front();
        return a;
    }
    switch (knoepfe) {
        case MeldungsKnoepfe::JaNein:
        case MeldungsKnoepfe::JaNeinAbbrechen: return AntwortJa;
        default: return AntwortOK;
    }
}

void SwTest::SetUp() {
    namespace fs = std::filesystem;
    std::string muster = (fs::temp_directory_path() / "sw-test-XXXXXX").string();
    ordner_ = std::string(::mkdtemp(muster.data())) + "/";
    ::setenv("SW_HOME", ordner_.c_str(), 1);
    OberflaecheSetzen(&ui);
    ZentralZuruecksetzen();
    ProgrammPfad = ordner_;
    IniOrdnerSetzen(ordner_);
    RasterTabellenAufbauen();
}

void SwTest::TearDown() {
    OberflaecheSetzen(nullptr);
    std::error_code ec;
    std::filesystem::remove_all(ordner_, ec);
}

}  // namespace sw::test
