#include "sieve/basSiebwerk.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>

#include "frame/basZentral.h"
#include "sieve/Blockdateien.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basMaxPrimaer.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// The count of zero bits of a run of words, eight bytes at a time. With the popcnt
// instruction this runs at the speed of memory; the generic build of the same loop is
// several times slower, so the machine is asked once which one to take.
template <typename Zaehler>
inline uint64_t nullBitsMit(const uint32_t* w, size_t n, Zaehler zaehle) {
    uint64_t gesetzt[4] = {0, 0, 0, 0};
    size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        uint64_t v[4];
        std::memcpy(v, w + i, sizeof v);
        gesetzt[0] += zaehle(v[0]);
        gesetzt[1] += zaehle(v[1]);
        gesetzt[2] += zaehle(v[2]);
        gesetzt[3] += zaehle(v[3]);
    }
    uint64_t summe = gesetzt[0] + gesetzt[1] + gesetzt[2] + gesetzt[3];
    for (; i < n; ++i) summe += zaehle(w[i]);
    return 32 * uint64_t(n) - summe;
}

__attribute__((target("popcnt"))) uint64_t nullBitsPopcnt(const uint32_t* w, size_t n) {
    return nullBitsMit(w, n, [](uint64_t x) { return uint64_t(__builtin_popcountll(x)); });
}

uint64_t nullBitsAllgemein(const uint32_t* w, size_t n) {
    return nullBitsMit(w, n, [](uint64_t x) { return uint64_t(__builtin_popcountll(x)); });
}

// Clear bits of one word from bit von to bit bis (1..32, bit 1 the top bit).
int32_t nullBitsZwischen(uint32_t wort, int von, int bis) {
    uint32_t bereich = (0xFFFFFFFFu >> (von - 1)) & (0xFFFFFFFFu << (32 - bis));
    return __builtin_popcount(~wort & bereich);
}

int bitVon(const Decimal& n) {
    const uint32_t maske = RestMaske[aMODDec120(&n)];
    return __builtin_clz(maske) + 1;
}

}  // namespace

uint64_t NullBitsZaehlen(const uint32_t* worte, size_t anzahl) {
    static const bool mitPopcnt = __builtin_cpu_supports("popcnt");
    return mitPopcnt ? nullBitsPopcnt(worte, anzahl) : nullBitsAllgemein(worte, anzahl);
}

bool IstPrim(const Decimal& n) {
    if (n.IstNegativ()) return false;
    Decimal q = n;
    const uint32_t maske = RestMaske[aDivDec32(&q, RasterSpanne)];
    if (maske == 0) return n == Decimal(2) || n == Decimal(3) || n == Decimal(5);
    if (q > Decimal(RasterLetzterIndex)) return false;
    return (PrimaerRaster[size_t(q.Lo32)] & maske) == 0;
}

Decimal NaechstePrim(const Decimal& n) {
    if (n < Decimal(2)) return 2;
    if (n == Decimal(2)) return 3;
    if (n < Decimal(5)) return 5;
    // Every candidate beyond the limit answers 0, so a start there needs no search (and its
    // word index might not even fit 32 bits).
    if (n >= PrimaerGrenze) return 0;
    const uint64_t start = uint64_t(n.AlsInt64());
    const uint64_t grenze = uint64_t(PrimaerGrenze.AlsInt64());
    uint64_t gefunden = 0;
    PrimzahlenDurchlaufen(start + 1, grenze, [&](uint64_t p) {
        gefunden = p;
        return false;
    });
    return Decimal(gefunden);
}

int32_t NaechstePrimLong(int32_t n) {
    const Decimal p = NaechstePrim(Decimal(n));
    // A prime beyond the signed 32-bit range has no answer on this road.
    return p > Decimal(std::numeric_limits<int32_t>::max()) ? 0 : int32_t(p.AlsInt64());
}

Decimal VorherigePrim(const Decimal& n) {
    if (n < Decimal(3)) return 0;
    if (n == Decimal(3)) return 2;
    if (n < Decimal(6)) return 3;
    if (n < Decimal(8)) return 5;
    if (n > PrimaerGrenze) return 0;
    const int64_t wert = n.AlsInt64();
    int64_t k = wert / RasterSpanne;
    for (; k >= 0; --k) {
        // Only the residues below n count in n's own word.
        uint32_t frei = ~PrimaerRaster[size_t(k)];
        while (frei) {
            const int b = __builtin_ctz(frei);
            frei &= frei - 1;
            const int64_t c = RasterSpanne * k + RasterRest[32 - b];
            if (c < wert) return Decimal(c);
        }
    }
    return 0;
}

// The small primes 2, 3, 5 are counted by hand, everything from 7 on from the raster: the
// partial words at both ends bit by bit, the words between by their population counts.
// A range reaching beyond the limit has no answer and gives 0.
Decimal PrimAnzahl(const Decimal& von, const Decimal& bis) {
    if (bis > PrimaerGrenze || von > bis || bis < Decimal(2)) return 0;
    int64_t anzahl = 0;
    for (int klein : {2, 3, 5}) {
        if (von <= Decimal(klein) && Decimal(klein) <= bis) ++anzahl;
    }
    const Decimal a = von < Decimal(8) ? Decimal(7) : NaechstePrim(von - Decimal(1));
    const Decimal b = IstPrim(bis) ? bis : VorherigePrim(bis);
    if (a.IstNull() || b.IstNull() || a > b) return anzahl;
    if (a == b) return anzahl + 1;

    const int64_t wortA = a.AlsInt64() / RasterSpanne;
    const int64_t wortB = b.AlsInt64() / RasterSpanne;
    const int bitA = bitVon(a), bitB = bitVon(b);
    if (wortA == wortB) {
        anzahl += nullBitsZwischen(PrimaerRaster[size_t(wortA)], bitA, bitB);
    } else {
        anzahl += nullBitsZwischen(PrimaerRaster[size_t(wortA)], bitA, 32);
        anzahl += int64_t(NullBitsZaehlen(PrimaerRaster.data() + wortA + 1, size_t(wortB - wortA - 1)));
        anzahl += nullBitsZwischen(PrimaerRaster[size_t(wortB)], 1, bitB);
    }
    return anzahl;
}

namespace {

// Trial division of rest by the raster's primes from 7 on, word by word up to word bisWort,
// appending "x" and each prime divided out. Ends early, true, when the rest is 1 or (below the
// limit) prime, the prime appended; also true, with the rest appended, once a prime passes
// halbe (when given): below the limit that means the rest is prime. False when the words ran
// out; the rest is then left to the caller.
bool rasterProbe(Decimal& rest, std::string& text, int64_t bisWort, const Decimal* halbe) {
    bisWort = std::min<int64_t>(bisWort, RasterLetzterIndex);
    const Decimal::BetragTyp halbeWert = halbe ? halbe->Betrag() : 0;
    // Most trials fail; while the rest fits a machine word, the test is one 64-bit remainder
    // instead of the three divisions of a Decimal's.
    bool wort64 = rest.Hi32 == 0;
    uint64_t rest64 = uint64_t(rest.Betrag());
    for (int64_t k = 0; k <= bisWort; ++k) {
        for (uint32_t frei = ~PrimaerRaster[size_t(k)]; frei;) {
            const int i = __builtin_clz(frei);
            frei &= ~(0x80000000u >> i);
            const int64_t p = RasterSpanne * k + RasterRest[i + 1];
            if (p < 7) continue;  // 1 has a bit but divides nothing out
            if (halbe && Decimal::BetragTyp(p) > halbeWert) {
                text += "x" + rest.Text();
                return true;
            }
            if (wort64 ? rest64 % uint64_t(p) != 0 : aModDec32(&rest, int32_t(p)) != 0) continue;
            do {
                aDivDec32(&rest, int32_t(p));
                text += "x" + std::to_string(p);
            } while (aModDec32(&rest, int32_t(p)) == 0);
            wort64 = rest.Hi32 == 0;
            rest64 = uint64_t(rest.Betrag());
            // The raster answers for a rest below the limit only.
            if (rest < PrimaerGrenze) {
                if (rest == Decimal(1)) return true;
                if (IstPrim(rest)) {
                    text += "x" + rest.Text();
                    return true;
                }
            }
        }
    }
    return false;
}

}  // namespace

void FaktorPrimaer(Decimal& rest, std::string& text) {
    // A composite rest has a prime factor up to its root, so passing half of it (the bound
    // kept for the program's sake) only happens to a prime rest, which is appended.
    const Decimal halbe = rest / Decimal(2);
    if (!rasterProbe(rest, text, RasterLetzterIndex, &halbe)) text += "x" + rest.Text();
    rest = 1;
}

void FaktorSekundaer(Decimal& rest, std::string& text) {
    // The walk ends at the word of the root of the rest, fixed at the start (the double root
    // errs by far less than a word), or at the raster's end.
    const int64_t bisWort = int64_t(std::sqrt(rest.Double()) / RasterSpanne);
    if (rasterProbe(rest, text, bisWort, nullptr)) {
        rest = 1;
        return;
    }
    text += "x" + rest.Text();
    // Beyond the square of the limit the walk could not reach the root: unproved.
    if (rest > PrimaerQuadrat) text += "?";
    rest = 1;
}

std::string FaktorenText(const Decimal& n) {
    if (n < Decimal(1)) {
        // Zero is divisible by everything and negative numbers have no factorisation here:
        // dividing them out would never end.
        throw Laufzeitfehler(5, "Nur positive Zahlen lassen sich zerlegen: " + n.Text());
    }
    Decimal rest = n;
    std::string text;
    for (int32_t klein : {2, 3, 5}) {
        while (aModDec32(&rest, klein) == 0) {
            aDivDec32(&rest, klein);
            text += "x" + std::to_string(klein);
        }
    }
    if (rest == Decimal(1)) {
        // nothing left
    } else if (rest >= PrimaerGrenze) {
        FaktorSekundaer(rest, text);
    } else if (IstPrim(rest)) {
        text += "x" + rest.Text();
    } else {
        FaktorPrimaer(rest, text);
    }
    return text.empty() ? text : text.substr(1);
}

int32_t MersenneNaechsterExponent(int32_t n) {
    for (int32_t e : MersenneExponenten) {
        if (e > n) return Decimal(e) > PrimaerGrenze ? 0 : e;
    }
    return 0;
}

void BereichBeschaffen() {
    const std::string name = BlockName(PrimaerGrenze);
    const bool eigener = !name.empty() && std::ifstream(ProgrammPfad + name, std::ios::binary).is_open();
    if (eigener ? BlockLaden(ProgrammPfad + name) : GroesserenBlockNutzen()) return;
    // No usable block. A load that failed may have given up the pre-sieved raster, or filled
    // part of it from the file before the read broke off; the main sieve needs it whole and
    // pre-sieved, so it is built anew (std::bad_alloc if that is impossible).
    RasterNeuVorsieben();
    SiebProdukt();
}

}  // namespace sw
