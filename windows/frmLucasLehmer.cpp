#include "windows/frmLucasLehmer.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QTimer>
#include <QVBoxLayout>

#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneWert.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/UpDown.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// In the frames, lblTest(1) is the label of the running test: it is the one that flashes.
constexpr int kLabelImRahmen[3] = {0, 2, 1};

}  // namespace

frmLucasLehmer::frmLucasLehmer(QWidget* eltern) : Fenster("frmLucasLehmer", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Exponent p:", mitte), "lblPotenz"));
    txtPotenz_ = Benannt(new QLineEdit("11.213", mitte), "txtPotenz");
    zeile->addWidget(txtPotenz_, 1);
    zeile->addWidget(Benannt(new UpDown(mitte, [this](int n) { Sicher([this, n] { Schritt(n > 0 ? 1 : -1); })(); }),
                             "UpDown1"));
    lay->addLayout(zeile);
    auto* fraMethode = Benannt(new QGroupBox("Methode", mitte), "fraMethode");
    auto* mlay = new QVBoxLayout(fraMethode);
    optMethode_ = new QButtonGroup(this);
    const char* namen[LucasMethodenAnzahl] = {"Binomische Quadrate", "Add Spezial", "Karatsuba", "Transformation"};
    for (int i = 0; i < LucasMethodenAnzahl; ++i) {
        auto* o = Benannt(new QRadioButton(namen[i], fraMethode), "optMethode", i);
        optMethode_->addButton(o, i);
        mlay->addWidget(o);
    }
    optMethode_->button(LucasMethodeKaratsuba)->setChecked(true);
    lay->addWidget(fraMethode);
    lblStatus_ = Benannt(new QLabel(mitte), "lblStatus");
    lblRestDauer_ = Benannt(new QLabel(mitte), "lblRestDauer");
    lblRes64_ = Benannt(new QLabel(mitte), "lblRes64");
    lblRes64_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QLabel* l : {lblStatus_, lblRestDauer_, lblRes64_}) lay->addWidget(l);
    const char* urteile[3] = {"2^p-1 ist prim", "2^p-1 ist zusammengesetzt", "Test läuft ..."};
    for (int i = 0; i < 3; ++i) {
        fraPrim_[i] = Benannt(new QGroupBox(mitte), "fraPrim", i);
        auto* flay = new QVBoxLayout(fraPrim_[i]);
        const int k = kLabelImRahmen[i];
        lblTest_[k] = Benannt(new QLabel(urteile[i], fraPrim_[i]), "lblTest", k);
        lblTest_[k]->setAlignment(Qt::AlignCenter);
        flay->addWidget(lblTest_[k]);
        fraPrim_[i]->hide();
        lay->addWidget(fraPrim_[i]);
    }
    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    lay->addLayout(KnopfReihe({btnGO_}));
    setCentralWidget(mitte);
    Timer1_ = Benannt(new QTimer(this), "Timer1");
    connect(Timer1_, &QTimer::timeout, this, [this] {
        const QColor farbe = QColor::fromRgb(QRandomGenerator::global()->generate() & 0xFFFFFF);
        lblTest_[1]->setStyleSheet("color: " + farbe.name());
    });
    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { StartStop(); }));
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmLucasLehmer::Schritt(int richtung) {
    if (Laeuft()) return;
    const auto wert = ZahlEingabe(txtPotenz_, "Exponent p", Decimal(0), Decimal(0xFFFFFFFFu));
    if (!wert) return;
    const uint32_t p = PrimExponentSchritt(wert->AlsInt64(), richtung);
    if (p) txtPotenz_->setText(q(ZahlFormat(Decimal(int64_t(p)))));  // nothing beyond the ends
}

void frmLucasLehmer::StartStop() {
    std::string caption = btnGO_->text().toStdString();
    const bool stoppen = StartStopUmschalten(caption, "START");
    btnGO_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    // However the run ends (an error too, which the handler's guard shows), the window comes
    // back to rest; "START" in capitals, as after every run.
    struct Ruhe {
        frmLucasLehmer* w;
        ~Ruhe() {
            w->Timer1_->stop();
            w->btnGO_->setText("START");
            w->txtPotenz_->setReadOnly(false);
        }
    } ruhe{this};
    const auto wert = ZahlEingabe(txtPotenz_, "Exponent p", Decimal(0), Decimal(0xFFFFFFFFu));
    if (!wert) return;
    const int64_t p = wert->AlsInt64();
    if (p < 3) {
        MsgInfo(515);
        return;
    }
    if (!LucasExponentPrim(uint32_t(p))) {
        MsgInfo(409);
        return;
    }
    testen(uint32_t(p));
}

void frmLucasLehmer::testen(uint32_t p) {
    const Lauf lauf(*this);
    txtPotenz_->setReadOnly(true);
    for (QGroupBox* f : fraPrim_) f->hide();
    lblStatus_->clear();
    lblRestDauer_->clear();
    lblRes64_->clear();
    Timer1_->start(200);
    fraPrim_[2]->show();
    LucasAuftrag a;
    a.p = p;
    a.methode = optMethode_->checkedId();
    a.fortsetzen = true;  // a stopped run of this exponent goes on where it stood
    try {
        const LucasBefund b = LucasLauf(a, this);
        fraPrim_[2]->hide();
        if (Abbruch) {
            // A stopped run has no remaining time; its last estimate would stand there as if
            // it were still counting.
            lblRestDauer_->clear();
            lblStatus_->setText(q(TextP1(1404, std::to_string(b.iteration))));
            return;
        }
        fraPrim_[b.ergebnis == LucasErgebnis::Prim ? 0 : 1]->show();
        lblRes64_->setText(q(TextP1(1405, Res64Text(b.res64))));
    } catch (...) {
        fraPrim_[2]->hide();
        throw;
    }
}

void frmLucasLehmer::Stand(uint32_t i, const std::string& restDauer) {
    lblStatus_->setText(q(ZahlFormat(Decimal(int64_t(i)))));
    lblRestDauer_->setText(q(restDauer));
}

}  // namespace sw
