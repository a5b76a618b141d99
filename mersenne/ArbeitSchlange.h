// ArbeitSchlange: the work queue that several machines share through one PostgreSQL database.
// A job (a divisor search over a range of exponents, Lucas-Lehmer tests, Collatz counts) is cut
// into units, rows of t_Arbeit. A worker claims the oldest unit nobody holds with
// FOR UPDATE SKIP LOCKED, so that claims never wait on each other, and holds it by a lease
// that it renews while it computes. A worker that dies simply stops renewing: once the lease
// has run out, the next claim takes the unit again. The result of a unit is written in the
// transaction that marks it done, after checking that the lease is still the worker's own, so
// a worker that lost its unit (paused, cut off) never writes anything for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "db/PgVerbindung.h"
#include "mersenne/ArbeitRechnen.h"

namespace sw {

enum class ArbeitArt { Teiler, Lucas, Collatz };

// "divisors", "lucas", "collatz": the names in the table and on the command line.
const char* ArbeitArtName(ArbeitArt art);
std::optional<ArbeitArt> ArbeitArtLesen(const std::string& name);

struct ArbeitEinheit {
    int64_t id = 0;
    ArbeitArt art = ArbeitArt::Teiler;
    uint64_t von = 0, bis = 0;  // exponents or starts; a Lucas unit has von = bis = p
    uint64_t KZiel = 0;         // divisor units: every k up to this
};

// Creates the queue's tables (and t_Prim) when missing; several workers may start at once.
void ArbeitSchemaAnlegen(PgVerbindung& v);

// Cuts [von, bis] into units of `breite` numbers each and adds them in one transaction; the
// number of units.
int64_t ArbeitHinzufuegen(PgVerbindung& v, ArbeitArt art, uint64_t von, uint64_t bis, uint64_t breite,
                          uint64_t KZiel);

// Claims the oldest unit that is open or whose lease has run out (of art only, when given)
// for `worker` with a lease of leaseSekunden. nullopt when there is none to claim now.
std::optional<ArbeitEinheit> ArbeitBeanspruchen(PgVerbindung& v, const std::string& worker, double leaseSekunden,
                                                std::optional<ArbeitArt> art);
// True while some unit (of art) is not done: a worker waits for the claimed ones, as their
// holders may die and leave them to it.
bool ArbeitUebrig(PgVerbindung& v, std::optional<ArbeitArt> art);
// Renews the lease; false when it is no longer the worker's (ran out and claimed by another).
bool ArbeitVerlaengern(PgVerbindung& v, int64_t id, const std::string& worker, double leaseSekunden);
// Gives a unit back unfinished (a worker stopped by the user).
void ArbeitFreigeben(PgVerbindung& v, int64_t id, const std::string& worker);

// The stored rows of the exponents [von, bis] (in one read, outside any transaction).
std::map<uint32_t, PrimZeile> ArbeitPrimLesen(PgVerbindung& v, uint64_t von, uint64_t bis);

// What closing a unit writes: for divisors the exponents' results, for collatz the counts, for
// lucas the verdict. treffer: divisors found, or 1 for a Mersenne prime.
struct ArbeitErgebnis {
    std::vector<TeilerErgebnisZeile> teiler;
    std::optional<CollatzSumme> collatz;
    std::string text;  // the short result shown by the status
    int64_t treffer = 0;
    double sekunden = 0;
};
// In one transaction: checks that the lease is still worker's, merges the results into the
// rows as they stand, marks the unit done. False (and nothing written) when the lease was lost.
bool ArbeitAbschliessen(PgVerbindung& v, const ArbeitEinheit& e, const std::string& worker,
                        const ArbeitErgebnis& ergebnis);

// The queue at a glance, for `work status` and the status window.
struct ArbeitStand {
    struct Art {
        std::string name;
        int64_t offen = 0, beansprucht = 0, fertig = 0;
    };
    struct Worker {
        std::string name;
        int64_t einheiten = 0, treffer = 0, beansprucht = 0;
        double sekunden = 0;          // computing time of its done units
        double einheitenJeStunde = 0; // over the last hour
        std::string zuletzt;          // its last done unit's moment, "" if none
    };
    struct Anspruch {
        int64_t id = 0;
        std::string art, bereich, worker;
        double leaseRest = 0;  // seconds; below 0 when it ran out
    };
    std::vector<Art> arten;
    std::vector<Worker> worker;
    std::vector<Anspruch> ansprueche;
    int64_t offen = 0, beansprucht = 0, fertig = 0, treffer = 0;
    double einheitenJeStunde = 0;  // all workers, over the last hour
    double restSekunden = -1;      // expected time to the end, -1 when unknown
};
ArbeitStand ArbeitStandLesen(PgVerbindung& v);

}  // namespace sw
