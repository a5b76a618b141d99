// frmAnalyseSW: the analysis of numbers, in two modes. Mode 0 takes one number of any size
// (a formula field) and lists its verdict, factors, tau, sigma, phi, mu, digits, bits, perfect
// power, the neighbouring primes and its Collatz steps; the factorisation shows its stage and
// stops on the start button, keeping what it found. Mode 1 takes a formula in n and a range of
// n and lists each member with its verdict and least factor, then the prime count against the
// Bateman-Horn expectation and, when chosen, against the random raster. Both lists are tables:
// the "Table" icon opens them in the table window, the "Save" icon writes them as CSV.
#pragma once

#include "primality/Faktorisierung.h"
#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace sw {

class frmAnalyseSW : public Fenster, private FaktorBeobachter {
    Q_OBJECT
public:
    explicit frmAnalyseSW(QWidget* eltern = nullptr);

    // 0 numbers, 1 series.
    void ShowMe(int modus) override;
    int Modus() const { return modus_; }
    // btnGo: starts the mode's job, or stops the running one.
    void StartStop();

protected:
    std::optional<QStringList> ListenCsv() override;
    // Each mode keeps its own fields in SW.Ini.
    QString WerteSektion() const override;

private:
    void StandMelden(const FaktorStand& stand) override;
    void zahlAnalysieren();
    void reiheAnalysieren();
    // A row of the list: "name: value" on screen, "name;value" in the table.
    void zeile(const char* schluessel, const std::string& wert, const std::string& roh);

    int modus_ = 0;
    QStackedWidget* stapel_;
    QLineEdit* txtZahl_;
    QLineEdit* txtFormel_;
    QLineEdit* txtVon_;
    QLineEdit* txtBis_;
    QCheckBox* chkZufall_;
    QPushButton* btnGo_;
    QLabel* lblStufe_;
    QProgressBar* prgFortschritt_;
    QListWidget* List1_;
    QLabel* lblStatus_;
};

}  // namespace sw
