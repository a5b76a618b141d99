// The Decimal family: remainders, quotients, roundings and shifts on the bare 96-bit
// magnitude of a Decimal record. The sieve calls these once per struck position, so each is
// a few word operations with no normalisation and no allocation.
// A zero divisor never traps, as everywhere in the library: a quotient is 0, a number divided
// in place stays as it was, and a remainder (the word result) is 0. The test costs one
// well-predicted branch; the sieve's hot loops call the unguarded helpers of zk_intern.h.
#include <cstring>

#include "zahlkern/zk_intern.h"

using namespace zk;

extern "C" {

void aMoveDec(const DecimalSatz* source, DecimalSatz* target) {
    std::memcpy(target, source, sizeof(DecimalSatz));
}

Long aModDec32(const DecimalSatz* dec, Long m) { return m == 0 ? 0 : Long(dec_rest32(dec, u32(m))); }

Long aDivDec32(DecimalSatz* dec, Long d) { return d == 0 ? 0 : Long(dec_teilen32(dec, u32(d))); }

Long aLowModDec32(DecimalSatz* dec, Long m) {
    if (m == 0) return 0;
    u32 r = dec_rest32(dec, u32(m));
    dec_setzen(dec, dec_betrag(dec) - r);
    return Long(r);
}

void aDecAuf120Kappen(DecimalSatz* dec) { aLowModDec32(dec, 120); }

Long aDivDec2Long(const DecimalSatz* dec, Long d) {
    if (d == 0) return 0;
    DecimalSatz kopie = *dec;
    dec_teilen32(&kopie, u32(d));
    return Long(kopie.Lo32);
}

Long aMODDec120(const DecimalSatz* dec) { return Long(dec_rest32(dec, 120)); }

Long aMODDec8(const DecimalSatz* dec) { return Long(dec->Lo32 & 7u); }

Long aMODDec2(const DecimalSatz* dec) { return Long(dec->Lo32 & 1u); }

void aModDecDirekt(DecimalSatz* a, const DecimalSatz* b) {
    // Truncating division: the remainder's magnitude is |a| mod |b| and it keeps a's sign,
    // so -7 mod 5 gives -2 and the caller adds the modulus itself. A zero remainder is +0.
    if (dec_betrag(b) == 0) return;
    u128 r = dec_betrag(a) % dec_betrag(b);
    dec_setzen(a, r);
    if (r == 0) a->sign = 0;
}

void aShiftLeftDec(DecimalSatz* dec, Long n) {
    if (n <= 0) return;
    dec_setzen(dec, n >= 96 ? 0 : (dec_betrag(dec) << n) & kDecMax);
}

void aShiftRightDec(DecimalSatz* dec, Long n) {
    if (n <= 0) return;
    dec_setzen(dec, n >= 96 ? 0 : dec_betrag(dec) >> n);
}

void aMov64Dec(Zahl64* z, const DecimalSatz* dec) {
    z->w[0] = dec->Lo32;
    z->w[1] = dec->Mid32;
}

}  // extern "C"
