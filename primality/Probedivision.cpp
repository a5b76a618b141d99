#include "primality/Probedivision.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "arith/HypText.h"
#include "arith/basWurzel.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/HypMpz.h"
#include "primality/Takt.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr int64_t kRundeAlle = 4096;  // divisors between two turns of the event loop

bool istNull(const Hyp& h) { return h.anzahl() <= 1 && h[1] == 0; }

// The residues prime to 30, ascending, and for each the gap down to the one below it.
constexpr int32_t kRad[8] = {1, 7, 11, 13, 17, 19, 23, 29};
constexpr int32_t kAbwaerts[8] = {2, 6, 4, 2, 4, 2, 4, 6};

// a / b from the top 96 bits of each: the quotient of two numbers of any length as a double,
// +inf when it is beyond a double's range.
double verhaeltnis(const Hyp& a, const Hyp& b) {
    auto oben = [](const Hyp& h, int32_t& exponent) {
        const int32_t c = h.anzahl();
        double v = 0;
        for (int32_t i = c; i >= 1 && i > c - 3; --i) v = v * 4294967296.0 + uint32_t(h[i]);
        exponent = 32 * std::max(c - 3, 0);
        return v;
    };
    int32_t ea = 0, eb = 0;
    const double ma = oben(a, ea), mb = oben(b, eb);
    return std::ldexp(ma / mb, ea - eb);
}

// v := v + w for a non-negative word-sized w.
void plusWort(Hyp& v, int64_t w) {
    while (w > 0) {
        const int32_t teil = int32_t(std::min<int64_t>(w, 0x7FFFFFFF));
        aAddHyp32(v, teil);
        w -= teil;
    }
}

}  // namespace

int64_t KleinsterTeilerAb7(const Hyp& n, int64_t bis, const std::function<bool(int64_t d)>& runde) {
    int64_t teiler = 0, gezaehlt = 0;
    bool gestoppt = false;
    // Each candidate costs one pass over n's words, by GMP's remainder with a precomputed
    // inverse (several times faster than a division per word). The turn comes every 4096
    // candidates, and sooner when a number of 100,000 digits makes them slow, so that the
    // stop button answers at once.
    const Mpz z(n);
    Takt takt;
    auto pruefen = [&](int64_t d) {
        if (mpz_fdiv_ui(z, (unsigned long)d) == 0) {
            teiler = d;
            return false;
        }
        if ((++gezaehlt % kRundeAlle == 0 || takt.Faellig()) && !runde(d)) {
            gestoppt = true;
            return false;
        }
        return true;
    };
    if (bis < 7) return 0;
    if (RasterBereit && RasterEcht && PrimaerGrenze >= Decimal(bis)) {
        PrimzahlenDurchlaufen(7, uint64_t(bis), [&](uint64_t p) { return pruefen(int64_t(p)); });
    } else {
        // The wheel of 30 from 7: gaps 4 2 4 2 4 6 2 6.
        int i = 1;
        for (int64_t d = 7; d <= bis; d += RadSchritt[i], i = (i + 1) & 7) {
            if (!pruefen(d)) break;
        }
    }
    return gestoppt ? -1 : teiler;
}

bool Vorpruefung(const Hyp& zahl, int32_t& grenze, PrimTestBericht& bericht) {
    if (zahl.anzahl() == 1) {
        const uint32_t w = uint32_t(zahl[1]);
        if (w == 2 || w == 3 || w == 5) {
            bericht.Urteil(PrimUrteil::Prim, true, Text(140));
            return false;
        }
        // 1 would pass every division and count as prime.
        if (w == 1) {
            bericht.Urteil(PrimUrteil::Keines, false, Text(1202));
            return false;
        }
    }
    if (RestMaske[aModHyp32(zahl, 120)] == 0) {
        bericht.Urteil(PrimUrteil::Zusammengesetzt, true, Text(141));
        return false;
    }
    bool bewiesen = false;
    if (grenze > 6) {
        const Hyp wurzel = HypWurzel(zahl, true);
        if (wurzel.anzahl() == 1 && wurzel[1] > 0 && wurzel[1] < grenze) {
            grenze = wurzel[1];
            bewiesen = true;
        }
    }
    const int64_t d = KleinsterTeilerAb7(zahl, grenze, [&](int64_t bisher) {
        DoEvents();
        if (Abbruch) return false;
        bericht.Zwischenstand(ZahlFormat(static_cast<long long>(bisher)));
        return true;
    });
    if (d < 0) return false;
    if (d > 0) {
        bericht.Urteil(PrimUrteil::Zusammengesetzt, true, TextP1(142, ZahlFormat(static_cast<long long>(d))));
        return false;
    }
    if (bewiesen) {
        bericht.Urteil(PrimUrteil::Prim, true, Text(140));
        return false;
    }
    return true;
}

bool WurzelProbedivision(const Hyp& zahl, int32_t grenze, PrimTestBericht& bericht) {
    const int32_t platz = zahl.anzahl() + 3;
    Hyp d = HypWurzel(zahl, true);
    d.mindestens(platz);
    bericht.Zwischenstand(Hyp2Anzeige(d));
    const int64_t untere = std::max<int64_t>(int64_t(grenze) / 30 * 30 + 1, 7);
    auto unterGrenze = [&](int64_t minus) {
        return d.anzahl() == 1 && int64_t(uint32_t(d[1])) - minus < untere;
    };
    // d := the greatest number prime to 30 not above the root.
    const int32_t rest = aModHyp32(d, 30);
    int stelle = 7;
    while (stelle > 0 && kRad[stelle] > rest) --stelle;
    if (rest == 0) stelle = 7;  // a multiple of 30 goes to the 29 below it
    const int32_t abstand = rest == 0 ? 1 : rest - kRad[stelle];
    if (unterGrenze(abstand)) {
        bericht.Urteil(PrimUrteil::Prim, true, Text(140));
        return true;
    }
    aSubHyp32(d, abstand);

    // zahl = q d + r, 0 <= r < d. The step adds k q for the gap k in 2, 4, 6: the three
    // multiples are kept, so that the step is one addition and a few subtractions.
    Hyp r(platz), q(platz), t(platz);
    Hyp vielfach[3] = {Hyp(platz), Hyp(platz), Hyp(platz)};
    auto neuTeilen = [&] {
        anDivHypHyp(q, r, zahl, d);
        for (int j = 0; j < 3; ++j) {
            std::memcpy(vielfach[j].daten(), q.daten(), size_t(q.anzahl() + 1) * sizeof(int32_t));
            aMulHyp32(vielfach[j], 2 * (j + 1));
        }
    };
    neuTeilen();

    // Early on the quotient rises by at most a few per step, and subtracting d that often is
    // cheapest. Once a step needs more than kPhaseEins subtractions, the rise is estimated
    // from the top words of r and d and taken out by one word product, the last units again
    // by subtraction; a rise beyond a word forms quotient and rest anew (small numbers only,
    // where the walk has come far below the root).
    constexpr uint32_t kPhaseEins = 8;
    bool phaseZwei = false;
    Takt takt;
    for (;;) {
        if (istNull(r)) {
            bericht.Urteil(PrimUrteil::Zusammengesetzt, true, TextP1(142, Hyp2Anzeige(d)));
            return false;
        }
        const int32_t k = kAbwaerts[stelle];
        if (unterGrenze(k)) break;
        stelle = (stelle + 7) & 7;
        aSubHyp32(d, k);
        aAddHypHyp(r, vielfach[k / 2 - 1]);
        int64_t anstieg = 0;
        if (phaseZwei) {
            const double schaetzung = verhaeltnis(r, d) * (1 - 1e-9) - 1;
            if (!(schaetzung < double(1 << 28))) {
                neuTeilen();
                anstieg = -1;
            } else if (schaetzung >= 1) {
                anstieg = int64_t(schaetzung);
                std::memcpy(t.daten(), d.daten(), size_t(d.anzahl() + 1) * sizeof(int32_t));
                aMulHyp32(t, int32_t(anstieg));
                aSubHypHyp(r, t);
            }
        }
        if (anstieg >= 0) {
            while (aSubHypHyp(r, d) >= 0) ++anstieg;
            if (anstieg > kPhaseEins) phaseZwei = true;
            for (int j = 0; j < 3; ++j) plusWort(vielfach[j], 2 * (j + 1) * anstieg);
        }
        if (takt.Faellig()) {
            DoEvents();
            if (Abbruch) return false;
            bericht.Zwischenstand(Hyp2Anzeige(d));
        }
    }
    bericht.Urteil(PrimUrteil::Prim, true, Text(140));
    return true;
}

bool HatKleinenTeiler(const Hyp& n, int32_t limit) {
    if (RestMaske[aMODHyp120(n)] == 0) return true;
    int64_t bis = limit;
    const Hyp wurzel = HypWurzel(n, true);
    if (wurzel.anzahl() == 1) bis = std::min<int64_t>(bis, uint32_t(wurzel[1]));
    return KleinsterTeilerAb7(n, bis, [](int64_t) {
               DoEvents();
               return !Abbruch;
           }) > 0;
}

bool ProbedivisionHyp(const Hyp& n) {
    if (n.anzahl() == 1 && uint32_t(n[1]) <= 5) return n[1] == 2 || n[1] == 3 || n[1] == 5;
    if (RestMaske[aMODHyp120(n)] == 0) return false;
    const Hyp wurzel = HypWurzel(n, true);
    if (wurzel.anzahl() > 1 || wurzel[1] < 0) {
        MsgInfo(1203);
        return false;
    }
    return KleinsterTeilerAb7(n, wurzel[1], [](int64_t) {
               DoEvents();
               return !Abbruch;
           }) == 0;
}

bool ProbedivisionPrim(uint64_t n) {
    if (n < 2) return false;
    if (n % 2 == 0) return n == 2;
    for (uint64_t d = 3; d * d <= n; d += 2) {
        if (n % d == 0) return false;
    }
    return true;
}

}  // namespace sw
