// basSekundaer: the secondary range, a window of numbers far above the primary raster, sieved
// on demand by the primes of the primary raster. Its raster has the layout of the primary one,
// word w covering SekundaerStart + 120w .. + 119. Positions may lie far beyond 2^64 (up to the
// square of the largest primary raster); inside the window they fit 64 bits, so only the
// start offset of each sieving prime is taken with 128-bit arithmetic.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

using Zahl128 = unsigned __int128;  // a position of the range, exact up to 2^128

// The progress labels of the window that asked for the range. The desktop implementation
// sets lblFortschrittLinks/Rechts, lblFortschritt, the bar lblPrgBarFortschritt with
// lblLineFortschritt, and shows or hides fraFortschritt.
class SekundaerFortschrittZiel {
public:
    virtual ~SekundaerFortschrittZiel() = default;
    virtual void LinksSetzen(const std::string& text) = 0;
    virtual void RechtsSetzen(const std::string& text) = 0;
    virtual void ProzentSetzen(const std::string& text) = 0;
    virtual void BalkenSetzen(int32_t prozent) = 0;
    virtual void RahmenZeigen(bool sichtbar) = 0;
};

// 1 while a background search of the display re-sieves ranges: no progress shows then.
extern int32_t AnzeigeStumm;

// The window whose labels show the progress of the next sieve (not owned), and its release.
void SekundaerFortschrittSetzen(SekundaerFortschrittZiel* ziel);
void SekundaerFortschrittLoesen();
// Text 402 on the right, left and percentage empty, an empty bar, the frame shown.
void SekundaerFortschrittZeigen(SekundaerFortschrittZiel& ziel);

// Sieving primes above the primary raster are found by a segmented pass over the numbers
// beyond it (sieved by the raster's primes, a level deeper where needed). The windows take it
// up to the root of 2^64, where it costs about a second; every window inside 64 bits is then
// exact whatever the raster's limit.
inline constexpr uint64_t SegmentDurchgangBis = uint64_t(1) << 32;
// The greatest sieving prime a window can have: the raster's limit, or SegmentDurchgangBis
// above a finished true raster; 0 without a finished run.
uint64_t SekundaerSiebReichweite();
// Up to where a window is exact: the square of the reach, or of the primary limit if larger.
Decimal SekundaerExaktBis();

// The checking entry: overlap with the primary range (box, false), a range beyond
// SekundaerExaktBis or longer than GrenzeLong (question 404; No gives false), then the sieve.
bool SekundaerPruefen(const Decimal& start, const Decimal& laenge);
// The sieve without checks. SekundaerStart = start rounded down to a multiple of 120,
// SekundaerEnde = (start + laenge) rounded down to one, plus 120. The sieving primes go up to
// the root of the window's end; where that lies beyond SekundaerSiebReichweite, only the
// raster's primes sieve and information 514 says so. Out of memory: "SW - Speicher"
// and false, the old range left standing.
bool SekundaerSieben(const Decimal& start, const Decimal& laenge);
// Primes n of the range with von <= n <= bis; text 207 and 0 if [von, bis] leaves the range.
int64_t SekundaerZaehlen(const Decimal& von, const Decimal& bis);
// The same without the box, for callers that count whole windows.
uint64_t SekundaerAnzahl(const Decimal& von, const Decimal& bis);
// Whether n is a prime of the range; false for numbers outside it.
bool SekundaerIstPrim(const Decimal& n);
// Asked before a length of over 100,000,000: question 400; No shows 401 and gives false.
bool SekundaerAnfrageGross();

// Strikes into a zeroed raster (woerter words, word w covering start + 120w ..) every multiple of the
// primes 7 <= p <= grenze except p itself, and the number 1. start is a multiple of 120. The
// primes come from the primary raster; those above its limit are sieved on the way, from the
// primes up to their root (the primary raster must be a finished one for that).
// beiSegment(fertig, gesamt) is called after each cache-sized segment (progress and yield). This is the engine under SekundaerSieben, open
// for callers that sieve their own windows (sw-cli walks a long range window by window).
using SekundaerRueckruf = void (*)(void* kontext, uint64_t fertig, uint64_t gesamt);
void SekundaerFensterSieben(uint32_t* raster, uint64_t woerter, Zahl128 start, uint64_t grenze,
                            SekundaerRueckruf beiSegment = nullptr, void* kontext = nullptr);

// The same engine with the sieving primes given (ascending, from 7, the last one the bound),
// for callers that have them at hand and must not read the primary raster: the segmented
// build of that raster itself, whose worker threads each sieve their own part. weiter is
// called after each block and ends the window early by returning false (then false).
using SiebWeiter = bool (*)(void* kontext, uint64_t fertig, uint64_t gesamt);
bool FensterSiebenMitPrimzahlen(uint32_t* raster, uint64_t woerter, Zahl128 start,
                                const std::vector<uint32_t>& primzahlen, SiebWeiter weiter, void* kontext);

// Held by a job that reads or strikes SekundaerRaster across its yields. Code that runs inside
// one of those yields (a repaint, a click in another window) must not replace the raster: the
// memory would vanish under the job. The allocator refuses that, and a display that would
// fetch its range again silently leaves its page empty until the job is over.
class SekundaerSperre {
public:
    SekundaerSperre();
    ~SekundaerSperre();
    SekundaerSperre(const SekundaerSperre&) = delete;
    SekundaerSperre& operator=(const SekundaerSperre&) = delete;
};
// False while a job holds the raster and the caller runs inside one of its yields.
bool SekundaerErsetzbar();

// Replaces SekundaerRaster by woerter zeroed words, refusing what the machine's memory can't
// hold. Out of memory: "SW - Speicher" and false, the old raster left standing; inside a yield
// of a job that holds the raster: text 1380 and false. The limits (SekundaerStart,
// SekundaerEnde) are the caller's to set.
bool SekundaerRasterAnlegen(uint64_t woerter);

// Allocates SekundaerRaster for woerter words from start (a multiple of 120), sets
// SekundaerStart and SekundaerEnde (the base of the last word) and sieves it by the primes up
// to grenze. Out of memory: "SW - Speicher" and false, the old range left standing.
bool SekundaerFensterSetzen(Zahl128 start, uint64_t woerter, uint64_t grenze, SekundaerRueckruf beiSegment = nullptr,
                            void* kontext = nullptr);

// Calls ausgabe(n) for each prime of the range with von <= n <= bis, ascending, until it
// returns false.
template <typename Ausgabe>
void SekundaerDurchlaufen(Zahl128 von, Zahl128 bis, Ausgabe&& ausgabe) {
    const Zahl128 basis0 = SekundaerStart.Betrag();
    if (SekundaerRaster.empty() || bis < basis0 || von > bis) return;
    const uint64_t woerter = SekundaerRaster.size();
    const uint64_t erstes = von > basis0 ? uint64_t((von - basis0) / RasterSpanne) : 0;
    FreieBitsDurchlaufen(SekundaerRaster.data(), erstes, woerter, basis0, von, bis, ausgabe);
}

}  // namespace sw
