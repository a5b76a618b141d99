#include "sieve/SiebMuster.h"

#include <algorithm>
#include <array>
#include <vector>

#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

// The groups (1 fills a group of fewer primes), each with a period (the product) below 2^15
// words, so that a table and the segment it is or-ed into stay in the second-level cache
// together. The first one alone is the pattern of the windows whose limit lies below 167.
constexpr std::array<std::array<uint32_t, 4>, 16> Gruppen = {{{7, 11, 13, 17},
                                                              {19, 37, 41, 1},
                                                              {23, 29, 31, 1},
                                                              {43, 47, 1, 1},
                                                              {53, 59, 1, 1},
                                                              {61, 67, 1, 1},
                                                              {71, 73, 1, 1},
                                                              {79, 83, 1, 1},
                                                              {89, 97, 1, 1},
                                                              {101, 103, 1, 1},
                                                              {107, 109, 1, 1},
                                                              {113, 127, 1, 1},
                                                              {131, 137, 1, 1},
                                                              {139, 149, 1, 1},
                                                              {151, 157, 1, 1},
                                                              {163, 167, 1, 1}}};

constexpr uint32_t Periode(const std::array<uint32_t, 4>& g) { return g[0] * g[1] * g[2] * g[3]; }

// One period of a group's strikes, followed by its first MusterLaengeHoechstens words again:
// a segment then reads any stretch without a wrap.
struct Tabelle {
    uint32_t periode;
    std::vector<uint32_t> woerter;
};

const std::array<Tabelle, Gruppen.size()>& Tabellen() {
    static const std::array<Tabelle, Gruppen.size()> tabellen = [] {
        std::array<Tabelle, Gruppen.size()> t;
        for (size_t i = 0; i < Gruppen.size(); ++i) {
            const uint64_t periode = Periode(Gruppen[i]);
            t[i].periode = uint32_t(periode);
            t[i].woerter.assign(periode + MusterLaengeHoechstens, 0);
            for (uint32_t p : Gruppen[i]) {
                if (p == 1) continue;
                // One cycle of p words holds the odd multiples of p up to 120p, those by 3 or 5
                // with no bit (mask 0); the table or-s it in again and again, a loop the
                // compiler vectorises. Every run builds the tables at its start, and striking
                // each multiple over the whole period took seven times as long.
                std::vector<uint32_t> zyklus(p, 0);
                for (uint64_t n = p; n < uint64_t(p) * RasterSpanne; n += 2 * p) zyklus[n / RasterSpanne] |= RestMaske[n % RasterSpanne];
                uint32_t* w = t[i].woerter.data();
                for (size_t rest = t[i].woerter.size(); rest;) {
                    const size_t n = std::min<size_t>(p, rest);
                    for (size_t k = 0; k < n; ++k) w[k] |= zyklus[k];
                    w += n;
                    rest -= n;
                }
            }
        }
        return t;
    }();
    return tabellen;
}

static_assert(Gruppen.back()[1] == MusterGroesstePrimzahl && Gruppen[0][3] == MusterErsteGroesste);

// Eight streams per pass into the segment, which stays in the first-level cache: written
// plainly, the compiler turns the pass into vector loads and one store per vector of words.
// Two passes of eight read and write the segment half as often as four passes of four.
template <bool Oder>
void acht(uint32_t* __restrict z, const uint32_t* const* q, uint64_t n) {
    const uint32_t* __restrict a = q[0];
    const uint32_t* __restrict b = q[1];
    const uint32_t* __restrict c = q[2];
    const uint32_t* __restrict d = q[3];
    const uint32_t* __restrict e = q[4];
    const uint32_t* __restrict f = q[5];
    const uint32_t* __restrict g = q[6];
    const uint32_t* __restrict h = q[7];
    for (uint64_t w = 0; w < n; ++w) z[w] = (Oder ? z[w] : 0) | a[w] | b[w] | c[w] | d[w] | e[w] | f[w] | g[w] | h[w];
}

static_assert(Gruppen.size() == 16, "two passes of eight groups");

}  // namespace

MusterStand MusterStandVon(unsigned __int128 startWort) {
    MusterStand s{};
    const auto& t = Tabellen();
    for (size_t i = 0; i < t.size(); ++i) s.pos[i] = uint32_t(startWort % t[i].periode);
    return s;
}

void MusterSchreiben(uint32_t* ziel, uint64_t anzahl, const MusterStand& stand, uint64_t versatz, bool alle) {
    const auto& t = Tabellen();
    const auto q = [&](size_t i) { return t[i].woerter.data() + (stand.pos[i] + versatz) % t[i].periode; };
    if (!alle) {
        const uint32_t* erste = q(0);
        for (uint64_t w = 0; w < anzahl; ++w) ziel[w] = erste[w];
        return;
    }
    const uint32_t* quellen[16];
    for (size_t i = 0; i < 16; ++i) quellen[i] = q(i);
    acht<false>(ziel, quellen, anzahl);
    acht<true>(ziel, quellen + 8, anzahl);
}

}  // namespace sw
