#include "primality/PrimSuche.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "sieve/basSekundaer.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

// 32 words, 3840 numbers: the mean gap near 2^96 is 67 and the longest known below 2^64 is
// 1550, so a second window is rare; a window costs little more than the start offsets of the
// raster's primes, whatever its length.
constexpr uint64_t FensterWoerter = 32;
constexpr Zahl128 Spanne = Zahl128(FensterWoerter) * RasterSpanne;

Zahl128 alsZahl128(mpz_srcptr z) {
    uint64_t w[2] = {0, 0};
    mpz_export(w, nullptr, -1, sizeof(uint64_t), 0, 0, z);
    return (Zahl128(w[1]) << 64) | w[0];
}

Mpz alsMpz(Zahl128 v) {
    const uint64_t w[2] = {uint64_t(v), uint64_t(v >> 64)};
    Mpz z;
    mpz_import(z, 2, -1, sizeof(uint64_t), 0, 0, w);
    return z;
}

Mpz alsMpz(const Decimal& d) {
    Mpz z;
    mpz_set_str(z, d.Text().c_str(), 10);
    return z;
}

Decimal alsDecimal(mpz_srcptr z) {
    char ziffern[40];
    mpz_get_str(ziffern, 10, z);
    return Decimal::ausText(ziffern);
}

Zahl128 wurzel(Zahl128 v) {
    Mpz z = alsMpz(v);
    mpz_sqrt(z, z);
    return alsZahl128(z);
}

// Below 2^96 the secondary sieve takes the numbers; its positions are 128-bit.
bool imFensterBereich(mpz_srcptr n) { return mpz_sizeinbase(n, 2) <= 96; }

bool imRaster(mpz_srcptr n) { return mpz_cmp(n, alsMpz(PrimaerGrenze)) <= 0; }

PrimBefund bpsw(mpz_srcptr n) {
    const bool prim = BpswTest(n);
    return {prim, !prim || BpswBeweist(n)};
}

PrimFund fund(mpz_srcptr zahl, bool bewiesen) {
    PrimFund f;
    f.gefunden = true;
    mpz_set(f.zahl, zahl);
    f.bewiesen = bewiesen;
    return f;
}

PrimFund ausRaster(const Decimal& p) {
    PrimFund f;
    if (p.IstNull()) return f;
    return fund(alsMpz(p), true);
}

// A number the window's sieve left standing: prime if the raster reached its square root,
// else as BPSW says.
PrimBefund ueberlebender(Zahl128 c, uint64_t grenze) {
    if (wurzel(c) <= grenze) return {true, true};
    return bpsw(alsMpz(c));
}

// Sieves the window of FensterWoerter words from start (a multiple of 120) by the raster's
// primes up to the root of its end, and calls f(c, grenze) for each number c of [von, bis]
// left standing, ascending, until f returns false.
template <typename F>
void fensterDurchlaufen(Zahl128 start, Zahl128 von, Zahl128 bis, F&& f) {
    std::array<uint32_t, FensterWoerter> raster{};
    const Zahl128 ende = start + Spanne - 1;
    const uint64_t grenze = uint64_t(std::min(PrimaerGrenze.Betrag(), wurzel(ende)));
    // With a large raster of the user's the sieving primes take a while: Ctrl-C is heard
    // between their slices.
    SekundaerFensterSieben(raster.data(), FensterWoerter, start, grenze, [](void*, uint64_t, uint64_t) { DoEvents(); });
    FreieBitsDurchlaufen(raster.data(), 0, FensterWoerter, start, von, std::min(bis, ende),
                         [&](Zahl128 c) { return f(c, grenze); });
}

// The first prime >= a, a above the raster.
PrimFund fensterAufwaerts(Zahl128 a) {
    for (;;) {
        const Zahl128 start = a / RasterSpanne * RasterSpanne;
        PrimFund gefunden;
        fensterDurchlaufen(start, a, start + Spanne - 1, [&](Zahl128 c, uint64_t grenze) {
            const PrimBefund u = ueberlebender(c, grenze);
            if (u.prim) gefunden = fund(alsMpz(c), u.bewiesen);
            return !u.prim;
        });
        if (gefunden.gefunden) return gefunden;
        a = start + Spanne;
        DoEvents();
    }
}

// The last prime <= b; below the raster's limit the raster answers.
PrimFund fensterAbwaerts(Zahl128 b) {
    const Zahl128 unten = PrimaerGrenze.Betrag() + 1;
    while (b >= unten) {
        const Zahl128 ende = b / RasterSpanne * RasterSpanne + RasterSpanne - 1;
        const Zahl128 start = ende + 1 > Spanne ? ende + 1 - Spanne : 0;
        // The survivors are gathered and tested from the top: BPSW is paid for only down to
        // the answer.
        std::vector<Zahl128> kandidaten;
        uint64_t grenze = 0;
        fensterDurchlaufen(start, std::max(start, unten), b, [&](Zahl128 c, uint64_t g) {
            kandidaten.push_back(c);
            grenze = g;
            return true;
        });
        for (auto c = kandidaten.rbegin(); c != kandidaten.rend(); ++c) {
            const PrimBefund u = ueberlebender(*c, grenze);
            if (u.prim) return fund(alsMpz(*c), u.bewiesen);
        }
        if (start == 0) break;
        b = start - 1;
        DoEvents();
    }
    return ausRaster(IstPrim(PrimaerGrenze) ? PrimaerGrenze : VorherigePrim(PrimaerGrenze));
}

// Beyond the secondary sieve: the numbers prime to 30 from c on, upward (richtung 1) or
// downward (-1). Three products of the primes 7 to 71, each below 2^32, sort out most
// candidates with one division each before BPSW takes a power.
bool kleinerTeiler(mpz_srcptr c) {
    static constexpr unsigned long produkte[] = {7ul * 11 * 13 * 17 * 19 * 23 * 29, 31ul * 37 * 41 * 43 * 47,
                                                 53ul * 59 * 61 * 67 * 71};
    for (unsigned long p : produkte) {
        if (std::gcd(mpz_fdiv_ui(c, p), p) != 1) return true;
    }
    return false;
}

PrimFund radSuchen(Mpz c, int richtung) {
    for (unsigned long runde = 1;; ++runde) {
        const unsigned long r = mpz_fdiv_ui(c, 30);
        if (std::gcd(r, 30ul) == 1 && !kleinerTeiler(c)) {
            const PrimBefund u = bpsw(c);
            if (u.prim) return fund(c, u.bewiesen);
            DoEvents();  // a test of a number of many thousand digits takes seconds
        }
        unsigned long schritt = 1;
        while (std::gcd((long(r) + 30 + richtung * long(schritt)) % 30, 30l) != 1) ++schritt;
        if (richtung > 0) {
            mpz_add_ui(c, c, schritt);
        } else {
            mpz_sub_ui(c, c, schritt);
        }
        if (runde % 4096 == 0) DoEvents();
    }
}

}  // namespace

PrimBefund PrimBefundVon(const Mpz& n) {
    if (imRaster(n)) return {IstPrim(alsDecimal(n)), true};
    if (!imFensterBereich(n)) return bpsw(n);
    const Zahl128 z = alsZahl128(n);
    PrimBefund u{false, true};  // struck out by the sieve, or not prime to 30
    fensterDurchlaufen(z / RasterSpanne * RasterSpanne, z, z, [&](Zahl128 c, uint64_t grenze) {
        u = ueberlebender(c, grenze);
        return false;
    });
    return u;
}

PrimFund NaechstePrimzahl(const Mpz& n) {
    if (imRaster(n)) {
        const Decimal p = NaechstePrim(alsDecimal(n));
        if (!p.IstNull()) return ausRaster(p);
    }
    Mpz a;
    mpz_add_ui(a, n, 1);
    if (imFensterBereich(n)) return fensterAufwaerts(std::max(alsZahl128(a), PrimaerGrenze.Betrag() + 1));
    return radSuchen(a, 1);
}

PrimFund VorherigePrimzahl(const Mpz& n) {
    if (imRaster(n)) return ausRaster(VorherigePrim(alsDecimal(n)));
    Mpz b;
    mpz_sub_ui(b, n, 1);
    if (imFensterBereich(b)) return fensterAbwaerts(alsZahl128(b));
    return radSuchen(b, -1);
}

namespace {

// Decided by the sieve: a raster exists and p lies within the square of its limit.
bool entschieden(const PrimFund& p) {
    return p.gefunden && RasterBereit && mpz_cmp(p.zahl, alsMpz(PrimaerQuadrat)) <= 0;
}

}  // namespace

Decimal PrimNach(const Decimal& n) {
    if (!RasterBereit || PrimaerQuadrat.IstNull()) return 0;
    const PrimFund p = NaechstePrimzahl(alsMpz(n));
    return entschieden(p) ? alsDecimal(p.zahl) : Decimal(0);
}

Decimal PrimVor(const Decimal& n) {
    if (!RasterBereit || PrimaerQuadrat.IstNull() || n - Decimal(1) > PrimaerQuadrat) return 0;
    const PrimFund p = VorherigePrimzahl(alsMpz(n));
    return entschieden(p) ? alsDecimal(p.zahl) : Decimal(0);
}

}  // namespace sw
