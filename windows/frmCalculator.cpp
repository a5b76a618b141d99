#include "windows/frmCalculator.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <new>

#include "arith/HypText.h"
#include "arith/basRechnen.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

QPointer<frmCalculator> frmCalculator::instanz_;

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

}  // namespace

frmCalculator::frmCalculator(QWidget* eltern) : Fenster("frmCalculator", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel(mitte), "lblFormel"));
    txtFormel_ = Benannt(new QLineEdit(mitte), "txtFormel");
    zeile->addWidget(txtFormel_, 1);
    btnRechnen_ = Benannt(new QPushButton("=", mitte), "btnRechnen");
    btnStop_ = Benannt(new QPushButton("Stop", mitte), "btnStop");
    btnStop_->setEnabled(false);
    zeile->addWidget(btnRechnen_);
    zeile->addWidget(btnStop_);
    lay->addLayout(zeile);

    lblErgebnis_ = Benannt(new QLabel(mitte), "lblErgebnis");
    lblErgebnis_->setWordWrap(true);
    lblErgebnis_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblErgebnis_->setFrameShape(QFrame::StyledPanel);
    lblErgebnis_->setMinimumHeight(40);
    lay->addWidget(lblErgebnis_);
    lblStellen_ = Benannt(new QLabel(mitte), "lblStellen");
    lay->addWidget(lblStellen_);
    lblBasis_ = Benannt(new QLabel(mitte), "lblBasis");
    lblBasis_->setWordWrap(true);
    lblBasis_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lay->addWidget(lblBasis_);

    auto* funktionen = Benannt(new QGroupBox(mitte), "fraFunktionen");
    auto* raster = new QGridLayout(funktionen);
    for (int i = 1; i < RechenFunktionAnzahl; ++i) {
        auto* b = Benannt(new QPushButton(funktionen), "btnFunktion", i);
        raster->addWidget(b, (i - 1) / 5, (i - 1) % 5);
        btnFunktion_ << b;
        connect(b, &QPushButton::clicked, this, Sicher([this, i] { Rechnen(RechenFunktion(i)); }));
    }
    lay->addWidget(funktionen);

    auto* unten = new QHBoxLayout;
    auto* verlauf = Benannt(new QGroupBox(mitte), "fraVerlauf");
    auto* vl = new QVBoxLayout(verlauf);
    lstVerlauf_ = Benannt(new QListWidget(verlauf), "List1");
    vl->addWidget(lstVerlauf_);
    unten->addWidget(verlauf, 3);
    auto* speicher = Benannt(new QGroupBox(mitte), "fraSpeicher");
    auto* sl = new QVBoxLayout(speicher);
    auto* sz = new QHBoxLayout;
    cmbSpeicher_ = Benannt(new QComboBox(speicher), "cmbSpeicher");
    for (int k = 1; k <= Rechner::SpeicherAnzahl; ++k) cmbSpeicher_->addItem("#" + QString::number(k));
    sz->addWidget(cmbSpeicher_);
    auto* merken = Benannt(new QPushButton("M", speicher), "btnMerken");
    sz->addWidget(merken);
    sl->addLayout(sz);
    lstSpeicher_ = Benannt(new QListWidget(speicher), "lstSpeicher");
    sl->addWidget(lstSpeicher_);
    unten->addWidget(speicher, 2);
    lay->addLayout(unten, 1);
    setCentralWidget(mitte);

    connect(btnRechnen_, &QPushButton::clicked, this, Sicher([this] { Rechnen(RechenFunktion::Formel); }));
    connect(txtFormel_, &QLineEdit::returnPressed, this, Sicher([this] { Rechnen(RechenFunktion::Formel); }));
    connect(btnStop_, &QPushButton::clicked, this, [] { Abbruch = true; });
    connect(merken, &QPushButton::clicked, this, Sicher([this] {
                if (!ergebnis_) return;
                const int k = cmbSpeicher_->currentIndex() + 1;
                const bool bleibt = rechner_.Merken(k, *ergebnis_);
                speicherZeigen();
                if (!bleibt) MsgInfoText(RechenText("msgSpeicherLang", "#" + std::to_string(k)));
            }));
    // A line of the history brings its formula back; a memory inserts its name.
    connect(lstVerlauf_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        const int i = lstVerlauf_->row(item);
        if (i >= 0 && size_t(i) < rechner_.VerlaufFormeln().size()) txtFormel_->setText(q(rechner_.VerlaufFormeln()[size_t(i)]));
    });
    connect(lstSpeicher_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        txtFormel_->insert("#" + QString::number(lstSpeicher_->row(item) + 1));
    });

    FensterLaden("Rechner");
    lstVerlauf_->clear();  // the section gives the lists their tool tips, not entries
    rechner_.SpeicherLaden();
    speicherZeigen();
    setMinimumWidth(560);
}

frmCalculator::~frmCalculator() {
    // A computation still running when the window goes is stopped at its next yield.
    if (laeuft_) Abbruch = true;
}

void frmCalculator::Oeffnen(QWidget* cockpit) {
    if (instanz_) {
        instanz_->raise();
        instanz_->activateWindow();
        return;
    }
    auto* w = new frmCalculator(cockpit);
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->setWindowModality(Qt::ApplicationModal);
    instanz_ = w;
    w->ShowMe(-1);
}

void frmCalculator::laufend(bool ja) {
    laeuft_ = ja;
    btnStop_->setEnabled(ja);
    btnRechnen_->setEnabled(!ja);
    for (QPushButton* b : btnFunktion_) b->setEnabled(!ja);
    txtFormel_->setReadOnly(ja);
}

void frmCalculator::Rechnen(RechenFunktion f) {
    if (laeuft_) return;  // a click that arrives through the yield of a running computation
    laufend(true);
    const std::string eingabe = txtFormel_->text().toStdString();
    std::string fehler;
    try {
        RechenErgebnis e = rechner_.Ausfuehren(f, eingabe);
        ergebnisZeigen(e);
        ergebnis_ = std::move(e.wert);
        lstVerlauf_->addItem(q(rechner_.Verlauf().back()));
        lstVerlauf_->scrollToBottom();
    } catch (const Laufzeitfehler& e) {
        fehler = e.Beschreibung();
    } catch (const std::bad_alloc&) {
        fehler = FehlerBeschreibung(FehlerKeinSpeicher);
    }
    laufend(false);
    if (!fehler.empty()) {
        ergebnisLeeren();
        MsgInfoText(fehler);
    }
}

void frmCalculator::ergebnisZeigen(const RechenErgebnis& e) {
    lblErgebnis_->setText(q(ZiffernAnzeige(e.ziffern)));
    lblStellen_->setText(q(RechenText("txtStellen", ZahlFormatLong(int32_t(e.ziffern.size())))));
    lblBasis_->setVisible(!e.basisZiffern.empty());
    lblBasis_->setText(e.basisZiffern.empty() ? QString() : q(BasisBeschriftung() + ": " + ZiffernAnzeige(e.basisZiffern, false)));
}

void frmCalculator::ergebnisLeeren() {
    ergebnis_.reset();
    lblErgebnis_->clear();
    lblStellen_->clear();
    lblBasis_->clear();
    lblBasis_->setVisible(false);
}

void frmCalculator::speicherZeigen() {
    lstSpeicher_->clear();
    for (int k = 1; k <= Rechner::SpeicherAnzahl; ++k) {
        const std::string wert = rechner_.Belegt(k) ? ZiffernAnzeige(Hyp2Text(rechner_.Speicher(k))) : "-";
        lstSpeicher_->addItem(q("#" + std::to_string(k) + " = " + wert));
    }
}

}  // namespace sw
