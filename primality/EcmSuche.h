// EcmSuche: the elliptic-curve method through GMP-ECM, the library the field trusts for
// factors of 15 to 60 digits. The search climbs a ladder of stage-1 bounds B1, each with the
// number of curves that makes a factor of its size very likely to show (the usual table of
// the field); a failed level says the number has no factor of that size with good odds.
#pragma once

#include <gmp.h>

#include <cstdint>
#include <functional>

namespace sw {

struct EcmStufe {
    double b1;
    int32_t kurven;
    int32_t stellen;  // the factor size the level is tuned for
};

// The ladder: 2000 (15 digits), 11000, 50000, 250000, 1e6, 3e6, 11e6, 43e6, 110e6, 260e6,
// 850e6 (65 digits).
int32_t EcmStufenAnzahl();
const EcmStufe& EcmStufeNr(int32_t i);

// One curve with bound b1 on the composite n; the curve's parameter comes from `saat`, so a
// run is repeatable. True with 1 < faktor < n when found. stopp is asked while the curve runs
// (through the library's stop hook); true ends the curve early without a factor.
bool EcmKurve(mpz_ptr faktor, mpz_srcptr n, double b1, uint64_t saat, const std::function<bool()>& stopp);

// Curves saat, saat+1, ... (at most `anzahl`) side by side, one per core: the calling thread
// runs the first with stopp (it may yield to the event loop), the others run on helper threads
// and end when stopp has said true. Counts the curves up to and including the first (by
// number) that found a factor, which is then in faktor, so the answer is the one a run of
// curve after curve gives.
struct EcmErgebnis {
    int32_t kurven = 0;
    bool gefunden = false;
};
EcmErgebnis EcmKurvenParallel(mpz_ptr faktor, mpz_srcptr n, double b1, uint64_t saat, int32_t anzahl,
                          const std::function<bool()>& stopp);

}  // namespace sw
