#include "windows/frmSpeicherAuslastung.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/Speicher.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/Balken.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmSpeicherAuslastung::frmSpeicherAuslastung() : Fenster("frmSpeicherAuslastung") {
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    lblAuslastung_ = Benannt(new QLabel(mitte), "lblAuslastung");
    balken_ = new Balken("Auslastung", mitte);
    lblPhysisch_ = Benannt(new QLabel(mitte), "lblPhysisch");
    lblAuslagerung_ = Benannt(new QLabel(mitte), "lblAuslagerung");
    lblVirtuell_ = Benannt(new QLabel(mitte), "lblVirtuell");
    lay->addWidget(lblAuslastung_);
    lay->addWidget(balken_);
    lay->addSpacing(6);
    for (QLabel* l : {lblPhysisch_, lblAuslagerung_, lblVirtuell_}) {
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        lay->addWidget(l);
    }
    auto* neu = Benannt(new QPushButton("Aktualisieren", mitte), "btnAktualisieren");
    auto* ok = Benannt(new QPushButton("OK", mitte), "btnOK");
    lay->addStretch(1);
    lay->addLayout(KnopfReihe({neu, ok}));
    setCentralWidget(mitte);
    connect(neu, &QPushButton::clicked, this, Sicher([this] { Aktualisieren(); }));
    connect(ok, &QPushButton::clicked, this, &QWidget::close);
    // The figures first, so that the window's designed size fits them.
    Aktualisieren();
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmSpeicherAuslastung::Aktualisieren() {
    const SpeicherStand st = SpeicherLesen();
    auto fuellen = [this](const char* vorlage, const std::string& p1, const std::string& p2) {
        std::string t = SektionsText(vorlage).toStdString();
        return QString::fromStdString(ErsetzenOhneGross(ErsetzenOhneGross(t, "#P1", p1), "#P2", p2));
    };
    lblAuslastung_->setText(fuellen("VorlageAuslastung", ZahlFormat(static_cast<long long>(st.auslastung)), ""));
    BalkenSetzen(balken_->Linie(), balken_, st.auslastung);
    lblPhysisch_->setText(fuellen("VorlagePhysisch", GroesseText(st.physischGesamt), GroesseText(st.physischFrei)));
    lblAuslagerung_->setText(
        fuellen("VorlageAuslagerung", GroesseText(st.auslagerungGesamt), GroesseText(st.auslagerungFrei)));
    lblVirtuell_->setText(fuellen("VorlageVirtuell", GroesseText(st.virtuellGesamt), GroesseText(st.virtuellFrei)));
}

}  // namespace sw
