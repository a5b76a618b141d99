#include "windows/frmPrimzahlTest.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "arith/basHyper.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

frmPrimzahlTest::frmPrimzahlTest(QWidget* eltern) : Fenster("frmPrimzahlTest", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* felder = new QGridLayout;
    felder->addWidget(Benannt(new QLabel("Zahl oder Formel:", mitte), "lblPrim"), 0, 0);
    txtPrim_ = Benannt(new QLineEdit(mitte), "txtPrim");
    felder->addWidget(txtPrim_, 0, 1);
    felder->addWidget(Benannt(new QLabel("Probedivision bis:", mitte), "lblGrenze"), 1, 0);
    txtGrenze_ = Benannt(new QLineEdit("100.000", mitte), "txtGrenze");
    txtGrenze_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9.]*"), txtGrenze_));
    felder->addWidget(txtGrenze_, 1, 1);
    felder->setColumnStretch(1, 1);
    lay->addLayout(felder);
    auto* knoepfe = new QGridLayout;
    for (int32_t i = 0; i < PrimTestMethodenAnzahl; ++i) {
        btnTest_[i] = Benannt(new QPushButton(q(PrimTestName(i)), mitte), "btnTest", i);
        knoepfe->addWidget(btnTest_[i], i / 4, i % 4);
        connect(btnTest_[i], &QPushButton::clicked, this, Sicher([this, i] { Testen(i); }));
    }
    lay->addLayout(knoepfe);
    lblHinweis_ = Benannt(new QLabel(mitte), "lblHinweis");
    lblHinweis_->setWordWrap(true);
    lblHinweis_->setMinimumHeight(3 * fontMetrics().height());
    lblHinweis_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lay->addWidget(lblHinweis_);
    btnGO_ = Benannt(new QPushButton("Stopp", mitte), "btnGO");
    lay->addLayout(KnopfReihe({btnGO_}));
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, [this] {
        Abbruch = true;
        btnGO_->setText(q(Text(132)));
    });
    // On leaving the field a formula becomes its grouped value, or keeps its form when the
    // number is long; a formula that fails has shown why and stays as typed.
    connect(txtPrim_, &QLineEdit::editingFinished, this, Sicher([this] {
                if (Laeuft()) return;
                if (auto text = FormelFeldWorte(txtPrim_->text().toStdString())) txtPrim_->setText(q(*text));
            }));
    connect(txtGrenze_, &QLineEdit::editingFinished, this, Sicher([this] {
                txtGrenze_->setText(q(ZahlFormatLong(std::max(TextZuLong(txtGrenze_->text().toStdString()), 0))));
            }));
    FensterLaden(QString::fromStdString(AktivesFenster));
    if (txtPrim_->text().trimmed().isEmpty()) txtPrim_->setText("127");
    stoppText_ = btnGO_->text();
    btnGO_->hide();
    setMinimumWidth(560);
}

void frmPrimzahlTest::laufend(bool ja) {
    for (QPushButton* b : btnTest_) b->setEnabled(!ja);
    txtPrim_->setReadOnly(ja);
    txtGrenze_->setReadOnly(ja);
}

void frmPrimzahlTest::Testen(int32_t methode) {
    if (Laeuft()) return;  // a click that arrives through the yield of a running test
    const Lauf lauf(*this);
    laufend(true);
    try {
        PrimzahlTestLauf(PrimTestEingabe(txtPrim_->text().toStdString()), txtGrenze_->text().toStdString(), methode,
                         btnTest_[methode]->text().toStdString(), *this);
    } catch (...) {
        laufend(false);
        throw;
    }
    laufend(false);
}


void frmPrimzahlTest::Hinweis(const std::string& text) { lblHinweis_->setText(q(text)); }

void frmPrimzahlTest::GrenzeZeigen(const std::string& text) { txtGrenze_->setText(q(text)); }

void frmPrimzahlTest::StoppZeigen(bool sichtbar) {
    btnGO_->setText(stoppText_);
    btnGO_->setVisible(sichtbar);
}

}  // namespace sw
