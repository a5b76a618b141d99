#include "sieve/basBitPrim.h"

#include <cstdint>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

// The private tables of the method.
struct BitTabellen {
    int32_t rest[32];          // BitRest: the residues coprime to 30
    int32_t schritt[8] = {2, 6, 4, 2, 4, 2, 4, 6};  // BitSchritt: from -1 to 1, 1 to 7, ...
    uint32_t maske[32];        // BitMaskeIntern: bit b from the bottom
    uint32_t restMaske[121];   // BitRestMaske: residue to mask, 0 without a bit
    int64_t stufeWort[8];      // BitStufeWort / BitStufeRest: quotient and remainder by 120
    int32_t stufeRest[8];      //   of the eight steps of the cofactor, times p

    BitTabellen() {
        int32_t r = -1;
        for (int i = 0, s = 0; i < 32; ++i, s = (s + 1) % 8) {
            r += schritt[s];
            rest[i] = r;
        }
        for (int b = 31; b >= 0; --b) maske[31 - b] = uint32_t(1) << b;
        for (uint32_t& m : restMaske) m = 0;
        for (int i = 0; i < 32; ++i) restMaske[rest[i]] = maske[i];
    }

    // The steps 2p, 6p, 4p, 2p, 4p, 2p, 4p, 6p, each with its remainder at most 120.
    void stufenFuellen(int64_t p) {
        for (int c = 0; c < 8; ++c) {
            const int64_t s = schritt[c] * p;
            stufeWort[c] = s / RasterSpanne;
            stufeRest[c] = int32_t(s % RasterSpanne);
            if (stufeRest[c] == 0) {
                stufeRest[c] = RasterSpanne;
                --stufeWort[c];
            }
        }
    }
};

}  // namespace

// Adding 120p to a number keeps its residue modulo 120 and moves it p words on, so one
// multiple of p fixes a mask that is right along a stride of p words to the end. 32
// consecutive cofactors cover all classes; the inner loop is a plain strided OR.
void SiebRestklassen() {
    BitTabellen tab;
    uint32_t* const raster = PrimaerRaster.data();
    const int64_t letzter = RasterLetzterIndex;
    const int64_t grenze = PrimaerGrenze.AlsInt64();

    int64_t bitPrim = -1;
    int s = 0;
    for (int64_t k = 0; k <= PrimaerWurzelWort; ++k) {
        const uint32_t w = raster[k];
        for (int i = 0; i < 32; ++i) {
            bitPrim += tab.schritt[s];
            s = (s + 1) % 8;
            if (w & tab.maske[i]) continue;
            const int64_t p = bitPrim;
            const int64_t quadrat = p * p;
            if (quadrat > grenze) return;
            int64_t wort = quadrat / RasterSpanne;
            int32_t r = int32_t(quadrat % RasterSpanne);
            tab.stufenFuellen(p);
            for (int runde = 0, c = s; runde < 32; ++runde) {
                const uint32_t maske = tab.restMaske[r];
                for (int64_t x = wort; x <= letzter; x += p) raster[x] |= maske;
                r += tab.stufeRest[c];
                wort += tab.stufeWort[c];
                if (r > RasterSpanne) {
                    r -= RasterSpanne;
                    ++wort;
                }
                if (wort > letzter) break;
                c = (c + 1) % 8;
            }
        }
        DoEvents();
    }
}

}  // namespace sw
