// Decimal: the 96-bit integer with sign that carries every number between 2^31 and 2^96 in
// SW (secondary range positions, limits, user input). It is exactly the 16-byte record of the
// arithmetic library, so a Decimal can be handed to any aXxxDec function by address, plus
// the ordinary integer arithmetic as operators. Values are integers (scale 0); a result
// beyond 2^96-1 in magnitude or a division by zero throws Laufzeitfehler, never wraps.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "frame/Laufzeitfehler.h"
#include "zahlkern/zahlkern.h"

namespace sw {

class Decimal : public DecimalSatz {
public:
    using Breit = __int128;               // wide enough for every value and every sum
    using BetragTyp = unsigned __int128;  // magnitude of a value

    static constexpr BetragTyp Maximum = (BetragTyp(1) << 96) - 1;

    constexpr Decimal() : DecimalSatz{0, 0, 0, 0, 0, 0} {}

    template <typename I, typename = std::enable_if_t<std::is_integral_v<I>>>
    constexpr Decimal(I v) : Decimal() {  // NOLINT: integers convert implicitly, as in VB
        if constexpr (std::is_signed_v<I>) {
            setzen(static_cast<Breit>(v));
        } else {
            setzen(static_cast<Breit>(static_cast<BetragTyp>(v)));
        }
    }

    // From a value known to fit; throws overflow (6) beyond 2^96-1.
    static Decimal ausBreit(Breit v);
    // The integer part of a double (truncated toward zero); overflow (6) beyond the range,
    // type mismatch (13) for NaN.
    static Decimal ausDouble(double v);
    // Parses an integer text: optional blanks and sign, digits, an optional decimal comma or
    // point with digits (the fraction is cut), an optional exponent "e9" / "E+12". Anything
    // else is a type mismatch (13); a value beyond the range is an overflow (6).
    static Decimal ausText(std::string_view text);

    Breit Wert() const {
        Breit b = static_cast<Breit>(Betrag());
        return sign ? -b : b;
    }
    BetragTyp Betrag() const {
        return (BetragTyp(Hi32) << 64) | (BetragTyp(Mid32) << 32) | BetragTyp(Lo32);
    }
    bool IstNegativ() const { return sign != 0 && Betrag() != 0; }
    bool IstNull() const { return Betrag() == 0; }

    // Plain decimal digits with a leading "-" for negative values; no grouping.
    std::string Text() const;
    double Double() const;
    // The value as a signed 32-bit Long; overflow (6) outside its range.
    int32_t AlsLong() const;
    // The value as int64; overflow (6) outside its range.
    int64_t AlsInt64() const;
    // The low 32 bits of the magnitude, as the sieve reads Lo32 of a copied record.
    uint32_t LoWort() const { return Lo32; }

    friend Decimal operator+(const Decimal& a, const Decimal& b) { return ausBreit(a.Wert() + b.Wert()); }
    friend Decimal operator-(const Decimal& a, const Decimal& b) { return ausBreit(a.Wert() - b.Wert()); }
    friend Decimal operator*(const Decimal& a, const Decimal& b);
    // Integer quotient, truncated toward zero; division by zero (11).
    friend Decimal operator/(const Decimal& a, const Decimal& b);
    // Remainder with the sign of the dividend; division by zero (11).
    friend Decimal operator%(const Decimal& a, const Decimal& b);
    Decimal operator-() const { return ausBreit(-Wert()); }

    Decimal& operator+=(const Decimal& b) { return *this = *this + b; }
    Decimal& operator-=(const Decimal& b) { return *this = *this - b; }
    Decimal& operator*=(const Decimal& b) { return *this = *this * b; }
    Decimal& operator/=(const Decimal& b) { return *this = *this / b; }
    Decimal& operator%=(const Decimal& b) { return *this = *this % b; }
    Decimal& operator++() { return *this += Decimal(1); }
    Decimal& operator--() { return *this -= Decimal(1); }

    friend bool operator==(const Decimal& a, const Decimal& b) { return a.Wert() == b.Wert(); }
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
        Breit x = a.Wert(), y = b.Wert();
        return x < y ? std::strong_ordering::less
                     : (x > y ? std::strong_ordering::greater : std::strong_ordering::equal);
    }

private:
    constexpr void setzen(Breit v) {
        BetragTyp b = v < 0 ? BetragTyp(-v) : BetragTyp(v);
        if (b > Maximum) throw Laufzeitfehler(FehlerUeberlauf);
        Lo32 = uint32_t(b);
        Mid32 = uint32_t(b >> 32);
        Hi32 = uint32_t(b >> 64);
        sign = v < 0 ? 128 : 0;
    }
};

static_assert(sizeof(Decimal) == 16, "a Decimal is the library's 16-byte record");
static_assert(std::is_standard_layout_v<Decimal>);

// Integer square root (floor) of a non-negative Decimal, exact in all 96 bits.
Decimal GanzeWurzel(const Decimal& n);

}  // namespace sw
