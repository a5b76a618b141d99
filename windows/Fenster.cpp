#include "windows/Fenster.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPrinter>
#include <QRadioButton>
#include <QScreen>
#include <QTimer>
#include <QShortcut>
#include <QStyle>
#include <QTabWidget>
#include <QTextStream>
#include <QToolBar>
#include <QToolButton>

#include "frame/DateiErsetzen.h"
#include "frame/Einstellungen.h"
#include "frame/Meldungen.h"
#include "frame/Texte.h"
#include "frame/Zahlformat.h"
#include "frame/basZentral.h"
#include "windows/Bild.h"
#include "windows/Dialoge.h"
#include "windows/Fensterregister.h"
#include "windows/Hilfe.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/Steuerelemente.h"
#include "windows/Steuerwerte.h"
#include "windows/frmTabelle.h"

namespace sw {

namespace {

std::string s(const QString& q) { return q.toStdString(); }
QString q(const std::string& s) { return QString::fromStdString(s); }

QString ini(const QString& sektion, const QString& key) { return q(IniLesen(s(sektion), s(key))); }
void iniSchreiben(const QString& sektion, const QString& key, const QString& wert) {
    IniSchreiben(s(sektion), s(key), s(wert));
}

// Stored numbers from SW.Ini: anything that is not a whole number counts as absent.
bool zahlLesen(const QString& text, long long& wert) {
    bool ok = false;
    wert = text.trimmed().toLongLong(&ok);
    return ok;
}

bool istSchriftKnopf(const QString& name) {
    return name.compare("btnBold", Qt::CaseInsensitive) == 0 || name.compare("btnItalic", Qt::CaseInsensitive) == 0 ||
           name.compare("btnUnderLine", Qt::CaseInsensitive) == 0;
}
// "btnUnderLine" stores as "UnderLine".
QString schriftKey(const QString& name) { return name.mid(3); }

// Controls that are not ours (Qt's inner widgets) carry no name or a "qt_" name.
bool eigenesSteuer(const QObject* o) {
    const QString& n = o->objectName();
    return !n.isEmpty() && !n.startsWith(QLatin1String("qt_"));
}

}  // namespace

QColor FarbeQt(long long bgr) {
    Farbe f = FarbeAusZahl(bgr);
    return QColor(f.rot, f.gruen, f.blau);
}

long long FarbeNummer(const QColor& c) { return FarbeZuZahl({c.red(), c.green(), c.blue()}); }

long long HintergrundFarbe(const QWidget* w) { return FarbeNummer(w->palette().color(QPalette::Window)); }

void HintergrundFarbeSetzen(QWidget* w, long long bgr) {
    QPalette p = w->palette();
    p.setColor(QPalette::Window, FarbeQt(bgr));
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

QLabel* FarbFeld(QWidget* eltern, int index, QRgb rgb, QObject* filter) {
    auto* l = Benannt(new QLabel(eltern), "lblCol", index);
    l->setFixedSize(16, 16);
    l->setFrameShape(QFrame::Box);
    l->setCursor(Qt::PointingHandCursor);
    HintergrundFarbeSetzen(l, FarbeNummer(QColor(rgb)));
    l->installEventFilter(filter);
    return l;
}

void VordergrundFarbeSetzen(QWidget* w, long long bgr) {
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, FarbeQt(bgr));
    w->setPalette(p);
}

Fenster::Fenster(const QString& klassenName, QWidget* eltern) : QMainWindow(eltern) {
    setObjectName(klassenName);
    sektion_ = klassenName.mid(3);
    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, Sicher([this] { HilfeZeigen(mHelp); }));
}

void Fenster::FensterLaden(const QString& hilfeKey, const QString& icons) {
    mHelp = hilfeKey;
    if (!icons.isEmpty()) IconsAufbauen(icons);
    TexteLaden();
    steuerwerteLaden();
    lageLaden();
}

void Fenster::FensterSpeichern() {
    IniSammelSchreiben zusammen;  // one rewrite of SW.Ini for all keys of the window
    lageSpeichern();
    steuerwerteSpeichern();
}

void Fenster::ShowMe(int) { show(); }

QString Fenster::SektionsText(const QString& key) const {
    std::string wert;
    if (!SektionWert(SektionLesen(s(sektion_)), s(key), wert)) return QString();
    return q(WertZerlegen(wert).text);
}

void Fenster::TexteLaden() {
    const std::vector<TextPaar> paare = SektionLesen(s(sektion_));
    if (paare.empty()) return;
    setWindowTitle(q(SektionTitel(paare)));
    const QList<QObject*> alle = findChildren<QObject*>();
    for (QObject* o : alle) {
        if (!eigenesSteuer(o)) continue;
        std::string wert;
        if (!SektionWert(paare, s(o->objectName()), wert)) continue;
        SteuerText st = WertZerlegen(wert);
        QString text = q(st.text);
        if (st.hatTooltip && !st.tooltip.empty()) {
            if (auto* w = qobject_cast<QWidget*>(o)) w->setToolTip(q(st.tooltip));
            if (auto* a = qobject_cast<QAction*>(o)) a->setToolTip(q(st.tooltip));
        }
        if (auto* t = qobject_cast<QLineEdit*>(o)) {
            if (TextFeldUebernimmt(st.text)) t->setText(text);
        } else if (auto* l = qobject_cast<QListWidget*>(o)) {
            // A list whose entry carries only a tool tip starts empty, not with one blank row.
            if (st.text.empty()) continue;
            l->clear();
            for (const std::string& e : ListenEintraege(st.text)) l->addItem(q(e));
            if (l->count() > 0) l->setCurrentRow(0);
        } else if (auto* c = qobject_cast<QComboBox*>(o)) {
            c->clear();
            for (const std::string& e : ListenEintraege(st.text)) c->addItem(q(e));
            if (c->count() > 0) c->setCurrentIndex(0);
        } else if (text.isEmpty()) {
            continue;
        } else if (auto* b = qobject_cast<QAbstractButton*>(o)) {
            b->setText(text);
        } else if (auto* lb = qobject_cast<QLabel*>(o)) {
            lb->setText(text);
        } else if (auto* g = qobject_cast<QGroupBox*>(o)) {
            g->setTitle(text);
        } else if (auto* m = qobject_cast<QMenu*>(o)) {
            m->setTitle(text);
        } else if (auto* a = qobject_cast<QAction*>(o)) {
            a->setText(text);
        } else if (auto* seite = qobject_cast<QWidget*>(o)) {
            // A page of a tab control takes its caption as the tab's title.
            QWidget* stapel = seite->parentWidget();
            if (auto* tabs = stapel ? qobject_cast<QTabWidget*>(stapel->parentWidget()) : nullptr) {
                if (int i = tabs->indexOf(seite); i >= 0) tabs->setTabText(i, text);
            }
        }
    }
}

namespace {

// Which controls keep a value in SW.Ini, and under which key.
struct Speicherart {
    enum Art { Keine, Option, SchriftKnopf, Textfeld, Kontrollkaestchen, Farbe, PlusMinus, Auswahl } art = Keine;
    QString key;
    int index = -1;  // the option's index in its array
};

Speicherart speicherartVon(QObject* o) {
    if (!eigenesSteuer(o)) return {};
    const QString name = o->objectName();
    QString basis;
    int index;
    NameZerlegen(name, basis, index);
    if (qobject_cast<QRadioButton*>(o)) {
        // Only the set button of an array stores, its index under the array's name.
        return index >= 0 ? Speicherart{Speicherart::Option, basis, index} : Speicherart{};
    }
    if (istSchriftKnopf(name)) {
        auto* b = qobject_cast<QAbstractButton*>(o);
        return b && b->isCheckable() ? Speicherart{Speicherart::SchriftKnopf, schriftKey(name)} : Speicherart{};
    }
    if (qobject_cast<QLineEdit*>(o)) return {Speicherart::Textfeld, name};
    if (qobject_cast<QCheckBox*>(o)) return {Speicherart::Kontrollkaestchen, name};
    if (qobject_cast<QLabel*>(o)) {
        if (basis.compare("lblCol", Qt::CaseInsensitive) == 0) return {Speicherart::Farbe, name};
        if (basis.compare("lblPlusMinus", Qt::CaseInsensitive) == 0) return {Speicherart::PlusMinus, name};
        return {};
    }
    if (qobject_cast<QComboBox*>(o) &&
        (name.contains("Size", Qt::CaseInsensitive) || name.contains("Font", Qt::CaseInsensitive))) {
        return {Speicherart::Auswahl, name};
    }
    return {};
}

}  // namespace

void Fenster::steuerwerteLaden() {
    const QString sektion = WerteSektion();
    const QList<QObject*> alle = findChildren<QObject*>();
    for (QObject* o : alle) {
        const Speicherart art = speicherartVon(o);
        if (art.art == Speicherart::Keine) continue;
        const QString wert = ini(sektion, art.key);
        if (wert.isEmpty()) continue;  // the designed value stays
        long long zahl = 0;
        const bool istZahl = zahlLesen(wert, zahl);
        switch (art.art) {
            case Speicherart::Option:
                if (istZahl && zahl == art.index) qobject_cast<QRadioButton*>(o)->setChecked(true);
                break;
            case Speicherart::SchriftKnopf:
            case Speicherart::Kontrollkaestchen:
                if (istZahl) qobject_cast<QAbstractButton*>(o)->setChecked(zahl != 0);
                break;
            case Speicherart::Textfeld: qobject_cast<QLineEdit*>(o)->setText(q(TextfeldLadewert(s(wert)))); break;
            case Speicherart::Farbe:
                if (istZahl) HintergrundFarbeSetzen(qobject_cast<QWidget*>(o), zahl);
                break;
            case Speicherart::PlusMinus: qobject_cast<QLabel*>(o)->setText(wert); break;
            case Speicherart::Auswahl: qobject_cast<QComboBox*>(o)->setCurrentText(wert); break;
            case Speicherart::Keine: break;
        }
    }
    ZusatzwerteLaden();
}

void Fenster::steuerwerteSpeichern() {
    const QString sektion = WerteSektion();
    const QList<QObject*> alle = findChildren<QObject*>();
    for (QObject* o : alle) {
        const Speicherart art = speicherartVon(o);
        switch (art.art) {
            case Speicherart::Option:
                if (qobject_cast<QRadioButton*>(o)->isChecked()) iniSchreiben(sektion, art.key, QString::number(art.index));
                break;
            case Speicherart::SchriftKnopf:
            case Speicherart::Kontrollkaestchen:
                iniSchreiben(sektion, art.key, qobject_cast<QAbstractButton*>(o)->isChecked() ? "1" : "0");
                break;
            case Speicherart::Textfeld:
                if (auto wert = TextfeldSpeicherwert(s(qobject_cast<QLineEdit*>(o)->text()))) {
                    iniSchreiben(sektion, art.key, q(*wert));
                }
                break;
            case Speicherart::Farbe:
                iniSchreiben(sektion, art.key, QString::number(HintergrundFarbe(qobject_cast<QWidget*>(o))));
                break;
            case Speicherart::PlusMinus: iniSchreiben(sektion, art.key, qobject_cast<QLabel*>(o)->text()); break;
            case Speicherart::Auswahl: iniSchreiben(sektion, art.key, qobject_cast<QComboBox*>(o)->currentText()); break;
            case Speicherart::Keine: break;
        }
    }
    ZusatzwerteSpeichern();
}

void Fenster::lageLaden() {
    // Laid-out windows start at the size their layout asks for: that is the designed size.
    QSize groesse = testAttribute(Qt::WA_Resized) ? size() : sizeHint();
    long long v;
    if (zahlLesen(ini(sektion_, "WindowState"), v) && v == 2) {
        resize(groesse);
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    long long links, oben;
    if (zahlLesen(ini(sektion_, "Left"), links) && zahlLesen(ini(sektion_, "Top"), oben)) {
        // A place on a screen that is no longer attached would hide the window: keep the
        // designed place then.
        const QPoint punkt{int(links), int(oben)};
        if (QGuiApplication::screenAt(punkt + QPoint(20, 20))) move(punkt);
    }
    if (Groessenveraenderlich()) {
        if (zahlLesen(ini(sektion_, "Height"), v) && v > 0) groesse.setHeight(int(v));
        // The cockpit keeps its designed width: its rows of buttons are laid out for it.
        if (sektion_ != "Start" && zahlLesen(ini(sektion_, "Width"), v) && v > 0) groesse.setWidth(int(v));
    }
    resize(groesse);
}

void Fenster::lageSpeichern() {
    if (isMinimized()) return;  // a minimised window keeps what it had
    if (isMaximized()) {
        iniSchreiben(sektion_, "WindowState", "2");
        return;
    }
    iniSchreiben(sektion_, "WindowState", "0");
    iniSchreiben(sektion_, "Left", QString::number(x()));
    iniSchreiben(sektion_, "Top", QString::number(y()));
    if (Groessenveraenderlich()) {
        iniSchreiben(sektion_, "Height", QString::number(height()));
        if (sektion_ != "Start") iniSchreiben(sektion_, "Width", QString::number(width()));
    }
}

void Fenster::closeEvent(QCloseEvent* e) {
    if (laeuft_) {
        Abbruch = true;
        schliessenNachLauf_ = true;
        e->ignore();
        return;
    }
    Behandeln([this] { FensterSpeichern(); });
    e->accept();
}

Fenster::Lauf::~Lauf() {
    f_.laeuft_ = false;
    if (f_.schliessenNachLauf_) QTimer::singleShot(0, &f_, &QWidget::close);
}

// ---- icon toolbar ---------------------------------------------------------------------

namespace {

// Icons the style has no fitting picture for are drawn here, in the colour of button texts,
// so that they follow the palette.
QIcon gezeichnet(const QWidget* w, const QString& tag) {
    QPixmap pm(24, 24);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor tinte = w->palette().color(QPalette::ButtonText);
    const QColor papier = w->palette().color(QPalette::Base);
    p.setPen(QPen(tinte, 1.5));
    if (tag == "Print") {
        p.setBrush(papier);
        p.drawRect(QRectF(7.5, 3.5, 9, 6));
        p.setBrush(tinte.lighter(250));
        p.drawRoundedRect(QRectF(3.5, 9.5, 17, 8), 2, 2);
        p.setBrush(papier);
        p.drawRect(QRectF(7.5, 14.5, 9, 6));
    } else if (tag == "Foto") {
        p.setBrush(tinte.lighter(250));
        p.drawRoundedRect(QRectF(2.5, 7.5, 19, 12), 2, 2);
        p.drawRect(QRectF(8.5, 4.5, 6, 3));
        p.setBrush(papier);
        p.drawEllipse(QPointF(12, 13.5), 4, 4);
    } else if (tag == "Calc") {
        p.setBrush(papier);
        p.drawRoundedRect(QRectF(5.5, 2.5, 13, 19), 2, 2);
        p.drawRect(QRectF(8, 5, 8, 3));
        p.setPen(Qt::NoPen);
        p.setBrush(tinte);
        for (int zeile = 0; zeile < 3; ++zeile) {
            for (int spalte = 0; spalte < 3; ++spalte) p.drawRect(QRectF(8 + 3 * spalte, 11 + 3 * zeile, 2, 2));
        }
    } else if (tag == "Exit") {
        p.setPen(QPen(QColor(0xC0, 0x30, 0x30), 2.5, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(6, 6), QPointF(18, 18));
        p.drawLine(QPointF(18, 6), QPointF(6, 18));
    } else if (tag == "Font") {
        QFont f = w->font();
        f.setBold(true);
        f.setPixelSize(17);
        p.setFont(f);
        p.drawText(pm.rect(), Qt::AlignCenter, "A");
    }
    return QIcon(pm);
}

QIcon iconFuer(const QWidget* w, const QString& tag) {
    static const std::pair<const char*, QStyle::StandardPixmap> stil[] = {
        {"Nav0", QStyle::SP_MediaSkipBackward}, {"Nav1", QStyle::SP_MediaSeekBackward},
        {"Nav2", QStyle::SP_ArrowUp},           {"Nav3", QStyle::SP_ArrowDown},
        {"Nav4", QStyle::SP_MediaSeekForward},  {"Nav5", QStyle::SP_MediaSkipForward},
        {"Table", QStyle::SP_FileDialogDetailedView}, {"Open", QStyle::SP_DialogOpenButton},
        {"Save", QStyle::SP_DialogSaveButton},
    };
    for (const auto& [name, bild] : stil) {
        if (tag == QLatin1String(name)) return w->style()->standardIcon(bild);
    }
    return gezeichnet(w, tag);
}

}  // namespace

void Fenster::IconsAufbauen(const QString& buchstaben) {
    QList<QStringList> gruppen;
    if (buchstaben.contains('N')) gruppen.append({"Nav0", "Nav1", "Nav2", "Nav3", "Nav4", "Nav5"});
    QStringList ansicht;
    if (buchstaben.contains('T')) ansicht << "Table";
    if (buchstaben.contains('F')) ansicht << "Font";
    if (!ansicht.isEmpty()) gruppen.append(ansicht);
    QStringList datei{"Print"};
    if (buchstaben.contains('I')) datei << "Open";
    datei << "Save";
    if (buchstaben.contains('S')) datei << "Save";
    datei << "Foto" << "Calc";
    gruppen.append(datei);
    gruppen.append({"Exit"});

    if (!iconLeiste_) {
        iconLeiste_ = Benannt(new QToolBar(this), "tbIcons");
        iconLeiste_->setMovable(false);
        iconLeiste_->setFloatable(false);
        iconLeiste_->setIconSize(QSize(22, 22));
        addToolBar(Qt::TopToolBarArea, iconLeiste_);
    }
    iconLeiste_->clear();
    const std::vector<TextPaar> texte = SektionLesen("Icons");
    int index = 0;
    for (const QStringList& gruppe : gruppen) {
        if (index > 0) iconLeiste_->addSeparator();
        for (const QString& tag : gruppe) {
            auto* knopf = Benannt(new QToolButton(iconLeiste_), "btnIcon", index);
            knopf->setProperty("tag", tag);
            knopf->setAutoRaise(true);
            knopf->setIcon(iconFuer(this, tag));
            std::string wert;
            if (SektionWert(texte, s(tag), wert)) {
                SteuerText st = WertZerlegen(wert);
                knopf->setText(q(st.text));
                knopf->setToolTip(q(st.hatTooltip && !st.tooltip.empty() ? st.tooltip : st.text));
            }
            iconLeiste_->addWidget(knopf);
            const int i = index;
            connect(knopf, &QToolButton::clicked, this, Sicher([this, i] { IconAktion(i); }));
            ++index;
        }
    }
}

void Fenster::IconAktion(int index) {
    auto* knopf = Steuer<QToolButton>(this, "btnIcon", index);
    if (!knopf) return;
    const QString tag = knopf->property("tag").toString();
    if (tag == "Foto") {
        bildSpeichern();
    } else if (tag == "Print") {
        drucken();
    } else if (tag == "Calc") {
        FensterOeffnen("frmCalculator", -1, this);
    } else if (tag == "Exit") {
        close();
    } else if (tag == "Save") {
        listeSpeichern();
    } else if (tag == "Font" && schriftZeile_) {
        schriftZeile_->setVisible(!schriftZeile_->isVisible());
    } else {
        IconFensterAktion(tag);
    }
}

void Fenster::IconFensterAktion(const QString& tag) {
    if (tag != "Table") return;
    // The table window for the window's list: a window that knows the fields of its rows gives
    // them, other lists are split as they stand, at ";" and tabs.
    std::optional<QStringList> zeilen = ListenCsv();
    const bool kopfZeile = zeilen.has_value();  // a window's CSV begins with its column names
    if (!zeilen) zeilen = ListenText();
    if (!zeilen || zeilen->size() <= (kopfZeile ? 1 : 0)) {
        MsgInfo(1104);
        return;
    }
    frmTabelle::Oeffnen(*zeilen, windowTitle(), this, kopfZeile);
}

std::optional<QString> Fenster::speicherZiel(const QString& filter, const QString& endung) {
    DateiAnfrage anfrage{true, windowTitle(), q(ProgrammPfad), QString(), filter};
    std::optional<QString> pfad = DateiDialog(this, anfrage);
    // A name typed without any ending gets the ending; a name with a dot is taken as it stands.
    if (pfad && !QFileInfo(*pfad).fileName().contains('.')) *pfad += endung;
    return pfad;
}

std::optional<QStringList> Fenster::ListenText() {
    auto* liste = Steuer<QListWidget>(this, "List1");
    if (!liste) return std::nullopt;
    QStringList zeilen;
    for (int i = 0; i < liste->count(); ++i) zeilen << liste->item(i)->text();
    return zeilen;
}

QImage Fenster::BildAbbild() {
    auto* bild = Steuer<Bild>(this, "picAnzeige");
    return bild ? bild->Abbild() : QImage();
}

void Fenster::listeSpeichern() {
    const std::optional<QStringList> zeilen = ListenText();
    if (!zeilen) {
        MsgInfo(1104);
        return;
    }
    std::optional<QString> pfad = speicherZiel("*.TXT (*.TXT);;*.CSV (*.CSV)", ".TXT");
    if (!pfad) return;
    QString text;
    const bool csv = QFileInfo(*pfad).suffix().compare("CSV", Qt::CaseInsensitive) == 0;
    // A window that knows the fields of its rows gives them as a table; other lists become one
    // quoted record per row, since rows of values carry the separator ";" themselves.
    const std::optional<QStringList> tabelle = csv ? ListenCsv() : std::nullopt;
    if (tabelle) {
        for (const QString& zeile : *tabelle) text += zeile + '\n';
    } else {
        for (const QString& zeile : *zeilen) {
            text += csv ? '"' + QString(zeile).replace('"', "\"\"") + "\"\n" : zeile + '\n';
        }
    }
    // The whole file is put in place at once: a full disk leaves the old file, not a torn one.
    const QByteArray daten = text.toUtf8();
    if (!DateiErsetzen(pfad->toStdString(), std::string_view(daten.constData(), size_t(daten.size())))) MsgLaufwerk();
}

QStringList Fenster::CsvAusListe(const QListWidget* liste, const QString& kopf) {
    QStringList zeilen{kopf};
    for (int i = 0; i < liste->count(); ++i) {
        const QVariant v = liste->item(i)->data(CsvRolle);
        if (v.isValid()) zeilen << v.toString();
    }
    return zeilen;
}

void Fenster::bildSpeichern() {
    const QImage bild = BildAbbild();
    if (bild.isNull()) {
        MsgInfo(1105);
        return;
    }
    std::optional<QString> pfad = speicherZiel("Bitmap (*.bmp);;PNG (*.png)", ".bmp");
    if (pfad && !BildSpeichern(bild, *pfad)) MsgLaufwerk();
}

void Fenster::PngSpeichern() {
    const QImage bild = BildAbbild();
    if (bild.isNull()) {
        MsgInfo(1105);
        return;
    }
    const std::optional<QString> pfad = speicherZiel("*.PNG (*.PNG)", ".PNG");
    if (pfad && !BildSpeichern(bild, *pfad)) MsgLaufwerk();
}

void Fenster::CsvSpeichern(const std::string& text) {
    const std::optional<QString> pfad = speicherZiel("*.CSV (*.CSV)", ".CSV");
    if (pfad && !DateiErsetzen(pfad->toStdString(), text)) MsgLaufwerk();
}

void Fenster::drucken() {
    QPrinter drucker(QPrinter::HighResolution);
    drucker.setDocName(windowTitle());
    if (!DruckDialog(this, drucker)) return;
    Drucken(drucker);
}

void Fenster::Drucken(QPrinter& drucker) {
    QPainter p;
    if (!p.begin(&drucker)) {
        MsgLaufwerk();
        return;
    }
    const QRect seite = drucker.pageLayout().paintRectPixels(drucker.resolution());
    const QRect flaeche(0, 0, seite.width(), seite.height());
    const QImage bild = BildAbbild();
    const std::optional<QStringList> zeilen = bild.isNull() ? ListenText() : std::nullopt;
    if (!bild.isNull()) {
        p.drawImage(0, 0, bild.scaled(flaeche.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    } else if (zeilen) {
        if (auto* liste = Steuer<QListWidget>(this, "List1")) p.setFont(liste->font());
        const int zeile = p.fontMetrics().height();
        int y = 0;
        for (const QString& text : *zeilen) {
            if (y + zeile > flaeche.height()) {
                drucker.newPage();
                y = 0;
            }
            p.drawText(0, y + p.fontMetrics().ascent(), text);
            y += zeile;
        }
    } else if (centralWidget()) {
        QPixmap bildschirm = centralWidget()->grab();
        p.drawPixmap(0, 0, bildschirm.scaled(flaeche.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
    p.end();
}

// ---- input fields ---------------------------------------------------------------------

std::optional<Decimal> ZahlEingabe(QLineEdit* feld, const QString& feldName, const Decimal& von,
                                   const Decimal& bis) {
    const std::string text = feld->text().trimmed().toStdString();
    const std::string name = feldName.toStdString();
    const std::string erlaubt = TextP1P2(1107, ZahlFormat(von), ZahlFormat(bis));
    std::optional<Decimal> wert;
    if (text.empty()) {
        MsgInfoText(TextP1(1109, name) + "\n" + erlaubt);
    } else {
        try {
            const Decimal d = TextZuDecimal(text);
            // A fraction or a number beyond the field's range is refused like a wrong word.
            if (ZahlBereinigt(text).find(DezimalTrenner) != std::string::npos) {
                MsgInfoText(TextP1P2(1106, name, text) + "\n" + erlaubt);
            } else if (d < von || d > bis) {
                MsgInfoText(TextP1P2(1108, name, text) + "\n" + erlaubt);
            } else {
                wert = d;
            }
        } catch (const Laufzeitfehler& f) {
            MsgInfoText(TextP1P2(f.Nummer() == FehlerUeberlauf ? 1108 : 1106, name, text) + "\n" + erlaubt);
        }
    }
    if (!wert) {
        feld->setFocus();
        feld->selectAll();
    }
    return wert;
}

// ---- font choice ----------------------------------------------------------------------

QWidget* Fenster::SchriftAuswahlAnlegen(QWidget* ziel) {
    auto* zeile = new QWidget(this);
    auto* lay = new QHBoxLayout(zeile);
    lay->setContentsMargins(0, 0, 0, 0);
    auto* schrift = Benannt(new QComboBox(zeile), "cmbFont");
    QStringList familien = QFontDatabase::families();
    if (!familien.contains("Arial")) familien.prepend("Arial");
    schrift->addItems(familien);
    schrift->setCurrentText("Arial");
    auto* groesse = Benannt(new QComboBox(zeile), "cmbSize");
    groesse->addItems({"8", "9", "10", "11", "12", "14", "16", "18", "20", "22", "24", "26", "28", "36", "48", "72"});
    groesse->setCurrentText("12");
    lay->addWidget(schrift, 1);
    lay->addWidget(groesse);
    auto knopf = [&](const char* name, const char* zeichen, auto stil) {
        auto* b = Benannt(new QToolButton(zeile), name);
        b->setCheckable(true);
        b->setText(zeichen);
        QFont f = b->font();
        stil(f);
        b->setFont(f);
        lay->addWidget(b);
        return b;
    };
    auto* fett = knopf("btnBold", "F", [](QFont& f) { f.setBold(true); });
    auto* kursiv = knopf("btnItalic", "K", [](QFont& f) { f.setItalic(true); });
    auto* unter = knopf("btnUnderLine", "U", [](QFont& f) { f.setUnderline(true); });
    auto anwenden = [=] {
        QFont f(schrift->currentText());
        f.setPointSize(std::max(1, groesse->currentText().toInt()));
        f.setBold(fett->isChecked());
        f.setItalic(kursiv->isChecked());
        f.setUnderline(unter->isChecked());
        ziel->setFont(f);
    };
    zeile->hide();
    schriftZeile_ = zeile;
    connect(schrift, &QComboBox::currentTextChanged, this, anwenden);
    connect(groesse, &QComboBox::currentTextChanged, this, anwenden);
    for (QToolButton* b : {fett, kursiv, unter}) connect(b, &QToolButton::toggled, this, anwenden);
    anwenden();
    return zeile;
}

}  // namespace sw
