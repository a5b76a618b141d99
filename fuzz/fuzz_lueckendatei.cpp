// A saved gap count as a user may hand it back, edited or torn: either three lists of equal
// length come back or it is refused, without a crash or a read past the text; a stored setting
// is either a value in its range or, with a message, the default.
#include <string>

#include "FuzzUmgebung.h"
#include "distribution/AbstandDatei.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    const std::string text(reinterpret_cast<const char*>(daten), groesse);
    std::string fehler;
    const std::optional<AbstandTabelle> tabelle = AbstandCsvLesen(text, fehler);
    if (tabelle) {
        fuzz::Pruefen(tabelle->differenzen.size() == tabelle->anzahlen.size() &&
                          tabelle->anzahlen.size() == tabelle->werte.size(),
                      "the three lists have one length");
    }
    std::string meldung;
    const int32_t wert = LueckenEinstellung("EingabeModus", text, 1, 2, meldung);
    fuzz::Pruefen(wert >= 0 && wert <= 2, "a setting stays in its range");
    if (!meldung.empty()) fuzz::Pruefen(wert == 1, "a refused setting gives the default");
    return 0;
}
