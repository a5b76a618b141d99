#include "distribution/Restklassen.h"

#include "distribution/Bereichsgang.h"

#include <algorithm>
#include <numeric>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

RestklassenZaehlung::RestklassenZaehlung(uint64_t m, Zahl128 von, Zahl128 bis, uint64_t a, uint64_t b, int32_t punkte)
    : m_(m), von_(von), a_(a), b_(b) {
    if (m < 2 || m > RestklassenModulMax) throw Laufzeitfehler(5, Text(2260));
    anzahl_.assign(m, 0);
    for (uint64_t r = 0; r < m; ++r) {
        if (std::gcd(r, m) == 1) klassen_.push_back(r);
    }
    if (a_ != 0 || b_ != 0) {
        if (a_ >= m || b_ >= m || a_ == b_ || std::gcd(a_, m) != 1 || std::gcd(b_, m) != 1) {
            throw Laufzeitfehler(5, Text(2261));
        }
    } else {
        // No race: no residue can match (m itself is no residue).
        a_ = b_ = m;
    }
    if (punkte < 1) punkte = 1;
    breite_ = bis >= von ? (bis - von) / Zahl128(punkte) + 1 : 1;
    kurve_.assign(size_t(punkte), RennPunkt{});
}

void RestklassenZaehlung::rennen(Zahl128 p, int schritt) {
    fuehrung_ += schritt;
    const int zeichen = (fuehrung_ > 0) - (fuehrung_ < 0);
    if (zeichen != 0 && zeichen != vorzeichen_) {
        // The first leader is no change: the race starts there.
        if (vorzeichen_ != 0) wechsel_.push_back({p, fuehrung_});
        vorzeichen_ = zeichen;
    }
    RennPunkt& k = kurve_[std::min<size_t>(kurve_.size() - 1, size_t((p - von_) / breite_))];
    if (!k.belegt) {
        k.tief = k.hoch = fuehrung_;
        k.belegt = true;
    }
    k.tief = std::min(k.tief, fuehrung_);
    k.hoch = std::max(k.hoch, fuehrung_);
    k.ende = fuehrung_;
}

uint64_t RestklassenZaehlung::ImGanzen() const {
    uint64_t s = 0;
    for (uint64_t r : klassen_) s += anzahl_[r];
    return s;
}

uint64_t RestklassenZaehlung::Ausserhalb() const {
    return std::accumulate(anzahl_.begin(), anzahl_.end(), uint64_t(0)) - ImGanzen();
}

double RestklassenZaehlung::ChiQuadrat() const {
    const double erwartet = double(ImGanzen()) / double(klassen_.size());
    if (erwartet <= 0) return 0;
    double chi = 0;
    for (uint64_t r : klassen_) {
        const double d = double(anzahl_[r]) - erwartet;
        chi += d * d / erwartet;
    }
    return chi;
}

namespace {

// Words between two reports: half a million numbers.
constexpr uint64_t BlockWoerter = 4096;

bool inBloecken(RestklassenZaehlung& z, const uint32_t* raster, uint64_t erstes, uint64_t letztes, Zahl128 basis0,
                Zahl128 von, Zahl128 bis, RestklassenMelder melden, void* kontext) {
    for (uint64_t a = erstes; a < letztes; a += BlockWoerter) {
        const uint64_t b = std::min(letztes, a + BlockWoerter);
        FreieBitsDurchlaufen(raster, a, b, basis0, von, bis, [&](Zahl128 p) {
            z.Prim(p);
            return true;
        });
        if (melden && !melden(kontext, double(b - erstes) / double(letztes - erstes))) return false;
    }
    return true;
}

}  // namespace

bool RestklassenPrimaer(RestklassenZaehlung& z, Zahl128 von, Zahl128 bis, RestklassenMelder melden, void* kontext) {
    // 2, 3 and 5 have no bit.
    for (uint32_t klein : {2u, 3u, 5u}) {
        if (Zahl128(klein) >= von && Zahl128(klein) <= bis) z.Prim(klein);
    }
    const std::optional<RasterStrecke> s = PrimaerStrecke(von, bis);
    return !s || inBloecken(z, s->woerter, s->erstes, s->letztes, s->basis, von, s->bis, melden, kontext);
}

bool RestklassenSekundaer(RestklassenZaehlung& z, Zahl128 von, Zahl128 bis, RestklassenMelder melden, void* kontext) {
    const std::optional<RasterStrecke> s = SekundaerStrecke(von, bis);
    return !s || inBloecken(z, s->woerter, s->erstes, s->letztes, s->basis, von, s->bis, melden, kontext);
}

}  // namespace sw
