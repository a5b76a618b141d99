// frmLucasLehmer: the Lucas-Lehmer test of 2^p - 1 for a prime exponent p by one of four
// squaring methods. The run is LucasLauf (mersenne/); this window reads the exponent, steps it
// from prime to prime, shows the running iteration, the remaining time, the verdict and the
// Res64. A stopped run (or one whose window was closed) keeps a checkpoint and goes on from
// it at the next start of the same exponent.
#pragma once

#include <QString>

#include "mersenne/LucasLauf.h"
#include "windows/Fenster.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace sw {

class frmLucasLehmer : public Fenster, private LucasAnzeige {
    Q_OBJECT
public:
    explicit frmLucasLehmer(QWidget* eltern = nullptr);
    bool Groessenveraenderlich() const override { return false; }
    // The click of btnGO: start, or stop a running test.
    void StartStop();
    // UpDown1: the next (richtung 1) or previous (-1) prime exponent.
    void Schritt(int richtung);

private:
    void Stand(uint32_t i, const std::string& restDauer) override;
    void testen(uint32_t p);

    QLineEdit* txtPotenz_;
    QButtonGroup* optMethode_;
    QPushButton* btnGO_;
    QLabel* lblStatus_;
    QLabel* lblRestDauer_;
    QLabel* lblRes64_;
    QGroupBox* fraPrim_[3];
    QLabel* lblTest_[3];
    QTimer* Timer1_;
};

}  // namespace sw
