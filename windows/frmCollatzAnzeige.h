// frmCollatzAnzeige: one member of a number family in full, opened by a double click in the
// family window: above its decimal digits, below its Collatz mark string, both
// wrapped to the width of the lists. The button copies the whole text to the clipboard.
#pragma once

#include <string>

#include "windows/Fenster.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace sw {

// The formula of the member shown (as the family's row names it, "10!+1"); set with
// CollatzZahl before ShowNumbers.
extern std::string CollatzFormel;

class frmCollatzAnzeige : public Fenster {
    Q_OBJECT
public:
    explicit frmCollatzAnzeige(QWidget* eltern = nullptr);
    // Fills both lists from CollatzFormel and CollatzZahl (which the mark string consumes).
    void ShowNumbers();
    // btnGO: the digits and the mark string, each joined without separators, to the clipboard.
    void Kopieren();
    // The two texts as they are copied.
    QString GanzerText() const;

protected:
    std::optional<QStringList> ListenText() override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void farbeWaehlen();

    QListWidget* list1_;
    QListWidget* list2_;
    QPushButton* btnGO_;
    QLabel* lblCol_;
};

}  // namespace sw
