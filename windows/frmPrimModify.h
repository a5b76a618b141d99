// frmPrimModify: strikes the raster only by the primes up to a bound, so that the research
// windows look at the numbers free of small factors. Afterwards the raster no longer holds
// the true primes (RasterEcht is cleared) until the next run or load.
#pragma once

#include "windows/Fenster.h"

class QLineEdit;

namespace sw {

class frmPrimModify : public Fenster {
    Q_OBJECT
public:
    explicit frmPrimModify(QWidget* eltern = nullptr);
    bool Groessenveraenderlich() const override { return false; }
    // Applies the bound of txtGrenze; false (after a box) when the raster cannot take it.
    bool Anwenden();

private:
    QLineEdit* txtGrenze_;
};

}  // namespace sw
