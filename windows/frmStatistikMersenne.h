// frmStatistikMersenne: the exponents with a divisor against the primes, step by step over a
// range, as bars. optFaktoren chooses which rows count: every row with a divisor, or those
// whose k is 0, 1 or 3 mod 4 (k = 2 cannot occur, as q = 1 or 7 mod 8); txtMinFaktor keeps only
// the k up to a limit (0: all).
#pragma once

#include <array>

#include "mersenne/MersenneStatistik.h"
#include "windows/Fenster.h"
#include "windows/Saeulen.h"

class QLineEdit;
class QProgressBar;
class QRadioButton;

namespace sw {

class Bild;

class frmStatistikMersenne : public Fenster {
    Q_OBJECT
public:
    explicit frmStatistikMersenne(QWidget* eltern = nullptr);
    // btnGo.
    void Zeichnen();

protected:
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;

private:
    QLineEdit* txtVon_;
    QLineEdit* txtBis_;
    QLineEdit* txtStep_;
    QLineEdit* txtMinFaktor_;
    std::array<QRadioButton*, 4> optFaktoren_;
    QProgressBar* ProgressBar1_;
    Bild* picAnzeige_;
    SaeulenDiagramm diagramm_;
};

}  // namespace sw
