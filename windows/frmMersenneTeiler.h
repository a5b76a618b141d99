// frmMersenneTeiler: the divisor search of the Mersenne numbers 2^p - 1 from an exponent
// upward, into the Mersenne database. The run is TeilerLauf (mersenne/); this window reads the
// start, the k limit and the counting interval, lists the divisors, and shows the exponent in
// work, its k and the share of settled exponents as a line and a bar.
#pragma once

#include "mersenne/TeilerLauf.h"
#include "windows/Fenster.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmMersenneTeiler : public Fenster, private TeilerLaufAnzeige {
    Q_OBJECT
public:
    explicit frmMersenneTeiler(QWidget* eltern = nullptr);
    // The click of btnGO: start, or stop the running search.
    void SuchlaufStarten();
    // UpDown1: the next (richtung 1) or previous (-1) prime exponent.
    void Schritt(int richtung);
    // Draws lblAnzahl and the bar from the last counters.
    void AnzeigeAktualisieren();

private:
    void Exponent(uint32_t p) override;
    void Stand(uint32_t p, uint64_t k) override;
    void Teiler(uint32_t p, const std::string& q, bool neu) override;
    void Statistik(const TeilerStatistik& s) override;
    void balkenFarbe();

    QLineEdit* txtPotenz_;
    QLineEdit* txtK_;
    QLineEdit* txtIntervall_;
    QPushButton* btnGO_;
    QCheckBox* chkGefunden_;
    QCheckBox* chkGesamtAnzeige_;
    QListWidget* List1_;
    QGroupBox* fraPrim_;
    QLabel* lblStatus_;
    QLabel* lblAnzahl_;
    QLabel* lblDezimal_;
    QLabel* lblNeuStatus_;
    QLabel* lblAnzGesamt_;
    QLabel* lblAnzKlar_;
    TeilerStatistik statistik_;
};

}  // namespace sw
