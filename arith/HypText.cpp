#include "arith/HypText.h"

#include <cstring>
#include <iterator>
#include <map>
#include <vector>

#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// Pieces up to this many words go word by word: dividing by 10^9 costs one pass per nine
// digits, and below about 40 words that beats another level of wide quotients (measured with
// bench/arith_text.cpp at 1,000,000 digits: 20 words 1.09x, 40 words 1.00x, 80 words 1.07x).
constexpr int32_t kBasisWorte = 40;
// Digit runs up to this length are read nine digits at a time by word products.
constexpr size_t kBasisZiffern = 360;
// Pieces from this many words on take long enough that an interruptible conversion yields first.
constexpr int32_t kYieldAbWorte = 4096;

// The powers of one base: W = basis^je, the largest power that fits a word, and W^(2^k) for
// k = 0, 1, ..., kept per thread, so that a second conversion of the same size squares nothing.
struct Basispotenzen {
    uint32_t wort = 0;
    int je = 0;
    std::vector<Hyp> p;
};

Basispotenzen& potenzenVon(int32_t basis) {
    // Any base from 2 on may be asked for; a map keeps each entry in place as others are added.
    thread_local std::map<int32_t, Basispotenzen> alle;
    Basispotenzen& b = alle[basis];
    if (b.je == 0) {
        b.wort = uint32_t(basis);
        b.je = 1;
        while (uint64_t(b.wort) * uint32_t(basis) <= 0xFFFFFFFFull) {
            b.wort *= uint32_t(basis);
            ++b.je;
        }
        Hyp p0(1);
        p0[1] = int32_t(b.wort);
        b.p.push_back(std::move(p0));
    }
    return b;
}

const Hyp& potenz(Basispotenzen& b, size_t k) {
    while (b.p.size() <= k) {
        const Hyp& vor = b.p.back();
        Hyp q(2 * vor.anzahl());
        aQuadHyp(q, vor);
        q.setzeObergrenze(q.anzahl());
        b.p.push_back(std::move(q));
    }
    return b.p[k];
}

const Hyp& Zehnerpotenz(size_t k) { return potenz(potenzenVon(10), k); }

size_t stufenBreite(const Basispotenzen& b, size_t k) { return size_t(b.je) << k; }

// Digit values (0 .. basis-1, one element each) of a piece of at most kBasisWorte words
// (destroyed), right-aligned and padded with zeros to breite (0: no padding), appended to aus.
// Folge is std::string for decimal text (a char holds a decimal digit) and a vector of words
// for the other bases, whose digits may need up to 31 bits.
template <typename Folge>
void basisZiffern(Hyp& h, int32_t basis, const Basispotenzen& b, Folge& aus, size_t breite) {
    using Z = typename Folge::value_type;
    Z puffer[(kBasisWorte + 2) * 32];
    Z* ende = puffer + std::size(puffer);
    Z* p = ende;
    // je digits per quotient by basis^je: the remainder of each word step fits 64 bits.
    while (h[0] > 1 || uint32_t(h[1]) >= b.wort) {
        uint32_t r = uint32_t(aDivHyp32(h, int32_t(b.wort)));
        for (int i = 0; i < b.je; ++i) {
            *--p = Z(r % uint32_t(basis));
            r /= uint32_t(basis);
        }
    }
    uint32_t r = uint32_t(h[1]);
    do {
        *--p = Z(r % uint32_t(basis));
        r /= uint32_t(basis);
    } while (r != 0);
    size_t n = size_t(ende - p);
    // Leading zeros of the groups belong to a padded piece only.
    while (n > 1 && *p == 0) {
        ++p;
        --n;
    }
    if (breite > n) aus.insert(aus.end(), breite - n, Z(0));
    aus.insert(aus.end(), p, p + n);
}

// h < W^(2^(k+1)) is written with exactly breite digits (0: as many as it has). Splitting by
// W^(2^k) gives two halves below that power, each written one level lower. An interruptible
// conversion yields before each wide quotient, so a stop ends even a text of millions of digits.
template <typename Folge>
void teileZiffern(Hyp& h, int k, int32_t basis, Basispotenzen& b, Folge& aus, size_t breite, bool unterbrechbar) {
    if (h.anzahl() <= kBasisWorte || k < 0) {
        basisZiffern(h, basis, b, aus, breite);
        return;
    }
    const Hyp& p = potenz(b, size_t(k));
    if (breite == 0 && aCmpHypHyp(h, p) < 0) {
        teileZiffern(h, k - 1, basis, b, aus, 0, unterbrechbar);
        return;
    }
    if (unterbrechbar && h.anzahl() > kYieldAbWorte) RechnenYield();
    Hyp q(h.anzahl() - p.anzahl() + 2);
    aDivHypHyp(q, h, p);  // h keeps the remainder
    const size_t unten = stufenBreite(b, size_t(k));
    teileZiffern(q, k - 1, basis, b, aus, breite == 0 ? 0 : breite - unten, unterbrechbar);
    teileZiffern(h, k - 1, basis, b, aus, unten, unterbrechbar);
}

// The digit values of h in the base, highest first.
template <typename Folge>
Folge ziffernWerte(const Hyp& h, int32_t basis, bool unterbrechbar) {
    Hyp arbeit(h);
    if (arbeit[0] < 1) arbeit[0] = 1;  // a fresh array reads as zero
    Basispotenzen& b = potenzenVon(basis);
    Folge aus;
    aus.reserve(size_t(arbeit.anzahl()) * size_t(32 / (31 - __builtin_clz(uint32_t(basis))) + 1) + 1);
    // The top level: the smallest power whose square exceeds h.
    const int32_t bits = aGetHighBitHyp(arbeit) + 1;
    int k = 0;
    while (arbeit.anzahl() > kBasisWorte && 2 * (aGetHighBitHyp(potenz(b, size_t(k))) + 1) - 1 <= bits) ++k;
    teileZiffern(arbeit, k, basis, b, aus, 0, unterbrechbar);
    return aus;
}

// A run of at most kBasisZiffern digits, nine at a time.
void basisZahl(const char* s, size_t n, Hyp& h) {
    h.mindestens(int32_t(n / 9 + 2));
    while (n > 0) {
        const size_t stueck = n % 9 == 0 ? 9 : n % 9;
        uint32_t wert = 0, faktor = 1;
        for (size_t i = 0; i < stueck; ++i) {
            wert = wert * 10 + uint32_t(s[i] - '0');
            faktor *= 10;
        }
        aMulHyp32(h, int32_t(faktor));
        aAddHyp32(h, int32_t(wert));
        s += stueck;
        n -= stueck;
    }
}

// A run of digits (only '0'..'9') as high part times 10^(9*2^k) plus the low 9*2^k digits,
// with the largest such block that still leaves a high part.
Hyp teileZahl(const char* s, size_t n) {
    Hyp h(int32_t(n / 9 + 2));
    if (n <= kBasisZiffern) {
        basisZahl(s, n, h);
        return h;
    }
    size_t k = 0;
    while (stufenBreite(potenzenVon(10), k + 1) < n) ++k;
    const size_t unten = stufenBreite(potenzenVon(10), k);
    const Hyp hoch = teileZahl(s, n - unten);
    const Hyp tief = teileZahl(s + (n - unten), unten);
    const Hyp& p = Zehnerpotenz(k);
    Hyp r(hoch.anzahl() + p.anzahl() + 2);
    aMulHypHyp(r, hoch, p);
    aAddHypHyp(r, tief);
    return r;
}

std::string anzeigeForm(const std::string& ziffern, bool gruppieren = true) {
    const size_t laenge = ziffern.size();
    std::string text = gruppieren ? ZiffernGruppieren(ziffern) : ziffern;
    const size_t grenze = MaxFormatStellen > 0 ? size_t(MaxFormatStellen) : 0;
    if (laenge > grenze) {
        const size_t teil = grenze / 2 >= 1 ? grenze / 2 - 1 : 0;
        text = text.substr(0, teil) + " ... " + text.substr(text.size() - teil);
        if (StellenZahlAnzeigen) text = "(" + std::to_string(laenge) + ")" + text;
    }
    return text;
}

}  // namespace

std::string Hyp2Text(const Hyp& h, bool unterbrechbar) {
    std::string text = ziffernWerte<std::string>(h, 10, unterbrechbar);
    for (char& c : text) c = char(c + '0');
    return text;
}

std::string Hyp2TextNull(const Hyp& h) {
    if (h[0] < 1 || aCmpHyp32(h, 0) == 0) return "0";
    return Hyp2Text(h);
}

std::string Hyp2Anzeige(const Hyp& h) { return anzeigeForm(Hyp2Text(h)); }
std::string Hyp2AnzeigeNull(const Hyp& h) { return anzeigeForm(Hyp2TextNull(h)); }
std::string ZiffernAnzeige(const std::string& ziffern, bool gruppieren) { return anzeigeForm(ziffern, gruppieren); }


Hyp Text2Hyp(const std::string& text) {
    const std::string t = Trimmen(text);
    // Store references live only inside an evaluation, which reads them itself.
    if (!t.empty() && t[0] == '#') throw Laufzeitfehler(9, RechenText("msgSpeicher", t));
    return Ziffern2Hyp(t);
}

Hyp Ziffern2Hyp(const std::string& text) {
    const std::string t = Trimmen(text);
    // Grouping characters out, every other character one digit (a non-digit reads as 0).
    std::string ziffern;
    ziffern.reserve(t.size());
    const std::string& gruppe = FormatZeichen;
    for (size_t i = 0; i < t.size(); ++i) {
        const char c = t[i];
        if (c == '.') continue;
        if (!gruppe.empty() && t.compare(i, gruppe.size(), gruppe) == 0) {
            i += gruppe.size() - 1;
            continue;
        }
        ziffern.push_back(c >= '0' && c <= '9' ? c : '0');
    }
    size_t start = 0;
    while (start + 1 < ziffern.size() && ziffern[start] == '0') ++start;
    Hyp h = teileZahl(ziffern.data() + start, ziffern.size() - start);
    h.setzeObergrenze(h.anzahl());
    return h;
}

std::string HypInBasis(const Hyp& h, int32_t basis, bool unterbrechbar) {
    if (basis < 2) throw Laufzeitfehler(5, "Ungültiger Prozeduraufruf oder ungültiges Argument");
    std::vector<uint32_t> werte;  // digit values, highest first
    if ((basis & (basis - 1)) == 0) {
        // A power of two: each digit is a run of bits, read straight from the words.
        const int32_t k = __builtin_ctz(uint32_t(basis));
        const int32_t bits = h[0] < 1 ? 0 : aGetHighBitHyp(h) + 1;
        const int32_t stellen = bits == 0 ? 1 : (bits + k - 1) / k;
        werte.resize(size_t(stellen));
        for (int32_t d = 0; d < stellen; ++d) {
            uint32_t z = 0;
            for (int32_t b = k - 1; b >= 0; --b) {
                const int32_t i = d * k + b;
                z = z * 2 + (i < bits && aBitTestHyp(h, i) ? 1 : 0);
            }
            werte[size_t(stellen - 1 - d)] = z;
        }
    } else {
        werte = ziffernWerte<std::vector<uint32_t>>(h, basis, unterbrechbar);
    }
    std::string aus;
    aus.reserve(werte.size() * (basis <= 16 ? 1 : 3));
    for (const uint32_t z : werte) {
        if (basis <= 10) {
            aus.push_back(char('0' + z));
        } else if (basis == 16) {
            aus.push_back(z < 10 ? char('0' + z) : char('A' + z - 10));
        } else {
            aus += std::to_string(z);
            aus.push_back(' ');
        }
    }
    return aus;
}

}  // namespace sw
