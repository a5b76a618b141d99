// What every fuzz target needs: a private working folder (SW.Ini and sw.TEX are written
// there), message boxes that go nowhere, and a way to write one input as a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace sw::fuzz {

// Sets up once per process: working folder, silent boxes, raster tables. Returns the folder.
const std::string& Umgebung();
// Writes the bytes as the named file of the working folder, replacing it by rename so that
// each input is a new file for every cache that looks at size, time and inode.
void DateiSchreiben(const std::string& name, const uint8_t* daten, size_t groesse);
// Stops the fuzzer with a finding when a property does not hold.
void Pruefen(bool bedingung, const char* was);

}  // namespace sw::fuzz
