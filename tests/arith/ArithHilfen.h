// Shared helpers of the arithmetic tests: a random source whose seed is printed (replay with
// SW_SEED=...), random numbers with long runs of 0 and 1 bits, and conversions between Hyp
// and mpz, GMP being the independent oracle.
#pragma once

#include <gmp.h>

#include <cstdint>
#include <random>
#include <string>

#include "zahlkern/Hyp.h"

namespace sw::test {

// Loop counts shrink under the address sanitizer, which makes every access several times dearer.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kRunden = 8;
#else
constexpr int kRunden = 1;
#endif

std::mt19937_64& Zufall();

struct Mpz {
    mpz_t z;
    Mpz() { mpz_init(z); }
    explicit Mpz(const char* dez) { mpz_init_set_str(z, dez, 10); }
    explicit Mpz(const Hyp& h);
    ~Mpz() { mpz_clear(z); }
    Mpz(const Mpz&) = delete;
    Mpz& operator=(const Mpz&) = delete;
    std::string Text() const;
};

Hyp HypAus(const mpz_t z);
// A random number of up to `bits` bits: random words, all ones, one bit, or sparse runs.
void ZufallsZahl(mpz_t z, int bits);

}  // namespace sw::test
