// SW.Ini as anyone may have edited it: reading never fails, a write then reads back exactly,
// and a write leaves every other section's values as they were.
#include "FuzzUmgebung.h"
#include "frame/Einstellungen.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* daten, size_t groesse) {
    using namespace sw;
    fuzz::DateiSchreiben("SW.Ini", daten, groesse);
    std::string vorher = IniLesen("Anzeige", "Top");
    IniLesenDouble("Start", "RandomProzentFaktor", 1.0);
    IniLesenLong("Start", "RandomPrimIntervall", 6);

    IniSchreiben("Start", "Left", "1");
    fuzz::Pruefen(IniLesen("Start", "Left") == "1", "a written value reads back");
    fuzz::Pruefen(IniLesen("Anzeige", "Top") == vorher, "other sections keep their values");
    {
        IniSammelSchreiben zusammen;
        IniSchreibenDouble("Start", "RandomProzentFaktor", 0.25);
        IniSchreiben("Neu", "Wert", "a=b;c");
    }
    fuzz::Pruefen(IniLesen("Start", "RandomProzentFaktor") == "0,25", "a grouped write reads back");
    fuzz::Pruefen(IniLesen("Neu", "Wert") == "a=b;c", "a value may hold = and ;");
    fuzz::Pruefen(IniLesen("Start", "Left") == "1", "a later write keeps an earlier one");
    return 0;
}
