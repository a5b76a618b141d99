#include "windows/frmMersenneStatus.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmStatusAnalyseMersenne.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

std::vector<frmMersenneStatus*>& offen() {
    static std::vector<frmMersenneStatus*> fenster;
    return fenster;
}

}  // namespace

frmMersenneStatus::frmMersenneStatus(QWidget* eltern) : Fenster("frmMersenneStatus", eltern) {
    setWindowFlag(Qt::Window);
    if (eltern != nullptr) {
        if (auto* potenz = Steuer<QLineEdit>(eltern, "txtPotenz")) {
            // A field that holds no exponent leaves segment 0; the opener reports its own input.
            double p = 0;
            if (IstNumerisch(ZahlBereinigt(potenz->text().toStdString()), &p) && p >= 0 && p <= GrenzeLong) {
                segment_ = DbSegment(int64_t(p));
            }
        }
    }
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Skala:", mitte), "lblSkala"));
    txtSkala_ = Benannt(new QLineEdit("1.000.000", mitte), "txtSkala");
    zeile->addWidget(txtSkala_, 1);
    auto* btnGO = Benannt(new QPushButton("Zeichnen", mitte), "btnGO");
    auto* btnKlassen = Benannt(new QPushButton("Klassen", mitte), "btnKlassen");
    zeile->addWidget(btnGO);
    zeile->addWidget(btnKlassen);
    lay->addLayout(zeile);
    lblGesamt_ = Benannt(new QLabel(mitte), "lblGesamt");
    lay->addWidget(lblGesamt_);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    lay->addWidget(picAnzeige_, 1);
    setCentralWidget(mitte);
    connect(btnGO, &QPushButton::clicked, this, Sicher([this] { Zeichnen(); }));
    connect(txtSkala_, &QLineEdit::returnPressed, this, Sicher([this] { Zeichnen(); }));
    connect(btnKlassen, &QPushButton::clicked, this, Sicher([this] {
                auto* w = new frmStatusAnalyseMersenne(von_, std::max(bis_, von_ + 1) - 1, this);
                w->setAttribute(Qt::WA_DeleteOnClose);
                w->ShowMe(-1);
            }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this] { malen(); });
    resize(800, 450);
    // The common icons only: save the chart or list (.CSV, .TXT), the picture (PNG), print.
    IconsAufbauen("T");
    FensterLaden(QString::fromStdString(AktivesFenster));
    offen().push_back(this);
}

frmMersenneStatus::~frmMersenneStatus() { std::erase(offen(), this); }

void frmMersenneStatus::ShowMe(int) {
    show();
    // The bars come once the window stands, so that an error box has a window to belong to.
    QTimer::singleShot(0, this, Sicher([this] { Zeichnen(); }));
}

void frmMersenneStatus::Zeichnen() {
    const auto skala = ZahlEingabe(txtSkala_, "Skala", Decimal(1), Decimal(MersenneDbSegment));
    if (!skala) return;
    skala_ = skala->AlsInt64();
    // The segment as far as the raster counts its primes.
    von_ = int64_t(segment_) * MersenneDbSegment;
    bis_ = std::min<int64_t>(von_ + MersenneDbSegment, PrimaerGrenze.AlsInt64() + 1);
    // A segment wholly beyond the raster: the count refuses it with the raster's end.
    if (bis_ <= von_) bis_ = von_ + MersenneDbSegment;
    strecken_.clear();
    malen();
    strecken_ = StatusStrecken(von_, bis_, skala_);
    malen();
}

void frmMersenneStatus::NewTeiler(int32_t p) {
    if (p < von_ || p >= bis_ || strecken_.empty()) return;
    ++strecken_[size_t((p - von_) / skala_)].erledigt;
    malen();
}

void frmMersenneStatus::TeilerGefunden(int32_t p) {
    for (frmMersenneStatus* w : offen()) w->NewTeiler(p);
}

void frmMersenneStatus::malen() {
    diagramm_ = {};
    diagramm_.titel = q("[" + ZahlFormat(static_cast<long long>(von_)) + ", " + ZahlFormat(static_cast<long long>(bis_)) + ")");
    diagramm_.hoechstwert = 100;
    diagramm_.einheit = "%";
    diagramm_.csvKopf = {"Von", "Bis", "Primzahlen", "Erledigt", "Anteil"};
    int64_t primzahlen = 0, erledigt = 0;
    for (const StatusStrecke& s : strecken_) {
        primzahlen += s.primzahlen;
        erledigt += s.erledigt;
        Saeule b;
        b.beschriftung = q(ZahlFormat(static_cast<long long>(s.von)));
        b.wert = s.primzahlen ? 100.0 * double(s.erledigt) / double(s.primzahlen) : 0;
        b.text = q(AnteilText(s.erledigt, s.primzahlen));
        b.csv = {QString::number(s.von), QString::number(s.bis - 1), QString::number(s.primzahlen),
                 QString::number(s.erledigt), b.text};
        diagramm_.saeulen.push_back(b);
    }
    lblGesamt_->setText(strecken_.empty() ? QString()
                                          : q(ZahlFormat(static_cast<long long>(erledigt)) + " / " + ZahlFormat(static_cast<long long>(primzahlen)) + "   " +
                                              AnteilText(erledigt, primzahlen)));
    SaeulenZeichnen(*picAnzeige_, diagramm_);
}

std::optional<QStringList> frmMersenneStatus::ListenText() {
    if (strecken_.empty()) return std::nullopt;
    return SaeulenText(diagramm_);
}

std::optional<QStringList> frmMersenneStatus::ListenCsv() {
    if (strecken_.empty()) return std::nullopt;
    return SaeulenCsv(diagramm_);
}

}  // namespace sw
