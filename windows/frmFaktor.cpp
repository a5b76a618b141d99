#include "windows/frmFaktor.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/FaktorListe.h"
#include "windows/Fensterregister.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmFaktorAnzeige.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
std::string s(const QString& t) { return t.toStdString(); }

constexpr int kSchritte = 8;

}  // namespace

frmFaktor::frmFaktor(QWidget* eltern) : Fenster("frmFaktor", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* felder = new QGridLayout;
    txtStart_ = Benannt(new QLineEdit("1.000.000", mitte), "txtStart");
    txtStep_ = Benannt(new QLineEdit("1", mitte), "txtStep");
    txtPlusMinus_ = Benannt(new QLineEdit("10", mitte), "txtPlusMinus");
    felder->addWidget(Benannt(new QLabel(mitte), "lblStart"), 0, 0);
    felder->addWidget(txtStart_, 0, 1);
    felder->addWidget(Benannt(new QLabel(mitte), "lblStep"), 0, 2);
    felder->addWidget(txtStep_, 0, 3);
    felder->addWidget(Benannt(new QLabel(mitte), "lblPlusMinus"), 0, 4);
    felder->addWidget(txtPlusMinus_, 0, 5);
    auto* go = Benannt(new QPushButton("Go", mitte), "btnGo");
    go->setDefault(true);
    felder->addWidget(go, 0, 6);
    lay->addLayout(felder);

    // The eight steps, each with its difference, in two rows of four.
    auto* schritte = new QGridLayout;
    for (int i = 0; i < kSchritte; ++i) {
        auto* knopf = Benannt(new QPushButton(mitte), "btnNext", i);
        auto* diff = Benannt(new QLineEdit(i == 2 || i == 3 ? "2" : i < 4 ? "1" : "0", mitte), "txtDiff", i);
        diff->setMaximumWidth(90);
        schritte->addWidget(knopf, i / 4 * 2, i % 4);
        schritte->addWidget(diff, i / 4 * 2 + 1, i % 4);
        txtDiff_.push_back(diff);
        connect(knopf, &QPushButton::clicked, this, Sicher([this, i] { Naechster(i); }));
    }
    lay->addLayout(schritte);

    liste_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(liste_, 1);
    auto* anzeige = Benannt(new QPushButton(mitte), "btnZerlegen");
    lay->addLayout(KnopfReihe({anzeige}));
    setCentralWidget(mitte);

    connect(go, &QPushButton::clicked, this, Sicher([this] { ListeAufbauen(); }));
    connect(txtStart_, &QLineEdit::returnPressed, this, Sicher([this] { ListeAufbauen(); }));
    connect(anzeige, &QPushButton::clicked, this, Sicher([this] { zerlegen(); }));
    connect(liste_, &QListWidget::itemDoubleClicked, this, Sicher([this] { zerlegen(); }));

    IconsAufbauen("");
    FensterLaden(q(AktivesFenster));
    liste_->clear();
    setMinimumSize(560, 480);
}

bool frmFaktor::startPruefen() {
    if (FaktorStartGueltig(s(txtStart_->text()))) return true;
    MsgInfoP1(475, ZahlFormat(PrimaerGrenze));
    return false;
}

void frmFaktor::ListeAufbauen() {
    if (!startPruefen()) return;
    const Decimal start = TextZuDecimal(s(txtStart_->text()));
    const FaktorZeilen zeilen =
        FaktorListeBauen(start, TextZuDecimal(s(txtStep_->text())), TextZuDecimal(s(txtPlusMinus_->text())));
    liste_->clear();
    for (const std::string& z : zeilen.zeilen) liste_->addItem(q(z));
    if (zeilen.auswahl >= 0) {
        liste_->setCurrentRow(zeilen.auswahl);
        liste_->scrollToItem(liste_->currentItem(), QAbstractItemView::PositionAtCenter);
    }
}

void frmFaktor::Naechster(int index) {
    if (!startPruefen()) return;
    const Decimal x = TextZuDecimal(s(txtStart_->text()));
    const Decimal a = TextZuDecimal(s(txtDiff_[index]->text()));
    if (letzter_.IstNull()) letzter_ = x;
    std::optional<Decimal> neu;
    try {
        neu = FaktorSchritt(index, x, a, letzter_);
    } catch (const Laufzeitfehler& e) {
        // x div 0: the user's difference, not a fault of the program.
        MsgInfoText(e.Beschreibung());
        return;
    }
    if (!neu) {
        MsgInfoP1(475, ZahlFormat(PrimaerGrenze));
        return;
    }
    txtStart_->setText(q(ZahlFormat(*neu)));
    ListeAufbauen();
}

void frmFaktor::zerlegen() {
    const QListWidgetItem* zeile = liste_->currentItem();
    const QString zahl = zeile ? zeile->text().section(" >>> ", 0, 0) : txtStart_->text();
    frmFaktorAnzeige::Oeffnen(zahl, this);
}

}  // namespace sw
