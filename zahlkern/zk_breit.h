// Wide products and quotients on plain word arrays (no count element), shared by the Hyp
// family and the word-vector primitives. Below the thresholds of zk_tuning.h they run in the
// column kernels of zk_klein; above them the words are copied into 64-bit limb buffers for
// GMP's mpn layer.
#pragma once

#include <cstdint>

namespace zk {

// t[0 .. na+nb) := a * b. na, nb >= 1; t overlaps neither operand.
void mul_worte(uint32_t* t, const uint32_t* a, int32_t na, const uint32_t* b, int32_t nb);

// t[0 .. 2n) := a^2. n >= 1; t does not overlap a.
void quad_worte(uint32_t* t, const uint32_t* a, int32_t n);

// q[0 .. na-nb+1) := a div b (q may be null), r[0 .. nb) := a mod b. na >= nb >= 2, the top
// word of b is not 0; r may be a itself (the remainder then replaces the dividend's low words).
void divmod_worte(uint32_t* q, uint32_t* r, const uint32_t* a, int32_t na, const uint32_t* b,
                  int32_t nb);

}  // namespace zk
