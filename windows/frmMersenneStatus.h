// frmMersenneStatus: how far the divisor search has settled the exponents of one database
// segment, as a bar per stretch of txtSkala exponents (settled rows against primes). While it
// is open, the running divisor search reports each new divisor (NewTeiler), and the bars
// follow without reading the database again. The button "Klassen" opens the overview of the
// divisors' classes for the same range. When the work is shared through a PostgreSQL server,
// a box below shows its work queue: units open, in work and done, the workers with their
// throughput and the expected end, read anew every few seconds.
#pragma once

#include <vector>

#include "mersenne/MersenneStatistik.h"
#include "windows/Fenster.h"
#include "windows/Saeulen.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QTableWidget;
class QTimer;

namespace sw {

class Bild;

class frmMersenneStatus : public Fenster {
    Q_OBJECT
public:
    // The segment is that of the exponent in the opener's txtPotenz, else segment 0.
    explicit frmMersenneStatus(QWidget* eltern = nullptr);
    ~frmMersenneStatus() override;
    void ShowMe(int modus) override;
    // btnGO: counts the segment anew and draws.
    void Zeichnen();
    // A divisor found for an exponent that had none: its stretch gains one settled row.
    void NewTeiler(int32_t p);
    // Passes a find of the divisor search to every open status window.
    static void TeilerGefunden(int32_t p);
    int64_t Von() const { return von_; }
    int64_t Bis() const { return bis_; }

protected:
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;

private:
    void malen();
    // Reads the queue from the server and fills the box; a server that does not answer is
    // said in the box rather than by an error box every few seconds.
    void SchlangeLesen();

    QLineEdit* txtSkala_;
    QLabel* lblGesamt_;
    Bild* picAnzeige_;
    int32_t segment_ = 0;
    int64_t von_ = 0, bis_ = 0, skala_ = 1;
    std::vector<StatusStrecke> strecken_;
    SaeulenDiagramm diagramm_;
    std::string schlangeUrl_;  // "" when the work is not shared through a server
    QGroupBox* grpSchlange_;
    QLabel* lblSchlange_;
    QTableWidget* tblWorker_;
    QTimer* schlangeTakt_;
};

}  // namespace sw
