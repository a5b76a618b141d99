// Provisional inside of LucasDwt: GMP squaring with the fold modulo 2^p - 1, so that the run
// driver can link and test against the interface while the transform engine is written.
#include "mersenne/LucasDwt.h"

#include <gmp.h>

#include "primality/HypMpz.h"

namespace sw {

struct LucasDwt::Zustand {
    uint32_t p;
    Mpz m, s, hoch;
};

LucasDwt::LucasDwt(uint32_t p) : z_(std::make_unique<Zustand>()) {
    z_->p = p;
    mpz_setbit(z_->m, p);
    mpz_sub_ui(z_->m, z_->m, 1);
    mpz_set_ui(z_->s, 4);
}

LucasDwt::~LucasDwt() = default;

void LucasDwt::Setzen(const std::vector<uint32_t>& s) {
    mpz_import(z_->s, s.size(), -1, sizeof(uint32_t), 0, 0, s.data());
    mpz_mod(z_->s, z_->s, z_->m);
}

std::vector<uint32_t> LucasDwt::Wert() const {
    std::vector<uint32_t> w(z_->p / 32 + 1, 0);
    size_t n = 0;
    mpz_export(w.data(), &n, -1, sizeof(uint32_t), 0, 0, z_->s.get());
    w.resize(n);
    return w;
}

uint32_t LucasDwt::Laufen(uint32_t anzahl) {
    Zustand& z = *z_;
    for (uint32_t i = 0; i < anzahl; ++i) {
        mpz_mul(z.s, z.s, z.s);
        for (int k = 0; k < 2; ++k) {
            mpz_tdiv_q_2exp(z.hoch, z.s, z.p);
            mpz_tdiv_r_2exp(z.s, z.s, z.p);
            mpz_add(z.s, z.s, z.hoch);
        }
        if (mpz_cmp(z.s, z.m) >= 0) mpz_sub(z.s, z.s, z.m);
        if (mpz_cmp_ui(z.s.get(), 2) < 0) mpz_add(z.s, z.s, z.m);
        mpz_sub_ui(z.s, z.s, 2);
    }
    return anzahl;
}

bool LucasDwt::IstNull() const { return mpz_sgn(z_->s.get()) == 0; }

uint64_t LucasDwt::Res64() const {
    Mpz niedrig;
    mpz_tdiv_r_2exp(niedrig, z_->s, 64);
    uint64_t r = 0;
    mpz_export(&r, nullptr, -1, sizeof(uint64_t), 0, 0, niedrig.get());
    return r;
}

size_t LucasDwt::FftLaenge() const { return 0; }
double LucasDwt::GroessterFehler() const { return 0.0; }

}  // namespace sw
