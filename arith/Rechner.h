// Rechner: the logic of the calculator window, without widgets. It evaluates a formula line
// with the memories #1..#9 at hand, applies the functions of the buttons (n!, primorials,
// Fibonacci, Perrin, gcd, modular inverse, integer root, next and previous prime up to the
// square of the sieve's limit), keeps the history and the memories (kept in SW.Ini, section
// [Rechner]), and prepares the texts the window shows. Every refusal is a Laufzeitfehler with
// a message for the user; a stop ends the computation and its texts alike.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "zahlkern/Hyp.h"

namespace sw {

enum class RechenFunktion {
    Formel,         // the value of the formula line
    Fakultaet,      // n!
    Primorial2,     // product of the primes from 2 to n
    Primorial3,     // product of the primes from 3 to n
    Fibonacci,      // F(n)
    Perrin,         // P(n)
    GGT,            // gcd(a; b)
    ModInverse,     // inverse of a mod m, "a; m"
    Wurzel,         // integer square root
    NaechstePrim,   // smallest prime above n, up to the square of the sieve's limit
    VorherigePrim,  // greatest prime below n, the same way
};
inline constexpr int RechenFunktionAnzahl = 11;

// A result as the window shows it: the value, its decimal digits and its digits in the number
// base of the options (empty in base 10). The texts are built once, interruptibly.
struct RechenErgebnis {
    Hyp wert;
    std::string ziffern;
    std::string basisZiffern;
};

class Rechner {
public:
    static constexpr int SpeicherAnzahl = 9;

    Rechner();

    // Computes f of the formula line (two formulas separated by ";" for gcd and inverse) and
    // puts the line and its value into the history. The stop flag of a job that may run
    // around the calculator is kept: a stop inside ends only this computation.
    RechenErgebnis Ausfuehren(RechenFunktion f, const std::string& eingabe);

    // Memory k (1..9) := wert; usable as #k in formulas, and written to SW.Ini at once. False
    // when the value is too long for the settings file: it is kept until the window closes.
    bool Merken(int k, const Hyp& wert);
    // The memories of the last session, from SW.Ini; a damaged entry leaves its memory empty.
    void SpeicherLaden();
    bool Belegt(int k) const;
    const Hyp& Speicher(int k) const;

    // "n! (1000) = 4.023.872 ... " lines, the newest last, and the formula of each line.
    const std::vector<std::string>& Verlauf() const { return verlauf_; }
    const std::vector<std::string>& VerlaufFormeln() const { return formeln_; }

private:
    Hyp berechnen(RechenFunktion f, const std::string& eingabe);
    Hyp formel(const std::string& text);

    std::vector<Hyp> speicher_;  // element k is #k; element 0 unused
    std::vector<std::string> verlauf_;
    std::vector<std::string> formeln_;
};

// The short name of a function for the history ("n!", "ggT", ...), from section [Calculator].
std::string FunktionsName(RechenFunktion f);

}  // namespace sw
