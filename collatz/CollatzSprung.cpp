// The fast walk of the Collatz map: table jumps of 16 T steps, in 64-bit words below 2^52 and
// in one pass over the words of a Hyp above.
#include "collatz/CollatzSprung.h"

#include <bit>
#include <vector>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr int kBits = 16;
constexpr uint32_t kSpanne = uint32_t(1) << kBits;
constexpr uint32_t kMaske = kSpanne - 1;
// Below this a jump could pass an end value unseen (17 * 2^12 is above 2^16), so the walk
// goes by single steps there; above it every value of a jump stays above 2^5 > 17.
constexpr uint64_t kSprungAb = uint64_t(1) << (kBits + 5);
// a * 3^c + T^16(b) with a < 2^36 and 3^c <= 3^16 < 2^26 still fits 64 bits.
constexpr uint64_t kWortGrenze = uint64_t(1) << 52;
// Word operations of the wide walk between two yields (a few milliseconds).
constexpr int64_t kWorteJeYield = int64_t(1) << 22;

bool ende64(uint64_t m, int s) { return m <= 1 || (s < 0 && (m == 5 || m == 17)); }

uint64_t ungeraderSchritt(uint64_t m, int s) { return (3 * m + uint64_t(int64_t(s))) / 2; }

struct Tabellen {
    std::vector<uint32_t> ziel;      // T^16(b)
    std::vector<uint16_t> paritaet;  // bit i set: step i of b was odd
    std::vector<uint64_t> rest;      // m < 2^16: T steps << 32 | odd steps down to the end
    uint64_t pot3[kBits + 1];

    explicit Tabellen(int s) : ziel(kSpanne), paritaet(kSpanne), rest(kSpanne) {
        pot3[0] = 1;
        for (int i = 1; i <= kBits; ++i) pot3[i] = pot3[i - 1] * 3;
        for (uint32_t b = 0; b < kSpanne; ++b) {
            uint64_t n = b;
            uint16_t p = 0;
            for (int i = 0; i < kBits; ++i) {
                if (n & 1) {
                    n = ungeraderSchritt(n, s);
                    p |= uint16_t(1u << i);
                } else {
                    n >>= 1;
                }
            }
            ziel[b] = uint32_t(n);
            paritaet[b] = p;
        }
        for (uint32_t m = 0; m < kSpanne; ++m) {
            uint64_t n = m, t = 0, u = 0;
            while (!ende64(n, s)) {
                if (n & 1) {
                    n = ungeraderSchritt(n, s);
                    ++u;
                } else {
                    n >>= 1;
                }
                ++t;
            }
            rest[m] = (t << 32) | u;
        }
    }
};

const Tabellen& tabellen(CollatzRegel regel) {
    if (regel == CollatzRegel::DreiNPlusEins) {
        static const Tabellen plus(1);
        return plus;
    }
    static const Tabellen minus(-1);
    return minus;
}

void markenAnhaengen(std::string* marken, uint32_t paritaet, int anzahl) {
    for (int i = 0; i < anzahl; ++i) marken->push_back((paritaet >> i) & 1 ? '!' : '.');
}

void packAddieren(CollatzGang& g, uint64_t pack) {
    g.tSchritte += int64_t(pack >> 32);
    g.ungerade += int64_t(pack & 0xFFFFFFFFu);
}

// The 64-bit part: true at the end value (or when a smaller start's count took over), false
// when the value reached 2^52 and the wide walk must take it.
struct Lauf {
    const Tabellen& t;
    int s;
    CollatzGang& g;
    std::string* marken;
    uint64_t start = 0;
    const uint64_t* kleiner = nullptr;
    uint64_t kleinerAnzahl = 0;
    int64_t worte = 0;  // word operations since the last yield

    bool gehe64(uint64_t& m) {
        for (;;) {
            if (m >= kSprungAb) {
                if (m >= kWortGrenze) return false;
                // The hot loop: one lookup, one multiply-add for 16 steps.
                const uint32_t b = uint32_t(m) & kMaske;
                const uint32_t p = t.paritaet[b];
                const int c = std::popcount(p);
                m = (m >> kBits) * t.pot3[c] + t.ziel[b];
                g.tSchritte += kBits;
                g.ungerade += c;
                if (marken) markenAnhaengen(marken, p, kBits);
            } else if (!marken && m < kSpanne) {
                packAddieren(g, t.rest[m]);
                return true;
            } else {
                if (ende64(m, s)) return true;
                if (m & 1) {
                    m = ungeraderSchritt(m, s);
                    ++g.ungerade;
                    if (marken) marken->push_back('!');
                } else {
                    m >>= 1;
                    if (marken) marken->push_back('.');
                }
                ++g.tSchritte;
            }
            if (kleiner && m < start && m < kleinerAnzahl) {
                packAddieren(g, kleiner[m]);
                return true;
            }
        }
    }

    // The wide part, while the value is at least 2^52. False when the user stopped it.
    bool geheHyp(Hyp& h, bool yield) {
        for (;;) {
            int32_t n = h[0];
            const uint32_t* w = reinterpret_cast<const uint32_t*>(h.daten() + 1);
            if (n == 1 || (n == 2 && w[1] < (uint32_t(1) << 20))) return true;
            if ((w[0] & kMaske) == 0) {
                // A run of zero bits is one shift, not one pass per 16 of them.
                const Long z = aGetLowBitHyp(h);
                aShiftRightHyp(h, z);
                g.tSchritte += z;
                if (marken) marken->append(size_t(z), '.');
                continue;
            }
            h.mindestens(n + 1);
            uint32_t* v = reinterpret_cast<uint32_t*>(h.daten() + 1);
            const uint32_t b = v[0] & kMaske;
            const uint32_t p = t.paritaet[b];
            const int c = std::popcount(p);
            const uint64_t f = t.pot3[c];
            // (h >> 16) * 3^c + T^16(b) in one pass; word i is written after words i and
            // i + 1 were read, so the pass works in place.
            uint64_t ueber = t.ziel[b];
            for (int32_t i = 0; i + 1 < n; ++i) {
                const uint64_t a = ((v[i] >> kBits) | (v[i + 1] << kBits)) & 0xFFFFFFFFu;
                ueber += a * f;
                v[i] = uint32_t(ueber);
                ueber >>= 32;
            }
            ueber += uint64_t(v[n - 1] >> kBits) * f;
            v[n - 1] = uint32_t(ueber);
            ueber >>= 32;
            if (ueber) v[n++] = uint32_t(ueber);
            while (n > 1 && v[n - 1] == 0) --n;
            h[0] = n;
            g.tSchritte += kBits;
            g.ungerade += c;
            if (marken) markenAnhaengen(marken, p, kBits);
            worte += n;
            if (yield && worte >= kWorteJeYield) {
                worte = 0;
                DoEvents();
                if (Abbruch) return false;
            }
        }
    }

    bool gehe(Hyp& h, bool yield) {
        for (;;) {
            if (!geheHyp(h, yield)) return false;
            const uint32_t* w = reinterpret_cast<const uint32_t*>(h.daten() + 1);
            uint64_t m = h[0] == 1 ? w[0] : (uint64_t(w[1]) << 32) | w[0];
            const bool fertig = gehe64(m);
            h.mindestens(2);
            uint32_t* v = reinterpret_cast<uint32_t*>(h.daten() + 1);
            v[0] = uint32_t(m);
            v[1] = uint32_t(m >> 32);
            h[0] = v[1] ? 2 : 1;
            if (fertig) return true;
        }
    }
};

}  // namespace

bool CollatzAmEnde(const Hyp& h, CollatzRegel regel) {
    if (h[0] > 1) return false;
    return ende64(uint32_t(h[1]), int(regel));
}

bool CollatzGehen(Hyp& h, CollatzRegel regel, CollatzGang& gang, std::string* marken) {
    Lauf lauf{tabellen(regel), int(regel), gang, marken};
    return lauf.gehe(h, true);
}

CollatzGang CollatzGang64(uint64_t n, CollatzRegel regel, const uint64_t* kleiner, uint64_t kleinerAnzahl) {
    CollatzGang g;
    Lauf lauf{tabellen(regel), int(regel), g, nullptr, n, kleiner, kleinerAnzahl};
    uint64_t m = n;
    if (lauf.gehe64(m)) return g;
    Hyp h(4);
    uint32_t* v = reinterpret_cast<uint32_t*>(h.daten() + 1);
    v[0] = uint32_t(m);
    v[1] = uint32_t(m >> 32);
    h[0] = 2;
    lauf.gehe(h, false);
    return g;
}

}  // namespace sw
