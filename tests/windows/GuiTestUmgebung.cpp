#include "GuiTestUmgebung.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>

#include "windows/Dialoge.h"
#include "windows/OberflaecheDesktop.h"

namespace sw::test {

namespace {
// The offscreen platform tells of every window feature it lacks; that is noise here.
void meldungenFiltern(QtMsgType art, const QMessageLogContext& kontext, const QString& text) {
    if (text.startsWith("This plugin does not support")) return;
    qt_message_output(art, kontext, text);
}
}  // namespace

void GuiTest::SetUpTestSuite() {
    if (QApplication::instance()) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(meldungenFiltern);
    static int argc = 1;
    static char name[] = "sw_tests_windows";
    static char* argv[] = {name, nullptr};
    // Lives as long as the program: Qt must not be torn down between tests.
    static QApplication* app = new QApplication(argc, argv);
    (void)app;
    QtTexteDeutsch();  // as the program does at start
}

void GuiTest::SetUp() { SwTest::SetUp(); }

void GuiTest::TearDown() {
    // Windows that are children of others (a modal window owned by the cockpit, menus) go
    // with their parent: guarded pointers skip what is already gone.
    QList<QPointer<QWidget>> fenster;
    for (QWidget* w : QApplication::topLevelWidgets()) fenster.append(w);
    for (const QPointer<QWidget>& w : fenster) {
        if (w && !w->parentWidget()) delete w.data();
    }
    QCoreApplication::processEvents();
    DateiDialogHook = nullptr;
    FarbDialogHook = nullptr;
    DruckDialogHook = nullptr;
    ProgrammEndeAnfordern(false);
    SofortEndeHook = nullptr;
    SwTest::TearDown();
}

int GuiTest::FensterAnzahl(const QString& name) {
    int n = 0;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name && w->isVisible()) ++n;
    }
    return n;
}

void GuiTest::Aufraeumen() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

void GuiTest::TexteUngekuerzt(QWidget* fenster) {
    fenster->show();
    QCoreApplication::processEvents();  // lets the layouts settle
    const QList<QWidget*> alle = fenster->findChildren<QWidget*>();
    for (QWidget* w : alle) {
        if (!w->isVisible() || w->objectName().startsWith("lblLine")) continue;
        auto* label = qobject_cast<QLabel*>(w);
        if (!(label && !label->wordWrap()) && !qobject_cast<QAbstractButton*>(w)) continue;
        if (label && label->text().isEmpty()) continue;
        EXPECT_GE(w->width(), w->minimumSizeHint().width())
            << fenster->objectName().toStdString() << ": " << w->objectName().toStdString();
    }
}

std::string GuiTest::Meldungen() const {
    std::string alle;
    for (const auto& m : ui.meldungen) alle += "[" + m.titel + "] " + m.text + "\n";
    return alle;
}

}  // namespace sw::test

