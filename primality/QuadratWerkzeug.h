// QuadratWerkzeug: the questions of the squares window and `sw-cli quadrat` on numbers of any
// size: k-th roots, the Jacobi symbol, square roots modulo a prime, modular inverses, primitive
// roots and orders, and the FFT product held against GMP's. Each question takes the program's
// own routine where one exists for the size (HypWurzel, JacobiSymbol, HypModInverse,
// ModInverseLong, Primitivwurzel, PrimfaktorenLong) and GMP beyond it; the factors of p - 1 of
// a large p come from the factoriser. Refusals are Laufzeitfehler with a German message.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "zahlkern/Hyp.h"

namespace sw {

// A field's number: digits (grouped or not) or a formula, with or without the formula word.
// An empty field is refused naming it (feldName).
Hyp QuadratEingabe(const std::string& feld, const std::string& feldName);

struct KWurzel {
    Hyp wurzel;  // the integer part of the k-th root
    Hyp rest;    // n - wurzel^k; 0 when the root is exact
};
// k from 2 to 1,000,000; k = 2 by HypWurzel.
KWurzel KteWurzel(const Hyp& n, int64_t k);

// (a / n) for n odd and above 1 (refused otherwise); a word a by JacobiSymbol.
int32_t Jacobi(const Hyp& a, const Hyp& n);

// A square root of a modulo the prime p (Tonelli-Shanks), the smaller of the two; nullopt when
// a is a non-residue. A p that fails BPSW is refused.
std::optional<Hyp> WurzelModP(const Hyp& a, const Hyp& p);

struct ModInverseErgebnis {
    Hyp inverse;       // in 0 .. m-1; 0 when ggt is not 1
    Hyp ggt;           // gcd(a, m)
    bool wort = false; // both fitted a word: ModInverseLong did it
};
// m must be at least 2.
ModInverseErgebnis ModInverse(const Hyp& a, const Hyp& m);

struct Primwurzel {
    Hyp wurzel;               // the least primitive root
    std::vector<Hyp> faktoren;// the distinct prime factors of p - 1, ascending
    bool wort = false;        // p below 2^31: Primitivwurzel and PrimfaktorenLong did it
};
// p must pass BPSW; p - 1 must factor completely (else refused naming the rest).
Primwurzel KleinstePrimitivwurzel(const Hyp& p);
// The multiplicative order of a modulo the prime p, given the distinct factors of p - 1.
// An a divisible by p is refused.
Hyp Ordnung(const Hyp& a, const Hyp& p, const std::vector<Hyp>& faktoren);

struct FftVergleich {
    Hyp produkt;           // the FFT's product
    bool gleich = false;   // equal to GMP's product
    double rundungsfehler = 0;
    int32_t punkte = 0;
    double sekundenFft = 0, sekundenGmp = 0;
};
FftVergleich FftGegenGmp(const Hyp& a, const Hyp& b);

}  // namespace sw
