// frmSuchen: the search dialog of the prime display: twins, triplets, quadruplets, a free
// pattern of offsets or a gap of at least a given length, optionally moving on through the
// following secondary ranges; Cancel stops a running search at its next yield.
#pragma once

#include <QPointer>

#include "windows/Fenster.h"

class QRadioButton;
class QLineEdit;
class QCheckBox;
class QPushButton;
class QLabel;

namespace sw {

class frmAnzeige;

class frmSuchen : public Fenster {
    Q_OBJECT
public:
    explicit frmSuchen(frmAnzeige& anzeige, QWidget* eltern = nullptr);
    // btnGO: true on a hit.
    bool Starten();

private:
    QPointer<frmAnzeige> anzeige_;
    QRadioButton* optArt_[6];
    QLineEdit* txtMuster_;
    QLineEdit* txtLuecke_;
    QCheckBox* chkSekundaer_;
    QPushButton* btnGO_;
    QLabel* lblStatus_;
};

}  // namespace sw
