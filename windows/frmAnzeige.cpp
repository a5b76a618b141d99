#include "windows/frmAnzeige.h"

#include <QApplication>
#include <QClipboard>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "arith/HypText.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/Balken.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmSuchen.h"
#include "windows/frmZahl.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

// ---- the page surface --------------------------------------------------------------------

AnzeigeFlaeche::AnzeigeFlaeche(AnzeigeLogik& logik, frmAnzeige& fenster, QWidget* eltern)
    : QWidget(eltern), logik_(logik), fenster_(fenster) {
    setAutoFillBackground(true);
    setPalette(QPalette(Qt::white));
    setMinimumSize(200, 120);
}

// A cell is as wide as the longest number of the range in bold (primes are drawn bold), grouped,
// plus room on both sides, so that every font size stays readable and the columns never overlap.
int AnzeigeFlaeche::zellenBreite() const {
    const Decimal groesste = logik_.Ende.IstNull() ? Decimal(999999) : logik_.Ende;
    QFont fett = font();
    fett.setBold(true);
    const QFontMetrics mass(fett);
    return mass.horizontalAdvance(frmAnzeige::ZahlText(groesste)) + mass.averageCharWidth() * 2;
}

int AnzeigeFlaeche::zeilenHoehe() const { return fontMetrics().height() + 4; }

void AnzeigeFlaeche::GeometrieAnpassen() {
    int spalten = std::max(1, width() / std::max(1, zellenBreite()));
    // Outside mode 0 a line holds whole groups of 8 candidates; the logic rounds up, which
    // would put cells beyond the right edge: only as many groups as fit.
    if (logik_.Modus != 0 && spalten >= 8) spalten = spalten / 8 * 8;
    const int zeilen = std::max(1, (height() - 2 * zeilenHoehe()) / zeilenHoehe());
    logik_.GeometrieSetzen(spalten, zeilen);
}

void AnzeigeFlaeche::resizeEvent(QResizeEvent*) { GeometrieAnpassen(); }

void AnzeigeFlaeche::changeEvent(QEvent* e) {
    if (e->type() == QEvent::FontChange) {
        GeometrieAnpassen();
        update();
    }
    QWidget::changeEvent(e);
}

void AnzeigeFlaeche::paintEvent(QPaintEvent*) {
    QPainter maler(this);
    if (!logik_.BereichBereit) return;
    Behandeln([&] {
        const AnzeigeSeite seite = logik_.Seite();
        const int hoehe = zeilenHoehe(), breite = zellenBreite();
        maler.setPen(Qt::darkBlue);
        maler.drawText(QRect(4, 0, width() - 8, hoehe), Qt::AlignVCenter | Qt::AlignLeft, q(seite.kopf));
        QFont normal = font(), fett = font();
        fett.setBold(true);
        const int spalten = logik_.Spalten();
        for (size_t i = 0; i < seite.zellen.size(); ++i) {
            const AnzeigeZelle& z = seite.zellen[i];
            if (!z.imBereich) continue;
            const int x = int(i % size_t(spalten)) * breite, y = (int(i / size_t(spalten)) + 1) * hoehe + hoehe / 2;
            const QRect zelle(x + 1, y + 1, breite - 2, hoehe - 2);
            if (z.prim && seite.kandidaten) {
                // Survivors of the sieve that no test has seen yet: marked, but not bold.
                maler.fillRect(zelle, QColor(255, 246, 214));
                maler.setFont(normal);
                maler.setPen(Qt::black);
            } else if (z.prim) {
                maler.fillRect(zelle, QColor(255, 236, 170));
                maler.setFont(fett);
                maler.setPen(Qt::black);
                // The largest gap of the page is marked in red before the prime that ends it.
                if (z.luecke > 0 && z.luecke == seite.groessteLuecke) {
                    maler.fillRect(QRect(x + 1, y + 1, 3, hoehe - 2), Qt::red);
                }
            } else if (z.verworfen) {
                QFont gestrichen = normal;
                gestrichen.setStrikeOut(true);
                maler.setFont(gestrichen);
                maler.setPen(Qt::darkGray);
            } else {
                maler.setFont(normal);
                maler.setPen(Qt::gray);
            }
            maler.drawText(zelle, Qt::AlignCenter, frmAnzeige::ZahlText(z.zahl));
        }
    });
}

void AnzeigeFlaeche::mousePressEvent(QMouseEvent* e) {
    if (logik_.Modus == 5 || !logik_.BereichBereit) return;
    const int hoehe = zeilenHoehe();
    const int y = int(e->position().y()) - hoehe - hoehe / 2;
    if (y < 0) return;
    const std::optional<Decimal> n = logik_.ZelleZahl(y / hoehe, int(e->position().x()) / std::max(1, zellenBreite()));
    if (n) Behandeln([&] { fenster_.ZahlZeigen(*n); });
}

// ---- the window ------------------------------------------------------------------------------

frmAnzeige::frmAnzeige(QWidget* eltern) : Fenster("frmAnzeige", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* eingabe = new QHBoxLayout;
    lblAnfang_ = Benannt(new QLabel("Anfang:", mitte), "lblEingabe", 0);
    eingabe->addWidget(lblAnfang_);
    txtAnfang_ = Benannt(new QLineEdit("1.000.000.000.000", mitte), "txtEingabe", 0);
    eingabe->addWidget(txtAnfang_, 2);
    lblLaenge_ = Benannt(new QLabel("Länge:", mitte), "lblEingabe", 1);
    eingabe->addWidget(lblLaenge_);
    txtLaenge_ = Benannt(new QLineEdit("100.000", mitte), "txtEingabe", 1);
    eingabe->addWidget(txtLaenge_, 1);
    lblZahl_ = Benannt(new QLabel("Startwert:", mitte), "lblZahl");
    eingabe->addWidget(lblZahl_);
    txtZahl_ = Benannt(new QLineEdit("10^30", mitte), "txtZahl");
    eingabe->addWidget(txtZahl_, 2);
    lblIntervall_ = Benannt(new QLabel("Breite:", mitte), "lblIntervall");
    eingabe->addWidget(lblIntervall_);
    txtIntervall_ = Benannt(new QLineEdit("10.000", mitte), "txtIntervall");
    eingabe->addWidget(txtIntervall_, 1);
    auto* go = Benannt(new QPushButton("Anzeigen", mitte), "btnGO");
    go->setDefault(true);
    eingabe->addWidget(go);
    auto* suchen = Benannt(new QPushButton("Suchen...", mitte), "btnSuchen");
    eingabe->addWidget(suchen);
    lay->addLayout(eingabe);

    fraCount_ = Benannt(new QFrame(mitte), "fraCount");
    auto* zaehler = new QHBoxLayout(fraCount_);
    zaehler->setContentsMargins(0, 0, 0, 0);
    lblCountText_ = Benannt(new QLabel("Primzahlen im Bereich:", fraCount_), "lblCountText");
    zaehler->addWidget(lblCountText_);
    lblCount_ = Benannt(new QLabel(fraCount_), "lblCount");
    zaehler->addWidget(lblCount_, 1);
    lay->addWidget(fraCount_);
    fraCount_->hide();

    fraFortschritt_ = Benannt(new QFrame(mitte), "fraFortschritt");
    auto* fort = new QGridLayout(fraFortschritt_);
    fort->setContentsMargins(0, 0, 0, 0);
    lblLinks_ = Benannt(new QLabel(fraFortschritt_), "lblFortschrittLinks");
    lblRechts_ = Benannt(new QLabel(fraFortschritt_), "lblFortschrittRechts");
    lblProzent_ = Benannt(new QLabel(fraFortschritt_), "lblFortschritt");
    balken_ = new Balken("Fortschritt", fraFortschritt_);
    fort->addWidget(lblLinks_, 0, 0);
    fort->addWidget(lblProzent_, 0, 1, Qt::AlignCenter);
    fort->addWidget(lblRechts_, 0, 2, Qt::AlignRight);
    fort->addWidget(balken_, 1, 0, 1, 3);
    lay->addWidget(fraFortschritt_);
    fraFortschritt_->hide();

    // Mode 6: the stop button and the bar while the sieve or the test runs ...
    fraTertiaerLauf_ = Benannt(new QFrame(mitte), "fraTertiaerLauf");
    auto* lauf = new QHBoxLayout(fraTertiaerLauf_);
    lauf->setContentsMargins(0, 0, 0, 0);
    btnStopTertiaer_ = Benannt(new QPushButton("Stop", fraTertiaerLauf_), "btnStopTertiär");
    lauf->addWidget(btnStopTertiaer_);
    // An ASCII name: the bar's style sheet selects it by its object name.
    balkenTertiaer_ = new Balken("Tertiaer", fraTertiaerLauf_);
    lauf->addWidget(balkenTertiaer_, 1);
    lblCountStreich_ = Benannt(new QLabel(fraTertiaerLauf_), "lblCountStreich");
    lauf->addWidget(lblCountStreich_);
    lay->addWidget(fraTertiaerLauf_);
    fraTertiaerLauf_->hide();
    // ... and what a range that stands offers.
    fraTertiaer_ = Benannt(new QFrame(mitte), "fraTertiaer");
    auto* zusatz = new QHBoxLayout(fraTertiaer_);
    zusatz->setContentsMargins(0, 0, 0, 0);
    btnZusatz_ = Benannt(new QPushButton("BPSW-Test", fraTertiaer_), "btnZusatz");
    zusatz->addWidget(btnZusatz_);
    for (int i = 0; i < 2; ++i) {
        optAuswahl_[i] = Benannt(new QRadioButton(i == 0 ? "alle Kandidaten" : "nur wahrscheinliche Primzahlen", fraTertiaer_), "optAuswahl", i);
        zusatz->addWidget(optAuswahl_[i]);
    }
    optAuswahl_[0]->setChecked(true);
    zusatz->addStretch(1);
    btnExport_ = Benannt(new QPushButton("Exportieren...", fraTertiaer_), "btnExport");
    zusatz->addWidget(btnExport_);
    lay->addWidget(fraTertiaer_);
    fraTertiaer_->hide();

    flaeche_ = Benannt(new AnzeigeFlaeche(logik_, *this, mitte), "picAnzeige");
    lay->addWidget(SchriftAuswahlAnlegen(flaeche_));
    lay->addWidget(flaeche_, 1);
    setCentralWidget(mitte);

    connect(go, &QPushButton::clicked, this, Sicher([this] { BereichHolen(); }));
    connect(suchen, &QPushButton::clicked, this, Sicher([this] {
                auto* dialog = new frmSuchen(*this, this);
                dialog->setAttribute(Qt::WA_DeleteOnClose);
                dialog->show();
            }));
    for (int i = 0; i < 2; ++i) {
        connect(optAuswahl_[i], &QRadioButton::toggled, this, [this, i](bool an) {
            if (!an) return;
            logik_.AuswahlSetzen(i);
            flaeche_->update();
        });
    }
    connect(btnStopTertiaer_, &QPushButton::clicked, this, [] { Abbruch = true; });
    connect(btnZusatz_, &QPushButton::clicked, this, Sicher([this] { Testen(); }));
    connect(btnExport_, &QPushButton::clicked, this, Sicher([this] { Exportieren(); }));
    resize(900, 600);  // the designed size; a stored one replaces it when the window is prepared
}

frmAnzeige::~frmAnzeige() {
    // A window that closes while its sieve reports must not stay the progress target.
    SekundaerFortschrittLoesen();
}

void frmAnzeige::ShowMe(int modus) {
    logik_.Modus = modus < 0 ? 0 : modus;
    // Prepared only now: each mode keeps the values of its own fields.
    FensterLaden(QString::fromStdString(AktivesFenster), "NF");
    modusZeigen();
    NavigationSchalten(false);
    flaeche_->GeometrieAnpassen();
    show();
}

// Mode 6 has a start and a width instead of Anfang and Länge, and counts in its interval.
void frmAnzeige::modusZeigen() {
    const bool gross = logik_.Modus == 6;
    for (QWidget* w : std::initializer_list<QWidget*>{lblAnfang_, txtAnfang_, lblLaenge_, txtLaenge_}) w->setVisible(!gross);
    for (QWidget* w : std::initializer_list<QWidget*>{lblZahl_, txtZahl_, lblIntervall_, txtIntervall_}) w->setVisible(gross);
    if (gross) lblCountText_->setText(q(Text(511)));
    fraTertiaer_->setVisible(gross && logik_.BereichBereit);
}

QString frmAnzeige::WerteSektion() const {
    return logik_.Modus == 0 ? Sektion() : Sektion() + QString::number(logik_.Modus);
}

QString frmAnzeige::ZahlText(const Decimal& n) {
    return q(ZahlenSystem == 10 ? ZahlFormat(n) : ZahlInBasis(n));
}

namespace {
// "Anfang:" names the field "Anfang" in a message.
QString feldName(const QLabel* l) { return l->text().remove('&').remove(':').trimmed(); }
}  // namespace

void frmAnzeige::BereichHolen() {
    if (Laeuft()) return;  // a click that arrives through the yield of a running sieve
    // Asked before the fields, so that a missing raster is named first.
    if (!logik_.RasterDa()) return;
    std::string anfangText, laengeText;
    if (logik_.Modus == 6) {
        // The start may be a formula of any size: the logic evaluates it.
        const std::optional<Decimal> breite =
            ZahlEingabe(txtIntervall_, feldName(lblIntervall_), Decimal(1), Decimal(TertiaerBreiteMax));
        if (!breite) return;
        anfangText = txtZahl_->text().toStdString();
        laengeText = breite->Text();
    } else {
        const Decimal groesste = Decimal::ausBreit(Decimal::Maximum);
        // The window of the square sieve starts at 10,000 at the least.
        const Decimal kleinster = logik_.Modus == 5 ? Decimal(10000) : Decimal(0);
        const std::optional<Decimal> anfang = ZahlEingabe(txtAnfang_, feldName(lblAnfang_), kleinster, groesste);
        if (!anfang) return;
        const std::optional<Decimal> laenge = ZahlEingabe(txtLaenge_, feldName(lblLaenge_), Decimal(1), groesste - *anfang);
        if (!laenge) return;
        anfangText = anfang->Text();
        laengeText = laenge->Text();
    }
    const Lauf lauf(*this);
    setWindowTitle(SektionsText("Caption") + " " + q(BasisBeschriftung()));
    flaeche_->GeometrieAnpassen();
    if (!logik_.BereichHolen(anfangText, laengeText)) {
        // A refused range leaves the one before it standing, and its paging with it.
        NavigationSchalten(logik_.BereichBereit);
        if (StoppUhr.laeuft) StoppUhrStop();
    }
    flaeche_->GeometrieAnpassen();
    flaeche_->update();
}

std::optional<QStringList> frmAnzeige::ListenText() {
    if (!logik_.BereichBereit) return std::nullopt;
    if (logik_.Modus == 6) {
        QStringList zeilen;
        logik_.ListeSchreiben([&](const std::string& z) { zeilen << q(z); });
        return zeilen;
    }
    // Page by page from the first number: the logic knows which cells are prime, whichever
    // raster the range comes from. The page shown stays where it was.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const Decimal gezeigt = logik_.Aktuell;
    QStringList zeilen;
    try {
        const Decimal seite = logik_.SeitenZahlen();
        logik_.Aktuell = logik_.Anfang;
        for (bool erste = true;; erste = false) {
            const AnzeigeSeite s = logik_.Seite();
            if (erste) {
                for (int32_t p : s.vorweg) zeilen << QString::number(p);
            }
            for (const AnzeigeZelle& z : s.zellen) {
                if (z.imBereich && z.prim) zeilen << q(z.zahl.Text());
            }
            if (logik_.Aktuell + seite > logik_.Ende) break;
            logik_.Aktuell = logik_.Aktuell + seite;
        }
    } catch (...) {
        logik_.Aktuell = gezeigt;
        QApplication::restoreOverrideCursor();
        throw;
    }
    logik_.Aktuell = gezeigt;
    QApplication::restoreOverrideCursor();
    return zeilen;
}

QImage frmAnzeige::BildAbbild() {
    if (!logik_.BereichBereit) return QImage();
    return flaeche_->grab().toImage();
}

void frmAnzeige::ZahlZeigen(const Decimal& n) {
    if (logik_.Modus == 6) {
        const TertiaerBereich& bereich = logik_.Tertiaer();
        const int64_t d = n.AlsInt64();
        const std::string ziffern = bereich.Ziffern(d);
        // A number the detail window can hold goes there; a larger one is named here, and
        // copied whole, since no window shows a thousand digits readably.
        std::optional<Decimal> klein;
        if (ziffern.size() <= 28) {
            try {
                klein = TextZuDecimal(ziffern);
            } catch (const Laufzeitfehler&) {
            }
        }
        if (!klein) {
            QApplication::clipboard()->setText(q(ziffern));
            const int zustand = bereich.Prim(d) ? (bereich.Getestet() ? 1374 : 1373) : bereich.Kandidat(d) ? 1375 : 1376;
            MsgInfoText(TextP1P2(1372, "Startwert + " + ZahlFormat(static_cast<long long>(d)) + " = " + ZiffernAnzeige(ziffern),
                                 Text(zustand)));
            return;
        }
        zahlFenster(*klein);
        return;
    }
    zahlFenster(n);
}

void frmAnzeige::zahlFenster(const Decimal& n) {
    if (!zahl_) {
        zahl_ = new frmZahl(this);
        zahl_->setAttribute(Qt::WA_DeleteOnClose);
    }
    zahl_->ZahlZeigen(n);
}

void frmAnzeige::IconFensterAktion(const QString& tag) {
    if (tag.startsWith("Nav")) logik_.Blaettern(tag.mid(3).toInt());
}

void frmAnzeige::NavigationSchalten(bool an) {
    for (int i = 0; i < 6; ++i) {
        if (auto* knopf = Steuer<QToolButton>(this, "btnIcon", i)) knopf->setEnabled(an);
    }
}

void frmAnzeige::AnzahlZeigen(const std::string& text) {
    lblCount_->setText(q(text));
    fraCount_->show();
}

void frmAnzeige::FortschrittVerbergen() { fraFortschritt_->hide(); }
void frmAnzeige::AnfangSchreiben(const std::string& text) { txtAnfang_->setText(q(text)); }
void frmAnzeige::Zeichnen() { flaeche_->update(); }
void frmAnzeige::LinksSetzen(const std::string& text) { lblLinks_->setText(q(text)); }
void frmAnzeige::RechtsSetzen(const std::string& text) { lblRechts_->setText(q(text)); }
void frmAnzeige::ProzentSetzen(const std::string& text) { lblProzent_->setText(q(text)); }
void frmAnzeige::BalkenSetzen(int32_t prozent) { sw::BalkenSetzen(balken_->Linie(), balken_, prozent); }
void frmAnzeige::RahmenZeigen(bool sichtbar) { fraFortschritt_->setVisible(sichtbar); }

// ---- mode 6 ---------------------------------------------------------------------------------

void frmAnzeige::Testen() {
    if (Laeuft() || !logik_.BereichBereit) return;
    const Lauf lauf(*this);
    StoppUhrStart(windowTitle().toStdString());
    // Once tested, the list holds the probable primes unless the person asks for all.
    if (logik_.Testen()) optAuswahl_[1]->setChecked(true);
    if (StoppUhr.laeuft) StoppUhrStop();
}

void frmAnzeige::Exportieren() {
    if (!logik_.BereichBereit) {
        MsgInfo(1104);
        return;
    }
    const std::optional<QString> pfad = speicherZiel("*.TXT (*.TXT)", ".TXT");
    if (!pfad) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    logik_.Exportieren(pfad->toStdString());
    QApplication::restoreOverrideCursor();
}

void frmAnzeige::TertiaerLaeuft(bool laeuft, const std::string& text) {
    if (laeuft) {
        SiebFortschritt(0);
        lblCountStreich_->clear();
        AnzahlZeigen(text);
    }
    fraTertiaerLauf_->setVisible(laeuft);
    btnZusatz_->setEnabled(!laeuft);
    btnExport_->setEnabled(!laeuft);
}

void frmAnzeige::TertiaerBereitZeigen(bool getestet) {
    fraTertiaer_->show();
    // Only probable primes exist once the test ran; a new range starts with its candidates.
    optAuswahl_[1]->setEnabled(getestet);
    if (!getestet) optAuswahl_[0]->setChecked(true);
}

void frmAnzeige::SiebFortschritt(int32_t prozent) { sw::BalkenSetzen(balkenTertiaer_->Linie(), balkenTertiaer_, prozent); }
void frmAnzeige::TestFortschritt(int32_t prozent) { SiebFortschritt(prozent); }
void frmAnzeige::StreichungenZeigen(int64_t gestrichen) {
    lblCountStreich_->setText(q(TextP1(1377, ZahlFormat(static_cast<long long>(gestrichen)))));
}

}  // namespace sw
