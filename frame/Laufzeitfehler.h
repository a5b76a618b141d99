// Laufzeitfehler: the one exception type of SW. It stands for what the old platform raised as
// a run-time error (overflow, division by zero, type mismatch, out of memory, file not found)
// and carries that platform's number and description, so that the error box can show them.
// Every event handler catches it; the CLI prints it as one line and exits 1.
#pragma once

#include <stdexcept>
#include <string>

namespace sw {

// The run-time error numbers of the old platform.
enum FehlerNummer : int {
    FehlerUeberlauf = 6,
    FehlerKeinSpeicher = 7,
    FehlerDivisionDurchNull = 11,
    FehlerTypenUnvertraeglich = 13,
    FehlerDateiNichtGefunden = 53,
    FehlerZugriffVerweigert = 70,
};

class Laufzeitfehler : public std::runtime_error {
public:
    // A known number takes the platform's description; any other needs its own.
    explicit Laufzeitfehler(int nummer);
    Laufzeitfehler(int nummer, const std::string& beschreibung);

    int Nummer() const { return nummer_; }
    const std::string& Beschreibung() const { return beschreibung_; }

private:
    int nummer_;
    std::string beschreibung_;
};

// The platform's description of a run-time error number ("" for numbers it did not name).
std::string FehlerBeschreibung(int nummer);

}  // namespace sw
