#include "arith/basHyper.h"

#include <cmath>
#include <cstring>
#include <new>

#include "arith/HypText.h"
#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr int32_t kSpeicherAb = 21;      // words from which a result goes into the store
constexpr size_t kFeldZeichen = 100;     // characters from which a field keeps its formula
constexpr int kYieldJeOperationen = 1024;

bool istZiffer(char c) { return c >= '0' && c <= '9'; }
bool istBuchstabe(char c) { return c >= 'A' && c <= 'Z'; }
bool istOperand(char c) { return istZiffer(c) || c == '#'; }
bool istOperator(char c) { return c == '^' || c == '%' || c == '/' || c == '*' || c == '+' || c == '-'; }

Hyp eins() { return HypEins; }

// The formula around position p, for a message: whole when short, else an excerpt.
std::string stelleText(const std::string& t, size_t p) {
    const std::string pos = std::to_string(p + 1);
    if (t.size() <= 60) return pos + ": " + t;
    const size_t von = p > 30 ? p - 30 : 0;
    return pos + ": ..." + t.substr(von, 60) + "...";
}

[[noreturn]] void formFehler(const std::string& key, const std::string& t, size_t p) {
    throw Laufzeitfehler(FehlerTypenUnvertraeglich, RechenText(key, stelleText(t, p)));
}

// The value of an operand: "#k" from the store, else digits. A "#" inside a run of digits
// comes from writing a bracket right behind a number, which has no meaning. An operator or
// function with nothing beside it (wo names its place) is refused: reading the gap as 1, as
// the first versions did, turned typing slips such as 2+*3 into plausible wrong values.
Hyp operandWert(const std::string& t, size_t von, size_t bis, size_t wo, Formelspeicher& speicher) {
    if (von == bis) formFehler("msgOperand", t, wo);
    for (size_t i = von + 1; i < bis; ++i) {
        if (t[i] == '#') formFehler("msgFormel", t, i);
    }
    const std::string s = t.substr(von, bis - von);
    if (s[0] == '#') {
        if (s.size() == 1) formFehler("msgFormel", t, von);
        return speicher.Nehmen(s.substr(1));
    }
    return Ziffern2Hyp(s);
}

std::string ersetzen(const std::string& s, const std::string& was, const std::string& durch) {
    std::string aus;
    aus.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        if (s.compare(i, was.size(), was) == 0) {
            aus += durch;
            i += was.size();
        } else {
            aus.push_back(s[i++]);
        }
    }
    return aus;
}

// The text as the evaluator reads it: no line breaks, the other spellings of the operators
// replaced, no grouping, no blanks, upper case, MOD and MODULO as "%".
std::string normalisieren(const std::string& text) {
    std::string t = Trimmen(text);
    t = Entfernen(Entfernen(Entfernen(t, "\r\n"), "\r"), "\n");
    t = ersetzen(t, "\\", "/");
    t = ersetzen(t, "**", "^");
    t = ersetzen(t, "\xC2\xB2", "^2");
    t = ersetzen(t, "\xC2\xB3", "^3");
    t = Entfernen(Entfernen(t, "."), FormatZeichen);
    std::string aus;
    aus.reserve(t.size());
    for (char c : t) {
        if (c == ' ' || c == '\t') continue;
        aus.push_back(c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c);
    }
    aus = WortErsetzen(aus, "MODULO", "%");
    return WortErsetzen(aus, "MOD", "%");
}

// Characters the language does not know and brackets without their partner are refused here,
// before any work, with their place in the normalised text.
void pruefen(const std::string& t) {
    std::vector<size_t> offen;
    for (size_t i = 0; i < t.size(); ++i) {
        const char c = t[i];
        if (c == '(') {
            offen.push_back(i);
        } else if (c == ')') {
            if (offen.empty()) formFehler("msgKlammerZu", t, i);
            offen.pop_back();
        } else if (!istOperand(c) && !istBuchstabe(c) && !istOperator(c)) {
            formFehler("msgZeichen", t, i);
        }
    }
    if (!offen.empty()) throw Laufzeitfehler(FehlerTypenUnvertraeglich, TextP1(437, stelleText(t, offen.back())));
}

// Restores the stop flag however the evaluation ends: a stop that was asked for before it
// began belongs to the job that asked, and stays asked.
class AbbruchWahren {
public:
    AbbruchWahren() : vorher_(Abbruch) { Abbruch = false; }
    ~AbbruchWahren() { Abbruch = Abbruch || vorher_; }
    AbbruchWahren(const AbbruchWahren&) = delete;
    AbbruchWahren& operator=(const AbbruchWahren&) = delete;

private:
    bool vorher_;
};

// The functions a formula may call by name: true for the integer root (SQR, SQRT), false
// for the rest beside it (SQRMOD), nothing for any other word.
std::optional<bool> wurzelArt(const std::string& name) {
    if (name == "SQR" || name == "SQRT") return true;
    if (name == "SQRMOD") return false;
    return std::nullopt;
}

unsigned operationen = 0;

void ab_und_zu_yield(const Hyp& r) {
    if (r.anzahl() > 4096 || ++operationen % kYieldJeOperationen == 0) RechnenYield();
}

}  // namespace

Formelspeicher::Formelspeicher(const std::vector<Hyp>* vorrat) : vorrat_(vorrat) {}

size_t Formelspeicher::Belegt() const {
    size_t n = 0;
    for (const Hyp& h : zwischen_) n += h.anzahl() >= 1 ? 1 : 0;
    return n;
}

std::string Formelspeicher::Einsetzen(Hyp v) {
    if (v.anzahl() < kSpeicherAb) return Hyp2Text(v);
    const size_t basis = vorrat_ ? vorrat_->size() : 0;
    zwischen_.push_back(std::move(v));
    return "#" + std::to_string(basis + zwischen_.size() - 1);
}

Hyp Formelspeicher::Nehmen(const std::string& k) {
    size_t i = 0;
    bool gueltig = !k.empty() && k.size() <= 9;
    for (char c : k) gueltig = gueltig && istZiffer(c);
    if (gueltig) i = size_t(std::stoul(k));
    const size_t basis = vorrat_ ? vorrat_->size() : 0;
    if (gueltig && i < basis && (*vorrat_)[i].anzahl() >= 1) return (*vorrat_)[i];
    if (gueltig && i >= basis && i - basis < zwischen_.size()) {
        Hyp& platz = zwischen_[i - basis];
        if (platz.anzahl() >= 1) {
            Hyp wert = std::move(platz);
            platz = Hyp(1);
            platz[0] = 0;  // taken: a second reading is refused
            return wert;
        }
    }
    throw Laufzeitfehler(9, RechenText("msgSpeicher", "#" + k));
}

std::string WortErsetzen(const std::string& t, const std::string& wort, const std::string& ersatz) {
    std::string aus;
    aus.reserve(t.size());
    size_t i = 0;
    while (i < t.size()) {
        const size_t p = t.find(wort, i);
        if (p == std::string::npos) break;
        const bool links = p > 0 && istBuchstabe(t[p - 1]);
        const bool rechts = p + wort.size() < t.size() && istBuchstabe(t[p + wort.size()]);
        aus.append(t, i, p - i);
        aus += (links || rechts) ? wort : ersatz;
        i = p + wort.size();
    }
    aus.append(t, i, std::string::npos);
    return aus;
}

Hyp Auswerten(const std::string& text, const std::vector<Hyp>* vorrat) {
    const std::string t = normalisieren(text);
    if (t.empty()) return eins();
    AbbruchWahren abbruch;
    pruefen(t);
    Formelspeicher speicher(vorrat);
    Hyp ergebnis = KlammernAuswerten(t, speicher);
    ergebnis.setzeObergrenze(ergebnis.anzahl());
    return ergebnis;
}

Hyp KlammernAuswerten(std::string t, Formelspeicher& speicher) {
    // Innermost rightmost bracket first: the last "(" and the first ")" behind it.
    for (size_t auf; (auf = t.rfind('(')) != std::string::npos;) {
        const size_t zu = t.find(')', auf);
        if (zu == std::string::npos) throw Laufzeitfehler(FehlerTypenUnvertraeglich, TextP1(437, stelleText(t, auf)));
        if (zu == auf + 1) formFehler("msgOperand", t, zu);
        const Hyp innen = KlammernAuswerten(t.substr(auf + 1, zu - auf - 1), speicher);
        t = t.substr(0, auf) + speicher.Einsetzen(innen) + t.substr(zu + 1);
    }
    t = FunktionenErsetzen(t, speicher);
    for (char op : {'^', '%', '/', '*', '+', '-'}) {
        for (size_t p; (p = t.find(op)) != std::string::npos;) t = OperatorAnwenden(t, p, op, speicher);
    }
    // What is left is one number.
    return operandWert(t, 0, t.size(), 0, speicher);
}

std::string OperatorAnwenden(const std::string& t, size_t p, char op, Formelspeicher& speicher) {
    size_t links = p;
    while (links > 0 && istOperand(t[links - 1])) --links;
    size_t rechts = p + 1;
    while (rechts < t.size() && istOperand(t[rechts])) ++rechts;
    for (size_t i = links; i < rechts; ++i) {
        if (i != p && !istOperand(t[i])) formFehler("msgFormel", t, i);
    }
    Hyp a = operandWert(t, links, p, p, speicher);
    Hyp b = operandWert(t, p + 1, rechts, p, speicher);
    const int32_t platz = a.anzahl() + b.anzahl() + 1;
    Hyp r;
    switch (op) {
        case '^':
            r = HypPotenz(a, b);
            break;
        case '%':
        case '/': {
            if (b.anzahl() == 1 && b[1] == 0) {
                throw Laufzeitfehler(FehlerDivisionDurchNull,
                                     RechenText("msgDivNull", stelleText(t, p)));
            }
            a.mindestens(platz);
            b.mindestens(platz);
            Hyp q(platz);
            aDivHypHyp(q, a, b);
            r = op == '%' ? std::move(a) : std::move(q);
            break;
        }
        case '*':
            // The product has at least this many bits: refused before it is built.
            GroessePruefen(double(aGetHighBitHyp(a)) + double(aGetHighBitHyp(b)) + 1);
            r = Hyp(platz + 1);
            aMulHypHyp(r, a, b);
            break;
        case '+':
            r = std::move(a);
            r.mindestens(platz);
            aAddHypHyp(r, b);
            break;
        default:  // '-': below 0 the minuend stays
            r = std::move(a);
            r.mindestens(platz);
            aSubHypHyp(r, b);
            break;
    }
    // The checks before a product or power work from estimates; the built result is held to
    // the limit exactly (a carry of a sum or product may add the one bit too many).
    GroessePruefen(double(aGetHighBitHyp(r)) + 1);
    ab_und_zu_yield(r);
    return t.substr(0, links) + speicher.Einsetzen(std::move(r)) + t.substr(rechts);
}

std::string FunktionenErsetzen(std::string t, Formelspeicher& speicher) {
    for (;;) {
        size_t i = 0;
        while (i < t.size() && !istBuchstabe(t[i])) ++i;
        if (i == t.size()) return t;
        size_t j = i;
        while (j < t.size() && istBuchstabe(t[j])) ++j;
        const std::string name = t.substr(i, j - i);
        size_t k = j;
        if (k < t.size() && t[k] == '#') ++k;
        while (k < t.size() && istZiffer(t[k])) ++k;
        // A word that names no function is refused before its argument is taken, so that a
        // misspelt SQR does not pass its argument on as the value.
        const std::optional<bool> wurzel = wurzelArt(name);
        if (!wurzel) throw Laufzeitfehler(FehlerTypenUnvertraeglich, RechenText("msgWort", name, stelleText(t, i)));
        const Hyp v = HypWurzel(operandWert(t, j, k, j, speicher), *wurzel);
        t = t.substr(0, i) + speicher.Einsetzen(v) + t.substr(k);
    }
}

std::optional<Hyp> FunktionAnwenden(const std::string& name, const Hyp& a) {
    const std::optional<bool> wurzel = wurzelArt(name);
    if (!wurzel) return std::nullopt;
    return HypWurzel(a, *wurzel);
}

std::string FormelWort() { return Text(168); }

namespace {

// The text behind the formula word, trimmed; nullopt when the text does not begin with it.
std::optional<std::string> hinterFormelWort(const std::string& text) {
    const std::string t = Trimmen(text);
    const std::string wort = FormelWort();
    if (wort.empty() || t.compare(0, wort.size(), wort) != 0) return std::nullopt;
    return Trimmen(t.substr(wort.size()));
}

// Evaluates a field's formula; a failure shows its message and gives no value.
std::optional<Hyp> feldAuswerten(const std::string& feld) {
    const std::optional<std::string> formel = hinterFormelWort(feld);
    try {
        return Auswerten(formel ? *formel : Trimmen(feld));
    } catch (const Laufzeitfehler& e) {
        MsgInfoText(e.Beschreibung());
    } catch (const std::bad_alloc&) {
        MsgInfoText(FehlerBeschreibung(FehlerKeinSpeicher));
    }
    return std::nullopt;
}

std::string formelForm(const std::string& feld) {
    const std::optional<std::string> formel = hinterFormelWort(feld);
    return FormelWort() + " " + (formel ? *formel : Trimmen(feld));
}

}  // namespace

Hyp Formel2Hyp(const std::string& text) {
    const std::optional<std::string> formel = hinterFormelWort(text);
    if (formel) return Auswerten(*formel);
    return Ziffern2Hyp(text);
}

std::optional<std::string> FormelFeldText(const std::string& feld) {
    const std::optional<Hyp> wert = feldAuswerten(feld);
    if (!wert) return std::nullopt;
    const std::string zahl = ZiffernGruppieren(Hyp2Text(*wert));
    if (zahl.size() >= kFeldZeichen) return formelForm(feld);
    return zahl;
}

std::optional<std::string> FormelFeldWorte(const std::string& feld) {
    const std::optional<Hyp> wert = feldAuswerten(feld);
    if (!wert) return std::nullopt;
    if (wert->anzahl() >= kSpeicherAb) return formelForm(feld);
    const std::string zahl = ZiffernGruppieren(Hyp2Text(*wert));
    if (zahl.size() >= kFeldZeichen) return formelForm(feld);
    return zahl;
}

// ---- functions of the calculator's buttons ----------------------------------------------

namespace {

// The product of the factors f[von .. bis) by halves, so that the two operands of every wide
// product have about the same size: n! of a million costs a few dozen wide products instead
// of a million word products over a growing number.
Hyp produktBaum(const std::vector<uint32_t>& f, size_t von, size_t bis) {
    if (bis - von <= 16) {
        Hyp r(int32_t(bis - von) + 2);
        r[1] = 1;
        for (size_t i = von; i < bis; ++i) aMulHyp32(r, int32_t(f[i]));
        return r;
    }
    const size_t mitte = von + (bis - von) / 2;
    const Hyp a = produktBaum(f, von, mitte);
    const Hyp b = produktBaum(f, mitte, bis);
    Hyp r(a.anzahl() + b.anzahl() + 1);
    aMulHypHyp(r, a, b);
    if (r.anzahl() > 4096) RechnenYield();
    return r;
}

Hyp produkt(const std::vector<uint32_t>& f) {
    Hyp r = f.empty() ? eins() : produktBaum(f, 0, f.size());
    r.setzeObergrenze(r.anzahl());
    return r;
}

}  // namespace

Hyp Fakultaet(int32_t s, int32_t n) {
    if (s > n) return eins();
    if (s <= 0) return HypNull;
    GroessePruefen((std::lgamma(double(n) + 1) - std::lgamma(double(s))) / std::log(2.0));
    std::vector<uint32_t> f;
    f.reserve(size_t(n - s) + 1);
    for (int64_t k = s; k <= n; ++k) f.push_back(uint32_t(k));
    return produkt(f);
}

Hyp Primorial(int32_t s, int32_t n) {
    if (n < 2 || s > n) return eins();
    // The product of the primes up to n has about n log2(e) bits (Chebyshev's theta).
    GroessePruefen(double(n) * 1.4426950408889634);
    const int32_t von = s < 2 ? 2 : s;
    std::vector<bool> zusammengesetzt(size_t(n) + 1, false);
    std::vector<uint32_t> f;
    for (int64_t p = 2; p <= n; ++p) {
        if (zusammengesetzt[size_t(p)]) continue;
        if (p >= von) f.push_back(uint32_t(p));
        for (int64_t v = p * p; v <= n; v += p) zusammengesetzt[size_t(v)] = true;
    }
    return produkt(f);
}

Hyp FibonacciHyp(int32_t n) {
    if (n <= 0) return HypNull;
    GroessePruefen(double(n) * 0.6942419136306174);
    // Doubling: F(2k) = F(k) (2 F(k+1) - F(k)), F(2k+1) = F(k)^2 + F(k+1)^2, from the top bit.
    const int32_t platz = int32_t(double(n) * 0.6942419136306174 / 32) + 4;
    Hyp a(platz), b(platz);  // F(k), F(k+1)
    b[1] = 1;
    for (int bit = 31 - __builtin_clz(uint32_t(n)); bit >= 0; --bit) {
        Hyp zweiB(b);
        aMulHyp2(zweiB);
        aSubHypHyp(zweiB, a);
        Hyp c(platz * 2), aa(platz * 2), bb(platz * 2);
        aMulHypHyp(c, a, zweiB);
        aQuadHyp(aa, a);
        aQuadHyp(bb, b);
        aAddHypHyp(aa, bb);  // F(2k+1)
        if ((uint32_t(n) >> bit) & 1) {
            aAddHypHyp(c, aa);  // F(2k+2) = F(2k) + F(2k+1)
            a = std::move(aa);
            b = std::move(c);
        } else {
            a = std::move(c);
            b = std::move(aa);
        }
        a.mindestens(platz);
        b.mindestens(platz);
        if (a.anzahl() > 4096) RechnenYield();
    }
    a.setzeObergrenze(a.anzahl());
    return a;
}

Hyp PerrinHyp(int32_t n) {
    if (n < 0) return HypNull;
    // P(n) is the trace of the n-th power of a root of x^3 - x - 1, so with
    // x^n = a0 + a1 x + a2 x^2 mod x^3 - x - 1 it is 3 a0 + 0 a1 + 2 a2. Reducing by
    // x^3 = x + 1 only adds, so the coefficients stay non-negative and Hyps hold them.
    GroessePruefen(double(n) * 0.40568 + 2);
    const int32_t platz = int32_t(double(n) * 0.40568 / 32) + 6;
    Hyp k[3] = {Hyp(platz), Hyp(platz), Hyp(platz)};
    k[0][1] = 1;  // x^0
    auto produkt2 = [&](const Hyp& x, const Hyp& y) {
        Hyp t(x.anzahl() + y.anzahl() + 2);
        aMulHypHyp(t, x, y);
        return t;
    };
    for (int bit = n == 0 ? -1 : 31 - __builtin_clz(uint32_t(n)); bit >= 0; --bit) {
        // Square: c0..c4 of (a0 + a1 x + a2 x^2)^2, then x^3 = 1 + x, x^4 = x + x^2.
        Hyp c0 = produkt2(k[0], k[0]);
        Hyp c1 = produkt2(k[0], k[1]);
        aMulHyp2(c1);
        Hyp c2 = produkt2(k[0], k[2]);
        aMulHyp2(c2);
        Hyp q1 = produkt2(k[1], k[1]);
        c2.mindestens(std::max(c2.anzahl(), q1.anzahl()) + 2);
        aAddHypHyp(c2, q1);
        Hyp c3 = produkt2(k[1], k[2]);
        aMulHyp2(c3);
        Hyp c4 = produkt2(k[2], k[2]);
        const int32_t neu = std::max({c0.anzahl(), c1.anzahl(), c2.anzahl(), c3.anzahl(), c4.anzahl()}) + 3;
        for (Hyp* h : {&c0, &c1, &c2}) h->mindestens(std::max(neu, platz));
        aAddHypHyp(c0, c3);
        aAddHypHyp(c1, c3);
        aAddHypHyp(c1, c4);
        aAddHypHyp(c2, c4);
        if ((uint32_t(n) >> bit) & 1) {
            // Times x: a0 + a1 x + a2 x^2 becomes a2 + (a0 + a2) x + a1 x^2.
            Hyp n1(c0);
            n1.mindestens(std::max(neu, platz));
            aAddHypHyp(n1, c2);
            k[0] = std::move(c2);
            k[2] = std::move(c1);
            k[1] = std::move(n1);
        } else {
            k[0] = std::move(c0);
            k[1] = std::move(c1);
            k[2] = std::move(c2);
        }
        for (Hyp& h : k) h.mindestens(platz);
        if (k[0].anzahl() > 4096) RechnenYield();
    }
    Hyp r(k[0]);
    r.mindestens(std::max(k[0].anzahl(), k[2].anzahl()) + 3);
    aMulHyp32(r, 3);
    Hyp zwei(k[2]);
    zwei.mindestens(k[2].anzahl() + 2);
    aMulHyp2(zwei);
    aAddHypHyp(r, zwei);
    r.setzeObergrenze(r.anzahl());
    return r;
}

}  // namespace sw
