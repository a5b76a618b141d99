#include "primality/PrimTestKpl.h"

#include <gmp.h>

#include <algorithm>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "arith/basWurzel.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "mersenne/basLucas.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "primality/PrimTests.h"
#include "primality/PrimzahlTest.h"
#include "primality/Probedivision.h"
#include "sieve/basExtrem.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// The steps between the candidates of modes 2 and 3: 1|5 mod 6 from 5 and from 1; the numbers
// prime to 30 from 29, 1, 7, 11, 13, 17, 19, 23.
constexpr int32_t kSchritte6[2] = {2, 4};
constexpr int32_t kSchritte30[8] = {2, 6, 4, 2, 4, 2, 4, 6};
constexpr int32_t kReste30[8] = {29, 1, 7, 11, 13, 17, 19, 23};

Decimal alsDecimal(const Hyp& h) {
    Decimal d;
    aHyp2Dec(&d, h);
    return d;
}

Hyp ausDecimal(const Decimal& d) {
    Hyp h(4);
    aDec2Hyp(h, &d);
    return h;
}

bool ueberPrimaerGrenze(const Hyp& h) { return aGetHighBitHyp(h) >= 95 || alsDecimal(h) > PrimaerGrenze; }

// 0 .. 6 lie below what the tests are made for (Miller-Rabin calls 2 composite, Perrin 3):
// they are decided here, for every method alike.
std::optional<bool> kleineZahl(const Hyp& n) {
    if (n.anzahl() > 1 || uint32_t(n[1]) >= 7) return std::nullopt;
    return n[1] == 2 || n[1] == 3 || n[1] == 5;
}

// Miller-Rabin rounds of this run draw their base at random; the base set elsewhere comes back.
class ZufallsBasis {
public:
    ZufallsBasis() : alt_(MillerRabinBasis) { MillerRabinBasis = -2; }
    ~ZufallsBasis() { MillerRabinBasis = alt_; }

private:
    int32_t alt_;
};

// The method's verdict on n; nothing when the run must end (a trial division that cannot be
// done, after its message). plus gets QuadratSuche's value for method 5.
std::optional<bool> methodeAnwenden(const KplLaufDaten& d, const Hyp& n, int32_t& plus) {
    switch (d.TestNr) {
        case KplProbedivision: {
            // A root beyond the 32-bit divisors cannot be walked; saying "composite" for every
            // candidate would fill the list with wrong lines.
            const Hyp wurzel = HypWurzel(n, true);
            if (wurzel.anzahl() > 1 || wurzel[1] < 0) {
                MsgInfo(1203);
                return std::nullopt;
            }
            return ProbedivisionHyp(n);
        }
        case KplPerrin: return PerrinTest(n);
        case KplMillerRabin: {
            const ZufallsBasis basis;
            return RundenTesten(d.Runden, [&n] { return MillerRabin(n); });
        }
        case KplStrassen: return RundenTesten(d.Runden, [&n] { return StrassenTest(n); });
        case KplPerrinPlus:
            if (!PerrinTest(n)) return false;
            plus = QuadratSuche(n, d.PerrinPlus);
            return true;
        // Fermat's method splits odd numbers only: an n of 2 mod 4 is no difference of squares,
        // and the walk would call it prime.
        case KplFermatSuche: return (n[1] & 1) != 0 && FermatSuche(n);
        case KplFermat: return FermatTest(n);
        default: return BpswTest(n);
    }
}

// Lines and counts of one run.
class Liste {
public:
    Liste(KplAnzeige& anzeige, KplErgebnis& ergebnis) : anzeige_(anzeige), ergebnis_(ergebnis) {}
    void operator()(const std::string& text) {
        anzeige_.Zeile(text);
        ++ergebnis_.zeilen;
    }
    void Abschluss() {
        ergebnis_.abgebrochen = Abbruch;
        anzeige_.Zeile(TextP1P2(131, ZahlFormat((long long)ergebnis_.zeilen), ZahlFormat((long long)ergebnis_.pseudo)));
        if (ergebnis_.abgebrochen) anzeige_.Zeile(Text(132));
    }

private:
    KplAnzeige& anzeige_;
    KplErgebnis& ergebnis_;
};

// The step to the next candidate (modes 0 to 3); mode 4 is the caller's.
int64_t schritt(int32_t modus, int32_t& index) {
    if (modus == 0) return 1;
    if (modus == 1) return 2;
    return TabellenSchritt(modus, index);
}

// Mode 4's next prime after n, put into n; the step, 0 when the raster has no more.
int64_t naechstePrimzahl(Hyp& n) {
    const Decimal alt = alsDecimal(n);
    const Decimal neu = NaechstePrim(alt);
    if (neu.IstNull()) return 0;
    n = ausDecimal(neu);
    return (neu - alt).AlsInt64();
}

void verdictListen(const KplLaufDaten& d, const Hyp& n, bool prim, int32_t plus, Liste& liste,
                   KplErgebnis& erg) {
    if (!prim && !d.Pruefen) return;
    const std::string zahl = Hyp2Anzeige(n);
    if (!prim) {
        if (SiebStatus(n) == SiebUrteil::Prim) liste(TextP1(505, zahl));
        return;
    }
    if (!d.Pruefen) {
        const std::string vorn = d.TestNr == KplPerrinPlus ? TextP1(1324, plus) + "   " : "";
        liste(TextP1P2(130, vorn + zahl, d.TestName));
        return;
    }
    switch (SiebStatus(n)) {
        case SiebUrteil::Prim: ++erg.bestaetigt; break;
        case SiebUrteil::Ausserhalb: liste(TextP1(126, zahl)); break;
        case SiebUrteil::Zusammengesetzt:
            ++erg.pseudo;
            if (d.TestNr != KplPerrinPlus) {
                liste(TextP1(129, zahl));
            } else if (d.PerrinPlus < plus) {
                liste(TextP1P2(128, zahl, ZahlFormat((long long)d.PerrinPlus)));
            } else {
                liste(TextP1P2(127, zahl, TextP1(1324, plus)));
            }
            break;
    }
}

// The two runs below list their verdicts from an aligned start (step index `index`); each says
// whether its list gets the closing summary (a raster that could not be had has spoken already).
bool intervallLauf(KplLaufDaten& d, KplAnzeige& anzeige, Liste& liste, KplErgebnis& erg, int32_t index) {
    // The sieve check reads the shared raster between the yields of the whole run.
    std::optional<SekundaerSperre> sperre;
    if (d.Pruefen) {
        TertiaerStart = d.Start;
        TertiaerLaenge = int32_t(d.Intervall + 1);  // the window is half open, the run includes its end
        anzeige.SiebWarten(true);
        bool gesiebt = false;
        try {
            gesiebt = TertiaerSieben(anzeige.SiebFenster());
        } catch (...) {
            anzeige.SiebWarten(false);
            throw;
        }
        anzeige.SiebWarten(false);
        if (!gesiebt) {
            // A raster that could not be had has said so; a stop in the sieve is a stopped run.
            return Abbruch;
        }
        sperre.emplace();
    }
    Hyp n(d.Start);
    int64_t gelaufen = 0;
    for (int64_t gezeigt = 0; !Abbruch; ++gezeigt) {
        if (gezeigt % (n.anzahl() == 1 ? 4096 : 4) == 0) anzeige.ZahlZeigen(Hyp2Anzeige(n));
        int32_t plus = 0;
        std::optional<bool> prim = kleineZahl(n);
        if (!prim && d.VorFilter > 0 && HatKleinenTeiler(n, d.VorFilter)) prim = false;
        if (!prim) prim = methodeAnwenden(d, n, plus);
        if (!prim) break;
        // A method stopped half-way answers "composite"; that answer is not listed.
        if (Abbruch) break;
        verdictListen(d, n, *prim, plus, liste, erg);
        int64_t weiter;
        if (d.StepModus == 4) {
            weiter = naechstePrimzahl(n);
            if (weiter == 0) break;
        } else {
            weiter = schritt(d.StepModus, index);
            n.mindestens(n.anzahl() + 1);
            aAddHyp32(n, int32_t(weiter));
        }
        gelaufen += weiter;
        if (gelaufen > d.Intervall) break;
        DoEvents();
    }
    return true;
}

bool mersenneLauf(KplLaufDaten& d, KplAnzeige& anzeige, Liste& liste, int32_t index) {
    int64_t p = uint32_t(d.Start[1]);
    int64_t gelaufen = 0;
    while (!Abbruch && p <= KplHoechstExponent) {
        anzeige.ZahlZeigen(ZahlFormat((long long)p));
        const std::string name = "2^" + std::to_string(p) + "-1";
        int32_t plus = 0;
        std::optional<bool> prim;
        if (d.TestNr == KplLucasLehmer) {
            const LucasErgebnis e = LucasLehmer(uint32_t(p));
            if (e != LucasErgebnis::Abgebrochen) prim = e == LucasErgebnis::Prim;
        } else {
            const Hyp n = Auswerten(name);
            prim = kleineZahl(n);
            if (!prim) prim = methodeAnwenden(d, n, plus);
        }
        if (!prim || Abbruch) break;
        std::string urteil = Text(*prim ? 1322 : 1323);
        if (d.TestNr == KplPerrinPlus && *prim) urteil += "   " + TextP1(1324, plus);
        liste(TextP1P2(133, name, urteil));
        int64_t weiter;
        if (d.StepModus == 4) {
            const int32_t neu = NaechstePrimLong(int32_t(p));
            if (neu == 0) break;
            weiter = neu - p;
        } else {
            weiter = schritt(d.StepModus, index);
        }
        p += weiter;
        gelaufen += weiter;
        if (gelaufen > d.Intervall) break;
        DoEvents();
    }
    return true;
}

}  // namespace

std::optional<KplLaufDaten> EingabePruefen(KplEingabe& e) {
    e.von = Trimmen(e.von);
    if (e.von.empty() || e.von == "0" || e.von == "1") e.von = "2";
    KplLaufDaten d;
    d.Runden = std::max(e.runden, 1);
    if (e.zweier) {
        // An exponent is a plain number; a formula or a word has no place here.
        const bool ziffern = std::all_of(e.von.begin(), e.von.end(), [](char c) {
            return (c >= '0' && c <= '9') || c == '.' || (!FormatZeichen.empty() && c == FormatZeichen[0]);
        });
        int64_t p = -1;
        if (ziffern) {
            try {
                p = TextZuDecimal(e.von).AlsInt64();
            } catch (const Laufzeitfehler&) {
                p = -1;
            }
        }
        if (p < 2 || p > KplHoechstExponent) {
            MsgInfoP1(1320, ZahlFormat((long long)KplHoechstExponent));
            return std::nullopt;
        }
        d.Start = ausDecimal(Decimal(p));
    } else {
        d.Start = Formel2Hyp(PrimTestEingabe(e.von));
        if (aCmpHyp32(d.Start, 2) < 0) d.Start = ausDecimal(Decimal(2));
    }
    if (e.step == 4 && (!RasterBereit || ueberPrimaerGrenze(d.Start))) {
        MsgInfo(495);
        return std::nullopt;
    }
    if (!e.zweier && e.test == KplLucasLehmer) {
        MsgInfo(496);
        return std::nullopt;
    }
    d.Pruefen = e.check && !e.zweier;
    if (d.Pruefen && e.intervall == 0) {
        MsgInfo(498);
        return std::nullopt;
    }
    if (d.Pruefen && e.intervall > KplSiebHoechstLaenge) {
        MsgInfoP1(1321, ZahlFormat((long long)KplSiebHoechstLaenge));
        return std::nullopt;
    }
    d.Intervall = std::max<int64_t>(e.intervall, 0);
    d.TestNr = std::clamp(e.test, 0, KplMethodenAnzahl - 1);
    d.PerrinPlus = std::max(e.perrinPlus, 0);
    d.StepModus = std::clamp(e.step, 0, KplSchrittModi - 1);
    d.VorFilter = e.filter && e.vorFilter >= 7 ? e.vorFilter : 0;
    d.Mersenne = e.zweier;
    d.TestName = e.testName;
    return d;
}

bool RundenTesten(int32_t runden, const std::function<bool()>& runde) {
    for (int32_t r = 0; r < runden; ++r) {
        if (!runde()) return false;  // every prime passes each round: one failure decides
    }
    return true;
}

bool StartAusrichten(Hyp& start, int32_t modus, int32_t& index) {
    index = 0;
    start.mindestens(start.anzahl() + 1);
    switch (modus) {
        case 1:
            if ((start[1] & 1) == 0) aAddHyp32(start, 1);
            return true;
        case 2: {
            const int32_t r = aModHyp32(start, 6);
            aAddHyp32(start, r <= 1 ? 1 - r : 5 - r);
            index = r <= 1 ? 1 : 0;
            return true;
        }
        case 3: {
            const int32_t r = aModHyp32(start, 30);
            int32_t platz = 0;  // 29 for a rest above 23
            for (int32_t i = 1; i < 8; ++i) {
                if (kReste30[i] >= r) {
                    platz = i;
                    break;
                }
            }
            aAddHyp32(start, kReste30[platz] - r);
            index = platz;
            return true;
        }
        case 4: {
            if (ueberPrimaerGrenze(start)) return false;
            Decimal d = alsDecimal(start);
            if (!IstPrim(d)) d = NaechstePrim(d);
            if (d.IstNull()) return false;
            start = ausDecimal(d);
            return true;
        }
        default: return true;
    }
}

int32_t TabellenSchritt(int32_t modus, int32_t& index) {
    if (modus == 2) {
        const int32_t s = kSchritte6[index];
        index = (index + 1) % 2;
        return s;
    }
    const int32_t s = kSchritte30[index];
    index = (index + 1) % 8;
    return s;
}

int32_t QuadratSuche(const Hyp& n, int32_t m) {
    const Mpz zahl(n);
    Mpz c;
    for (int32_t k = 1; k <= m; ++k) {
        mpz_mul_ui(c, zahl, 4ul * uint32_t(k));
        mpz_add_ui(c, c, uint64_t(k - 1) * uint64_t(k - 1));
        if (mpz_perfect_square_p(c.get())) return k;
    }
    return m + 1;
}

SiebUrteil SiebStatus(const Hyp& n) {
    if (const auto klein = kleineZahl(n)) return *klein ? SiebUrteil::Prim : SiebUrteil::Zusammengesetzt;
    Hyp abstand(n.anzahl() + 1);
    if (anSubHypHyp(abstand, n, TertiaerStart) < 0 || abstand.anzahl() > 1 ||
        uint32_t(abstand[1]) >= uint32_t(TertiaerLaenge)) {
        return SiebUrteil::Ausserhalb;
    }
    // Within the primary raster its bit is the exact answer.
    if (RasterBereit && RasterEcht && !ueberPrimaerGrenze(n)) {
        return IstPrim(alsDecimal(n)) ? SiebUrteil::Prim : SiebUrteil::Zusammengesetzt;
    }
    if (!TertiaerIstFreiAb(uint32_t(abstand[1]))) return SiebUrteil::Zusammengesetzt;
    // Free of every sieving prime proves a prime only below the square of the cut, which the
    // sieve may have lowered; above it a free number may still be a product of large primes,
    // exactly the kind of pseudoprime this check is there to find. BPSW decides those (a
    // proof below 2^64).
    return BpswTest(n) ? SiebUrteil::Prim : SiebUrteil::Zusammengesetzt;
}

KplErgebnis PrimTestKplLauf(KplLaufDaten daten, KplAnzeige& anzeige) {
    KplErgebnis erg;
    Liste liste(anzeige, erg);
    int32_t index = 0;
    const bool abschliessen = !StartAusrichten(daten.Start, daten.StepModus, index) ||
                              (daten.Mersenne ? mersenneLauf(daten, anzeige, liste, index)
                                              : intervallLauf(daten, anzeige, liste, erg, index));
    if (abschliessen) liste.Abschluss();
    return erg;
}

}  // namespace sw
