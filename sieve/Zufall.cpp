#include "sieve/Zufall.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>

#include "frame/Meldungen.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

int32_t ZufallModus = 0;
double ZufallAbstand = 0;
double ZufallDichte = 0;
double ZufallFaktor = 0;
std::vector<int32_t> ZufallFaktoren;

namespace {

std::mt19937_64& Generator() {
    static std::mt19937_64 generator(0x5157);
    return generator;
}

double Ziehung() { return std::uniform_real_distribution<double>(0.0, 1.0)(Generator()); }

}  // namespace

double ZufallFaktorAufbauen() {
    double a = 8, b = 30;
    ZufallFaktoren.clear();
    for (int i = 2; i <= 8; ++i) {
        if ((uint32_t(RandomFaktorBitKette) & BitMaske[i]) == 0) continue;
        const int32_t p = RasterRest[i];
        ZufallFaktoren.push_back(p);
        b *= p;
        a *= p - 1;
    }
    return a / b;
}

double ZufallMittlererAbstand(const Decimal& x, const Decimal& /*laenge*/) {
    const double v = x.Double();
    if (!(v > 1)) return 0;
    const double l = std::log(v);
    return l > 0 ? l : 0;
}

void ZufallSeiteEinrichten(const Decimal& ende, const Decimal& laenge) {
    ZufallDichte = ZufallMittlererAbstand(ende, laenge);
    ZufallFaktor = ZufallFaktorAufbauen() * RandomProzentFaktor;
    ZufallAbstand = 2 * ZufallFaktor * ZufallDichte;
}

bool ZufallIstPrim(const Decimal& n) {
    for (int32_t p : ZufallFaktoren) {
        if ((n % Decimal(p)).IstNull()) return false;
    }
    // The second draw carries the digits that a single draw would lack at large A.
    const double r1 = Ziehung(), r2 = Ziehung();
    const double r = (r1 + r2 / 10000000.0) * ZufallAbstand;
    if (r < 1) return true;
    const double f = std::floor(ZufallAbstand - 2);
    return f <= r && r < f + 1;
}

void ZufallSaat(uint64_t saat) { Generator().seed(saat); }

std::string ZufallInfoText(int32_t bitKette, double prozent, bool plus) {
    std::string text = "(2,3,5";
    for (int i = 2; i <= 8; ++i) {
        if (uint32_t(bitKette) & BitMaske[i]) text += "," + std::to_string(RasterRest[i]);
    }
    text += ")";
    if (prozent >= 99) return text + "Fehler";
    if (prozent > 0) {
        char zahl[32];
        std::snprintf(zahl, sizeof zahl, "%.2f", prozent);
        text += std::string(plus ? "+" : "-") + zahl + "%";
    }
    return text;
}

std::string ZufallSpeicherText(int32_t exponent) {
    static const char* const einheiten[] = {"Bytes", "KB", "MB", "GB", "TB", "PB", "EB", "ZB"};
    if (exponent < 0) exponent = 0;
    const int32_t stufe = std::min(exponent / 3, 7);
    int64_t wert = 4;
    for (int32_t i = 0; i < exponent - 3 * stufe; ++i) wert *= 10;
    return std::to_string(wert) + " " + einheiten[stufe];
}

bool ZufallProzentLesen(const std::string& text, double& prozent) {
    std::string s = text;
    for (char& c : s) {
        if (c == ',') c = '.';
    }
    if (s.empty()) {
        prozent = 0;
        return true;
    }
    char* ende = nullptr;
    prozent = std::strtod(s.c_str(), &ende);
    while (ende && *ende == ' ') ++ende;
    return ende && *ende == 0 && std::isfinite(prozent) && prozent >= 0;
}

bool ZufallUebernehmen(int32_t modus, double prozent, bool plus, int32_t bitKette, int32_t exponent) {
    if (prozent >= 99) {
        MsgInfo(406);
        return false;
    }
    ZufallSaat(uint64_t(std::chrono::steady_clock::now().time_since_epoch().count()));
    ZufallModus = modus;
    RandomProzentFaktor = plus ? 1 + prozent / 100 : 1 - prozent / 100;
    RandomFaktorBitKette = bitKette;
    RandomPrimIntervall = exponent < 6 ? 6 : exponent;
    if (modus == 2) {
        std::string zehnHoch = "1" + std::string(size_t(RandomPrimIntervall), '0');
        RandomInfoText = ZahlFormat(zehnHoch);
    } else {
        RandomInfoText = ZufallInfoText(bitKette, prozent, plus);
    }
    return true;
}

}  // namespace sw
