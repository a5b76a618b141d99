// frmAbstaendeGrafik: the gap graphic. Counts how often each difference between primes occurs
// in a stretch and draws one bar per difference, read against the number of twins that the
// Hardy-Littlewood estimate predicts there; beside it the same count over the random raster,
// the plain run of the gaps, the density along the stretch, and the pairs of all primes with
// their expectation from the singular series. The counting lives in distribution/basAbstand.
#pragma once

#include <QString>

#include <optional>
#include <vector>

#include "distribution/basAbstand.h"
#include "windows/Fenster.h"

class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sw {

class Bild;

class frmAbstaendeGrafik : public Fenster {
    Q_OBJECT
public:
    explicit frmAbstaendeGrafik(QWidget* eltern = nullptr);

    // Mode 0 opens on the neighbour gaps, mode 1 on the comparison with the twin estimate.
    void ShowMe(int modus) override;
    // chkInfo: the legend picText shown or hidden.
    void InfoAnAus();
    // btnGO: the entries read, the arrays counted anew and drawn; while counting, a stop.
    void GrafikGo();
    // The drawing from the arrays as they stand, in the chosen view.
    void GrafikPlot();
    // The values of the bars from the raw counts: heights in units of the estimate, or the
    // deviation from it with chkAbWeichungVonPi2; the lists follow.
    void AbweichungAnzeigen();
    // Paging: 0 first page, -1 a page back, +1 a page on; then a new count.
    void Blaettern(int richtung);
    // The cursor readout for a position across the picture ("" outside the bars).
    QString CursorText(int x) const;
    // The three lists as a CSV file (temporary file, then renamed), and read back.
    bool CsvSchreiben(const QString& pfad);
    std::string CsvText() const;
    bool CsvLaden(const QString& pfad);

    // The arrays of the last count, kept so that a change of view redraws without counting.
    std::vector<double> BalkenWert;
    std::vector<int64_t> BalkenAnzahl;
    std::vector<int64_t> ZufallAnzahl;  // the same count over the random raster (chkZufall)
    int32_t AbstandVon = 2, AbstandBis = 2;
    int32_t BalkenBreite = 3;
    int32_t EingabeModus = 0;
    int32_t IntervallLage = 1;
    Zahl128 GrafikStart = 0, GrafikEnde = 0;
    double Zwillingsschaetzung = 0;
    double GrafikSchranke = 0, GrafikBreite = 0;

protected:
    void ZusatzwerteLaden() override;
    void ZusatzwerteSpeichern() override;
    bool eventFilter(QObject* o, QEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    int32_t zaehlart() const;
    int32_t farben() const;
    bool eintraegeLesen();
    // Progress with the remaining time, a yield, and false once the user stopped.
    AbstandMelder melder();
    bool zaehlen(int32_t art, bool zufall, AbstandZaehlung& z);
    int64_t marke(int32_t i) const;  // the difference (gap number, part) of bar i
    std::vector<double> geglaettet(const std::vector<double>& werte) const;
    void listenFuellen();
    void csvExport();
    void csvImport();

    QGroupBox* fraModus_[3];
    QLineEdit* txtSchranke_[3];
    QLineEdit* txtIntervall_[3];
    QLineEdit* txtVonAbstand_;
    QLineEdit* txtBisAbstand_;
    QLineEdit* txtBalkenBreite_;
    QLineEdit* txtGlaettung_;
    QLineEdit* txtFaktor_;
    QLineEdit* txtFaktorKombinationen_;
    QRadioButton* optZaehlung_[5];
    QRadioButton* optFarben_[3];
    QCheckBox* chkZwillinge_;
    QCheckBox* chkAbWeichungVonPi2_;
    QCheckBox* chkZufall_;
    QCheckBox* chkInfo_;
    QPushButton* btnGO_;
    QPushButton* btnNextEbene_;
    QPushButton* btnUp_;
    QPushButton* btnDown_;
    QPushButton* btnOK_;
    Bild* picAnzeige_;
    Bild* picSkala_;
    Bild* picText_;
    QListWidget* List_[3];
    QLabel* lblPi2_;
    QLabel* lblFortschritt_;
    QLabel* lblCursor_;
    QAction* mnuKurvenDarstellung_;
    QAction* mnuPlusMinus_;
    QAction* mnuBarcode_;
    QAction* mnuFaktor_;
    QAction* mnuFaktorenDarstellung_;
    QAction* mnuNiveauAngleich_;
    QString ruheText_;
    int32_t art_ = ArtNachbarn;   // the kind of the arrays as counted
    uint64_t teil_ = 1;           // density: the length of one part
    uint64_t primzahlen_ = 0;
    bool gestoppt_ = false;
    int breiteGezaehlt_ = -1;     // the picture width the arrays were counted for
};

}  // namespace sw
