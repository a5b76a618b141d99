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
    // Leaving the field groups a number; anything else stays as typed until the click names it.
    connect(txtGrenze_, &QLineEdit::editingFinished, this, [this] {
        try {
            txtGrenze_->setText(QString::fromStdString(ZahlFormat(TextZuDecimal(txtGrenze_->text().toStdString()))));
        } catch (const Laufzeitfehler&) {
        }
    });
    FensterLaden(QString::fromStdString(AktivesFenster));
    setMinimumWidth(420);
}

bool frmPrimModify::Anwenden() {
    // The strike walks the words up to the bound, on 32-bit numbers: it needs a built range,
    // and the bound lies within it.
    if (!RasterBereit) {
        MsgBereich();
        return false;
    }
    const Decimal hoechste = PrimaerGrenze < Decimal(GrenzeLong) ? PrimaerGrenze : Decimal(GrenzeLong);
    const QString name = Steuer<QLabel>(this, "lblGrenze")->text().remove('&').remove(':').trimmed();
    const std::optional<Decimal> grenze = ZahlEingabe(txtGrenze_, name, Decimal(0), hoechste);
    if (!grenze) return false;
    PrimModifikation(grenze->AlsLong());
    RasterEcht = false;
    return true;
}

}  // namespace sw
