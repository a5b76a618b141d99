#include "windows/frmMersenneTeiler.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneWert.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"
#include "windows/Fensterregister.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/UpDown.h"
#include "windows/frmMersenneStatus.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
std::string gruppiert(long long v) { return ZahlFormat(Decimal(v)); }

constexpr int kListeHoechstens = 10000;  // entries before the list starts afresh
constexpr int kTeilerBreite = 22;        // divisors right-aligned in the monospaced list
constexpr long long kFarbeGesamt = 0xC0FFFF, kFarbeIntervall = 0xFFC0C0;

}  // namespace

frmMersenneTeiler::frmMersenneTeiler(QWidget* eltern) : Fenster("frmMersenneTeiler", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Exponent p:", mitte), "lblPotenz"));
    txtPotenz_ = Benannt(new QLineEdit("1.000.003", mitte), "txtPotenz");
    zeile->addWidget(txtPotenz_, 1);
    zeile->addWidget(Benannt(new UpDown(mitte, [this](int n) { Sicher([this, n] { Schritt(n > 0 ? 1 : -1); })(); }),
                             "UpDown1"));
    zeile->addWidget(Benannt(new QLabel("k bis:", mitte), "lblK"));
    txtK_ = Benannt(new QLineEdit("100.000", mitte), "txtK");
    zeile->addWidget(txtK_, 1);
    zeile->addWidget(Benannt(new QLabel("Intervall:", mitte), "lblIntervall"));
    txtIntervall_ = Benannt(new QLineEdit("1.000.000", mitte), "txtIntervall");
    zeile->addWidget(txtIntervall_, 1);
    lay->addLayout(zeile);

    auto* haken = new QHBoxLayout;
    chkGefunden_ = Benannt(new QCheckBox("Bekannte Teiler zeigen", mitte), "chkGefunden");
    chkGesamtAnzeige_ = Benannt(new QCheckBox("Statistik über den ganzen Bereich", mitte), "chkGesamtAnzeige");
    haken->addWidget(chkGefunden_);
    haken->addWidget(chkGesamtAnzeige_);
    haken->addStretch();
    lay->addLayout(haken);

    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lay->addWidget(List1_, 1);

    fraPrim_ = Benannt(new QGroupBox(mitte), "fraPrim");
    auto* flay = new QVBoxLayout(fraPrim_);
    lblDezimal_ = Benannt(new QLabel(fraPrim_), "lblDezimal");
    lblStatus_ = Benannt(new QLabel(fraPrim_), "lblStatus");
    lblNeuStatus_ = Benannt(new QLabel(fraPrim_), "lblNeuStatus");
    lblAnzahl_ = Benannt(new QLabel(fraPrim_), "lblAnzahl");
    for (QLabel* l : {lblDezimal_, lblStatus_, lblNeuStatus_, lblAnzahl_}) flay->addWidget(l);
    lblAnzGesamt_ = Benannt(new QLabel(fraPrim_), "lblAnzGesamt");
    lblAnzGesamt_->setFrameShape(QFrame::StyledPanel);
    lblAnzGesamt_->setFixedHeight(16);
    lblAnzKlar_ = Benannt(new QLabel(lblAnzGesamt_), "lblAnzKlar");
    lblAnzKlar_->setGeometry(1, 1, 0, 14);
    lblAnzKlar_->setAutoFillBackground(true);
    flay->addWidget(lblAnzGesamt_);
    fraPrim_->hide();
    lay->addWidget(fraPrim_);

    btnGO_ = Benannt(new QPushButton("OK", mitte), "btnGO");
    auto* btnStatus = Benannt(new QPushButton("Status", mitte), "btnStatus");
    auto* btnAnalyse = Benannt(new QPushButton("Analyse", mitte), "btnAnalyse");
    lay->addLayout(KnopfReihe({btnGO_, btnStatus, btnAnalyse}));
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { SuchlaufStarten(); }));
    connect(btnStatus, &QPushButton::clicked, this, Sicher([this] { FensterOeffnen("frmMersenneStatus", -1, this); }));
    connect(btnAnalyse, &QPushButton::clicked, this,
            Sicher([this] { FensterOeffnen("frmMersenneAnalyse", -1, this); }));
    connect(chkGesamtAnzeige_, &QCheckBox::toggled, this, Sicher([this] {
                balkenFarbe();
                AnzeigeAktualisieren();
            }));
    FensterLaden(QString::fromStdString(AktivesFenster));
    balkenFarbe();
}

void frmMersenneTeiler::Schritt(int richtung) {
    if (Laeuft()) return;
    const auto wert = ZahlEingabe(txtPotenz_, "Exponent p", Decimal(0), Decimal(GrenzeLong));
    if (!wert) return;
    const uint32_t p = PrimExponentSchritt(wert->AlsInt64(), richtung);
    if (p != 0 && p <= uint32_t(GrenzeLong)) txtPotenz_->setText(q(ZahlFormat(Decimal(int64_t(p)))));
}

void frmMersenneTeiler::SuchlaufStarten() {
    std::string caption = btnGO_->text().toStdString();
    const bool stoppen = StartStopUmschalten(caption, "OK");
    btnGO_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    // However the run ends (an error too, which the handler's guard shows), the window comes
    // back to rest.
    struct Ruhe {
        frmMersenneTeiler* w;
        ~Ruhe() {
            w->btnGO_->setText("OK");
            w->fraPrim_->hide();
            for (QLineEdit* e : {w->txtPotenz_, w->txtK_, w->txtIntervall_}) e->setReadOnly(false);
        }
    } ruhe{this};
    const auto intervall = ZahlEingabe(txtIntervall_, "Intervall", Decimal(1), Decimal(GrenzeLong));
    if (!intervall) return;
    txtIntervall_->setText(q(ZahlFormat(*intervall)));
    const auto kZiel = ZahlEingabe(txtK_, "k", Decimal(1), Decimal(int64_t(TeilerKZielMax)));
    if (!kZiel) return;
    const auto start = ZahlEingabe(txtPotenz_, "Exponent p", Decimal(2), Decimal(GrenzeLong));
    if (!start) return;
    const Lauf lauf(*this);
    for (QLineEdit* e : {txtPotenz_, txtK_, txtIntervall_}) e->setReadOnly(true);
    List1_->clear();
    statistik_ = {};
    lblNeuStatus_->setText("0");
    fraPrim_->show();
    TeilerLaufAuftrag a;
    a.von = uint32_t(start->AlsInt64());
    a.KZiel = uint64_t(kZiel->AlsInt64());
    a.intervall = uint32_t(intervall->AlsInt64());
    const TeilerLaufBefund b = TeilerLauf(a, this);
    if (b.letzter != 0) txtPotenz_->setText(q(gruppiert(b.letzter)));
}

void frmMersenneTeiler::Exponent(uint32_t p) {
    txtPotenz_->setText(q(gruppiert(p)));
    lblDezimal_->setText(q(gruppiert(int64_t(MersenneStellen(p)))));
    lblStatus_->clear();
}

void frmMersenneTeiler::Stand(uint32_t, uint64_t k) { lblStatus_->setText(q(gruppiert(int64_t(k)))); }

void frmMersenneTeiler::Teiler(uint32_t p, const std::string& teiler, bool neu) {
    if (!neu && !chkGefunden_->isChecked()) return;
    if (List1_->count() > kListeHoechstens) List1_->clear();
    std::string divisor = ZahlFormat(teiler);
    if (divisor.size() < kTeilerBreite) divisor.insert(0, kTeilerBreite - divisor.size(), ' ');
    List1_->addItem(q(TextP1P2(118, divisor, gruppiert(p))));
    List1_->setCurrentRow(List1_->count() - 1);
    if (neu) lblNeuStatus_->setText(q(gruppiert(++statistik_.neu)));
    // An open status window moves its bar along instead of counting the segment again.
    if (neu) frmMersenneStatus::TeilerGefunden(int32_t(p));
}

void frmMersenneTeiler::Statistik(const TeilerStatistik& s) {
    statistik_ = s;
    AnzeigeAktualisieren();
}

void frmMersenneTeiler::AnzeigeAktualisieren() {
    const bool gesamt = chkGesamtAnzeige_->isChecked();
    const long long fertig = gesamt ? statistik_.dbMitStatus : statistik_.intervallMitStatus;
    const long long alle = gesamt ? statistik_.dbGesamt : statistik_.intervallAnzahl;
    if (statistik_.dbGesamt == 0 || statistik_.intervallAnzahl == 0 || alle == 0) return;
    const double anteil = double(fertig) / double(alle);
    char prozent[32];
    std::snprintf(prozent, sizeof prozent, "%.4f", 100 * anteil);
    std::string p = prozent;
    std::replace(p.begin(), p.end(), '.', ',');
    lblAnzahl_->setText(q(gruppiert(fertig) + " / " + gruppiert(alle) + " >>> " + p + " %"));
    lblAnzKlar_->resize(int((lblAnzGesamt_->width() - 2) * std::min(anteil, 0.99)), lblAnzGesamt_->height() - 2);
}

void frmMersenneTeiler::balkenFarbe() {
    HintergrundFarbeSetzen(lblAnzKlar_, chkGesamtAnzeige_->isChecked() ? kFarbeGesamt : kFarbeIntervall);
}

}  // namespace sw
