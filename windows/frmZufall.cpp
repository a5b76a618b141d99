#include "windows/frmZufall.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Zufall.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmZufall::frmZufall(QWidget* eltern) : Fenster("frmZufall", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    const char* modi[3] = {"Aus: echte Primzahlen", "Zufallsraster", "Zufallsraster, Bereich 10^n"};
    for (int i = 0; i < 3; ++i) {
        optZufall_[i] = Benannt(new QRadioButton(modi[i], mitte), "optZufall", i);
        lay->addWidget(optZufall_[i]);
    }
    optZufall_[ZufallModus >= 0 && ZufallModus < 3 ? ZufallModus : 0]->setChecked(true);
    auto* muster = new QHBoxLayout;
    muster->addWidget(Benannt(new QLabel("Ohne Vielfache von 2, 3, 5 und:", mitte), "lblMuster"));
    for (int i = 2; i <= 8; ++i) {
        chkMuster_[i] = Benannt(new QCheckBox(QString::number(RasterRest[i]), mitte), "chkMuster", i);
        chkMuster_[i]->setChecked((uint32_t(RandomFaktorBitKette) & BitMaske[i]) != 0);
        muster->addWidget(chkMuster_[i]);
    }
    lay->addLayout(muster);
    auto* prozent = new QHBoxLayout;
    prozent->addWidget(Benannt(new QLabel("Abstand ändern um (%):", mitte), "lblProzent"));
    btnPM_ = Benannt(new QPushButton(RandomProzentFaktor < 1 ? "-" : "+", mitte), "btnPM");
    btnPM_->setFixedWidth(32);
    prozent->addWidget(btnPM_);
    const double p = std::abs(RandomProzentFaktor - 1) * 100;
    txtProzent_ = Benannt(new QLineEdit(QString::number(p, 'f', 2), mitte), "txtProzent");
    prozent->addWidget(txtProzent_, 1);
    lay->addLayout(prozent);
    auto* intervall = new QHBoxLayout;
    intervall->addWidget(Benannt(new QLabel("Bereich 10 hoch:", mitte), "lblIntervall"));
    upDown_ = Benannt(new QSpinBox(mitte), "UpDown2");
    upDown_->setRange(6, 24);
    upDown_->setValue(RandomPrimIntervall);
    intervall->addWidget(upDown_);
    lblIntervall_ = Benannt(new QLabel(mitte), "lblRandomPrimIntervall");
    intervall->addWidget(lblIntervall_, 1);
    lblSpeicher_ = Benannt(new QLabel(mitte), "lblFreiSpeicher");
    intervall->addWidget(lblSpeicher_);
    lay->addLayout(intervall);
    lblInfo_ = Benannt(new QLabel(mitte), "lblInfo");
    lay->addWidget(lblInfo_);
    auto* go = Benannt(new QPushButton("OK", mitte), "btnGO");
    auto* abbrechen = Benannt(new QPushButton("Abbrechen", mitte), "btnCancel");
    lay->addLayout(KnopfReihe({go, abbrechen}));
    setCentralWidget(mitte);

    const auto neu = Sicher([this] { Aktualisieren(); });
    for (int i = 2; i <= 8; ++i) connect(chkMuster_[i], &QCheckBox::toggled, this, neu);
    for (QRadioButton* o : optZufall_) connect(o, &QRadioButton::toggled, this, neu);
    connect(txtProzent_, &QLineEdit::textChanged, this, neu);
    connect(upDown_, &QSpinBox::valueChanged, this, neu);
    connect(btnPM_, &QPushButton::clicked, this, Sicher([this] {
                btnPM_->setText(btnPM_->text() == "+" ? "-" : "+");
                Aktualisieren();
            }));
    connect(go, &QPushButton::clicked, this, Sicher([this] {
                if (Uebernehmen()) close();
            }));
    connect(abbrechen, &QPushButton::clicked, this, &QWidget::close);
    FensterLaden(QString::fromStdString(AktivesFenster));
    Aktualisieren();
}

int32_t frmZufall::bitKette() const {
    uint32_t kette = 0;
    for (int i = 2; i <= 8; ++i) {
        if (chkMuster_[i]->isChecked()) kette |= BitMaske[i];
    }
    return int32_t(kette);
}

void frmZufall::Aktualisieren() {
    double prozent = 0;
    const bool lesbar = ZufallProzentLesen(txtProzent_->text().toStdString(), prozent);
    lblIntervall_->setText("10^" + QString::number(upDown_->value()));
    lblSpeicher_->setText(QString::fromStdString(ZufallSpeicherText(upDown_->value())));
    lblInfo_->setText(lesbar ? QString::fromStdString(ZufallInfoText(bitKette(), prozent, btnPM_->text() == "+"))
                             : QString::fromStdString(Text(1121)));
}

bool frmZufall::Uebernehmen() {
    double prozent = 0;
    if (!ZufallProzentLesen(txtProzent_->text().toStdString(), prozent)) {
        // The field and what it takes, for a word as for a number too large.
        const QString feld = Steuer<QLabel>(this, "lblProzent")->text().remove(':').trimmed();
        MsgInfoText(TextP1P2(1120, feld.toStdString(), txtProzent_->text().toStdString()));
        txtProzent_->setFocus();
        return false;
    }
    int modus = 0;
    for (int i = 0; i < 3; ++i) {
        if (optZufall_[i]->isChecked()) modus = i;
    }
    return ZufallUebernehmen(modus, prozent, btnPM_->text() == "+", bitKette(), upDown_->value());
}

}  // namespace sw
