#include "windows/frmSuchen.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/basSekundaer.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmAnzeige.h"

namespace sw {

frmSuchen::frmSuchen(frmAnzeige& anzeige, QWidget* eltern) : Fenster("frmSuchen", eltern), anzeige_(&anzeige) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    const char* arten[6] = {"Zwillinge (p, p+2)", "Drillinge (p, p+2, p+6)", "Drillinge (p, p+4, p+6)",
                            "Vierlinge (p, p+2, p+6, p+8)", "Freies Muster:", "Lücke mindestens:"};
    auto* raster = new QGridLayout;
    for (int i = 0; i < 6; ++i) {
        optArt_[i] = Benannt(new QRadioButton(arten[i], mitte), "optArt", i);
        raster->addWidget(optArt_[i], i, 0);
    }
    optArt_[0]->setChecked(true);
    txtMuster_ = Benannt(new QLineEdit("2 6 8 12", mitte), "txtMuster");
    txtLuecke_ = Benannt(new QLineEdit("100", mitte), "txtLuecke");
    raster->addWidget(txtMuster_, 4, 1);
    raster->addWidget(txtLuecke_, 5, 1);
    lay->addLayout(raster);
    chkSekundaer_ = Benannt(new QCheckBox("In den folgenden Bereichen weitersuchen", mitte), "chkSekundaer");
    lay->addWidget(chkSekundaer_);
    lblStatus_ = Benannt(new QLabel(mitte), "lblStatus");
    lay->addWidget(lblStatus_);
    btnGO_ = Benannt(new QPushButton("Suchen", mitte), "btnGO");
    auto* abbrechen = Benannt(new QPushButton("Abbrechen", mitte), "btnCancel");
    lay->addLayout(KnopfReihe({btnGO_, abbrechen}));
    setCentralWidget(mitte);
    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Starten(); }));
    // Cancel stops a running search behind its next yield; when none runs it closes.
    connect(abbrechen, &QPushButton::clicked, this, [this] {
        if (!btnGO_->isEnabled()) {
            SucheAbbruch = true;
        } else {
            close();
        }
    });
    FensterLaden("Muster suchen");
}

bool frmSuchen::Starten() {
    if (!anzeige_) return false;
    AnzeigeLogik& logik = anzeige_->Logik();
    // The search starts behind the page shown: without a range there is nothing to walk.
    if (!logik.BereichBereit) {
        MsgInfo(1113);
        return false;
    }
    int art = 0;
    for (int i = 0; i < 6; ++i) {
        if (optArt_[i]->isChecked()) art = i;
    }
    double luecke = 0;
    if (art == 5) {
        const QString name = optArt_[5]->text().remove('&').remove(':').trimmed();
        const std::optional<Decimal> wert = ZahlEingabe(txtLuecke_, name, Decimal(1), Decimal(1000000000));
        if (!wert) return false;
        luecke = wert->Double();
    }
    if (chkSekundaer_->isChecked() && !SekundaerAnfrageGross()) return false;
    logik.SekundaerDurchsuchen = chkSekundaer_->isChecked();
    logik.SuchMuster = art == 2 ? 1 : 0;
    logik.SuchMusterText = txtMuster_->text().toStdString();
    logik.SucheLuecke = luecke;
    const int16_t suchArt = int16_t(art <= 1 ? art : art - 1);
    SucheAbbruch = false;
    btnGO_->setEnabled(false);
    lblStatus_->setText(QString::fromStdString(Text(153)));
    StoppUhrStart(Text(153));
    bool treffer = false;
    Behandeln([&] { treffer = logik.Suchen(suchArt); });
    StoppUhrStop();
    if (!anzeige_) return treffer;  // the display closed during the search
    btnGO_->setEnabled(true);
    // A search that ran through without a hit says so, or the window would look unchanged.
    lblStatus_->setText(QString::fromStdString(Text(treffer ? 585 : SucheAbbruch ? 132 : 1001)));
    if (treffer) MsgInfo(585);
    return treffer;
}

}  // namespace sw
