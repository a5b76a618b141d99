// frmCollatzNachkommaSuche: the backward search of ExtremSucheFenster for the rule whose factor 3
// is a multiplier y of ten decimals (txtY): the numbers that reach 1 in exactly i steps of
// x -> ceil(x y) made even and halvings. With y = 3 it lists what frmExtremSuche lists for 3n+1;
// the item "3n-1" stands for the rule without multiplication, whose tree is the powers of two.
#pragma once

#include <string>

#include "windows/ExtremSucheFenster.h"

namespace sw {

// The y handed over by frmCollatzNachkomma before it opens this window; read on opening.
extern std::string NachkommaSucheY;

class frmCollatzNachkommaSuche : public ExtremSucheFenster {
    Q_OBJECT
public:
    explicit frmCollatzNachkommaSuche(QWidget* eltern = nullptr);

protected:
    std::unique_ptr<VorgaengerRegel> RegelFuerLauf() override;
    // The blocks of 3n+1 say nothing about another multiplier.
    bool BlockWalkMarken() const override { return false; }

private:
    QLineEdit* txtY_;
};

}  // namespace sw
