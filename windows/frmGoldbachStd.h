// frmGoldbachStd: the splits of an even number into two primes. Binds the number field, the go
// button and the eight step buttons to primality/Goldbach and lists the splits; beside that the
// full count r(n) with its Hardy-Littlewood estimate, and the "comet", r(n) over a range of
// even n drawn as points (PNG and CSV). The "Table" icon switches between list and picture.
#pragma once

#include <optional>

#include "primality/Goldbach.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

namespace sw {

class Bild;

class frmGoldbachStd : public Fenster {
    Q_OBJECT
public:
    explicit frmGoldbachStd(QWidget* eltern = nullptr);

    // btnGO: checks the number and lists its splits, the buttons off meanwhile.
    void Zerlegen();
    // btnNext(index): the new number of the step, written back and listed.
    void Naechster(int index);
    // btnAnzahl: r(n) and its estimate into lblAnzahl.
    void Zaehlen();
    // btnKomet: r(n) over the range and its picture (while it runs, the click stops it).
    void Komet();
    const std::optional<GoldbachKomet>& KometErgebnis() const { return komet_; }

protected:
    void IconFensterAktion(const QString& tag) override;

private:
    void knoepfeFreigeben(bool an);
    void kometZeichnen();

    QLineEdit *txtStart_, *txtVon_, *txtBis_;
    QPushButton *btnGO_, *btnNext_[8], *btnAnzahl_, *btnKomet_;
    QLabel *lblAnzahl_, *lblFortschritt_;
    QListWidget* liste_;
    Bild* picAnzeige_;
    QStackedWidget* ansicht_;
    QString ruheText_;
    std::optional<GoldbachKomet> komet_;
};

}  // namespace sw
