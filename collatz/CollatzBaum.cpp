#include "collatz/CollatzBaum.h"

#include <string>

#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

struct Baum {
    bool ungeradeZuerst;
    size_t grenze;
    std::vector<CollatzBaumEintrag> liste;

    bool voll() const { return liste.size() > grenze || Abbruch; }

    void ablegen(const Decimal& t, int32_t m) {
        liste.push_back({t, m});
        if (liste.size() % 4096 == 0) DoEvents();
    }
    void ungerade(const Decimal& x, int32_t d, int32_t m) {
        if (x % Decimal(3) != Decimal(1)) return;
        const Decimal t = (x - Decimal(1)) / Decimal(3);
        // t = 1 would lead back to 4 -> 2 -> 1, a sequence that reaches 1 earlier.
        if (t.LoWort() % 2 == 0 || t == Decimal(1)) return;
        if (d == 0) ablegen(t, m + 1); else absteigen(t, d, m + 1);
    }
    void doppelt(const Decimal& x, int32_t d, int32_t m) {
        const Decimal t = x + x;
        if (d == 0) ablegen(t, m); else absteigen(t, d, m);
    }
    void absteigen(const Decimal& x, int32_t tiefe, int32_t m) {
        if (voll()) return;
        const int32_t d = tiefe - 1;
        if (ungeradeZuerst) {
            ungerade(x, d, m);
            if (!voll()) doppelt(x, d, m);
        } else {
            doppelt(x, d, m);
            if (!voll()) ungerade(x, d, m);
        }
    }
};

}  // namespace

std::vector<CollatzBaumEintrag> CollatzBaum(int32_t tiefe, bool ungeradeZuerst, size_t grenze) {
    if (tiefe < 1) return {};
    if (tiefe > CollatzBaumMaxTiefe) throw Laufzeitfehler(FehlerUeberlauf, TextP1(1640, std::to_string(CollatzBaumMaxTiefe)));
    Baum b{ungeradeZuerst, grenze, {}};
    b.absteigen(Decimal(1), tiefe, 0);
    return std::move(b.liste);
}

Hyp CollatzSchaetzung(int32_t a, int32_t b) {
    if (a <= b) return Hyp(1);
    const int64_t bits = int64_t(a) - b;
    GroessePruefen(double(bits));
    Hyp h(int32_t(bits / 32 + 2));
    h[1] = 1;
    aShiftLeftHyp(h, int32_t(bits));
    // Dividing step by step floors the same as one division by 3^b; 3^19 is the largest
    // power of 3 a signed word divides by.
    constexpr int32_t drei19 = 1162261467;
    for (int32_t rest = b; rest > 0 && aCmpHyp32(h, 0) != 0; rest -= 19) {
        int32_t teiler = drei19;
        if (rest < 19) {
            teiler = 1;
            for (int32_t i = 0; i < rest; ++i) teiler *= 3;
        }
        aDivHyp32(h, teiler);
    }
    return h;
}

}  // namespace sw
