#include "windows/frmSucheZwillinge.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "arith/basHyper.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/PrimzahlTest.h"
#include "sieve/RasterTabellen.h"
#include "windows/Balken.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

frmSucheZwillinge::frmSucheZwillinge(QWidget* eltern) : Fenster("frmSucheZwillinge", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* felder = new QGridLayout;
    felder->addWidget(Benannt(new QLabel("Start:", mitte), "lblStart"), 0, 0);
    txtStart_ = Benannt(new QLineEdit("1.000.000.000.000", mitte), "txtStart");
    felder->addWidget(txtStart_, 0, 1, 1, 2);
    felder->addWidget(Benannt(new QLabel("Intervall:", mitte), "lblIntervall"), 1, 0);
    txtIntervall_ = Benannt(new QLineEdit("10.000", mitte), "txtIntervall");
    felder->addWidget(txtIntervall_, 1, 1);
    btnErwartung_ = Benannt(new QPushButton(mitte), "btnErwartung");
    felder->addWidget(btnErwartung_, 1, 2);
    felder->setColumnStretch(1, 1);
    lay->addLayout(felder);

    auto* optionen = new QHBoxLayout;
    auto* fraVerfahren = Benannt(new QGroupBox(mitte), "fraVerfahren");
    auto* verfahrenLay = new QVBoxLayout(fraVerfahren);
    auto* verfahrenGruppe = new QButtonGroup(fraVerfahren);
    for (int32_t i = 0; i < ZwillingeVerfahrenAnzahl; ++i) {
        optVerfahren_[i] = Benannt(new QRadioButton(fraVerfahren), "optVerfahren", i);
        verfahrenGruppe->addButton(optVerfahren_[i], i);
        verfahrenLay->addWidget(optVerfahren_[i]);
        connect(optVerfahren_[i], &QRadioButton::toggled, this, [this] { artenFreigeben(); });
    }
    auto* fraArt = Benannt(new QGroupBox(mitte), "fraArt");
    auto* artLay = new QVBoxLayout(fraArt);
    auto* artGruppe = new QButtonGroup(fraArt);
    for (int32_t i = 0; i < ZwillingeArtenAnzahl; ++i) {
        optArt_[i] = Benannt(new QRadioButton(fraArt), "optArt", i);
        artGruppe->addButton(optArt_[i], i);
        artLay->addWidget(optArt_[i]);
    }
    optionen->addWidget(fraVerfahren, 2);
    optionen->addWidget(fraArt, 1);
    lay->addLayout(optionen);

    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    btnGO_->setDefault(true);
    auto* zaehler = new QHBoxLayout;
    lblCount_ = Benannt(new QLabel(mitte), "lblCount");
    lblCountStreich_ = Benannt(new QLabel(mitte), "lblCountStreich");
    zaehler->addWidget(lblCount_);
    zaehler->addWidget(lblCountStreich_);
    zaehler->addStretch(1);
    zaehler->addWidget(btnGO_);
    lay->addLayout(zaehler);

    fraWait_ = Benannt(new QGroupBox(mitte), "fraWait");
    auto* warteLay = new QVBoxLayout(fraWait_);
    warteLay->addWidget(Benannt(new QLabel("Bitte warten...", fraWait_), "lblWait"));
    balkenTertiaer_ = new Balken("Tertiaer", fraWait_);
    balken_ = new Balken("", fraWait_);
    warteLay->addWidget(balkenTertiaer_);
    warteLay->addWidget(balken_);
    fraWait_->hide();
    lay->addWidget(fraWait_);

    liste_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(liste_, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Los(); }));
    connect(btnErwartung_, &QPushButton::clicked, this, Sicher([this] { Erwartung(); }));
    // On leaving the field a formula becomes its grouped value, or keeps its form when long.
    connect(txtStart_, &QLineEdit::editingFinished, this, Sicher([this] {
                if (Laeuft()) return;
                if (auto text = FormelFeldWorte(txtStart_->text().toStdString())) txtStart_->setText(q(*text));
            }));

    IconsAufbauen("");
    FensterLaden(q(AktivesFenster));
    if (gewaehlt(optVerfahren_, ZwillingeVerfahrenAnzahl) < 0) optVerfahren_[VerfahrenSekundaer]->setChecked(true);
    if (gewaehlt(optArt_, ZwillingeArtenAnzahl) < 0) optArt_[0]->setChecked(true);
    artenFreigeben();
    ruheText_ = btnGO_->text();
    liste_->clear();
    setMinimumSize(520, 560);
}

int32_t frmSucheZwillinge::gewaehlt(QRadioButton* const* knoepfe, int32_t anzahl) const {
    for (int32_t i = 0; i < anzahl; ++i) {
        if (knoepfe[i]->isChecked()) return i;
    }
    return -1;
}

void frmSucheZwillinge::artenFreigeben() {
    const bool probabilistisch = optVerfahren_[VerfahrenProbabilistisch]->isChecked();
    for (QRadioButton* o : optArt_) o->setEnabled(probabilistisch);
}

void frmSucheZwillinge::laufend(bool ja) {
    txtStart_->setReadOnly(ja);
    txtIntervall_->setReadOnly(ja);
    btnErwartung_->setEnabled(!ja);
    for (QRadioButton* o : optVerfahren_) o->setEnabled(!ja);
    if (ja) {
        for (QRadioButton* o : optArt_) o->setEnabled(false);
    } else {
        artenFreigeben();
    }
}

void frmSucheZwillinge::Los() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the yield of a running search stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    lblCount_->clear();
    lblCountStreich_->clear();
    ZwillingeAuftrag auftrag;
    auftrag.start = Formel2Hyp(PrimTestEingabe(txtStart_->text().toStdString()));
    const std::optional<Decimal> intervall = ZahlEingabe(txtIntervall_, "Intervall", Decimal(0), Decimal(GrenzeLong));
    if (!intervall) return;
    auftrag.intervall = int32_t(intervall->AlsInt64());
    auftrag.verfahren = std::max(gewaehlt(optVerfahren_, ZwillingeVerfahrenAnzahl), 0);
    auftrag.art = std::max(gewaehlt(optArt_, ZwillingeArtenAnzahl), 0);
    if (!EingabePruefen(auftrag.start, auftrag.intervall, auftrag.verfahren)) return;
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    laufend(true);
    liste_->clear();
    StoppUhrStart(windowTitle().toStdString());
    try {
        ZwillingeSuchen(auftrag, *this);
    } catch (...) {
        fraWait_->hide();
        laufend(false);
        btnGO_->setText(ruheText_);
        if (StoppUhr.laeuft) StoppUhrStop();
        throw;
    }
    StoppUhrStop();
    laufend(false);
    btnGO_->setText(ruheText_);
}

void frmSucheZwillinge::Erwartung() {
    const Hyp start = Formel2Hyp(PrimTestEingabe(txtStart_->text().toStdString()));
    txtIntervall_->setText(q(ZahlFormat((long long)ErwartungsIntervall(start))));
}

void frmSucheZwillinge::Zwilling(const Hyp&, const std::string& zeile) { Zeile(zeile); }

void frmSucheZwillinge::Zeile(const std::string& text) {
    liste_->addItem(q(text));
    liste_->scrollToBottom();
}

void frmSucheZwillinge::WartenZeigen(bool sichtbar) {
    if (sichtbar) {
        BalkenSetzen(balken_->Linie(), balken_, 0);
        BalkenSetzen(balkenTertiaer_->Linie(), balkenTertiaer_, 0);
    }
    fraWait_->setVisible(sichtbar);
    DoEvents();
}

void frmSucheZwillinge::KandidatenZeigen(int64_t anzahl) {
    lblCount_->setText(SektionsText("Kandidaten").replace("#P1", q(ZahlFormat((long long)anzahl))));
}

void frmSucheZwillinge::StreichungenZeigen(int64_t gestrichen) {
    lblCountStreich_->setText(SektionsText("Gestrichen").replace("#P1", q(ZahlFormat((long long)gestrichen))));
}

void frmSucheZwillinge::SiebFortschritt(int32_t prozent) {
    BalkenSetzen(balkenTertiaer_->Linie(), balkenTertiaer_, prozent);
}

void frmSucheZwillinge::TestFortschritt(int32_t prozent) { BalkenSetzen(balken_->Linie(), balken_, prozent); }

}  // namespace sw
