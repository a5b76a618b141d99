#include "primality/QuadratWerkzeug.h"

#include <chrono>
#include <limits>

#include "arith/FftProdukt.h"
#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "primality/Bpsw.h"
#include "primality/Faktorisierung.h"
#include "primality/HypMpz.h"
#include "primality/PrimzahlTest.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

[[noreturn]] void ablehnen(int nummer, const std::string& text) { throw Laufzeitfehler(nummer, text); }

// The value as a Long when it fits one (below 2^31), for the word routines.
std::optional<int32_t> alsWort(const Hyp& h) {
    if (aGetHighBitHyp(h) >= 31) return std::nullopt;
    return h[1];
}

Hyp wortHyp(int64_t v) {
    Hyp h(2);
    h[1] = int32_t(uint32_t(v));
    h[2] = int32_t(uint32_t(uint64_t(v) >> 32));
    h[0] = h[2] != 0 ? 2 : 1;
    return h;
}

void primPruefen(mpz_srcptr p) {
    if (!BpswTest(p)) ablehnen(FehlerTypenUnvertraeglich, TextP1(2249, Hyp2Text(MpzZuHyp(p))));
}

bool istEins(mpz_srcptr z) { return mpz_cmp_ui(z, 1) == 0; }

}  // namespace

Hyp QuadratEingabe(const std::string& feld, const std::string& feldName) {
    if (feld.find_first_not_of(" \t") == std::string::npos) ablehnen(FehlerTypenUnvertraeglich, TextP1(2257, feldName));
    return Formel2Hyp(PrimTestEingabe(feld));
}

KWurzel KteWurzel(const Hyp& n, int64_t k) {
    if (k < 2 || k > 1000000) ablehnen(FehlerUeberlauf, Text(2253));
    if (k == 2) return {HypWurzel(n, true), HypWurzel(n, false)};
    Mpz z(n), w, r;
    mpz_rootrem(w, r, z, static_cast<unsigned long>(k));
    return {MpzZuHyp(w), MpzZuHyp(r)};
}

int32_t Jacobi(const Hyp& a, const Hyp& n) {
    if (aIsEvenHyp(n) || aCmpHyp32(n, 1) <= 0) ablehnen(FehlerTypenUnvertraeglich, Text(2254));
    if (const auto wort = alsWort(a)) return JacobiSymbol(*wort, n);
    const Mpz za(a), zn(n);
    return mpz_jacobi(za, zn);
}

std::optional<Hyp> WurzelModP(const Hyp& a, const Hyp& p) {
    const Mpz zp(p);
    primPruefen(zp);
    Mpz x(a);
    mpz_mod(x, x, zp);
    if (mpz_sgn(x.get()) == 0 || mpz_cmp_ui(zp.get(), 2) == 0) return MpzZuHyp(x);
    if (mpz_legendre(x, zp) != 1) return std::nullopt;

    // Tonelli-Shanks: p - 1 = q 2^s with q odd; z a non-residue. The loop keeps r^2 = x t with
    // t in the 2^m-th roots of unity and halves the order of t each round.
    Mpz q, z(2), c, t, r, b, e;
    mpz_sub_ui(q, zp, 1);
    const mp_bitcnt_t s = mpz_scan1(q, 0);
    mpz_tdiv_q_2exp(q, q, s);
    while (mpz_legendre(z, zp) != -1) mpz_add_ui(z, z, 1);
    mpz_powm(c, z, q, zp);
    mpz_powm(t, x, q, zp);
    mpz_add_ui(e, q, 1);
    mpz_tdiv_q_2exp(e, e, 1);
    mpz_powm(r, x, e, zp);
    mp_bitcnt_t m = s;
    while (!istEins(t)) {
        mp_bitcnt_t i = 0;
        mpz_set(b, t);
        while (!istEins(b)) {  // the least i with t^(2^i) = 1; i < m since t's order divides 2^(m-1)
            mpz_mul(b, b, b);
            mpz_mod(b, b, zp);
            ++i;
        }
        mpz_set(b, c);
        for (mp_bitcnt_t k = 0; k + i + 1 < m; ++k) {
            mpz_mul(b, b, b);
            mpz_mod(b, b, zp);
        }
        m = i;
        mpz_mul(c, b, b);
        mpz_mod(c, c, zp);
        mpz_mul(t, t, c);
        mpz_mod(t, t, zp);
        mpz_mul(r, r, b);
        mpz_mod(r, r, zp);
    }
    Mpz anderer;
    mpz_sub(anderer, zp, r);
    return MpzZuHyp(mpz_cmp(anderer, r) < 0 ? anderer.get() : r.get());
}

ModInverseErgebnis ModInverse(const Hyp& a, const Hyp& m) {
    if (aCmpHyp32(m, 2) < 0) ablehnen(FehlerDivisionDurchNull, Text(2252));
    ModInverseErgebnis e;
    const auto wa = alsWort(a), wm = alsWort(m);
    if (wa && wm) {
        e.wort = true;
        e.inverse = wortHyp(ModInverseLong(*wa, *wm));
        e.ggt = wortHyp(GGTLong(*wa, *wm));
    } else {
        e.inverse = HypModInverse(a, m);
        e.ggt = HypGGT(a, m);
    }
    return e;
}

Primwurzel KleinstePrimitivwurzel(const Hyp& p) {
    const Mpz zp(p);
    primPruefen(zp);
    Primwurzel w;
    if (const auto wort = alsWort(p)) {
        w.wort = true;
        w.wurzel = wortHyp(Primitivwurzel(*wort));
        const std::vector<int32_t> f = PrimfaktorenLong(*wort - 1);
        for (size_t i = 1; i < f.size(); ++i) w.faktoren.push_back(wortHyp(f[i]));
        return w;
    }
    Mpz eins(p);
    mpz_sub_ui(eins, eins, 1);
    const Zerlegung z = Zerlegen(MpzZuHyp(eins));
    for (const Primfaktor& f : z.faktoren) {
        if (f.art == FaktorArt::Zusammengesetzt) ablehnen(FehlerUeberlauf, TextP1(2255, Hyp2Text(f.wert)));
        w.faktoren.push_back(f.wert);
    }
    // The least root is small in every case known, so the walk from 2 is short; squares are
    // passed over since a square is never a primitive root.
    Mpz a(2), exponent, potenz;
    for (;; mpz_add_ui(a, a, 1)) {
        if (mpz_perfect_square_p(a)) continue;
        bool primitiv = true;
        for (const Hyp& q : w.faktoren) {
            mpz_divexact(exponent, eins, Mpz(q));
            mpz_powm(potenz, a, exponent, zp);
            if (istEins(potenz)) {
                primitiv = false;
                break;
            }
        }
        if (primitiv) break;
    }
    w.wurzel = MpzZuHyp(a);
    return w;
}

Hyp Ordnung(const Hyp& a, const Hyp& p, const std::vector<Hyp>& faktoren) {
    const Mpz zp(p);
    Mpz za(a);
    mpz_mod(za, za, zp);
    if (mpz_sgn(za.get()) == 0) ablehnen(FehlerDivisionDurchNull, TextP1(2256, Hyp2Text(a)));
    // From p - 1 down: each prime of p - 1 is taken out as long as the power stays 1.
    Mpz ordnung(p), kleiner, potenz;
    mpz_sub_ui(ordnung, ordnung, 1);
    for (const Hyp& q : faktoren) {
        const Mpz zq(q);
        while (mpz_divisible_p(ordnung, zq)) {
            mpz_divexact(kleiner, ordnung, zq);
            mpz_powm(potenz, za, kleiner, zp);
            if (!istEins(potenz)) break;
            mpz_set(ordnung, kleiner);
        }
    }
    return MpzZuHyp(ordnung);
}

FftVergleich FftGegenGmp(const Hyp& a, const Hyp& b) {
    using Uhr = std::chrono::steady_clock;
    FftVergleich v;
    auto start = Uhr::now();
    FftErgebnis f = FftProdukt(a, b);
    v.sekundenFft = std::chrono::duration<double>(Uhr::now() - start).count();
    const Mpz za(a), zb(b);
    Mpz exakt;
    start = Uhr::now();
    mpz_mul(exakt, za, zb);
    v.sekundenGmp = std::chrono::duration<double>(Uhr::now() - start).count();
    v.gleich = mpz_cmp(Mpz(f.produkt), exakt) == 0;
    v.produkt = std::move(f.produkt);
    v.rundungsfehler = f.rundungsfehler;
    v.punkte = f.laenge;
    return v;
}

}  // namespace sw
