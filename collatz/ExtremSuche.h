// ExtremSuche: the numbers that reach the end of a Collatz-type rule in exactly i steps,
// produced by walking the tree of predecessors backwards from 1 instead of testing numbers
// forward, so they may be of any size. Three walks: every number in a range, only those with
// exactly m multiplications, or one single path down to depth i. The rule is a parameter
// (3n+1, 3n-1, or any other whose predecessor by multiplication can be computed), and so is
// the way of counting: one step per level (mode i) or one halving per level (mode k).
// The row of a hit, with its seven field orders, is built here too.
#pragma once

#include <cstdint>
#include <string>

#include "zahlkern/Hyp.h"

namespace sw {

// The predecessor of y by the multiplication of the rule. Turns y in place into the quotient
// of the division that undoes it and tells whether the division left the right remainder,
// so that the branch exists; the walk then still asks for an odd value above 1.
class VorgaengerRegel {
  public:
    virtual ~VorgaengerRegel() = default;
    virtual bool Vorgaenger(Hyp& y) const = 0;
    // True when neither p nor any p * 2^k has an odd predecessor: the path walk then doubles
    // instead of stepping onto p, where it could only double. A rule that cannot tell says false.
    virtual bool OhneUngeradeVorgaenger(const Hyp& p) const;
};

// 3n+1: y = 3p + 1. A multiple of 3 is never 3p + 1, nor is any of its doublings.
class Regel3nPlus1 final : public VorgaengerRegel {
  public:
    bool Vorgaenger(Hyp& y) const override;
    bool OhneUngeradeVorgaenger(const Hyp& p) const override;
};
// 3n-1: y = 3p - 1; multiples of 3 as in 3n+1.
class Regel3nMinus1 final : public VorgaengerRegel {
  public:
    bool Vorgaenger(Hyp& y) const override;
    bool OhneUngeradeVorgaenger(const Hyp& p) const override;
};

enum class ExtremArt { Voll, ZielM, Pfad };

struct ExtremAuftrag {
    int32_t tiefe = 0;        // i (or k): the number of levels
    Hyp von, bis;             // every value of a walk, the root 1 included, must lie in von..bis
    bool modusK = false;      // one halving per level; a "!" is a multiplication and its halving
    ExtremArt art = ExtremArt::Voll;
    int32_t zielM = -1;       // for ExtremArt::ZielM: the multiplications asked for
};

// Receives the hits; Gestoppt is asked at every node, so a stop button acts at once.
class ExtremZiel {
  public:
    virtual ~ExtremZiel() = default;
    // muster: one mark per level, read from left to right the forward sequence of the hit:
    // "!" a multiplication (in mode k with its halving), "." a halving.
    virtual void Treffer(const Hyp& wert, int32_t m, const std::string& muster) = 0;
    virtual bool Gestoppt() = 0;
};

struct ExtremErgebnis {
    int32_t anzahl = 0;          // hits
    bool vollstaendig = true;    // false when the range cut off a part of the tree
};

// The deepest walk: the walks recurse once per level, and deeper trees would overflow the
// stack before they could list anything (a tree of this depth is far too wide to list anyway).
constexpr int32_t ExtremMaxTiefe = 20000;

// Runs one walk. A depth below 1 does nothing; one above ExtremMaxTiefe is a Laufzeitfehler.
ExtremErgebnis ExtremWalk(const ExtremAuftrag& auftrag, const VorgaengerRegel& regel, ExtremZiel& ziel);

// ---- The row of a hit ----

// The marks of a row from the walk's Muster by the counting method: 0 as it is, 1 a
// multiplication and its halving as one "!", 2 the multiplications only. (Method 3 is a walk
// of its own and is made by the caller.)
std::string ExtremMarks(const std::string& muster, int32_t verfahren);
// The bits of x, highest first, "!" for 1 and "." for 0, without leading zeros.
std::string DualMarks(const Hyp& x);

struct ExtremZeilenFelder {
    int32_t tiefe = 0, m = 0;
    std::string zahl;     // display text of the value
    std::string marks;
    std::string dual;     // empty when the binary field is off
    bool dualAn = false;
};

// The widths that grow with the widest row seen; a new run starts from these values.
struct ExtremBreiten {
    size_t zahl = 0, dual = 0, zeile = 6;
    int32_t zeilen = 0;   // rows written
};

constexpr int32_t ExtremReihenfolgen = 7;

// The row in field order reihenfolge (0..6); widens breiten and counts the row.
std::string ExtremZeile(const ExtremZeilenFelder& f, int32_t reihenfolge, ExtremBreiten& breiten);
// The same row for a table file: number;i;m;value digits;marks;binary.
std::string ExtremZeileCsv(const ExtremZeilenFelder& f, int32_t nummer, const std::string& ziffern);

}  // namespace sw
