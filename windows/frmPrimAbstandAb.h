// frmPrimAbstandAb: the gaps between consecutive primes from a start of any size (a formula).
// Binds the fields to distribution/LueckenAb: the next N gaps with their merit, or the first
// gaps of at least a size; record gaps stand out in the list.
#pragma once

#include <vector>

#include "distribution/LueckenAb.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmPrimAbstandAb : public Fenster {
    Q_OBJECT
public:
    explicit frmPrimAbstandAb(QWidget* eltern = nullptr);

    // btnGO: walks anew from the start (while it runs, the click stops it).
    void Suchen();

protected:
    std::optional<QStringList> ListenCsv() override;

private:
    QLineEdit *txtStart_, *txtAnzahl_, *txtMin_;
    QPushButton* btnGO_;
    QLabel* lblFortschritt_;
    QListWidget* List1_;
    QString ruheText_;
    QStringList csv_;
};

}  // namespace sw
