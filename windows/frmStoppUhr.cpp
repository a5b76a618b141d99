#include "windows/frmStoppUhr.h"

#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>

#include "frame/StoppUhr.h"
#include "frame/basZentral.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QPointer<frmStoppUhr> instanz;
}

frmStoppUhr::frmStoppUhr() : Fenster("frmStoppUhr") {
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* form = new QFormLayout;
    auto zeile = [&](const char* beschriftung, const char* wert) {
        auto* l = Benannt(new QLabel(mitte), wert);
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        l->setMinimumWidth(l->fontMetrics().horizontalAdvance("00.00.0000 00:00:00  "));
        form->addRow(Benannt(new QLabel(mitte), beschriftung), l);
        return l;
    };
    lblAufgabe_ = zeile("lblAufgabeText", "lblAufgabe");
    lblStart_ = zeile("lblStartText", "lblStart");
    lblEnde_ = zeile("lblEndeText", "lblEnde");
    lblDauer_ = zeile("lblDauerText", "lblDauer");
    lblZustand_ = zeile("lblZustandText", "lblZustand");
    lay->addLayout(form);
    auto* ok = Benannt(new QPushButton("OK", mitte), "btnOK");
    lay->addWidget(ok, 0, Qt::AlignRight);
    setCentralWidget(mitte);
    connect(ok, &QPushButton::clicked, this, &QWidget::close);
    Anzeigen();  // the content first, so that the window's designed size fits it
    FensterLaden("StoppUhr");
}

void frmStoppUhr::Anzeigen() {
    lblAufgabe_->setText(QString::fromStdString(StoppUhr.name));
    auto leer = std::chrono::system_clock::time_point{};
    lblStart_->setText(StoppUhr.start == leer ? QString() : QString::fromStdString(DatumZeitText(StoppUhr.start)));
    const bool fertig = !StoppUhr.laeuft && StoppUhr.ende != leer && StoppUhr.ende >= StoppUhr.start;
    lblEnde_->setText(fertig ? QString::fromStdString(DatumZeitText(StoppUhr.ende)) : QString());
    if (fertig) {
        double sek = std::chrono::duration<double>(StoppUhr.ende - StoppUhr.start).count();
        lblDauer_->setText(SektionsText("Sekunden").replace("#P1", QString::number(sek, 'f', 2)));
    } else {
        lblDauer_->clear();
    }
    lblZustand_->setText(SektionsText(StoppUhr.laeuft ? "Laeuft" : "Steht"));
}

frmStoppUhr* frmStoppUhr::Instanz() { return instanz; }

void frmStoppUhr::Zeigen(bool aktiv) {
    if (!aktiv) {
        if (instanz) instanz->close();
        return;
    }
    // Before the first job there is nothing to show: no empty window at start or when the
    // option is switched on.
    if (!instanz && StoppUhr.name.empty() && !StoppUhr.laeuft) return;
    if (!instanz) {
        instanz = new frmStoppUhr();
        instanz->setAttribute(Qt::WA_DeleteOnClose);
    }
    instanz->Anzeigen();
    instanz->show();
}

}  // namespace sw
