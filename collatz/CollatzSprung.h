// CollatzSprung: the fast walk under every Collatz count and mark string. It goes by the map
// T(n) = n/2 for even n and T(n) = (3n + s)/2 for odd n, s = +1 (the classic rule) or s = -1,
// one T step standing for a halving or for a multiplication with the halving that always
// follows it. The rule is a parameter so that every walk of the wing shares one engine.
//
// Why it is fast: writing n = a * 2^16 + b, the next 16 T steps depend only on b, and
// T^16(n) = a * 3^c + T^16(b), c being the number of odd steps among them. A table of 2^16
// entries turns 16 steps into one multiply-add, in 64-bit words while the value is small and
// in one pass over the words of a Hyp when it is large; runs of zero bits go by one shift.
#pragma once

#include <cstdint>
#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

// The odd step: 3n + 1 or 3n - 1 (the value is the s above).
enum class CollatzRegel : int32_t { DreiNPlusEins = 1, DreiNMinusEins = -1 };

// What a walk counted: T steps and the odd ones among them. A walk by single steps (one
// multiplication, one halving) took tSchritte + ungerade steps.
struct CollatzGang {
    int64_t tSchritte = 0;
    int64_t ungerade = 0;
};

// True when h is where a walk of the rule ends: 1, and for 3n - 1 also 5 and 17 (the smallest
// members of its two other cycles). 0 counts as an end as well: it has no walk.
bool CollatzAmEnde(const Hyp& h, CollatzRegel regel);

// Walks h down to its end value, adding to gang. With marken set it appends one "!" per odd
// and one "." per even T step. Between passes over large values it yields (DoEvents) and
// looks at Abbruch: false means the user stopped the walk; h then holds the value reached,
// and gang and marken what was walked until there.
bool CollatzGehen(Hyp& h, CollatzRegel regel, CollatzGang& gang, std::string* marken = nullptr);

// The T steps and odd steps of a start below 2^64 down to its end value, for mass counts;
// never yields. kleiner, if given, holds the packed counts (T steps << 32 | odd steps) of the
// starts below its size: the walk stops as soon as its value falls below the start and is
// counted there, which makes a count over a range of starts reuse the work of the smaller ones.
CollatzGang CollatzGang64(uint64_t n, CollatzRegel regel, const uint64_t* kleiner = nullptr,
                          uint64_t kleinerAnzahl = 0);

}  // namespace sw
