#include "windows/frmCollatzGrafExtrem.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "collatz/CollatzBalken.h"
#include "collatz/CollatzUmbruch.h"
#include "collatz/basCollatz.h"
#include "frame/StoppUhr.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmCollatzBig.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

int ganzzahl(const QLineEdit* feld, int standard = 0) {
    bool ok = false;
    const int v = feld->text().trimmed().toInt(&ok);
    return ok ? v : standard;
}

// Bars wider than this fit no window; the bound keeps the pixel arithmetic within int.
constexpr int kBalkenMax = 10000;

// The default colours of lblCol: background, "!", ".", outline and grid, scale.
constexpr QRgb kFarben[5] = {0xFFFFFF, 0xC00000, 0x4080FF, 0x404040, 0x000000};

}  // namespace

frmCollatzGrafExtrem::frmCollatzGrafExtrem(QWidget* eltern) : Fenster("frmCollatzGrafExtrem", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    const auto feld = [&](QHBoxLayout* z, const QString& name, const QString& beschriftung, const QString& wert, int breite) {
        z->addWidget(Benannt(new QLabel(beschriftung, mitte), "lbl" + name.mid(3)));
        auto* f = Benannt(new QLineEdit(wert, mitte), name);
        f->setMaximumWidth(breite);
        z->addWidget(f);
        return f;
    };
    auto* zeile1 = new QHBoxLayout;
    txtVon_ = feld(zeile1, "txtVon", "Start:", "3", 400);
    lblPlusMinus_ = Benannt(new QPushButton("+", mitte), "lblPlusMinus");
    lblPlusMinus_->setFlat(true);
    lblPlusMinus_->setMaximumWidth(24);
    zeile1->addWidget(lblPlusMinus_);
    txtPlus_ = Benannt(new QLineEdit("1", mitte), "txtPlus");
    txtPlus_->setMaximumWidth(80);
    zeile1->addWidget(txtPlus_);
    txtBalkenBreite_ = feld(zeile1, "txtBalkenBreite", "Balken:", "3", 40);
    txtSkala_ = feld(zeile1, "txtSkala", "Raster:", "50,10", 70);
    txtSkalaMax_ = feld(zeile1, "txtSkalaMax", "Max:", "", 60);
    zeile1->addStretch(1);
    lay->addLayout(zeile1);

    auto* zeile2 = new QHBoxLayout;
    const char* const verfahren[4] = {"Alle Werte", "3n+1 mit Halbierung", "Nur ungerade", "Blöcke"};
    for (int i = 0; i < 4; ++i) {
        optCollatz_[i] = Benannt(new QRadioButton(verfahren[i], mitte), "optCollatz", i);
        zeile2->addWidget(optCollatz_[i]);
    }
    optCollatz_[0]->setChecked(true);
    txtReduktion_ = feld(zeile2, "txtReduktion", "Reduktion:", "0", 50);
    auto* runter = Benannt(new QToolButton(mitte), "UpDown1", 0);
    runter->setArrowType(Qt::DownArrow);
    auto* hoch = Benannt(new QToolButton(mitte), "UpDown1", 1);
    hoch->setArrowType(Qt::UpArrow);
    zeile2->addWidget(runter);
    zeile2->addWidget(hoch);
    chkGrafikQuer_ = Benannt(new QCheckBox("Quer", mitte), "chkGrafikQuer");
    chkVonOben_ = Benannt(new QCheckBox("Von oben", mitte), "chkVonOben");
    chkSwitch_ = Benannt(new QCheckBox("Umkehren", mitte), "chkSwitch");
    chkTrennLinien_ = Benannt(new QCheckBox("Trennlinien", mitte), "chkTrennLinien");
    for (QCheckBox* c : {chkGrafikQuer_, chkVonOben_, chkSwitch_, chkTrennLinien_}) zeile2->addWidget(c);
    zeile2->addStretch(1);
    lay->addLayout(zeile2);

    auto* zeile3 = new QHBoxLayout;
    btnGO_ = Benannt(new QPushButton("Zeichnen", mitte), "btnGO");
    auto* btnTabelle = Benannt(new QPushButton("Tabelle", mitte), "btnTabelle");
    auto* btnExtrem = Benannt(new QPushButton("Extremsuche", mitte), "btnExtremSuche");
    auto* btnBig = Benannt(new QPushButton("Große Startwerte", mitte), "btnCollatzBig");
    for (QPushButton* b : {btnGO_, btnTabelle, btnExtrem, btnBig}) zeile3->addWidget(b);
    zeile3->addStretch(1);
    for (int i = 0; i < 5; ++i) {
        lblCol_[i] = FarbFeld(mitte, i, kFarben[i], this);
        zeile3->addWidget(lblCol_[i]);
    }
    lay->addLayout(zeile3);

    auto* flaeche = new QGridLayout;
    flaeche->setSpacing(0);
    picSkala_ = Benannt(new Bild(mitte), "picSkala");
    picSkala_->setFixedWidth(60);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    picAnzeige_->setMouseTracking(true);
    picAnzeige_->installEventFilter(this);
    picSkalaUnten_ = Benannt(new Bild(mitte), "picSkalaUnten");
    picSkalaUnten_->setFixedHeight(20);
    flaeche->addWidget(picSkala_, 0, 0);
    flaeche->addWidget(picAnzeige_, 0, 1);
    flaeche->addWidget(picSkalaUnten_, 1, 1);
    lay->addLayout(flaeche, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Zeichnen(); }));
    connect(txtVon_, &QLineEdit::returnPressed, this, Sicher([this] { Zeichnen(); }));
    connect(btnTabelle, &QPushButton::clicked, this, Sicher([this] { TabelleOeffnen(); }));
    connect(btnExtrem, &QPushButton::clicked, this, Sicher([this] { FensterOeffnen("frmExtremSuche", -1, this); }));
    connect(btnBig, &QPushButton::clicked, this, Sicher([this] { GrossOeffnen(); }));
    connect(runter, &QToolButton::clicked, this, Sicher([this] { Reduktion(-1); }));
    connect(hoch, &QToolButton::clicked, this, Sicher([this] { Reduktion(1); }));
    connect(lblPlusMinus_, &QPushButton::clicked, this, Sicher([this] {
                lblPlusMinus_->setText(lblPlusMinus_->text() == "-" ? "+" : "-");
            }));
    connect(txtSkalaMax_, &QLineEdit::editingFinished, this, Sicher([this] { zeichnenMitSkala(true); }));
    resize(1000, 650);
    FensterLaden(QString::fromStdString(AktivesFenster), "NT");
    ruheText_ = btnGO_->text();
}

bool frmCollatzGrafExtrem::laufStoppen() {
    // Bars of starts with thousands of digits take long; the walks yield, and whatever the
    // user asks for meanwhile (btnGO, which reads "Stop" then, navigation, a key) first ends
    // the drawing: a second drawing inside the first would share the walk's number.
    if (!Laeuft()) return false;
    Abbruch = true;
    return true;
}

int frmCollatzGrafExtrem::balkenBreite() const { return std::clamp(ganzzahl(txtBalkenBreite_, 1), 1, kBalkenMax); }

void frmCollatzGrafExtrem::FarbeWaehlen(int index) {
    if (laufStoppen()) return;
    if (std::optional<QColor> farbe = FarbDialog(this, FarbeQt(HintergrundFarbe(lblCol_[index])))) {
        HintergrundFarbeSetzen(lblCol_[index], FarbeNummer(*farbe));
        zeichnenMitSkala(false);
    }
}

int frmCollatzGrafExtrem::verfahren() const {
    for (int i = 0; i < 4; ++i)
        if (optCollatz_[i]->isChecked()) return i;
    return 0;
}

int64_t frmCollatzGrafExtrem::schritt() const {
    const int64_t s = std::max<int64_t>(1, txtPlus_->text().trimmed().toLongLong());
    return lblPlusMinus_->text() == "-" ? -s : s;
}

void frmCollatzGrafExtrem::showEvent(QShowEvent* e) {
    Fenster::showEvent(e);
    if (!gezeichnet_) {
        gezeichnet_ = true;
        QTimer::singleShot(0, this, Sicher([this] { Zeichnen(); }));
    }
}

void frmCollatzGrafExtrem::Zeichnen() { zeichnenMitSkala(true); }

void frmCollatzGrafExtrem::Reduktion(int richtung) {
    if (laufStoppen()) return;
    txtReduktion_->setText(QString::number(std::max(0, ganzzahl(txtReduktion_) + richtung)));
    zeichnenMitSkala(true);
}

void frmCollatzGrafExtrem::Navigieren(int code) {
    if (laufStoppen()) return;
    const Mpz von(Formel2Hyp(txtVon_->text().toStdString()));
    const bool quer = chkGrafikQuer_->isChecked();
    const int breite = quer ? picAnzeige_->height() : picAnzeige_->width();
    const Mpz neu = BalkenNavigation(code, von, schritt(), breite, balkenBreite());
    // Grouped but never shortened: the field must give back the very number.
    txtVon_->setText(q(ZiffernGruppieren(Hyp2Text(MpzZuHyp(neu.get())))));
    zeichnenMitSkala(false);
}

void frmCollatzGrafExtrem::IconFensterAktion(const QString& tag) {
    if (tag.startsWith("Nav")) {
        Navigieren(tag.mid(3).toInt());
    } else if (tag == "Table") {
        TabelleOeffnen();
    }
}

void frmCollatzGrafExtrem::keyPressEvent(QKeyEvent* e) {
    // Outside the text fields + and - act as the arrows of the reduction; inside a field they
    // stay text, since every number field takes a formula.
    if (e->text() == "+" || e->text() == "-") {
        Behandeln([&] { Reduktion(e->text() == "+" ? 1 : -1); });
        return;
    }
    Fenster::keyPressEvent(e);
}

void frmCollatzGrafExtrem::TabelleOeffnen() {
    const Mpz von(Formel2Hyp(txtVon_->text().toStdString()));
    CollatzVon = Decimal::ausText(Hyp2Text(MpzZuHyp(von.get())));
    CollatzBis = CollatzVon + Decimal(1000);
    CollatzSchritt = int32_t(std::clamp<int64_t>(schritt(), -2147483647, 2147483647));
    CollatzVerfahren = verfahren();
    CollatzVonOben = chkVonOben_->isChecked() ? 1 : 0;
    CollatzReduktion = std::max(0, ganzzahl(txtReduktion_));
    FensterOeffnen("frmCollatzTab", -1, this);
}

void frmCollatzGrafExtrem::GrossOeffnen() {
    CollatzBigStart = txtVon_->text().toStdString();
    FensterOeffnen("frmCollatzBig", -1, this);
    CollatzBigStart.clear();
}

void frmCollatzGrafExtrem::zeichnenMitSkala(bool autoSkala) {
    if (laufStoppen()) return;
    const Mpz start(Formel2Hyp(txtVon_->text().toStdString()));
    const Lauf lauf(*this);
    Abbruch = false;
    btnGO_->setText("Stop");
    const auto ruhe = qScopeGuard([this] { btnGO_->setText(ruheText_); });
    StoppUhrStart(windowTitle().toStdString());
    const auto uhr = qScopeGuard([] {
        if (StoppUhr.laeuft) StoppUhrStop();
    });
    balken_ = balkenBreite();
    start_ = start;
    schritt_ = schritt();
    verfahren_ = verfahren();
    k_ = std::max(0, ganzzahl(txtReduktion_));
    const bool quer = chkGrafikQuer_->isChecked();
    const int querPx = quer ? picAnzeige_->height() : picAnzeige_->width();
    const int laengs = (quer ? picAnzeige_->width() : picAnzeige_->height()) - 2;
    anzahl_ = BalkenAnzahl(querPx, balken_);

    // Each bar is walked once; the scale and the drawing both use its marks. A stopped
    // drawing shows the bars walked so far and leaves the others empty.
    std::vector<std::string> marken(size_t(std::max(anzahl_, 0)));
    size_t laengste = 1;
    for (int n = 0; n < anzahl_ && !Abbruch; ++n) {
        marken[size_t(n)] = BalkenMarken(BalkenWert(start_, schritt_, n), verfahren_, k_);
        laengste = std::max(laengste, marken[size_t(n)].size());
    }
    if (autoSkala || mass_ <= 0) {
        skalaMax_ = ganzzahl(txtSkalaMax_);
        if (skalaMax_ < 1) skalaMax_ = int(std::min<size_t>(laengste, 1u << 30));
        mass_ = BalkenMass(laengs, skalaMax_);
    }

    QColor farbe[5];
    for (int i = 0; i < 5; ++i) farbe[i] = FarbeQt(HintergrundFarbe(lblCol_[i]));
    picAnzeige_->HintergrundSetzen(farbe[0]);
    picSkala_->Leeren();
    picSkalaUnten_->Leeren();
    rasterZeichnen(laengs, querPx);

    const bool vonOben = chkVonOben_->isChecked();
    const bool linien = chkTrennLinien_->isChecked() && mass_ >= 1;
    const bool kippen = quer ? chkSwitch_->isChecked() : !chkSwitch_->isChecked();
    const QRgb rgb[4] = {0, farbe[1].rgb(), farbe[2].rgb(), farbe[3].rgb()};
    picAnzeige_->Bearbeiten([&](QImage& bild) {
        // Each bar first becomes one colour per pixel along it (later cells over earlier ones,
        // as drawn in order), then goes into the image pixel by pixel: with more marks than
        // pixels this costs the marks plus the pixels, not a rectangle per mark.
        std::vector<uint8_t> farbeJePixel(size_t(std::max(laengs, 0)) + 1);
        int x = 5;
        for (int n = 0; n < anzahl_ && querPx - balken_ >= x; ++n, x += balken_ + 2) {
            std::fill(farbeJePixel.begin(), farbeJePixel.end(), uint8_t(0));
            const std::string& m = marken[size_t(n)];
            const size_t anzahlMarken = m.size();
            for (size_t j = 0; j < anzahlMarken; ++j) {
                const char c = vonOben ? m[anzahlMarken - 1 - j] : m[j];
                int a = int(std::lround(double(j) * mass_)), b = int(std::lround(double(j + 1) * mass_));
                if (b <= a) b = a + 1;
                a = std::min(a, laengs);
                b = std::min(b, laengs + 1);
                std::fill(farbeJePixel.begin() + a, farbeJePixel.begin() + b, uint8_t(c == '!' ? 1 : 2));
                if (linien && b > a + 1) farbeJePixel[size_t(b - 1)] = 3;
            }
            for (int a = 0; a <= laengs; ++a) {
                const uint8_t f = farbeJePixel[size_t(a)];
                if (!f) continue;
                const int laengsPx = kippen ? laengs - 1 - a : a;
                for (int quer0 = x; quer0 < x + balken_; ++quer0) {
                    const int px = quer ? laengsPx : quer0, py = quer ? quer0 : laengsPx;
                    if (px >= 0 && py >= 0 && px < bild.width() && py < bild.height())
                        reinterpret_cast<QRgb*>(bild.scanLine(py))[px] = rgb[f];
                }
            }
        }
    });
}

void frmCollatzGrafExtrem::rasterZeichnen(int laengs, int querPx) {
    const QStringList teile = txtSkala_->text().trimmed().split(',');
    const int gross = teile.value(0).trimmed().toInt();
    const int klein = teile.size() > 1 ? teile.value(1).trimmed().toInt() : 0;
    const bool quer = chkGrafikQuer_->isChecked();
    const bool kippen = quer ? chkSwitch_->isChecked() : !chkSwitch_->isChecked();
    QColor linie = FarbeQt(HintergrundFarbe(lblCol_[3])), schrift = FarbeQt(HintergrundFarbe(lblCol_[4]));
    // The pixel of a mark count along the bars.
    const auto ort = [&](double wert) {
        const int a = int(std::lround(wert * mass_));
        return kippen ? laengs - a : a;
    };
    Bild* skala = quer ? picSkalaUnten_ : picSkala_;
    picAnzeige_->Malen([&](QPainter& p) {
        for (int stufe = 0; stufe < 2; ++stufe) {
            const int abstand = stufe == 0 ? klein : gross;
            if (abstand < 1 || abstand * mass_ < 2) continue;
            p.setPen(stufe == 0 ? linie.lighter(160) : linie);
            for (int64_t w = abstand; double(w) * mass_ <= laengs; w += abstand) {
                const int o = ort(double(w));
                if (quer) {
                    p.drawLine(o, 0, o, querPx);
                } else {
                    p.drawLine(0, o, querPx, o);
                }
            }
        }
    });
    if (gross < 1 || gross * mass_ < 2) return;
    skala->Malen([&](QPainter& p) {
        p.setPen(schrift);
        const QFontMetrics fm(p.font());
        for (int64_t w = gross; double(w) * mass_ <= laengs; w += gross) {
            const QString t = QString::number(w);
            const int o = ort(double(w));
            if (quer) {
                p.drawText(o - fm.horizontalAdvance(t) / 2, fm.ascent(), t);
            } else {
                p.drawText(skala->width() - fm.horizontalAdvance(t) - 4, o + fm.ascent() / 2, t);
            }
        }
    });
    // The start values of the first and the last bar at the foot.
    if (!quer && anzahl_ > 0) {
        const int links = 5, oben = 2;  // the first bar's edge
        picSkalaUnten_->Text(links, oben, q(Hyp2Anzeige(MpzZuHyp(start_.get()))), schrift);
        const QString letzter = q(Hyp2Anzeige(MpzZuHyp(BalkenWert(start_, schritt_, anzahl_ - 1).get())));
        const int x = std::max(links, links + anzahl_ * (balken_ + 2) - picSkalaUnten_->TextBreite(letzter));
        picSkalaUnten_->Text(x, oben, letzter, schrift);
    }
}

std::string frmCollatzGrafExtrem::BalkenText(int position) {
    const int index = BalkenIndex(position, balken_);
    if (index < 0 || index >= anzahl_) return "";
    CollatzZahl = MpzZuHyp(BalkenWert(start_, schritt_, index).get());
    // Rows of 100 characters, at most 20 of them: a tooltip higher than the screen shows nothing.
    constexpr size_t kZeilen = 20;
    const std::vector<std::string> zeilen =
        ZeilenUmbrechen(CollatzZeile(verfahren_, k_), 100, [](const char*, int32_t) { return 1; });
    std::string text;
    for (size_t i = 0; i < zeilen.size() && i < kZeilen; ++i) {
        if (i > 0) text += "\n";
        text += zeilen[i];
    }
    if (zeilen.size() > kZeilen) text += " ...";
    return text;
}

bool frmCollatzGrafExtrem::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::MouseButtonPress) {
        for (int i = 0; i < 5; ++i) {
            if (o == lblCol_[i]) {
                Behandeln([&] { FarbeWaehlen(i); });
                return true;
            }
        }
    }
    // No tooltip while bars are walked: it would walk the number the drawing is walking.
    if (o == picAnzeige_ && e->type() == QEvent::MouseMove && !Laeuft()) {
        const auto* m = static_cast<QMouseEvent*>(e);
        const QPoint p = m->position().toPoint();
        std::string text;
        Behandeln([&] { text = BalkenText(chkGrafikQuer_->isChecked() ? p.y() : p.x()); });
        if (text.empty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(m->globalPosition().toPoint(), q(text), picAnzeige_);
        }
    } else if (o == picAnzeige_ && e->type() == QEvent::Leave) {
        QToolTip::hideText();
    }
    return Fenster::eventFilter(o, e);
}

}  // namespace sw
