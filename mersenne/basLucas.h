// basLucas: the Lucas-Lehmer test of a Mersenne number 2^p - 1, S(1) = 4, S(i+1) = S(i)^2 - 2
// modulo 2^p - 1; 2^p - 1 is prime exactly when S(p-1) is 0. Three exact ways of squaring,
// which differ in representation and reduction: binomial squares of a Hyp (method 0), the
// same with the library's scratch squaring (1), and a Karatsuba squaring five levels deep on
// plain word arrays reduced by folding (2). The transform method (3) lives in LucasDwt; the
// run itself (yields, progress, checkpoints) is LucasLauf's.
//
// The state is global on purpose: every level of the Karatsuba squaring is an offset into the
// same two arrays, so only the small sums of halves need storage of their own. Only one run
// can be active at a time.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zahlkern/zahlkern.h"

namespace sw {

enum class LucasErgebnis { Prim, Zusammengesetzt, Abgebrochen };

enum LucasMethode : int32_t {
    LucasMethodeBinomisch = 0,   // "Binomische Quadrate"
    LucasMethodeAddSpezial = 1,  // "Add Spezial"
    LucasMethodeKaratsuba = 2,   // "Karatsuba"
    LucasMethodeDwt = 3,         // the transform squaring
    LucasMethodenAnzahl = 4,
};

extern Long LucasExponent;     // p
extern Long LucasWorte;        // words of a residue in Hyp form (methods 0, 1)
extern Long LucasOben;         // highest index N of the value in the Karatsuba method
extern Long LucasProduktOben;  // highest index 2N + 1 of its square
extern Long LucasHalbOben;     // h = N div 2
extern Long LucasHalbWorte;    // m = h + 1, the words of one half
extern Long LucasHochPos;      // 2m, where the high half's square starts
extern Long LucasMitte;        // m + h
extern std::vector<Long> LucasWert, LucasQuadrat, LucasHilfe1, LucasHilfe2;
// Start and end of the last iteration, in days (as date values count), for RestDauerText.
extern double LucasZeitStart, LucasZeitEnde;

// Prepares the arrays of an exact method (0..2) for the prime p >= 3, with S(1) = 4.
void LucasVorbereiten(int32_t methode, uint32_t p);
// One iteration S := S^2 - 2 modulo 2^p - 1 by the prepared method; true if the new residue
// is 0.
bool LucasSchritt();
// The residue as ceil(p/32) plain words, lowest first, and back (for checkpoints and for the
// change from the transform method to an exact one).
std::vector<uint32_t> LucasRest();
void LucasRestSetzen(const std::vector<uint32_t>& rest);
// Gives the arrays back (each cut down to one element), at the end of a run.
void LucasFreigeben();

// Squares LucasWert (N + 1 words) into LucasQuadrat (2N + 2 words), by five written-out
// Karatsuba levels. Needs LucasVorbereiten(LucasMethodeKaratsuba, p).
void KaratsubaQuadrat();

// The remaining time if each of the p - i iterations to come takes as long as the last one
// (LucasZeitEnde - LucasZeitStart): "Noch 0 Jahre, 0 Monate, 1 Tag, 12 Stunden, 0 Minuten".
std::string RestDauerText(int32_t i, int32_t p);

// The three exact methods of the window as whole runs, true if 2^p - 1 is prime (a stop gives
// false). They are LucasLauf with the method fixed.
class LucasAnzeige;
bool LucasBinomisch(uint32_t p, LucasAnzeige* anzeige);
bool LucasAddSpezial(uint32_t p, LucasAnzeige* anzeige);
bool LucasKaratsuba(uint32_t p, LucasAnzeige* anzeige);

// Decides 2^p - 1 for any p: p = 2 gives the prime 3, p below 2 and composite p give
// composite numbers (2^ab - 1 is divisible by 2^a - 1) without a single squaring. A prime p
// runs the p - 2 steps (the transform method from LucasDwtAb on, below it Karatsuba),
// yielding about every twentieth of a second; Abbruch stops it. No checkpoint is written.
LucasErgebnis LucasLehmer(uint32_t p);
constexpr uint32_t LucasDwtAb = 20000;

}  // namespace sw
