#include "primality/HypMpz.h"

#include <algorithm>

namespace sw {

Mpz::Mpz(const Hyp& h) {
    mpz_init(z_);
    HypZuMpz(z_, h);
}

void HypZuMpz(mpz_ptr z, const Hyp& h) {
    // order -1: lowest word first; endian 0: the words are in the machine's order.
    mpz_import(z, size_t(std::max(h.anzahl(), 1)), -1, sizeof(int32_t), 0, 0, h.daten() + 1);
}

Hyp MpzZuHyp(mpz_srcptr z) {
    const size_t worte = (mpz_sizeinbase(z, 2) + 31) / 32;
    Hyp h(int32_t(std::max<size_t>(worte, 1)));
    size_t geschrieben = 0;
    mpz_export(h.daten() + 1, &geschrieben, -1, sizeof(int32_t), 0, 0, z);
    h[0] = int32_t(std::max<size_t>(geschrieben, 1));
    return h;
}

}  // namespace sw
