// The fixture of the GUI tests: one QApplication on the offscreen platform for the whole
// program, the recording Oberflaeche and a fresh working folder per test (SwTest), and after
// each test every window closed and deleted and every dialog seam put back.
#pragma once

#include <QApplication>
#include <QWidget>

#include <typeinfo>

#include "TestUmgebung.h"
#include "windows/Steuerelemente.h"

namespace sw::test {

class GuiTest : public SwTest {
protected:
    static void SetUpTestSuite();
    void SetUp() override;
    void TearDown() override;

    // The control of a name anywhere among the open windows; fails the test when missing.
    template <typename T>
    T* Suche(const QString& name, int index = -1) {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (T* t = Steuer<T>(w, name, index)) return t;
        }
        ADD_FAILURE() << "no control " << SteuerName(name, index).toStdString();
        return nullptr;
    }
    // The last opened top-level window of a class; fails the test when there is none.
    template <typename T>
    T* Offen() {
        T* gefunden = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (auto* t = dynamic_cast<T*>(w)) gefunden = t;
        }
        if (!gefunden) ADD_FAILURE() << "no open window of type " << typeid(T).name();
        return gefunden;
    }
    // The open top-level windows of a class name ("frmSpeicherAuslastung").
    static int FensterAnzahl(const QString& name);
    // Deletes the windows that closed themselves (they go at the next turn of the event loop).
    static void Aufraeumen();
    // Every text of the window's visible labels and buttons has the room it needs.
    static void TexteUngekuerzt(QWidget* fenster);
    // Titles and texts of the boxes shown so far, for failure messages.
    std::string Meldungen() const;
};

}  // namespace sw::test
