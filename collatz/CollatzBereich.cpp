// Range counts over a memory of the counts of the small starts.
#include "collatz/CollatzBereich.h"

#include <algorithm>
#include <vector>

#include "frame/Oberflaeche.h"
#include "frame/basZentral.h"

namespace sw {

namespace {

// Starts below this are remembered (16 MB); a larger memory gains little, since walks of
// large starts fall below it only at their end anyway.
constexpr uint64_t kGedaechtnis = uint64_t(1) << 21;
constexpr uint64_t kStartsJeYield = 65536;

uint64_t packen(const CollatzGang& g) { return uint64_t(g.tSchritte) << 32 | uint64_t(g.ungerade); }

}  // namespace

bool CollatzBereichZaehlen(uint64_t von, uint64_t bis, CollatzRegel regel,
                           const std::function<void(uint64_t, const CollatzGang&)>& jeStart) {
    // Remembering pays when the range starts low or is long; a short range high up walks alone.
    const bool merken = von < kGedaechtnis || bis - von >= kStartsJeYield;
    const uint64_t grenze = merken ? std::min(bis == ~uint64_t(0) ? bis : bis + 1, kGedaechtnis) : 0;
    std::vector<uint64_t> klein(size_t(grenze), 0);
    for (uint64_t n = 1; n < grenze; ++n) klein[n] = packen(CollatzGang64(n, regel, klein.data(), grenze));
    for (uint64_t n = von;; ++n) {
        if (n < grenze) {
            const uint64_t p = klein[n];
            jeStart(n, CollatzGang{int64_t(p >> 32), int64_t(p & 0xFFFFFFFFu)});
        } else {
            jeStart(n, CollatzGang64(n, regel, klein.data(), grenze));
        }
        if (n == bis) return true;
        if ((n - von + 1) % kStartsJeYield == 0) {
            DoEvents();
            if (Abbruch) return false;
        }
    }
}

}  // namespace sw
