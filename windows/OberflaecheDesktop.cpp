#include "windows/OberflaecheDesktop.h"

#include <QApplication>
#include <QCoreApplication>
#include <QMessageBox>

#include <chrono>
#include <new>

#include "frame/Meldungen.h"

namespace sw {

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
    switch (box.exec()) {
        case QMessageBox::Yes: return AntwortJa;
        case QMessageBox::No: return AntwortNein;
        case QMessageBox::Cancel: return AntwortAbbrechen;
        default: return AntwortOK;
    }
}

void OberflaecheDesktop::DoEvents() { QCoreApplication::processEvents(); }

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
