#include "sieve/SiebSchritte.h"

#include <cstdint>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

// Strikes start, start + schritt, ... up to grenze. The number is kept as word and remainder
// by 120, so the loop adds and compares and never divides; multiples with a factor 2, 3 or 5
// meet a zero mask.
void KetteStreichen(uint32_t* raster, int64_t start, int64_t schritt, int64_t grenze) {
    const int64_t schrittWort = schritt / RasterSpanne;
    const int32_t schrittRest = int32_t(schritt % RasterSpanne);
    int64_t wort = start / RasterSpanne;
    int32_t rest = int32_t(start % RasterSpanne);
    for (int64_t x = start; x <= grenze; x += schritt) {
        raster[wort] |= RestMaske[rest];
        wort += schrittWort;
        rest += schrittRest;
        if (rest > RasterSpanne - 1) {
            rest -= RasterSpanne;
            ++wort;
        }
    }
}

// Methods 2 and 6 share the walk over the sieving words; each bit is tested when its turn
// comes, so the primes of a word strike before its later bits are looked at.
template <typename Streichen>
void WortweiseSieben(Streichen streichen) {
    uint32_t* const raster = PrimaerRaster.data();
    const int64_t grenze = PrimaerGrenze.AlsInt64();
    for (int64_t k = 0; k <= PrimaerWurzelWort; ++k) {
        for (int i = 1; i <= 32; ++i) {
            if (raster[k] & BitMaske[i]) continue;
            const int64_t p = RasterSpanne * k + RasterRest[i];
            if (p * p > grenze) continue;
            streichen(raster, p, grenze);
        }
        DoEvents();
    }
}

}  // namespace

void SiebQuadratSchritt() {
    const int64_t grenze = PrimaerGrenze.AlsInt64();
    if (grenze < 169) return;
    uint32_t* const raster = PrimaerRaster.data();
    const int64_t letzter = RasterLetzterIndex;

    int64_t p = 13;
    int radIndex = 3;             // RadSchritt[3] leads from 13 to 17
    int64_t quadrat = 169;
    int64_t abstand = 56;         // to the next odd square, 15^2 - 13^2
    int64_t doppeltWort = 0;      // 2p = 120 * doppeltWort + doppeltRest
    int32_t doppeltRest = 26;
    while (quadrat <= grenze) {
        if (!(raster[p / RasterSpanne] & RestMaske[p % RasterSpanne])) {
            // Remainders stay in 1..120; 120 has the mask 0, which is right, as the number
            // then is a multiple of 120.
            int64_t wort = quadrat / RasterSpanne;
            int32_t rest = int32_t(quadrat % RasterSpanne);
            while (wort <= letzter) {
                raster[wort] |= RestMaske[rest];
                rest += doppeltRest;
                wort += doppeltWort;
                if (rest > RasterSpanne) {
                    rest -= RasterSpanne;
                    ++wort;
                }
            }
        }
        DoEvents();
        for (int zweier = RadSchritt[radIndex] / 2; zweier > 0; --zweier) {
            quadrat += abstand;
            doppeltRest += 4;
            abstand += 8;
            if (doppeltRest > RasterSpanne) {
                doppeltRest -= RasterSpanne;
                ++doppeltWort;
            }
            p += 2;
        }
        radIndex = (radIndex + 1) & 7;
    }
}

void SiebWortSchritt() {
    WortweiseSieben([](uint32_t* raster, int64_t p, int64_t grenze) {
        KetteStreichen(raster, p * p, 2 * p, grenze);
    });
}

void SiebSechserSchritt() {
    WortweiseSieben([](uint32_t* raster, int64_t p, int64_t grenze) {
        KetteStreichen(raster, p * p, 6 * p, grenze);
        KetteStreichen(raster, p * (p % 6 == 5 ? p + 2 : p + 4), 6 * p, grenze);
    });
}

}  // namespace sw
