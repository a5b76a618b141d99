#include "windows/frmStatistikMersenne.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

frmStatistikMersenne::frmStatistikMersenne(QWidget* eltern) : Fenster("frmStatistikMersenne", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QHBoxLayout(mitte);
    auto* links = new QVBoxLayout;
    auto* felder = new QFormLayout;
    txtVon_ = Benannt(new QLineEdit("3", mitte), "txtVon");
    txtBis_ = Benannt(new QLineEdit("10.000.000", mitte), "txtBis");
    txtStep_ = Benannt(new QLineEdit("1.000.000", mitte), "txtStep");
    txtMinFaktor_ = Benannt(new QLineEdit("0", mitte), "txtMinFaktor");
    felder->addRow(Benannt(new QLabel("Von:", mitte), "lblVon"), txtVon_);
    felder->addRow(Benannt(new QLabel("Bis:", mitte), "lblBis"), txtBis_);
    felder->addRow(Benannt(new QLabel("Schritt:", mitte), "lblStep"), txtStep_);
    felder->addRow(Benannt(new QLabel("k bis:", mitte), "lblMinFaktor"), txtMinFaktor_);
    links->addLayout(felder);
    auto* fraFaktoren = Benannt(new QGroupBox("Faktoren", mitte), "fraFaktoren");
    auto* flay = new QVBoxLayout(fraFaktoren);
    const char* const namen[] = {"Alle", "k = 0 mod 4", "k = 1 mod 4", "k = 3 mod 4"};
    for (int i = 0; i < 4; ++i) {
        optFaktoren_[size_t(i)] = Benannt(new QRadioButton(namen[i], fraFaktoren), "optFaktoren", i);
        flay->addWidget(optFaktoren_[size_t(i)]);
    }
    optFaktoren_[0]->setChecked(true);
    links->addWidget(fraFaktoren);
    auto* btnGo = Benannt(new QPushButton("Zeichnen", mitte), "btnGo");
    links->addWidget(btnGo);
    ProgressBar1_ = Benannt(new QProgressBar(mitte), "ProgressBar1");
    links->addWidget(ProgressBar1_);
    links->addStretch();
    lay->addLayout(links);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    lay->addWidget(picAnzeige_, 1);
    setCentralWidget(mitte);
    connect(btnGo, &QPushButton::clicked, this, Sicher([this] { Zeichnen(); }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this] { SaeulenZeichnen(*picAnzeige_, diagramm_); });
    resize(860, 420);
    // The common icons only: save the chart or list (.CSV, .TXT), the picture (PNG), print.
    IconsAufbauen("T");
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmStatistikMersenne::Zeichnen() {
    const auto von = ZahlEingabe(txtVon_, "Von", Decimal(0), Decimal(GrenzeLong));
    if (!von) return;
    const auto bis = ZahlEingabe(txtBis_, "Bis", Decimal(0), Decimal(GrenzeLong));
    if (!bis) return;
    const auto schritt = ZahlEingabe(txtStep_, "Schritt", Decimal(1), Decimal(GrenzeLong));
    if (!schritt) return;
    const auto kMax = ZahlEingabe(txtMinFaktor_, "k bis", Decimal(0), Decimal(int64_t(1) << 62));
    if (!kMax) return;
    int modus = 0;
    for (int i = 0; i < 4; ++i) {
        if (optFaktoren_[size_t(i)]->isChecked()) modus = i;
    }
    ProgressBar1_->setValue(0);
    diagramm_ = {};
    SaeulenZeichnen(*picAnzeige_, diagramm_);
    const std::vector<KSchritt> schritte = KStatistik(von->AlsInt64(), bis->AlsInt64(), schritt->AlsInt64(), kMax->AlsInt64());
    diagramm_.titel = optFaktoren_[size_t(modus)]->text();
    diagramm_.einheit = "%";
    diagramm_.csvKopf = {"Von", "Bis", "Primzahlen", "Zeilen", "Anteil"};
    static constexpr int klasse[] = {-1, 0, 1, 3};  // the options' k classes; -1: every row
    for (size_t i = 0; i < schritte.size(); ++i) {
        const KSchritt& s = schritte[i];
        const int64_t zeilen = klasse[modus] < 0 ? s.alle : s.klasse[klasse[modus]];
        Saeule b;
        b.beschriftung = q(ZahlFormat(static_cast<long long>(s.von)));
        b.wert = s.primzahlen ? 100.0 * double(zeilen) / double(s.primzahlen) : 0;
        b.text = q(ZahlFormat(static_cast<long long>(zeilen)));
        b.csv = {QString::number(s.von), QString::number(s.bis), QString::number(s.primzahlen), QString::number(zeilen),
                 q(AnteilText(zeilen, s.primzahlen))};
        diagramm_.saeulen.push_back(b);
        ProgressBar1_->setValue(int(100 * (i + 1) / schritte.size()));
    }
    SaeulenZeichnen(*picAnzeige_, diagramm_);
}

std::optional<QStringList> frmStatistikMersenne::ListenText() {
    if (diagramm_.saeulen.empty()) return std::nullopt;
    return SaeulenText(diagramm_);
}

std::optional<QStringList> frmStatistikMersenne::ListenCsv() {
    if (diagramm_.saeulen.empty()) return std::nullopt;
    return SaeulenCsv(diagramm_);
}

}  // namespace sw
