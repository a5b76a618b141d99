#include "windows/frmMersSystem.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/DbImport.h"
#include "mersenne/basDB.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// The digits of a typed start value, grouping dots and blanks left out; "" when it is no
// whole number.
std::string ziffern(const QString& text) {
    std::string z;
    for (QChar c : text.trimmed()) {
        if (c == '.' || c == ' ') continue;
        if (!c.isDigit()) return "";
        z += char(c.unicode());
    }
    return z;
}

}  // namespace

frmMersSystem::frmMersSystem(QWidget* eltern) : Fenster("frmMersSystem", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* lblErklaerung = Benannt(new QLabel(mitte), "lblErklaerung");
    lblErklaerung->setWordWrap(true);
    lay->addWidget(lblErklaerung);

    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("q:", mitte), "lblZahl"));
    txtZahl_ = Benannt(new QLineEdit("1", mitte), "txtZahl");
    zeile->addWidget(txtZahl_, 3);
    zeile->addWidget(Benannt(new QLabel("Parameter 1-50", mitte), "lblParm"));
    txtParm_ = Benannt(new QLineEdit("1", mitte), "txtParm");
    txtParm_->setMaximumWidth(50);
    zeile->addWidget(txtParm_);
    zeile->addWidget(Benannt(new QLabel("Mio", mitte), "lblMio"));
    lay->addLayout(zeile);

    auto* stand = new QHBoxLayout;
    chkOhneFrage_ = Benannt(new QCheckBox(mitte), "chkOhneFrage");
    stand->addWidget(chkOhneFrage_);
    stand->addStretch(1);
    lblMax_ = Benannt(new QLabel(mitte), "lblMax");
    lblCount_ = Benannt(new QLabel(mitte), "lblCount");
    stand->addWidget(lblMax_);
    stand->addWidget(lblCount_);
    lay->addLayout(stand);

    const QFont fest = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setFont(fest);
    List1_->setUniformItemSizes(true);  // thousands of rows: no measuring of each one
    lay->addWidget(List1_, 3);
    lblList2_ = Benannt(new QLabel(mitte), "lblList2");
    lay->addWidget(lblList2_);
    List2_ = Benannt(new QListWidget(mitte), "List2");
    List2_->setFont(fest);
    List2_->setUniformItemSizes(true);
    lay->addWidget(List2_, 1);
    ListenMenueAnlegen(List1_);
    ListenMenueAnlegen(List2_);

    lblImport_ = Benannt(new QLabel(mitte), "lblImport");
    lblImport_->setWordWrap(true);
    lay->addWidget(lblImport_);
    btnGO_ = Benannt(new QPushButton("OK", mitte), "btnGO");
    auto* btnAnalyse = Benannt(new QPushButton(mitte), "btnAnalyse");
    auto* btnMersenne = Benannt(new QPushButton("Teilerliste importieren ...", mitte), "btnMersenne");
    lay->addLayout(KnopfReihe({btnMersenne, btnAnalyse, btnGO_}));
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { SucheStarten(); }));
    connect(btnMersenne, &QPushButton::clicked, this, Sicher([this] { ListeImportieren(); }));
    connect(btnAnalyse, &QPushButton::clicked, this,
            Sicher([this] { FensterOeffnen("frmMersenneAnalyse", -1, this); }));
    resize(560, 620);
    IconsAufbauen("T");
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmMersSystem::ListeImportieren() {
    if (Laeuft()) return;
    DateiAnfrage anfrage;
    anfrage.titel = SektionsText("DlgTitel");
    anfrage.ordner = QString::fromStdString(ProgrammPfad);
    anfrage.filter = "*.txt *.csv (*.txt *.csv);;* (*)";
    const std::optional<QString> datei = DateiDialog(this, anfrage);
    if (!datei) return;
    Lauf lauf(*this);
    const ImportBericht b = sw::ListeImportieren(datei->toStdString());
    DbSchliessen();
    const std::string bilanz = TextP1(1515, b.neu + b.weitereTeiler);
    lblImport_->setText(QString::fromStdString(
        bilanz + ". " + TextP1P2(1518, std::to_string(b.weitereTeiler), std::to_string(b.bekannt))));
    UI().Meldung(Text(1516), bilanz, MeldungsSymbol::Information, MeldungsKnoepfe::OK);
}

void frmMersSystem::SucheStarten() {
    std::string caption = btnGO_->text().toStdString();
    const bool stoppen = StartStopUmschalten(caption, "OK");
    btnGO_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    // However the run ends (an error too, which the handler's guard shows), the window comes
    // back to rest.
    struct Ruhe {
        frmMersSystem* w;
        ~Ruhe() {
            w->btnGO_->setText("OK");
            w->txtZahl_->setReadOnly(false);
            w->txtParm_->setReadOnly(false);
        }
    } ruhe{this};
    bool zahl = false;
    const int parameter = txtParm_->text().trimmed().toInt(&zahl);
    if (!zahl || parameter < SystemParameterMin || parameter > SystemParameterMax) {
        MsgInfo(1840);
        txtParm_->setFocus();
        return;
    }
    SystemAuftrag a;
    a.start = ziffern(txtZahl_->text());
    if (a.start.empty()) {
        MsgInfo(1845);
        txtZahl_->setFocus();
        return;
    }
    a.parameter = parameter;
    a.eintrag = chkOhneFrage_->isChecked() ? SystemEintrag::Immer : SystemEintrag::Fragen;
    // A database that cannot be used is said before the walk, with its reason.
    if (!DbOeffnen(0)) {
        MsgInfoP1(1844, DbFehlerText());
        return;
    }
    const Lauf lauf(*this);
    txtZahl_->setReadOnly(true);
    txtParm_->setReadOnly(true);
    List1_->clear();
    List2_->clear();
    const SystemBefund b = SystemLauf(a, this);
    if (!b.letzte.empty()) txtZahl_->setText(q(ZahlFormat(b.letzte)));
    lblCount_->setText(q(ZahlFormat(static_cast<long long>(b.primzahlen))));
    letzteWaehlen();
}

// Selecting each new row would lay out the whole list every time: the last rows are selected
// when the run shows its state and at its end.
void frmMersSystem::letzteWaehlen() {
    for (QListWidget* l : {List1_, List2_}) {
        if (l->count() > 0) l->setCurrentRow(l->count() - 1);
    }
}

void frmMersSystem::Stand(const std::string& zahl, int32_t grenze, uint64_t primzahlen) {
    txtZahl_->setText(q(ZahlFormat(zahl)));
    lblMax_->setText(q(ZahlFormatLong(grenze)));
    lblCount_->setText(q(ZahlFormat(static_cast<long long>(primzahlen))));
    letzteWaehlen();
}

void frmMersSystem::Ergebnis(const SystemErgebnis& e) {
    if (List1_->count() > TeilerListeHoechstens) List1_->clear();
    auto* eintrag = new QListWidgetItem(q(TeilerAnzeigen(e)), List1_);
    eintrag->setData(CsvRolle, q(e.q + ";" + std::to_string(e.ordnung) + ";" + e.k));
}

void frmMersSystem::NeuerTeiler(const std::string& zahl, int32_t e, bool) {
    List2_->addItem(q(TextP1P2(165, zahl, std::to_string(e))));
}

std::optional<QStringList> frmMersSystem::ListenText() {
    QStringList zeilen;
    for (int i = 0; i < List1_->count(); ++i) zeilen << List1_->item(i)->text();
    if (List2_->count() > 0) {
        zeilen << "" << lblList2_->text();
        for (int i = 0; i < List2_->count(); ++i) zeilen << List2_->item(i)->text();
    }
    return zeilen;
}

std::optional<QStringList> frmMersSystem::ListenCsv() { return CsvAusListe(List1_, "q;Ordnung;k"); }

}  // namespace sw
