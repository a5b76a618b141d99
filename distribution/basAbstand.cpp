#include "distribution/basAbstand.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Zufall.h"
#include "sieve/basSiebwerk.h"

namespace sw {

namespace {

// Words between two yields: a yield per word would cost more than the count itself, and 4,096
// words (half a million numbers) take well under a millisecond.
constexpr uint64_t BlockWoerter = 4096;

}  // namespace

int32_t BalkenZahl(int32_t breite, int32_t balkenBreite) {
    if (balkenBreite < 1) balkenBreite = 1;
    return breite / (balkenBreite + 1) - 1;
}

AbstandZaehlung::AbstandZaehlung(int32_t art, Zahl128 start, Zahl128 ende, int64_t von, int32_t n)
    : art_(art == ArtSekundaer ? int32_t(ArtNachbarn) : art), von_(von), n_(n) {
    if (art < ArtNachbarn || art > ArtSekundaer) throw Laufzeitfehler(5, "Unbekannte Zählart");
    if (ende < start || ende - start >= (Zahl128(1) << 63)) throw Laufzeitfehler(FehlerUeberlauf);
    ursprung_ = start / RasterSpanne * RasterSpanne;
    startAb_ = uint64_t(start - ursprung_);
    endeAb_ = uint64_t(ende - ursprung_);
    // Differences are even (but for 2, 3): an odd first difference would put every bar between two.
    if (art_ != ArtFolge && art_ != ArtDichte) {
        if (von_ < 2) von_ = 2;
        von_ += von_ & 1;
    }
    if (von_ < 0) von_ = 0;
    anzahl_.assign(size_t(std::max(n, -1) + 1), 0);
    if (n < 0) fertig_ = true;
    if (art_ == ArtDichte && n >= 0) teil_ = (endeAb_ - startAb_) / uint64_t(n + 1) + 1;
}

void AbstandZaehlung::feldPrim(uint64_t x) {
    const uint64_t d = x - vorige_;
    switch (art_) {
    case ArtNachbarn:
        if (primzahlen_ && d >= uint64_t(von_) && ((d - von_) & 1) == 0 && (d - von_) / 2 <= uint64_t(n_)) {
            ++anzahl_[(d - von_) / 2];
        }
        break;
    case ArtFolge:
        if (primzahlen_ && primzahlen_ - 1 >= uint64_t(von_)) {
            const uint64_t i = primzahlen_ - 1 - von_;
            if (i <= uint64_t(n_)) anzahl_[i] = int64_t(d);
            if (i >= uint64_t(n_)) fertig_ = true;
        }
        break;
    case ArtDichte:
        ++anzahl_[std::min<uint64_t>((x - startAb_) / teil_, uint64_t(n_))];
        break;
    case ArtPaare: {
        // Every earlier prime within reach of the last bar pairs with x; those beyond it never will.
        const uint64_t reichweite = uint64_t(von_) + 2 * uint64_t(n_);
        while (fensterAnfang_ < fenster_.size() && x - fenster_[fensterAnfang_] > reichweite) ++fensterAnfang_;
        for (size_t i = fensterAnfang_; i < fenster_.size(); ++i) {
            const uint64_t e = x - fenster_[i];
            if (e >= uint64_t(von_) && (e & 1) == 0) ++anzahl_[(e - von_) / 2];
        }
        if (fensterAnfang_ > 4096 && fensterAnfang_ * 2 > fenster_.size()) {
            fenster_.erase(fenster_.begin(), fenster_.begin() + ptrdiff_t(fensterAnfang_));
            fensterAnfang_ = 0;
        }
        fenster_.push_back(x);
        break;
    }
    }
    vorige_ = x;
    ++primzahlen_;
}

void AbstandZaehlung::Prim(Zahl128 p) {
    if (fertig_ || p < ursprung_) return;
    const Zahl128 x = p - ursprung_;
    if (x < startAb_ || x > endeAb_) return;
    feldPrim(uint64_t(x));
}

// Neighbours, the kind that must keep pace with the fastest sieves: per prime one subtraction,
// one unsigned comparison that rejects differences below and above the bars at once, one
// increment. The other kinds go through feldPrim.
template <bool Nachbarn>
bool AbstandZaehlung::woerter(const uint32_t* raster, uint64_t erstes, uint64_t letztes, uint64_t basis) {
    const uint64_t von = uint64_t(von_), spanne = 2 * uint64_t(n_);
    int64_t* balken = anzahl_.data();
    uint64_t vorige = vorige_, anzahl = primzahlen_;
    bool weiter = true;
    for (uint64_t w = erstes; w < letztes; ++w, basis += RasterSpanne) {
        const uint32_t wort = raster[w];
        if (wort == 0xFFFFFFFFu) continue;
        if (basis > endeAb_) {
            weiter = false;
            break;
        }
        for (uint32_t frei = ~wort; frei;) {
            const int i = __builtin_clz(frei);
            frei &= ~(0x80000000u >> i);
            const uint64_t x = basis + uint64_t(RasterRest[i + 1]);
            if (x < startAb_) continue;
            if (x > endeAb_) {
                weiter = false;
                break;
            }
            if constexpr (Nachbarn) {
                const uint64_t k = x - vorige - von;  // even: both primes odd, von even
                if (k <= spanne && anzahl) ++balken[k >> 1];
                vorige = x;
                ++anzahl;
            } else {
                feldPrim(x);
                if (fertig_) return false;
            }
        }
        if (!weiter) break;
    }
    if constexpr (Nachbarn) {
        vorige_ = vorige;
        primzahlen_ = anzahl;
    }
    if (!weiter) fertig_ = true;
    return weiter;
}

bool AbstandZaehlung::Woerter(const uint32_t* raster, uint64_t erstes, uint64_t letztes, Zahl128 basis0) {
    if (fertig_ || erstes >= letztes) return !fertig_;
    const Zahl128 b = basis0 + Zahl128(erstes) * RasterSpanne;
    if (b + RasterSpanne <= ursprung_) throw Laufzeitfehler(5, "Rasterwort vor dem Abschnitt");
    // Words that begin before the stretch's word cannot occur: the caller starts at its word.
    const uint64_t basis = uint64_t(b - ursprung_);
    return art_ == ArtNachbarn ? woerter<true>(raster, erstes, letztes, basis)
                               : woerter<false>(raster, erstes, letztes, basis);
}

bool AbstandZaehlung::Kandidaten(uint64_t erstes, uint64_t letztes, Zahl128 basis0,
                                 const std::function<bool(Zahl128)>& istPrim) {
    for (uint64_t w = erstes; w < letztes && !fertig_; ++w) {
        const Zahl128 basis = basis0 + Zahl128(w) * RasterSpanne;
        for (int i = 1; i <= 32 && !fertig_; ++i) {
            const Zahl128 n = basis + unsigned(RasterRest[i]);
            if (n < 7 || n < ursprung_ + startAb_) continue;
            if (n > ursprung_ + endeAb_) {
                fertig_ = true;
                break;
            }
            if (istPrim(n)) feldPrim(uint64_t(n - ursprung_));
        }
    }
    return !fertig_;
}

namespace {

// Walks words [erstes, letztes) block by block, yielding between blocks.
template <typename Schritt>
bool InBloecken(uint64_t erstes, uint64_t letztes, const AbstandMelder& melden, Schritt&& schritt) {
    for (uint64_t a = erstes; a < letztes; a += BlockWoerter) {
        const uint64_t b = std::min(letztes, a + BlockWoerter);
        if (!schritt(a, b)) return true;
        if (melden && !melden(double(b - erstes) / double(letztes - erstes))) return false;
    }
    return true;
}

}  // namespace

bool AbstandPrimaerZaehlen(AbstandZaehlung& z, Zahl128 start, Zahl128 ende, const AbstandMelder& melden) {
    for (int klein : {2, 3, 5}) z.Prim(Zahl128(klein));
    if (PrimaerRaster.empty()) return true;
    // The last word may hold clear bits above the limit: they were never sieved.
    const Zahl128 rasterEnde = Zahl128(RasterLetzterIndex) * RasterSpanne + RasterSpanne - 1;
    ende = std::min({ende, rasterEnde, PrimaerGrenze.Betrag()});
    if (start > ende) return true;
    return InBloecken(uint64_t(start / RasterSpanne), uint64_t(ende / RasterSpanne) + 1, melden,
                      [&](uint64_t a, uint64_t b) { return z.Woerter(PrimaerRaster.data(), a, b, 0); });
}

bool AbstandSekundaerZaehlen(AbstandZaehlung& z, Zahl128 start, Zahl128 ende, const AbstandMelder& melden) {
    const Zahl128 basis0 = SekundaerStart.Betrag();
    if (SekundaerRaster.empty() || ende < basis0) return true;
    const uint64_t erstes = start > basis0 ? uint64_t((start - basis0) / RasterSpanne) : 0;
    const uint64_t letztes = uint64_t(std::min<Zahl128>(SekundaerRaster.size(), (ende - basis0) / RasterSpanne + 1));
    return InBloecken(erstes, letztes, melden,
                      [&](uint64_t a, uint64_t b) { return z.Woerter(SekundaerRaster.data(), a, b, basis0); });
}

bool AbstandZufallZaehlen(AbstandZaehlung& z, Zahl128 start, Zahl128 ende, const AbstandMelder& melden) {
    ZufallSeiteEinrichten(Decimal(ende), Decimal(ende - start));
    const auto istPrim = [](Zahl128 n) { return ZufallIstPrim(Decimal(n)); };
    return InBloecken(uint64_t(start / RasterSpanne), uint64_t(ende / RasterSpanne) + 1, melden,
                      [&](uint64_t a, uint64_t b) { return z.Kandidaten(a, b, 0, istPrim); });
}

std::vector<int64_t> PaarAbstaende(int64_t von, int64_t bis, int32_t n, bool erlaubt, const AbstandMelder& melden) {
    if (!erlaubt) {
        MsgInfo(526);
        return {};
    }
    if (von < 3) von = 2;
    const int32_t halb = n / 2;
    std::vector<int64_t> ergebnis(size_t(std::max(halb, 1)), 0);
    if (halb < 2 || bis < von) return ergebnis;
    // Bars from the difference 2 up to 2·(n div 2 - 1), element k for the difference 2k.
    AbstandZaehlung z(ArtPaare, Zahl128(von), Zahl128(bis), 2, halb - 2);
    AbstandPrimaerZaehlen(z, Zahl128(von), Zahl128(bis), melden);
    std::copy(z.Anzahl().begin(), z.Anzahl().end(), ergebnis.begin() + 1);
    return ergebnis;
}

std::optional<double> Zwillingsschaetzung(int32_t modus, double x, double w) {
    if (!(x > 0) || !(w > 0)) return std::nullopt;
    const double ln10 = std::log(10.0);
    double wert;
    switch (modus) {
    case 0: {
        const double l = std::log(std::max(x, 10.0));
        wert = w * ZwillingsKonstante / (l * l);
        break;
    }
    case 1:
        wert = w * ZwillingsKonstante / (x * x * ln10 * ln10);
        break;
    case 2:
        // 10^w numbers near 10^x: the density C/ln(10^x)^2 = C/(x·ln 10)^2 times the length.
        wert = std::pow(10.0, w) * ZwillingsKonstante / (x * x * ln10 * ln10);
        break;
    default:
        return std::nullopt;
    }
    if (!std::isfinite(wert)) return std::nullopt;
    return wert;
}

double SingulaereReihe(int64_t d) {
    if (d <= 0 || (d & 1)) return 0;
    while ((d & 1) == 0) d >>= 1;
    double s = 1;
    for (int64_t p = 3; p * p <= d; p += 2) {
        if (d % p) continue;
        s *= double(p - 1) / double(p - 2);
        while (d % p == 0) d /= p;
    }
    if (d > 1) s *= double(d - 1) / double(d - 2);
    return s;
}

std::string ZahlName(double v) {
    if (!(v >= 1e6)) return ZahlFormat(static_cast<long long>(std::llround(v)));
    static const char* const stufen[] = {"M", "B", "Tr", "Quadr", "Quint", "Sext", "Sept", "Okt", "Nov", "Dez"};
    int k = int(std::floor(std::log10(v) + 1e-12));
    char zahl[48];
    if (k >= 66) {
        const double m = v / std::pow(10.0, k);
        if (std::fabs(m - 1) < 5e-3) return "1 x 10^" + std::to_string(k);
        std::snprintf(zahl, sizeof zahl, "%.2f", m);
        std::string s = zahl;
        std::replace(s.begin(), s.end(), '.', ',');
        return s + " x 10^" + std::to_string(k);
    }
    k -= k % 3;
    const double m = v / std::pow(10.0, k);
    std::snprintf(zahl, sizeof zahl, "%.2f", m);
    std::string s = zahl;
    while (s.back() == '0') s.pop_back();
    if (s.back() == '.') s.pop_back();
    const bool eins = s == "1";
    std::replace(s.begin(), s.end(), '.', ',');
    const bool arde = k % 6 == 3;
    const std::string endung = arde ? (eins ? "illiarde" : "illiarden") : (eins ? "illion" : "illionen");
    return s + " " + stufen[k / 6 - 1] + endung;
}

std::string LabelZahl(double v) {
    char zahl[48];
    if (std::fabs(v) < 1e7) {
        std::snprintf(zahl, sizeof zahl, "%.2f", v);
        return zahl;
    }
    const int k = int(std::floor(std::log10(std::fabs(v))));
    std::snprintf(zahl, sizeof zahl, "%.2f E+%d", v / std::pow(10.0, k), k);
    return zahl;
}

std::string AbweichungText(double v) {
    char zahl[48];
    std::snprintf(zahl, sizeof zahl, "%.7f", v);
    return zahl;
}

}  // namespace sw
