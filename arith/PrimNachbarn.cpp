#include "arith/PrimNachbarn.h"

#include <algorithm>
#include <vector>

#include "arith/basRechnen.h"
#include "frame/basZentral.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

// 1024 words cover 122,880 numbers, far more than the largest prime gap below 2^80, so one
// window nearly always answers; sieving a window costs mostly the start offsets of the
// sieving primes, so a smaller one would save little.
constexpr uint64_t kFensterWoerter = 1024;

bool entscheidbar() { return RasterBereit && !PrimaerQuadrat.IstNull(); }

void fensterYield(void*, uint64_t, uint64_t) { RechnenYield(); }

Decimal alsDecimal(Zahl128 x) { return Decimal::ausBreit(Decimal::Breit(x)); }

// The window of kFensterWoerter words from basis (a multiple of 120, above the primary
// limit), sieved by the primes up to the root of its last number.
std::vector<uint32_t> fenster(Zahl128 basis) {
    std::vector<uint32_t> raster(kFensterWoerter, 0);
    const Zahl128 letzte = std::min(basis + Zahl128(kFensterWoerter) * RasterSpanne - 1, Zahl128(Decimal::Maximum));
    const Zahl128 wurzel = GanzeWurzel(alsDecimal(letzte)).Betrag();
    const uint64_t grenze = uint64_t(std::min(wurzel, PrimaerGrenze.Betrag()));
    SekundaerFensterSieben(raster.data(), kFensterWoerter, basis, grenze, fensterYield, nullptr);
    return raster;
}

}  // namespace

Decimal PrimNach(const Decimal& n) {
    if (!entscheidbar()) return 0;
    if (n < PrimaerGrenze) {
        const Decimal p = NaechstePrim(n);
        if (!p.IstNull()) return p;
    }
    const Zahl128 quadrat = PrimaerQuadrat.Betrag();
    Zahl128 von = std::max(n.Betrag(), PrimaerGrenze.Betrag()) + 1;
    for (Zahl128 basis = von / RasterSpanne * RasterSpanne; basis <= quadrat;
         basis += Zahl128(kFensterWoerter) * RasterSpanne) {
        const std::vector<uint32_t> raster = fenster(basis);
        Zahl128 gefunden = 0;
        FreieBitsDurchlaufen(raster.data(), 0, kFensterWoerter, basis, von, quadrat, [&](Zahl128 p) {
            gefunden = p;
            return false;
        });
        if (gefunden != 0) return alsDecimal(gefunden);
    }
    return 0;
}

Decimal PrimVor(const Decimal& n) {
    if (!entscheidbar()) return 0;
    if (n <= PrimaerGrenze) return VorherigePrim(n);
    const Zahl128 untergrenze = PrimaerGrenze.Betrag() + 1;  // the first number beyond the raster
    if (n.Betrag() - 1 > PrimaerQuadrat.Betrag()) return 0;
    const Zahl128 spanne = Zahl128(kFensterWoerter) * RasterSpanne;
    for (Zahl128 bis = n.Betrag() - 1; bis >= untergrenze;) {
        const Zahl128 oben = bis / RasterSpanne * RasterSpanne;  // the window's last word
        const Zahl128 tief = untergrenze / RasterSpanne * RasterSpanne;
        const Zahl128 basis = oben - tief >= spanne ? oben + RasterSpanne - spanne : tief;
        const std::vector<uint32_t> raster = fenster(basis);
        Zahl128 gefunden = 0;
        FreieBitsDurchlaufen(raster.data(), 0, kFensterWoerter, basis, std::max(basis, untergrenze), bis, [&](Zahl128 p) {
            gefunden = p;  // ascending: the last one seen is the greatest
            return true;
        });
        if (gefunden != 0) return alsDecimal(gefunden);
        if (basis <= untergrenze) break;
        bis = basis - 1;
    }
    return IstPrim(PrimaerGrenze) ? PrimaerGrenze : VorherigePrim(PrimaerGrenze);
}

}  // namespace sw
