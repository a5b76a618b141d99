// The arithmetic of the bar graphic.
#include "collatz/CollatzBalken.h"

#include <cstdlib>

#include "collatz/basCollatz.h"

namespace sw {

namespace {

void mpzSetzen(mpz_ptr z, int64_t v) {
    mpz_set_ui(z, static_cast<unsigned long>(std::llabs(v)));
    if (v < 0) mpz_neg(z, z);
}

}  // namespace

int32_t BalkenAnzahl(int32_t quer, int32_t balken) {
    if (balken < 1) balken = 1;
    const int32_t n = (quer - 5) / (balken + 2) - 1;
    return n > 0 ? n : 0;
}

int32_t BalkenIndex(int32_t position, int32_t balken) {
    if (balken < 1) balken = 1;
    return position < 5 ? -1 : (position - 5) / (balken + 2);
}

double BalkenMass(int32_t laengs, int32_t skalaMax) {
    if (skalaMax < 1) skalaMax = 1;
    const int32_t ganz = laengs / skalaMax;
    return ganz > 0 ? double(ganz) : double(laengs) / double(skalaMax);
}

Mpz BalkenWert(const Mpz& start, int64_t schritt, int64_t index) {
    Mpz d, w(start);
    mpzSetzen(d.get(), schritt);
    mpz_mul_si(d.get(), d.get(), long(index));
    mpz_add(w.get(), w.get(), d.get());
    if (mpz_sgn(w.get()) < 0) mpz_set_ui(w.get(), 0);
    return w;
}

std::string BalkenMarken(const Mpz& wert, int32_t verfahren, int32_t k) {
    CollatzZahl = MpzZuHyp(wert.get());
    const std::string zeile = CollatzZeile(verfahren, k);
    const size_t p = zeile.find('=');
    if (p == std::string::npos) return "";
    size_t a = p + 1, e = zeile.size();
    while (a < e && zeile[a] == ' ') ++a;
    while (e > a && zeile[e - 1] == ' ') --e;
    return zeile.substr(a, e - a);
}

Mpz BalkenNavigation(int32_t code, const Mpz& von, int64_t schritt, int32_t quer, int32_t balken) {
    if (balken < 1) balken = 1;
    const int64_t s = std::llabs(schritt);
    Mpz ergebnis(von), schrittZahl, seite;
    mpzSetzen(schrittZahl.get(), s);
    mpz_mul_si(seite.get(), schrittZahl.get(), long(quer > 5 ? quer - 5 : 0));
    mpz_tdiv_q_ui(seite.get(), seite.get(), static_cast<unsigned long>(balken + 2));
    switch (code) {
        case 0:
            mpz_set(ergebnis.get(), schrittZahl.get());
            break;
        case 1:
            if (mpz_cmp(von.get(), seite.get()) <= 0) {
                mpz_set(ergebnis.get(), schrittZahl.get());
            } else {
                mpz_sub(ergebnis.get(), von.get(), seite.get());
            }
            break;
        case 2:
            if (mpz_cmp(von.get(), schrittZahl.get()) > 0) mpz_sub(ergebnis.get(), von.get(), schrittZahl.get());
            break;
        case 3:
            mpz_add(ergebnis.get(), von.get(), schrittZahl.get());
            break;
        default:
            mpz_add(ergebnis.get(), von.get(), seite.get());
            break;
    }
    return ergebnis;
}

}  // namespace sw
