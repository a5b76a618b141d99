#include "windows/frmCollatzAnzeige.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "arith/HypText.h"
#include "collatz/basCollatz.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/Dialoge.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "zahlkern/zahlkern.h"

namespace sw {

std::string CollatzFormel;

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

constexpr int TextKopiert = 2088;
constexpr int TextMusterZuLang = 2089;
constexpr int64_t kMusterBits = 1000000;

// The text cut into rows of zeichen characters (UTF-8 text: the formula may hold "ä").
QStringList zerschneiden(const QString& text, int zeichen) {
    QStringList zeilen;
    for (qsizetype i = 0; i < text.size(); i += zeichen) zeilen << text.mid(i, zeichen);
    return zeilen;
}

QString verbunden(const QListWidget* l) {
    QString t;
    for (int i = 0; i < l->count(); ++i) t += l->item(i)->text();
    return t;
}

}  // namespace

frmCollatzAnzeige::frmCollatzAnzeige(QWidget* eltern) : Fenster("frmCollatzAnzeige", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    btnGO_ = Benannt(new QPushButton("Kopieren", mitte), "btnGO");
    zeile->addWidget(btnGO_);
    lblCol_ = FarbFeld(mitte, 0, qRgb(255, 255, 255), this);
    zeile->addWidget(lblCol_);
    zeile->addStretch(1);
    lay->addLayout(zeile);
    auto* listen = new QVBoxLayout;  // one above the other: the rows get the full width
    list1_ = Benannt(new QListWidget(mitte), "List1");
    list2_ = Benannt(new QListWidget(mitte), "List2");
    QFont fest(QStringLiteral("Monospace"));
    fest.setStyleHint(QFont::TypeWriter);
    for (QListWidget* l : {list1_, list2_}) {
        l->setUniformItemSizes(true);
        l->setFont(fest);
        ListenMenueAnlegen(l);
        listen->addWidget(l, 1);
    }
    lay->addLayout(listen, 1);
    setCentralWidget(mitte);
    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Kopieren(); }));
    resize(1000, 600);
    IconsAufbauen("");
    FensterLaden(QString::fromStdString(AktivesFenster));
}

void frmCollatzAnzeige::ShowNumbers() {
    // Characters per row: as many as fit the list less a margin for the scroll bar and frame.
    const QFontMetrics fm(list1_->font());
    const int breite = list1_->viewport()->width() - 300;
    QString probe = QStringLiteral("1234");
    while (fm.horizontalAdvance(probe) <= breite) probe += QLatin1Char('X');
    const int zeichen = std::max<int>(int(probe.size()) - 1, 20);

    list1_->clear();
    list2_->clear();
    const QString kopf = q(CollatzFormel) + QStringLiteral(" = ");
    list1_->addItems(zerschneiden(kopf + q(Hyp2Text(CollatzZahl, true)), zeichen));
    DoEvents();
    // The mark string has about seven characters per bit: beyond a million bits it would take
    // gigabytes, so it is left out with a word why.
    const int64_t bits = int64_t(aGetHighBitHyp(CollatzZahl)) + 1;
    if (bits > kMusterBits) {
        list2_->addItem(q(TextP1(TextMusterZuLang, ZahlFormat(static_cast<long long>(bits)))));
        return;
    }
    list2_->addItems(zerschneiden(kopf + q(CollatzMuster()), zeichen));
}

QString frmCollatzAnzeige::GanzerText() const { return verbunden(list1_) + QLatin1Char('\n') + verbunden(list2_); }

void frmCollatzAnzeige::Kopieren() {
    const QString t = GanzerText();
    QApplication::clipboard()->setText(t);
    statusBar()->showMessage(q(TextP1(TextKopiert, t.size())), 5000);
}

std::optional<QStringList> frmCollatzAnzeige::ListenText() {
    if (list1_->count() == 0) return std::nullopt;
    return QStringList{verbunden(list1_), verbunden(list2_)};
}

void frmCollatzAnzeige::farbeWaehlen() {
    const std::optional<QColor> farbe = FarbDialog(this, FarbeQt(HintergrundFarbe(lblCol_)));
    if (!farbe) return;
    HintergrundFarbeSetzen(lblCol_, FarbeNummer(*farbe));
    for (QListWidget* l : {list1_, list2_}) {
        QPalette p = l->palette();
        p.setColor(QPalette::Base, *farbe);
        l->setPalette(p);
    }
}

bool frmCollatzAnzeige::eventFilter(QObject* o, QEvent* e) {
    if (o == lblCol_ && e->type() == QEvent::MouseButtonRelease) {
        Behandeln([&] { farbeWaehlen(); });
        return true;
    }
    return Fenster::eventFilter(o, e);
}

}  // namespace sw
