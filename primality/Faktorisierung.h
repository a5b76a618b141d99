// Faktorisierung: the prime factors of a number of any size. Trial division by the primes of
// the raster, then Pollard's rho (Brent), then the elliptic-curve method with rising bounds;
// every factor found is split again until only primes are left. Each prime says whether it is
// proved (below the square of the trial bound, below 2^64 by BPSW, or by an N-1 proof) or only
// a probable prime. The job yields to the event loop as it goes, reports its stage through a
// small interface, and stops at Abbruch keeping everything found: what is not split yet is
// reported as a composite part.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zahlkern/Hyp.h"

namespace sw {

enum class FaktorArt {
    Bewiesen,         // prime, proved
    Wahrscheinlich,   // passed BPSW, not proved
    Zusammengesetzt,  // composite, not split (the job was stopped or gave up)
};

struct Primfaktor {
    Hyp wert;
    int32_t exponent = 1;
    FaktorArt art = FaktorArt::Bewiesen;
};

struct Zerlegung {
    std::vector<Primfaktor> faktoren;  // ascending, each value once
    bool abgebrochen = false;          // stopped by the user before the end
    // True when every part is a prime (proved or probable).
    bool Vollstaendig() const;
    // True when every part is a proved prime.
    bool Bewiesen() const;
};

enum class FaktorStufe { Probedivision, Rho, Ecm, Beweis, Fertig };

// Where the job stands; the ECM fields count for the stage Ecm only.
struct FaktorStand {
    FaktorStufe stufe = FaktorStufe::Probedivision;
    int32_t stellen = 0;   // digits of the part being worked on
    double b1 = 0;         // bound of the running ECM level
    int32_t kurve = 0;     // curves of this level done so far
    int32_t kurven = 0;    // curves of this level
    int32_t gefunden = 0;  // prime factors known so far (with multiplicity)
};

class FaktorBeobachter {
  public:
    virtual ~FaktorBeobachter() = default;
    // At every change of stage and after each ECM curve.
    virtual void StandMelden(const FaktorStand& stand) = 0;
};

struct FaktorOptionen {
    uint64_t probeGrenze = 1000000;  // trial division up to here (at most the raster's limit)
    int32_t ecmStufen = -1;          // ECM levels to climb, -1 all of the ladder
    uint64_t rhoSchritte = 1 << 17;  // rho steps per part (more for parts below 2^64)
    bool beweisen = true;            // try an N-1 proof for probable primes beyond 2^64
    int32_t beweisTiefe = 0;         // how deep in a chain of N-1 proofs this job runs
    uint64_t saat = 1;               // seed of the ECM curves: a run is repeatable
};

// Factors n >= 1 (n = 0 is Laufzeitfehler 5); 1 gives no factors.
Zerlegung Zerlegen(const Hyp& n, const FaktorOptionen& optionen = {}, FaktorBeobachter* beobachter = nullptr);

// The text of a factorisation: "2^21x5^21"; a probable prime gets "?" behind it, a composite
// part stands in brackets: "3x[1000000016000000063]". 1 gives "".
std::string ZerlegungText(const Zerlegung& z);

}  // namespace sw
