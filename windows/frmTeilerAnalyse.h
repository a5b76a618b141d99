// frmTeilerAnalyse: the divisor analysis window. It reads the walk's settings (start q, k
// filter, exponent limits, class mod 8, width, one exponent only), runs TeilerAnalyse
// (mersenne/) and lists the hits; with chkDB they are entered into the Mersenne database.
// txtZahl follows the running q and, after a stop, holds the next q not yet examined, so
// the next click goes on exactly there.
#pragma once

#include <QStringList>

#include "mersenne/TeilerAnalyse.h"
#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sw {

class frmTeilerAnalyse : public Fenster, private TeilerAnalyseAnzeige {
    Q_OBJECT
public:
    explicit frmTeilerAnalyse(QWidget* eltern = nullptr);
    // The click of btnGO: start, or stop the running walk.
    void Starten();
    // UpDown1: doubles (richtung 1, below 536870912) or halves (-1, down to 1) the k filter.
    void KFilterSchritt(int richtung);

protected:
    std::optional<QStringList> ListenCsv() override;

private:
    int32_t ListeAnzahl() const override;
    void ListeLeeren() override;
    void ListeHinzufuegen(const std::string& eintrag) override;
    void StatusSetzen(const std::string& text) override;
    void FortschrittSetzen(const std::string& text) override;
    bool DbEintragen() const override;
    void Stand(const std::string& q, int32_t takt) override;
    void Treffer(const std::string& q, int32_t e, const std::string& k, bool prim) override;
    void spezialUmschalten();

    QLineEdit* txtZahl_;
    QLineEdit* txtKFilter_;
    QLineEdit* txtBisPrim_;
    QLineEdit* txtPotenz_;
    QRadioButton* optModulo_[3];
    QRadioButton* optGrenze_[3];
    QCheckBox* chkSpezial_;
    QCheckBox* chkKleineFaktoren_;
    QCheckBox* chkDB_;
    QCheckBox* chkOhneFrage_;
    QPushButton* btnGO_;
    QListWidget* List1_;
    QLabel* lblStatus_;
    QLabel* lblFortschritt_;
    QLabel* lblSpeed_;
    QLabel* lblZeit_;
    QStringList csv_;          // the hits as table rows, beside List1
    TeilerBreite breite_ = TeilerBreite::Long;
    double start_ = 0;
    Decimal von_, bis_;        // the span of the word walk, for the remaining time
};

}  // namespace sw
