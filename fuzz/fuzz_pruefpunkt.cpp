// A Lucas-Lehmer checkpoint as a damaged disk or another program may leave it: reading never
// crashes and either finds nothing, refuses the file with a run-time error, or gives a state a
// run can go on from, which then writes and reads back unchanged. The input is read once as it
// is and once with its checksum made right, so that the checks behind the checksum are reached.
#include <cstring>

#include "FuzzUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "mersenne/LucasPruefpunkt.h"

namespace {

constexpr uint32_t kP = 89;  // three words, the top one partly used

void Lesen(const std::string& datei) {
    using namespace sw;
    std::optional<LucasPruefpunkt> punkt;
    try {
        punkt = PruefpunktLesen(datei, kP);
    } catch (const Laufzeitfehler&) {
        return;
    }
    fuzz::Pruefen(punkt.has_value(), "an existing file is read or refused");
    fuzz::Pruefen(punkt->p == kP && punkt->rest.size() == 3, "the state belongs to the exponent asked for");
    fuzz::Pruefen(punkt->iteration >= 1 && punkt->iteration < kP, "the iteration lies inside the run");
    fuzz::Pruefen((punkt->rest[2] >> (kP % 32)) == 0, "the residue stays below 2^p");
    PruefpunktSchreiben(datei, *punkt);
    const std::optional<LucasPruefpunkt> wieder = PruefpunktLesen(datei, kP);
    fuzz::Pruefen(wieder && wieder->methode == punkt->methode && wieder->iteration == punkt->iteration &&
                      wieder->rest == punkt->rest,
                  "a written checkpoint reads back unchanged");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    const std::string datei = fuzz::Umgebung() + "Lucas_89.chk";
    fuzz::DateiSchreiben("Lucas_89.chk", daten, groesse);
    Lesen(datei);
    if (groesse < 8) return 0;
    // The same bytes with the FNV-1a sum of all but the last eight in the last eight.
    std::string s(reinterpret_cast<const char*>(daten), groesse);
    uint64_t h = 1469598103934665603ull;
    for (size_t i = 0; i + 8 < groesse; ++i) h = (h ^ uint8_t(s[i])) * 1099511628211ull;
    std::memcpy(s.data() + groesse - 8, &h, 8);
    fuzz::DateiSchreiben("Lucas_89.chk", reinterpret_cast<const uint8_t*>(s.data()), groesse);
    Lesen(datei);
    return 0;
}
