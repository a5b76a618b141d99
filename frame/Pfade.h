// Where SW keeps its files. The working folder (ProgrammPfad) holds SW.Ini, block files and
// the database; sw.TEX is taken from there if present, else from beside the program, else
// from the source tree's data/ folder (builds and tests run without an install step).
#pragma once

#include <string>

namespace sw {

// Folder of the running executable, ending in "/".
std::string ProgrammOrdner();
// The working folder: $SW_HOME if set; else the program's folder when it holds sw.TEX and is
// writable; else $XDG_DATA_HOME/sw (~/.local/share/sw), created if missing. Ends in "/".
std::string ArbeitsOrdnerBestimmen();
// The text table in use (the file need not exist; Text() reports that).
std::string TexDateiPfad();
// The settings file: SW.Ini in the working folder chosen at start-up. It stays there when the
// user points ProgrammPfad (the folder of the block files) elsewhere by txtPath, so that all
// windows keep reading and writing one file. Before IniOrdnerSetzen: ProgrammPfad + "SW.Ini".
std::string IniDateiPfad();
void IniOrdnerSetzen(const std::string& ordner);
// A folder path with "/" behind it, as ProgrammPfad keeps it ("" stays "").
std::string MitSchraegstrich(std::string ordner);

}  // namespace sw
