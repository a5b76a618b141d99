// BereichStuecke: how a range job is cut for the processes of an MPI job. Every piece sets up
// its sieving primes again (their first multiples in the piece), so a piece must be long
// enough for that to be small beside its sieving; within that, many more pieces than processes
// let the faster ones take more. A range too narrow to pay for a second piece stays whole.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "frame/Decimal.h"

namespace sw::cli {

using Zahl128 = unsigned __int128;

// Pieces for each process when the range is long enough: enough for a fast process to take
// more than a slow one, few enough that the set-up of each piece stays small (measured with
// two processes counting 10^10 numbers at 10^12: 0.55 of one process in 32 pieces, 0.7 in 128).
inline constexpr uint64_t StueckeJeProzess = 16;

// The number of pieces of [von, bis] whose sieving primes reach up to the root of bis:
// 1 alone or where a split would not pay; the environment variable SW_MPI_PIECES sets it.
uint64_t PrimStuecke(const Decimal& von, const Decimal& bis);
// The number of pieces of anzahl starts of collatz-count.
uint64_t StartStuecke(uint64_t anzahl);

// Piece i of n of the numbers von..bis: its first and last one. The inner borders are
// multiples of 120, the span of one raster word, so that no word is sieved twice.
std::pair<Zahl128, Zahl128> Stueck(Zahl128 von, Zahl128 bis, uint64_t n, uint64_t i);

class AusgabePuffer;

// A list printed in n pieces spread over the processes: schreiben(aus, i) writes the entries of
// piece i (in JSON separated by commas) and gives their number. Process 0 prints the pieces in
// order, a comma between two in JSON, and gets the total number; the others get 0.
uint64_t ListeVerteilen(AusgabePuffer& aus, uint64_t n, bool json,
                        const std::function<uint64_t(AusgabePuffer&, uint64_t)>& schreiben);

}  // namespace sw::cli
