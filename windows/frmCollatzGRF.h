// frmCollatzGRF: the step-count graphic. One column per start value, set at the height of its
// number of steps down to 1, so that the lines of equal length that the Collatz function forms
// stand out. Hovering over a column shows the start, its marks and how close it lies to the
// estimate 2^i / 6^m; the arrow keys move that hover by txtMouseDiff columns.
#pragma once

#include <QImage>

#include "collatz/CollatzGrafik.h"
#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace sw {

class Bild;

// The columns (and with bereiche the bands of the lines) of g into bild, in either mode; the
// top kopf pixels stay free for the labels in the normal mode.
void GrafikSpaltenMalen(QImage& bild, const CollatzGrafik& g, int kopf, bool bereiche, const QColor& saeule,
                        const QColor& band);

class frmCollatzGRF : public Fenster {
    Q_OBJECT
public:
    explicit frmCollatzGRF(QWidget* eltern = nullptr);
    // btnGO: reads the inputs and draws; an unchanged window keeps its largest step count.
    void Zeichnen();
    // Navigation code 0..5 (see GrafikNavigation).
    void Navigieren(int code);
    // imgNavi(nummer): by the distance nummer of txtNav, forward or back.
    void DistanzGehen(int nummer, bool vor);
    // The hover over pixel x of the picture: marker, cross, text strip and lblProzent.
    void Hover(int x);
    // Moves the hover by txtMouseDiff columns (richtung +1 or -1).
    void HoverSchieben(int richtung);
    void FarbeWaehlen(int index);
    const CollatzGrafik& Grafik() const { return g_; }

protected:
    void IconFensterAktion(const QString& tag) override;
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;
    QImage BildAbbild() override;
    bool eventFilter(QObject* o, QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    void zeichnen(bool lesen);
    void bildMalen();
    void skalaMalen(int hoehe, int kopf);
    bool laufStoppen();
    QColor farbe(int index) const;
    int kopfHoehe() const;

    QLineEdit* txtVon_;
    QLineEdit* txtPlus_;
    QLineEdit* txtZahlenBreite_;
    QLineEdit* txtLinienHoehe_;
    QLineEdit* txtLinienAbstand_;
    QLineEdit* txtFixMin_;
    QLineEdit* txtFormatBreite_;
    QLineEdit* txtMouseDiff_;
    QLineEdit* txtNav_;
    QCheckBox* chkGrafMaxi_;
    QCheckBox* chkBereiche_;
    QCheckBox* chkSkala_;
    QCheckBox* chkKurz_;
    QCheckBox* chkMausHipp_;
    QCheckBox* chkOhneGrenze_;
    QToolButton* imgNavi_[3];
    QLabel* lblProzent_;
    QLabel* lblCol_[5];
    QPushButton* btnGO_;
    QString ruheText_;
    Bild* picAnzeige_;
    Bild* picSkala_;

    CollatzGrafik g_;
    QImage sauber_;            // the drawing without hover, to take the hover away again
    int64_t hoverIndex_ = -1;  // the column under the hover, -1 for none
    bool geaendert_ = false;   // txtVon, txtPlus, txtNav or txtLinienAbstand edited
    bool erstmals_ = true;     // the first activation draws
};

}  // namespace sw
