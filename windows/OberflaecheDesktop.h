// OberflaecheDesktop: the Oberflaeche of the desktop program. Boxes are QMessageBoxes with
// the fixed titles and icons of the message family, the yield is processEvents, the clock is
// monotonic. Behandeln is the guard around every event handler: a run-time error that reaches
// it is shown in the "SW - Fehler" box, and the window stays usable.
#pragma once

#include <exception>
#include <functional>

#include "frame/Oberflaeche.h"

namespace sw {

class OberflaecheDesktop : public Oberflaeche {
public:
    int Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                MeldungsKnoepfe knoepfe) override;
    void DoEvents() override;
    double Uhr() override;
};

// Loads Qt's German texts (qtbase_de) and makes German the default locale of the widgets.
// Called once at start, before any window.
void QtTexteDeutsch();

// Closing the cockpit ends the program. Between jobs the event loop simply ends. While a job
// runs, the close came through the job's yield, and the job itself cannot be stopped (a sieve
// run does not look at Abbruch): the yield then ends the process as soon as the close handler
// has saved everything. an = false takes the request back (the tests do).
void ProgrammEndeAnfordern(bool an = true);
bool ProgrammEndeAngefordert();
// What the yield does on such a request. Default: the process ends with code 0. The tests put
// a recorder here.
extern std::function<void()> SofortEndeHook;

// The text key whose text leads the error box of a handler.
inline constexpr int FehlerTextKey = 208;

// Runs one event handler. A Laufzeitfehler shows the "SW - Fehler" box, an exhausted memory
// "SW - Speicher", any other exception the error box with its message; nothing escapes, since
// an exception must never unwind through Qt's event loop. True if the handler ran through.
bool Behandeln(const std::function<void()>& handler) noexcept;
// The box for an exception caught elsewhere (the application's last guard).
void FehlerZeigen(std::exception_ptr fehler) noexcept;

// A slot for signals without arguments that runs f guarded by Behandeln.
template <typename F>
auto Sicher(F f) {
    return [f]() { Behandeln(f); };
}

}  // namespace sw
