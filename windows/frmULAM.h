// frmULAM: the Ulam spiral. Binds the fields to the walk of distribution/Ulam and shows its
// cell model: the mouse wheel zooms and a drag pans the view, the cell under the mouse shows
// its number and factors, and the picture and the cells can be saved as PNG and CSV.
#pragma once

#include <QPoint>

#include <optional>

#include "distribution/Ulam.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace sw {

class Bild;

class frmULAM : public Fenster {
    Q_OBJECT
public:
    explicit frmULAM(QWidget* eltern = nullptr);

    // btnGO: a new walk over the picture's cells (while it runs, the click stops it).
    void UlamZeichnen();
    // btnGlatt: the smoothing of the cells drawn.
    void UlamGlaetten();
    // What the mouse readout says for the cell at the picture point p ("" outside the walk).
    QString ZellenText(QPoint p) const;
    const std::optional<UlamModell>& Modell() const { return modell_; }

protected:
    bool eventFilter(QObject* o, QEvent* e) override;
    // The "Save" icon writes the same lines as the CSV button.
    std::optional<QStringList> ListenText() override;

private:
    void darstellen();
    void zoomSetzen(int zelle);
    std::optional<QPoint> zelleBei(QPoint p) const;

    QLineEdit *txtInnenZahl_, *txtX_, *txtY_, *txtDiff_, *txtDiffDiff_, *txtGlatt_;
    QLabel *lblZoom_, *lblMax_, *lblZelle_, *lblFortschritt_;
    QPushButton *btnGO_, *btnGlatt_;
    Bild* picAnzeige_;
    QString ruheText_;
    int UlamZelle_ = 4;             // cell size of the walk, in pixels
    std::optional<UlamModell> modell_;
    int ansicht_ = 4;               // cell size of the view: the wheel changes it
    QPoint versatz_;                // where the model's cell (0, 0) stands in the view
    std::optional<QPoint> zieh_;    // the last point of a drag
};

}  // namespace sw
