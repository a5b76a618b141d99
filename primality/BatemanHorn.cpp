#include "primality/BatemanHorn.h"

#include <algorithm>

#include "sieve/SiebSegmentiert.h"

namespace sw {

namespace {

// Polynomials over F_p, lowest coefficient first, p below 2^32 so products fit a word.
using Poly = std::vector<uint64_t>;

void kuerzen(Poly& a) {
    while (!a.empty() && a.back() == 0) a.pop_back();
}

uint64_t potenzMod(uint64_t b, uint64_t e, uint64_t p) {
    uint64_t r = 1;
    for (b %= p; e > 0; e >>= 1, b = b * b % p) {
        if (e & 1) r = r * b % p;
    }
    return r;
}

// a mod m, m not zero.
Poly rest(Poly a, const Poly& m, uint64_t p) {
    kuerzen(a);
    const uint64_t inv = potenzMod(m.back(), p - 2, p);
    while (a.size() >= m.size()) {
        const uint64_t faktor = a.back() * inv % p;
        const size_t versatz = a.size() - m.size();
        for (size_t i = 0; i < m.size(); ++i) a[versatz + i] = (a[versatz + i] + (p - faktor) * m[i]) % p;
        kuerzen(a);
    }
    return a;
}

Poly malRest(const Poly& a, const Poly& b, const Poly& m, uint64_t p) {
    if (a.empty() || b.empty()) return {};
    Poly c(a.size() + b.size() - 1, 0);
    for (size_t i = 0; i < a.size(); ++i) {
        for (size_t j = 0; j < b.size(); ++j) c[i + j] = (c[i + j] + a[i] * b[j]) % p;
    }
    return rest(std::move(c), m, p);
}

size_t ggtGrad(Poly a, Poly b, uint64_t p) {
    kuerzen(a);
    kuerzen(b);
    while (!b.empty()) {
        Poly r = rest(a, b, p);
        a = std::move(b);
        b = std::move(r);
    }
    return a.empty() ? 0 : a.size() - 1;
}

// f(a + j) as a polynomial in j over F_p: sum_k d_k / k! * j (j-1) ... (j-k+1). Needs p > degree.
Poly monomeModP(const NewtonPolynom& f, uint64_t p) {
    Poly g(f.differenzen.size(), 0);
    Poly fallend{1};  // j (j-1) ... (j-k+1)
    uint64_t fakultaet = 1;
    for (size_t k = 0; k < f.differenzen.size(); ++k) {
        if (k > 0) {
            fakultaet = fakultaet * k % p;
            // times (j - (k-1))
            Poly neu(fallend.size() + 1, 0);
            const uint64_t minus = (p - (k - 1) % p) % p;
            for (size_t i = 0; i < fallend.size(); ++i) {
                neu[i + 1] = (neu[i + 1] + fallend[i]) % p;
                neu[i] = (neu[i] + fallend[i] * minus) % p;
            }
            fallend = std::move(neu);
        }
        const uint64_t dk = mpz_fdiv_ui(f.differenzen[k].get(), static_cast<unsigned long>(p));
        const uint64_t c = dk * potenzMod(fakultaet, p - 2, p) % p;
        for (size_t i = 0; i < fallend.size(); ++i) g[i] = (g[i] + c * fallend[i]) % p;
    }
    kuerzen(g);
    return g;
}

}  // namespace

NewtonPolynom PolynomErkennen(int64_t a, const std::vector<Mpz>& werte) {
    NewtonPolynom f;
    f.ursprung = a;
    if (werte.size() < size_t(kStuetzstellen)) return f;
    // The leading entry of each row of the difference table is d_k.
    std::vector<Mpz> zeile(werte.begin(), werte.begin() + kStuetzstellen);
    std::vector<Mpz> d;
    while (!zeile.empty()) {
        d.push_back(zeile.front());
        for (size_t i = 0; i + 1 < zeile.size(); ++i) mpz_sub(zeile[i].get(), zeile[i + 1].get(), zeile[i].get());
        zeile.pop_back();
    }
    int32_t grad = -1;
    for (int32_t k = 0; k < int32_t(d.size()); ++k) {
        if (mpz_sgn(d[size_t(k)].get()) != 0) grad = k;
    }
    if (grad < 0 || grad > kHoechsterGrad) return f;
    d.resize(size_t(grad) + 1);
    f.differenzen = std::move(d);
    return f;
}

PolynomSchritt::PolynomSchritt(const NewtonPolynom& f) : d_(f.differenzen) {
    if (d_.empty()) d_.emplace_back();
}

void PolynomSchritt::Weiter() {
    // Delta^k f(j+1) = Delta^k f(j) + Delta^(k+1) f(j): ascending k uses the old values.
    for (size_t k = 0; k + 1 < d_.size(); ++k) mpz_add(d_[k].get(), d_[k].get(), d_[k + 1].get());
}

uint32_t WurzelnDurchProbieren(const NewtonPolynom& f, uint32_t p) {
    std::vector<uint64_t> d;
    for (const Mpz& x : f.differenzen) d.push_back(mpz_fdiv_ui(x.get(), p));
    uint32_t wurzeln = 0;
    for (uint32_t j = 0; j < p; ++j) {
        if (d.empty() || d[0] == 0) ++wurzeln;
        for (size_t k = 0; k + 1 < d.size(); ++k) {
            d[k] += d[k + 1];
            if (d[k] >= p) d[k] -= p;
        }
    }
    return wurzeln;
}

uint32_t WurzelnDurchGgt(const NewtonPolynom& f, uint32_t p) {
    if (p <= uint32_t(f.Grad())) return WurzelnDurchProbieren(f, p);  // k! has no inverse mod p
    const Poly g = monomeModP(f, p);
    if (g.empty()) return p;  // f vanishes mod p at every residue
    if (g.size() == 1) return 0;
    // x^p mod g by squaring, then gcd with x^p - x: its degree counts the distinct roots.
    Poly ergebnis = rest(Poly{1}, g, p), basis = rest(Poly{0, 1}, g, p);
    for (uint64_t e = p; e > 0; e >>= 1) {
        if (e & 1) ergebnis = malRest(ergebnis, basis, g, p);
        basis = malRest(basis, basis, g, p);
    }
    ergebnis.resize(std::max<size_t>(ergebnis.size(), 2), 0);
    ergebnis[1] = (ergebnis[1] + p - 1) % p;
    return uint32_t(ggtGrad(g, ergebnis, p));
}

double BatemanHornKonstante(const NewtonPolynom& f, uint32_t grenze) {
    std::vector<uint32_t> primzahlen{2, 3, 5};
    for (uint32_t p : KleinePrimzahlen(grenze)) primzahlen.push_back(p);
    double c = 1;
    for (uint32_t p : primzahlen) {
        if (p > grenze) break;
        // The walk is as quick as the gcd for small p and needs no inverse of k!.
        const uint32_t w = p <= 1000 ? WurzelnDurchProbieren(f, p) : WurzelnDurchGgt(f, p);
        if (w == p) return 0;
        c *= (1.0 - double(w) / p) / (1.0 - 1.0 / p);
    }
    return c;
}

}  // namespace sw
