#include "primality/Zwillinge.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "arith/HypText.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr const char* Trenner = "  ---  ";

Hyp HypAus(uint64_t v) {
    Hyp h(3);
    h[1] = int32_t(uint32_t(v));
    h[2] = int32_t(uint32_t(v >> 32));
    h[0] = h[2] ? 2 : 1;
    return h;
}

// The value of a Hyp of at most two words.
uint64_t Wert64(const Hyp& h) {
    uint64_t v = uint32_t(h[1]);
    if (h.anzahl() >= 2) v |= uint64_t(uint32_t(h[2])) << 32;
    return v;
}

Decimal DecimalAus(const Hyp& h) {
    Decimal d;
    aHyp2Dec(&d, h);
    return d;
}

// a + v with room for the carry.
Hyp Plus(const Hyp& a, uint32_t v) {
    Hyp s(a.anzahl() + 2);
    std::memcpy(s.daten(), a.daten(), size_t(a.anzahl() + 1) * sizeof(int32_t));
    aAddHyp32(s, int32_t(v));
    return s;
}

uint64_t Wurzel64(uint64_t x) {
    auto r = uint64_t(std::sqrt(double(x)));
    while (r > 0 && (unsigned __int128)r * r > x) --r;
    while ((unsigned __int128)(r + 1) * (r + 1) <= x) ++r;
    return r;
}

// The search's shared state: the counter and how lines reach the window.
struct Lauf {
    ZwillingeAnzeige& anzeige;
    int64_t anzahl = 0;

    void melden(const Hyp& p, const std::string& zeile) {
        ++anzahl;
        anzeige.Zwilling(p, zeile);
    }
    void endZeile() { anzeige.Zeile(TextP1(1343, ZahlFormat((long long)anzahl))); }
    void meldenDezimal(const Decimal& p) {
        Hyp h(3);
        aDec2Hyp(h, &p);
        melden(h, ZahlFormat(p) + Trenner + ZahlFormat(p + Decimal(2)));
    }
};

// Method 0 over the multiples n of 6 with von <= n - 1 and n + 1 <= von + laenge.
void ZwillingeQuadrat(const Hyp& von, int64_t laenge, Lauf& lauf) {
    const uint32_t rest = uint32_t(aModHyp32(Plus(von, 1), 6));
    const int64_t vorlauf = 1 + (rest ? 6 - rest : 0);  // n - von for the first n
    if (laenge - 1 < vorlauf) return;
    const int64_t runden = (laenge - 1 - vorlauf) / 6 + 1;
    QuadratFolge folge(Plus(von, uint32_t(vorlauf)));
    for (int64_t i = 0; i < runden; ++i) {
        if (!ZwillingeTeilerTest(folge.q(), folge.n())) {
            Hyp p = folge.n();
            aDecHyp(p);
            const Hyp p2 = Plus(p, 2);
            lauf.melden(p, Hyp2Text(p) + Trenner + Hyp2Text(p2));
            DoEvents();
        } else if ((i & 1023) == 1023) {
            DoEvents();  // a long stretch without twins still lets the window breathe
        }
        if (Abbruch) break;
        if (i + 1 < runden) folge.Weiter();
    }
}

// Method 1: consecutive primes of the raster that differ by 2.
void ZwillingePrimaer(const Hyp& von, const Hyp& bis, Lauf& lauf) {
    uint64_t vorige = 0, gesehen = 0;
    PrimzahlenDurchlaufen(Wert64(von), Wert64(bis), [&](uint64_t p) {
        if (vorige && p - vorige == 2) lauf.meldenDezimal(Decimal(int64_t(vorige)));
        vorige = p;
        if ((++gesehen & 0xFFFF) == 0) DoEvents();
        return !Abbruch;
    });
}

// Method 2: the secondary range over the interval, then the same walk over its primes.
bool ZwillingeSekundaer(const Hyp& von, const Hyp& bis, Lauf& lauf) {
    const Decimal v = DecimalAus(von), e = DecimalAus(bis);
    SekundaerFortschrittLoesen();
    lauf.anzeige.WartenZeigen(true);
    const bool gesiebt = SekundaerPruefen(v, e - v);
    lauf.anzeige.WartenZeigen(false);
    if (!gesiebt) return false;
    Zahl128 vorige = 0;
    SekundaerDurchlaufen(v.Betrag(), e.Betrag(), [&](Zahl128 p) {
        if (vorige && p - vorige == 2) lauf.meldenDezimal(Decimal(vorige));
        vorige = p;
        return true;
    });
    return true;
}

// Calls f(c) for each unstruck position unten <= c <= oben, ascending, while f gives true.
template <typename F>
void TertiaerDurchlaufen(int64_t unten, int64_t oben, F&& f) {
    if (oben < unten) return;
    FreieBitsDurchlaufen(SekundaerRaster.data(), uint64_t(unten) / RasterSpanne, SekundaerRaster.size(), uint64_t(0),
                         uint64_t(unten), uint64_t(oben), [&](uint64_t c) { return f(int64_t(c)); });
}

int32_t TertiaerTestNummer(int32_t art) { return art == 4 ? int32_t(TertiaerBpsw) : art; }

// Method 3. vorStart: von - Start, so that the lines show distances from the user's start.
void ZwillingeProbabilistisch(const Hyp& von, int64_t laenge, int64_t vorStart, int32_t art, Lauf& lauf) {
    ZwillingeAnzeige& anzeige = lauf.anzeige;
    Abbruch = false;
    TertiaerStart = von;
    TertiaerLaenge = int32_t(laenge + 1);  // the window is half open; the interval ends at von + laenge
    anzeige.WartenZeigen(true);
    const bool gesiebt = TertiaerSieben(&anzeige);
    if (!gesiebt || Abbruch) {
        anzeige.WartenZeigen(false);
        if (Abbruch) anzeige.Zeile(Text(1344));
        lauf.endZeile();
        return;
    }
    SekundaerSperre sperre;  // the walks below yield while they read and strike the raster
    int64_t kandidaten = TertiaerZaehlen();
    anzeige.KandidatenZeigen(kandidaten);
    const int64_t unten = TertiaerVersatz, oben = int64_t(TertiaerVersatz) + laenge;
    // c is a raster position, a distance from TertiaerBasis.
    const auto frei = [unten](int64_t c) { return TertiaerIstFreiAb(c - unten); };

    // A candidate whose neighbours at distance 2 are both struck belongs to no twin; the test,
    // far dearer than this walk, never sees it.
    int64_t gestrichen = 0;
    TertiaerDurchlaufen(unten, oben - 2, [&](int64_t c) {
        if (frei(c + 2) || (c - 2 >= unten && frei(c - 2))) return true;
        SekundaerRaster[uint64_t(c) / RasterSpanne] |= RestMaske[uint64_t(c) % RasterSpanne];
        --kandidaten;
        if ((++gestrichen & 4095) == 0) {
            anzeige.KandidatenZeigen(kandidaten);
            DoEvents();
        }
        return !Abbruch;
    });
    anzeige.KandidatenZeigen(kandidaten);
    if (!Abbruch) anzeige.KandidatenZeigen(kandidaten - TertiaerZwillingeTesten(TertiaerTestNummer(art), &anzeige));
    anzeige.WartenZeigen(false);

    TertiaerDurchlaufen(unten, oben - 2, [&](int64_t c) {
        if (!frei(c + 2)) return true;
        const int64_t abstand = c - unten + vorStart;
        Hyp p = Plus(TertiaerBasis, uint32_t(c));
        lauf.melden(p, "..." + ZahlFormat((long long)abstand) + Trenner + "..." + ZahlFormat((long long)abstand + 2));
        return true;
    });
    lauf.endZeile();
    if (Abbruch) anzeige.Zeile(Text(1344));
}

// ln x for any Hyp x > 0, from its top words: a double of x itself would overflow above 10^308.
double LnHyp(const Hyp& x) {
    const int32_t n = x.anzahl();
    long double oben = 0;
    for (int32_t i = n; i >= std::max(1, n - 2); --i) oben = oben * 4294967296.0L + uint32_t(x[i]);
    return double(std::log(oben) + (long double)(32 * std::max(0, n - 3)) * std::log(2.0L));
}

constexpr double C2 = 0.6601618158468695739;  // the twin prime constant

// Composite Simpson over [a, b] with n (even) pieces.
template <typename F>
double Simpson(F&& f, double a, double b, int n) {
    const double h = (b - a) / n;
    double s = f(a) + f(b);
    for (int i = 1; i < n; ++i) s += f(a + i * h) * (i % 2 ? 4 : 2);
    return s * h / 3;
}

}  // namespace

QuadratFolge::QuadratFolge(const Hyp& n) : n_(n.anzahl() + 2), q_(2 * n.anzahl() + 4), x_(n.anzahl() + 3) {
    std::memcpy(n_.daten(), n.daten(), size_t(n.anzahl() + 1) * sizeof(int32_t));
    aQuadHyp(q_, n_);
    aDecHyp(q_);
}

void QuadratFolge::platz() {
    const int32_t k = n_.anzahl();
    n_.mindestens(k + 2);
    x_.mindestens(k + 3);
    q_.mindestens(2 * k + 4);
}

void QuadratFolge::Weiter() {
    aAddHyp32(n_, 6);
    platz();
    std::memcpy(x_.daten(), n_.daten(), size_t(n_.anzahl() + 1) * sizeof(int32_t));
    aMulHyp2(x_);
    aSubHyp32(x_, 6);
    aMulHyp32(x_, 6);  // 12 n - 36 for the new n
    aAddHypHyp(q_, x_);
}

bool ZwillingeTeilerTest(const Hyp& q, const Hyp& n) {
    int64_t t = std::min<int64_t>(GrenzeLong, PrimaerGrenze.AlsInt64());
    // The root of n + 1, not of n: n + 1 may be the square of a prime (49 = 48 + 1).
    if (n.anzahl() <= 2) t = std::min<int64_t>(t, int64_t(Wurzel64(Wert64(n) + 1)));
    if (t < 5) return false;
    if (t >= 29) {
        const uint32_t r = uint32_t(aModHyp32(q, 1078282205));  // 5 * 7 * ... * 29
        for (uint32_t d : {5u, 7u, 11u, 13u, 17u, 19u, 23u, 29u}) {
            if (r % d == 0) return true;
        }
    }
    if (t >= 47) {
        const uint32_t r = uint32_t(aModHyp32(q, 95041567));  // 31 * 37 * 41 * 43 * 47
        for (uint32_t d : {31u, 37u, 41u, 43u, 47u}) {
            if (r % d == 0) return true;
        }
    }
    bool teiler = false;
    // One wide remainder per further prime; the raster walk finds the primes by counting
    // leading zeros, so the remainders are all that costs.
    PrimzahlenDurchlaufen(t >= 47 ? 53 : t >= 29 ? 31 : 5, uint64_t(t), [&](uint64_t d) {
        teiler = aModHyp32(q, int32_t(d)) == 0;
        return !teiler;
    });
    return teiler;
}

bool EingabePruefen(const Hyp& start, int32_t intervall, int32_t verfahren) {
    if (!RasterBereit) {
        MsgInfo(1002);
        return false;
    }
    const Hyp e = Plus(start, uint32_t(std::max(intervall, 0)));
    switch (verfahren) {
        case VerfahrenQuadrat:
            if (aCmpHypDec(e, &PrimaerQuadrat) > 0) MsgInfo(1340);
            return true;
        case VerfahrenPrimaer:
            if (aCmpHypDec(e, &PrimaerGrenze) > 0) {
                MsgInfoP1(1341, ZahlFormat(PrimaerGrenze));
                return false;
            }
            return true;
        case VerfahrenSekundaer:
            if (aCmpHypDec(e, &PrimaerQuadrat) > 0) {
                MsgInfoP1(1342, ZahlFormat(PrimaerQuadrat));
                return false;
            }
            return true;
        default: return true;
    }
}

int64_t ZwillingeSuchen(const ZwillingeAuftrag& a, ZwillingeAnzeige& anzeige) {
    Lauf lauf{anzeige};
    const int64_t intervall = std::max(a.intervall, 0);
    Hyp von = a.start;
    int64_t laenge = intervall, vorStart = 0;
    // The raster has no bits for 3 and 5, and no method reaches 5 from 7: the pairs below 11
    // are made here. No twin begins at 7, 8, 9 or 10, so the methods start at 11.
    if (a.start.anzahl() == 1 && uint32_t(a.start[1]) < 11) {
        const int64_t s = uint32_t(a.start[1]), e = s + intervall;
        if (s <= 3 && e >= 5) lauf.meldenDezimal(Decimal(3));
        if (s <= 5 && e >= 7) lauf.meldenDezimal(Decimal(5));
        von = HypAus(11);
        vorStart = 11 - s;
        laenge = e - 11;
    }
    if (laenge >= 2) {
        const Hyp bis = Plus(von, uint32_t(laenge));
        switch (a.verfahren) {
            case VerfahrenQuadrat: ZwillingeQuadrat(von, laenge, lauf); break;
            case VerfahrenPrimaer: ZwillingePrimaer(von, bis, lauf); break;
            case VerfahrenSekundaer:
                if (!ZwillingeSekundaer(von, bis, lauf)) return lauf.anzahl;
                break;
            default: ZwillingeProbabilistisch(von, laenge, vorStart, a.art, lauf); return lauf.anzahl;
        }
    }
    lauf.endZeile();
    return lauf.anzahl;
}

double ErwarteteZwillinge(const Hyp& start, double laenge) {
    if (laenge <= 0) return 0;
    double integral;
    if (start.anzahl() <= 2 && Wert64(start) < (uint64_t(1) << 52)) {
        // Low starts: the integrand changes fast near 2, so integrate over s = ln t, where
        // dt / ln^2 t = e^s / s^2 ds is smooth.
        const double a = double(Wert64(start));
        const double unten = std::max(a, 2.0), oben = a + laenge;
        if (oben <= unten) return 0;
        integral = Simpson([](double s) { return std::exp(s) / (s * s); }, std::log(unten), std::log(oben), 2000);
    } else {
        // High starts: ln t = ln a + ln(1 + u / a) barely moves over the interval.
        const double lnA = LnHyp(start);
        const double a = lnA < 700 ? std::exp(lnA) : HUGE_VAL;
        integral = Simpson(
            [&](double u) {
                const double l = lnA + std::log1p(u / a);
                return 1 / (l * l);
            },
            0, laenge, 64);
    }
    return 2 * C2 * integral;
}

int32_t ErwartungsIntervall(const Hyp& start) {
    constexpr double Ziel = 25;
    if (ErwarteteZwillinge(start, GrenzeLong) < Ziel) return GrenzeLong;
    double unten = 0, oben = 16;
    while (ErwarteteZwillinge(start, oben) < Ziel) unten = oben, oben *= 2;
    while (oben - unten > 0.5) {
        const double mitte = (unten + oben) / 2;
        (ErwarteteZwillinge(start, mitte) < Ziel ? unten : oben) = mitte;
    }
    return int32_t(std::min<double>(std::ceil(oben), GrenzeLong));
}

}  // namespace sw
