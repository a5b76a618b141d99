// sw.TEX as anyone may have edited it: the numbered lookup, the number list of key 999 and
// the window sections must give a text or a run-time error for any content, never a crash.
#include "FuzzUmgebung.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::DateiSchreiben("sw.TEX", daten, groesse);
    for (int key : {-1, 0, 1, 101, 200, 999, 32767}) {
        // The marks are replaced in one pass: none survives, none is formed anew.
        std::string klein = Klein(Text(key));
        fuzz::Pruefen(klein.find("#cr") == std::string::npos && klein.find("#v") == std::string::npos,
                      "no #CR or #V left in a text");
        TextP1P2(key, "#P2", "#P1");
    }
    try {
        TextListe(999);
    } catch (const Laufzeitfehler&) {
        // a word in the list: reported to the caller, as designed
    }
    for (const char* sektion : {"Start", "start", "", "Anzeige"}) {
        std::vector<TextPaar> paare = SektionLesen(sektion);
        SektionTitel(paare);
        for (const TextPaar& p : paare) {
            std::string wert;
            fuzz::Pruefen(SektionWert(paare, p.name, wert), "every pair is found by its name");
            SteuerText st = WertZerlegen(p.wert);
            ListenEintraege(st.text);
            TextFeldUebernimmt(st.text);
        }
    }
    return 0;
}
