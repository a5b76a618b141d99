// basExtrem: the tertiary range, a window of numbers at any height (a Hyp start far above the
// square of the primary limit). The primes up to a cut are struck out of a raster laid over
// the window; what survives is only a list of candidates, which a test then decides. The
// raster is SekundaerRaster with the layout of the primary raster (a set bit: struck out),
// word w covering TertiaerBasis + 120w .. + 119; SekundaerStart is 0 while it stands, so that
// raster positions are distances from TertiaerBasis.
//
// The residues of the start modulo the sieving primes are computed in batches, not by one long
// division of the start per prime: at thousands of digits those divisions would cost far more
// than the striking itself.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "frame/Decimal.h"
#include "zahlkern/Hyp.h"

namespace sw {

// What the sieve and the tests show while they run. Every member may be left as it is by
// callers without a window (sw-cli, tests).
class TertiaerFenster {
public:
    virtual ~TertiaerFenster() = default;
    virtual void SiebFortschritt(int32_t /*prozent*/) {}        // lblPrgBarTertiär, lblLineTertiär
    virtual void TestFortschritt(int32_t /*prozent*/) {}        // lblPrgBar, lblLine
    virtual void StreichungenZeigen(int64_t /*gestrichen*/) {}  // lblCountStreich
};

// The tests of TertiaerTesten / TertiaerZwillingeTesten by index.
enum TertiaerTest : int32_t {
    TertiaerPerrin = 0,         // PerrinTest
    TertiaerRabinZufall = 1,    // MillerRabin, MillerRabinBasis set to -2 (random base) each call
    TertiaerStrassen = 2,       // StrassenTest
    TertiaerFermat = 3,         // FermatTest
    TertiaerRabinBasis = 4,     // MillerRabin with MillerRabinBasis as it stands
    TertiaerBpsw = 5,           // BpswTest: the test of sw-cli and of the display's marks
};

extern Hyp TertiaerStart;             // first number of the window, set by the caller
extern int32_t TertiaerLaenge;        // length of the window in numbers, set by the caller
extern int32_t TertiaerVersatz;       // TertiaerStart mod 120
extern int32_t TertiaerRest;          // (TertiaerVersatz + TertiaerLaenge) mod 120
extern int32_t TertiaerLetztesWort;   // (TertiaerVersatz + TertiaerLaenge) div 120
extern int32_t TertiaerOben;          // (TertiaerLetztesWort + 1) * 120, the raster in numbers
extern Hyp TertiaerBasis;             // TertiaerStart - TertiaerVersatz
extern int32_t TertiaerWorte;         // words of PrimaerRaster up to the cut: progress scale
extern int32_t TertiaerTeilerWort;    // position of the sieving prime in PrimaerRaster
extern int32_t TertiaerTeilerBit;
extern Decimal TertiaerTeiler;        // the sieving prime above the primary raster
extern Decimal TertiaerTeilerBasis;   // the multiple of 120 beneath it
extern int64_t TertiaerSchnitt;       // the cut the last sieve struck up to (after root and question)

// Builds the raster over TertiaerStart .. TertiaerStart + TertiaerLaenge with the primes up to
// the cut (PrimaerGrenze, at most 4,000,000,000; above 100,000,000 the user is asked whether
// to stop there). False when the raster could not be allocated (the box has been shown) or
// the run was cancelled (Abbruch set, the raster partly struck).
bool TertiaerSieben(TertiaerFenster* fenster = nullptr);

// The unstruck numbers of the window, with 2, 3 and 5 when they lie in it.
int64_t TertiaerZaehlen();

// Tests every candidate by the test of that index and strikes what fails; the number of
// strikes. Abbruch stops it (the untested candidates stay unstruck).
int64_t TertiaerTesten(int32_t test, TertiaerFenster* fenster = nullptr);
// The same, tuned to twins: when the lower member of a residue pair that differs by 2 fails,
// its partner is left untested (and unstruck): that pair can't be a twin.
int64_t TertiaerZwillingeTesten(int32_t test, TertiaerFenster* fenster = nullptr);

// The window is [TertiaerStart, TertiaerStart + TertiaerLaenge): TertiaerLaenge numbers.
// Calls ausgabe(d) for the distance d from TertiaerStart of each number that stands in the
// window (clear bits, and 2, 3, 5 where they lie in it), ascending: the walk of the listings,
// a word at a time.
void TertiaerFreieDurchlaufen(const std::function<void(int64_t)>& ausgabe);
// True if x lies in the window and its bit is clear (2, 3 and 5, which have no bit, are true
// where they lie in it, as TertiaerZaehlen counts them); outside the window text 497 and false.
bool TertiaerIstFrei(const Hyp& x);
// The same for a distance d from TertiaerStart, without the box: for walks over the window.
bool TertiaerIstFreiAb(int64_t d);

}  // namespace sw
