#include "ArithHilfen.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace sw::test {

std::mt19937_64& Zufall() {
    static std::mt19937_64 zufall = [] {
        const char* s = std::getenv("SW_SEED");
        const uint64_t seed = s != nullptr ? std::strtoull(s, nullptr, 10) : std::random_device{}();
        std::printf("arith tests: SW_SEED=%llu\n", static_cast<unsigned long long>(seed));
        return std::mt19937_64(seed);
    }();
    return zufall;
}

Mpz::Mpz(const Hyp& h) : Mpz() {
    mpz_import(z, size_t(h.anzahl()), -1, 4, 0, 0, h.daten() + 1);
}

std::string Mpz::Text() const {
    std::vector<char> puffer(mpz_sizeinbase(z, 10) + 2);
    mpz_get_str(puffer.data(), 10, z);
    return puffer.data();
}

Hyp HypAus(const mpz_t z) {
    const size_t n = (mpz_sizeinbase(z, 2) + 31) / 32;
    Hyp h(int32_t(n) + 1);
    size_t geschrieben = 0;
    mpz_export(h.daten() + 1, &geschrieben, -1, 4, 0, 0, z);
    h[0] = geschrieben == 0 ? 1 : int32_t(geschrieben);
    return h;
}

void ZufallsZahl(mpz_t z, int bits) {
    auto& r = Zufall();
    const int b = 1 + int(r() % uint64_t(bits));
    switch (r() % 4) {
        case 0: {
            mpz_set_ui(z, 0);
            for (int i = 0; i < b; i += 32) {
                mpz_mul_2exp(z, z, 32);
                mpz_add_ui(z, z, uint32_t(r()));
            }
            mpz_fdiv_r_2exp(z, z, mp_bitcnt_t(b));
            break;
        }
        case 1:  // all ones
            mpz_set_ui(z, 1);
            mpz_mul_2exp(z, z, mp_bitcnt_t(b));
            mpz_sub_ui(z, z, 1);
            break;
        case 2:  // one bit
            mpz_set_ui(z, 1);
            mpz_mul_2exp(z, z, mp_bitcnt_t(b - 1));
            break;
        default: {  // long runs of zeros and ones
            mpz_set_ui(z, 0);
            for (int i = 0; i < b;) {
                const int lauf = 1 + int(r() % 97);
                if (r() % 2) {
                    for (int k = i; k < i + lauf && k < b; ++k) mpz_setbit(z, mp_bitcnt_t(k));
                }
                i += lauf;
            }
            mpz_setbit(z, mp_bitcnt_t(b - 1));
        }
    }
}

}  // namespace sw::test
