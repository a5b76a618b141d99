// frmAnzeige: the prime display. The logic (range, paging, search) is views/Anzeige; this
// window gives it its controls: the input fields, the count, the progress labels of the
// secondary sieve, and the page surface that paints the cells at any size with the primes
// marked. A click on a number opens frmZahl; the search runs through frmSuchen. Mode 6 has a
// start and a width instead of Anfang and Länge, a stop button with the bar of the sieve and
// the test, and the test, the choice of what is listed, and the export.
#pragma once

#include <QPointer>
#include <QWidget>

#include "sieve/basExtrem.h"
#include "sieve/basSekundaer.h"
#include "views/Anzeige.h"
#include "windows/Fenster.h"

class QLabel;
class QLineEdit;
class QFrame;
class QPushButton;
class QRadioButton;

namespace sw {

class Balken;
class frmZahl;
class frmAnzeige;

// The page: a head line, then rows of cells. Its size and font give the geometry.
// (No Q_OBJECT here or below: these classes add no signals, and the meta-object compiler
// cannot read the C++20 headers of the logic.)
class AnzeigeFlaeche : public QWidget {
public:
    AnzeigeFlaeche(AnzeigeLogik& logik, frmAnzeige& fenster, QWidget* eltern);
    // Columns and rows for the present size and font, handed to the logic.
    void GeometrieAnpassen();

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void changeEvent(QEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

private:
    int zellenBreite() const;
    int zeilenHoehe() const;
    AnzeigeLogik& logik_;
    frmAnzeige& fenster_;
};

class frmAnzeige : public Fenster, public AnzeigeFenster, public SekundaerFortschrittZiel, public TertiaerFenster {
public:
    explicit frmAnzeige(QWidget* eltern = nullptr);
    ~frmAnzeige() override;
    void ShowMe(int modus) override;
    AnzeigeLogik& Logik() { return logik_; }
    // btnGO.
    void BereichHolen();
    // The number of a clicked cell to the detail window; in mode 6 the distance from the start.
    void ZahlZeigen(const Decimal& n);
    // Mode 6: btnZusatz (the BPSW test) and btnExport.
    void Testen();
    void Exportieren();

    // AnzeigeFenster
    void NavigationSchalten(bool an) override;
    void AnzahlZeigen(const std::string& text) override;
    void FortschrittVerbergen() override;
    SekundaerFortschrittZiel* Fortschritt() override { return this; }
    void AnfangSchreiben(const std::string& text) override;
    void Zeichnen() override;
    TertiaerFenster* TertiaerZiel() override { return this; }
    void TertiaerLaeuft(bool laeuft, const std::string& text) override;
    void TertiaerBereitZeigen(bool getestet) override;

    // TertiaerFenster
    void SiebFortschritt(int32_t prozent) override;
    void TestFortschritt(int32_t prozent) override;
    void StreichungenZeigen(int64_t gestrichen) override;

    // SekundaerFortschrittZiel
    void LinksSetzen(const std::string& text) override;
    void RechtsSetzen(const std::string& text) override;
    void ProzentSetzen(const std::string& text) override;
    void BalkenSetzen(int32_t prozent) override;
    void RahmenZeigen(bool sichtbar) override;

    // A cell's number as the display shows it: grouped in base 10, else in the chosen base.
    static QString ZahlText(const Decimal& n);

protected:
    void IconFensterAktion(const QString& tag) override;
    std::optional<QStringList> ListenText() override;
    QImage BildAbbild() override;
    QString WerteSektion() const override;

private:
    void modusZeigen();
    void zahlFenster(const Decimal& n);

    AnzeigeLogik logik_{*this};
    QLineEdit* txtAnfang_;
    QLineEdit* txtLaenge_;
    QLabel* lblCount_;
    QFrame* fraCount_;
    QFrame* fraFortschritt_;
    QLabel* lblLinks_;
    QLabel* lblRechts_;
    QLabel* lblProzent_;
    Balken* balken_;
    AnzeigeFlaeche* flaeche_;
    QPointer<frmZahl> zahl_;
    QLabel* lblAnfang_;
    QLabel* lblLaenge_;
    // mode 6
    QLabel* lblZahl_;
    QLineEdit* txtZahl_;
    QLabel* lblIntervall_;
    QLineEdit* txtIntervall_;
    QFrame* fraTertiaer_;
    QPushButton* btnZusatz_;
    QRadioButton* optAuswahl_[2];
    QPushButton* btnExport_;
    QFrame* fraTertiaerLauf_;
    QPushButton* btnStopTertiaer_;
    Balken* balkenTertiaer_;
    QLabel* lblCountStreich_;
    QLabel* lblCountText_;
};

}  // namespace sw
