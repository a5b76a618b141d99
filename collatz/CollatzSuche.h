// CollatzSuche: the forward searches of the Collatz table. Start values are tested one by one
// in the library for exactly I steps (or exactly M multiplications) and only the hits get
// their mark string; hits of equal multiplication count form blocks that can be cut short.
// The quick search jumps from band to band: a value of I steps and M multiplications lies near
// 2^(I-M) / 3^M, so it scans only the fifth below that point and then raises M.
// Also here: the row of the table, and the difference of a value to a listed number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "frame/Decimal.h"

namespace sw {

struct CollatzSuchAuftrag {
    Decimal start;
    Decimal schritt = Decimal(1);   // signed, not 0
    bool nurM = false;              // search by M alone (no I given)
    int32_t I = 0, M = 0;
    int32_t maxTreffer = 0;         // 0: no limit
    int32_t maxBlock = 0;           // longest block of equal M; 0: no limit
    bool schnell = false;           // quick search by bands; only downward (schritt < 0)
    bool dual = false;              // rows with the binary form
};

// Receives what a search finds. Zeile gets the row text and the value it belongs to; a row
// that closes a block has no value (nullptr).
class CollatzSuchZiel {
  public:
    virtual ~CollatzSuchZiel() = default;
    virtual std::string Marks(const Decimal& x) = 0;
    virtual void Zeile(const std::string& text, const Decimal* wert) = 0;
};

struct CollatzSuchErgebnis {
    bool vollstaendig = true;   // false when a limit or a step other than 1 left values out
    int32_t treffer = 0;
};

// The search. It yields every 4096 candidates and ends at Abbruch, in the quick search too.
// A quick search upward does nothing: the caller says why before it calls.
CollatzSuchErgebnis CollatzSuchen(const CollatzSuchAuftrag& a, CollatzSuchZiel& ziel);

// 2^(I-M) / 3^M, the centre of the quick search's band, as a whole number; 0 when it is below
// 1. A centre beyond the Decimal range is a Laufzeitfehler with a clear text.
Decimal CollatzBandMitte(int32_t I, int32_t M);

// The row of the table: the number right-aligned to zahlBreite characters (two blanks for each
// missing one, as a blank is half a digit wide in the list), the marks, their count and the
// count of "!". With dual a tab and the number's 96 bits follow, zero words on top left out.
std::string CollatzTabZeile(const Decimal& x, const std::string& marks, size_t zahlBreite, bool dual);
// The 96 bits of x as "!" and ".", highest first, upper words left out while they are 0.
std::string CollatzDual96(const Decimal& x);
// The same row for a table file: value;marks;count;multiplications.
std::string CollatzTabCsv(const Decimal& x, const std::string& marks);

// The difference of wert to the number of the row before the last one, as its text when it is
// a power of two, else "-"; a row that begins with "--" stands for wert itself; "" when there
// are fewer than two rows.
std::string BildeDifferenz(const Decimal& wert, const std::vector<std::string>& zeilen);

}  // namespace sw
