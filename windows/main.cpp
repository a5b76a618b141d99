// sw: the desktop program. Fusion style, the desktop Oberflaeche, the cockpit; closing the
// cockpit ends the program.
#include <QApplication>
#include <QMessageBox>
#include <QStyleFactory>

#include "frame/Laufzeitfehler.h"
#include "windows/OberflaecheDesktop.h"
#include "windows/frmStart.h"

namespace {

// The last guard: a handler that lets an exception through must not take the program down
// with it, since exceptions may not unwind through Qt's event loop.
class SwAnwendung : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* empfaenger, QEvent* ereignis) override {
        try {
            return QApplication::notify(empfaenger, ereignis);
        } catch (...) {
            sw::FehlerZeigen(std::current_exception());
            return false;
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    SwAnwendung app(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setApplicationName("SW");
    sw::QtTexteDeutsch();
    QApplication::setQuitOnLastWindowClosed(false);  // the cockpit alone decides the end
    static sw::OberflaecheDesktop oberflaeche;
    sw::OberflaecheSetzen(&oberflaeche);
    try {
        sw::frmStart cockpit;
        cockpit.show();
        return QApplication::exec();
    } catch (const sw::Laufzeitfehler& e) {
        // Without sw.TEX there are no texts to show: the box says what is missing.
        QMessageBox::critical(nullptr, "SW - Fehler",
                              QString("Nr.: %1 %2").arg(e.Nummer()).arg(QString::fromStdString(e.Beschreibung())));
        return 1;
    }
}
