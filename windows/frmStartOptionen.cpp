#include "windows/frmStartOptionen.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

#include "db/PgVerbindung.h"
#include "frame/Einstellungen.h"
#include "frame/Meldungen.h"
#include "frame/Programm.h"
#include "frame/Pfade.h"
#include "frame/Zahlformat.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "mersenne/basDB.h"
#include "sieve/SiebSegmentiert.h"
#include "windows/Fenster.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }

QLineEdit* feld(QWidget* eltern, const char* name, int breite) {
    auto* t = Benannt(new QLineEdit(eltern), name);
    t->setMaximumWidth(breite);
    return t;
}
}  // namespace

StartOptionen::StartOptionen(QWidget* eltern) : QGroupBox(eltern) {
    Benannt(this, "fraOptionen");
    auto* lay = new QVBoxLayout(this);
    seiten_ = new QStackedWidget(this);
    lay->addWidget(seiten_);

    // System: folder of block files, stop watch, threads of the segmented sieve.
    auto* system = Benannt(new QWidget(seiten_), "fraSystem");
    auto* sysLay = new QFormLayout(system);
    txtPath_ = Benannt(new QLineEdit(system), "txtPath");
    chkStoppUhr_ = Benannt(new QCheckBox(system), "chkStoppUhr");
    sysLay->addRow(Benannt(new QLabel(system), "lblPath"), txtPath_);
    txtDatenbank_ = Benannt(new QLineEdit(system), "txtDatenbank");
    sysLay->addRow(Benannt(new QLabel(system), "lblDatenbank"), txtDatenbank_);
    sysLay->addRow(chkStoppUhr_);
    txtThreads_ = feld(system, "txtThreads", 60);
    sysLay->addRow(Benannt(new QLabel(system), "lblThreads"), txtThreads_);
    seiten_->addWidget(system);

    // Number display: grouping, decimals, shortening.
    auto* zahlen = Benannt(new QWidget(seiten_), "fraZahlenDarstellung");
    auto* zLay = new QVBoxLayout(zahlen);
    auto* gruppe = new QButtonGroup(zahlen);
    for (int i = 0; i < 3; ++i) {
        format_[i] = Benannt(new QRadioButton(zahlen), "optFormat", i);
        gruppe->addButton(format_[i], i);
    }
    zLay->addWidget(format_[0]);
    zLay->addWidget(format_[1]);
    auto* frei = new QHBoxLayout;
    txtZeichen_ = feld(zahlen, "txtZeichen", 40);
    txtFormatAnzahl_ = feld(zahlen, "txtFormatAnzahl", 40);
    frei->addWidget(format_[2]);
    frei->addWidget(txtZeichen_);
    frei->addWidget(Benannt(new QLabel(zahlen), "lblFormatAnzahl"));
    frei->addWidget(txtFormatAnzahl_);
    frei->addStretch(1);
    zLay->addLayout(frei);
    auto* zForm = new QFormLayout;
    txtNachKommaExtern_ = feld(zahlen, "txtNachKommaExtern", 60);
    txtNachKommaIntern_ = feld(zahlen, "txtNachKommaIntern", 60);
    txtMaxFormatStellen_ = feld(zahlen, "txtMaxFormatStellen", 60);
    zForm->addRow(Benannt(new QLabel(zahlen), "lblNachKommaExtern"), txtNachKommaExtern_);
    zForm->addRow(Benannt(new QLabel(zahlen), "lblNachKommaIntern"), txtNachKommaIntern_);
    zForm->addRow(Benannt(new QLabel(zahlen), "lblMaxFormatStellen"), txtMaxFormatStellen_);
    zLay->addLayout(zForm);
    chkStellenZahl_ = Benannt(new QCheckBox(zahlen), "chkStellenZahl");
    zLay->addWidget(chkStellenZahl_);
    zLay->addStretch(1);
    seiten_->addWidget(zahlen);

    // Colours: index 1/0 back/fore of large numbers, 3/2 of texts; a double click changes one.
    auto* farbSeite = Benannt(new QWidget(seiten_), "fraFarben");
    auto* fLay = new QGridLayout(farbSeite);
    for (int i = 0; i < 4; ++i) {
        farben_[i] = Benannt(new QLabel(farbSeite), "lblCol", i);
        farben_[i]->setFrameShape(QFrame::Box);
        farben_[i]->setFixedSize(34, 22);
        farben_[i]->setCursor(Qt::PointingHandCursor);
    }
    lblBigZahl_ = Benannt(new QLabel(farbSeite), "lblBigZahl");
    lblTextFarbe_ = Benannt(new QLabel(farbSeite), "lblTextFarbe");
    for (QLabel* m : {lblBigZahl_, lblTextFarbe_}) {
        m->setAutoFillBackground(true);
        m->setMargin(4);
        m->setMinimumWidth(140);
    }
    fLay->addWidget(Benannt(new QLabel(farbSeite), "lblHintergrund"), 0, 1);
    fLay->addWidget(Benannt(new QLabel(farbSeite), "lblSchrift"), 0, 2);
    fLay->addWidget(Benannt(new QLabel(farbSeite), "lblGrosseZahlen"), 1, 0);
    fLay->addWidget(farben_[1], 1, 1);
    fLay->addWidget(farben_[0], 1, 2);
    fLay->addWidget(lblBigZahl_, 1, 3);
    fLay->addWidget(Benannt(new QLabel(farbSeite), "lblTexte"), 2, 0);
    fLay->addWidget(farben_[3], 2, 1);
    fLay->addWidget(farben_[2], 2, 2);
    fLay->addWidget(lblTextFarbe_, 2, 3);
    auto* hinweis = Benannt(new QLabel(farbSeite), "lblFarbHinweis");
    hinweis->setWordWrap(true);
    fLay->addWidget(hinweis, 3, 0, 1, 4);
    fLay->setColumnStretch(3, 1);
    fLay->setRowStretch(4, 1);
    seiten_->addWidget(farbSeite);

    // Number base.
    auto* basis = Benannt(new QWidget(seiten_), "fraZahlensystem");
    auto* bLay = new QFormLayout(basis);
    txtZahlenSystem_ = feld(basis, "txtZahlenSystem", 60);
    lblBasis_ = Benannt(new QLabel(basis), "lblBasis");
    bLay->addRow(Benannt(new QLabel(basis), "lblZahlenSystem"), txtZahlenSystem_);
    bLay->addRow(QString(), lblBasis_);
    seiten_->addWidget(basis);

    go_ = Benannt(new QPushButton("OK", this), "btnGO");
    cancel_ = Benannt(new QPushButton("Abbrechen", this), "btnCancel");
    go_->setDefault(true);
    lay->addLayout(KnopfReihe({go_, cancel_}));

    AusVariablen();
}

void StartOptionen::SeiteZeigen(int seite, const QString& titel) {
    seiten_->setCurrentIndex(seite);
    setTitle(QString(titel).remove('&'));
    show();
}

int StartOptionen::Seite() const { return seiten_->currentIndex(); }

bool StartOptionen::Uebernehmen(bool pruefen) {
    // Every field is read before anything is set, so a refusal changes nothing. Applying by
    // hand names a field that holds no fitting number; at start a stored value that does not
    // fit keeps the variable as it is.
    bool lesbar = true;
    auto zahl = [&](QLineEdit* t, int32_t alt, int32_t von, int32_t bis) -> int32_t {
        if (!lesbar) return alt;
        if (pruefen) {
            const auto* beschriftung = findChild<QLabel*>("lbl" + t->objectName().mid(3));
            const QString name = beschriftung ? beschriftung->text().remove('&').remove(':').trimmed() : t->objectName();
            const std::optional<Decimal> wert = ZahlEingabe(t, name, Decimal(von), Decimal(bis));
            if (!wert) lesbar = false;
            return wert ? wert->AlsLong() : alt;
        }
        try {
            return TextZuLong(t->text().toStdString());
        } catch (const Laufzeitfehler&) {
            return alt;
        }
    };
    std::string zeichen = FormatZeichen;
    int32_t anzahl = FormatAnzahl;
    if (format_[0]->isChecked()) {
        zeichen = "";
        anzahl = 0;
    } else if (format_[1]->isChecked()) {
        zeichen = ".";
        anzahl = 3;
    } else if (format_[2]->isChecked()) {
        zeichen = txtZeichen_->text().toStdString();
        anzahl = std::max(0, zahl(txtFormatAnzahl_, FormatAnzahl, 0, 100));
    }
    const int32_t extern_ = zahl(txtNachKommaExtern_, NachKommaExtern, 0, 1000);
    const int32_t intern = zahl(txtNachKommaIntern_, NachKommaIntern, 0, 1000);
    int32_t maxStellen = zahl(txtMaxFormatStellen_, MaxFormatStellen, 0, 2000000000);
    int32_t basis = zahl(txtZahlenSystem_, ZahlenSystem, 0, 1000);
    const int32_t faeden = zahl(txtThreads_, SiebFaeden, 0, 256);
    if (!lesbar) return false;
    if (maxStellen < 10) {
        if (pruefen) {
            MsgInfo(470);
            return false;
        }
        maxStellen = MaxFormatStellen;
    }
    if (basis < 2) basis = 10;
    // Block files and settings go to this folder: one that is not there would lose them.
    const QString pfad = txtPath_->text().trimmed();
    const bool pfadDa = !pfad.isEmpty() && QDir(pfad).exists();
    if (!pfad.isEmpty() && !pfadDa && pruefen) {
        MsgLaufwerk();
        return false;
    }
    // The field shows the database without its password: while it still reads so, the place
    // in force (or at start the stored one) stays, password and all.
    std::string db = DbOrtEingabe();
    if (!pruefen && db.empty()) db = IniLesen(StartSektion, "Datenbank");
    std::string dbFeld = txtDatenbank_->text().trimmed().toStdString();
    if (!dbFeld.empty() && !IstPgUrl(dbFeld)) dbFeld = MitSchraegstrich(dbFeld);
    if (dbFeld != UrlOhnePasswort(db)) db = dbFeld;
    if (!db.empty() && !IstPgUrl(db) && !QDir(q(db)).exists()) {
        if (pruefen) {
            MsgLaufwerk();
            return false;
        }
        db = DbOrtEingabe();
    }

    FormatZeichen = zeichen;
    FormatAnzahl = anzahl;
    NachKommaExtern = extern_;
    NachKommaIntern = intern;
    MaxFormatStellen = maxStellen;
    StellenZahlAnzeigen = chkStellenZahl_->isChecked();
    for (int i = 0; i < 4; ++i) GrossZahlFarbe[i] = static_cast<int32_t>(HintergrundFarbe(farben_[i]));
    if (pfadDa) ProgrammPfad = MitSchraegstrich(pfad.toStdString());
    if (db != DbOrtEingabe()) {
        DbOrdnerSetzen(db);
        IniSchreiben(StartSektion, "Datenbank", db);
    }
    txtDatenbank_->setText(q(UrlOhnePasswort(db)));
    StoppUhrAktiv = chkStoppUhr_->isChecked();
    SiebFaeden = std::clamp(faeden, 0, 256);
    ZahlenSystem = basis;
    lblBasis_->setText(q(BasisBeschriftung()));
    MusterAuffrischen();
    return true;
}

void StartOptionen::AusVariablen() {
    const int format = FormatAnzahl == 0 ? 0 : (FormatZeichen == "." && FormatAnzahl == 3 ? 1 : 2);
    format_[format]->setChecked(true);
    txtZeichen_->setText(q(FormatZeichen));
    txtFormatAnzahl_->setText(QString::number(FormatAnzahl));
    txtNachKommaExtern_->setText(QString::number(NachKommaExtern));
    txtNachKommaIntern_->setText(QString::number(NachKommaIntern));
    txtMaxFormatStellen_->setText(QString::number(MaxFormatStellen));
    chkStellenZahl_->setChecked(StellenZahlAnzeigen);
    for (int i = 0; i < 4; ++i) HintergrundFarbeSetzen(farben_[i], GrossZahlFarbe[i]);
    txtPath_->setText(q(ProgrammPfad));
    txtDatenbank_->setText(q(UrlOhnePasswort(DbOrtEingabe())));
    chkStoppUhr_->setChecked(StoppUhrAktiv);
    txtThreads_->setText(QString::number(SiebFaeden));
    txtZahlenSystem_->setText(QString::number(ZahlenSystem));
    lblBasis_->setText(q(BasisBeschriftung()));
    MusterAuffrischen();
}

void StartOptionen::MusterAuffrischen() {
    auto muster = [this](QLabel* l, int hinten, int vorn) {
        HintergrundFarbeSetzen(l, HintergrundFarbe(farben_[hinten]));
        VordergrundFarbeSetzen(l, HintergrundFarbe(farben_[vorn]));
    };
    muster(lblBigZahl_, 1, 0);
    muster(lblTextFarbe_, 3, 2);
}

QStringList StartOptionen::Auflistung() const {
    auto titel = [](const QLabel* l) { return l->text(); };
    QStringList zeilen;
    zeilen << QStringLiteral("%1 %2").arg(titel(findChild<QLabel*>("lblPath")), q(ProgrammPfad));
    zeilen << QStringLiteral("%1 %2").arg(titel(findChild<QLabel*>("lblDatenbank")), q(UrlOhnePasswort(DbOrtEingabe())));
    zeilen << QStringLiteral("%1 %2").arg(chkStoppUhr_->text(), StoppUhrAktiv ? "✓" : "–");
    zeilen << q(TextP1(1702, std::to_string(SiebFaedenWirksam())));
    zeilen << QStringLiteral("1234567890 → %1").arg(q(ZahlFormat(static_cast<long long>(1234567890))));
    zeilen << QStringLiteral("%1 %2").arg(titel(findChild<QLabel*>("lblNachKommaExtern"))).arg(NachKommaExtern);
    zeilen << QStringLiteral("%1 %2").arg(titel(findChild<QLabel*>("lblNachKommaIntern"))).arg(NachKommaIntern);
    zeilen << QStringLiteral("%1 %2").arg(titel(findChild<QLabel*>("lblMaxFormatStellen"))).arg(MaxFormatStellen);
    zeilen << QStringLiteral("%1 %2").arg(chkStellenZahl_->text(), StellenZahlAnzeigen ? "✓" : "–");
    zeilen << QStringLiteral("%1 %2").arg(titel(findChild<QLabel*>("lblZahlenSystem")), q(BasisBeschriftung()));
    return zeilen;
}

}  // namespace sw
