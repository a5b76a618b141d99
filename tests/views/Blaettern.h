// The numbers a display marks as prime, collected by paging from the first page to the last:
// what a user who pages through the whole range would see, for comparison with an oracle.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

#include "views/Anzeige.h"

namespace sw::test {

inline std::set<int64_t> AllesBlaettern(AnzeigeLogik& logik) {
    std::set<int64_t> gesehen;
    logik.Blaettern(0);
    for (int seiten = 0; seiten < 100000; ++seiten) {
        const AnzeigeSeite s = logik.Seite();
        EXPECT_EQ(s.kopf.rfind("Diese Seite startet mit: ", 0), 0u);
        for (int32_t p : s.vorweg) gesehen.insert(p);
        for (const AnzeigeZelle& z : s.zellen) {
            if (z.prim) gesehen.insert(z.zahl.AlsInt64());
            EXPECT_FALSE(z.prim && !z.imBereich);
        }
        const Decimal vorher = logik.Aktuell;
        logik.Blaettern(4);
        if (logik.Aktuell == vorher) break;
    }
    return gesehen;
}

}  // namespace sw::test
