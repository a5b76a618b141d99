#include "windows/Dialoge.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>

namespace sw {

std::function<std::optional<QString>(const DateiAnfrage&)> DateiDialogHook;
std::function<std::optional<QColor>(const QColor&)> FarbDialogHook;
std::function<bool(QPrinter&)> DruckDialogHook;

std::optional<QString> DateiDialog(QWidget* eltern, const DateiAnfrage& anfrage) {
    if (DateiDialogHook) return DateiDialogHook(anfrage);
    QString start = QDir(anfrage.ordner).filePath(anfrage.vorschlag);
    QString pfad = anfrage.speichern ? QFileDialog::getSaveFileName(eltern, anfrage.titel, start, anfrage.filter)
                                     : QFileDialog::getOpenFileName(eltern, anfrage.titel, start, anfrage.filter);
    if (pfad.isEmpty()) return std::nullopt;
    return pfad;
}

std::optional<QColor> FarbDialog(QWidget* eltern, const QColor& start) {
    if (FarbDialogHook) return FarbDialogHook(start);
    QColor c = QColorDialog::getColor(start, eltern);
    if (!c.isValid()) return std::nullopt;
    return c;
}

bool DruckDialog(QWidget* eltern, QPrinter& drucker) {
    if (DruckDialogHook) return DruckDialogHook(drucker);
    QPrintDialog dialog(&drucker, eltern);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace sw
