#include "collatz/ExtremSuche.h"

#include <algorithm>
#include <vector>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "zahlkern/zahlkern.h"

namespace sw {

bool VorgaengerRegel::OhneUngeradeVorgaenger(const Hyp&) const { return false; }

bool Regel3nPlus1::Vorgaenger(Hyp& y) const { return aDivHyp32(y, 3) == 1; }
bool Regel3nPlus1::OhneUngeradeVorgaenger(const Hyp& p) const { return aModHyp32(p, 3) == 0; }

bool Regel3nMinus1::Vorgaenger(Hyp& y) const {
    // y = 3p - 1 exactly when y + 1 divides by 3; then p = (y + 1) / 3.
    y.mindestens(y.anzahl() + 1);
    aIncHyp(y);
    return aDivHyp32(y, 3) == 0;
}
bool Regel3nMinus1::OhneUngeradeVorgaenger(const Hyp& p) const { return aModHyp32(p, 3) == 0; }

namespace {

// The three walks share the state of one run. Every node copies its value once; the
// recursion depth is the tree depth, which a user's i keeps small next to the stack.
class Walk {
  public:
    Walk(const ExtremAuftrag& a, const VorgaengerRegel& r, ExtremZiel& z)
        : a_(a), regel_(r), ziel_(z), muster_(size_t(a.tiefe), '-') {}

    ExtremErgebnis Los() {
        Hyp eins(a_.tiefe / 32 + 2);
        eins[1] = 1;
        switch (a_.art) {
            case ExtremArt::Voll:
            case ExtremArt::ZielM: baum(eins, a_.tiefe, 0); break;
            case ExtremArt::Pfad: pfad(eins, a_.tiefe, 0); break;
        }
        return erg_;
    }

  private:
    bool imBereich(const Hyp& x) const { return aBereichHypHyp(x, a_.von, a_.bis) != 0; }
    bool stopp() {
        if (!fertig_ && ziel_.Gestoppt()) fertig_ = true;
        return fertig_;
    }
    void treffer(const Hyp& x, int32_t m) {
        ++erg_.anzahl;
        ziel_.Treffer(x, m, muster_);
    }
    // The value at the end of a branch: a hit when in range, else the range cut the tree.
    void blatt(const Hyp& x, int32_t m) {
        if (stopp()) return;
        if (imBereich(x)) {
            treffer(x, m);
        } else {
            erg_.vollstaendig = false;
        }
    }
    static Hyp doppelt(const Hyp& x) {
        Hyp y(x.anzahl() + 2);
        std::copy(x.daten(), x.daten() + x.anzahl() + 1, y.daten());
        aMulHyp2(y);
        return y;
    }
    // The odd predecessor of x at this level, if any: in mode i from x itself, in mode k from
    // 2x, so that the "!" includes the halving that follows the multiplication.
    bool ungerade(const Hyp& x, Hyp& p) const {
        p = a_.modusK ? doppelt(x) : x;
        p.mindestens(p.anzahl() + 1);
        return regel_.Vorgaenger(p) && aMOD2(p[1]) != 0 && aCmpHyp32(p, 1) > 0;
    }

    // The tree below x, d levels deep, m multiplications so far. With a target m a branch is
    // cut where the remaining levels cannot bring the multiplications up to it, and only the
    // leaves that reach it exactly count.
    void baum(const Hyp& x, int32_t d, int32_t m) {
        if (stopp()) return;
        if (a_.art == ExtremArt::ZielM && (m > a_.zielM || d < a_.zielM - m)) return;
        if (!imBereich(x)) {
            erg_.vollstaendig = false;
            return;
        }
        char& stelle = muster_[size_t(d - 1)];
        Hyp y = doppelt(x);
        stelle = '.';
        zweig(y, d - 1, m);
        stelle = '!';
        if (ungerade(x, y)) zweig(y, d - 1, m + 1);
    }
    void zweig(const Hyp& y, int32_t d, int32_t m) {
        if (d != 0) baum(y, d, m);
        else if (a_.art != ExtremArt::ZielM || m == a_.zielM) blatt(y, m);
    }

    // One path, the odd branch first; a value without odd predecessors (for 3n+-1 a multiple
    // of 3) is taken only at the last level, the path doubles instead. The path ends the run.
    void pfad(const Hyp& x, int32_t d, int32_t m) {
        if (stopp() || !imBereich(x)) return;
        const int32_t d1 = d - 1;
        char& stelle = muster_[size_t(d - 1)];
        Hyp y;
        stelle = '!';
        if (ungerade(x, y)) {
            if (d1 == 0) {
                if (imBereich(y)) treffer(y, m + 1);
                fertig_ = true;
                return;
            }
            if (!regel_.OhneUngeradeVorgaenger(y) || d1 == 1) {
                pfad(y, d1, m + 1);
                return;
            }
        }
        y = doppelt(x);
        stelle = '.';
        if (d1 != 0) {
            pfad(y, d1, m);
            return;
        }
        if (imBereich(y)) treffer(y, m);
        fertig_ = true;
    }

    const ExtremAuftrag& a_;
    const VorgaengerRegel& regel_;
    ExtremZiel& ziel_;
    std::string muster_;
    ExtremErgebnis erg_;
    bool fertig_ = false;
};

std::string rechts(const std::string& s, size_t breite, char fuell = ' ') {
    return s.size() >= breite ? s : std::string(breite - s.size(), fuell) + s;
}

std::string umgekehrt(std::string s) {
    std::reverse(s.begin(), s.end());
    return s;
}

}  // namespace

ExtremErgebnis ExtremWalk(const ExtremAuftrag& auftrag, const VorgaengerRegel& regel, ExtremZiel& ziel) {
    if (auftrag.tiefe < 1) return {};
    if (auftrag.tiefe > ExtremMaxTiefe)
        throw Laufzeitfehler(FehlerUeberlauf, TextP1(1642, std::to_string(ExtremMaxTiefe)));
    return Walk(auftrag, regel, ziel).Los();
}

std::string ExtremMarks(const std::string& muster, int32_t verfahren) {
    std::string aus;
    aus.reserve(muster.size());
    for (size_t i = 0; i < muster.size(); ++i) {
        const char c = muster[i];
        if (verfahren == 1 && c == '.' && i > 0 && muster[i - 1] == '!') continue;
        if (verfahren == 2 && c == '.') continue;
        aus += c;
    }
    return aus;
}

std::string DualMarks(const Hyp& x) {
    std::string s;
    for (int32_t w = x.anzahl(); w >= 1; --w) {
        const uint32_t wort = uint32_t(x[w]);
        for (int b = 31; b >= 0; --b) {
            const bool bit = (wort >> b) & 1U;
            if (bit || !s.empty()) s += bit ? '!' : '.';
        }
    }
    return s.empty() ? "." : s;
}

std::string ExtremZeile(const ExtremZeilenFelder& f, int32_t reihenfolge, ExtremBreiten& b) {
    const std::string ziffernI = std::to_string(f.tiefe);
    const std::string kopf = ziffernI + "." + rechts(std::to_string(f.m), ziffernI.size(), '0') + " ";
    b.zahl = std::max(b.zahl, f.zahl.size());
    const std::string zahl = rechts(f.zahl, b.zahl) + " ";
    std::string dual, trenner;
    if (f.dualAn) {
        b.dual = std::max(b.dual, f.dual.size());
        dual = rechts(f.dual, b.dual, '.');
        trenner = "   ";
    }
    ++b.zeilen;
    const std::string nummer = rechts(std::to_string(b.zeilen), b.zeile) + " ";
    // A reversed field turns its content round; the blank behind it stays behind it.
    const std::string marks = f.marks + " ", marksR = umgekehrt(f.marks) + " ";
    const std::string dualR = f.dualAn ? umgekehrt(dual) + " " : "";
    if (f.dualAn) dual += " ";
    switch (reihenfolge) {
        case 1: return dual + trenner + marks + zahl + kopf + nummer;
        case 2: return dualR + trenner + marks + zahl + kopf + nummer;
        case 3: return marks + trenner + dual + zahl + kopf + nummer;
        case 4: return marksR + trenner + dual + zahl + kopf + nummer;
        case 5: return kopf + dual + trenner + marks + zahl + nummer;
        case 6: return nummer + kopf + dual + trenner + marks + zahl;
        default: return zahl + marks + trenner + dual + kopf + nummer;
    }
}

std::string ExtremZeileCsv(const ExtremZeilenFelder& f, int32_t nummer, const std::string& ziffern) {
    return std::to_string(nummer) + ";" + std::to_string(f.tiefe) + ";" + std::to_string(f.m) + ";" + ziffern + ";" +
           f.marks + ";" + f.dual;
}

}  // namespace sw
