#include "windows/frm2P_1.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneWert.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

frm2P_1::frm2P_1(QWidget* eltern) : Fenster("frm2P_1", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Exponent p:", mitte), "lblPotenz"));
    txtPotenz_ = Benannt(new QLineEdit("127", mitte), "txtPotenz");
    zeile->addWidget(txtPotenz_, 1);
    auto* btnDown = Benannt(new QPushButton("<", mitte), "btnDown");
    auto* btnUp = Benannt(new QPushButton(">", mitte), "btnUp");
    auto* btnGO = Benannt(new QPushButton("Berechnen", mitte), "btnGO");
    for (QPushButton* b : {btnDown, btnUp, btnGO}) zeile->addWidget(b);
    lay->addLayout(zeile);
    lblErgebnis_ = Benannt(new QLabel(mitte), "lblErgebnis");
    lblErgebnis_->setWordWrap(true);
    lay->addWidget(lblErgebnis_);
    txtLong_ = Benannt(new QPlainTextEdit(mitte), "txtLong");
    txtLong_->setReadOnly(true);
    lay->addWidget(txtLong_, 1);
    setCentralWidget(mitte);
    connect(btnUp, &QPushButton::clicked, this, Sicher([this] { Schritt(1); }));
    connect(btnDown, &QPushButton::clicked, this, Sicher([this] { Schritt(-1); }));
    connect(btnGO, &QPushButton::clicked, this, Sicher([this] { Berechnen(); }));
    connect(txtPotenz_, &QLineEdit::returnPressed, this, Sicher([this] { Berechnen(); }));
    resize(700, 500);
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frm2P_1::Schritt(int richtung) {
    const auto wert = ZahlEingabe(txtPotenz_, "Exponent p", Decimal(0), Decimal(0xFFFFFFFFu));
    if (!wert) return;
    const uint32_t p = PrimExponentSchritt(wert->AlsInt64(), richtung);
    if (!p) return;  // nothing beyond the ends
    txtPotenz_->setText(q(ZahlFormat(Decimal(int64_t(p)))));
    Berechnen();
}

void frm2P_1::Berechnen() {
    const auto wert = ZahlEingabe(txtPotenz_, "Exponent p", Decimal(0), Decimal(int64_t(MersenneWertHoechstExponent)));
    if (!wert) return;
    const auto p = uint32_t(wert->AlsInt64());
    txtLong_->setPlainText(q(MersenneWertText(p)));
    lblErgebnis_->setText(q(MersenneWissen(p)) + "  " +
                          q(TextP1(1442, ZahlFormat(static_cast<long long>(MersenneStellen(p))))));
}

}  // namespace sw
