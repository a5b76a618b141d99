#include "sieve/basExtrem.h"

#include <gmp.h>

#include <algorithm>
#include <vector>

#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "primality/PrimTests.h"
#include "sieve/Primreste.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"

namespace sw {

Hyp TertiaerStart;
int32_t TertiaerLaenge = 0;
int32_t TertiaerVersatz = 0;
int32_t TertiaerRest = 0;
int32_t TertiaerLetztesWort = 0;
int32_t TertiaerOben = 0;
Hyp TertiaerBasis;
int32_t TertiaerWorte = 0;
int32_t TertiaerTeilerWort = 0;
int32_t TertiaerTeilerBit = 0;
Decimal TertiaerTeiler;
Decimal TertiaerTeilerBasis;

namespace {

// The cut never goes beyond this: the raster words of the primes up to it fit 32 bits, and
// deeper sieving gains next to nothing against the test of a candidate.
constexpr uint64_t HoechsterSchnitt = 4000000000ull;
// Above this cut the user is asked whether to stop there.
constexpr uint64_t FrageSchnitt = 100000000ull;
// The primes of this many raster words are taken as one batch: their residues in one go,
// then the progress, the yield and the look at Abbruch.
constexpr uint64_t WoerterJeSchub = 128;
// Candidates above this many bits take long enough to test that the window is given a turn
// after each of them, not only every 8 words.
constexpr size_t GrosseKandidatenBits = 4096;

// The window as it was sieved, kept apart from the caller's variables, which may change
// before the tests run. The raster is only read while it still is the one laid here.
struct Fenster {
    Mpz basis;            // TertiaerBasis
    Mpz start;            // TertiaerStart
    int64_t laenge = 0;   // TertiaerLaenge
    uint64_t woerter = 0; // TertiaerLetztesWort + 1
    const uint32_t* raster = nullptr;
    bool steht = false;
};

Fenster& fenster() {
    static Fenster f;
    return f;
}

// Whether SekundaerRaster still is the raster of the last tertiary sieve (a secondary range
// may have replaced it since).
bool rasterSteht() {
    const Fenster& f = fenster();
    return f.steht && SekundaerRaster.data() == f.raster && SekundaerRaster.size() == f.woerter &&
           SekundaerStart.IstNull();
}

// The bits of word w that lie inside the window [start, start + laenge).
uint32_t FensterMaske(uint64_t w) {
    uint32_t maske = 0xFFFFFFFFu;
    for (int i = 0; i < 32; ++i) {
        const int32_t rest = RasterRest[i + 1];
        const bool vorne = w == 0 && rest < TertiaerVersatz;
        const bool hinten = w == uint64_t(TertiaerLetztesWort) && rest >= TertiaerRest;
        if (vorne || hinten) maske &= ~BitMaske0[i];
    }
    return maske;
}

// The largest number the primary raster answers for; 0 without a finished run.
uint64_t RasterReichweite() {
    if (!RasterBereit || PrimaerRaster.empty()) return 0;
    return std::min<uint64_t>(uint64_t(PrimaerGrenze.AlsInt64()), PrimaerRaster.size() * RasterSpanne - 1);
}

// The question before a deep cut: Yes stops at 100 million, No keeps the cut, Cancel ends.
int SchnittFrage() {
    return UI().Meldung("SW - ???", Text(1300), MeldungsSymbol::Frage, MeldungsKnoepfe::JaNeinAbbrechen);
}

// Strikes the odd multiples of p from distance d on: word and residue are carried along by
// the step of 2p in words and rest, so the loop has no division in it.
inline void Streichen(uint32_t* raster, uint64_t letztes, uint64_t d, uint64_t p) {
    uint64_t w = d / RasterSpanne;
    uint32_t s = uint32_t(d % RasterSpanne);
    const uint64_t schrittWorte = 2 * p / RasterSpanne;
    const uint32_t schrittRest = uint32_t(2 * p % RasterSpanne);
    while (w <= letztes) {
        raster[w] |= RestMaske[s];
        s += schrittRest;
        w += schrittWorte;
        if (s >= uint32_t(RasterSpanne)) {
            s -= RasterSpanne;
            ++w;
        }
    }
}

// Strikes with every prime 7 <= p <= schnitt of the primary raster. False when Abbruch ended it.
bool PrimzahlenStreichen(uint64_t schnitt, TertiaerFenster* anzeige) {
    const Fenster& f = fenster();
    uint32_t* raster = SekundaerRaster.data();
    const uint64_t letztes = f.woerter - 1;
    const uint64_t oben = f.woerter * RasterSpanne;
    // A basis below a sieving prime puts that prime itself in the window: its first odd
    // multiple at or above the basis is p, which must stay; the strikes begin at 3p there.
    const bool basisKlein = mpz_cmp_ui(f.basis.get(), HoechsterSchnitt) <= 0;
    const uint64_t basis = basisKlein ? mpz_get_ui(f.basis.get()) : 0;
    const uint64_t letztesWort = schnitt / RasterSpanne;

    std::vector<uint32_t> primzahlen, reste;
    primzahlen.reserve(WoerterJeSchub * 32);
    reste.resize(WoerterJeSchub * 32);
    for (uint64_t k0 = 0; k0 <= letztesWort; k0 += WoerterJeSchub) {
        primzahlen.clear();
        const uint64_t k1 = std::min(letztesWort + 1, k0 + WoerterJeSchub);
        for (uint64_t k = k0; k < k1; ++k) {
            for (uint32_t frei = ~PrimaerRaster[k]; frei;) {
                const int i = __builtin_clz(frei);
                frei &= ~(0x80000000u >> i);
                const uint64_t p = k * RasterSpanne + uint64_t(RasterRest[i + 1]);
                if (p >= 7 && p <= schnitt) primzahlen.push_back(uint32_t(p));
            }
        }
        PrimzahlReste(f.basis, primzahlen.data(), primzahlen.size(), reste.data());
        for (size_t j = 0; j < primzahlen.size(); ++j) {
            const uint64_t p = primzahlen[j];
            // The first multiple at or above the basis, made odd: the basis is even.
            uint64_t d = reste[j] ? p - reste[j] : 0;
            if ((d & 1) == 0) d += p;
            if (basisKlein && basis + d == p) d += 2 * p;
            if (d < oben) Streichen(raster, letztes, d, p);
        }
        if (!primzahlen.empty()) {
            const uint32_t p = primzahlen.back();
            TertiaerTeilerWort = int32_t(p / RasterSpanne);
            TertiaerTeilerBit = int32_t(__builtin_clz(RestMaske[p % RasterSpanne])) + 1;
            TertiaerTeiler = Decimal(p);
            TertiaerTeilerBasis = Decimal(p - p % RasterSpanne);
        }
        if (anzeige && TertiaerWorte > 0) anzeige->SiebFortschritt(int32_t(std::min<uint64_t>(100, 100 * k1 / uint64_t(TertiaerWorte))));
        DoEvents();
        if (Abbruch) return false;
    }
    return true;
}

bool Bestanden(int32_t test, mpz_srcptr n) {
    if (test == TertiaerBpsw) return BpswTest(n);
    const Hyp h = MpzZuHyp(n);
    switch (test) {
        case TertiaerPerrin:
            return PerrinTest(h);
        case TertiaerRabinZufall:
            MillerRabinBasis = -2;
            return MillerRabin(h);
        case TertiaerStrassen:
            return StrassenTest(h);
        case TertiaerFermat:
            return FermatTest(h);
        case TertiaerRabinBasis:
            return MillerRabin(h);
        default:
            throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    }
}

// The tests of both entries. With paare, a failed lower member of a residue pair that
// differs by 2 takes its partner out of the test: that pair can't be a twin.
int64_t Testen(int32_t test, TertiaerFenster* anzeige, bool paare) {
    if (!rasterSteht()) return 0;
    if (test < TertiaerPerrin || test > TertiaerBpsw) throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    const Fenster& f = fenster();
    uint32_t* raster = SekundaerRaster.data();
    const uint64_t letztes = f.woerter - 1;
    const bool gross = mpz_sizeinbase(f.basis, 2) > GrosseKandidatenBits;
    int64_t gestrichen = 0, bestanden = 0;
    Mpz kandidat;
    for (uint64_t w = 0; w <= letztes; ++w) {
        for (uint32_t frei = ~raster[w] & FensterMaske(w); frei;) {
            const int i = __builtin_clz(frei);
            const uint32_t bit = 0x80000000u >> i;
            frei &= ~bit;
            mpz_add_ui(kandidat, f.basis, w * RasterSpanne + uint64_t(RasterRest[i + 1]));
            if (Bestanden(test, kandidat)) {
                ++bestanden;
            } else {
                raster[w] |= bit;
                ++gestrichen;
                if (paare && i < 31 && RasterRest[i + 2] - RasterRest[i + 1] == 2) frei &= ~(bit >> 1);
            }
            if (gross) {
                DoEvents();
                if (Abbruch) return gestrichen;
            }
        }
        if ((w & 7) == 7) {
            if (anzeige) anzeige->StreichungenZeigen(gestrichen);
            DoEvents();
            if (Abbruch) return gestrichen;
        }
        if ((w & 31) == 31 && anzeige) anzeige->TestFortschritt(int32_t(100 * w / std::max<uint64_t>(letztes, 1)));
    }
    if (anzeige) {
        anzeige->StreichungenZeigen(gestrichen);
        if (bestanden > 0) anzeige->TestFortschritt(100);
    }
    return gestrichen;
}

}  // namespace

bool TertiaerSieben(TertiaerFenster* anzeige) {
    if (TertiaerLaenge < 0) {
        MsgBereich();
        return false;
    }
    Fenster& f = fenster();
    const Mpz start(TertiaerStart);
    TertiaerVersatz = int32_t(mpz_fdiv_ui(start, RasterSpanne));
    const int64_t ende = int64_t(TertiaerVersatz) + TertiaerLaenge;
    TertiaerLetztesWort = int32_t(ende / RasterSpanne);
    TertiaerRest = int32_t(ende % RasterSpanne);
    const uint64_t woerter = uint64_t(TertiaerLetztesWort) + 1;
    TertiaerOben = int32_t(std::min<uint64_t>(woerter * RasterSpanne, INT32_MAX));

    f.steht = false;
    if (!SekundaerRasterAnlegen(woerter)) return false;
    SekundaerStart = Dec0;
    SekundaerEnde = Decimal(int64_t(TertiaerLetztesWort) * RasterSpanne);
    mpz_set(f.start, start);
    mpz_sub_ui(f.basis, start, uint64_t(TertiaerVersatz));
    f.laenge = TertiaerLaenge;
    f.woerter = woerter;
    f.raster = SekundaerRaster.data();
    f.steht = true;
    TertiaerBasis = MpzZuHyp(f.basis);
    TertiaerTeilerWort = 0;
    TertiaerTeilerBit = 2;

    // No divisor above the root of the window's last number is needed (rounded up, so that
    // the square of a prime at the root is still struck).
    uint64_t schnitt = std::min(RasterReichweite(), HoechsterSchnitt);
    {
        Mpz oben, wurzel, rest;
        mpz_add_ui(oben, start, uint64_t(std::max<int32_t>(TertiaerLaenge, 1) - 1));
        mpz_sqrtrem(wurzel, rest, oben);
        if (mpz_sgn(rest.get()) != 0) mpz_add_ui(wurzel, wurzel, 1);
        if (mpz_cmp_ui(wurzel.get(), schnitt) < 0) schnitt = mpz_get_ui(wurzel.get());
    }
    if (mpz_sgn(f.basis.get()) == 0) SekundaerRaster[0] |= BitMaske[1];  // 1 is no prime

    if (schnitt > FrageSchnitt) {
        const int antwort = SchnittFrage();
        if (antwort == AntwortAbbrechen) {
            Abbruch = true;
            return false;
        }
        if (antwort == AntwortJa) schnitt = FrageSchnitt;
    }
    TertiaerWorte = int32_t(schnitt / RasterSpanne);
    if (!PrimzahlenStreichen(schnitt, anzeige)) return false;
    if (anzeige) anzeige->SiebFortschritt(100);
    return true;
}

int64_t TertiaerZaehlen() {
    if (!rasterSteht()) return 0;
    const Fenster& f = fenster();
    int64_t anzahl = 0;
    for (uint64_t w = 0; w < f.woerter; ++w) {
        anzahl += __builtin_popcount(~SekundaerRaster[w] & FensterMaske(w));
    }
    // 2, 3 and 5 have no bit in the raster.
    if (mpz_sgn(f.basis.get()) == 0) {
        for (int32_t klein : {2, 3, 5}) anzahl += klein >= TertiaerVersatz && klein - TertiaerVersatz < f.laenge;
    }
    return anzahl;
}

int64_t TertiaerTesten(int32_t test, TertiaerFenster* anzeige) { return Testen(test, anzeige, false); }

int64_t TertiaerZwillingeTesten(int32_t test, TertiaerFenster* anzeige) { return Testen(test, anzeige, true); }

bool TertiaerIstFrei(const Hyp& x) {
    const Fenster& f = fenster();
    Mpz d(x);
    mpz_sub(d, d, f.start);
    if (!rasterSteht() || mpz_sgn(d.get()) < 0 || mpz_cmp_ui(d.get(), uint64_t(f.laenge)) >= 0) {
        MsgInfo(497);
        return false;
    }
    return TertiaerIstFreiAb(int64_t(mpz_get_ui(d.get())));
}

bool TertiaerIstFreiAb(int64_t d) {
    const Fenster& f = fenster();
    if (!rasterSteht() || d < 0 || d >= f.laenge) return false;
    const uint64_t pos = uint64_t(d) + uint64_t(TertiaerVersatz);
    // 2, 3 and 5 are primes without a bit.
    if (mpz_sgn(f.basis.get()) == 0 && (pos == 2 || pos == 3 || pos == 5)) return true;
    const uint32_t maske = RestMaske[pos % RasterSpanne];
    return maske != 0 && (SekundaerRaster[pos / RasterSpanne] & maske) == 0;
}

}  // namespace sw
