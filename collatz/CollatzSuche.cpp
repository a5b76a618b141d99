#include "collatz/CollatzSuche.h"

#include <algorithm>
#include <cmath>

#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

std::string kopf(int32_t a, int32_t b) { return std::to_string(a) + "." + std::to_string(b) + " "; }

int32_t ausrufe(const std::string& marks) { return int32_t(std::count(marks.begin(), marks.end(), '!')); }

// The scan keeps its blocks and limits here; each candidate costs one library test, a text
// is made for hits only.
class Suche {
  public:
    Suche(const CollatzSuchAuftrag& a, CollatzSuchZiel& z) : a_(a), ziel_(z) {}

    CollatzSuchErgebnis Los() {
        const Decimal eins(1), zwei(2);
        const Decimal betrag = a_.schritt.IstNegativ() ? -a_.schritt : a_.schritt;
        if (betrag != eins) erg_.vollstaendig = false;
        if (a_.schnell && !a_.schritt.IstNegativ()) return erg_;
        int32_t M = a_.M;
        Decimal Q, L;
        if (a_.schnell) {
            Q = CollatzBandMitte(a_.I, M);
            if (Q <= Decimal(0)) return erg_;
            L = Q / Decimal(5) * Decimal(4);
        }
        Decimal x = a_.start - a_.schritt;
        int32_t zaehler = 0;
        for (;;) {
            x += a_.schritt;
            if (x < zwei) break;
            if (++zaehler > 4096) {
                zaehler = 0;
                DoEvents();
                if (Abbruch) break;
            }
            bool naechstesBand = false;
            if (a_.schnell && x < L) {
                naechstesBand = true;
            } else {
                const Wertung w = a_.nurM ? pruefeM(x) : pruefeI(x);
                if (w == Wertung::Ende) break;
                naechstesBand = a_.schnell && w == Wertung::BandVerlassen;
            }
            if (!naechstesBand) continue;
            // The next band: one multiplication more puts the values a sixth as high.
            ++M;
            Q = CollatzBandMitte(a_.I, M);
            if (Q == Decimal(0)) break;
            L = Q * Decimal(4) / Decimal(5);
            x += (x - Q) / betrag * a_.schritt;
            while (x > Q) x += a_.schritt;
            if (x < zwei) break;
            x -= a_.schritt;
        }
        return erg_;
    }

  private:
    enum class Wertung { Weiter, BandVerlassen, Ende };

    Wertung treffer(const std::string& text, const Decimal& x) {
        ziel_.Zeile(text, &x);
        ++erg_.treffer;
        if (a_.maxTreffer > 0 && erg_.treffer >= a_.maxTreffer) {
            erg_.vollstaendig = false;
            return Wertung::Ende;
        }
        return Wertung::Weiter;
    }

    Wertung pruefeM(const Decimal& x) {
        if (!aUlamTestMult(&x, a_.M)) return Wertung::Weiter;
        const std::string marks = ziel_.Marks(x);
        return treffer(kopf(int32_t(marks.size()), a_.M) + CollatzTabZeile(x, marks, zahlBreite(), a_.dual), x);
    }

    Wertung pruefeI(const Decimal& x) {
        if (!aUlamTest(&x, a_.I)) return Wertung::Weiter;
        const std::string marks = ziel_.Marks(x);
        const int32_t m = ausrufe(marks);
        if (m == vorigesM_) {
            ++block_;
        } else {
            if (block_ > 0) blockSchliessen();
            block_ = 1;
            vorigesM_ = m;
        }
        if (a_.maxBlock != 0 && block_ > a_.maxBlock) {
            erg_.vollstaendig = false;
            return Wertung::BandVerlassen;
        }
        const Wertung w = treffer(kopf(a_.I, m) + CollatzTabZeile(x, marks, zahlBreite(), a_.dual), x);
        // Without a multiplication every hit has the same m: the band holds nothing more.
        if (w == Wertung::Weiter && m == 0) return Wertung::BandVerlassen;
        return w;
    }

    void blockSchliessen() {
        if (a_.maxBlock == 0) ziel_.Zeile(std::to_string(block_) + Text(568), nullptr);
        ziel_.Zeile(Text(569), nullptr);
    }

    size_t zahlBreite() {
        if (breite_ == 0) breite_ = ZahlFormat(a_.start).size();
        return breite_;
    }

    const CollatzSuchAuftrag& a_;
    CollatzSuchZiel& ziel_;
    CollatzSuchErgebnis erg_;
    int32_t vorigesM_ = -999;
    int32_t block_ = 0;
    size_t breite_ = 0;

};

}  // namespace

CollatzSuchErgebnis CollatzSuchen(const CollatzSuchAuftrag& a, CollatzSuchZiel& ziel) {
    return Suche(a, ziel).Los();
}

Decimal CollatzBandMitte(int32_t I, int32_t M) {
    const double q = std::floor(std::ldexp(1.0, I - M) / std::pow(3.0, M));
    if (!(q >= 1.0)) return Decimal(0);
    if (q >= std::ldexp(1.0, 96)) throw Laufzeitfehler(FehlerUeberlauf, TextP1P2(1641, std::to_string(I), std::to_string(M)));
    return Decimal::ausDouble(q);
}

std::string CollatzDual96(const Decimal& x) {
    const uint32_t worte[3] = {x.Hi32, x.Mid32, x.Lo32};
    std::string s;
    for (int w = 0; w < 3; ++w) {
        if (s.empty() && worte[w] == 0 && w < 2) continue;
        for (int b = 31; b >= 0; --b) s += ((worte[w] >> b) & 1U) ? '!' : '.';
    }
    return s;
}

std::string CollatzTabZeile(const Decimal& x, const std::string& marks, size_t zahlBreite, bool dual) {
    const std::string zahl = ZahlFormat(x);
    std::string zeile = zahl.size() < zahlBreite ? std::string(2 * (zahlBreite - zahl.size()), ' ') : std::string();
    zeile += zahl + " " + marks + "  " + std::to_string(marks.size()) + "." + std::to_string(ausrufe(marks));
    if (dual) zeile += "\t" + CollatzDual96(x);
    return zeile;
}

std::string CollatzTabCsv(const Decimal& x, const std::string& marks) {
    return x.Text() + ";" + marks + ";" + std::to_string(marks.size()) + ";" + std::to_string(ausrufe(marks));
}

std::string BildeDifferenz(const Decimal& wert, const std::vector<std::string>& zeilen) {
    if (zeilen.size() < 2) return "";
    const std::string& zeile = zeilen[zeilen.size() - 2];
    Decimal zahl = wert;
    if (zeile.rfind("--", 0) != 0) {
        const size_t anfang = zeile.find_first_not_of(' ');
        if (anfang == std::string::npos) return "-";
        const size_t ende = zeile.find(' ', anfang);
        zahl = TextZuDecimal(zeile.substr(anfang, ende == std::string::npos ? std::string::npos : ende - anfang));
    }
    Decimal d = wert - zahl;
    if (d.IstNegativ()) d = -d;
    const auto b = d.Betrag();
    if (b == 0 || (b & (b - 1)) != 0) return "-";
    return d.Text();
}

}  // namespace sw
