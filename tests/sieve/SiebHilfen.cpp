#include "SiebHilfen.h"

#include <gtest/gtest.h>

#include "sieve/RasterTabellen.h"

namespace sw::test {

std::vector<bool> Eratosthenes(uint64_t grenze) {
    std::vector<bool> prim(grenze + 1, true);
    prim[0] = false;
    if (grenze >= 1) prim[1] = false;
    for (uint64_t p = 2; p * p <= grenze; ++p) {
        if (!prim[p]) continue;
        for (uint64_t x = p * p; x <= grenze; x += p) prim[x] = false;
    }
    return prim;
}

std::vector<bool> FreiVonFaktoren(unsigned __int128 von, uint64_t anzahl, uint64_t grenze) {
    static uint64_t gesiebt = 0;
    static std::vector<uint64_t> primzahlen;
    if (gesiebt != grenze) {
        const std::vector<bool> prim = Eratosthenes(grenze);
        primzahlen.clear();
        for (uint64_t p = 2; p <= grenze; ++p) {
            if (prim[p]) primzahlen.push_back(p);
        }
        gesiebt = grenze;
    }
    std::vector<bool> frei(anzahl, true);
    for (uint64_t p : primzahlen) {
        const uint64_t r = uint64_t(von % p);
        for (uint64_t i = r ? p - r : 0; i < anzahl; i += p) {
            if (von + i != p) frei[i] = false;
        }
    }
    for (uint64_t i = 0; i < anzahl && von + i < 2; ++i) frei[i] = false;
    return frei;
}

std::string RasterAbweichungen(const std::vector<uint32_t>& raster, const std::vector<bool>& prim, uint64_t grenze) {
    std::string text;
    int gefunden = 0;
    for (uint64_t n = 0; n <= grenze && gefunden < 10; ++n) {
        const uint32_t maske = RestMaske[n % 120];
        if (maske == 0) continue;
        const size_t k = size_t(n / 120);
        if (k >= raster.size()) return text + " raster too short at " + std::to_string(n);
        const bool rasterPrim = (raster[k] & maske) == 0;
        if (rasterPrim != prim[n]) {
            text += " " + std::to_string(n) + (rasterPrim ? "(clear)" : "(struck)");
            ++gefunden;
        }
    }
    return text;
}

void TextTabelle(const std::function<std::string(const Decimal&)>& f,
                 const std::vector<std::pair<Decimal, std::string>>& faelle) {
    for (const auto& [n, text] : faelle) EXPECT_EQ(f(n), text) << n.Text();
}

}  // namespace sw::test
