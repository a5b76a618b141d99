#include "distribution/Ulam.h"

#include <gmp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "frame/Laufzeitfehler.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/Bpsw.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSekundaer.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

// Error number of the refusals: no platform error stands behind them, so they share the one of
// a failed argument.
constexpr int kEingabeFehler = 5;

[[noreturn]] void ablehnen(int key) { throw Laufzeitfehler(kEingabeFehler, Text(key)); }

uint64_t wurzel64(uint64_t n) {
    uint64_t r = uint64_t(std::sqrt(double(n)));
    while (r > 0 && (unsigned __int128)r * r > n) --r;
    while ((unsigned __int128)(r + 1) * (r + 1) <= n) ++r;
    return r;
}

bool bpswPrim(uint64_t n) {
    mpz_t z;
    mpz_init(z);
    mpz_import(z, 1, -1, sizeof n, 0, 0, &n);
    const bool prim = BpswTest(z);  // below 2^64 its answer is a proof
    mpz_clear(z);
    return prim;
}

// Decides the numbers above the primary limit. Close together they share one secondary window
// (as long as a word of it costs less than a BPSW run per number would); spread thinly, as
// the values of a quadratic sequence soon are, each gets BPSW, which is a proof below 2^64.
// Values: 0 composite, 1 prime, 2 undecided (the caller stopped the run first).
std::vector<uint8_t> jenseitsEntscheiden(const std::vector<uint64_t>& zahlen, const std::function<bool(double)>& weiter) {
    std::vector<uint64_t> sortiert(zahlen);
    std::sort(sortiert.begin(), sortiert.end());
    sortiert.erase(std::unique(sortiert.begin(), sortiert.end()), sortiert.end());
    std::vector<uint8_t> prim(sortiert.size(), 2);
    if (sortiert.empty()) return {};
    const uint64_t start = sortiert.front() / RasterSpanne * RasterSpanne;
    const uint64_t woerter = (sortiert.back() - start) / RasterSpanne + 1;
    const uint64_t wurzel = wurzel64(sortiert.back());
    const bool fenster = woerter <= 8 * uint64_t(sortiert.size()) + (1u << 16) &&
                         woerter <= uint64_t(GrenzeLong) / RasterSpanne && wurzel <= SekundaerSiebReichweite();
    if (fenster) {
        std::vector<uint32_t> raster(woerter, 0);
        SekundaerFensterSieben(raster.data(), woerter, start, wurzel);
        for (size_t i = 0; i < sortiert.size(); ++i) {
            const uint64_t d = sortiert[i] - start;
            prim[i] = (raster[d / RasterSpanne] & RestMaske[d % RasterSpanne]) == 0;
        }
    } else {
        for (size_t i = 0; i < sortiert.size(); ++i) {
            if ((i & 0x3FF) == 0x3FF && weiter && !weiter(double(i) / double(sortiert.size()))) break;
            prim[i] = bpswPrim(sortiert[i]);
        }
    }
    std::vector<uint8_t> ergebnis(zahlen.size());
    for (size_t i = 0; i < zahlen.size(); ++i) {
        const size_t k = size_t(std::lower_bound(sortiert.begin(), sortiert.end(), zahlen[i]) - sortiert.begin());
        ergebnis[i] = prim[k];
    }
    return ergebnis;
}

bool bemalt(UlamFarbe f) { return f == UlamFarbe::Blau || f == UlamFarbe::Schwarz || f == UlamFarbe::Gelb; }

}  // namespace

void UlamEingabePruefen(const UlamEingabe& e) {
    if (e.innenZahl < 0) ablehnen(420);
    if (e.schritt < 0 || e.zuwachs < 0) ablehnen(2140);
    if (e.seiteX < 1 || e.seiteY < 1) ablehnen(2141);
    if (e.breite < 1 || e.hoehe < 1 || int64_t(e.breite) * e.hoehe > (int64_t(1) << 25)) ablehnen(2142);
}

bool IstQuadrat(uint64_t n) {
    if (n == 0) return true;
    while (n % 4 == 0) n /= 4;
    while (n % 9 == 0) n /= 9;
    if (n % 24 != 1) return false;  // an odd square prime to 3 is 1 mod 24
    if (n == 1) return true;
    const uint64_t r = wurzel64(n);
    return r * r == n;
}

UlamFarbe UlamZelleSetzen(uint64_t n, bool prim) {
    if (n < 8) {
        if (prim) return UlamFarbe::Schwarz;
        return n == 1 || n == 4 ? UlamFarbe::Gelb : UlamFarbe::Leer;
    }
    if (prim) return n <= uint64_t(INT32_MAX) && aIsInMers(Long(n)) != 0 ? UlamFarbe::Schwarz : UlamFarbe::Blau;
    return IstQuadrat(n) ? UlamFarbe::Gelb : UlamFarbe::Leer;
}

UlamModell UlamZeichnen(const UlamEingabe& e, const std::function<bool(double)>& weiter) {
    UlamEingabePruefen(e);
    UlamModell m;
    m.breite = e.breite;
    m.hoehe = e.hoehe;
    m.mitteX = e.breite / 2;
    m.mitteY = e.hoehe / 2;
    const size_t zellen = size_t(e.breite) * size_t(e.hoehe);
    m.zahl.assign(zellen, 0);
    m.farbe.assign(zellen, UlamFarbe::Leer);
    m.besucht.assign(zellen, 0);

    const uint64_t grenze = uint64_t(PrimaerGrenze.Betrag());
    const uint32_t* raster = PrimaerRaster.data();
    std::vector<uint8_t> prim(zellen, 0);
    std::vector<size_t> jenseitsZelle;
    std::vector<uint64_t> jenseitsZahl;

    uint64_t n = uint64_t(e.innenZahl);
    uint64_t schritt = uint64_t(e.schritt);
    int radIndex = e.rad ? 2 : 0;
    // One cell: the raster answers with one mask test; word and residue come from a division
    // by the constant 120, which the compiler turns into a multiplication.
    auto setzen = [&](int32_t x, int32_t y) {
        const size_t i = m.index(x, y);
        m.zahl[i] = n;
        m.besucht[i] = 1;
        ++m.UlamZellen;
        if (n < 8) {
            prim[i] = n == 2 || n == 3 || n == 5 || n == 7;
        } else if (const uint32_t maske = RestMaske[n % RasterSpanne]; maske != 0) {
            if (n <= grenze) {
                prim[i] = (raster[n / RasterSpanne] & maske) == 0;
            } else {
                jenseitsZelle.push_back(i);
                jenseitsZahl.push_back(n);
            }
        }
        m.letzteZahl = n;
    };
    auto weiterZaehlen = [&] {
        if (radIndex != 0) {
            schritt = uint64_t(radIndex == 1 ? 2 : RasterRest[radIndex] - RasterRest[radIndex - 1]);
            radIndex = radIndex == 8 ? 1 : radIndex + 1;
        }
        if (__builtin_add_overflow(n, schritt, &n)) ablehnen(2143);
        if (__builtin_add_overflow(schritt, uint64_t(e.zuwachs), &schritt)) schritt = UINT64_MAX;
    };

    int32_t x = m.mitteX, y = m.mitteY;
    setzen(x, y);
    int64_t seite[4] = {e.seiteX, e.seiteY, int64_t(e.seiteX) + 1, int64_t(e.seiteY) + 1};
    static constexpr int dx[4] = {1, 0, -1, 0}, dy[4] = {0, -1, 0, 1};  // right, up, left, down
    bool fertig = false;
    for (int r = 0; !fertig; r = (r + 1) % 4) {
        for (int64_t k = 0; k < seite[r]; ++k) {
            if (!m.innen(x + dx[r], y + dy[r])) {
                fertig = true;
                break;
            }
            x += dx[r];
            y += dy[r];
            weiterZaehlen();
            setzen(x, y);
            if ((m.UlamZellen & 0xFFFF) == 0 && weiter && !weiter(double(m.UlamZellen) / double(zellen))) {
                fertig = true;
                break;
            }
        }
        seite[r] += 2;
    }

    // A cell left undecided by a stop is taken back out of the picture.
    const std::vector<uint8_t> jenseits = jenseitsEntscheiden(jenseitsZahl, weiter);
    for (size_t k = 0; k < jenseitsZelle.size(); ++k) {
        if (jenseits[k] == 2) {
            m.besucht[jenseitsZelle[k]] = 0;
            --m.UlamZellen;
        } else {
            prim[jenseitsZelle[k]] = jenseits[k];
        }
    }
    for (size_t i = 0; i < zellen; ++i) {
        if (!m.besucht[i]) continue;
        m.farbe[i] = UlamZelleSetzen(m.zahl[i], prim[i]);
        m.UlamPrimzellen += prim[i];
    }
    return m;
}

bool UlamDiagonale(const UlamModell& m, int32_t x, int32_t y, int32_t laenge) {
    for (const int sy : {1, -1}) {
        int32_t anzahl = 1;
        for (const int richtung : {1, -1}) {
            for (int32_t cx = x + richtung, cy = y + richtung * sy;
                 m.innen(cx, cy) && bemalt(m.farbe[m.index(cx, cy)]); cx += richtung, cy += richtung * sy) {
                if (++anzahl >= laenge) return false;
            }
        }
    }
    return true;
}

void UlamGlaetten(UlamModell& m, int32_t laenge) {
    if (laenge <= 1) return;
    for (const auto& [sx, sy] : {std::pair{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}) {
        for (int32_t y = sy > 0 ? m.mitteY : m.mitteY - 1; y >= 0 && y < m.hoehe; y += sy) {
            for (int32_t x = sx > 0 ? m.mitteX : m.mitteX - 1; x >= 0 && x < m.breite; x += sx) {
                UlamFarbe& f = m.farbe[m.index(x, y)];
                if (f == UlamFarbe::Blau && UlamDiagonale(m, x, y, laenge)) f = UlamFarbe::Weiss;
            }
        }
    }
}

uint32_t UlamRgb(UlamFarbe f) {
    switch (f) {
        case UlamFarbe::Blau: return 0x0000FF;
        case UlamFarbe::Schwarz: return 0x000000;
        case UlamFarbe::Gelb: return 0xFFFF00;
        default: return 0xFFFFFF;
    }
}

std::vector<uint32_t> UlamPixel(const UlamModell& m, int32_t zelle) {
    const size_t breite = size_t(m.breite) * size_t(zelle);
    std::vector<uint32_t> pixel(breite * size_t(m.hoehe) * size_t(zelle));
    for (int32_t y = 0; y < m.hoehe; ++y) {
        uint32_t* zeile = pixel.data() + size_t(y) * size_t(zelle) * breite;
        for (int32_t x = 0; x < m.breite; ++x)
            std::fill_n(zeile + size_t(x) * size_t(zelle), zelle, UlamRgb(m.farbe[m.index(x, y)]));
        for (int32_t k = 1; k < zelle; ++k) std::copy_n(zeile, breite, zeile + size_t(k) * breite);
    }
    return pixel;
}

std::string UlamAnteilText(const UlamModell& m) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f %%", m.UlamZellen ? 100.0 * double(m.UlamPrimzellen) / double(m.UlamZellen) : 0.0);
    return text;
}

std::string UlamCsv(const UlamModell& m) {
    static const char* const namen[5] = {"leer", "prim", "schwarz", "quadrat", "geglaettet"};
    std::string text = "x;y;Zahl;Farbe\n";
    for (int32_t y = 0; y < m.hoehe; ++y) {
        for (int32_t x = 0; x < m.breite; ++x) {
            const size_t i = m.index(x, y);
            if (!m.besucht[i]) continue;
            text += std::to_string(x) + ";" + std::to_string(y) + ";" + std::to_string(m.zahl[i]) + ";" +
                    namen[int(m.farbe[i])] + "\n";
        }
    }
    return text;
}

}  // namespace sw
