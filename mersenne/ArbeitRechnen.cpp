#include "mersenne/ArbeitRechnen.h"

#include <algorithm>
#include <climits>

#include "frame/Decimal.h"
#include "frame/Laufzeitfehler.h"
#include "mersenne/LucasLauf.h"
#include "mersenne/TeilerSuche.h"
#include "collatz/CollatzBereich.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

constexpr uint64_t kCollatzPruefen = 4096;  // starts between two looks at weiter

// Thrown through the range count to leave it when weiter says stop.
struct CollatzHalt {};

}  // namespace

std::optional<std::vector<TeilerErgebnisZeile>> TeilerEinheitRechnen(uint32_t von, uint32_t bis, uint64_t KZiel,
                                                                     const std::map<uint32_t, PrimZeile>& gespeichert,
                                                                     const EinheitWeiter& weiter) {
    std::vector<TeilerErgebnisZeile> aus;
    static const PrimZeile leer;
    TeilerSuche suche;
    // false when weiter stopped the search of p
    auto nehmen = [&](uint32_t p) {
        TeilerErgebnisZeile e;
        e.p = p;
        const auto g = gespeichert.find(p);
        const PrimZeile& alt = g == gespeichert.end() ? leer : g->second;
        const uint64_t KGeprueft = uint64_t(std::max<int64_t>(0, TeilerPotWert(alt.teilerPot)));
        if (aIsInMers(Long(p)) == 0 && alt.mersenne == 0 && KZiel > KGeprueft) {
            suche.Exponent(p);
            bool gestoppt = false;
            const TeilerFund f = suche.TeilerSuchen(KGeprueft, KZiel, [&](uint64_t) {
                gestoppt = weiter && !weiter();
                return !gestoppt;
            });
            if (gestoppt || f.ergebnis == TeilerErgebnis::Abgebrochen) return false;
            e.bisK = KZiel;
            if (f.ergebnis == TeilerErgebnis::Gefunden) e.q = Decimal::ausBreit(Decimal::Breit(f.q)).Text();
        }
        aus.push_back(std::move(e));
        return true;
    };
    if (von <= 2 && bis >= 2) nehmen(2);
    // A unit is a narrow range, so trial division of each candidate costs little beside the
    // search itself.
    for (uint64_t p = std::max<uint64_t>(3, von | 1); p <= bis; p += 2) {
        if (LucasExponentPrim(uint32_t(p)) && !nehmen(uint32_t(p))) return std::nullopt;
    }
    return aus;
}

std::optional<PrimZeile> TeilerZeileZusammenfuehren(const PrimZeile& alt, const TeilerErgebnisZeile& e,
                                                    uint64_t KZiel) {
    const int64_t KGeprueft = TeilerPotWert(alt.teilerPot);
    PrimZeile neu = alt;
    neu.vorhanden = true;
    if (aIsInMers(Long(e.p)) != 0) {
        const int64_t grenze = std::min<int64_t>(std::max<int64_t>(KGeprueft, int64_t(KZiel)), INT32_MAX);
        if (alt.mersenne == 1 && alt.teilerPot == grenze) return std::nullopt;
        neu.mersenne = 1;
        neu.teiler = "0";
        neu.teilerPot = int32_t(grenze);
        return neu;
    }
    if (alt.mersenne != 0) return std::nullopt;
    if (!e.q.empty()) {
        neu.mersenne = 2;
        neu.teiler = e.q;
        neu.teilerPot = int32_t(KZiel);
        neu.faktorS = FaktorK(e.q, int32_t(e.p));
        return neu;
    }
    if (int64_t(e.bisK) > KGeprueft) {
        neu.teilerPot = int32_t(e.bisK);
        return neu;
    }
    // A limit stored in short form is written back plainly, as the single search does.
    if (alt.vorhanden && alt.teilerPot != KGeprueft && KGeprueft <= INT32_MAX) {
        neu.teilerPot = int32_t(KGeprueft);
        return neu;
    }
    return std::nullopt;
}

std::optional<CollatzSumme> CollatzEinheitRechnen(uint64_t von, uint64_t bis, const EinheitWeiter& weiter) {
    if (von < 1 || von > bis) throw Laufzeitfehler(5);
    CollatzSumme s;
    try {
        CollatzBereichZaehlen(von, bis, CollatzRegel::DreiNPlusEins, [&](uint64_t n, const CollatzGang& g) {
            const uint64_t schritte = uint64_t(g.tSchritte + g.ungerade);
            ++s.starts;
            s.schritte += schritte;
            s.mult += uint64_t(g.ungerade);
            if (s.starts == 1 || schritte > s.laengste) {
                s.laengste = schritte;
                s.laengsteStart = n;
            }
            if (s.starts % kCollatzPruefen == 0 && weiter && !weiter()) throw CollatzHalt{};
        });
    } catch (const CollatzHalt&) {
        return std::nullopt;
    }
    return s;
}

}  // namespace sw
