#include "mersenne/TeilerAnalyse.h"

#include <gmp.h>

#include <algorithm>

#include "arith/HypText.h"
#include "arith/basRechnen.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "sieve/RasterTabellen.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr int64_t kKFilterMax = 536870912;
constexpr double kFestschreibenSekunden = 0.5;

// The next q of the walk: Spezial walks q = 2kp + 1 from k = f (step 2p, only q = 1 or 7 mod
// 8); the others walk the wheel from the first of its residues at or above the start, which is
// at least (MinPotenz 2^KBits) + 1: no smaller q can have k >= f and a prime order >= MinPotenz.
// The residue mod 120 the first gap of a wheel leads to (from 119, or 113 for class 1).
int32_t radStart(int32_t modus) { return modus >= 2 ? 7 : 1; }

struct Anfang {
    std::string q;
    int index = 0;
};

Anfang anfangBestimmen(const std::string& startText, bool spezial, int64_t bisPrim, int32_t minPotenz,
                       int32_t kBits, int32_t modulo, const std::vector<int32_t>& rad) {
    Mpz start, q, t;
    if (mpz_set_str(start, startText.c_str(), 10) != 0) throw Laufzeitfehler(13);
    Anfang a;
    if (spezial) {
        const unsigned long schritt = static_cast<unsigned long>(2 * bisPrim);
        mpz_set_ui(q, static_cast<unsigned long>(bisPrim));
        mpz_mul_2exp(q, q, static_cast<mp_bitcnt_t>(kBits));
        mpz_add_ui(q, q, 1);
        if (mpz_cmp(start, q) > 0) {  // up to the first q of the walk at or above the start
            mpz_sub(t, start, q);
            mpz_cdiv_q_ui(t, t, schritt);
            mpz_addmul_ui(q, t, schritt);
        }
        while (mpz_fdiv_ui(q, 8) != 1 && mpz_fdiv_ui(q, 8) != 7) mpz_add_ui(q, q, schritt);
    } else {
        mpz_set_ui(t, static_cast<unsigned long>(minPotenz));
        mpz_mul_2exp(t, t, static_cast<mp_bitcnt_t>(kBits));
        mpz_add_ui(t, t, 1);
        if (mpz_cmp(start, t) < 0) mpz_set(start, t);
        mpz_sub_ui(q, start, mpz_fdiv_ui(start, 120));
        mpz_add_ui(q, q, static_cast<unsigned long>(radStart(modulo)));
        while (mpz_cmp(q, start) < 0) {
            a.index = (a.index + 1) % 16;
            mpz_add_ui(q, q, static_cast<unsigned long>(rad[a.index]));
        }
    }
    char* text = mpz_get_str(nullptr, 10, q);
    a.q = text;
    void (*freigeben)(void*, size_t);
    mp_get_memory_functions(nullptr, nullptr, &freigeben);
    freigeben(text, a.q.size() + 1);
    return a;
}

// Above the raster a q of the wide walks is sieved by the primes 7 to 89, four products of
// them at a time, each remainder asked by one gcd: most composites fall out after the first.
constexpr uint32_t kProdukte[4] = {215656441u /* 7..29 */, 95041567u /* 31..47 */, 907383479u /* 53..71 */,
                                   42600829u /* 73..89 */};

template <typename Rest>
bool ohneKleineTeiler(Rest rest) {
    for (uint32_t p : kProdukte)
        if (aGGT(Long(rest(p)), Long(p)) != 1) return false;
    return true;
}

// The two wide number types behind one face, so that the Decimal and the Hyp walk share
// their steps. Every operation is the library's own for the type.
struct DecZahl {
    Decimal q;
    explicit DecZahl(const std::string& text) : q(Decimal::ausText(text)) {}
    static DecZahl ausLong(int64_t v, int32_t links) {
        DecZahl z("0");
        z.q = Decimal(v);
        aShiftLeftDec(&z.q, links);
        return z;
    }
    void plus(uint32_t v) { q += Decimal(v); }
    uint32_t mod(uint32_t m) const { return uint32_t(aModDec32(&q, Long(m))); }
    bool groesser(const DecZahl& o) const { return q > o.q; }
    bool nichtUeber(int64_t g) const { return q <= Decimal(g); }
    // Room for one more step of the walk (the width ends below 2^96).
    bool platz() const { return q.Betrag() < Decimal::Maximum - (uint64_t(1) << 33); }
    void wachsen() {}
    int64_t verschoben(int32_t n) const {  // q div 2^n, cut to what an exponent bound needs
        Decimal c = q;
        aShiftRightDec(&c, n);
        return c.Betrag() > uint64_t(INT64_MAX) ? INT64_MAX : int64_t(c.Betrag());
    }
    bool rasterPrim(const uint32_t* raster) const { return aIsPrimPrimaerDec(&q, raster) != 0; }
    bool kandidat() const {
        return ohneKleineTeiler([this](uint32_t p) { return aModDec32(&q, Long(p)); });
    }
    int32_t maxReduce(int32_t grenze) {
        Decimal c = q;
        return aMersTeilerMaxReduceDec(&c, grenze);
    }
    int32_t teiler(int32_t grenze) { return aMersenneTeilerDec(&q, grenze); }
    uint64_t wort() const { return q.Betrag() >> 32 ? 0 : uint64_t(q.Betrag()); }
    std::string text() const { return q.Text(); }
    bool bpsw() const { return BpswTest(Ziffern2Hyp(q.Text())); }
};

struct HypZahl {
    Hyp q, kopie, c;
    explicit HypZahl(const std::string& text) : q(Text2Hyp(text)) { wachsen(); }
    static HypZahl ausLong(int64_t v, int32_t links) {
        HypZahl z(std::to_string(v));
        z.q.mindestens(z.q.anzahl() + links / 32 + 2);
        aShiftLeftHyp(z.q, links);
        z.wachsen();
        return z;
    }
    void plus(uint32_t v) { aAddHyp32(q, Long(v)); }
    uint32_t mod(uint32_t m) const { return uint32_t(aModHyp32(q, Long(m))); }
    bool groesser(const HypZahl& o) const { return aCmpHypHyp(q, o.q) > 0; }
    bool nichtUeber(int64_t g) const { return aCmpHyp32(q, Long(g)) <= 0; }
    bool platz() const { return true; }
    // Before each round: room for a carry out of the top word, and copies of the same size.
    void wachsen() {
        if (q.anzahl() + 2 > q.obergrenze()) q.mindestens(q.anzahl() * 2 + 2);
        kopie.mindestens(q.obergrenze());
        c.mindestens(q.obergrenze());
    }
    int64_t verschoben(int32_t n) {
        aMove(q, q.anzahl() + 1, c);
        aShiftRightHyp(c, n);
        if (c.anzahl() > 2 || (c.anzahl() == 2 && c[2] < 0)) return INT64_MAX;
        return int64_t(uint32_t(c[1])) | (c.anzahl() == 2 ? int64_t(c[2]) << 32 : 0);
    }
    bool rasterPrim(const uint32_t* raster) const {
        return q.anzahl() == 1 && aIsPrimPrimaer32(q[1], raster) != 0;
    }
    bool kandidat() const {
        return ohneKleineTeiler([this](uint32_t p) { return aModHyp32(q, Long(p)); });
    }
    int32_t maxReduce(int32_t grenze) { return aMersTeilerMaxReduceHyp(q, grenze); }
    int32_t teiler(int32_t grenze) {
        aMove(q, q.anzahl() + 1, kopie);
        return aMersenneTeilerHyp(q, kopie, grenze);
    }
    uint64_t wort() const { return q.anzahl() == 1 ? uint32_t(q[1]) : 0; }
    std::string text() const { return Hyp2Text(q); }
    bool bpsw() const { return BpswTest(q); }
};

}  // namespace

// The walk of the wide widths. Unlike the word walk it counts every candidate for the report,
// as a q above the raster costs four remainders before anything is known of it.
template <typename Zahl>
class BreiteSuche {
public:
    explicit BreiteSuche(TeilerAnalyse& t) : t_(t) {}

    void Laufen() {
        const uint32_t* raster = PrimaerRasterAdresse;
        const int64_t grenze = std::min<int64_t>(GrenzeLong, PrimaerGrenze.AlsInt64());
        const bool spezial = t_.a_.spezial;
        const Anfang an = anfangBestimmen(t_.naechstes_, spezial, t_.BisPrim, t_.MinPotenz, t_.KBits,
                                          t_.ModuloArt, t_.Rad);
        Zahl q(an.q);
        const bool mitEnde = !t_.a_.ende.empty();
        const Zahl ende(mitEnde ? t_.a_.ende : "0");
        int i = an.index;
        const uint32_t schritt = uint32_t(2 * t_.BisPrim);
        t_.MinPotenzAnheben(!q.nichtUeber(89), !q.nichtUeber(178481));
        for (;;) {
            q.wachsen();
            if (Abbruch || t_.ende_ || !q.platz() || (mitEnde && q.groesser(ende))) break;
            if (!q.nichtUeber(grenze) ? q.kandidat() : q.rasterPrim(raster)) {
                if (t_.Zaehlen() && !t_.Fortschritt(q.text())) break;
                if (q.mod(uint32_t(t_.KSchritt)) == 1 % t_.KSchritt) pruefen(q, grenze, spezial);
            }
            if (spezial) {
                do q.plus(schritt);
                while (q.mod(8) != 1 && q.mod(8) != 7);
            } else {
                i = (i + 1) % 16;
                q.plus(uint32_t(t_.Rad[i]));
            }
        }
        t_.naechstes_ = q.text();
    }

private:
    void pruefen(Zahl& q, int64_t grenze, bool spezial) {
        const int32_t bisPrim = int32_t(t_.BisPrim);
        int64_t m = q.maxReduce(bisPrim);
        const uint64_t w = q.wort();
        if (!t_.MinPotenzErreicht(m, w != 0 && ((w + 1) & w) == 0)) return;
        m = std::min<int64_t>(m, q.verschoben(t_.KBits));
        // For one exponent the order is only sought while that exponent is still in question.
        if (spezial && (t_.a_.kleineFaktoren ? m != bisPrim : m < bisPrim)) return;
        const int32_t e = q.teiler(int32_t(m));
        if (e == 0 || !t_.exponentPrim(uint32_t(e))) return;
        t_.TeilerZeigen(q.text(), e, q.nichtUeber(grenze) || q.bpsw());
    }

    TeilerAnalyse& t_;
};

TeilerAnalyse::TeilerAnalyse(const TeilerAnalyseAuftrag& auftrag, TeilerAnalyseAnzeige& anzeige)
    : a_(auftrag), anzeige_(anzeige) {
    const Decimal f = Decimal::ausText(a_.kFilter.empty() ? "1" : a_.kFilter);
    const int64_t fWert = std::max<int64_t>(f.AlsInt64(), 1);
    if (fWert > kKFilterMax || (fWert & (fWert - 1)) != 0) throw Laufzeitfehler(5, Text(1801));
    for (int64_t g = fWert; g > 1; g >>= 1) ++KBits;
    KSchritt = 2 * fWert;
    if (a_.bisPrim < 1 || a_.bisPrim > GrenzeLong) throw Laufzeitfehler(5, Text(1802));
    if (a_.modulo < 0 || a_.modulo > 2) throw Laufzeitfehler(5);
    BisPrim = a_.bisPrim;
    ModuloArt = a_.spezial ? 0 : a_.modulo;
    Rad = TeilerSchritte(ModuloArt);
    // Below 11 every prime exponent gives a Mersenne prime or a divisor below 100; from f = 16
    // on, q = 2kp + 1 with k >= 16 leaves the exponents below 23 to q that the walk has passed.
    potenzEingabe_ = std::max(a_.potenz, 11);
    MinPotenz = KBits > 4 ? std::max(potenzEingabe_, 23) : potenzEingabe_;
    naechstes_ = a_.start.empty() ? "1" : a_.start;
}

// Every divisor of 2^e - 1 for the prime e from 11 to 22 is at most 89 (2^11 - 1 = 23 89) or
// is 2^e - 1 itself (e = 13, 17, 19), and every divisor of 2^23 - 1 is at most 178481. A walk
// that starts above these can skip those exponents, except for the Mersenne primes
// themselves, which MinPotenzErreicht lets through. The raise is made once: the exponents
// left behind stay as they are when q grows past the marks during the run.
void TeilerAnalyse::MinPotenzAnheben(bool ueber89, bool ueber178481) {
    if (MinPotenz >= 23 || !ueber89) return;
    MinPotenz = ueber178481 ? 29 : 23;
}

bool TeilerAnalyse::MinPotenzErreicht(int64_t r, bool mersenneZahl) const {
    return r >= MinPotenz || (mersenneZahl && r >= potenzEingabe_);
}

bool TeilerAnalyse::exponentPrim(uint32_t e) const {
    if (Decimal(e) <= PrimaerGrenze) return aIsPrimPrimaer32(Long(e), PrimaerRasterAdresse) != 0;
    return BpswTest(Mpz(e));
}

bool TeilerAnalyse::Laufen() {
    if (a_.spezial) {
        if (aIsInMers(Long(BisPrim)) != 0) {
            MsgInfo(466);
            return false;
        }
        if (!exponentPrim(uint32_t(BisPrim))) {
            MsgInfo(467);
            return false;
        }
    }
    Takt = 32;
    TaktZaehler = 0;
    LetzteAnzeige = Timer();
    abgebrochen_ = ende_ = false;
    fehler_ = nullptr;
    struct Schliessen {
        bool offen;
        ~Schliessen() {
            if (offen) DbSchliessen();
        }
    } schliessen{false};
    if (a_.db) {
        DbOeffnenPflicht(DbSegment(a_.spezial ? BisPrim : MinPotenz));
        schliessen.offen = true;
    }
    {
        DbTransaktion t;
        transaktion_ = &t;
        switch (a_.breite) {
        case TeilerBreite::Long: TeilerSuche32(); break;
        case TeilerBreite::Decimal: BreiteSuche<DecZahl>(*this).Laufen(); break;
        case TeilerBreite::Hyp: BreiteSuche<HypZahl>(*this).Laufen(); break;
        }
        transaktion_ = nullptr;
    }
    abgebrochen_ = Abbruch || fehler_ != nullptr;
    anzeige_.Stand(naechstes_, Takt);
    if (fehler_) std::rethrow_exception(fehler_);
    return true;
}

// The word walk: every q is below 2^31 and inside the raster, so a bit decides whether it is
// prime, and the order is sought only up to the greatest prime factor of the odd part of
// q - 1 that can still be the exponent. That keeps each prime q to a few word operations and
// one short modular power.
void TeilerAnalyse::TeilerSuche32() {
    const uint32_t* raster = PrimaerRasterAdresse;
    uint64_t grenze = uint64_t(std::min<int64_t>(GrenzeLong, PrimaerGrenze.AlsInt64()));
    bool rasterEnde = true;  // passing the raster's end counts as a stop; the range's end does not
    if (!a_.ende.empty()) {
        const Decimal e = Decimal::ausText(a_.ende);
        if (e <= Decimal(grenze)) {
            grenze = uint64_t(e.AlsInt64());
            rasterEnde = false;
        }
    }
    const bool spezial = a_.spezial;
    const Anfang an = anfangBestimmen(naechstes_, spezial, BisPrim, MinPotenz, KBits, ModuloArt, Rad);
    // A start beyond 64 bits lies beyond the width in any case.
    uint64_t q = an.q.size() < 19 ? std::stoull(an.q) : grenze + 1;
    int i = an.index;
    MinPotenzAnheben(q > 89, q > 178481);
    const uint64_t schritt = 2 * uint64_t(BisPrim);
    const uint64_t kMaske = uint64_t(KSchritt) - 1;
    const uint64_t bisPrim = uint64_t(BisPrim);
    for (;;) {
        if (Abbruch || ende_) break;
        if (q > grenze) {
            if (rasterEnde) Abbruch = true;
            break;
        }
        if (aIsPrimPrimaer32(Long(q), raster) != 0) {
            if (Zaehlen() && !Fortschritt(std::to_string(q))) break;
            const uint64_t m = std::min(q >> KBits, bisPrim);
            if (((q - 1) & kMaske) == 0 && m >= uint64_t(potenzEingabe_)) {
                uint64_t r = uint32_t(aShiftRightAll32(Long(q - 1)));
                const bool rPrim = aIsPrimPrimaer32(Long(r), raster) != 0;  // r < q: inside the raster
                if (!rPrim) {
                    r = uint32_t(aMersTeilerMaxReduce32(Long(r)));
                    if (!spezial) r = std::min(r, bisPrim);
                }
                if (rPrim && !spezial && KBits == 1 && (q & 3) == 3 && r <= bisPrim && r >= uint64_t(MinPotenz)) {
                    // q = 2r + 1 is 7 mod 8, so 2 is a square mod q and 2^r = 1: no order to seek.
                    TeilerZeigen(std::to_string(q), int32_t(r), true);
                } else {
                    r = std::min(r, m);
                    if (MinPotenzErreicht(int64_t(r), ((q + 1) & q) == 0)) {
                        const Long e = aMersenneTeiler32(Long(q), Long(r));
                        if (e != 0 && aIsPrimPrimaer32(e, raster) != 0) TeilerZeigen(std::to_string(q), e, true);
                    }
                }
            }
        }
        if (spezial) {
            do q += schritt;
            while ((q & 7) != 1 && (q & 7) != 7);
        } else {
            i = (i + 1) & 15;
            q += uint64_t(Rad[i]);
        }
    }
    naechstes_ = std::to_string(q);
}

void TeilerAnalyse::TeilerZeigen(const std::string& q, int32_t e, bool prim) {
    const std::string k = FaktorK(q, e);
    if (prim && a_.breite == TeilerBreite::Hyp) {
        TeilerMelden(anzeige_, q, e);
    } else {
        ++anzeige_.Faktor;
        anzeige_.FortschrittSetzen(std::to_string(anzeige_.Faktor));
        if (anzeige_.ListeAnzahl() > TeilerListeHoechstens) anzeige_.ListeLeeren();
        std::string zeile = TextP1P2(118, q, std::to_string(e)) + "\tk = " + k;
        // A q above the raster that BPSW rejects has the order e but is no prime divisor.
        if (!prim) zeile += Text(1800);
        anzeige_.ListeHinzufuegen(zeile);
        if (prim && a_.db && aIsInMers(e) == 0) TeilerEintragen(anzeige_, q, e);
    }
    if (!prim) ++zusammengesetzt_;
    anzeige_.Treffer(q, e, k, prim);
}

bool TeilerAnalyse::Fortschritt(const std::string& q) {
    const double jetzt = Timer();
    if (jetzt - LetzteAnzeige >= 1.0) {
        Takt = std::max(Takt - 3, 1);
    } else {
        Takt += 17;
    }
    anzeige_.Stand(q, Takt);
    try {
        DoEvents();
    } catch (...) {
        fehler_ = std::current_exception();
        ende_ = true;
    }
    if (transaktion_ != nullptr && a_.db) transaktion_->FestschreibenNach(kFestschreibenSekunden);
    LetzteAnzeige = jetzt;
    return !Abbruch && !ende_;
}

}  // namespace sw
