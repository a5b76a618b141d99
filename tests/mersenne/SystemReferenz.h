// The plain ways of the systematic search, kept to judge the fast ones: the order of 2 by
// doubling (one doubling and one compare per step, up to the bound) and the exponent by walking
// the primes downward and taking the first c with q mod c = 1.
#pragma once

#include <gmp.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace sw::test {

// The order of 2 modulo the odd q < 2^63 if it is at most grenze, else 0. 2x = 1 + q is the only
// way to reach 1, so comparing after a reduction is enough.
inline int64_t OrdnungVerdoppeln(uint64_t q, int64_t grenze) {
    uint64_t x = 2;
    for (int64_t i = 2; i <= grenze; ++i) {
        x *= 2;
        if (x >= q) {
            x -= q;
            if (x == 1) return i;
        }
    }
    return 0;
}

// The same for a q of any size.
inline int64_t OrdnungVerdoppeln(mpz_srcptr q, int64_t grenze) {
    mpz_t x;
    mpz_init_set_ui(x, 2);
    int64_t ordnung = 0;
    for (int64_t i = 2; i <= grenze && ordnung == 0; ++i) {
        mpz_mul_2exp(x, x, 1);
        if (mpz_cmp(x, q) >= 0) {
            mpz_sub(x, x, q);
            if (mpz_cmp_ui(x, 1) == 0) ordnung = i;
        }
    }
    mpz_clear(x);
    return ordnung;
}

// The exponent of each q by the downward walk through the primes from oben to the bound of
// the parameter (words of 120 from parameter * 10^6 div 120 - 1 on); parameter * 10^6 for a q
// without a find. The primes come from a segmented sieve of the odd numbers, segment by
// segment from the top.
inline std::vector<int64_t> ExponentWalk(const std::vector<mpz_srcptr>& qs, int64_t parameter, int64_t oben) {
    const int64_t unten = (parameter * 1000000 / 120 - 1) * 120;
    std::vector<int64_t> ergebnis(qs.size(), 0);
    std::vector<int64_t> basis;
    for (int64_t i = 3; i * i <= oben; i += 2) {
        bool prim = true;
        for (int64_t b : basis) {
            if (b * b > i) break;
            if (i % b == 0) {
                prim = false;
                break;
            }
        }
        if (prim) basis.push_back(i);
    }
    constexpr int64_t kSegment = int64_t(1) << 22;
    std::vector<uint8_t> gestrichen;
    size_t offen = qs.size();
    for (int64_t hoch = oben; hoch > unten && offen > 0; hoch -= kSegment) {
        const int64_t tief = std::max(unten + 1, hoch - kSegment + 1);
        gestrichen.assign(size_t(hoch - tief + 1), 0);
        for (int64_t b : basis) {
            if (b * b > hoch) break;
            for (int64_t m = std::max(b * b, (tief + b - 1) / b * b); m <= hoch; m += b) gestrichen[size_t(m - tief)] = 1;
        }
        for (int64_t c = hoch; c >= tief && offen > 0; --c) {
            if ((c & 1) == 0 || gestrichen[size_t(c - tief)]) continue;
            for (size_t i = 0; i < qs.size(); ++i) {
                if (ergebnis[i] == 0 && mpz_fdiv_ui(qs[i], static_cast<unsigned long>(c)) == 1) {
                    ergebnis[i] = c;
                    --offen;
                }
            }
        }
    }
    for (int64_t& e : ergebnis) {
        if (e == 0) e = parameter * 1000000;
    }
    return ergebnis;
}

}  // namespace sw::test
