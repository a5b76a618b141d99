#include "arith/Rechner.h"

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "sieve/basSiebwerk.h"
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

// The raster answers questions up to its limit; a number beyond it has no answer there.
Decimal imRaster(const Hyp& n) {
    if (!RasterBereit || aGetHighBitHyp(n) >= 95) throw Laufzeitfehler(kFehlerEingabe, Text(497));
    Decimal d;
    aHyp2Dec(&d, n);
    if (d > PrimaerGrenze) throw Laufzeitfehler(kFehlerEingabe, Text(497));
    return d;
}

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

void Rechner::Merken(int k, const Hyp& wert) {
    if (k < 1 || k > SpeicherAnzahl) return;
    speicher_[size_t(k)] = wert;
}

bool Rechner::Belegt(int k) const { return k >= 1 && k <= SpeicherAnzahl && speicher_[size_t(k)].anzahl() >= 1; }

const Hyp& Rechner::Speicher(int k) const { return speicher_[size_t(k)]; }

Hyp Rechner::formel(const std::string& text) { return Auswerten(text, &speicher_); }

Hyp Rechner::Ausfuehren(RechenFunktion f, const std::string& eingabe) {
    AbbruchRahmen rahmen;
    Hyp wert = berechnen(f, eingabe);
    const std::string zeile = Trimmen(eingabe);
    const std::string name = f == RechenFunktion::Formel ? zeile : FunktionsName(f) + " (" + zeile + ")";
    verlauf_.push_back(name + " = " + ZiffernAnzeige(Hyp2Text(wert)));
    formeln_.push_back(zeile);
    return wert;
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
            const Decimal p = NaechstePrim(imRaster(n));
            if (p.IstNull()) throw Laufzeitfehler(kFehlerEingabe, Text(497));
            return ausDecimal(p);
        }
        case RechenFunktion::VorherigePrim: {
            const Decimal p = VorherigePrim(imRaster(n));
            if (p.IstNull()) eingabeFehler("msgKeinePrimzahl");
            return ausDecimal(p);
        }
        default:
            return n;
    }
}

}  // namespace sw
