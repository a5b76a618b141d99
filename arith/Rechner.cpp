#include "arith/Rechner.h"

#include <algorithm>

#include "arith/HypText.h"
#include "primality/PrimSuche.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Decimal.h"
#include "frame/Einstellungen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr int kFehlerEingabe = 5;  // the platform's "invalid procedure call or argument"

[[noreturn]] void eingabeFehler(const std::string& key, const std::string& p1 = "") {
    throw Laufzeitfehler(kFehlerEingabe, RechenText(key, p1));
}

// The argument of n!, the primorials and the sequences: a value beyond a signed word would
// give a result far beyond any memory and is refused as such.
int32_t wortArgument(const Hyp& n) {
    if (n.anzahl() > 1 || n[1] < 0) eingabeFehler("msgArgument", Hyp2Anzeige(n));
    return n[1];
}

// The sieve decides numbers up to the square of its limit; a number beyond has no answer.
Decimal entscheidbar(const Hyp& n) {
    if (!RasterBereit || aGetHighBitHyp(n) >= 95) throw Laufzeitfehler(kFehlerEingabe, Text(497));
    Decimal d;
    aHyp2Dec(&d, n);
    if (d > PrimaerQuadrat) throw Laufzeitfehler(kFehlerEingabe, Text(497));
    return d;
}

// The memories in SW.Ini: "Speicher(k)" holds the number of parts, "Speicher(k).i" the
// digits in parts of at most kTeilZiffern, since a settings value is read back to 255
// characters at most. Longer values would bloat the file that every window rewrites.
constexpr const char* kSektion = "Rechner";
constexpr size_t kTeilZiffern = 250;
constexpr size_t kHoechstTeile = 40;  // 10,000 digits

std::string speicherKey(int k) { return "Speicher(" + std::to_string(k) + ")"; }
std::string teilKey(int k, size_t i) { return speicherKey(k) + "." + std::to_string(i); }

Hyp ausDecimal(const Decimal& d) {
    Hyp h(4);
    aDec2Hyp(h, &d);
    return h;
}

// Restores the stop flag exactly: a stop of the calculator must not stop a job around it.
class AbbruchRahmen {
public:
    AbbruchRahmen() : vorher_(Abbruch) { Abbruch = false; }
    ~AbbruchRahmen() { Abbruch = vorher_; }
    AbbruchRahmen(const AbbruchRahmen&) = delete;
    AbbruchRahmen& operator=(const AbbruchRahmen&) = delete;

private:
    bool vorher_;
};

}  // namespace

std::string FunktionsName(RechenFunktion f) {
    switch (f) {
        case RechenFunktion::Primorial2: return Text(169);
        case RechenFunktion::Primorial3: return Text(170);
        case RechenFunktion::Fibonacci: return Text(171);
        case RechenFunktion::Perrin: return Text(172);
        default: return RechenText("fn" + std::to_string(int(f)));
    }
}

Rechner::Rechner() : speicher_(SpeicherAnzahl + 1) {
    for (Hyp& h : speicher_) h[0] = 0;  // count 0: not set, refused as "#k"
}

bool Rechner::Merken(int k, const Hyp& wert) {
    if (k < 1 || k > SpeicherAnzahl) return false;
    speicher_[size_t(k)] = wert;
    // A value far too long is judged by its bits, without the text of its millions of digits.
    const bool vielZuLang = double(aGetHighBitHyp(wert)) * 0.30103 > double(kHoechstTeile * kTeilZiffern) + 1;
    const std::string ziffern = vielZuLang ? std::string() : Hyp2Text(wert);
    const size_t teile = (ziffern.size() + kTeilZiffern - 1) / kTeilZiffern;
    const bool passt = !vielZuLang && teile <= kHoechstTeile;
    IniSammelSchreiben sammeln;
    const size_t alt = size_t(std::max(0, IniLesenLong(kSektion, speicherKey(k), 0)));
    IniSchreiben(kSektion, speicherKey(k), passt ? (long long)teile : 0LL);
    for (size_t i = 1; i <= std::max(alt, passt ? teile : 0); ++i) {
        IniSchreiben(kSektion, teilKey(k, i), passt && i <= teile ? ziffern.substr((i - 1) * kTeilZiffern, kTeilZiffern) : "");
    }
    return passt;
}

void Rechner::SpeicherLaden() {
    for (int k = 1; k <= SpeicherAnzahl; ++k) {
        const int32_t teile = IniLesenLong(kSektion, speicherKey(k), 0);
        if (teile < 1 || size_t(teile) > kHoechstTeile) continue;
        std::string ziffern;
        for (int32_t i = 1; i <= teile; ++i) ziffern += IniLesen(kSektion, teilKey(k, size_t(i)));
        const bool gueltig = !ziffern.empty() && ziffern.find_first_not_of("0123456789") == std::string::npos;
        if (gueltig) speicher_[size_t(k)] = Ziffern2Hyp(ziffern);
    }
}

bool Rechner::Belegt(int k) const { return k >= 1 && k <= SpeicherAnzahl && speicher_[size_t(k)].anzahl() >= 1; }

const Hyp& Rechner::Speicher(int k) const { return speicher_[size_t(k)]; }

Hyp Rechner::formel(const std::string& text) { return Auswerten(text, &speicher_); }

RechenErgebnis Rechner::Ausfuehren(RechenFunktion f, const std::string& eingabe) {
    AbbruchRahmen rahmen;
    RechenErgebnis e;
    e.wert = berechnen(f, eingabe);
    // The texts of a result of millions of digits take longer than its computation: they are
    // built here, once, and a stop ends them too.
    e.ziffern = Hyp2Text(e.wert, true);
    if (ZahlenSystem >= 2 && ZahlenSystem != 10) e.basisZiffern = HypInBasis(e.wert, ZahlenSystem, true);
    const std::string zeile = Trimmen(eingabe);
    const std::string name = f == RechenFunktion::Formel ? zeile : FunktionsName(f) + " (" + zeile + ")";
    verlauf_.push_back(name + " = " + ZiffernAnzeige(e.ziffern));
    formeln_.push_back(zeile);
    return e;
}

Hyp Rechner::berechnen(RechenFunktion f, const std::string& eingabe) {
    switch (f) {
        case RechenFunktion::GGT:
        case RechenFunktion::ModInverse: {
            const size_t semikolon = eingabe.find(';');
            if (semikolon == std::string::npos) eingabeFehler("msgZweiZahlen");
            const Hyp a = formel(eingabe.substr(0, semikolon));
            const Hyp b = formel(eingabe.substr(semikolon + 1));
            if (f == RechenFunktion::GGT) return HypGGT(a, b);
            if (aCmpHyp32(b, 0) == 0) eingabeFehler("msgModulNull");
            Hyp inv = HypModInverse(a, b);
            if (aCmpHyp32(inv, 0) == 0 && aCmpHyp32(b, 1) != 0) eingabeFehler("msgKeineInverse");
            return inv;
        }
        default:
            break;
    }
    const Hyp n = formel(eingabe);
    switch (f) {
        case RechenFunktion::Fakultaet: return Fakultaet(2, wortArgument(n));
        case RechenFunktion::Primorial2: return Primorial(2, wortArgument(n));
        case RechenFunktion::Primorial3: return Primorial(3, wortArgument(n));
        case RechenFunktion::Fibonacci: return FibonacciHyp(wortArgument(n));
        case RechenFunktion::Perrin: return PerrinHyp(wortArgument(n));
        case RechenFunktion::Wurzel: return HypWurzel(n, true);
        case RechenFunktion::NaechstePrim: {
            const Decimal p = PrimNach(entscheidbar(n));
            if (p.IstNull()) throw Laufzeitfehler(kFehlerEingabe, Text(497));
            return ausDecimal(p);
        }
        case RechenFunktion::VorherigePrim: {
            const Decimal p = PrimVor(entscheidbar(n));
            if (p.IstNull()) eingabeFehler("msgKeinePrimzahl");
            return ausDecimal(p);
        }
        default:
            return n;
    }
}

}  // namespace sw
