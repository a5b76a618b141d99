// frmMersTeilerSpez: divisors of special form. Imports a page saved from a published table of
// Mersenne factors (the rows after "Exponent,Factor" up to "</pre>") into the database, and
// opens the merge of another database folder (frmSync).
#pragma once

#include "windows/Fenster.h"

class QLabel;
class QLineEdit;

namespace sw {

class frmMersTeilerSpez : public Fenster {
    Q_OBJECT
public:
    explicit frmMersTeilerSpez(QWidget* eltern = nullptr);
    // btnGO: imports txtPath + txtFile; "Fertig: N neu!" and N in both lblFertig.
    void Importieren();

private:
    QLineEdit* txtPath_;
    QLineEdit* txtFile_;
    QLabel* lblFertig_[2];
};

}  // namespace sw
