// Argumente: the one reader of the number arguments of sw-cli. Every number a command takes
// (N, FROM, TO, LIMIT, --limit) is a formula of the program's evaluator, as in every number
// field of the windows: 2^61-1, 10^12+10^6, SQR(10^40), 7 MOD 3. On top of that it keeps what
// a shell user types without thinking of formulas: German grouping (2.000.000.000) and a
// mantissa with an exponent (2e9, 1.5e10).
//
// The evaluator forgives what a field on screen may forgive; an argument of a script may not,
// so the reader refuses beforehand what the evaluator would read as something else: a dot that
// is no grouping ("2.5" would become 25), an unknown word ("2x3" would become 23), a leading
// minus ("-7" would become 1) and an operator without its operand.
#pragma once

#include <string>

#include "frame/Decimal.h"
#include "primality/HypMpz.h"

namespace sw::cli {

// The value of a number argument; what refers to the argument in messages is was ("N",
// "FROM", "the limit"). A text that is no whole non-negative number is a CliFehler naming was
// and the text as given.
Mpz ArgumentLesen(const std::string& text, const std::string& was);

// The same for the commands that work on Decimals: above 2^96-1 a CliFehler "too large".
Decimal ZahlLesen(const std::string& text, const std::string& was);

// The decimal digits of a value, for the answers.
std::string ZahlText(mpz_srcptr z);

// The text as it goes to the evaluator: blanks removed, exponents written out as products,
// after the checks above (a CliFehler when one fails). Open for the tests.
std::string FormelVorbereiten(const std::string& text, const std::string& was);

}  // namespace sw::cli
