// frmCollatzNachkomma: the walk x -> ceil(x y), made even and halved to odd, of one start for
// a multiplier y of ten decimals (CollatzKommaFolge). The arrows move the start by 2 (so it
// stays odd) or y by txtYDiff within 2.45..3.33, each with a new walk, so that the user sees
// where the sequence falls apart into loops. The rows of all walks gather in List1.
#pragma once

#include <QStringList>

#include <string>

#include "windows/Fenster.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmCollatzNachkomma : public Fenster {
    Q_OBJECT
public:
    explicit frmCollatzNachkomma(QWidget* eltern = nullptr);
    // btnGO: the walk of txtStart with txtY.
    void Berechnen();
    // UpDown1(0): the start 2 up or down (a start of 1 stays); UpDown1(1): y by txtYDiff. Each
    // with a new walk.
    void StartSchritt(int richtung);
    void YSchritt(int richtung);
    // btnSuchen: the backward search of this rule with the current y.
    void Suchen();

protected:
    std::optional<QStringList> ListenCsv() override;
    QImage BildAbbild() override;
    void Drucken(QPrinter& drucker) override;

private:
    // txtY as multiplier text; a text that is none is replaced by the standard, with a message.
    std::string multiplikator();
    int32_t zeilenBreite();

    QLineEdit *txtStart_, *txtY_, *txtYDiff_;
    QPushButton *btnGO_, *btnY_, *btnClear_, *btnSuchen_;
    QListWidget* List1_;
    bool druckt_ = false;  // printing: the rows, not the picture
    int32_t ZeilenBreite = 0;   // characters of a row; found at the first walk
    bool NachOben = false;      // the direction of the last arrow press
    QStringList csv_;           // y;start;number;value of every element in List1
};

}  // namespace sw
