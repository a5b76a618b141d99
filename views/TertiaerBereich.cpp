#include "views/TertiaerBereich.h"

#include <algorithm>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "sieve/basExtrem.h"
#include "zahlkern/zahlkern.h"

namespace sw {

bool TertiaerStartLesen(const std::string& text, Hyp& start) {
    const std::string t = Trimmen(text);
    if (t.empty()) {
        MsgInfo(1360);
        return false;
    }
    const std::string zahl = ZahlBereinigt(t);
    const bool ziffern = !zahl.empty() && std::all_of(zahl.begin(), zahl.end(), [](char c) { return c >= '0' && c <= '9'; });
    try {
        // A plain number is read as digits; anything else is a formula, with or without the
        // formula word (the digit reader would take a letter for a 0).
        const std::string& wort = FormelWort();
        if (ziffern) {
            start = Ziffern2Hyp(zahl);
        } else if (!wort.empty() && t.compare(0, wort.size(), wort) == 0) {
            start = Formel2Hyp(t);
        } else {
            start = Auswerten(t);
        }
    } catch (const Laufzeitfehler& f) {
        MsgInfoP1(1361, f.Beschreibung());
        return false;
    }
    return true;
}

std::string ZiffernPlus(const std::string& ziffern, uint64_t d) {
    std::string s = ziffern.empty() ? "0" : ziffern;
    // From the right: only as many digits change as the distance has, and a carry beyond them.
    for (size_t i = s.size(); d != 0;) {
        if (i == 0) {
            s.insert(0, std::to_string(d));
            break;
        }
        --i;
        uint64_t v = uint64_t(s[i] - '0') + d % 10;
        d /= 10;
        if (v >= 10) {
            v -= 10;
            ++d;
        }
        s[i] = char('0' + v);
    }
    return s;
}

// The sieve's window holds breite + 1 numbers: the distances 0 to breite, both shown.
bool TertiaerBereich::Sieben(const Hyp& start, int32_t breite, TertiaerFenster* ziel) {
    TertiaerStart = start;
    TertiaerLaenge = breite + 1;
    if (!TertiaerSieben(ziel) || Abbruch) return false;
    gesiebt_ = SekundaerRaster;
    getestet_.clear();
    start_ = start;
    startZiffern_ = Hyp2Text(start);
    breite_ = breite;
    versatz_ = TertiaerVersatz;
    return true;
}

bool TertiaerBereich::steht() const {
    return SekundaerStart.IstNull() && TertiaerLaenge == breite_ + 1 && aEqualHypHyp(TertiaerStart, start_) != 0 &&
           SekundaerRaster == gesiebt_;
}

bool TertiaerBereich::Testen(TertiaerFenster* ziel) {
    if (!Bereit()) return false;
    // Another window may have sieved since: this range is sieved again (to the same raster)
    // before the test, which works on the shared raster.
    if (!steht()) {
        TertiaerStart = start_;
        TertiaerLaenge = breite_ + 1;
        if (!TertiaerSieben(ziel) || Abbruch) return false;
    }
    TertiaerTesten(TertiaerBpsw, ziel);
    if (Abbruch || SekundaerRaster.size() != gesiebt_.size()) return false;
    getestet_ = SekundaerRaster;
    return true;
}

std::vector<int32_t> TertiaerBereich::Klein() const {
    std::vector<int32_t> klein;
    if (!Bereit() || aCmpHyp32(start_, 6) >= 0) return klein;
    const int32_t s = start_[1];
    for (int32_t p : {2, 3, 5}) {
        if (p >= s && p - s <= breite_) klein.push_back(p);
    }
    return klein;
}

int64_t TertiaerBereich::Anzahl(bool nurPrim) const {
    int64_t n = int64_t(Klein().size());
    Durchlaufen(0, breite_, nurPrim, [&](int64_t) { return ++n, true; });
    return n;
}

}  // namespace sw
