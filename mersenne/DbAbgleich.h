// DbAbgleich: merges the Mersenne database of another folder into ours, the way two people
// who searched different ranges, or the same range to different limits, combine their work.
// Per exponent: the divisors are the union of both lists, the larger search limit wins, a row
// with a divisor has status 2, and the later time stamp stays. Each divisor taken over is
// checked to divide 2^p - 1. The other folder is only read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sw {

struct AbgleichBericht {
    int64_t dateien = 0;         // segment files read from the other folder
    int64_t zeilen = 0;          // rows read there
    int64_t neueZeilen = 0;      // exponents we had no row for
    int64_t neueTeiler = 0;      // divisors we did not know
    int64_t hoehereGrenzen = 0;  // rows of ours whose limit rose
    int64_t neuerStatus = 0;     // exponents whose status changed
    int64_t falscheTeiler = 0;   // entries there that do not divide 2^p - 1, left out
    std::vector<std::string> aenderungen;  // one line per changed exponent, the first ones
};
inline constexpr size_t AbgleichZeilenHoechstens = 10000;

// Checks every segment file of the other folder first (a foreign, damaged or locked one stops
// the merge before anything is written), then merges segment by segment in transactions.
// The folder itself and a folder without any segment file are refused with a message.
AbgleichBericht DbZusammenfuehren(const std::string& fremderOrdner);
// The report as lines of text for a window or a terminal.
std::vector<std::string> AbgleichText(const AbgleichBericht& b);

}  // namespace sw
