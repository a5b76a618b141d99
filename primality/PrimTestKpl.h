// PrimTestKpl: the complete test. One method runs over every candidate of an interval (or over
// the Mersenne numbers 2^p - 1 of a series of exponents) and the results go to a list; with the
// sieve check each verdict is held against the tertiary sieve laid over the same interval, so
// that the pseudoprimes of a method, and the primes it misses, stand out. The window, the tests
// and any other caller go through KplAnzeige.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

class TertiaerFenster;

// The methods by the index of optTest.
enum KplMethode : int32_t {
    KplProbedivision = 0,
    KplPerrin = 1,
    KplMillerRabin = 2,   // random base, Runden rounds
    KplStrassen = 3,      // Runden rounds
    KplLucasLehmer = 4,   // Mersenne numbers only
    KplPerrinPlus = 5,    // Perrin, then QuadratSuche for those that pass
    KplFermatSuche = 6,
    KplFermat = 7,
    KplBpsw = 8,
};
inline constexpr int32_t KplMethodenAnzahl = 9;
inline constexpr int32_t KplSchrittModi = 5;  // optStep: all, odd, 1|5 mod 6, prime to 30, primes

// The fields as the window has read them.
struct KplEingabe {
    std::string von;          // txtVon: a number or formula; a plain exponent with zweier
    int64_t intervall = 0;    // txtIntervall
    int32_t test = KplFermat; // optTest
    int32_t runden = 1;       // txtMultiTest
    int32_t perrinPlus = 0;   // txtPerrinPlus
    int32_t step = 1;         // optStep
    bool check = false;       // chkCheck
    bool zweier = false;      // chk2er
    bool filter = false;      // chkFilter
    int32_t vorFilter = 0;    // txtVorFilter
    std::string testName;     // the caption of the chosen method followed by "-Test"
};

// What a run takes, once EingabePruefen has passed it.
struct KplLaufDaten {
    Hyp Start;                // the first number, or the first exponent in the Mersenne mode
    int64_t Intervall = 0;
    int32_t TestNr = KplFermat;
    int32_t Runden = 1;
    int32_t PerrinPlus = 0;
    int32_t StepModus = 0;
    int32_t VorFilter = 0;
    bool Pruefen = false;     // hold every verdict against the sieve
    bool Mersenne = false;
    std::string TestName;
};

// The largest length of an interval that the sieve check lays its raster over.
inline constexpr int64_t KplSiebHoechstLaenge = 2000000000;
// The largest exponent of the Mersenne mode.
inline constexpr int64_t KplHoechstExponent = 2000000000;

// The checks before a run. An empty, "0" or "1" start becomes "2" in eingabe.von (the window
// shows it); a failure has shown its message and gives nothing.
std::optional<KplLaufDaten> EingabePruefen(KplEingabe& eingabe);

// Brings start to the first candidate of the step mode at or above it, and index to that
// candidate's place in the mode's table of steps. Mode 4 takes the first prime of the raster
// at or above start; false when there is none.
bool StartAusrichten(Hyp& start, int32_t modus, int32_t& index);
// The step from the candidate at place index to the next; index moves on.
int32_t TabellenSchritt(int32_t modus, int32_t& index);

// Up to runden rounds of a test with a random base; the first failure ends them (false).
bool RundenTesten(int32_t runden, const std::function<bool()>& runde);

// The smallest k in 1..m for which 4nk + (k - 1)^2 is a square, that is n = x (kx + k - 1) for
// a whole x; m + 1 when there is none.
int32_t QuadratSuche(const Hyp& n, int32_t m);

// What the sieve knows of n.
enum class SiebUrteil { Prim, Zusammengesetzt, Ausserhalb };
// n against the tertiary sieve of the run (TertiaerStart, TertiaerLaenge).
SiebUrteil SiebStatus(const Hyp& n);

class KplAnzeige {
public:
    virtual ~KplAnzeige() = default;
    virtual void Zeile(const std::string& text) = 0;         // a line of List1
    virtual void ZahlZeigen(const std::string& /*text*/) {}  // the running number
    virtual void SiebWarten(bool /*sichtbar*/) {}            // fraWait while the sieve is built
    virtual TertiaerFenster* SiebFenster() { return nullptr; }
};

struct KplErgebnis {
    int64_t zeilen = 0;       // lines listed before the closing line
    int64_t pseudo = 0;       // pseudoprimes found by the sieve check
    int64_t bestaetigt = 0;   // primes the sieve confirmed
    bool abgebrochen = false;
};

// The run: the interval run or the Mersenne run, each with the closing line(s). It yields once
// per candidate and stops at Abbruch, keeping what is listed.
KplErgebnis PrimTestKplLauf(KplLaufDaten daten, KplAnzeige& anzeige);

}  // namespace sw
