#include "mersenne/MersenneWert.h"

#include <gmp.h>


#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "mersenne/basDB.h"
#include "primality/HypMpz.h"
#include "primality/Probedivision.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

std::string Dezimal(mpz_srcptr z) {
    std::string s(mpz_sizeinbase(z, 10) + 2, '\0');
    mpz_get_str(s.data(), 10, z);
    s.resize(std::char_traits<char>::length(s.c_str()));
    return s;
}

void Pruefen(uint32_t p) {
    if (p > MersenneWertHoechstExponent) throw Laufzeitfehler(FehlerUeberlauf);
}

}  // namespace

uint64_t MersenneStellen(uint32_t p) {
    Pruefen(p);
    if (p < 4) return 1;
    // 2^p is never a power of ten, so 2^p - 1 has as many digits as 2^p: floor(p log10 2) + 1.
    // The double is checked against the exact value where its last digit could mislead.
    Mpz zehn, zwei;
    const auto schaetzung = uint64_t(double(p) * 0.30102999566398119521) + 1;
    mpz_ui_pow_ui(zehn, 10, schaetzung - 1);
    mpz_setbit(zwei, p);
    return mpz_cmp(zwei, zehn) < 0 ? schaetzung - 1 : schaetzung;
}

std::string MersenneWertText(uint32_t p) {
    const uint64_t stellen = MersenneStellen(p);
    Mpz m;
    if (stellen <= MersenneWertGanzBis) {
        mpz_setbit(m, p);
        mpz_sub_ui(m, m, 1);
        return p == 0 ? "0" : Dezimal(m);
    }
    // The first digits: 2^p divided by 10^(stellen - 2000); 2^p and 2^p - 1 agree there.
    Mpz zehn;
    mpz_ui_pow_ui(zehn, 10, stellen - MersenneWertRand);
    mpz_setbit(m, p);
    mpz_tdiv_q(m, m, zehn);
    std::string anfang = Dezimal(m);
    // The last digits: 2^p modulo 10^2000, never 0 (no factor 5), minus 1, with its zeros.
    Mpz modul, zwei(2), rest;
    mpz_ui_pow_ui(modul, 10, MersenneWertRand);
    mpz_powm_ui(rest, zwei, p, modul);
    mpz_sub_ui(rest, rest, 1);
    std::string ende = Dezimal(rest);
    ende.insert(0, MersenneWertRand - ende.size(), '0');
    return anfang + " ... " + ende;
}

std::string MersenneWissen(uint32_t p) {
    const std::string exponent = std::to_string(p);
    const bool bekanntePrimzahl = p <= 0x7FFFFFFF && aIsInMers(int32_t(p)) != 0;
    // Reading must not leave an empty database file behind in a folder that has none.
    if (p > 0x7FFFFFFF || !DbSegmentVorhanden(DbSegment(p))) {
        return TextP1(bekanntePrimzahl ? 1440 : 1441, exponent);
    }
    int32_t status = 0, teilerPot = 0;
    std::string teiler;
    PrimLesen(int32_t(p), status, teiler, teilerPot);
    // A known divisor is shown even when its row carries no limit (an imported one may not).
    if (status == 2 && !teiler.empty() && teiler[0] >= '1' && teiler[0] <= '9') {
        return TextP1(487, teiler.substr(0, teiler.find('x')));
    }
    if (teilerPot == 0) return Text(484);
    if (bekanntePrimzahl) return TextP1(1440, exponent);
    return TextP1P2(1443, exponent, ZahlFormat(static_cast<long long>(TeilerPotWert(teilerPot))));
}

uint32_t PrimExponentSchritt(int64_t p, int richtung) {
    do {
        p += richtung;
    } while (p >= 0 && p <= 0xFFFFFFFFLL && (p < 3 || !ProbedivisionPrim(uint64_t(p))));
    return p >= 3 && p <= 0xFFFFFFFFLL ? uint32_t(p) : 0;
}

}  // namespace sw
