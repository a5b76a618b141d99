// frmZufall: sets up the random raster: off or on, the primes 7..29 excluded besides 2, 3, 5,
// the percentage by which the expected gap is stretched or shrunk, and the size of the range.
#pragma once

#include "windows/Fenster.h"

class QRadioButton;
class QCheckBox;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QLabel;

namespace sw {

class frmZufall : public Fenster {
    Q_OBJECT
public:
    explicit frmZufall(QWidget* eltern = nullptr);
    bool Groessenveraenderlich() const override { return false; }
    // btnGO: false (after its box) when the percentage is refused.
    bool Uebernehmen();
    // The info text and the memory label anew.
    void Aktualisieren();

private:
    int32_t bitKette() const;
    QRadioButton* optZufall_[3];
    QCheckBox* chkMuster_[9] = {};
    QLineEdit* txtProzent_;
    QPushButton* btnPM_;
    QSpinBox* upDown_;
    QLabel* lblIntervall_;
    QLabel* lblSpeicher_;
    QLabel* lblInfo_;
};

}  // namespace sw
