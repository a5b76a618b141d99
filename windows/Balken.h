// Balken: the two-label progress bar of the long jobs. The back label (lblPrgBar...) is the
// track, the front label (lblLine...) a child of it whose width is the percentage of the
// track's width; it follows when the track is resized.
#pragma once

#include <QLabel>

namespace sw {

class Balken : public QLabel {
    Q_OBJECT
public:
    // name is the part behind the prefixes: "Speicher" gives lblPrgBarSpeicher and lblLineSpeicher.
    explicit Balken(const QString& name, QWidget* eltern = nullptr);
    QLabel* Linie() const { return linie_; }
    int Prozent() const { return prozent_; }
    QSize sizeHint() const override { return {200, 18}; }

protected:
    void resizeEvent(QResizeEvent*) override;

private:
    friend void BalkenSetzen(QLabel* linie, QLabel* balken, int prozent);
    void anpassen();
    QLabel* linie_;
    int prozent_ = 0;
};

// Sets the front label to prozent (clamped to 0..100) of the back label's width.
void BalkenSetzen(QLabel* linie, QLabel* balken, int prozent);

}  // namespace sw
