#include "windows/frmSync.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/basZentral.h"
#include "mersenne/DbAbgleich.h"
#include "mersenne/basDB.h"
#include "windows/Dialoge.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmSync::frmSync(QWidget* eltern) : Fenster("frmSync", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Anderer Ordner:", mitte), "lblOrdner"));
    txtOrdner_ = Benannt(new QLineEdit(mitte), "txtOrdner");
    zeile->addWidget(txtOrdner_, 1);
    auto* waehlen = Benannt(new QPushButton("...", mitte), "btnOrdner");
    zeile->addWidget(waehlen);
    lay->addLayout(zeile);
    lblStatus_ = Benannt(new QLabel(QString::fromStdString(DbOrdner()), mitte), "lblStatus");
    lblStatus_->setWordWrap(true);
    lay->addWidget(lblStatus_);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(List1_, 1);
    auto* go = Benannt(new QPushButton("Abgleichen", mitte), "btnGO");
    lay->addLayout(KnopfReihe({go}));
    setCentralWidget(mitte);
    connect(waehlen, &QPushButton::clicked, this, Sicher([this] { OrdnerWaehlen(); }));
    connect(go, &QPushButton::clicked, this, Sicher([this] { Abgleichen(); }));
    resize(560, 420);
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmSync::OrdnerWaehlen() {
    DateiAnfrage anfrage;
    anfrage.titel = SektionsText("DlgTitel");
    anfrage.ordner = txtOrdner_->text();
    anfrage.filter = "Prim*.db (Prim*.db)";
    const std::optional<QString> datei = DateiDialog(this, anfrage);
    if (datei) txtOrdner_->setText(QFileInfo(*datei).absolutePath() + "/");
}

void frmSync::Abgleichen() {
    Lauf lauf(*this);
    List1_->clear();
    const AbgleichBericht b = DbZusammenfuehren(txtOrdner_->text().trimmed().toStdString());
    DbSchliessen();
    const std::vector<std::string> text = AbgleichText(b);
    lblStatus_->setText(QString::fromStdString(text[0] + " " + text[1] + " " + text[2]));
    for (size_t i = 3; i < text.size(); ++i) List1_->addItem(QString::fromStdString(text[i]));
}

}  // namespace sw
