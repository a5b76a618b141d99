#include "windows/Balken.h"

#include <algorithm>

#include "windows/Steuerelemente.h"

namespace sw {

Balken::Balken(const QString& name, QWidget* eltern) : QLabel(eltern) {
    Benannt(this, "lblPrgBar" + name);
    linie_ = Benannt(new QLabel(this), "lblLine" + name);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    // By attribute, not "#name": the style sheet parser takes no umlaut in an id ("Tertiär").
    setStyleSheet(QStringLiteral("QLabel[objectName=\"%1\"] { background: palette(base); }").arg(objectName()));
    linie_->setStyleSheet(QStringLiteral("background: palette(highlight);"));
    setMinimumHeight(14);
    anpassen();
}

void Balken::resizeEvent(QResizeEvent* e) {
    QLabel::resizeEvent(e);
    anpassen();
}

void Balken::anpassen() {
    int innen = std::max(0, width() - 2);
    linie_->setGeometry(1, 1, innen * prozent_ / 100, std::max(0, height() - 2));
}

void BalkenSetzen(QLabel* linie, QLabel* balken, int prozent) {
    prozent = std::clamp(prozent, 0, 100);
    if (auto* b = qobject_cast<Balken*>(balken); b && b->Linie() == linie) {
        b->prozent_ = prozent;
        b->anpassen();
        return;
    }
    // A pair of plain labels: the front one simply takes its share of the back one's width.
    linie->resize(balken->width() * prozent / 100, linie->height());
}

}  // namespace sw
