#include "windows/ExtremSucheFenster.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>

#include "arith/HypText.h"
#include "collatz/basCollatz.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

ExtremSucheFenster::ExtremSucheFenster(const QString& klassenName, QWidget* eltern) : Fenster(klassenName, eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    felder_ = new QGridLayout;
    QGridLayout* felder = felder_;
    auto feld = [&](const char* text, const QString& name, const char* wert, int zeile, int spalte) {
        felder->addWidget(Benannt(new QLabel(text, mitte), "lbl" + name.mid(3)), zeile, spalte);
        auto* t = Benannt(new QLineEdit(wert, mitte), name);
        felder->addWidget(t, zeile, spalte + 1);
        return t;
    };
    txtIK_ = Benannt(new QLineEdit("i =", mitte), "txtIK");
    txtIK_->setReadOnly(true);
    txtIK_->setMaximumWidth(50);
    txtIK_->installEventFilter(this);
    felder->addWidget(txtIK_, 0, 0);
    txtI_ = Benannt(new QLineEdit("20", mitte), "txtI");
    felder->addWidget(txtI_, 0, 1);
    txtM_ = feld("m =", "txtM", "", 0, 2);
    txtVon_ = feld("Von", "txtVon", "1", 1, 0);
    txtBis_ = feld("Bis", "txtBis", "1.000.000.000.000", 1, 2);
    txtPause_ = feld("Pause (ms)", "txtPause", "0", 2, 0);
    auto* gruppe = new QButtonGroup(mitte);
    for (int i = 0; i < 2; ++i) {
        opt3N_[i] = Benannt(new QRadioButton(i == 0 ? "3n+1" : "3n-1", mitte), "opt3N", i);
        gruppe->addButton(opt3N_[i], i);
        felder->addWidget(opt3N_[i], 2, 2 + i);
    }
    lay->addLayout(felder);

    auto* optionen = new QHBoxLayout;
    cmbSortierReihenfolge_ = Benannt(new QComboBox(mitte), "cmbSortierReihenfolge");
    for (int i = 0; i < ExtremReihenfolgen; ++i) cmbSortierReihenfolge_->addItem(q(Text(571 + i)));
    chkSortiert_ = Benannt(new QCheckBox("sortiert", mitte), "chkSortiert");
    chkDualAnzeige_ = Benannt(new QCheckBox("Dual", mitte), "chkDualAnzeige");
    chkMuster_ = Benannt(new QCheckBox("Muster", mitte), "chkMuster");
    chkSchrift_ = Benannt(new QCheckBox("Schrift", mitte), "chkSchrift");
    btnGO_ = Benannt(new QPushButton(q(Text(570)), mitte), "btnGO");
    btnGO_->setDefault(true);
    optionen->addWidget(cmbSortierReihenfolge_);
    for (QWidget* w : {static_cast<QWidget*>(chkSortiert_), static_cast<QWidget*>(chkDualAnzeige_),
                       static_cast<QWidget*>(chkMuster_), static_cast<QWidget*>(chkSchrift_)})
        optionen->addWidget(w);
    optionen->addStretch(1);
    optionen->addWidget(btnGO_);
    lay->addLayout(optionen);
    lblReihenFolge_ = Benannt(new QLabel(mitte), "lblReihenFolge");
    lay->addWidget(lblReihenFolge_);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setSortingEnabled(true);
    List2_ = Benannt(new QListWidget(mitte), "List2");
    for (QListWidget* l : {List1_, List2_}) ListenMenueAnlegen(l);
    lay->addWidget(List1_, 1);
    lay->addWidget(List2_, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Los(); }));
    connect(cmbSortierReihenfolge_, &QComboBox::currentIndexChanged, this, [this] { reihenfolgeZeigen(); });
    connect(chkDualAnzeige_, &QCheckBox::toggled, this, [this] { reihenfolgeZeigen(); });
    connect(chkSortiert_, &QCheckBox::toggled, this, [this](bool an) {
        sichtbareListe()->clear();
        List1_->setVisible(an);
        List2_->setVisible(!an);
    });
    connect(chkSchrift_, &QCheckBox::toggled, this, [this](bool an) {
        QFont f(an ? "Lucida Console" : "Courier New");
        f.setStyleHint(QFont::TypeWriter);  // a fixed-width face where these two are missing
        List1_->setFont(f);
        List2_->setFont(f);
    });

    setMinimumSize(640, 520);
}

void ExtremSucheFenster::Fertigstellen() {
    IconsAufbauen("T");
    FensterLaden(q(AktivesFenster));
    if (!opt3N_[0]->isChecked() && !opt3N_[1]->isChecked()) opt3N_[0]->setChecked(true);
    if (!txtIK_->text().startsWith('i') && !txtIK_->text().startsWith('k')) txtIK_->setText("i =");
    ruheText_ = q(Text(570));
    btnGO_->setText(ruheText_);
    List1_->setVisible(chkSortiert_->isChecked());
    List2_->setVisible(!chkSortiert_->isChecked());
    emit chkSchrift_->toggled(chkSchrift_->isChecked());
    reihenfolgeZeigen();
}

bool ExtremSucheFenster::MitPlusEins() const { return !opt3N_[1]->isChecked(); }

bool ExtremSucheFenster::modusK() const { return txtIK_->text().trimmed().startsWith('k', Qt::CaseInsensitive); }

QListWidget* ExtremSucheFenster::sichtbareListe() const { return chkSortiert_->isChecked() ? List1_ : List2_; }

void ExtremSucheFenster::reihenfolgeZeigen() {
    const int index = std::max(cmbSortierReihenfolge_->currentIndex(), 0);
    QString text = q(Text(571 + index));
    if (modusK()) text.replace("i.m", "k.m");
    if (!chkDualAnzeige_->isChecked()) text.remove("Dual (R), ").remove("Dual, ");
    lblReihenFolge_->setText(text);
}

void ExtremSucheFenster::ModusUmschalten() {
    const bool k = !modusK();
    txtIK_->setText(k ? "k =" : "i =");
    for (int i = 0; i < cmbSortierReihenfolge_->count(); ++i) {
        QString t = cmbSortierReihenfolge_->itemText(i);
        cmbSortierReihenfolge_->setItemText(i, k ? t.replace("i.m", "k.m") : t.replace("k.m", "i.m"));
    }
    reihenfolgeZeigen();
}

bool ExtremSucheFenster::eventFilter(QObject* o, QEvent* e) {
    if (o == txtIK_ && e->type() == QEvent::MouseButtonDblClick && !Laeuft()) {
        ModusUmschalten();
        return true;
    }
    return Fenster::eventFilter(o, e);
}

void ExtremSucheFenster::Los() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through a yield of the running walk stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    const std::optional<Decimal> i = ZahlEingabe(txtI_, "i", Decimal(-1000000000), Decimal(ExtremMaxTiefe));
    if (!i || i->AlsLong() < 1) return;
    ExtremAuftrag a;
    a.tiefe = i->AlsLong();
    a.von = Text2Hyp(txtVon_->text().toStdString());
    a.bis = Text2Hyp(txtBis_->text().toStdString());
    a.modusK = modusK();
    const QString m = txtM_->text().trimmed().toUpper();
    if (m == "L") {
        a.art = ExtremArt::Pfad;
    } else if (!m.isEmpty()) {
        const std::optional<Decimal> ziel = ZahlEingabe(txtM_, "m", Decimal(0), Decimal(ExtremMaxTiefe));
        if (!ziel) return;
        a.art = ExtremArt::ZielM;
        a.zielM = ziel->AlsLong();
    }
    const std::unique_ptr<VorgaengerRegel> regel = RegelFuerLauf();
    if (!regel) return;
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    breiten_ = ExtremBreiten{};
    tiefe_ = a.tiefe;
    reihenfolge_ = std::max(cmbSortierReihenfolge_->currentIndex(), 0);
    dual_ = chkDualAnzeige_->isChecked();
    List1_->clear();
    List2_->clear();
    FolgenListe.clear();
    StoppUhrStart(windowTitle().toStdString());
    ExtremErgebnis e;
    try {
        e = ExtremWalk(a, *regel, *this);
    } catch (...) {
        StoppUhrStop();
        btnGO_->setText(ruheText_);
        throw;
    }
    DoEvents();
    StoppUhrStop();
    btnGO_->setText(ruheText_);
    if (!e.vollstaendig) MsgInfo(441);
}

void ExtremSucheFenster::Treffer(const Hyp& wert, int32_t m, const std::string& muster) {
    ExtremZeilenFelder f;
    f.tiefe = tiefe_;
    f.m = m;
    f.zahl = Hyp2Anzeige(wert);
    if (CollatzVerfahren >= 3 && BlockWalkMarken()) {
        // The block walk is a walk of its own; it runs on the hit itself.
        CollatzZahl = wert;
        f.marks = CollatzFolgeHyp(3, 0, CollatzReduktion);
    } else {
        f.marks = ExtremMarks(muster, std::min(CollatzVerfahren, 2));
    }
    f.dualAn = dual_;
    if (dual_) f.dual = DualMarks(wert);
    const std::string zeile = ExtremZeile(f, reihenfolge_, breiten_);
    auto* item = new QListWidgetItem(q(zeile));
    item->setData(CsvRolle, q(ExtremZeileCsv(f, breiten_.zeilen, Hyp2Text(wert))));
    QListWidget* liste = sichtbareListe();
    liste->addItem(item);
    // From the size where a list is too long for its menu it no longer follows each new row
    // either: scrolling would cost more than the walk.
    if (breiten_.zeilen < kAnzeigeGrenze) liste->scrollToItem(item);
    DoEvents();
    pause();
}

void ExtremSucheFenster::pause() {
    bool ok = false;
    const int ms = txtPause_->text().trimmed().toInt(&ok);
    if (!ok || ms <= 0) return;
    // Waits in small slices, so that the stop button is heard during a long pause.
    QElapsedTimer uhr;
    uhr.start();
    while (uhr.elapsed() < ms && !Abbruch) {
        QThread::msleep(std::min<qint64>(10, ms - uhr.elapsed()));
        DoEvents();
    }
}

bool ExtremSucheFenster::Gestoppt() {
    // A node costs far less than a turn of the event loop; every 1024th is prompt enough.
    if (++knoten_ % 1024 == 0) DoEvents();
    return Abbruch;
}

std::optional<QStringList> ExtremSucheFenster::ListenText() {
    QStringList zeilen;
    const QListWidget* l = sichtbareListe();
    for (int i = 0; i < l->count(); ++i) zeilen << l->item(i)->text();
    return zeilen;
}

std::optional<QStringList> ExtremSucheFenster::ListenCsv() {
    return CsvAusListe(sichtbareListe(), modusK() ? "Nummer;k;m;Zahl;Marks;Dual" : "Nummer;i;m;Zahl;Marks;Dual");
}

// The picture file shows the list as it stands on screen; a print gets every row instead,
// which the base prints when there is no picture.
QImage ExtremSucheFenster::BildAbbild() { return druckt_ ? QImage() : sichtbareListe()->grab().toImage(); }

void ExtremSucheFenster::Drucken(QPrinter& drucker) {
    druckt_ = true;
    Fenster::Drucken(drucker);
    druckt_ = false;
}

void ExtremSucheFenster::closeEvent(QCloseEvent* e) {
    Fenster::closeEvent(e);
    if (e->isAccepted()) {
        FolgenListe.clear();
        if (modusK()) ModusUmschalten();  // the field orders are stored with "i.m"
    }
}

}  // namespace sw
