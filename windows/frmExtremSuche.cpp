#include "windows/frmExtremSuche.h"

namespace sw {

frmExtremSuche::frmExtremSuche(QWidget* eltern) : ExtremSucheFenster("frmExtremSuche", eltern) { Fertigstellen(); }

std::unique_ptr<VorgaengerRegel> frmExtremSuche::RegelFuerLauf() {
    if (MitPlusEins()) return std::make_unique<Regel3nPlus1>();
    return std::make_unique<Regel3nMinus1>();
}

}  // namespace sw
