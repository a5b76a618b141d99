#include "windows/frmPrimAbstandAb.h"

#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <cstdio>

#include "arith/basHyper.h"
#include "frame/Fortschritt.h"
#include "frame/Meldungen.h"
#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/PrimzahlTest.h"
#include "views/RasterVorhanden.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

std::string ziffern(mpz_srcptr z) {
    char* t = mpz_get_str(nullptr, 10, z);
    std::string s(t);
    free(t);
    return s;
}

}  // namespace

frmPrimAbstandAb::frmPrimAbstandAb(QWidget* eltern) : Fenster("frmPrimAbstandAb", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Ab:", mitte), "lblStart"));
    txtStart_ = Benannt(new QLineEdit("10^15", mitte), "txtStart");
    zeile->addWidget(txtStart_, 1);
    zeile->addWidget(Benannt(new QLabel("Anzahl:", mitte), "lblAnzahl"));
    txtAnzahl_ = Benannt(new QLineEdit("100", mitte), "txtAnzahl");
    txtAnzahl_->setMaximumWidth(90);
    zeile->addWidget(txtAnzahl_);
    zeile->addWidget(Benannt(new QLabel("Lücke ab:", mitte), "lblMin"));
    txtMin_ = Benannt(new QLineEdit("0", mitte), "txtMin");
    txtMin_->setMaximumWidth(70);
    zeile->addWidget(txtMin_);
    btnGO_ = Benannt(new QPushButton("Start", mitte), "btnGO");
    auto* btnCSV = Benannt(new QPushButton("CSV", mitte), "btnCSV");
    zeile->addWidget(btnGO_);
    zeile->addWidget(btnCSV);
    lay->addLayout(zeile);
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    lay->addWidget(lblFortschritt_);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setFont(QFont("Monospace"));
    lay->addWidget(List1_, 1);
    setCentralWidget(mitte);
    resize(800, 500);

    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Suchen(); }));
    connect(txtStart_, &QLineEdit::returnPressed, this, Sicher([this] { Suchen(); }));
    connect(btnCSV, &QPushButton::clicked, this, Sicher([this] {
                if (auto csv = ListenCsv()) CsvSpeichern(csv->join('\n').toStdString() + "\n");
            }));
    IconsAufbauen("T");
    FensterLaden("PrimAbstandAb");
    ruheText_ = btnGO_->text();
}

void frmPrimAbstandAb::Suchen() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    if (!PrimaerRasterVorhanden()) return;
    const auto anzahl = ZahlEingabe(txtAnzahl_, "Anzahl", Decimal(1), Decimal(1000000));
    if (!anzahl) return;
    const auto min = ZahlEingabe(txtMin_, "Lücke ab", Decimal(0), Decimal(int64_t(LueckeMax)));
    if (!min) return;
    // Text that is no number is read as a formula: the evaluator names what it cannot read.
    const Mpz start(Formel2Hyp(PrimTestEingabe(txtStart_->text().toStdString())));
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    const auto ruhe = qScopeGuard([this] {
        btnGO_->setText(ruheText_);
        lblFortschritt_->clear();
    });
    LueckenFrage frage;
    frage.anzahl = uint64_t(anzahl->AlsInt64());
    frage.mindestens = uint64_t(min->AlsInt64());
    List1_->clear();
    csv_ = QStringList{"p;gap;merit;record;proven"};
    const double beginn = Timer();
    char zeile[120];
    QFont fett = List1_->font();
    fett.setBold(true);
    const bool ganz = LueckenAb(
        start, frage,
        [&](const LueckenZeile& z) {
            const std::string p = ziffern(z.p);
            std::snprintf(zeile, sizeof zeile, "  %8llu  %8s%s%s", (unsigned long long)z.luecke, KommaZahl(z.merit, 4).c_str(),
                          z.rekord ? "  *" : "", z.bewiesen ? "" : "  (?)");
            auto* eintrag = new QListWidgetItem(q(ZahlFormat(p) + zeile));
            // A record gap: larger than every gap before it in this walk.
            if (z.rekord) eintrag->setFont(fett);
            List1_->addItem(eintrag);
            std::snprintf(zeile, sizeof zeile, ";%llu;%.6f;%d;%d", (unsigned long long)z.luecke, z.merit, z.rekord,
                          z.bewiesen);
            csv_ << q(p + zeile);
            return !Abbruch;
        },
        [&](const Mpz& stand) {
            lblFortschritt_->setText(q(TextP1(2266, ZahlFormat(ziffern(stand.get()))) + "  " +
                                       ZeitFormat(Timer() - beginn)));
            DoEvents();
            return !Abbruch;
        });
    if (!ganz || Abbruch) List1_->addItem(q(Text(2265)));
}

std::optional<QStringList> frmPrimAbstandAb::ListenCsv() {
    if (csv_.size() < 2) return std::nullopt;
    return csv_;
}

}  // namespace sw
