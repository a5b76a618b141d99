// frmMersenneAnalyse: the structure of the divisors found, over the exponents from txtStart to
// txtEnde with exactly one divisor. Of each, the divisor q or its k (optUntersuche), and
// either its low 2 to 5 bits (optAnalysiere "Bitstruktur", optBits) or its residue modulo
// txtMod against the exponent modulo txtPMod ("Modulo"), counted and drawn as bars.
#pragma once

#include <array>

#include "windows/Fenster.h"
#include "windows/Saeulen.h"

class QLineEdit;
class QProgressBar;
class QRadioButton;

namespace sw {

class Bild;

class frmMersenneAnalyse : public Fenster {
    Q_OBJECT
public:
    explicit frmMersenneAnalyse(QWidget* eltern = nullptr);
    // btnGO.
    void Analysieren();

protected:
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;

private:
    QLineEdit* txtStart_;
    QLineEdit* txtEnde_;
    QLineEdit* txtMod_;
    QLineEdit* txtPMod_;
    std::array<QRadioButton*, 2> optUntersuche_;
    std::array<QRadioButton*, 2> optAnalysiere_;
    std::array<QRadioButton*, 4> optBits_;
    QProgressBar* pgrBar_;
    Bild* picAnzeige_;
    SaeulenDiagramm diagramm_;
};

}  // namespace sw
