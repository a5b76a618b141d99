#include "ZkTestHilfen.h"

#include <cstdio>
#include <cstdlib>
#include <algorithm>
#include <cstring>

namespace zktest {

std::mt19937_64& zufall() {
    static std::mt19937_64 gen = [] {
        uint64_t seed = std::random_device{}();
        if (const char* s = std::getenv("ZK_SEED")) seed = std::strtoull(s, nullptr, 10);
        std::printf("zahlkern tests: ZK_SEED=%llu\n", static_cast<unsigned long long>(seed));
        return std::mt19937_64(seed);
    }();
    return gen;
}

uint32_t zufallsWort() { return uint32_t(zufall()()); }

std::vector<uint32_t> muster(int n, int art) {
    std::vector<uint32_t> w(size_t(n), 0);
    switch (art) {
        case 0:  // random words
            for (auto& x : w) x = zufallsWort();
            break;
        case 1:  // all ones: every carry runs through
            for (auto& x : w) x = 0xFFFFFFFFu;
            break;
        case 2:  // a single top bit
            w.back() = 0x80000000u;
            break;
        case 3:  // top bit and a one at the bottom
            w.back() = 0x80000000u;
            w[0] = 1;
            break;
        case 4:  // long runs of zeros and ones
            for (int i = 0; i < n; ++i) w[size_t(i)] = (zufallsWort() & 1) ? 0xFFFFFFFFu : 0u;
            w.back() |= 1u << (zufallsWort() % 32);
            break;
        default:  // sparse random bits
            for (int i = 0; i < n; ++i) w[size_t(i)] = 1u << (zufallsWort() % 32);
            break;
    }
    if (w.back() == 0) w.back() = 1;
    return w;
}

void Mpz::setze(const std::vector<uint32_t>& w) {
    mpz_import(z, w.size(), -1, sizeof(uint32_t), 0, 0, w.data());
}

std::string Mpz::text() const {
    char* s = mpz_get_str(nullptr, 16, z);
    std::string t(s);
    void (*frei)(void*, size_t);
    mp_get_memory_functions(nullptr, nullptr, &frei);
    frei(s, std::strlen(s) + 1);
    return t.size() > 80 ? t.substr(0, 40) + "..." + t.substr(t.size() - 40) : t;
}

sw::Hyp hypAus(const std::vector<uint32_t>& w, int32_t raum) {
    const int32_t n = int32_t(w.size());
    if (raum < n) raum = n;
    sw::Hyp h(raum + kWaechter);
    h[0] = n;
    std::memcpy(h.daten() + 1, w.data(), w.size() * 4);
    for (int32_t i = raum + 1; i <= raum + kWaechter; ++i) h[i] = kWaechterWert;
    return h;
}

sw::Hyp hypAus(const mpz_t z, int32_t raum) {
    size_t n = 0;
    std::vector<uint32_t> w((mpz_sizeinbase(z, 2) + 31) / 32 + 1);
    mpz_export(w.data(), &n, -1, sizeof(uint32_t), 0, 0, z);
    w.resize(n == 0 ? 1 : n);
    if (n == 0) w[0] = 0;
    return hypAus(w, raum);
}

bool waechterHeil(const sw::Hyp& h, int32_t raum) {
    for (int32_t i = raum + 1; i <= raum + kWaechter; ++i) {
        if (h[i] != kWaechterWert) return false;
    }
    return true;
}

sw::Hyp zielMitWaechtern(int32_t raum) {
    sw::Hyp h(raum + kWaechter);
    for (int32_t i = raum + 1; i <= raum + kWaechter; ++i) h[i] = kWaechterWert;
    return h;
}

void hypNachMpz(mpz_t z, const int32_t* h) {
    mpz_import(z, size_t(h[0] > 0 ? h[0] : 1), -1, sizeof(uint32_t), 0, 0, h + 1);
}

bool hypNormal(const int32_t* h) { return h[0] >= 1 && (h[0] == 1 || h[h[0]] != 0); }

bool hypGleich(const int32_t* h, const mpz_t z) {
    if (!hypNormal(h)) return false;
    mpz_t w;
    mpz_init(w);
    hypNachMpz(w, h);
    const bool gleich = mpz_cmp(w, z) == 0;
    mpz_clear(w);
    return gleich;
}

Worte hypWorte(const int32_t* h) { return Worte(h + 1, h + 1 + std::max(h[0], 0)); }

DecimalSatz decAus(unsigned __int128 v) {
    DecimalSatz d{};
    d.Lo32 = uint32_t(v);
    d.Mid32 = uint32_t(v >> 32);
    d.Hi32 = uint32_t(v >> 64);
    return d;
}

DecimalSatz decAusMpz(const mpz_t z) {
    uint32_t w[3] = {0, 0, 0};
    mpz_export(w, nullptr, -1, 4, 0, 0, z);
    return decAus((static_cast<unsigned __int128>(w[2]) << 64) | (uint64_t(w[1]) << 32) | w[0]);
}

unsigned __int128 decWert(const DecimalSatz& d) {
    return (static_cast<unsigned __int128>(d.Hi32) << 64) | (static_cast<unsigned __int128>(d.Mid32) << 32) |
           d.Lo32;
}

}  // namespace zktest
