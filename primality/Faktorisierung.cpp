#include "primality/Faktorisierung.h"

#include <algorithm>

#include "arith/HypText.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/EcmSuche.h"
#include "primality/HypMpz.h"
#include "primality/PollardRho.h"
#include "primality/PrimBeweis.h"
#include "sieve/basSiebwerk.h"

namespace sw {

bool Zerlegung::Vollstaendig() const {
    return std::none_of(faktoren.begin(), faktoren.end(),
                        [](const Primfaktor& f) { return f.art == FaktorArt::Zusammengesetzt; });
}

bool Zerlegung::Bewiesen() const {
    return std::all_of(faktoren.begin(), faktoren.end(), [](const Primfaktor& f) { return f.art == FaktorArt::Bewiesen; });
}

namespace {

// Rho below 2^64 gets enough steps to split any such number (its smaller factor is below
// 2^32, found after about 2^16 steps on average); beyond, ECM finds larger factors faster.
constexpr uint64_t kRhoSchritteKlein = uint64_t(1) << 24;
// Between two yields: short enough that a click is answered at once.
constexpr double kYieldAbstand = 0.03;

// A part not yet split, with what was already tried on it. A factor of a part that a curve
// did not reveal is not revealed by that curve on the part's divisors either, so the pieces
// of a split go on where the whole had got to.
struct Teil {
    Mpz wert;
    bool rhoVersucht = false;
    int32_t stufe = 0;
    int32_t kurve = 0;
};

struct GefundenerFaktor {
    Mpz wert;
    FaktorArt art;
};

class Zerleger {
  public:
    Zerleger(const FaktorOptionen& o, FaktorBeobachter* b) : opt_(o), beobachter_(b) {}

    Zerlegung Ausfuehren(const Hyp& n) {
        Teil ganz;
        HypZuMpz(ganz.wert, n);
        if (mpz_sgn(ganz.wert.get()) == 0) throw Laufzeitfehler(5, "0 hat keine Zerlegung in Primfaktoren.");
        probedivision(ganz.wert);
        std::vector<Teil> teile;
        if (mpz_cmp_ui(ganz.wert.get(), 1) > 0) teile.push_back(ganz);
        while (!teile.empty()) {
            Teil t = teile.back();
            teile.pop_back();
            if (gestoppt()) {
                teile.push_back(t);
                break;
            }
            bearbeiten(t, teile);
        }
        // Parts left by a stop: a prime among them is still named as one (the test is cheap).
        for (Teil& t : teile) {
            if (BpswTest(t.wert)) {
                primzahl(t.wert, artVon(t.wert));
            } else {
                gefunden_.push_back({t.wert, FaktorArt::Zusammengesetzt});
            }
        }
        stand_.stufe = FaktorStufe::Fertig;
        melden();
        return ergebnis(!teile.empty() && Abbruch);
    }

  private:
    // Asks the event loop for a turn now and then and says whether the user stopped the job.
    // A yield that throws (Ctrl-C in the terminal) stops the job like the stop button: what
    // was found is kept.
    bool gestoppt() {
        const double jetzt = Timer();
        if (jetzt - letzterYield_ >= kYieldAbstand) {
            letzterYield_ = jetzt;
            try {
                DoEvents();
            } catch (...) {
                Abbruch = true;
            }
        }
        return Abbruch;
    }

    void melden() {
        if (beobachter_) beobachter_->StandMelden(stand_);
    }

    void stufe(FaktorStufe s, mpz_srcptr n) {
        stand_.stufe = s;
        stand_.stellen = int32_t(mpz_sizeinbase(n, 10));
        melden();
    }

    // Divides out the primes of the raster up to the trial bound. A rest below the square
    // of the next prime is prime itself, so the walk ends early on numbers with small parts.
    void probedivision(mpz_ptr n) {
        stufe(FaktorStufe::Probedivision, n);
        uint64_t grenze = 5;  // 2, 3 and 5 need no raster
        if (RasterBereit && RasterEcht && PrimaerGrenze > Decimal(5)) {
            grenze = std::min<uint64_t>(opt_.probeGrenze, uint64_t(PrimaerGrenze.AlsInt64()));
        }
        uint64_t gezaehlt = 0;
        bool frueh = false;
        PrimzahlenDurchlaufen(2, grenze, [&](uint64_t p) {
            if (mpz_cmp_ui(n, p * p) < 0) {
                frueh = true;
                return false;
            }
            if (mpz_divisible_ui_p(n, p)) {
                do {
                    mpz_divexact_ui(n, n, p);
                    primzahl(Mpz(p), FaktorArt::Bewiesen);
                } while (mpz_divisible_ui_p(n, p));
            }
            if ((++gezaehlt & 0xFFF) == 0 && gestoppt()) return false;
            geprueftBis_ = p;
            return true;
        });
        if (frueh && mpz_cmp_ui(n, 1) > 0) {
            Mpz p;
            mpz_swap(p, n);
            mpz_set_ui(n, 1);
            primzahl(p, FaktorArt::Bewiesen);
        }
    }

    void primzahl(const Mpz& p, FaktorArt art) {
        gefunden_.push_back({p, art});
        ++stand_.gefunden;
    }

    // How sure a BPSW prime is: below the square of the trial bound no factor can hide (every
    // part has lost its primes up to the bound), below 2^64 the test is a proof, beyond that
    // an N-1 proof may settle it.
    FaktorArt artVon(mpz_srcptr p) {
        Mpz quadrat(geprueftBis_);
        mpz_mul(quadrat, quadrat, quadrat);
        if (mpz_cmp(p, quadrat) < 0 || BpswBeweist(p)) return FaktorArt::Bewiesen;
        if (opt_.beweisen) {
            stufe(FaktorStufe::Beweis, p);
            if (NMinusEinsBeweis(p, opt_.beweisTiefe)) return FaktorArt::Bewiesen;
        }
        return FaktorArt::Wahrscheinlich;
    }

    void teilen(const Teil& t, mpz_srcptr f, std::vector<Teil>& teile) {
        Teil a = t, b = t;
        mpz_set(a.wert, f);
        mpz_divexact(b.wert, t.wert, f);
        teile.push_back(a);
        teile.push_back(b);
    }

    // One part: prime, a power, or split by rho or a curve; what resists every level stays a
    // composite part.
    void bearbeiten(Teil& t, std::vector<Teil>& teile) {
        if (mpz_cmp_ui(t.wert.get(), 1) == 0) return;
        if (BpswTest(t.wert)) {
            primzahl(t.wert, artVon(t.wert));
            return;
        }
        if (potenzTeilen(t, teile)) return;

        Mpz f;
        const bool klein = mpz_sizeinbase(t.wert, 2) <= 64;
        if (!t.rhoVersucht || klein) {
            t.rhoVersucht = true;
            stufe(FaktorStufe::Rho, t.wert);
            if (PollardRhoBrent(f, t.wert, klein ? kRhoSchritteKlein : opt_.rhoSchritte, [this] { return gestoppt(); })) {
                return teilen(t, f, teile);
            }
            if (Abbruch) return teile.push_back(t);
        }

        const int32_t stufen = opt_.ecmStufen < 0 ? EcmStufenAnzahl() : std::min(opt_.ecmStufen, EcmStufenAnzahl());
        auto stopp = [this] { return gestoppt(); };
        for (; t.stufe < stufen; ++t.stufe, t.kurve = 0) {
            const EcmStufe& s = EcmStufeNr(t.stufe);
            stand_.b1 = s.b1;
            stand_.kurven = s.kurven;
            stand_.kurve = t.kurve;
            stufe(FaktorStufe::Ecm, t.wert);
            while (t.kurve < s.kurven) {
                // Each curve's parameter follows from its level and number, so the pieces of a
                // split go on with new curves and a run is repeatable.
                const uint64_t saat = opt_.saat * 1000003u + uint64_t(t.stufe) * 1000000u + uint64_t(t.kurve);
                const EcmErgebnis e = EcmKurvenParallel(f, t.wert, s.b1, saat, s.kurven - t.kurve, stopp);
                if (Abbruch) return teile.push_back(t);
                t.kurve += e.kurven;
                stand_.kurve = t.kurve;
                melden();
                if (e.gefunden) return teilen(t, f, teile);
            }
        }
        gefunden_.push_back({t.wert, FaktorArt::Zusammengesetzt});
    }

    // n = r^k: the root's pieces k times. Curves and rho do not split a power of one prime.
    bool potenzTeilen(const Teil& t, std::vector<Teil>& teile) {
        if (!mpz_perfect_power_p(t.wert)) return false;
        Mpz wurzel;
        for (unsigned long k = mpz_sizeinbase(t.wert, 2); k >= 2; --k) {
            if (!mpz_root(wurzel, t.wert, k)) continue;
            Teil r = t;
            mpz_set(r.wert, wurzel);
            for (unsigned long i = 0; i < k; ++i) teile.push_back(r);
            return true;
        }
        return false;
    }

    Zerlegung ergebnis(bool abgebrochen) {
        std::sort(gefunden_.begin(), gefunden_.end(),
                  [](const GefundenerFaktor& a, const GefundenerFaktor& b) { return mpz_cmp(a.wert, b.wert) < 0; });
        Zerlegung z;
        z.abgebrochen = abgebrochen;
        for (size_t i = 0; i < gefunden_.size();) {
            size_t j = i;
            FaktorArt art = gefunden_[i].art;
            while (j < gefunden_.size() && mpz_cmp(gefunden_[j].wert, gefunden_[i].wert) == 0) {
                // Equal values found on different roads are the same number: the surest word counts.
                art = std::min(art, gefunden_[j].art);
                ++j;
            }
            z.faktoren.push_back({MpzZuHyp(gefunden_[i].wert), int32_t(j - i), art});
            i = j;
        }
        return z;
    }

    const FaktorOptionen& opt_;
    FaktorBeobachter* beobachter_;
    FaktorStand stand_;
    std::vector<GefundenerFaktor> gefunden_;
    uint64_t geprueftBis_ = 1;
    double letzterYield_ = -1;
};

}  // namespace

Zerlegung Zerlegen(const Hyp& n, const FaktorOptionen& optionen, FaktorBeobachter* beobachter) {
    return Zerleger(optionen, beobachter).Ausfuehren(n);
}

std::string ZerlegungText(const Zerlegung& z) {
    std::string text;
    for (const Primfaktor& f : z.faktoren) {
        if (!text.empty()) text += "x";
        const std::string ziffern = Hyp2Text(f.wert);
        text += f.art == FaktorArt::Zusammengesetzt ? "[" + ziffern + "]" : ziffern;
        if (f.exponent > 1) text += "^" + std::to_string(f.exponent);
        if (f.art == FaktorArt::Wahrscheinlich) text += "?";
    }
    return text;
}

}  // namespace sw
