#include "frame/Programm.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "frame/Einstellungen.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Pfade.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

void ProgrammStarten(bool ordnerWechseln) {
    ProgrammPfad = ArbeitsOrdnerBestimmen();
    IniOrdnerSetzen(ProgrammPfad);
    // A folder that cannot be entered leaves the current one: every path the program builds
    // itself starts with ProgrammPfad.
    if (ordnerWechseln) {
        std::error_code ec;
        std::filesystem::current_path(ProgrammPfad, ec);
    }
    RasterEcht = true;
    RasterTabellenAufbauen();

    for (int i = 0; i < 4; ++i) {
        // The key the cockpit's own closing writes for the control array lblCol.
        GrossZahlFarbe[i] = IniLesenLong(StartSektion, "lblCol(" + std::to_string(i) + ")", GrossZahlFarbe[i]);
    }
    AktivesFenster = "Cockpit";
    RandomEinstellungenLesen();
    StoppUhr.start = StoppUhr.ende = std::chrono::system_clock::now();

    Text(101);  // sw.TEX must be readable; this reports a missing file once, with its path
}

std::string StartNotiz() { return Text(583) + Text(101); }

void RandomEinstellungenLesen() {
    RandomProzentFaktor = IniLesenDouble(StartSektion, "RandomProzentFaktor", 1.0);
    RandomFaktorBitKette = IniLesenLong(StartSektion, "RandomFaktorBitKette", 0);
    RandomInfoText = IniLesen(StartSektion, "RandomInfoText");
    if (RandomInfoText.empty()) RandomInfoText = "(2,3,5)";
    RandomPrimIntervall = std::max(6, IniLesenLong(StartSektion, "RandomPrimIntervall", 6));
}

void RandomEinstellungenSchreiben() {
    IniSammelSchreiben zusammen;
    IniSchreibenDouble(StartSektion, "RandomProzentFaktor", RandomProzentFaktor);
    IniSchreiben(StartSektion, "RandomFaktorBitKette", static_cast<long long>(RandomFaktorBitKette));
    IniSchreiben(StartSektion, "RandomInfoText", RandomInfoText);
}

bool BeendenErlaubt(bool endeFrage) { return !endeFrage || MsgEndeFrage() == AntwortJa; }

void ProgrammBeenden() {
    RandomEinstellungenSchreiben();
    if (StoppUhrZeigenHook) StoppUhrZeigenHook(false);
}

}  // namespace sw
