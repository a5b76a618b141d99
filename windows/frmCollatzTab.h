// frmCollatzTab: a table of start values with their mark strings, and the searches for start
// values of I steps and M multiplications: forward (CollatzSuchen), by bands, by M alone, and
// backwards as the tree of every value of exactly I steps (CollatzBaum). A value found can be
// handed back to the window that opened this one.
#pragma once

#include <QString>

#include <functional>
#include <optional>

#include "collatz/CollatzSuche.h"
#include "windows/Fenster.h"
#include "zahlkern/Hyp.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;
class QWidget;

namespace sw {

class frmCollatzTab : public Fenster, private CollatzSuchZiel {
    Q_OBJECT
public:
    explicit frmCollatzTab(QWidget* eltern = nullptr);
    // Takes the start, step and sign that the opening window left in CollatzVon and
    // CollatzSchritt, shows the window and fills the table.
    void ShowMe(int modus) override;
    // What btnUeb does with txtVon: the opening window's field takes it.
    std::function<void(const QString&)> WertZurueck;

    void TabelleFuellen();     // btnGO
    void Suchen();             // btnSuchen
    void BaumZeigen();         // btnTest
    void ParameterUmschalten(); // btnParameter, lblHinweis
    void ErgebnisZeigen();     // btnShowErgebnis
    void WertUebernehmen();    // btnWertUebernehmen
    void ZeileGewaehlt(QListWidgetItem* item);

protected:
    std::optional<QStringList> ListenCsv() override;
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    std::string Marks(const Decimal& x) override;
    void Zeile(const std::string& text, const Decimal* wert) override;
    std::optional<Decimal> schritt();
    // The estimate of txtPot2 and txtPot6 into lblErgebnis; nothing after a box about a field.
    std::optional<Hyp> schaetzung();
    // The value of a number field; leer stands for an empty field where that is allowed.
    std::optional<Decimal> feldWert(QLineEdit* feld, const Decimal& von, const Decimal& bis,
                                    std::optional<Decimal> leer = std::nullopt);
    void suchenFreigeben();
    void zeileAnfuegen(const QString& text, const Decimal* wert);

    QLineEdit *txtVon_, *txtStep_, *txtII_, *txtMM_, *txtAnzahl_, *txtBlockAnzahl_, *txtPot2_, *txtPot6_;
    QLabel *lblPlusMinus_, *lblHinweis_, *lblErgebnis_;
    QPushButton *btnGO_, *btnParameter_, *btnSuchen_, *btnTest_, *btnShowErgebnis_, *btnWertUebernehmen_, *btnUeb_;
    QCheckBox *chkQuickSearch_, *chkDualFolge_;
    QRadioButton* optVerfahren_[2];
    QWidget* Frame1_;
    QListWidget* List1_;
    std::string letzteMarks_;
    QString testRuhe_;
};

}  // namespace sw
