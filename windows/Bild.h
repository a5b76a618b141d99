// Bild: the picture surface (picAnzeige) that the graphic windows draw on. It keeps its
// drawing in an image, so that what was drawn survives covering, resizing and printing, and
// can be saved as a bitmap. Coordinates are pixels of the image, origin top left.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include <functional>

class QPainter;

namespace sw {

class Bild : public QWidget {
    Q_OBJECT
public:
    explicit Bild(QWidget* eltern = nullptr);

    void Leeren();                                   // fills with the back colour
    void Linie(int x1, int y1, int x2, int y2, const QColor& farbe);
    void Rechteck(int x1, int y1, int x2, int y2, const QColor& farbe, bool gefuellt = false);
    void Punkt(int x, int y, const QColor& farbe);
    void Text(int x, int y, const QString& text, const QColor& farbe);  // (x, y): top left of the text
    // Many shapes through one painter: a drawing of half a million cells cannot afford a
    // painter per cell.
    void Malen(const std::function<void(QPainter&)>& malen);
    // Direct access to the pixels (format RGB32), for drawings of more cells than pixels.
    void Bearbeiten(const std::function<void(QImage&)>& bearbeiten);
    int TextBreite(const QString& text) const;
    int TextHoehe() const;

    void HintergrundSetzen(const QColor& farbe);
    const QColor& Hintergrund() const { return hintergrund_; }
    const QImage& Abbild() { return flaeche(); }
    // Saves as BMP or PNG by the ending of the path (BMP when there is none). False on failure.
    bool Speichern(const QString& pfad);

    QSize sizeHint() const override { return {400, 300}; }

signals:
    void Geklickt(int x, int y, Qt::MouseButton knopf);
    void GroesseGeaendert(int breite, int hoehe);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent*) override;

private:
    // A hidden widget gets its resize event only when shown: drawing first brings the image
    // to the widget's size.
    QImage& flaeche();
    QImage bild_;
    QColor hintergrund_{Qt::white};
};

// Saves an image as BMP or PNG by the ending of the path (BMP for any other). False on failure.
bool BildSpeichern(const QImage& bild, const QString& pfad);

}  // namespace sw
