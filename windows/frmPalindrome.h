// frmPalindrome: the palindrome game. Nine digit buttons grow a number at its right end, its
// left end or both ends; only the digits that keep it prime are enabled, and the list shows
// each number with how it was judged. "Baum" walks the whole tree of the chosen arrangement.
// The judging and the trees are primality/Palindrom; this window only binds the controls.
#pragma once

#include <string>

#include "primality/Palindrom.h"
#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sw {

class frmPalindrome : public Fenster {
    Q_OBJECT
public:
    explicit frmPalindrome(QWidget* eltern = nullptr);

    // Enables exactly the digits whose candidate is prime.
    void ZiffernPruefen();
    void ZifferKlick(int32_t ziffer);
    void Weg();
    void Clear();
    // btnBaum: the tree of the chosen arrangement into lstBaum (while it runs, the click stops it).
    void BaumZeigen();

    const std::string& Zahl() const { return Zahl_; }
    const QString& PruefArt() const { return PruefArt_; }

private:
    Anordnung anordnung() const;

    QRadioButton* optAnordnung_[3];
    QPushButton* btnZahl_[10] = {};
    QPushButton *btnWeg_, *btnClear_, *btnBaum_;
    QCheckBox* chkMillerRabin_;
    QListWidget *List1_, *lstBaum_;
    QLabel *lblEntfernt_, *lblFortschritt_;
    QString ruheText_;
    std::string Zahl_;   // the digits of the number, empty at the start
    QString PruefArt_;   // how the last candidates were judged, with a leading blank
};

}  // namespace sw
