#include "windows/frmULAM.h"

#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>

#include "frame/DateiErsetzen.h"
#include "frame/Fortschritt.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/basSiebwerk.h"
#include "views/RasterVorhanden.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/UpDown.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

constexpr int kZoomMax = 40;

// A whole number of a field, grouping points allowed; standard when the text is none.
long long ganzzahl(const QLineEdit* feld, long long standard) {
    bool ok = false;
    const long long v = feld->text().trimmed().remove('.').toLongLong(&ok);
    return ok ? v : standard;
}

}  // namespace

frmULAM::frmULAM(QWidget* eltern) : Fenster("frmULAM", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    const auto feld = [&](const QString& name, const QString& beschriftung, const QString& wert, int breite) {
        zeile->addWidget(Benannt(new QLabel(beschriftung, mitte), "lbl" + name.mid(3)));
        auto* f = Benannt(new QLineEdit(wert, mitte), name);
        f->setMaximumWidth(breite);
        zeile->addWidget(f);
        return f;
    };
    txtInnenZahl_ = feld("txtInnenZahl", "Mitte:", "1", 160);
    zeile->addWidget(Benannt(new UpDown(mitte,
                                        [this](int n) {
                                            const long long v = std::max(0LL, ganzzahl(txtInnenZahl_, 0) + n);
                                            txtInnenZahl_->setText(QString::number(v));
                                        }),
                             "UpDownZahl"));
    txtX_ = feld("txtX", "X:", "1", 40);
    txtY_ = feld("txtY", "Y:", "1", 40);
    txtDiff_ = feld("txtDiff", "Schritt:", "1", 60);
    txtDiffDiff_ = feld("txtDiffDiff", "Zuwachs:", "0", 60);
    lblZoom_ = Benannt(new QLabel(mitte), "lblZoom");
    zeile->addWidget(lblZoom_);
    zeile->addWidget(Benannt(new UpDown(mitte, [this](int n) { zoomSetzen(UlamZelle_ + n); }), "UpDownZoom"));
    txtGlatt_ = feld("txtGlatt", "Glätten:", "5", 40);
    btnGlatt_ = Benannt(new QPushButton("Glätten", mitte), "btnGlatt");
    btnGO_ = Benannt(new QPushButton("Zeichnen", mitte), "btnGO");
    auto* btnPNG = Benannt(new QPushButton("PNG", mitte), "btnPNG");
    auto* btnCSV = Benannt(new QPushButton("CSV", mitte), "btnCSV");
    for (QPushButton* b : {btnGlatt_, btnGO_, btnPNG, btnCSV}) zeile->addWidget(b);
    zeile->addStretch(1);
    lay->addLayout(zeile);

    auto* zeile2 = new QHBoxLayout;
    lblMax_ = Benannt(new QLabel(mitte), "lblMax");
    lblZelle_ = Benannt(new QLabel(mitte), "lblZelle");
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    zeile2->addWidget(lblMax_, 1);
    zeile2->addWidget(lblZelle_, 1);
    zeile2->addWidget(lblFortschritt_);
    lay->addLayout(zeile2);

    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    picAnzeige_->setMouseTracking(true);
    picAnzeige_->installEventFilter(this);
    picAnzeige_->setMinimumSize(200, 200);
    lay->addWidget(picAnzeige_, 1);
    setCentralWidget(mitte);
    resize(820, 760);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { UlamZeichnen(); }));
    connect(btnGlatt_, &QPushButton::clicked, this, Sicher([this] { UlamGlaetten(); }));
    connect(btnPNG, &QPushButton::clicked, this, Sicher([this] { if (modell_) PngSpeichern(); }));
    connect(btnCSV, &QPushButton::clicked, this, Sicher([this] { if (modell_) CsvSpeichern(UlamCsv(*modell_)); }));
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this](int, int) { Behandeln([this] { darstellen(); }); });

    IconsAufbauen("");  // print, save (the cells as CSV lines), photo, calculator, close
    FensterLaden("Ulam");
    ruheText_ = btnGO_->text();
    zoomSetzen(lblZoom_->text().toInt() > 0 ? lblZoom_->text().toInt() : UlamZelle_);
}

void frmULAM::zoomSetzen(int zelle) {
    UlamZelle_ = std::clamp(zelle, 1, kZoomMax);
    lblZoom_->setText(QString::number(UlamZelle_));
}

void frmULAM::UlamZeichnen() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the walk's yield stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    if (!PrimaerRasterVorhanden()) return;
    UlamEingabe e;
    e.innenZahl = ganzzahl(txtInnenZahl_, -1);
    e.rad = UlamRadText(txtDiff_->text().trimmed().toStdString());
    e.schritt = e.rad ? 0 : ganzzahl(txtDiff_, -1);
    e.zuwachs = ganzzahl(txtDiffDiff_, -1);
    e.seiteX = int32_t(std::clamp(ganzzahl(txtX_, 0), 0LL, 100000LL));
    e.seiteY = int32_t(std::clamp(ganzzahl(txtY_, 0), 0LL, 100000LL));
    e.breite = std::max(1, picAnzeige_->width() / UlamZelle_);
    e.hoehe = std::max(1, picAnzeige_->height() / UlamZelle_);
    try {
        UlamEingabePruefen(e);
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
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
    try {
        modell_ = sw::UlamZeichnen(e, [&](double anteil) {
            lblFortschritt_->setText(q(ZeitText(start, anteil, 0, 1)));
            DoEvents();
            return !Abbruch;
        });
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
        return;
    }
    ansicht_ = UlamZelle_;
    versatz_ = QPoint(0, 0);
    lblMax_->setText(q(TextP1P2(2144, ZahlFormat(Decimal(modell_->letzteZahl)), UlamAnteilText(*modell_))));
    darstellen();
}

void frmULAM::UlamGlaetten() {
    if (!modell_ || Laeuft()) return;
    const long long laenge = ganzzahl(txtGlatt_, 0);
    if (laenge < 1) {
        MsgInfo(2154);
        return;
    }
    sw::UlamGlaetten(*modell_, int32_t(std::min(laenge, 1000000LL)));
    darstellen();
}

// The model is painted pixel by pixel (a million cells cannot afford a painter call each);
// digits go into cells large enough for them.
void frmULAM::darstellen() {
    if (!modell_) return;
    const UlamModell& m = *modell_;
    const int z = ansicht_;
    picAnzeige_->Bearbeiten([&](QImage& bild) {
        bild.fill(Qt::white);
        const int w = bild.width(), h = bild.height();
        const int x0 = std::max(0, -versatz_.x() / z), y0 = std::max(0, -versatz_.y() / z);
        for (int y = y0; y < m.hoehe; ++y) {
            const int py = versatz_.y() + y * z;
            if (py >= h) break;
            for (int x = x0; x < m.breite; ++x) {
                const int px = versatz_.x() + x * z;
                if (px >= w) break;
                const UlamFarbe f = m.farbe[m.index(x, y)];
                if (f == UlamFarbe::Leer || f == UlamFarbe::Weiss) continue;
                const QRgb farbe = 0xFF000000u | UlamRgb(f);
                for (int yy = std::max(py, 0); yy < std::min(py + z, h); ++yy) {
                    auto* zeile = reinterpret_cast<QRgb*>(bild.scanLine(yy));
                    std::fill(zeile + std::max(px, 0), zeile + std::min(px + z, w), farbe);
                }
            }
        }
    });
    if (z < 20) return;
    picAnzeige_->Malen([&](QPainter& p) {
        QFont klein = p.font(), gross = p.font();
        klein.setPointSize(6);
        gross.setPointSize(8);
        for (int y = 0; y < m.hoehe; ++y) {
            for (int x = 0; x < m.breite; ++x) {
                const size_t i = m.index(x, y);
                if (!m.besucht[i] || m.zahl[i] >= 1000) continue;
                const QRect zelle(versatz_.x() + x * z, versatz_.y() + y * z, z, z);
                if (!zelle.intersects(QRect(QPoint(0, 0), picAnzeige_->size()))) continue;
                const UlamFarbe f = m.farbe[i];
                const bool hell = f == UlamFarbe::Gelb || f == UlamFarbe::Leer || f == UlamFarbe::Weiss;
                p.setPen(hell ? Qt::black : Qt::white);
                p.setFont(m.zahl[i] < 100 ? gross : klein);
                p.drawText(zelle.adjusted(1, 1, 0, 0), Qt::AlignLeft | Qt::AlignTop, QString::number(m.zahl[i]));
            }
        }
    });
}

std::optional<QPoint> frmULAM::zelleBei(QPoint p) const {
    if (!modell_) return std::nullopt;
    const QPoint d = p - versatz_;
    if (d.x() < 0 || d.y() < 0) return std::nullopt;
    const QPoint c(d.x() / ansicht_, d.y() / ansicht_);
    if (!modell_->innen(c.x(), c.y()) || !modell_->besucht[modell_->index(c.x(), c.y())]) return std::nullopt;
    return c;
}

QString frmULAM::ZellenText(QPoint p) const {
    const std::optional<QPoint> c = zelleBei(p);
    if (!c) return {};
    const size_t i = modell_->index(c->x(), c->y());
    const uint64_t n = modell_->zahl[i];
    const UlamFarbe f = modell_->farbe[i];
    std::string was;
    if (f == UlamFarbe::Blau || f == UlamFarbe::Schwarz || f == UlamFarbe::Weiss) {
        was = Text(2145);
    } else if (n > 1) {
        was = FaktorenText(Decimal(n));
    }
    return q(ZahlFormat(Decimal(n)) + (was.empty() ? "" : ": " + was));
}

bool frmULAM::eventFilter(QObject* o, QEvent* e) {
    if (o != picAnzeige_ || !modell_ || Laeuft()) return Fenster::eventFilter(o, e);
    switch (e->type()) {
        case QEvent::Wheel: {
            // Zoom about the point under the mouse: that cell stays where it is.
            const auto* r = static_cast<QWheelEvent*>(e);
            const QPoint p = r->position().toPoint();
            const int alt = ansicht_;
            ansicht_ = std::clamp(alt + (r->angleDelta().y() > 0 ? std::max(1, alt / 4) : -std::max(1, alt / 5)), 1, 200);
            versatz_ = p - (p - versatz_) * ansicht_ / alt;
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
                versatz_ += p - *zieh_;
                zieh_ = p;
                Behandeln([this] { darstellen(); });
            }
            Behandeln([&] { lblZelle_->setText(ZellenText(p)); });
            break;
        }
        default:
            break;
    }
    return Fenster::eventFilter(o, e);
}

std::optional<QStringList> frmULAM::ListenText() {
    if (!modell_) return std::nullopt;
    return QString::fromStdString(UlamCsv(*modell_)).split('\n', Qt::SkipEmptyParts);
}

}  // namespace sw
