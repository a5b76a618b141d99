// LucasLauf: one Lucas-Lehmer run of 2^p - 1 by any of the four methods, as the window, the
// complete test and sw-cli use it. It runs the iterations in batches of about a twentieth of a
// second, yields between them (Abbruch stops), reports the iteration and the remaining time,
// writes a checkpoint every few minutes and at a stop, and goes on from one on request. The
// transform method falls back to the exact Karatsuba method when it cannot keep its round-off
// in bounds; the verdict and the Res64 are the same whichever method computed them.
#pragma once

#include <cstdint>
#include <string>

#include "mersenne/basLucas.h"

namespace sw {

// What a run shows on its way.
class LucasAnzeige {
public:
    virtual ~LucasAnzeige() = default;
    // After each batch: the iteration done last and, above p = 40,000, RestDauerText ("" below).
    virtual void Stand(uint32_t i, const std::string& restDauer) = 0;
};

struct LucasAuftrag {
    uint32_t p = 0;
    int32_t methode = LucasMethodeKaratsuba;
    // Go on from the checkpoint of p if there is one. Without it, an existing checkpoint is
    // refused rather than overwritten: it may hold days of work.
    bool fortsetzen = false;
    bool pruefpunkte = true;            // the complete test's many short runs write none
    double pruefpunktSekunden = 300;    // time between two checkpoints
};

struct LucasBefund {
    LucasErgebnis ergebnis = LucasErgebnis::Abgebrochen;
    uint64_t res64 = 0;                 // low 64 bits of the last residue
    uint32_t iteration = 0;             // the last residue is S(iteration)
    uint32_t fortgesetztAb = 0;         // iteration of the checkpoint the run went on from, or 0
    int32_t methode = 0;                // the method that did the last iteration
    size_t fftLaenge = 0;               // transform method: its length
    double groessterFehler = 0;         // transform method: the largest round-off seen
    double sekunden = 0;
};

// True for a prime p (by trial division; exponents are 32-bit).
bool LucasExponentPrim(uint32_t p);

// The run. p below 3 is a Laufzeitfehler with text 515, a composite p one with 409; a damaged
// or foreign checkpoint, or one that exists without fortsetzen, one naming the file.
LucasBefund LucasLauf(const LucasAuftrag& auftrag, LucasAnzeige* anzeige);

// Sixteen upper-case hex digits, as Res64 values are compared across programs.
std::string Res64Text(uint64_t r);

}  // namespace sw
