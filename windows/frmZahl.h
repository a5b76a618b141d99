// frmZahl: the detail of one number of the prime display: grouped and in the chosen base,
// prime or its factors, the neighbouring primes with their gaps, residues and digit count.
#pragma once

#include "windows/Fenster.h"

class QLabel;

namespace sw {

class Decimal;

class frmZahl : public Fenster {
    Q_OBJECT
public:
    explicit frmZahl(QWidget* eltern = nullptr);
    void ZahlZeigen(const Decimal& n);
    QString Inhalt() const;

private:
    QLabel* lblInhalt_;
};

}  // namespace sw
