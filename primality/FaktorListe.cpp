#include "primality/FaktorListe.h"

#include <string>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

bool imBereich(const Decimal& n) { return n >= Decimal(2) && n <= PrimaerGrenze; }

}  // namespace

bool FaktorStartGueltig(const std::string& text) {
    const std::string ziffern = ZahlBereinigt(text);
    if (ziffern.empty() || ziffern.size() > 10) return false;
    for (char c : ziffern) {
        if (c < '0' || c > '9') return false;
    }
    return imBereich(TextZuDecimal(ziffern));
}

FaktorZeilen FaktorListeBauen(const Decimal& start, const Decimal& schritt, const Decimal& plusMinus) {
    // A step of 0 would never reach the end of the run, a negative one would walk away from it.
    if (schritt < Decimal(1)) throw Laufzeitfehler(5, Text(1250));
    if (plusMinus < Decimal(0) || plusMinus * Decimal(2) + Decimal(1) > Decimal(FaktorListeHoechstens)) {
        throw Laufzeitfehler(5, TextP1(1251, ZahlFormat(Decimal((FaktorListeHoechstens - 1) / 2))));
    }
    FaktorZeilen liste;
    const Decimal ende = start + plusMinus * schritt;
    for (Decimal n = start - plusMinus * schritt; n <= ende; n += schritt) {
        if (!imBereich(n)) continue;
        if (n == start) liste.auswahl = int32_t(liste.zeilen.size());
        liste.zeilen.push_back(ZahlFormat(n) + " >>> " + (IstPrim(n) ? Text(595) : FaktorText(n)));
    }
    return liste;
}

std::optional<Decimal> FaktorSchritt(int index, const Decimal& x, const Decimal& a, Decimal& letzter) {
    Decimal wert;
    switch (index) {
        case 0: wert = x + a; break;
        case 1: wert = x - a; break;
        case 2: wert = x * a; break;
        case 3:
            if (a.IstNull()) throw Laufzeitfehler(FehlerDivisionDurchNull, Text(1252));
            wert = x / a;
            break;
        default: {
            // The prime next to the last value: it becomes the last value, so that clicking
            // again walks on from prime to prime.
            const Decimal p = index < 6 ? NaechstePrim(letzter) : VorherigePrim(letzter);
            if (p.IstNull()) {
                letzter = 1;
                return std::nullopt;
            }
            wert = index % 2 == 0 ? p + a : p - a;
            if (imBereich(wert)) letzter = p;
        }
    }
    if (!imBereich(wert)) {
        letzter = 1;
        return std::nullopt;
    }
    if (index < 4) letzter = wert;
    return wert;
}

}  // namespace sw
