#include "windows/frmTeilerAnalyse.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/PrimzahlTest.h"
#include "sieve/RasterTabellen.h"
#include "views/RasterVorhanden.h"
#include "windows/Fensterregister.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/UpDown.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
constexpr int64_t kKFilterMax = 536870912;

}  // namespace

frmTeilerAnalyse::frmTeilerAnalyse(QWidget* eltern) : Fenster("frmTeilerAnalyse", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* felder = new QGridLayout;
    txtZahl_ = Benannt(new QLineEdit("1", mitte), "txtZahl");
    txtKFilter_ = Benannt(new QLineEdit("1", mitte), "txtKFilter");
    txtBisPrim_ = Benannt(new QLineEdit("2.000.000.000", mitte), "txtBisPrim");
    txtPotenz_ = Benannt(new QLineEdit("11", mitte), "txtPotenz");
    felder->addWidget(Benannt(new QLabel("Start q:", mitte), "lblZahl"), 0, 0);
    felder->addWidget(txtZahl_, 0, 1, 1, 3);
    felder->addWidget(Benannt(new QLabel("k-Filter:", mitte), "lblKFilter"), 1, 0);
    felder->addWidget(txtKFilter_, 1, 1);
    felder->addWidget(
        Benannt(new UpDown(mitte, [this](int n) { Sicher([this, n] { KFilterSchritt(n > 0 ? 1 : -1); })(); }), "UpDown1"),
        1, 2);
    felder->addWidget(Benannt(new QLabel("Exponent bis:", mitte), "lblBisPrim"), 2, 0);
    felder->addWidget(txtBisPrim_, 2, 1);
    felder->addWidget(Benannt(new QLabel("Exponent ab:", mitte), "lblPotenz"), 3, 0);
    felder->addWidget(txtPotenz_, 3, 1);
    lay->addLayout(felder);

    auto* optionen = new QHBoxLayout;
    auto* fraModulo = Benannt(new QGroupBox("q mod 8", mitte), "fraModulo");
    auto* fraGrenze = Benannt(new QGroupBox("Breite", mitte), "fraGrenze");
    auto* mlay = new QVBoxLayout(fraModulo);
    auto* glay = new QVBoxLayout(fraGrenze);
    const char* modulo[3] = {"1 und 7", "1", "7"};
    const char* grenze[3] = {"Long", "Decimal", "Hyp"};
    for (int i = 0; i < 3; ++i) {
        optModulo_[i] = Benannt(new QRadioButton(modulo[i], fraModulo), "optModulo", i);
        mlay->addWidget(optModulo_[i]);
        optGrenze_[i] = Benannt(new QRadioButton(grenze[i], fraGrenze), "optGrenze", i);
        glay->addWidget(optGrenze_[i]);
    }
    optModulo_[0]->setChecked(true);
    optGrenze_[0]->setChecked(true);
    optionen->addWidget(fraModulo);
    optionen->addWidget(fraGrenze);
    auto* haken = new QVBoxLayout;
    chkSpezial_ = Benannt(new QCheckBox("Nur Teiler von 2^(Exponent bis)-1", mitte), "chkSpezial");
    chkKleineFaktoren_ = Benannt(new QCheckBox("Kleine Faktoren", mitte), "chkKleineFaktoren");
    chkDB_ = Benannt(new QCheckBox("In die Datenbank eintragen", mitte), "chkDB");
    chkOhneFrage_ = Benannt(new QCheckBox("Ohne Rückfrage eintragen", mitte), "chkOhneFrage");
    for (QCheckBox* c : {chkSpezial_, chkKleineFaktoren_, chkDB_, chkOhneFrage_}) haken->addWidget(c);
    optionen->addLayout(haken, 1);
    lay->addLayout(optionen);

    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lay->addWidget(List1_, 1);
    auto* status = new QHBoxLayout;
    lblStatus_ = Benannt(new QLabel(mitte), "lblStatus");
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    lblSpeed_ = Benannt(new QLabel(mitte), "lblSpeed");
    status->addWidget(lblStatus_, 1);
    status->addWidget(lblFortschritt_);
    status->addWidget(lblSpeed_);
    lay->addLayout(status);
    lblZeit_ = Benannt(new QLabel(mitte), "lblZeit");
    lay->addWidget(lblZeit_);
    btnGO_ = Benannt(new QPushButton("OK", mitte), "btnGO");
    lay->addLayout(KnopfReihe({btnGO_}));
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Starten(); }));
    connect(chkSpezial_, &QCheckBox::toggled, this, [this] { spezialUmschalten(); });
    resize(560, 560);
    IconsAufbauen("T");
    FensterLaden(q(AktivesFenster));
    spezialUmschalten();
}

void frmTeilerAnalyse::spezialUmschalten() {
    // One exponent fixes the q to 2kp + 1: the class mod 8 is then the walk's own choice.
    for (QRadioButton* o : optModulo_) o->setEnabled(!chkSpezial_->isChecked());
}

void frmTeilerAnalyse::KFilterSchritt(int richtung) {
    if (Laeuft()) return;
    const auto f = ZahlEingabe(txtKFilter_, "k-Filter", Decimal(0), Decimal(kKFilterMax));
    if (!f) return;
    int64_t wert = std::max<int64_t>(f->AlsInt64(), 1);
    if (richtung > 0 && wert < kKFilterMax) wert *= 2;
    if (richtung < 0 && wert > 1) wert /= 2;
    txtKFilter_->setText(q(ZahlFormat(Decimal(wert))));
}

void frmTeilerAnalyse::Starten() {
    lblSpeed_->clear();
    std::string caption = btnGO_->text().toStdString();
    const bool stoppen = StartStopUmschalten(caption, "OK");
    btnGO_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    // However the click ends (a refusal or an error too), the button is back at rest: a
    // refused start must not leave "Stop" behind for the next click to count as a stop.
    struct Ruhe {
        frmTeilerAnalyse* w;
        ~Ruhe() { w->btnGO_->setText("OK"); }
    } ruhe{this};
    // Every width takes its exponents and the q it can decide from the raster.
    if (!PrimaerRasterVorhanden()) return;
    const auto f = ZahlEingabe(txtKFilter_, "k-Filter", Decimal(0), Decimal(kKFilterMax));
    if (!f) return;
    const int64_t fWert = f->AlsInt64();
    if (fWert > 1 && (fWert & (fWert - 1)) != 0) {
        MsgInfo(1801);
        return;
    }
    const auto bisPrim = ZahlEingabe(txtBisPrim_, "Exponent bis", Decimal(1), Decimal(GrenzeLong));
    if (!bisPrim) return;
    txtBisPrim_->setText(q(ZahlFormat(*bisPrim)));
    const auto potenz = ZahlEingabe(txtPotenz_, "Exponent ab", Decimal(0), Decimal(GrenzeLong));
    if (!potenz) return;
    TeilerAnalyseAuftrag a;
    // Text that is no number is read as a formula, so "abc" gets the evaluator's message
    // instead of silently starting from 0.
    a.start = Hyp2Text(Formel2Hyp(PrimTestEingabe(txtZahl_->text().toStdString())));
    a.kFilter = f->Text();
    a.bisPrim = bisPrim->AlsInt64();
    a.potenz = int32_t(potenz->AlsInt64());
    for (int i = 0; i < 3; ++i) {
        if (optModulo_[i]->isChecked()) a.modulo = i;
        if (optGrenze_[i]->isChecked()) a.breite = TeilerBreite(i);
    }
    a.spezial = chkSpezial_->isChecked();
    a.kleineFaktoren = chkKleineFaktoren_->isChecked();
    a.db = chkDB_->isChecked();
    if (a.db && !chkOhneFrage_->isChecked() &&
        MsgFrage(1803) != AntwortJa)
        return;
    TeilerAnalyse analyse(a, *this);
    breite_ = a.breite;
    List1_->clear();
    csv_.clear();
    Faktor = NewCount = NewFaktor = 0;
    lblFortschritt_->setText("0");
    lblStatus_->setText(q(Text(121)));
    lblZeit_->clear();
    start_ = Timer();
    von_ = a.start.size() < 20 ? Decimal::ausText(a.start) : Decimal(0);
    bis_ = std::min(Decimal(GrenzeLong), PrimaerGrenze);
    const Lauf lauf(*this);
    StoppUhrStart(windowTitle().toStdString());
    analyse.Laufen();
    StoppUhrStop();
}

void frmTeilerAnalyse::Stand(const std::string& zahl, int32_t takt) {
    lblSpeed_->setText(QString::number(takt));
    // The newest hit is selected here, at the walk's turns, not per hit: selecting lays out
    // the whole list, and per hit that cost more than the walk itself.
    if (List1_->count() > 0) List1_->setCurrentRow(List1_->count() - 1);
    // The Hyp width shows q as the display of large numbers, the others grouped.
    txtZahl_->setText(q(breite_ == TeilerBreite::Hyp ? ZiffernAnzeige(zahl) : ZahlFormat(zahl)));
    // The word walk ends at the raster's end: its share passed gives the remaining time.
    if (breite_ == TeilerBreite::Long && zahl.size() < 20)
        lblZeit_->setText(q(ZeitTextGross(start_, Decimal::ausText(zahl), von_, bis_)));
}

void frmTeilerAnalyse::Treffer(const std::string& zahl, int32_t e, const std::string& k, bool prim) {
    csv_ << q(zahl + ";" + std::to_string(e) + ";" + k + ";" + (prim ? "1" : "0"));
}

std::optional<QStringList> frmTeilerAnalyse::ListenCsv() {
    if (csv_.isEmpty()) return std::nullopt;
    return QStringList{"q;p;k;prim"} + csv_;
}

int32_t frmTeilerAnalyse::ListeAnzahl() const { return List1_->count(); }

void frmTeilerAnalyse::ListeLeeren() {
    List1_->clear();
    csv_.clear();
}

void frmTeilerAnalyse::ListeHinzufuegen(const std::string& eintrag) { List1_->addItem(q(eintrag)); }

void frmTeilerAnalyse::StatusSetzen(const std::string& text) { lblStatus_->setText(q(text)); }
void frmTeilerAnalyse::FortschrittSetzen(const std::string& text) { lblFortschritt_->setText(q(text)); }
bool frmTeilerAnalyse::DbEintragen() const { return chkDB_->isChecked(); }

}  // namespace sw
