#include "windows/frmTabelle.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"

namespace sw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

QStringList zeilenText(const std::vector<TabellenZeile>& zeilen, const QString& trenner) {
    QStringList text;
    for (const TabellenZeile& z : zeilen) {
        QStringList felder;
        for (const std::string& f : z) felder << q(f);
        text << felder.join(trenner);
    }
    return text;
}

}  // namespace

frmTabelle::frmTabelle(QWidget* eltern) : Fenster("frmTabelle", eltern) {
    setWindowFlag(Qt::Window);
    auto* mitte = new QWidget(this);
    auto* lay = new QVBoxLayout(mitte);
    tabelle_ = Benannt(new QTableWidget(mitte), "grdTabelle");
    tabelle_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabelle_->horizontalHeader()->setSectionsClickable(true);
    lay->addWidget(tabelle_, 1);
    btnKopieren_ = Benannt(new QPushButton("Kopieren", mitte), "btnKopieren");
    btnCsv_ = Benannt(new QPushButton("CSV", mitte), "btnCsv");
    lay->addLayout(KnopfReihe({btnKopieren_, btnCsv_}));
    setCentralWidget(mitte);

    connect(tabelle_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int spalte) {
        Behandeln([&] { Sortieren(spalte); });
    });
    connect(btnKopieren_, &QPushButton::clicked, this, Sicher([this] { Kopieren(); }));
    connect(btnCsv_, &QPushButton::clicked, this, Sicher([this] { CsvSichern(); }));
    IconsAufbauen("");
    FensterLaden("Tabelle");
    resize(640, 480);
}

frmTabelle* frmTabelle::Oeffnen(const QStringList& zeilen, const QString& herkunft, QWidget* eltern,
                                bool kopfZeile) {
    auto* w = new frmTabelle(eltern);
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->setWindowTitle(w->windowTitle() + " - " + herkunft);
    w->Fuellen(zeilen, kopfZeile);
    w->ShowMe(-1);
    return w;
}

void frmTabelle::Fuellen(const QStringList& zeilen, bool kopfZeile) {
    std::vector<std::string> text;
    for (const QString& z : zeilen) text.push_back(z.toStdString());
    zeilen_ = TabelleZerlegen(text);
    kopf_.clear();
    if (kopfZeile && !zeilen_.empty()) {
        kopf_ = zeilen_.front();
        zeilen_.erase(zeilen_.begin());
    }
    sortSpalte_ = -1;
    zeigen();
}

void frmTabelle::zeigen() {
    size_t spalten = kopf_.size();
    for (const TabellenZeile& z : zeilen_) spalten = std::max(spalten, z.size());
    tabelle_->clear();
    tabelle_->setRowCount(int(zeilen_.size()));
    tabelle_->setColumnCount(int(spalten));
    if (!kopf_.empty()) {
        QStringList namen;
        for (const std::string& k : kopf_) namen << q(k);
        tabelle_->setHorizontalHeaderLabels(namen);
    }
    for (size_t r = 0; r < zeilen_.size(); ++r) {
        for (size_t c = 0; c < zeilen_[r].size(); ++c) {
            auto* zelle = new QTableWidgetItem(q(zeilen_[r][c]));
            zelle->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            tabelle_->setItem(int(r), int(c), zelle);
        }
    }
    tabelle_->resizeColumnsToContents();
}

void frmTabelle::Sortieren(int spalte) {
    if (spalte < 0) return;
    absteigend_ = spalte == sortSpalte_ ? !absteigend_ : false;
    sortSpalte_ = spalte;
    TabelleSortieren(zeilen_, size_t(spalte), absteigend_);
    zeigen();
    tabelle_->horizontalHeader()->setSortIndicatorShown(true);
    tabelle_->horizontalHeader()->setSortIndicator(spalte, absteigend_ ? Qt::DescendingOrder : Qt::AscendingOrder);
}

std::vector<TabellenZeile> frmTabelle::alleZellen() const {
    std::vector<TabellenZeile> alle;
    if (!kopf_.empty()) alle.push_back(kopf_);
    alle.insert(alle.end(), zeilen_.begin(), zeilen_.end());
    return alle;
}

void frmTabelle::Kopieren() {
    QApplication::clipboard()->setText(zeilenText(alleZellen(), "\t").join('\n') + '\n');
}

void frmTabelle::CsvSichern() { CsvSpeichern(TabelleCsv(alleZellen())); }

std::optional<QStringList> frmTabelle::ListenText() {
    if (zeilen_.empty()) return std::nullopt;
    return zeilenText(alleZellen(), "\t");
}

std::optional<QStringList> frmTabelle::ListenCsv() {
    if (zeilen_.empty()) return std::nullopt;
    return QString::fromStdString(TabelleCsv(alleZellen())).split('\n', Qt::SkipEmptyParts);
}

}  // namespace sw
