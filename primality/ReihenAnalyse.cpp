#include "primality/ReihenAnalyse.h"

#include <cctype>
#include <cmath>
#include <optional>

#include "arith/basHyper.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/BatemanHorn.h"
#include "primality/Bpsw.h"
#include "sieve/SiebSegmentiert.h"
#include "sieve/Zufall.h"

namespace sw {

namespace {

constexpr int kEingabeFehler = 5;

double lnMpz(mpz_srcptr z) {
    long exponent = 0;
    const double mantisse = mpz_get_d_2exp(&exponent, z);
    return std::log(mantisse) + double(exponent) * std::log(2.0);
}

// The random raster's choice for a member: only numbers free of 2, 3 and 5 are candidates,
// as in the raster, and each is taken with the density the prime number theorem gives at
// its own size. The remainder modulo 30 times the chosen primes decides the divisibility,
// so members of any size pass through the raster's own test.
class ZufallsWahl {
  public:
    ZufallsWahl() : abstand_(ZufallAbstand), dichte_(ZufallDichte), faktor_(ZufallFaktor) {
        ZufallFaktor = ZufallFaktorAufbauen() * RandomProzentFaktor;
        for (int32_t p : ZufallFaktoren) modul_ *= uint64_t(p);
    }
    // The display keeps its page set-up: the member-wise values are ours only.
    ~ZufallsWahl() {
        ZufallAbstand = abstand_;
        ZufallDichte = dichte_;
        ZufallFaktor = faktor_;
    }
    ZufallsWahl(const ZufallsWahl&) = delete;
    ZufallsWahl& operator=(const ZufallsWahl&) = delete;

    bool Nimmt(mpz_srcptr m) const {
        if (mpz_cmp_ui(m, 2) < 0 || mpz_gcd_ui(nullptr, m, 30) != 1) return false;
        ZufallDichte = lnMpz(m);
        ZufallAbstand = 2 * ZufallFaktor * ZufallDichte;
        return ZufallIstPrim(Decimal(int64_t(mpz_fdiv_ui(m, static_cast<unsigned long>(modul_)))));
    }

  private:
    double abstand_, dichte_, faktor_;
    uint64_t modul_ = 30;
};

std::vector<uint32_t> probePrimzahlen() {
    std::vector<uint32_t> p{2, 3, 5};
    for (uint32_t q : KleinePrimzahlen(kReihenProbeGrenze)) p.push_back(q);
    return p;
}

// The values the polynomial is recognised from: the members' own where the range is long
// enough, else further values beyond its end.
NewtonPolynom polynomAus(const std::string& formel, const ReihenErgebnis& e, int64_t von) {
    std::vector<Mpz> werte;
    for (const ReihenGlied& g : e.glieder) {
        if (werte.size() == size_t(kStuetzstellen)) break;
        werte.push_back(g.wert);
    }
    for (int64_t n = von + int64_t(werte.size()); werte.size() < size_t(kStuetzstellen); ++n) {
        werte.push_back(FormelWert(formel, n));
    }
    NewtonPolynom f = PolynomErkennen(von, werte);
    if (f.Grad() < 1) return {};
    // Every member must lie on it: a formula such as 2^n or n! agrees with some polynomial on
    // a few values only.
    PolynomSchritt schritt(f);
    for (const ReihenGlied& g : e.glieder) {
        if (mpz_cmp(schritt.Wert().get(), g.wert.get()) != 0) return {};
        schritt.Weiter();
    }
    return f;
}

}  // namespace

std::string FormelMitN(const std::string& formel, int64_t n) {
    std::string gross = formel;
    for (char& c : gross) c = char(std::toupper(static_cast<unsigned char>(c)));
    return WortErsetzen(gross, "N", "(" + std::to_string(n) + ")");
}

Mpz FormelWert(const std::string& formel, int64_t n) { return Mpz(Auswerten(FormelMitN(formel, n))); }

void GliedPruefen(ReihenGlied& g, const std::vector<uint32_t>& primzahlen) {
    g.kleinsterTeiler = 0;
    if (mpz_cmp_ui(g.wert.get(), 2) < 0) {
        g.art = GliedArt::KeinePrimzahl;
        return;
    }
    for (uint32_t p : primzahlen) {
        if (mpz_divisible_ui_p(g.wert.get(), p)) {
            g.kleinsterTeiler = p;
            g.art = mpz_cmp_ui(g.wert.get(), p) == 0 ? GliedArt::Prim : GliedArt::Zusammengesetzt;
            return;
        }
    }
    if (mpz_cmp_ui(g.wert.get(), uint64_t(kReihenProbeGrenze) * kReihenProbeGrenze) < 0) {
        g.art = GliedArt::Prim;  // no factor up to its root
    } else if (!BpswTest(g.wert.get())) {
        g.art = GliedArt::Zusammengesetzt;
    } else {
        g.art = BpswBeweist(g.wert.get()) ? GliedArt::Prim : GliedArt::PrimWahrscheinlich;
    }
}

ReihenErgebnis ReiheAnalysieren(const std::string& formel, int64_t von, int64_t bis, bool mitZufall,
                               const std::function<bool(double)>& weiter) {
    if (von < 0 || bis < von) throw Laufzeitfehler(kEingabeFehler, Text(2292));
    if (bis - von >= kReihenHoechstLaenge) throw Laufzeitfehler(kEingabeFehler, TextP1(2293, kReihenHoechstLaenge));
    if (formel.find_first_not_of(" \t") == std::string::npos) throw Laufzeitfehler(kEingabeFehler, Text(2294));

    ReihenErgebnis e;
    e.mitZufall = mitZufall;
    const std::vector<uint32_t> primzahlen = probePrimzahlen();
    std::optional<ZufallsWahl> zufall;
    if (mitZufall) zufall.emplace();
    double summe = 0;
    e.glieder.reserve(size_t(bis - von + 1));
    for (int64_t n = von; n <= bis; ++n) {
        if (weiter && (n - von) % 256 == 0 && !weiter(double(n - von) / double(bis - von + 1))) {
            e.abgebrochen = true;
            break;
        }
        ReihenGlied g;
        g.n = n;
        g.wert = FormelWert(formel, n);
        GliedPruefen(g, primzahlen);
        if (g.art == GliedArt::Prim || g.art == GliedArt::PrimWahrscheinlich) ++e.primzahlen;
        if (mpz_cmp_ui(g.wert.get(), 2) >= 0) summe += 1.0 / lnMpz(g.wert.get());
        if (zufall && zufall->Nimmt(g.wert.get())) ++e.zufallsTreffer;
        e.glieder.push_back(std::move(g));
    }
    if (e.glieder.empty()) return e;
    const NewtonPolynom f = polynomAus(formel, e, von);
    if (f.Grad() >= 1) {
        e.polynom = true;
        e.grad = f.Grad();
        e.konstante = BatemanHornKonstante(f, kBatemanHornGrenze);
        e.erwartung = e.konstante * summe;
    }
    return e;
}

}  // namespace sw
