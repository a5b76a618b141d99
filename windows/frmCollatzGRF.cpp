#include "windows/frmCollatzGRF.h"

#include <QCheckBox>
#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScopeGuard>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

#include "arith/HypText.h"
#include "frame/Meldungen.h"
#include "frame/StoppUhr.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
std::string s(const QLineEdit* f) { return f->text().toStdString(); }

// The default colours of lblCol: background, columns, bands, scale, hover text.
constexpr QRgb kFarben[5] = {0xFFFFFF, 0x0000C0, 0xE8E8F0, 0x000000, 0x800000};

// The text whose height sets the head room of the labels and the hover strip.
const QString kMuster = QStringLiteral("i.m=3.4");

}  // namespace

frmCollatzGRF::frmCollatzGRF(QWidget* eltern) : Fenster("frmCollatzGRF", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    const auto feld = [&](QHBoxLayout* z, const QString& name, const QString& beschriftung, const QString& wert,
                          int breite) {
        if (!beschriftung.isEmpty()) z->addWidget(Benannt(new QLabel(beschriftung, mitte), "lbl" + name.mid(3)));
        auto* f = Benannt(new QLineEdit(wert, mitte), name);
        f->setMaximumWidth(breite);
        z->addWidget(f);
        return f;
    };
    const auto kasten = [&](QHBoxLayout* z, const QString& name, const QString& text) {
        auto* c = Benannt(new QCheckBox(text, mitte), name);
        z->addWidget(c);
        return c;
    };
    auto* zeile1 = new QHBoxLayout;
    txtVon_ = feld(zeile1, "txtVon", "Von:", "1", 220);
    zeile1->addWidget(Benannt(new QLabel("+", mitte), "lblPlusMinus"));
    txtPlus_ = feld(zeile1, "txtPlus", "", "1", 80);
    txtZahlenBreite_ = feld(zeile1, "txtZahlenBreite", "Breite:", "1", 40);
    txtLinienHoehe_ = feld(zeile1, "txtLinienHöhe", "Linie:", "3", 40);
    txtLinienAbstand_ = feld(zeile1, "txtLinienAbstand", "Abstand:", "1", 40);
    chkGrafMaxi_ = kasten(zeile1, "chkGrafMaxi", "Maximal");
    txtFixMin_ = feld(zeile1, "txtFixMin", "Min:", "0", 50);
    chkOhneGrenze_ = kasten(zeile1, "chkOhneGrenze", "Über 2^59");
    zeile1->addStretch(1);
    lay->addLayout(zeile1);

    auto* zeile2 = new QHBoxLayout;
    chkBereiche_ = kasten(zeile2, "chkBereiche", "Bereiche");
    chkSkala_ = kasten(zeile2, "chkSkala", "Skala");
    chkSkala_->setChecked(true);
    chkKurz_ = kasten(zeile2, "chkKurz", "Kurz");
    txtFormatBreite_ = feld(zeile2, "txtFormatBreite", "Zeichen:", "0", 50);
    txtMouseDiff_ = feld(zeile2, "txtMouseDiff", "Sprung:", "1", 50);
    chkMausHipp_ = kasten(zeile2, "chkMausHipp", "Maus springt");
    txtNav_ = feld(zeile2, "txtNav", "Navigation:", "", 200);
    const QStyle::StandardPixmap navBild[3] = {QStyle::SP_ArrowDown, QStyle::SP_MediaSeekForward,
                                               QStyle::SP_MediaSkipForward};  // Nav3, Nav4, Nav5
    for (int i = 0; i < 3; ++i) {
        imgNavi_[i] = Benannt(new QToolButton(mitte), "imgNavi", i);
        imgNavi_[i]->setIcon(style()->standardIcon(navBild[i]));
        imgNavi_[i]->setContextMenuPolicy(Qt::CustomContextMenu);
        zeile2->addWidget(imgNavi_[i]);
        connect(imgNavi_[i], &QToolButton::clicked, this, Sicher([this, i] { DistanzGehen(i, true); }));
        connect(imgNavi_[i], &QToolButton::customContextMenuRequested, this,
                Sicher([this, i] { DistanzGehen(i, false); }));
    }
    btnGO_ = Benannt(new QPushButton("Zeichnen", mitte), "btnGO");
    zeile2->addWidget(btnGO_);
    lblProzent_ = Benannt(new QLabel(mitte), "lblProzent");
    lblProzent_->setMinimumWidth(110);
    zeile2->addWidget(lblProzent_);
    zeile2->addStretch(1);
    for (int i = 0; i < 5; ++i) {
        lblCol_[i] = FarbFeld(mitte, i, kFarben[i], this);
        zeile2->addWidget(lblCol_[i]);
    }
    lay->addLayout(zeile2);

    auto* flaeche = new QHBoxLayout;
    flaeche->setSpacing(0);
    picSkala_ = Benannt(new Bild(mitte), "picSkala");
    picSkala_->setFixedWidth(50);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    picAnzeige_->setMouseTracking(true);
    picAnzeige_->setFocusPolicy(Qt::ClickFocus);  // the arrow keys then move the hover
    picAnzeige_->installEventFilter(this);
    flaeche->addWidget(picSkala_);
    flaeche->addWidget(picAnzeige_, 1);
    lay->addLayout(flaeche, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Zeichnen(); }));
    connect(txtVon_, &QLineEdit::returnPressed, this, Sicher([this] { Zeichnen(); }));
    // A new size shows another number of columns and lines; the drawing follows it, and the
    // hover, which restores the picture it covered, never works on a picture of another size.
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this](int, int) {
        if (g_.Flag && !Laeuft()) Behandeln([this] { zeichnen(false); });
    });
    for (QLineEdit* f : {txtVon_, txtPlus_, txtNav_, txtLinienAbstand_})
        connect(f, &QLineEdit::textEdited, this, [this] { geaendert_ = true; });
    resize(1100, 700);
    FensterLaden(QString::fromStdString(AktivesFenster), "NT");
    ruheText_ = btnGO_->text();
}

QColor frmCollatzGRF::farbe(int index) const { return FarbeQt(HintergrundFarbe(lblCol_[index])); }

int frmCollatzGRF::kopfHoehe() const { return QFontMetrics(picAnzeige_->font()).height() + 7; }

bool frmCollatzGRF::laufStoppen() {
    // A fill of starts beyond 2^59 walks big numbers and yields; whatever the user asks for
    // meanwhile first ends it, since a second fill would share the walk's number.
    if (!Laeuft()) return false;
    Abbruch = true;
    return true;
}

void frmCollatzGRF::showEvent(QShowEvent* e) {
    Fenster::showEvent(e);
    if (erstmals_) {
        erstmals_ = false;
        QTimer::singleShot(0, this, Sicher([this] { zeichnen(true); }));
    }
}

void frmCollatzGRF::Zeichnen() {
    if (laufStoppen()) return;
    if (geaendert_) {
        // New inputs start a new picture: the largest step count kept while navigating and
        // the scrolled lines belong to the old one.
        g_.MaxWert = 0;
        g_.Verschiebung = 0;
        geaendert_ = false;
    }
    zeichnen(true);
}

void frmCollatzGRF::zeichnen(bool lesen) {
    if (lesen) {
        g_.OhneGrenze = chkOhneGrenze_->isChecked();
        if (!GrafikLesen(g_, s(txtVon_), s(txtPlus_), s(txtZahlenBreite_), s(txtLinienHoehe_), s(txtLinienAbstand_),
                         s(txtFixMin_))) {
            MsgInfo(453);
            return;
        }
    }
    const bool maximal = chkGrafMaxi_->isChecked();
    if (maximal != g_.Maximal) g_.MaxWert = 0;  // the other mode gathers its maximum differently
    g_.Maximal = maximal;
    const Lauf lauf(*this);
    Abbruch = false;
    btnGO_->setText("Stop");
    const auto ruhe = qScopeGuard([this] { btnGO_->setText(ruheText_); });
    StoppUhrStart(windowTitle().toStdString());
    const auto uhr = qScopeGuard([] {
        if (StoppUhr.laeuft) StoppUhrStop();
    });
    GrafikFuellen(g_, picAnzeige_->width());
    g_.Flag = true;
    bildMalen();
}

void GrafikSpaltenMalen(QImage& bild, const CollatzGrafik& g, int kopf, bool bereiche, const QColor& saeule,
                        const QColor& band) {
    const int breite = bild.width(), hoehe = bild.height();
    const int zb = g.ZahlenBreite, strich = std::max(g.LinienHoehe, 1);
    QPainter p(&bild);
    if (!g.Maximal) {
        const GrafikLinien l = NormalLinien(g, hoehe, kopf);
        if (bereiche)
            for (int32_t v = l.erste; v <= l.letzte; ++v) p.fillRect(0, NormalZeile(g, v, hoehe), breite, strich, band);
        for (size_t i = 0; i < g.Werte.size(); ++i) {
            const int32_t v = g.Werte[i];
            if (v >= l.erste && v <= l.letzte) p.fillRect(int(i) * zb, NormalZeile(g, v, hoehe), zb, strich, saeule);
        }
        return;
    }
    if (bereiche) {
        // Bands of ten step counts, every other one shaded.
        for (int32_t v = g.MinWert - g.MinWert % 10; v <= g.MaxWert; v += 20) {
            const int unten = MaximalZeile(g, v, hoehe), oben = MaximalZeile(g, v + 10, hoehe);
            p.fillRect(0, oben, breite, unten - oben, band);
        }
    }
    for (size_t i = 0; i < g.Werte.size(); ++i) {
        const int32_t v = g.Werte[i];
        if (v >= g.MinWert) p.fillRect(int(i) * zb, MaximalZeile(g, v, hoehe) - strich, zb, strich, saeule);
    }
}

void frmCollatzGRF::bildMalen() {
    picAnzeige_->HintergrundSetzen(farbe(0));
    picAnzeige_->Bearbeiten([&](QImage& bild) {
        GrafikSpaltenMalen(bild, g_, kopfHoehe(), chkBereiche_->isChecked(), farbe(1), farbe(2));
    });
    skalaMalen(picAnzeige_->height(), kopfHoehe());
    sauber_ = picAnzeige_->Abbild();
    hoverIndex_ = -1;
}

void frmCollatzGRF::skalaMalen(int hoehe, int kopf) {
    picSkala_->setVisible(chkSkala_->isChecked());
    picSkala_->HintergrundSetzen(farbe(0));
    if (!chkSkala_->isChecked()) return;
    const QColor schrift = farbe(3);
    const int th = picSkala_->TextHoehe();
    const auto beschriften = [&](int32_t v, int mitteY) {
        const QString t = QString::number(v);
        // The lowest label sits on the foot rather than half below it.
        const int y = std::min(mitteY - th / 2, picSkala_->height() - th);
        picSkala_->Text(picSkala_->width() - picSkala_->TextBreite(t) - 4, y, t, schrift);
    };
    if (g_.Maximal) {
        for (int pos = 0; pos < hoehe - th; pos += 2 * th) beschriften(MaximalSkalenWert(g_, pos, hoehe), hoehe - pos);
        return;
    }
    // Every line gets its label while they are far enough apart; closer lines are labelled
    // every k-th, so that no two labels overlap.
    const GrafikLinien l = NormalLinien(g_, hoehe, kopf);
    const int abstand = g_.LinienHoehe + g_.LinienAbstand;
    const int32_t jede = std::max(1, (th + abstand - 1) / abstand);
    for (int32_t v = l.erste; v <= l.letzte; v += jede)
        beschriften(v, NormalZeile(g_, v, hoehe) + std::max(g_.LinienHoehe, 1) / 2);
}

void frmCollatzGRF::Hover(int x) {
    // The hover walks the shared number; a running fill must not be disturbed.
    if (Laeuft() || sauber_.isNull()) return;
    const std::optional<GrafikHover> h = GrafikHoverText(g_, x, chkKurz_->isChecked());
    if (!h) return;
    hoverIndex_ = h->index;
    const int zb = g_.ZahlenBreite;
    const int32_t v = g_.Werte[size_t(h->index)];
    const std::vector<std::string> zeilen = GrafikHoverZeilen(h->text, txtFormatBreite_->text().trimmed().toInt());
    const QColor hinten = farbe(0), schrift = farbe(4);
    picAnzeige_->Bearbeiten([&](QImage& bild) {
        if (bild.size() == sauber_.size()) bild = sauber_.copy();
        QPainter p(&bild);
        // The text strip at the head; rows beyond the picture are left out.
        const QFontMetrics fm(p.font());
        const int zeile = fm.height();
        const int anzahl = std::min<int>(int(zeilen.size()), std::max(1, bild.height() / zeile));
        p.fillRect(0, 0, bild.width(), anzahl * zeile + 4, hinten);
        p.setPen(schrift);
        for (int i = 0; i < anzahl; ++i) p.drawText(2, 2 + i * zeile + fm.ascent(), q(zeilen[size_t(i)]));
        // Marker and cross by xor: visible on every colour, and drawing them again removes them.
        p.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        p.setPen(QColor(0xFFFFFF));
        const int mx = int(h->index) * zb + zb / 2;
        p.drawLine(mx, anzahl * zeile + 4, mx, bild.height());
        if (!g_.Maximal) {
            const GrafikLinien l = NormalLinien(g_, bild.height(), kopfHoehe());
            if (v >= l.erste && v <= l.letzte) {
                const int y = NormalZeile(g_, v, bild.height()) + std::max(g_.LinienHoehe, 1) / 2;
                p.drawLine(mx - 6, y, mx - 1, y);
                p.drawLine(mx + 1, y, mx + 6, y);
            }
        }
    });
    lblProzent_->setText(q(h->prozent));
}

void frmCollatzGRF::HoverSchieben(int richtung) {
    if (hoverIndex_ < 0 || g_.Werte.empty()) return;
    const int64_t sprung = std::max(1, txtMouseDiff_->text().trimmed().toInt());
    const int64_t index = std::clamp<int64_t>(hoverIndex_ + richtung * sprung, 0, int64_t(g_.Werte.size()) - 1);
    const int x = int(index) * g_.ZahlenBreite;
    Hover(x);
    if (chkMausHipp_->isChecked()) {
        // Where the platform lets a program place the pointer, it follows the hover; where it
        // does not (Wayland), the keys alone move the hover.
        const QPoint ziel = picAnzeige_->mapToGlobal(QPoint(x + g_.ZahlenBreite / 2, picAnzeige_->mapFromGlobal(QCursor::pos()).y()));
        QCursor::setPos(ziel);
    }
}

void frmCollatzGRF::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Left || e->key() == Qt::Key_Right) {
        Behandeln([&] { HoverSchieben(e->key() == Qt::Key_Right ? 1 : -1); });
        return;
    }
    Fenster::keyPressEvent(e);
}

void frmCollatzGRF::Navigieren(int code) {
    if (laufStoppen()) return;
    const int zeilen = (picAnzeige_->height() - kopfHoehe()) / std::max(1, g_.LinienHoehe + g_.LinienAbstand);
    const Mpz neu = GrafikNavigation(g_, code, s(txtNav_), zeilen);
    // Grouped but never shortened: the field must give back the very number.
    txtVon_->setText(q(ZiffernGruppieren(Hyp2Text(MpzZuHyp(neu.get())))));
    zeichnen(true);
}

void frmCollatzGRF::DistanzGehen(int nummer, bool vor) {
    if (laufStoppen()) return;
    const Mpz neu = GrafikVerschieben(g_.Von, GrafikDistanz(g_, s(txtNav_), nummer), vor);
    txtVon_->setText(q(ZiffernGruppieren(Hyp2Text(MpzZuHyp(neu.get())))));
    zeichnen(true);
}

void frmCollatzGRF::IconFensterAktion(const QString& tag) {
    if (tag.startsWith("Nav")) {
        Navigieren(tag.mid(3).toInt());
    } else {
        Fenster::IconFensterAktion(tag);
    }
}

void frmCollatzGRF::FarbeWaehlen(int index) {
    if (laufStoppen()) return;
    if (std::optional<QColor> neu = FarbDialog(this, farbe(index))) {
        HintergrundFarbeSetzen(lblCol_[index], FarbeNummer(*neu));
        if (g_.Flag) bildMalen();
    }
}

std::optional<QStringList> frmCollatzGRF::ListenText() {
    if (g_.Werte.empty()) return std::nullopt;
    QStringList zeilen = q(GrafikCsv(g_)).split('\n', Qt::SkipEmptyParts);
    zeilen.removeFirst();  // the head line belongs to the CSV only
    for (QString& z : zeilen) z.replace(';', ' ');
    return zeilen;
}

std::optional<QStringList> frmCollatzGRF::ListenCsv() {
    if (g_.Werte.empty()) return std::nullopt;
    return q(GrafikCsv(g_)).split('\n', Qt::SkipEmptyParts);
}

QImage frmCollatzGRF::BildAbbild() { return sauber_.isNull() ? Fenster::BildAbbild() : sauber_; }

bool frmCollatzGRF::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::MouseButtonPress) {
        for (int i = 0; i < 5; ++i) {
            if (o == lblCol_[i]) {
                Behandeln([&] { FarbeWaehlen(i); });
                return true;
            }
        }
    }
    if (o == picAnzeige_ && e->type() == QEvent::MouseMove) {
        const int x = static_cast<QMouseEvent*>(e)->position().toPoint().x();
        Behandeln([&] { Hover(x); });
    }
    return Fenster::eventFilter(o, e);
}

}  // namespace sw
