#include "windows/frmCollatzNachkomma.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "arith/HypText.h"
#include "arith/basHyper.h"
#include "collatz/CollatzKomma.h"
#include "collatz/CollatzUmbruch.h"
#include "collatz/basCollatz.h"
#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "primality/PrimzahlTest.h"
#include "windows/Fensterregister.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/UpDown.h"
#include "windows/frmCollatzNachkommaSuche.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
// From this many rows on the list is cleared before the next walk: a list that keeps every
// walk of a long session would grow without bound.
constexpr int kListenGrenze = 20001;
}  // namespace

frmCollatzNachkomma::frmCollatzNachkomma(QWidget* eltern) : Fenster("frmCollatzNachkomma", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* felder = new QGridLayout;
    felder->addWidget(Benannt(new QLabel("Start", mitte), "lblStart"), 0, 0);
    txtStart_ = Benannt(new QLineEdit("7", mitte), "txtStart");
    felder->addWidget(txtStart_, 0, 1);
    felder->addWidget(Benannt(new UpDown(mitte, [this](int n) { Sicher([this, n] { StartSchritt(n); })(); }), "UpDown1", 0), 0, 2);
    felder->addWidget(Benannt(new QLabel("y", mitte), "lblY"), 0, 3);
    txtY_ = Benannt(new QLineEdit(KommaStandard, mitte), "txtY");
    felder->addWidget(txtY_, 0, 4);
    felder->addWidget(Benannt(new UpDown(mitte, [this](int n) { Sicher([this, n] { YSchritt(n); })(); }), "UpDown1", 1), 0, 5);
    felder->addWidget(Benannt(new QLabel("Schritt", mitte), "lblYDiff"), 0, 6);
    txtYDiff_ = Benannt(new QLineEdit("0,01", mitte), "txtYDiff");
    txtYDiff_->setMaximumWidth(110);
    felder->addWidget(txtYDiff_, 0, 7);
    felder->setColumnStretch(1, 2);
    felder->setColumnStretch(4, 1);
    lay->addLayout(felder);
    auto* knoepfe = new QHBoxLayout;
    btnGO_ = Benannt(new QPushButton("Berechnen", mitte), "btnGO");
    btnGO_->setDefault(true);
    btnY_ = Benannt(new QPushButton("y +", mitte), "btnY");
    btnClear_ = Benannt(new QPushButton("Leeren", mitte), "btnClear");
    btnSuchen_ = Benannt(new QPushButton("Suchen ...", mitte), "btnSuchen");
    for (QPushButton* b : {btnGO_, btnY_, btnClear_, btnSuchen_}) knoepfe->addWidget(b);
    knoepfe->addStretch(1);
    lay->addLayout(knoepfe);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setUniformItemSizes(true);  // a walk of a large start gives thousands of rows
    ListenMenueAnlegen(List1_);
    lay->addWidget(List1_, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Berechnen(); }));
    connect(txtStart_, &QLineEdit::returnPressed, this, Sicher([this] { Berechnen(); }));
    connect(btnY_, &QPushButton::clicked, this, Sicher([this] { YSchritt(1); }));
    connect(btnClear_, &QPushButton::clicked, this, [this] {
        List1_->clear();
        csv_.clear();
    });
    connect(btnSuchen_, &QPushButton::clicked, this, Sicher([this] { Suchen(); }));
    resize(900, 600);
    IconsAufbauen("T");  // table, print, save (TXT, CSV), photo, calculator, close
    FensterLaden(q(AktivesFenster));
}

std::string frmCollatzNachkomma::multiplikator() {
    const std::string eingabe = txtY_->text().toStdString();
    std::optional<std::string> y = KommaMultiplikator(eingabe);
    if (!y) {
        y = KommaStandard;
        MsgInfoP1(2032, eingabe);
    }
    txtY_->setText(q(*y));
    return *y;
}

// As many characters as fit the list, counted in "5", less 5 for the margin and the scroll bar.
int32_t frmCollatzNachkomma::zeilenBreite() {
    if (ZeilenBreite == 0) {
        const int ziffer = std::max(1, QFontMetrics(List1_->font()).horizontalAdvance(QChar('5')));
        const int32_t passen = std::min(1000, (List1_->viewport()->width() + ziffer - 1) / ziffer);
        ZeilenBreite = std::max(20, passen - 5);
    }
    return ZeilenBreite;
}

void frmCollatzNachkomma::Berechnen() {
    if (Laeuft()) return;  // the question at every 1000th element yields to the event loop
    const std::string startText = txtStart_->text().toStdString();
    const Hyp start = Formel2Hyp(PrimTestEingabe(startText));
    if (aCmpHyp32(start, 0) == 0) {
        MsgInfoP1(2034, startText);
        return;
    }
    const std::string y = multiplikator();
    const Lauf lauf(*this);
    if (List1_->count() >= kListenGrenze) {
        List1_->clear();
        csv_.clear();
        List1_->addItem(q(Text(2035)));
    }
    const std::string startZiffern = Hyp2Text(start);
    const std::string text = CollatzKommaFolge(startZiffern, y);
    // Every character counts one: the width is given in characters.
    const auto eins = [](const char*, int32_t) { return int32_t(1); };
    QStringList zeilen;
    for (const std::string& z : ZeilenUmbrechen(text, zeilenBreite(), eins)) zeilen << q(z);
    List1_->addItems(zeilen);
    List1_->scrollToBottom();
    const QString kopf = q(y) + ";" + q(startZiffern) + ";";
    for (size_t i = 0; i < FolgenListe.size(); ++i)
        csv_ << kopf + QString::number(i + 1) + ";" + q(Hyp2Text(FolgenListe[i]));
}

void frmCollatzNachkomma::StartSchritt(int richtung) {
    NachOben = richtung > 0;
    Hyp start = Formel2Hyp(PrimTestEingabe(txtStart_->text().toStdString()));
    start.mindestens(start.anzahl() + 1);
    if (NachOben) {
        aAddHyp2(start);
    } else if (aCmpHyp32(start, 2) > 0) {
        aSubHyp2(start);  // 1 stays 1: the start never leaves the odd numbers
    }
    txtStart_->setText(q(Hyp2Text(start)));
    Berechnen();
}

void frmCollatzNachkomma::YSchritt(int richtung) {
    NachOben = richtung > 0;
    const std::optional<std::string> y = KommaSchritt(multiplikator(), txtYDiff_->text().toStdString(), NachOben);
    if (!y) {
        MsgInfoP1(2033, txtYDiff_->text().toStdString());
        return;
    }
    txtY_->setText(q(*y));
    Berechnen();
}

void frmCollatzNachkomma::Suchen() {
    NachkommaSucheY = multiplikator();
    FensterOeffnen("frmCollatzNachkommaSuche", -1, nullptr);
}

std::optional<QStringList> frmCollatzNachkomma::ListenCsv() {
    if (csv_.isEmpty()) return std::nullopt;
    return QStringList{"y;Start;Nummer;Wert"} + csv_;
}

// The picture file shows the list as it stands on screen; a print gets every row instead,
// which the base prints when there is no picture.
QImage frmCollatzNachkomma::BildAbbild() { return druckt_ ? QImage() : List1_->grab().toImage(); }

void frmCollatzNachkomma::Drucken(QPrinter& drucker) {
    druckt_ = true;
    Fenster::Drucken(drucker);
    druckt_ = false;
}

}  // namespace sw
