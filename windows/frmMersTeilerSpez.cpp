#include "windows/frmMersTeilerSpez.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Pfade.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/DbImport.h"
#include "mersenne/basDB.h"
#include "windows/Fensterregister.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmMersTeilerSpez::frmMersTeilerSpez(QWidget* eltern) : Fenster("frmMersTeilerSpez", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* felder = new QFormLayout;
    txtPath_ = Benannt(new QLineEdit(QString::fromStdString(ProgrammPfad), mitte), "txtPath");
    txtFile_ = Benannt(new QLineEdit("factors.html", mitte), "txtFile");
    felder->addRow(Benannt(new QLabel("Ordner:", mitte), "lblPath"), txtPath_);
    felder->addRow(Benannt(new QLabel("Datei:", mitte), "lblFile"), txtFile_);
    lay->addLayout(felder);
    auto* ergebnis = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        lblFertig_[i] = Benannt(new QLabel(mitte), "lblFertig", i);
        ergebnis->addWidget(lblFertig_[i], 1);
    }
    lay->addLayout(ergebnis);
    auto* go = Benannt(new QPushButton("Importieren", mitte), "btnGO");
    auto* sync = Benannt(new QPushButton("Abgleich ...", mitte), "btnSync");
    lay->addLayout(KnopfReihe({go, sync}));
    setCentralWidget(mitte);
    connect(go, &QPushButton::clicked, this, Sicher([this] { Importieren(); }));
    connect(sync, &QPushButton::clicked, this, Sicher([this] { FensterOeffnen("frmSync", -1, this); }));
    resize(480, 180);
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmMersTeilerSpez::Importieren() {
    txtPath_->setText(QString::fromStdString(MitSchraegstrich(txtPath_->text().trimmed().toStdString())));
    const std::string datei = txtPath_->text().toStdString() + txtFile_->text().trimmed().toStdString();
    Lauf lauf(*this);
    if (!DbOeffnen(0)) {
        MsgInfoText(DbFehlerText());
        return;
    }
    const ImportBericht b = WebseiteImportieren(datei);
    DbSchliessen();
    const int64_t neu = b.neu + b.weitereTeiler;
    for (QLabel* l : lblFertig_) l->setText(QString::number(neu));
    MsgInfoText(TextP1(1517, neu));
}

}  // namespace sw
