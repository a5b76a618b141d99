// frmMersSystem: the systematic search. It walks upward from txtZahl through the candidates q
// and lists every prime q with the Mersenne number it divides (SystemLauf, mersenne/); the
// divisors the database does not know are offered for entry, or entered without asking, and
// listed apart. The same window holds the import of a plain divisor list into the database.
#pragma once

#include "mersenne/SystemLauf.h"
#include "windows/Fenster.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace sw {

class frmMersSystem : public Fenster, private SystemAnzeige {
    Q_OBJECT
public:
    explicit frmMersSystem(QWidget* eltern = nullptr);
    // btnMersenne: asks for the list file and imports it; a damaged line stops the import
    // with a message naming it, everything before it is kept.
    void ListeImportieren();
    // btnGO: start, or stop the running search.
    void SucheStarten();

protected:
    // The saved list: every q examined, then the new divisors under their caption.
    std::optional<QStringList> ListenText() override;
    // As a table: q, its prime order (0 for none) and k.
    std::optional<QStringList> ListenCsv() override;

private:
    void Stand(const std::string& q, int32_t grenze, uint64_t primzahlen) override;
    void Ergebnis(const SystemErgebnis& e) override;
    void NeuerTeiler(const std::string& q, int32_t e, bool eingetragen) override;
    void letzteWaehlen();

    QLineEdit* txtZahl_;
    QLineEdit* txtParm_;
    QCheckBox* chkOhneFrage_;
    QPushButton* btnGO_;
    QListWidget* List1_;
    QListWidget* List2_;
    QLabel* lblList2_;
    QLabel* lblMax_;
    QLabel* lblCount_;
    QLabel* lblImport_;
};

}  // namespace sw
