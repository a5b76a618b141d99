// The outward shape of a formula, judged independently of the evaluator: shared by the
// formula fuzzer and the evaluator's randomized tests, which both demand that a formula
// malformed on its face never gets a value. Only texts without blanks and other spellings are
// judged: digits, "#k", brackets, the six operators and "**", MOD and MODULO, SQR, SQRT and
// SQRMOD.
#pragma once

#include <cctype>
#include <string>

namespace sw::formelgestalt {

// True when the text breaks the grammar visibly: a bracket without its partner, an empty
// bracket, a word that is neither an operator nor a function, an operator without a number
// on each side, a function without its argument, a "#" without digits. The empty text is
// the number 1 and well formed.
inline bool Fehlerhaft(const std::string& text) {
    std::string t;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "**") == 0) {  // the other spelling of "^", which pieces may form
            t.push_back('^');
            ++i;
        } else {
            t.push_back(char(std::toupper(static_cast<unsigned char>(text[i]))));
        }
    }
    if (t.empty()) return false;
    enum class Art { Anfang, Zahl, Operator, Funktion, Auf, Zu };
    Art vorher = Art::Anfang;
    long offen = 0;
    auto wertBeginnt = [](Art a) { return a == Art::Anfang || a == Art::Operator || a == Art::Funktion || a == Art::Auf; };
    for (size_t i = 0; i < t.size();) {
        const char c = t[i];
        Art jetzt;
        if (std::isdigit(static_cast<unsigned char>(c)) || c == '#') {
            size_t j = i + 1;
            while (j < t.size() && std::isdigit(static_cast<unsigned char>(t[j]))) ++j;
            if (c == '#' && j == i + 1) return true;
            // Values glued together ("2(3)", "(2)SQR4") are the evaluator's own business.
            if (vorher == Art::Zahl || vorher == Art::Zu) {
                i = j;
                continue;
            }
            jetzt = Art::Zahl;
            i = j;
        } else if (std::isalpha(static_cast<unsigned char>(c))) {
            size_t j = i;
            while (j < t.size() && std::isalpha(static_cast<unsigned char>(t[j]))) ++j;
            const std::string wort = t.substr(i, j - i);
            if (wort == "MOD" || wort == "MODULO") jetzt = Art::Operator;
            else if (wort == "SQR" || wort == "SQRT" || wort == "SQRMOD") jetzt = Art::Funktion;
            else return true;
            i = j;
        } else if (c == '(') {
            ++offen;
            jetzt = Art::Auf;
            ++i;
        } else if (c == ')') {
            if (--offen < 0) return true;
            jetzt = Art::Zu;
            ++i;
        } else if (std::string("^%/*+-").find(c) != std::string::npos) {
            jetzt = Art::Operator;
            ++i;
        } else {
            return true;  // a character of no meaning
        }
        // Where a value must begin, only a number, a bracket or a function may stand.
        const bool beginntWert = jetzt == Art::Zahl || jetzt == Art::Auf || jetzt == Art::Funktion;
        if (wertBeginnt(vorher) && !beginntWert) return true;
        vorher = jetzt;
    }
    return offen != 0 || wertBeginnt(vorher);
}

}  // namespace sw::formelgestalt
