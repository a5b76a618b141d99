#include "windows/frmMersenneAnalyse.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneStatistik.h"
#include "sieve/RasterTabellen.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

template <size_t N>
QGroupBox* optionen(QWidget* eltern, const char* rahmen, const char* titel, const char* name,
                    const std::array<const char*, N>& texte, std::array<QRadioButton*, N>& knoepfe) {
    auto* box = Benannt(new QGroupBox(titel, eltern), rahmen);
    auto* lay = new QHBoxLayout(box);
    for (size_t i = 0; i < N; ++i) {
        knoepfe[i] = Benannt(new QRadioButton(texte[i], box), name, int(i));
        lay->addWidget(knoepfe[i]);
    }
    knoepfe[0]->setChecked(true);
    return box;
}

QString binaer(int32_t wert, int bits) {
    return QString::number(wert, 2).rightJustified(bits, '0');
}

}  // namespace

frmMersenneAnalyse::frmMersenneAnalyse(QWidget* eltern) : Fenster("frmMersenneAnalyse", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QHBoxLayout(mitte);
    auto* links = new QVBoxLayout;
    auto* felder = new QFormLayout;
    txtStart_ = Benannt(new QLineEdit("3", mitte), "txtStart");
    txtEnde_ = Benannt(new QLineEdit("1.000.000", mitte), "txtEnde");
    txtMod_ = Benannt(new QLineEdit("8", mitte), "txtMod");
    txtPMod_ = Benannt(new QLineEdit("4", mitte), "txtPMod");
    felder->addRow(Benannt(new QLabel("Beginn der Analyse bei P =", mitte), "lblStart"), txtStart_);
    felder->addRow(Benannt(new QLabel("Ende bei", mitte), "lblEnde"), txtEnde_);
    felder->addRow(Benannt(new QLabel("Modulo", mitte), "lblMod"), txtMod_);
    felder->addRow(Benannt(new QLabel("P Mod", mitte), "lblPMod"), txtPMod_);
    links->addLayout(felder);
    links->addWidget(optionen<2>(mitte, "fraUntersuche", "Untersuche", "optUntersuche", {"Teiler", "k"}, optUntersuche_));
    links->addWidget(
        optionen<2>(mitte, "fraAnalysiere", "Analysiere", "optAnalysiere", {"Bitstruktur", "Modulo"}, optAnalysiere_));
    links->addWidget(
        optionen<4>(mitte, "fraBits", "Anzahl Bits untersuchen", "optBits", {"2", "3", "4", "5"}, optBits_));
    auto* btnGO = Benannt(new QPushButton("Analysieren", mitte), "btnGO");
    links->addWidget(btnGO);
    pgrBar_ = Benannt(new QProgressBar(mitte), "pgrBar");
    links->addWidget(pgrBar_);
    links->addStretch();
    lay->addLayout(links);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    lay->addWidget(picAnzeige_, 1);
    setCentralWidget(mitte);
    connect(btnGO, &QPushButton::clicked, this, Sicher([this] { Analysieren(); }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this] { SaeulenZeichnen(*picAnzeige_, diagramm_); });
    resize(900, 460);
    // The common icons only: save the chart or list (.CSV, .TXT), the picture (PNG), print.
    IconsAufbauen("T");
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmMersenneAnalyse::Analysieren() {
    const auto start = ZahlEingabe(txtStart_, "Beginn", Decimal(0), Decimal(GrenzeLong));
    if (!start) return;
    const auto ende = ZahlEingabe(txtEnde_, "Ende", Decimal(0), Decimal(GrenzeLong));
    if (!ende) return;
    if (*start >= *ende) {
        MsgInfo(1872);
        return;
    }
    const bool bits = optAnalysiere_[0]->isChecked();
    int anzahlBits = 2;
    for (int i = 0; i < 4; ++i) {
        if (optBits_[size_t(i)]->isChecked()) anzahlBits = 2 + i;
    }
    int32_t modulus = int32_t(1) << anzahlBits, pModulus = 1;
    if (!bits) {
        const auto m = ZahlEingabe(txtMod_, "Modulo", Decimal(1), Decimal(1 << 20));
        if (!m) return;
        const auto pm = ZahlEingabe(txtPMod_, "P Mod", Decimal(1), Decimal(1 << 10));
        if (!pm) return;
        modulus = int32_t(m->AlsInt64());
        pModulus = int32_t(pm->AlsInt64());
    }
    const bool k = optUntersuche_[1]->isChecked();
    pgrBar_->setValue(0);
    const RestTabelle t =
        RestAnalyse(start->AlsInt64(), ende->AlsInt64(), k ? AnalyseWert::K : AnalyseWert::Teiler, modulus, pModulus);
    pgrBar_->setValue(100);
    diagramm_ = {};
    diagramm_.titel = QString::fromStdString(std::string(k ? "k" : "q") + ": " +
                                             ZahlFormat(static_cast<long long>(t.zeilen)) + " Exponenten, " +
                                             ZahlFormat(static_cast<long long>(t.uebersprungen)) +
                                             " mit mehreren Teilern übergangen");
    diagramm_.csvKopf = {"P Rest", "Rest", "Anzahl"};
    for (int32_t pr = 0; pr < t.pModulus; ++pr) {
        for (int32_t r = 0; r < t.modulus; ++r) {
            Saeule s;
            const QString rest = bits ? binaer(r, anzahlBits) : QString::number(r);
            s.beschriftung = t.pModulus > 1 ? QStringLiteral("%1:%2").arg(pr).arg(rest) : rest;
            s.wert = double(t.at(pr, r));
            s.text = QString::fromStdString(ZahlFormat(static_cast<long long>(t.at(pr, r))));
            s.csv = {QString::number(pr), rest, QString::number(t.at(pr, r))};
            diagramm_.saeulen.push_back(s);
        }
    }
    SaeulenZeichnen(*picAnzeige_, diagramm_);
}

std::optional<QStringList> frmMersenneAnalyse::ListenText() {
    if (diagramm_.saeulen.empty()) return std::nullopt;
    return SaeulenText(diagramm_);
}

std::optional<QStringList> frmMersenneAnalyse::ListenCsv() {
    if (diagramm_.saeulen.empty()) return std::nullopt;
    return SaeulenCsv(diagramm_);
}

}  // namespace sw
