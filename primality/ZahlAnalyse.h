// ZahlAnalyse: everything the workbench tells about one number of any size at a glance. The
// factorisation comes first, since the divisor functions, the verdict and the perfect-power
// question all follow from it; the neighbouring primes and the Collatz walk are asked on their
// own. A stopped factorisation keeps what it found, and the divisor functions are then left
// out rather than computed from an incomplete list.
#pragma once

#include <cstdint>
#include <string>

#include "primality/Faktorisierung.h"
#include "primality/HypMpz.h"
#include "primality/PrimSuche.h"

namespace sw {

enum class ZahlUrteil {
    Eins,                // 1: neither prime nor composite
    PrimBewiesen,        // prime, proved
    PrimWahrscheinlich,  // passed BPSW, not proved
    Zusammengesetzt,
    Offen,               // the factorisation was stopped before it could say
};

struct ZahlBefund {
    Mpz n;
    int64_t stellen = 0;  // decimal digits
    int64_t bits = 0;
    Zerlegung zerlegung;
    ZahlUrteil urteil = ZahlUrteil::Offen;
    // Only when the factorisation is complete (every part a prime, proved or probable).
    bool teilerBekannt = false;
    Mpz tau, sigma, phi;
    int32_t mu = 0;
    // n = basis^exponent with the greatest exponent; exponent 1 when n is no perfect power.
    Mpz basis;
    uint32_t exponent = 1;
    bool nachbarnBekannt = false;  // false when no raster stood to ask
    PrimFund vorher, nachher;
    bool collatzFertig = false;    // false when the walk was stopped
    int32_t collatzSchritte = 0;
};

// Reads the number of an analysis from a formula field. A minus in front (the evaluator has
// no negative numbers and would read "-7" as something else) and 0 are refused with a message
// that says what the analysis takes.
Mpz AnalyseZahlLesen(const std::string& text);

// The whole analysis of n >= 1. beobachter hears the stages of the factorisation;
// mitNachbarn asks PrimSuche for the neighbours, which needs the primary raster.
ZahlBefund ZahlAnalysieren(const Mpz& n, bool mitNachbarn, FaktorBeobachter* beobachter = nullptr);

// tau, sigma, phi and mu of a complete factorisation.
void TeilerFunktionen(const Zerlegung& z, Mpz& tau, Mpz& sigma, Mpz& phi, int32_t& mu);

// The greatest k with n = a^k (k = 1 when there is none; 1 itself counts as 1^1).
uint32_t PotenzExponent(const Mpz& n, Mpz& basis);

}  // namespace sw
