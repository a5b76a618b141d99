// frmModuloBetrachtung: the primes of a range by residue class modulo m. Binds the fields to
// distribution/Restklassen: the count and share of each class against 1/phi(m) with the
// chi-square statistic, and the race of two chosen classes drawn as the lead over the range,
// its lead changes listed beside it.
#pragma once

#include <memory>

#include "distribution/Restklassen.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class Bild;

class frmModuloBetrachtung : public Fenster {
    Q_OBJECT
public:
    explicit frmModuloBetrachtung(QWidget* eltern = nullptr);

    // btnGO: counts the range anew (while it runs, the click stops it).
    void Zaehlen();
    const RestklassenZaehlung* Ergebnis() const { return ergebnis_.get(); }

protected:
    std::optional<QStringList> ListenCsv() override;

private:
    void darstellen();

    QLineEdit *txtVon_, *txtBis_, *txtModul_, *txtKlasseA_, *txtKlasseB_;
    QPushButton* btnGO_;
    QLabel *lblChi_, *lblFortschritt_;
    QListWidget *List1_, *lstWechsel_;
    Bild* picAnzeige_;
    QString ruheText_;
    std::unique_ptr<RestklassenZaehlung> ergebnis_;
};

}  // namespace sw
