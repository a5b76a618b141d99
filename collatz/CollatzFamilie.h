// CollatzFamilie: the Collatz counts of whole families of numbers - factorials, powers, primes,
// primorials, Fibonacci numbers or a formula in n - each member with an optional operation
// (add, subtract, multiply, divide, raise to a power). The family window and sw-cli
// collatz-family both walk a family through this class; it knows no widgets.
//
// A family keeps its running value and moves it by one multiplication or addition per step of
// n (n! by one product with the new n, the primorial by one product with the next prime, the
// Fibonacci numbers by one addition of the two kept ones), so that a row costs the count of
// its member and not the building of it. Only formulas (family 9) are evaluated anew.
#pragma once

#include <cstdint>
#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

// Families by the index of the option buttons.
enum class FamilienArt : int32_t {
    Fakultaet = 0,     // n!
    Zahl = 1,          // n
    Quadrat = 2,       // n^2
    Kubus = 3,         // n^3
    Zweierpotenz = 4,  // 2^n
    Primzahl = 5,      // the prime n (n moved up to the next prime)
    Primorial = 6,     // product of the primes up to n, from 2
    PrimorialUng = 7,  // product of the odd primes up to n, from 3
    Fibonacci = 8,     // F(n), F(1) = F(2) = 1
    Formel = 9,        // a formula in the variable n
};
inline constexpr int32_t FamilienAnzahl = 10;

// The operators by the index of the operator box.
enum class FamilienOperator : int32_t { Plus = 0, Minus = 1, Mal = 2, Durch = 3, Hoch = 4 };

// The window stops its list at this many rows (the head row included).
inline constexpr int32_t FamilienZeilenGrenze = 30001;

struct FamilienAuftrag {
    FamilienArt art = FamilienArt::Fakultaet;
    int32_t start = 1;    // first n
    int32_t schritt = 1;  // distance in n (for the prime families: primes further on)
    FamilienOperator op = FamilienOperator::Plus;
    int32_t offset = 0;   // right operand of the operator
    std::string formel;   // family 9: the formula in n
};

// What became of one member.
enum class FamilienStand {
    Gezaehlt,     // walked down to 1
    UnterNull,    // the subtraction would go below 0: not counted
    Abgebrochen,  // the user stopped the walk inside the member
    Fehler,       // the formula has no value for this n (text holds the evaluator's message)
};

struct FamilienZeile {
    int32_t n = 0;
    std::string formel;  // the formula with n replaced by the number
    FamilienStand stand = FamilienStand::Gezaehlt;
    int64_t schritte = 0;  // a multiplication and a halving one step each
    int64_t mult = 0;
    int64_t bits = 0;      // of the member the operator made
    int64_t stellen = 0;   // decimal digits of that member
    std::string meldung;   // Fehler: the evaluator's message
};

class CollatzFamilie {
  public:
    // Checks the order (Laufzeitfehler with a German message) and builds the first member.
    explicit CollatzFamilie(const FamilienAuftrag& auftrag);

    int32_t N() const { return n_; }
    const Hyp& Basis() const { return basis_; }
    // The formula in the variable n: the family's name, then operator and operand unless
    // they change nothing ("+0", "-0", "*1", "/1", "/0", "^1").
    const std::string& Formel() const { return formel_; }
    // The formula of the present member, every "n" (either case) replaced by N.
    std::string ZeilenFormel() const;
    // The present member with the operator applied. False when a subtraction would go below 0
    // (glied then untouched). A power beyond the largest allowed size is refused with
    // Laufzeitfehler 6 before it is built.
    bool Glied(Hyp& glied) const;
    // Counts the present member: its row. Family 9 with a formula that has no value here
    // gives a row in state Fehler; a stop by the user a row in state Abgebrochen.
    FamilienZeile Zaehlen() const;
    // Moves to the next member. Past the largest n (2^31 - 1) a Laufzeitfehler ends the family.
    void Weiter();

  private:
    void erstesGlied();
    void ausN();
    void setzeN(int64_t n);

    FamilienAuftrag a_;
    int32_t n_ = 0;
    Hyp basis_;
    Hyp fib1_;  // F(n - 1) beside F(n) in basis_
    std::string formel_;
    std::string formelFehler_;  // family 9: the message of the last evaluation, if it failed
};

// The row as the list shows it: formula, " ; ", steps, ".", multiplications (or what
// prevented the count).
std::string FamilienZeileText(const FamilienZeile& z);
// The CSV head and a row: formula, digits, bits, steps, multiplications, steps per bit.
std::string FamilienCsvKopf();
std::string FamilienZeileCsv(const FamilienZeile& z);

// Decimal digits of h (1 for 0), exact.
int64_t HypStellen(const Hyp& h);

}  // namespace sw
