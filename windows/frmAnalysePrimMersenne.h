// frmAnalysePrimMersenne: how the primes and the exponents fall into residue classes, for
// three moduli at once: per class the primes up to the raster's limit, the exponents with a
// divisor among them (and their share) and the Mersenne prime exponents.
#pragma once

#include <array>

#include "windows/Fenster.h"

class QLineEdit;
class QListWidget;

namespace sw {

class frmAnalysePrimMersenne : public Fenster {
    Q_OBJECT
public:
    explicit frmAnalysePrimMersenne(QWidget* eltern = nullptr);
    // btnGO.
    void Analysieren();

protected:
    std::optional<QStringList> ListenCsv() override;

private:
    std::array<QLineEdit*, 3> txtMod_;
    QListWidget* List1_;
};

}  // namespace sw
