// WortRechner: the calculator of the two fixed widths, Zahl64 and Zahl128, on the kernel's own
// routines. Unsigned throughout; a result that does not fit is refused by name instead of being
// wrapped as the kernel's routines would, so that the window shows what really happened.
#pragma once

#include <cstdint>
#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

enum class WortOp { Plus, Minus, Mal, Div, Mod };

// a op b in 64 or 128 bits (breite). Refused with a Laufzeitfehler: an operand beyond the width
// (6), a sum or product beyond it (6), a negative difference (6), division by 0 (11).
Hyp WortRechnen(const Hyp& a, const Hyp& b, WortOp op, int32_t breite);

// The operation of its sign: + - * / and "mod" (also %); false for anything else.
bool WortOpLesen(const std::string& zeichen, WortOp& op);

}  // namespace sw
