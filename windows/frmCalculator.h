// frmCalculator: a calculator for numbers of any size on the program's evaluator. A formula
// line, the result grouped with its digit count and in the number base of the options, buttons
// for n!, primorials, Fibonacci, Perrin, gcd, modular inverse, integer root and next/previous
// prime, a history and the memories #1..#9 that formulas can use and that the next session
// finds again. Modal, one instance; the
// logic is Rechner (arith/), this file only binds controls to it.
#pragma once

#include <QPointer>

#include <optional>

#include "arith/Rechner.h"
#include "windows/Fenster.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmCalculator : public Fenster {
    Q_OBJECT
public:
    explicit frmCalculator(QWidget* eltern = nullptr);
    ~frmCalculator() override;

    // Opens the calculator, or brings the open one to the front.
    static void Oeffnen(QWidget* cockpit);

    // Runs a function on the formula line and shows its value; a refusal shows its message.
    void Rechnen(RechenFunktion f);

private:
    void ergebnisZeigen(const RechenErgebnis& e);
    // After a refusal or a stop no earlier value may stand there as if it were the answer.
    void ergebnisLeeren();
    void speicherZeigen();
    void laufend(bool ja);

    static QPointer<frmCalculator> instanz_;
    Rechner rechner_;
    std::optional<Hyp> ergebnis_;  // the value shown, for the memories
    bool laeuft_ = false;
    QLineEdit* txtFormel_;
    QLabel* lblErgebnis_;
    QLabel* lblStellen_;
    QLabel* lblBasis_;
    QPushButton* btnRechnen_;
    QPushButton* btnStop_;
    QList<QPushButton*> btnFunktion_;
    QComboBox* cmbSpeicher_;
    QListWidget* lstSpeicher_;
    QListWidget* lstVerlauf_;
};

}  // namespace sw
