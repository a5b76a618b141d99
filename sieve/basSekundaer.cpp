#include "sieve/basSekundaer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <exception>
#include <limits>
#include <thread>
#include <utility>
#include <cmath>
#include <cstring>
#include <new>
#include <vector>

#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "sieve/SiebMuster.h"
#include "sieve/basSiebwerk.h"
#include "sieve/SiebSegmentiert.h"

namespace sw {

int32_t AnzeigeStumm = 0;

namespace {

SekundaerFortschrittZiel* fortschrittZiel = nullptr;

using U128 = unsigned __int128;

// The window is worked in blocks of 1 MB, where the wheel primes strike and progress is
// reported; the small primes strike in segments that stay in the first-level cache (32 KB).
constexpr uint64_t SegmentWoerter = uint64_t(1) << 13;
static_assert(SegmentWoerter <= MusterLaengeHoechstens);
constexpr uint64_t BlockWoerter = uint64_t(1) << 18;
constexpr uint64_t BlockZahlen = BlockWoerter * RasterSpanne;
// The primes up to half a segment strike in each segment, the larger ones up to a block in
// pieces of two segments (64 KB). Each strikes every cycle that begins in its segment or piece
// whole, past the end, so short pieces cost no cut cycles, and the strikes stay near the
// pattern just written: measured to 1e10, 64 KB pieces took 30 % less time than 2 MB, and
// 32 KB or 128 KB, primes up to 2,048 or 8,192 in the segment were slower.
constexpr uint64_t KleinWoerter = SegmentWoerter / 2;
constexpr uint64_t MittelWoerter = 2 * SegmentWoerter;
static_assert(BlockWoerter % MittelWoerter == 0 && MittelWoerter % SegmentWoerter == 0);

// The residues coprime to 30 and the gap from each to the next.
constexpr uint32_t RadRest[8] = {1, 7, 11, 13, 17, 19, 23, 29};
constexpr uint32_t RadLuecke[8] = {6, 4, 2, 4, 2, 4, 6, 2};

// x mod m for x up to 2^128 and m < 2^64. Above 2^64 the high half is reduced first; then the
// quotient of the 128/64 division fits 64 bits and the processor's divide does it in one step.
inline uint64_t Rest(U128 x, uint64_t m) {
    const uint64_t hi = uint64_t(x >> 64), lo = uint64_t(x);
    if (hi == 0) return lo % m;
#if defined(__x86_64__)
    uint64_t q, r;
    asm("divq %4" : "=a"(q), "=d"(r) : "a"(lo), "d"(hi < m ? hi : hi % m), "rm"(m));
    (void)q;
    return r;
#else
    return uint64_t(x % m);
#endif
}

// A prime below the block length strikes by cycles of 120p numbers (p words): the multiples
// p * (120k + r) for the 32 residues r fall at fixed word offsets and masks in every cycle, so
// a whole cycle is 32 strikes with no test between them. naechster is the start of the cycle
// in progress relative to the segment, rest the first of its 32 multiples not yet struck: a
// cycle cut by a segment's end goes on there, with no pass over the residues already done.
struct ZyklusPrimzahl {
    uint32_t p;
    uint32_t q;       // p div 120
    int32_t zeile;    // 32 * bit index of p mod 120, the row of the product tables
    uint32_t rest;    // 0..31
    int64_t naechster;
};

ZyklusPrimzahl ZyklusAnlegen(Zahl128 start, uint64_t p);

// The residues of the bits as constants, so that the cycle of each residue class of p can be
// compiled with its 32 offsets and masks as immediates (the tables of RasterTabellen hold the
// same values at run time).
constexpr int64_t Reste[32] = {1,  7,  11, 13, 17, 19, 23, 29, 31, 37,  41,  43,  47,  49,  53,  59,
                               61, 67, 71, 73, 77, 79, 83, 89, 91, 97, 101, 103, 107, 109, 113, 119};
constexpr uint32_t MaskeVon(int64_t rest) {
    for (int i = 0; i < 32; ++i) {
        if (Reste[i] == rest) return 0x80000000u >> i;
    }
    return 0;
}

// One strike of a whole cycle: t walks from multiple to multiple by q times the gap of the
// residues, so that a turn needs the cycle's start and three multiples of q in registers, not
// 32 offsets; the empty asm keeps the compiler from folding the walk back into 32 offsets,
// which it then spilled to the stack and reloaded for every strike.
constexpr int64_t RestLuecke(size_t c) { return c == 0 ? Reste[0] : Reste[c] - Reste[c - 1]; }
template <size_t C, typename Ort>
inline void ZumVielfachen(Ort& o, int64_t q) {
    o += q * RestLuecke(C);
    asm("" : "+r"(o));
}
template <size_t I, size_t C>
inline void Schlag(uint32_t*& t, int64_t q) {
    ZumVielfachen<C>(t, q);
    t[(Reste[I] * Reste[C]) / 120] |= MaskeVon((Reste[I] * Reste[C]) % 120);
}

template <size_t I, size_t... C>
inline void ZyklusVoll(uint32_t* b, int64_t q, std::index_sequence<C...>) {
    uint32_t* t = b;
    (Schlag<I, C>(t, q), ...);
}

// One strike of a cut cycle: the same walk, from multiple ab on, as long as the multiples fall
// below laenge; c is where the cycle stops (32 if it ends inside).
template <size_t I, size_t C>
inline bool SchlagBis(int64_t& o, int64_t q, uint32_t* seg, uint32_t ab, int64_t laenge, uint32_t& c) {
    ZumVielfachen<C>(o, q);
    if (C < ab) return true;
    const int64_t w = o + (Reste[I] * Reste[C]) / 120;
    if (w >= laenge) {
        c = C;
        return false;
    }
    seg[w] |= MaskeVon((Reste[I] * Reste[C]) % 120);
    return true;
}

template <size_t I, size_t... C>
inline uint32_t ZyklusBis(uint32_t* seg, int64_t s, int64_t q, uint32_t ab, int64_t laenge, std::index_sequence<C...>) {
    int64_t o = s;
    uint32_t c = 32;
    (SchlagBis<I, C>(o, q, seg, ab, laenge, c) && ...);
    return c;
}

// Strikes the multiples of one prime of residue index I in seg[0 .. laenge) and carries the
// cycle on: naechster is the start of the cycle in progress relative to the segment, rest the
// first of its 32 multiples not yet struck (32: none left). The cut cycles at both ends are
// compiled per residue class like the whole ones, with their offsets and masks as immediates,
// and share one copy of the code, so that the 32 classes stay small enough for the
// instruction cache.
//
// Hinaus: every cycle that begins in the segment is struck whole, the last one up to p words
// beyond laenge, where the caller has already written the pattern (which overwrites, and so
// must come first; strikes are or-ed and may come in any order). The cut cycle at the end,
// a checked strike per multiple, is then gone, and the next segment begins with a whole cycle.
template <size_t I, bool Hinaus>
void ZyklusStreichenMit(uint32_t* seg, int64_t laenge, ZyklusPrimzahl& z) {
    constexpr auto alle = std::make_index_sequence<32>{};
    const int64_t p = z.p, q = z.q;
    int64_t s = z.naechster;
    uint32_t ab = z.rest;
    if constexpr (Hinaus) {
        if (ab != 0 || s < 0) {
            ZyklusBis<I>(seg, s, q, ab, std::numeric_limits<int64_t>::max(), alle);
            s += p;
        }
        for (; s < laenge; s += p) ZyklusVoll<I>(seg + s, q, alle);
        z.naechster = s - laenge;
        z.rest = 0;
        return;
    }
    for (;;) {
        // Whole cycles: the hot loop, 32 independent strikes in the cache per turn.
        if (ab == 0 && s >= 0) {
            for (; s + p <= laenge; s += p) ZyklusVoll<I>(seg + s, q, alle);
        }
        const uint32_t c = ZyklusBis<I>(seg, s, q, ab, laenge, alle);
        if (c < 32) {
            z.naechster = s - laenge;
            z.rest = c;
            return;
        }
        s += p;
        ab = 0;
    }
}

using ZyklusFunktion = void (*)(uint32_t*, int64_t, ZyklusPrimzahl&);
template <bool Hinaus, size_t... I>
constexpr std::array<ZyklusFunktion, 32> ZyklusTabelle(std::index_sequence<I...>) {
    return {&ZyklusStreichenMit<I, Hinaus>...};
}
constexpr std::array<ZyklusFunktion, 32> ZyklusFunktionen[2] = {
    ZyklusTabelle<false>(std::make_index_sequence<32>{}), ZyklusTabelle<true>(std::make_index_sequence<32>{})};

// A medium prime whose next cycle begins beyond the piece (most of them, in pieces shorter
// than their cycles) only moves its start, without the call.
inline void ZyklusStreichen(uint32_t* seg, int64_t laenge, ZyklusPrimzahl& z, bool hinaus) {
    if (z.naechster >= laenge) {
        z.naechster -= laenge;
        return;
    }
    ZyklusFunktionen[hinaus][size_t(z.zeile / 32)](seg, laenge, z);
}

// The word offset of the multiple with residue index c in a cycle of z, from the tables.
int64_t ZyklusVersatz(const ZyklusPrimzahl& z, uint32_t c) {
    return int64_t(z.q) * RasterRest[c + 1] + ProduktWort[z.zeile + int32_t(c)];
}

// A medium prime walks its multiples by the wheel of 30 from segment to segment.
struct MittlerePrimzahl {
    uint64_t pos;   // next multiple, relative to the window's start
    uint32_t p;
    uint32_t j;     // wheel index of the multiplier of pos
};

// The first multiple m * p >= start with m coprime to 30: its position relative to start
// and the wheel index of m. Only start mod 30p is needed, so any start works.
// The window's start for the many large primes: each needs start mod 30p, and an integer
// division per prime would cost more than all its strikes. The quotient is estimated in
// double precision (the divisions pipeline), the remainder taken exactly in wrapping 64-bit
// arithmetic (it is small, so its low 64 bits are all of it) and corrected by whole m.
struct FensterStart {
    U128 wert;
    double naeherung;
    explicit FensterStart(U128 w) : wert(w), naeherung(double(w)) {}

    uint64_t Rest(uint64_t m) const {
        const double q = naeherung / double(m);
        // Only where the estimate is off by one at most; else the exact division.
        if (!(q < 0x1p50)) return sw::Rest(wert, m);
        int64_t r = int64_t(uint64_t(wert) - uint64_t(q) * m);
        // One correction each way, written without branches: its direction is random.
        r += r < 0 ? int64_t(m) : 0;
        r -= r >= int64_t(m) ? int64_t(m) : 0;
        if (r < 0 || r >= int64_t(m)) [[unlikely]] return sw::Rest(wert, m);
        return uint64_t(r);
    }
};

inline uint64_t ErsterVielfacherAusRest(uint64_t r, uint64_t p, uint32_t& j) {
    // The first wheel residue whose multiple reaches r: counted, not searched, so that no
    // branch depends on it.
    uint32_t k = 0;
    for (uint32_t i = 0; i < 8; ++i) k += RadRest[i] * p < r;
    if (k == 8) {
        j = 0;
        return 31 * p - r;
    }
    j = k;
    return RadRest[k] * p - r;
}

inline uint64_t ErsterVielfacher(const FensterStart& start, uint64_t p, uint32_t& j) {
    return ErsterVielfacherAusRest(start.Rest(30 * p), p, j);
}

// Walks the multiples of p from pos by the wheel and strikes those below ende. The division
// by 120 is by a constant and compiles to a multiplication.
inline uint64_t RadStreichen(uint32_t* raster, uint64_t pos, uint64_t p, uint32_t& j, uint64_t ende) {
    uint32_t k = j;
    while (pos < ende) {
        raster[pos / RasterSpanne] |= RestMaske[pos % RasterSpanne];
        pos += p * RadLuecke[k];
        k = (k + 1) & 7;
    }
    j = k;
    return pos;
}

// The largest number the primary raster answers for: its limit, or the end of its words if
// it has fewer (one word after a failure); 0 if no run has finished.
uint64_t rasterReichweite() {
    if (!RasterBereit || PrimaerRaster.empty()) return 0;
    return std::min<uint64_t>(uint64_t(PrimaerGrenze.AlsInt64()), PrimaerRaster.size() * RasterSpanne - 1);
}

uint64_t ganzeWurzel(uint64_t n) {
    uint64_t w = uint64_t(std::sqrt(double(n)));
    while (w * w > n) --w;
    while ((w + 1) * (w + 1) <= n) ++w;
    return w;
}

// Calls f(p) for every prime 7 <= von <= p <= bis, in ascending order. They come from the
// primary raster as far as it reaches; beyond it from windows of a block's length sieved here,
// by the primes up to their roots, which come the same way. Each level takes a square root, so
// a raster of 1000 serves windows up to 10^12 directly and any window through a few levels,
// at the cost of sieving up to the root of the window once more.
template <typename F>
void SiebPrimzahlen(uint64_t von, uint64_t bis, F&& f) {
    if (PrimaerRaster.empty()) return;
    const uint32_t* raster = PrimaerRaster.data();
    const uint64_t reicht = rasterReichweite();
    const uint64_t ende = reicht ? std::min(bis, reicht) : bis;
    const uint64_t letztes = std::min<uint64_t>(ende / RasterSpanne, PrimaerRaster.size() - 1);
    for (uint64_t k = von / RasterSpanne; k <= letztes; ++k) {
        const uint32_t wort = raster[k];
        if (wort == 0xFFFFFFFFu) continue;
        for (uint32_t frei = ~wort; frei;) {
            const int i = __builtin_clz(frei);
            frei &= ~(0x80000000u >> i);
            const uint64_t p = k * RasterSpanne + uint64_t(RasterRest[i + 1]);
            if (p < von || p < 7) continue;
            if (p > ende) break;
            f(p);
        }
    }
    // Without the limit of a finished run (at least 1000) the roots would not shrink below it.
    if (reicht < 1000 || bis <= reicht) return;
    std::vector<uint32_t> fenster;
    for (uint64_t a = std::max(von, reicht + 1); a <= bis;) {
        const uint64_t basis = a / RasterSpanne * RasterSpanne;
        const uint64_t woerter = std::min<uint64_t>(BlockWoerter, (bis - basis) / RasterSpanne + 1);
        const uint64_t oben = basis + woerter * RasterSpanne - 1;
        fenster.assign(woerter, 0);
        SekundaerFensterSieben(fenster.data(), woerter, basis, ganzeWurzel(oben));
        FreieBitsDurchlaufen(fenster.data(), 0, woerter, basis, a, bis, [&](uint64_t p) { return f(p), true; });
        a = oben + 1;
    }
}

int32_t BitIndex(uint64_t rest) {
    for (int32_t i = 1; i <= 32; ++i) {
        if (uint64_t(RasterRest[i]) == rest) return i - 1;
    }
    return -1;
}

// The cycles of p begin at the multiples of 120p; the one holding start began R = start mod
// 120p numbers before it, a whole number of words since both are multiples of 120.
ZyklusPrimzahl ZyklusAnlegen(Zahl128 start, uint64_t p) {
    ZyklusPrimzahl z{};
    z.p = uint32_t(p);
    z.q = uint32_t(p / RasterSpanne);
    z.zeile = 32 * BitIndex(p % RasterSpanne);
    z.naechster = -int64_t(Rest(start, RasterSpanne * p) / RasterSpanne);
    // The multiples of the cycle in progress that lie before start are not the window's.
    while (z.rest < 32 && z.naechster + ZyklusVersatz(z, z.rest) < 0) ++z.rest;
    if (z.rest == 32) {
        z.naechster += int64_t(p);
        z.rest = 0;
    }
    return z;
}

}  // namespace

namespace {

// The primes of [von, bis] from a window sieved here by the given small primes (enough for
// the root of bis, and all below the window); puffer is the caller's, so that a thread keeps its memory between steps.
template <typename F>
void SchrittPrimzahlen(uint64_t von, uint64_t bis, const std::vector<uint32_t>& kleine, std::vector<uint32_t>& puffer,
                       F&& f) {
    const uint64_t basis = von / RasterSpanne * RasterSpanne;
    const uint64_t woerter = (bis - basis) / RasterSpanne + 1;
    puffer.assign(woerter, 0);
    // Through the plain entry, not the engine's template: a template call here would
    // instantiate the engine anew for each lambda, without end. Primes above the root strike
    // composites only, so the whole list may sieve.
    FensterSiebenMitPrimzahlen(puffer.data(), woerter, basis, kleine, [](void*, uint64_t, uint64_t) { return true; },
                               nullptr);
    FreieBitsDurchlaufen(puffer.data(), 0, woerter, basis, von, bis, [&](uint64_t p) { return f(p), true; });
}

// The large primes of a narrow window far up (a count near 2^64 or beyond) cost nearly only
// their start offsets, one remainder each, and are independent of each other: their steps are
// dealt out to worker threads. Each finds its primes by sieving its steps itself from a list
// of small primes taken here (never from the primary raster, which a yield of the calling
// thread might replace), and strikes into its own copy of the window (a block at most, so it
// stays in the cache); the copies are or-ed into the window at the end. The calling thread
// waits and reports through melden(steps done), which ends the work early by giving false.
template <typename Melden>
bool GrossParallel(uint32_t* raster, uint64_t woerter, const FensterStart& schnellStart, uint64_t radBis,
                   uint64_t grossBis, uint64_t schritte, uint64_t faeden, Melden&& melden) {
    const uint64_t spanne = woerter * RasterSpanne;
    const std::vector<uint32_t> kleine = KleinePrimzahlen(ganzeWurzel(grossBis + RasterSpanne));
    std::atomic<uint64_t> naechster{0}, erledigt{0}, beendet{0};
    std::atomic<bool> halt{false};
    std::vector<std::vector<uint32_t>> kopien(faeden);
    std::vector<std::exception_ptr> fehler(faeden);
    const auto arbeit = [&](size_t t) {
        try {
            kopien[t].assign(woerter, 0);
            uint32_t* ziel = kopien[t].data();
            std::vector<uint32_t> puffer;
            constexpr size_t StapelGroesse = 512;
            uint64_t stapel[StapelGroesse], reste[StapelGroesse];
            size_t n = 0;
            // Remainders first in a tight loop, where the divisions overlap; then the strikes.
            // Every prime here is beyond a block, so at least as long as the window: it has one
            // multiple in it at most, the first at or after its start, found from start mod p
            // with no walk by the wheel. A multiple by 2, 3 or 5 has no bit (mask 0).
            const auto abarbeiten = [&] {
                for (size_t i = 0; i < n; ++i) reste[i] = schnellStart.Rest(stapel[i]);
                for (size_t i = 0; i < n; ++i) {
                    const uint64_t pos = reste[i] ? stapel[i] - reste[i] : 0;
                    if (pos < spanne) ziel[pos / RasterSpanne] |= RestMaske[pos % RasterSpanne];
                }
                n = 0;
            };
            for (uint64_t s; !halt.load(std::memory_order_relaxed) && (s = naechster.fetch_add(1)) < schritte;) {
                const uint64_t von = radBis + 1 + s * BlockZahlen;
                const uint64_t bis = std::min(grossBis, von + BlockZahlen - 1);
                SchrittPrimzahlen(von, bis, kleine, puffer, [&](uint64_t p) {
                    stapel[n++] = p;
                    if (n == StapelGroesse) abarbeiten();
                });
                abarbeiten();
                erledigt.fetch_add(1);
            }
        } catch (...) {
            fehler[t] = std::current_exception();
            halt = true;
        }
        beendet.fetch_add(1);
    };
    std::vector<std::thread> arbeiter;
    bool ganz = true;
    try {
        for (size_t t = 0; t < faeden; ++t) arbeiter.emplace_back(arbeit, t);
        while (beendet.load() < arbeiter.size()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            if (ganz && !melden(erledigt.load())) {
                ganz = false;
                halt = true;
            }
        }
    } catch (...) {
        // A yield that throws (Ctrl-C in the terminal) leaves no thread running.
        halt = true;
        for (std::thread& a : arbeiter) a.join();
        throw;
    }
    for (std::thread& a : arbeiter) a.join();
    for (const std::exception_ptr& f : fehler) {
        if (f) std::rethrow_exception(f);
    }
    if (!ganz) return false;
    for (const std::vector<uint32_t>& k : kopien) {
        for (uint64_t w = 0; w < woerter; ++w) raster[w] |= k[w];
    }
    return true;
}

// The engine of every window: quelle(von, bis, f) calls f(p) for the sieving primes of
// [von, bis] in ascending order; weiter(fertig, gesamt) after each block reports progress and
// says whether to go on. False if it was told to stop (the window is then unfinished).
template <typename Quelle, typename Weiter>
bool FensterSiebenMit(uint32_t* raster, uint64_t woerter, U128 start, uint64_t grenze, bool mitMuster,
                      Quelle&& quelle, Weiter&& weiter) {
    const FensterStart schnellStart(start);
    const uint64_t spanne = woerter * RasterSpanne;
    // A pattern only where all its primes are sieving primes of the window: a window sieved
    // to a limit below its root keeps the numbers whose factors all lie above the limit.
    mitMuster = mitMuster && grenze >= MusterErsteGroesste;
    const bool alleMuster = mitMuster && grenze >= MusterGroesstePrimzahl;
    const MusterStand muster = MusterStandVon(start / RasterSpanne);

    std::vector<ZyklusPrimzahl> klein, mittel;
    std::vector<MittlerePrimzahl> rad;
    const uint64_t kleinBis = std::min(grenze, KleinWoerter - 1);
    const uint64_t mittelBis = std::min(grenze, BlockWoerter - 1);
    const uint64_t radBis = std::min(grenze, BlockZahlen - 1);
    quelle(alleMuster ? MusterGroesstePrimzahl + 1 : mitMuster ? MusterErsteGroesste + 1 : 7, kleinBis, [&](uint64_t p) { klein.push_back(ZyklusAnlegen(start, p)); });
    quelle(kleinBis + 1, mittelBis, [&](uint64_t p) { mittel.push_back(ZyklusAnlegen(start, p)); });
    quelle(mittelBis + 1, radBis, [&](uint64_t p) {
        MittlerePrimzahl m{};
        m.p = uint32_t(p);
        m.pos = ErsterVielfacher(schnellStart, p, m.j);
        rad.push_back(m);
    });
    // Each residue class strikes through its own compiled cycle: primes of one class in a row
    // call the same code, which the branch predictor and the instruction cache keep.
    const auto nachKlasse = [](const ZyklusPrimzahl& a, const ZyklusPrimzahl& b) { return a.zeile < b.zeile; };
    std::stable_sort(klein.begin(), klein.end(), nachKlasse);
    std::stable_sort(mittel.begin(), mittel.end(), nachKlasse);

    const uint64_t bloecke = (woerter + BlockWoerter - 1) / BlockWoerter;
    const uint64_t grossBis = grenze > radBis ? grenze : 0;
    // The large primes are walked in slices of the primary raster, each counted as a step.
    const uint64_t grossSchritte = grossBis ? (grossBis - radBis) / BlockZahlen + 1 : 0;
    const uint64_t gesamt = bloecke + grossSchritte;

    // The pattern overwrites, so it runs ahead of every strike: gemustert is the end of the
    // words that hold it. The small and medium primes strike whole cycles past the end of
    // their segment or piece (see ZyklusStreichenMit) as far as the window reaches.
    uint64_t gemustert = mitMuster ? 0 : woerter;
    const auto musterBis = [&](uint64_t bis) {
        for (bis = std::min(bis, woerter); gemustert < bis;) {
            const uint64_t n = std::min(SegmentWoerter, bis - gemustert);
            MusterSchreiben(raster + gemustert, n, muster, gemustert, alleMuster);
            gemustert += n;
        }
    };
    // Block by block, and in a block piece by piece of the medium primes: first each segment
    // of the piece gets its pattern and the small primes, then the medium primes strike over
    // the piece; at the block's end the wheel primes.
    for (uint64_t block = 0; block < woerter; block += BlockWoerter) {
        const uint64_t blockEnde = std::min(woerter, block + BlockWoerter);
        for (uint64_t stueck = block; stueck < blockEnde; stueck += MittelWoerter) {
            const uint64_t stueckEnde = std::min(blockEnde, stueck + MittelWoerter);
            for (uint64_t s = stueck; s < stueckEnde; s += SegmentWoerter) {
                const uint64_t n = std::min(SegmentWoerter, stueckEnde - s);
                const bool hinaus = s + n + kleinBis <= woerter;
                musterBis(s + n + (hinaus ? kleinBis : 0));
                for (ZyklusPrimzahl& z : klein) ZyklusStreichen(raster + s, int64_t(n), z, hinaus);
            }
            const bool hinaus = stueckEnde + mittelBis <= woerter;
            musterBis(stueckEnde + (hinaus ? mittelBis : 0));
            for (ZyklusPrimzahl& z : mittel) ZyklusStreichen(raster + stueck, int64_t(stueckEnde - stueck), z, hinaus);
        }
        for (MittlerePrimzahl& m : rad) m.pos = RadStreichen(raster, m.pos, m.p, m.j, blockEnde * RasterSpanne);
        if (!weiter(block / BlockWoerter + 1, gesamt)) return false;
    }

    const uint64_t faeden = std::min<uint64_t>(uint64_t(SiebFaedenWirksam()), grossSchritte / 4);
    if (faeden > 1 && woerter <= BlockWoerter && mitMuster) {
        if (!GrossParallel(raster, woerter, schnellStart, radBis, grossBis, grossSchritte, faeden,
                           [&](uint64_t fertig) { return weiter(bloecke + fertig, gesamt); })) {
            return false;
        }
    } else {
        // Primes beyond a block strike it at most once, all over the window. Struck directly, each
        // strike would wait for main memory; so the hits are first sorted into one bucket per
        // block (word index and bit in one 32-bit entry, appended to a few sequential streams)
        // and then struck bucket by bucket, each within one block in the cache.
        const bool eimerNutzen = woerter < (uint64_t(1) << 27);
        std::vector<std::vector<uint32_t>> eimer(eimerNutzen ? bloecke : 0);
        size_t gepuffert = 0;
        const auto eimerLeeren = [&] {
            for (std::vector<uint32_t>& e : eimer) {
                for (uint32_t h : e) raster[h >> 5] |= 0x80000000u >> (h & 31);
                e.clear();
            }
            gepuffert = 0;
        };
        // The primes come in batches whose remainders are taken in one tight loop first: there the
        // divisions of neighbouring primes overlap, instead of each waiting behind the branches of
        // the enumeration and of the strikes (in a narrow window most large primes never strike,
        // so the remainder is nearly all their cost).
        constexpr size_t StapelGroesse = 512;
        uint64_t stapel[StapelGroesse], reste[StapelGroesse];
        size_t imStapel = 0;
        const auto stapelAbarbeiten = [&] {
            for (size_t i = 0; i < imStapel; ++i) reste[i] = schnellStart.Rest(30 * stapel[i]);
            for (size_t i = 0; i < imStapel; ++i) {
                const uint64_t p = stapel[i];
                uint32_t j;
                uint64_t pos = ErsterVielfacherAusRest(reste[i], p, j);
                if (!eimerNutzen) {
                    RadStreichen(raster, pos, p, j, spanne);
                    continue;
                }
                while (pos < spanne) {
                    const uint64_t w = pos / RasterSpanne;
                    const uint32_t bit = uint32_t(__builtin_clz(RestMaske[pos - w * RasterSpanne]));
                    eimer[w / BlockWoerter].push_back(uint32_t(w << 5) | bit);
                    ++gepuffert;
                    pos += p * RadLuecke[j];
                    j = (j + 1) & 7;
                }
            }
            imStapel = 0;
        };
        for (uint64_t schritt = 0; schritt < grossSchritte; ++schritt) {
            const uint64_t von = radBis + 1 + schritt * BlockZahlen;
            const uint64_t bis = std::min(grossBis, von + BlockZahlen - 1);
            quelle(von, bis, [&](uint64_t p) {
                stapel[imStapel++] = p;
                if (imStapel == StapelGroesse) stapelAbarbeiten();
            });
            stapelAbarbeiten();
            if (gepuffert > (size_t(1) << 22)) eimerLeeren();
            if (!weiter(bloecke + schritt + 1, gesamt)) return false;
        }
        eimerLeeren();
    }

    // The multiplier 1 struck the sieving primes themselves where the window reaches down to
    // them; they are primes and get their bits back. The number 1 is no prime.
    if (start <= grenze) {
        const uint64_t s64 = uint64_t(start);
        quelle(std::max<uint64_t>(s64, 7), std::min<uint64_t>(grenze, s64 + spanne - 1), [&](uint64_t p) {
            const uint64_t pos = p - s64;
            raster[pos / RasterSpanne] &= ~RestMaske[pos % RasterSpanne];
        });
    }
    if (start == 0 && woerter) raster[0] |= BitMaske[1];
    return true;
}

}  // namespace

void SekundaerFensterSieben(uint32_t* raster, uint64_t woerter, U128 start, uint64_t grenze,
                            SekundaerRueckruf beiSegment, void* kontext) {
    // A raster altered by hand (RasterEcht off) decides itself which small numbers sieve.
    FensterSiebenMit(
        raster, woerter, start, grenze, RasterEcht,
        [](uint64_t von, uint64_t bis, auto&& f) { SiebPrimzahlen(von, bis, f); },
        [&](uint64_t fertig, uint64_t gesamt) {
            if (beiSegment) beiSegment(kontext, fertig, gesamt);
            return true;
        });
}

bool FensterSiebenMitPrimzahlen(uint32_t* raster, uint64_t woerter, Zahl128 start, const std::vector<uint32_t>& primzahlen,
                                SiebWeiter weiter, void* kontext) {
    const uint64_t grenze = primzahlen.empty() ? 0 : primzahlen.back();
    return FensterSiebenMit(
        raster, woerter, start, grenze, true,
        [&](uint64_t von, uint64_t bis, auto&& f) {
            auto it = std::lower_bound(primzahlen.begin(), primzahlen.end(), von);
            for (; it != primzahlen.end() && *it <= bis; ++it) f(uint64_t(*it));
        },
        [&](uint64_t fertig, uint64_t gesamt) { return weiter(kontext, fertig, gesamt); });
}


// ---- the entries of the windows ------------------------------------------------------------

void SekundaerFortschrittSetzen(SekundaerFortschrittZiel* ziel) { fortschrittZiel = ziel; }
void SekundaerFortschrittLoesen() { fortschrittZiel = nullptr; }

void SekundaerFortschrittZeigen(SekundaerFortschrittZiel& ziel) {
    ziel.RechtsSetzen(Text(402));
    ziel.LinksSetzen("");
    ziel.ProzentSetzen("");
    ziel.BalkenSetzen(0);
    ziel.RahmenZeigen(true);
}

bool SekundaerAnfrageGross() {
    if (MsgFrage(400) == AntwortJa) return true;
    MsgInfo(401);
    return false;
}

bool SekundaerPruefen(const Decimal& start, const Decimal& laenge) {
    // Below the square root of the primary limit the window would overlap the primary range.
    if (start <= Decimal(PrimaerWurzel) && start * start < PrimaerGrenze) {
        MsgInfoText("Primär und Sekundärbereich überschneiden sich...\nErhöhen Sie den Primärbereich!");
        return false;
    }
    const Decimal quadrat = SekundaerExaktBis();
    if (start > quadrat || laenge > Decimal(GrenzeLong) || start + laenge > quadrat) {
        if (MsgFrage(404) != AntwortJa) return false;
    }
    return SekundaerSieben(start, laenge);
}

namespace {

struct LaufStand {
    SekundaerFortschrittZiel* ziel;
    double startZeit;
};

void fortschrittMelden(void* kontext, uint64_t fertig, uint64_t gesamt) {
    auto* stand = static_cast<LaufStand*>(kontext);
    if (stand->ziel) {
        const int32_t prozent = Prozent(double(fertig), 0, double(gesamt));
        const auto [links, rechts] = ZeitTextTeilen(ZeitText(stand->startZeit, double(fertig), 0, double(gesamt)));
        stand->ziel->LinksSetzen(links);
        stand->ziel->RechtsSetzen(rechts);
        stand->ziel->ProzentSetzen(std::to_string(prozent) + " %");
        stand->ziel->BalkenSetzen(prozent);
    }
    DoEvents();
}

}  // namespace

uint64_t SekundaerSiebReichweite() {
    const uint64_t raster = rasterReichweite();
    // A raster altered by hand gives no true primes to sieve further with.
    if (!RasterEcht || raster < 1000) return raster;
    return std::max(raster, SegmentDurchgangBis);
}

Decimal SekundaerExaktBis() {
    const Decimal reichweite(SekundaerSiebReichweite());
    return PrimaerQuadrat > reichweite * reichweite ? PrimaerQuadrat : reichweite * reichweite;
}

bool SekundaerSieben(const Decimal& start, const Decimal& laenge) {
    if (start.IstNegativ() || laenge.IstNegativ()) {
        MsgBereich();
        return false;
    }
    SekundaerFortschrittZiel* ziel = AnzeigeStumm == 0 ? fortschrittZiel : nullptr;
    if (ziel) {
        ziel->LinksSetzen("Starte...");
        ziel->RechtsSetzen("");
        ziel->RahmenZeigen(true);
        DoEvents();
    }
    LaufStand stand{ziel, Timer()};
    StartZeit = stand.startZeit;

    const Decimal spanne(RasterSpanne);
    const Decimal neuStart = start / spanne * spanne;
    const Decimal neuEnde = (start + laenge) / spanne * spanne + spanne;
    if (neuEnde - neuStart > Decimal(int64_t(1) << 40)) throw Laufzeitfehler(FehlerUeberlauf);
    const uint64_t woerter = uint64_t((neuEnde - neuStart).AlsInt64() / RasterSpanne) + 1;

    // The last word reaches 119 beyond SekundaerEnde, and SekundaerEnde + 1 may be the square
    // of the next prime: the sieving primes go up to the root of the last number held.
    Decimal grenze = GanzeWurzel(neuStart + Decimal(woerter * RasterSpanne - 1));
    if (Decimal(SekundaerSiebReichweite()) < grenze) {
        grenze = PrimaerGrenze;
        MsgInfo(514);
    }

    // The old window goes only when the new one stands; a failure leaves the old range whole.
    return SekundaerFensterSetzen(neuStart.Betrag(), woerter, uint64_t(grenze.AlsInt64()), fortschrittMelden, &stand);
}

namespace {
int32_t sperren = 0;      // SekundaerSperre objects alive
int sperrTiefe = 0;       // the yield depth at which the outermost one was taken
}  // namespace

SekundaerSperre::SekundaerSperre() {
    if (sperren++ == 0) sperrTiefe = EreignisTiefe();
}

SekundaerSperre::~SekundaerSperre() { --sperren; }

bool SekundaerErsetzbar() { return sperren == 0 || EreignisTiefe() <= sperrTiefe; }

bool SekundaerRasterAnlegen(uint64_t woerter) {
    if (!SekundaerErsetzbar()) {
        MsgInfo(1380);
        return false;
    }
    std::vector<uint32_t> neu;
    try {
        // Linux overcommits: a window beyond the physical memory would be killed while its
        // zeros are written, not refused; so it is refused here like a failed allocation.
        const long seiten = ::sysconf(_SC_PHYS_PAGES), seite = ::sysconf(_SC_PAGESIZE);
        if (seiten > 0 && seite > 0 && woerter / uint64_t(seite) * 4 >= uint64_t(seiten)) throw std::bad_alloc();
        neu.reserve(woerter);
        // The large primes strike all over the window; on 4 KB pages nearly every strike
        // would also miss the address translation cache. Huge pages are asked for before
        // the zeros touch the memory, since only then can the kernel hand them out.
        const uintptr_t anfang = reinterpret_cast<uintptr_t>(neu.data());
        const uintptr_t grosseSeite = uintptr_t(2) << 20;
        const uintptr_t von = (anfang + grosseSeite - 1) & ~(grosseSeite - 1);
        const uintptr_t bis = (anfang + woerter * sizeof(uint32_t)) & ~(grosseSeite - 1);
        if (bis > von) ::madvise(reinterpret_cast<void*>(von), bis - von, MADV_HUGEPAGE);
        neu.resize(woerter);
    } catch (const std::bad_alloc&) {
        MsgSpeicher(Laufzeitfehler(FehlerKeinSpeicher));
        return false;
    }
    SekundaerRaster.swap(neu);
    return true;
}

bool SekundaerFensterSetzen(Zahl128 start, uint64_t woerter, uint64_t grenze, SekundaerRueckruf beiSegment,
                            void* kontext) {
    if (!SekundaerRasterAnlegen(woerter)) return false;
    SekundaerSperre sperre;
    SekundaerStart = Decimal(start);
    SekundaerEnde = Decimal(start + Zahl128(woerter - 1) * RasterSpanne);
    SekundaerFensterSieben(SekundaerRaster.data(), woerter, start, grenze, beiSegment, kontext);
    return true;
}

uint64_t SekundaerAnzahl(const Decimal& von, const Decimal& bis) {
    uint64_t anzahl = 0;
    const U128 a = von.IstNegativ() ? 0 : von.Betrag();
    if (bis.IstNegativ()) return 0;
    const U128 b = bis.Betrag();
    const U128 basis = SekundaerStart.Betrag();
    const uint64_t woerter = SekundaerRaster.size();
    if (woerter == 0 || b < basis || a > b) return 0;
    // Whole words inside [von, bis] are counted by population count; the two edge words bit
    // by bit through the enumeration.
    const uint64_t ersterVoll = a <= basis ? 0 : uint64_t((a - basis + RasterSpanne - 1) / RasterSpanne);
    const uint64_t hinterLetztem = std::min<uint64_t>(woerter, uint64_t((b - basis + 1) / RasterSpanne));
    if (ersterVoll >= hinterLetztem) {
        SekundaerDurchlaufen(a, b, [&](U128) { return ++anzahl, true; });
        return anzahl;
    }
    anzahl += NullBitsZaehlen(SekundaerRaster.data() + ersterVoll, size_t(hinterLetztem - ersterVoll));
    if (ersterVoll > 0) {
        SekundaerDurchlaufen(a, basis + U128(ersterVoll) * RasterSpanne - 1, [&](U128) { return ++anzahl, true; });
    }
    if (hinterLetztem < woerter) {
        SekundaerDurchlaufen(basis + U128(hinterLetztem) * RasterSpanne, b, [&](U128) { return ++anzahl, true; });
    }
    return anzahl;
}

int64_t SekundaerZaehlen(const Decimal& von, const Decimal& bis) {
    if (von < SekundaerStart || bis > SekundaerEnde) {
        MsgBereich();
        return 0;
    }
    return int64_t(SekundaerAnzahl(von, bis));
}

bool SekundaerIstPrim(const Decimal& n) {
    if (n < SekundaerStart) return false;
    const U128 pos = n.Betrag() - SekundaerStart.Betrag();
    const uint32_t maske = RestMaske[uint32_t(pos % RasterSpanne)];
    const U128 wort = pos / RasterSpanne;
    if (maske == 0 || wort >= SekundaerRaster.size()) return false;
    return (SekundaerRaster[size_t(wort)] & maske) == 0;
}

}  // namespace sw
