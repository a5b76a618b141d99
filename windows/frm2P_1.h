// frm2P_1: the value of the Mersenne number 2^p - 1 written out, with the arrows stepping the
// exponent from prime to prime and a line on what is known of p. Long values show their first
// and last 2,000 digits. The Mersenne database that knows divisors is not part of the program
// yet; until it is, the line says so, and names the known Mersenne primes.
#pragma once

#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace sw {

class frm2P_1 : public Fenster {
    Q_OBJECT
public:
    explicit frm2P_1(QWidget* eltern = nullptr);
    // btnUp (richtung 1) and btnDown (-1): the next or previous prime exponent.
    void Schritt(int richtung);
    // btnGO: 2^p - 1 into txtLong, and lblErgebnis.
    void Berechnen();

private:
    QLineEdit* txtPotenz_;
    QPlainTextEdit* txtLong_;
    QLabel* lblErgebnis_;
};

}  // namespace sw
