#include "distribution/Bereichsgang.h"

#include <algorithm>
#include <cmath>

#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"

namespace sw {

namespace {

// 2^21 words (250 million numbers, 8 MB) per window: the start offsets of the sieving primes
// are paid rarely, and the window's memory stays small beside the raster.
constexpr uint64_t FensterWoerter = uint64_t(1) << 21;

Zahl128 wurzel(Zahl128 n) {
    Zahl128 w = Zahl128(std::sqrt(double(n)));
    while (w * w > n) --w;
    while ((w + 1) * (w + 1) <= n) ++w;
    return w;
}

}  // namespace

bool BereichExakt(const Decimal& bis) { return !(SekundaerExaktBis() < bis); }

bool BereichGehen(Zahl128 von, Zahl128 bis, const std::function<bool(Zahl128, Zahl128)>& primaer,
                  const std::function<bool(Zahl128, Zahl128)>& fenster) {
    const Zahl128 g = PrimaerGrenze.Betrag();
    if (von <= g && !primaer(von, std::min(bis, g))) return false;
    const uint64_t reichweite = SekundaerSiebReichweite();
    for (Zahl128 a = std::max(von, g + 1); a <= bis;) {
        const Zahl128 basis = a / RasterSpanne * RasterSpanne;
        const uint64_t woerter = uint64_t(std::min<Zahl128>(FensterWoerter, (bis - basis) / RasterSpanne + 1));
        const Zahl128 ende = basis + Zahl128(woerter) * RasterSpanne - 1;
        const uint64_t grenze = uint64_t(std::min<Zahl128>(wurzel(ende), reichweite));
        if (!SekundaerFensterSetzen(basis, woerter, std::max<uint64_t>(grenze, 7))) return false;
        if (!fenster(a, std::min(ende, bis))) return false;
        a = ende + 1;
    }
    return true;
}

std::optional<RasterStrecke> PrimaerStrecke(Zahl128 von, Zahl128 bis) {
    if (PrimaerRaster.empty()) return std::nullopt;
    bis = std::min(bis, PrimaerGrenze.Betrag());
    if (von > bis) return std::nullopt;
    const uint64_t letztes = std::min<uint64_t>(PrimaerRaster.size(), uint64_t(bis / RasterSpanne) + 1);
    return RasterStrecke{PrimaerRaster.data(), uint64_t(von / RasterSpanne), letztes, 0, bis};
}

std::optional<RasterStrecke> SekundaerStrecke(Zahl128 von, Zahl128 bis) {
    const Zahl128 basis0 = SekundaerStart.Betrag();
    if (SekundaerRaster.empty() || bis < basis0 || von > bis) return std::nullopt;
    const uint64_t erstes = von > basis0 ? uint64_t((von - basis0) / RasterSpanne) : 0;
    const uint64_t letztes = uint64_t(std::min<Zahl128>(SekundaerRaster.size(), (bis - basis0) / RasterSpanne + 1));
    if (erstes >= letztes) return std::nullopt;
    return RasterStrecke{SekundaerRaster.data(), erstes, letztes, basis0, bis};
}

}  // namespace sw
