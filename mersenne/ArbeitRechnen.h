// ArbeitRechnen: the computing side of one unit of the shared work queue, with no database in
// it. A worker reads what the database knows, computes here (for minutes, outside any
// transaction), and merges the outcome into the rows as they stand when it closes the unit:
// by then another program may have raised a limit or found a divisor, and a stored result
// must never be worsened by an older computation.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "mersenne/basDB.h"

namespace sw {

// Every k up to bisK was tried for p (0: not searched here) and q (decimal digits, "" for
// none) is the smallest divisor 2kp + 1 among them.
struct TeilerErgebnisZeile {
    uint32_t p = 0;
    uint64_t bisK = 0;
    std::string q;
};

// Called between segments; false stops the computation (the lease of the unit is lost).
using EinheitWeiter = std::function<bool()>;

// The prime exponents of [von, bis], each searched from the limit stored in `gespeichert`
// (missing: untouched) up to KZiel unless it is settled or searched that far already.
// Exponents that need no search are listed as well (bisK 0): the merge still gives a known
// Mersenne prime its row. nullopt when weiter stopped it.
std::optional<std::vector<TeilerErgebnisZeile>> TeilerEinheitRechnen(uint32_t von, uint32_t bis, uint64_t KZiel,
                                                                     const std::map<uint32_t, PrimZeile>& gespeichert,
                                                                     const EinheitWeiter& weiter);

// The row that p's result makes of the stored row `alt`, or nullopt when the row stays as it
// is. The rules of the single-process search: a known Mersenne prime gets status 1, a row with
// a status keeps it, a limit never falls, a divisor comes with its k in FaktorS.
std::optional<PrimZeile> TeilerZeileZusammenfuehren(const PrimZeile& alt, const TeilerErgebnisZeile& e,
                                                    uint64_t KZiel);

// The counts of a Collatz unit (3n + 1) over the starts von..bis: steps of every walk summed
// (a multiplication and a halving count as two), the multiplications summed, and the start of
// the longest walk (the smallest on a tie).
struct CollatzSumme {
    uint64_t starts = 0, schritte = 0, mult = 0, laengste = 0, laengsteStart = 0;
};
std::optional<CollatzSumme> CollatzEinheitRechnen(uint64_t von, uint64_t bis, const EinheitWeiter& weiter);

}  // namespace sw
