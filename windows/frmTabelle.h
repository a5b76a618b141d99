// frmTabelle: the list of another window as a table. Its rows are split into columns at ";"
// and tabs; a click on a column head sorts by that column (numbers of any length by value,
// text after the numbers), a second click turns the order round. The table can be copied to
// the clipboard (tab-separated, so spreadsheets take it as columns) and saved as CSV.
#pragma once

#include <QStringList>

#include "frame/TabellenText.h"
#include "windows/Fenster.h"

class QPushButton;
class QTableWidget;

namespace sw {

class frmTabelle : public Fenster {
    Q_OBJECT
public:
    explicit frmTabelle(QWidget* eltern = nullptr);

    // A new window with zeilen as its table, titled after the window it comes from. With
    // kopfZeile the first line names the columns (the CSV of a window): it heads the table and
    // stays first when the rows are sorted, copied or saved.
    static frmTabelle* Oeffnen(const QStringList& zeilen, const QString& herkunft, QWidget* eltern,
                               bool kopfZeile = false);

    void Fuellen(const QStringList& zeilen, bool kopfZeile = false);
    // Sorts by column spalte; the same column again turns the order round.
    void Sortieren(int spalte);
    // The whole table, tab-separated, to the clipboard.
    void Kopieren();
    void CsvSichern();

protected:
    std::optional<QStringList> ListenText() override;
    std::optional<QStringList> ListenCsv() override;

private:
    void zeigen();

    QTableWidget* tabelle_;
    QPushButton* btnKopieren_;
    QPushButton* btnCsv_;
    // The head (if any) and the rows, as they are copied and saved.
    std::vector<TabellenZeile> alleZellen() const;

    TabellenZeile kopf_;
    std::vector<TabellenZeile> zeilen_;
    int sortSpalte_ = -1;
    bool absteigend_ = false;
};

}  // namespace sw
