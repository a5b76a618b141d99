#include "windows/frmAnalyseMersenne.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/basZentral.h"
#include "mersenne/MersenneStatistik.h"
#include "sieve/RasterTabellen.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmAnalyseMersenne::frmAnalyseMersenne(QWidget* eltern) : Fenster("frmAnalyseMersenne", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* felder = new QFormLayout;
    txtStart_ = Benannt(new QLineEdit("3", mitte), "txtStart");
    txtIntervall_ = Benannt(new QLineEdit("1.000.000", mitte), "txtIntervall");
    txtAbstandBis_ = Benannt(new QLineEdit("100", mitte), "txtAbstandBis");
    felder->addRow(Benannt(new QLabel("Start:", mitte), "lblStart"), txtStart_);
    felder->addRow(Benannt(new QLabel("Intervall:", mitte), "lblIntervall"), txtIntervall_);
    felder->addRow(Benannt(new QLabel("Abstand bis:", mitte), "lblAbstandBis"), txtAbstandBis_);
    lay->addLayout(felder);
    chkLuecken_ = Benannt(new QCheckBox("Nur Lücken, keine Abstände", mitte), "chkLücken");
    chkSortAnzahl_ = Benannt(new QCheckBox("Nach Anzahl sortieren", mitte), "chkSortAnzahl");
    chkLuecken_->setChecked(true);
    lay->addWidget(chkLuecken_);
    lay->addWidget(chkSortAnzahl_);
    auto* btnGO = Benannt(new QPushButton("Analysieren", mitte), "btnGO");
    lay->addLayout(KnopfReihe({btnGO}));
    List1_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(List1_, 1);
    setCentralWidget(mitte);
    connect(btnGO, &QPushButton::clicked, this, Sicher([this] { Analysieren(); }));
    resize(420, 520);
    // The common icons only: save the chart or list (.CSV, .TXT), the picture (PNG), print.
    IconsAufbauen("T");
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmAnalyseMersenne::Analysieren() {
    const auto start = ZahlEingabe(txtStart_, "Start", Decimal(3), Decimal(GrenzeLong - 1));
    if (!start) return;
    const auto intervall = ZahlEingabe(txtIntervall_, "Intervall", Decimal(1), Decimal(GrenzeLong));
    if (!intervall) return;
    const auto abstand = ZahlEingabe(txtAbstandBis_, "Abstand bis", Decimal(1), Decimal(GrenzeLong));
    if (!abstand) return;
    const int64_t von = start->AlsInt64();
    const int64_t bis = std::min<int64_t>(von + intervall->AlsInt64(), GrenzeLong);
    const bool nurLuecken = chkLuecken_->isChecked();
    List1_->clear();
    for (const AbstandZeile& z : Abstaende(von, bis, abstand->AlsInt64(), nurLuecken, chkSortAnzahl_->isChecked())) {
        auto* eintrag = new QListWidgetItem(QString::fromStdString(AbstandText(z, nurLuecken)), List1_);
        eintrag->setData(CsvRolle, QStringLiteral("%1;%2;%3").arg(z.differenz).arg(z.anzahl).arg(z.prozent, 0, 'f', 3));
    }
}

std::optional<QStringList> frmAnalyseMersenne::ListenCsv() {
    return CsvAusListe(List1_, chkLuecken_->isChecked() ? "Lücke;Anzahl;Prozent" : "Abstand;Anzahl;Prozent");
}

}  // namespace sw
