#include "windows/frmZahl.h"

#include <QLabel>
#include <QVBoxLayout>

#include "frame/Decimal.h"
#include "frame/basZentral.h"
#include "views/ZahlInfo.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {
QString q(const std::string& s) { return QString::fromStdString(s).toHtmlEscaped(); }
}  // namespace

frmZahl::frmZahl(QWidget* eltern) : Fenster("frmZahl", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    lblInhalt_ = Benannt(new QLabel(mitte), "lblInhalt");
    lblInhalt_->setTextFormat(Qt::RichText);
    lblInhalt_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblInhalt_->setWordWrap(true);
    lay->addWidget(lblInhalt_, 1);
    setCentralWidget(mitte);
    FensterLaden("Zahl im Detail");
    setMinimumWidth(380);
}

void frmZahl::ZahlZeigen(const Decimal& n) {
    const ZahlInfo z = ZahlInfoErmitteln(n);
    QString t = "<h2>" + q(z.zahl) + "</h2><table cellspacing=4>";
    const auto zeile = [&](const QString& name, const QString& wert) {
        t += "<tr><td>" + name + "</td><td><b>" + wert + "</b></td></tr>";
    };
    if (!z.basis.empty()) zeile("", q(z.basis));
    zeile("Primzahl:", z.prim ? "ja" : "nein");
    if (!z.prim && !z.faktoren.empty()) zeile("Faktoren:", q(z.faktoren));
    zeile("Vorherige Primzahl:", z.vorherige.empty() ? "-" : q(z.vorherige) + " (Abstand " + q(z.abstandVor) + ")");
    zeile("Nächste Primzahl:", z.naechste.empty() ? "-" : q(z.naechste) + " (Abstand " + q(z.abstandNach) + ")");
    zeile("Rest mod 6 / 30 / 120:", QString("%1 / %2 / %3").arg(z.rest6).arg(z.rest30).arg(z.rest120));
    zeile("Stellen:", QString::number(z.stellen));
    lblInhalt_->setText(t + "</table>");
    // The window was prepared empty: it grows to what the number needs, never shrinks below
    // the size the person gave it.
    resize(size().expandedTo(sizeHint()));
    show();
    raise();
}

QString frmZahl::Inhalt() const { return lblInhalt_->text(); }

}  // namespace sw
