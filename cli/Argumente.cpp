#include "Argumente.h"

#include <cstring>
#include <new>

#include "CliUmgebung.h"
#include "arith/basHyper.h"
#include "frame/Laufzeitfehler.h"

namespace sw::cli {

namespace {

bool ziffer(char c) { return c >= '0' && c <= '9'; }
bool buchstabe(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool rechenzeichen(char c) { return c == '^' || c == '%' || c == '/' || c == '\\' || c == '*' || c == '+' || c == '-'; }

std::string gross(std::string s) {
    for (char& c : s) {
        if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
    }
    return s;
}

// Every refusal names the argument and shows the text as it was given.
CliFehler ungueltig(const std::string& text, const std::string& was, const std::string& warum) {
    return CliFehler(was + " is not a whole non-negative number: '" + text + "' (" + warum + ")");
}

// 2e9, 1.5e10, 3E+12: the mantissa and the exponent, written out as (digits*10^k) so that the
// evaluator keeps any size. Trailing zeros of the mantissa may pay for its decimal places;
// other digits behind the point would leave a fraction.
std::string exponentenAusschreiben(const std::string& s, const std::string& text, const std::string& was) {
    std::string aus;
    size_t kopiert = 0;
    for (size_t i = 1; i < s.size(); ++i) {
        if (s[i] != 'e' && s[i] != 'E') continue;
        size_t j = i;
        while (j > kopiert && (ziffer(s[j - 1]) || s[j - 1] == '.')) --j;
        size_t k = i + 1;
        if (k < s.size() && s[k] == '+') ++k;
        size_t m = k;
        while (m < s.size() && ziffer(s[m])) ++m;
        const std::string mantisse = s.substr(j, i - j);
        if (m == k || mantisse.find_first_of("0123456789") == std::string::npos) continue;
        if (mantisse.find('.') != mantisse.rfind('.')) throw ungueltig(text, was, "a number with an exponent has one decimal point at most");
        if (m - k > 9) throw CliFehler(was + " is too large: '" + text + "'");
        int64_t exponent = std::stoll(s.substr(k, m - k));
        std::string ziffern;
        const size_t punkt = mantisse.find('.');
        for (char c : mantisse) {
            if (c != '.') ziffern += c;
        }
        if (punkt != std::string::npos) exponent -= int64_t(mantisse.size() - punkt - 1);
        while (exponent < 0 && ziffern.size() > 1 && ziffern.back() == '0') {
            ziffern.pop_back();
            ++exponent;
        }
        if (exponent < 0) throw ungueltig(text, was, "it has a fraction");
        aus += s.substr(kopiert, j - kopiert) + "(" + ziffern + "*10^" + std::to_string(exponent) + ")";
        kopiert = m;
        i = m - 1;
    }
    return aus + s.substr(kopiert);
}

// A dot groups digits: 1 to 3 digits, then groups of exactly three (2.000.000.000).
void gruppenPruefen(const std::string& s, const std::string& text, const std::string& was) {
    for (size_t i = 0; i < s.size();) {
        if (!ziffer(s[i]) && s[i] != '.') {
            ++i;
            continue;
        }
        size_t j = i;
        while (j < s.size() && (ziffer(s[j]) || s[j] == '.')) ++j;
        const std::string lauf = s.substr(i, j - i);
        if (lauf.find('.') != std::string::npos) {
            size_t gruppe = 0;
            bool erste = true, gut = true;
            for (char c : lauf + ".") {
                if (c != '.') {
                    ++gruppe;
                    continue;
                }
                gut = gut && (erste ? gruppe >= 1 && gruppe <= 3 : gruppe == 3);
                erste = false;
                gruppe = 0;
            }
            if (!gut) throw ungueltig(text, was, "a dot only groups digits in threes, as in 1.000.000");
        }
        i = j;
    }
}

// The words of the formula language: SQR, SQRT and SQRMOD before their argument, MOD and
// MODULO between two numbers. Every other word is refused: the evaluator would pass over it.
// Then the order of numbers, operators and brackets: each operator between two operands, a
// bracket or function after an operator, every "(" closed.
void aufbauPruefen(const std::string& s, const std::string& text, const std::string& was) {
    enum Art { Anfang, Operand, Operator, Funktion, Auf, Zu };
    Art vorher = Anfang;
    long tiefe = 0;
    auto nachOperand = [&]() { return vorher == Operand || vorher == Zu; };
    for (size_t i = 0; i < s.size();) {
        const char c = s[i];
        if (buchstabe(c)) {
            size_t j = i;
            while (j < s.size() && buchstabe(s[j])) ++j;
            const std::string wort = gross(s.substr(i, j - i));
            i = j;
            if (wort == "MOD" || wort == "MODULO") {
                if (!nachOperand()) throw ungueltig(text, was, "a number is missing before " + wort);
                vorher = Operator;
            } else if (wort == "SQR" || wort == "SQRT" || wort == "SQRMOD") {
                if (nachOperand()) throw ungueltig(text, was, "an operator is missing before " + wort);
                vorher = Funktion;
            } else {
                throw ungueltig(text, was, "unknown word " + wort + "; the words are SQR, SQRT, SQRMOD and MOD");
            }
            continue;
        }
        if (ziffer(c) || c == '#' || c == '.' || (unsigned char)c >= 0x80) {
            // "²" and "³" close an operand like a digit does.
            if (vorher == Zu) throw ungueltig(text, was, "an operator is missing after ')'");
            vorher = Operand;
        } else if (c == '(') {
            if (nachOperand()) throw ungueltig(text, was, "an operator is missing before '('");
            ++tiefe;
            vorher = Auf;
        } else if (c == ')') {
            if (tiefe == 0) throw ungueltig(text, was, "a ')' has no '('");
            if (!nachOperand()) throw ungueltig(text, was, "a number is missing before ')'");
            --tiefe;
            vorher = Zu;
        } else if (rechenzeichen(c)) {
            if (!nachOperand()) {
                throw ungueltig(text, was, c == '-' ? "negative numbers are not allowed"
                                                    : std::string("a number is missing before '") + c + "'");
            }
            if (c == '*' && i + 1 < s.size() && s[i + 1] == '*') ++i;  // ** is ^
            vorher = Operator;
        }
        // Any other character is left to the evaluator, which names it.
        ++i;
    }
    if (!nachOperand()) throw ungueltig(text, was, "a number is missing at the end");
    if (tiefe > 0) throw ungueltig(text, was, "a ')' is missing");
}

}  // namespace

std::string FormelVorbereiten(const std::string& text, const std::string& was) {
    std::string s;
    for (char c : text) {
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n') s += c;
    }
    if (s.empty()) throw CliFehler(was + " is empty");
    s = exponentenAusschreiben(s, text, was);
    gruppenPruefen(s, text, was);
    aufbauPruefen(s, text, was);
    return s;
}

Mpz ArgumentLesen(const std::string& text, const std::string& was) {
    const std::string formel = FormelVorbereiten(text, was);
    try {
        return Mpz(Auswerten(formel));
    } catch (const Laufzeitfehler& e) {
        throw CliFehler(was + " '" + text + "': " + e.Beschreibung());
    } catch (const std::bad_alloc&) {
        throw CliFehler(was + " '" + text + "': not enough memory");
    }
}

Decimal ZahlLesen(const std::string& text, const std::string& was) {
    const Mpz wert = ArgumentLesen(text, was);
    if (mpz_sizeinbase(wert, 2) > 96) {
        throw CliFehler(was + " is too large: '" + text + "' (this command takes numbers below 2^96)");
    }
    return Decimal::ausText(ZahlText(wert));
}

std::string ZahlText(mpz_srcptr z) {
    std::string ziffern(mpz_sizeinbase(z, 10) + 1, '\0');
    mpz_get_str(ziffern.data(), 10, z);
    ziffern.resize(std::strlen(ziffern.c_str()));
    return ziffern;
}

}  // namespace sw::cli
