#include "windows/frmAbstaendeGrafik.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

#include "distribution/AbstandDatei.h"
#include "frame/DateiErsetzen.h"
#include "frame/Einstellungen.h"
#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "sieve/Zufall.h"
#include "sieve/basSekundaer.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

constexpr const char* kSektion = "LückenGrafik";
constexpr int kBalkenMax = 1000;
constexpr int kRand = 3;  // pixels between a picture's edge and its text

int ganzzahl(const QLineEdit* feld, int standard) {
    bool ok = false;
    const int v = feld->text().trimmed().toInt(&ok);
    return ok ? v : standard;
}

// A typed value, "," read as "."; nothing for text that is no number.
std::optional<double> kommazahl(const QLineEdit* feld) {
    double v = 0;
    std::string t = feld->text().trimmed().toStdString();
    std::replace(t.begin(), t.end(), ',', '.');
    if (!IstNumerisch(t, &v)) return std::nullopt;
    return v;
}

// The number of distinct odd prime factors of d: the colours of optFarben(2).
int ungeradeFaktoren(int64_t d) {
    int n = 0;
    while (d > 0 && d % 2 == 0) d /= 2;
    for (int64_t p = 3; p * p <= d; p += 2) {
        if (d % p) continue;
        ++n;
        while (d % p == 0) d /= p;
    }
    return n + (d > 1);
}

const QColor kFarbReihe[5] = {QColor(40, 90, 200), QColor(200, 60, 40), QColor(40, 150, 60), QColor(160, 60, 170),
                              QColor(220, 150, 20)};

}  // namespace

frmAbstaendeGrafik::frmAbstaendeGrafik(QWidget* eltern) : Fenster("frmAbstaendeGrafik", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    const auto feld = [&](QHBoxLayout* z, const QString& name, const QString& beschriftung, const QString& wert,
                          int breite, int index = -1) {
        if (!beschriftung.isEmpty()) z->addWidget(Benannt(new QLabel(beschriftung, mitte), "lbl" + name.mid(3), index));
        auto* f = Benannt(new QLineEdit(wert, mitte), name, index);
        f->setMaximumWidth(breite);
        z->addWidget(f);
        return f;
    };

    // Three entry modes, one frame each; the checked frame is the mode.
    auto* zeile1 = new QHBoxLayout;
    const char* const modi[3] = {"Zahlen", "x als Zehnerpotenz", "Beide als Zehnerpotenzen"};
    const char* const vorgaben[3][2] = {{"2", "1000000"}, {"9", "1000000"}, {"9", "6"}};
    for (int i = 0; i < 3; ++i) {
        fraModus_[i] = Benannt(new QGroupBox(modi[i], mitte), "fraModus", i);
        fraModus_[i]->setCheckable(true);
        auto* z = new QHBoxLayout(fraModus_[i]);
        txtSchranke_[i] = feld(z, "txtSchranke", "x:", vorgaben[i][0], 140, i);
        txtIntervall_[i] = feld(z, "txtIntervall", "w:", vorgaben[i][1], 120, i);
        zeile1->addWidget(fraModus_[i]);
        connect(fraModus_[i], &QGroupBox::clicked, this, [this, i] {
            EingabeModus = i;
            for (int k = 0; k < 3; ++k) fraModus_[k]->setChecked(k == i);
        });
    }
    zeile1->addStretch(1);
    lay->addLayout(zeile1);

    auto* zeile2 = new QHBoxLayout;
    txtVonAbstand_ = feld(zeile2, "txtVonAbstand", "Von:", "1", 60);
    txtBisAbstand_ = feld(zeile2, "txtBisAbstand", "Bis:", "", 60);
    txtBisAbstand_->setReadOnly(true);
    txtBalkenBreite_ = feld(zeile2, "txtBalkenBreite", "Balken:", "3", 40);
    txtGlaettung_ = feld(zeile2, "txtGlättung", "Glättung:", "0", 40);
    txtFaktor_ = feld(zeile2, "txtFaktor", "Faktor:", "3", 40);
    txtFaktorKombinationen_ = feld(zeile2, "txtFaktorKombinationen", "Kombination:", "3,5", 80);
    zeile2->addStretch(1);
    lay->addLayout(zeile2);

    auto* zeile3 = new QHBoxLayout;
    const char* const arten[5] = {"Nachbarn", "Folge", "Dichte", "Alle Paare", "Sekundärbereich"};
    for (int i = 0; i < 5; ++i) {
        optZaehlung_[i] = Benannt(new QRadioButton(arten[i], mitte), "optZählung", i);
        zeile3->addWidget(optZaehlung_[i]);
    }
    optZaehlung_[0]->setChecked(true);
    zeile3->addSpacing(16);
    auto* farbGruppe = new QWidget(mitte);  // its own group: the kinds and the colours are two choices
    auto* farbLay = new QHBoxLayout(farbGruppe);
    farbLay->setContentsMargins(0, 0, 0, 0);
    const char* const farbNamen[3] = {"Einfarbig", "Mod 6", "Faktoren"};
    for (int i = 0; i < 3; ++i) {
        optFarben_[i] = Benannt(new QRadioButton(farbNamen[i], farbGruppe), "optFarben", i);
        farbLay->addWidget(optFarben_[i]);
    }
    optFarben_[0]->setChecked(true);
    zeile3->addWidget(farbGruppe);
    zeile3->addStretch(1);
    lay->addLayout(zeile3);

    auto* zeile4 = new QHBoxLayout;
    chkZwillinge_ = Benannt(new QCheckBox("Zwillinge", mitte), "chkZwillinge");
    chkAbWeichungVonPi2_ = Benannt(new QCheckBox("Abweichung von Pi2", mitte), "chkAbWeichungVonPi2");
    chkZufall_ = Benannt(new QCheckBox("Zufall", mitte), "chkZufall");
    chkInfo_ = Benannt(new QCheckBox("Info", mitte), "chkInfo");
    chkInfo_->setChecked(true);
    for (QCheckBox* c : {chkZwillinge_, chkAbWeichungVonPi2_, chkZufall_, chkInfo_}) zeile4->addWidget(c);
    btnGO_ = Benannt(new QPushButton("Zählen", mitte), "btnGO");
    btnNextEbene_ = Benannt(new QPushButton("Anfang", mitte), "btnNextEbene");
    btnDown_ = Benannt(new QPushButton("<", mitte), "btnDown");
    btnUp_ = Benannt(new QPushButton(">", mitte), "btnUp");
    btnOK_ = Benannt(new QPushButton("OK", mitte), "btnOK");
    for (QPushButton* b : {btnGO_, btnNextEbene_, btnDown_, btnUp_, btnOK_}) zeile4->addWidget(b);
    lblPi2_ = Benannt(new QLabel(mitte), "lblPi2");
    zeile4->addWidget(lblPi2_, 1);
    lay->addLayout(zeile4);

    auto* flaeche = new QGridLayout;
    flaeche->setSpacing(0);
    picSkala_ = Benannt(new Bild(mitte), "picSkala");
    picSkala_->setFixedWidth(70);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    picAnzeige_->setMouseTracking(true);
    picAnzeige_->installEventFilter(this);
    picText_ = Benannt(new Bild(mitte), "picText");
    picText_->setFixedWidth(230);
    flaeche->addWidget(picSkala_, 0, 0);
    flaeche->addWidget(picAnzeige_, 0, 1);
    flaeche->addWidget(picText_, 0, 2);
    flaeche->setColumnStretch(1, 1);
    lay->addLayout(flaeche, 1);

    lblCursor_ = Benannt(new QLabel(mitte), "lblCursor");
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    auto* zeile5 = new QHBoxLayout;
    zeile5->addWidget(lblCursor_, 1);
    zeile5->addWidget(lblFortschritt_, 1);
    lay->addLayout(zeile5);

    auto* listen = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        List_[i] = Benannt(new QListWidget(mitte), QString("List%1").arg(i + 1));
        List_[i]->setMaximumHeight(90);
        listen->addWidget(List_[i]);
    }
    lay->addLayout(listen);
    setCentralWidget(mitte);

    // Views of the two arrays: bars, curve, plus-minus and barcode exclude each other.
    QMenu* ansicht = menuBar()->addMenu("Ansicht");
    auto* formen = new QActionGroup(this);
    formen->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    const auto punkt = [&](const QString& name, const QString& text, QActionGroup* gruppe) {
        QAction* a = Benannt(ansicht->addAction(text), name);
        a->setCheckable(true);
        if (gruppe) gruppe->addAction(a);
        connect(a, &QAction::toggled, this, Sicher([this] { GrafikPlot(); }));
        return a;
    };
    mnuKurvenDarstellung_ = punkt("mnuKurvenDarstellung", "Kurve", formen);
    mnuPlusMinus_ = punkt("mnuPlusMinus", "Plus-Minus", formen);
    mnuBarcode_ = punkt("mnuBarcode", "Barcode", formen);
    ansicht->addSeparator();
    mnuFaktor_ = punkt("mnuFaktor", "Nur Vielfache des Faktors", nullptr);
    mnuFaktorenDarstellung_ = punkt("mnuFaktorenDarstellung", "Faktorkombination hervorheben", nullptr);
    mnuNiveauAngleich_ = punkt("mnuNiveauAngleich", "Niveau angleichen (singuläre Reihe)", nullptr);
    QMenu* datei = menuBar()->addMenu("Datei");
    connect(Benannt(datei->addAction("Zahlen speichern (CSV) …"), "mnuCsv"), &QAction::triggered, this,
            Sicher([this] { csvExport(); }));
    connect(Benannt(datei->addAction("Gespeicherte Zahlen laden …"), "mnuCsvLaden"), &QAction::triggered, this,
            Sicher([this] { csvImport(); }));
    connect(Benannt(datei->addAction("Bild speichern (PNG) …"), "mnuPng"), &QAction::triggered, this,
            Sicher([this] { PngSpeichern(); }));

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { GrafikGo(); }));
    connect(btnNextEbene_, &QPushButton::clicked, this, Sicher([this] { Blaettern(0); }));
    connect(btnDown_, &QPushButton::clicked, this, Sicher([this] { Blaettern(-1); }));
    connect(btnUp_, &QPushButton::clicked, this, Sicher([this] { Blaettern(1); }));
    connect(btnOK_, &QPushButton::clicked, this, [this] { close(); });
    connect(chkInfo_, &QCheckBox::toggled, this, Sicher([this] { InfoAnAus(); }));
    connect(chkAbWeichungVonPi2_, &QCheckBox::toggled, this, Sicher([this] { AbweichungAnzeigen(); }));
    connect(chkZwillinge_, &QCheckBox::toggled, this, Sicher([this] { GrafikPlot(); }));
    for (QRadioButton* o : optFarben_) connect(o, &QRadioButton::toggled, this, Sicher([this] { GrafikPlot(); }));
    for (QLineEdit* f : {txtGlaettung_, txtFaktor_, txtFaktorKombinationen_}) {
        connect(f, &QLineEdit::editingFinished, this, Sicher([this] { GrafikPlot(); }));
    }
    connect(txtBalkenBreite_, &QLineEdit::editingFinished, this, Sicher([this] {
                if (ganzzahl(txtBalkenBreite_, 3) != BalkenBreite && !BalkenAnzahl.empty()) GrafikGo();
            }));
    resize(1150, 720);
    IconsAufbauen("");  // print, save (List1), photo, calculator, close
    FensterLaden(QString::fromStdString(AktivesFenster));
    ruheText_ = btnGO_->text();
}

void frmAbstaendeGrafik::ZusatzwerteLaden() {
    std::string meldung;
    EingabeModus = LueckenEinstellung("EingabeModus", IniLesen(kSektion, "EingabeModus"), 0, 2, meldung);
    IntervallLage = LueckenEinstellung("IntervallLage", IniLesen(kSektion, "IntervallLage"), 1, 2, meldung);
    for (int i = 0; i < 3; ++i) fraModus_[i]->setChecked(i == EingabeModus);
    if (!meldung.empty()) MsgInfoText(meldung);
}

void frmAbstaendeGrafik::ZusatzwerteSpeichern() {
    IniSchreiben(kSektion, "EingabeModus", EingabeModus);
    IniSchreiben(kSektion, "IntervallLage", IntervallLage);
}

void frmAbstaendeGrafik::ShowMe(int modus) {
    optZaehlung_[ArtNachbarn]->setChecked(true);
    chkAbWeichungVonPi2_->setChecked(modus == 1);
    chkZwillinge_->setChecked(modus == 1);
    show();
    // Counted once the picture has its size (the number of bars follows its width), and only
    // when the stretch lies in the raster: a window that opens owes nobody a box.
    QTimer::singleShot(0, this, Sicher([this] {
        if (eintraegeLesen() && Decimal(GrafikEnde) <= PrimaerGrenze && !PrimaerRaster.empty()) GrafikGo();
    }));
}

void frmAbstaendeGrafik::InfoAnAus() {
    picText_->setVisible(chkInfo_->isChecked());
    if (!BalkenAnzahl.empty()) QTimer::singleShot(0, this, Sicher([this] { GrafikGo(); }));
}

int32_t frmAbstaendeGrafik::zaehlart() const {
    for (int i = 0; i < 5; ++i) {
        if (optZaehlung_[i]->isChecked()) return i;
    }
    return ArtNachbarn;
}

int32_t frmAbstaendeGrafik::farben() const {
    for (int i = 0; i < 3; ++i) {
        if (optFarben_[i]->isChecked()) return i;
    }
    return 0;
}

int64_t frmAbstaendeGrafik::marke(int32_t i) const {
    if (art_ == ArtFolge) return AbstandVon + i + 1;  // gaps are numbered from 1
    if (art_ == ArtDichte) return int64_t(GrafikStart + Zahl128(teil_) * unsigned(i));
    return AbstandVon + 2 * int64_t(i);
}

// The stretch from the entries of the chosen mode: x where it lies, w how long it is, placed by
// IntervallLage (0 ending at x, 1 starting at x, 2 around x).
bool frmAbstaendeGrafik::eintraegeLesen() {
    const std::optional<double> x = kommazahl(txtSchranke_[EingabeModus]);
    const std::optional<double> w = kommazahl(txtIntervall_[EingabeModus]);
    const auto s = x && w ? sw::Zwillingsschaetzung(EingabeModus, *x, *w) : std::nullopt;
    if (!s) {
        MsgInfo(424);
        return false;
    }
    const double lage = EingabeModus == 0 ? *x : std::pow(10.0, *x);
    const double laenge = EingabeModus == 2 ? std::pow(10.0, *w) : *w;
    // Beyond 2^96 no range of the program reaches; below 2 there are no primes.
    if (lage + laenge >= 7.9e28 || laenge < 1) {
        MsgInfo(424);
        return false;
    }
    Zwillingsschaetzung = *s;
    GrafikSchranke = lage;
    GrafikBreite = laenge;
    // Doubles hold whole numbers exactly below 2^53 and every power of ten up to 10^22; a
    // larger x typed as a number is taken from its digits.
    Zahl128 anfang = EingabeModus == 0 && lage >= 9e15 ? TextZuDecimal(txtSchranke_[0]->text().toStdString()).Betrag()
                                                       : Zahl128(std::floor(lage));
    const Zahl128 l = Zahl128(std::floor(laenge));
    if (IntervallLage == 0) anfang = anfang > l ? anfang - l : 0;
    if (IntervallLage == 2) anfang = anfang > l / 2 ? anfang - l / 2 : 0;
    GrafikStart = anfang;
    GrafikEnde = GrafikStart + l;
    return true;
}

AbstandMelder frmAbstaendeGrafik::melder() {
    const double start = Timer();
    return [this, start](double anteil) {
        const int32_t prozent = int32_t(std::lround(anteil * 100));
        lblFortschritt_->setText(QString("%1 %  ").arg(prozent) + q(ZeitText(start, anteil, 0, 1)));
        DoEvents();
        return !Abbruch;
    };
}

bool frmAbstaendeGrafik::zaehlen(int32_t art, bool zufall, AbstandZaehlung& z) {
    const AbstandMelder melden = melder();
    if (zufall) return AbstandZufallZaehlen(z, GrafikStart, GrafikEnde, melden);
    if (art == ArtSekundaer) {
        const SekundaerSperre sperre;
        return AbstandSekundaerZaehlen(z, GrafikStart, GrafikEnde, melden);
    }
    return AbstandPrimaerZaehlen(z, GrafikStart, GrafikEnde, melden);
}

void frmAbstaendeGrafik::GrafikGo() {
    if (Laeuft()) {
        Abbruch = true;
        return;
    }
    if (!eintraegeLesen()) return;
    const int32_t art = zaehlart();
    if (art == ArtSekundaer) {
        if (Decimal(GrafikStart) <= PrimaerGrenze) {
            MsgInfoP1(2105, ZahlFormat(PrimaerGrenze + Decimal(1)));
            return;
        }
        if (!SekundaerPruefen(Decimal(GrafikStart), Decimal(GrafikEnde - GrafikStart))) return;
    } else if (Decimal(GrafikEnde) > PrimaerGrenze) {
        MsgInfoP1(2104, ZahlFormat(PrimaerGrenze));
        return;
    }
    BalkenBreite = std::clamp(ganzzahl(txtBalkenBreite_, 3), 1, kBalkenMax);
    breiteGezaehlt_ = picAnzeige_->width();
    const int32_t n = BalkenZahl(breiteGezaehlt_, BalkenBreite);
    const int32_t seite = std::max(1, ganzzahl(txtVonAbstand_, 1));
    txtVonAbstand_->setText(QString::number(seite));
    AbstandVon = art == ArtFolge ? seite - 1 : 2 * seite;
    AbstandBis = art == ArtFolge ? AbstandVon + n : AbstandVon + 2 * std::max(n, 0);
    txtBisAbstand_->setText(QString::number(art == ArtFolge ? AbstandBis + 1 : AbstandBis));
    art_ = art;
    for (QListWidget* l : List_) l->clear();

    const Lauf lauf(*this);
    Abbruch = false;
    btnGO_->setText("Stop");
    const auto ruhe = qScopeGuard([this] {
        btnGO_->setText(ruheText_);
        Abbruch = false;
    });
    AbstandZaehlung z(art, GrafikStart, GrafikEnde, AbstandVon, n);
    bool fertig = true;
    if (art == ArtPaare) {
        // All pairs from the running sums of the neighbour gaps; nothing to count without bars.
        const std::vector<int64_t> paare = PaarAbstaende(int64_t(GrafikStart), int64_t(GrafikEnde),
                                                         2 * (AbstandVon / 2 + n + 2), n >= 0, melder());
        BalkenAnzahl.assign(size_t(std::max(n + 1, 0)), 0);
        for (int32_t i = 0; i <= n && size_t(AbstandVon / 2 + i) < paare.size(); ++i) {
            BalkenAnzahl[size_t(i)] = paare[size_t(AbstandVon / 2 + i)];
        }
        fertig = !Abbruch;
    } else {
        fertig = zaehlen(art, false, z);
        BalkenAnzahl = z.Anzahl();
    }
    primzahlen_ = z.Primzahlen();
    teil_ = art == ArtDichte ? uint64_t((GrafikEnde - GrafikStart) / Zahl128(n + 1)) + 1 : 1;
    ZufallAnzahl.clear();
    if (fertig && chkZufall_->isChecked()) {
        ZufallSaat(uint64_t(Timer() * 1e6));
        AbstandZaehlung r(art, GrafikStart, GrafikEnde, AbstandVon, n);
        fertig = zaehlen(art, true, r);
        ZufallAnzahl = r.Anzahl();
    }
    gestoppt_ = !fertig;
    lblFortschritt_->setText(gestoppt_ ? q(TextP1(2107, ZahlFormat(Decimal(GrafikStart)))) : QString());
    lblPi2_->setText(q(Text(2108).substr(0, Text(2108).find("#P1"))) + q(LabelZahl(Zwillingsschaetzung)) + "  (" +
                     q(ZahlName(GrafikSchranke)) + ")");
    AbweichungAnzeigen();
}

void frmAbstaendeGrafik::AbweichungAnzeigen() {
    const bool abweichung = chkAbWeichungVonPi2_->isChecked();
    BalkenWert.assign(BalkenAnzahl.size(), 0);
    double summe = 0;
    for (int64_t a : BalkenAnzahl) summe += double(a);
    const double mittel = BalkenAnzahl.empty() ? 1 : std::max(1.0, summe / double(BalkenAnzahl.size()));
    for (size_t i = 0; i < BalkenAnzahl.size(); ++i) {
        const double a = double(BalkenAnzahl[i]);
        if (art_ == ArtFolge) {
            BalkenWert[i] = a;
        } else if (art_ == ArtDichte) {
            BalkenWert[i] = a / mittel - 1;
        } else {
            // Pairs of every difference d are expected as twins times the singular series of d;
            // neighbours are read against the twins alone.
            const double erwartet =
                Zwillingsschaetzung * (art_ == ArtPaare ? std::max(SingulaereReihe(marke(int32_t(i))), 1e-9) : 1.0);
            BalkenWert[i] = abweichung ? a / erwartet - 1 : a / erwartet;
        }
    }
    listenFuellen();
    GrafikPlot();
}

void frmAbstaendeGrafik::listenFuellen() {
    for (QListWidget* l : List_) l->clear();
    QString marken, anzahlen, werte, zufall;
    for (size_t i = 0; i < BalkenAnzahl.size(); ++i) {
        marken += QString::number(marke(int32_t(i))) + ";";
        anzahlen += QString::number(BalkenAnzahl[i]) + ";";
        werte += q(AbweichungText(BalkenWert[i])) + ";";
        if (i < ZufallAnzahl.size()) zufall += QString::number(ZufallAnzahl[i]) + ";";
    }
    List_[0]->addItem(marken);
    List_[0]->addItem(q("x=" + Decimal(GrafikStart).Text() + ";w=" + Decimal(GrafikEnde - GrafikStart).Text() + ";"));
    List_[1]->addItem(anzahlen);
    if (!zufall.isEmpty()) List_[1]->addItem(zufall);
    List_[2]->addItem(werte);
    List_[2]->addItem(q("Pi2=" + AbweichungText(Zwillingsschaetzung) + ";"));
}

std::vector<double> frmAbstaendeGrafik::geglaettet(const std::vector<double>& werte) const {
    const int l = std::clamp(ganzzahl(txtGlaettung_, 0), 0, 1000);
    if (l == 0) return werte;
    std::vector<double> aus(werte.size());
    for (size_t i = 0; i < werte.size(); ++i) {
        const size_t a = i >= size_t(l) ? i - size_t(l) : 0, b = std::min(werte.size() - 1, i + size_t(l));
        double s = 0;
        for (size_t k = a; k <= b; ++k) s += werte[k];
        aus[i] = s / double(b - a + 1);
    }
    return aus;
}

void frmAbstaendeGrafik::GrafikPlot() {
    picAnzeige_->Leeren();
    picSkala_->Leeren();
    picText_->Leeren();
    const int hoehe = picAnzeige_->height(), breite = picAnzeige_->width();
    if (BalkenWert.empty()) {
        // Before the first count there is nothing to explain; after it, no bars means the
        // picture had no room for one.
        if (breiteGezaehlt_ >= 0) picText_->Text(kRand, kRand, q(Text(2106)), Qt::black);
        return;
    }
    // The views: level alignment divides by the singular series, so that all differences stand
    // at the height of the twins if Hardy-Littlewood is right.
    std::vector<double> werte = BalkenWert;
    std::vector<double> zufall(ZufallAnzahl.begin(), ZufallAnzahl.end());
    for (size_t i = 0; i < zufall.size(); ++i) {
        zufall[i] = BalkenAnzahl[i] && BalkenWert[i] ? zufall[i] * BalkenWert[i] / double(BalkenAnzahl[i]) : zufall[i] / std::max(1.0, Zwillingsschaetzung);
    }
    if (mnuNiveauAngleich_->isChecked() && art_ != ArtFolge && art_ != ArtDichte && art_ != ArtPaare) {
        for (size_t i = 0; i < werte.size(); ++i) {
            const double s = SingulaereReihe(marke(int32_t(i)));
            if (s > 0) werte[i] /= s;
            if (i < zufall.size() && s > 0) zufall[i] /= s;
        }
    }
    werte = geglaettet(werte);
    zufall = geglaettet(zufall);
    double oben = 0, unten = 0;
    for (double v : werte) oben = std::max(oben, v), unten = std::min(unten, v);
    for (double v : zufall) oben = std::max(oben, v), unten = std::min(unten, v);
    const bool plusMinus = mnuPlusMinus_->isChecked();
    if (plusMinus) {
        const double m = std::max(std::fabs(oben), std::fabs(unten));
        oben = m, unten = -m;
    }
    if (oben - unten <= 0) oben = unten + 1;
    const double mass = (hoehe - 20) / (oben - unten);
    const int null = hoehe - 10 - int(std::lround(-unten * mass));
    const int64_t faktor = std::max(1, ganzzahl(txtFaktor_, 1));
    int64_t kombination = 1;
    for (const QString& t : txtFaktorKombinationen_->text().split(',', Qt::SkipEmptyParts)) {
        kombination *= std::max<int64_t>(1, t.trimmed().toLongLong());
    }
    const int32_t farbArt = farben();
    const auto farbe = [&](size_t i) {
        const int64_t d = marke(int32_t(i));
        if (mnuFaktor_->isChecked() && d % faktor) return QColor(210, 210, 210);
        if (mnuFaktorenDarstellung_->isChecked() && d % kombination == 0) return QColor(230, 120, 0);
        if (farbArt == 1) return d % 6 == 0 ? kFarbReihe[1] : kFarbReihe[0];
        if (farbArt == 2) return kFarbReihe[std::min(ungeradeFaktoren(d), 4)];
        return kFarbReihe[0];
    };
    const int schritt = BalkenBreite + 1;
    const double wertMax = std::max(std::fabs(oben), std::fabs(unten));
    picAnzeige_->Malen([&](QPainter& p) {
        p.setPen(Qt::gray);
        p.drawLine(0, null, breite, null);
        QPolygon kurve, kurveZufall;
        for (size_t i = 0; i < werte.size(); ++i) {
            const int x = int(i) * schritt;
            const int y = null - int(std::lround(werte[i] * mass));
            if (mnuKurvenDarstellung_->isChecked()) {
                kurve << QPoint(x + BalkenBreite / 2, y);
            } else if (mnuBarcode_->isChecked()) {
                // The value as a shade over the full height: clusters of frequent gaps show as dark bands.
                const int ton = 255 - int(std::lround(std::clamp(std::fabs(werte[i]) / wertMax, 0.0, 1.0) * 255));
                p.fillRect(x, 0, BalkenBreite, hoehe, QColor(ton, ton, ton));
            } else {
                p.fillRect(QRect(QPoint(x, std::min(y, null)), QPoint(x + BalkenBreite - 1, std::max(y, null))), farbe(i));
            }
            if (i < zufall.size()) kurveZufall << QPoint(x + BalkenBreite / 2, null - int(std::lround(zufall[i] * mass)));
        }
        p.setPen(QPen(kFarbReihe[0], 1));
        p.drawPolyline(kurve);
        p.setPen(QPen(kFarbReihe[1], 1));
        p.drawPolyline(kurveZufall);
        if (chkZwillinge_->isChecked() && art_ != ArtFolge && art_ != ArtDichte) {
            // The height the estimate gives the twins.
            const double eins = chkAbWeichungVonPi2_->isChecked() ? 0 : 1;
            const int y = null - int(std::lround(eins * mass));
            p.setPen(QPen(Qt::darkGreen, 1, Qt::DashLine));
            p.drawLine(0, y, breite, y);
        }
    });
    picSkala_->Text(kRand, kRand, q(LabelZahl(oben)), Qt::black);
    picSkala_->Text(kRand, std::clamp(null - 8, 12, hoehe - 30), "0", Qt::black);
    picSkala_->Text(kRand, hoehe - 18, q(LabelZahl(unten)), Qt::black);

    const int zeile = picText_->TextHoehe() + 2;
    int y = 4;
    const auto text = [&](const QString& t) {
        picText_->Text(kRand, y, t, Qt::black);
        y += zeile;
    };
    text(optZaehlung_[art_]->text());
    text("x = " + q(ZahlName(GrafikSchranke)));
    text("ln(x) = " + QString::number(std::log(std::max(GrafikSchranke, 2.0)), 'f', 4));
    text("w = " + q(ZahlName(GrafikBreite)));
    text(q(TextP1(2108, LabelZahl(Zwillingsschaetzung))));
    if (primzahlen_) text(q(TextP1(2109, ZahlFormat(static_cast<long long>(primzahlen_)))));
    text(QString("%1 .. %2").arg(marke(0)).arg(marke(int32_t(BalkenWert.size()) - 1)));
    if (gestoppt_) text(lblFortschritt_->text());
}

QString frmAbstaendeGrafik::CursorText(int x) const {
    const int i = x / (BalkenBreite + 1);
    if (x < 0 || i < 0 || size_t(i) >= BalkenWert.size()) return {};
    const double ln = std::log(std::max(GrafikSchranke, 2.0));
    return QString("%1: %2 = %3   x=%4 ln(x)=%5 * (%6)")
        .arg(marke(i))
        .arg(BalkenAnzahl[size_t(i)])
        .arg(q(AbweichungText(BalkenWert[size_t(i)])))
        .arg(q(ZahlName(GrafikSchranke)))
        .arg(ln, 0, 'f', 4)
        .arg(q(LabelZahl(Zwillingsschaetzung)));
}

bool frmAbstaendeGrafik::eventFilter(QObject* o, QEvent* e) {
    if (o == picAnzeige_ && e->type() == QEvent::MouseMove) {
        const auto* m = static_cast<QMouseEvent*>(e);
        lblCursor_->setText(CursorText(m->position().toPoint().x()));
    }
    return Fenster::eventFilter(o, e);
}

void frmAbstaendeGrafik::resizeEvent(QResizeEvent* e) {
    Fenster::resizeEvent(e);
    // The number of bars follows the width: a new width counts again, once the resizing is over.
    if (!BalkenAnzahl.empty() && !Laeuft()) {
        QTimer::singleShot(0, this, Sicher([this] {
            if (!Laeuft() && picAnzeige_->width() != breiteGezaehlt_) GrafikGo();
        }));
    }
}

void frmAbstaendeGrafik::Blaettern(int richtung) {
    if (Laeuft()) {
        Abbruch = true;
        return;
    }
    const int n = std::max(1, BalkenZahl(picAnzeige_->width(), std::max(1, ganzzahl(txtBalkenBreite_, 3))) + 1);
    const int von = std::max(1, ganzzahl(txtVonAbstand_, 1));
    txtVonAbstand_->setText(QString::number(richtung == 0 ? 1 : std::max(1, von + richtung * n)));
    GrafikGo();
}

std::string frmAbstaendeGrafik::CsvText() const {
    std::vector<std::vector<std::string>> listen(3);
    for (int k = 0; k < 3; ++k) {
        for (int i = 0; i < List_[k]->count(); ++i) listen[size_t(k)].push_back(List_[k]->item(i)->text().toStdString());
    }
    return AbstandCsvText(listen);
}

bool frmAbstaendeGrafik::CsvSchreiben(const QString& pfad) { return DateiErsetzen(pfad.toStdString(), CsvText()); }

bool frmAbstaendeGrafik::CsvLaden(const QString& pfad) {
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly)) {
        MsgLaufwerk();
        return false;
    }
    std::string fehler;
    const auto t = AbstandCsvLesen(datei.readAll().toStdString(), fehler);
    if (!t) {
        MsgInfoText(fehler);
        return false;
    }
    // The saved counts drawn as neighbours or pairs by their labels; the estimate stays the last one.
    BalkenAnzahl = t->anzahlen;
    ZufallAnzahl.clear();
    AbstandVon = int32_t(t->differenzen.empty() ? 2 : t->differenzen.front());
    AbstandBis = int32_t(t->differenzen.empty() ? 2 : t->differenzen.back());
    if (art_ == ArtFolge || art_ == ArtDichte) art_ = ArtNachbarn;
    BalkenWert = t->werte;
    for (QListWidget* l : List_) l->clear();
    listenFuellen();
    GrafikPlot();
    return true;
}

void frmAbstaendeGrafik::csvExport() {
    if (List_[0]->count() == 0) {
        MsgInfo(1104);
        return;
    }
    CsvSpeichern(CsvText());
}

void frmAbstaendeGrafik::csvImport() {
    DateiAnfrage anfrage{false, windowTitle(), q(ProgrammPfad), QString(), "*.CSV (*.CSV)"};
    if (const std::optional<QString> pfad = DateiDialog(this, anfrage)) CsvLaden(*pfad);
}

}  // namespace sw
