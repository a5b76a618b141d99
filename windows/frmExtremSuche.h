// frmExtremSuche: the backward search of ExtremSucheFenster for the rules 3n+1 and 3n-1.
#pragma once

#include "windows/ExtremSucheFenster.h"

namespace sw {

class frmExtremSuche : public ExtremSucheFenster {
    Q_OBJECT
public:
    explicit frmExtremSuche(QWidget* eltern = nullptr);

protected:
    std::unique_ptr<VorgaengerRegel> RegelFuerLauf() override;
};

}  // namespace sw
