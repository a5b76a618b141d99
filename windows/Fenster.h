// Fenster: the base of every window of SW. It knows the window's section name (its class name
// without "frm": the section in sw.TEX and SW.Ini) and its help key, prepares the window on
// opening (texts from sw.TEX, stored control values, state and place from SW.Ini) and gives
// it all back on closing, builds the icon toolbar from a letter string and performs the
// common icon actions (save the list, save the picture, print, calculator, close). F1 opens
// the help page of the window's key.
#pragma once

#include <QColor>
#include <QImage>
#include <QMainWindow>
#include <QString>
#include <QStringList>

#include <optional>

#include "frame/Decimal.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPrinter;
class QToolBar;

namespace sw {

class Fenster : public QMainWindow {
    Q_OBJECT
public:
    // klassenName is the window's name, "frmStart"; the section is "Start".
    explicit Fenster(const QString& klassenName, QWidget* eltern = nullptr);

    const QString& Sektion() const { return sektion_; }
    const QString& HilfeKey() const { return mHelp; }

    // The preparing step: help key, toolbar (letters as IconsAufbauen takes them; "" for
    // none), TexteLaden, stored control values, then state and place.
    void FensterLaden(const QString& hilfeKey, const QString& icons = QString());
    // The closing step: state and place, and the control values, into SW.Ini.
    void FensterSpeichern();
    // Caption, control texts, tool tips and list entries from the window's section of sw.TEX.
    void TexteLaden();
    // A text of the window's section that belongs to no control (templates with #P1, states).
    QString SektionsText(const QString& key) const;
    // Shows the window; a window with modes overrides it.
    virtual void ShowMe(int modus);

    // The icon row: "N" navigation (Nav0..Nav5), "T" Table, "F" Font, "I" Open, "S" a second
    // Save; Print, Save, Foto, Calc and Exit always. Buttons are btnIcon(0...).
    void IconsAufbauen(const QString& buchstaben);
    // The common click handler of btnIcon(index).
    void IconAktion(int index);

    // The font controls cmbFont, cmbSize, btnBold, btnItalic, btnUnderLine, bound to ziel. The
    // row starts hidden; the "Font" icon shows and hides it.
    QWidget* SchriftAuswahlAnlegen(QWidget* ziel);

    // A window whose user may change its size stores Height and Width.
    virtual bool Groessenveraenderlich() const { return true; }
    // True while a job of this window runs (see Lauf).
    bool Laeuft() const { return laeuft_; }

protected:
    // Tags the window handles itself: "Nav0".."Nav5", "Table", "Font", "Open".
    virtual void IconFensterAktion(const QString& tag);
    // Values beyond the common table (a sort order, ...): read and written with the others.
    virtual void ZusatzwerteLaden() {}
    virtual void ZusatzwerteSpeichern() {}
    // What the "Save" icon writes, line by line; nothing when the window has no list (yet).
    // The base gives the lines of List1.
    virtual std::optional<QStringList> ListenText();
    // What a .CSV file gets when the window knows the fields of its rows (fields separated by
    // ";"); without it each row becomes one quoted record.
    virtual std::optional<QStringList> ListenCsv() { return std::nullopt; }
    // The table lines that the rows of a list carry with them (CsvRolle), in the list's order,
    // below a head line; rows without one (rules, notes) are left out.
    static QStringList CsvAusListe(const QListWidget* liste, const QString& kopf);
    static constexpr int CsvRolle = Qt::UserRole + 7;
    // What "Foto" saves and "Print" prints; a null image when the window has no picture (yet).
    // The base gives the picture of picAnzeige when it is a Bild.
    virtual QImage BildAbbild();
    // Prints the window's content: the picture, else the list, else the window as it looks.
    virtual void Drucken(QPrinter& drucker);
    // The section of SW.Ini that keeps the control values; a window whose modes need fields of
    // their own gives one per mode. State and place stay in Sektion().
    virtual QString WerteSektion() const { return sektion_; }

    // Closing the window while its job runs stops the job (Abbruch) and closes the window
    // once the job has ended: the job runs on the window's stack and still needs it.
    void closeEvent(QCloseEvent* e) override;

    // Held for the time of a job of the window (a scope around the job's call).
    class Lauf {
      public:
        explicit Lauf(Fenster& f) : f_(f) { f_.laeuft_ = true; }
        ~Lauf();
        Lauf(const Lauf&) = delete;
        Lauf& operator=(const Lauf&) = delete;

      private:
        Fenster& f_;
    };

    // The save dialog in ProgrammPfad; a chosen name without any dot gets endung.
    std::optional<QString> speicherZiel(const QString& filter, const QString& endung);
    // The buttons "PNG" and "CSV" of the drawing windows: BildAbbild as PNG, or text as a .CSV
    // file, to a name the user picks; each file is replaced whole or not at all.
    void PngSpeichern();
    void CsvSpeichern(const std::string& text);

    QString mHelp;

private:
    void steuerwerteLaden();
    void steuerwerteSpeichern();
    void lageLaden();
    void lageSpeichern();
    void listeSpeichern();
    void bildSpeichern();
    void drucken();

    QString sektion_;
    bool laeuft_ = false;
    bool schliessenNachLauf_ = false;  // closed while running: close once the job has ended
    QToolBar* iconLeiste_ = nullptr;
    QWidget* schriftZeile_ = nullptr;
};

// Reads a whole number from an input field, grouped or not. Text that is no number, or a
// number outside von..bis, gets a box that names the field (feldName) and what it takes, and
// the field gets the focus: nothing then.
std::optional<Decimal> ZahlEingabe(QLineEdit* feld, const QString& feldName, const Decimal& von, const Decimal& bis);

// Back colour of a label as the old platform's number (0x00BBGGRR), and setting it.
long long HintergrundFarbe(const QWidget* w);
void HintergrundFarbeSetzen(QWidget* w, long long bgr);
// The same for the fore colour.
void VordergrundFarbeSetzen(QWidget* w, long long bgr);
QColor FarbeQt(long long bgr);
long long FarbeNummer(const QColor& c);
// One of a window's colour fields lblCol(index): a small framed square in the colour rgb
// (framed so that white stays visible); filter receives its clicks and opens the colour dialog.
QLabel* FarbFeld(QWidget* eltern, int index, QRgb rgb, QObject* filter);

}  // namespace sw
