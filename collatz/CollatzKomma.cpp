#include "collatz/CollatzKomma.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "arith/HypText.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// y as a double; from_chars, because the C library's reading and writing of numbers follow
// the locale the desktop sets, and a German one would read "3.1" as 3.
std::optional<double> alsZahl(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    std::replace(text.begin(), text.end(), ',', '.');
    double y = 0;
    const auto [ende, fehler] = std::from_chars(text.data(), text.data() + text.size(), y, std::chars_format::fixed);
    if (text.empty() || fehler != std::errc() || ende != text.data() + text.size() || !std::isfinite(y)) return std::nullopt;
    return y;
}

std::optional<std::string> formatiert(double y) {
    if (y < 0) return std::nullopt;
    char puffer[64];
    const auto [ende, fehler] = std::to_chars(puffer, puffer + sizeof puffer, y, std::chars_format::fixed, 10);
    std::string s(puffer, fehler == std::errc() ? ende : puffer);
    if (s.size() != 12) return std::nullopt;  // y of two integer digits: the walk reads one
    std::replace(s.begin(), s.end(), '.', ',');
    return s;
}

Hyp ausZiffern(const std::string& multiplikator) {
    std::string ziffern;
    for (char c : multiplikator)
        if (c != ',') ziffern.push_back(c);
    return Ziffern2Hyp(ziffern);
}

}  // namespace

std::optional<std::string> KommaMultiplikator(const std::string& text) {
    const std::optional<double> y = alsZahl(text);
    return y ? formatiert(*y) : std::nullopt;
}

std::optional<std::string> KommaSchritt(const std::string& y, const std::string& diff, bool nachOben) {
    const std::optional<double> a = alsZahl(y), d = alsZahl(diff);
    if (!a || !d) return std::nullopt;
    const double neu = nachOben ? std::min(*a + *d, KommaYMax) : std::max(*a - *d, KommaYMin);
    return formatiert(neu);
}

RegelKomma::RegelKomma(const std::string& multiplikator, bool mitMultiplikation)
    : y_(ausZiffern(multiplikator)),
      zehnHoch10_(Ziffern2Hyp("10000000000")),
      rundung_(Ziffern2Hyp("9999999999")),
      mit_(mitMultiplikation) {
    if (multiplikator.size() != 12 || multiplikator[1] != ',') throw Laufzeitfehler(FehlerTypenUnvertraeglich, TextP1(2030, multiplikator));
    if (mit_ && aCmpHypHyp(y_, zehnHoch10_) < 0) throw Laufzeitfehler(FehlerUeberlauf, TextP1(2031, multiplikator));
    drei_ = Hyp2Text(y_) == "30000000000";
}

Hyp RegelKomma::Schritt(const Hyp& x) const {
    Hyp c(x.anzahl() + y_.anzahl() + 2);
    anMulHypHyp(c, x, y_);
    aAddHypHyp(c, rundung_);
    Hyp f(c.anzahl() + 2);
    aDivHypHyp(f, c, zehnHoch10_);
    if (aIsOddHyp(f)) aIncHyp(f);
    return f;
}

bool RegelKomma::Vorgaenger(Hyp& v) const {
    // The smallest odd predecessor above 1 is 3, and ceil(3y) is at least 3.
    if (!mit_ || aCmpHyp32(v, 3) < 0) return false;
    // A predecessor p has ceil(p y) = v - 1 (made even by the + 1) or v. p0, the smallest p
    // with ceil(p y) >= v - 1, is the first p with p Y > (v - 2) 10^10; the candidates are p0
    // and p0 + 1, of which one is odd. (The form (v - 1) 10^10 - (10^10 - 1) in place of
    // (v - 2) 10^10 would give p0 - 1 for 3n+1, and would skip p0 itself where p0 Y is
    // (v - 2) 10^10 + 1.)
    Hyp w = v;
    aSubHyp32(w, 2);
    Hyp z(w.anzahl() + zehnHoch10_.anzahl() + 2);
    anMulHypHyp(z, w, zehnHoch10_);
    Hyp p(z.anzahl() + 2);
    aDivHypHyp(p, z, y_);
    aIncHyp(p);
    if (aIsEvenHyp(p)) aIncHyp(p);
    // The quotient only bounds p from below: the forward step decides.
    if (aCmpHypHyp(Schritt(p), v) != 0) return false;
    v = p;
    v.mindestens(v.anzahl() + 3);
    return true;
}

bool RegelKomma::OhneUngeradeVorgaenger(const Hyp& p) const { return !mit_ || (drei_ && aModHyp32(p, 3) == 0); }

}  // namespace sw
