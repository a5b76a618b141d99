#include "primality/PollardRho.h"

#include <algorithm>

#include "primality/HypMpz.h"

namespace sw {

namespace {

// Steps between two gcds. A gcd of numbers of this size costs about as much as a hundred
// products; a larger batch only overshoots the cycle by more, which the backtrack repairs.
constexpr uint64_t kStapel = 128;

// One cycle search with f(x) = x^2 + c. True and faktor set when 1 < gcd < n; false when
// the budget ran out, the search was stopped, or only n itself came out.
bool suche(mpz_ptr faktor, mpz_srcptr n, unsigned long c, uint64_t& rest, const std::function<bool()>& stopp) {
    Mpz x, y(2), ys, q(1), d;
    auto f = [&](mpz_ptr z) {
        mpz_mul(z, z, z);
        mpz_add_ui(z, z, c);
        mpz_mod(z, z, n);
    };
    mpz_set_ui(faktor, 1);
    for (uint64_t r = 1; mpz_cmp_ui(faktor, 1) == 0; r *= 2) {
        mpz_set(x, y);
        for (uint64_t i = 0; i < r; ++i) f(y);
        for (uint64_t k = 0; k < r && mpz_cmp_ui(faktor, 1) == 0; k += kStapel) {
            if (rest == 0 || stopp()) return false;
            mpz_set(ys, y);
            const uint64_t m = std::min({kStapel, r - k, rest});
            rest -= m;
            for (uint64_t i = 0; i < m; ++i) {
                f(y);
                mpz_sub(d, x, y);
                mpz_mul(q, q, d);
                mpz_mod(q, q, n);
            }
            mpz_gcd(faktor, q, n);
        }
    }
    if (mpz_cmp(faktor, n) == 0) {
        // The batch stepped over the factor and the product hit 0: walk it again one gcd at a
        // time from its start.
        do {
            f(ys);
            mpz_sub(d, x, ys);
            mpz_gcd(faktor, d, n);
        } while (mpz_cmp_ui(faktor, 1) == 0);
    }
    return mpz_cmp(faktor, n) != 0;
}

}  // namespace

bool PollardRhoBrent(mpz_ptr faktor, mpz_srcptr n, uint64_t schritte, const std::function<bool()>& stopp) {
    uint64_t rest = schritte;
    for (unsigned long c = 1; rest > 0; ++c) {
        if (suche(faktor, n, c, rest, stopp)) return true;
        if (stopp()) return false;
    }
    return false;
}

}  // namespace sw
