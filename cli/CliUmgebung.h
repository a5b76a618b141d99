// CliUmgebung: what every command of sw-cli shares. The Oberflaeche of the terminal that
// keeps the text of the last box (so that a refusal becomes the one line "sw-cli: ..."), the
// range of a question, the raster that a question needs, and the small JSON writer of --json.
#pragma once

#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

#include "Argumente.h"
#include "frame/Decimal.h"
#include "frame/OberflaecheTerminal.h"

namespace sw::cli {

// A one-line message for stderr and exit code 1.
class CliFehler : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Thrown out of a job's yield after Ctrl-C; what was printed stays printed.
struct Abgebrochen {};

// Boxes are kept instead of printed: a command that fails shows the last one as its message;
// questions are answered by --yes. Ctrl-C ends the running job at its next yield. On a
// terminal, a job that runs longer than a second shows its running time on stderr.
class CliOberflaeche : public OberflaecheTerminal {
public:
    int Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                MeldungsKnoepfe knoepfe) override;
    void DoEvents() override;
    // The last box as one line ("" if there was none), and forgotten.
    std::string LetzteMeldung();
    // Clears the line of the running time, if one was shown.
    void FortschrittBeenden();

private:
    std::string letzte_;
    double start_ = -1;           // when the first yield came
    double gezeigt_ = 0;          // when the running time was last shown
    bool zeile_ = false;          // a line of running time stands on stderr
};

CliOberflaeche& Terminal();

// FROM and TO of a range question, read by ZahlLesen; FROM above TO is a CliFehler.
struct Bereich {
    Decimal von, bis;
};
Bereich BereichLesen(const std::string& von, const std::string& bis, const std::string& frage);

// The raster a question needs. With --block the file is loaded; with --limit that limit is
// sieved by the main method; otherwise the given default limit. Refusals become CliFehler.
struct RasterWahl {
    std::string limit;   // --limit, "" if not given
    std::string block;   // --block, "" if not given
};
void RasterBereitstellen(const RasterWahl& wahl, const Decimal& standardGrenze);
// True if the raster was given on the command line (then its limit is the user's choice).
bool RasterGewaehlt(const RasterWahl& wahl);
// Throws the "cannot answer" message for n unless n <= PrimaerGrenze.
void ImRasterPruefen(const Decimal& n, const std::string& frage);

// --db of the Mersenne commands: a postgresql:// or postgres:// URL chooses that server, anything
// else a folder of segment files, created when `anlegen` (the writing commands) and else
// required to exist. "" keeps the default folder.
void DbOrtWaehlen(const std::string& ort, const std::string& befehl, bool anlegen);

// One JSON object, written field by field.
class JsonObjekt {
public:
    JsonObjekt& Zahl(const std::string& name, const std::string& ziffern);
    JsonObjekt& Zahl(const std::string& name, const Decimal& wert) { return Zahl(name, wert.Text()); }
    JsonObjekt& Kommazahl(const std::string& name, double wert);
    JsonObjekt& Text(const std::string& name, const std::string& wert);
    JsonObjekt& Wahr(const std::string& name, bool wert);
    JsonObjekt& Roh(const std::string& name, const std::string& json);
    std::string Ende() const { return "{" + inhalt_.str() + "}"; }
    static std::string Zeichenkette(const std::string& s);

private:
    void feld(const std::string& name);
    std::ostringstream inhalt_;
    bool erstes_ = true;
};

// Long lists go to stdout through one buffer: a printf per number would cost more than
// finding the numbers. Numbers up to 2^128; the progress line on stderr is cleared first.
class AusgabePuffer {
public:
    AusgabePuffer() = default;
    // Into a text instead of stdout (a piece of a job spread over processes).
    explicit AusgabePuffer(std::string* ziel) : ziel_(ziel) {}
    ~AusgabePuffer() { leeren(); }
    void zahl(unsigned __int128 v);
    void text(const std::string& s);
    void leeren();

private:
    char daten_[1 << 16];
    size_t pos_ = 0;
    std::string* ziel_ = nullptr;
};

}  // namespace sw::cli
