// ListenMenue: the context menu of the result lists of the Collatz windows (copy the row or the
// whole list). A list that has grown to 32,500 rows or more gets a message instead of the
// menu: copying that much through the clipboard stalls the desktop, and the Save icon writes
// any length to a file.
#pragma once

class QListWidget;
class QPoint;

namespace sw {

constexpr int kAnzeigeGrenze = 32500;

// Gives the list its context menu.
void ListenMenueAnlegen(QListWidget* liste);
// What a right click at pos (in the list's coordinates) does: the message for a list too long
// for it, otherwise the menu. False when the menu was refused.
bool ListenMenueZeigen(QListWidget* liste, const QPoint& pos);

}  // namespace sw
