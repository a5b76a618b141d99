// TabellenText: a list of the program's windows read as a table, for the table window. Rows
// are split into cells at ";" and tabs, a column is sorted by value, and the table is written
// as CSV. Numbers of any length sort by their value, not by their text: signs, the program's
// grouping and a decimal part are understood, so "-1.000" stands below "-2", and a number of
// forty digits above one of thirty. Cells that are no number come after all numbers, in text
// order; empty cells come last.
#pragma once

#include <string>
#include <vector>

namespace sw {

using TabellenZeile = std::vector<std::string>;

// Each line split at ";" and tab, each cell trimmed; empty lines are dropped.
std::vector<TabellenZeile> TabelleZerlegen(const std::vector<std::string>& zeilen);

// The order of two cells: negative, 0 or positive, as a before, equal to or after b.
int ZellenVergleich(const std::string& a, const std::string& b);

// Sorts the rows by column spalte (rows without it count as empty there), keeping the order of
// equal cells. Descending turns the order of the numbers and of the texts; the texts stay
// behind the numbers and empty cells last.
void TabelleSortieren(std::vector<TabellenZeile>& zeilen, size_t spalte, bool absteigend);

// The rows as CSV with ";" between the fields; a field that holds ";", a quote or a line end
// is quoted, its quotes doubled.
std::string TabelleCsv(const std::vector<TabellenZeile>& zeilen);

}  // namespace sw
