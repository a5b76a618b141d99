#include "sieve/basQuadrato.h"

#include <cstdint>
#include <string>

#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"

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

namespace {

struct QuadratoStand {
    SekundaerFortschrittZiel* ziel;
};

void quadratoFortschritt(void* kontext, uint64_t fertig, uint64_t gesamt) {
    auto* stand = static_cast<QuadratoStand*>(kontext);
    if (stand->ziel && AnzeigeStumm == 0) {
        const int32_t prozent = Prozent(double(fertig), 0, double(gesamt));
        stand->ziel->ProzentSetzen(std::to_string(prozent) + " %");
        stand->ziel->BalkenSetzen(prozent);
    }
    DoEvents();
}

}  // namespace

// The pairs (a, y) of one a with a(a + 2y) in the window are the multiples a * b, b >= a odd;
// with a prime they are exactly what the segmented engine of the secondary range strikes for
// a. So the window is handed to it, with the window's own base and limits.
bool SekundaerQuadrato(const Decimal& start, const Decimal& ende, SekundaerFortschrittZiel* ziel) {
    const Decimal spanne(RasterSpanne);
    const Decimal basis = start / spanne * spanne;
    const Decimal letzter = ende / spanne * spanne;
    if (letzter < basis) return false;
    const uint64_t woerter = uint64_t(((letzter - basis) / spanne).AlsInt64()) + 1;
    // The window is sieved up to the root of its last number, beyond the primary raster too
    // (its primes are sieved on the way); only beyond the largest raster there could be is
    // the sieve cut short, and the user told so.
    Decimal grenze = GanzeWurzel(basis + Decimal(woerter * RasterSpanne - 1));
    if (grenze > GroessteGrenze()) {
        grenze = GroessteGrenze();
        MsgInfo(514);
    }
    QuadratoStand stand{ziel};
    return SekundaerFensterSetzen(basis.Betrag(), woerter, uint64_t(grenze.AlsInt64()), quadratoFortschritt, &stand);
}

int64_t SekundaerQuadratoZaehlen(const Decimal& von, const Decimal& bis) {
    return int64_t(SekundaerAnzahl(von, bis));
}

}  // namespace sw
