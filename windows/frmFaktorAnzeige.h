// frmFaktorAnzeige: factors one number of any size completely. The number is a formula field;
// the list shows each prime with its exponent and whether it is proved, and the window shows
// the running stage (trial division, rho, the ECM level and its curves). The start button
// stops the job at any moment, keeping what was found; the list is saved by the toolbar.
#pragma once

#include "primality/Faktorisierung.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace sw {

// The line that tells where a factorisation stands (the stage, the ECM level and its curves),
// from the texts of this window; the number analysis shows the same line.
QString FaktorStandText(const FaktorStand& stand);

class frmFaktorAnzeige : public Fenster, private FaktorBeobachter {
    Q_OBJECT
public:
    explicit frmFaktorAnzeige(QWidget* eltern = nullptr);

    // A new window for zahl, factoring at once.
    static frmFaktorAnzeige* Oeffnen(const QString& zahl, QWidget* eltern);

    // btnGo: starts, or stops the running job.
    void StartStop();

protected:

private:
    void StandMelden(const FaktorStand& stand) override;
    void zerlegen();
    void ergebnisZeigen(const Zerlegung& z, double sekunden);

    QLineEdit* txtZahl_;
    QPushButton* btnGo_;
    QListWidget* liste_;
    QLabel* lblStufe_;
    QLabel* lblStatus_;
    QProgressBar* prgKurven_;
};

}  // namespace sw
