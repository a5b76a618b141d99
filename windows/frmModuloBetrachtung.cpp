#include "windows/frmModuloBetrachtung.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

#include "distribution/Bereichsgang.h"
#include "frame/Fortschritt.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/basSekundaer.h"
#include "views/RasterVorhanden.h"
#include "windows/Bild.h"
#include "windows/BereichsFortschritt.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// Points of the race curve: more than any picture is wide, so that each column has its own.
constexpr int32_t KurvenPunkte = 2000;


}  // namespace

frmModuloBetrachtung::frmModuloBetrachtung(QWidget* eltern) : Fenster("frmModuloBetrachtung", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    auto feld = [&](const char* name, const char* label, const char* wert, int breite) {
        zeile->addWidget(Benannt(new QLabel(label, mitte), QString("lbl") + (name + 3)));
        auto* f = Benannt(new QLineEdit(wert, mitte), name);
        if (breite) f->setMaximumWidth(breite);
        zeile->addWidget(f);
        return f;
    };
    txtVon_ = feld("txtVon", "Von:", "1", 0);
    txtBis_ = feld("txtBis", "Bis:", "1.000.000", 0);
    txtModul_ = feld("txtModul", "Modul:", "4", 80);
    txtKlasseA_ = feld("txtKlasseA", "Rennen:", "1", 60);
    txtKlasseB_ = feld("txtKlasseB", "gegen", "3", 60);
    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    auto* btnPNG = Benannt(new QPushButton("PNG", mitte), "btnPNG");
    auto* btnCSV = Benannt(new QPushButton("CSV", mitte), "btnCSV");
    for (QPushButton* b : {btnGO_, btnPNG, btnCSV}) zeile->addWidget(b);
    lay->addLayout(zeile);
    lblChi_ = Benannt(new QLabel(mitte), "lblChi");
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    lay->addWidget(lblChi_);
    lay->addWidget(lblFortschritt_);
    auto* unten = new QHBoxLayout;
    List1_ = Benannt(new QListWidget(mitte), "List1");
    lstWechsel_ = Benannt(new QListWidget(mitte), "lstWechsel");
    for (QListWidget* l : {List1_, lstWechsel_}) l->setMaximumWidth(260);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    picAnzeige_->setMinimumSize(300, 200);
    unten->addWidget(List1_);
    unten->addWidget(picAnzeige_, 1);
    unten->addWidget(lstWechsel_);
    lay->addLayout(unten, 1);
    setCentralWidget(mitte);
    resize(1000, 560);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Zaehlen(); }));
    connect(btnPNG, &QPushButton::clicked, this, Sicher([this] { if (ergebnis_) PngSpeichern(); }));
    connect(btnCSV, &QPushButton::clicked, this, Sicher([this] {
                if (auto csv = ListenCsv()) CsvSpeichern(csv->join('\n').toStdString() + "\n");
            }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this](int, int) { Behandeln([this] { darstellen(); }); });
    IconsAufbauen("T");
    FensterLaden("ModuloBetrachtung");
    ruheText_ = btnGO_->text();
}

void frmModuloBetrachtung::Zaehlen() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    if (!PrimaerRasterVorhanden()) return;
    const auto von = ZahlEingabe(txtVon_, "Von", Decimal(0), Decimal(Decimal::Maximum));
    if (!von) return;
    const auto bis = ZahlEingabe(txtBis_, "Bis", *von, Decimal(Decimal::Maximum));
    if (!bis) return;
    const auto modul = ZahlEingabe(txtModul_, "Modul", Decimal(2), Decimal(int64_t(RestklassenModulMax)));
    if (!modul) return;
    // Empty race fields: no race.
    uint64_t a = 0, b = 0;
    if (!txtKlasseA_->text().trimmed().isEmpty() || !txtKlasseB_->text().trimmed().isEmpty()) {
        const auto ka = ZahlEingabe(txtKlasseA_, "Klasse A", Decimal(0), *modul - Decimal(1));
        if (!ka) return;
        const auto kb = ZahlEingabe(txtKlasseB_, "Klasse B", Decimal(0), *modul - Decimal(1));
        if (!kb) return;
        a = uint64_t(ka->AlsInt64());
        b = uint64_t(kb->AlsInt64());
    }
    if (!BereichExakt(*bis)) {
        MsgInfoText(TextP1(2264, ZahlFormat(SekundaerExaktBis())));
        return;
    }
    std::unique_ptr<RestklassenZaehlung> z;
    try {
        z = std::make_unique<RestklassenZaehlung>(uint64_t(modul->AlsInt64()), von->Betrag(), bis->Betrag(), a, b,
                                                  KurvenPunkte);
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
        txtKlasseA_->setFocus();
        return;
    }
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    const auto ruhe = qScopeGuard([this] {
        btnGO_->setText(ruheText_);
        lblFortschritt_->clear();
    });
    BereichsFortschritt stand{lblFortschritt_, Timer(), von->Double(), bis->Double()};
    auto teil = [&](bool primaer) {
        return [&, primaer](Zahl128 x, Zahl128 y) {
            stand.teilVon = double(x);
            stand.teilBis = double(y);
            return primaer ? RestklassenPrimaer(*z, x, y, BereichsFortschrittMelden, &stand) : RestklassenSekundaer(*z, x, y, BereichsFortschrittMelden, &stand);
        };
    };
    const bool ganz = BereichGehen(von->Betrag(), bis->Betrag(), teil(true), teil(false));
    ergebnis_ = std::move(z);
    std::string text = TextP1P2(2147, KommaZahl(ergebnis_->ChiQuadrat(), 2), std::to_string(ergebnis_->Klassen().size() - 1));
    if (!ganz) text += " – " + Text(2265);
    lblChi_->setText(q(text));
    List1_->clear();
    const double gesamt = double(ergebnis_->ImGanzen());
    for (uint64_t r : ergebnis_->Klassen()) {
        const std::string anteil = KommaZahl(gesamt > 0 ? double(ergebnis_->Anzahl(r)) / gesamt : 0, 5);
        List1_->addItem(q(std::to_string(r) + ": " + ZahlFormat(Decimal(ergebnis_->Anzahl(r))) + "  " + anteil));
    }
    List1_->addItem(q("1/φ(m) = " + KommaZahl(1.0 / double(ergebnis_->Klassen().size()), 5)));
    lstWechsel_->clear();
    for (const Fuehrungswechsel& w : ergebnis_->Wechsel()) {
        lstWechsel_->addItem(q(ZahlFormat(Decimal(w.p)) + " → " +
                               std::to_string(w.fuehrung > 0 ? ergebnis_->KlasseA() : ergebnis_->KlasseB())));
    }
    darstellen();
}

// The lead of class A over class B along the range: per column the span of the lead over its
// stretch, so that no swing vanishes; the zero line across.
void frmModuloBetrachtung::darstellen() {
    if (!ergebnis_ || ergebnis_->KlasseA() == ergebnis_->Modul()) {
        picAnzeige_->Leeren();
        return;
    }
    const auto& kurve = ergebnis_->Kurve();
    int64_t groesste = 1;
    for (const RennPunkt& k : kurve) groesste = std::max({groesste, std::abs(k.tief), std::abs(k.hoch)});
    picAnzeige_->Malen([&](QPainter& p) {
        const int w = picAnzeige_->width(), h = picAnzeige_->height();
        p.fillRect(0, 0, w, h, Qt::white);
        const double mitte = h / 2.0, skala = (h / 2.0 - 4) / double(groesste);
        p.setPen(Qt::gray);
        p.drawLine(0, int(mitte), w, int(mitte));
        p.setPen(QColor(0x20, 0x30, 0x80));
        int64_t stand = 0;
        for (int x = 0; x < w; ++x) {
            const size_t i0 = size_t(double(x) * kurve.size() / w), i1 = std::max(i0 + 1, size_t(double(x + 1) * kurve.size() / w));
            int64_t tief = stand, hoch = stand;
            for (size_t i = i0; i < std::min(i1, kurve.size()); ++i) {
                if (!kurve[i].belegt) continue;
                tief = std::min(tief, kurve[i].tief);
                hoch = std::max(hoch, kurve[i].hoch);
                stand = kurve[i].ende;
            }
            p.drawLine(x, int(mitte - hoch * skala), x, int(mitte - tief * skala));
        }
        p.drawText(4, 14, QString("+%1 (%2)").arg(groesste).arg(ergebnis_->KlasseA()));
        p.drawText(4, h - 4, QString("-%1 (%2)").arg(groesste).arg(ergebnis_->KlasseB()));
    });
}

std::optional<QStringList> frmModuloBetrachtung::ListenCsv() {
    if (!ergebnis_) return std::nullopt;
    QStringList zeilen{"class;count"};
    for (uint64_t r : ergebnis_->Klassen()) zeilen << QString("%1;%2").arg(r).arg(ergebnis_->Anzahl(r));
    zeilen << "" << "lead change at;leader";
    for (const Fuehrungswechsel& w : ergebnis_->Wechsel()) {
        zeilen << q(Decimal(w.p).Text()) + ";" +
                      QString::number(w.fuehrung > 0 ? ergebnis_->KlasseA() : ergebnis_->KlasseB());
    }
    return zeilen;
}

}  // namespace sw
