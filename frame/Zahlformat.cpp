#include "frame/Zahlformat.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstdio>

#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

namespace sw {

namespace {

// Grouping runs in linear time: the calculator formats numbers of a million digits.
std::string gruppieren(const std::string& ziffern) {
    // The sign stands apart so that "-123456" groups as "-123.456".
    size_t vorne = (!ziffern.empty() && (ziffern[0] == '-' || ziffern[0] == '+')) ? 1 : 0;
    return ziffern.substr(0, vorne) + ZiffernGruppieren(ziffern.substr(vorne));
}

std::string formatieren(const std::string& v, bool nullenKappen) {
    std::string s = Trimmen(Entfernen(v, "."));
    s = Entfernen(s, FormatZeichen);
    size_t komma = s.find(DezimalTrenner);
    if (komma != std::string::npos) {
        // The fraction limit of this routine is 0: a fraction always vanishes, without a comma.
        return formatieren(s.substr(0, komma), nullenKappen);
    }
    if (nullenKappen) {
        size_t vorne = (!s.empty() && (s[0] == '-' || s[0] == '+')) ? 1 : 0;
        size_t k = vorne;
        while (k + 1 < s.size() && s[k] == '0') ++k;
        s.erase(vorne, k - vorne);
        if (s == "-0" || s == "+0") s = "0";  // a negative fraction cut to nothing is zero
    }
    return gruppieren(s);
}

}  // namespace

std::string ZiffernGruppieren(const std::string& ziffern) {
    if (FormatAnzahl <= 0 || ziffern.size() <= size_t(FormatAnzahl)) return ziffern;
    const size_t n = ziffern.size(), g = size_t(FormatAnzahl);
    std::string aus;
    aus.reserve(n + (n / g) * FormatZeichen.size());
    const size_t erste = n % g == 0 ? g : n % g;
    aus.append(ziffern, 0, erste);
    for (size_t i = erste; i < n; i += g) {
        aus += FormatZeichen;
        aus.append(ziffern, i, g);
    }
    return aus;
}

std::string ZahlFormat(const std::string& v) { return formatieren(v, true); }
std::string ZahlFormat(const Decimal& v) { return formatieren(v.Text(), true); }
std::string ZahlFormat(long long v) { return formatieren(std::to_string(v), true); }

std::string ZahlFormat(double v) {
    // A double reads as the platform wrote it in a German locale: a decimal comma.
    char puffer[64];
    std::snprintf(puffer, sizeof puffer, "%.15g", v);
    std::string s = puffer;
    for (char& c : s) if (c == '.') c = ',';
    if (s.find_first_of("eE") != std::string::npos) {
        std::snprintf(puffer, sizeof puffer, "%.0f", std::trunc(v));
        s = puffer;
    }
    return formatieren(s, true);
}

std::string KommaZahl(double v, int stellen) {
    char puffer[64];
    std::snprintf(puffer, sizeof puffer, "%.*f", stellen, v);
    std::string s = puffer;
    for (char& c : s) if (c == '.') c = ',';
    return s;
}

std::string ZahlFormatRoh(const std::string& v) { return formatieren(v, false); }

std::string ZahlFormatLong(int32_t n) { return gruppieren(std::to_string(n)); }

std::string ZahlBereinigt(const std::string& text) {
    return Trimmen(Entfernen(Entfernen(text, "."), FormatZeichen));
}

bool IstNumerisch(const std::string& text, double* wert) {
    std::string t = Trimmen(text);
    size_t i = 0, n = t.size();
    auto ziffern = [&]() {
        size_t a = i;
        while (i < n && t[i] >= '0' && t[i] <= '9') ++i;
        return i - a;
    };
    if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
    size_t stellen = ziffern();
    if (i < n && (t[i] == ',' || t[i] == '.')) {
        ++i;
        stellen += ziffern();
    }
    if (stellen == 0) return false;
    if (i < n && (t[i] == 'e' || t[i] == 'E')) {
        ++i;
        if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
        if (ziffern() == 0) return false;
    }
    if (i != n) return false;
    if (wert) {
        // Read in the C locale: the desktop toolkit switches the process to the user's
        // locale, where plain strtod would stop at the point of "1.5".
        static const locale_t cLocale = ::newlocale(LC_ALL_MASK, "C", nullptr);
        for (char& c : t) if (c == ',') c = '.';
        *wert = ::strtod_l(t.c_str(), nullptr, cLocale);
    }
    return true;
}

int32_t TextZuLong(const std::string& text) {
    double v;
    if (!IstNumerisch(ZahlBereinigt(text), &v)) throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    if (v >= double(GrenzeLong) + 1) {
        MsgInfo(200);
        return GrenzeLong;
    }
    // The platform rounds half to even when it makes a Long of a Double.
    double r = std::nearbyint(v);
    if (r < -2147483648.0) throw Laufzeitfehler(FehlerUeberlauf);
    return static_cast<int32_t>(r);
}

Decimal TextZuDecimal(const std::string& text) {
    std::string t = ZahlBereinigt(text);
    if (t.empty()) return Decimal();
    return Decimal::ausText(t);
}

std::string ZahlInBasis(const Decimal& v) {
    if (v.IstNull()) return "0";
    int32_t basis = ZahlenSystem < 2 ? 10 : ZahlenSystem;
    Decimal::BetragTyp b = v.Betrag();
    std::string text;
    while (b != 0) {
        int ziffer = static_cast<int>(b % static_cast<unsigned>(basis));
        b /= static_cast<unsigned>(basis);
        if (basis <= 10) {
            text.insert(0, 1, char('0' + ziffer));
        } else if (basis == 16) {
            text.insert(0, 1, ziffer < 10 ? char('0' + ziffer) : char('A' + ziffer - 10));
        } else {
            text.insert(0, std::to_string(ziffer) + " ");
        }
    }
    if (v.IstNegativ()) text.insert(0, "-");
    return text;
}

std::string BasisBeschriftung() {
    switch (ZahlenSystem) {
        case 2: return Text(175);
        case 8: return Text(176);
        case 10: return Text(174);
        case 16: return Text(177);
        default: return TextP1(178, static_cast<long long>(ZahlenSystem));
    }
}

std::string Stellen2hoch(int32_t n) {
    return ZahlFormat(static_cast<long long>(std::floor(n * 0.301029995663981)) + 1);
}

}  // namespace sw
