// Formulas: every text gives a value or a run-time error, never a crash or a hang; results are
// capped at a few thousand bits so that each input runs in microseconds. A value survives the
// way through its decimal text. The input is also read a second way, each byte choosing a
// piece of the formula language, and a formula malformed on its face must be refused.
#include <string>

#include "FormelGestalt.h"
#include "FuzzUmgebung.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "zahlkern/zahlkern.h"

namespace {

// The value, or nothing when the evaluation refused the text.
bool hatWert(const std::string& text) {
    using namespace sw;
    try {
        const Hyp wert = Auswerten(text);
        fuzz::Pruefen(aEqualHypHyp(Ziffern2Hyp(Hyp2Text(wert)), wert) != 0, "value reads back from its text");
        return true;
    } catch (const Laufzeitfehler&) {
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    HoechstBits = 4096;
    const std::string text(reinterpret_cast<const char*>(daten), groesse);
    hatWert(text);
    try {
        Formel2Hyp(text);
    } catch (const Laufzeitfehler&) {
    }
    static const char* const stuecke[] = {"0",  "1",   "7",   "12",  "(",   ")",    "^",      "%",   "/",
                                          "*",  "+",   "-",   "MOD", "mod", "MODULO", "SQR", "SQRT", "SqrMod",
                                          "AB", "#",   "#0",  "99",  "9"};
    std::string formel;
    for (size_t i = 0; i < groesse && i < 64; ++i) formel += stuecke[daten[i] % (sizeof stuecke / sizeof *stuecke)];
    if (hatWert(formel)) fuzz::Pruefen(!formelgestalt::Fehlerhaft(formel), "a malformed formula is refused");
    return 0;
}
