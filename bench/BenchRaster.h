// The primary raster a benchmark stands on: the tables once, then a run of method 0 to the
// limit unless the raster already has it, so that repeated benchmarks of one limit build it
// once.
#pragma once

#include <cstdint>

#include "frame/basZentral.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basSiebwerk.h"

namespace sw::bench {

inline void RasterBauen(int64_t grenze) {
    static bool tabellen = false;
    if (!tabellen) {
        RasterTabellenAufbauen();
        tabellen = true;
    }
    if (PrimaerGrenze != Decimal(grenze)) PrimaerLauf(Decimal(grenze), MethodeProdukt);
}

}  // namespace sw::bench
