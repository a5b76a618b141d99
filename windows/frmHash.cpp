#include "windows/frmHash.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

#include "frame/DateiErsetzen.h"
#include "frame/Fortschritt.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
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

constexpr QRgb kBalken = 0xFF203080;

}  // namespace

frmHash::frmHash(QWidget* eltern) : Fenster("frmHash", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Bits:", mitte), "lblTxtBits"));
    txtBits_ = Benannt(new QLineEdit("16", mitte), "txtBits");
    txtBits_->setMaximumWidth(40);
    zeile->addWidget(txtBits_);
    const char* const methoden[3] = {"Bit-Faltung (Add)", "Bit-Faltung (Add) mit Mod30", "Bit-Faltung (Xor)"};
    for (int i = 0; i < 3; ++i) {
        optMethode_[i] = Benannt(new QRadioButton(methoden[i], mitte), "optMethode", i);
        zeile->addWidget(optMethode_[i]);
    }
    optMethode_[0]->setChecked(true);
    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    auto* btnPNG = Benannt(new QPushButton("PNG", mitte), "btnPNG");
    auto* btnCSV = Benannt(new QPushButton("CSV", mitte), "btnCSV");
    for (QPushButton* b : {btnGO_, btnPNG, btnCSV}) zeile->addWidget(b);
    zeile->addStretch(1);
    lay->addLayout(zeile);

    auto* zeile2 = new QHBoxLayout;
    lblHash_ = Benannt(new QLabel(mitte), "lblHash");
    lblAnzahl_ = Benannt(new QLabel(mitte), "lblAnzahl");
    lblBits_ = Benannt(new QLabel(mitte), "lblBits");
    lblChi_ = Benannt(new QLabel(mitte), "lblChi");
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    for (QLabel* l : {lblHash_, lblAnzahl_, lblBits_, lblChi_}) zeile2->addWidget(l, 1);
    zeile2->addWidget(lblFortschritt_);
    lay->addLayout(zeile2);

    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    picAnzeige_->setMouseTracking(true);
    picAnzeige_->installEventFilter(this);
    picAnzeige_->setMinimumSize(300, 200);
    lay->addWidget(picAnzeige_, 1);
    setCentralWidget(mitte);
    resize(800, 500);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { HashZaehlen(); }));
    connect(txtBits_, &QLineEdit::returnPressed, this, Sicher([this] { HashZaehlen(); }));
    connect(btnPNG, &QPushButton::clicked, this, Sicher([this] { if (ergebnis_) PngSpeichern(); }));
    connect(btnCSV, &QPushButton::clicked, this, Sicher([this] { if (ergebnis_) CsvSpeichern(HashCsv(*ergebnis_)); }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this](int, int) { Behandeln([this] { darstellen(); }); });

    IconsAufbauen("");  // print, save (the buckets as CSV lines), photo, calculator, close
    FensterLaden("Hash");
    ruheText_ = btnGO_->text();
}

void frmHash::HashZaehlen() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the walk's yield stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    if (!PrimaerRasterVorhanden()) return;
    bool ok = false;
    const int32_t bits = txtBits_->text().trimmed().toInt(&ok);
    int32_t methode = 0;
    for (int i = 0; i < 3; ++i)
        if (optMethode_[i]->isChecked()) methode = i;
    try {
        HashPruefen(ok ? bits : 0, methode);
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
        txtBits_->setFocus();
        return;
    }
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    const auto ruhe = qScopeGuard([this] {
        btnGO_->setText(ruheText_);
        lblFortschritt_->clear();
    });
    StoppUhrStart(windowTitle().toStdString());
    const auto uhr = qScopeGuard([] {
        if (StoppUhr.laeuft) StoppUhrStop();
    });
    const double start = Timer();
    ergebnis_ = HashVerteilung(bits, methode, HashHoechstGrenze, [&](double anteil) {
        lblFortschritt_->setText(q(ZeitText(start, anteil, 0, 1)));
        DoEvents();
        return !Abbruch;
    });
    erster_ = 0;
    sichtbar_ = double(ergebnis_->HashTabelle.size());
    const ChiQuadrat chi = HashChiQuadrat(*ergebnis_);
    char zahl[40];
    std::snprintf(zahl, sizeof zahl, "%.2f", chi.wert);
    std::string text = TextP1P2(2146, ZahlFormat(Decimal(ergebnis_->anzahl)), ZahlFormat(Decimal(ergebnis_->erreicht)));
    if (!ergebnis_->vollstaendig) text += " – " + TextP1(2153, ZahlFormat(Decimal(ergebnis_->erreicht)));
    std::string chiText = TextP1P2(2147, zahl, std::to_string(chi.freiheitsgrade));
    std::snprintf(zahl, sizeof zahl, "%.4g", chi.p);
    lblChi_->setText(q(text + "; " + chiText + ", " + TextP1(2148, zahl)));
    darstellen();
}

// One column per pixel: the fullest bucket under it sets its height, so that no single
// bucket vanishes when there are more buckets than pixels.
void frmHash::darstellen() {
    if (!ergebnis_) return;
    const HashErgebnis& e = *ergebnis_;
    const int64_t anzahl = int64_t(e.HashTabelle.size());
    picAnzeige_->Bearbeiten([&](QImage& bild) {
        bild.fill(Qt::white);
        const int w = bild.width(), h = bild.height();
        if (e.HashMaximum <= 0) return;
        const double jePixel = sichtbar_ / w;
        for (int x = 0; x < w; ++x) {
            const int64_t von = int64_t(std::floor(erster_ + x * jePixel));
            const int64_t bis = std::max(von + 1, int64_t(std::floor(erster_ + (x + 1) * jePixel)));
            int32_t hoechster = -1;
            for (int64_t b = std::max<int64_t>(von, 0); b < std::min(bis, anzahl); ++b)
                hoechster = std::max(hoechster, e.HashTabelle[size_t(b)]);
            if (hoechster < 0) continue;
            const int hoehe = int(int64_t(hoechster) * (h - 1) / e.HashMaximum);
            for (int y = h - hoehe; y < h; ++y) reinterpret_cast<QRgb*>(bild.scanLine(y))[x] = kBalken;
        }
    });
}

int64_t frmHash::EimerBei(int x) const {
    if (!ergebnis_ || picAnzeige_->width() <= 0) return -1;
    const int64_t b = int64_t(std::floor(erster_ + x * sichtbar_ / picAnzeige_->width()));
    return b >= 0 && b < int64_t(ergebnis_->HashTabelle.size()) ? b : -1;
}

void frmHash::ablesen(int x) {
    const int64_t b = EimerBei(x);
    if (b < 0) return;
    std::string binaer;
    for (int k = ergebnis_->HashBits; k >= 0; --k) {
        if (k == ergebnis_->HashBits && ((b >> k) & 1) == 0) continue;  // only the extra cell has bit b
        binaer += char('0' + ((b >> k) & 1));
    }
    lblHash_->setText(q(TextP1(2149, ZahlFormat(Decimal(b)))));
    lblBits_->setText(q(binaer));
    lblAnzahl_->setText(q(ZahlFormat(Decimal(ergebnis_->HashTabelle[size_t(b)]))));
}

bool frmHash::eventFilter(QObject* o, QEvent* e) {
    if (o != picAnzeige_ || !ergebnis_ || Laeuft()) return Fenster::eventFilter(o, e);
    const double w = std::max(1, picAnzeige_->width());
    switch (e->type()) {
        case QEvent::Wheel: {
            // Zoom about the bucket under the mouse: it stays where it is.
            const auto* r = static_cast<QWheelEvent*>(e);
            const double x = r->position().x();
            const double unter = erster_ + x * sichtbar_ / w;
            sichtbar_ = std::clamp(sichtbar_ * (r->angleDelta().y() > 0 ? 0.8 : 1.25), 4.0,
                                   double(ergebnis_->HashTabelle.size()));
            erster_ = unter - x * sichtbar_ / w;
            Behandeln([this] { darstellen(); });
            return true;
        }
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton)
                zieh_ = static_cast<QMouseEvent*>(e)->position().toPoint();
            break;
        case QEvent::MouseButtonRelease:
            zieh_.reset();
            break;
        case QEvent::MouseMove: {
            const QPoint p = static_cast<QMouseEvent*>(e)->position().toPoint();
            if (zieh_) {
                erster_ -= (p.x() - zieh_->x()) * sichtbar_ / w;
                zieh_ = p;
                Behandeln([this] { darstellen(); });
            }
            Behandeln([&] { ablesen(p.x()); });
            break;
        }
        default:
            break;
    }
    return Fenster::eventFilter(o, e);
}

std::optional<QStringList> frmHash::ListenText() {
    if (!ergebnis_) return std::nullopt;
    return QString::fromStdString(HashCsv(*ergebnis_)).split('\n', Qt::SkipEmptyParts);
}

}  // namespace sw
