#include "mersenne/basLucas.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "mersenne/LucasLauf.h"

namespace sw {

Long LucasExponent = 0;
Long LucasWorte = 0;
Long LucasOben = 0;
Long LucasProduktOben = 0;
Long LucasHalbOben = 0;
Long LucasHalbWorte = 0;
Long LucasHochPos = 0;
Long LucasMitte = 0;
std::vector<Long> LucasWert(1), LucasQuadrat(1), LucasHilfe1(1), LucasHilfe2(1);
double LucasZeitStart = 0, LucasZeitEnde = 0;

namespace {

int32_t methode_ = LucasMethodeKaratsuba;

// The sums and their squares of levels 2 to 5. A level finishes its two halves before it
// needs its own sum, so one pair per level serves every call of that level.
std::array<std::vector<Long>, 6> summe_, summenQuadrat_;

int32_t restWorte(uint32_t p) { return int32_t((p + 31) / 32); }

// h := 2^p - 1 - v in Hyp form: what a square of 0 or 1 minus 2 is modulo 2^p - 1.
void mersenneMinus(Long* h, Long p, Long v) {
    const int32_t L = restWorte(uint32_t(p));
    h[0] = L;
    for (int32_t i = 1; i <= L; ++i) h[i] = -1;
    if (p % 32 != 0) h[L] = Long((1u << (p % 32)) - 1);
    aSubHyp32(h, v);
}

// The sum of two m-word halves has m + 1 words; squared as an even count (its top word a
// zero that is never written) it is whole 64-bit limbs at limb alignment, which GMP squares
// in place instead of through a copy.
constexpr Long summeGerade(Long m) { return m + 1 + ((m + 1) & 1); }

// One Karatsuba level: squares the oben + 1 words of LucasWert from `in` into LucasQuadrat
// from `aus`. The halves go one level down (or to the school method at the bottom), the sum of
// the halves is squared in one piece; the middle term is that square minus the halves'
// squares, added in at m'. Each level is its own routine, so the compiler sees five flat
// functions rather than a recursion.
template <int Stufe>
void karatsubaStufe(Long in, Long oben, Long aus) {
    Long* wert = LucasWert.data();
    Long* quadrat = LucasQuadrat.data();
    const Long h = aDiv2(oben);
    const Long m = h + 1;
    Long* t1 = Stufe == 1 ? LucasHilfe1.data() : summe_[Stufe].data();
    Long* t2 = Stufe == 1 ? LucasHilfe2.data() : summenQuadrat_[Stufe].data();
    constexpr bool ganzUnten = Stufe == 5;
    if (ganzUnten || (Stufe >= 3 && m < 3)) {
        aQuadriere(wert + in, m, quadrat + aus);
        aQuadriere(wert + in + m, m, quadrat + aus + 2 * m);
    } else if constexpr (!ganzUnten) {
        karatsubaStufe<Stufe + 1>(in, h, aus);
        karatsubaStufe<Stufe + 1>(in + m, h, aus + 2 * m);
    }
    aAddOp1PlusOp2(wert + in + m, wert + in, m, t1);
    aQuadriere(t1, summeGerade(m), t2);
    aKaratsubaMitte(t2, m, quadrat + aus);
}

bool schrittHyp() {
    Long* q = LucasQuadrat.data();
    std::fill(LucasQuadrat.begin(), LucasQuadrat.end(), 0);
    if (methode_ == LucasMethodeAddSpezial) {
        std::fill(LucasHilfe1.begin(), LucasHilfe1.end(), 0);
        aQuadHypSpezial(q, LucasWert.data(), LucasHilfe1.data());
    } else {
        aQuadHyp(q, LucasWert.data());
    }
    if (aCmpHyp32(q, 2) < 0) {
        mersenneMinus(q, LucasExponent, 2 - q[1]);
    } else {
        aSubHyp32(q, 2);
    }
    aModMersenneHyp(q, LucasExponent);
    std::copy(q, q + q[0] + 1, LucasWert.begin());
    return q[0] == 1 && q[1] == 0;
}

}  // namespace

void LucasVorbereiten(int32_t methode, uint32_t p) {
    methode_ = methode;
    LucasExponent = Long(p);
    LucasZeitStart = LucasZeitEnde = 0;
    if (methode != LucasMethodeKaratsuba) {
        LucasWorte = Long(p / 32 + 1);
        LucasWert.assign(size_t(LucasWorte) + 1, 0);
        LucasQuadrat.assign(size_t(2 * LucasWorte + 3), 0);
        LucasHilfe1.assign(size_t(LucasWorte) + 2, 0);
        LucasWert[0] = 1;
        LucasWert[1] = 4;
        return;
    }
    // The value's length is rounded up to a multiple of 32 words, so that five halvings all
    // give equal halves.
    const Long w = aShiftRight32(Long(p), 5);
    LucasOben = aShiftLeft32(aShiftRight32(w, 5) + 1, 5) - 1;
    LucasProduktOben = aMul2Plus1(LucasOben);
    LucasHalbOben = aDiv2(LucasOben);
    LucasHalbWorte = LucasHalbOben + 1;
    LucasMitte = LucasHalbWorte + LucasHalbOben;
    LucasHochPos = LucasMitte + 1;
    LucasWert.assign(size_t(LucasOben) + 1, 0);
    LucasQuadrat.assign(size_t(LucasProduktOben) + 1, 0);
    LucasHilfe1.assign(size_t(summeGerade(LucasHalbWorte)), 0);
    LucasHilfe2.assign(2 * size_t(summeGerade(LucasHalbWorte)), 0);
    // t2 gets 2 summeGerade(m') words although the square of the sum fits 2m' + 1: aQuadriere
    // writes the full 2n words of its n-word source.
    Long oben = LucasHalbOben;
    for (int stufe = 2; stufe <= 5; ++stufe) {
        const Long m = aDiv2(oben) + 1;
        summe_[size_t(stufe)].assign(size_t(summeGerade(m)), 0);
        summenQuadrat_[size_t(stufe)].assign(2 * size_t(summeGerade(m)), 0);
        oben = aDiv2(oben);
    }
    LucasWert[0] = 4;
}

bool LucasSchritt() {
    if (methode_ != LucasMethodeKaratsuba) return schrittHyp();
    KaratsubaQuadrat();
    return aFalt(LucasExponent, LucasQuadrat.data(), LucasWert.data()) != 0;
}

void KaratsubaQuadrat() { karatsubaStufe<1>(0, LucasOben, 0); }

std::vector<uint32_t> LucasRest() {
    const size_t L = size_t(restWorte(uint32_t(LucasExponent)));
    std::vector<uint32_t> rest(L, 0);
    const bool hyp = methode_ != LucasMethodeKaratsuba;
    const size_t n = hyp ? std::min(L, size_t(LucasWert[0])) : L;
    for (size_t i = 0; i < n; ++i) rest[i] = uint32_t(LucasWert[i + (hyp ? 1 : 0)]);
    return rest;
}

void LucasRestSetzen(const std::vector<uint32_t>& rest) {
    std::fill(LucasWert.begin(), LucasWert.end(), 0);
    if (methode_ == LucasMethodeKaratsuba) {
        std::copy(rest.begin(), rest.end(), LucasWert.begin());
        return;
    }
    size_t n = rest.size();
    while (n > 1 && rest[n - 1] == 0) --n;
    LucasWert[0] = Long(std::max<size_t>(n, 1));
    std::copy(rest.begin(), rest.begin() + long(n), LucasWert.begin() + 1);
}

void LucasFreigeben() {
    for (auto* v : {&LucasWert, &LucasQuadrat, &LucasHilfe1, &LucasHilfe2}) {
        v->assign(1, 0);
        v->shrink_to_fit();
    }
    for (auto& v : summe_) v.clear();
    for (auto& v : summenQuadrat_) v.clear();
}

namespace {

// Rounds to nearest, halves to even, as the old platform's CLng did.
long clng(double x) { return std::lrint(x); }

std::string teil(long n, const char* wort, const char* mehrzahl) {
    return std::to_string(n) + " " + wort + (n == 1 ? "" : mehrzahl);
}

}  // namespace

std::string RestDauerText(int32_t i, int32_t p) {
    double d = double(p - i) * (LucasZeitEnde - LucasZeitStart);
    // The rounding of the first two steps can overshoot (364.6 days make a year and -0.4
    // days); the line is only a guide and stays as it comes out.
    const long jahre = clng(d) / 365;
    d -= 365.0 * double(jahre);
    const long monate = clng(d) / 30;
    d -= 30.0 * double(monate);
    const long tage = long(std::floor(d));
    long minuten = clng((d - double(tage)) * 24 * 60);
    const long stunden = minuten / 60;
    minuten %= 60;
    return "Noch " + teil(jahre, "Jahr", "e") + ", " + teil(monate, "Monat", "e") + ", " + teil(tage, "Tag", "e") +
           ", " + teil(stunden, "Stunde", "n") + ", " + teil(minuten, "Minute", "n");
}

namespace {

bool ganzerLauf(uint32_t p, int32_t methode, LucasAnzeige* anzeige) {
    LucasAuftrag a;
    a.p = p;
    a.methode = methode;
    return LucasLauf(a, anzeige).ergebnis == LucasErgebnis::Prim;
}

}  // namespace

bool LucasBinomisch(uint32_t p, LucasAnzeige* anzeige) { return ganzerLauf(p, LucasMethodeBinomisch, anzeige); }
bool LucasAddSpezial(uint32_t p, LucasAnzeige* anzeige) { return ganzerLauf(p, LucasMethodeAddSpezial, anzeige); }
bool LucasKaratsuba(uint32_t p, LucasAnzeige* anzeige) { return ganzerLauf(p, LucasMethodeKaratsuba, anzeige); }

LucasErgebnis LucasLehmer(uint32_t p) {
    if (p == 2) return LucasErgebnis::Prim;
    if (!LucasExponentPrim(p)) return LucasErgebnis::Zusammengesetzt;
    LucasAuftrag a;
    a.p = p;
    a.methode = p >= LucasDwtAb ? LucasMethodeDwt : LucasMethodeKaratsuba;
    a.pruefpunkte = false;
    return LucasLauf(a, nullptr).ergebnis;
}

}  // namespace sw
