// frmCollatzGrafExtrem: the entrance of the Collatz wing. One bar per start value, the bar
// being the sequence's mark string laid out cell by cell ("!" in one colour, "." in another),
// so that side by side the bars show how length and order of the steps change from start to
// start. Here the user chooses the counting method of the wing and opens its other windows.
#pragma once

#include <vector>

#include "primality/HypMpz.h"
#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace sw {

class Bild;

class frmCollatzGrafExtrem : public Fenster {
    Q_OBJECT
public:
    explicit frmCollatzGrafExtrem(QWidget* eltern = nullptr);
    // btnGO: a new scale and all bars.
    void Zeichnen();
    // Navigation code 0..4 (first, page back, step back, step forward, page forward).
    void Navigieren(int code);
    // UpDown1: k one up or down (not below 0), with a new scale.
    void Reduktion(int richtung);
    // The settings into the shared state of the wing, then the table.
    void TabelleOeffnen();
    void GrossOeffnen();
    // The tooltip text of the bar under a position across the bars ("" outside them).
    std::string BalkenText(int position);
    // A click on lblCol(index): the colour dialog, and the picture again in the new colour.
    void FarbeWaehlen(int index);

protected:
    void IconFensterAktion(const QString& tag) override;
    bool eventFilter(QObject* o, QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    void zeichnenMitSkala(bool autoSkala);
    void rasterZeichnen(int laengs, int quer);
    bool laufStoppen();
    int verfahren() const;
    int balkenBreite() const;
    int64_t schritt() const;

    QPushButton* btnGO_;
    QString ruheText_;  // the caption of btnGO while no drawing runs
    QLineEdit* txtVon_;
    QLineEdit* txtPlus_;
    QPushButton* lblPlusMinus_;
    QRadioButton* optCollatz_[4];
    QLineEdit* txtReduktion_;
    QLineEdit* txtBalkenBreite_;
    QLineEdit* txtSkala_;
    QLineEdit* txtSkalaMax_;
    QCheckBox* chkGrafikQuer_;
    QCheckBox* chkVonOben_;
    QCheckBox* chkSwitch_;
    QCheckBox* chkTrennLinien_;
    QLabel* lblCol_[5];
    Bild* picAnzeige_;
    Bild* picSkala_;
    Bild* picSkalaUnten_;

    // What the last drawing showed, for the tooltip and for navigation without a new scale.
    Mpz start_;
    int64_t schritt_ = 1;
    int balken_ = 3;
    int anzahl_ = 0;
    int verfahren_ = 0;
    int k_ = 0;
    int skalaMax_ = 1;
    double mass_ = 1;
    bool gezeichnet_ = false;
};

}  // namespace sw
