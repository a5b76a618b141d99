#include "windows/frmAnalyseSW.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <chrono>

#include "arith/basHyper.h"
#include "frame/Oberflaeche.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "primality/ReihenAnalyse.h"
#include "primality/ZahlAnalyse.h"
#include "sieve/Zufall.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/frmFaktorAnzeige.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

std::string ziffern(const Mpz& z) {
    std::string s(mpz_sizeinbase(z.get(), 10) + 2, '\0');
    mpz_get_str(s.data(), 10, z.get());
    s.resize(std::char_traits<char>::length(s.c_str()));
    return s;
}

const char* urteilSchluessel(ZahlUrteil u) {
    switch (u) {
        case ZahlUrteil::Eins: return "UrteilEins";
        case ZahlUrteil::PrimBewiesen: return "UrteilPrim";
        case ZahlUrteil::PrimWahrscheinlich: return "UrteilWahrscheinlich";
        case ZahlUrteil::Zusammengesetzt: return "UrteilZusammengesetzt";
        case ZahlUrteil::Offen: break;
    }
    return "UrteilOffen";
}

const char* gliedSchluessel(GliedArt a) {
    switch (a) {
        case GliedArt::Prim: return "UrteilPrim";
        case GliedArt::PrimWahrscheinlich: return "UrteilWahrscheinlich";
        case GliedArt::Zusammengesetzt: return "UrteilZusammengesetzt";
        case GliedArt::KeinePrimzahl: break;
    }
    return "UrteilKeine";
}

}  // namespace

frmAnalyseSW::frmAnalyseSW(QWidget* eltern) : Fenster("frmAnalyseSW", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    stapel_ = new QStackedWidget(mitte);

    auto* zahlSeite = new QWidget(stapel_);
    auto* zlay = new QHBoxLayout(zahlSeite);
    zlay->setContentsMargins(0, 0, 0, 0);
    zlay->addWidget(Benannt(new QLabel("Zahl:", zahlSeite), "lblZahl"));
    txtZahl_ = Benannt(new QLineEdit("600851475143", zahlSeite), "txtZahl");
    zlay->addWidget(txtZahl_, 1);
    stapel_->addWidget(zahlSeite);

    auto* reihenSeite = new QWidget(stapel_);
    auto* rlay = new QGridLayout(reihenSeite);
    rlay->setContentsMargins(0, 0, 0, 0);
    txtFormel_ = Benannt(new QLineEdit("n^2+1", reihenSeite), "txtFormel");
    txtVon_ = Benannt(new QLineEdit("1", reihenSeite), "txtVon");
    txtBis_ = Benannt(new QLineEdit("10.000", reihenSeite), "txtBis");
    chkZufall_ = Benannt(new QCheckBox("Zufallsraster zum Vergleich", reihenSeite), "chkZufall");
    rlay->addWidget(Benannt(new QLabel("f(n) =", reihenSeite), "lblFormel"), 0, 0);
    rlay->addWidget(txtFormel_, 0, 1, 1, 3);
    rlay->addWidget(Benannt(new QLabel("n von:", reihenSeite), "lblVon"), 1, 0);
    rlay->addWidget(txtVon_, 1, 1);
    rlay->addWidget(Benannt(new QLabel("bis:", reihenSeite), "lblBis"), 1, 2);
    rlay->addWidget(txtBis_, 1, 3);
    rlay->addWidget(chkZufall_, 2, 0, 1, 4);
    stapel_->addWidget(reihenSeite);
    lay->addWidget(stapel_);

    lblStufe_ = Benannt(new QLabel(mitte), "lblStufe");
    lay->addWidget(lblStufe_);
    prgFortschritt_ = Benannt(new QProgressBar(mitte), "prgFortschritt");
    prgFortschritt_->setVisible(false);
    lay->addWidget(prgFortschritt_);
    List1_ = Benannt(new QListWidget(mitte), "List1");
    List1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lay->addWidget(List1_, 1);
    lblStatus_ = Benannt(new QLabel(mitte), "lblStatus");
    lblStatus_->setWordWrap(true);
    lay->addWidget(lblStatus_);
    btnGo_ = Benannt(new QPushButton("Analysieren", mitte), "btnGo");
    btnGo_->setDefault(true);
    lay->addLayout(KnopfReihe({btnGo_}));
    setCentralWidget(mitte);

    connect(btnGo_, &QPushButton::clicked, this, Sicher([this] { StartStop(); }));
    for (QLineEdit* feld : {txtZahl_, txtFormel_, txtVon_, txtBis_}) {
        connect(feld, &QLineEdit::returnPressed, this, Sicher([this] {
                    if (!Laeuft()) StartStop();
                }));
    }
    resize(620, 520);
}

void frmAnalyseSW::ShowMe(int modus) {
    modus_ = modus == 1 ? 1 : 0;
    stapel_->setCurrentIndex(modus_);
    FensterLaden(q(AktivesFenster), "T");
    if (!AktivesFenster.empty()) setWindowTitle(q(AktivesFenster));
    List1_->clear();
    lblStufe_->clear();
    lblStatus_->clear();
    show();
}

QString frmAnalyseSW::WerteSektion() const { return Sektion() + (modus_ == 1 ? "Reihen" : "Zahlen"); }

void frmAnalyseSW::StartStop() {
    std::string caption = btnGo_->text().toStdString();
    QString ruhe = SektionsText("btnGo");
    if (ruhe.isEmpty()) ruhe = "Analysieren";
    const bool stoppen = StartStopUmschalten(caption, ruhe.toStdString());
    btnGo_->setText(q(caption));
    if (stoppen || Laeuft()) return;
    const Lauf lauf(*this);
    // However the job ends (an error too, which the handler's guard shows), the window comes
    // back to rest.
    struct Ruhe {
        frmAnalyseSW* w;
        QString text;
        ~Ruhe() {
            w->btnGo_->setText(text);
            w->prgFortschritt_->setVisible(false);
        }
    } ruheWieder{this, ruhe};
    if (modus_ == 1) {
        reiheAnalysieren();
    } else {
        zahlAnalysieren();
    }
}

void frmAnalyseSW::zeile(const char* schluessel, const std::string& wert, const std::string& roh) {
    const QString name = SektionsText(schluessel);
    auto* eintrag = new QListWidgetItem(name + ": " + q(wert));
    eintrag->setData(CsvRolle, name + ";" + q(roh));
    List1_->addItem(eintrag);
}

void frmAnalyseSW::zahlAnalysieren() {
    List1_->clear();
    lblStatus_->clear();
    const Mpz n = AnalyseZahlLesen(txtZahl_->text().toStdString());
    // The neighbours beyond the raster are found by sieving with its primes: without a raster
    // there is nothing to sieve with.
    const bool mitNachbarn = RasterBereit && PrimaerGrenze >= Decimal(1000);
    const double start = Timer();
    const ZahlBefund b = ZahlAnalysieren(n, mitNachbarn, this);
    const auto gruppiert = [](const Mpz& z) { return ZiffernGruppieren(ziffern(z)); };
    zeile("Zahl", gruppiert(b.n), ziffern(b.n));
    zeile("Urteil", SektionsText(urteilSchluessel(b.urteil)).toStdString(), SektionsText(urteilSchluessel(b.urteil)).toStdString());
    const std::string zerlegung = ZerlegungText(b.zerlegung);
    zeile("Faktoren", zerlegung.empty() ? "1" : zerlegung, zerlegung.empty() ? "1" : zerlegung);
    if (b.teilerBekannt) {
        zeile("Tau", gruppiert(b.tau), ziffern(b.tau));
        zeile("Sigma", gruppiert(b.sigma), ziffern(b.sigma));
        zeile("Phi", gruppiert(b.phi), ziffern(b.phi));
        zeile("Mu", std::to_string(b.mu), std::to_string(b.mu));
    }
    zeile("Stellen", ZahlFormat((long long)b.stellen), std::to_string(b.stellen));
    zeile("Bits", ZahlFormat((long long)b.bits), std::to_string(b.bits));
    const std::string potenz = b.exponent > 1 ? ziffern(b.basis) + "^" + std::to_string(b.exponent)
                                              : SektionsText("KeinePotenz").toStdString();
    zeile("Potenz", potenz, potenz);
    if (b.nachbarnBekannt) {
        const std::string vorher = b.vorher.gefunden ? ziffern(b.vorher.zahl) : "-";
        zeile("Vorher", b.vorher.gefunden ? gruppiert(b.vorher.zahl) : "-", vorher);
        zeile("Nachher", gruppiert(b.nachher.zahl), ziffern(b.nachher.zahl));
    } else if (!b.zerlegung.abgebrochen) {
        zeile("Vorher", SektionsText("OhneRaster").toStdString(), "");
    }
    if (b.collatzFertig) zeile("Collatz", ZahlFormat((long long)b.collatzSchritte), std::to_string(b.collatzSchritte));
    QString status = SektionsText(b.zerlegung.abgebrochen ? "Abgebrochen" : "Fertig");
    status.replace("#P1", q(ZahlFormat(Timer() - start)));
    lblStatus_->setText(status);
    lblStufe_->clear();
}

void frmAnalyseSW::reiheAnalysieren() {
    List1_->clear();
    lblStatus_->clear();
    const auto von = ZahlEingabe(txtVon_, "n von", Decimal(0), Decimal(int64_t(1) << 62));
    if (!von) return;
    const auto bis = ZahlEingabe(txtBis_, "n bis", *von, *von + Decimal(kReihenHoechstLaenge - 1));
    if (!bis) return;
    const bool mitZufall = chkZufall_->isChecked();
    if (mitZufall) ZufallSaat(uint64_t(std::chrono::steady_clock::now().time_since_epoch().count()));
    prgFortschritt_->setRange(0, 1000);
    prgFortschritt_->setValue(0);
    prgFortschritt_->setVisible(true);
    const ReihenErgebnis e =
        ReiheAnalysieren(txtFormel_->text().toStdString(), von->AlsInt64(), bis->AlsInt64(), mitZufall, [this](double anteil) {
            prgFortschritt_->setValue(int(anteil * 1000));
            DoEvents();
            return !Abbruch;
        });
    List1_->setUpdatesEnabled(false);
    for (const ReihenGlied& g : e.glieder) {
        const std::string wert = ziffern(g.wert);
        const QString urteil = SektionsText(gliedSchluessel(g.art));
        const std::string teiler = g.kleinsterTeiler ? std::to_string(g.kleinsterTeiler) : "";
        auto* eintrag = new QListWidgetItem(QString("%1  %2  %3  %4")
                                                .arg(QString::number(g.n), 8)
                                                .arg(q(ZiffernGruppieren(wert)), 20)
                                                .arg(urteil, -24)
                                                .arg(q(teiler)));
        eintrag->setData(CsvRolle, QString::number(g.n) + ";" + q(wert) + ";" + urteil + ";" + q(teiler));
        List1_->addItem(eintrag);
    }
    List1_->setUpdatesEnabled(true);
    QString status = SektionsText("Anzahl");
    status.replace("#P1", q(ZahlFormat((long long)e.primzahlen))).replace("#P2", q(ZahlFormat((long long)e.glieder.size())));
    if (e.polynom) {
        QString erwartung = SektionsText("Erwartung");
        erwartung.replace("#P1", QString::number(e.erwartung, 'f', 1)).replace("#P2", QString::number(e.konstante, 'f', 4));
        status += " " + erwartung;
    } else {
        status += " " + SektionsText("KeinPolynom");
    }
    if (e.mitZufall) status += " " + SektionsText("Zufall").replace("#P1", q(ZahlFormat((long long)e.zufallsTreffer)));
    if (e.abgebrochen) status += " " + SektionsText("ReiheAbgebrochen");
    lblStatus_->setText(status);
}

std::optional<QStringList> frmAnalyseSW::ListenCsv() {
    return CsvAusListe(List1_, SektionsText(modus_ == 1 ? "KopfReihe" : "KopfZahl"));
}

void frmAnalyseSW::StandMelden(const FaktorStand& stand) {
    lblStufe_->setText(FaktorStandText(stand));
    const bool ecm = stand.stufe == FaktorStufe::Ecm;
    prgFortschritt_->setVisible(ecm);
    if (ecm) {
        prgFortschritt_->setRange(0, stand.kurven);
        prgFortschritt_->setValue(stand.kurve);
    }
}

}  // namespace sw
