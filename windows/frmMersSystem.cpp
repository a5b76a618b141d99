#include "windows/frmMersSystem.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/DbImport.h"
#include "mersenne/basDB.h"
#include "windows/Dialoge.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmMersSystem::frmMersSystem(QWidget* eltern) : Fenster("frmMersSystem", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* btnMersenne = Benannt(new QPushButton("Teilerliste importieren ...", mitte), "btnMersenne");
    lay->addWidget(btnMersenne);
    lblImport_ = Benannt(new QLabel(mitte), "lblImport");
    lblImport_->setWordWrap(true);
    lay->addWidget(lblImport_);
    lay->addStretch(1);
    setCentralWidget(mitte);
    connect(btnMersenne, &QPushButton::clicked, this, Sicher([this] { ListeImportieren(); }));
    resize(420, 160);
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmMersSystem::ListeImportieren() {
    DateiAnfrage anfrage;
    anfrage.titel = SektionsText("DlgTitel");
    anfrage.ordner = QString::fromStdString(ProgrammPfad);
    anfrage.filter = "*.txt *.csv (*.txt *.csv);;* (*)";
    const std::optional<QString> datei = DateiDialog(this, anfrage);
    if (!datei) return;
    Lauf lauf(*this);
    const ImportBericht b = sw::ListeImportieren(datei->toStdString());
    DbSchliessen();
    const std::string bilanz = TextP1(1515, b.neu + b.weitereTeiler);
    lblImport_->setText(QString::fromStdString(
        bilanz + ". " + TextP1P2(1518, std::to_string(b.weitereTeiler), std::to_string(b.bekannt))));
    UI().Meldung(Text(1516), bilanz, MeldungsSymbol::Information, MeldungsKnoepfe::OK);
}

}  // namespace sw
