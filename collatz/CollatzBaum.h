// CollatzBaum: every start value whose 3n+1 sequence reaches 1 in exactly n steps (a
// multiplication and a halving one step each), found backwards from 1 without a forward test;
// and the rough size of a start value from its step and multiplication counts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "frame/Decimal.h"
#include "zahlkern/Hyp.h"

namespace sw {

struct CollatzBaumEintrag {
    Decimal wert;
    int32_t mult = 0;   // multiplications of its sequence
};

// The largest depth whose values all fit a Decimal: 2^n is the largest value of depth n.
constexpr int32_t CollatzBaumMaxTiefe = 95;

// The values of depth n in the order of the descent (odd branch or doubling first). At most
// grenze + 1 values are gathered: one beyond the limit tells that the list is not complete,
// and a deep tree would otherwise fill the memory with values nobody sees. The descent yields
// now and then and ends at Abbruch with what it has. A depth above CollatzBaumMaxTiefe is a
// Laufzeitfehler with a clear text.
std::vector<CollatzBaumEintrag> CollatzBaum(int32_t tiefe, bool ungeradeZuerst, size_t grenze);

// 2^(a-b) div 3^b: the size of a start value of a steps with b multiplications, since each
// halving halves and each multiplication, with the halving that follows it, multiplies by
// about 3/2. 0 when a is not above b.
Hyp CollatzSchaetzung(int32_t a, int32_t b);

}  // namespace sw
