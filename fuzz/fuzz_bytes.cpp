// Typed hex bytes and texts: every input gives a number or a run-time error; a number's hex
// bytes read back to the same number, and a text's bytes come back as the same text whenever
// it does not end in NUL bytes (leading zero bytes of a number are not kept).
#include <string>

#include "FuzzUmgebung.h"
#include "arith/ByteZahl.h"
#include "arith/HypText.h"
#include "frame/Laufzeitfehler.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    const std::string text(reinterpret_cast<const char*>(daten), groesse);
    try {
        const Hyp n = HexBytesZahl(text);
        fuzz::Pruefen(Hyp2Text(HexBytesZahl(BytesHex(n))) == Hyp2Text(n), "hex bytes read back");
    } catch (const Laufzeitfehler&) {
    }
    const BytesAlsText zurueck = ZahlText(TextZahl(text));
    if (!text.empty() && text.back() != '\0') fuzz::Pruefen(zurueck.text == text, "text bytes come back");
    fuzz::Pruefen(!zurueck.lesbar || IstUtf8(zurueck.text), "only UTF-8 is shown as text");
    return 0;
}
