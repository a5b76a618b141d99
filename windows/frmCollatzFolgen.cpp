#include "windows/frmCollatzFolgen.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QElapsedTimer>
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

#include "collatz/basCollatz.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/Zeichenketten.h"
#include "frame/basZentral.h"
#include "windows/Dialoge.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmCollatzAnzeige.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

constexpr int NRolle = Qt::UserRole + 1;  // n of a row's member
constexpr int TextListeVoll = 2086;
constexpr int TextUnterNull = 2080;
constexpr int TextNamen = 2070;
constexpr int kGroesstesN = 2147483647;

// Colours of lblCol: the list's background, the rows that were not counted.
constexpr unsigned kFarben[2] = {0xFFFFFF, 0xC00000};

}  // namespace

frmCollatzFolgen::frmCollatzFolgen(QWidget* eltern) : Fenster("frmCollatzFolgen", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* fraFamilie = Benannt(new QGroupBox("Familie", mitte), "fraOperation");
    auto* raster = new QGridLayout(fraFamilie);
    auto* gruppe = new QButtonGroup(this);
    for (int i = 0; i < FamilienAnzahl; ++i) {
        optOperation_[size_t(i)] = Benannt(new QRadioButton(fraFamilie), "optOperation", i);  // captions from sw.TEX
        gruppe->addButton(optOperation_[size_t(i)], i);
        raster->addWidget(optOperation_[size_t(i)], i / 5, i % 5);
    }
    lay->addWidget(fraFamilie);

    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Start", mitte), "lblStart"));
    txtStart_ = Benannt(new QLineEdit("1", mitte), "txtStart");
    zeile->addWidget(txtStart_, 1);
    zeile->addWidget(Benannt(new QLabel("Schritt", mitte), "lblStep"));
    txtStep_ = Benannt(new QLineEdit("1", mitte), "txtStep");
    zeile->addWidget(txtStep_);
    cmbOperator_ = Benannt(new QComboBox(mitte), "cmbOperator");
    cmbOperator_->addItems({"+", "-", "*", "/", "^"});
    zeile->addWidget(cmbOperator_);
    txtOffset_ = Benannt(new QLineEdit("0", mitte), "txtOffset");
    zeile->addWidget(txtOffset_);
    lay->addLayout(zeile);

    auto* zeile2 = new QHBoxLayout;
    zeile2->addWidget(Benannt(new QLabel("Formel", mitte), "lblFormel"));
    txtFormel_ = Benannt(new QLineEdit(mitte), "txtFormel");
    zeile2->addWidget(txtFormel_, 1);
    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    zeile2->addWidget(btnGO_);
    for (size_t i = 0; i < lblCol_.size(); ++i) {
        lblCol_[i] = FarbFeld(mitte, int(i), QRgb(kFarben[i]), this);
        zeile2->addWidget(lblCol_[i]);
    }
    lay->addLayout(zeile2);

    list1_ = Benannt(new QListWidget(mitte), "List1");
    list1_->setUniformItemSizes(true);
    ListenMenueAnlegen(list1_);
    lay->addWidget(list1_, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Starten(); }));
    connect(list1_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* it) { Behandeln([&] { ZeileZeigen(it); }); });
    connect(gruppe, &QButtonGroup::idClicked, this, [this](int) { formelZeigen(); });
    connect(cmbOperator_, &QComboBox::currentIndexChanged, this, [this](int) { formelZeigen(); });
    connect(txtOffset_, &QLineEdit::editingFinished, this, [this] { formelZeigen(); });
    connect(txtFormel_, &QLineEdit::textEdited, this, [this](const QString& t) { eigeneFormel_ = t.toStdString(); });
    resize(760, 600);
    IconsAufbauen("T");  // table, print, save (TXT, CSV), photo, calculator, close
    FensterLaden(QString::fromStdString(AktivesFenster));
    ruheText_ = btnGO_->text();
    if (gruppe->checkedId() < 0) optOperation_[0]->setChecked(true);
    if (optOperation_[size_t(FamilienArt::Formel)]->isChecked()) eigeneFormel_ = txtFormel_->text().toStdString();
    QPalette p = list1_->palette();
    p.setColor(QPalette::Base, FarbeQt(HintergrundFarbe(lblCol_[0])));
    list1_->setPalette(p);
    formelZeigen();
}

frmCollatzFolgen::~frmCollatzFolgen() {
    if (anzeige_) anzeige_->close();
}

// The formula field shows the chosen family as its rows will name it; only family 9 takes a
// formula of the user's, which is kept while another family is shown.
void frmCollatzFolgen::formelZeigen() {
    int art = 0;
    for (int i = 0; i < FamilienAnzahl; ++i)
        if (optOperation_[size_t(i)]->isChecked()) art = i;
    const bool eigene = art == int(FamilienArt::Formel);
    txtFormel_->setReadOnly(!eigene);
    txtFormel_->setText(q(eigene ? eigeneFormel_ : Text(TextNamen + art)));
}

std::optional<FamilienAuftrag> frmCollatzFolgen::auftragLesen() {
    FamilienAuftrag a;
    for (int i = 0; i < FamilienAnzahl; ++i)
        if (optOperation_[size_t(i)]->isChecked()) a.art = FamilienArt(i);
    const std::optional<Decimal> start = ZahlEingabe(txtStart_, "Start", Decimal(0), Decimal(kGroesstesN));
    if (!start) return std::nullopt;
    const std::optional<Decimal> step = ZahlEingabe(txtStep_, "Schritt", Decimal(0), Decimal(kGroesstesN));
    if (!step) return std::nullopt;
    const std::optional<Decimal> offset = ZahlEingabe(txtOffset_, "Offset", Decimal(-kGroesstesN - 1LL), Decimal(kGroesstesN));
    if (!offset) return std::nullopt;
    txtStart_->setText(q(ZahlFormat(*start)));
    txtStep_->setText(q(ZahlFormat(*step)));
    a.start = int32_t(start->AlsInt64());
    a.schritt = int32_t(step->AlsInt64());
    a.op = FamilienOperator(std::max(0, cmbOperator_->currentIndex()));
    a.offset = int32_t(offset->AlsInt64());
    a.formel = eigeneFormel_;
    return a;
}

void frmCollatzFolgen::Starten() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the run's yield stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    const std::optional<FamilienAuftrag> a = auftragLesen();
    if (!a) return;
    StartStopUmschalten(caption, ruheText_.toStdString());
    btnGO_->setText(q(caption));
    const Lauf l(*this);
    StoppUhrStart(windowTitle().toStdString());
    try {
        lauf(*a);
    } catch (...) {
        if (StoppUhr.laeuft) StoppUhrStop();
        btnGO_->setText(ruheText_);
        throw;
    }
    StoppUhrStop();
    btnGO_->setText(ruheText_);
}

void frmCollatzFolgen::lauf(const FamilienAuftrag& a) {
    list1_->clear();
    list1_->addItem(q(Text(561)));
    letzterAuftrag_ = a;
    CollatzFamilie familie(a);  // a refused order is shown by the handler, the list stays empty
    const QColor markiert = FarbeQt(HintergrundFarbe(lblCol_[1]));
    QElapsedTimer zuletztGerollt, zuletztGezeigt;
    zuletztGerollt.start();
    zuletztGezeigt.start();
    // However the run ends (a stop, the full list, the end of the family), the last row shows.
    struct AmEndeRollen {
        QListWidget* l;
        ~AmEndeRollen() { l->scrollToBottom(); }
    } amEnde{list1_};
    DoEvents();
    while (!Abbruch) {
        const FamilienZeile z = familie.Zaehlen();
        auto* item = new QListWidgetItem(q(FamilienZeileText(z)));
        item->setData(NRolle, z.n);
        item->setData(CsvRolle, q(FamilienZeileCsv(z)));
        if (z.stand != FamilienStand::Gezaehlt) item->setForeground(markiert);
        list1_->addItem(item);
        // Scrolling lays out the whole list: once per row that would cost the square of the
        // row count, so the view follows at most ten times a second and once at the end.
        if (zuletztGerollt.elapsed() >= 100) {
            list1_->scrollToBottom();
            zuletztGerollt.restart();
        }
        if (z.stand == FamilienStand::Abgebrochen) break;
        if (list1_->count() >= FamilienZeilenGrenze) {
            Abbruch = true;
            MsgInfoP1(TextListeVoll, ZahlFormat(static_cast<long long>(z.n)));
            break;
        }
        familie.Weiter();  // past the largest n its message ends the run; the rows stay
        // Small members take microseconds: a turn of the event loop per row would cost more
        // than the counting, so the field and the stop button get one every 20 ms.
        if (zuletztGezeigt.elapsed() >= 20) {
            txtStart_->setText(q(ZahlFormat(static_cast<long long>(familie.N()))));
            DoEvents();
            zuletztGezeigt.restart();
        }
    }
    txtStart_->setText(q(ZahlFormat(static_cast<long long>(familie.N()))));
}

void frmCollatzFolgen::ZeileZeigen(QListWidgetItem* item) {
    if (!item || !item->data(NRolle).isValid() || Laeuft()) return;
    FamilienAuftrag a = letzterAuftrag_;
    a.start = item->data(NRolle).toInt();
    const CollatzFamilie familie(a);
    const FamilienZeile z = familie.Zaehlen();
    if (z.stand == FamilienStand::UnterNull) return MsgInfoText(z.formel + ": " + Text(TextUnterNull));
    if (z.stand == FamilienStand::Fehler) return MsgInfoText(z.formel + ": " + z.meldung);
    const std::string zeile = item->text().toStdString();
    CollatzFormel = Trimmen(zeile.substr(0, zeile.find(';')));
    familie.Glied(CollatzZahl);
    if (!anzeige_) {
        anzeige_ = new frmCollatzAnzeige();
        anzeige_->setAttribute(Qt::WA_DeleteOnClose);
        anzeige_->ShowMe(0);
    }
    anzeige_->raise();
    anzeige_->ShowNumbers();
}

std::optional<QStringList> frmCollatzFolgen::ListenCsv() { return CsvAusListe(list1_, q(FamilienCsvKopf())); }

void frmCollatzFolgen::farbeWaehlen(int index) {
    QLabel* l = lblCol_[size_t(index)];
    const std::optional<QColor> farbe = FarbDialog(this, FarbeQt(HintergrundFarbe(l)));
    if (!farbe) return;
    HintergrundFarbeSetzen(l, FarbeNummer(*farbe));
    if (index == 0) {
        QPalette p = list1_->palette();
        p.setColor(QPalette::Base, *farbe);
        list1_->setPalette(p);
        return;
    }
    for (int i = 0; i < list1_->count(); ++i)
        if (list1_->item(i)->foreground().style() != Qt::NoBrush) list1_->item(i)->setForeground(*farbe);
}

bool frmCollatzFolgen::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::MouseButtonRelease)
        for (size_t i = 0; i < lblCol_.size(); ++i)
            if (o == lblCol_[i]) {
                Behandeln([&] { farbeWaehlen(int(i)); });
                return true;
            }
    return Fenster::eventFilter(o, e);
}

}  // namespace sw
