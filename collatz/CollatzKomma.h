// CollatzKomma: the rule 3n+1 with the factor 3 replaced by a multiplier y of ten decimals,
// x -> ceil(x y) made even, then halved to odd. Here are the multiplier as text (one integer
// digit, a comma, ten decimals: the form the walk CollatzKommaFolge reads), the small steps
// of y that the window offers, and the predecessor of this rule for the backward walks of
// ExtremSuche, so that the tree of a fractional multiplier is walked by the same code as 3n+1.
#pragma once

#include <optional>
#include <string>

#include "collatz/ExtremSuche.h"
#include "zahlkern/Hyp.h"

namespace sw {

// The multiplier of a new window and of a text that was no multiplier.
inline constexpr const char* KommaStandard = "3,0000000000";
// The band the small steps of y keep to: outside it nearly every walk ends in a loop at once.
inline constexpr double KommaYMin = 2.45;
inline constexpr double KommaYMax = 3.33;

// y read with a comma or a point and rounded to ten decimals, as "d,dddddddddd" (12
// characters). nullopt for a text that is no number, or a y outside 0..9.9999999999.
std::optional<std::string> KommaMultiplikator(const std::string& text);
// y moved by diff up (nachOben) or down and held to KommaYMin..KommaYMax, as multiplier text;
// nullopt when y or diff is no number.
std::optional<std::string> KommaSchritt(const std::string& y, const std::string& diff, bool nachOben);

// The predecessor of the multiplier rule: the odd p with ceil(p y), made even, equal to the
// value. For y >= 1 there is at most one: the odd numbers p and p + 2 lie at least 2y apart
// after the multiplication, more than the two values v - 1 and v that can become v. Below 1
// a value has several and the tree would need more than one odd branch: refused.
class RegelKomma final : public VorgaengerRegel {
  public:
    // multiplikator as KommaMultiplikator gives it; mitMultiplikation false is the rule
    // without a multiplication step, whose tree holds the powers of two alone.
    RegelKomma(const std::string& multiplikator, bool mitMultiplikation = true);
    bool Vorgaenger(Hyp& v) const override;
    bool OhneUngeradeVorgaenger(const Hyp& p) const override;
    // The forward step of the rule on odd x: ceil(x y), made even.
    Hyp Schritt(const Hyp& x) const;

  private:
    Hyp y_;              // y * 10^10
    Hyp zehnHoch10_;     // 10^10
    Hyp rundung_;        // 10^10 - 1: added before the division, so that it rounds up
    bool mit_;
    bool drei_;          // y is exactly 3: the rule is 3n+1
};

}  // namespace sw
