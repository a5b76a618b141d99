#include "windows/OberflaecheDesktop.h"

#include <QApplication>
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTranslator>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "frame/Meldungen.h"
#include "frame/Texte.h"

namespace sw {

namespace {

// The buttons of a box say what sw.TEX says; should the table be unreadable (the very error a
// box may be reporting), Qt's own German texts stay.
void knopfText(QMessageBox& box, QMessageBox::StandardButton art, int key) {
    QAbstractButton* knopf = box.button(art);
    if (!knopf) return;
    try {
        const std::string text = Text(key);
        if (!text.empty()) knopf->setText(QString::fromStdString(text));
    } catch (const Laufzeitfehler&) {
    }
}

}  // namespace

void QtTexteDeutsch() {
    // SW speaks German whatever the desktop's language: the toolkit's own dialogs (files,
    // printing, colours, the buttons of message boxes) must not answer in English.
    static QTranslator uebersetzung;
    static bool geladen = false;
    if (!geladen) {
        geladen = uebersetzung.load(QLocale(QLocale::German, QLocale::Germany), "qtbase", "_",
                                    QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        if (geladen) QCoreApplication::installTranslator(&uebersetzung);
    }
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

int OberflaecheDesktop::Meldung(const std::string& titel, const std::string& text, MeldungsSymbol symbol,
                                MeldungsKnoepfe knoepfe) {
    QMessageBox::Icon icon = QMessageBox::Information;
    switch (symbol) {
        case MeldungsSymbol::Information: icon = QMessageBox::Information; break;
        case MeldungsSymbol::Frage: icon = QMessageBox::Question; break;
        case MeldungsSymbol::Stopp: icon = QMessageBox::Critical; break;
        case MeldungsSymbol::Ausruf: icon = QMessageBox::Warning; break;
    }
    QMessageBox::StandardButtons knopf = QMessageBox::Ok;
    switch (knoepfe) {
        case MeldungsKnoepfe::OK: knopf = QMessageBox::Ok; break;
        case MeldungsKnoepfe::JaNein: knopf = QMessageBox::Yes | QMessageBox::No; break;
        case MeldungsKnoepfe::JaNeinAbbrechen: knopf = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel; break;
        case MeldungsKnoepfe::OKAbbrechen: knopf = QMessageBox::Ok | QMessageBox::Cancel; break;
    }
    QMessageBox box(icon, QString::fromStdString(titel), QString::fromStdString(text), knopf,
                    QApplication::activeWindow());
    knopfText(box, QMessageBox::Yes, 1100);
    knopfText(box, QMessageBox::No, 1101);
    knopfText(box, QMessageBox::Cancel, 1102);
    knopfText(box, QMessageBox::Ok, 1103);
    switch (box.exec()) {
        case QMessageBox::Yes: return AntwortJa;
        case QMessageBox::No: return AntwortNein;
        case QMessageBox::Cancel: return AntwortAbbrechen;
        default: return AntwortOK;
    }
}

namespace {
bool endeAngefordert = false;
}

std::function<void()> SofortEndeHook;

void ProgrammEndeAnfordern(bool an) {
    endeAngefordert = an;
    if (an) QCoreApplication::quit();
}

bool ProgrammEndeAngefordert() { return endeAngefordert; }

void OberflaecheDesktop::DoEvents() {
    QCoreApplication::processEvents();
    if (!endeAngefordert) return;
    if (SofortEndeHook) {
        SofortEndeHook();
        return;
    }
    // SW.Ini is written and synced by the close handler; nothing else needs to outlive the
    // job, and unwinding a running job's frames is what must not happen.
    std::fflush(nullptr);
    std::_Exit(0);
}

double OberflaecheDesktop::Uhr() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

bool Behandeln(const std::function<void()>& handler) noexcept {
    try {
        handler();
        return true;
    } catch (...) {
        FehlerZeigen(std::current_exception());
    }
    return false;
}

void FehlerZeigen(std::exception_ptr fehler) noexcept {
    try {
        try {
            std::rethrow_exception(fehler);
        } catch (const Laufzeitfehler& e) {
            MsgFehler(FehlerTextKey, e);
        } catch (const std::bad_alloc&) {
            MsgSpeicher(Laufzeitfehler(FehlerKeinSpeicher));
        } catch (const std::exception& e) {
            MsgFehler(FehlerTextKey, Laufzeitfehler(0, e.what()));
        }
    } catch (...) {
        // The box itself failed (sw.TEX gone missing while running), or the exception was of no
        // known kind: nothing more can be shown.
    }
}

}  // namespace sw
