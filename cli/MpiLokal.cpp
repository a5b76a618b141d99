// The piece jobs in a build without MPI: one process, which runs every piece itself.
#include <cstdlib>

#include "MpiVerteilung.h"

namespace sw::cli {

MpiSitzung::MpiSitzung(int&, char**&) {}
MpiSitzung::~MpiSitzung() = default;
int MpiAnzahl() { return 1; }
int MpiRang() { return 0; }
bool MpiVerteiltLaeuft() { return false; }
void MpiJobAbbrechen(int code) { std::exit(code); }
void MpiNebenbei() {}

void StueckeVerteilen(uint64_t stuecke, const std::function<std::string(uint64_t)>& arbeit,
                      const std::function<void(uint64_t, const std::string&)>& ergebnis) {
    for (uint64_t i = 0; i < stuecke; ++i) ergebnis(i, arbeit(i));
}

}  // namespace sw::cli
