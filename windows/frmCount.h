// frmCount: the primes of a range and its prime constellations at any height the raster
// reaches. Binds the fields to distribution/Tupel and distribution/Schaetzung: the totals
// against li(x), R(x) and the Hardy-Littlewood estimates, and the table per power of ten.
#pragma once

#include <optional>

#include "distribution/Tupel.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmCount : public Fenster {
    Q_OBJECT
public:
    explicit frmCount(QWidget* eltern = nullptr);

    // btnGO: counts the range anew (while it runs, the click stops it).
    void Zaehlen();
    const std::optional<TupelZaehlung>& Ergebnis() const { return ergebnis_; }

protected:
    std::optional<QStringList> ListenCsv() override;

private:
    void darstellen();

    QLineEdit *txtVon_, *txtBis_;
    QPushButton* btnGO_;
    QLabel* lblFortschritt_;
    QListWidget* List1_;
    QString ruheText_;
    std::optional<TupelZaehlung> ergebnis_;
    bool vollstaendig_ = true;
};

}  // namespace sw
