#include "windows/frmStatusAnalyseMersenne.h"

#include <QTimer>
#include <QVBoxLayout>

#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "mersenne/MersenneStatistik.h"
#include "windows/Bild.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

frmStatusAnalyseMersenne::frmStatusAnalyseMersenne(int64_t von, int64_t bis, QWidget* eltern)
    : Fenster("frmStatusAnalyseMersenne", eltern), von_(von), bis_(bis) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    picAnzeige_ = Benannt(new Bild(mitte), "picAnzeige");
    lay->addWidget(picAnzeige_, 1);
    setCentralWidget(mitte);
    connect(picAnzeige_, &Bild::GroesseGeaendert, this, [this] { SaeulenZeichnen(*picAnzeige_, diagramm_); });
    resize(640, 360);
    // The common icons only: save the chart or list (.CSV, .TXT), the picture (PNG), print.
    IconsAufbauen(QString());
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmStatusAnalyseMersenne::ShowMe(int) {
    show();
    QTimer::singleShot(0, this, Sicher([this] { Zeichnen(); }));
}

void frmStatusAnalyseMersenne::Zeichnen() {
    const KlassenUebersicht u = StatusKlassen(von_, bis_);
    diagramm_ = {};
    diagramm_.titel = QString::fromStdString("[" + ZahlFormat(static_cast<long long>(von_)) + ", " + ZahlFormat(static_cast<long long>(bis_)) + "]: " +
                                             ZahlFormat(static_cast<long long>(u.zeilen))) +
                      " ·  MOD 2 3 ";
    diagramm_.hoechstwert = 100;
    diagramm_.einheit = "%";
    diagramm_.csvKopf = {"Klasse", "Anzahl", "Anteil"};
    const std::pair<const char*, int64_t> werte[] = {
        {"Mod 1", u.q1},        {"Mod 2", u.q7},        {"Mod 1 3", u.p3Eins},  {"Mod 2 3", u.p3Zwei},
        {"Plus", u.plus},       {"Minus", u.minus},     {"Qu. 1 1", u.qu[0][0]}, {"Qu. 1 2", u.qu[0][1]},
        {"Qu. 2 1", u.qu[1][0]}, {"Qu. 2 2", u.qu[1][1]},
    };
    for (const auto& [name, anzahl] : werte) {
        Saeule s;
        s.beschriftung = name;
        s.wert = u.zeilen ? 100.0 * double(anzahl) / double(u.zeilen) : 0;
        s.text = QString::fromStdString(ZahlFormat(static_cast<long long>(anzahl)));
        s.csv = {name, QString::number(anzahl), QString::fromStdString(AnteilText(anzahl, u.zeilen))};
        diagramm_.saeulen.push_back(s);
    }
    SaeulenZeichnen(*picAnzeige_, diagramm_);
}

std::optional<QStringList> frmStatusAnalyseMersenne::ListenText() {
    return SaeulenText(diagramm_);
}

}  // namespace sw
