#include "views/ZahlInfo.h"

#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

// The neighbours of n inside the secondary window (0 where the window ends first).
void ImFenster(const Decimal& n, Decimal& vor, Decimal& nach) {
    const Zahl128 x = n.Betrag();
    Zahl128 letzte = 0;
    SekundaerDurchlaufen(SekundaerStart.Betrag(), x == 0 ? 0 : x - 1, [&](Zahl128 p) { return letzte = p, true; });
    if (letzte) vor = Decimal(letzte);
    SekundaerDurchlaufen(x + 1, SekundaerEnde.Betrag() + RasterSpanne, [&](Zahl128 p) { return nach = Decimal(p), false; });
}

}  // namespace

ZahlInfo ZahlInfoErmitteln(const Decimal& n) {
    ZahlInfo info;
    info.zahl = ZahlFormat(n);
    if (ZahlenSystem != 10) info.basis = BasisBeschriftung() + ": " + ZahlInBasis(n);
    const std::string ziffern = n.Betrag() == 0 ? "0" : Decimal(n.Betrag()).Text();
    info.stellen = int32_t(ziffern.size());
    info.rest6 = (n % Decimal(6)).AlsLong();
    info.rest30 = (n % Decimal(30)).AlsLong();
    info.rest120 = (n % Decimal(120)).AlsLong();
    if (n >= Decimal(2) && RasterBereit) {
        info.faktoren = FaktorenText(n);
        info.prim = info.faktoren == n.Text();
    }
    Decimal vor, nach;
    if (RasterBereit && n < PrimaerGrenze) {
        vor = VorherigePrim(n);
        nach = NaechstePrim(n);
    }
    if (!SekundaerRaster.empty() && n >= SekundaerStart && n <= SekundaerEnde) {
        Decimal v, w;
        ImFenster(n, v, w);
        if (vor.IstNull()) vor = v;
        if (nach.IstNull()) nach = w;
    }
    if (!vor.IstNull()) {
        info.vorherige = ZahlFormat(vor);
        info.abstandVor = ZahlFormat(n - vor);
    }
    if (!nach.IstNull()) {
        info.naechste = ZahlFormat(nach);
        info.abstandNach = ZahlFormat(nach - n);
    }
    return info;
}

}  // namespace sw
