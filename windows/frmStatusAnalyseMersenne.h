// frmStatusAnalyseMersenne: the overview of the divisors in the range of a status window, as
// bars under fixed labels: "Mod 1" and "Mod 2" the divisors q = 1 and q = 7 mod 8, under
// "MOD 2 3 " the exponents p = 1 ("Mod 1 3") and p = 2 mod 3 ("Mod 2 3"), "Plus" and "Minus"
// p = +1 and -1 mod 4, and "Qu. i j" the q class i with the p mod 3 class j. Each bar is its
// share of the exponents with a divisor.
#pragma once

#include "windows/Fenster.h"
#include "windows/Saeulen.h"

namespace sw {

class Bild;

class frmStatusAnalyseMersenne : public Fenster {
    Q_OBJECT
public:
    frmStatusAnalyseMersenne(int64_t von, int64_t bis, QWidget* eltern = nullptr);
    void ShowMe(int modus) override;
    void Zeichnen();

protected:
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override { return SaeulenCsv(diagramm_); }

private:
    Bild* picAnzeige_;
    int64_t von_, bis_;
    SaeulenDiagramm diagramm_;
};

}  // namespace sw
