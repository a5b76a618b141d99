#include "windows/frmAnalysePrimMersenne.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneStatistik.h"
#include "sieve/RasterTabellen.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/UpDown.h"

namespace sw {

namespace {
constexpr int kModulHoechstens = 1000;  // classes a list can still show
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

frmAnalysePrimMersenne::frmAnalysePrimMersenne(QWidget* eltern) : Fenster("frmAnalysePrimMersenne", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* felder = new QFormLayout;
    const char* const namen[] = {"txtMod", "txtMod2", "txtMod3"};
    const char* const vorgaben[] = {"4", "3", "8"};
    for (int i = 0; i < 3; ++i) {
        auto* zeile = new QHBoxLayout;
        QLineEdit* feld = txtMod_[size_t(i)] = Benannt(new QLineEdit(vorgaben[i], mitte), namen[i]);
        zeile->addWidget(feld, 1);
        zeile->addWidget(Benannt(new UpDown(mitte,
                                            [feld](int n) {
                                                const int m = std::clamp(feld->text().toInt() + n, 1, kModulHoechstens);
                                                feld->setText(QString::number(m));
                                            }),
                                 "UpDown", i + 1));
        felder->addRow(Benannt(new QLabel(QStringLiteral("Modulo %1").arg(i + 1), mitte), "lblMod", i + 1), zeile);
    }
    lay->addLayout(felder);
    auto* btnGO = Benannt(new QPushButton("Analysieren", mitte), "btnGO");
    lay->addLayout(KnopfReihe({btnGO}));
    List1_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(List1_, 1);
    setCentralWidget(mitte);
    connect(btnGO, &QPushButton::clicked, this, Sicher([this] { Analysieren(); }));
    resize(620, 520);
    // The common icons only: save the chart or list (.CSV, .TXT), the picture (PNG), print.
    IconsAufbauen("T");
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmAnalysePrimMersenne::Analysieren() {
    std::vector<int32_t> moduln;
    for (int i = 0; i < 3; ++i) {
        const auto m = ZahlEingabe(txtMod_[size_t(i)], QStringLiteral("Modulo %1").arg(i + 1), Decimal(1),
                                   Decimal(kModulHoechstens));
        if (!m) return;
        moduln.push_back(int32_t(m->AlsInt64()));
    }
    // Every exponent the raster can count primes for.
    const int64_t bis = std::min<int64_t>(PrimaerGrenze.AlsInt64(), GrenzeLong);
    List1_->clear();
    const std::vector<PrimKlasse> klassen = PrimKlassen(2, bis, moduln);
    List1_->addItem(q("2 .. " + ZahlFormat(static_cast<long long>(bis))));
    for (const PrimKlasse& k : klassen) {
        const std::string zeile = "p = " + std::to_string(k.rest) + " mod " + std::to_string(k.modulus) + ":  " +
                                  ZahlFormat(static_cast<long long>(k.primzahlen)) + " Primzahlen, " + ZahlFormat(static_cast<long long>(k.geteilt)) + " mit Teiler " +
                                  (k.primzahlen ? "(" + AnteilText(k.geteilt, k.primzahlen) + ")" : "") + ", " +
                                  ZahlFormat(static_cast<long long>(k.mersennePrim)) + " Mersenne-Primzahlen";
        auto* eintrag = new QListWidgetItem(q(zeile), List1_);
        eintrag->setData(CsvRolle, QStringLiteral("%1;%2;%3;%4;%5")
                                       .arg(k.modulus)
                                       .arg(k.rest)
                                       .arg(k.primzahlen)
                                       .arg(k.geteilt)
                                       .arg(k.mersennePrim));
    }
}

std::optional<QStringList> frmAnalysePrimMersenne::ListenCsv() {
    return CsvAusListe(List1_, "Modul;Rest;Primzahlen;MitTeiler;MersennePrimzahlen");
}

}  // namespace sw
