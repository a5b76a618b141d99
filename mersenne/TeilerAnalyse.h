// TeilerAnalyse: the divisor analysis. It walks the primes q upward and asks of each which
// Mersenne number 2^e - 1 it divides: e is the order of 2 mod q, wanted only when it is a
// prime between MinPotenz and BisPrim. The walk can be limited to q whose k (q = 2ke + 1) is
// a multiple of a power of two f, to one class of q mod 8, or to the divisors of one exponent
// (Spezial), and runs in three widths: 32-bit words, Decimal (96 bits) and Hyp (any size).
//
// Hits go to a TeilerFenster (list, counters, and the database when wanted). Within the
// primary raster q is proved prime by its bit; above it the wide walks only sieve q by the
// primes up to 89, and a hit there is tested by BPSW: a composite q (such as 2^29 - 1 among
// the divisors of 29) is listed as such and never stored.
//
// A stop leaves the next q not yet examined in Naechstes() and reports it through Stand, so a
// new run from that q goes on exactly where the last one ended: no hit is lost or repeated.
// Database writes of a run form transactions committed about every half second: a killed
// process leaves whole rows.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include "mersenne/basDB.h"

namespace sw {

enum class TeilerBreite { Long, Decimal, Hyp };

struct TeilerAnalyseAuftrag {
    std::string start = "1";   // the first q, decimal digits (txtZahl)
    std::string ende;          // "" : the walk runs to the end of its width; else q above it ends it
    std::string kFilter = "1"; // f, a power of two (digits; 0 counts as 1)
    int64_t bisPrim = 0;       // the largest exponent of interest; with spezial the one exponent
    int32_t potenz = 11;       // the smallest exponent of interest
    int32_t modulo = 0;        // 0: q = 1 or 7 mod 8; 1: only 1; 2: only 7
    TeilerBreite breite = TeilerBreite::Long;
    bool spezial = false;
    bool kleineFaktoren = false;
    bool db = false;
};

// The window (or sw-cli) side: TeilerFenster's list and counters, plus the running q.
class TeilerAnalyseAnzeige : public TeilerFenster {
public:
    // The running q (txtZahl) and the report interval (lblSpeed); at the end, the next q.
    virtual void Stand(const std::string& /*q*/, int32_t /*takt*/) {}
    // Every hit with its k; prim false for a q above the raster that BPSW found composite.
    virtual void Treffer(const std::string& /*q*/, int32_t /*e*/, const std::string& /*k*/, bool /*prim*/) {}
};

class TeilerAnalyse {
public:
    // Checks and takes the order; Laufzeitfehler 5 for a k filter that is no power of two or
    // above 536870912, an exponent limit outside 1 .. GrenzeLong, a modulo outside 0..2.
    TeilerAnalyse(const TeilerAnalyseAuftrag& auftrag, TeilerAnalyseAnzeige& anzeige);

    // The run: for spezial, a known Mersenne prime exponent (466) or one that is no prime (467)
    // is refused with an information box and false. With db the database is opened (false
    // with its message when it can't be) and closed. True when the walk ran; it ends at the
    // end of the range, at the end of the width, or on Abbruch. A yield that throws (Ctrl-C in
    // sw-cli) ends the walk the same way, everything is committed, and the exception goes on.
    bool Laufen();

    const std::string& Naechstes() const { return naechstes_; }
    bool Abgebrochen() const { return abgebrochen_; }  // by Abbruch, not by the end of the range
    int64_t Zusammengesetzt() const { return zusammengesetzt_; }

    // The state of a run, open for the window and the tests.
    int32_t KBits = 1;       // bit length of f: f = 2^j gives j + 1
    int64_t KSchritt = 2;    // 2f: q - 1 must be a multiple of it, so that k is one of f
    int64_t BisPrim = 0;
    int32_t MinPotenz = 11;  // raised once at the start (see the walks)
    int32_t ModuloArt = 0;
    std::vector<int32_t> Rad;  // the wheel of gaps (TeilerSchritte by ModuloArt), walked mod 16
    int32_t Takt = 32, TaktZaehler = 0;
    double LetzteAnzeige = 0;

private:
    template <typename Zahl> friend class BreiteSuche;
    void TeilerSuche32();
    void TeilerSucheDec();
    void TeilerSucheHyp();
    // The lowest exponent a q may reach: raised past the exponents whose divisors all lie
    // below q (see the .cpp).
    void MinPotenzAnheben(bool ueber89, bool ueber178481);
    bool MinPotenzErreicht(int64_t r, bool mersenneZahl) const;
    // A hit: listed (and entered) in the style of its width.
    void TeilerZeigen(const std::string& q, int32_t e, bool prim);
    // Every Takt candidates: shows q, tunes Takt to about one report a second, yields and
    // commits. False once the walk must end.
    bool Fortschritt(const std::string& q);
    // Counts a candidate; true when it is the one to report (the text of q is made only then).
    bool Zaehlen() { return (TaktZaehler = (TaktZaehler + 1) % Takt) == 0; }
    bool exponentPrim(uint32_t e) const;

    TeilerAnalyseAuftrag a_;
    TeilerAnalyseAnzeige& anzeige_;
    DbTransaktion* transaktion_ = nullptr;
    int32_t potenzEingabe_ = 11;
    std::string naechstes_;
    bool abgebrochen_ = false, ende_ = false;
    int64_t zusammengesetzt_ = 0;
    std::exception_ptr fehler_;
};

}  // namespace sw
