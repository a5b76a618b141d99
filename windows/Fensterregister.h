// Fensterregister: the research windows by name. The cockpit, the toolbar's calculator and the
// menus open a window by its name; a window that is not built yet answers with
// MsgNichtImplementiert. Each window that comes adds one line to the list in
// Fensterregister.cpp.
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace sw {

// Opens a new instance of the window (a mode of -1 means none); cockpit is the window that
// asked, passed to windows that want their owner.
using FensterFabrik = std::function<void(int modus, QWidget* cockpit)>;

bool FensterVorhanden(const QString& name);
// Adds or replaces the window of a name (the tests put stand-ins here).
void FensterAnmelden(const QString& name, FensterFabrik fabrik);
// Opens the window; MsgNichtImplementiert and false when it does not exist yet.
bool FensterOeffnen(const QString& name, int modus, QWidget* cockpit);

// The cockpit's table of btnUntersuchung: the window and its mode (-1: shown without mode).
struct Untersuchung {
    const char* fenster;  // nullptr: no window (index 25 counts primes in the cockpit)
    int modus;
};
inline constexpr int UntersuchungAnzahl = 37;
const Untersuchung& UntersuchungVon(int index);

}  // namespace sw
