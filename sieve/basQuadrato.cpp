#include "sieve/basQuadrato.h"

#include <cstdint>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

// For a fixed pair (a, y), n = a(a + 2y) and the numbers a(a + 2y + 120t) lie a words apart
// with the same residue, so one mask serves a strided walk. Going from a to a + 60 moves n on
// by 120(a + y + 30) = 120d with the residue unchanged, so the next start is w0 + d and d
// grows by 60. The pairs with a and y below 60 cover every class; a = 1 is never taken, so
// no prime is struck.
void SiebQuadratDifferenz() {
    uint32_t* const raster = PrimaerRaster.data();
    const int64_t letzter = RasterLetzterIndex;
    for (int64_t a0 = 2; a0 <= 61; ++a0) {
        for (int64_t y = 0; y <= 59; ++y) {
            const int64_t n = (a0 + y) * (a0 + y) - y * y;
            const uint32_t maske = RestMaske[n % RasterSpanne];
            if (maske == 0) continue;
            int64_t w0 = n / RasterSpanne;
            int64_t d = ((a0 + y + 60) * (a0 + y + 60) - (a0 + y) * (a0 + y)) / RasterSpanne;
            int64_t a = a0;
            do {
                for (int64_t x = w0; x <= letzter; x += a) raster[x] |= maske;
                w0 += d;
                a += 60;
                d += 60;
            } while (w0 <= letzter);
        }
        DoEvents();
    }
}

}  // namespace sw
