#include "distribution/Tupel.h"

#include "distribution/Bereichsgang.h"

#include <algorithm>

#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

// The 32 residues of a raster word, bit 31 (the most significant) for residue 1.
struct Reste {
    int32_t rest[32]{};
    int32_t index[240];  // residue 0..239 of two words to its bit index 0..63, -1 if it has none
    Reste() {
        int32_t k = 0;
        for (int32_t r = 0; r < 240; ++r) {
            const bool frei = r % 2 && r % 3 && r % 5;
            index[r] = frei ? k : -1;
            if (frei && r < 120) rest[k] = r;
            if (frei) ++k;
        }
    }
};
const Reste& reste() {
    static const Reste r;
    return r;
}

// One set of first members that share their partners' bit distances: in the pair word p (the
// word in bits 63..32, its successor below) the partners of a first member at bit b sit at
// b - schub[j], so p << schub[j] brings them onto it.
struct Gruppe {
    uint64_t maske = 0;
    int32_t schub[3]{};
    int32_t n = 0;
};

std::vector<Gruppe> gruppenVon(const std::vector<int32_t>& muster) {
    const Reste& r = reste();
    std::vector<Gruppe> gruppen;
    for (int32_t k = 0; k < 32; ++k) {
        Gruppe g;
        bool zulaessig = true;
        for (size_t j = 1; j < muster.size(); ++j) {
            const int32_t partner = r.index[r.rest[k] + muster[j]];
            if (partner < 0) zulaessig = false;
            else g.schub[g.n++] = partner - k;
        }
        if (!zulaessig) continue;
        auto gleich = [&](const Gruppe& h) { return std::equal(h.schub, h.schub + h.n, g.schub); };
        auto it = std::find_if(gruppen.begin(), gruppen.end(), gleich);
        if (it == gruppen.end()) it = gruppen.insert(gruppen.end(), g);
        it->maske |= uint64_t(1) << (63 - k);
    }
    return gruppen;
}

struct Gruppen {
    std::vector<Gruppe> art[TupelArten];
    // The same masks for the hot loop, which knows the shifts: 1 for every pair of the next
    // free residue, 2 for the sexy pairs with a free residue between, (1, 2) for the triplets,
    // (1, 2, 3) for the quadruplets; the layout of the wheel admits no others.
    uint64_t zwillinge = 0, cousins = 0, sexy1 = 0, sexy2 = 0, drillingA = 0, drillingB = 0, vierlinge = 0;
    Gruppen() {
        for (int32_t a = 1; a < TupelArten; ++a) art[a] = gruppenVon(TupelMuster(a));
        auto maske = [&](int32_t a, std::vector<int32_t> schub) {
            for (const Gruppe& g : art[a]) {
                if (std::vector<int32_t>(g.schub, g.schub + g.n) == schub) return g.maske;
            }
            return uint64_t(0);
        };
        zwillinge = maske(TupelZwillinge, {1});
        cousins = maske(TupelCousins, {1});
        sexy1 = maske(TupelSexy, {1});
        sexy2 = maske(TupelSexy, {2});
        drillingA = maske(TupelDrillingA, {1, 2});
        drillingB = maske(TupelDrillingB, {1, 2});
        vierlinge = maske(TupelVierlinge, {1, 2, 3});
    }
};
const Gruppen& gruppen() {
    static const Gruppen g;
    return g;
}

// The hot loop over whole words: word i of raster paired with its predecessor (vorige, the
// primes of the word before the first), the first members taken from the predecessor. Seven
// popcounts and a few shifts per 64 numbers' worth of bits, no branch on the bits; built
// twice, for processors with and without the popcount instruction. Gives the primes of the
// last word, the predecessor of the next call.
__attribute__((target_clones("popcnt", "default"))) uint32_t
paareZaehlen(const uint32_t* raster, uint64_t n, uint32_t vorige, TupelAnzahl& summe) {
    const Gruppen& m = gruppen();
    uint64_t c0 = 0, c1 = 0, c2 = 0, c3 = 0, c4 = 0, c5 = 0, c6 = 0;
    for (uint64_t i = 0; i < n; ++i) {
        const uint32_t folge = ~raster[i];
        const uint64_t p = (uint64_t(vorige) << 32) | folge;
        const uint64_t e = p & 0xFFFFFFFF00000000u;
        const uint64_t e1 = e & (p << 1), e12 = e1 & (p << 2);
        c0 += uint64_t(__builtin_popcountll(e));
        c1 += uint64_t(__builtin_popcountll(e1 & m.zwillinge));
        c2 += uint64_t(__builtin_popcountll(e1 & m.cousins));
        c3 += uint64_t(__builtin_popcountll(e1 & m.sexy1) + __builtin_popcountll(e & (p << 2) & m.sexy2));
        c4 += uint64_t(__builtin_popcountll(e12 & m.drillingA));
        c5 += uint64_t(__builtin_popcountll(e12 & m.drillingB));
        c6 += uint64_t(__builtin_popcountll(e12 & (p << 3) & m.vierlinge));
        vorige = folge;
    }
    const uint64_t c[TupelArten] = {c0, c1, c2, c3, c4, c5, c6};
    for (int32_t a = 0; a < TupelArten; ++a) summe[a] += c[a];
    return vorige;
}

// The bits of a word whose numbers basis + r lie in [von, bis].
uint32_t bereichsMaske(Zahl128 basis, Zahl128 von, Zahl128 bis) {
    if (basis >= von && basis + (RasterSpanne - 1) <= bis) return 0xFFFFFFFFu;
    uint32_t m = 0;
    for (int32_t k = 0; k < 32; ++k) {
        const Zahl128 n = basis + Zahl128(reste().rest[k]);
        if (n >= von && n <= bis) m |= 0x80000000u >> k;
    }
    return m;
}

// Words between two calls of the reporter: about half a million numbers, well under a millisecond.
constexpr uint64_t BlockWoerter = 4096;

bool inBloecken(TupelZaehlung& z, const uint32_t* raster, uint64_t erstes, uint64_t letztes, Zahl128 basis0,
                Zahl128 von, Zahl128 bis, TupelMelder melden, void* kontext) {
    for (uint64_t a = erstes; a < letztes; a += BlockWoerter) {
        const uint64_t b = std::min(letztes, a + BlockWoerter);
        z.Woerter(raster + a, b - a, basis0 + Zahl128(a) * RasterSpanne, von, bis);
        if (melden && !melden(kontext, double(b - erstes) / double(letztes - erstes))) return false;
    }
    return true;
}

}  // namespace

const std::vector<int32_t>& TupelMuster(int32_t art) {
    static const std::vector<int32_t> muster[TupelArten] = {{0}, {0, 2}, {0, 4}, {0, 6}, {0, 2, 6}, {0, 4, 6}, {0, 2, 6, 8}};
    return muster[art];
}

const char* TupelName(int32_t art) {
    static const char* namen[TupelArten] = {"primes",    "twins",     "cousins",    "sexy",
                                            "triplets_a", "triplets_b", "quadruplets"};
    return namen[art];
}

TupelZaehlung::TupelZaehlung(Zahl128 von, Zahl128 bis) : von_(von), bis_(bis) {
    Zahl128 zehn = 10;
    for (int32_t k = 1; k <= 38; ++k, zehn *= 10) {
        if (zehn > von && zehn <= bis) grenzen_.push_back(zehn);
        if (zehn > bis) break;
    }
    dekaden_.assign(grenzen_.size() + 1, TupelAnzahl{});
}

void TupelZaehlung::Woerter(const uint32_t* raster, uint64_t anzahl, Zahl128 basis, Zahl128 teilVon, Zahl128 teilBis) {
    const Zahl128 a = std::max(von_, teilVon), b = std::min(bis_, teilBis);
    if (a > b || anzahl == 0 || b < basis) return;
    // Only the words that hold numbers of [a, b]; those inside it need no mask.
    const uint64_t erstes = a > basis ? uint64_t(std::min<Zahl128>((a - basis) / RasterSpanne, anzahl)) : 0;
    const uint64_t ende = uint64_t(std::min<Zahl128>((b - basis) / RasterSpanne + 1, anzahl));
    if (erstes >= ende) return;
    auto wortBasis = [&](uint64_t w) { return basis + Zahl128(w) * RasterSpanne; };
    wort(~raster[erstes] & bereichsMaske(wortBasis(erstes), a, b), wortBasis(erstes));
    uint64_t w = erstes + 1;
    while (w + 1 < ende) {
        // The waiting word (basis_) and the words after it go through the hot loop as long as
        // the waiting word lies wholly below the next power of ten.
        uint64_t schnell = ende - 1 - w;
        if (fach_ < grenzen_.size()) {
            const Zahl128 g = grenzen_[fach_];
            schnell = uint64_t(std::min<Zahl128>(schnell, g >= basis_ ? (g - basis_) / RasterSpanne : 0));
        }
        if (schnell == 0) {
            wort(~raster[w], wortBasis(w));
            ++w;
            continue;
        }
        frei_ = paareZaehlen(raster + w, schnell, frei_, dekaden_[fach_]);
        basis_ += Zahl128(schnell) * RasterSpanne;
        w += schnell;
    }
    if (w < ende) wort(~raster[w] & bereichsMaske(wortBasis(w), a, b), wortBasis(w));
}

void TupelZaehlung::wort(uint32_t frei, Zahl128 basis) {
    if (hat_ && basis == basis_) {  // the seam of the primary raster and a window: one word in two parts
        frei_ |= frei;
        return;
    }
    if (hat_) verarbeiten(frei_, basis == basis_ + RasterSpanne ? frei : 0, basis_);
    frei_ = frei;
    basis_ = basis;
    hat_ = true;
}

void TupelZaehlung::verarbeiten(uint32_t frei, uint32_t folge, Zahl128 basis) {
    const uint64_t p = (uint64_t(frei) << 32) | folge;
    uint64_t rest = 0xFFFFFFFF00000000u;
    // A power of ten inside the word splits its first members between two rows.
    while (fach_ < grenzen_.size() && grenzen_[fach_] <= basis + (RasterSpanne - 1)) {
        const uint64_t unter = uint64_t(~bereichsMaske(basis, grenzen_[fach_], ~Zahl128(0))) << 32;
        zaehlen(p, rest & unter, fach_);
        rest &= ~unter;
        ++fach_;
    }
    zaehlen(p, rest, fach_);
}

// One pair of words by the groups of each kind: the words at a power of ten or at the edges.
void TupelZaehlung::zaehlen(uint64_t p, uint64_t start, size_t fach) {
    TupelAnzahl& n = dekaden_[fach];
    const uint64_t erste = p & start;
    n[TupelPrimzahlen] += uint64_t(__builtin_popcountll(erste));
    const Gruppen& gr = gruppen();
    for (int32_t a = 1; a < TupelArten; ++a) {
        uint64_t summe = 0;
        for (const Gruppe& g : gr.art[a]) {
            uint64_t x = erste & g.maske;
            for (int32_t j = 0; j < g.n; ++j) x &= p << g.schub[j];
            summe += uint64_t(__builtin_popcountll(x));
        }
        n[a] += summe;
    }
}

void TupelZaehlung::Abschliessen() {
    if (fertig_) return;
    if (hat_) verarbeiten(frei_, 0, basis_);
    hat_ = false;
    fertig_ = true;
    // The constellations with a member below 7 (first member, last member).
    struct Klein {
        int32_t art, erstes, letztes;
    };
    static const Klein klein[] = {{TupelPrimzahlen, 2, 2}, {TupelPrimzahlen, 3, 3}, {TupelPrimzahlen, 5, 5},
                                  {TupelZwillinge, 3, 5},  {TupelZwillinge, 5, 7},  {TupelCousins, 3, 7},
                                  {TupelSexy, 5, 11},      {TupelDrillingA, 5, 11}, {TupelVierlinge, 5, 13}};
    for (const Klein& k : klein) {
        if (Zahl128(k.erstes) < von_ || Zahl128(k.letztes) > bis_) continue;
        const size_t fach = size_t(std::upper_bound(grenzen_.begin(), grenzen_.end(), Zahl128(k.erstes)) - grenzen_.begin());
        ++dekaden_[fach][k.art];
    }
}

TupelAnzahl TupelZaehlung::Gesamt() const {
    TupelAnzahl s{};
    for (const TupelAnzahl& d : dekaden_) {
        for (int32_t a = 0; a < TupelArten; ++a) s[a] += d[a];
    }
    return s;
}

bool TupelPrimaerZaehlen(TupelZaehlung& z, Zahl128 von, Zahl128 bis, TupelMelder melden, void* kontext) {
    const std::optional<RasterStrecke> s = PrimaerStrecke(von, bis);
    return !s || inBloecken(z, s->woerter, s->erstes, s->letztes, s->basis, von, s->bis, melden, kontext);
}

bool TupelSekundaerZaehlen(TupelZaehlung& z, Zahl128 von, Zahl128 bis, TupelMelder melden, void* kontext) {
    const std::optional<RasterStrecke> s = SekundaerStrecke(von, bis);
    return !s || inBloecken(z, s->woerter, s->erstes, s->letztes, s->basis, von, s->bis, melden, kontext);
}

}  // namespace sw
