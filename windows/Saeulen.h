// Saeulen: the bar charts of the Mersenne status and analysis windows. Each bar stands for one
// stretch or class, its height is its value against the scale, and a label and the value stand
// under and over it. The same bars give the lines of the chart's CSV, so that what is saved is
// what is drawn.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <vector>

namespace sw {

class Bild;

struct Saeule {
    QString beschriftung;  // under the bar
    double wert = 0;       // height against the chart's scale
    QString text;          // over the bar (the value as the window writes it)
    QStringList csv;       // the fields of the bar's CSV line
};

struct SaeulenDiagramm {
    QString titel;
    double hoechstwert = 0;  // the top of the scale; 0: the largest value
    QString einheit;         // written at the top of the scale ("%", "")
    QStringList csvKopf;
    std::vector<Saeule> saeulen;
};

// Draws the chart over the whole picture. Labels that would overlap are thinned out; the
// bars never are, however many there are (a bar narrower than a pixel still gets one).
void SaeulenZeichnen(Bild& bild, const SaeulenDiagramm& d, const QColor& farbe = QColor(40, 90, 200));
// The chart as CSV: the head line, then one line per bar, fields separated by ";".
QStringList SaeulenCsv(const SaeulenDiagramm& d);
// The same fields separated by tabs, without the head: the chart as a plain list.
QStringList SaeulenText(const SaeulenDiagramm& d);

}  // namespace sw
