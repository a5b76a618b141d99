#include "windows/frmPrimModify.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basMaxPrimaer.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmPrimModify::frmPrimModify(QWidget* eltern) : Fenster("frmPrimModify", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* info = Benannt(new QLabel(mitte), "lblInfo");
    info->setWordWrap(true);
    lay->addWidget(info);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel(mitte), "lblGrenze"));
    txtGrenze_ = Benannt(new QLineEdit("1.000", mitte), "txtGrenze");
    txtGrenze_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9.]*"), txtGrenze_));
    zeile->addWidget(txtGrenze_, 1);
    lay->addLayout(zeile);
    auto* go = Benannt(new QPushButton("OK", mitte), "btnGO");
    auto* abbrechen = Benannt(new QPushButton("Abbrechen", mitte), "btnCancel");
    go->setDefault(true);
    lay->addLayout(KnopfReihe({go, abbrechen}));
    setCentralWidget(mitte);
    connect(go, &QPushButton::clicked, this, Sicher([this] {
                if (Anwenden()) close();
            }));
    connect(abbrechen, &QPushButton::clicked, this, &QWidget::close);
    connect(txtGrenze_, &QLineEdit::editingFinished, this, Sicher([this] {
                txtGrenze_->setText(QString::fromStdString(ZahlFormat(TextZuDecimal(txtGrenze_->text().toStdString()))));
            }));
    FensterLaden(QString::fromStdString(AktivesFenster));
    setMinimumWidth(420);
}

bool frmPrimModify::Anwenden() {
    Decimal grenze = TextZuDecimal(txtGrenze_->text().toStdString());
    if (grenze > Decimal(GrenzeLong)) {  // the strike runs on 32-bit numbers
        MsgInfo(200);
        grenze = GrenzeLong;
    }
    // The strike walks the words up to the bound: a bound beyond the built range has no raster
    // to work on.
    if (!RasterBereit || grenze > PrimaerGrenze) {
        MsgBereich();
        return false;
    }
    PrimModifikation(grenze.AlsLong());
    RasterEcht = false;
    return true;
}

}  // namespace sw
