// frmHash: the primes of the primary raster over the buckets of a bit-folding hash. Binds the
// fields to distribution/Hash, draws the counts as bars (wheel zooms, drag pans), reads the
// bucket under the mouse, and shows the chi-square against a uniform spread with its p-value.
#pragma once

#include <QPoint>

#include <optional>

#include "distribution/Hash.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace sw {

class Bild;

class frmHash : public Fenster {
    Q_OBJECT
public:
    explicit frmHash(QWidget* eltern = nullptr);

    // btnGO: counts the buckets anew (while it runs, the click stops it).
    void HashZaehlen();
    const std::optional<HashErgebnis>& Ergebnis() const { return ergebnis_; }
    // The bucket under picture column x, -1 if none.
    int64_t EimerBei(int x) const;

protected:
    bool eventFilter(QObject* o, QEvent* e) override;
    // The "Save" icon writes the same lines as the CSV button.
    std::optional<QStringList> ListenText() override;

private:
    void darstellen();
    void ablesen(int x);

    QLineEdit* txtBits_;
    QRadioButton* optMethode_[3];
    QPushButton* btnGO_;
    QLabel *lblAnzahl_, *lblHash_, *lblBits_, *lblChi_, *lblFortschritt_;
    Bild* picAnzeige_;
    QString ruheText_;
    std::optional<HashErgebnis> ergebnis_;
    double erster_ = 0;       // first bucket of the view
    double sichtbar_ = 1;     // buckets across the view
    std::optional<QPoint> zieh_;
};

}  // namespace sw
