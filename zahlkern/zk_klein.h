// Products and squares of short word arrays (up to kKleinWorte words each), read and written
// in place as 64-bit limbs: below GMP's profitable sizes the copies into limb buffers and its
// call chain cost more than the product itself. Internal to zahlkern; zk_breit decides when.
#pragma once

#include <cstdint>

namespace zk {

// The longest operand the kernels take: eight 64-bit limbs.
constexpr int32_t kKleinWorte = 16;

// t[0 .. na+nb) := a * b for 1 <= na, nb <= kKleinWorte; t overlaps neither operand.
void mul_klein(uint32_t* t, const uint32_t* a, int32_t na, const uint32_t* b, int32_t nb);

// t[0 .. 2n) := a^2 for 1 <= n <= kKleinWorte; t does not overlap a.
void quad_klein(uint32_t* t, const uint32_t* a, int32_t n);

}  // namespace zk
