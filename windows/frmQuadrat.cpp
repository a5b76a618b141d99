#include "windows/frmQuadrat.h"

#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cstdio>

#include "arith/ByteZahl.h"
#include "arith/HypText.h"
#include "arith/WortRechner.h"
#include "arith/basRechnen.h"
#include "arith/basWurzel.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "primality/QuadratWerkzeug.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "zahlkern/zahlkern.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }
QString z(const Hyp& h) { return q(Hyp2Text(h)); }
std::string s(const QLineEdit* f) { return f->text().toStdString(); }

}  // namespace

frmQuadrat::frmQuadrat(QWidget* eltern) : Fenster("frmQuadrat", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    tabSeiten_ = Benannt(new QTabWidget(mitte), "tabSeiten");
    lay->addWidget(tabSeiten_, 1);
    auto* btnKopieren = Benannt(new QPushButton("Kopieren", mitte), "btnKopieren");
    lay->addLayout(KnopfReihe({btnKopieren}));
    setCentralWidget(mitte);

    // Each page: its fields in a grid, a row of buttons, and the result box below.
    auto knopf = [this](QWidget* s, QHBoxLayout* reihe, const char* name, void (frmQuadrat::*tun)()) {
        auto* b = Benannt(new QPushButton(name, s), name);
        reihe->addWidget(b);
        connect(b, &QPushButton::clicked, this, Sicher([this, tun] { (this->*tun)(); }));
        return b;
    };
    auto aufbauen = [&](int nummer, const char* name, auto&& felder, auto&& knoepfe) {
        QWidget* s = seite(nummer, name);
        auto* raster = new QGridLayout;
        felder(s, raster);
        auto* reihe = new QHBoxLayout;
        knoepfe(s, reihe);
        reihe->addStretch(1);
        auto* v = static_cast<QVBoxLayout*>(s->layout());
        v->insertLayout(0, raster);
        v->insertLayout(1, reihe);
    };

    aufbauen(SeiteQuadrat, "pagQuadrat",
             [&](QWidget* s, QGridLayout* r) {
                 txtZahl_ = feld(s, "txtZahl", "n:", r, 0);
                 txtK_ = feld(s, "txtK", "k:", r, 1);
                 txtK_->setText("2");
                 txtModul_ = feld(s, "txtModul", "p:", r, 2);
             },
             [&](QWidget* s, QHBoxLayout* r) {
                 knopf(s, r, "btnWurzel", &frmQuadrat::Wurzel);
                 knopf(s, r, "btnJacobi", &frmQuadrat::JacobiZeigen);
                 knopf(s, r, "btnWurzelMod", &frmQuadrat::WurzelMod);
             });
    aufbauen(SeiteInverse, "pagInverse",
             [&](QWidget* s, QGridLayout* r) {
                 txtInvA_ = feld(s, "txtInvA", "a:", r, 0);
                 txtInvM_ = feld(s, "txtInvM", "m:", r, 1);
             },
             [&](QWidget* s, QHBoxLayout* r) { knopf(s, r, "btnInverse", &frmQuadrat::Inverse); });
    aufbauen(SeitePrimwurzel, "pagPrimwurzel",
             [&](QWidget* s, QGridLayout* r) {
                 txtPrim_ = feld(s, "txtPrim", "p:", r, 0);
                 txtOrdnung_ = feld(s, "txtOrdnung", "a:", r, 1);
             },
             [&](QWidget* s, QHBoxLayout* r) { knopf(s, r, "btnPrimwurzel", &frmQuadrat::Primwurzel); });
    aufbauen(SeiteBytes, "pagBytes",
             [&](QWidget* s, QGridLayout* r) {
                 txtBytesZahl_ = feld(s, "txtBytesZahl", "n:", r, 0);
                 txtBytesHex_ = feld(s, "txtBytesHex", "Hex:", r, 1);
                 txtBytesText_ = feld(s, "txtBytesText", "Text:", r, 2);
             },
             [&](QWidget* s, QHBoxLayout* r) {
                 knopf(s, r, "btnZahlNachBytes", &frmQuadrat::ZahlNachBytes);
                 knopf(s, r, "btnHexNachZahl", &frmQuadrat::HexNachZahl);
                 knopf(s, r, "btnTextNachZahl", &frmQuadrat::TextNachZahl);
             });
    aufbauen(SeiteWort, "pagWort",
             [&](QWidget* s, QGridLayout* r) {
                 txtWortA_ = feld(s, "txtWortA", "a:", r, 0);
                 cmbOp_ = Benannt(new QComboBox(s), "cmbOp");
                 cmbOp_->addItems({"+", "-", "*", "/", "mod"});
                 r->addWidget(cmbOp_, 1, 1, Qt::AlignLeft);
                 txtWortB_ = feld(s, "txtWortB", "b:", r, 2);
                 auto* breiten = new QHBoxLayout;
                 auto* gruppe = new QButtonGroup(s);
                 for (int i = 0; i < 2; ++i) {
                     optBreite_[i] = Benannt(new QRadioButton(i == 0 ? "Zahl64" : "Zahl128", s), "optBreite", i);
                     gruppe->addButton(optBreite_[i]);
                     breiten->addWidget(optBreite_[i]);
                 }
                 optBreite_[0]->setChecked(true);
                 breiten->addStretch(1);
                 r->addLayout(breiten, 3, 1);
             },
             [&](QWidget* s, QHBoxLayout* r) { knopf(s, r, "btnWortRechnen", &frmQuadrat::WortRechnen); });
    aufbauen(SeiteFft, "pagFft",
             [&](QWidget* s, QGridLayout* r) {
                 txtFftA_ = feld(s, "txtFftA", "a:", r, 0);
                 txtFftB_ = feld(s, "txtFftB", "b:", r, 1);
             },
             [&](QWidget* s, QHBoxLayout* r) { knopf(s, r, "btnFft", &frmQuadrat::FftRechnen); });

    connect(btnKopieren, &QPushButton::clicked, this, [this] {
        QApplication::clipboard()->setText(Ergebnis(tabSeiten_->currentIndex()));
    });
    resize(720, 460);
    IconsAufbauen("");  // print, save (the page's result), photo, calculator, close
    FensterLaden("Quadrat");
}

QWidget* frmQuadrat::seite(int nummer, const char* name) {
    auto* s = Benannt(new QWidget(tabSeiten_), name);
    auto* v = new QVBoxLayout(s);
    txtErgebnis_[nummer] = Benannt(new QPlainTextEdit(s), "txtErgebnis", nummer);
    txtErgebnis_[nummer]->setReadOnly(true);  // selectable and copyable, not editable
    v->addWidget(txtErgebnis_[nummer], 1);
    tabSeiten_->addTab(s, name);
    return s;
}

QLineEdit* frmQuadrat::feld(QWidget* eltern, const char* name, const char* beschriftung, QGridLayout* raster, int zeile) {
    auto* l = Benannt(new QLabel(beschriftung, eltern), QString("lbl") + (name + 3));
    auto* f = Benannt(new QLineEdit(eltern), name);
    raster->addWidget(l, zeile, 0);
    raster->addWidget(f, zeile, 1);
    return f;
}

QString frmQuadrat::Ergebnis(int seite) const {
    return seite >= 0 && seite < SeitenAnzahl ? txtErgebnis_[seite]->toPlainText() : QString();
}

std::optional<QStringList> frmQuadrat::ListenText() {
    const QString text = Ergebnis(tabSeiten_->currentIndex());
    if (text.isEmpty()) return std::nullopt;
    return text.split('\n');
}

void frmQuadrat::zeigen(int seite, const QString& text) {
    txtErgebnis_[seite]->setPlainText(text);
    tabSeiten_->setCurrentIndex(seite);
}

void frmQuadrat::ausfuehren(int seite, const std::function<QString()>& job) {
    if (Laeuft()) return;  // a factorisation of p - 1 yields; a second click waits for it
    const Lauf lauf(*this);
    txtErgebnis_[seite]->clear();
    try {
        zeigen(seite, job());
    } catch (const Laufzeitfehler& f) {
        MsgInfoText(f.Beschreibung());
    }
}

// A text of the window's section with #P1 .. #P3 filled in.
namespace {
QString ersetzt(QString t, const QString& p1, const QString& p2 = {}, const QString& p3 = {}) {
    return t.replace("#P1", p1).replace("#P2", p2).replace("#P3", p3);
}
}  // namespace

void frmQuadrat::Wurzel() {
    ausfuehren(SeiteQuadrat, [this] {
        const Hyp n = QuadratEingabe(s(txtZahl_), "n");
        bool ok = false;
        const qlonglong k = txtK_->text().trimmed().isEmpty() ? 2 : txtK_->text().trimmed().toLongLong(&ok);
        const KWurzel w = KteWurzel(n, txtK_->text().trimmed().isEmpty() || ok ? k : 0);
        const bool exakt = aCmpHyp32(w.rest, 0) == 0;
        QStringList zeilen{ersetzt(SektionsText("ergWurzel"), QString::number(k), z(w.wurzel)),
                           ersetzt(SektionsText("ergRest"), z(w.rest)),
                           SektionsText(exakt ? "ergExakt" : "ergNichtExakt")};
        // A positive word goes through IstQuadrat as well: its residue filter and double root
        // must agree with the rest of the exact root.
        if (k == 2 && aCmpHyp32(n, 0) > 0 && aGetHighBitHyp(n) < 31)
            zeilen << ersetzt(SektionsText("ergIstQuadrat"), SektionsText(IstQuadrat(n[1]) ? "ergJa" : "ergNein"));
        return zeilen.join('\n');
    });
}

void frmQuadrat::JacobiZeigen() {
    ausfuehren(SeiteQuadrat, [this] {
        const Hyp a = QuadratEingabe(s(txtZahl_), "n"), n = QuadratEingabe(s(txtModul_), "p");
        return ersetzt(SektionsText("ergJacobi"), z(a), z(n), QString::number(Jacobi(a, n)));
    });
}

void frmQuadrat::WurzelMod() {
    ausfuehren(SeiteQuadrat, [this] {
        const Hyp a = QuadratEingabe(s(txtZahl_), "n"), p = QuadratEingabe(s(txtModul_), "p");
        const std::optional<Hyp> r = WurzelModP(a, p);
        if (!r) return q(TextP1P2(2250, Hyp2Text(a), Hyp2Text(p)));
        Hyp zweite(p);
        aSubHypHyp(zweite, *r);
        const bool eine = aCmpHyp32(*r, 0) == 0 || aCmpHypHyp(zweite, *r) == 0 || aCmpHyp32(p, 2) == 0;
        return ersetzt(SektionsText("ergWurzelMod"), z(p), eine ? z(*r) : z(*r) + ", " + z(zweite));
    });
}

void frmQuadrat::Inverse() {
    ausfuehren(SeiteInverse, [this] {
        const Hyp a = QuadratEingabe(s(txtInvA_), "a"), m = QuadratEingabe(s(txtInvM_), "m");
        const ModInverseErgebnis e = ModInverse(a, m);
        const QString routine = e.wort ? "ModInverseLong" : "HypModInverse";
        if (aCmpHyp32(e.ggt, 1) != 0)  // the gcd, not the routine's 0, is the answer
            return q(TextP1P2(2251, Hyp2Text(a), Hyp2Text(e.ggt)));
        return QStringList{ersetzt(SektionsText("ergInverse"), z(e.inverse)), ersetzt(SektionsText("ergRoutine"), routine)}
            .join('\n');
    });
}

void frmQuadrat::Primwurzel() {
    ausfuehren(SeitePrimwurzel, [this] {
        const Hyp p = QuadratEingabe(s(txtPrim_), "p");
        const sw::Primwurzel w = KleinstePrimitivwurzel(p);
        QStringList faktoren;
        for (const Hyp& f : w.faktoren) faktoren << z(f);
        QStringList zeilen{ersetzt(SektionsText("ergPrimwurzel"), z(w.wurzel)),
                           ersetzt(SektionsText("ergFaktoren"), faktoren.join(", "),
                                   w.wort ? "PrimfaktorenLong" : SektionsText("ergFaktorisierer"))};
        if (!txtOrdnung_->text().trimmed().isEmpty()) {
            const Hyp a = QuadratEingabe(s(txtOrdnung_), "a");
            const Hyp o = Ordnung(a, p, w.faktoren);
            Hyp pm1(p);
            aDecHyp(pm1);
            zeilen << ersetzt(SektionsText("ergOrdnung"), z(a), z(o))
                   << SektionsText(aCmpHypHyp(o, pm1) == 0 ? "ergIstPrimwurzel" : "ergKeinePrimwurzel");
        }
        return zeilen.join('\n');
    });
}

QString frmQuadrat::bytesBericht(const Hyp& n) {
    const BytesAlsText t = ZahlText(n);
    txtBytesZahl_->setText(z(n));
    txtBytesHex_->setText(q(BytesHex(n)));
    if (t.lesbar) txtBytesText_->setText(q(t.text));
    return QStringList{ersetzt(SektionsText("ergZahl"), z(n)), ersetzt(SektionsText("ergBytes"), q(BytesHex(n))),
                       t.lesbar ? ersetzt(SektionsText("ergText"), q(t.text)) : SektionsText("ergKeinText")}
        .join('\n');
}

void frmQuadrat::ZahlNachBytes() {
    ausfuehren(SeiteBytes, [this] { return bytesBericht(QuadratEingabe(s(txtBytesZahl_), "n")); });
}

void frmQuadrat::HexNachZahl() {
    ausfuehren(SeiteBytes, [this] { return bytesBericht(HexBytesZahl(s(txtBytesHex_))); });
}

void frmQuadrat::TextNachZahl() {
    // toStdString gives UTF-8, the bytes the number is made of.
    ausfuehren(SeiteBytes, [this] { return bytesBericht(TextZahl(txtBytesText_->text().toStdString())); });
}

void frmQuadrat::WortRechnen() {
    ausfuehren(SeiteWort, [this] {
        WortOp op = WortOp::Plus;
        if (!WortOpLesen(cmbOp_->currentText().toStdString(), op))
            throw Laufzeitfehler(FehlerTypenUnvertraeglich, TextP1(2258, cmbOp_->currentText().toStdString()));
        const int32_t breite = optBreite_[1]->isChecked() ? 128 : 64;
        const Hyp a = QuadratEingabe(s(txtWortA_), "a"), b = QuadratEingabe(s(txtWortB_), "b");
        const Hyp e = sw::WortRechnen(a, b, op, breite);
        return ersetzt(SektionsText("ergWort"), z(a) + " " + cmbOp_->currentText() + " " + z(b), QString::number(breite), z(e));
    });
}

void frmQuadrat::FftRechnen() {
    ausfuehren(SeiteFft, [this] {
        const Hyp a = QuadratEingabe(s(txtFftA_), "a"), b = QuadratEingabe(s(txtFftB_), "b");
        const FftVergleich v = FftGegenGmp(a, b);
        char fehler[32], zeitFft[32], zeitGmp[32];
        std::snprintf(fehler, sizeof fehler, "%.3g", v.rundungsfehler);
        std::snprintf(zeitFft, sizeof zeitFft, "%.6f", v.sekundenFft);
        std::snprintf(zeitGmp, sizeof zeitGmp, "%.6f", v.sekundenGmp);
        const QString produkt = z(v.produkt);
        return QStringList{SektionsText("ergFftVerfahren"),
                           ersetzt(SektionsText("ergFftPunkte"), QString::number(v.punkte)),
                           ersetzt(SektionsText("ergFftGleich"), SektionsText(v.gleich ? "ergJa" : "ergNein")),
                           ersetzt(SektionsText("ergFftFehler"), fehler),
                           ersetzt(SektionsText("ergFftZeit"), zeitFft, zeitGmp),
                           ersetzt(SektionsText("ergFftProdukt"), QString::number(produkt.size()), produkt)}
            .join('\n');
    });
}

}  // namespace sw
