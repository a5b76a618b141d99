// frmCollatzBig: one sequence of a start of any size in full, twice side by side: the classic
// rule on the left, on the right the block walk (with its reduction k) or the rule 3n - 1.
// The texts are wrapped to the width of the lists.
#pragma once

#include <string>

#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

// The start handed over by the bar graphic before it opens this window; read on opening.
extern std::string CollatzBigStart;

class frmCollatzBig : public Fenster {
    Q_OBJECT
public:
    explicit frmCollatzBig(QWidget* eltern = nullptr);
    // btnGO: both lists anew (a second click while it runs stops it).
    void Berechnen();
    // UpDown1: k one up or down, not below 0.
    void Reduktion(int richtung);

protected:
    std::optional<QStringList> ListenText() override;
    void showEvent(QShowEvent* e) override;

private:
    bool startUebergeben_ = false;  // opened with a start of the bar graphic: walk it on showing
    void anfuegen(QListWidget* liste, const std::string& text);
    void rechteSeiteBeschriften();

    QLineEdit* txtPrim_;
    QLineEdit* txtReduktion_;
    QCheckBox* chk3n_1_;
    QLabel* label1_;
    QString label1Text_;
    QPushButton* btnGO_;
    QString ruheText_;
    QListWidget* list1_;
    QListWidget* list4_;
};

}  // namespace sw
