// Formulas: every text gives a value or a run-time error, never a crash or a hang; results are
// capped at a few thousand bits so that each input runs in microseconds. A value survives the
// way through its decimal text, and no evaluation leaves its store behind.
#include <string>

#include "FuzzUmgebung.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "zahlkern/zahlkern.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::Umgebung();
    HoechstBits = 4096;
    const std::string text(reinterpret_cast<const char*>(daten), groesse);
    try {
        const Hyp wert = Auswerten(text);
        fuzz::Pruefen(aEqualHypHyp(Text2Hyp(Hyp2Text(wert)), wert) != 0, "value reads back from its text");
    } catch (const Laufzeitfehler&) {
    }
    fuzz::Pruefen(HypSpeicher.empty(), "the store is empty after an evaluation");
    try {
        Formel2Hyp(text);
    } catch (const Laufzeitfehler&) {
    }
    return 0;
}
