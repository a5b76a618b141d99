#include "windows/frmMersenneStatus.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

#include "db/PgVerbindung.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/ArbeitSchlange.h"
#include "mersenne/basDB.h"
#include "sieve/RasterTabellen.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmStatusAnalyseMersenne.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

constexpr int kSchlangeTaktMs = 5000;

// The shared queue lives beside the Mersenne table: on the server of the option page, when
// that names one.
std::string schlangenAdresse() { return IstPgUrl(DbOrtEingabe()) ? DbOrtEingabe() : ""; }

std::string dauerText(double s) {
    if (s < 0) return Text(2344);
    if (s < 120) return TextP1(2345, static_cast<long long>(s + 0.5));
    if (s < 7200) return TextP1(2346, static_cast<long long>(s / 60 + 0.5));
    return TextP1(2347, static_cast<long long>(s / 3600 + 0.5));
}

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
    schlangeUrl_ = schlangenAdresse();
    // "&" would mark a shortcut in a group box title; addresses with parameters have it.
    grpSchlange_ = Benannt(
        new QGroupBox(q(TextP1(2340, UrlOhnePasswort(schlangeUrl_))).replace('&', "&&"), mitte), "grpSchlange");
    auto* schlange = new QVBoxLayout(grpSchlange_);
    lblSchlange_ = Benannt(new QLabel(grpSchlange_), "lblSchlange");
    lblSchlange_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    schlange->addWidget(lblSchlange_);
    tblWorker_ = Benannt(new QTableWidget(grpSchlange_), "tblWorker");
    QStringList kopf;
    for (int k : {2348, 2349, 2350, 2351, 2352, 2353}) kopf << q(Text(k));
    tblWorker_->setColumnCount(int(kopf.size()));
    tblWorker_->setHorizontalHeaderLabels(kopf);
    tblWorker_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tblWorker_->verticalHeader()->hide();
    tblWorker_->horizontalHeader()->setStretchLastSection(true);
    tblWorker_->setMaximumHeight(140);  // the bars keep the most room
    schlange->addWidget(tblWorker_);
    lay->addWidget(grpSchlange_);
    grpSchlange_->setVisible(!schlangeUrl_.empty());
    schlangeTakt_ = new QTimer(this);
    connect(schlangeTakt_, &QTimer::timeout, this, Sicher([this] { SchlangeLesen(); }));
    if (!schlangeUrl_.empty()) {
        schlangeTakt_->start(kSchlangeTaktMs);
        QTimer::singleShot(0, this, Sicher([this] { SchlangeLesen(); }));
    }
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

void frmMersenneStatus::SchlangeLesen() {
    ArbeitStand s;
    try {
        PgVerbindung v(schlangeUrl_);
        ArbeitSchemaAnlegen(v);  // a queue not filled yet reads as empty, not as an error
        s = ArbeitStandLesen(v);
    } catch (const Laufzeitfehler& e) {
        lblSchlange_->setText(q(TextP1(2354, e.what())));
        return;
    }
    QStringList zeilen;
    zeilen << q(TextP1P2(2341, ZahlFormat(static_cast<long long>(s.offen)), ZahlFormat(static_cast<long long>(s.beansprucht))) +
                ", " +
                TextP1P2(2342, ZahlFormat(static_cast<long long>(s.fertig)), ZahlFormat(static_cast<long long>(s.treffer))));
    zeilen << q(TextP1P2(2343, ZahlFormat(static_cast<long long>(s.einheitenJeStunde + 0.5)), dauerText(s.restSekunden)));
    for (const ArbeitStand::Anspruch& a : s.ansprueche) {
        zeilen << q(TextP1P2(2355, std::to_string(a.id) + " " + a.art + " " + a.bereich, a.worker) +
                    (a.leaseRest < 0 ? " " + Text(2356) : ""));
    }
    lblSchlange_->setText(zeilen.join('\n'));
    tblWorker_->setRowCount(int(s.worker.size()));
    for (size_t i = 0; i < s.worker.size(); ++i) {
        const ArbeitStand::Worker& w = s.worker[i];
        const QStringList felder = {q(w.name),
                                    q(ZahlFormat(static_cast<long long>(w.einheiten))),
                                    q(ZahlFormat(static_cast<long long>(w.treffer))),
                                    QString::number(w.einheitenJeStunde, 'f', 1),
                                    QString::number(w.beansprucht),
                                    q(w.zuletzt)};
        for (int k = 0; k < felder.size(); ++k) tblWorker_->setItem(int(i), k, new QTableWidgetItem(felder[k]));
    }
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
