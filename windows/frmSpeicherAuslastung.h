// frmSpeicherAuslastung: how much memory the machine has - load with a bar, physical, swap and
// virtual memory, each total and free. Read anew on opening and on btnAktualisieren.
#pragma once

#include "windows/Fenster.h"

class QLabel;

namespace sw {

class Balken;

class frmSpeicherAuslastung : public Fenster {
    Q_OBJECT
public:
    frmSpeicherAuslastung();
    void Aktualisieren();
    bool Groessenveraenderlich() const override { return false; }

private:
    QLabel* lblAuslastung_;
    Balken* balken_;
    QLabel* lblPhysisch_;
    QLabel* lblAuslagerung_;
    QLabel* lblVirtuell_;
};

}  // namespace sw
