// ReihenAnalyse: a formula in n over a range of n, member by member: its value, whether it is
// prime and its least prime factor, then the count of primes against what the conjecture of
// Bateman and Horn expects, and, on request, against the random raster's way of choosing.
//
// The evaluator knows no variables, so each member's n is written into the formula as a
// bracketed number before it is evaluated: "n^2+1" becomes "(7)^2+1". The evaluator has no
// negative numbers either; a formula that would pass below 0 for some n gives what the
// evaluator gives, and is then no polynomial for the expectation.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "primality/HypMpz.h"

namespace sw {

enum class GliedArt { KeinePrimzahl, Prim, PrimWahrscheinlich, Zusammengesetzt };

struct ReihenGlied {
    int64_t n = 0;
    Mpz wert;
    GliedArt art = GliedArt::KeinePrimzahl;
    // The least prime factor when it lies below kReihenProbeGrenze (for a prime member up to
    // there the member itself); 0 when trial division found none.
    uint32_t kleinsterTeiler = 0;
};

// Trial division of each member goes this far before BPSW decides.
constexpr uint32_t kReihenProbeGrenze = 10000;
// The Bateman-Horn product runs over the primes up to here.
constexpr uint32_t kBatemanHornGrenze = 100000;
// Members of one run at most: the list must fit the window and the memory.
constexpr int64_t kReihenHoechstLaenge = 10000000;

struct ReihenErgebnis {
    std::vector<ReihenGlied> glieder;
    int64_t primzahlen = 0;        // members prime (proved or probable)
    bool polynom = false;          // the formula is a polynomial of degree >= 1 in n
    int32_t grad = 0;
    double konstante = 0;          // C
    double erwartung = 0;          // C * sum 1/ln f(n) over the members f(n) >= 2
    bool mitZufall = false;
    int64_t zufallsTreffer = 0;    // members the random raster took
    bool abgebrochen = false;
};

// "n" replaced by "(wert)" wherever it stands as a word of its own (upper or lower case).
std::string FormelMitN(const std::string& formel, int64_t n);
// The formula's value at n.
Mpz FormelWert(const std::string& formel, int64_t n);

// The analysis of f(n) for n = von..bis (0 <= von <= bis, at most kReihenHoechstLaenge
// members; else Laufzeitfehler with the reason). weiter(share done) is asked every few
// hundred members; false stops the run, keeping the members so far. mitZufall draws the
// random raster's verdict for each member (seed it first with ZufallSaat).
ReihenErgebnis ReiheAnalysieren(const std::string& formel, int64_t von, int64_t bis, bool mitZufall,
                               const std::function<bool(double)>& weiter = {});

// The verdict of one member: trial division up to kReihenProbeGrenze, then BPSW.
void GliedPruefen(ReihenGlied& g, const std::vector<uint32_t>& primzahlen);

}  // namespace sw
