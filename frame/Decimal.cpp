#include "frame/Decimal.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace sw {

Decimal Decimal::ausBreit(Breit v) {
    Decimal d;
    d.setzen(v);
    return d;
}

Decimal Decimal::ausDouble(double v) {
    if (std::isnan(v)) throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    double t = std::trunc(v);
    // 2^96 is exactly representable; anything at or beyond it cannot be held.
    if (std::fabs(t) >= 79228162514264337593543950336.0) throw Laufzeitfehler(FehlerUeberlauf);
    BetragTyp b = static_cast<BetragTyp>(std::fabs(t));
    return ausBreit(t < 0 ? -static_cast<Breit>(b) : static_cast<Breit>(b));
}

Decimal Decimal::ausText(std::string_view text) {
    size_t i = 0, n = text.size();
    auto blank = [&](size_t k) { return k < n && std::isspace(static_cast<unsigned char>(text[k])); };
    auto digit = [&](size_t k) { return k < n && text[k] >= '0' && text[k] <= '9'; };
    while (blank(i)) ++i;
    bool negativ = false;
    if (i < n && (text[i] == '+' || text[i] == '-')) negativ = text[i++] == '-';

    // Mantissa digits (integer and fraction) are gathered as one digit string; the exponent
    // then says where the decimal point stands, and whatever lies behind it is cut.
    std::string ziffern;
    size_t ganzStellen = 0;
    bool irgendeine = false;
    while (digit(i)) { ziffern += text[i++]; ++ganzStellen; irgendeine = true; }
    if (i < n && (text[i] == ',' || text[i] == '.')) {
        ++i;
        while (digit(i)) { ziffern += text[i++]; irgendeine = true; }
    }
    if (!irgendeine) throw Laufzeitfehler(FehlerTypenUnvertraeglich);
    long long exponent = 0;
    if (i < n && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        bool expNeg = false;
        if (i < n && (text[i] == '+' || text[i] == '-')) expNeg = text[i++] == '-';
        if (!digit(i)) throw Laufzeitfehler(FehlerTypenUnvertraeglich);
        // Held at a bound far beyond any digit count of the range: "1e-5000" is 0, not an
        // overflow, and "0e5000" is 0 too; a non-zero mantissa overflows in the loop below.
        while (digit(i)) exponent = std::min(exponent * 10 + (text[i++] - '0'), 100000LL);
        if (expNeg) exponent = -exponent;
    }
    while (blank(i)) ++i;
    if (i != n) throw Laufzeitfehler(FehlerTypenUnvertraeglich);

    long long punkt = static_cast<long long>(ganzStellen) + exponent;  // digits before the point
    BetragTyp b = 0;
    for (long long k = 0; k < punkt; ++k) {
        int z = k < static_cast<long long>(ziffern.size()) ? ziffern[k] - '0' : 0;
        if (b == 0 && z == 0) continue;
        if (b > (Maximum - z) / 10) throw Laufzeitfehler(FehlerUeberlauf);
        b = b * 10 + z;
    }
    Breit v = static_cast<Breit>(b);
    return ausBreit(negativ ? -v : v);
}

std::string Decimal::Text() const {
    BetragTyp b = Betrag();
    if (b == 0) return "0";
    char puffer[40];
    int pos = 40;
    while (b != 0) {
        puffer[--pos] = char('0' + int(b % 10));
        b /= 10;
    }
    if (sign) puffer[--pos] = '-';
    return std::string(puffer + pos, puffer + 40);
}

double Decimal::Double() const {
    double d = static_cast<double>(Betrag());
    return IstNegativ() ? -d : d;
}

int32_t Decimal::AlsLong() const {
    Breit v = Wert();
    if (v < INT32_MIN || v > INT32_MAX) throw Laufzeitfehler(FehlerUeberlauf);
    return static_cast<int32_t>(v);
}

int64_t Decimal::AlsInt64() const {
    Breit v = Wert();
    if (v < INT64_MIN || v > INT64_MAX) throw Laufzeitfehler(FehlerUeberlauf);
    return static_cast<int64_t>(v);
}

Decimal operator*(const Decimal& a, const Decimal& b) {
    Decimal::BetragTyp p;
    if (__builtin_mul_overflow(a.Betrag(), b.Betrag(), &p) || p > Decimal::Maximum) {
        throw Laufzeitfehler(FehlerUeberlauf);
    }
    Decimal::Breit v = static_cast<Decimal::Breit>(p);
    return Decimal::ausBreit(a.IstNegativ() != b.IstNegativ() ? -v : v);
}

Decimal operator/(const Decimal& a, const Decimal& b) {
    if (b.IstNull()) throw Laufzeitfehler(FehlerDivisionDurchNull);
    return Decimal::ausBreit(a.Wert() / b.Wert());
}

Decimal operator%(const Decimal& a, const Decimal& b) {
    if (b.IstNull()) throw Laufzeitfehler(FehlerDivisionDurchNull);
    return Decimal::ausBreit(a.Wert() % b.Wert());
}

Decimal GanzeWurzel(const Decimal& n) {
    if (n.IstNegativ()) throw Laufzeitfehler(5, "Ungültiger Prozeduraufruf oder ungültiges Argument");
    Decimal::BetragTyp x = n.Betrag();
    // A double start is within one or two of the root; Newton's correction makes it exact.
    Decimal::BetragTyp r = static_cast<Decimal::BetragTyp>(std::sqrt(static_cast<double>(x)));
    while (r * r > x) --r;
    while ((r + 1) * (r + 1) <= x) ++r;
    return Decimal::ausBreit(static_cast<Decimal::Breit>(r));
}

}  // namespace sw
