#include "windows/Hilfe.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

#include "frame/Meldungen.h"
#include "frame/Pfade.h"
#include "windows/Fenster.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString schluesselForm(QString key) { return key.remove('&').trimmed(); }

// The help window: one instance, raised again for every request.
class frmHilfe : public Fenster {
public:
    frmHilfe() : Fenster("frmHilfe") {
        auto* teiler = new QSplitter(this);
        tabs_ = Benannt(new QTabWidget(teiler), "tabNavigation");

        auto* inhalt = Benannt(new QWidget(tabs_), "tabInhalt");
        auto* inhaltLay = new QVBoxLayout(inhalt);
        lstInhalt_ = Benannt(new QListWidget(inhalt), "lstInhalt");
        inhaltLay->addWidget(lstInhalt_);
        tabs_->addTab(inhalt, "Inhalt");

        auto* index = Benannt(new QWidget(tabs_), "tabIndex");
        auto* indexLay = new QVBoxLayout(index);
        txtIndex_ = Benannt(new QLineEdit(index), "txtIndex");
        lstIndex_ = Benannt(new QListWidget(index), "lstIndex");
        indexLay->addWidget(txtIndex_);
        indexLay->addWidget(lstIndex_);
        tabs_->addTab(index, "Index");

        auto* suche = Benannt(new QWidget(tabs_), "tabSuchen");
        auto* sucheLay = new QVBoxLayout(suche);
        auto* zeile = new QHBoxLayout;
        txtSuchen_ = Benannt(new QLineEdit(suche), "txtSuchen");
        auto* btnSuchen = Benannt(new QPushButton("Suchen", suche), "btnSuchen");
        zeile->addWidget(txtSuchen_, 1);
        zeile->addWidget(btnSuchen);
        lstSuchen_ = Benannt(new QListWidget(suche), "lstSuchen");
        sucheLay->addLayout(zeile);
        sucheLay->addWidget(lstSuchen_);
        tabs_->addTab(suche, "Suchen");

        seite_ = Benannt(new QTextBrowser(teiler), "txtSeite");
        seite_->setOpenLinks(true);
        seite_->setSearchPaths({HilfeOrdner()});
        teiler->addWidget(tabs_);
        teiler->addWidget(seite_);
        teiler->setStretchFactor(1, 3);
        setCentralWidget(teiler);
        setWindowTitle("SW - Hilfe");
        resize(920, 640);

        QSet<QString> gesehen;  // keys that differ only in case ("StoppUhr", "Stoppuhr") once
        for (const HilfeSeite& s : HilfeSeiten()) {
            auto* item = new QListWidgetItem(s.titel, lstInhalt_);
            item->setData(Qt::UserRole, s.datei);
            for (const QString& k : s.schluessel) {
                if (gesehen.contains(k.toLower())) continue;
                gesehen.insert(k.toLower());
                auto* e = new QListWidgetItem(k, lstIndex_);
                e->setData(Qt::UserRole, s.datei);
            }
        }
        lstIndex_->sortItems();

        auto oeffnen = [this](QListWidgetItem* item) {
            if (item) seite_->setSource(QUrl::fromLocalFile(item->data(Qt::UserRole).toString()));
        };
        for (QListWidget* l : {lstInhalt_, lstIndex_, lstSuchen_}) {
            connect(l, &QListWidget::itemActivated, this, oeffnen);
            connect(l, &QListWidget::itemClicked, this, oeffnen);
        }
        connect(txtIndex_, &QLineEdit::textChanged, this, [this](const QString& t) {
            for (int i = 0; i < lstIndex_->count(); ++i) {
                QListWidgetItem* item = lstIndex_->item(i);
                if (item->text().startsWith(t, Qt::CaseInsensitive)) {
                    lstIndex_->setCurrentItem(item);
                    lstIndex_->scrollToItem(item, QAbstractItemView::PositionAtTop);
                    break;
                }
            }
        });
        connect(btnSuchen, &QPushButton::clicked, this, Sicher([this] { suchen(); }));
        connect(txtSuchen_, &QLineEdit::returnPressed, this, Sicher([this] { suchen(); }));
        FensterLaden("Hilfe");
    }

    void SeiteZeigen(const QString& datei) { seite_->setSource(QUrl::fromLocalFile(datei)); }
    void Karte(int nummer) {
        tabs_->setCurrentIndex(nummer);
        if (nummer == 1) txtIndex_->setFocus();
        if (nummer == 2) txtSuchen_->setFocus();
        if (seite_->source().isEmpty() && !HilfeSeiten().empty()) SeiteZeigen(HilfeSeiten().front().datei);
    }

private:
    void suchen() {
        lstSuchen_->clear();
        const QString wort = txtSuchen_->text().trimmed();
        if (wort.isEmpty()) return;
        for (const HilfeSeite& s : HilfeSeiten()) {
            if (s.text.contains(wort, Qt::CaseInsensitive) || s.titel.contains(wort, Qt::CaseInsensitive)) {
                auto* item = new QListWidgetItem(s.titel, lstSuchen_);
                item->setData(Qt::UserRole, s.datei);
            }
        }
    }

    QTabWidget* tabs_;
    QListWidget* lstInhalt_;
    QListWidget* lstIndex_;
    QListWidget* lstSuchen_;
    QLineEdit* txtIndex_;
    QLineEdit* txtSuchen_;
    QTextBrowser* seite_;
};

QPointer<frmHilfe> hilfeFenster;

frmHilfe& fenster() {
    if (!hilfeFenster) {
        hilfeFenster = new frmHilfe();
        hilfeFenster->setAttribute(Qt::WA_DeleteOnClose);
    }
    hilfeFenster->show();
    hilfeFenster->raise();
    hilfeFenster->activateWindow();
    return *hilfeFenster;
}

}  // namespace

QString HilfeOrdner() {
    QString neben = QString::fromStdString(ProgrammOrdner()) + "help";
    if (QDir(neben).exists()) return neben;
#ifdef SW_DATA_DIR
    return QStringLiteral(SW_DATA_DIR) + "/help";
#else
    return neben;
#endif
}

const std::vector<HilfeSeite>& HilfeSeiten() {
    static const std::vector<HilfeSeite> seiten = [] {
        std::vector<HilfeSeite> liste;
        static const QRegularExpression titelMuster(QStringLiteral("<title>(.*?)</title>"),
                                                    QRegularExpression::DotMatchesEverythingOption);
        static const QRegularExpression keyMuster(QStringLiteral(R"re(<meta\s+name="keywords"\s+content="([^"]*)")re"));
        QDir ordner(HilfeOrdner());
        for (const QString& name : ordner.entryList({"*.html"}, QDir::Files, QDir::Name)) {
            QFile f(ordner.filePath(name));
            if (!f.open(QIODevice::ReadOnly)) continue;
            const QString html = QString::fromUtf8(f.readAll());
            HilfeSeite s;
            s.datei = ordner.absoluteFilePath(name);
            s.titel = titelMuster.match(html).captured(1).trimmed();
            if (s.titel.isEmpty()) s.titel = name;
            for (const QString& k : keyMuster.match(html).captured(1).split(';', Qt::SkipEmptyParts)) {
                s.schluessel << k.trimmed();
            }
            QTextDocument doc;
            doc.setHtml(html);
            s.text = doc.toPlainText();
            liste.push_back(std::move(s));
        }
        std::sort(liste.begin(), liste.end(),
                  [](const HilfeSeite& a, const HilfeSeite& b) { return a.titel.localeAwareCompare(b.titel) < 0; });
        return liste;
    }();
    return seiten;
}

const HilfeSeite* HilfeSeiteZu(const QString& key) {
    const QString k = schluesselForm(key);
    for (const HilfeSeite& s : HilfeSeiten()) {
        for (const QString& sk : s.schluessel) {
            if (sk.compare(k, Qt::CaseInsensitive) == 0) return &s;
        }
    }
    return nullptr;
}

void HilfeZeigen(const QString& key) {
    const QString k = schluesselForm(key);
    if (k.isEmpty()) {
        MsgInfo(1119);
        return;
    }
    const HilfeSeite* seite = HilfeSeiteZu(k);
    if (!seite) {
        MsgInfoP1(1118, k.toStdString());
        return;
    }
    fenster().SeiteZeigen(seite->datei);
}

void HilfeInhalt() { fenster().Karte(0); }
void HilfeIndex() { fenster().Karte(1); }
void HilfeSuchen() { fenster().Karte(2); }

}  // namespace sw
