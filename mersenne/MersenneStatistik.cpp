// MersenneStatistik: the counts over the Mersenne database (see MersenneStatistik.h).
#include "mersenne/MersenneStatistik.h"

#include <algorithm>
#include <cstdio>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneSpeicher.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

// The old platform's "invalid procedure call or argument": a range or modulus that cannot be asked.
constexpr int kEingabeFehler = 5;

struct Zeile {
    int32_t p = 0;
    int32_t mersenne = 0;
    std::string teiler;   // "0" when null
    std::string faktorS;  // "" when null
};

void bereichPruefen(int64_t von, int64_t bis) {
    if (von >= bis) throw Laufzeitfehler(kEingabeFehler, Text(1872));
}

// Prime counts and walks come from the raster; beyond its end they would silently read 0.
void rasterPruefen(int64_t bis) {
    if (Decimal(bis) > PrimaerGrenze) {
        throw Laufzeitfehler(kEingabeFehler, TextP1P2(1871, ZahlFormat(Decimal(bis)), ZahlFormat(PrimaerGrenze)));
    }
}

int64_t primAnzahl(int64_t von, int64_t bis) {
    if (bis < von) return 0;
    return PrimAnzahl(Decimal(von), Decimal(bis)).Wert();
}

// Calls f(Zeile) for every row von <= p <= bis with the given status, in ascending order,
// through the store's read-only walk. A range without any segment file is refused, since its
// counts would all read 0. Questions that need only the exponent and its status leave the
// two texts out (mitTexten false): at a million rows, copying them is most of the time.
template <typename F>
void zeilenLesen(int64_t von, int64_t bis, DbStatusWahl status, bool mitTexten, F&& f) {
    Zeile z;
    const bool gefunden = DbSpeicher().Durchlaufen(von, bis, status, mitTexten, [&](int32_t p, const PrimZeile& r) {
        z.p = p;
        z.mersenne = r.mersenne;
        if (mitTexten) {
            z.teiler = r.teiler;
            z.faktorS = r.faktorS;
        }
        f(z);
    });
    if (!gefunden) throw Laufzeitfehler(DbFehlerNummer, TextP1(1870, DbDateiPfad(DbSegment(std::max<int64_t>(von, 0)))));
}

std::string_view ersterTeiler(const std::string& teiler) {
    return std::string_view(teiler).substr(0, teiler.find('x'));
}

bool einTeiler(const Zeile& z) { return z.teiler.find('x') == std::string::npos; }

// k of the first divisor as decimal digits: the stored FaktorS, computed for a row that lacks it.
std::string kVon(const Zeile& z) {
    if (!z.faktorS.empty()) return z.faktorS;
    const std::string_view q = ersterTeiler(z.teiler);
    if (q.empty() || q == "0") return "";
    return FaktorK(std::string(q), z.p);
}

// Whether the digits k stand for a number <= grenze (a k of 20 digits exceeds any 64-bit limit).
bool hoechstens(const std::string& k, int64_t grenze) {
    if (k.empty() || k.size() > 19) return k.empty();
    return std::stoull(k) <= uint64_t(grenze);
}

void modulPruefen(int64_t m, int64_t hoechstens) {
    if (m < 1 || m > hoechstens) throw Laufzeitfehler(kEingabeFehler, TextP1(1873, hoechstens));
}

}  // namespace

uint32_t ZiffernRest(std::string_view ziffern, uint32_t modulus) {
    uint64_t r = 0;
    for (char c : ziffern) {
        if (c < '0' || c > '9') break;
        r = (r * 10 + uint64_t(c - '0')) % modulus;
    }
    return uint32_t(r);
}

std::string AnteilText(int64_t teil, int64_t ganzes) {
    if (ganzes == 0) return "";
    char text[32];
    std::snprintf(text, sizeof text, "%07.4f %%", 100.0 * double(teil) / double(ganzes));
    return text;
}

std::vector<StatusStrecke> StatusStrecken(int64_t von, int64_t bis, int64_t skala) {
    bereichPruefen(von, bis);
    if (skala < 1) throw Laufzeitfehler(kEingabeFehler, Text(1874));
    rasterPruefen(bis - 1);
    std::vector<StatusStrecke> strecken;
    for (int64_t a = von; a < bis; a += skala) {
        StatusStrecke s;
        s.von = a;
        s.bis = std::min(a + skala, bis);
        s.primzahlen = primAnzahl(s.von, s.bis - 1);
        strecken.push_back(s);
    }
    // One pass over the settled rows; the stretch of a row is a division, not a search.
    zeilenLesen(von, bis - 1, DbStatusWahl::NichtNull, false, [&](const Zeile& z) { ++strecken[size_t((z.p - von) / skala)].erledigt; });
    return strecken;
}

KlassenUebersicht StatusKlassen(int64_t von, int64_t bis) {
    bereichPruefen(von, bis);
    KlassenUebersicht u;
    zeilenLesen(von, bis, DbStatusWahl::Geteilt, true, [&](const Zeile& z) {
        const std::string_view q = ersterTeiler(z.teiler);
        if (q.empty() || q == "0") return;
        ++u.zeilen;
        const uint32_t q8 = ZiffernRest(q, 8);
        const int qi = q8 == 1 ? 0 : q8 == 7 ? 1 : -1;  // other classes only for a false entry
        const int pj = z.p % 3 == 1 ? 0 : z.p % 3 == 2 ? 1 : -1;
        if (qi == 0) ++u.q1;
        if (qi == 1) ++u.q7;
        if (pj == 0) ++u.p3Eins;
        if (pj == 1) ++u.p3Zwei;
        if (z.p % 4 == 1) ++u.plus;
        if (z.p % 4 == 3) ++u.minus;
        if (qi >= 0 && pj >= 0) ++u.qu[qi][pj];
    });
    return u;
}

std::vector<KSchritt> KStatistik(int64_t von, int64_t bis, int64_t schritt, int64_t kMax) {
    bereichPruefen(von, bis);
    if (schritt < 1) throw Laufzeitfehler(kEingabeFehler, Text(1874));
    rasterPruefen(bis);
    std::vector<KSchritt> schritte;
    for (int64_t a = von; a <= bis; a += schritt) {
        KSchritt s;
        s.von = a;
        s.bis = std::min(a + schritt - 1, bis);
        s.primzahlen = primAnzahl(s.von, s.bis);
        schritte.push_back(s);
        if (bis - a < schritt) break;  // the next step would overflow past bis
    }
    zeilenLesen(von, bis, DbStatusWahl::Geteilt, true, [&](const Zeile& z) {
        const std::string k = kVon(z);
        if (k.empty() || (kMax != 0 && !hoechstens(k, kMax))) return;
        KSchritt& s = schritte[size_t((z.p - von) / schritt)];
        ++s.alle;
        ++s.klasse[ZiffernRest(k, 4)];
    });
    return schritte;
}

std::vector<AbstandZeile> Abstaende(int64_t von, int64_t bis, int64_t abstandBis, bool nurLuecken, bool nachAnzahl) {
    bereichPruefen(von, bis);
    if (abstandBis < 1) throw Laufzeitfehler(kEingabeFehler, Text(1874));
    std::vector<int32_t> exponenten;
    zeilenLesen(von, bis, DbStatusWahl::Geteilt, false, [&](const Zeile& z) { exponenten.push_back(z.p); });
    // Differences are even above 2; the table is indexed by d / 2 and grows with what occurs.
    std::vector<int64_t> anzahl;
    int64_t gesamt = 0;
    const auto zaehlen = [&](int64_t d) {
        const size_t i = size_t(d / 2);
        if (i >= anzahl.size()) anzahl.resize(i + 1);
        ++anzahl[i];
        ++gesamt;
    };
    for (size_t i = 1; i < exponenten.size(); ++i) {
        // The inner walk ends at the first difference beyond the limit, so it is short.
        for (size_t j = i; j-- > 0;) {
            const int64_t d = int64_t(exponenten[i]) - exponenten[j];
            if (d > abstandBis) break;
            zaehlen(d);
            if (nurLuecken) break;
        }
    }
    std::vector<AbstandZeile> zeilen;
    for (size_t i = 0; i < anzahl.size(); ++i) {
        if (anzahl[i] == 0) continue;
        // Index 0 holds the one odd difference, 3 - 2 = 1.
        zeilen.push_back({i == 0 ? 1 : int64_t(2 * i), anzahl[i], 100.0 * double(anzahl[i]) / double(gesamt)});
    }
    if (nachAnzahl) {
        std::stable_sort(zeilen.begin(), zeilen.end(),
                         [](const AbstandZeile& a, const AbstandZeile& b) { return a.anzahl > b.anzahl; });
    }
    return zeilen;
}

std::string AbstandText(const AbstandZeile& z, bool nurLuecken) {
    char anteil[32];
    std::snprintf(anteil, sizeof anteil, "%06.3f", z.prozent);
    std::string a = anteil;
    std::replace(a.begin(), a.end(), '.', ',');
    return std::string(nurLuecken ? "Lücke " : "Abstand ") + std::to_string(z.differenz) + ": " +
           ZahlFormat(Decimal(z.anzahl)) + " >>> " + a;
}

RestTabelle RestAnalyse(int64_t von, int64_t bis, AnalyseWert wert, int32_t modulus, int32_t pModulus) {
    bereichPruefen(von, bis);
    modulPruefen(modulus, 1 << 20);
    modulPruefen(pModulus, 1 << 10);
    RestTabelle t;
    t.modulus = modulus;
    t.pModulus = pModulus;
    t.anzahl.assign(size_t(modulus) * size_t(pModulus), 0);
    zeilenLesen(von, bis, DbStatusWahl::Geteilt, true, [&](const Zeile& z) {
        if (!einTeiler(z)) {
            ++t.uebersprungen;
            return;
        }
        const std::string k = wert == AnalyseWert::K ? kVon(z) : std::string();
        const std::string_view w = wert == AnalyseWert::K ? std::string_view(k) : std::string_view(z.teiler);
        if (w.empty() || w == "0") return;
        ++t.zeilen;
        ++t.at(int32_t(z.p % pModulus), int32_t(ZiffernRest(w, uint32_t(modulus))));
    });
    return t;
}

std::vector<PrimKlasse> PrimKlassen(int64_t von, int64_t bis, const std::vector<int32_t>& moduln) {
    bereichPruefen(von, bis);
    rasterPruefen(bis);
    std::vector<PrimKlasse> klassen;
    std::vector<size_t> anfang;
    for (int32_t m : moduln) {
        modulPruefen(m, 100000);
        anfang.push_back(klassen.size());
        for (int32_t r = 0; r < m; ++r) klassen.push_back({m, r, 0, 0, 0});
    }
    const auto klasse = [&](size_t i, int64_t n) -> PrimKlasse& { return klassen[anfang[i] + size_t(n % moduln[i])]; };
    PrimzahlenDurchlaufen(uint64_t(std::max<int64_t>(von, 0)), uint64_t(bis), [&](uint64_t p) {
        for (size_t i = 0; i < moduln.size(); ++i) ++klasse(i, int64_t(p)).primzahlen;
        return true;
    });
    zeilenLesen(von, bis, DbStatusWahl::NichtNull, false, [&](const Zeile& z) {
        for (size_t i = 0; i < moduln.size(); ++i) {
            PrimKlasse& k = klasse(i, z.p);
            if (z.mersenne == 2) ++k.geteilt;
            if (z.mersenne == 1) ++k.mersennePrim;
        }
    });
    return klassen;
}

}  // namespace sw
