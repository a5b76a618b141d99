// A line of a divisor list or of a saved factor page, as anyone may have written it: a line
// taken as good names an exponent in range and a factor that stands in the line and truly
// divides 2^p - 1; a damaged one says why; a list line without a comma is skipped.
#include <string>
#include <string_view>

#include "FuzzUmgebung.h"
#include "mersenne/DbImport.h"
#include "sieve/RasterTabellen.h"

namespace {
void gutePruefen(const sw::ImportZeile& z, std::string_view zeile) {
    using namespace sw;
    if (z.art == ImportArt::Kaputt) fuzz::Pruefen(!z.grund.empty(), "a damaged line says why");
    if (z.art != ImportArt::Gut) return;
    fuzz::Pruefen(z.exponent >= 2 && z.exponent <= GrenzeLong, "the exponent lies in range");
    fuzz::Pruefen(zeile.find(z.faktor) != std::string_view::npos, "the factor stands in the line");
    fuzz::Pruefen(TeiltMersenne(z.faktor, z.exponent), "the factor divides 2^p - 1");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    const std::string_view zeile(reinterpret_cast<const char*>(daten), groesse);
    const ImportZeile liste = ListenZeileLesen(zeile);
    if (zeile.find(',') == std::string_view::npos) fuzz::Pruefen(liste.art == ImportArt::Leer, "no comma, no entry");
    gutePruefen(liste, zeile);
    gutePruefen(WebZeileLesen(zeile), zeile);
    return 0;
}
