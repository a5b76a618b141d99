// LucasPruefpunkt: the checkpoint of a Lucas-Lehmer run, from which a stopped or killed run
// goes on. A file in the working folder per exponent holds p, the method, the iteration i and
// the residue S(i) as plain words; a checksum over all of it tells a damaged file from a good
// one. Files are replaced atomically, so a kill while writing leaves the previous checkpoint.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sw {

struct LucasPruefpunkt {
    uint32_t p = 0;
    int32_t methode = 0;
    uint32_t iteration = 0;          // the residue is S(iteration)
    std::vector<uint32_t> rest;      // ceil(p/32) words, lowest first, below 2^p
};

// ProgrammPfad + "Lucas_<p>.chk".
std::string LucasPruefpunktDatei(uint32_t p);
// Writes the checkpoint; a failure is a Laufzeitfehler naming the file (the run goes on
// without losing anything but this checkpoint, if the caller wishes).
void PruefpunktSchreiben(const std::string& datei, const LucasPruefpunkt& punkt);
// Reads the checkpoint of p: nothing when there is no file; a Laufzeitfehler that names the
// file when it is damaged or belongs to another exponent. Nothing is ever deleted here.
std::optional<LucasPruefpunkt> PruefpunktLesen(const std::string& datei, uint32_t p);

}  // namespace sw
