// frmSync: merges the Mersenne database of another folder into ours, the way two researchers
// combine their work: the union of the divisors, the larger search limit, and a report of
// every exponent that changed. The other folder is only read.
#pragma once

#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace sw {

class frmSync : public Fenster {
    Q_OBJECT
public:
    explicit frmSync(QWidget* eltern = nullptr);
    // btnOrdner: chooses a database file of the other folder and takes its folder.
    void OrdnerWaehlen();
    // btnGO: merges txtOrdner into our folder and lists what changed.
    void Abgleichen();

private:
    QLineEdit* txtOrdner_;
    QLabel* lblStatus_;
    QListWidget* List1_;
};

}  // namespace sw
