#include "windows/Bild.h"

#include <QBuffer>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

#include "frame/DateiErsetzen.h"

namespace sw {

Bild::Bild(QWidget* eltern) : QWidget(eltern), bild_(1, 1, QImage::Format_RGB32) {
    bild_.fill(hintergrund_);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QImage& Bild::flaeche() {
    QSize neu = size().expandedTo(QSize(1, 1));
    if (neu != bild_.size()) {
        QImage groesser(neu, QImage::Format_RGB32);
        groesser.fill(hintergrund_);
        QPainter p(&groesser);
        p.drawImage(0, 0, bild_);
        p.end();
        bild_ = groesser;
    }
    return bild_;
}

void Bild::Leeren() {
    flaeche().fill(hintergrund_);
    update();
}

void Bild::HintergrundSetzen(const QColor& farbe) {
    hintergrund_ = farbe;
    Leeren();
}

void Bild::Linie(int x1, int y1, int x2, int y2, const QColor& farbe) {
    QPainter p(&flaeche());
    p.setPen(farbe);
    p.drawLine(x1, y1, x2, y2);
    update();
}

void Bild::Rechteck(int x1, int y1, int x2, int y2, const QColor& farbe, bool gefuellt) {
    QPainter p(&flaeche());
    QRect r = QRect(QPoint(x1, y1), QPoint(x2, y2)).normalized();
    if (gefuellt) {
        p.fillRect(r, farbe);
    } else {
        p.setPen(farbe);
        p.drawRect(r);
    }
    update();
}

void Bild::Punkt(int x, int y, const QColor& farbe) {
    if (flaeche().valid(x, y)) bild_.setPixelColor(x, y, farbe);
    update();
}

void Bild::Text(int x, int y, const QString& text, const QColor& farbe) {
    QPainter p(&flaeche());
    p.setFont(font());
    p.setPen(farbe);
    p.drawText(QPoint(x, y + QFontMetrics(font()).ascent()), text);
    update();
}

void Bild::Malen(const std::function<void(QPainter&)>& malen) {
    QPainter p(&flaeche());
    p.setFont(font());
    malen(p);
    p.end();
    update();
}

void Bild::Bearbeiten(const std::function<void(QImage&)>& bearbeiten) {
    bearbeiten(flaeche());
    update();
}

int Bild::TextBreite(const QString& text) const { return QFontMetrics(font()).horizontalAdvance(text); }
int Bild::TextHoehe() const { return QFontMetrics(font()).height(); }

// Encoded in memory and written by replacing the file whole: a full disk or a kill during the
// save leaves the old picture, never half a new one.
bool BildSpeichern(const QImage& bild, const QString& pfad) {
    // Encoded in memory first and then put in place whole: a full disk or a crash leaves the
    // old picture, never half a new one.
    const QString endung = QFileInfo(pfad).suffix().toUpper();
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    if (!bild.save(&puffer, endung == QLatin1String("PNG") ? "PNG" : "BMP")) return false;
    return DateiErsetzen(pfad.toStdString(), std::string_view(daten.constData(), size_t(daten.size())));
}

bool Bild::Speichern(const QString& pfad) { return BildSpeichern(flaeche(), pfad); }

void Bild::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), hintergrund_);
    p.drawImage(0, 0, bild_);
}

// A picture window stretches its surface with the form: the image takes the new size and
// keeps what was drawn, so a window that only draws on request loses nothing.
void Bild::resizeEvent(QResizeEvent*) {
    flaeche();
    emit GroesseGeaendert(width(), height());
}

void Bild::mousePressEvent(QMouseEvent* e) {
    QPoint pos = e->position().toPoint();
    emit Geklickt(pos.x(), pos.y(), e->button());
}

}  // namespace sw
