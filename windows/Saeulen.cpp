// Saeulen: drawing a bar chart on a Bild (see Saeulen.h).
#include "windows/Saeulen.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

#include "windows/Bild.h"

namespace sw {

void SaeulenZeichnen(Bild& bild, const SaeulenDiagramm& d, const QColor& farbe) {
    bild.Leeren();
    const int breite = bild.Abbild().width(), hoehe = bild.Abbild().height();
    const int zeile = bild.TextHoehe();
    const int links = bild.TextBreite("100 %") + 8, rechts = 8;
    const int oben = 2 * zeile + 6, unten = zeile + 8;
    const int flaecheB = breite - links - rechts, flaecheH = hoehe - oben - unten;
    if (flaecheB < 10 || flaecheH < 10) return;
    double skala = d.hoechstwert;
    if (skala <= 0) {
        for (const Saeule& s : d.saeulen) skala = std::max(skala, s.wert);
    }
    if (skala <= 0) skala = 1;
    const int n = int(d.saeulen.size());
    bild.Malen([&](QPainter& p) {
        p.setPen(Qt::black);
        p.drawText(links, zeile, d.titel);
        p.drawLine(links, oben, links, oben + flaecheH);
        p.drawLine(links, oben + flaecheH, links + flaecheB, oben + flaecheH);
        p.drawText(2, oben + zeile / 2, QString::number(skala, 'g', 6) + (d.einheit.isEmpty() ? "" : " " + d.einheit));
        p.drawText(2, oben + flaecheH, "0");
        if (n == 0) return;
        const double schritt = double(flaecheB) / n;
        // Every k-th label only, so that neighbours do not overlap.
        int breitesteBeschriftung = 1, breitesterText = 1;
        for (const Saeule& s : d.saeulen) {
            breitesteBeschriftung = std::max(breitesteBeschriftung, p.fontMetrics().horizontalAdvance(s.beschriftung));
            breitesterText = std::max(breitesterText, p.fontMetrics().horizontalAdvance(s.text));
        }
        const int jedeB = std::max(1, int(std::ceil((breitesteBeschriftung + 6) / schritt)));
        const int jedeT = std::max(1, int(std::ceil((breitesterText + 6) / schritt)));
        for (int i = 0; i < n; ++i) {
            const Saeule& s = d.saeulen[size_t(i)];
            const int x1 = links + 1 + int(i * schritt), x2 = links + int((i + 1) * schritt);
            const int w = std::max(1, x2 - x1 - (schritt > 4 ? 1 : 0));
            const int h = int(std::lround(std::clamp(s.wert / skala, 0.0, 1.0) * flaecheH));
            if (h > 0) p.fillRect(x1, oben + flaecheH - h, w, h, farbe);
            const int mitte = (x1 + x2) / 2;
            if (i % jedeB == 0) {
                const int b = p.fontMetrics().horizontalAdvance(s.beschriftung);
                p.drawText(mitte - b / 2, oben + flaecheH + zeile + 2, s.beschriftung);
            }
            if (i % jedeT == 0 && !s.text.isEmpty()) {
                const int b = p.fontMetrics().horizontalAdvance(s.text);
                p.drawText(mitte - b / 2, std::max(oben + flaecheH - h - 3, oben - 2), s.text);
            }
        }
    });
}

QStringList SaeulenCsv(const SaeulenDiagramm& d) {
    QStringList zeilen{d.csvKopf.join(';')};
    for (const Saeule& s : d.saeulen) zeilen << s.csv.join(';');
    return zeilen;
}

QStringList SaeulenText(const SaeulenDiagramm& d) {
    QStringList zeilen;
    for (const Saeule& s : d.saeulen) zeilen << s.csv.join('\t');
    return zeilen;
}

}  // namespace sw
