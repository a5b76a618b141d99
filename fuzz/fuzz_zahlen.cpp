// Typed numbers: every text gives a value or a run-time error, and a value survives the way
// back through the text a user sees.
#include <string>

#include "FuzzUmgebung.h"
#include "frame/Decimal.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    std::string text(reinterpret_cast<const char*>(daten), groesse);
    double wert;
    IstNumerisch(text, &wert);
    try {
        Decimal d = Decimal::ausText(text);
        fuzz::Pruefen(Decimal::ausText(d.Text()) == d, "Decimal text round trip");
        FormatZeichen = ".";
        FormatAnzahl = 3;
        fuzz::Pruefen(TextZuDecimal(ZahlFormat(d)) == d, "grouped text reads back");
    } catch (const Laufzeitfehler&) {
    }
    try {
        TextZuDecimal(text);
    } catch (const Laufzeitfehler&) {
    }
    try {
        TextZuLong(text);
    } catch (const Laufzeitfehler&) {
    }
    ZahlFormat(text);
    ZahlFormatRoh(text);
    return 0;
}
