#include "arith/HypText.h"

#include <cstring>
#include <vector>

#include "arith/basHyper.h"
#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr uint32_t kMilliarde = 1000000000u;
// Pieces up to this many words go word by word: dividing by 10^9 costs one pass per nine
// digits, and below about 40 words that beats another level of wide quotients (measured with
// bench/arith_text.cpp at 1,000,000 digits: 20 words 1.09x, 40 words 1.00x, 80 words 1.07x).
constexpr int32_t kBasisWorte = 40;
// Digit runs up to this length are read nine digits at a time by word products.
constexpr size_t kBasisZiffern = 360;

// Powers 10^(9*2^k), k = 0, 1, ..., shared by both directions and kept per thread: a second
// conversion of the same size costs no squaring at all.
const Hyp& Zehnerpotenz(size_t k) {
    thread_local std::vector<Hyp> tabelle;
    if (tabelle.empty()) {
        Hyp p(1);
        p[1] = int32_t(kMilliarde);
        tabelle.push_back(std::move(p));
    }
    while (tabelle.size() <= k) {
        const Hyp& vor = tabelle.back();
        Hyp q(2 * vor.anzahl());
        aQuadHyp(q, vor);
        q.setzeObergrenze(q.anzahl());
        tabelle.push_back(std::move(q));
    }
    return tabelle[k];
}

// Digits of a piece of at most kBasisWorte words (destroyed), right-aligned and padded with
// zeros to breite (0: no padding), appended to aus.
void basisText(Hyp& h, std::string& aus, size_t breite) {
    char puffer[kBasisWorte * 10 + 16];
    char* ende = puffer + sizeof puffer;
    char* p = ende;
    // Nine digits per quotient by 10^9: the remainder of each word step fits 64 bits.
    while (h[0] > 1 || uint32_t(h[1]) >= kMilliarde) {
        uint32_t r = uint32_t(aDivHyp32(h, int32_t(kMilliarde)));
        for (int i = 0; i < 9; ++i) {
            *--p = char('0' + r % 10);
            r /= 10;
        }
    }
    uint32_t r = uint32_t(h[1]);
    do {
        *--p = char('0' + r % 10);
        r /= 10;
    } while (r != 0);
    size_t n = size_t(ende - p);
    // Leading zeros of the nine-digit groups belong to a padded piece only.
    while (n > 1 && *p == '0') {
        ++p;
        --n;
    }
    if (breite > n) aus.append(breite - n, '0');
    aus.append(p, n);
}

size_t stufenBreite(size_t k) { return size_t(9) << k; }

// h < (10^(9*2^k))^2 is written with exactly breite digits (0: as many as it has). Splitting
// by 10^(9*2^k) gives two halves below that power, each written one level lower.
void teileText(Hyp& h, int k, std::string& aus, size_t breite) {
    if (h.anzahl() <= kBasisWorte || k < 0) {
        basisText(h, aus, breite);
        return;
    }
    const Hyp& p = Zehnerpotenz(size_t(k));
    if (breite == 0 && aCmpHypHyp(h, p) < 0) {
        teileText(h, k - 1, aus, 0);
        return;
    }
    Hyp q(h.anzahl() - p.anzahl() + 2);
    aDivHypHyp(q, h, p);  // h keeps the remainder
    teileText(q, k - 1, aus, breite == 0 ? 0 : breite - stufenBreite(size_t(k)));
    teileText(h, k - 1, aus, stufenBreite(size_t(k)));
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
    while (stufenBreite(k + 1) < n) ++k;
    const size_t unten = stufenBreite(k);
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

std::string Hyp2Text(const Hyp& h) {
    Hyp arbeit(h);
    if (arbeit[0] < 1) arbeit[0] = 1;  // a fresh array reads as zero
    std::string aus;
    aus.reserve(size_t(arbeit.anzahl()) * 10 + 1);
    // The top level: the smallest power whose square exceeds h.
    const int32_t bits = aGetHighBitHyp(arbeit) + 1;
    int k = 0;
    while (2 * (aGetHighBitHyp(Zehnerpotenz(size_t(k))) + 1) - 1 <= bits && arbeit.anzahl() > kBasisWorte) ++k;
    teileText(arbeit, k, aus, 0);
    return aus;
}

std::string Hyp2TextNull(const Hyp& h) {
    if (h[0] < 1 || aCmpHyp32(h, 0) == 0) return "0";
    return Hyp2Text(h);
}

std::string Hyp2Anzeige(const Hyp& h) { return anzeigeForm(Hyp2Text(h)); }
std::string Hyp2AnzeigeNull(const Hyp& h) { return anzeigeForm(Hyp2TextNull(h)); }
std::string ZiffernAnzeige(const std::string& ziffern, bool gruppieren) { return anzeigeForm(ziffern, gruppieren); }

std::string ZiffernGruppieren(const std::string& ziffern) {
    if (FormatAnzahl <= 0 || FormatZeichen.empty() || ziffern.size() <= size_t(FormatAnzahl)) return ziffern;
    const size_t n = ziffern.size(), g = size_t(FormatAnzahl);
    std::string aus;
    aus.reserve(n + (n / g) * FormatZeichen.size());
    size_t erste = n % g == 0 ? g : n % g;
    aus.append(ziffern, 0, erste);
    for (size_t i = erste; i < n; i += g) {
        aus += FormatZeichen;
        aus.append(ziffern, i, g);
    }
    return aus;
}

Hyp Text2Hyp(const std::string& text) {
    const std::string t = Trimmen(text);
    if (!t.empty() && t[0] == '#') return SpeicherElement(t.substr(1));
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

std::string HypInBasis(const Hyp& h, int32_t basis) {
    if (basis == 10) return Hyp2Text(h);
    std::vector<uint32_t> ziffern;  // lowest first
    Hyp arbeit(h);
    if (arbeit[0] < 1) arbeit[0] = 1;
    if ((basis & (basis - 1)) == 0) {
        // A power of two: each digit is a run of bits, read straight from the words.
        const int32_t k = __builtin_ctz(uint32_t(basis));
        const int32_t bits = aGetHighBitHyp(arbeit) + 1;
        for (int32_t i = 0; i < bits || ziffern.empty(); i += k) {
            uint32_t z = 0;
            for (int32_t b = k - 1; b >= 0; --b) z = z * 2 + (i + b < bits && aBitTestHyp(arbeit, i + b) ? 1 : 0);
            ziffern.push_back(z);
        }
    } else {
        // Several digits per quotient: the largest power of the base that fits a word.
        uint32_t potenz = uint32_t(basis);
        int32_t jeWort = 1;
        while (uint64_t(potenz) * uint32_t(basis) <= 0xFFFFFFFFull) {
            potenz *= uint32_t(basis);
            ++jeWort;
        }
        for (int schritt = 1; arbeit.anzahl() > 1 || uint32_t(arbeit[1]) >= potenz; ++schritt) {
            uint32_t r = uint32_t(aDivHyp32(arbeit, int32_t(potenz)));
            for (int32_t i = 0; i < jeWort; ++i) {
                ziffern.push_back(r % uint32_t(basis));
                r /= uint32_t(basis);
            }
            if (schritt % 256 == 0 && arbeit.anzahl() > 1024) RechnenYield();
        }
        for (uint32_t r = uint32_t(arbeit[1]); r != 0; r /= uint32_t(basis)) ziffern.push_back(r % uint32_t(basis));
    }
    while (ziffern.size() > 1 && ziffern.back() == 0) ziffern.pop_back();
    if (ziffern.empty()) ziffern.push_back(0);
    std::string aus;
    aus.reserve(ziffern.size() * (basis <= 16 ? 1 : 3));
    for (size_t i = ziffern.size(); i-- > 0;) {
        const uint32_t z = ziffern[i];
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
