// frmExtremSuche: the start values that reach 1 in exactly i steps, made by walking the tree
// of predecessors backwards (ExtremWalk in collatz/): all of a range, only those of m
// multiplications, or one path ("L"); rule 3n+1 or 3n-1, one step or one halving per level.
// Each hit is a row whose field order the user picks, in a sorted or an unsorted list.
#pragma once

#include <QString>

#include "collatz/ExtremSuche.h"
#include "windows/Fenster.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sw {

class frmExtremSuche : public Fenster, private ExtremZiel {
    Q_OBJECT
public:
    explicit frmExtremSuche(QWidget* eltern = nullptr);
    // The click of btnGO: starts a walk, or stops the one that runs.
    void Los();
    // The double click of txtIK: counting by steps (i) or by halvings (k).
    void ModusUmschalten();

protected:
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void Treffer(const Hyp& wert, int32_t m, const std::string& muster) override;
    bool Gestoppt() override;
    QListWidget* sichtbareListe() const;
    void reihenfolgeZeigen();
    void pause();
    bool modusK() const;

    QLineEdit *txtI_, *txtM_, *txtVon_, *txtBis_, *txtIK_, *txtPause_;
    QRadioButton* opt3N_[2];
    QComboBox* cmbSortierReihenfolge_;
    QLabel* lblReihenFolge_;
    QCheckBox *chkSortiert_, *chkDualAnzeige_, *chkMuster_, *chkSchrift_;
    QPushButton* btnGO_;
    QListWidget* List1_;
    QListWidget* List2_;
    QString ruheText_;
    ExtremBreiten breiten_;
    int32_t tiefe_ = 0;
    int32_t reihenfolge_ = 0;
    bool dual_ = false;
    uint32_t knoten_ = 0;
};

}  // namespace sw
