#include "windows/ListenMenue.h"

#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>

#include "frame/Meldungen.h"
#include "frame/Texte.h"

namespace sw {

void ListenMenueAnlegen(QListWidget* liste) {
    liste->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(liste, &QListWidget::customContextMenuRequested, liste,
                     [liste](const QPoint& pos) { ListenMenueZeigen(liste, pos); });
}

bool ListenMenueZeigen(QListWidget* liste, const QPoint& pos) {
    if (liste->count() >= kAnzeigeGrenze) {
        MsgInfoP1(1643, std::to_string(liste->count()));
        return false;
    }
    QMenu menue(liste);
    QListWidgetItem* zeile = liste->itemAt(pos);
    QAction* eine = menue.addAction(QString::fromStdString(Text(1644)));
    eine->setEnabled(zeile != nullptr);
    QAction* alle = menue.addAction(QString::fromStdString(Text(1645)));
    alle->setEnabled(liste->count() > 0);
    const QAction* gewaehlt = menue.exec(liste->viewport()->mapToGlobal(pos));
    if (gewaehlt == eine && zeile) {
        QApplication::clipboard()->setText(zeile->text());
    } else if (gewaehlt == alle) {
        QStringList zeilen;
        for (int i = 0; i < liste->count(); ++i) zeilen << liste->item(i)->text();
        QApplication::clipboard()->setText(zeilen.join('\n'));
    }
    return true;
}

}  // namespace sw
