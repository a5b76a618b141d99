#include "sieve/basMaxPrimaer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// A raster larger than the machine's physical memory would not fail at allocation on Linux:
// the kernel overcommits and kills the program while the zeros are written. Such a request
// is refused up front, the same way as a failed allocation.
bool passtInsSpeicher(size_t bytes) {
    long seiten = ::sysconf(_SC_PHYS_PAGES);
    long seite = ::sysconf(_SC_PAGESIZE);
    if (seiten <= 0 || seite <= 0) return true;
    return bytes / size_t(seite) < size_t(seiten);
}

// Prefetching in SiebProdukt: for primes below kVorausBisPrim, whose strikes touch every line
// of their stream, the lines of the cofactor word kVorausWorte ahead. Larger primes strike
// only a few lines per word, which the out-of-order core overlaps by itself (measured).
constexpr ptrdiff_t kVorausBisPrim = 256;
constexpr ptrdiff_t kVorausWorte = 16;
constexpr ptrdiff_t kWorteJeZeile = 64 / sizeof(uint32_t);

}  // namespace

void RasterNeuAnlegen(size_t worte) {
    // The old raster goes first, so that old and new never stand in memory side by side.
    std::vector<uint32_t>().swap(PrimaerRaster);
    if (!passtInsSpeicher(worte * sizeof(uint32_t))) throw std::bad_alloc();
    // One word of room more than asked: a block loaded over this raster needs it (see
    // BlockLaden), and so it can take the place without a new allocation.
    PrimaerRaster.reserve(worte + 1);
    // The sieves strike all over the raster; with 4 KB pages nearly every strike of a large
    // prime would also miss the address translation cache. Huge pages are asked for before
    // the zeros touch the memory, since only then can the kernel hand them out.
    const uintptr_t anfang = reinterpret_cast<uintptr_t>(PrimaerRaster.data());
    const uintptr_t seite = uintptr_t(2) << 20;
    const uintptr_t von = (anfang + seite - 1) & ~(seite - 1);
    const uintptr_t bis = (anfang + worte * sizeof(uint32_t)) & ~(seite - 1);
    if (bis > von) ::madvise(reinterpret_cast<void*>(von), bis - von, MADV_HUGEPAGE);
    PrimaerRaster.assign(worte, 0);
}

void RasterAufEinWort() {
    PrimaerRaster.assign(1, 0);
    RasterAdresseAuffrischen();
    RasterLetzterIndex = 0;
}

bool RasterAnlegen() {
    try {
        RasterNeuAnlegen(size_t(RasterLetzterIndex) + 1);
    } catch (const std::bad_alloc&) {
        RasterAufEinWort();
        MsgSpeicher(Laufzeitfehler(FehlerKeinSpeicher));
        return false;
    }
    RasterAdresseAuffrischen();
    return true;
}

namespace {

void vorsieben() {
    aSeave7_11(PrimaerRasterAdresse, RasterLetzterIndex);
    PrimaerRaster[0] |= BitMaske[1];
}

}  // namespace

bool RasterVorsieben() {
    if (!RasterAnlegen()) return false;
    vorsieben();
    return true;
}

void RasterNeuVorsieben() {
    RasterNeuAnlegen(size_t(RasterLetzterIndex) + 1);
    RasterAdresseAuffrischen();
    vorsieben();
}

// The hot loop of the program. Everything it touches lives in locals: the raster as a raw
// pointer (no bounds checks, no reload of the vector's data pointer after each store), the
// row of the product tables of the prime at hand, and the offsets rebuilt once per prime.
// Cofactor words are walked by count-trailing-zeros over the clear bits, with the offsets
// and masks stored in reversed bit order so that the lowest set bit of the inverted word
// names its entry directly. While the largest product of a cofactor word still lies inside
// the raster, the per-strike bound test is dropped; the last few words of a prime take the
// careful road. The writes of one prime slide through the raster p words per cofactor word,
// so for all but the largest primes their window stays in the caches.
void SiebProdukt() {
    uint32_t* const raster = PrimaerRaster.data();
    const ptrdiff_t letzter = RasterLetzterIndex;
    const ptrdiff_t wurzelWort = PrimaerWurzelWort;

    ptrdiff_t delta[32] = {};  // RasterDelta: k * residue j for the word k at hand
    for (ptrdiff_t k = 0; k <= wurzelWort; ++k) {
        const uint32_t w = raster[k];
        uint32_t frei = ~w;
        while (frei) {
            const int i = __builtin_clz(frei);  // bit i+1: residues in ascending order
            frei &= ~(0x80000000u >> i);
            const ptrdiff_t p = RasterSpanne * k + RasterRest[i + 1];
            const int32_t* produktWort = ProduktWort + i * 32;
            const uint32_t* produktMaske = ProduktMaske + i * 32;

            ptrdiff_t offset[32];      // RasterOffset, in bit order
            ptrdiff_t offsetRev[32];   // the same, indexed by trailing-zero count
            uint32_t maskeRev[32];
            for (int j = 0; j < 32; ++j) {
                offset[j] = delta[j] + produktWort[j];
                offsetRev[31 - j] = offset[j];
                maskeRev[31 - j] = produktMaske[j];
            }

            // Cofactors in the prime's own word: only the residues above its own, in order,
            // since the first product beyond the raster ends the prime.
            ptrdiff_t t = p * k;
            bool fertig = false;
            for (uint32_t u = ~w & uint32_t(0xFFFFFFFFull >> (i + 1)); u;) {
                const int j = __builtin_clz(u);
                u &= ~(0x80000000u >> j);
                const ptrdiff_t x = offset[j] + t;
                if (x > letzter) {
                    fertig = true;
                    break;
                }
                raster[x] |= produktMaske[j];
            }
            if (fertig) continue;

            // Further cofactor words. Every product of word m lands beyond m, so the order of
            // the strikes inside one word does not matter, and the word is read once.
            ptrdiff_t m = k + 1;
            t += p;
            auto wortStreichen = [&]() {
                uint32_t* const ziel = raster + t;
                for (uint32_t u = ~raster[m]; u; u &= u - 1) {
                    const int b = __builtin_ctz(u);
                    ziel[offsetRev[b]] |= maskeRev[b];
                }
            };
            const ptrdiff_t schnellBis = letzter - offset[31];
            if (p < kVorausBisPrim) {
                // A small prime's strikes fill every cache line of a stream that runs ahead
                // of the cofactors; its lines are asked for kVorausWorte words early, so the
                // strikes do not wait for memory once the raster outgrows the caches.
                const ptrdiff_t voraus = kVorausWorte * p + offset[0];
                for (; t + voraus + p <= schnellBis; ++m, t += p) {
                    for (ptrdiff_t z = 0; z < p + kWorteJeZeile; z += kWorteJeZeile) {
                        __builtin_prefetch(raster + t + voraus + z, 1, 3);
                    }
                    wortStreichen();
                }
            }
            for (; t <= schnellBis; ++m, t += p) wortStreichen();
            for (; t + offset[0] <= letzter; ++m, t += p) {
                for (uint32_t u = ~raster[m]; u; u &= u - 1) {
                    const int b = __builtin_ctz(u);
                    const ptrdiff_t x = offsetRev[b] + t;
                    if (x <= letzter) raster[x] |= maskeRev[b];
                }
            }
        }
        for (int j = 0; j < 32; ++j) delta[j] += RasterRest[j + 1];
        DoEvents();
    }
    QuadrateStreichen();
}

// The squares were left standing on purpose (see above); they go last. n runs over the odd
// numbers, and n squared along by differences: 121 + 48 = 169, + 56 = 225, ...
void QuadrateStreichen() {
    uint32_t* const raster = PrimaerRaster.data();
    Decimal quadrat = 121;
    Decimal differenz = 48;
    const Decimal acht = 8;
    for (int32_t n = 13; n <= PrimaerWurzel; n += 2) {
        quadrat += differenz;
        differenz += acht;
        const Long wort = aDivDec2Long(&quadrat, RasterSpanne);
        raster[wort] |= RestMaske[aMODDec120(&quadrat)];
    }
}

void UeberGrenzeStreichen() {
    const int64_t grenze = PrimaerGrenze.AlsInt64();
    const int64_t letzter = int64_t(PrimaerRaster.size()) - 1;
    for (int64_t k = std::max<int64_t>(grenze / RasterSpanne, 0); k <= letzter; ++k) {
        for (int i = 1; i <= 32; ++i) {
            if (RasterSpanne * k + RasterRest[i] > grenze) PrimaerRaster[size_t(k)] |= BitMaske[i];
        }
    }
}

void PrimModifikation(int32_t grenze) {
    if (!RasterAnlegen()) return;
    uint32_t* const raster = PrimaerRaster.data();
    raster[0] = 0x80000000u;
    if (grenze < 7) return;
    if (grenze >= 11) {
        aSeave7_11(raster, RasterLetzterIndex);
        raster[0] = 0xE0000000u;
    }
    const int64_t letzter = RasterLetzterIndex;
    Long rest = 0;
    const int64_t bisWort = std::min<int64_t>(aDivMod120(grenze, &rest), letzter);
    bool ende = false;
    for (int64_t k = 0; k <= bisWort && !ende; ++k) {
        for (int i = 1; i <= 32; ++i) {
            if (raster[k] & BitMaske[i]) continue;
            const int64_t p = RasterSpanne * k + RasterRest[i];
            if (p > grenze) {
                ende = true;
                break;
            }
            // 3p, 5p, 7p, ... as word and remainder, carried along without a division;
            // the multiples with a factor 3 or 5 meet a zero mask.
            const int64_t schrittWort = (2 * p) / RasterSpanne;
            const int32_t schrittRest = int32_t((2 * p) % RasterSpanne);
            int64_t wort = (3 * p) / RasterSpanne;
            int32_t r = int32_t((3 * p) % RasterSpanne);
            while (wort <= letzter) {
                raster[wort] |= RestMaske[r];
                wort += schrittWort;
                r += schrittRest;
                if (r >= RasterSpanne) {
                    r -= RasterSpanne;
                    ++wort;
                }
            }
        }
    }
    raster[0] = RasterWort0;
}

}  // namespace sw
