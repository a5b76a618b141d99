// The walks of the Collatz wing on the shared number CollatzZahl.
#include "collatz/basCollatz.h"

#include <algorithm>
#include <unordered_set>

#include "arith/HypText.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "frame/Texte.h"
#include "zahlkern/zahlkern.h"

namespace sw {

Hyp CollatzZahl(10);
Hyp CollatzKopie(10);
std::vector<Hyp> FolgenListe;
Decimal CollatzVon;
Decimal CollatzBis;
int32_t CollatzSchritt = 1;
int32_t CollatzVerfahren = 0;
int32_t CollatzReduktion = 0;
int32_t CollatzVonOben = 0;
int32_t Elemente = 0;
int32_t Mult = 0;
int32_t Div = 0;
int32_t MaxLauf = 0;

namespace {

// The value lists and the block walk give the window a turn this often and end early when the
// user stopped them: a list of a huge start can take longer than anyone waits.
constexpr int32_t kSchritteJeYield = 1024;

bool gestoppt(int32_t schritt) {
    if (schritt % kSchritteJeYield != 0) return false;
    DoEvents();
    return Abbruch;
}

void zaehlerNull() { Elemente = Mult = Div = MaxLauf = 0; }

bool istEins(const Hyp& h) { return h[0] == 1 && h[1] == 1; }
bool istNullOderEins(const Hyp& h) { return h[0] <= 1 && uint32_t(h[1]) <= 1; }

// Counts of the method from a fast walk: a T step is one halving, an odd one also a
// multiplication.
void zaehlerAusGang(const CollatzGang& g, int32_t verfahren) {
    Mult = int32_t(g.ungerade);
    Div = int32_t(g.tSchritte);
    Elemente = verfahren == 0 ? Mult + Div : verfahren == 1 ? Div : Mult;
}

// The T-step marks ("!" odd, "." even) in the form of the method: every step in method 0
// ("!." for a multiplication and its halving), odd values only in method 2.
std::string markenDesVerfahrens(const std::string& t, int32_t verfahren) {
    if (verfahren == 1) return t;
    std::string m;
    if (verfahren == 0) {
        m.reserve(t.size() + size_t(std::count(t.begin(), t.end(), '!')));
        for (char c : t) {
            if (c == '!') m.push_back('!');
            m.push_back('.');
        }
    } else {
        m.assign(size_t(std::count(t.begin(), t.end(), '!')), '!');
    }
    return m;
}

// The value list of methods 0..2 by single steps; only the lists need every value.
std::string wertListe(int32_t verfahren, CollatzRegel regel) {
    std::string text;
    bool nachUngerade = false;
    for (int32_t schritt = 1; !CollatzAmEnde(CollatzZahl, regel) && !gestoppt(schritt); ++schritt) {
        if (CollatzZahl[1] & 1) {
            ++Elemente;
            text += Hyp2Anzeige(CollatzZahl);
            text += "; ";
            nachUngerade = true;
            CollatzZahl.mindestens(CollatzZahl[0] + 2);
            aMulHyp32(CollatzZahl, 3);
            if (regel == CollatzRegel::DreiNPlusEins) {
                aIncHyp(CollatzZahl);
            } else {
                aDecHyp(CollatzZahl);
            }
            ++Mult;
        } else {
            const bool zaehlt = verfahren == 0 || (verfahren == 1 && !nachUngerade);
            nachUngerade = false;
            if (zaehlt) {
                ++Elemente;
                text += Hyp2Anzeige(CollatzZahl);
                text += "; ";
            }
            aDivHyp2(CollatzZahl);
            ++Div;
        }
    }
    return text;
}

// Methods 0..2: marks and summary by the fast walk, lists by single steps.
std::string einzelFolge(int32_t verfahren, int32_t ausgabe, CollatzRegel regel) {
    if (ausgabe == 1 || ausgabe == 2) return wertListe(verfahren, regel);
    CollatzGang g;
    std::string t;
    CollatzGehen(CollatzZahl, regel, g, ausgabe == 9 ? nullptr : &t);
    zaehlerAusGang(g, verfahren);
    return ausgabe == 9 ? std::string() : markenDesVerfahrens(t, verfahren);
}

// CollatzZahl := CollatzZahl * 3^p, by the largest power of 3 that fits a word at a time.
void malDreiHoch(int32_t p) {
    constexpr int32_t kProWort = 20;  // 3^20 < 2^32
    while (p > 0) {
        const int32_t e = std::min(p, kProWort);
        uint32_t f = 1;
        for (int32_t i = 0; i < e; ++i) f *= 3;
        CollatzZahl.mindestens(CollatzZahl[0] + 2);
        aMulHyp32(CollatzZahl, Long(f));
        p -= e;
    }
}

// Strips the zero bits at the bottom of CollatzZahl and counts them as halvings.
void nullBitsAbziehen() {
    const Long z = aGetLowBitHyp(CollatzZahl);
    if (z > 0) {
        aShiftRightHyp(CollatzZahl, z);
        Div += z;
    }
}

// The block walk: for odd n with n + 1 = 2^t u, t steps of (3n+1)/2 give (n+1)(3/2)^t - 1.
// Each block adds 1, does min(r, t) halve-and-triple pairs with r = max(t - k, 1) (exactly one
// with the pseudo reduction), halves what is left even, subtracts 1 and halves to odd. Output
// 0 gives one "!" per block, 1 and 2 the value at the start of each block.
std::string blockFolge(int32_t k, int32_t ausgabe, bool pseudo) {
    std::string text;
    for (int32_t block = 1; !istEins(CollatzZahl) && !gestoppt(block); ++block) {
        if (ausgabe == 0) {
            text.push_back('!');
        } else if (ausgabe == 1 || ausgabe == 2) {
            text += Hyp2Anzeige(CollatzZahl);
        }
        CollatzZahl.mindestens(CollatzZahl[0] + 2);
        aIncHyp(CollatzZahl);
        ++Elemente;
        CollatzKopie = CollatzZahl;
        const int32_t t = aGetLowBitHyp(CollatzKopie);
        const int32_t r = pseudo ? 1 : std::max(t - k, 1);
        const int32_t paare = std::min(r, t);
        if (paare > 0) {
            aShiftRightHyp(CollatzZahl, paare);
            malDreiHoch(paare);
            Mult += paare;
            Div += paare;
            MaxLauf = std::max(MaxLauf, paare);
        }
        nullBitsAbziehen();
        if (ausgabe == 2) {
            text += "(" + std::to_string(paare) + "); ";
        } else if (ausgabe == 1) {
            text += "; ";
        }
        if (!istEins(CollatzZahl)) {
            aDecHyp(CollatzZahl);
            nullBitsAbziehen();
        }
    }
    return text;
}

std::string zusammenfassung(int32_t verfahren, int32_t k, CollatzRegel regel) {
    std::string s = TextP1(159, Elemente);
    if (verfahren == 0) {
        s += TextP1P2(regel == CollatzRegel::DreiNPlusEins ? 160 : 1600, std::to_string(Mult), std::to_string(Div));
    } else if (verfahren == 1) {
        s += TextP1P2(161, std::to_string(Mult), std::to_string(Div - Mult));
    } else if (verfahren == 2) {
        s += Text(162);
    } else if (regel == CollatzRegel::DreiNMinusEins) {
        s += TextP1(163, 0);
    } else {
        s += k == 0 ? TextP1(163, MaxLauf) : TextP1P2(164, std::to_string(k), std::to_string(MaxLauf));
    }
    return s;
}

}  // namespace

std::string CollatzFolge(const Decimal& start, int32_t verfahren, int32_t ausgabe, int32_t k) {
    CollatzZahl.mindestens(10);
    aDec2Hyp(CollatzZahl, &start);
    return CollatzFolgeHyp(verfahren, ausgabe, k);
}

std::string CollatzFolgeHyp(int32_t verfahren, int32_t ausgabe, int32_t k) {
    if (istNullOderEins(CollatzZahl)) return "";
    zaehlerNull();
    std::string text = verfahren >= 3 ? blockFolge(k, ausgabe, false)
                                      : einzelFolge(verfahren, ausgabe, CollatzRegel::DreiNPlusEins);
    if (ausgabe == 1 || ausgabe == 2) text += "1";
    if (ausgabe == 9) text = zusammenfassung(verfahren, k, CollatzRegel::DreiNPlusEins);
    return text;
}

std::string CollatzFolge3nMinus1(int32_t verfahren, int32_t ausgabe) {
    if (istNullOderEins(CollatzZahl)) return "";
    zaehlerNull();
    const int32_t zaehlweise = verfahren >= 0 && verfahren <= 2 ? verfahren : 2;
    std::string text = einzelFolge(zaehlweise, ausgabe, CollatzRegel::DreiNMinusEins);
    if (ausgabe == 1 || ausgabe == 2) {
        text += Hyp2Text(CollatzZahl);
        if (!istEins(CollatzZahl)) text += "...(Schleife)...";
    }
    if (ausgabe == 9) text = zusammenfassung(verfahren, 0, CollatzRegel::DreiNMinusEins);
    return text;
}

bool CollatzZaehlen(int32_t& schritte, int32_t& mult) {
    CollatzGang g;
    const bool fertig = CollatzGehen(CollatzZahl, CollatzRegel::DreiNPlusEins, g);
    schritte = int32_t(g.tSchritte + g.ungerade);
    mult = int32_t(g.ungerade);
    return fertig;
}

std::string CollatzMuster() {
    const std::string wert = Hyp2Anzeige(CollatzZahl);
    if (istNullOderEins(CollatzZahl)) return wert + " ---> 0.0 =";
    CollatzGang g;
    std::string marken;
    CollatzGehen(CollatzZahl, CollatzRegel::DreiNPlusEins, g, &marken);
    std::string text = wert + " ---> " + std::to_string(g.tSchritte + g.ungerade) + "." + std::to_string(g.ungerade) + " = ";
    text += marken;
    return text;
}

std::string CollatzZeile(int32_t verfahren, int32_t k) {
    if (verfahren >= 3) {
        const std::string wert = Hyp2Anzeige(CollatzZahl);  // before the walk destroys it
        return wert + " ---> " + CollatzBlockMuster(k);
    }
    std::string text = CollatzMuster();
    if (verfahren == 0) {
        std::string voll;
        voll.reserve(text.size() + size_t(std::count(text.begin(), text.end(), '!')));
        for (char c : text) {
            voll.push_back(c);
            if (c == '!') voll.push_back('.');
        }
        return voll;
    }
    if (verfahren == 2) {
        const size_t p = text.find(" = ");
        const size_t ab = p == std::string::npos ? 0 : p + 3;
        text.erase(std::remove(text.begin() + std::ptrdiff_t(ab), text.end(), '.'), text.end());
    }
    return text;
}

std::string CollatzBlockMuster(int32_t k) {
    zaehlerNull();
    const std::string marken = blockFolge(k, 0, k == CollatzEinPaar);
    return std::to_string(Div) + "." + std::to_string(Mult) + " = " + marken;
}

bool CollatzWeiterBox(int32_t anzahl) {
    return UI().Meldung("SW - ???", TextP1(1601, anzahl), MeldungsSymbol::Frage, MeldungsKnoepfe::JaNeinAbbrechen) ==
           AntwortJa;
}

namespace {

// The words of a normalised Hyp as the key of the set of values seen.
std::string schluessel(const Hyp& h) {
    return std::string(reinterpret_cast<const char*>(h.daten() + 1), size_t(h[0]) * sizeof(Long));
}

}  // namespace

std::string CollatzKommaFolge(const std::string& start, const std::string& multiplikator,
                              const CollatzWeiterFrage& weiter, int32_t frageAlle) {
    std::string ziffern;
    for (char c : multiplikator)
        if (c != ',') ziffern.push_back(c);
    ziffern.resize(11, '0');  // cut to the integer digit and ten decimals, or padded to them
    const Hyp m = Ziffern2Hyp(ziffern);
    const Hyp a = Ziffern2Hyp("9999999999");
    const Hyp b = Ziffern2Hyp("10000000000");

    FolgenListe.clear();
    FolgenListe.push_back(Ziffern2Hyp(start));
    if (aCmpHyp32(FolgenListe[0], 0) == 0) return "";
    // The set of values seen answers "came this value before?" as the full scan of the list
    // would, without its quadratic cost.
    std::unordered_set<std::string> gesehen;
    bool schleife = false, abbruch = false;
    for (;;) {
        Hyp& x = FolgenListe.back();
        const Long z = aGetLowBitHyp(x);
        if (z > 0) aShiftRightHyp(x, z);
        if (x[0] == 1 && x[1] == 1) break;
        if (!gesehen.insert(schluessel(x)).second) {
            schleife = true;
            break;
        }
        Hyp y(x[0] + m[0] + 2);
        anMulHypHyp(y, x, m);
        aAddHypHyp(y, a);
        if (FolgenListe.size() % size_t(std::max(frageAlle, 1)) == 0 && !weiter(int32_t(FolgenListe.size()))) {
            abbruch = true;
            break;
        }
        Hyp q(y[0] + 1);
        aDivHypHyp(q, y, b);
        if (q[1] & 1) {
            q.mindestens(q[0] + 1);
            aIncHyp(q);
        }
        FolgenListe.push_back(std::move(q));
    }
    std::string text = multiplikator + " ";
    for (size_t i = 0; i < FolgenListe.size(); ++i) {
        if (i > 0) text += "; ";
        text += Hyp2Anzeige(FolgenListe[i]);
    }
    if (text.size() < 2 || text.compare(text.size() - 2, 2, " 1") != 0) {
        if (schleife) text += "...Schleife...";
        if (abbruch) text += "...Abbruch...";
    }
    return text;
}

}  // namespace sw
