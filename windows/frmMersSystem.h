// frmMersSystem: the systematic search over all exponents with the database. For now it holds
// the import of a plain divisor list ("exponent,factor" lines) into the Mersenne database;
// the search itself joins it later.
#pragma once

#include "windows/Fenster.h"

class QLabel;

namespace sw {

class frmMersSystem : public Fenster {
    Q_OBJECT
public:
    explicit frmMersSystem(QWidget* eltern = nullptr);
    // btnMersenne: asks for the list file and imports it; a damaged line stops the import
    // with a message naming it, everything before it is kept.
    void ListeImportieren();

private:
    QLabel* lblImport_;
};

}  // namespace sw
