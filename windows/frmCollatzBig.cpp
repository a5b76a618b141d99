#include "windows/frmCollatzBig.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>

#include "arith/basHyper.h"
#include "collatz/CollatzUmbruch.h"
#include "collatz/basCollatz.h"
#include "frame/Oberflaeche.h"
#include "frame/StoppUhr.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "windows/ListenMenue.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

std::string CollatzBigStart;

namespace {
QString q(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

frmCollatzBig::frmCollatzBig(QWidget* eltern) : Fenster("frmCollatzBig", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    auto* zeile = new QHBoxLayout;
    zeile->addWidget(Benannt(new QLabel("Startwert:", mitte), "lblPrim"));
    txtPrim_ = Benannt(new QLineEdit("27", mitte), "txtPrim");
    zeile->addWidget(txtPrim_, 1);
    chk3n_1_ = Benannt(new QCheckBox("3n - 1", mitte), "chk3n_1");
    zeile->addWidget(chk3n_1_);
    zeile->addWidget(Benannt(new QLabel("Reduktion:", mitte), "lblReduktion"));
    txtReduktion_ = Benannt(new QLineEdit("0", mitte), "txtReduktion");
    txtReduktion_->setMaximumWidth(60);
    zeile->addWidget(txtReduktion_);
    auto* runter = Benannt(new QToolButton(mitte), "UpDown1", 0);
    runter->setArrowType(Qt::DownArrow);
    auto* hoch = Benannt(new QToolButton(mitte), "UpDown1", 1);
    hoch->setArrowType(Qt::UpArrow);
    zeile->addWidget(runter);
    zeile->addWidget(hoch);
    btnGO_ = Benannt(new QPushButton("Berechnen", mitte), "btnGO");
    zeile->addWidget(btnGO_);
    lay->addLayout(zeile);
    auto* listen = new QGridLayout;
    listen->addWidget(Benannt(new QLabel("3n + 1", mitte), "Label0"), 0, 0);
    label1_ = Benannt(new QLabel("Blöcke", mitte), "Label1");
    listen->addWidget(label1_, 0, 1);
    list1_ = Benannt(new QListWidget(mitte), "List1");
    list4_ = Benannt(new QListWidget(mitte), "List4");
    for (QListWidget* l : {list1_, list4_}) {
        l->setUniformItemSizes(true);
        ListenMenueAnlegen(l);
    }
    listen->addWidget(list1_, 1, 0);
    listen->addWidget(list4_, 1, 1);
    lay->addLayout(listen, 1);
    setCentralWidget(mitte);
    connect(btnGO_, &QPushButton::clicked, this, Sicher([this] { Berechnen(); }));
    connect(txtPrim_, &QLineEdit::returnPressed, this, Sicher([this] { Berechnen(); }));
    connect(runter, &QToolButton::clicked, this, Sicher([this] { Reduktion(-1); }));
    connect(hoch, &QToolButton::clicked, this, Sicher([this] { Reduktion(1); }));
    connect(chk3n_1_, &QCheckBox::toggled, this, Sicher([this] { rechteSeiteBeschriften(); }));
    resize(900, 600);
    IconsAufbauen("");  // print, save (TXT, CSV), photo, calculator, close
    FensterLaden(QString::fromStdString(AktivesFenster));
    label1Text_ = label1_->text();
    ruheText_ = btnGO_->text();
    rechteSeiteBeschriften();
    if (!CollatzBigStart.empty()) {
        txtPrim_->setText(q(CollatzBigStart));
        startUebergeben_ = true;
    }
}

void frmCollatzBig::showEvent(QShowEvent* e) {
    Fenster::showEvent(e);
    // The user came from a bar to see its walk: show it at once instead of two empty lists.
    if (startUebergeben_) {
        startUebergeben_ = false;
        QTimer::singleShot(0, this, Sicher([this] { Berechnen(); }));
    }
}

void frmCollatzBig::rechteSeiteBeschriften() {
    label1_->setText(chk3n_1_->isChecked() ? QStringLiteral("Alternativ 3n - 1") : label1Text_);
}

void frmCollatzBig::Reduktion(int richtung) {
    const int k = std::max(0, txtReduktion_->text().trimmed().toInt() + richtung);
    txtReduktion_->setText(QString::number(k));
}

// Rows no wider than the list less the width of "W1" and of a scroll bar.
void frmCollatzBig::anfuegen(QListWidget* liste, const std::string& text) {
    const QFontMetrics fm(liste->font());
    const int breite = liste->viewport()->width() - fm.horizontalAdvance(QStringLiteral("W1")) -
                       liste->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    std::array<int32_t, 128> ascii{};
    for (int c = 32; c < 128; ++c) ascii[size_t(c)] = fm.horizontalAdvance(QChar(c));
    const auto zeichenBreite = [&](const char* p, int32_t n) -> int32_t {
        const auto c = static_cast<unsigned char>(*p);
        return n == 1 && c < 128 ? ascii[c] : fm.horizontalAdvance(QString::fromUtf8(p, n));
    };
    QStringList zeilen;
    for (const std::string& z : ZeilenUmbrechen(text, breite, zeichenBreite)) zeilen << q(z);
    liste->addItems(zeilen);
}

void frmCollatzBig::Berechnen() {
    std::string caption = btnGO_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through a running walk's yield stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnGO_->setText(q(caption));
        return;
    }
    DoEvents();
    const Hyp start = Formel2Hyp(txtPrim_->text().toStdString());
    DoEvents();
    const int32_t k = std::max(0, txtReduktion_->text().trimmed().toInt());
    StartStopUmschalten(caption, ruheText_.toStdString());
    btnGO_->setText(q(caption));
    const Lauf lauf(*this);
    StoppUhrStart(windowTitle().toStdString());
    list1_->clear();
    list4_->clear();
    const auto walk = [&](QListWidget* liste, auto folge, bool mitMarken) {
        for (int32_t ausgabe : {9, 0, -1, 1}) {
            if (Abbruch) return;
            if (ausgabe == -1) {
                liste->addItem(q(Text(186)));
            } else if (ausgabe != 0 || mitMarken) {
                CollatzZahl = start;
                anfuegen(liste, folge(ausgabe));
            }
        }
    };
    try {
        walk(list1_, [](int32_t a) { return CollatzFolgeHyp(0, a, 0); }, true);
        if (chk3n_1_->isChecked()) {
            walk(list4_, [](int32_t a) { return CollatzFolge3nMinus1(0, a); }, true);
        } else {
            walk(list4_, [k](int32_t a) { return CollatzFolgeHyp(3, a, k); }, false);
        }
    } catch (...) {
        if (StoppUhr.laeuft) StoppUhrStop();
        btnGO_->setText(ruheText_);
        throw;
    }
    StoppUhrStop();
    btnGO_->setText(ruheText_);
}

std::optional<QStringList> frmCollatzBig::ListenText() {
    if (list1_->count() == 0 && list4_->count() == 0) return std::nullopt;
    QStringList zeilen;
    for (int i = 0; i < list1_->count(); ++i) zeilen << list1_->item(i)->text();
    zeilen << QString();
    for (int i = 0; i < list4_->count(); ++i) zeilen << list4_->item(i)->text();
    return zeilen;
}

}  // namespace sw
