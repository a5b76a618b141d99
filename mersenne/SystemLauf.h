// SystemLauf: the systematic search for Mersenne divisors. Instead of fixing an exponent and
// trying its candidates, it walks upward through the candidates q themselves and asks of each
// prime q which Mersenne number it divides: the order of 2 modulo q. When that order is a
// prime p, q is a divisor 2kp + 1 of 2^p - 1; divisors the database does not know yet are
// offered for entry (or entered at once, or only reported).
//
// Only q = +-1 mod 8 can divide 2^p - 1 for an odd prime p, and of those only the ones prime to
// 3 and 5 can be prime: a wheel of 16 gaps per 120 walks them. A residue modulo
// 7 * 11 * ... * 29 (kept up to date by addition, never by dividing q) throws out the multiples
// of the next seven primes before the prime test.
//
// The order comes from factoring q - 1, never from doubling 2 up to q - 1 times: below
// GrenzeLong every order is found; above it only orders up to the largest prime factor of
// q - 1 that can be an exponent of the database (at least the parameter in millions), else up
// to the parameter itself.
#pragma once

#include <gmp.h>

#include <array>
#include <cstdint>
#include <string>

namespace sw {

inline constexpr int32_t SystemParameterMin = 1, SystemParameterMax = 50;
// The gaps of the wheel from q = 1 mod 120: 7, 17, 23, 31, 41, 47, 49, 71, 73, 79, 89, 97,
// 103, 113, 119, 121.
inline constexpr std::array<int32_t, 16> SystemRad = {2, 6, 10, 6, 8, 10, 6, 2, 22, 2, 6, 10, 8, 6, 10, 6};
// 5 * 7 * 11 * 13 * 17 * 19 * 23 * 29: one residue serves the seven sieves of 7 to 29.
inline constexpr uint32_t SystemSiebModul = 1078282205u;

// The exponent in question for a prime q of GrenzeLong and above: the largest prime p with
// p | q - 1 and parameter * 10^6 - 120 < p <= GrenzeLong (q = 2kp + 1 leaves q mod p = 1);
// parameter * 10^6 when there is none. Parameter outside 1..50: Laufzeitfehler.
int32_t ExponentSuchen(mpz_srcptr q, int32_t parameter);
// The order of 2 modulo the odd q if it is at most grenze, else 0.
int32_t OrdnungBerechnen(mpz_srcptr q, int32_t grenze);
// True when q is prime (deterministic below 2^64, BPSW above).
bool SystemPrim(mpz_srcptr q);

// What happens with a divisor the database does not know.
enum class SystemEintrag {
    Fragen,  // ask for each one (yes enters it, no leaves it, cancel stops the run)
    Immer,   // enter it without asking
    Nie,     // only report it
};

struct SystemAuftrag {
    std::string start = "1";  // decimal digits; the walk begins at the first wheel number >= max(start, 23)
    std::string ende;         // decimal digits, the last q examined; "" runs until Abbruch
    int32_t parameter = 1;    // lower bound of the exponents above GrenzeLong, in millions
    bool datenbank = true;    // false: nothing is read or written, every find counts as new
    SystemEintrag eintrag = SystemEintrag::Fragen;
};

// One prime q examined: its order when that is prime, else 0; k = (q - 1) / (2 order).
struct SystemErgebnis {
    std::string q;
    int32_t ordnung = 0;
    std::string k;
};

// What a run shows on its way; every member may be left as it is.
class SystemAnzeige {
public:
    virtual ~SystemAnzeige() = default;
    // At each yield: the q reached, the bound of its order search, the prime q so far.
    virtual void Stand(const std::string&, int32_t, uint64_t) {}
    // Each prime q with its result.
    virtual void Ergebnis(const SystemErgebnis&) {}
    // A divisor of 2^e - 1 the database does not know; eingetragen: it is stored now.
    virtual void NeuerTeiler(const std::string&, int32_t, bool) {}
};

struct SystemBefund {
    uint64_t primzahlen = 0;   // prime q examined
    uint64_t mitOrdnung = 0;   // of them with a prime order
    uint64_t neu = 0;          // divisors the database did not know
    uint64_t eingetragen = 0;  // of them stored
    std::string letzte;        // the last q examined ("" when none)
    bool abgebrochen = false;
    double sekunden = 0;
};

// The run. With a database it is opened at the start (a file that cannot be used is a
// Laufzeitfehler with the reason) and closed at the end; writes go through one transaction,
// committed about once a second and after every answered question. A parameter outside 1..50
// or an end below the start is refused before anything happens. A yield that throws (Ctrl-C in
// sw-cli) ends the run like Abbruch, after everything is committed, and goes on to the caller.
SystemBefund SystemLauf(const SystemAuftrag& auftrag, SystemAnzeige* anzeige);

// The list line of an examined q: "q teilt 2^p-1 \tk = k", or "q ---" without a prime order.
std::string TeilerAnzeigen(const SystemErgebnis& e);

// The divisor q (decimal digits) of 2^e - 1 found by the run: nothing when the database lists
// it already (false); else it is reported and, as `eintrag` says, joins the row's list of
// divisors (kept whole, however long) with status 2 and the limit GrenzeLong. `eingetragen`
// tells whether it was stored; a cancelled question sets Abbruch.
bool NeuenTeilerMelden(const std::string& q, int32_t e, SystemEintrag eintrag, bool& eingetragen);

}  // namespace sw
