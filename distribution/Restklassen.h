// Restklassen: the primes of a range sorted by their residue modulo m. Counts per class prime
// to m, the share of each against the even 1/phi(m), the chi-square statistic of the counts,
// and the race of two classes: the lead of one over the other along the range, kept as a
// curve of a fixed number of points, with every change of the leader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sw {

using Zahl128 = unsigned __int128;

struct Fuehrungswechsel {
    Zahl128 p;        // the prime with which the lead passed
    int64_t fuehrung; // the lead after it (class A minus class B): the sign names the leader
};

// One point of the race curve: the smallest and largest lead over a stretch of the range and
// the lead at its end, so that a narrow picture still shows every swing.
struct RennPunkt {
    int64_t tief = 0, hoch = 0, ende = 0;
    bool belegt = false;
};

class RestklassenZaehlung {
public:
    // m >= 2; a and b the classes of the race (prime to m, different) or both 0 for none;
    // punkte the number of points of the race curve over [von, bis].
    RestklassenZaehlung(uint64_t m, Zahl128 von, Zahl128 bis, uint64_t a, uint64_t b, int32_t punkte);

    // One prime of [von, bis], in ascending order.
    void Prim(Zahl128 p) {
        const uint64_t r = p >> 64 ? uint64_t(p % m_) : uint64_t(p) % m_;
        ++anzahl_[r];
        if (r == a_ || r == b_) rennen(p, r == a_ ? 1 : -1);
    }

    uint64_t Modul() const { return m_; }
    // The classes prime to m, ascending, and their counts.
    const std::vector<uint64_t>& Klassen() const { return klassen_; }
    uint64_t Anzahl(uint64_t r) const { return anzahl_[r]; }
    // Primes of the classes prime to m, and those outside them (the prime divisors of m).
    uint64_t ImGanzen() const;
    uint64_t Ausserhalb() const;
    // Sum over the classes of (count - expected)^2 / expected, expected = ImGanzen / phi(m);
    // phi(m) - 1 degrees of freedom.
    double ChiQuadrat() const;

    uint64_t KlasseA() const { return a_; }
    uint64_t KlasseB() const { return b_; }
    int64_t Fuehrung() const { return fuehrung_; }
    const std::vector<Fuehrungswechsel>& Wechsel() const { return wechsel_; }
    const std::vector<RennPunkt>& Kurve() const { return kurve_; }
    // The first number of point i of the curve.
    Zahl128 PunktAnfang(size_t i) const { return von_ + Zahl128(i) * breite_; }

private:
    void rennen(Zahl128 p, int schritt);

    uint64_t m_;
    Zahl128 von_;
    Zahl128 breite_;                 // numbers per point of the curve
    std::vector<uint64_t> klassen_;
    std::vector<uint64_t> anzahl_;   // per residue 0..m-1
    uint64_t a_, b_;
    int64_t fuehrung_ = 0;
    int vorzeichen_ = 0;             // sign of the last lead that was not a tie
    std::vector<Fuehrungswechsel> wechsel_;
    std::vector<RennPunkt> kurve_;
};

// What the window and sw-cli call now and then with the share done (0..1); false stops.
using RestklassenMelder = bool (*)(void* kontext, double anteil);
// The primes of [von, bis] from the primary raster (bis cut at its limit), or from the secondary
// range as it stands, into z. False if stopped.
bool RestklassenPrimaer(RestklassenZaehlung& z, Zahl128 von, Zahl128 bis, RestklassenMelder melden, void* kontext);
bool RestklassenSekundaer(RestklassenZaehlung& z, Zahl128 von, Zahl128 bis, RestklassenMelder melden, void* kontext);

// The greatest modulus the count takes: a class table of 8 MB.
inline constexpr uint64_t RestklassenModulMax = 1000000;

}  // namespace sw
