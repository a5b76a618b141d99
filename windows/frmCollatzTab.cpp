#include "windows/frmCollatzTab.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

#include "arith/HypText.h"
#include "collatz/CollatzBaum.h"
#include "collatz/basCollatz.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
constexpr int ZahlRolle = Qt::UserRole + 8;    // the number of a row, for the row click
constexpr int kListeVoll = 32001;              // a list this long is cleared before a new row
constexpr int32_t kZaehlerMax = 2000000000;    // I, M and the limits are counted in 32 bits
const Decimal kGroessteZahl = Decimal::ausBreit(Decimal::Breit(Decimal::Maximum));
constexpr size_t kBaumGrenze = 32000;
const QString kFind = "Find";
int32_t ausrufe(const std::string& s) { return int32_t(std::count(s.begin(), s.end(), '!')); }
}  // namespace

frmCollatzTab::frmCollatzTab(QWidget* eltern) : Fenster("frmCollatzTab", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* kopf = new QHBoxLayout;
    kopf->addWidget(Benannt(new QLabel("Von", mitte), "lblVon"));
    txtVon_ = Benannt(new QLineEdit("27", mitte), "txtVon");
    kopf->addWidget(txtVon_, 2);
    lblPlusMinus_ = Benannt(new QLabel("+", mitte), "lblPlusMinus");
    lblPlusMinus_->installEventFilter(this);
    kopf->addWidget(lblPlusMinus_);
    txtStep_ = Benannt(new QLineEdit("1", mitte), "txtStep");
    kopf->addWidget(txtStep_, 1);
    btnGO_ = Benannt(new QPushButton("GO", mitte), "btnGO");
    btnUeb_ = Benannt(new QPushButton("Übernehmen", mitte), "btnUeb");
    btnParameter_ = Benannt(new QPushButton("Parameter", mitte), "btnParameter");
    kopf->addWidget(btnGO_);
    kopf->addWidget(btnUeb_);
    kopf->addWidget(btnParameter_);
    lay->addLayout(kopf);
    lblHinweis_ = Benannt(new QLabel(mitte), "lblHinweis");
    lblHinweis_->installEventFilter(this);
    lay->addWidget(lblHinweis_);

    Frame1_ = Benannt(new QGroupBox(mitte), "Frame1");
    auto* f = new QGridLayout(Frame1_);
    auto feld = [&](const char* text, const QString& name, int zeile, int spalte) {
        f->addWidget(Benannt(new QLabel(text, Frame1_), "lbl" + name.mid(3)), zeile, spalte);
        auto* t = Benannt(new QLineEdit(Frame1_), name);
        f->addWidget(t, zeile, spalte + 1);
        return t;
    };
    txtII_ = feld("I", "txtII", 0, 0);
    txtMM_ = feld("M", "txtMM", 0, 2);
    txtAnzahl_ = feld("Treffer", "txtAnzahl", 1, 0);
    txtBlockAnzahl_ = feld("Block", "txtBlockAnzahl", 1, 2);
    chkQuickSearch_ = Benannt(new QCheckBox("Schnellsuche", Frame1_), "chkQuickSearch");
    chkDualFolge_ = Benannt(new QCheckBox("Dual", Frame1_), "chkDualFolge");
    f->addWidget(chkQuickSearch_, 2, 0, 1, 2);
    f->addWidget(chkDualFolge_, 2, 2, 1, 2);
    auto* gruppe = new QButtonGroup(Frame1_);
    for (int i = 0; i < 2; ++i) {
        optVerfahren_[i] = Benannt(new QRadioButton(Frame1_), "optVerfahren", i);
        gruppe->addButton(optVerfahren_[i], i);
        f->addWidget(optVerfahren_[i], 3, 2 * i, 1, 2);
    }
    btnSuchen_ = Benannt(new QPushButton(kFind, Frame1_), "btnSuchen");
    btnTest_ = Benannt(new QPushButton("Baum", Frame1_), "btnTest");
    f->addWidget(btnSuchen_, 4, 0, 1, 2);
    f->addWidget(btnTest_, 4, 2, 1, 2);
    txtPot2_ = feld("2^", "txtPot2", 5, 0);
    txtPot6_ = feld("6^", "txtPot6", 5, 2);
    btnShowErgebnis_ = Benannt(new QPushButton("=", Frame1_), "btnShowErgebnis");
    btnWertUebernehmen_ = Benannt(new QPushButton("Wert übernehmen", Frame1_), "btnWertUebernehmen");
    lblErgebnis_ = Benannt(new QLabel(Frame1_), "lblErgebnis");
    lblErgebnis_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblErgebnis_->setWordWrap(true);
    f->addWidget(btnShowErgebnis_, 6, 0);
    f->addWidget(lblErgebnis_, 6, 1, 1, 2);
    f->addWidget(btnWertUebernehmen_, 6, 3);
    Frame1_->hide();
    lay->addWidget(Frame1_);

    List1_ = Benannt(new QListWidget(mitte), "List1");
    QFont mono("Courier New");
    mono.setStyleHint(QFont::TypeWriter);
    List1_->setFont(mono);
    ListenMenueAnlegen(List1_);
    lay->addWidget(List1_, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { TabelleFuellen(); }));
    connect(btnSuchen_, &QPushButton::clicked, this, Sicher([this] { Suchen(); }));
    connect(btnTest_, &QPushButton::clicked, this, Sicher([this] { BaumZeigen(); }));
    connect(btnParameter_, &QPushButton::clicked, this, Sicher([this] { ParameterUmschalten(); }));
    connect(btnShowErgebnis_, &QPushButton::clicked, this, Sicher([this] { ErgebnisZeigen(); }));
    connect(btnWertUebernehmen_, &QPushButton::clicked, this, Sicher([this] { WertUebernehmen(); }));
    connect(btnUeb_, &QPushButton::clicked, this, [this] {
        if (WertZurueck) WertZurueck(txtVon_->text());
    });
    connect(List1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) { Behandeln([&] { ZeileGewaehlt(i); }); });
    connect(txtII_, &QLineEdit::textChanged, this, [this] { suchenFreigeben(); });
    connect(txtMM_, &QLineEdit::textChanged, this, [this] { suchenFreigeben(); });
    connect(txtPot2_, &QLineEdit::textChanged, lblErgebnis_, &QLabel::clear);
    connect(txtPot6_, &QLineEdit::textChanged, lblErgebnis_, &QLabel::clear);

    IconsAufbauen("T");
    FensterLaden(q(AktivesFenster));
    if (!optVerfahren_[0]->isChecked() && !optVerfahren_[1]->isChecked()) optVerfahren_[0]->setChecked(true);
    if (lblPlusMinus_->text() != "-") lblPlusMinus_->setText("+");
    btnSuchen_->setText(kFind);
    testRuhe_ = btnTest_->text();
    lblHinweis_->setText(q(Text(482)));
    suchenFreigeben();
    setMinimumSize(560, 520);
}

void frmCollatzTab::ShowMe(int) {
    if (CollatzVon > Decimal(0)) txtVon_->setText(q(ZahlFormat(CollatzVon)));
    if (CollatzSchritt != 0) {
        txtStep_->setText(QString::number(std::abs(CollatzSchritt)));
        lblPlusMinus_->setText(CollatzSchritt < 0 ? "-" : "+");
    }
    show();
    Behandeln([this] { TabelleFuellen(); });
}

bool frmCollatzTab::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::MouseButtonPress && !Laeuft()) {
        if (o == lblPlusMinus_) {
            lblPlusMinus_->setText(lblPlusMinus_->text() == "-" ? "+" : "-");
            return true;
        }
        if (o == lblHinweis_) {
            Behandeln([this] { ParameterUmschalten(); });
            return true;
        }
    }
    return Fenster::eventFilter(o, e);
}

std::optional<Decimal> frmCollatzTab::feldWert(QLineEdit* feld, const Decimal& von, const Decimal& bis,
                                               std::optional<Decimal> leer) {
    if (leer && feld->text().trimmed().isEmpty()) return leer;
    // The box names the field as its label does; the step has no label of its own.
    const auto* beschriftung = Steuer<QLabel>(this, "lbl" + feld->objectName().mid(3));
    const QString name = beschriftung ? beschriftung->text() : QStringLiteral("Schritt");
    return ZahlEingabe(feld, name, von, bis);
}

std::optional<Decimal> frmCollatzTab::schritt() {
    std::optional<Decimal> s = feldWert(txtStep_, -kGroessteZahl, kGroessteZahl, Decimal(0));
    if (!s) return s;
    if (s->IstNull()) s = Decimal(1);  // a step of 0 would list one value forever
    if (s->IstNegativ()) s = -*s;
    return lblPlusMinus_->text() == "-" ? -*s : *s;
}

void frmCollatzTab::suchenFreigeben() {
    if (Laeuft()) return;
    const QString i = txtII_->text().trimmed();
    bool ok1 = false, ok2 = false;
    const long long I = i.toLongLong(&ok1), M = txtMM_->text().trimmed().toLongLong(&ok2);
    btnSuchen_->setEnabled(i.isEmpty() || !ok1 || !ok2 || I > M);
}

void frmCollatzTab::zeileAnfuegen(const QString& text, const Decimal* wert) {
    if (List1_->count() >= kListeVoll) List1_->clear();
    auto* item = new QListWidgetItem(text);
    if (wert) {
        item->setData(ZahlRolle, q(wert->Text()));
        item->setData(CsvRolle, q(CollatzTabCsv(*wert, letzteMarks_)));
    }
    List1_->addItem(item);
}

std::string frmCollatzTab::Marks(const Decimal& x) {
    letzteMarks_ = CollatzFolge(x, CollatzVerfahren, 0, CollatzReduktion);
    return letzteMarks_;
}

void frmCollatzTab::Zeile(const std::string& text, const Decimal* wert) {
    zeileAnfuegen(q(text), wert);
    List1_->scrollToBottom();
}

void frmCollatzTab::TabelleFuellen() {
    const std::optional<Decimal> step = schritt();
    const std::optional<Decimal> von = feldWert(txtVon_, Decimal(0), kGroessteZahl);
    if (!step || !von) return;
    List1_->clear();
    Decimal x = *von;
    const size_t breite = ZahlFormat(x).size();
    const bool dual = chkDualFolge_->isChecked();
    for (int zeile = 0; zeile < 200 && x >= Decimal(2); ++zeile) {
        Marks(x);
        zeileAnfuegen(q(CollatzTabZeile(x, letzteMarks_, breite, dual)), &x);
        if (x.Wert() + step->Wert() > Decimal::Breit(Decimal::Maximum)) break;  // the next start would not fit
        x += *step;
    }
}

void frmCollatzTab::Suchen() {
    std::string caption = btnSuchen_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the search's yield stops it
        StartStopUmschalten(caption, kFind.toStdString());
        btnSuchen_->setText(q(caption));
        return;
    }
    CollatzSuchAuftrag a;
    const std::optional<Decimal> start = feldWert(txtVon_, Decimal(0), kGroessteZahl);
    const std::optional<Decimal> step = start ? schritt() : std::nullopt;
    a.nurM = txtII_->text().trimmed().isEmpty();
    const std::optional<Decimal> I = step ? feldWert(txtII_, Decimal(1), Decimal(kZaehlerMax), Decimal(0)) : std::nullopt;
    const std::optional<Decimal> M = I ? feldWert(txtMM_, Decimal(0), Decimal(kZaehlerMax), Decimal(0)) : std::nullopt;
    const std::optional<Decimal> treffer =
        M ? feldWert(txtAnzahl_, Decimal(0), Decimal(kZaehlerMax), Decimal(0)) : std::nullopt;
    const std::optional<Decimal> block =
        treffer ? feldWert(txtBlockAnzahl_, Decimal(0), Decimal(kZaehlerMax), Decimal(0)) : std::nullopt;
    if (!block) return;
    a.start = *start;
    a.schritt = *step;
    a.I = I->AlsLong();
    a.M = M->AlsLong();
    a.maxTreffer = treffer->AlsLong();
    a.maxBlock = block->AlsLong();
    a.schnell = chkQuickSearch_->isChecked() && !a.nurM;
    a.dual = chkDualFolge_->isChecked();
    if (a.schnell && !a.schritt.IstNegativ()) {
        MsgInfo(431);
        return;
    }
    if (StartStopUmschalten(caption, kFind.toStdString())) return;
    btnSuchen_->setText(q(caption));
    const Lauf lauf(*this);
    List1_->clear();
    StoppUhrStart(windowTitle().toStdString());
    DoEvents();
    CollatzSuchErgebnis e;
    try {
        e = CollatzSuchen(a, *this);
    } catch (...) {
        StoppUhrStop();
        btnSuchen_->setText(kFind);
        throw;
    }
    StoppUhrStop();
    btnSuchen_->setText(kFind);
    List1_->scrollToBottom();
    if (!e.vollstaendig) MsgInfo(436);
}

void frmCollatzTab::BaumZeigen() {
    std::string caption = btnTest_->text().toStdString();
    if (Laeuft()) {
        if (caption == "Stop") {
            StartStopUmschalten(caption, testRuhe_.toStdString());
            btnTest_->setText(q(caption));
        }
        return;
    }
    const std::optional<Decimal> tiefe = feldWert(txtII_, Decimal(0), Decimal(kZaehlerMax), Decimal(0));
    const std::optional<Decimal> grenzeFeld =
        tiefe ? feldWert(txtAnzahl_, Decimal(0), Decimal(kZaehlerMax), Decimal(0)) : std::nullopt;
    if (!grenzeFeld) return;
    List1_->clear();
    const int32_t n = tiefe->AlsLong();
    if (n < 1) return;
    const int32_t anzahl = grenzeFeld->AlsLong();
    const size_t grenze = anzahl > 0 ? size_t(anzahl) : kBaumGrenze;
    if (StartStopUmschalten(caption, testRuhe_.toStdString())) return;
    btnTest_->setText(q(caption));
    const Lauf lauf(*this);
    StoppUhrStart(windowTitle().toStdString());
    std::vector<CollatzBaumEintrag> baum;
    try {
        baum = CollatzBaum(n, optVerfahren_[0]->isChecked(), grenze);
    } catch (...) {
        StoppUhrStop();
        btnTest_->setText(testRuhe_);
        throw;
    }
    StoppUhrStop();
    btnTest_->setText(testRuhe_);
    Hyp zweiHochN(n / 32 + 2);
    zweiHochN[1] = 1;
    aShiftLeftHyp(zweiHochN, n);
    const size_t breite = ZahlFormat(Hyp2Text(zweiHochN)).size();
    const bool dual = chkDualFolge_->isChecked();
    for (size_t i = 0; i < baum.size() && i < grenze; ++i) {
        Marks(baum[i].wert);
        zeileAnfuegen(q(std::to_string(n) + "." + std::to_string(baum[i].mult) + " " +
                        CollatzTabZeile(baum[i].wert, letzteMarks_, breite, dual)),
                      &baum[i].wert);
    }
    if (baum.size() > grenze) {
        const int key = grenze == kBaumGrenze ? 433 : 434;
        zeileAnfuegen(q(Text(key)), nullptr);
        if (key == 433) MsgInfo(433);
    }
    List1_->scrollToBottom();
}

void frmCollatzTab::ParameterUmschalten() {
    Frame1_->setVisible(!Frame1_->isVisible());
    if (!Frame1_->isVisible()) return;
    const std::optional<Decimal> von = feldWert(txtVon_, Decimal(0), kGroessteZahl);
    if (!von) return;
    const std::string marks = CollatzFolge(*von, 0, 0, 0);
    txtPot2_->setText(QString::number(marks.size()));
    txtPot6_->setText(QString::number(ausrufe(marks)));
    ErgebnisZeigen();
}

std::optional<Hyp> frmCollatzTab::schaetzung() {
    const std::optional<Decimal> a = feldWert(txtPot2_, Decimal(0), Decimal(kZaehlerMax));
    const std::optional<Decimal> b = a ? feldWert(txtPot6_, Decimal(0), Decimal(kZaehlerMax)) : std::nullopt;
    if (!b) return std::nullopt;
    Hyp h = CollatzSchaetzung(a->AlsLong(), b->AlsLong());
    lblErgebnis_->setText(q(Hyp2Anzeige(h)));
    return h;
}

void frmCollatzTab::ErgebnisZeigen() { schaetzung(); }

void frmCollatzTab::WertUebernehmen() {
    const std::optional<Hyp> schaetzungsWert = schaetzung();
    if (!schaetzungsWert) return;
    const Hyp& h = *schaetzungsWert;
    txtVon_->setText(q(ZahlFormat(Hyp2Text(h))));
    txtII_->setText(txtPot2_->text());
    txtMM_->setText(txtPot6_->text());
    List1_->clear();
    ParameterUmschalten();
}

void frmCollatzTab::ZeileGewaehlt(QListWidgetItem* item) {
    if (Laeuft() || !item) return;
    const QVariant zahl = item->data(ZahlRolle);
    if (!zahl.isValid()) return;  // a rule or a note
    const Decimal x = TextZuDecimal(zahl.toString().toStdString());
    txtVon_->setText(q(ZahlFormat(x)));
    const std::string marks = CollatzFolge(x, 0, 0, 0);
    txtII_->setText(QString::number(marks.size()));
    txtMM_->setText(QString::number(ausrufe(marks)));
}

std::optional<QStringList> frmCollatzTab::ListenCsv() { return CsvAusListe(List1_, "Zahl;Marks;Anzahl;Mult"); }

}  // namespace sw
