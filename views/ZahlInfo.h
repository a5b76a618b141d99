// ZahlInfo: what the detail window frmZahl shows of one number: grouped and in the chosen
// base, prime or its factors, the neighbouring primes with their gaps, residues and digits.
// The neighbours come from the primary raster, above it from the secondary window when the
// number lies in it; "" where neither can say.
#pragma once

#include <string>

#include "frame/Decimal.h"

namespace sw {

struct ZahlInfo {
    std::string zahl;        // grouped by ZahlFormat
    std::string basis;       // "Basis 16: 3E8" for a base other than 10, else ""
    bool prim = false;
    std::string faktoren;    // the factor text for a composite ("?" behind an unproved factor)
    std::string vorherige, naechste;  // the neighbouring primes, grouped, or ""
    std::string abstandVor, abstandNach;
    int32_t rest6 = 0, rest30 = 0, rest120 = 0;
    int32_t stellen = 0;
};

ZahlInfo ZahlInfoErmitteln(const Decimal& n);

}  // namespace sw
