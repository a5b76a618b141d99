#include "windows/frmGoldbachStd.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "views/RasterVorhanden.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
std::string s(const QString& t) { return t.toStdString(); }

// The comet's bands come from the small odd divisors of n (the singular factor): multiples of
// 3, of 5 and of 15 each get their colour, so that the bands can be told apart.
QRgb farbe(uint64_t n) {
    if (n % 15 == 0) return 0xFFB00000;
    if (n % 3 == 0) return 0xFFE08000;
    if (n % 5 == 0) return 0xFF008000;
    return 0xFF2040A0;
}

}  // namespace

frmGoldbachStd::frmGoldbachStd(QWidget* eltern) : Fenster("frmGoldbachStd", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("n:", mitte), "lblStart"));
    txtStart_ = Benannt(new QLineEdit("100", mitte), "txtStart");
    btnGO_ = Benannt(new QPushButton("Zerlegen", mitte), "btnGO");
    btnGO_->setDefault(true);
    btnAnzahl_ = Benannt(new QPushButton("r(n)", mitte), "btnAnzahl");
    zeile->addWidget(txtStart_, 1);
    zeile->addWidget(btnGO_);
    zeile->addWidget(btnAnzahl_);
    lay->addLayout(zeile);

    auto* schritte = new QGridLayout;
    for (int i = 0; i < 8; ++i) {
        btnNext_[i] = Benannt(new QPushButton(mitte), "btnNext", i);
        schritte->addWidget(btnNext_[i], i / 4, i % 4);
        connect(btnNext_[i], &QPushButton::clicked, this, Sicher([this, i] { Naechster(i); }));
    }
    lay->addLayout(schritte);
    lblAnzahl_ = Benannt(new QLabel(mitte), "lblAnzahl");
    lblAnzahl_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lay->addWidget(lblAnzahl_);

    auto* kometZeile = new QHBoxLayout;
    txtVon_ = Benannt(new QLineEdit("4", mitte), "txtVon");
    txtBis_ = Benannt(new QLineEdit("100000", mitte), "txtBis");
    btnKomet_ = Benannt(new QPushButton("Komet", mitte), "btnKomet");
    auto* btnPNG = Benannt(new QPushButton("PNG", mitte), "btnPNG");
    auto* btnCSV = Benannt(new QPushButton("CSV", mitte), "btnCSV");
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    kometZeile->addWidget(Benannt(new QLabel("Von:", mitte), "lblVon"));
    kometZeile->addWidget(txtVon_, 1);
    kometZeile->addWidget(Benannt(new QLabel("Bis:", mitte), "lblBis"));
    kometZeile->addWidget(txtBis_, 1);
    for (QPushButton* b : {btnKomet_, btnPNG, btnCSV}) kometZeile->addWidget(b);
    kometZeile->addWidget(lblFortschritt_, 1);
    lay->addLayout(kometZeile);

    ansicht_ = new QStackedWidget(mitte);
    liste_ = Benannt(new QListWidget(ansicht_), "List1");
    picAnzeige_ = Benannt(new Bild(ansicht_), "picAnzeige");
    picAnzeige_->setMinimumSize(300, 200);
    ansicht_->addWidget(liste_);
    ansicht_->addWidget(picAnzeige_);
    lay->addWidget(ansicht_, 1);
    setCentralWidget(mitte);
    resize(640, 560);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Zerlegen(); }));
    connect(txtStart_, &QLineEdit::returnPressed, this, Sicher([this] { Zerlegen(); }));
    connect(btnAnzahl_, &QPushButton::clicked, this, Sicher([this] { Zaehlen(); }));
    connect(btnKomet_, &QPushButton::clicked, this, Sicher([this] { Komet(); }));
    connect(btnPNG, &QPushButton::clicked, this, Sicher([this] { if (komet_) PngSpeichern(); }));
    connect(btnCSV, &QPushButton::clicked, this,
            Sicher([this] { if (komet_) CsvSpeichern(GoldbachKometCsv(*komet_)); }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this](int, int) { Behandeln([this] { kometZeichnen(); }); });

    IconsAufbauen("T");
    FensterLaden("Goldbach");
    liste_->clear();
    ruheText_ = btnKomet_->text();
}

void frmGoldbachStd::knoepfeFreigeben(bool an) {
    btnGO_->setEnabled(an);
    for (QPushButton* b : btnNext_) b->setEnabled(an);
}

void frmGoldbachStd::Zerlegen() {
    if (!PrimaerRasterVorhanden()) return;
    const int64_t n = GoldbachZahl(s(txtStart_->text()));
    if (!GoldbachPruefen(n)) return;
    knoepfeFreigeben(false);
    const auto frei = qScopeGuard([this] { knoepfeFreigeben(true); });
    const std::vector<std::string> zeilen = GoldbachZerlegen(n);
    liste_->clear();
    for (const std::string& z : zeilen) liste_->addItem(q(z));
    ansicht_->setCurrentWidget(liste_);
}

void frmGoldbachStd::Naechster(int index) {
    if (!PrimaerRasterVorhanden()) return;
    const int64_t neu = GoldbachSchritt(index, GoldbachZahl(s(txtStart_->text())));
    if (!GoldbachPruefen(neu)) return;
    txtStart_->setText(QString::number(neu));
    Zerlegen();
}

void frmGoldbachStd::Zaehlen() {
    if (!PrimaerRasterVorhanden()) return;
    const int64_t n = GoldbachZahl(s(txtStart_->text()));
    if (!GoldbachPruefen(n)) return;
    const uint64_t r = GoldbachAnzahl(uint64_t(n));
    const double schaetzung = GoldbachSchaetzung(uint64_t(n));
    char wert[32], abweichung[32];
    std::snprintf(wert, sizeof wert, "%.1f", schaetzung);
    std::snprintf(abweichung, sizeof abweichung, "%+.2f", r ? 100 * (schaetzung / double(r) - 1) : 0.0);
    lblAnzahl_->setText(q(TextP1P2(2200, ZahlFormat(static_cast<long long>(n)), ZahlFormat(static_cast<long long>(r))) +
                          "; " + TextP1P2(2201, wert, abweichung)));
}

void frmGoldbachStd::Komet() {
    std::string caption = s(btnKomet_->text());
    if (Laeuft()) {  // the click that arrives through the count's yield stops it
        StartStopUmschalten(caption, s(ruheText_));
        btnKomet_->setText(q(caption));
        return;
    }
    if (!PrimaerRasterVorhanden()) return;
    const int64_t von = GoldbachZahl(s(txtVon_->text())), bis = GoldbachZahl(s(txtBis_->text()));
    if (!GoldbachKometPruefen(von, bis)) return;
    if (StartStopUmschalten(caption, s(ruheText_))) return;
    btnKomet_->setText(q(caption));
    const Lauf lauf(*this);
    const auto ruhe = qScopeGuard([this] {
        btnKomet_->setText(ruheText_);
        lblFortschritt_->clear();
    });
    const double start = Timer();
    komet_ = GoldbachKometZaehlen(uint64_t(von), uint64_t(bis), [&](double anteil) {
        lblFortschritt_->setText(q(ZeitText(start, anteil, 0, 1)));
        DoEvents();
        return !Abbruch;
    });
    const GoldbachKomet& k = *komet_;
    const uint64_t hoechstes = k.anzahl.empty() ? 0 : *std::max_element(k.anzahl.begin(), k.anzahl.end());
    std::string text = TextP1P2(2202, ZahlFormat(static_cast<long long>(k.anzahl.size())),
                                ZahlFormat(static_cast<long long>(hoechstes)));
    if (!k.vollstaendig)
        text += " – " + TextP1(2204, ZahlFormat(static_cast<long long>(k.von + 2 * (k.anzahl.size() - 1))));
    lblAnzahl_->setText(q(text));
    ansicht_->setCurrentWidget(picAnzeige_);
    kometZeichnen();
}

// One point per even n; with more n than columns the points of a column stack up, which is
// what shows the comet's bands.
void frmGoldbachStd::kometZeichnen() {
    if (!komet_ || komet_->anzahl.empty()) return;
    const GoldbachKomet& k = *komet_;
    const uint64_t hoechstes = std::max<uint64_t>(1, *std::max_element(k.anzahl.begin(), k.anzahl.end()));
    picAnzeige_->Bearbeiten([&](QImage& bild) {
        bild.fill(Qt::white);
        const int w = bild.width(), h = bild.height();
        if (w < 2 || h < 2) return;
        const double spalten = double(std::max<size_t>(k.anzahl.size() - 1, 1));
        for (size_t i = 0; i < k.anzahl.size(); ++i) {
            const int x = int(double(i) * (w - 1) / spalten);
            const int y = h - 1 - int(k.anzahl[i] * uint64_t(h - 1) / hoechstes);
            reinterpret_cast<QRgb*>(bild.scanLine(y))[x] = farbe(k.von + 2 * i);
        }
    });
}

void frmGoldbachStd::IconFensterAktion(const QString& tag) {
    if (tag != "Table") return;
    ansicht_->setCurrentIndex(ansicht_->currentWidget() == liste_ ? ansicht_->indexOf(picAnzeige_) : ansicht_->indexOf(liste_));
}

}  // namespace sw
