// TeilerLauf: the run of the divisor search over the prime exponents from a start upward, as
// the window frmMersenneTeiler and `sw-cli divisors` use it. Each exponent's row in the
// Mersenne database tells what is left to do: a known Mersenne prime or a divisor settles it,
// otherwise the search goes on from the stored limit to KZiel and writes the divisor or the
// new limit. That limit is all a later run needs, so a run can stop anywhere and go on later.
//
// Writes are grouped into transactions of at most about half a second: a kill loses at most
// that, never leaves half a row, and never moves a limit backwards.
#pragma once

#include <climits>
#include <cstdint>
#include <string>

namespace sw {

// The stored limit is a 32-bit column, so is the limit of a run.
inline constexpr uint64_t TeilerKZielMax = INT32_MAX;

struct TeilerLaufAuftrag {
    uint32_t von = 3;           // first exponent (moved up to a prime)
    uint32_t bis = 0;           // last exponent; 0: up to GrenzeLong
    uint64_t KZiel = 0;         // every k up to this is tried (or a divisor found)
    uint32_t intervall = 1000000;  // width of the counting interval of the statistics
};

// The counters of the statistics: exponents with status (settled) against exponents in total,
// for the counting interval around the exponent (the primes up to it) and for the rows of the
// database range [lo, lo + intervall].
struct TeilerStatistik {
    int64_t intervallMitStatus = 0, intervallAnzahl = 0;
    int64_t dbMitStatus = 0, dbGesamt = 0;
    int64_t neu = 0;  // divisors found in this run
};

// What a run shows on its way; every member may be left as it is.
class TeilerLaufAnzeige {
public:
    virtual ~TeilerLaufAnzeige() = default;
    // A new exponent is taken up (txtPotenz moves along).
    virtual void Exponent(uint32_t) {}
    // During a long exponent: the k reached.
    virtual void Stand(uint32_t, uint64_t) {}
    // A divisor: found by this run (neu) or already in the database.
    virtual void Teiler(uint32_t, const std::string&, bool) {}
    virtual void Statistik(const TeilerStatistik&) {}
};

struct TeilerLaufBefund {
    uint32_t letzter = 0;        // the last exponent taken up
    uint64_t exponenten = 0;     // prime exponents passed
    uint64_t gesucht = 0;        // of them searched
    uint64_t gefunden = 0;       // divisors found
    bool abgebrochen = false;    // Abbruch ended the run before bis
    double sekunden = 0;
};

// The run. The database is opened and closed by it. A yield that throws (Ctrl-C in sw-cli)
// ends the run like Abbruch: the exponent in work keeps the limit it reached, everything is
// committed, and the exception goes on to the caller.
TeilerLaufBefund TeilerLauf(const TeilerLaufAuftrag& auftrag, TeilerLaufAnzeige* anzeige);

}  // namespace sw
