#include "primality/Palindrom.h"

#include <gmp.h>

#include <algorithm>

#include "arith/HypText.h"
#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "primality/HypMpz.h"
#include "primality/PrimTests.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

void zifferPruefen(int32_t ziffer) {
    if (ziffer < 1 || ziffer > 9) throw Laufzeitfehler(5, TextP1(2223, ziffer));
}

void zahlPruefen(const std::string& zahl) {
    if (!std::all_of(zahl.begin(), zahl.end(), [](char c) { return c >= '0' && c <= '9'; }))
        throw Laufzeitfehler(5, TextP1(2224, zahl));
}

// The candidate of digit d as a number: z the number, zehnK = 10^k for its k digits. The game
// and the trees build every candidate this way, from the parent's value and not from text, so
// that nine candidates of a long number cost nine linear steps and no decimal conversion.
void kandidat(mpz_ptr c, mpz_srcptr z, mpz_srcptr zehnK, bool leer, unsigned d, Anordnung a) {
    switch (a) {
        case Anordnung::Rechts:  // 10 z + d
            mpz_mul_ui(c, z, 10);
            mpz_add_ui(c, c, d);
            break;
        case Anordnung::Links:  // d 10^k + z
            mpz_mul_ui(c, zehnK, d);
            mpz_add(c, c, z);
            break;
        case Anordnung::Beide:  // d 10^(k+1) + 10 z + d; the empty start takes d alone
            if (leer) {
                mpz_set_ui(c, d);
                break;
            }
            mpz_mul_ui(c, zehnK, 10 * d);
            mpz_addmul_ui(c, z, 10);
            mpz_add_ui(c, c, d);
            break;
    }
}

// How many digits a candidate of a k-digit number has.
int32_t kandidatStellen(int32_t k, Anordnung a) { return k + (a == Anordnung::Beide && k > 0 ? 2 : 1); }

bool wahrscheinlichPrim(mpz_srcptr c, bool millerRabin) {
    if (!millerRabin) return BpswTest(c);
    // One round at a random base cannot judge 2, 3 or a base that is a multiple of a small
    // candidate; the divisions settle those, and every other small number, exactly.
    const int klein = KleinePrimzahlenEntscheiden(c);
    if (klein >= 0) return klein == 1;
    return MillerRabin(MpzZuHyp(c));
}

}  // namespace

std::string PalindromKandidat(const std::string& zahl, int32_t ziffer, Anordnung a) {
    zifferPruefen(ziffer);
    zahlPruefen(zahl);
    const std::string d(1, char('0' + ziffer));
    switch (a) {
        case Anordnung::Rechts:
            return zahl + d;
        case Anordnung::Links:
            return d + zahl;
        case Anordnung::Beide:
            return zahl.empty() ? d : d + zahl + d;
    }
    return zahl;
}

std::string PalindromZurueck(std::string& zahl, Anordnung a) {
    if (zahl.empty()) return "";
    std::string weg;
    switch (a) {
        case Anordnung::Rechts:
            weg = zahl.substr(zahl.size() - 1);
            zahl.pop_back();
            break;
        case Anordnung::Links:
            weg = zahl.substr(0, 1);
            zahl.erase(0, 1);
            break;
        case Anordnung::Beide:
            weg = zahl.substr(0, 1);
            zahl = zahl.size() == 1 ? "" : zahl.substr(1, zahl.size() - 2);
            break;
    }
    return weg;
}

ZiffernUrteil ZiffernPruefen(const std::string& zahl, Anordnung a, bool millerRabin) {
    zahlPruefen(zahl);
    ZiffernUrteil u;
    const int32_t stellen = kandidatStellen(int32_t(zahl.size()), a);
    // A candidate shorter than the limit lies below it: the raster knows it. The length of the
    // candidate, not of the number, decides, since both ends add two digits at a time.
    if (RasterBereit && RasterEcht && stellen < int32_t(PrimaerGrenze.Text().size())) {
        u.art = PalindromPruefArt::Primaer;
        for (int32_t d = 1; d <= 9; ++d) u.frei[size_t(d)] = IstPrim(Decimal::ausText(PalindromKandidat(zahl, d, a)));
        return u;
    }
    u.art = millerRabin ? PalindromPruefArt::MillerRabin : PalindromPruefArt::Bpsw;
    Mpz z, zehnK(1), c;
    if (!zahl.empty()) mpz_set_str(z, zahl.c_str(), 10);
    mpz_ui_pow_ui(zehnK, 10, zahl.size());
    for (unsigned d = 1; d <= 9; ++d) {
        kandidat(c, z, zehnK, zahl.empty(), d, a);
        u.frei[d] = wahrscheinlichPrim(c, millerRabin);
    }
    return u;
}

PalindromBaum PalindromBaumWachsen(Anordnung a, int32_t maxStellen, const BaumFortschritt& fortschritt) {
    if (maxStellen < 0) throw Laufzeitfehler(5, Text(2225));
    PalindromBaum baum;
    // Level by level: a level holds every member of one length (both ends add two digits, so
    // only every other length occurs), and the next is grown from it alone.
    std::vector<Mpz> ebene{Mpz(0)}, naechste;
    int32_t stellen = 0;
    Mpz zehnK(1), c;
    uint64_t tests = 0;
    while (!ebene.empty()) {
        const int32_t neu = kandidatStellen(stellen, a);
        if (maxStellen > 0 && neu > maxStellen) break;
        naechste.clear();
        for (const Mpz& z : ebene) {
            for (unsigned d = 1; d <= 9; ++d) {
                kandidat(c, z, zehnK, stellen == 0, d, a);
                if (BpswTest(c)) naechste.push_back(c);
            }
            tests += 9;
            if (tests % 576 == 0 && !fortschritt(neu, baum.anzahl + naechste.size())) {
                baum.vollstaendig = false;
                return baum;
            }
        }
        if (naechste.empty()) break;
        baum.jeLaenge.resize(size_t(neu) + 1, 0);
        baum.jeLaenge[size_t(neu)] = naechste.size();
        baum.anzahl += naechste.size();
        const auto groesstes = std::max_element(naechste.begin(), naechste.end(),
                                                [](const Mpz& x, const Mpz& y) { return mpz_cmp(x, y) < 0; });
        baum.groesstes = Hyp2Text(MpzZuHyp(*groesstes));
        mpz_ui_pow_ui(zehnK, 10, size_t(neu));
        stellen = neu;
        std::swap(ebene, naechste);
    }
    return baum;
}

}  // namespace sw
