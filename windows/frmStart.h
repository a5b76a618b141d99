// frmStart: the cockpit, the program's main window and its only entry to everything else.
// The user enters the primary limit, runs one of the seven build methods, loads or saves
// block files, sets the display options and opens the research windows. The window routes:
// the run itself is sieve/PrimaerLauf, the start and stop steps are frame/Programm.
#pragma once

#include <QString>

#include <string>

#include "windows/Fenster.h"

class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;

namespace sw {

class StartOptionen;

class frmStart : public Fenster {
    Q_OBJECT
public:
    // Runs the start-up in its order: working folder, raster tables, colours, options, texts
    // and stored look, options again, limit reformatted, random settings, stop watch, note line.
    frmStart();
    ~frmStart() override;

    // The road of a run: a click of btnStart(methode).
    void Lauf(int methode);
    // A click of btnUntersuchung(index).
    void Untersuchung(int index);
    // The block-file menu items.
    void Laden();
    void Speichern();
    void SekSpeichern();
    // The option pages of mnuBenutzer, btnGO and btnCancel.
    void OptionenZeigen(int seite);
    bool OptionenAnwenden();
    void OptionenVerwerfen();
    // mnuCloseAllWindows: closes every window but the cockpit.
    void AlleFensterSchliessen();

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void oberflaecheAufbauen();
    void menuesAufbauen();
    void verbinden();
    void grenzeVerlassen();
    // False, after a box naming the largest limit and the memory of both, for a limit beyond
    // any raster.
    bool grenzeMoeglich(const std::string& text);
    bool laufVorbereiten(bool vorsieben);
    // The finished display; was names the run (a method's caption or the loaded file).
    void laufAnzeigen(double sekunden, const QString& was);
    // Back to rest after a failed run or load; rasterVerloren when the raster can no longer
    // be trusted (the range is then dropped).
    void laufAbgebrochen(bool rasterVerloren);
    void knoepfeSperren(bool gesperrt);
    void anzeigeLaeuft(const QString& text);
    void anzeigeFertig(const QString& text);
    void listeKopieren();
    void farbeWaehlen(int index);
    void optionenAuflisten();
    void mersenneMenueFuellen();
    void ueberSW();
    QString beschriftung(const QObject* steuer) const;

    QLineEdit* txtGrenze_ = nullptr;
    QLabel* lblPrimMax_ = nullptr;
    QLabel* lblAnzeige_ = nullptr;
    QLabel* lblHinweis_ = nullptr;
    QCheckBox* chkEndeFrage_ = nullptr;
    QPushButton* btnAuslastung_ = nullptr;
    QPushButton* btnHelp_ = nullptr;
    QListWidget* list1_ = nullptr;
    StartOptionen* optionen_ = nullptr;
    QList<QPushButton*> btnStart_;
    QList<QPushButton*> btnUntersuchung_;
    QMenu* mnuMersenne_ = nullptr;
    QList<QAction*> laufSperre_;  // menu items that wait while the raster is rebuilt
    QAction* mnuSpeichern_ = nullptr;
    QStringList laeufe_;  // one line per finished run or load, for comparing the methods' times
};

}  // namespace sw
