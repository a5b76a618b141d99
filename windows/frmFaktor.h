// frmFaktor: the prime factors of a run of numbers around a start value, from the raster. Eight
// buttons move the start value (by a difference, a factor, to the prime next to the last value)
// and rebuild the list; the selected number can be factored completely in frmFaktorAnzeige.
#pragma once

#include <QVector>

#include "frame/Decimal.h"
#include "windows/Fenster.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmFaktor : public Fenster {
    Q_OBJECT
public:
    explicit frmFaktor(QWidget* eltern = nullptr);

    // btnGo: the list around txtStart.
    void ListeAufbauen();
    // btnNext(index): the step of the table, then the list.
    void Naechster(int index);

private:
    // False, after key 475, when txtStart cannot be used.
    bool startPruefen();
    void zerlegen();

    QLineEdit* txtStart_;
    QLineEdit* txtStep_;
    QLineEdit* txtPlusMinus_;
    QVector<QLineEdit*> txtDiff_;
    QListWidget* liste_;
    Decimal letzter_ = 0;  // the last value stepped to; 0 until the first step
};

}  // namespace sw
