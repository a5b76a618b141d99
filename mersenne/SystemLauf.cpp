#include "mersenne/SystemLauf.h"

#include <algorithm>
#include <exception>

#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "primality/Bpsw.h"
#include "primality/Faktorisierung.h"
#include "primality/HypMpz.h"
#include "sieve/RasterTabellen.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// The window stays responsive and the CLI sees Ctrl-C: a yield every kYieldSekunden, looked at
// every kYieldSchritte wheel steps (a step takes well under a microsecond below 2^32) or after
// every q beyond it, and at the latest after kYieldHoechstens steps, so that a clock that
// stands still cannot hold the run.
constexpr double kYieldSekunden = 0.02;
constexpr uint32_t kYieldSchritte = 256;
constexpr uint32_t kYieldHoechstens = 4096;
constexpr double kFestschreibenSekunden = 1.0;

// Miller-Rabin with the bases 2, 7 and 61 decides every n below 2^32; the powers go through
// the kernel's Barrett powers, the few squarings after them through plain 64-bit remainders.
bool prim32(uint32_t n) {
    for (uint32_t p : {2u, 3u, 5u, 7u, 11u, 13u, 17u, 19u, 23u, 29u, 31u, 37u}) {
        if (n % p == 0) return n == p;
    }
    if (n < 41 * 41) return n > 1;
    uint32_t d = n - 1;
    const int s = __builtin_ctz(d);
    d >>= s;
    for (uint32_t a : {2u, 7u, 61u}) {
        if (a % n == 0) continue;
        uint64_t x = uint32_t(aModPot32(Long(a), Long(d), Long(n)));
        if (x == 1 || x == n - 1) continue;
        bool zeuge = true;
        for (int i = 1; i < s && zeuge; ++i) {
            x = x * x % n;
            if (x == n - 1) zeuge = false;
        }
        if (zeuge) return false;
    }
    return true;
}

bool passtIn32(mpz_srcptr q) { return mpz_cmp_ui(q, 0xFFFFFFFFul) <= 0; }

std::string text(mpz_srcptr z) {
    std::string s(mpz_sizeinbase(z, 10) + 2, '\0');
    mpz_get_str(s.data(), 10, z);
    s.resize(std::char_traits<char>::length(s.c_str()));
    return s;
}

Mpz zahlLesen(const std::string& ziffern) {
    Mpz z;
    if (ziffern.empty() || ziffern.find_first_not_of("0123456789") != std::string::npos ||
        mpz_set_str(z, ziffern.c_str(), 10) != 0)
        throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    return z;
}

void parameterPruefen(int32_t parameter) {
    if (parameter < SystemParameterMin || parameter > SystemParameterMax) throw Laufzeitfehler(5, Text(1840));
}

// The walk over the wheel. q itself is a GMP number (it may grow past any word), the residue
// modulo SystemSiebModul follows it by addition.
class Rad {
public:
    explicit Rad(mpz_srcptr start) {
        mpz_set(q_, start);
        mpz_sub_ui(q_, q_, mpz_fdiv_ui(q_, 120));
        mpz_add_ui(q_, q_, 1);
        rest_ = mpz_fdiv_ui(q_, SystemSiebModul);
        // Positioning steps plainly: 23 itself, a multiple of 23, is where a walk from 1 begins.
        while (mpz_cmp(q_, start) < 0 || mpz_cmp_ui(q_.get(), 23) < 0) schritt();
    }
    mpz_srcptr q() const { return q_; }
    // On to the next wheel number free of 7 .. 29.
    void weiter() {
        do {
            schritt();
        } while (rest_ % 7 == 0 || rest_ % 11 == 0 || rest_ % 13 == 0 || rest_ % 17 == 0 || rest_ % 19 == 0 ||
                 rest_ % 23 == 0 || rest_ % 29 == 0);
    }

private:
    void schritt() {
        index_ = (index_ + 1) % 16;
        mpz_add_ui(q_, q_, uint32_t(SystemRad[size_t(index_)]));
        rest_ += uint32_t(SystemRad[size_t(index_)]);
        if (rest_ >= SystemSiebModul) rest_ -= SystemSiebModul;
    }
    Mpz q_;
    uint64_t rest_ = 0;
    int index_ = 0;
};

class Lauf {
public:
    Lauf(const SystemAuftrag& a, SystemAnzeige* anzeige) : a_(a), anzeige_(anzeige) {}

    void Laufen(const Mpz& start, const Mpz* ende) {
        Rad rad(start);
        for (; !ende_; rad.weiter()) {
            mpz_srcptr q = rad.q();
            if (ende != nullptr && mpz_cmp(q, *ende) > 0) break;
            if (SystemPrim(q)) {
                untersuchen(q);
                if (transaktion_ != nullptr) transaktion_->FestschreibenNach(kFestschreibenSekunden);
            }
            if (++seitYield_ >= kYieldSchritte || !passtIn32(q)) nachgeben(q);
        }
    }

    SystemBefund befund;
    std::exception_ptr fehler;  // a yield that threw: rethrown once everything is committed
    DbTransaktion* transaktion_ = nullptr;

private:
    void untersuchen(mpz_srcptr q) {
        // Below GrenzeLong the bound is the group order q - 1: every order is found.
        grenze_ = mpz_cmp_ui(q, uint32_t(GrenzeLong)) < 0 ? int32_t(mpz_get_ui(q) - 1) : ExponentSuchen(q, a_.parameter);
        const int32_t ordnung = OrdnungBerechnen(q, grenze_);
        // A factorisation stopped by the user gives no exponent to trust: q stays unexamined.
        if (Abbruch) {
            ende_ = befund.abgebrochen = true;
            return;
        }
        ++befund.primzahlen;
        SystemErgebnis e;
        e.q = text(q);
        befund.letzte = e.q;
        if (ordnung != 0 && prim32(uint32_t(ordnung))) {
            e.ordnung = ordnung;
            Mpz k;
            mpz_tdiv_q_ui(k, q, uint32_t(ordnung));
            mpz_tdiv_q_2exp(k, k, 1);
            e.k = text(k);
            ++befund.mitOrdnung;
        }
        if (anzeige_ != nullptr) anzeige_->Ergebnis(e);
        if (e.ordnung == 0 || aIsInMers(e.ordnung) != 0) return;
        bool eingetragen = false;
        if (a_.datenbank && !NeuenTeilerMelden(e.q, e.ordnung, a_.eintrag, eingetragen)) return;
        ++befund.neu;
        if (eingetragen) {
            ++befund.eingetragen;
            transaktion_->Festschreiben();  // what the user confirmed is on disk at once
        }
        if (anzeige_ != nullptr) anzeige_->NeuerTeiler(e.q, e.ordnung, eingetragen);
        if (Abbruch) ende_ = befund.abgebrochen = true;
    }

    void nachgeben(mpz_srcptr q) {
        const double jetzt = Timer();
        if (jetzt - gegeben_ < kYieldSekunden && seitYield_ < kYieldHoechstens) return;
        seitYield_ = 0;
        gegeben_ = jetzt;
        if (anzeige_ != nullptr) anzeige_->Stand(text(q), grenze_, befund.primzahlen);
        try {
            DoEvents();
        } catch (...) {
            fehler = std::current_exception();
            ende_ = befund.abgebrochen = true;
            return;
        }
        if (Abbruch) ende_ = befund.abgebrochen = true;
    }

    const SystemAuftrag& a_;
    SystemAnzeige* anzeige_;
    int32_t grenze_ = 0;
    double gegeben_ = Timer();
    uint32_t seitYield_ = 0;
    bool ende_ = false;
};

}  // namespace

bool SystemPrim(mpz_srcptr q) { return passtIn32(q) ? prim32(uint32_t(mpz_get_ui(q))) : BpswTest(q); }

int32_t ExponentSuchen(mpz_srcptr q, int32_t parameter) {
    parameterPruefen(parameter);
    // Exponents from the parameter's million on, to the last 120 below it, as far as the
    // database's exponents reach.
    const int64_t unten = (int64_t(parameter) * 1000000 / 120 - 1) * 120;
    Mpz n;
    mpz_sub_ui(n, q, 1);
    FaktorOptionen optionen;
    optionen.probeGrenze = 65536;  // the factors sought are above 10^6: the rest is rho's
    optionen.beweisen = false;     // a factor in question lies below 2^31 and is proved anyway
    const Zerlegung z = Zerlegen(MpzZuHyp(n), optionen);
    int32_t p = 0;
    for (const Primfaktor& f : z.faktoren) {
        if (f.art == FaktorArt::Zusammengesetzt) continue;
        const Mpz w(f.wert);
        if (mpz_cmp_ui(w.get(), uint64_t(unten)) > 0 && mpz_cmp_ui(w.get(), uint32_t(GrenzeLong)) <= 0)
            p = std::max(p, int32_t(mpz_get_ui(w.get())));
    }
    return p != 0 ? p : parameter * 1000000;
}

int32_t OrdnungBerechnen(mpz_srcptr q, int32_t grenze) {
    if (grenze <= 0 || mpz_cmp_ui(q, 3) < 0 || mpz_even_p(q)) return 0;
    if (passtIn32(q)) return aMersenneTeiler32(Long(uint32_t(mpz_get_ui(q))), grenze);
    Hyp h = MpzZuHyp(q), kopie = MpzZuHyp(q);
    return aMersenneTeilerHyp(h, kopie, grenze);
}

std::string TeilerAnzeigen(const SystemErgebnis& e) {
    if (e.ordnung == 0) return e.q + " ---";
    return e.q + TextP1(167, e.ordnung) + " \tk = " + e.k;
}

bool NeuenTeilerMelden(const std::string& q, int32_t e, SystemEintrag eintrag, bool& eingetragen) {
    eingetragen = false;
    int32_t mersenne = 0, pot = 0;
    std::string teiler;
    PrimLesen(e, mersenne, teiler, pot);
    if (TeilerInListe(teiler, q)) return false;
    // The list grows whole: a cut list would lose divisors already found.
    const std::string neu = mersenne != 0 && teiler != "0" && !teiler.empty() ? teiler + "x" + q : q;
    bool schreiben = eintrag == SystemEintrag::Immer;
    if (eintrag == SystemEintrag::Fragen) {
        const int antwort = UI().Meldung(Text(1842), Text(1841), MeldungsSymbol::Frage, MeldungsKnoepfe::JaNeinAbbrechen);
        schreiben = antwort == AntwortJa;
        if (antwort == AntwortAbbrechen) Abbruch = true;
    }
    if (schreiben) {
        // A divisor settles the exponent; a limit already above GrenzeLong stays.
        const int64_t grenze = std::min<int64_t>(std::max<int64_t>(TeilerPotWert(pot), GrenzeLong), INT32_MAX);
        PrimSchreiben(e, 2, neu, int32_t(grenze));
        eingetragen = true;
    }
    return true;
}

SystemBefund SystemLauf(const SystemAuftrag& auftrag, SystemAnzeige* anzeige) {
    parameterPruefen(auftrag.parameter);
    const Mpz start = zahlLesen(auftrag.start);
    Mpz ende;
    if (!auftrag.ende.empty()) {
        ende = zahlLesen(auftrag.ende);
        if (mpz_cmp(start, ende) >= 0) throw Laufzeitfehler(5, TextP1P2(1843, auftrag.start, auftrag.ende));
    }
    const double beginn = Timer();
    Lauf lauf(auftrag, anzeige);
    if (auftrag.datenbank) {
        DbOeffnenPflicht(0);
        struct Schliessen {
            ~Schliessen() { DbSchliessen(); }
        } schliessen;
        DbTransaktion t;
        lauf.transaktion_ = &t;
        lauf.Laufen(start, auftrag.ende.empty() ? nullptr : &ende);
    } else {
        lauf.Laufen(start, auftrag.ende.empty() ? nullptr : &ende);
    }
    lauf.befund.sekunden = Timer() - beginn;
    if (lauf.fehler) std::rethrow_exception(lauf.fehler);
    return lauf.befund;
}

}  // namespace sw
