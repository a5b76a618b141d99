// Wide products and quotients. Short products run in the column kernels of zk_klein. GMP's
// mpn functions want 64-bit limbs at limb alignment, and a Hyp's words start 4 bytes behind
// its count, so longer operands are copied into grow-only limb buffers of the calling thread;
// the copy is linear and disappears beside the product (zk_tuning.h says where each side
// takes over).
#include "zahlkern/zk_breit.h"

#include <gmp.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "zahlkern/zk_intern.h"
#include "zahlkern/zk_klein.h"
#include "zahlkern/zk_tuning.h"

namespace zk {
namespace {

static_assert(sizeof(mp_limb_t) == 8, "the limb copies assume 64-bit limbs");

// Grow-only scratch limbs of the calling thread: a call allocates only when it is the widest
// this thread has seen.
thread_local std::vector<mp_limb_t> puffer[4];

inline mp_limb_t* platz(int i, size_t limbs) {
    std::vector<mp_limb_t>& v = puffer[i];
    if (v.size() < limbs) v.resize(limbs + limbs / 4 + 4);
    return v.data();
}


// Words into limbs: on a little-endian machine two words are one limb. The pairs are stored
// as whole limbs: a byte copy over a half limb zeroed first would leave GMP's first load of
// that limb waiting on two overlapping stores.
inline mp_limb_t* in_limbs(int i, const uint32_t* w, int32_t n) {
    const size_t l = size_t(limbs_fuer(n));
    mp_limb_t* p = platz(i, l);
    const size_t ganze = size_t(n) / 2;
    for (size_t k = 0; k < ganze; ++k) {
        uint64_t x;
        std::memcpy(&x, w + 2 * k, 8);
        p[k] = x;
    }
    if (n & 1) p[ganze] = w[n - 1];
    return p;
}

// Limbs back into words: the same pairing the other way round.
inline void aus_limbs(uint32_t* w, const mp_limb_t* p, int32_t n) {
    const size_t ganze = size_t(n) / 2;
    for (size_t k = 0; k < ganze; ++k) std::memcpy(w + 2 * k, &p[k], 8);
    if (n & 1) w[n - 1] = uint32_t(p[ganze]);
}

}  // namespace

void mul_worte(uint32_t* t, const uint32_t* a, int32_t na, const uint32_t* b, int32_t nb) {
    if (na < nb) {
        std::swap(a, b);
        std::swap(na, nb);
    }
    if (na <= kMulKleinBis) {
        mul_klein(t, a, na, b, nb);
        return;
    }
    const size_t la = size_t(limbs_fuer(na)), lb = size_t(limbs_fuer(nb));
    const mp_limb_t* pa = in_limbs(0, a, na);
    const mp_limb_t* pb = in_limbs(1, b, nb);
    mp_limb_t* pt = platz(2, la + lb);
    mpn_mul(pt, pa, mp_size_t(la), pb, mp_size_t(lb));
    aus_limbs(t, pt, na + nb);
}

void quad_worte(uint32_t* t, const uint32_t* a, int32_t n) {
    if (n <= kQuadKleinBis) {
        quad_klein(t, a, n);
        return;
    }
    const size_t l = size_t(limbs_fuer(n));
    // Whole limbs at limb alignment on both sides (the halves of the Lucas-Lehmer Karatsuba
    // mostly are) need no copies: GMP squares the words where they lie.
    if (n % 2 == 0 && (reinterpret_cast<uintptr_t>(a) | reinterpret_cast<uintptr_t>(t)) % 8 == 0) {
        mpn_sqr(reinterpret_cast<mp_limb_t*>(t), reinterpret_cast<const mp_limb_t*>(a), mp_size_t(l));
        return;
    }
    const mp_limb_t* pa = in_limbs(0, a, n);
    mp_limb_t* pt = platz(2, 2 * l);
    mpn_sqr(pt, pa, mp_size_t(l));
    aus_limbs(t, pt, 2 * n);
}

void divmod_worte(uint32_t* q, uint32_t* r, const uint32_t* a, int32_t na, const uint32_t* b,
                  int32_t nb) {
    const size_t la = size_t(limbs_fuer(na)), lb = size_t(limbs_fuer(nb));
    const mp_limb_t* pa = in_limbs(0, a, na);
    const mp_limb_t* pb = in_limbs(1, b, nb);
    mp_limb_t* pq = platz(2, la - lb + 1);
    mp_limb_t* pr = platz(3, lb);
    mpn_tdiv_qr(pq, pr, 0, pa, mp_size_t(la), pb, mp_size_t(lb));
    if (q != nullptr) aus_limbs(q, pq, na - nb + 1);
    aus_limbs(r, pr, nb);
}

}  // namespace zk
