#include "primality/ZahlAnalyse.h"

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "collatz/CollatzGrafik.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"

namespace sw {

namespace {

constexpr int kEingabeFehler = 5;

ZahlUrteil urteilVon(const Zerlegung& z) {
    if (z.faktoren.empty()) return ZahlUrteil::Eins;
    const Primfaktor& f = z.faktoren.front();
    if (z.faktoren.size() > 1 || f.exponent > 1) return ZahlUrteil::Zusammengesetzt;
    switch (f.art) {
        case FaktorArt::Bewiesen: return ZahlUrteil::PrimBewiesen;
        case FaktorArt::Wahrscheinlich: return ZahlUrteil::PrimWahrscheinlich;
        case FaktorArt::Zusammengesetzt: break;
    }
    // A whole part left unsplit is composite unless the user stopped the job before it was
    // even tested.
    return z.abgebrochen ? ZahlUrteil::Offen : ZahlUrteil::Zusammengesetzt;
}

}  // namespace

Mpz AnalyseZahlLesen(const std::string& text) {
    const std::string t = Trimmen(text);
    if (!t.empty() && t.front() == '-') throw Laufzeitfehler(kEingabeFehler, Text(2290));
    // A field that was left shows its formula behind the formula word; a typed text is a
    // formula as it stands.
    Mpz n(t.rfind(FormelWort(), 0) == 0 ? Formel2Hyp(t) : Auswerten(t));
    if (mpz_sgn(n.get()) == 0) throw Laufzeitfehler(kEingabeFehler, Text(2291));
    return n;
}

void TeilerFunktionen(const Zerlegung& z, Mpz& tau, Mpz& sigma, Mpz& phi, int32_t& mu) {
    mpz_set_ui(tau.get(), 1);
    mpz_set_ui(sigma.get(), 1);
    mpz_set_ui(phi.get(), 1);
    mu = 1;
    Mpz p, potenz, pMinus1;
    for (const Primfaktor& f : z.faktoren) {
        const auto e = static_cast<unsigned long>(f.exponent);
        HypZuMpz(p.get(), f.wert);
        mpz_sub_ui(pMinus1.get(), p.get(), 1);
        mpz_mul_ui(tau.get(), tau.get(), e + 1);
        // sigma(p^e) = (p^(e+1) - 1) / (p - 1), phi(p^e) = p^(e-1) (p - 1).
        mpz_pow_ui(potenz.get(), p.get(), e + 1);
        mpz_sub_ui(potenz.get(), potenz.get(), 1);
        mpz_divexact(potenz.get(), potenz.get(), pMinus1.get());
        mpz_mul(sigma.get(), sigma.get(), potenz.get());
        mpz_pow_ui(potenz.get(), p.get(), e - 1);
        mpz_mul(phi.get(), phi.get(), potenz.get());
        mpz_mul(phi.get(), phi.get(), pMinus1.get());
        mu = e > 1 ? 0 : -mu;
    }
}

uint32_t PotenzExponent(const Mpz& n, Mpz& basis) {
    mpz_set(basis.get(), n.get());
    if (mpz_cmp_ui(n.get(), 1) <= 0) return 1;
    // GMP's quick test rules out almost every number before any root is drawn.
    if (!mpz_perfect_power_p(n.get())) return 1;
    Mpz wurzel;
    for (auto k = static_cast<unsigned long>(mpz_sizeinbase(n.get(), 2)); k >= 2; --k) {
        if (mpz_root(wurzel.get(), n.get(), k) != 0) {
            mpz_set(basis.get(), wurzel.get());
            return uint32_t(k);
        }
    }
    return 1;
}

ZahlBefund ZahlAnalysieren(const Mpz& n, bool mitNachbarn, FaktorBeobachter* beobachter) {
    if (mpz_sgn(n.get()) <= 0) throw Laufzeitfehler(kEingabeFehler, Text(2291));
    ZahlBefund b;
    b.n = n;
    b.stellen = int64_t(Hyp2Text(MpzZuHyp(n.get())).size());
    b.bits = int64_t(mpz_sizeinbase(n.get(), 2));
    b.exponent = PotenzExponent(n, b.basis);
    b.zerlegung = Zerlegen(MpzZuHyp(n.get()), FaktorOptionen{}, beobachter);
    b.urteil = urteilVon(b.zerlegung);
    b.teilerBekannt = b.zerlegung.Vollstaendig() && !b.zerlegung.abgebrochen;
    if (b.teilerBekannt) TeilerFunktionen(b.zerlegung, b.tau, b.sigma, b.phi, b.mu);
    if (b.zerlegung.abgebrochen) return b;
    if (mitNachbarn) {
        b.vorher = VorherigePrimzahl(n);
        b.nachher = NaechstePrimzahl(n);
        b.nachbarnBekannt = true;
    }
    b.collatzFertig = GrafikZaehlen(n, b.collatzSchritte);
    return b;
}

}  // namespace sw
