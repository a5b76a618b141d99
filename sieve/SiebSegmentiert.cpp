#include "sieve/SiebSegmentiert.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "frame/Fortschritt.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"

namespace sw {

int32_t SiebFaeden = 0;
void (*SiebFortschrittHook)(int32_t prozent) = nullptr;

int32_t SiebFaedenWirksam() {
    if (SiebFaeden > 0) return SiebFaeden;
    const unsigned kerne = std::thread::hardware_concurrency();
    return kerne ? int32_t(kerne) : 1;
}

std::vector<uint32_t> KleinePrimzahlen(uint64_t grenze) {
    std::vector<uint32_t> primzahlen;
    if (grenze < 7) return primzahlen;
    // ungerade[i] stands for 2i + 1.
    std::vector<char> gestrichen(size_t(grenze / 2 + 1), 0);
    for (uint64_t p = 3; p * p <= grenze; p += 2) {
        if (gestrichen[p / 2]) continue;
        for (uint64_t v = p * p; v <= grenze; v += 2 * p) gestrichen[v / 2] = 1;
    }
    for (uint64_t n = 7; n <= grenze; n += 2) {
        if (!gestrichen[n / 2]) primzahlen.push_back(uint32_t(n));
    }
    return primzahlen;
}

namespace {

// A part of a thousand words or so would spend more on the start offsets of its primes
// than on its strikes; every thread gets at least one block of the engine (1 MB).
constexpr uint64_t MindestWoerterJeFaden = uint64_t(1) << 18;

// What the workers share with the window thread: the blocks done so far (for the progress
// shown), the order to stop, and the first failure of any of them.
struct Gemeinsam {
    std::atomic<uint64_t> fertig{0};
    std::atomic<bool> halt{false};
    std::mutex sperre;
    std::condition_variable geweckt;
    int32_t laufend = 0;
    std::exception_ptr fehler;
};

bool blockFertig(void* kontext, uint64_t, uint64_t) {
    auto* g = static_cast<Gemeinsam*>(kontext);
    g->fertig.fetch_add(1, std::memory_order_relaxed);
    return !g->halt.load(std::memory_order_relaxed);
}

// The blocks the engine reports for a part of n words: its own blocks of 2^18 words (the
// roots stay below one block of numbers, so there are no steps of large primes).
uint64_t bloeckeVon(uint64_t n) { return (n + MindestWoerterJeFaden - 1) / MindestWoerterJeFaden; }

}  // namespace

void SiebSegmentiert() {
    uint32_t* const raster = PrimaerRaster.data();
    const uint64_t woerter = uint64_t(RasterLetzterIndex) + 1;
    const std::vector<uint32_t> primzahlen = KleinePrimzahlen(uint64_t(PrimaerWurzel));

    // One contiguous part per thread, cut at whole blocks; the last takes the rest.
    const uint64_t hoechstens = std::max<uint64_t>(1, woerter / MindestWoerterJeFaden);
    const uint64_t faeden = std::min<uint64_t>(uint64_t(SiebFaedenWirksam()), hoechstens);
    const uint64_t teil = (woerter / faeden + MindestWoerterJeFaden - 1) / MindestWoerterJeFaden * MindestWoerterJeFaden;
    struct Teil {
        uint64_t anfang, laenge;
    };
    std::vector<Teil> teile;
    uint64_t gesamt = 0;
    for (uint64_t anfang = 0; anfang < woerter; anfang += teil) {
        teile.push_back({anfang, std::min(teil, woerter - anfang)});
        gesamt += bloeckeVon(teile.back().laenge);
    }

    Gemeinsam g;
    g.laufend = int32_t(teile.size());
    std::vector<std::thread> arbeiter;
    arbeiter.reserve(teile.size());
    const auto allesBeenden = [&] {
        g.halt = true;
        for (std::thread& t : arbeiter) t.join();
    };
    try {
        for (const Teil& t : teile) {
            arbeiter.emplace_back([&g, &primzahlen, raster, t] {
                try {
                    FensterSiebenMitPrimzahlen(raster + t.anfang, t.laenge, Zahl128(t.anfang) * RasterSpanne, primzahlen,
                                               blockFertig, &g);
                } catch (...) {
                    std::lock_guard<std::mutex> l(g.sperre);
                    if (!g.fehler) g.fehler = std::current_exception();
                    g.halt = true;
                }
                std::lock_guard<std::mutex> l(g.sperre);
                --g.laufend;
                g.geweckt.notify_all();
            });
        }
        // The window thread waits, yields and shows the share done; the stop flag is passed to
        // the workers, which look at it after each block.
        for (;;) {
            {
                std::unique_lock<std::mutex> l(g.sperre);
                if (g.geweckt.wait_for(l, std::chrono::milliseconds(50), [&] { return g.laufend == 0; })) break;
            }
            if (SiebFortschrittHook) SiebFortschrittHook(Prozent(double(g.fertig.load()), 0, double(gesamt)));
            DoEvents();
            if (Abbruch) g.halt = true;
        }
    } catch (...) {
        // A yield that throws (Ctrl-C in the terminal) leaves no thread writing to the raster.
        allesBeenden();
        throw;
    }
    allesBeenden();
    if (g.fehler) std::rethrow_exception(g.fehler);
    if (Abbruch) throw Laufzeitfehler(1700, Text(1700));
    DoEvents();
}

}  // namespace sw
