// ExtremSucheFenster: the window of a backward search, the start values that reach 1 in exactly
// i steps, made by walking the tree of predecessors (ExtremWalk in collatz/): all of a range,
// only those of m multiplications, or one path ("L"); one step or one halving per level. Each
// hit is a row whose field order the user picks, in a sorted or an unsorted list. The rule
// whose predecessors are walked is the derived window's: frmExtremSuche (3n+1, 3n-1) and
// frmCollatzNachkommaSuche (a fractional multiplier) share every control and walk here.
#pragma once

#include <QString>

#include <memory>

#include "collatz/ExtremSuche.h"
#include "windows/Fenster.h"

class QCheckBox;
class QGridLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sw {

class ExtremSucheFenster : public Fenster, private ExtremZiel {
    Q_OBJECT
public:
    // The click of btnGO: starts a walk, or stops the one that runs.
    void Los();
    // The double click of txtIK: counting by steps (i) or by halvings (k).
    void ModusUmschalten();

protected:
    ExtremSucheFenster(const QString& klassenName, QWidget* eltern);
    // The last step of the derived window's constructor, once it added its own fields:
    // stored values, texts, and the state that follows from them.
    void Fertigstellen();
    // The rule of the run about to start, read from the window's fields; nullptr when a field
    // was refused (its message is shown) and nothing should run.
    virtual std::unique_ptr<VorgaengerRegel> RegelFuerLauf() = 0;
    // Whether counting method 3 shows the block walk of 3n+1 for a hit; a rule of its own
    // shows the marks of its tree instead (multiplications only, as method 2).
    virtual bool BlockWalkMarken() const { return true; }
    // The rule with +1 (item 0) or -1 (item 1).
    bool MitPlusEins() const;
    // The grid of the input fields, four columns; a derived window adds its own in row 3.
    QGridLayout* Felder() const { return felder_; }

    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;
    QImage BildAbbild() override;
    void Drucken(QPrinter& drucker) override;
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void Treffer(const Hyp& wert, int32_t m, const std::string& muster) override;
    bool Gestoppt() override;
    QListWidget* sichtbareListe() const;
    void reihenfolgeZeigen();
    void pause();
    bool modusK() const;

    QGridLayout* felder_;
    QLineEdit *txtI_, *txtM_, *txtVon_, *txtBis_, *txtIK_, *txtPause_;
    QRadioButton* opt3N_[2];
    QComboBox* cmbSortierReihenfolge_;
    QLabel* lblReihenFolge_;
    QCheckBox *chkSortiert_, *chkDualAnzeige_, *chkMuster_, *chkSchrift_;
    QPushButton* btnGO_;
    QListWidget* List1_;
    bool druckt_ = false;  // printing: the rows, not the picture
    QListWidget* List2_;
    QString ruheText_;
    ExtremBreiten breiten_;
    int32_t tiefe_ = 0;
    int32_t reihenfolge_ = 0;
    bool dual_ = false;
    uint32_t knoten_ = 0;
};

}  // namespace sw
