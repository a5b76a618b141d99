// frmPrimTestKpl: the complete test. One method over every candidate of an interval, or over
// the Mersenne numbers of a series of exponents, with the results in a list; with the sieve
// check the pseudoprimes of the method stand out. The run is PrimTestKplLauf (primality/);
// this window reads its fields, shows the lines and the sieve's progress.
#pragma once

#include "primality/PrimTestKpl.h"
#include "sieve/basExtrem.h"
#include "windows/Fenster.h"

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sw {

class Balken;

class frmPrimTestKpl : public Fenster, private KplAnzeige, private TertiaerFenster {
    Q_OBJECT
public:
    explicit frmPrimTestKpl(QWidget* eltern = nullptr);
    // btnGO: starts a run, or stops the one that runs.
    void StartStop();

private:
    // The fields read for a run; nothing after a field's message.
    std::optional<KplEingabe> felderLesen();
    // vonText: what txtVon shows once the run is over.
    void laufen(QString& vonText);
    void laufend(bool ja);

    void Zeile(const std::string& text) override;
    void ZahlZeigen(const std::string& text) override;
    void SiebWarten(bool sichtbar) override;
    TertiaerFenster* SiebFenster() override { return this; }
    void SiebFortschritt(int32_t prozent) override;

    QLineEdit* txtVon_;
    QLineEdit* txtIntervall_;
    QLineEdit* txtMultiTest_;
    QLineEdit* txtPerrinPlus_;
    QLineEdit* txtVorFilter_;
    QRadioButton* optTest_[KplMethodenAnzahl];
    QRadioButton* optStep_[KplSchrittModi];
    QCheckBox* chkCheck_;
    QCheckBox* chk2er_;
    QCheckBox* chkFilter_;
    QPushButton* btnGO_;
    QListWidget* liste_;
    QGroupBox* fraWait_;
    Balken* balken_;
    QPushButton* btnStopTertiaer_;
};

}  // namespace sw
