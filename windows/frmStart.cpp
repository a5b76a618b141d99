#include "windows/frmStart.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "frame/Meldungen.h"
#include "frame/Programm.h"
#include "frame/Speicher.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "sieve/Blockdateien.h"
#include "sieve/PrimaerLauf.h"
#include "sieve/SiebSegmentiert.h"
#include "sieve/RasterTabellen.h"
#include "sieve/basMaxPrimaer.h"
#include "sieve/basSiebwerk.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/Hilfe.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmStartOptionen.h"
#include "windows/frmStoppUhr.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// The research buttons by subject; the numbers are the indices of btnUntersuchung, which stay
// those of the program's table whatever the order on screen.
struct Gruppe {
    const char* name;
    std::initializer_list<int> knoepfe;
};
const Gruppe gruppen[] = {
    {"fraPrimzahlen", {22, 23, 24, 12, 25, 0, 4, 31, 1, 33, 18, 35, 3, 11}},
    {"fraPrimtests", {19, 5, 15, 10, 36, 30, 7, 13, 14}},
    {"fraMersenne", {9, 2, 8, 26, 6, 16, 32, 34}},
    {"fraCollatz", {27, 28, 29, 20, 21, 17}},
};

// The range variables, kept across a refused or failed start so that the raster and its
// limit never disagree: a window reading up to RasterLetzterIndex must find the words there.
struct Bereich {
    Decimal grenze = PrimaerGrenze;
    int32_t letzter = RasterLetzterIndex;
    int32_t wurzel = PrimaerWurzel;
    int32_t wurzelWort = PrimaerWurzelWort;
    void zuruecksetzen() const {
        PrimaerGrenze = grenze;
        RasterLetzterIndex = letzter;
        PrimaerWurzel = wurzel;
        PrimaerWurzelWort = wurzelWort;
    }
};

// The right column of the cockpit: always as wide as the option pages need, shown or not, so
// that opening an option page never changes the cockpit's width.
class OptionenSpalte : public QWidget {
public:
    using QWidget::QWidget;
    QWidget* optionen = nullptr;
    QSize sizeHint() const override { return breiter(QWidget::sizeHint()); }
    QSize minimumSizeHint() const override { return breiter(QWidget::minimumSizeHint()); }

private:
    QSize breiter(QSize s) const {
        if (optionen) s.setWidth(std::max(s.width(), optionen->sizeHint().width()));
        return s;
    }
};

// "0,85": the seconds of a run as the status line shows them.
QString sekundenText(double sekunden) { return QString::number(sekunden, 'f', 2).replace('.', DezimalTrenner); }

// The status line that shows the share done of a segmented run; set only while one runs.
QLabel* fortschrittsZeile = nullptr;

void fortschrittZeigen(int32_t prozent) {
    if (fortschrittsZeile) fortschrittsZeile->setText(q(TextP1(1701, prozent)));
}

// Lends the status line to the segmented sieve for one run.
struct FortschrittLeihen {
    explicit FortschrittLeihen(QLabel* zeile) {
        fortschrittsZeile = zeile;
        SiebFortschrittHook = &fortschrittZeigen;
    }
    ~FortschrittLeihen() {
        SiebFortschrittHook = nullptr;
        fortschrittsZeile = nullptr;
    }
};

}  // namespace

frmStart::frmStart() : Fenster("frmStart") {
    ProgrammStarten();
    oberflaecheAufbauen();
    menuesAufbauen();
    verbinden();
    optionen_->AusVariablen();   // the colours just read from SW.Ini
    optionen_->Uebernehmen(false);
    FensterLaden(q(AktivesFenster));
    optionen_->Uebernehmen(false);  // texts and stored values may have changed the controls
    txtGrenze_->setText(q(ZahlFormat(txtGrenze_->text().toStdString())));
    lblPrimMax_->clear();
    StoppUhrZeigenHook = &frmStoppUhr::Zeigen;
    StoppUhrZeigen();
    lblHinweis_->setText(q(StartNotiz()).replace("\r\n", "  ").replace('\n', "  ").trimmed());
    anzeigeFertig(q(Text(583)).trimmed());
    mersenneMenueFuellen();
    optionenAuflisten();
}

frmStart::~frmStart() { StoppUhrZeigenHook = nullptr; }

// ---- layout ----------------------------------------------------------------------------

void frmStart::oberflaecheAufbauen() {
    auto* mitte = new QWidget(this);
    auto* haupt = new QHBoxLayout(mitte);
    auto* links = new QVBoxLayout;
    auto* spalte = new OptionenSpalte(mitte);
    auto* rechts = new QVBoxLayout(spalte);
    rechts->setContentsMargins(0, 0, 0, 0);
    haupt->addLayout(links, 0);
    haupt->addWidget(spalte, 1);

    // The limit, what the raster decides, the status line.
    auto* oben = Benannt(new QGroupBox(mitte), "fraOben");
    auto* obenLay = new QGridLayout(oben);
    txtGrenze_ = Benannt(new QLineEdit("200.000.000", oben), "txtGrenze");
    txtGrenze_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9.]*"), txtGrenze_));
    txtGrenze_->setMaxLength(40);
    txtGrenze_->setAlignment(Qt::AlignRight);
    QFont gross = txtGrenze_->font();
    gross.setPointSizeF(gross.pointSizeF() * 1.25);
    txtGrenze_->setFont(gross);
    btnHelp_ = Benannt(new QPushButton(oben), "btnHelp");
    lblPrimMax_ = Benannt(new QLabel(oben), "lblPrimMax");
    lblPrimMax_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblPrimMax_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblAnzeige_ = Benannt(new QLabel(oben), "lblAnzeige");
    lblAnzeige_->setAlignment(Qt::AlignCenter);
    lblAnzeige_->setMinimumHeight(34);
    QFont fett = lblAnzeige_->font();
    fett.setBold(true);
    lblAnzeige_->setFont(fett);
    anzeigeFertig(QString());
    obenLay->addWidget(Benannt(new QLabel(oben), "lblGrenze"), 0, 0);
    obenLay->addWidget(txtGrenze_, 0, 1);
    obenLay->addWidget(btnHelp_, 0, 2);
    obenLay->addWidget(Benannt(new QLabel(oben), "lblPrimMaxText"), 1, 0);
    obenLay->addWidget(lblPrimMax_, 1, 1);
    obenLay->addWidget(lblAnzeige_, 2, 0, 1, 3);
    obenLay->setColumnStretch(1, 1);
    links->addWidget(oben);

    // The seven build methods.
    auto* methoden = Benannt(new QGroupBox(mitte), "fraMethoden");
    auto* methLay = new QGridLayout(methoden);
    for (int i = 0; i < MethodenAnzahl; ++i) {
        auto* b = Benannt(new QPushButton(methoden), "btnStart", i);
        btnStart_.append(b);
        methLay->addWidget(b, i / 4, i % 4);
    }
    links->addWidget(methoden);

    // The research windows, by subject, in two columns of frames.
    btnUntersuchung_.resize(UntersuchungAnzahl);
    auto* untersuchungen = new QGridLayout;
    int g = 0;
    for (const Gruppe& gruppe : gruppen) {
        auto* rahmen = Benannt(new QGroupBox(mitte), gruppe.name);
        auto* lay = new QGridLayout(rahmen);
        int n = 0;
        for (int index : gruppe.knoepfe) {
            auto* b = Benannt(new QPushButton(rahmen), "btnUntersuchung", index);
            btnUntersuchung_[index] = b;
            lay->addWidget(b, n / 2, n % 2);
            ++n;
        }
        lay->setRowStretch((n + 1) / 2, 1);
        untersuchungen->addWidget(rahmen, g / 2, g % 2);
        ++g;
    }
    links->addLayout(untersuchungen, 1);

    // Options, their list, the end question and the memory window.
    optionen_ = new StartOptionen(spalte);
    spalte->optionen = optionen_;
    optionen_->hide();
    rechts->addWidget(optionen_);
    rechts->addWidget(Benannt(new QLabel(spalte), "lblListe"));
    list1_ = Benannt(new QListWidget(spalte), "List1");
    list1_->setMinimumWidth(300);
    list1_->setAlternatingRowColors(true);
    rechts->addWidget(list1_, 1);
    auto* unten = new QHBoxLayout;
    chkEndeFrage_ = Benannt(new QCheckBox(spalte), "chkEndeFrage");
    btnAuslastung_ = Benannt(new QPushButton(spalte), "btnAuslastung");
    unten->addWidget(chkEndeFrage_);
    unten->addStretch(1);
    unten->addWidget(btnAuslastung_);
    rechts->addLayout(unten);

    setCentralWidget(mitte);
    lblHinweis_ = Benannt(new QLabel(this), "lblHinweis");
    statusBar()->addWidget(lblHinweis_, 1);
}

void frmStart::menuesAufbauen() {
    auto aktion = [this](QMenu* menue, const char* name) {
        auto* a = Benannt(new QAction(this), name);
        menue->addAction(a);
        return a;
    };
    auto* datei = Benannt(menuBar()->addMenu(QString()), "mnuDatei");
    auto* laden = aktion(datei, "mnuLaden");
    mnuSpeichern_ = aktion(datei, "mnuSpeichern");
    auto* sekSpeichern = aktion(datei, "mnuSekSpeichern");
    datei->addSeparator();
    auto* ende = aktion(datei, "mnuEnde");
    mnuSpeichern_->setEnabled(false);  // enabled by the end of a run
    laden->setShortcut(QKeySequence::Open);
    mnuSpeichern_->setShortcut(QKeySequence::Save);
    ende->setShortcut(QKeySequence::Quit);
    connect(laden, &QAction::triggered, this, Sicher([this] { Laden(); }));
    connect(mnuSpeichern_, &QAction::triggered, this, Sicher([this] { Speichern(); }));
    connect(sekSpeichern, &QAction::triggered, this, Sicher([this] { SekSpeichern(); }));
    connect(ende, &QAction::triggered, this, &QWidget::close);

    auto* extras = Benannt(menuBar()->addMenu(QString()), "mnuExtras");
    auto* primModify = aktion(extras, "mnuPrimModify");
    auto* primTest = aktion(extras, "mnuPrimzahlTest");
    auto* faktorAnzeige = aktion(extras, "mnuFaktorAnzeige");
    mnuMersenne_ = Benannt(new QMenu(extras), "mnuMersenne");
    extras->addMenu(mnuMersenne_);
    extras->addSeparator();
    auto* speicher = aktion(extras, "mnuSpeicherAuslastung");
    auto* alleZu = aktion(extras, "mnuCloseAllWindows");
    connect(primModify, &QAction::triggered, this, Sicher([this, primModify] {
                AktivesFenster = beschriftung(primModify).toStdString();
                FensterOeffnen("frmPrimModify", -1, this);
            }));
    connect(primTest, &QAction::triggered, this, Sicher([this, primTest] {
                AktivesFenster = beschriftung(primTest).toStdString();
                FensterOeffnen("frmPrimzahlTest", -1, this);
            }));
    connect(faktorAnzeige, &QAction::triggered, this, Sicher([this, faktorAnzeige] {
                AktivesFenster = beschriftung(faktorAnzeige).toStdString();
                FensterOeffnen("frmFaktorAnzeige", -1, this);
            }));
    connect(speicher, &QAction::triggered, this, Sicher([this, speicher] {
                AktivesFenster = beschriftung(speicher).toStdString();
                FensterOeffnen("frmSpeicherAuslastung", -1, this);
            }));
    connect(alleZu, &QAction::triggered, this, Sicher([this] { AlleFensterSchliessen(); }));
    laufSperre_ = {laden, mnuSpeichern_, sekSpeichern, primModify, primTest, faktorAnzeige, mnuMersenne_->menuAction()};

    auto* benutzer = Benannt(menuBar()->addMenu(QString()), "mnuBenutzer");
    const std::pair<const char*, int> seiten[] = {
        {"mnuSystemEinstellungen", StartOptionen::SeiteSystem},
        {"mnuZahlenDarstellung", StartOptionen::SeiteZahlen},
        {"mnuFarbEinstellung", StartOptionen::SeiteFarben},
        {"mnuZahlensystem", StartOptionen::SeiteZahlensystem},
    };
    for (const auto& [name, seite] : seiten) {
        auto* a = aktion(benutzer, name);
        const int s = seite;
        connect(a, &QAction::triggered, this, Sicher([this, s] { OptionenZeigen(s); }));
    }

    auto* hilfe = Benannt(menuBar()->addMenu(QString()), "mnuFragezeichen");
    auto* inhalt = aktion(hilfe, "mnuInhalt");
    auto* index = aktion(hilfe, "mnuIndex");
    auto* suchen = aktion(hilfe, "mnuSuchen");
    hilfe->addSeparator();
    auto* info = aktion(hilfe, "mnuInfo");
    connect(inhalt, &QAction::triggered, this, Sicher([] { HilfeInhalt(); }));
    connect(index, &QAction::triggered, this, Sicher([] { HilfeIndex(); }));
    connect(suchen, &QAction::triggered, this, Sicher([] { HilfeSuchen(); }));
    connect(info, &QAction::triggered, this, Sicher([this] { ueberSW(); }));
}

void frmStart::verbinden() {
    for (int i = 0; i < btnStart_.size(); ++i) {
        connect(btnStart_[i], &QPushButton::clicked, this, Sicher([this, i] { Lauf(i); }));
    }
    for (int i = 0; i < btnUntersuchung_.size(); ++i) {
        connect(btnUntersuchung_[i], &QPushButton::clicked, this, Sicher([this, i] { Untersuchung(i); }));
    }
    connect(txtGrenze_, &QLineEdit::editingFinished, this, Sicher([this] { grenzeVerlassen(); }));
    connect(btnHelp_, &QPushButton::clicked, this, Sicher([] { HilfeZeigen("Informationen"); }));
    connect(btnAuslastung_, &QPushButton::clicked, this, Sicher([this] {
                AktivesFenster = beschriftung(btnAuslastung_).toStdString();
                FensterOeffnen("frmSpeicherAuslastung", -1, this);
            }));
    connect(optionen_->KnopfGO(), &QPushButton::clicked, this, Sicher([this] { OptionenAnwenden(); }));
    connect(optionen_->KnopfCancel(), &QPushButton::clicked, this, Sicher([this] { OptionenVerwerfen(); }));
    for (int i = 0; i < 4; ++i) optionen_->FarbFeld(i)->installEventFilter(this);
    list1_->viewport()->installEventFilter(this);
}

QString frmStart::beschriftung(const QObject* steuer) const {
    QString text;
    if (auto* b = qobject_cast<const QAbstractButton*>(steuer)) text = b->text();
    if (auto* a = qobject_cast<const QAction*>(steuer)) text = a->text();
    return text.remove('&');
}

// ---- the limit and the run -------------------------------------------------------------

void frmStart::grenzeVerlassen() {
    Decimal wert;
    try {
        wert = TextZuDecimal(txtGrenze_->text().toStdString());
    } catch (const Laufzeitfehler& f) {
        // A limit beyond any number stays as typed; the start button says what is allowed.
        if (f.Nummer() == FehlerUeberlauf) return;
        throw;
    }
    if (wert < Decimal(1000)) wert = 1000;
    txtGrenze_->setText(q(ZahlFormat(wert)));
}

void frmStart::knoepfeSperren(bool gesperrt) {
    for (QPushButton* b : btnStart_) b->setEnabled(!gesperrt);
    for (QPushButton* b : btnUntersuchung_) b->setEnabled(!gesperrt);
    // Loading, saving or modifying the raster while it is being rebuilt (a yield of the sieve
    // lets the menu run) would pull it away under the sieve; the menus that open research
    // windows wait like the research buttons.
    for (QAction* a : laufSperre_) a->setEnabled(!gesperrt);
    if (!gesperrt) mnuSpeichern_->setEnabled(RasterBereit);
}

void frmStart::anzeigeLaeuft(const QString& text) {
    lblAnzeige_->setStyleSheet("QLabel#lblAnzeige { color: black; background: white; border: 1px solid #9a9a9a; }");
    lblAnzeige_->setText(text);
}

void frmStart::anzeigeFertig(const QString& text) {
    lblAnzeige_->setStyleSheet("QLabel#lblAnzeige { color: white; background: black; border: 1px solid black; }");
    lblAnzeige_->setText(text);
}

bool frmStart::laufVorbereiten(bool vorsieben) {
    knoepfeSperren(true);
    anzeigeLaeuft(q(Text(143)));
    lblAnzeige_->repaint();
    if (vorsieben && !RasterVorsieben()) {
        laufAbgebrochen(true);
        return false;
    }
    DoEvents();
    StartZeit = Timer();
    return true;
}

void frmStart::laufAnzeigen(double sekunden, const QString& was) {
    lblPrimMax_->setText(q(ZahlFormat(PrimaerQuadrat)));
    QString text = q(Text(144));
    const QString sek = sekundenText(sekunden);
    laeufe_ << QStringLiteral("%1: %2 – %3 s").arg(was, q(ZahlFormat(PrimaerGrenze)), sek);
    optionenAuflisten();
    text = text.contains("#P1", Qt::CaseInsensitive) ? text.replace("#P1", sek, Qt::CaseInsensitive) : text + " " + sek;
    anzeigeFertig(text);
    knoepfeSperren(false);
}

void frmStart::laufAbgebrochen(bool rasterVerloren) {
    if (rasterVerloren) RasterBereit = false;
    if (!RasterBereit || PrimaerRaster.size() <= static_cast<size_t>(RasterLetzterIndex)) {
        // No usable raster, so no range either: no reader may look beyond the one word left.
        RasterBereit = false;
        RasterAufEinWort();
        PrimaerGrenze = PrimaerQuadrat = Decimal();
        PrimaerWurzel = PrimaerWurzelWort = 0;
        lblPrimMax_->clear();
    }
    anzeigeFertig(QString());
    knoepfeSperren(false);
}

bool frmStart::grenzeMoeglich(const std::string& text) {
    bool moeglich = true;
    try {
        moeglich = !(TextZuDecimal(text) > GroessteGrenze());
    } catch (const Laufzeitfehler& f) {
        if (f.Nummer() != FehlerUeberlauf) throw;
        moeglich = false;
    }
    if (moeglich) return true;
    // The raster takes one 32-bit word per 120 numbers.
    const auto speicher = [](double grenze) {
        const double bytes = (std::floor(grenze / RasterSpanne) + 1) * 4;
        return bytes < 9.0e18 ? GroesseText(uint64_t(bytes)) : Text(1117);
    };
    const std::string bereinigt = ZahlBereinigt(text);
    MsgInfoText(TextP1P2(1115, ZahlFormat(bereinigt), speicher(std::strtod(bereinigt.c_str(), nullptr))) + "\n" +
                TextP1P2(1116, ZahlFormat(GroessteGrenze()), speicher(GroessteGrenze().Double())));
    return false;
}

void frmStart::Lauf(int methode) {
    const Bereich vorher;
    if (!grenzeMoeglich(txtGrenze_->text().toStdString())) return;
    try {
        if (!GrenzeSetzen(TextZuDecimal(txtGrenze_->text().toStdString()))) {
            vorher.zuruecksetzen();
            return;
        }
        txtGrenze_->setText(q(ZahlFormat(PrimaerGrenze)));
        if (!MethodeZulaessig(methode)) {
            vorher.zuruecksetzen();
            return;
        }
    } catch (...) {
        vorher.zuruecksetzen();
        throw;
    }
    if (!laufVorbereiten(true)) return;
    StoppUhrStart(beschriftung(btnStart_[methode]).toStdString());
    double sekunden = 0;
    try {
        FortschrittLeihen fortschritt(lblAnzeige_);
        MethodeAusfuehren(methode);
        sekunden = Timer() - StartZeit;
        StoppUhrStop();
        LaufAbschliessen();
    } catch (...) {
        if (StoppUhr.laeuft) StoppUhrStop();
        laufAbgebrochen(true);  // a half-built raster
        throw;
    }
    laufAnzeigen(sekunden, beschriftung(btnStart_[methode]));
}

void frmStart::Untersuchung(int index) {
    AktivesFenster = beschriftung(btnUntersuchung_.value(index)).toStdString();
    const sw::Untersuchung& u = UntersuchungVon(index);
    if (!u.fenster) {
        lblAnzeige_->setText(q(TextP1Zahl(145, PrimAnzahl(2, PrimaerGrenze))));
        return;
    }
    FensterOeffnen(u.fenster, u.modus, this);
}

// ---- block files -----------------------------------------------------------------------

void frmStart::Laden() {
    DateiAnfrage anfrage{false, beschriftung(SteuerFinden(this, "mnuLaden")), q(ProgrammPfad),
                         q(BlockName(PrimaerGrenze)), "Block (*.BLK *.blk);;* (*)"};
    std::optional<QString> pfad = DateiDialog(this, anfrage);
    if (!pfad) return;
    // The load allocates the raster itself from the file's length: no pre-sieve before it.
    laufVorbereiten(false);
    try {
        // A file refused before reading leaves the raster as it was; a failed read does not.
        if (!PrimaerBlockLaden(pfad->toStdString())) {
            laufAbgebrochen(false);
            return;
        }
    } catch (...) {
        laufAbgebrochen(true);
        throw;
    }
    txtGrenze_->setText(q(ZahlFormat(PrimaerGrenze)));
    laufAnzeigen(Timer() - StartZeit, QFileInfo(*pfad).fileName());
}

void frmStart::Speichern() {
    DateiAnfrage anfrage{true, beschriftung(mnuSpeichern_), q(ProgrammPfad), q(BlockName(PrimaerGrenze)),
                         "Block (*.BLK *.blk)"};
    if (std::optional<QString> pfad = DateiDialog(this, anfrage)) RasterSpeichern(pfad->toStdString(), PrimaerRaster);
}

void frmStart::SekSpeichern() {
    DateiAnfrage anfrage{true, beschriftung(SteuerFinden(this, "mnuSekSpeichern")), q(ProgrammPfad), "S000.BLK",
                         "Block (*.BLK *.blk)"};
    if (std::optional<QString> pfad = DateiDialog(this, anfrage)) RasterSpeichern(pfad->toStdString(), SekundaerRaster);
}

// ---- options ---------------------------------------------------------------------------

void frmStart::OptionenZeigen(int seite) {
    static const char* const menues[] = {"mnuSystemEinstellungen", "mnuZahlenDarstellung", "mnuFarbEinstellung",
                                         "mnuZahlensystem"};
    optionen_->AusVariablen();
    optionen_->SeiteZeigen(seite, beschriftung(SteuerFinden(this, menues[seite])));
}

bool frmStart::OptionenAnwenden() {
    const bool stoppUhrVorher = StoppUhrAktiv;
    if (!optionen_->Uebernehmen(true)) return false;  // the page stays open
    optionen_->hide();
    txtGrenze_->setText(q(ZahlFormat(txtGrenze_->text().toStdString())));
    if (!PrimaerQuadrat.IstNull()) lblPrimMax_->setText(q(ZahlFormat(PrimaerQuadrat)));
    if (StoppUhrAktiv != stoppUhrVorher) StoppUhrZeigen();
    optionenAuflisten();
    return true;
}

void frmStart::OptionenVerwerfen() {
    optionen_->AusVariablen();
    optionen_->hide();
}

void frmStart::optionenAuflisten() {
    list1_->clear();
    list1_->addItems(optionen_->Auflistung());
    if (!laeufe_.isEmpty()) list1_->addItems(QStringList{QString()} + laeufe_);
    list1_->setCurrentRow(-1);
}

void frmStart::farbeWaehlen(int index) {
    QLabel* feld = optionen_->FarbFeld(index);
    if (std::optional<QColor> farbe = FarbDialog(this, FarbeQt(HintergrundFarbe(feld)))) {
        HintergrundFarbeSetzen(feld, FarbeNummer(*farbe));
        optionen_->MusterAuffrischen();
    }
}

// ---- list, menus, help -----------------------------------------------------------------

void frmStart::listeKopieren() {
    QStringList zeilen;
    for (int i = 0; i < list1_->count(); ++i) zeilen << list1_->item(i)->text();
    QApplication::clipboard()->setText(zeilen.join('\n'));
    MsgInfo(210);
}

void frmStart::mersenneMenueFuellen() {
    mnuMersenne_->clear();
    const std::vector<int32_t> exponenten = TextListe(999);
    for (size_t i = 0; i < exponenten.size(); ++i) {
        const int32_t p = exponenten[i];
        auto* a = Benannt(new QAction(QStringLiteral("%1. p = %2").arg(i + 1).arg(q(ZahlFormatLong(p))), this),
                          "mnuMersenneP", int(i));
        mnuMersenne_->addAction(a);
        connect(a, &QAction::triggered, this, Sicher([this, p] {
                    AktivesFenster = beschriftung(mnuMersenne_->menuAction()).toStdString();
                    FensterOeffnen("frm2P_1", p, this);
                }));
    }
}

void frmStart::ueberSW() {
    QString text = QStringLiteral("<h3>SW %1</h3><p>%2</p><p>Qt %3</p>")
                       .arg(q(VersionText()).toHtmlEscaped(), q(Text(101)).toHtmlEscaped(), QString(qVersion()));
    QMessageBox::about(this, beschriftung(SteuerFinden(this, "mnuInfo")), text);
}

void frmStart::AlleFensterSchliessen() {
    const QList<QWidget*> fenster = QApplication::topLevelWidgets();
    for (QWidget* w : fenster) {
        if (w != this && w->isVisible()) w->close();
    }
}

// ---- events ----------------------------------------------------------------------------

bool frmStart::eventFilter(QObject* objekt, QEvent* ereignis) {
    if (ereignis->type() == QEvent::MouseButtonDblClick) {
        for (int i = 0; i < 4; ++i) {
            if (objekt == optionen_->FarbFeld(i)) {
                Behandeln([this, i] { farbeWaehlen(i); });
                return true;
            }
        }
    }
    if (objekt == list1_->viewport() && ereignis->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton) {
        Behandeln([this] { listeKopieren(); });
        return true;
    }
    return Fenster::eventFilter(objekt, ereignis);
}

void frmStart::closeEvent(QCloseEvent* e) {
    bool beenden = true;
    Behandeln([&] { beenden = BeendenErlaubt(chkEndeFrage_->isChecked()); });
    if (!beenden) {
        e->ignore();
        return;
    }
    Behandeln([this] { FensterSpeichern(); });
    Behandeln([] { ProgrammBeenden(); });
    e->accept();
    // The program ends with the cockpit, whatever other windows stand and whatever job runs.
    ProgrammEndeAnfordern();
}

}  // namespace sw
