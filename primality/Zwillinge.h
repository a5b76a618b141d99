// Zwillinge: the search for prime twins p, p + 2 in an interval Start .. Start + Intervall at
// any height, by four methods, without the window. Every method lists the pairs with
// Start <= p and p + 2 <= Start + Intervall, so the four agree wherever they all reach:
//   0  trial division of (6m)^2 - 1, both members of a pair at once,
//   1  reading the primary raster,
//   2  sieving a secondary range,
//   3  the tertiary sieve, lone candidates pruned, then a probabilistic test of the pairs.
// The window frmSucheZwillinge and `sw-cli twins --method` both go through ZwillingeSuchen.
// Also here: the interval in which about 25 twins are to be expected (Hardy-Littlewood).
#pragma once

#include <cstdint>
#include <string>

#include "sieve/basExtrem.h"
#include "zahlkern/Hyp.h"

namespace sw {

enum ZwillingeVerfahren : int32_t {
    VerfahrenQuadrat = 0,
    VerfahrenPrimaer = 1,
    VerfahrenSekundaer = 2,
    VerfahrenProbabilistisch = 3,
};
inline constexpr int32_t ZwillingeVerfahrenAnzahl = 4;
// The tests of method 3 by the index of optArt: Perrin, Rabin (random base), Strassen,
// Fermat, BPSW.
inline constexpr int32_t ZwillingeArtenAnzahl = 5;

// What a run shows. The sieve's progress comes through the TertiaerFenster members.
class ZwillingeAnzeige : public TertiaerFenster {
public:
    // A twin: p its smaller member, zeile its line as the list shows it.
    virtual void Zwilling(const Hyp& p, const std::string& zeile) = 0;
    // A line that is no twin: the end line, the line of a stop.
    virtual void Zeile(const std::string& text) = 0;
    // fraWait while a sieve runs.
    virtual void WartenZeigen(bool /*sichtbar*/) {}
    // lblCount: the candidates of method 3 still standing.
    virtual void KandidatenZeigen(int64_t /*anzahl*/) {}
};

struct ZwillingeAuftrag {
    Hyp start;
    int32_t intervall = 0;
    int32_t verfahren = VerfahrenQuadrat;
    int32_t art = 0;  // the test of method 3
};

// Whether the raster reaches for the method. Method 0 beyond PrimaerQuadrat only warns (not
// every divisor is tried; true); methods 1 and 2 are refused beyond what their range holds.
bool EingabePruefen(const Hyp& start, int32_t intervall, int32_t verfahren);

// The run after the check: the pairs below 11, which no method makes, then the method, then
// the end line "Anzahl Zwillinge: n". The number of twins listed.
int64_t ZwillingeSuchen(const ZwillingeAuftrag& auftrag, ZwillingeAnzeige& anzeige);

// True if q = n^2 - 1 (n a multiple of 6) has a prime divisor up to the smaller of the root of
// n + 1, GrenzeLong and PrimaerGrenze: then n - 1 and n + 1 are not both prime.
bool ZwillingeTeilerTest(const Hyp& q, const Hyp& n);

// n = 6m and q = n^2 - 1, moved on by n += 6 with q following by additions alone:
// (n + 6)^2 - 1 = q + 12 (n + 6) - 36.
class QuadratFolge {
public:
    explicit QuadratFolge(const Hyp& n);
    void Weiter();
    const Hyp& n() const { return n_; }
    const Hyp& q() const { return q_; }

private:
    void platz();
    Hyp n_, q_, x_;
};

// The expected number of twins in [start, start + laenge] by Hardy and Littlewood:
// 2 C2 times the integral of dt / ln^2 t (from 2 on). Starts of any size.
double ErwarteteZwillinge(const Hyp& start, double laenge);
// The length from start over which about 25 twins are to be expected; at most GrenzeLong.
int32_t ErwartungsIntervall(const Hyp& start);

}  // namespace sw
