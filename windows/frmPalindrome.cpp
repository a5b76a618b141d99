#include "windows/frmPalindrome.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include "frame/Oberflaeche.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

QString pruefArtText(PalindromPruefArt art) {
    switch (art) {
        case PalindromPruefArt::Primaer: return q(" " + Text(2220));
        case PalindromPruefArt::Bpsw: return q(" " + Text(2221));
        case PalindromPruefArt::MillerRabin: return q(" " + Text(2222));
    }
    return {};
}

}  // namespace

frmPalindrome::frmPalindrome(QWidget* eltern) : Fenster("frmPalindrome", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QHBoxLayout(mitte);
    auto* links = new QVBoxLayout;
    const char* const anordnungen[3] = {"Rechts", "Links", "Beide"};
    for (int i = 0; i < 3; ++i) {
        optAnordnung_[i] = Benannt(new QRadioButton(anordnungen[i], mitte), "optAnordnung", i);
        links->addWidget(optAnordnung_[i]);
        connect(optAnordnung_[i], &QRadioButton::clicked, this, Sicher([this] { ZiffernPruefen(); }));
    }
    optAnordnung_[0]->setChecked(true);
    // The digits as on a keypad: 7 8 9 on top.
    auto* tasten = new QGridLayout;
    for (int d = 1; d <= 9; ++d) {
        btnZahl_[d] = Benannt(new QPushButton(QString::number(d), mitte), "btnZahl", d);
        btnZahl_[d]->setMinimumHeight(36);
        tasten->addWidget(btnZahl_[d], 2 - (d - 1) / 3, (d - 1) % 3);
        connect(btnZahl_[d], &QPushButton::clicked, this, Sicher([this, d] { ZifferKlick(d); }));
    }
    links->addLayout(tasten);
    btnWeg_ = Benannt(new QPushButton("Zurück", mitte), "btnWeg");
    btnClear_ = Benannt(new QPushButton("Neu", mitte), "btnClear");
    auto* knoepfe = new QHBoxLayout;
    knoepfe->addWidget(btnWeg_);
    knoepfe->addWidget(btnClear_);
    links->addLayout(knoepfe);
    auto* entfernt = new QHBoxLayout;
    entfernt->addWidget(Benannt(new QLabel("Zurückgenommen:", mitte), "lblTxtEntfernt"));
    lblEntfernt_ = Benannt(new QLabel(mitte), "lblEntfernt");
    entfernt->addWidget(lblEntfernt_, 1);
    links->addLayout(entfernt);
    chkMillerRabin_ = Benannt(new QCheckBox("Miller-Rabin", mitte), "chkMillerRabin");
    links->addWidget(chkMillerRabin_);
    btnBaum_ = Benannt(new QPushButton("Baum", mitte), "btnBaum");
    links->addWidget(btnBaum_);
    lblFortschritt_ = Benannt(new QLabel(mitte), "lblFortschritt");
    links->addWidget(lblFortschritt_);
    links->addStretch(1);
    lay->addLayout(links);
    auto* rechts = new QVBoxLayout;
    List1_ = Benannt(new QListWidget(mitte), "List1");
    rechts->addWidget(List1_, 2);
    // The tree has a list of its own: btnWeg takes the last line of List1 with the last digit.
    lstBaum_ = Benannt(new QListWidget(mitte), "lstBaum");
    rechts->addWidget(lstBaum_, 1);
    lay->addLayout(rechts, 1);
    setCentralWidget(mitte);
    resize(640, 420);

    connect(btnWeg_, &QPushButton::clicked, this, Sicher([this] { Weg(); }));
    connect(btnClear_, &QPushButton::clicked, this, Sicher([this] { Clear(); }));
    connect(btnBaum_, &QPushButton::clicked, this, Sicher([this] { BaumZeigen(); }));
    connect(chkMillerRabin_, &QCheckBox::clicked, this, Sicher([this] { ZiffernPruefen(); }));

    IconsAufbauen("");  // print, save (the list), photo, calculator, close
    FensterLaden("Palindrome");
    ruheText_ = btnBaum_->text();
    ZiffernPruefen();
}

Anordnung frmPalindrome::anordnung() const {
    for (int i = 0; i < 3; ++i)
        if (optAnordnung_[i]->isChecked()) return Anordnung(i);
    return Anordnung::Rechts;
}

void frmPalindrome::ZiffernPruefen() {
    const ZiffernUrteil u = sw::ZiffernPruefen(Zahl_, anordnung(), chkMillerRabin_->isChecked());
    PruefArt_ = pruefArtText(u.art);
    for (int d = 1; d <= 9; ++d) btnZahl_[d]->setEnabled(u.frei[size_t(d)] && !Laeuft());
}

void frmPalindrome::ZifferKlick(int32_t ziffer) {
    if (Laeuft()) return;
    // The list line says how the digit was judged: the way of the check that enabled it.
    const QString art = PruefArt_;
    Zahl_ = PalindromKandidat(Zahl_, ziffer, anordnung());
    lblEntfernt_->clear();
    List1_->addItem(q(ZahlFormat(Zahl_)) + art);
    List1_->scrollToBottom();
    ZiffernPruefen();
}

void frmPalindrome::Weg() {
    if (Zahl_.empty() || Laeuft()) return;
    delete List1_->takeItem(List1_->count() - 1);
    lblEntfernt_->setText(q(PalindromZurueck(Zahl_, anordnung())));
    ZiffernPruefen();
}

void frmPalindrome::Clear() {
    if (Laeuft()) return;
    Zahl_.clear();
    List1_->clear();
    lblEntfernt_->clear();
    ZiffernPruefen();
}

void frmPalindrome::BaumZeigen() {
    std::string caption = btnBaum_->text().toStdString();
    if (Laeuft()) {  // the click that arrives through the walk's yield stops it
        StartStopUmschalten(caption, ruheText_.toStdString());
        btnBaum_->setText(q(caption));
        return;
    }
    if (StartStopUmschalten(caption, ruheText_.toStdString())) return;
    btnBaum_->setText(q(caption));
    // Declared before the Lauf, so that it runs once the job has ended and the digits may
    // come back.
    const auto ruhe = qScopeGuard([this] {
        btnBaum_->setText(ruheText_);
        lblFortschritt_->clear();
        Behandeln([this] { ZiffernPruefen(); });  // a guard must not throw
    });
    const Lauf lauf(*this);
    ZiffernPruefen();  // no digit while the tree grows
    int32_t erreicht = 0;
    const PalindromBaum baum = PalindromBaumWachsen(anordnung(), 0, [&](int32_t laenge, uint64_t anzahl) {
        erreicht = laenge;
        lblFortschritt_->setText(q(TextP1P2(2229, std::to_string(laenge), ZahlFormat(static_cast<long long>(anzahl)))));
        DoEvents();
        return !Abbruch;
    });
    lstBaum_->clear();
    lstBaum_->addItem(optAnordnung_[int(anordnung())]->text());
    for (size_t k = 1; k < baum.jeLaenge.size(); ++k) {
        if (baum.jeLaenge[k] == 0) continue;
        lstBaum_->addItem(q(TextP1P2(2226, std::to_string(k), ZahlFormat(static_cast<long long>(baum.jeLaenge[k])))));
    }
    lstBaum_->addItem(q(TextP1P2(2227, ZahlFormat(static_cast<long long>(baum.anzahl)), ZahlFormat(baum.groesstes))));
    if (!baum.vollstaendig) lstBaum_->addItem(q(TextP1(2228, static_cast<long long>(erreicht))));
}

}  // namespace sw
