// OberflaecheTerminal: the Oberflaeche of sw-cli. Boxes become one line on stderr; questions
// are answered by the --yes flag (without it, No); Ctrl-C asks the running job to stop by
// setting Abbruch at its next yield, a second Ctrl-C ends the program at once.
#pragma once

#include "frame/Oberflaeche.h"

namespace sw {

class OberflaecheTerminal : public Oberflaeche {
public:
    int Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                MeldungsKnoepfe knoepfe) override;
    void DoEvents() override;
    double Uhr() override;

    // Questions are answered Yes when set (the --yes flag), else No.
    void JaSetzen(bool ja) { ja_ = ja; }
    // Boxes of kind Information are not printed when set (the --quiet flag).
    void LeiseSetzen(bool leise) { leise_ = leise; }
    // Installs the SIGINT handler: the first Ctrl-C sets Abbruch at the next DoEvents.
    static void StrgCAbfangen();

private:
    bool ja_ = false;
    bool leise_ = false;
};

}  // namespace sw
