#include "sieve/basSiebwerk.h"

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
    auto ergebnis = [&text]() { return text.empty() ? text : text.substr(1); };
    if (rest == Decimal(1)) return ergebnis();
    if (rest < PrimaerGrenze && IstPrim(rest)) {
        text += "x" + rest.Text();
        return ergebnis();
    }

    // Trial division by the primes of the raster, word by word. Below the limit the trial
    // ends at half the rest; above it at the word of the square root, fixed at the start.
    const bool unterGrenze = rest < PrimaerGrenze;
    int64_t bisWort;
    Decimal haelfte;
    if (unterGrenze) {
        haelfte = rest / Decimal(2);
        bisWort = RasterLetzterIndex;
    } else {
        bisWort = int64_t(std::sqrt(rest.Double()) / RasterSpanne);
        if (bisWort > RasterLetzterIndex) bisWort = RasterLetzterIndex;
    }
    // Most trials fail; while the rest fits a machine word, the test is one 64-bit remainder
    // instead of the three divisions of a Decimal's.
    const Decimal::BetragTyp haelfteWert = haelfte.Betrag();
    bool wort64 = rest.Hi32 == 0;
    uint64_t rest64 = uint64_t(rest.Betrag());
    for (int64_t k = 0; k <= bisWort; ++k) {
        for (uint32_t frei = ~PrimaerRaster[size_t(k)]; frei;) {
            const int i = __builtin_clz(frei);
            frei &= ~(0x80000000u >> i);
            const int64_t p = RasterSpanne * k + RasterRest[i + 1];
            if (p < 7) continue;  // 1 has a bit but divides nothing out
            if (unterGrenze && Decimal::BetragTyp(p) > haelfteWert) {
                text += "x" + rest.Text();
                return ergebnis();
            }
            if (wort64 ? rest64 % uint64_t(p) != 0 : aModDec32(&rest, int32_t(p)) != 0) continue;
            do {
                aDivDec32(&rest, int32_t(p));
                text += "x" + std::to_string(p);
            } while (aModDec32(&rest, int32_t(p)) == 0);
            wort64 = rest.Hi32 == 0;
            rest64 = uint64_t(rest.Betrag());
            if (rest < PrimaerGrenze) {
                if (rest == Decimal(1)) return ergebnis();
                if (IstPrim(rest)) {
                    text += "x" + rest.Text();
                    return ergebnis();
                }
            }
        }
    }
    text += "x" + rest.Text();
    if (rest > PrimaerQuadrat) text += "?";
    return ergebnis();
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
