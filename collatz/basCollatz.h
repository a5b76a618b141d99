// basCollatz: everything that walks a Collatz sequence, shared by all windows of the Collatz
// wing and by sw-cli. A walk takes the one shared number CollatzZahl, turns it into its end
// value and returns what happened as one text: a mark string ("!" a multiplication, "." a
// halving), the list of values, or a summary. The length of a sequence is the number of marks
// in its text; callers count characters in it, split it or show it.
//
// The walks that only count or mark go through CollatzSprung (16 steps per table lookup);
// the value lists and the block walk step by the library's in-place Hyp kernels, since they
// need every value anyway.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "collatz/CollatzSprung.h"
#include "frame/Decimal.h"
#include "zahlkern/Hyp.h"

namespace sw {

// ---- state of the wing -------------------------------------------------------------------
extern Hyp CollatzZahl;               // the running value; input of every walk, left at its end value
extern Hyp CollatzKopie;              // scratch of the block walk
extern std::vector<Hyp> FolgenListe;  // the values of the last multiplier walk, first value at 0
extern Decimal CollatzVon;            // first start value handed from the bar graphic to the table
extern Decimal CollatzBis;            // CollatzVon + 1000
extern int32_t CollatzSchritt;        // step between start values, negative for "-"
extern int32_t CollatzVerfahren;      // counting method 0..3 chosen in the bar graphic
extern int32_t CollatzReduktion;      // halvings of a block held back in method 3
extern int32_t CollatzVonOben;        // state of chkVonOben (0 or 1)

// Counters of the last walk.
extern int32_t Elemente;  // elements counted by the method
extern int32_t Mult;      // multiplications
extern int32_t Div;       // halvings
extern int32_t MaxLauf;   // longest run of multiply-and-halve pairs in one block (method 3)

// The pseudo reduction of the bar graphic: exactly one pair per block.
inline constexpr int32_t CollatzEinPaar = 232323;

// Methods (Verfahren): 0 every value is an element; 1 a multiplication and its halving are one
// element; 2 only odd values count; 3 the block walk from one odd value to the next, the last
// k halvings of a block held back.
// Outputs (Ausgabe): 0 the mark string; 1 the values, each followed by "; ", then the end
// value; 2 as 1, in method 3 with the pair count of each block; 9 only the summary.

// Every walk gives the window a turn now and then (DoEvents) and ends early when the user
// stopped it (Abbruch): the text then holds what was walked until there.

// Sets CollatzZahl to the start and walks it by 3n + 1.
std::string CollatzFolge(const Decimal& start, int32_t verfahren, int32_t ausgabe, int32_t k);
// Walks CollatzZahl by 3n + 1; the empty text for 0 and 1.
std::string CollatzFolgeHyp(int32_t verfahren, int32_t ausgabe, int32_t k);
// Walks CollatzZahl by 3n - 1 until 1, 5 or 17; method 3 counts as 2.
std::string CollatzFolge3nMinus1(int32_t verfahren, int32_t ausgabe);
// Steps (a multiplication and a halving one step each) and multiplications of CollatzZahl
// down to 1. False if the user stopped the walk inside a large number (counts so far).
bool CollatzZaehlen(int32_t& schritte, int32_t& mult);
// The start value, " ---> ", steps, ".", multiplications, " = ", then one "!" per
// multiplication with its first halving and one "." per other halving.
std::string CollatzMuster();
// The line of the bar graphic for the start in CollatzZahl.
std::string CollatzZeile(int32_t verfahren, int32_t k);
// The block walk of CollatzZahl as halvings, ".", multiplications, " = ", one "!" per block;
// k = CollatzEinPaar does exactly one pair per block.
std::string CollatzBlockMuster(int32_t k);

// Asked every frageAlle (1000) elements of a multiplier walk with the count so far: true
// goes on.
using CollatzWeiterFrage = std::function<bool(int32_t anzahl)>;
// The question as a box with yes, no and cancel; only yes goes on.
bool CollatzWeiterBox(int32_t anzahl);
// The walk x -> ceil(m x), made even when odd and then halved to odd, from an integer start;
// m has up to ten decimals (the digits after the first one), "," allowed. Fills FolgenListe
// and returns the multiplier text, " ", the values joined by "; ", and "...Schleife..." if a
// value came back or "...Abbruch..." if the question ended it.
std::string CollatzKommaFolge(const std::string& start, const std::string& multiplikator,
                              const CollatzWeiterFrage& weiter = CollatzWeiterBox, int32_t frageAlle = 1000);

}  // namespace sw
