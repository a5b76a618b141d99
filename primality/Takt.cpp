#include "primality/Takt.h"

#include <algorithm>

#include "frame/Oberflaeche.h"

namespace sw {

namespace {
// A clock that stands still (a test's) must not let the interval grow without bound.
constexpr int64_t kHoechstesIntervall = int64_t(1) << 16;
}  // namespace

Takt::Takt(double zielSekunden) : ziel_(zielSekunden), letzte_(Timer()) {}

void Takt::neuMessen() {
    const double jetzt = Timer();
    const double dauer = jetzt - letzte_;
    letzte_ = jetzt;
    // At most doubled at a time, so that a first short interval does not overshoot; shrunk at
    // once when steps turn out slow.
    const double faktor = dauer > 0 ? std::min(2.0, ziel_ / dauer) : 2.0;
    intervall_ = std::clamp<int64_t>(int64_t(double(intervall_) * faktor), 1, kHoechstesIntervall);
    rest_ = intervall_;
}

}  // namespace sw
