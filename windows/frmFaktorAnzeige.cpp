#include "windows/frmFaktorAnzeige.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

const char* artSchluessel(FaktorArt art) {
    switch (art) {
        case FaktorArt::Bewiesen: return "Bewiesen";
        case FaktorArt::Wahrscheinlich: return "Wahrscheinlich";
        case FaktorArt::Zusammengesetzt: break;
    }
    return "Zusammengesetzt";
}

}  // namespace

QString FaktorStandText(const FaktorStand& stand) {
    static const char* const schluessel[] = {"StufeProbe", "StufeRho", "StufeEcm", "StufeBeweis", "StufeFertig"};
    std::string wert;
    SektionWert(SektionLesen("FaktorAnzeige"), schluessel[int(stand.stufe)], wert);
    QString text = q(WertZerlegen(wert).text);
    text.replace("#P1", QString::number(stand.stellen));
    text.replace("#P2", q(ZahlFormat(stand.b1)));
    text.replace("#P3", QString::number(stand.kurve));
    text.replace("#P4", QString::number(stand.kurven));
    text.replace("#P5", QString::number(stand.gefunden));
    return text;
}

frmFaktorAnzeige::frmFaktorAnzeige(QWidget* eltern) : Fenster("frmFaktorAnzeige", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel(mitte), "lblZahl"));
    txtZahl_ = Benannt(new QLineEdit("2^128+1", mitte), "txtZahl");
    zeile->addWidget(txtZahl_, 1);
    btnGo_ = Benannt(new QPushButton("Zerlegen", mitte), "btnGo");
    btnGo_->setDefault(true);
    zeile->addWidget(btnGo_);
    lay->addLayout(zeile);
    lblStufe_ = Benannt(new QLabel(mitte), "lblStufe");
    lay->addWidget(lblStufe_);
    prgKurven_ = Benannt(new QProgressBar(mitte), "prgKurven");
    prgKurven_->setVisible(false);
    lay->addWidget(prgKurven_);
    liste_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(liste_, 1);
    lblStatus_ = Benannt(new QLabel(mitte), "lblStatus");
    lblStatus_->setWordWrap(true);
    lay->addWidget(lblStatus_);
    setCentralWidget(mitte);

    connect(btnGo_, &QPushButton::clicked, this, Sicher([this] { StartStop(); }));
    connect(txtZahl_, &QLineEdit::returnPressed, this, Sicher([this] {
                if (!Laeuft()) StartStop();
            }));

    IconsAufbauen("");
    FensterLaden("Faktorisierung großer Zahlen");  // opened from the menu and from frmFaktor alike
    liste_->clear();
    lblStufe_->clear();
    setMinimumSize(560, 400);
}

frmFaktorAnzeige* frmFaktorAnzeige::Oeffnen(const QString& zahl, QWidget* eltern) {
    auto* w = new frmFaktorAnzeige(eltern);
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->txtZahl_->setText(zahl);
    w->ShowMe(-1);
    // The job starts once the window stands, from the event loop, not inside the caller.
    QTimer::singleShot(0, w, Sicher([w] { w->StartStop(); }));
    return w;
}

void frmFaktorAnzeige::StartStop() {
    std::string caption = btnGo_->text().toStdString();
    QString ruhe = SektionsText("btnGo");
    if (ruhe.isEmpty()) ruhe = "Zerlegen";
    const bool stoppen = StartStopUmschalten(caption, ruhe.toStdString());
    btnGo_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    const Lauf lauf(*this);
    // However the job ends (also by an error, which the handler's guard then shows), the
    // window comes back to rest.
    struct Ruhe {
        frmFaktorAnzeige* w;
        QString text;
        ~Ruhe() {
            w->btnGo_->setText(text);
            w->prgKurven_->setVisible(false);
        }
    } ruheWieder{this, ruhe};
    zerlegen();
}

void frmFaktorAnzeige::zerlegen() {
    // The field as the program writes a formula field; a formula that fails has shown why.
    const std::optional<std::string> feld = FormelFeldText(txtZahl_->text().toStdString());
    if (!feld) return;
    txtZahl_->setText(q(*feld));
    const Hyp n = Formel2Hyp(*feld);
    liste_->clear();
    lblStatus_->clear();
    const double start = Timer();
    // Trial division stops at a million even with a larger raster: rho and the curves find
    // the primes beyond faster than a walk through millions of them.
    const Zerlegung z = Zerlegen(n, FaktorOptionen{}, this);
    liste_->addItem(q(ZiffernGruppieren(Hyp2Text(n)) + " ="));
    ergebnisZeigen(z, Timer() - start);
}

void frmFaktorAnzeige::ergebnisZeigen(const Zerlegung& z, double sekunden) {
    for (const Primfaktor& f : z.faktoren) {
        std::string zeile = ZiffernGruppieren(Hyp2Text(f.wert));
        if (f.exponent > 1) zeile += " ^ " + std::to_string(f.exponent);
        liste_->addItem(q(zeile) + "   " + SektionsText(artSchluessel(f.art)));
    }
    QString status = SektionsText(z.abgebrochen          ? "Abgebrochen"
                                  : !z.Vollstaendig()    ? "Unzerlegt"
                                  : z.Bewiesen()         ? "AllesBewiesen"
                                                         : "Vollstaendig");
    status.replace("#P1", q(ZahlFormat(sekunden)));
    lblStatus_->setText(status);
    prgKurven_->setVisible(false);
}

void frmFaktorAnzeige::StandMelden(const FaktorStand& stand) {
    lblStufe_->setText(FaktorStandText(stand));
    const bool ecm = stand.stufe == FaktorStufe::Ecm;
    prgKurven_->setVisible(ecm);
    if (ecm) {
        prgKurven_->setRange(0, stand.kurven);
        prgKurven_->setValue(stand.kurve);
    }
}


}  // namespace sw
