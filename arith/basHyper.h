// basHyper: the expression evaluator. A formula such as 2^127-1 or SQR(1000) is not parsed
// into a tree: the text is rewritten, each evaluated part replaced by its decimal result,
// until one number is left. Results of 21 words and more go into the evaluation's store and
// the text gets "#" and their index instead, so they never pass through text on the way.
//
// The precedence is the program's own: brackets (innermost rightmost first), then functions,
// then all "^", all "%", all "/", all "*", all "+", all "-", each kind from the left. So %
// and / bind more strongly than *, + more strongly than -, and 2^3^2 is 64.
//
// A result above HoechstBits bits, a division or modulo by 0, a character or word the language
// does not know, an operator or function without its number, a bracket without its partner
// and a stop by the user end the evaluation with a Laufzeitfehler that names the place.
// Malformed text never has a value.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "zahlkern/Hyp.h"

namespace sw {

// The store of one evaluation: the long intermediate results, and optionally the caller's
// ready values (the calculator's memories), which "#k" names for k below their count. Each
// evaluation has its own, so an evaluation started during another's yield (a field left while
// a long formula runs) cannot disturb it. An intermediate result occurs exactly once in the
// rewritten text, so reading it hands it over and frees its place: a long chain of large
// terms holds only the terms not yet combined.
class Formelspeicher {
public:
    explicit Formelspeicher(const std::vector<Hyp>* vorrat = nullptr);

    // v back into the text: its digits below 21 words, else "#k" with v kept here.
    std::string Einsetzen(Hyp v);
    // The value behind "#k" (k given as its digits): a copy of a ready value, or the
    // intermediate itself, which leaves the store. Unknown or already taken: Laufzeitfehler 9.
    Hyp Nehmen(const std::string& k);
    // Intermediate results still held.
    size_t Belegt() const;

private:
    const std::vector<Hyp>* vorrat_;
    std::vector<Hyp> zwischen_;
};

// Evaluates a formula as a user writes it; the empty text gives 1. With vorrat, "#k" names
// vorrat[k] (the calculator's memories; an element of count 0 is an empty memory).
Hyp Auswerten(const std::string& text, const std::vector<Hyp>* vorrat = nullptr);
// One level: brackets, functions, operators; t is already normalised.
Hyp KlammernAuswerten(std::string t, Formelspeicher& speicher);
// t with the one operation at position p done.
std::string OperatorAnwenden(const std::string& t, size_t p, char op, Formelspeicher& speicher);
// t with every function call replaced by its value, from the left.
std::string FunktionenErsetzen(std::string t, Formelspeicher& speicher);
// SQR and SQRT: the integer root; SQRMOD: the rest n - root^2. nullopt for any other name.
std::optional<Hyp> FunktionAnwenden(const std::string& name, const Hyp& a);
// t with the word replaced wherever neither neighbour is a letter A to Z.
std::string WortErsetzen(const std::string& t, const std::string& wort, const std::string& ersatz);

// The formula word of text 168 ("Formel:").
std::string FormelWort();
// A field's text as a Hyp: behind the formula word a formula, else a plain number.
Hyp Formel2Hyp(const std::string& text);
// The two forms of a formula field on leaving it. The text form shows the grouped number, or
// the formula word, a blank and the formula when the number has 100 characters or more; the
// word form keeps the formula from 21 words on without converting at all. No value (nullopt)
// when the evaluation failed; its message has been shown.
std::optional<std::string> FormelFeldText(const std::string& feld);
std::optional<std::string> FormelFeldWorte(const std::string& feld);

// s (s+1) ... n; 1 when s > n. n! is Fakultaet(2, n).
Hyp Fakultaet(int32_t s, int32_t n);
// The product of the primes from s to n; text keys 169 and 170 name s = 2 and s = 3.
Hyp Primorial(int32_t s, int32_t n);
// F(n) with F(0) = 0, F(1) = 1.
Hyp FibonacciHyp(int32_t n);
// P(n) with P(0) = 3, P(1) = 0, P(2) = 2, P(n) = P(n-2) + P(n-3).
Hyp PerrinHyp(int32_t n);

}  // namespace sw
