#include "primality/PrimzahlTest.h"

#include <algorithm>

#include "arith/basHyper.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/PrimBeweis.h"
#include "primality/PrimTests.h"
#include "primality/Probedivision.h"

namespace sw {

namespace {

// The one place where a passed test may become a proof: below 2^64 BPSW decides exactly,
// above it the factors of n - 1 may prove it.
void BeweisVersuchen(const Hyp& zahl, const std::string& caption, PrimTestBericht& bericht) {
    if (zahl.anzahl() <= 2 && BpswTest(zahl)) {
        bericht.Urteil(PrimUrteil::Prim, true, TextP1(1200, caption));
    } else if (NMinusEinsBeweis(zahl)) {
        bericht.Urteil(PrimUrteil::Prim, true, TextP1(1201, caption));
    }
}

bool testen(int32_t methode, const Hyp& zahl) {
    switch (methode) {
        case MethodeMillerRabin: return MillerRabin(zahl);
        case MethodeStrassen: return StrassenTest(zahl);
        case MethodePerrin: return PerrinTest(zahl);
        case MethodeFermat: return FermatTest(zahl);
        default: return BpswTest(zahl);
    }
}

void methodeAusfuehren(int32_t methode, const Hyp& zahl, int32_t grenze, const std::string& caption,
                       PrimTestBericht& bericht) {
    if (methode == MethodeWurzelProbedivision) {
        WurzelProbedivision(zahl, grenze, bericht);
        return;
    }
    if (methode == MethodeFermatSuche) {
        // Exact either way: the walk proves a prime, and a split is a factor.
        if (FermatSuche(zahl)) {
            bericht.Urteil(PrimUrteil::Prim, true, Text(136));
        } else if (!Abbruch) {
            bericht.Urteil(PrimUrteil::Zusammengesetzt, true, TextP1(138, caption));
        }
        return;
    }
    // Every prime passes these tests, so a failure proves the number composite; a pass only
    // makes it probable.
    if (!testen(methode, zahl)) {
        bericht.Urteil(PrimUrteil::Zusammengesetzt, true, TextP1(138, caption));
        return;
    }
    bericht.Urteil(PrimUrteil::WahrscheinlichPrim, false, TextP1(137, caption));
    BeweisVersuchen(zahl, caption, bericht);
}

}  // namespace

std::string PrimTestName(int32_t methode) {
    std::string wert;
    const std::string key = "btnTest(" + std::to_string(methode) + ")";
    if (!SektionWert(SektionLesen("PrimzahlTest"), key, wert)) return key;
    return WertZerlegen(wert).text;
}

std::string PrimTestEingabe(const std::string& feld) {
    const std::string t = Trimmen(feld);
    const std::string wort = FormelWort();
    if (!wort.empty() && t.compare(0, wort.size(), wort) == 0) return t;
    const bool zahl = std::all_of(t.begin(), t.end(), [](char c) {
        return (c >= '0' && c <= '9') || c == '.' || c == ' ' || (!FormatZeichen.empty() && c == FormatZeichen[0]);
    });
    return zahl ? t : wort + " " + t;
}

PrimTestErgebnis PrimzahlTestLauf(const std::string& zahlText, const std::string& grenzeText, int32_t methode,
                                  const std::string& caption, PrimTestAnzeige& anzeige) {
    PrimTestBericht bericht(anzeige);
    bericht.Zwischenstand(Text(135));
    Abbruch = false;
    anzeige.StoppZeigen(true);
    try {
        const Hyp zahl = Formel2Hyp(zahlText);
        int32_t grenze = std::max(TextZuLong(grenzeText), 0);
        anzeige.GrenzeZeigen(ZahlFormatLong(grenze));
        DoEvents();
        StoppUhrStart(caption);
        // The walk from the root needs the small divisors done by the pre-test.
        if (methode == MethodeWurzelProbedivision) grenze = std::max(grenze, 100);
        if (Vorpruefung(zahl, grenze, bericht)) {
            // The pre-test left its last divisor in the line; the method runs under "running".
            bericht.Zwischenstand(Text(135));
            DoEvents();
            methodeAusfuehren(methode, zahl, grenze, caption, bericht);
        }
        // A verdict that was reached stands, even when the stop came during its last step.
        if (Abbruch && bericht.Ergebnis().urteil == PrimUrteil::Offen) {
            bericht.Urteil(PrimUrteil::Abgebrochen, false, Text(139));
        }
        StoppUhrStop();
    } catch (...) {
        anzeige.StoppZeigen(false);
        throw;
    }
    anzeige.StoppZeigen(false);
    return bericht.Ergebnis();
}

}  // namespace sw
