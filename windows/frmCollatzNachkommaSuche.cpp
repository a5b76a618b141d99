#include "windows/frmCollatzNachkommaSuche.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "collatz/CollatzKomma.h"
#include "frame/Meldungen.h"
#include "windows/Steuerelemente.h"

namespace sw {

std::string NachkommaSucheY;

frmCollatzNachkommaSuche::frmCollatzNachkommaSuche(QWidget* eltern)
    : ExtremSucheFenster("frmCollatzNachkommaSuche", eltern) {
    QWidget* mitte = centralWidget();
    Felder()->addWidget(Benannt(new QLabel("y =", mitte), "lblY"), 3, 0);
    txtY_ = Benannt(new QLineEdit(KommaStandard, mitte), "txtY");
    Felder()->addWidget(txtY_, 3, 1);
    Fertigstellen();
    if (!NachkommaSucheY.empty()) {
        txtY_->setText(QString::fromStdString(NachkommaSucheY));
        NachkommaSucheY.clear();
    }
}

std::unique_ptr<VorgaengerRegel> frmCollatzNachkommaSuche::RegelFuerLauf() {
    // y always has one integer digit and ten decimals here: what is not such a number is
    // replaced by the standard, and the user is told so instead of a silent other tree.
    const std::string eingabe = txtY_->text().toStdString();
    std::optional<std::string> y = KommaMultiplikator(eingabe);
    if (!y) {
        y = KommaStandard;
        MsgInfoP1(2032, eingabe);
    }
    txtY_->setText(QString::fromStdString(*y));
    return std::make_unique<RegelKomma>(*y, MitPlusEins());
}

}  // namespace sw
