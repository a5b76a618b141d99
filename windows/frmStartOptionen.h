// The cockpit's option pages (fraOptionen): number display, system settings, colours of the
// large-number and text displays, number base. Uebernehmen copies the controls into the
// public display settings (what btnGO does, and the start-up twice); AusVariablen puts the
// public settings back into the controls (btnCancel). The Mersenne database's place (a folder
// or a PostgreSQL URL) is shown without its password and kept with it in SW.Ini.
#pragma once

#include <QGroupBox>
#include <QStringList>

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QStackedWidget;
class QPushButton;

namespace sw {

class StartOptionen : public QGroupBox {
    Q_OBJECT
public:
    enum Seite { SeiteSystem = 0, SeiteZahlen = 1, SeiteFarben = 2, SeiteZahlensystem = 3 };

    explicit StartOptionen(QWidget* eltern);

    // Shows the frame on one page, with the page's name as title.
    void SeiteZeigen(int seite, const QString& titel);
    int Seite() const;
    // Controls into the public variables. With pruefen (btnGO) a MaxFormatStellen below 10 is
    // refused with text 470 and a folder that does not exist with text 206, and nothing
    // changes; a field that is not a number raises the run-time error of the parse. Without
    // it (start-up) such a field keeps its variable.
    bool Uebernehmen(bool pruefen);
    // The public variables into the controls.
    void AusVariablen();
    // The settings in force, one line each, for the cockpit's list.
    QStringList Auflistung() const;
    // The colour label lblCol(i); the cockpit routes its double click to the colour dialog.
    QLabel* FarbFeld(int i) const { return farben_[i]; }
    // Refreshes the samples lblBigZahl and lblTextFarbe from the colour labels.
    void MusterAuffrischen();

    QPushButton* KnopfGO() const { return go_; }
    QPushButton* KnopfCancel() const { return cancel_; }

private:
    QStackedWidget* seiten_;
    QRadioButton* format_[3];
    QLineEdit* txtZeichen_;
    QLineEdit* txtFormatAnzahl_;
    QLineEdit* txtNachKommaExtern_;
    QLineEdit* txtNachKommaIntern_;
    QLineEdit* txtMaxFormatStellen_;
    QCheckBox* chkStellenZahl_;
    QLineEdit* txtPath_;
    QLineEdit* txtDatenbank_;
    QCheckBox* chkStoppUhr_;
    QLineEdit* txtThreads_;
    QLabel* farben_[4];
    QLabel* lblBigZahl_;
    QLabel* lblTextFarbe_;
    QLineEdit* txtZahlenSystem_;
    QLabel* lblBasis_;
    QPushButton* go_;
    QPushButton* cancel_;
};

}  // namespace sw
