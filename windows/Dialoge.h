// Dialoge: the platform's file, colour and print dialogs behind one seam. Each goes through
// a hook when one is set, so that tests answer a dialog without a person in front of it;
// otherwise the Qt dialog opens.
#pragma once

#include <QColor>
#include <QString>

#include <functional>
#include <optional>

class QPrinter;
class QWidget;

namespace sw {

struct DateiAnfrage {
    bool speichern = false;
    QString titel;
    QString ordner;     // the folder the dialog starts in
    QString vorschlag;  // the suggested file name
    QString filter;     // Qt filter text, e.g. "*.TXT (*.TXT)"
};

// The chosen path, or nothing when the person cancelled.
std::optional<QString> DateiDialog(QWidget* eltern, const DateiAnfrage& anfrage);
std::optional<QColor> FarbDialog(QWidget* eltern, const QColor& start);
bool DruckDialog(QWidget* eltern, QPrinter& drucker);

// Test seams; an empty function restores the real dialog.
extern std::function<std::optional<QString>(const DateiAnfrage&)> DateiDialogHook;
extern std::function<std::optional<QColor>(const QColor&)> FarbDialogHook;
extern std::function<bool(QPrinter&)> DruckDialogHook;

}  // namespace sw
