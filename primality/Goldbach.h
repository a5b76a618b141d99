// Goldbach: the splits of an even number into two primes, all read from the primary raster.
// The window's two lists (splits with a summand from the Mersenne exponents, then all splits up
// to a thousand), the steps that move the number, the full count r(n) of unordered splits with
// its Hardy-Littlewood estimate, and r(n) over a range of even n (the "comet").
// Numbers are 64-bit throughout: a raster above 2^31 holds even numbers a 32-bit value cannot.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace sw {

// The most splits the second list shows; text 492 follows the last one.
inline constexpr int GoldbachHoechstZeilen = 1000;

// The number typed in the window or on the command line: a whole number, grouped or not.
// Anything else gives -1, which GoldbachPruefen refuses like any number out of range.
int64_t GoldbachZahl(const std::string& text);

// True when n is even and 4 <= n <= PrimaerGrenze; else information 474 naming the limit.
bool GoldbachPruefen(int64_t n);

// The window's list for an n that passed GoldbachPruefen: text 110, the splits p + (n - p)
// with p from the Mersenne exponents up to n (both orders stay), two empty lines, text 111,
// then the splits p <= n - p ascending, at most GoldbachHoechstZeilen, text 492 if cut there.
std::vector<std::string> GoldbachZerlegen(int64_t n);

// The new number of step index 0..7 from n (the table of the window's buttons: +2, -2, *2, /2,
// the even neighbours of the next prime and of the next Mersenne exponent). The result is
// meant for GoldbachPruefen; a step without an answer gives a value that it refuses.
int64_t GoldbachSchritt(int index, int64_t n);

// r(n): the number of splits n = p + q with p <= q, both prime, for even 4 <= n <= limit.
uint64_t GoldbachAnzahl(uint64_t n);

// The Hardy-Littlewood estimate of r(n): 2 C2 prod_{p | n, p > 2} (p-1)/(p-2) times the
// integral of dt / (ln t ln(n - t)) from 2 to n/2 (the half of the ordered splits' integral).
double GoldbachSchaetzung(uint64_t n);

// The most even numbers one comet counts (8 bytes each, and minutes of work already).
inline constexpr int64_t GoldbachKometHoechstens = 10000000;
// True when [von, bis] holds an even n >= 4, von <= bis <= limit, and at most
// GoldbachKometHoechstens even numbers; else information 2203.
bool GoldbachKometPruefen(int64_t von, int64_t bis);

// r(n) for every even n in [von, bis] (both made even inwards), in ascending order. weiter is
// asked now and then with the share done; false stops and keeps what was counted.
struct GoldbachKomet {
    uint64_t von = 0;                 // first even n
    std::vector<uint64_t> anzahl;     // r(von + 2 i)
    bool vollstaendig = true;
};
GoldbachKomet GoldbachKometZaehlen(uint64_t von, uint64_t bis, const std::function<bool(double)>& weiter);
// "n;r(n);estimate" lines under a head line.
std::string GoldbachKometCsv(const GoldbachKomet& k);

}  // namespace sw
