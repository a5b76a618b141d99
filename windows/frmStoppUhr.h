// frmStoppUhr: shows the stop watch - which job, when it began and ended, how long it took,
// and whether it still runs. One instance; it stands while the option StoppUhrAktiv is on.
#pragma once

#include "windows/Fenster.h"

class QLabel;

namespace sw {

class frmStoppUhr : public Fenster {
    Q_OBJECT
public:
    frmStoppUhr();
    // Shows the stop watch's content anew.
    void Anzeigen();
    bool Groessenveraenderlich() const override { return false; }

    // The hook of the stop watch: aktiv creates (if needed), shows and refreshes the window;
    // otherwise an open window is closed.
    static void Zeigen(bool aktiv);
    static frmStoppUhr* Instanz();

private:
    QLabel* lblAufgabe_;
    QLabel* lblStart_;
    QLabel* lblEnde_;
    QLabel* lblDauer_;
    QLabel* lblZustand_;
};

}  // namespace sw
