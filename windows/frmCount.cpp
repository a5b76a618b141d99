#include "windows/frmCount.h"

#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <cmath>
#include <cstdio>

#include "distribution/Bereichsgang.h"
#include "distribution/Schaetzung.h"
#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/basSekundaer.h"
#include "views/RasterVorhanden.h"
#include "windows/BereichsFortschritt.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
std::string zahl(Zahl128 v) { return ZahlFormat(Decimal(v)); }


}  // namespace

frmCount::frmCount(QWidget* eltern) : Fenster("frmCount", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Von:", mitte), "lblVon"));
    txtVon_ = Benannt(new QLineEdit("1", mitte), "txtVon");
    zeile->addWidget(txtVon_);
    zeile->addWidget(Benannt(new QLabel("Bis:", mitte), "lblBis"));
    txtBis_ = Benannt(new QLineEdit("1.000.000.000", mitte), "txtBis");
    zeile->addWidget(txtBis_);
    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    auto* btnCSV = Benannt(new QPushButton("CSV", mitte), "btnCSV");
    zeile->addWidget(btnGO_);
    zeile->addWidget(btnCSV);
    lay->addLayout(zeile);
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    lay->addWidget(lblFortschritt_);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setFont(QFont("Monospace"));
    lay->addWidget(List1_, 1);
    setCentralWidget(mitte);
    resize(900, 500);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Zaehlen(); }));
    connect(btnCSV, &QPushButton::clicked, this, Sicher([this] {
                if (auto csv = ListenCsv()) CsvSpeichern(csv->join('\n').toStdString() + "\n");
            }));
    IconsAufbauen("T");
    FensterLaden("Count");
    ruheText_ = btnGO_->text();
}

void frmCount::Zaehlen() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the walk's yield stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    if (!PrimaerRasterVorhanden()) return;
    const auto von = ZahlEingabe(txtVon_, "Von", Decimal(0), Decimal::Maximum);
    if (!von) return;
    const auto bis = ZahlEingabe(txtBis_, "Bis", *von, Decimal::Maximum);
    if (!bis) return;
    if (!BereichExakt(*bis)) {
        MsgInfoText(TextP1(2264, ZahlFormat(SekundaerExaktBis())));
        return;
    }
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    const auto ruhe = qScopeGuard([this] {
        btnGO_->setText(ruheText_);
        lblFortschritt_->clear();
    });
    ergebnis_.emplace(von->Betrag(), bis->Betrag());
    BereichsFortschritt stand{lblFortschritt_, Timer(), von->Double(), bis->Double()};
    auto teil = [&](bool primaer) {
        return [&, primaer](Zahl128 a, Zahl128 b) {
            stand.teilVon = double(a);
            stand.teilBis = double(b);
            return primaer ? TupelPrimaerZaehlen(*ergebnis_, a, b, BereichsFortschrittMelden, &stand)
                           : TupelSekundaerZaehlen(*ergebnis_, a, b, BereichsFortschrittMelden, &stand);
        };
    };
    vollstaendig_ = BereichGehen(von->Betrag(), bis->Betrag(), teil(true), teil(false));
    ergebnis_->Abschliessen();
    darstellen();
}

void frmCount::darstellen() {
    List1_->clear();
    if (!ergebnis_) return;
    const TupelZaehlung& z = *ergebnis_;
    const TupelAnzahl n = z.Gesamt();
    const double a = double(z.Von()), b = double(z.Bis());
    char zeile[200];
    if (!vollstaendig_) List1_->addItem(q(Text(2265)));
    List1_->addItem(q(SektionsText("Kopf").toStdString()));
    for (int32_t k = 0; k < TupelArten; ++k) {
        const double e = TupelSchaetzung(k, a, b);
        std::snprintf(zeile, sizeof zeile, "%-22s %16s %18s %8s", SektionsText(QString("Art%1").arg(k)).toUtf8().constData(),
                      ZahlFormat(Decimal(n[k])).c_str(), ZahlFormat(static_cast<long long>(std::llround(e))).c_str(),
                      KommaZahl(e > 0 ? double(n[k]) / e : 0.0, 4).c_str());
        List1_->addItem(q(zeile));
    }
    if (b >= 2) {
        const double r = RiemannR(b) - (a <= 2 ? 0 : RiemannR(a - 1));
        std::snprintf(zeile, sizeof zeile, "%-22s %16s %18s", "R(x)", "", ZahlFormat(static_cast<long long>(std::llround(r))).c_str());
        List1_->addItem(q(zeile));
    }
    List1_->addItem("");
    List1_->addItem(SektionsText("KopfDekaden"));
    for (size_t i = 0; i < z.Dekaden().size(); ++i) {
        std::string t = zahl(z.DekadenAnfang(i)) + " – " +
                        zahl(i + 1 < z.Dekaden().size() ? z.DekadenAnfang(i + 1) - 1 : z.Bis()) + ":";
        for (int32_t k = 0; k < TupelArten; ++k) t += " " + ZahlFormat(Decimal(z.Dekaden()[i][k]));
        List1_->addItem(q(t));
    }
}

std::optional<QStringList> frmCount::ListenCsv() {
    if (!ergebnis_) return std::nullopt;
    const TupelZaehlung& z = *ergebnis_;
    QStringList zeilen;
    QString kopf = "from;to";
    for (int32_t k = 0; k < TupelArten; ++k) kopf += QString(";") + TupelName(k);
    zeilen << kopf;
    for (size_t i = 0; i < z.Dekaden().size(); ++i) {
        QString t = q(Decimal(z.DekadenAnfang(i)).Text()) + ";" +
                    q(Decimal(i + 1 < z.Dekaden().size() ? z.DekadenAnfang(i + 1) - 1 : z.Bis()).Text());
        for (int32_t k = 0; k < TupelArten; ++k) t += ";" + QString::number(qulonglong(z.Dekaden()[i][k]));
        zeilen << t;
    }
    return zeilen;
}

}  // namespace sw
