#include "windows/frmPrimTestKpl.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "frame/StoppUhr.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"
#include "windows/Balken.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

const char* const kTestNamen[KplMethodenAnzahl] = {"Probedivision", "Perrin",     "Miller-Rabin",
                                                    "Solovay-Strassen", "Lucas-Lehmer", "Perrin plus",
                                                    "Fermat-Suche",  "Fermat",     "BPSW"};
const char* const kStepNamen[KplSchrittModi] = {"alle Zahlen", "ungerade", "1, 5 mod 6", "teilerfremd zu 30",
                                                "Primzahlen"};

// The caption of a field for its messages: its label's text without the accelerator and colon.
QString feldName(QString t) {
    t.remove('&');
    if (t.endsWith(':')) t.chop(1);
    return t.trimmed();
}

}  // namespace

frmPrimTestKpl::frmPrimTestKpl(QWidget* eltern) : Fenster("frmPrimTestKpl", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);

    auto* felder = new QGridLayout;
    auto feld = [&](const char* name, const char* wert, int zeile, int spalte) {
        auto* label = Benannt(new QLabel(mitte), QString("lbl") + (name + 3));
        auto* edit = Benannt(new QLineEdit(wert, mitte), name);
        label->setBuddy(edit);
        felder->addWidget(label, zeile, spalte);
        felder->addWidget(edit, zeile, spalte + 1);
        return edit;
    };
    txtVon_ = feld("txtVon", "1.000.000", 0, 0);
    txtIntervall_ = feld("txtIntervall", "1.000", 0, 2);
    felder->setColumnStretch(1, 2);
    felder->setColumnStretch(3, 1);
    lay->addLayout(felder);

    auto* wahl = new QHBoxLayout;
    auto* fraTest = Benannt(new QGroupBox(mitte), "fraTest");
    auto* testLay = new QGridLayout(fraTest);
    auto* testGruppe = new QButtonGroup(this);
    for (int32_t i = 0; i < KplMethodenAnzahl; ++i) {
        optTest_[i] = Benannt(new QRadioButton(kTestNamen[i], fraTest), "optTest", i);
        testGruppe->addButton(optTest_[i], i);
        testLay->addWidget(optTest_[i], i % 5, i / 5 * 2, 1, 2);
    }
    optTest_[KplFermat]->setChecked(true);
    auto* lblMulti = Benannt(new QLabel(fraTest), "lblMultiTest");
    txtMultiTest_ = Benannt(new QLineEdit("1", fraTest), "txtMultiTest");
    auto* lblPlus = Benannt(new QLabel(fraTest), "lblPerrinPlus");
    txtPerrinPlus_ = Benannt(new QLineEdit("100", fraTest), "txtPerrinPlus");
    testLay->addWidget(lblMulti, 5, 0);
    testLay->addWidget(txtMultiTest_, 5, 1);
    testLay->addWidget(lblPlus, 5, 2);
    testLay->addWidget(txtPerrinPlus_, 5, 3);
    wahl->addWidget(fraTest, 2);

    auto* rechts = new QVBoxLayout;
    auto* fraStep = Benannt(new QGroupBox(mitte), "fraStep");
    auto* stepLay = new QVBoxLayout(fraStep);
    auto* stepGruppe = new QButtonGroup(this);
    for (int32_t i = 0; i < KplSchrittModi; ++i) {
        optStep_[i] = Benannt(new QRadioButton(kStepNamen[i], fraStep), "optStep", i);
        stepGruppe->addButton(optStep_[i], i);
        stepLay->addWidget(optStep_[i]);
    }
    optStep_[1]->setChecked(true);
    rechts->addWidget(fraStep);
    chkCheck_ = Benannt(new QCheckBox(mitte), "chkCheck");
    chk2er_ = Benannt(new QCheckBox(mitte), "chk2er");
    chkFilter_ = Benannt(new QCheckBox(mitte), "chkFilter");
    txtVorFilter_ = Benannt(new QLineEdit("1.000", mitte), "txtVorFilter");
    rechts->addWidget(chkCheck_);
    rechts->addWidget(chk2er_);
    auto* filterZeile = new QHBoxLayout;
    filterZeile->addWidget(chkFilter_);
    filterZeile->addWidget(txtVorFilter_, 1);
    rechts->addLayout(filterZeile);
    wahl->addLayout(rechts, 1);
    lay->addLayout(wahl);

    btnGO_ = Benannt(new QPushButton("OK", mitte), "btnGO");
    btnGO_->setDefault(true);
    lay->addLayout(KnopfReihe({btnGO_}));

    // While the sieve of the check is built: its progress and a button that stops it.
    fraWait_ = Benannt(new QGroupBox(mitte), "fraWait");
    auto* warteLay = new QHBoxLayout(fraWait_);
    balken_ = new Balken(QString::fromUtf8("Tertiär"), fraWait_);
    btnStopTertiaer_ = Benannt(new QPushButton("Stop", fraWait_), QString::fromUtf8("btnStopTertiär"));
    warteLay->addWidget(balken_, 1);
    warteLay->addWidget(btnStopTertiaer_);
    fraWait_->hide();
    lay->addWidget(fraWait_);

    liste_ = Benannt(new QListWidget(mitte), "List1");
    lay->addWidget(liste_, 1);
    setCentralWidget(mitte);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { StartStop(); }));
    connect(btnStopTertiaer_, &QPushButton::clicked, this, [] { Abbruch = true; });

    IconsAufbauen("");
    FensterLaden(q(AktivesFenster));
    liste_->clear();
    setMinimumSize(640, 560);
}

void frmPrimTestKpl::StartStop() {
    std::string caption = btnGO_->text().toStdString();
    QString ruhe = SektionsText("btnGO");
    if (ruhe.isEmpty()) ruhe = "OK";
    const bool stoppen = StartStopUmschalten(caption, ruhe.toStdString());
    btnGO_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    const Lauf lauf(*this);
    // However the run ends (an error too, which the handler's guard then shows), the window
    // comes back to rest with its start text.
    struct Ruhe {
        frmPrimTestKpl* w;
        QString caption;
        QString von;
        ~Ruhe() {
            w->btnGO_->setText(caption);
            w->txtVon_->setText(von);
            w->fraWait_->hide();
            w->laufend(false);
        }
    } ruheWieder{this, ruhe, txtVon_->text()};
    laufend(true);
    laufen(ruheWieder.von);
}

std::optional<KplEingabe> frmPrimTestKpl::felderLesen() {
    auto zahl = [this](QLineEdit* f, const char* label, long long von, long long bis) -> std::optional<long long> {
        const auto d = ZahlEingabe(f, feldName(Steuer<QLabel>(this, label)->text()), Decimal(von), Decimal(bis));
        if (!d) return std::nullopt;
        return d->AlsInt64();
    };
    KplEingabe e;
    e.von = txtVon_->text().toStdString();
    const auto intervall = zahl(txtIntervall_, "lblIntervall", 0, 1000000000000000LL);
    if (!intervall) return std::nullopt;
    const auto runden = zahl(txtMultiTest_, "lblMultiTest", 1, 1000);
    if (!runden) return std::nullopt;
    const auto plus = zahl(txtPerrinPlus_, "lblPerrinPlus", 0, 100000);
    if (!plus) return std::nullopt;
    e.intervall = *intervall;
    e.runden = int32_t(*runden);
    e.perrinPlus = int32_t(*plus);
    e.filter = chkFilter_->isChecked();
    if (e.filter) {
        const auto d = ZahlEingabe(txtVorFilter_, feldName(chkFilter_->text()), Decimal(0),
                                   Decimal(GrenzeLong));
        if (!d) return std::nullopt;
        e.vorFilter = d->AlsLong();
    }
    for (int32_t i = 0; i < KplMethodenAnzahl; ++i) {
        if (optTest_[i]->isChecked()) e.test = i;
    }
    for (int32_t i = 0; i < KplSchrittModi; ++i) {
        if (optStep_[i]->isChecked()) e.step = i;
    }
    e.check = chkCheck_->isChecked();
    e.zweier = chk2er_->isChecked();
    e.testName = optTest_[e.test]->text().remove('&').toStdString() + "-Test";
    return e;
}

void frmPrimTestKpl::laufen(QString& vonText) {
    std::optional<KplEingabe> eingabe = felderLesen();
    if (!eingabe) return;
    std::optional<KplLaufDaten> daten = EingabePruefen(*eingabe);
    // The start as the check left it ("2" for an empty field) is what the field shows after the run.
    if (q(eingabe->von) != vonText.trimmed()) vonText = q(eingabe->von);
    if (!daten) return;
    liste_->clear();
    StoppUhrStart(eingabe->von);
    PrimTestKplLauf(std::move(*daten), *this);
    StoppUhrStop();
}

void frmPrimTestKpl::laufend(bool ja) {
    for (QWidget* w : std::initializer_list<QWidget*>{txtIntervall_, txtMultiTest_, txtPerrinPlus_, txtVorFilter_,
                                                      chkCheck_, chk2er_, chkFilter_}) {
        w->setEnabled(!ja);
    }
    txtVon_->setReadOnly(ja);
    for (QRadioButton* o : optTest_) o->setEnabled(!ja);
    for (QRadioButton* o : optStep_) o->setEnabled(!ja);
}

void frmPrimTestKpl::Zeile(const std::string& text) {
    liste_->addItem(q(text));
    liste_->scrollToBottom();
}

void frmPrimTestKpl::ZahlZeigen(const std::string& text) { txtVon_->setText(q(text)); }

void frmPrimTestKpl::SiebWarten(bool sichtbar) {
    BalkenSetzen(balken_->Linie(), balken_, 0);
    fraWait_->setVisible(sichtbar);
}

void frmPrimTestKpl::SiebFortschritt(int32_t prozent) { BalkenSetzen(balken_->Linie(), balken_, prozent); }

}  // namespace sw
