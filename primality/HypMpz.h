// HypMpz: the bridge between the program's Hyp numbers and GMP's mpz_t. The tests of large
// numbers (BPSW, the factoriser) lean on GMP's tuned modular powers and gcds; the words of a
// Hyp are copied in and out in one call each, lowest word first.
#pragma once

#include <gmp.h>

#include "zahlkern/Hyp.h"

namespace sw {

// An mpz_t that frees itself; converts from and to Hyp.
class Mpz {
  public:
    Mpz() { mpz_init(z_); }
    explicit Mpz(unsigned long v) { mpz_init_set_ui(z_, v); }
    explicit Mpz(const Hyp& h);
    Mpz(const Mpz& o) { mpz_init_set(z_, o.z_); }
    Mpz& operator=(const Mpz& o) {
        mpz_set(z_, o.z_);
        return *this;
    }
    ~Mpz() { mpz_clear(z_); }

    mpz_ptr get() { return z_; }
    mpz_srcptr get() const { return z_; }
    operator mpz_ptr() { return z_; }
    operator mpz_srcptr() const { return z_; }

  private:
    mpz_t z_;
};

// z := the value of h.
void HypZuMpz(mpz_ptr z, const Hyp& h);
// The magnitude of z as a Hyp with exactly the room it needs.
Hyp MpzZuHyp(mpz_srcptr z);

}  // namespace sw
