#include "collatz/CollatzFamilie.h"

#include <gmp.h>

#include <cstdio>
#include <limits>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "collatz/CollatzSprung.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr int64_t kGroesstesN = std::numeric_limits<int32_t>::max();

// Text keys of the family names (n the variable) and of the messages.
constexpr int TextNamen = 2070;         // 2070..2078: families 0..8
constexpr int TextUnterNull = 2080;
constexpr int TextAbgebrochen = 2081;
constexpr int TextEndeN = 2082;
constexpr int TextOperandNegativ = 2083;
constexpr int TextStartBereich = 2084;
constexpr int TextSchrittNegativ = 2085;
constexpr int TextFormelLeer = 2087;

Hyp wortHyp(uint32_t v) {
    Hyp h(2);
    h[1] = Long(v);
    return h;
}

// h *= v with the room the library needs.
void malWort(Hyp& h, uint32_t v) {
    h.mindestens(h.anzahl() + 2);
    aMulHyp32(h, Long(v));
}

int64_t bitsVon(const Hyp& h) { return int64_t(aGetHighBitHyp(h)) + 1; }

// The smallest prime at or above n (n >= 2). BPSW decides exactly below 2^64, so every prime
// a 32-bit n reaches is proven.
int64_t primAb(int64_t n) {
    if (n <= 2) return 2;
    if (n % 2 == 0) ++n;
    Mpz z;
    for (;; n += 2) {
        mpz_set_ui(z, static_cast<unsigned long>(n));
        if (BpswTest(z)) return n;
    }
}

// Every "n" and "N" of text replaced by the number.
std::string nErsetzen(const std::string& text, int32_t n) {
    const std::string zahl = std::to_string(n);
    std::string aus;
    for (char c : text) {
        if (c == 'n' || c == 'N') aus += zahl;
        else aus.push_back(c);
    }
    return aus;
}

// The operator signs by index; the pairs that change nothing are left out of the formula.
char opZeichen(FamilienOperator op) { return "+-*/^"[int(op)]; }

bool neutral(FamilienOperator op, int64_t k) {
    switch (op) {
        case FamilienOperator::Plus:
        case FamilienOperator::Minus: return k == 0;
        case FamilienOperator::Mal: return k == 1;
        case FamilienOperator::Durch: return k == 0 || k == 1;
        case FamilienOperator::Hoch: return k == 1;
    }
    return true;
}

}  // namespace

int64_t HypStellen(const Hyp& h) {
    Mpz z(h);
    if (mpz_sgn(z.get()) == 0) return 1;
    // sizeinbase is exact or one too many; a power of ten settles it.
    const size_t d = mpz_sizeinbase(z, 10);
    Mpz p;
    mpz_ui_pow_ui(p, 10, d - 1);
    return mpz_cmp(z, p) < 0 ? int64_t(d) - 1 : int64_t(d);
}

CollatzFamilie::CollatzFamilie(const FamilienAuftrag& auftrag) : a_(auftrag) {
    if (int(a_.art) < 0 || int(a_.art) >= FamilienAnzahl) a_.art = FamilienArt::Fakultaet;
    if (a_.start < 0) throw Laufzeitfehler(FehlerUeberlauf, TextP1(TextStartBereich, a_.start));
    if (a_.schritt < 0) throw Laufzeitfehler(FehlerUeberlauf, Text(TextSchrittNegativ));
    if (a_.art == FamilienArt::Formel && Trimmen(a_.formel).empty())
        throw Laufzeitfehler(FehlerTypenUnvertraeglich, Text(TextFormelLeer));
    // A negative summand is a subtraction (and the other way round); a product, quotient or
    // power with a negative operand would leave the positive numbers Collatz walks.
    if ((a_.op == FamilienOperator::Plus || a_.op == FamilienOperator::Minus) && a_.offset < 0) {
        a_.op = a_.op == FamilienOperator::Plus ? FamilienOperator::Minus : FamilienOperator::Plus;
    } else if (a_.offset < 0) {
        throw Laufzeitfehler(FehlerUeberlauf, Text(TextOperandNegativ));
    }
    const int64_t k = a_.offset < 0 ? -int64_t(a_.offset) : a_.offset;
    std::string name = a_.art == FamilienArt::Formel ? Trimmen(a_.formel) : Text(TextNamen + int(a_.art));
    if (!neutral(a_.op, k)) {
        if (a_.art == FamilienArt::Formel) name = "(" + name + ")";
        name += opZeichen(a_.op) + std::to_string(k);
    }
    formel_ = name;
    erstesGlied();
}

void CollatzFamilie::setzeN(int64_t n) {
    if (n > kGroesstesN) throw Laufzeitfehler(FehlerUeberlauf, TextP1(TextEndeN, n_));
    n_ = int32_t(n);
}

void CollatzFamilie::erstesGlied() {
    n_ = a_.start;
    switch (a_.art) {
        case FamilienArt::Fakultaet: basis_ = Fakultaet(2, n_); break;
        case FamilienArt::Primzahl: setzeN(primAb(n_)); basis_ = wortHyp(uint32_t(n_)); break;
        case FamilienArt::Primorial: setzeN(primAb(n_)); basis_ = Primorial(2, n_); break;
        case FamilienArt::PrimorialUng: setzeN(primAb(std::max(n_, 3))); basis_ = Primorial(3, n_); break;
        case FamilienArt::Fibonacci:
            basis_ = FibonacciHyp(n_);
            fib1_ = n_ == 0 ? wortHyp(1) : FibonacciHyp(n_ - 1);  // F(-1) = 1 keeps F(1) = F(0) + F(-1)
            break;
        default: ausN(); break;
    }
}

// The families without a running value, built from n alone: n, n^2 and n^3 by one or two
// word products, 2^n as one set bit, and the formula by the evaluator. A formula without a
// value for this n (a division by n - 5 at 5) becomes a row with the evaluator's message; a
// stop by the user ends the run.
void CollatzFamilie::ausN() {
    switch (a_.art) {
        case FamilienArt::Zweierpotenz:
            GroessePruefen(double(n_) + 1);
            basis_ = Hyp(n_ / 32 + 2);
            basis_[0] = 0;  // a fresh zeroed array: aSetBitHyp raises the count
            aSetBitHyp(basis_, n_);
            return;
        case FamilienArt::Formel:
            formelFehler_.clear();
            try {
                basis_ = Auswerten(nErsetzen(a_.formel, n_));
            } catch (const Laufzeitfehler& e) {
                if (Abbruch) throw;
                formelFehler_ = e.Beschreibung();
                basis_ = Hyp();
            }
            return;
        default:  // n^(art): n, n^2, n^3
            basis_ = wortHyp(uint32_t(n_));
            for (int i = 1; i < int(a_.art); ++i) malWort(basis_, uint32_t(n_));
            return;
    }
}

void CollatzFamilie::Weiter() {
    const int32_t s = a_.schritt;
    switch (a_.art) {
        case FamilienArt::Fakultaet:
            for (int32_t i = 0; i < s; ++i) {
                setzeN(int64_t(n_) + 1);
                if (n_ >= 2) malWort(basis_, uint32_t(n_));
            }
            return;
        case FamilienArt::Primzahl:
        case FamilienArt::Primorial:
        case FamilienArt::PrimorialUng:
            for (int32_t i = 0; i < s; ++i) {
                setzeN(primAb(int64_t(n_) + 1));
                if (a_.art == FamilienArt::Primzahl) basis_ = wortHyp(uint32_t(n_));
                else malWort(basis_, uint32_t(n_));
            }
            return;
        case FamilienArt::Fibonacci:
            for (int32_t i = 0; i < s; ++i) {
                setzeN(int64_t(n_) + 1);
                Hyp naechste(fib1_);
                naechste.mindestens(std::max(naechste.anzahl(), basis_.anzahl()) + 2);
                aAddHypHyp(naechste, basis_);
                fib1_ = std::move(basis_);
                basis_ = std::move(naechste);
            }
            return;
        default:
            setzeN(int64_t(n_) + s);
            ausN();
            return;
    }
}

std::string CollatzFamilie::ZeilenFormel() const { return nErsetzen(formel_, n_); }

bool CollatzFamilie::Glied(Hyp& glied) const {
    glied = basis_;
    const int64_t k = a_.offset < 0 ? -int64_t(a_.offset) : a_.offset;
    if (neutral(a_.op, k)) return true;
    switch (a_.op) {
        case FamilienOperator::Plus: glied.mindestens(glied.anzahl() + 2); aAddHyp32(glied, Long(uint32_t(k))); break;
        case FamilienOperator::Minus:
            // The library leaves a number smaller than the subtrahend as it was; that would
            // count the wrong member without a word.
            if (aCmpHyp32(glied, Long(uint32_t(k))) < 0) return false;
            aSubHyp32(glied, Long(uint32_t(k)));
            break;
        case FamilienOperator::Mal: malWort(glied, uint32_t(k)); break;
        case FamilienOperator::Durch: aDivHyp32(glied, Long(uint32_t(k))); break;
        case FamilienOperator::Hoch:
            GroessePruefen(double(bitsVon(basis_)) * double(k));
            glied = HypPotenz(basis_, wortHyp(uint32_t(k)));
            break;
    }
    return true;
}

FamilienZeile CollatzFamilie::Zaehlen() const {
    FamilienZeile z;
    z.n = n_;
    z.formel = ZeilenFormel();
    if (!formelFehler_.empty()) {
        z.stand = FamilienStand::Fehler;
        z.meldung = formelFehler_;
        return z;
    }
    Hyp glied;
    if (!Glied(glied)) {
        z.stand = FamilienStand::UnterNull;
        return z;
    }
    z.bits = std::max<int64_t>(bitsVon(glied), 1);
    z.stellen = HypStellen(glied);
    CollatzGang g;
    if (!CollatzAmEnde(glied, CollatzRegel::DreiNPlusEins) &&
        !CollatzGehen(glied, CollatzRegel::DreiNPlusEins, g))
        z.stand = FamilienStand::Abgebrochen;
    z.schritte = g.tSchritte + g.ungerade;
    z.mult = g.ungerade;
    return z;
}

std::string FamilienZeileText(const FamilienZeile& z) {
    std::string t = z.formel + " ; ";
    switch (z.stand) {
        case FamilienStand::Gezaehlt: return t + std::to_string(z.schritte) + "." + std::to_string(z.mult);
        case FamilienStand::UnterNull: return t + Text(TextUnterNull);
        case FamilienStand::Abgebrochen:
            return t + std::to_string(z.schritte) + "." + std::to_string(z.mult) + " " + Text(TextAbgebrochen);
        case FamilienStand::Fehler: return t + z.meldung;
    }
    return t;
}

std::string FamilienCsvKopf() { return "Formel;Stellen;Bits;Schritte;Mult;Schritte je Bit"; }

std::string FamilienZeileCsv(const FamilienZeile& z) {
    if (z.stand != FamilienStand::Gezaehlt) return z.formel + ";;;;;";
    char jeBit[32];
    std::snprintf(jeBit, sizeof jeBit, "%.4f", double(z.schritte) / double(z.bits));
    return z.formel + ";" + std::to_string(z.stellen) + ";" + std::to_string(z.bits) + ";" +
           std::to_string(z.schritte) + ";" + std::to_string(z.mult) + ";" + jeBit;
}

}  // namespace sw
